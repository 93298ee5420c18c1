// Names as 32-bit hashes. Every asset, animation, sequence, style, attribute and
// message name is compared by its NameHash: start at 5381, then for each byte
// h = h * 33 + byte, wrapping in 32 bits, bytes taken as unsigned (0x80..0xFF add
// as 128..255). Case is kept and nothing is trimmed. The functions are constexpr so
// that a name can be a case label: `case nox::HashString("Exit"):`.
#pragma once
#include <cstdint>
#include <string>

namespace nox {

// 32 bits on every host, so a hash computed here equals the one stored in files.
typedef uint32_t NameHash;

constexpr NameHash kHashSeed = 5381u;

constexpr NameHash HashAppend(NameHash h, char c) {
  return h * 33u + static_cast<unsigned char>(c);
}

// A null text adds nothing.
constexpr NameHash HashAppend(NameHash h, const char* s) {
  if (!s) return h;
  while (*s) h = HashAppend(h, *s++);
  return h;
}

constexpr NameHash HashString(const char* s) {
  return HashAppend(kHashSeed, s);
}

inline NameHash HashString(const std::string& s) {
  return HashString(s.c_str());
}

// Over exactly n bytes, zeros included, carrying on from h.
constexpr NameHash HashBufferAppend(NameHash h, const unsigned char* p, unsigned long n) {
  for (unsigned long i = 0; i < n; ++i) h = h * 33u + p[i];
  return h;
}

constexpr NameHash HashBuffer(const unsigned char* p, unsigned long n) {
  return HashBufferAppend(kHashSeed, p, n);
}

}  // namespace nox
