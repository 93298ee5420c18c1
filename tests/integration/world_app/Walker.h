// The stand-in character of the world test title: a nox::Character that falls under
// a gravity added to its body every frame and stops on the level's walls. The first
// frame it stands on a wall it logs "Landed <name> y=<feet>". Its sprite is chosen by
// the name the level gives it.
#pragma once
#include <string>

#include "agents/AgentFactory.h"
#include "agents/Character.h"

namespace nox {
class AnimDataMap;
}

namespace worldapp {

class Walker : public nox::Character {
  NOX_RTTI_DECLARE

 public:
  static const nox::Real kGravity;  // units per frame per frame

  Walker(nox::ContextPool& pool, nox::TileAnimData* data, const char* name);

  void Init() override;
  void Update(unsigned long dt) override;
  void PostPhysics() override;
  void OnCollision(const nox::CollisionInfo& info) override;

  // Whether the screen's `point` (world units) falls in the sprite's collision rectangle.
  bool Covers(const nox::Vector2& point) const;
  const std::string& GetLabel() const { return m_Label; }
  bool HasLanded() const { return m_bLanded; }

 private:
  std::string m_Label;
  bool m_bOnWall = false;  // touched a wall in this frame's step
  bool m_bLanded = false;
};

// Makes Walkers for the type name "AdventureCharacter"; the sprite by the agent's
// name: "Witch" WorldWitch, "GuardTall" WorldGuard, "MumBear" WorldBear. An agent of
// another name, or whose sprite is missing, is not made (one log line).
class WalkerFactory : public nox::AgentFactory {
 public:
  explicit WalkerFactory(nox::AnimDataMap& sprites) : m_Sprites(sprites) {}
  nox::Agent* CreateAgent(nox::AgentEntry* entry, const nox::AgentStyle* style,
                          const nox::AttributeList& attributes) override;
  nox::NameHash GetElementTypeId() const override { return nox::HashString("AdventureCharacter"); }

 private:
  nox::AnimDataMap& m_Sprites;
};

}  // namespace worldapp
