// Token readers for level elements. Numbers are read as the device reads them into
// 32-bit longs: a value that does not fit fails the stream there, so it fails here.
#pragma once
#include <cstdint>
#include <istream>
#include <string>

namespace noxfw {

inline bool ReadLevelSigned(std::istream& in, int32_t& out) {
  long long v;
  if (!(in >> v)) return false;
  if (v < INT32_MIN || v > INT32_MAX) {
    in.setstate(std::ios::failbit);
    return false;
  }
  out = static_cast<int32_t>(v);
  return true;
}

// Unsigned tokens: hashes and counts. A leading minus sign is refused rather than
// wrapped into a huge count.
inline bool ReadLevelUnsigned(std::istream& in, uint32_t& out) {
  long long v;
  if (!(in >> v)) return false;
  if (v < 0 || v > static_cast<long long>(UINT32_MAX)) {
    in.setstate(std::ios::failbit);
    return false;
  }
  out = static_cast<uint32_t>(v);
  return true;
}

// Skips one white-space separated word.
inline bool SkipLevelWord(std::istream& in) {
  std::string word;
  return static_cast<bool>(in >> word);
}

}  // namespace noxfw
