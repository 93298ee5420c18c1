// TileAnimation: points and rectangles of the frames, the turn between animation
// space and world space, and the hit tests built on them.
#include "core/Trig.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimFrame.h"
#include "graphics/TileAnimation.h"

namespace nox {

namespace {

Real Min(Real a, Real b) {
  return a < b ? a : b;
}
Real Max(Real a, Real b) {
  return a > b ? a : b;
}

bool Touches(const Rectangle& a, const Rectangle& b) {
  return !(a.right < b.left || a.left > b.right || a.bottom < b.top || a.top > b.bottom);
}

bool Contains(const Rectangle& r, const Vector2& p) {
  return p.x >= r.left && p.x <= r.right && p.y >= r.top && p.y <= r.bottom;
}

// The frame's entry of a series that belongs to the current sequence, or null past
// the sequence's end.
template <typename Entry>
const Entry* SeriesEntry(const Entry* entries, const TileAnimData* data, unsigned sequence, uint32_t frame) {
  return frame < data->GetSequenceFrameCount(sequence) ? &entries[frame] : nullptr;
}

}  // namespace

// Series pointers handed out by the AnimInfo calls below belong to the sequence they
// were asked of; the pointer forms take frames of the current sequence.

Vector3 TileAnimation::GetAnimationPoint(const TADPointSeries* series, int frame) const {
  if (!series || !m_pData) return Vector3();
  const uint32_t f = frame < 0 ? m_CurrentFrame : static_cast<uint32_t>(frame);
  const TADPoint* p = SeriesEntry(series->Entries(), m_pData, m_SequenceIndex, f);
  if (!p || p->IsNil()) return Vector3();
  return Vector3(Real(static_cast<int>(p->x)), Real(static_cast<int>(p->y)), Real());
}

const TADPointSeries* TileAnimation::GetPointSeries(NameHash point, NameHash sequence) const {
  const int s = ResolveSequence(sequence);
  return s < 0 ? nullptr : m_pData->GetPointSeries(static_cast<unsigned>(s), point);
}

bool TileAnimation::HasPointSeries(NameHash point, NameHash sequence) const {
  return GetPointSeries(point, sequence) != nullptr;
}

bool TileAnimation::HasPoint(NameHash point, int frame, NameHash sequence) const {
  const int s = ResolveSequence(sequence);
  const int f = ResolveFrame(s, frame);
  const TADPointSeries* series = s < 0 ? nullptr : m_pData->GetPointSeries(static_cast<unsigned>(s), point);
  return series && f >= 0 && !series->Entries()[f].IsNil();
}

Vector3 TileAnimation::GetPoint(NameHash point, int frame, NameHash sequence) const {
  const int s = ResolveSequence(sequence);
  const int f = ResolveFrame(s, frame);
  const TADPointSeries* series = s < 0 ? nullptr : m_pData->GetPointSeries(static_cast<unsigned>(s), point);
  if (!series || f < 0 || series->Entries()[f].IsNil()) return Vector3();
  const TADPoint& p = series->Entries()[f];
  return VectorAnimationSpaceToWorld(
      Vector3(Real(static_cast<int>(p.x)), Real(static_cast<int>(p.y)), GetDepth()),
      static_cast<int>(m_CurrentFrame));
}

Vector3 TileAnimation::GetPoint(const TADPointSeries* series, int frame) const {
  if (!series || !m_pData) return Vector3();
  const uint32_t f = frame < 0 ? m_CurrentFrame : static_cast<uint32_t>(frame);
  const TADPoint* p = SeriesEntry(series->Entries(), m_pData, m_SequenceIndex, f);
  if (!p || p->IsNil()) return Vector3();
  return VectorAnimationSpaceToWorld(
      Vector3(Real(static_cast<int>(p->x)), Real(static_cast<int>(p->y)), GetDepth()),
      static_cast<int>(m_CurrentFrame));
}

bool TileAnimation::HasSequence(NameHash sequence) const {
  return m_pData &&
         (sequence == kCurrentSequenceHash ? m_pData->GetNumSequences() > 0 : m_pData->HasSequence(sequence));
}

bool TileAnimation::HasRectSeries(NameHash rect, NameHash sequence) const {
  const int s = ResolveSequence(sequence);
  return s >= 0 && m_pData->GetRectSeries(static_cast<unsigned>(s), rect) != nullptr;
}

bool TileAnimation::HasRect(NameHash rect, int frame, NameHash sequence) const {
  const int s = ResolveSequence(sequence);
  const int f = ResolveFrame(s, frame);
  const TADRectSeries* series = s < 0 ? nullptr : m_pData->GetRectSeries(static_cast<unsigned>(s), rect);
  return series && f >= 0 && series->Entries()[f].left != series->Entries()[f].right;
}

const TADRect* TileAnimation::RectEntry(const TADRectSeries* series, int frame) const {
  if (!series || !m_pData) return nullptr;
  const uint32_t f = frame < 0 ? m_CurrentFrame : static_cast<uint32_t>(frame);
  return SeriesEntry(series->Entries(), m_pData, m_SequenceIndex, f);
}

Rectangle TileAnimation::GetLocalRect(const TADRectSeries* series, int frame) const {
  const TADRect* r = RectEntry(series, frame);
  if (!r) return Rectangle();
  return Rectangle(Real(static_cast<int>(r->left)), Real(static_cast<int>(r->top)),
                   Real(static_cast<int>(r->right)), Real(static_cast<int>(r->bottom)));
}

Rectangle TileAnimation::GetLocalRect(NameHash rect, int frame, NameHash sequence) const {
  const int s = ResolveSequence(sequence);
  const int f = ResolveFrame(s, frame);
  if (f < 0) return Rectangle();
  const TADRectSeries* series = m_pData->GetRectSeries(static_cast<unsigned>(s), rect);
  if (!series) return Rectangle();
  const TADRect& r = series->Entries()[f];
  return Rectangle(Real(static_cast<int>(r.left)), Real(static_cast<int>(r.top)),
                   Real(static_cast<int>(r.right)), Real(static_cast<int>(r.bottom)));
}

Rectangle TileAnimation::GetRect(const TADRectSeries* series, int frame) const {
  const TADRect* r = RectEntry(series, frame);
  if (!r || r->IsNil()) return Rectangle();
  const Real l(static_cast<int>(r->left)), t(static_cast<int>(r->top));
  const Real rt(static_cast<int>(r->right)), b(static_cast<int>(r->bottom));
  const Vector3 corners[4] = {
      VectorAnimationSpaceToWorld(Vector3(l, t, Real()), frame),
      VectorAnimationSpaceToWorld(Vector3(rt, t, Real()), frame),
      VectorAnimationSpaceToWorld(Vector3(l, b, Real()), frame),
      VectorAnimationSpaceToWorld(Vector3(rt, b, Real()), frame),
  };
  Rectangle box(corners[0].x, corners[0].y, corners[0].x, corners[0].y);
  for (const Vector3& c : corners) {
    box.left = Min(box.left, c.x);
    box.top = Min(box.top, c.y);
    box.right = Max(box.right, c.x);
    box.bottom = Max(box.bottom, c.y);
  }
  return box;
}

Rectangle TileAnimation::GetRect(NameHash rect, int frame, NameHash sequence) const {
  const int s = ResolveSequence(sequence);
  const int f = ResolveFrame(s, frame);
  if (f < 0) return Rectangle();
  const TADRectSeries* series = m_pData->GetRectSeries(static_cast<unsigned>(s), rect);
  if (!series || series->Entries()[f].IsNil()) return Rectangle();
  if (s == m_SequenceIndex) return GetRect(series, f);
  // Another sequence's rectangle, placed as the sprite stands now.
  const TADRect& r = series->Entries()[f];
  const Real l(static_cast<int>(r.left)), t(static_cast<int>(r.top));
  const Real rt(static_cast<int>(r.right)), b(static_cast<int>(r.bottom));
  const Vector3 corners[4] = {VectorAnimationSpaceToWorld(Vector3(l, t, Real())),
                              VectorAnimationSpaceToWorld(Vector3(rt, t, Real())),
                              VectorAnimationSpaceToWorld(Vector3(l, b, Real())),
                              VectorAnimationSpaceToWorld(Vector3(rt, b, Real()))};
  Rectangle box(corners[0].x, corners[0].y, corners[0].x, corners[0].y);
  for (const Vector3& c : corners) {
    box.left = Min(box.left, c.x);
    box.top = Min(box.top, c.y);
    box.right = Max(box.right, c.x);
    box.bottom = Max(box.bottom, c.y);
  }
  return box;
}

Vector3 TileAnimation::VectorAnimationSpaceToWorld(Vector3 v, int frame) const {
  v.x = m_HFlip < 0 ? -v.x : v.x;
  v.y = m_VFlip < 0 ? -v.y : v.y;
  Vector3 a = GetAnimationPoint(m_pAnchorSeries, frame);
  a.x = m_HFlip < 0 ? -a.x : a.x;
  a.y = m_VFlip < 0 ? -a.y : a.y;
  a.z = Real();
  v -= a;
  if (m_YRotation != Real()) {
    const Real c = cos(m_YRotation), s = sin(m_YRotation);
    const Real x = v.x * c + v.z * s;
    v.z = v.z * c - v.x * s;
    v.x = x;
  }
  if (m_XRotation != Real()) {
    const Real c = cos(m_XRotation), s = sin(m_XRotation);
    const Real y = v.y * c - v.z * s;
    v.z = v.z * c + v.y * s;
    v.y = y;
  }
  if (m_ZRotation != Real()) {
    const Real r = -m_ZRotation;
    const Real c = cos(r), s = sin(r);
    const Real x = v.x * c - v.y * s;
    v.y = v.x * s + v.y * c;
    v.x = x;
  }
  if (m_HScale != Real(1)) v.x *= m_HScale;
  if (m_VScale != Real(1)) v.y *= m_VScale;
  v += a;
  v += m_WorldPosition;
  return v;
}

Vector3 TileAnimation::VectorWorldSpaceToAnimation(Vector3 v, int frame) const {
  Vector3 a = GetAnimationPoint(m_pAnchorSeries, frame);
  a.x = m_HFlip < 0 ? -a.x : a.x;
  a.y = m_VFlip < 0 ? -a.y : a.y;
  a.z = Real();
  v -= m_WorldPosition;
  v -= a;
  // A zero scale has no inverse; such a sprite is a line and is left unscaled here.
  if (m_HScale != Real(1) && m_HScale != Real()) v.x /= m_HScale;
  if (m_VScale != Real(1) && m_VScale != Real()) v.y /= m_VScale;
  if (m_ZRotation != Real()) {
    const Real r = m_ZRotation;
    const Real c = cos(r), s = sin(r);
    const Real x = v.x * c - v.y * s;
    v.y = v.x * s + v.y * c;
    v.x = x;
  }
  if (m_XRotation != Real()) {
    const Real c = cos(-m_XRotation), s = sin(-m_XRotation);
    const Real y = v.y * c - v.z * s;
    v.z = v.z * c + v.y * s;
    v.y = y;
  }
  if (m_YRotation != Real()) {
    const Real c = cos(-m_YRotation), s = sin(-m_YRotation);
    const Real x = v.x * c + v.z * s;
    v.z = v.z * c - v.x * s;
    v.x = x;
  }
  v += a;
  v.x = m_HFlip < 0 ? -v.x : v.x;
  v.y = m_VFlip < 0 ? -v.y : v.y;
  return v;
}

// Hit tests.

bool TileAnimation::IsOnScreen(const Rectangle& view) const {
  return Touches(GetRect(kCellBoxHash, -1, kCurrentSequenceHash), view);
}

bool TileAnimation::HitTestBounds(const Vector2& point) const {
  return Contains(GetRect(kCellBoxHash, -1, kCurrentSequenceHash), point);
}

bool TileAnimation::HitTestBounds(const Vector2& point, NameHash rect) const {
  return Contains(GetRect(rect, -1, kCurrentSequenceHash), point);
}

bool TileAnimation::HitTest(const Vector2& point) const {
  return IsPointInFrameTiles(&point);
}

bool TileAnimation::IsPointInFrameTiles(const Vector2* point) const {
  if (!point || !m_pFrame || !m_pData) return false;
  // The holder may be on another frame than the one showing; bring it here first.
  const TADFrameEntry* entry = m_pData->GetFrameEntry(m_SequenceIndex, m_CurrentFrame);
  if (!entry) return false;
  if (m_pFrame->GetFrameEntry() != entry && !m_pFrame->LoadFrame(m_SequenceIndex, m_CurrentFrame))
    return false;
  if (!m_pFrame->GetSequenceEntry()) return false;
  if (!Contains(GetRect(kCellBoxHash, -1, kCurrentSequenceHash), *point)) return false;
  const Vector3 local = VectorWorldSpaceToAnimation(Vector3(point->x, point->y, Real()), -1);
  const int px = local.x.ToInt(), py = local.y.ToInt();
  const TADHeader* header = m_pData->GetHeader();
  const int tw = header->TileWidth(), th = header->TileHeight();
  bool hit = false;
  for (bool more = m_pFrame->FirstLayer(); more && !hit; more = m_pFrame->NextLayer()) {
    const TADLayerBlock* layer = m_pFrame->GetLayerBlock();
    const int16_t* positions = m_pFrame->GetTilePositions();
    for (uint32_t t = 0; t < layer->tileCount && !hit; ++t) {
      const int x = positions[2 * t], y = positions[2 * t + 1];
      hit = x <= px && px <= x + tw && y <= py && py <= y + th;
    }
  }
  return hit;
}

Rectangle TileAnimation::GetCellBoundingRect() const {
  if (!m_pCellBoxSeries) {
    return Rectangle(m_Position.x, m_Position.y, m_Position.x + Real(1), m_Position.y + Real(1));
  }
  return GetRect(m_pCellBoxSeries, -1);
}

bool TileAnimation::IntersectsTileAnim(const TileAnimation& other) const {
  return Touches(GetCellBoundingRect(), other.GetCellBoundingRect());
}

bool TileAnimation::IntersectsTileAnim(const TileAnimation& other, NameHash rect) const {
  return Touches(GetRect(rect, -1, kCurrentSequenceHash), other.GetRect(rect, -1, kCurrentSequenceHash));
}

bool TileAnimation::GetOverlap(const TileAnimation& other, Rectangle& out) const {
  const Rectangle a = GetCellBoundingRect(), b = other.GetCellBoundingRect();
  if (!Touches(a, b)) {
    out = Rectangle();
    return false;
  }
  out = Rectangle(Max(a.left, b.left), Max(a.top, b.top), Min(a.right, b.right), Min(a.bottom, b.bottom));
  return true;
}

}  // namespace nox
