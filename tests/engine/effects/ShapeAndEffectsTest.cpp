// Freehand outlines (sampling, inside test, union) and the effects engine's lists.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graphics/Effect.h"
#include "graphics/EffectsEngine.h"
#include "graphics/Shape.h"

namespace {

using nox::Real;
using nox::Shape;
using nox::Vector2;

Vector2 V(double x, double y) {
  return Vector2(Real(x), Real(y));
}

Shape Polygon(std::initializer_list<Vector2> points) {
  Shape s;
  for (const Vector2& p : points) s.AddPoint(p);
  return s;
}

TEST(ShapeTest, SamplesCloserThanThreeInBothAxesAreDroppedAndAFullShapeTakesNoMore) {
  Shape s;
  s.AddPoint(V(10, 10));
  s.AddPoint(V(12.99, 7.01));  // under 3 in both: dropped
  EXPECT_EQ(s.GetCount(), 1);
  s.AddPoint(V(13, 10));  // exactly 3 in x: kept
  EXPECT_EQ(s.GetCount(), 2);
  s.AddPoint(V(13, 13));  // measured from the last point kept
  EXPECT_EQ(s.GetCount(), 3);

  Shape full;
  for (int i = 0; i < 600; ++i) full.AddPoint(V(3 * (i % 100), 3 * (i / 100)));
  EXPECT_EQ(full.GetCount(), Shape::kMaxPoints);
  EXPECT_EQ(full.GetPoint(Shape::kMaxPoints - 1), V(297, 12));
}

TEST(ShapeTest, TheBoxGrowsWithPointsAndWithMovesButNeverShrinks) {
  Shape s = Polygon({V(0, 0), V(10, 0), V(10, 10)});
  EXPECT_EQ(s.GetMinX(), Real(0));
  EXPECT_EQ(s.GetMaxY(), Real(10));
  s.Move(V(0, 0), V(100, -50));
  EXPECT_EQ(s.GetPoint(0), V(100, -50));
  EXPECT_EQ(s.GetMinX(), Real(0));
  EXPECT_EQ(s.GetMinY(), Real(-50));
  EXPECT_EQ(s.GetMaxX(), Real(110));
  EXPECT_EQ(s.GetMaxY(), Real(10));
  // Inside the old box but no longer inside the outline.
  EXPECT_FALSE(s.IsPointInShape(V(5, 5)));
  EXPECT_TRUE(s.IsPointInShape(V(108, -45)));
}

TEST(ShapeTest, TheInsideTestFollowsTheOutlineNotTheBox) {
  // A U open at the top: the notch is inside the box and outside the shape.
  Shape u = Polygon({V(0, 0), V(10, 0), V(10, 30), V(20, 30), V(20, 0), V(30, 0), V(30, 40), V(0, 40)});
  EXPECT_TRUE(u.IsPointInShape(V(5, 5)));
  EXPECT_TRUE(u.IsPointInShape(V(25, 20)));
  EXPECT_TRUE(u.IsPointInShape(V(15, 35)));
  EXPECT_FALSE(u.IsPointInShape(V(15, 10)));
  EXPECT_FALSE(u.IsPointInShape(V(31, 20)));
  // At the height of a vertex that the outline passes through: counted once.
  Shape diamond = Polygon({V(50, 0), V(100, 50), V(50, 100), V(0, 50)});
  EXPECT_TRUE(diamond.IsPointInShape(V(10, 50)));
  EXPECT_TRUE(diamond.IsPointInShape(V(90, 50)));
  EXPECT_FALSE(diamond.IsPointInShape(V(5, 5)));
  // Coordinates whose products overflow a Real still answer right.
  Shape big = Polygon({V(-300, -300), V(300, -300), V(300, 300), V(-300, 300)});
  EXPECT_TRUE(big.IsPointInShape(V(299, 0)));
  EXPECT_TRUE(big.IsPointInShape(V(-299, 299)));
  // No edges, no inside.
  EXPECT_FALSE(Polygon({V(1, 1)}).IsPointInShape(V(1, 1)));
}

TEST(ShapeTest, UnionKeepsThePointsOfEachShapeThatLieOutsideTheOther) {
  Shape a = Polygon({V(0, 0), V(10, 0), V(10, 10), V(0, 10)});
  Shape b = Polygon({V(20, 0), V(30, 0), V(30, 10)});
  a.Union(b);
  ASSERT_EQ(a.GetCount(), 7);
  EXPECT_EQ(a.GetPoint(3), V(0, 10));
  EXPECT_EQ(a.GetPoint(4), V(20, 0));
  EXPECT_EQ(a.GetMaxX(), Real(10)) << "the box stays as it was";

  Shape c = Polygon({V(0, 0), V(20, 0), V(20, 20), V(0, 20)});
  Shape d = Polygon({V(10, 10), V(30, 10), V(30, 30), V(10, 30)});
  c.Union(d);
  // (20, 20) of c lies inside d and (10, 10) of d inside c.
  ASSERT_EQ(c.GetCount(), 6);
  EXPECT_EQ(c.GetPoint(2), V(0, 20));
  EXPECT_EQ(c.GetPoint(3), V(30, 10));
}

// Records what happens to it in a shared log; ends after `life` updates.
class LoggingEffect : public nox::Effect {
 public:
  LoggingEffect(std::string name, int32_t layer, int life, std::vector<std::string>& log)
      : m_Name(std::move(name)), m_Life(life), m_Log(log) {
    m_Layer = layer;
  }
  ~LoggingEffect() override { m_Log.push_back("delete " + m_Name); }
  void Update(unsigned long ms) override {
    m_Life -= static_cast<int>(ms);
    m_Log.push_back("update " + m_Name);
  }
  bool IsDone() const override { return m_Life <= 0; }
  void Draw(nox::EffectsEngine&, unsigned long flags) override {
    m_Log.push_back("draw " + m_Name + (flags ? " flagged" : ""));
  }

