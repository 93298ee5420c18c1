// Verlet particles, the relaxation constraints and rigs: integration with and
// without the fixed flag, the mass split of corrections, the one-sided rope, the
// no-push split of vector constraints, and how rigs list their parts.
#include <gtest/gtest.h>

#include "PhysicsTestSupport.h"
#include "physics/CollisionPool.h"
#include "physics/PhysicsEngine.h"
#include "physics/RectangleHull.h"
#include "physics/Rig.h"
#include "physics/RopeConstraint.h"
#include "physics/SpringConstraint.h"
#include "physics/StickConstraint.h"
#include "physics/VectorConstraint.h"

using namespace physics_test;
using nox::Particle;

TEST(Particle, VerletStepCarriesVelocityAndScaledForce) {
  Particle p(V3(10, 20));
  p.m_PreviousPosition = V3(8, 21);  // velocity (2, -1)
  p.m_Force = V3(4, 0, 2);
  p.m_bMoved = false;
  // Force 4 * (0.5 * 0.5) = 1 in x; damping 0.5 halves the whole step.
  p.update(Raw(0x4000), Raw(0x8000));
  EXPECT_EQ(p.m_Position, Vector3(Raw(0xB8000), Raw(0x138000), Raw(0x4000)));
  EXPECT_EQ(p.m_PreviousPosition, V3(10, 20));
  EXPECT_EQ(p.m_Force, Vector3());
  EXPECT_TRUE(p.m_bMoved);
}

TEST(Particle, FixedParticleKeepsItsPlaceAndDropsItsForce) {
  Particle p(V3(5, 5));
  p.m_PreviousPosition = V3(0, 0);
  p.m_Force = V3(100, 100);
  p.m_bFixed = true;
  p.m_bMoved = false;
  p.update(Real(1), Real(1));
  EXPECT_EQ(p.m_Position, V3(5, 5));
  EXPECT_EQ(p.m_Force, Vector3());
  EXPECT_FALSE(p.m_bMoved);
}

TEST(Particle, MovementInZAloneDoesNotSetTheMovedFlag) {
  Particle p(V3(1, 1, 0));
  p.m_PreviousPosition = V3(1, 1, -3);
  p.m_bMoved = false;
  p.update(Real(1), Real(1));
  EXPECT_EQ(p.m_Position, V3(1, 1, 3));
  EXPECT_FALSE(p.m_bMoved);
}

TEST(Constraints, StickCorrectionIsSharedInverselyByMass) {
  Particle a(V3(0, 0));
  Particle b(V3(8, 0));
  b.m_Mass = Real(3);
  nox::StickConstraint stick(&a, &b, Real(4));
  stick.resolve();
  // Four units to close: the light end takes three of them.
  EXPECT_EQ(a.m_Position, V3(3, 0));
  EXPECT_EQ(b.m_Position, V3(7, 0));
  // A fixed end stays and the other takes the whole correction.
  Particle c(V3(0, 0));
  Particle d(V3(0, 8));
  c.m_bFixed = true;
  nox::StickConstraint(&c, &d, Real(4)).resolve();
  EXPECT_EQ(c.m_Position, V3(0, 0));
  EXPECT_EQ(d.m_Position, V3(0, 4));
}

TEST(Constraints, StickTakesItsRestLengthFromThePresentDistance) {
  Particle a(V3(0, 0));
  Particle b(V3(3, 4));
  nox::StickConstraint stick(&a, &b);
  EXPECT_EQ(stick.getRestLength(), Real(5));
  EXPECT_EQ(stick.getStiffness(), Real());
  b.m_Position = V3(6, 8);
  stick.resolve();
  EXPECT_EQ(a.m_Position, Vector3(Raw(0x18000), Real(2), Real()));
  EXPECT_EQ(b.m_Position, Vector3(Raw(0x48000), Real(6), Real()));
}

TEST(Constraints, StickWithCoincidentEndsPartsThemAlongY) {
  Particle a(V3(7, 7));
  Particle b(V3(7, 7));
  nox::StickConstraint stick(&a, &b, Real(2));
  EXPECT_FALSE(stick.checkForIllegalParticlesLocation());
  stick.resolve();
  // One unit to open, half of it for each end.
  EXPECT_EQ(a.m_Position, Vector3(Real(7), Raw(0x78000), Real()));
  EXPECT_EQ(b.m_Position, Vector3(Real(7), Raw(0x68000), Real()));
  EXPECT_TRUE(stick.checkForIllegalParticlesLocation());
}

