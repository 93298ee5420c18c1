// The synthesisers: pitches land where the recipe says, renders repeat exactly, effects
// start and stop at silence and music loops join without a click. Run over the title's
// own recipes, so a new recipe is checked the day it is written.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <thread>

#include "EffectSynth.h"
#include "ManifestReader.h"
#include "MusicSynth.h"
#include "Pitch.h"

namespace soundgen {
namespace {

const SoundSet& TitleSounds() {
  static const SoundSet set = [] {
    const std::string dir = NOX_CONTENT_DIR "/sounds/";
    SoundSet s;
    Diagnostics diag;
    ReadManifests({"", dir + "effects.json", dir + "stock.json", dir + "music.json"}, s, diag);
    EXPECT_TRUE(diag.Empty()) << diag.Joined();
    return s;
  }();
  return set;
}

float Peak(const std::vector<float>& v) {
  float peak = 0.0f;
  for (float x : v) peak = std::max(peak, std::fabs(x));
  return peak;
}

// Frequency from the rising zero crossings between `from` and `to` (samples).
double MeasuredHz(const std::vector<float>& v, size_t from, size_t to) {
  size_t first = 0, last = 0, count = 0;
  for (size_t i = from + 1; i < to; ++i) {
    if (v[i - 1] < 0.0f && v[i] >= 0.0f) {
      if (count == 0) first = i;
      last = i;
      ++count;
    }
  }
  return count < 2 ? 0.0 : (count - 1) * double(kSampleRate) / (last - first);
}

TEST(Pitch, NoteNamesKeysAndScaleDegreesGiveTheRightNotes) {
  int midi = 0;
  const std::pair<const char*, int> names[] = {{"C4", 60},  {"A4", 69},  {"F#5", 78}, {"Bb3", 58},
                                               {"B#3", 60}, {"Cb4", 59}, {"c0", 12},  {"G8", 115}};
  for (const auto& n : names) {
    ASSERT_TRUE(ParseNoteName(n.first, midi)) << n.first;
    EXPECT_EQ(midi, n.second) << n.first;
  }
  for (const char* bad : {"H4", "C", "C9", "C#", "C44", "4C", ""})
    EXPECT_FALSE(ParseNoteName(bad, midi)) << bad;
  EXPECT_NEAR(MidiToHz(69), 440.0, 1e-9);
  EXPECT_NEAR(MidiToHz(81), 880.0, 1e-9);

  int pc = 0;
  ASSERT_TRUE(ParseKeyName("Eb", pc));
  EXPECT_EQ(pc, 3);
  EXPECT_FALSE(ParseKeyName("Eb4", pc));
  // C major from C4, across octaves both ways; A minor's third is C; D dorian's sixth is B.
  EXPECT_EQ(DegreeToMidi(0, Mode::kMajor, 4, 0), 60);
  EXPECT_EQ(DegreeToMidi(0, Mode::kMajor, 4, 7), 72);
  EXPECT_EQ(DegreeToMidi(0, Mode::kMajor, 4, -1), 59);
  EXPECT_EQ(DegreeToMidi(0, Mode::kMajor, 4, -8), 47);
  EXPECT_EQ(DegreeToMidi(9, Mode::kMinor, 4, 2), 72);
  EXPECT_EQ(DegreeToMidi(2, Mode::kDorian, 4, 5), 71);
  EXPECT_EQ(DegreeToMidi(0, Mode::kMajor, 4, 3, 1), 66);
}

TEST(EffectSynth, ALayerSoundsAtItsNoteAndGlidesToItsTarget) {
  EffectRecipe r;
  r.name = "SFX_Test";
  r.length = 1.0;
  Layer tone;
  tone.freqs = {440.0};
  tone.sustain = 1.0;
  r.layers = {tone};
  const std::vector<float> steady = RenderEffect(r);
  ASSERT_EQ(steady.size(), 16000u);
  EXPECT_NEAR(MeasuredHz(steady, 2000, 14000), 440.0, 1.0);
  EXPECT_NEAR(Peak(steady), r.level, 1e-4);

  r.layers[0].glideTo = 880.0;
  const std::vector<float> glide = RenderEffect(r);
  EXPECT_NEAR(MeasuredHz(glide, 0, 800), 440.0, 25.0);
  EXPECT_NEAR(MeasuredHz(glide, 14400, 15200), 880.0 * std::pow(2.0, -0.075), 30.0);

  // A run of notes: the second note starts `step` later at its own pitch.
  r.layers[0] = tone;
  r.layers[0].freqs = {440.0, 660.0};
  r.layers[0].step = 0.5;
  r.layers[0].length = 0.45;
  const std::vector<float> run = RenderEffect(r);
  EXPECT_NEAR(MeasuredHz(run, 1000, 6000), 440.0, 2.0);
  EXPECT_NEAR(MeasuredHz(run, 9000, 14000), 660.0, 2.0);
  EXPECT_LT(Peak(std::vector<float>(run.begin() + 7300, run.begin() + 7900)), 0.01f);
}

TEST(EffectSynth, EveryEffectRepeatsExactlyStartsAndEndsInSilenceAndReachesItsLevel) {
  std::vector<const EffectRecipe*> all;
  for (const EffectRecipe& e : TitleSounds().effects) all.push_back(&e);
  for (const EffectRecipe& e : TitleSounds().stock) all.push_back(&e);
  ASSERT_GE(all.size(), 49u);

  std::vector<std::vector<float>> serial;
  for (const EffectRecipe* e : all) serial.push_back(RenderEffect(*e));
  // The build renders on several threads at once: no shared state may leak between renders.
  std::vector<std::vector<float>> parallel(all.size());
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&, t] {
      for (size_t i = t; i < all.size(); i += 4) parallel[i] = RenderEffect(*all[i]);
    });
  }
  for (std::thread& t : threads) t.join();

  for (size_t i = 0; i < all.size(); ++i) {
    const std::vector<float>& s = serial[i];
    SCOPED_TRACE(all[i]->name);
    EXPECT_EQ(s, parallel[i]);
    ASSERT_EQ(s.size(), static_cast<size_t>(std::lround(all[i]->length * kSampleRate)));
    EXPECT_EQ(s.front(), 0.0f);
    EXPECT_EQ(s.back(), 0.0f);
    EXPECT_LT(std::fabs(s[1]), 0.02f);
    EXPECT_LT(std::fabs(s[s.size() - 2]), 0.02f);
    EXPECT_NEAR(Peak(s), all[i]->level, 1e-4);
  }
}

