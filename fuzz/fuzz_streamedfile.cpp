// Feeds arbitrary bytes as a chunked world file to StreamedFile, read whole and
// streamed through a small cache. A refused file must hold nothing; an accepted one
// must hand out chunks whose every byte can be read.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "core/StreamedFile.h"
#include "ostra/HostConfig.h"

namespace {

std::string TempPath() {
  const char* dir = getenv("TMPDIR");
  return std::string(dir && dir[0] ? dir : "/tmp") + "/fuzz-streamedfile-" + std::to_string(getpid()) +
         ".render";
}

// Reads every byte the file says a chunk holds, so the sanitizers see any overrun.
unsigned Touch(const unsigned char* p, uint32_t size) {
  unsigned sum = 0;
  for (uint32_t i = 0; i < size; ++i) sum += p[i];
  return sum;
}

void Exercise(const std::string& path, uint32_t maxChunks) {
  nox::StreamedFile file;
  if (!file.Load(path, maxChunks)) {
    if (file.IsLoaded() || file.LoadChunk(0) || file.GetStaticData()) std::abort();
    return;
  }
  volatile unsigned sink = Touch(file.GetStaticData() ? file.GetStaticData() : file.GetHeader(),
                                 file.GetStaticData() ? file.GetStaticSize() : 0);
  const uint32_t count = file.GetChunkCount();
  const uint32_t ids = count < 16 ? count + 1 : 16;
  for (uint32_t round = 0; round < 2; ++round) {
    for (uint32_t id = 0; id < ids; ++id) {
      unsigned char* chunk = file.LoadChunk(id);
      if (!chunk) continue;
      if (file.GetLoadedChunk(id) != chunk) std::abort();
      sink = sink + Touch(chunk, file.GetChunkSize(id));
      // Keep every other chunk held so the cache fills and reuses slots.
      if ((id + round) % 2) file.ReleaseChunk(id);
    }
  }
  (void)sink;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Hollin::Ostra::Host::HostConfig config;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string path = TempPath();
  FILE* out = fopen(path.c_str(), "wb");
  if (!out) return 0;
  fwrite(data, 1, size, out);
  fclose(out);
  Exercise(path, 0);
  Exercise(path, 2);
  Exercise(path, 4);
  remove(path.c_str());
  return 0;
}
