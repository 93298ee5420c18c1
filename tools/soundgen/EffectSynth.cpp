#include "EffectSynth.h"

#include <algorithm>
#include <cmath>

#include "Oscillators.h"

namespace soundgen {

namespace {

const double kEdgeFade = 0.004;  // s: fade at both ends of an effect

void RenderNote(const Layer& layer, double start, double length, double freq, Noise& noise,
                std::vector<float>& out) {
  const double rate = kSampleRate;
  Envelope env;
  env.attack = layer.attack;
  env.decay = layer.decay;
  env.sustain = layer.sustain;
  env.release = layer.release;
  env.length = length;
  OnePole low(layer.lowpass, rate), high(layer.highpass, rate);
  const size_t first = static_cast<size_t>(std::lround(start * rate));
  const size_t count = static_cast<size_t>(std::lround(length * rate));
  const double glide = layer.glideTo > 0.0 && freq > 0.0 ? std::log(layer.glideTo / freq) : 0.0;
  const double indexTo = layer.fmIndexTo >= 0.0 ? layer.fmIndexTo : layer.fmIndex;
  double phase = 0.0, modPhase = 0.0;
  for (size_t i = 0; i < count && first + i < out.size(); ++i) {
    const double t = i / rate;
    const double progress = t / length;
    double f = freq * std::exp(glide * progress);
    if (layer.vibratoRate > 0.0) {
      f *= std::pow(2.0, layer.vibratoDepth / 12.0 * std::sin(kTwoPi * layer.vibratoRate * t));
    }
    const double dt = std::min(f / rate, 0.5);
    double v = 0.0;
    switch (layer.wave) {
      case Wave::kSine:
        v = SineWave(phase);
        break;
      case Wave::kTriangle:
        v = TriangleWave(phase);
        break;
      case Wave::kSquare:
        v = 0.7 * SquareWave(phase, dt);
        break;
      case Wave::kSaw:
        v = 0.7 * SawWave(phase, dt);
        break;
      case Wave::kNoise:
        v = noise.Next();
        break;
      case Wave::kFm: {
        const double index = layer.fmIndex + (indexTo - layer.fmIndex) * progress;
        v = std::sin(kTwoPi * phase + index * std::sin(kTwoPi * modPhase));
        modPhase += f * layer.fmRatio / rate;
        modPhase -= std::floor(modPhase);
        break;
      }
    }
    phase += dt;
    phase -= std::floor(phase);
    if (layer.lowpass > 0.0) v = low.Low(v);
    if (layer.highpass > 0.0) v = high.High(v);
    out[first + i] += static_cast<float>(v * env.At(t) * layer.gain);
  }
}

}  // namespace

std::vector<float> RenderEffect(const EffectRecipe& recipe) {
  const double rate = kSampleRate;
  std::vector<float> out(static_cast<size_t>(std::lround(recipe.length * rate)), 0.0f);
  Noise noise(NameSeed(recipe.name.c_str()));
  for (const Layer& layer : recipe.layers) {
    for (size_t n = 0; n < layer.freqs.size(); ++n) {
      const double start = layer.at + layer.step * n;
      double length = layer.length > 0.0 ? layer.length : recipe.length - start;
      length = std::min(length, recipe.length - start);
      if (length > 0.0) RenderNote(layer, start, length, layer.freqs[n], noise, out);
    }
  }
  if (recipe.echoDelay > 0.0) {
    const size_t delay = static_cast<size_t>(std::lround(recipe.echoDelay * rate));
    for (size_t i = delay; i < out.size(); ++i) {
      out[i] += static_cast<float>(recipe.echoFeedback) * out[i - delay];
    }
  }
  const size_t fade = std::min(out.size() / 2, static_cast<size_t>(kEdgeFade * rate));
  for (size_t i = 0; i < fade; ++i) {
    const float k = static_cast<float>(i) / static_cast<float>(fade);
    out[i] *= k;
    out[out.size() - 1 - i] *= k;
  }
  float peak = 0.0f;
  for (float v : out) peak = std::max(peak, std::fabs(v));
  if (peak > 0.0f) {
    const float scale = static_cast<float>(recipe.level) / peak;
    for (float& v : out) v *= scale;
  }
  return out;
}

std::vector<int16_t> ToPcm16(const std::vector<float>& samples) {
  std::vector<int16_t> pcm(samples.size());
  for (size_t i = 0; i < samples.size(); ++i) {
    const long v = std::lround(static_cast<double>(samples[i]) * 32767.0);
    pcm[i] = static_cast<int16_t>(std::clamp(v, -32768L, 32767L));
  }
  return pcm;
}

}  // namespace soundgen
