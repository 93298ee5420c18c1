#include "scenes/Camera.h"

#include <cstdint>

#include "core/WrapArith.h"

namespace nox {

namespace {

const Real kMinZoom = Real::FromRaw(0x2000);  // 1/8
const Real kMaxZoom = Real(8);

// Raw a * b / c in 64 bits: the share of an axis that a step of `b` along a distance
// `c` covers, without the overflow of a Real product. `c` is not 0.
int32_t ScaleRaw(int32_t a, int32_t b, int32_t c) {
  return WrapToS32(static_cast<int64_t>(a) * b / c);
}

// One raw unit towards the sign of `d`, or none.
int32_t Nudge(int32_t d) {
  return d > 0 ? 1 : (d < 0 ? -1 : 0);
}

}  // namespace

Camera::Camera() : m_ViewSize(Real(480), Real(272)) {
  m_Position = Vector3(m_ViewSize.x / Real(2), m_ViewSize.y / Real(2), Real());
  m_Target = m_Position;
}

void Camera::SetViewSize(Real width, Real height) {
  if (width <= Real() || height <= Real()) return;
  m_ViewSize = Vector2(width, height);
  m_Position = Vector3(width / Real(2), height / Real(2), m_Position.z);
  m_Target = m_Position;
  ClampPosition();
}

void Camera::SnapToPosition(const Vector3& position) {
  m_pTracked = nullptr;
  if (m_bPanning) FinishPan();
  m_Position = ClampToBounds(position);
  m_Target = m_Position;
}

void Camera::PanToPosition(const Vector3& position) {
  m_pTracked = nullptr;
  m_Target = ClampToBounds(position);
  m_bPanning = true;
}

void Camera::TrackToPosition(const Vector3* position) {
  if (m_bPanning) FinishPan();
  m_pTracked = position;
  m_Target = m_Position;
}

void Camera::Zoom(Real scale) {
  if (scale <= Real()) return;
  m_Zoom = scale < kMinZoom ? kMinZoom : (scale > kMaxZoom ? kMaxZoom : scale);
  ClampPosition();
}

void Camera::Stop() {
  m_pTracked = nullptr;
  m_OffsetTarget = m_Offset;
  m_Target = m_Position;
  if (m_bPanning) FinishPan();
}

void Camera::ShiftTo(const Vector2& offset) {
  m_OffsetTarget = offset;
}

void Camera::ResetOffsets() {
  m_Offset = Vector2();
  m_OffsetTarget = Vector2();
}

void Camera::SetBounds(Real left, Real top, Real right, Real bottom) {
  m_Bounds.left = left < right ? left : right;
  m_Bounds.right = left < right ? right : left;
  m_Bounds.top = top < bottom ? top : bottom;
  m_Bounds.bottom = top < bottom ? bottom : top;
  m_bBounded = true;
  ClampPosition();
}

void Camera::ClearBounds() {
  m_bBounded = false;
}

void Camera::ClampPosition() {
  m_Position = ClampToBounds(m_Position);
  m_Target = ClampToBounds(m_Target);
}

Real Camera::ClampAxis(Real centre, Real lo, Real hi, Real half) {
  if (hi - lo <= half + half) return lo + (hi - lo) / Real(2);
  if (centre < lo + half) return lo + half;
  if (centre > hi - half) return hi - half;
  return centre;
}

Vector3 Camera::ClampToBounds(const Vector3& position) const {
  if (!m_bBounded) return position;
  const Real halfWidth = m_ViewSize.x / Real(2) / m_Zoom;
  const Real halfHeight = m_ViewSize.y / Real(2) / m_Zoom;
  return Vector3(ClampAxis(position.x, m_Bounds.left, m_Bounds.right, halfWidth),
                 ClampAxis(position.y, m_Bounds.top, m_Bounds.bottom, halfHeight), position.z);
}

Vector3 Camera::GetAbsolutePosition() const {
  return ClampToBounds(Vector3(m_Position.x + m_Offset.x, m_Position.y + m_Offset.y, m_Position.z));
}

Rectangle Camera::GetScreenBoundaries() const {
  const Vector2 topLeft = ScreenToWorld(Vector2());
  const Vector2 bottomRight = ScreenToWorld(m_ViewSize);
  return Rectangle(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y);
}

Vector2 Camera::ScreenToWorld(const Vector2& screen) const {
  const Vector3 centre = GetAbsolutePosition();
  return Vector2(centre.x + (screen.x - m_ViewSize.x / Real(2)) / m_Zoom,
                 centre.y + (screen.y - m_ViewSize.y / Real(2)) / m_Zoom);
}

Vector2 Camera::WorldToScreen(const Vector2& world) const {
  const Vector3 centre = GetAbsolutePosition();
  return Vector2((world.x - centre.x) * m_Zoom + m_ViewSize.x / Real(2),
                 (world.y - centre.y) * m_Zoom + m_ViewSize.y / Real(2));
}

Vector3 Camera::WorldToScreen(const Vector3& world) const {
  return Vector3(WorldToScreen(Vector2(world.x, world.y)), world.z);
}

Matrix4 Camera::GetViewMatrix() const {
  const Vector3 centre = GetAbsolutePosition();
  Matrix4 view;
  view.SetIdentity();
  view[0] = m_Zoom;
  view[5] = m_Zoom;
  view[12] = m_ViewSize.x / Real(2) - centre.x * m_Zoom;
  view[13] = m_ViewSize.y / Real(2) - centre.y * m_Zoom;
  return view;
}

void Camera::SetPanSpeed(Real pixelsPerSecond) {
  if (pixelsPerSecond <= Real()) {
    m_PanSpeed = Real(kDefaultPanSpeed);
  } else {
    m_PanSpeed = pixelsPerSecond < Real(kCrawlSpeed) ? Real(kCrawlSpeed) : pixelsPerSecond;
  }
}

void Camera::SetCallback(Callback function, void* object) {
  m_pCallback = function;
  m_pCallbackObject = function ? object : nullptr;
}

bool Camera::Glide(Vector2& from, const Vector2& to, unsigned long ms) const {
  const Vector2 d = to - from;
  const Real distance = d.magnitude();
  // Differences below what the magnitude resolves count as arrived.
  if (distance <= Real()) {
    from = to;
    return true;
  }
  if (ms > kMaxStepMs) ms = kMaxStepMs;
  const Real seconds = Real(static_cast<unsigned>(ms)) / Real(1000);
  Real step = ms >= kEaseMs ? distance : distance * (Real(static_cast<unsigned>(ms)) / Real(kEaseMs));
  const Real crawl = Real(kCrawlSpeed) * seconds;
  const Real fastest = m_PanSpeed * seconds;
  if (step < crawl) step = crawl;
  if (step > fastest) step = fastest;
  if (step >= distance) {
    from = to;
    return true;
  }
  int32_t dx = ScaleRaw(d.x.Raw(), step.Raw(), distance.Raw());
  int32_t dy = ScaleRaw(d.y.Raw(), step.Raw(), distance.Raw());
  // A step too small for the raw grid still moves, so that every pan ends.
  if (dx == 0 && dy == 0 && step > Real()) {
    dx = Nudge(d.x.Raw());
    dy = Nudge(d.y.Raw());
  }
  from.x += Real::FromRaw(dx);
  from.y += Real::FromRaw(dy);
  return from == to;
}

void Camera::Update(unsigned long dt) {
  if (m_pTracked) m_Target = ClampToBounds(Vector3(m_pTracked->x, m_pTracked->y, m_Target.z));
  if (m_bPanning || m_pTracked) {
    Vector2 position(m_Position.x, m_Position.y);
    const bool arrived = Glide(position, Vector2(m_Target.x, m_Target.y), dt);
    m_Position = ClampToBounds(Vector3(position, m_Position.z));
    if (arrived && m_bPanning) {
      m_Position.z = m_Target.z;
      FinishPan();
    }
  }
  if (m_Offset != m_OffsetTarget) Glide(m_Offset, m_OffsetTarget, dt);
}

void Camera::FinishPan() {
  m_bPanning = false;
  if (m_pCallback) m_pCallback(m_pCallbackObject, *this);
}

void Camera::Apply() const {
  MultiplyView(GetViewMatrix());
}

}  // namespace nox
