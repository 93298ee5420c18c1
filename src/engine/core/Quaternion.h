// A rotation as a quaternion (x, y, z, w) of Reals; the default (0, 0, 0, 1.0) is no
// rotation. Norm() is the root, not its square, and Inverse() divides by it once, so
// both are right for unit quaternions only. GetAxis and GetAngle are empty on purpose:
// they return zeros and nothing may count on more.
#pragma once
#include "core/Matrix4.h"
#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class Quaternion {
 public:
  Real x;
  Real y;
  Real z;
  Real w = Real(1);

  constexpr Quaternion() = default;
  constexpr Quaternion(Real x_, Real y_, Real z_, Real w_) : x(x_), y(y_), z(z_), w(w_) {}
  // A turn of degrees about axis, which is not normalized.
  Quaternion(const Vector3& axis, Real degrees) { Set(axis, degrees); }
  // The turn from a towards b: (a x b, a . b + 1.0), divided by its norm.
  Quaternion(const Vector3& a, const Vector3& b);

  void Set(Real x_, Real y_, Real z_, Real w_);
  void Set(const Vector3& axis, Real degrees);

  bool operator==(const Quaternion& q) const { return x == q.x && y == q.y && z == q.z && w == q.w; }
  bool operator!=(const Quaternion& q) const { return !(*this == q); }

  Quaternion Pure() const { return Quaternion(x, y, z, Real()); }
  Quaternion Conjugate() const { return Quaternion(-x, -y, -z, w); }
  Real Norm() const;
  Quaternion Inverse() const;

  // Hamilton product.
  Quaternion operator*(const Quaternion& q) const;

  // v rotated: with t = 2 (q x v), v + w t + q x t, q being the vector part.
  Vector3 Transform(const Vector3& v) const;
  // The rotation into the upper-left 3x3 of out, the rest identity.
  void ToMatrix(Matrix4& out) const;

  Vector3 GetAxis() const { return Vector3(); }
  Real GetAngle() const { return Real(); }
};

}  // namespace nox