 private:
  std::string m_Name;
  int m_Life;
  std::vector<std::string>& m_Log;
};

TEST(EffectsEngineTest, EffectsRunByLayerWithEqualLayersInTheOrderAddedOwnedBeforeManaged) {
  std::vector<std::string> log;
  nox::EffectsEngine engine;
  engine.AddEffect(new LoggingEffect("b2", 2, 100, log));
  engine.AddEffect(new LoggingEffect("a1", 1, 100, log));
  engine.AddEffect(new LoggingEffect("c2", 2, 100, log));
  engine.AddEffect(new LoggingEffect("d0", 0, 100, log));
  LoggingEffect managed("m-1", -1, 100, log);
  engine.AddEffectManaged(&managed);
  engine.Draw();
  EXPECT_EQ(log, (std::vector<std::string>{"draw d0", "draw a1", "draw b2", "draw c2", "draw m-1"}));
  log.clear();
  engine.DestroyEffects();
  EXPECT_EQ(log.size(), 4u) << "only the owned effects are deleted";
  EXPECT_FALSE(engine.CanRemoveEffectManaged(&managed));
}

TEST(EffectsEngineTest, AnEndedEffectLeavesItsListAndOnlyAnOwnedOneIsDeleted) {
  std::vector<std::string> log;
  nox::EffectsEngine engine;
  engine.AddEffect(new LoggingEffect("short", 0, 10, log));
  engine.AddEffect(new LoggingEffect("long", 0, 30, log));
  LoggingEffect managed("managed", 0, 10, log);
  engine.AddEffectManaged(&managed);
  EXPECT_TRUE(engine.CanRemoveEffectManaged(&managed));

  engine.Update(10);
  EXPECT_EQ(log, (std::vector<std::string>{"update short", "delete short", "update long", "update managed"}));
  EXPECT_FALSE(engine.CanRemoveEffectManaged(&managed));
  log.clear();
  engine.Draw();
  EXPECT_EQ(log, (std::vector<std::string>{"draw long"}));

  LoggingEffect* taken = new LoggingEffect("taken", 0, 10, log);
  engine.AddEffect(taken);
  engine.RemoveEffect(taken);
  log.clear();
  engine.Update(10);
  EXPECT_EQ(log, (std::vector<std::string>{"update long"}));
  delete taken;
}

}  // namespace
