// The 2D camera of a world scene: which part of the world the world layer shows.
//
// The camera's position is the world point at the centre of the view. It can jump
// there (SnapToPosition), glide there (PanToPosition) or follow a point that moves
// (TrackToPosition, a borrowed pointer, usually a character's position). On top of
// the position sits an offset that glides as well (ShiftTo), for a view that leans
// ahead or away for a while; ResetOffsets drops it at once. A scale (Zoom) magnifies
// about the centre of the view.
//
// Bounds, set by a world scene from its arenas, keep the view inside the world: the
// view rectangle never leaves them, and a view wider than the bounds is centred on
// them. Targets are clamped too, so a pan towards a point near an edge ends where the
// clamped view stops, and is reported there.
//
// Gliding: each update covers a share of the remaining distance (dt / kEaseMs of it),
// at least the crawl speed and at most the pan speed, and lands on the target when
// the step would reach it. A pan therefore ends within distance / crawl speed. The
// end of a pan is reported once through the callback, as is a pan cut short by
// SnapToPosition or Stop. All arithmetic is in Real and allocates nothing.
//
// The scene owns the camera (by value); the tracked point and the callback's object
// are borrowed and must outlive their use, or be cleared first.
#pragma once
#include "core/Matrix4.h"
#include "core/Real.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "graphics/Rectangle.h"
#include "platform/Camera_pf.h"

namespace nox {

class Camera : protected Camera_pf {
 public:
  // Told when a pan ends: it arrived, or SnapToPosition or Stop cut it short.
  // The camera is idle when this runs, so the callback may start another pan.
  typedef void (*Callback)(void* object, Camera& camera);

  static constexpr unsigned long kEaseMs = 200;  // the share of the distance covered per ms is 1 / kEaseMs
  static constexpr int kDefaultPanSpeed = 960;   // pixels per second, at most
  static constexpr int kCrawlSpeed = 60;         // pixels per second, at least
  static constexpr unsigned long kMaxStepMs = 1000;  // longer updates count as this

  // A view of 480 by 272 centred on (240, 136): world and screen coincide.
  Camera();

  // The view's size in virtual pixels; the camera moves to its centre, so that world
  // and screen coincide until it is moved. Sizes of 0 or below are ignored.
  void SetViewSize(Real width, Real height);
  Vector2 GetViewSize() const { return m_ViewSize; }

  // Ends any pan or tracking (telling the callback if a pan was running) and sets
  // position and target to `position`, clamped.
  void SnapToPosition(const Vector3& position);
  // Glides to `position`, clamped. A pan already running takes the new target and
  // reports once, at the end. Ends tracking.
  void PanToPosition(const Vector3& position);
  // Follows `*position` from the next update on, gliding, until another motion or
  // a null pointer ends it. Tracking never reports.
  void TrackToPosition(const Vector3* position);
  const Vector3* GetTrackedPosition() const { return m_pTracked; }
  // Magnification about the view's centre: 1.0 shows the world pixel for pixel,
  // 2.0 twice as large. Held within 1/8 to 8; 0 or below is ignored.
  void Zoom(Real scale);
  Real GetZoom() const { return m_Zoom; }
  // Ends a pan where the camera stands (telling the callback), tracking, and a shift.
  void Stop();

  // Glides the offset to `offset`, in world pixels.
  void ShiftTo(const Vector2& offset);
  // Offset and its target to zero at once.
  void ResetOffsets();
  const Vector2& GetOffset() const { return m_Offset; }

  // The region the view must stay inside, in world pixels. Position and target are
  // clamped at once. Edges given the wrong way round are swapped.
  void SetBounds(Real left, Real top, Real right, Real bottom);
  void ClearBounds();
  bool HasBounds() const { return m_bBounded; }
  const Rectangle& GetBounds() const { return m_Bounds; }
  // Clamps position and target to the bounds (after a change of zoom or view size).
  void ClampPosition();
  // The centre nearest to `position` whose view stays inside the bounds; z is kept.
  Vector3 ClampToBounds(const Vector3& position) const;

  // The glided position, without the offset.
  const Vector3& GetPosition() const { return m_Position; }
  const Vector3& GetTarget() const { return m_Target; }
  // What the view centres on: position plus offset, clamped.
  Vector3 GetAbsolutePosition() const;
  // The world rectangle the view shows.
  Rectangle GetScreenBoundaries() const;
  // Between virtual screen pixels and world pixels; exact inverses of each other for
  // half pixels on the screen at zooms of 1, 2 and 4.
  Vector2 ScreenToWorld(const Vector2& screen) const;
  Vector2 WorldToScreen(const Vector2& world) const;
  Vector3 WorldToScreen(const Vector3& world) const;
  // The model-view matrix of the world layer: world to screen, z left alone.
  Matrix4 GetViewMatrix() const;

  bool IsDonePanning() const { return !m_bPanning; }
  bool IsDoneShifting() const { return m_Offset == m_OffsetTarget; }
  bool IsTracking() const { return m_pTracked != nullptr; }

  // The largest glide speed in pixels per second; 0 or below restores the default,
  // and speeds below the crawl speed are raised to it.
  void SetPanSpeed(Real pixelsPerSecond);
  Real GetPanSpeed() const { return m_PanSpeed; }
  // `function` with `object`, or none for a null function.
  void SetCallback(Callback function, void* object);

  // Moves towards the target (or the tracked point) and the offset towards its
  // target; reports a pan that arrived.
  void Update(unsigned long dt);
  // Multiplies the GL model-view matrix by GetViewMatrix(): call it between a push
  // and a pop of the matrix, before drawing the world layer.
  void Apply() const;

 private:
  // Moves `from` towards `to` by one glide step of `ms`; true when it arrived.
  bool Glide(Vector2& from, const Vector2& to, unsigned long ms) const;
  // Clamps one axis of a centre to [lo, hi] with a half view of `half`.
  static Real ClampAxis(Real centre, Real lo, Real hi, Real half);
  // Ends a running pan and tells the callback.
  void FinishPan();

  Vector3 m_Position;      // world pixels, the centre of the view
  Vector3 m_Target;        // world pixels, clamped
  Vector2 m_Offset;        // world pixels, added to the position
  Vector2 m_OffsetTarget;  // world pixels
  Vector2 m_ViewSize;      // virtual pixels
  Real m_Zoom = Real(1);
  Real m_PanSpeed = Real(kDefaultPanSpeed);  // pixels per second
  Rectangle m_Bounds;                        // world pixels, left <= right, top <= bottom
  const Vector3* m_pTracked = nullptr;       // borrowed
  Callback m_pCallback = nullptr;
  void* m_pCallbackObject = nullptr;  // borrowed
  bool m_bBounded = false;
  bool m_bPanning = false;
};

// Adapts a member function to a camera callback:
//   camera.SetCallback(&CameraCallback<Scene, &Scene::OnPanDone>, this);
template <class T, void (T::*Method)(Camera&)>
void CameraCallback(void* object, Camera& camera) {
  (static_cast<T*>(object)->*Method)(camera);
}

}  // namespace nox
