// The audio module's mixer: the cost of one second of output (32 kHz stereo) with 1 and
// 16 voices of 16 kHz samples in memory, and with 16 streamed Ogg voices (decoding
// included). One iteration mixes one second; the time per iteration is the cost of a
// second of audio.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "ostra/AudioMPI.h"
#include "ostra/HostAudio.h"

namespace {

namespace Ostra = Hollin::Ostra;

const std::vector<S16>& Block() {
  static std::vector<S16> block = [] {
    std::vector<S16> samples(16000);  // 1 s at 16 kHz
    uint32_t x = 2463534242u;
    for (S16& s : samples) {
      x ^= x << 13;
      x ^= x >> 17;
      x ^= x << 5;
      s = static_cast<S16>(x);
    }
    return samples;
  }();
  return block;
}

// Looped voices, each at its own volume and pan, so that no shortcut applies.
void StartMemoryVoices(int count) {
  Ostra::CAudioMPI audio;
  Ostra::tAudioHeader header;
  header.dataSize = static_cast<U32>(Block().size() * 2);
  for (int i = 0; i < count; ++i) {
    audio.StartAudio(header, Block().data(), nullptr, static_cast<U8>(40 + 3 * i), 100,
                     static_cast<S8>(-80 + 10 * i), nullptr, 0x40000000, Ostra::kAudioOptionsLooped);
  }
}

void BM_MixOneSecond_MemoryVoices(benchmark::State& state) {
  Ostra::HostAudio::Shutdown();
  StartMemoryVoices(static_cast<int>(state.range(0)));
  for (auto _ : state) Ostra::HostAudio::MixMilliseconds(1000);
  Ostra::HostAudio::Shutdown();
  state.SetLabel("one iteration = 1 s of 32 kHz stereo output");
}
BENCHMARK(BM_MixOneSecond_MemoryVoices)->Arg(1)->Arg(16)->Unit(benchmark::kMicrosecond);

void BM_MixOneSecond_OggVoices(benchmark::State& state) {
  const std::string path = "/tmp/bench_mixer_tone.ogg";
  if (system(("sox -n -r 22050 -c 2 " + path + " synth 2 sine 300 sine 500 vol 0.5 2>/dev/null").c_str()) !=
      0) {
    state.SkipWithError("sox with Ogg Vorbis is not installed");
    return;
  }
  Ostra::HostAudio::Shutdown();
  Ostra::CAudioMPI audio;
  for (int i = 0; i < state.range(0); ++i) {
    audio.StartAudio(path, 50, 100, 0, nullptr, 0x40000000, Ostra::kAudioOptionsLooped);
  }
  for (auto _ : state) Ostra::HostAudio::MixMilliseconds(1000);
  Ostra::HostAudio::Shutdown();
  remove(path.c_str());
}
BENCHMARK(BM_MixOneSecond_OggVoices)->Arg(1)->Arg(16)->Unit(benchmark::kMicrosecond);

}  // namespace
