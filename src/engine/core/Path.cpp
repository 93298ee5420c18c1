#include "core/Path.h"

#include "core/Debug.h"
#include "core/GameHost.h"
#include "core/Trig.h"

namespace nox {
namespace {

constexpr Real kOneSixtieth = Real::FromRaw(0x444);
constexpr Real kEaseOffset = Real::FromRaw(0x11999);  // 1.1

// The device reads into a 32-bit long; wider values fail there and fail here.
bool ReadWhole(std::istream& in, int32_t& out) {
  long long v;
  if (!(in >> v) || v < INT32_MIN || v > INT32_MAX) return false;
  out = static_cast<int32_t>(v);
  return true;
}

bool ReadUnsigned(std::istream& in, uint32_t& out) {
  unsigned long long v;
  if (!(in >> v) || v > UINT32_MAX) return false;
  out = static_cast<uint32_t>(v);
  return true;
}

bool ReadCount(std::istream& in, uint32_t& out) {
  int32_t v;
  if (!ReadWhole(in, v) || v < 0) return false;
  out = static_cast<uint32_t>(v);
  return true;
}

Real Blend(Real a, Real b, Real f) {
  return a + f * (b - a);
}

}  // namespace

bool Path::Fail(const char* problem, int64_t index) {
  m_Points.clear();
  m_Triggers.clear();
  if (index < 0) {
    AutomationPrintf("Path: %s", problem);
  } else {
    AutomationPrintf("Path: %s %lld", problem, static_cast<long long>(index));
  }
  return false;
}

bool Path::Initialise(std::istream& in) {
  m_Points.clear();
  m_Triggers.clear();

  uint32_t pointCount;
  if (!ReadCount(in, pointCount)) return Fail("unreadable point count", -1);
  if (pointCount < 2) return Fail("needs two points or more, has", pointCount);
  // Grows with what is actually read, so a huge count in a short file costs nothing.
  for (uint32_t i = 0; i < pointCount; ++i) {
    int32_t v[6];
    for (int32_t& value : v) {
      if (!ReadWhole(in, value)) return Fail("unreadable point", i);
    }
    PathPoint p;
    p.Position = Vector2(Real(v[0]), Real(v[1]));
    p.Direction = Vector2(Real(v[2]), Real(v[3]));
    p.Extra = Real(v[4]);
    p.Arc = Real(v[5]);
    // Interpolate's search needs the first arc at 0 and every later one strictly
    // further, and divides by the difference of neighbours.
    if (i == 0 && p.Arc != Real()) return Fail("first arc is not 0 at point", i);
    if (i > 0 && p.Arc <= m_Points.back().Arc) return Fail("arc does not rise at point", i);
    m_Points.push_back(p);
  }

  uint32_t triggerCount;
  if (!ReadCount(in, triggerCount)) return Fail("unreadable trigger count", -1);
  for (uint32_t i = 0; i < triggerCount; ++i) {
    int32_t position;
    PathTrigger t;
    if (!ReadWhole(in, position) || !ReadUnsigned(in, t.Id)) return Fail("unreadable trigger", i);
    t.Position = Real(position);
    m_Triggers.push_back(t);
  }
  return true;
}

Real Path::GetArcLength() const {
  return m_Points.empty() ? Real() : m_Points.back().Arc;
}

Real Path::GetParameterAtConstantSpeed(Real time, Real speed) const {
  // Without a host (tools, tests) the step is the host's default of 1.
  const uint8_t fixedStep = GameHost::s_pGameHost ? GameHost::s_pGameHost->GetFixedStep() : 1;
  return time * speed / (Real(fixedStep) * kOneSixtieth) / GetArcLength();
}

Real Path::GetParameterWithEaseInOut(Real time, Real speed) const {
  const Real p = GetParameterAtConstantSpeed(time, speed);
  return (kEaseOffset - cos(p * Real(180))) / Real(2);
}

Real Path::GetParameterWithSuddenInOut(Real time, Real speed) const {
  const Real p = GetParameterAtConstantSpeed(time, speed);
  return Real(2) * p - GetParameterWithEaseInOut(time, speed);
}

void Path::Interpolate(Real t, Vector2& pos, Vector2& dir, Real& extra, Real& arc) const {
  if (m_Points.empty()) {
    pos = dir = Vector2();
    extra = arc = Real();
    return;
  }
  const Real length = GetArcLength();
  t *= length;
  CheckTiggers(t);

  const PathPoint* from;
  if (t <= Real()) {
    from = &m_Points.front();
  } else if (t >= length) {
    from = &m_Points.back();
  } else {
    // Invariant: Arc[lo] <= t < Arc[hi], which the loader's rising arcs from 0 keep.
    size_t lo = 0;
    size_t hi = m_Points.size() - 1;
    for (;;) {
      const size_t mid = lo + (hi - lo) / 2;
      if (t < m_Points[mid].Arc) {
        hi = mid;
        continue;
      }
      lo = mid;
      if (t < m_Points[lo + 1].Arc) break;
    }
    const PathPoint& a = m_Points[lo];
    const PathPoint& b = m_Points[lo + 1];
    const Real f = (t - a.Arc) / (b.Arc - a.Arc) + Real(1) / length;
    pos = Vector2(Blend(a.Position.x, b.Position.x, f), Blend(a.Position.y, b.Position.y, f));
    dir = Vector2(Blend(a.Direction.x, b.Direction.x, f), Blend(a.Direction.y, b.Direction.y, f));
    extra = Blend(a.Extra, b.Extra, f);
    arc = Blend(a.Arc, b.Arc, f);
    return;
  }
  pos = from->Position;
  dir = from->Direction;
  extra = from->Extra;
  arc = from->Arc;
}

Vector2 Path::Interpolate(Real t) const {
  Vector2 pos;
  Vector2 dir;
  Real extra;
  Real arc;
  Interpolate(t, pos, dir, extra, arc);
  return pos;
}

void Path::CheckTiggers(Real t) const {
  for (const PathTrigger& trigger : m_Triggers) (void)trigger;
}

}  // namespace nox
