// A named group of hulls ("Wall", "PlayerCollision", "Sensor"...) and the table of
// pools it interacts with. The hulls sit in a list of ProjectedHull nodes kept
// sorted by min x; the broad phase sweeps that order, so a pair is only tested when
// the two hulls overlap in x.
//
// A stacking pool sorts each x-overlapping run by y as well, and holds the lower
// body of a contact still while it is tested, so that a pile does not sink
// through itself.
//
// Interactions are one-sided: a pool tests only the partners in its own table.
// Hulls and nodes: the hulls are borrowed; the nodes come from the engine's
// preallocated block. During a step removeHull only marks a node, and the node
// leaves at the end of the step, so callbacks may add and remove hulls freely.
#pragma once
#include <vector>

#include "core/NoCopy.h"
#include "core/Vector2.h"
#include "core/Vector3.h"
#include "graphics/Rectangle.h"
#include "physics/CollisionInfo.h"
#include "physics/Interval.h"
#include "physics/ProjectedHull.h"

namespace nox {

class AbstractHull;
class PhysicsEngine;
class HeightMap;

class CollisionPool : public NoCopy {
 public:
  typedef InteractionType::eInteractionType eInteractionType;

  // Not registered with the engine here: CollisionPoolMap or the creator does that.
  CollisionPool(PhysicsEngine& engine, unsigned long colour, bool stacking);
  // Gives its nodes back and makes the engine forget the pool. Not inside a step.
  virtual ~CollisionPool();

  // Links a node for `hull` at the front; the next projectPool sorts it in.
  void addHull(AbstractHull* hull);
  // Marks the hull's node dead; outside a step it leaves at once.
  void removeHull(AbstractHull* hull);
  // Unlinks the dead nodes and gives them back to the engine.
  void CollectGarbage();

  // Appends `pool` to the table; a pair set twice is tested twice.
  void interactsWith(CollisionPool* pool, eInteractionType type);
  // Replaces the type of the first entry for `pool`, if any.
  void changeInteraction(CollisionPool* pool, eInteractionType type);

  // Re-projects the hulls that moved or are dirty, re-sorts, and saves the links.
  void projectPool();
  // Sweeps against each partner of the table in order.
  void collide();
  void collideWithSelf(eInteractionType type);
  void collideWithOtherPool(CollisionPool* other, eInteractionType type);
  void collideWithHeightMap();

  // Whether `hull` touches any enabled hull of the pool (other than itself). A
  // placement test for outside the step: no sweep, no response, no callbacks.
  bool collidesWithHull(AbstractHull& hull);
  void clearResolveFlags();
  // Each hull that touched nothing records its particle's position as free.
  void checkResolveFlags();
  // The first enabled hull in list order that the segment hits, with the point in
  // `out`; null and `out` = destination when none.
  AbstractHull* Trace(const Vector3& origin, const Vector3& destination, Vector3& out);
  // The union of the hulls' x and y projections; all zero for an empty pool.
  Rectangle GetBoundingBox() const;
  void Draw(const Vector2& offset);

  unsigned GetHullCount() const { return m_HullCount; }
  bool IsStacking() const { return m_bStacking; }
  unsigned long GetColour() const { return m_Colour; }
  PhysicsEngine* GetEngine() const { return m_pEngine; }
  ProjectedHull* GetFirstNode() const { return m_Sentinel.m_pNext; }
  // True when a live (not dead) node holds `hull`.
  bool ContainsHull(const AbstractHull* hull) const;
  const std::vector<CollisionPool*>& GetPartners() const { return m_Partners; }
  const std::vector<eInteractionType>& GetInteractions() const { return m_Interactions; }

  // The engine is going away first: forget its nodes without touching them.
  void DetachFromEngine();

 private:
  // Tests `a` against the x-overlapping run that ends at `end`, in order of max y.
  static void YSortandCollide(ProjectedHull* a, ProjectedHull* end, CollisionPool* poolA,
                              CollisionPool* poolB, eInteractionType type);
  void RestoreSavedLinks();

  uint32_t m_HullCount = 0;
  bool m_bStacking;
  PhysicsEngine* m_pEngine;                      // borrowed; null once the engine is gone
  uint32_t m_Colour;                             // debug outline, 0xRRGGBBAA
  ProjectedHull m_Sentinel;                      // min x -32000.0, no hull
  std::vector<CollisionPool*> m_Partners;        // borrowed
  std::vector<eInteractionType> m_Interactions;  // parallel to m_Partners
  HeightMap* m_pHeightMap = nullptr;             // never set
};

}  // namespace nox
