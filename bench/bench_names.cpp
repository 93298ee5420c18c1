// Name hashing: the cost of hashing a name at run time, by length, against the
// compile-time form that case labels use.
#include <benchmark/benchmark.h>

#include <string>

#include "core/HashString.h"

namespace {

void BM_HashString(benchmark::State& state) {
  const std::string name(static_cast<size_t>(state.range(0)), 'a');
  const char* text = name.c_str();
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(nox::HashString(text));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}
BENCHMARK(BM_HashString)->Arg(2)->Arg(15)->Arg(32)->Arg(128);

void BM_HashBuffer(benchmark::State& state) {
  const std::string name(static_cast<size_t>(state.range(0)), 'a');
  const unsigned char* bytes = reinterpret_cast<const unsigned char*>(name.data());
  for (auto _ : state) {
    benchmark::DoNotOptimize(bytes);
    benchmark::DoNotOptimize(nox::HashBuffer(bytes, name.size()));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}
BENCHMARK(BM_HashBuffer)->Arg(15)->Arg(128);

// A name written in the source hashes at build time: nothing is left to run.
void BM_HashStringConstant(benchmark::State& state) {
  for (auto _ : state) {
    constexpr nox::NameHash h = nox::HashString("CurrentSequence");
    benchmark::DoNotOptimize(h);
  }
}
BENCHMARK(BM_HashStringConstant);

}  // namespace
