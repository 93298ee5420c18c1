#include "debug/DebugOverlay.h"

#include <algorithm>
#include <cstdio>

#include "graphics/Font.h"
#include "graphics/FontManager.h"
#include "graphics/GLUtils.h"
#include "graphics/ScreenManager.h"

namespace nox {

NOX_RTTI_DEFINE(DebugOverlay, Window);

DebugOverlay* DebugOverlay::sm_pInstance = nullptr;
void (*DebugOverlay::sm_pApplyCamera)(const Camera*) = nullptr;
void (*DebugOverlay::sm_pApplyCamera3D)(const Camera3D*) = nullptr;

namespace {

constexpr unsigned long kScreenGlyphs = 2048;
constexpr unsigned long kWorldGlyphs = 128;
constexpr int kPointArm = 2;  // pixels: a point is drawn as a small cross
// The overlay's projection runs from z 0 to -1000.0, as the windows' does.
constexpr Real kFarPlane = Real::FromRaw(static_cast<int32_t>(0xFC180000u));

template <class T>
void DropOneFrame(std::vector<T>& items) {
  items.erase(std::remove_if(items.begin(), items.end(), [](const T& item) { return !item.persistent; }),
              items.end());
}

template <class T>
void DropPersistent(std::vector<T>& items) {
  items.erase(std::remove_if(items.begin(), items.end(), [](const T& item) { return item.persistent; }),
              items.end());
}

template <class T>
T* NextSlot(std::vector<T>& items, unsigned capacity) {
  if (items.size() >= capacity) return nullptr;
  items.emplace_back();
  return &items.back();
}

}  // namespace

void DebugOverlay::Create() {
  if (!sm_pInstance) sm_pInstance = new DebugOverlay();
}

void DebugOverlay::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

DebugOverlay::DebugOverlay() {
  if (FontManager::Get()) m_pFont = FontManager::Get()->GetFont("HNCurry", 10);
  if (ScreenManager::Get()) SetScreen(ScreenManager::Get());
  if (GetSize() == Vector2()) SetSize(Vector2(Real(480), Real(272)));
  m_ScreenText.Initialise(GetSize().x, GetSize().y, kScreenGlyphs);
  m_WorldText.Initialise(GetSize().x, GetSize().y, kWorldGlyphs);
  m_ScreenStrings.reserve(kMaxScreenStrings);
  m_WorldStrings.reserve(kMaxWorldStrings);
  m_Points.reserve(kMaxPoints);
  m_Rects.reserve(kMaxRects);
  m_Lines.reserve(kMaxLines);
}

DebugOverlay::~DebugOverlay() {
  if (m_pFont && FontManager::Get()) FontManager::Get()->ReleaseFont(m_pFont);
}

void DebugOverlay::Format(DebugString& item, const char* format, va_list args) {
  vsnprintf(item.text, sizeof(item.text), format, args);
}

void DebugOverlay::AddString(bool persistent, const Vector3& colour, const char* format, ...) {
  DebugString* item = NextSlot(m_ScreenStrings, kMaxScreenStrings);
  if (!item) return;
  item->colour = colour;
  item->camera = nullptr;
  item->persistent = persistent;
  va_list args;
  va_start(args, format);
  Format(*item, format, args);
  va_end(args);
}

void DebugOverlay::AddString(bool persistent, const Vector3& position, const Camera* camera,
                             const Vector3& colour, const char* format, ...) {
  DebugString* item = NextSlot(m_WorldStrings, kMaxWorldStrings);
  if (!item) return;
  item->position = position;
  item->colour = colour;
  item->camera = camera;
  item->persistent = persistent;
  va_list args;
  va_start(args, format);
  Format(*item, format, args);
  va_end(args);
}

void DebugOverlay::AddPoint(bool persistent, const Vector2& point, const Camera* camera,
                            const Vector3& colour) {
  if (DebugPoint* item = NextSlot(m_Points, kMaxPoints))
    *item = DebugPoint{Vector3(point), colour, camera, nullptr, false, persistent};
}

void DebugOverlay::AddRect(bool persistent, const Rectangle& rect, const Camera* camera,
                           const Vector3& colour) {
  if (DebugRect* item = NextSlot(m_Rects, kMaxRects)) {
    *item = DebugRect{Vector3(rect.left, rect.top, Real()),
                      Vector3(rect.right, rect.bottom, Real()),
                      colour,
                      camera,
                      nullptr,
                      false,
                      persistent};
  }
}

void DebugOverlay::AddLine(bool persistent, const Vector2& from, const Vector2& to, const Camera* camera,
                           const Vector3& colour) {
  if (DebugLine* item = NextSlot(m_Lines, kMaxLines))
    *item = DebugLine{Vector3(from), Vector3(to), colour, camera, nullptr, false, persistent};
}

void DebugOverlay::AddPoint3D(bool persistent, const Vector3& point, const Camera3D* camera,
                              const Vector3& colour) {
  if (DebugPoint* item = NextSlot(m_Points, kMaxPoints))
    *item = DebugPoint{point, colour, nullptr, camera, true, persistent};
}

void DebugOverlay::AddRect3D(bool persistent, const Vector3& min, const Vector3& max, const Camera3D* camera,
                             const Vector3& colour) {
  if (DebugRect* item = NextSlot(m_Rects, kMaxRects))
    *item = DebugRect{min, max, colour, nullptr, camera, true, persistent};
}

void DebugOverlay::AddLine3D(bool persistent, const Vector3& from, const Vector3& to, const Camera3D* camera,
                             const Vector3& colour) {
  if (DebugLine* item = NextSlot(m_Lines, kMaxLines))
    *item = DebugLine{from, to, colour, nullptr, camera, true, persistent};
}

void DebugOverlay::ClearPersistentStrings() {
  DropPersistent(m_ScreenStrings);
  DropPersistent(m_WorldStrings);
}

void DebugOverlay::ClearPersistentGraphics() {
  DropPersistent(m_Points);
  DropPersistent(m_Rects);
  DropPersistent(m_Lines);
}

Real DebugOverlay::GetLineTop(unsigned index) const {
  const unsigned lineHeight = m_pFont ? static_cast<unsigned>(m_pFont->GetHeight().ToInt()) : 0;
  if (lineHeight == 0) return Real();
  const unsigned screenHeight = static_cast<unsigned>(GetSize().y.ToInt());
  const unsigned lines = std::max(1u, screenHeight / lineHeight);
  return Real((index % lines) * lineHeight);
}

void DebugOverlay::SetupCamera(const Camera* camera, const Camera3D* camera3D, bool is3D) {
  PushMatrices(is3D);
  if (is3D && camera3D && sm_pApplyCamera3D) sm_pApplyCamera3D(camera3D);
  if (!is3D && camera && sm_pApplyCamera) sm_pApplyCamera(camera);
}

void DebugOverlay::TeardownCamera(const Camera*, const Camera3D*, bool is3D) {
  PopMatrices(is3D);
}

void DebugOverlay::DrawStrings() {
  TextProperties props;
  m_ScreenText.Clear();
  for (unsigned i = 0; i < m_ScreenStrings.size(); ++i) {
    props.colour = m_ScreenStrings[i].colour;
    m_ScreenText.DrawText(m_ScreenStrings[i].text, m_pFont, Real(), GetLineTop(i), props);
  }
  m_ScreenText.Draw();
  for (const DebugString& item : m_WorldStrings) {
    props.colour = item.colour;
    m_WorldText.Clear();
    m_WorldText.DrawText(item.text, m_pFont, item.position.x, item.position.y, props);
    SetupCamera(item.camera, nullptr, false);
    m_WorldText.Draw();
    TeardownCamera(item.camera, nullptr, false);
  }
}

void DebugOverlay::DrawShapes() {
  for (const DebugPoint& item : m_Points) {
    const Vector3& p = item.position;
    const Real arm(kPointArm);
    const Real cross[12] = {p.x - arm, p.y,       p.z, p.x + arm, p.y,       p.z,
                            p.x,       p.y - arm, p.z, p.x,       p.y + arm, p.z};
    SetupCamera(item.camera, item.camera3D, item.is3D);
    SetColour(item.colour);
    DrawLines(cross, 4);
    TeardownCamera(item.camera, item.camera3D, item.is3D);
  }
  for (const DebugRect& item : m_Rects) {
    const Vector3& a = item.min;
    const Vector3& b = item.max;
    SetupCamera(item.camera, item.camera3D, item.is3D);
    SetColour(item.colour);
    if (item.is3D) {
      // The twelve edges of the box between the corners.
      const Real edges[72] = {a.x, a.y, a.z, b.x, a.y, a.z, b.x, a.y, a.z, b.x, b.y, a.z,  //
                              b.x, b.y, a.z, a.x, b.y, a.z, a.x, b.y, a.z, a.x, a.y, a.z,  //
                              a.x, a.y, b.z, b.x, a.y, b.z, b.x, a.y, b.z, b.x, b.y, b.z,  //
                              b.x, b.y, b.z, a.x, b.y, b.z, a.x, b.y, b.z, a.x, a.y, b.z,  //
                              a.x, a.y, a.z, a.x, a.y, b.z, b.x, a.y, a.z, b.x, a.y, b.z,  //
                              b.x, b.y, a.z, b.x, b.y, b.z, a.x, b.y, a.z, a.x, b.y, b.z};
      DrawLines(edges, 24);
    } else {
      const Real corners[12] = {a.x, a.y, a.z, b.x, a.y, a.z, b.x, b.y, a.z, a.x, b.y, a.z};
      DrawLineLoop(corners, 4);
    }
    TeardownCamera(item.camera, item.camera3D, item.is3D);
  }
  for (const DebugLine& item : m_Lines) {
    const Real ends[6] = {item.from.x, item.from.y, item.from.z, item.to.x, item.to.y, item.to.z};
    SetupCamera(item.camera, item.camera3D, item.is3D);
    SetColour(item.colour);
    DrawLines(ends, 2);
    TeardownCamera(item.camera, item.camera3D, item.is3D);
  }
}

void DebugOverlay::DropOneFrameItems() {
  DropOneFrame(m_ScreenStrings);
  DropOneFrame(m_WorldStrings);
  DropOneFrame(m_Points);
  DropOneFrame(m_Rects);
  DropOneFrame(m_Lines);
}

void DebugOverlay::Draw() {
  ApplyOrthographicProjection(this, Real(), kFarPlane);
  BeginOverlay();
  DrawStrings();
  DrawShapes();
  DropOneFrameItems();
}

}  // namespace nox
