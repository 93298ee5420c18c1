#include "core/RealMath.h"

#include <cstdlib>

namespace nox {

Real sqrt(Real x) {
  uint32_t value = static_cast<uint32_t>(x.Raw());
  uint32_t remainder = 0;
  uint32_t root = 0;
  // 24 passes of two bits each: the 32 bits of the value, then 16 zero bits, which
  // makes the root a Q16.16 number again.
  for (int pass = 0; pass < 24; ++pass) {
    remainder = (remainder << 2) | (value >> 30);
    value <<= 2;
    root <<= 1;
    const uint32_t trial = 2 * root + 1;
    if (remainder >= trial) {
      remainder -= trial;
      root += 1;
    }
  }
  return Real::FromRaw(static_cast<int32_t>(root));
}

uint32_t u64_sqrt(uint64_t v) {
  uint64_t g = static_cast<uint32_t>(v >> 1);
  if (g == 0) return static_cast<uint32_t>(v);
  for (int pass = 0; pass < 26; ++pass) {
    const uint64_t next = (v / g + g) / 2;
    const uint64_t diff = next > g ? next - g : g - next;
    g = next;
    if (diff < 2) break;
  }
  return static_cast<uint32_t>(g);
}

Real rand_real(Real a, Real b) {
  // Both scalings are by powers of two and exact; the one rounding is rand() to float.
  const float unit = static_cast<float>(std::rand()) * (1.0f / 2147483648.0f) * 65536.0f;
  const Real r = Real::FromRaw(SaturateToS32(unit));
  return a + r * (b - a);
}

}  // namespace nox
