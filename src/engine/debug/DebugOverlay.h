// Text and shapes drawn above the game for developers: lines of text down the left
// of the screen, text at world positions, and points, rectangles and lines, each in
// its own colour, under a 2D camera, a 3D camera or none (screen coordinates).
// Items are persistent or last one frame: Draw drops the others once they are shown.
// The assertion handler adds its lines here in red and draws the overlay by itself.
//
// All items live in fixed stores reserved at creation, so adding and drawing never
// allocate; an item that finds its store full is dropped. A singleton created after
// the font manager; it holds one reference to the font "HNCurry" at 10 pixels.
#pragma once
#include <cstdarg>
#include <cstdint>
#include <vector>

#include "core/RTTIBase.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "graphics/Rectangle.h"
#include "graphics/TextSurface.h"
#include "graphics/Window.h"
#include "platform/DebugOverlay_pf.h"

namespace nox {

class Camera;
class Camera3D;
class Font;

struct DebugString {
  char text[128];
  Vector3 position;  // world strings only
  Vector3 colour;
  const Camera* camera;  // borrowed; null for screen coordinates
  bool persistent;
};

struct DebugPoint {
  Vector3 position;
  Vector3 colour;
  const Camera* camera;      // 2D items; borrowed
  const Camera3D* camera3D;  // 3D items; borrowed
  bool is3D;
  bool persistent;
};

struct DebugRect {
  Vector3 min;  // corners; a 3D rectangle is the box between them
  Vector3 max;
  Vector3 colour;
  const Camera* camera;
  const Camera3D* camera3D;
  bool is3D;
  bool persistent;
};

struct DebugLine {
  Vector3 from;
  Vector3 to;
  Vector3 colour;
  const Camera* camera;
  const Camera3D* camera3D;
  bool is3D;
  bool persistent;
};

class DebugOverlay : public Window, private DebugOverlay_pf {
  NOX_RTTI_DECLARE

 public:
  static constexpr unsigned kMaxScreenStrings = 64;
  static constexpr unsigned kMaxWorldStrings = 64;
  static constexpr unsigned kMaxPoints = 256;
  static constexpr unsigned kMaxRects = 128;
  static constexpr unsigned kMaxLines = 256;

  static void Create();
  static void Destroy();
  static DebugOverlay* sm_pInstance;

  // How a camera puts its view on the GL matrices. The overlay only borrows camera
  // pointers; the camera classes set these when they are built in. While a hook is
  // null, items under that kind of camera are drawn in screen coordinates.
  static void (*sm_pApplyCamera)(const Camera* camera);
  static void (*sm_pApplyCamera3D)(const Camera3D* camera);

  // One line of text at the next free line of the screen.
  void AddString(bool persistent, const Vector3& colour, const char* format, ...)
      __attribute__((format(printf, 4, 5)));
  // Text whose top left is at `position`, under `camera`.
  void AddString(bool persistent, const Vector3& position, const Camera* camera, const Vector3& colour,
                 const char* format, ...) __attribute__((format(printf, 6, 7)));
  void AddPoint(bool persistent, const Vector2& point, const Camera* camera, const Vector3& colour);
  void AddRect(bool persistent, const Rectangle& rect, const Camera* camera, const Vector3& colour);
  void AddLine(bool persistent, const Vector2& from, const Vector2& to, const Camera* camera,
               const Vector3& colour);
  void AddPoint3D(bool persistent, const Vector3& point, const Camera3D* camera, const Vector3& colour);
  void AddRect3D(bool persistent, const Vector3& min, const Vector3& max, const Camera3D* camera,
                 const Vector3& colour);
  void AddLine3D(bool persistent, const Vector3& from, const Vector3& to, const Camera3D* camera,
                 const Vector3& colour);

  void ClearPersistentStrings();
  void ClearPersistentGraphics();

  void Update(unsigned long ms) override {}
  void Draw() override;

  // Top of screen line `index`: lines go down one font height apart and a line that
  // would pass the bottom of the screen wraps to the top.
  Real GetLineTop(unsigned index) const;

  const std::vector<DebugString>& GetScreenStrings() const { return m_ScreenStrings; }
  const std::vector<DebugString>& GetWorldStrings() const { return m_WorldStrings; }
  const std::vector<DebugPoint>& GetPoints() const { return m_Points; }
  const std::vector<DebugRect>& GetRects() const { return m_Rects; }
  const std::vector<DebugLine>& GetLines() const { return m_Lines; }

 private:
  DebugOverlay();
  ~DebugOverlay() override;

  static void Format(DebugString& item, const char* format, va_list args);
  void SetupCamera(const Camera* camera, const Camera3D* camera3D, bool is3D);
  void TeardownCamera(const Camera* camera, const Camera3D* camera3D, bool is3D);
  void DrawStrings();
  void DrawShapes();
  void DropOneFrameItems();

  Font* m_pFont = nullptr;  // one reference, from the font manager
  TextSurface m_ScreenText;
  TextSurface m_WorldText;  // one string at a time, each under its camera
  std::vector<DebugString> m_ScreenStrings;
  std::vector<DebugString> m_WorldStrings;
  std::vector<DebugPoint> m_Points;
  std::vector<DebugRect> m_Rects;
  std::vector<DebugLine> m_Lines;
};

}  // namespace nox
