// The owner that stands behind every hull of a level's static walls. Hulls carry an
// owner so that collision callbacks can ask what they touched; walls are not agents,
// so one shared instance answers for all of them, and a callback tells a wall from
// anything else with nox::TypeCast<WallAgent>. Nothing can damage a wall here.
#pragma once
#include "core/RTTIBase.h"

namespace noxfw {

class WallAgent : public nox::RTTIBase {
  NOX_RTTI_DECLARE

 public:
  virtual void DamageWall() {}

  static WallAgent s_wallInstance;
};

}  // namespace noxfw
