// Feeds arbitrary bytes to the font loader's checks. The first byte chooses the size
// of the texture file beside the table: 0 takes the size the table names, anything
// else a size that differs from it. The rest is the ".fdata". An accepted table must
// measure and format every byte string without reading or writing out of bounds,
// with as many triangles formatted as measured and texture coordinates within 0 to 1.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "graphics/Font.h"
#include "ostra/HostConfig.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Hollin::Ostra::Host::HostConfig config;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const bool matchingTexture = data[0] == 0;
  const unsigned long fdataSize = size - 1;
  unsigned char* fdata = new unsigned char[fdataSize + 1];
  memcpy(fdata, data + 1, fdataSize);
  unsigned long ftexSize = data[0];
  if (matchingTexture && fdataSize >= 8) {
    uint16_t w = 0, h = 0;
    memcpy(&w, fdata + 4, 2);
    memcpy(&h, fdata + 6, 2);
    ftexSize = static_cast<unsigned long>(w) * h;
  }

  nox::Font font;
  if (!font.AdoptGlyphTable(fdata, fdataSize, ftexSize, nullptr)) {
    if (font.IsLoaded()) std::abort();
    return 0;
  }

  // Every byte value, then the input itself as text.
  std::string text;
  for (int c = 0; c < 256; ++c) text.push_back(static_cast<char>(c));
  text.append(reinterpret_cast<const char*>(data), size);

  unsigned long measured = 0;
  const nox::Vector2 size1 = font.MeasureText(text, &measured);
  std::vector<short> positions(measured * 6 + 1);
  std::vector<nox::Real> coords(measured * 6 + 1);
  unsigned long formatted = 0;
  nox::Vector2 size2;
  font.FormatText(text, positions.data(), coords.data(), &formatted, &size2);
  if (formatted != measured || size1 != size2) std::abort();
  for (unsigned long i = 0; i < measured * 6; ++i) {
    if (coords[i].Raw() < 0 || coords[i].Raw() > nox::Real::kOneRaw) std::abort();
  }
  return 0;
}
