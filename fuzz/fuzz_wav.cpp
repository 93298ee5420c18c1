// Feeds arbitrary bytes as a ".wav" file to SoundBuffer::LoadWavBuffer (RIFF chunks, PCM
// and the in-place IMA ADPCM decoder). A refused file must leave no samples; an accepted
// one may not claim more samples than four times the file.
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "sound/SoundBuffer.h"

namespace {

// One file in memory for the whole run, rewritten for every input.
int MemoryFile() {
  static int fd = memfd_create("fuzz_wav", 0);
  return fd;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const int fd = MemoryFile();
  if (fd < 0 || ftruncate(fd, 0) != 0) std::abort();
  if (size > 0 && pwrite(fd, data, size, 0) != static_cast<ssize_t>(size)) std::abort();
  const std::string path = "/proc/self/fd/" + std::to_string(fd);
  uint8_t* samples = nullptr;
  uint32_t bytes = 0xFFFFFFFFu;
  uint32_t rate = 0;
  uint8_t format = 0;
  const bool ok = nox::SoundBuffer::LoadWavBuffer(path, &samples, &bytes, &rate, &format);
  if (!ok && (samples || bytes != 0)) std::abort();
  if (ok && (!samples || bytes > 4 * static_cast<uint64_t>(size) || format > 3)) std::abort();
  // Every byte that the buffer claims must be readable.
  volatile uint8_t sink = 0;
  for (uint32_t i = 0; i < bytes; ++i) sink = sink ^ samples[i];
  nox::SoundBuffer::ReleaseWavBuffer(samples);
  return 0;
}
