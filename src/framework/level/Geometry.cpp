#include "level/Geometry.h"

#include "core/Debug.h"
#include "level/WallEntry.h"
#include "physics/CollisionPool.h"
#include "physics/Particle.h"
#include "physics/PolyHull.h"
#include "physics/RectangleHull.h"

namespace noxfw {

const nox::Real Geometry::kDefaultDepth = nox::Real(1000);

namespace {

// Walls neither bounce nor slide: the body that meets one keeps only what its own
// hull's numbers give it.
const nox::Real kWallElasticity = nox::Real();
const nox::Real kWallFriction = nox::Real(1);
const nox::Real kHalf = nox::Real::FromRaw(0x8000);

nox::Vector2 Centre(const std::vector<nox::Vector2>& vertices) {
  nox::Vector2 sum;
  for (const nox::Vector2& v : vertices) sum += v;
  sum /= nox::Real(static_cast<int32_t>(vertices.size()));
  return sum;
}

}  // namespace

Geometry::Geometry(unsigned long hullReserve, unsigned long bodyReserve) : m_Depth(kDefaultDepth) {
  m_Hulls.reserve(hullReserve);
  m_Pools.reserve(hullReserve);
  m_Bodies.reserve(bodyReserve);
}

Geometry::~Geometry() {
  Unload();
}

bool Geometry::ClearStreamEntry(std::istream& stream) {
  WallEntry entry;
  return entry.Read(stream);
}

bool Geometry::Init(nox::PhysicsEngine& engine, nox::CollisionPool* pool, std::istream& stream,
                    nox::RTTIBase* owner) {
  (void)engine;  // the hulls reach the engine through their pool
  WallEntry entry;
  if (!entry.Read(stream)) {
    nox::AutomationPrintf("Geometry: wall \"%s\" refused: a number is missing or out of range",
                          entry.m_Name.c_str());
    return false;
  }
  m_pPool = pool;
  m_Depth = entry.m_bHasDepth && entry.m_Depth > 0 ? nox::Real(entry.m_Depth) : kDefaultDepth;
  std::vector<nox::Vector2> shape;
  for (const std::vector<WallVertex>& vertices : entry.m_Shapes) {
    shape.clear();
    for (const WallVertex& v : vertices) shape.push_back(nox::Vector2(nox::Real(v.x), nox::Real(v.y)));
    if (entry.m_Kind == WallEntry::eOpenLine || entry.m_Kind == WallEntry::eClosedLine) {
      for (size_t i = 1; i < shape.size(); ++i) AddLine(shape[i - 1], shape[i], owner);
      if (entry.m_Kind == WallEntry::eClosedLine && shape.size() > 2)
        AddLine(shape.back(), shape.front(), owner);
    } else if (IsAxisAlignedRectangle(shape)) {
      nox::Real left = shape[0].x, top = shape[0].y, right = shape[0].x, bottom = shape[0].y;
      for (const nox::Vector2& v : shape) {
        if (v.x < left) left = v.x;
        if (v.x > right) right = v.x;
        if (v.y < top) top = v.y;
        if (v.y > bottom) bottom = v.y;
      }
      AddRectangle(nox::Vector2(left, top), nox::Vector2(right - left, bottom - top), owner);
    } else if (shape.size() >= 3) {
      AddPolygon(shape, owner);
    } else if (shape.size() == 2) {
      AddLine(shape[0], shape[1], owner);
    }
  }
  m_pPool = nullptr;
  m_Depth = kDefaultDepth;
  return true;
}

bool Geometry::IsAxisAlignedRectangle(const std::vector<nox::Vector2>& v) {
  if (v.size() != 4) return false;
  for (size_t i = 0; i < 4; ++i) {
    const nox::Vector2& a = v[i];
    const nox::Vector2& b = v[(i + 1) % 4];
    const bool sameX = a.x == b.x, sameY = a.y == b.y;
    // Each side runs along exactly one axis and has a length.
    if (sameX == sameY) return false;
    // Sides alternate between the axes, so the four corners close a box.
    const nox::Vector2& c = v[(i + 2) % 4];
    if (sameX == (b.x == c.x)) return false;
  }
  return true;
}

nox::Particle* Geometry::MakeBody(const nox::Vector2& position) {
  nox::Particle* body = new nox::Particle(nox::Vector3(position.x, position.y, nox::Real()));
  body->m_bFixed = true;
  return body;
}

void Geometry::Keep(nox::AbstractHull* hull, nox::Particle* body) {
  m_Hulls.push_back(hull);
  m_Bodies.push_back(body);
  m_Pools.push_back(m_pPool);
  m_pPool->addHull(hull);
}

void Geometry::AddLine(const nox::Vector2& from, const nox::Vector2& to, nox::RTTIBase* owner) {
  if (!m_pPool || from == to) return;
  const nox::Vector2 centre = (from + to) * kHalf;
  nox::Particle* body = MakeBody(centre);
  nox::PolyHull* hull =
      new nox::PolyHull(body, kWallElasticity, kWallFriction, nullptr, owner, m_Depth, false);
  hull->SetVertices({from - centre, to - centre});
  Keep(hull, body);
}

void Geometry::AddRectangle(const nox::Vector2& position, const nox::Vector2& size, nox::RTTIBase* owner) {
  if (!m_pPool) return;
  nox::Particle* body = MakeBody(position + size * kHalf);
  nox::RectangleHull* hull =
      new nox::RectangleHull(body, size.x, size.y, kWallElasticity, kWallFriction, nullptr, owner, m_Depth);
  Keep(hull, body);
}

void Geometry::AddPolygon(const std::vector<nox::Vector2>& vertices, nox::RTTIBase* owner) {
  if (!m_pPool || vertices.size() < 3) return;
  const nox::Vector2 centre = Centre(vertices);
  nox::Particle* body = MakeBody(centre);
  nox::PolyHull* hull =
      new nox::PolyHull(body, kWallElasticity, kWallFriction, nullptr, owner, m_Depth, false);
  std::vector<nox::Vector2> relative;
  relative.reserve(vertices.size());
  for (const nox::Vector2& v : vertices) relative.push_back(v - centre);
  hull->SetVertices(relative);
  Keep(hull, body);
}

void Geometry::Unload() {
  for (size_t i = 0; i < m_Hulls.size(); ++i) {
    if (m_Pools[i]) m_Pools[i]->removeHull(m_Hulls[i]);
    delete m_Hulls[i];
    delete m_Bodies[i];
  }
  m_Hulls.clear();
  m_Bodies.clear();
  m_Pools.clear();
}

}  // namespace noxfw
