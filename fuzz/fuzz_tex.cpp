// Feeds arbitrary bytes as a plain picture (".tex") to TextureFile. A refused file
// must leave the object empty; an accepted one must hold exactly the pixels its
// header promises, every byte of which is read here.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "graphics/TextureFile.h"
#include "graphics/TileFileFormat.h"
#include "ostra/HostConfig.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Hollin::Ostra::Host::HostConfig config;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  nox::TextureFile file;
  if (file.Parse(data, size)) {
    if (file.GetPixels() || file.GetWidth() || file.GetPixelBytes()) std::abort();
    return 0;
  }
  const unsigned long expected = static_cast<unsigned long>(file.GetWidth()) * file.GetHeight() *
                                 nox::TexBytesPerPixel(file.GetPixelFormat());
  if (file.GetPixelBytes() != expected || (expected > 0) != (file.GetPixels() != nullptr)) std::abort();
  volatile unsigned sum = 0;
  for (unsigned long i = 0; i < file.GetPixelBytes(); ++i) sum = sum + file.GetPixels()[i];
  (void)sum;
  return 0;
}