TEST(Constraints, BothEndsFixedMeansNoCorrection) {
  Particle a(V3(0, 0));
  Particle b(V3(10, 0));
  a.m_bFixed = b.m_bFixed = true;
  nox::StickConstraint(&a, &b, Real(2)).resolve();
  nox::VectorConstraint(&a, &b, V3(1, 0), Real(1)).resolve();
  EXPECT_EQ(a.m_Position, V3(0, 0));
  EXPECT_EQ(b.m_Position, V3(10, 0));
}

TEST(Constraints, RopePullsButNeverPushes) {
  Particle a(V3(0, 0));
  Particle b(V3(4, 0));
  nox::RopeConstraint slack(&a, &b, Real(8));
  slack.resolve();
  EXPECT_EQ(b.m_Position, V3(4, 0));
  nox::RopeConstraint taut(&a, &b, Real(4));
  taut.resolve();
  EXPECT_EQ(a.m_Position, V3(0, 0));
  EXPECT_EQ(b.m_Position, V3(4, 0));
  nox::RopeConstraint(&a, &b, Real(2)).resolve();
  EXPECT_EQ(a.m_Position, V3(1, 0));
  EXPECT_EQ(b.m_Position, V3(3, 0));
}

TEST(Constraints, SpringCorrectsByItsStiffness) {
  Particle a(V3(0, 0));
  Particle b(V3(0, 16));
  a.m_bFixed = true;
  nox::SpringConstraint spring(&a, &b, Raw(0x4000), Real(4));
  spring.resolve();
  // A quarter of the 12 units of stretch.
  EXPECT_EQ(b.m_Position, V3(0, 13));
  EXPECT_EQ(spring.getCenter(), Vector3(Real(), Raw(0x68000), Real()));
  EXPECT_TRUE(spring.isConnectedTo(a));
  EXPECT_FALSE(spring.isConnectedTo(Particle()));
  nox::SpringConstraint fromDistance(&a, &b, Real(1));
  EXPECT_EQ(fromDistance.getRestLength(), Real(13));
}

TEST(Constraints, VectorConstraintSharesByMassInAllAxes) {
  Particle a(V3(0, 0, 0));
  Particle b(V3(4, 4, 4));
  a.m_Mass = Real(3);
  nox::VectorConstraint v(&a, &b, V3(8, 0, 0), Real(1));
  v.resolve();
  // Error (4, -4, -4): b takes three quarters, a one quarter the other way.
  EXPECT_EQ(a.m_Position, V3(-1, 1, 1));
  EXPECT_EQ(b.m_Position, V3(7, 1, 1));
}

TEST(Constraints, VectorConstraintLetsTheNoPushEndKeepItsX) {
  Particle a(V3(0, 0, 0));
  Particle b(V3(4, 4, 4));
  b.m_bNoPush = true;
  nox::VectorConstraint v(&a, &b, V3(8, 0, 0), Real(1));
  v.resolve();
  // a takes the whole x error, y is halved between them, z is left alone.
  EXPECT_EQ(a.m_Position, V3(-4, 2, 0));
  EXPECT_EQ(b.m_Position, V3(4, 2, 4));

  Particle c(V3(0, 0, 0));
  Particle d(V3(4, 4, 4));
  c.m_bNoPush = true;
  nox::VectorConstraint w(&c, &d, V3(8, 0, 0), Real(1));
  w.resolve();
  EXPECT_EQ(c.m_Position, V3(0, 2, 0));
  EXPECT_EQ(d.m_Position, V3(8, 2, 4));
}

