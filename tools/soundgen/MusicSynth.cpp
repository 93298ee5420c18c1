#include "MusicSynth.h"

#include <algorithm>
#include <cmath>

#include "Oscillators.h"
#include "Pitch.h"

namespace soundgen {

namespace {

// Samples of the loop; a note that runs past the end continues at the start.
class LoopBuffer {
 public:
  explicit LoopBuffer(size_t n) : m_Samples(n, 0.0f) {}
  void Add(size_t index, double v) { m_Samples[index % m_Samples.size()] += static_cast<float>(v); }
  std::vector<float>& Samples() { return m_Samples; }

 private:
  std::vector<float> m_Samples;
};

struct Shape {
  double attack, decay, sustain, release;
  double vibratoRate = 0.0, vibratoDepth = 0.0;  // Hz, semitones; fades in over 0.2 s
};

Shape ShapeOf(Instrument inst) {
  switch (inst) {
    case Instrument::kFlute:
      return {0.04, 0.2, 0.8, 0.1, 5.0, 0.12};
    case Instrument::kBell:
      return {0.002, 0.0, 1.0, 0.9};
    case Instrument::kPluck:
      return {0.003, 0.0, 1.0, 0.35};
    case Instrument::kReed:
      return {0.03, 0.1, 0.7, 0.08, 5.5, 0.06};
    case Instrument::kWhistle:
      return {0.06, 0.1, 0.9, 0.1, 6.0, 0.25};
    case Instrument::kSoftBass:
      return {0.01, 0.3, 0.6, 0.08};
    case Instrument::kStrings:
      return {0.35, 0.0, 1.0, 0.6, 4.0, 0.05};
    case Instrument::kChoir:
      return {0.4, 0.0, 1.0, 0.6, 4.5, 0.1};
    case Instrument::kOrgan:
      return {0.02, 0.0, 1.0, 0.06};
  }
  return {0.01, 0.1, 0.7, 0.1};
}

// Sum of harmonics with amplitudes `amps` up to the Nyquist limit.
double Harmonics(double phase, double freq, const double* amps, int count) {
  double v = 0.0;
  for (int k = 1; k <= count && freq * k < kSampleRate / 2.0; ++k) v += amps[k - 1] * TableSine(phase * k);
  return v;
}

// Plays one note: `start` in samples, `hold` seconds until the note is let go.
void PlayNote(Instrument inst, double midi, size_t start, double hold, double gain, uint32_t seed,
              LoopBuffer& buf) {
  const double rate = kSampleRate;
  const Shape shape = ShapeOf(inst);
  Envelope env;
  env.attack = shape.attack;
  env.decay = shape.decay;
  env.sustain = shape.sustain;
  env.release = shape.release;
  env.length = hold + shape.release;
  const double freq = MidiToHz(midi);
  Noise noise(seed);
  OnePole breath(2000.0, rate);
  OnePole tone(std::min(freq * 3.0, 6000.0), rate);
  OnePole strings(1500.0, rate);
  const size_t count = static_cast<size_t>(env.length * rate);
  double phase = 0.0, phase2 = 0.3, phase3 = 0.6, modPhase = 0.0;
  // Each partial of a plucked string dies away faster than the one below it.
  double pluckLevel[8], pluckDecay[8];
  for (int k = 0; k < 8; ++k) {
    pluckLevel[k] = 1.0 / (k + 1);
    pluckDecay[k] = std::exp(-std::pow(k + 1, 0.7) / (0.6 * rate));
  }
  for (size_t i = 0; i < count; ++i) {
    const double t = i / rate;
    double f = freq;
    if (shape.vibratoRate > 0.0) {
      // 2^(d/12) is 1 + d ln2/12 to well within a cent for these depths (a quarter tone at most).
      const double depth = shape.vibratoDepth * std::min(1.0, t / 0.2);
      f *= 1.0 + 0.057762265 * depth * TableSine(shape.vibratoRate * t);
    }
    const double dt = f / rate;
    double v = 0.0;
    switch (inst) {
      case Instrument::kFlute: {
        static const double amps[] = {1.0, 0.12, 0.04};
        v = Harmonics(phase, f, amps, 3) + 0.03 * breath.Low(noise.Next());
        break;
      }
      case Instrument::kBell: {
        const double index = 2.5 * std::exp(-t / 0.3);
        v = TableSine(phase + index / kTwoPi * TableSine(modPhase) + 1.0) * std::exp(-t / 0.7);
        modPhase += 3.5 * dt;
        modPhase -= std::floor(modPhase);
        break;
      }
      case Instrument::kPluck:
        for (int k = 0; k < 8 && f * (k + 1) < rate / 2.0; ++k) {
          v += TableSine(phase * (k + 1)) * pluckLevel[k];
          pluckLevel[k] *= pluckDecay[k];
        }
        break;
      case Instrument::kReed:
        v = 0.6 * tone.Low(SquareWave(phase, dt));
        break;
      case Instrument::kWhistle:
        v = TableSine(phase) + 0.01 * noise.Next();
        break;
      case Instrument::kSoftBass: {
        static const double amps[] = {1.0, 0.35, 0.08};
        v = Harmonics(phase, f, amps, 3);
        break;
      }
      case Instrument::kStrings: {
        const double detune = std::pow(2.0, 7.0 / 1200.0);
        v = strings.Low((SawWave(phase, dt) + SawWave(phase2, dt * detune) + SawWave(phase3, dt / detune)) /
                        3.0);
        phase2 += dt * detune;
        phase3 += dt / detune;
        phase2 -= std::floor(phase2);
        phase3 -= std::floor(phase3);
        break;
      }
      case Instrument::kChoir: {
        static const double amps[] = {1.0, 0.5, 0.35, 0.2, 0.1};
        v = 0.6 * Harmonics(phase, f, amps, 5);
        break;
      }
      case Instrument::kOrgan: {
        static const double amps[] = {1.0, 0.6, 0.35, 0.25, 0.0, 0.1};
        v = 0.5 * Harmonics(phase, f, amps, 6);
        break;
      }
    }
    phase += dt;
    phase -= std::floor(phase);
    buf.Add(start + i, v * env.At(t) * gain);
  }
}

enum class Hit { kKick, kHat, kSnare, kShaker };

void PlayHit(Hit hit, size_t start, double gain, uint32_t seed, LoopBuffer& buf) {
  const double rate = kSampleRate;
  Noise noise(seed);
  OnePole high(hit == Hit::kSnare ? 1200.0 : hit == Hit::kShaker ? 4000.0 : 5000.0, rate);
  OnePole low(5000.0, rate);
  const double length = hit == Hit::kKick ? 0.25 : hit == Hit::kSnare ? 0.2 : 0.08;
  const size_t count = static_cast<size_t>(length * rate);
  double phase = 0.0;
  for (size_t i = 0; i < count; ++i) {
    const double t = i / rate;
    // A short rise and a short fall at the ends keep every hit free of clicks.
    const double edge = std::min({1.0, t / 0.001, (length - t) / 0.01});
    double v = 0.0;
    switch (hit) {
      case Hit::kKick:
        v = SineWave(phase) * std::exp(-t / 0.09);
        phase += (45.0 + 65.0 * std::exp(-t / 0.04)) / rate;
        break;
      case Hit::kHat:
        v = 0.5 * high.High(noise.Next()) * std::exp(-t / 0.02);
        break;
      case Hit::kSnare:
        v = 0.6 * low.Low(high.High(noise.Next())) * std::exp(-t / 0.06) +
            0.5 * SineWave(phase) * std::exp(-t / 0.05);
        phase += 190.0 / rate;
        break;
      case Hit::kShaker:
        v = 0.5 * high.High(noise.Next()) * std::min(1.0, t / 0.01) * std::exp(-t / 0.03);
        break;
    }
    phase -= std::floor(phase);
    buf.Add(start + i, v * edge * gain);
  }
}

struct Timing {
  double samplesPerStep;
  int barSteps;
  size_t At(long step) const { return static_cast<size_t>(std::llround(step * samplesPerStep)); }
  double Seconds(int steps) const { return steps * samplesPerStep / kSampleRate; }
};

Timing TimingOf(const MusicRecipe& r) {
  return Timing{kSampleRate * 60.0 / r.tempo / r.stepsPerBeat, r.meter * r.stepsPerBeat};
}

void PlayMelody(const MusicRecipe& r, const Timing& tm, uint32_t seed, LoopBuffer& buf) {
  const int total = r.bars * tm.barSteps;
  for (int rep = 0; rep * r.melodySteps < total; ++rep) {
    int step = rep * r.melodySteps;
    for (const MelodyNote& n : r.melody) {
      if (!n.rest) {
        const int midi = DegreeToMidi(r.keyPitch, r.mode, r.leadOctave, n.degree, n.shift);
        PlayNote(r.lead, midi, tm.At(step), tm.Seconds(n.steps) * 0.92, r.leadGain, seed + step, buf);
      }
      step += n.steps;
    }
  }
}

void PlayChords(const MusicRecipe& r, const Timing& tm, uint32_t seed, LoopBuffer& buf) {
  const int beatSteps = r.stepsPerBeat;
  for (int bar = 0; bar < r.bars; ++bar) {
    const int chord = r.chords[bar % r.chords.size()];
    const long barStep = static_cast<long>(bar) * tm.barSteps;
    // The pad: the triad in the octave below E4, held for the bar.
    int root = DegreeToMidi(r.keyPitch, r.mode, 4, chord);
    const int padShift = root > 64 ? -12 : 0;
    for (int k = 0; k < 3; ++k) {
      const int midi = DegreeToMidi(r.keyPitch, r.mode, 4, chord + 2 * k) + padShift;
      PlayNote(r.pad, midi, tm.At(barStep), tm.Seconds(tm.barSteps), r.padGain * 0.45, seed + bar * 3 + k,
               buf);
    }
    // The bass, between E2 and D#3.
    root = DegreeToMidi(r.keyPitch, r.mode, 2, chord);
    const int bassShift = root < 40 ? 12 : 0;
    auto bass = [&](int degreeAbove, long step, int steps) {
      const int midi = DegreeToMidi(r.keyPitch, r.mode, 2, chord + degreeAbove) + bassShift;
      PlayNote(r.bass, midi, tm.At(step), tm.Seconds(steps) * 0.9, r.bassGain, seed + step, buf);
    };
    switch (r.bassPattern) {
      case BassPattern::kRoot:
        bass(0, barStep, tm.barSteps);
        break;
      case BassPattern::kRootFifth: {
        const int half = (r.meter + 1) / 2 * beatSteps;
        bass(0, barStep, half);
        bass(4, barStep + half, tm.barSteps - half);
        break;
      }
      case BassPattern::kWalk: {
        static const int walk[4] = {0, 2, 4, 5};
        for (int b = 0; b < r.meter; ++b) bass(walk[b % 4], barStep + b * beatSteps, beatSteps);
        break;
      }
      case BassPattern::kArpeggio: {
        static const int arp[4] = {0, 4, 7, 4};
        const int each = std::max(1, beatSteps / 2);
        for (int s = 0, i = 0; s < tm.barSteps; s += each, ++i) bass(arp[i % 4], barStep + s, each);
        break;
      }
    }
  }
}

void PlayDrums(const MusicRecipe& r, const Timing& tm, uint32_t seed, LoopBuffer& buf) {
  if (r.drums == Drums::kNone) return;
  const double g = r.drumGain;
  // Hats and shakers on every half beat (or every step when a beat has only one).
  const int half = std::max(1, r.stepsPerBeat / 2);
  for (int bar = 0; bar < r.bars; ++bar) {
    const long barStep = static_cast<long>(bar) * tm.barSteps;
    for (int b = 0; b < r.meter; ++b) {
      const long beat = barStep + b * r.stepsPerBeat;
      const bool strong = b == 0 || (r.meter % 2 == 0 && b == r.meter / 2);
      const uint32_t s = seed + static_cast<uint32_t>(beat) * 2654435761u;
      switch (r.drums) {
        case Drums::kSoft:
          if (strong) PlayHit(Hit::kKick, tm.At(beat), g * (b == 0 ? 1.0 : 0.7), s, buf);
          break;
        case Drums::kMarch:
          PlayHit(strong ? Hit::kKick : Hit::kSnare, tm.At(beat), g * (strong ? 1.0 : 0.6), s, buf);
          break;
        case Drums::kShaker:
          if (b == 0) PlayHit(Hit::kKick, tm.At(beat), g * 0.7, s, buf);
          break;
        case Drums::kNone:
          break;
      }
      for (int k = 0; k < r.stepsPerBeat; k += half) {
        const Hit hit = r.drums == Drums::kShaker ? Hit::kShaker : Hit::kHat;
        PlayHit(hit, tm.At(beat + k), g * (k == 0 ? 0.5 : 0.3), s + 17 + k, buf);
      }
    }
  }
}

}  // namespace

size_t MusicLoopSamples(const MusicRecipe& recipe) {
  return TimingOf(recipe).At(static_cast<long>(recipe.bars) * recipe.meter * recipe.stepsPerBeat);
}

std::vector<float> RenderMusic(const MusicRecipe& recipe) {
  const Timing tm = TimingOf(recipe);
  LoopBuffer buf(MusicLoopSamples(recipe));
  const uint32_t seed = NameSeed(recipe.name.c_str());
  PlayChords(recipe, tm, seed, buf);
  PlayMelody(recipe, tm, seed ^ 0x5bd1e995u, buf);
  PlayDrums(recipe, tm, seed ^ 0x27d4eb2du, buf);
  std::vector<float>& out = buf.Samples();
  float peak = 0.0f;
  for (float v : out) peak = std::max(peak, std::fabs(v));
  if (peak > 0.0f) {
    const float scale = static_cast<float>(recipe.level) / peak;
    for (float& v : out) v *= scale;
  }
  return out;
}

}  // namespace soundgen
