// Real arithmetic, sine, roots and vector lengths. Inputs come from a table so that
// the compiler cannot fold the work away.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "core/Matrix4.h"
#include "core/RealMath.h"
#include "core/Trig.h"
#include "core/Vector3.h"

namespace {

std::vector<nox::Real> MakeReals(int32_t mask, int32_t offset) {
  std::vector<nox::Real> v(1024);
  uint32_t x = 2463534242u;
  for (nox::Real& r : v) {
    x ^= x << 13;
    x ^= x >> 17;
    x ^= x << 5;
    r = nox::Real::FromRaw(static_cast<int32_t>(x & static_cast<uint32_t>(mask)) + offset);
  }
  return v;
}

void BM_RealMultiply(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0xFFFFFF, -0x800000);
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(a[i & 1023] * a[(i + 1) & 1023]);
    ++i;
  }
}
BENCHMARK(BM_RealMultiply);

void BM_RealDivide(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0xFFFFFF, 0x10000);
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(a[i & 1023] / a[(i + 1) & 1023]);
    ++i;
  }
}
BENCHMARK(BM_RealDivide);

void BM_Sin(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0x7FFFFFF, -0x4000000);
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(nox::sin(a[i & 1023]));
    ++i;
  }
}
BENCHMARK(BM_Sin);

void BM_Sqrt(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0x7FFFFFFF, 0);
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(nox::sqrt(a[i & 1023]));
    ++i;
  }
}
BENCHMARK(BM_Sqrt);

// Components below 40.0 take the Real root; larger ones the whole-number Newton root.
void BM_MagnitudeShort(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0x3FFFFF, -0x200000);
  size_t i = 0;
  for (auto _ : state) {
    const nox::Vector3 v(a[i & 1023], a[(i + 1) & 1023], a[(i + 2) & 1023]);
    benchmark::DoNotOptimize(v.magnitude());
    ++i;
  }
}
BENCHMARK(BM_MagnitudeShort);

void BM_MagnitudeLong(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0x3FFFFFF, 0x280000);
  size_t i = 0;
  for (auto _ : state) {
    const nox::Vector3 v(a[i & 1023], a[(i + 1) & 1023], a[(i + 2) & 1023]);
    benchmark::DoNotOptimize(v.magnitude());
    ++i;
  }
}
BENCHMARK(BM_MagnitudeLong);

void BM_Vector3Normalize(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0x3FFFFF, 0x10000);
  size_t i = 0;
  for (auto _ : state) {
    nox::Vector3 v(a[i & 1023], a[(i + 1) & 1023], a[(i + 2) & 1023]);
    v.normalize();
    benchmark::DoNotOptimize(v);
    ++i;
  }
}
BENCHMARK(BM_Vector3Normalize);

void BM_MatrixTransformPoint(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0x3FFFF, -0x20000);
  const nox::Matrix4 m(a.data());
  size_t i = 0;
  for (auto _ : state) {
    const nox::Vector3 v(a[i & 1023], a[(i + 1) & 1023], a[(i + 2) & 1023]);
    benchmark::DoNotOptimize(m.FastTransformPoint(v));
    ++i;
  }
}
BENCHMARK(BM_MatrixTransformPoint);

void BM_MatrixMultiply(benchmark::State& state) {
  const std::vector<nox::Real> a = MakeReals(0x3FFFF, -0x20000);
  const nox::Matrix4 m(a.data());
  const nox::Matrix4 n(a.data() + 16);
  for (auto _ : state) benchmark::DoNotOptimize(m * n);
}
BENCHMARK(BM_MatrixMultiply);

}  // namespace
