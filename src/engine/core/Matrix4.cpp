#include "core/Matrix4.h"

namespace nox {

Matrix4::Matrix4(const Real* elements) {
  if (elements) Set(elements);
}

void Matrix4::Set(const Real* elements) {
  for (int i = 0; i < 16; ++i) m_Elements[i] = elements[i];
}

void Matrix4::SetZero() {
  for (Real& e : m_Elements) e = Real();
}

void Matrix4::SetIdentity() {
  SetZero();
  m_Elements[0] = m_Elements[5] = m_Elements[10] = m_Elements[15] = Real(1);
}

bool Matrix4::operator==(const Matrix4& m) const {
  for (int i = 0; i < 16; ++i) {
    if (m_Elements[i] != m.m_Elements[i]) return false;
  }
  return true;
}

Matrix4 Matrix4::operator+(const Matrix4& m) const {
  Matrix4 r;
  for (int i = 0; i < 16; ++i) r.m_Elements[i] = m_Elements[i] + m.m_Elements[i];
  return r;
}

Matrix4 Matrix4::operator-(const Matrix4& m) const {
  Matrix4 r;
  for (int i = 0; i < 16; ++i) r.m_Elements[i] = m_Elements[i] - m.m_Elements[i];
  return r;
}

Matrix4 Matrix4::operator*(const Matrix4& m) const {
  Matrix4 r;
  for (int c = 0; c < 4; ++c) {
    for (int row = 0; row < 4; ++row) {
      Real sum;
      for (int k = 0; k < 4; ++k) sum += m_Elements[4 * k + row] * m.m_Elements[4 * c + k];
      r.m_Elements[4 * c + row] = sum;
    }
  }
  return r;
}

void Matrix4::Transpose(Matrix4& out) const {
  Matrix4 r;
  for (int c = 0; c < 4; ++c) {
    for (int row = 0; row < 4; ++row) r.m_Elements[4 * row + c] = m_Elements[4 * c + row];
  }
  out = r;
}

void Matrix4::OrthogonalInverse(Matrix4& out) const {
  Matrix4 r;
  for (int c = 0; c < 3; ++c) {
    for (int row = 0; row < 3; ++row) r.m_Elements[4 * row + c] = m_Elements[4 * c + row];
  }
  r.m_Elements[12] = -m_Elements[12];
  r.m_Elements[13] = -m_Elements[13];
  r.m_Elements[14] = -m_Elements[14];
  r.m_Elements[15] = Real(1);
  out = r;
}

void Matrix4::SetColumn(int i, const Vector3& v, Real w) {
  m_Elements[4 * i] = v.x;
  m_Elements[4 * i + 1] = v.y;
  m_Elements[4 * i + 2] = v.z;
  m_Elements[4 * i + 3] = w;
}

Vector3 Matrix4::GetColumn(int i) const {
  return Vector3(m_Elements[4 * i], m_Elements[4 * i + 1], m_Elements[4 * i + 2]);
}

void Matrix4::SetRow(int i, const Vector3& v, Real w) {
  m_Elements[i] = v.x;
  m_Elements[i + 4] = v.y;
  m_Elements[i + 8] = v.z;
  m_Elements[i + 12] = w;
}

Vector3 Matrix4::GetRow(int i) const {
  return Vector3(m_Elements[i], m_Elements[i + 4], m_Elements[i + 8]);
}

Vector3 Matrix4::GetTranslationPortion() const {
  return GetColumn(3);
}

void Matrix4::SetTranslationPortion(const Vector3& t) {
  m_Elements[12] = t.x;
  m_Elements[13] = t.y;
  m_Elements[14] = t.z;
}

void Matrix4::CreateTranslation(const Vector3& t) {
  SetIdentity();
  SetTranslationPortion(t);
}

Vector3 Matrix4::GetScalePortion() const {
  return Vector3(m_Elements[0], m_Elements[5], m_Elements[10]);
}

void Matrix4::SetScalePortion(const Vector3& s) {
  m_Elements[0] = s.x;
  m_Elements[5] = s.y;
  m_Elements[10] = s.z;
}

void Matrix4::CreateScale(const Vector3& s) {
  SetIdentity();
  SetScalePortion(s);
}

Matrix4 Matrix4::GetRotation() const {
  Matrix4 r;
  r.SetIdentity();
  for (int c = 0; c < 3; ++c) {
    for (int row = 0; row < 3; ++row) r.m_Elements[4 * c + row] = m_Elements[4 * c + row];
  }
  return r;
}

Vector3 Matrix4::FastTransformPoint(const Vector3& v) const {
  const Real* m = m_Elements;
  return Vector3(m[0] * v.x + m[4] * v.y + m[8] * v.z + m[12], m[1] * v.x + m[5] * v.y + m[9] * v.z + m[13],
                 m[2] * v.x + m[6] * v.y + m[10] * v.z + m[14]);
}

void Matrix4::FastTransformPoint(const unsigned char* bytes, Vector3& out) const {
  out = FastTransformPoint(Vector3(Real(bytes[0]), Real(bytes[1]), Real(bytes[2])));
}

Vector3 Matrix4::FastTransformNormal(const Vector3& v) const {
  const Real* m = m_Elements;
  return Vector3(m[0] * v.x + m[4] * v.y + m[8] * v.z, m[1] * v.x + m[5] * v.y + m[9] * v.z,
                 m[2] * v.x + m[6] * v.y + m[10] * v.z);
}

void CreateLookAtMatrix(Real* m, const Vector3& eye, const Vector3& target, const Vector3& up) {
  Vector3 f = target - eye;
  f.normalize();
  Vector3 s = f.cross(up);
  s.normalize();
  const Vector3 u = s.cross(f);
  const Vector3 axes[4] = {s, u, -f, -eye};
  for (int a = 0; a < 4; ++a) {
    m[a] = axes[a].x;
    m[a + 4] = axes[a].y;
    m[a + 8] = axes[a].z;
  }
  m[12] = m[13] = m[14] = Real();
  m[15] = Real(1);
}

}  // namespace nox
