// A 3D vector of Reals: a value type with no state of its own beyond x, y and z.
// Products inside dot and cross are shifted one by one before they are added, and
// magnitude() switches from the exact Real root to whole-number lengths once a
// component reaches 40.0; both behaviours are part of what the game was tuned on.
// GetVectorYaw and GetVectorPitch turn a direction into degrees.
#pragma once
#include "core/Real.h"
#include "core/Vector2.h"

namespace nox {

class Vector3 {
 public:
  Real x;
  Real y;
  Real z;

  constexpr Vector3() = default;
  constexpr Vector3(Real x_, Real y_, Real z_) : x(x_), y(y_), z(z_) {}
  explicit constexpr Vector3(const Vector2& v) : x(v.x), y(v.y), z() {}
  constexpr Vector3(const Vector2& v, Real z_) : x(v.x), y(v.y), z(z_) {}

  bool operator==(const Vector3& v) const { return x == v.x && y == v.y && z == v.z; }
  bool operator!=(const Vector3& v) const { return !(*this == v); }

  Vector3& operator+=(const Vector3& v) {
    x += v.x;
    y += v.y;
    z += v.z;
    return *this;
  }
  Vector3& operator-=(const Vector3& v) {
    x -= v.x;
    y -= v.y;
    z -= v.z;
    return *this;
  }
  Vector3& operator*=(Real s) {
    x *= s;
    y *= s;
    z *= s;
    return *this;
  }
  // Component by component.
  Vector3& operator*=(const Vector3& v) {
    x *= v.x;
    y *= v.y;
    z *= v.z;
    return *this;
  }
  // A zero divisor is replaced by raw 1 (1/65536) and the replacement is written back
  // into the caller's variable. A constant or temporary divisor has nothing to write
  // back into and takes the const overload, which divides by raw 1 all the same.
  Vector3& operator/=(Real& d);
  Vector3& operator/=(const Real& d);

  Vector3 operator+(const Vector3& v) const { return Vector3(*this) += v; }
  Vector3 operator-(const Vector3& v) const { return Vector3(*this) -= v; }
  Vector3 operator-() const { return Vector3(-x, -y, -z); }
  Vector3 operator*(Real s) const { return Vector3(*this) *= s; }

  Real dot(const Vector3& v) const { return x * v.x + y * v.y + z * v.z; }
  // x and y only.
  Real dot(const Vector2& v) const { return x * v.x + y * v.y; }
  Vector3 cross(const Vector3& v) const {
    return Vector3(y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x);
  }
  // dot(v) times v; v is taken to be of unit length.
  Vector3 project(const Vector3& v) const { return v * dot(v); }

  Real magnitudeSquared() const { return x * x + y * y + z * z; }
  Real magnitude() const;
  // Through float and double; for rare use, never per frame.
  Real preciseMagnitude() const;
  // Divides by zero (RealDivisionByZero) for the zero vector.
  void normalize();
  // Writes the normalized vector to out and returns true; for a zero magnitude
  // returns false and leaves out untouched.
  bool safeNormalize(Vector3& out) const;

  // The true distance: magnitude of this - v.
  Real separation(const Vector3& v) const { return (*this - v).magnitude(); }
  // The magnitude of this + v, with a plus: what the engine's callers were tuned on.
  Real distance(const Vector3& v) const { return (*this + v).magnitude(); }
};

inline Vector3 operator*(Real s, const Vector3& v) {
  return v * s;
}

// Degrees in 0 up to 360.0 about the y axis: atan2(x, z) turned into degrees, with
// 360.0 added when negative.
Real GetVectorYaw(const Vector3& v);

// Degrees in -90.0 to 90.0 above the horizontal plane, from a normalized copy with
// the smaller of x and z zeroed (z is kept when |z| equals |x|).
Real GetVectorPitch(const Vector3& v);

}  // namespace nox
