#include "core/Quaternion.h"

#include "core/RealMath.h"
#include "core/Trig.h"

namespace nox {

Quaternion::Quaternion(const Vector3& a, const Vector3& b) {
  const Vector3 c = a.cross(b);
  x = c.x;
  y = c.y;
  z = c.z;
  w = a.dot(b) + Real(1);
  const Real n = Norm();
  x /= n;
  y /= n;
  z /= n;
  w /= n;
}

void Quaternion::Set(Real x_, Real y_, Real z_, Real w_) {
  x = x_;
  y = y_;
  z = z_;
  w = w_;
}

void Quaternion::Set(const Vector3& axis, Real degrees) {
  const Real half = degrees / Real(2);
  const Real s = sin(half);
  x = axis.x * s;
  y = axis.y * s;
  z = axis.z * s;
  w = cos(half);
}

Real Quaternion::Norm() const {
  return sqrt(x * x + y * y + z * z + w * w);
}

Quaternion Quaternion::Inverse() const {
  const Real n = Norm();
  return Quaternion(-x / n, -y / n, -z / n, w / n);
}

Quaternion Quaternion::operator*(const Quaternion& q) const {
  return Quaternion(w * q.x + x * q.w + y * q.z - z * q.y, w * q.y - x * q.z + y * q.w + z * q.x,
                    w * q.z + x * q.y - y * q.x + z * q.w, w * q.w - x * q.x - y * q.y - z * q.z);
}

Vector3 Quaternion::Transform(const Vector3& v) const {
  const Vector3 q(x, y, z);
  const Vector3 t = q.cross(v) * Real(2);
  return v + t * w + q.cross(t);
}

void Quaternion::ToMatrix(Matrix4& out) const {
  const Real x2 = x * Real(2);
  const Real y2 = y * Real(2);
  const Real z2 = z * Real(2);
  const Real w2 = w * Real(2);
  const Real one(1);
  out.SetZero();
  out[0] = one - y2 * y - z2 * z;
  out[1] = x2 * y - w2 * z;
  out[2] = w2 * y + x2 * z;
  out[4] = w2 * z + x2 * y;
  out[5] = one - x2 * x - z2 * z;
  out[6] = y2 * z - w2 * x;
  out[8] = x2 * z - w2 * y;
  out[9] = w2 * x + y2 * z;
  out[10] = one - y2 * y - x2 * x;
  out[15] = one;
}

}  // namespace nox
