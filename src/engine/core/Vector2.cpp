#include "core/Vector2.h"

#include <cmath>

#include "core/RealMath.h"

namespace nox {
namespace {

constexpr uint32_t kRealPathLimit = 0x7F0000;  // 127.0

}  // namespace

Real InverseMagnitudeFactor(Real magnitude) {
  if (magnitude.Raw() == 0) RealDivisionByZero();
  const int64_t quotient = (int64_t{1} << 48) / magnitude.Raw();
  return Real::FromRaw(WrapToS32(ShiftRightArith(quotient, 16)));
}

Vector2& Vector2::operator/=(Real& d) {
  if (d.Raw() == 0) d = Real::FromRaw(1);
  x /= d;
  y /= d;
  return *this;
}

Vector2& Vector2::operator/=(const Real& d) {
  const Real divisor = d.Raw() == 0 ? Real::FromRaw(1) : d;
  x /= divisor;
  y /= divisor;
  return *this;
}

Real Vector2::magnitude() const {
  if (UnsignedAbs(x.Raw()) < kRealPathLimit && UnsignedAbs(y.Raw()) < kRealPathLimit) {
    return sqrt(magnitudeSquared());
  }
  // Whole-number components: the sum of their squares needs 64 bits.
  const int64_t ix = x.ToInt();
  const int64_t iy = y.ToInt();
  return Real(u64_sqrt(static_cast<uint64_t>(ix * ix + iy * iy)));
}

Real Vector2::preciseMagnitude() const {
  // Separate statements keep the float products from being fused.
  const float fx = x.ToFloat();
  const float fy = y.ToFloat();
  const float xx = fx * fx;
  const float yy = fy * fy;
  const float sum = xx + yy;
  return Real::FromRaw(SaturateToS32(std::sqrt(static_cast<double>(sum)) * 65536.0));
}

void Vector2::normalize() {
  const Real inv = InverseMagnitudeFactor(magnitude());
  x *= inv;
  y *= inv;
}

bool Vector2::safeNormalize(Vector2& out) const {
  const Real m = magnitude();
  if (m.Raw() == 0) return false;
  out = *this;
  out *= InverseMagnitudeFactor(m);
  return true;
}

}  // namespace nox
