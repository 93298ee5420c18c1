// The engine's one number type: a signed Q16.16 fixed-point value (0x10000 is 1.0)
// with wrapping arithmetic and the exact roundings that the game's tuning constants
// were chosen against. Nothing here is to be "improved": products and quotients
// round as written below, and every overflow wraps.
//
// Width. The template is used only as FixedPoint<long, 16>. On the tablet `long` is
// 32 bits, and everything that consumes a Real relies on that: matrices go to
// glLoadMatrixx as GLfixed, and vertex buffers lay out three Reals in 12 bytes. On an
// LP64 host `long` is 64 bits, so the storage parameter only names the device type and
// the raw value is always held as int32_t. Every operation computes in unsigned or
// 64-bit arithmetic and then keeps the low 32 bits, so results wrap exactly as on the
// device and no step has signed-overflow behaviour.
#pragma once
#include <cstdint>
#include <type_traits>

#include "core/WrapArith.h"

namespace nox {

// Called for a zero divisor. Writes one automation line and raises SIGFPE, as the
// device's run-time division handler does; it never returns.
[[noreturn]] void RealDivisionByZero();

template <typename Storage, int FractionBits>
class FixedPoint {
  static_assert(std::is_same<Storage, long>::value && FractionBits == 16,
                "only FixedPoint<long, 16> (Real) is defined");

 public:
  using RawType = int32_t;
  static constexpr int kFractionBits = FractionBits;
  static constexpr RawType kOneRaw = 1 << FractionBits;

  constexpr FixedPoint() : m_Raw(0) {}

  // Whole numbers: shifted left 16 with no overflow check, so 32768 and above wrap.
  // Only the low 32 bits of a wider integer count, as they would on the device.
  constexpr FixedPoint(int v) : m_Raw(FromWhole(static_cast<uint32_t>(v))) {}
  constexpr FixedPoint(unsigned v) : m_Raw(FromWhole(v)) {}
  constexpr FixedPoint(long v) : m_Raw(FromWhole(static_cast<uint32_t>(v))) {}
  constexpr FixedPoint(unsigned long v) : m_Raw(FromWhole(static_cast<uint32_t>(v))) {}
  constexpr FixedPoint(long long v) : m_Raw(FromWhole(static_cast<uint32_t>(v))) {}
  constexpr FixedPoint(unsigned long long v) : m_Raw(FromWhole(static_cast<uint32_t>(v))) {}

  // Truncation of f * 65536.0f, computed in float. Explicit because floating point
  // is for rare, named uses only.
  explicit constexpr FixedPoint(float f) : m_Raw(SaturateToS32(f * 65536.0f)) {}
  // Narrowed to float first; values far outside the range are clamped before the
  // narrowing, which would otherwise be undefined, and saturate as above.
  explicit constexpr FixedPoint(double d)
      : FixedPoint(d > 65536.0    ? 65536.0f
                   : d < -65536.0 ? -65536.0f
                                  : static_cast<float>(d)) {}

  static constexpr FixedPoint FromRaw(RawType raw) {
    FixedPoint r;
    r.m_Raw = raw;
    return r;
  }

  constexpr RawType Raw() const { return m_Raw; }
  void SetRaw(RawType raw) { m_Raw = raw; }

  // Arithmetic shift: rounds towards minus infinity.
  constexpr int32_t ToInt() const { return ShiftRightArith(m_Raw, FractionBits); }
  float ToFloat() const { return static_cast<float>(m_Raw) * 1.5258789e-5f; }

  FixedPoint& operator+=(FixedPoint o) {
    m_Raw = WrapAdd(m_Raw, o.m_Raw);
    return *this;
  }
  FixedPoint& operator-=(FixedPoint o) {
    m_Raw = WrapSub(m_Raw, o.m_Raw);
    return *this;
  }
  // 64-bit product, arithmetic shift right 16 (towards minus infinity), low 32 bits.
  FixedPoint& operator*=(FixedPoint o) {
    m_Raw = Mul(m_Raw, o.m_Raw);
    return *this;
  }
  // (a << 32) / b in 64 bits truncating towards zero, then arithmetic shift right 16,
  // low 32 bits. A zero divisor goes to RealDivisionByZero.
  FixedPoint& operator/=(FixedPoint o) {
    m_Raw = Div(m_Raw, o.m_Raw);
    return *this;
  }

  constexpr FixedPoint operator-() const { return FromRaw(WrapNeg(m_Raw)); }
  constexpr FixedPoint operator+() const { return *this; }

  friend FixedPoint operator+(FixedPoint a, FixedPoint b) { return a += b; }
  friend FixedPoint operator-(FixedPoint a, FixedPoint b) { return a -= b; }
  friend FixedPoint operator*(FixedPoint a, FixedPoint b) { return a *= b; }
  friend FixedPoint operator/(FixedPoint a, FixedPoint b) { return a /= b; }

  friend constexpr bool operator==(FixedPoint a, FixedPoint b) { return a.m_Raw == b.m_Raw; }
  friend constexpr bool operator!=(FixedPoint a, FixedPoint b) { return a.m_Raw != b.m_Raw; }
  friend constexpr bool operator<(FixedPoint a, FixedPoint b) { return a.m_Raw < b.m_Raw; }
  friend constexpr bool operator<=(FixedPoint a, FixedPoint b) { return a.m_Raw <= b.m_Raw; }
  friend constexpr bool operator>(FixedPoint a, FixedPoint b) { return a.m_Raw > b.m_Raw; }
  friend constexpr bool operator>=(FixedPoint a, FixedPoint b) { return a.m_Raw >= b.m_Raw; }

  // The raw operations, for code that works on raw values directly.
  static constexpr RawType Mul(RawType a, RawType b) {
    return WrapToS32(ShiftRightArith(static_cast<int64_t>(a) * b, FractionBits));
  }
  static RawType Div(RawType a, RawType b) {
    if (b == 0) RealDivisionByZero();
    // a << 32 is built unsigned, since shifting a negative value left is undefined.
    const int64_t num = static_cast<int64_t>(static_cast<uint64_t>(static_cast<int64_t>(a)) << 32);
    // INT64_MIN / -1 overflows; the device's wrapping result is the negation.
    const int64_t q = b == -1 ? static_cast<int64_t>(0u - static_cast<uint64_t>(num)) : num / b;
    return WrapToS32(ShiftRightArith(q, FractionBits));
  }

 private:
  static constexpr RawType FromWhole(uint32_t v) { return WrapToS32(v << FractionBits); }

  RawType m_Raw;  // Q16.16
};

}  // namespace nox
