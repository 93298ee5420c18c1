// A 4x4 matrix of Reals stored column after column, the order glLoadMatrixx takes:
// column c is elements 4c..4c+3, the translation is elements 12, 13, 14 and the scale
// elements 0, 5 and 10. Every sum of products shifts each product on its own before
// adding, which can differ by a raw unit or two from shifting once; that is intended.
// A value type; CreateLookAtMatrix builds a camera matrix into a plain array.
#pragma once
#include "core/NormalTable.h"
#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class Matrix4 {
 public:
  Matrix4() = default;  // the zero matrix
  // Copies 16 Reals; a null pointer leaves the zero matrix.
  explicit Matrix4(const Real* elements);

  void Set(const Real* elements);
  void SetZero();
  void SetIdentity();

  Real& operator[](int i) { return m_Elements[i]; }
  const Real& operator[](int i) const { return m_Elements[i]; }
  // The 16 elements in column order, ready for glLoadMatrixx.
  const Real* Data() const { return m_Elements; }
  Real* Data() { return m_Elements; }

  bool operator==(const Matrix4& m) const;
  bool operator!=(const Matrix4& m) const { return !(*this == m); }

  Matrix4 operator+(const Matrix4& m) const;
  Matrix4 operator-(const Matrix4& m) const;
  // this x m for column vectors: element 4c + r is the sum over k of
  // this[4k + r] * m[4c + k].
  Matrix4 operator*(const Matrix4& m) const;

  void Transpose(Matrix4& out) const;
  // Transposes the upper-left 3x3, negates the translation element by element without
  // rotating it, and sets the fourth row to 0, 0, 0, 1.0. The true inverse only for a
  // pure rotation or a pure translation; callers rely on exactly this.
  void OrthogonalInverse(Matrix4& out) const;

  // Column i is elements 4i..4i+3; row i is elements i, i+4, i+8, i+12.
  void SetColumn(int i, const Vector3& v, Real w);
  Vector3 GetColumn(int i) const;
  void SetRow(int i, const Vector3& v, Real w);
  Vector3 GetRow(int i) const;

  Vector3 GetTranslationPortion() const;
  void SetTranslationPortion(const Vector3& t);
  // Makes this the identity with translation t.
  void CreateTranslation(const Vector3& t);

  Vector3 GetScalePortion() const;
  void SetScalePortion(const Vector3& s);
  // Makes this the identity with scale s on the diagonal.
  void CreateScale(const Vector3& s);

  // The upper-left 3x3 in an otherwise identity matrix.
  Matrix4 GetRotation() const;

  // The upper three rows applied to (v, 1); the fourth row is ignored.
  Vector3 FastTransformPoint(const Vector3& v) const;
  // The same for three bytes taken as whole numbers.
  void FastTransformPoint(const unsigned char* bytes, Vector3& out) const;
  // The upper-left 3x3 only.
  Vector3 FastTransformNormal(const Vector3& v) const;
  // A normal of g_NormalTable by index; an index past the table gives the zero vector.
  void FastTransformNormal(unsigned index, Vector3& out) const {
    out = index < kNormalTableSize ? FastTransformNormal(g_NormalTable[index]) : Vector3();
  }

 private:
  Real m_Elements[16];  // column-major
};

// Writes a view matrix to m[16]: f = normalized (target - eye), s = normalized f x up,
// u = s x f; elements 0, 4, 8 hold s, 1, 5, 9 hold u, 2, 6, 10 hold -f, 3, 7, 11 hold
// -eye (in the fourth row, not turned into the new axes), 12..14 are 0 and 15 is 1.0.
void CreateLookAtMatrix(Real* m, const Vector3& eye, const Vector3& target, const Vector3& up);

}  // namespace nox
