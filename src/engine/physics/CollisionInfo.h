// The contact record. The shape tests fill it with the first hull in m_pHull, the
// second in m_pOwnHull, the best separating-axis result as depth (signed) and its
// axis as normal. CollisionDetector::test then makes one record for each hull, from
// that hull's point of view, and hands it to resolve handlers and notifiers.
#pragma once
#include "core/Real.h"
#include "core/Vector2.h"
#include "core/Vector3.h"

namespace nox {

class AbstractHull;
class CollisionPool;

struct InteractionType {
  enum eInteractionType {
    eNone = 0,              // nothing happens
    eResolve = 1,           // the hulls push each other apart; nobody is told
    eNotify = 2,            // callbacks run; nobody moves
    eResolveAndNotify = 3,  // both
    eUnset = 4,             // what a fresh record carries
  };
};

struct CollisionInfo {
  AbstractHull* m_pHull = nullptr;     // the other hull
  AbstractHull* m_pOwnHull = nullptr;  // the hull whose callback this is
  CollisionPool* m_pPool = nullptr;    // the other hull's pool
  CollisionPool* m_pOwnPool = nullptr;
  Vector3 m_Normal;  // in a hull's own record: the raw normal if the depth is below 0, else reversed
  Vector2 m_Axis;    // the contact axis as found, whatever the sign of the depth
  Real m_Depth;      // signed penetration
  bool m_bCollided = false;
  Vector3 m_Velocity;  // the own particle's velocity before the response
  InteractionType::eInteractionType m_Type = InteractionType::eUnset;
};

}  // namespace nox
