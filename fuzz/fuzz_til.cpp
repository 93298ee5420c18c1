// Feeds arbitrary bytes as a background: a 4-byte length, the ".til" index of that
// length, and the rest as its "-tiled.tex". A refused index must leave no tiles; an
// accepted one is read tile by tile into buffers of the full size and of a short one.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/PathRegistry.h"
#include "graphics/TileResourceFile.h"
#include "ostra/HostConfig.h"

namespace {

std::string TempPrefix() {
  const char* dir = getenv("TMPDIR");
  return std::string(dir && dir[0] ? dir : "/tmp") + "/fuzz-til-" + std::to_string(getpid());
}

void WriteFile(const std::string& path, const uint8_t* data, size_t size) {
  FILE* out = fopen(path.c_str(), "wb");
  if (!out) return;
  if (size) fwrite(data, 1, size, out);
  fclose(out);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Hollin::Ostra::Host::HostConfig config;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  nox::PathRegistry::Create();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string prefix = TempPrefix();
  if (size < 4) return 0;
  uint32_t indexSize;
  memcpy(&indexSize, data, 4);
  if (indexSize > size - 4) indexSize = static_cast<uint32_t>(size - 4);
  WriteFile(prefix + ".til", data + 4, indexSize);
  WriteFile(prefix + "-tiled.tex", data + 4 + indexSize, size - 4 - indexSize);
  nox::TileResourceFile file;
  if (!file.Initialize(prefix)) {
    if (file.GetColumns() != 0 || file.FindTileIndexData(0, 0) != nullptr) std::abort();
  } else {
    static unsigned char full[2048];
    unsigned char* shortBuffer = new unsigned char[100];
    const unsigned columns = file.GetColumns() < 8 ? file.GetColumns() : 8;
    const unsigned rows = file.GetRows() < 8 ? file.GetRows() : 8;
    for (unsigned y = 0; y <= rows; ++y) {
      for (unsigned x = 0; x <= columns; ++x) {
        file.LoadTile(x, y, full, sizeof(full));
        file.LoadTile(x, y, shortBuffer, 100);
        (void)file.GetTileKey(x, y);
      }
    }
    delete[] shortBuffer;
  }
  remove((prefix + ".til").c_str());
  remove((prefix + "-tiled.tex").c_str());
  return 0;
}
