// Characters in a real physics engine and animation engine: the body follows the
// sprite's collider before the step and the sprite follows the body after it,
// velocity lives in the particle, and enabling, disabling and destroying move the
// character in and out of the engines.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../tiles/TileTestSupport.h"
#include "TestAgents.h"
#include "agents/AgentEngine.h"
#include "agents/Character.h"
#include "agents/ContextPool.h"
#include "graphics/AnimationEngine.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/PhysicsEngine.h"
#include "physics/RectangleHull.h"

namespace {

using nox::Character;
using nox::HashString;
using nox::Real;
using nox::Vector2;
using nox::Vector3;

const nox::NameHash kCrouch = HashString("Crouch");
const nox::NameHash kPlayer = HashString("Player");
const nox::NameHash kWall = HashString("Wall");

Vector3 V3(int x, int y, int z = 0) {
  return Vector3(Real(x), Real(y), Real(z));
}

// Counts its contacts and tells the test when it is deleted.
class TestCharacter : public Character {
 public:
  TestCharacter(nox::ContextPool& pool, nox::TileAnimData* data, bool* deleted = nullptr)
      : Character(pool, data), m_pDeleted(deleted) {}
  ~TestCharacter() override {
    if (m_pDeleted) *m_pDeleted = true;
  }
  void OnCollision(const nox::CollisionInfo& info) override {
    ++m_Contacts;
    m_LastNormal = info.m_Normal;
  }
  int m_Contacts = 0;
  Vector3 m_LastNormal;

 private:
  bool* m_pDeleted;
};

// A scene's worth of engines, and a sprite 16 by 32 whose "Feet" stand at (8, 32).
// "Stand" collides with (2, 4)-(14, 32), "Crouch" with (2, 16)-(14, 32).
class CharacterTest : public tiletest::TitleFixture {
 protected:
  CharacterTest() : m_Physics(Real(1), 64), m_Pools(m_Physics) {
    m_AgentContext.m_pAgentEngine = &m_Agents;
    m_AnimationContext.m_pWorldEngine = &m_Animations;
    m_PhysicsContext.m_pPhysicsEngine = &m_Physics;
    m_PhysicsContext.m_pCollisionPoolMap = &m_Pools;
    m_Context.m_pAgentContext = &m_AgentContext;
    m_Context.m_pAnimationContext = &m_AnimationContext;
    m_Context.m_pPhysicsContext = &m_PhysicsContext;
    m_pPlayerPool = m_Pools.AddDefinition("Player", 0, false);
    m_pWallPool = m_Pools.AddDefinition("Wall", 0, false);
    m_Pools.SetInteraction(kPlayer, kWall, nox::InteractionType::eResolveAndNotify);
  }

  void SetUp() override {
    assetlib::AnimDesc desc = tiletest::Description(8, assetlib::AnimStorage::kSheet, true);
    std::vector<std::pair<std::string, assetlib::Image>> pictures = {
        {"body", tiletest::Box(16, 32, 0, 0, 16, 32, {0, 255, 0, 255})}};
    const std::vector<assetlib::AnimPoint> feet = {{false, 8, 32}};
    desc.sequences.push_back(tiletest::Sequence("Stand", {"body"}));
    desc.sequences.back().points.push_back({"Feet", feet});
    desc.sequences.back().rects.push_back({"Collision", {{false, 2, 4, 14, 32}}});
    desc.sequences.push_back(tiletest::Sequence("Crouch", {"body"}));
    desc.sequences.back().points.push_back({"Feet", feet});
    desc.sequences.back().rects.push_back({"Collision", {{false, 2, 16, 14, 32}}});
    WriteSprite("Walker", desc, pictures);
    m_pData = new nox::TileAnimData("Walker", false, true);
    ASSERT_TRUE(m_pData->IsLoaded());
  }

  void TearDown() override {
    m_Agents.DestroyAllAgents();
    delete m_pData;
  }

