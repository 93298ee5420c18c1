// The world scene of the world test title: the level "WorldLevel" with its walls, its
// two arenas (the meadow, then the cave) and the scenery behind them. Characters fall
// onto the walls. A tap on a character logs "Hit <name>"; hitting the Witch runs the
// current arena's first action list, which brings the GuardTall in. A tap near the
// right edge moves on to the next arena, and each arena that becomes current logs
// "Arena <index> <label>"; a tap on nothing logs "Miss <x> <y>" (world units).
#pragma once
#include "scenes/WorldScene.h"

namespace worldapp {

class WorldRunScene : public noxfw::WorldScene {
  NOX_RTTI_DECLARE

 public:
  static const int kRightEdge = 440;  // screen x from which a tap means "next arena"

  WorldRunScene();

  void Enter() override;
  void RegisterFactories() override;
  void ArenaTransitionOccurred() override;

 protected:
  void StylusDown(const nox::Vector2& position) override;

 private:
  void LogArena();
};

}  // namespace worldapp
