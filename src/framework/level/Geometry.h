// The static collision of a level: the hulls built from its "Wall" elements. Each
// Init reads one element from the level stream and turns its shapes into hulls on
// fixed bodies in the given pool:
//   - kinds 1 (open) and 2 (closed) are polylines: each pair of neighbouring vertices
//     becomes a segment through AddLine, and a closed one also joins the last vertex
//     to the first;
//   - kind 0 holds shapes: four vertices that form an axis-aligned rectangle become a
//     RectangleHull through AddRectangle, any other shape of three or more a PolyHull
//     through AddPolygon, and a shape of two vertices a segment.
// A depth given in the element is the hulls' z extent; without one they reach 1000.0.
//
// The geometry owns its hulls and bodies. Bodies are fixed and stay out of the
// physics engine's particle list (nothing integrates a wall); only the hulls are
// registered, in their pool. Unload (also run by the destructor) takes each hull out
// of its pool and frees everything; call it while the pools still exist.
#pragma once
#include <istream>
#include <vector>

#include "core/NoCopy.h"
#include "core/Real.h"
#include "core/Vector2.h"

namespace nox {
class AbstractHull;
class CollisionPool;
class Particle;
class PhysicsEngine;
class RTTIBase;
}  // namespace nox

namespace noxfw {

class Geometry : public nox::NoCopy {
 public:
  static const nox::Real kDefaultDepth;  // 1000.0, the z extent of a wall without its own

  // Reserves room for that many hulls and bodies, so that a level of known size does
  // not grow the lists while it loads.
  Geometry(unsigned long hullReserve, unsigned long bodyReserve);
  virtual ~Geometry();

  // Reads one wall element (after its id) and builds its hulls into `pool`, owned by
  // `owner`. A malformed element builds nothing, fails the stream, logs one line and
  // gives false. A null pool reads the element and builds nothing.
  bool Init(nox::PhysicsEngine& engine, nox::CollisionPool* pool, std::istream& stream, nox::RTTIBase* owner);
  // Reads past one wall element without building anything.
  static bool ClearStreamEntry(std::istream& stream);

  // Shapes in world units. Each makes one fixed body and one hull in the pool of the
  // present Init (nothing outside an Init that has a pool).
  void AddLine(const nox::Vector2& from, const nox::Vector2& to, nox::RTTIBase* owner);
  void AddRectangle(const nox::Vector2& position, const nox::Vector2& size, nox::RTTIBase* owner);
  void AddPolygon(const std::vector<nox::Vector2>& vertices, nox::RTTIBase* owner);

  // Takes every hull out of its pool and frees hulls and bodies.
  void Unload();

  unsigned long GetHullCount() const { return static_cast<unsigned long>(m_Hulls.size()); }
  nox::AbstractHull* GetHull(unsigned long index) const { return m_Hulls[index]; }
  nox::Particle* GetBody(unsigned long index) const { return m_Bodies[index]; }

  // Whether four vertices, in order, go round an axis-aligned rectangle.
  static bool IsAxisAlignedRectangle(const std::vector<nox::Vector2>& vertices);

 private:
  nox::Particle* MakeBody(const nox::Vector2& position);
  void Keep(nox::AbstractHull* hull, nox::Particle* body);

  std::vector<nox::AbstractHull*> m_Hulls;   // owned
  std::vector<nox::Particle*> m_Bodies;      // owned, one per hull
  std::vector<nox::CollisionPool*> m_Pools;  // borrowed, the pool of each hull
  nox::CollisionPool* m_pPool = nullptr;     // the pool of the present Init
  nox::Real m_Depth;                         // the z extent of the present Init
};

}  // namespace noxfw