TEST(Constraints, BiasedVectorSnapsBackARunawayEndAndOtherwiseEases) {
  Particle a(V3(0, 0));
  Particle b(V3(0, 0));
  nox::BiasedVectorConstraint zero(&a, &b, Vector3(), Raw(0x1000));
  b.m_Position = V3(1, 0);
  zero.resolve();
  EXPECT_EQ(b.m_Position, Vector3());

  Particle c(V3(0, 0));
  Particle d(V3(10, 2));
  c.m_bFixed = d.m_bFixed = true;  // the biased form ignores fixed flags
  nox::BiasedVectorConstraint eased(&c, &d, V3(10, 0), Raw(0x8000));
  eased.resolve();
  EXPECT_EQ(d.m_Position, V3(10, 1));
  EXPECT_EQ(c.m_Position, V3(0, 0));
}

namespace {

struct RigFixture : ::testing::Test {
  nox::PhysicsEngine engine{Real(1), 16};
  nox::CollisionPool poolA{engine, 0, false};
  nox::CollisionPool poolB{engine, 0, false};

  // A rig of two particles joined by a stick, with a box on the first.
  nox::Rig* MakeRig() {
    nox::Rig* rig = new nox::Rig(&engine);
    Particle* p = new Particle(V3(0, 0));
    Particle* q = new Particle(V3(0, 10));
    rig->addParticle(p);
    rig->addParticle(q);
    rig->addConstraint(new nox::StickConstraint(p, q));
    rig->addHull(new nox::RectangleHull(p, Real(4), Real(4), Real(), Real(), nullptr, nullptr, Real(1)),
                 &poolA);
    return rig;
  }
};

}  // namespace

TEST_F(RigFixture, EnlistingTwiceListsEverythingOnce) {
  std::unique_ptr<nox::Rig> rig(MakeRig());
  rig->enlist();
  rig->enlist();
  EXPECT_EQ(engine.GetParticles().size(), 2u);
  EXPECT_EQ(engine.GetConstraints().size(), 1u);
  EXPECT_EQ(poolA.GetHullCount(), 1u);
  rig->delist();
  rig->delist();
  EXPECT_TRUE(engine.GetParticles().empty());
  EXPECT_TRUE(engine.GetConstraints().empty());
  EXPECT_EQ(poolA.GetHullCount(), 0u);
}

TEST_F(RigFixture, SetPoolMovesAHullOfAnEnlistedRig) {
  std::unique_ptr<nox::Rig> rig(MakeRig());
  nox::AbstractHull* hull = rig->getHulls()[0].first;
  rig->setPool(hull, &poolB);  // not enlisted: only recorded
  EXPECT_EQ(poolB.GetHullCount(), 0u);
  rig->enlist();
  EXPECT_TRUE(poolB.ContainsHull(hull));
  rig->setPool(hull, &poolA);
  EXPECT_TRUE(poolA.ContainsHull(hull));
  EXPECT_FALSE(poolB.ContainsHull(hull));
  EXPECT_EQ(rig->getPool(hull), &poolA);
}

TEST_F(RigFixture, RigWideSettersReachEveryPart) {
  std::unique_ptr<nox::Rig> rig(MakeRig());
  rig->setVelocity(V3(2, -1));
  for (Particle* p : rig->getParticles()) EXPECT_EQ(p->getVelocity(), V3(2, -1));
  EXPECT_EQ(rig->getParticles()[0]->m_Position, V3(0, 0));
  EXPECT_EQ(rig->getParticles()[1]->m_Position, V3(0, 10));
  rig->addForce(V3(0, 3));
  rig->setFixed(true);
  rig->setFriction(Real(2));
  rig->setElasticity(Raw(0x8000));
  for (Particle* p : rig->getParticles()) {
    EXPECT_EQ(p->m_Force, V3(0, 3));
    EXPECT_TRUE(p->m_bFixed);
  }
  EXPECT_EQ(rig->getHulls()[0].first->getFriction(), Real(2));
  EXPECT_EQ(rig->getHulls()[0].first->getElasticity(), Raw(0x8000));
}

TEST_F(RigFixture, DeletingAnEnlistedRigLeavesEngineAndPoolEmpty) {
  nox::Rig* rig = MakeRig();
  rig->enlist();
  delete rig;  // sanitizers check that every part is freed exactly once
  EXPECT_TRUE(engine.GetParticles().empty());
  EXPECT_TRUE(engine.GetConstraints().empty());
  EXPECT_EQ(poolA.GetHullCount(), 0u);
  EXPECT_EQ(engine.GetFreeNodeCount(), 16u);
}