TEST(MusicSynth, EveryTrackIsASeamlessLoopOfItsLengthAndRepeatsExactly) {
  const std::vector<MusicRecipe>& music = TitleSounds().music;
  ASSERT_EQ(music.size(), 12u);
  std::vector<std::vector<float>> parallel(music.size());
  std::vector<std::thread> threads;
  for (int t = 0; t < 2; ++t) {
    threads.emplace_back([&, t] {
      for (size_t i = t; i < music.size(); i += 2) parallel[i] = RenderMusic(music[i]);
    });
  }
  for (std::thread& t : threads) t.join();

  for (size_t i = 0; i < music.size(); ++i) {
    const MusicRecipe& m = music[i];
    SCOPED_TRACE(m.name);
    const std::vector<float> s = RenderMusic(m);
    EXPECT_EQ(s, parallel[i]);
    ASSERT_EQ(s.size(), MusicLoopSamples(m));
    EXPECT_NEAR(double(s.size()), m.Seconds() * kSampleRate, 1.0);
    EXPECT_GE(s.size(), 20u * kSampleRate);
    EXPECT_LE(s.size(), 40u * kSampleRate);
    EXPECT_NEAR(Peak(s), m.level, 1e-4);

    // Played again from the top, the step from the last sample to the first must be no
    // bigger than the steps around it: a click would stand out by far.
    float local = 0.0f;
    for (size_t k = 1; k < 32; ++k) {
      local = std::max(local, std::fabs(s[k] - s[k - 1]));
      local = std::max(local, std::fabs(s[s.size() - k] - s[s.size() - k - 1]));
    }
    EXPECT_LE(std::fabs(s.front() - s.back()), 1.5f * local + 1e-3f);

    // Music everywhere, not a few notes and then silence: every second has sound.
    for (size_t sec = 0; sec + kSampleRate <= s.size(); sec += kSampleRate) {
      double energy = 0.0;
      for (size_t k = sec; k < sec + kSampleRate; ++k) energy += double(s[k]) * s[k];
      EXPECT_GT(std::sqrt(energy / kSampleRate), 0.02) << "second " << sec / kSampleRate;
    }
  }
}

TEST(MusicSynth, ANoteHeldOverTheLoopPointContinuesAtTheStart) {
  MusicRecipe m;
  m.name = "MUS_Test";
  m.tempo = 120.0;
  m.bars = 2;
  m.meter = 4;
  m.chords = {0};
  // One long note in the last step: without the wrap its tail would be cut off.
  std::string error;
  ASSERT_TRUE(ParseMelody(". . . . . . . . | . . . . . . . 1", 8, m.melody, m.melodySteps, error)) << error;
  m.padGain = m.bassGain = 0.0;
  m.lead = Instrument::kOrgan;
  const std::vector<float> s = RenderMusic(m);
  ASSERT_EQ(s.size(), 64000u);
  // The note sounds from step 15 (60000) for 0.92 of a step plus its release; the start of
  // the loop carries that tail, the silence before the note does not.
  EXPECT_GT(Peak(std::vector<float>(s.begin(), s.begin() + 200)), 0.05f);
  EXPECT_LT(Peak(std::vector<float>(s.begin() + 8000, s.begin() + 59000)), 1e-6f);
}

}  // namespace
}  // namespace soundgen
