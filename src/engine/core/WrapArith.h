// Integer helpers for the fixed-point arithmetic: 32-bit two's-complement wrapping
// done in unsigned arithmetic, arithmetic right shifts that do not depend on how the
// compiler shifts negative numbers, and float-to-integer conversion that saturates
// like the device's run-time instead of being undefined out of range.
#pragma once
#include <cstdint>

namespace nox {

// The low 32 bits of u read as a two's-complement number.
constexpr int32_t WrapToS32(uint32_t u) {
  return u < 0x80000000u ? static_cast<int32_t>(u) : -static_cast<int32_t>(~u) - 1;
}

// The low 32 bits of v read as a two's-complement number.
constexpr int32_t WrapToS32(int64_t v) {
  return WrapToS32(static_cast<uint32_t>(static_cast<uint64_t>(v)));
}

constexpr int32_t WrapAdd(int32_t a, int32_t b) {
  return WrapToS32(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

constexpr int32_t WrapSub(int32_t a, int32_t b) {
  return WrapToS32(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

constexpr int32_t WrapNeg(int32_t a) {
  return WrapToS32(0u - static_cast<uint32_t>(a));
}

constexpr int32_t WrapShiftLeft(int32_t a, unsigned s) {
  return WrapToS32(static_cast<uint32_t>(a) << s);
}

// Rounds towards minus infinity, as a sign-extending shift does.
constexpr int64_t ShiftRightArith(int64_t v, unsigned s) {
  return v >= 0 ? v >> s : ~(~v >> s);
}

constexpr int32_t ShiftRightArith(int32_t v, unsigned s) {
  return v >= 0 ? v >> s : ~(~v >> s);
}

// |a| as unsigned, so that the most negative value has a magnitude too.
constexpr uint32_t UnsignedAbs(int32_t a) {
  return a < 0 ? 0u - static_cast<uint32_t>(a) : static_cast<uint32_t>(a);
}

// Truncation towards zero; out of range saturates and NaN gives 0, as the device's
// soft-float conversion does.
constexpr int32_t SaturateToS32(double d) {
  if (!(d == d)) return 0;
  if (d >= 2147483648.0) return INT32_MAX;
  if (d <= -2147483649.0) return INT32_MIN;
  return static_cast<int32_t>(d);
}

}  // namespace nox
