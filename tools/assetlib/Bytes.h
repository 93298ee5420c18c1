// Little-endian byte building and zlib packing for the asset tools.
#pragma once
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace assetlib {

typedef std::vector<uint8_t> Bytes;

inline void Put8(Bytes& out, uint32_t v) {
  out.push_back(static_cast<uint8_t>(v));
}
inline void Put16(Bytes& out, uint32_t v) {
  out.push_back(static_cast<uint8_t>(v));
  out.push_back(static_cast<uint8_t>(v >> 8));
}
inline void Put32(Bytes& out, uint32_t v) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<uint8_t>(v >> (8 * i)));
}
inline void Set32(Bytes& out, size_t at, uint32_t v) {
  for (int i = 0; i < 4; ++i) out[at + i] = static_cast<uint8_t>(v >> (8 * i));
}
inline uint32_t Get32(const uint8_t* p) {
  return static_cast<uint32_t>(p[0]) | static_cast<uint32_t>(p[1]) << 8 | static_cast<uint32_t>(p[2]) << 16 |
         static_cast<uint32_t>(p[3]) << 24;
}
inline uint16_t Get16(const uint8_t* p) {
  return static_cast<uint16_t>(p[0] | p[1] << 8);
}
// Zero bytes up to the next multiple of `alignment`.
inline void PadTo(Bytes& out, size_t alignment) {
  while (out.size() % alignment) out.push_back(0);
}
inline void Append(Bytes& out, const Bytes& more) {
  out.insert(out.end(), more.begin(), more.end());
}

// One zlib stream at the best compression.
Bytes Pack(const uint8_t* data, size_t size);
inline Bytes Pack(const Bytes& data) {
  return Pack(data.data(), data.size());
}
// Unpacks to exactly `size` bytes; false otherwise.
bool Unpack(const uint8_t* data, size_t packed, size_t size, Bytes& out);

bool ReadFile(const std::string& path, Bytes& out, std::string& error);
bool WriteFile(const std::string& path, const Bytes& data, std::string& error);

}  // namespace assetlib