  // A character standing at `position`, initialised, in the "Player" pool.
  TestCharacter* Make(const Vector3& position, bool* deleted = nullptr) {
    TestCharacter* c = new TestCharacter(m_Context, m_pData, deleted);
    c->SetCollisionPool(kPlayer);
    c->SetPosition(position);
    c->Init();
    m_Agents.AddAgent(c);
    return c;
  }

  // One frame as a world scene runs it, with a pull of `gravity` down.
  void Frame(Character& c, Real gravity) {
    m_Physics.addScaledForce(Vector3(Real(), gravity, Real()));
    c.PrePhysics();
    m_Physics.step(1);
    c.PostPhysics();
  }

  bool InPhysics(const Character& c) const {
    for (const nox::Particle* p : m_Physics.GetParticles()) {
      if (p == &c.GetBody()) return true;
    }
    return false;
  }

  nox::AgentEngine m_Agents;
  nox::AnimationEngine m_Animations;
  nox::PhysicsEngine m_Physics;
  nox::CollisionPoolMap m_Pools;
  nox::AgentContext m_AgentContext;
  nox::AnimationContext m_AnimationContext;
  nox::PhysicsContext m_PhysicsContext;
  nox::ContextPool m_Context;
  nox::CollisionPool* m_pPlayerPool = nullptr;
  nox::CollisionPool* m_pWallPool = nullptr;
  nox::TileAnimData* m_pData = nullptr;
};

TEST_F(CharacterTest, AFallingCharacterCarriesItsSpriteAtTheBodyPlusTheOffset) {
  TestCharacter* c = Make(V3(100, 200));
  EXPECT_EQ(c->GetRegistration(), Character::kFeetHash);
  EXPECT_EQ(c->GetCollider(), Character::kCollisionHash);
  // The body sits on the collider's centre, 14 above the feet.
  EXPECT_EQ(c->GetBody().m_Position, V3(100, 186));
  EXPECT_EQ(c->GetOffset(), V3(0, 14));
  EXPECT_EQ(c->GetCollisionHull().GetWidth(), Real(12));
  EXPECT_EQ(c->GetCollisionHull().GetHeight(), Real(28));

  int fallen = 0;
  for (int frame = 1; frame <= 10; ++frame) {
    Frame(*c, Real(1));
    fallen += frame;  // one more unit a frame each frame
    EXPECT_EQ(c->GetBody().m_Position, V3(100, 186 + fallen));
    EXPECT_EQ(c->GetPosition(), V3(100, 200 + fallen));
    EXPECT_EQ(c->GetTileAnimation()->GetPosition(), c->GetPosition());
    EXPECT_EQ(c->GetVelocity(), V3(0, frame));
  }
  // The sprite's collider follows: its rectangle is where the hull is.
  const nox::Rectangle rect = c->GetTileAnimation()->GetRect(Character::kCollisionHash);
  EXPECT_EQ(rect.top, c->GetCollisionHull().GetTop());
  EXPECT_EQ(rect.bottom, c->GetCollisionHull().GetBottom());
}

TEST_F(CharacterTest, ACharacterLandsOnAFloorAndIsToldThroughItsHull) {
  nox::Particle floorBody(V3(100, 320));
  floorBody.m_bFixed = true;
  nox::RTTIBase floorOwner;
  nox::RectangleHull floor(&floorBody, Real(400), Real(40), Real(), Real(), nullptr, &floorOwner, Real(2));
  m_pWallPool->addHull(&floor);
  TestCharacter* c = Make(V3(100, 200));
  c->GetCollisionHull().setElasticity(Real());  // land rather than bounce
  for (int frame = 0; frame < 60; ++frame) {
    Frame(*c, Real(1));
    // Never deeper into the floor than one frame's fall.
    EXPECT_LE(c->GetCollisionHull().GetBottom(), Real(300 + 12));
  }
  EXPECT_GT(c->m_Contacts, 0);
  EXPECT_NE(c->m_LastNormal.y, Real());
  EXPECT_EQ(c->GetPosition().y, c->GetBody().m_Position.y + Real(14));
  m_pWallPool->removeHull(&floor);
}

TEST_F(CharacterTest, AMovedSpriteGetsItsHullResizedBeforeTheStepAndTheBodyKeepsItsVelocity) {
  TestCharacter* c = Make(V3(100, 200));
  Frame(*c, Real());  // projected: the hull is clean
  EXPECT_FALSE(c->GetCollisionHull().isDirty());
  c->SetVelocity(Vector2(Real(3), Real(-2)));
  // A crouch: the collider is shorter, its centre lower.
  c->GetTileAnimation()->Play(kCrouch, 0);
  c->PrePhysics();
  EXPECT_EQ(c->GetCollisionHull().GetHeight(), Real(16));
  EXPECT_EQ(c->GetBody().m_Position, V3(100, 192));
  EXPECT_EQ(c->GetOffset(), V3(0, 8));
  EXPECT_EQ(c->GetVelocity(), V3(3, -2));
  EXPECT_TRUE(c->GetCollisionHull().isDirty());
  m_Physics.step(1);
  c->PostPhysics();
  EXPECT_EQ(c->GetPosition(), V3(103, 198));

  // A teleport by SetPosition takes the body along at the next PrePhysics.
  c->SetPosition(V3(500, 50, 7));
  c->PrePhysics();
  EXPECT_EQ(c->GetBody().m_Position, V3(500, 42, 7));
  EXPECT_EQ(c->GetVelocity(), V3(3, -2));
  EXPECT_EQ(c->GetDepth(), Real(7));

  // No such collider: the hull is off and the body stands at the position.
  c->SetCollider(HashString("Hitbox"));
  c->PrePhysics();
  EXPECT_FALSE(c->GetCollisionHull().isEnabled());
  EXPECT_EQ(c->GetBody().m_Position, V3(500, 50, 7));
  EXPECT_EQ(c->GetOffset(), Vector3());
  c->SetCollider(Character::kCollisionHash);
  c->PrePhysics();
  EXPECT_TRUE(c->GetCollisionHull().isEnabled());
  c->SetCollide(false);
  c->PrePhysics();
  EXPECT_FALSE(c->GetCollisionHull().isEnabled());
}

TEST_F(CharacterTest, OutOfTheEngineThePhysicsHooksLeaveEverythingAlone) {
  TestCharacter* c = Make(V3(100, 200));
  c->Enable(false);
  c->GetTileAnimation()->Play(kCrouch, 0);
  const Vector3 body = c->GetBody().m_Position;
  c->PrePhysics();
  c->PostPhysics();
  EXPECT_EQ(c->GetBody().m_Position, body);
  EXPECT_EQ(c->GetPosition(), V3(100, 200));
}

TEST_F(CharacterTest, VelocityIsPositionMinusPreviousAndKillingItKeepsZ) {
  TestCharacter* c = Make(V3(100, 200));
  c->SetVelocity(V3(3, -4, 5));
  EXPECT_EQ(c->GetVelocity(), V3(3, -4, 5));
  EXPECT_EQ(c->GetBody().m_Position, V3(100, 186));  // setting a velocity moves nothing
  c->SetVelocity(Vector2(Real(1), Real(2)));
  EXPECT_EQ(c->GetVelocity(), V3(1, 2, 5));
  c->KillVelocity();
  EXPECT_EQ(c->GetVelocity(), V3(0, 0, 5));
}

TEST_F(CharacterTest, EnableAndDisableMoveTheCharacterInAndOutOfTheEngines) {
  // Before Init, enabling joins nothing.
  TestCharacter* c = new TestCharacter(m_Context, m_pData);
  c->SetCollisionPool(kPlayer);
  c->Enable(false);
  c->Enable(true);
  EXPECT_EQ(m_pPlayerPool->GetHullCount(), 0u);
  EXPECT_FALSE(m_Animations.HasAnimation(c->GetTileAnimation()));
  c->Init();
  EXPECT_EQ(m_pPlayerPool->GetHullCount(), 1u);
  EXPECT_TRUE(InPhysics(*c));
  EXPECT_TRUE(m_Animations.HasAnimation(c->GetTileAnimation()));

  c->Enable(false);
  EXPECT_EQ(m_pPlayerPool->GetHullCount(), 0u);
  EXPECT_FALSE(InPhysics(*c));
  EXPECT_FALSE(m_Animations.HasAnimation(c->GetTileAnimation()));
  c->Enable(true);
  c->Enable(true);
  EXPECT_EQ(m_pPlayerPool->GetHullCount(), 1u);
  EXPECT_EQ(m_Physics.GetParticles().size(), 1u);
  EXPECT_EQ(m_Animations.GetAnimations().size(), 1u);

  // Changing the pool in the engine moves the hull.
  c->SetCollisionPool(kWall);
  EXPECT_EQ(m_pPlayerPool->GetHullCount(), 0u);
  EXPECT_EQ(m_pWallPool->GetHullCount(), 1u);
  c->SetCollisionPool(HashString("Nowhere"));
  EXPECT_EQ(c->GetCollisionPool(), nullptr);
  EXPECT_EQ(m_pWallPool->GetHullCount(), 0u);

  // Deleting an enabled character takes it out of everything.
  c->SetCollisionPool(kPlayer);
  delete c;
  EXPECT_EQ(m_pPlayerPool->GetHullCount(), 0u);
  EXPECT_TRUE(m_Physics.GetParticles().empty());
  EXPECT_EQ(m_Animations.GetAnimations().size(), 0u);
}

TEST_F(CharacterTest, DestroyingTwiceDeletesOnceAndLeavesTheEngines) {
  bool deleted = false;
  TestCharacter* c = Make(V3(10, 10), &deleted);
  // Destroyed twice during an update: queued, and deleted once the update is over.
  agenttest::Journal journal;
  agenttest::TestAgent* killer = new agenttest::TestAgent(m_Context, journal, "killer");
  killer->m_OnUpdate = [c]() {
    c->Destroy();
    c->Destroy();
  };
  m_Agents.AddAgent(killer);
  m_Agents.Update(16);
  EXPECT_TRUE(deleted);
  m_Agents.DestroyAgent(killer);
  EXPECT_EQ(m_Agents.GetAgentCount(), 0u);
  EXPECT_EQ(m_pPlayerPool->GetHullCount(), 0u);
  EXPECT_TRUE(m_Physics.GetParticles().empty());
  EXPECT_EQ(m_Animations.GetAnimations().size(), 0u);
}

TEST_F(CharacterTest, ACharacterWithoutASpriteStillHasABody) {
  nox::TileAnimData missing("NoSuchSprite", false, true);
  TestCharacter* c = new TestCharacter(m_Context, &missing);
  TestCharacter* d = new TestCharacter(m_Context, nullptr);
  for (TestCharacter* x : {c, d}) {
    m_Agents.AddAgent(x);
    x->SetCollisionPool(kPlayer);
    x->SetPosition(V3(40, 50));
    x->Init();
    EXPECT_EQ(x->GetAnimation(), nullptr);
    EXPECT_EQ(x->GetRegistration(), 0u);
    Frame(*x, Real(1));
    EXPECT_EQ(x->GetPosition(), V3(40, 51));
    EXPECT_FALSE(x->GetCollisionHull().isEnabled());
  }
  // A sprite given later joins the animation engine at once, at the position.
  d->InitTileAnimation(m_pData);
  ASSERT_NE(d->GetTileAnimation(), nullptr);
  EXPECT_TRUE(m_Animations.HasAnimation(d->GetTileAnimation()));
  EXPECT_EQ(d->GetTileAnimation()->GetPosition(), d->GetPosition());
  d->UnloadTileAnimation();
  EXPECT_EQ(m_Animations.GetAnimations().size(), 0u);
}

}  // namespace
