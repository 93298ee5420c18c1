// The response to a contact: splits the normal velocity of the two particles by
// their masses and the summed elasticity, keeps a friction share of the tangential
// velocity, and pushes them apart along the normal by the depth. A fixed particle
// counts as immovable; with the no-push flag on one particle the other is pushed
// the whole way.
#pragma once
#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class AbstractHull;

class CollisionResolver {
 public:
  // `normal` and `depth` as the shape test gave them for a against b.
  static void resolve(AbstractHull& a, AbstractHull& b, Vector3 normal, Real depth);
};

}  // namespace nox
