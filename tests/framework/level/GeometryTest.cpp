// The static walls of a level: which hull each kind of wall element becomes, that the
// hulls really stop a falling body, that reading past an element leaves the stream at
// the next one, and that unloading gives every node back to the engine.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "../../engine/files/TestFiles.h"
#include "level/Geometry.h"
#include "physics/CollisionPool.h"
#include "physics/CollisionPoolMap.h"
#include "physics/Particle.h"
#include "physics/PhysicsEngine.h"
#include "physics/RectangleHull.h"
#include "volumes/WallAgent.h"

namespace {

using nox::Real;
using nox::Vector2;
using noxfw::Geometry;
using noxfw::WallAgent;

const unsigned kHulls = 64;

class GeometryTest : public ::testing::Test {
 protected:
  GeometryTest() : m_Log(m_Dir), m_Engine(Real(1), kHulls), m_Pools(m_Engine), m_Geometry(16, 16) {
    m_pWall = m_Pools.AddDefinition("Wall", 0xFFFFFFFF, false);
  }
  ~GeometryTest() override { m_Geometry.Unload(); }

  bool Init(const std::string& text) {
    std::istringstream in(text);
    return m_Geometry.Init(m_Engine, m_pWall, in, &WallAgent::s_wallInstance);
  }

  testfiles::TempDir m_Dir;
  testfiles::AutomationLog m_Log;
  nox::PhysicsEngine m_Engine;
  nox::CollisionPoolMap m_Pools;
  nox::CollisionPool* m_pWall;
  Geometry m_Geometry;
};

TEST_F(GeometryTest, ShapesBecomeBoxesForAxisAlignedRectanglesAndPolygonsOtherwise) {
  // A box given clockwise from its bottom left, a triangle, and a tilted square.
  ASSERT_TRUE(
      Init("Ground 0 0 3  4 0 272 0 240 480 240 480 272  3 620 120 700 100 720 200  "
           "4 10 0 20 10 10 20 0 10"));
  ASSERT_EQ(m_Geometry.GetHullCount(), 3u);
  EXPECT_EQ(m_pWall->GetHullCount(), 3u);

  const nox::AbstractHull* box = m_Geometry.GetHull(0);
  EXPECT_EQ(box->GetWidth(), Real(480));
  EXPECT_EQ(box->GetHeight(), Real(32));
  EXPECT_EQ(box->GetLeft(), Real(0));
  EXPECT_EQ(box->GetTop(), Real(240));
  EXPECT_EQ(box->GetRight(), Real(480));
  EXPECT_EQ(box->GetBottom(), Real(272));
  // Polygons answer a width of 1.0, as every shape without a box of its own does;
  // their projections still cover the vertices.
  for (unsigned long i = 1; i < 3; ++i) EXPECT_EQ(m_Geometry.GetHull(i)->GetWidth(), Real(1));
  EXPECT_EQ(m_Geometry.GetHull(1)->GetProjectionX().min, Real(620));
  EXPECT_EQ(m_Geometry.GetHull(1)->GetProjectionX().max, Real(720));
  EXPECT_EQ(m_Geometry.GetHull(2)->GetProjectionY().min, Real(0));
  EXPECT_EQ(m_Geometry.GetHull(2)->GetProjectionY().max, Real(20));

  for (unsigned long i = 0; i < 3; ++i) {
    EXPECT_EQ(m_Geometry.GetHull(i)->getOwner(), &WallAgent::s_wallInstance);
    EXPECT_TRUE(m_Geometry.GetBody(i)->m_bFixed);
  }
  // Walls are not integrated: their bodies stay out of the engine's particles.
  EXPECT_TRUE(m_Engine.GetParticles().empty());
}

TEST_F(GeometryTest, PolylinesBecomeOneSegmentPerSideAndAClosedOneJoinsItsEnds) {
  ASSERT_TRUE(Init("Edge 1 0 1 3 0 0 0 240 100 240"));
  EXPECT_EQ(m_Geometry.GetHullCount(), 2u);
  ASSERT_TRUE(Init("Rock 2 1 2 1 3 620 120 700 100 720 200"));
  EXPECT_EQ(m_Geometry.GetHullCount(), 5u);
  // The first segment runs down x = 0 from 0 to 240; the depth of the rock is its z extent.
  EXPECT_EQ(m_Geometry.GetHull(0)->GetProjectionX().min, Real(0));
  EXPECT_EQ(m_Geometry.GetHull(0)->GetProjectionX().max, Real(0));
  EXPECT_EQ(m_Geometry.GetHull(0)->GetProjectionY().max, Real(240));
  EXPECT_EQ(m_Geometry.GetHull(0)->getHalfDepth(), Real(500));
  EXPECT_EQ(m_Geometry.GetHull(2)->getHalfDepth(), Real(1));
}

TEST_F(GeometryTest, RectangleTestNeedsFourCornersGoingRoundAnAxisAlignedBox) {
  auto shape = [](std::initializer_list<int> xy) {
    std::vector<Vector2> v;
    for (auto it = xy.begin(); it != xy.end(); it += 2) v.push_back(Vector2(Real(*it), Real(*(it + 1))));
    return v;
  };
  EXPECT_TRUE(Geometry::IsAxisAlignedRectangle(shape({0, 0, 10, 0, 10, 5, 0, 5})));
  EXPECT_TRUE(Geometry::IsAxisAlignedRectangle(shape({0, 5, 0, 0, 10, 0, 10, 5})));
  EXPECT_FALSE(Geometry::IsAxisAlignedRectangle(shape({0, 0, 10, 10, 0, 10, 10, 0})));  // crossed
  EXPECT_FALSE(Geometry::IsAxisAlignedRectangle(shape({0, 0, 10, 0, 12, 5, 0, 5})));    // one side leans
  EXPECT_FALSE(Geometry::IsAxisAlignedRectangle(shape({0, 0, 10, 0, 10, 0, 0, 0})));    // flat
  EXPECT_FALSE(Geometry::IsAxisAlignedRectangle(shape({0, 0, 10, 0, 10, 5})));
}

TEST_F(GeometryTest, AFallingBoxRestsOnBothABoxWallAndASegmentWall) {
  ASSERT_TRUE(Init("Ground 0 0 1 4 0 240 200 240 200 272 0 272"));
  ASSERT_TRUE(Init("Ledge 1 0 1 2 300 240 500 240"));
  nox::CollisionPool* bodies = m_Pools.AddDefinition("Body", 0xFFFFFFFF, false);
  m_Pools.SetInteraction(nox::HashString("Body"), nox::HashString("Wall"), nox::InteractionType::eResolve);

  nox::RTTIBase owner;
  nox::Particle left(nox::Vector3(Real(100), Real(200), Real()));
  nox::Particle right(nox::Vector3(Real(400), Real(200), Real()));
  nox::RectangleHull leftBox(&left, Real(20), Real(20), Real(), Real(1), nullptr, &owner, Real(2));
  nox::RectangleHull rightBox(&right, Real(20), Real(20), Real(), Real(1), nullptr, &owner, Real(2));
  for (nox::Particle* p : {&left, &right}) m_Engine.AddParticle(p);
  bodies->addHull(&leftBox);
  bodies->addHull(&rightBox);
  for (int frame = 0; frame < 120; ++frame) {
    m_Engine.addForce(nox::Vector3(Real(), Real::FromRaw(0x4000), Real()));
    m_Engine.step(1);
  }
  // Both rest with their bottom on y = 240, within a pixel.
  for (const nox::Particle* p : {&left, &right}) {
    EXPECT_GE(p->m_Position.y, Real(229)) << "fell short";
    EXPECT_LE(p->m_Position.y, Real(231)) << "fell through";
  }
  bodies->removeHull(&leftBox);
  bodies->removeHull(&rightBox);
  for (nox::Particle* p : {&left, &right}) m_Engine.RemoveParticle(p);
}

TEST_F(GeometryTest, ClearStreamEntryStepsOverOneElementAndAMalformedOneBuildsNothing) {
  std::istringstream in("Rock 2 1 5 1 3 1 1 2 2 3 1 777");
  EXPECT_TRUE(Geometry::ClearStreamEntry(in));
  unsigned long next = 0;
  in >> next;
  EXPECT_EQ(next, 777u);
  EXPECT_EQ(m_pWall->GetHullCount(), 0u);

  // The second shape ends in the middle of a vertex.
  EXPECT_FALSE(Init("Broken 0 0 2 4 0 0 10 0 10 10 0 10 3 1 2 3"));
  EXPECT_EQ(m_Geometry.GetHullCount(), 0u);
  EXPECT_EQ(m_pWall->GetHullCount(), 0u);
  EXPECT_EQ(m_Log.Count("Geometry: wall \"Broken\" refused"), 1);
}

TEST_F(GeometryTest, UnloadTakesEveryHullOutAndGivesTheNodesBack) {
  const size_t free = m_Engine.GetFreeNodeCount();
  ASSERT_TRUE(Init("Ground 0 0 2 4 0 0 10 0 10 10 0 10 3 0 0 5 5 0 5"));
  ASSERT_TRUE(Init("Edge 2 0 1 4 0 0 9 0 9 9 0 9"));
  EXPECT_EQ(m_pWall->GetHullCount(), 6u);
  EXPECT_EQ(m_Engine.GetFreeNodeCount(), free - 6);
  m_Geometry.Unload();
  EXPECT_EQ(m_Geometry.GetHullCount(), 0u);
  EXPECT_EQ(m_pWall->GetHullCount(), 0u);
  EXPECT_EQ(m_Engine.GetFreeNodeCount(), free);
  m_Geometry.Unload();  // twice is harmless
}

}  // namespace
