// Small building blocks of the synthesisers: a seeded noise source, band-limited
// waveforms (PolyBLEP, so square and saw tones don't alias at 16 kHz), one-pole filters
// and an ADSR envelope. Everything is a pure function of its inputs and its own state:
// the same recipe gives the same samples on every run and every thread.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace soundgen {

const double kTwoPi = 6.283185307179586;

// xorshift32; never seeded with 0.
class Noise {
 public:
  explicit Noise(uint32_t seed) : m_State(seed ? seed : 0x9E3779B9u) {}
  double Next() {  // -1..1
    m_State ^= m_State << 13;
    m_State ^= m_State >> 17;
    m_State ^= m_State << 5;
    return static_cast<double>(m_State) / 2147483648.0 - 1.0;
  }

 private:
  uint32_t m_State;
};

// The PolyBLEP correction of a step at phase 0 for a phase increment `dt` (both in cycles).
inline double PolyBlep(double t, double dt) {
  if (t < dt) {
    t /= dt;
    return t + t - t * t - 1.0;
  }
  if (t > 1.0 - dt) {
    t = (t - 1.0) / dt;
    return t * t + t + t + 1.0;
  }
  return 0.0;
}

// Waveforms at phase `p` in cycles [0, 1) with increment `dt` per sample.
inline double SineWave(double p) {
  return std::sin(kTwoPi * p);
}

// A sine from a table with linear interpolation, about 100 dB clean: what music needs,
// at a fraction of the cost of std::sin for the thousands of partials a track sums.
// `p` may be any non-negative phase in cycles.
inline double TableSine(double p) {
  static const int kSize = 4096;
  static const struct Table {
    double v[kSize + 1];
    Table() {
      for (int i = 0; i <= kSize; ++i) v[i] = std::sin(kTwoPi * i / kSize);
    }
  } table;
  const double x = (p - std::floor(p)) * kSize;
  const int i = static_cast<int>(x);
  return table.v[i] + (table.v[i + 1] - table.v[i]) * (x - i);
}
inline double SawWave(double p, double dt) {
  return 2.0 * p - 1.0 - PolyBlep(p, dt);
}
inline double SquareWave(double p, double dt) {
  double q = p + 0.5;
  if (q >= 1.0) q -= 1.0;
  return (p < 0.5 ? 1.0 : -1.0) + PolyBlep(p, dt) - PolyBlep(q, dt);
}
inline double TriangleWave(double p) {
  return p < 0.5 ? 4.0 * p - 1.0 : 3.0 - 4.0 * p;
}

// One-pole low-pass and high-pass at `cutoff` Hz for `rate` Hz.
class OnePole {
 public:
  OnePole(double cutoff, double rate) : m_A(cutoff > 0.0 ? 1.0 - std::exp(-kTwoPi * cutoff / rate) : 1.0) {}
  double Low(double x) { return m_Y += m_A * (x - m_Y); }
  double High(double x) { return x - Low(x); }

 private:
  double m_A;
  double m_Y = 0.0;
};

// Attack (linear rise to 1), decay (towards `sustain`), hold, then a linear release that
// reaches 0 exactly at `length`. A note shorter than attack + release is scaled down so
// that it still starts and ends at 0.
struct Envelope {
  double attack = 0.005, decay = 0.1, sustain = 0.6, release = 0.05, length = 1.0;

  double At(double t) const {
    if (t <= 0.0 || t >= length) return 0.0;
    double a = attack, r = release;
    if (a + r > length) {
      const double k = length / (a + r);
      a *= k;
      r *= k;
    }
    const double releaseStart = length - r;
    const double level = Held(std::min(t, releaseStart), a);
    if (t <= releaseStart || r <= 0.0) return level;
    return level * (length - t) / r;
  }

 private:
  double Held(double t, double a) const {
    if (t < a) return t / a;
    if (decay <= 0.0) return sustain;
    // Exponential approach to the sustain level, 99% of the way after `decay`.
    return sustain + (1.0 - sustain) * std::exp(-4.6 * (t - a) / decay);
  }
};

// FNV-1a over a name: seeds that differ per sound but never per run.
inline uint32_t NameSeed(const char* name) {
  uint32_t h = 2166136261u;
  for (; *name; ++name) h = (h ^ static_cast<unsigned char>(*name)) * 16777619u;
  return h;
}

}  // namespace soundgen
