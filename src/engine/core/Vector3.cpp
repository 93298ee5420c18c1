#include "core/Vector3.h"

#include <cmath>

#include "core/RealMath.h"
#include "core/Trig.h"

namespace nox {
namespace {

constexpr uint32_t kRealPathLimit = 0x280000;  // 40.0

}  // namespace

Vector3& Vector3::operator/=(Real& d) {
  if (d.Raw() == 0) d = Real::FromRaw(1);
  x /= d;
  y /= d;
  z /= d;
  return *this;
}

Vector3& Vector3::operator/=(const Real& d) {
  const Real divisor = d.Raw() == 0 ? Real::FromRaw(1) : d;
  x /= divisor;
  y /= divisor;
  z /= divisor;
  return *this;
}

Real Vector3::magnitude() const {
  if (UnsignedAbs(x.Raw()) < kRealPathLimit && UnsignedAbs(y.Raw()) < kRealPathLimit &&
      UnsignedAbs(z.Raw()) < kRealPathLimit) {
    return sqrt(magnitudeSquared());
  }
  // Whole-number components: the sum of their squares needs 64 bits.
  const int64_t ix = x.ToInt();
  const int64_t iy = y.ToInt();
  const int64_t iz = z.ToInt();
  return Real(u64_sqrt(static_cast<uint64_t>(ix * ix + iy * iy + iz * iz)));
}

Real Vector3::preciseMagnitude() const {
  // Separate statements keep the float products from being fused.
  const float fx = x.ToFloat();
  const float fy = y.ToFloat();
  const float fz = z.ToFloat();
  const float xx = fx * fx;
  const float yy = fy * fy;
  const float zz = fz * fz;
  const float xy = xx + yy;
  const float sum = xy + zz;
  return Real::FromRaw(SaturateToS32(std::sqrt(static_cast<double>(sum)) * 65536.0));
}

void Vector3::normalize() {
  const Real inv = InverseMagnitudeFactor(magnitude());
  x *= inv;
  y *= inv;
  z *= inv;
}

bool Vector3::safeNormalize(Vector3& out) const {
  const Real m = magnitude();
  if (m.Raw() == 0) return false;
  out = *this;
  out *= InverseMagnitudeFactor(m);
  return true;
}

Real GetVectorYaw(const Vector3& v) {
  Real yaw = atan2(v.x, v.z) * kRadiansToDegrees;
  if (yaw < 0) yaw += Real(360);
  return yaw;
}

Real GetVectorPitch(const Vector3& v) {
  Vector3 copy = v;
  Real across;
  if (UnsignedAbs(v.z.Raw()) >= UnsignedAbs(v.x.Raw())) {
    copy.x = Real();
    copy.normalize();
    across = copy.z;
  } else {
    copy.z = Real();
    copy.normalize();
    across = copy.x;
  }
  if (across < 0) across = -across;
  return atan2(copy.y, across) * kRadiansToDegrees;
}

}  // namespace nox
