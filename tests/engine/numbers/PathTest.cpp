// Path: reading the text form, refusing malformed text, and interpolation at the
// ends, inside segments and with its forward bias; the speed parameters.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "core/Path.h"

using nox::Path;
using nox::Real;
using nox::Vector2;

namespace {

Real Raw(int32_t raw) {
  return Real::FromRaw(raw);
}

// Three points at arcs 0, 16 and 32; x runs 0, 16, 48 so the two segments differ.
const char* const kThreePoints =
    "3\n"
    "0 0   1 0   5 0\n"
    "16 2  0 1   7 16\n"
    "48 4  -1 0  9 32\n"
    "2  8 77  24 4294967295\n";

Path Load(const std::string& text) {
  std::istringstream in(text);
  Path p;
  EXPECT_TRUE(p.Initialise(in)) << text;
  return p;
}

}  // namespace

TEST(Path, ReadsPointsAndTriggersAsWholeNumbers) {
  const Path p = Load(kThreePoints);
  ASSERT_EQ(p.GetPoints().size(), 3u);
  EXPECT_EQ(p.GetPoints()[1].Position, Vector2(Real(16), Real(2)));
  EXPECT_EQ(p.GetPoints()[1].Direction, Vector2(Real(0), Real(1)));
  EXPECT_EQ(p.GetPoints()[1].Extra, Real(7));
  EXPECT_EQ(p.GetPoints()[2].Arc, Real(32));
  EXPECT_EQ(p.GetArcLength(), Real(32));
  ASSERT_EQ(p.GetTriggers().size(), 2u);
  EXPECT_EQ(p.GetTriggers()[0].Position, Real(8));
  EXPECT_EQ(p.GetTriggers()[0].Id, 77u);
  EXPECT_EQ(p.GetTriggers()[1].Id, 4294967295u);
}

TEST(Path, ConsecutivePathsReadFromOneStream) {
  std::istringstream in(std::string(kThreePoints) + " 2 0 0 0 0 0 0  1 1 1 1 1 1  0  trailing");
  Path a;
  Path b;
  ASSERT_TRUE(a.Initialise(in));
  ASSERT_TRUE(b.Initialise(in));
  EXPECT_EQ(b.GetArcLength(), Real(1));
  std::string rest;
  in >> rest;
  EXPECT_EQ(rest, "trailing");
}

TEST(Path, MalformedTextIsRefusedAndLeavesAnEmptyPath) {
  const char* const bad[] = {
      "",                                          // nothing
      "three",                                     // no count
      "-2 0 0 0 0 0 0 1 1 1 1 1 1 0",              // negative count
      "1 0 0 0 0 0 0 0",                           // one point
      "2 0 0 0 0 0 0 1 1 1 1 1",                   // point cut short
      "2 0 0 0 0 0 5 1 1 1 1 1 9 0",               // first arc not 0
      "2 0 0 0 0 0 0 1 1 1 1 1 0 0",               // arc stands still
      "3 0 0 0 0 0 0 1 1 1 1 1 9 2 2 2 2 2 4 0",   // arc falls
      "2 0 0 0 0 0 0 1 1 1 1 1 40000 0",           // arc wraps below 0
      "2 0 0 0 0 0 0 1 1 1 1 1 2147483648 0",      // beyond a 32-bit long
      "2 0 0 0 0 0 0 1 1 1 1 1 1",                 // no trigger count
      "2 0 0 0 0 0 0 1 1 1 1 1 1 -1",              // negative trigger count
      "2 0 0 0 0 0 0 1 1 1 1 1 1 2 0 5",           // triggers cut short
      "2 0 0 0 0 0 0 1 1 1 1 1 1 1 0 4294967296",  // id beyond 32 bits
      "2 0 0 0 0 0 0 1 1 1 1 1 1 1 0 x",           // id not a number
      "2000000000 0 0 0 0 0 0",                    // huge count, little text
  };
  for (const char* text : bad) {
    Path p = Load(kThreePoints);
    std::istringstream in(text);
    EXPECT_FALSE(p.Initialise(in)) << text;
    EXPECT_TRUE(p.GetPoints().empty()) << text;
    EXPECT_TRUE(p.GetTriggers().empty()) << text;
    EXPECT_EQ(p.GetArcLength(), Real(0));
    EXPECT_EQ(p.Interpolate(Raw(0x8000)), Vector2());
  }
}

TEST(Path, InterpolationTakesTheEndPointsAtAndBeyondBothEnds) {
  const Path p = Load(kThreePoints);
  Vector2 pos;
  Vector2 dir;
  Real extra;
  Real arc;
  for (const Real t : {Real(0), Real(-1), Raw(INT32_MIN)}) {
    p.Interpolate(t, pos, dir, extra, arc);
    EXPECT_EQ(pos, Vector2(Real(0), Real(0)));
    EXPECT_EQ(dir, Vector2(Real(1), Real(0)));
    EXPECT_EQ(extra, Real(5));
    EXPECT_EQ(arc, Real(0));
  }
  for (const Real t : {Real(1), Real(2), Raw(0x10001)}) {
    p.Interpolate(t, pos, dir, extra, arc);
    EXPECT_EQ(pos, Vector2(Real(48), Real(4)));
    EXPECT_EQ(dir, Vector2(Real(-1), Real(0)));
    EXPECT_EQ(extra, Real(9));
    EXPECT_EQ(arc, Real(32));
  }
}

TEST(Path, InterpolationInsideASegmentIsBiasedForwardByOneOverTheLength) {
  const Path p = Load(kThreePoints);
  Vector2 pos;
  Vector2 dir;
  Real extra;
  Real arc;
  // t = 0.5 lands exactly on the middle point; the bias of 1/32 moves it on by 1/32 of
  // the second segment: x = 16 + 32/32, y = 2 + 2/32.
  p.Interpolate(Raw(0x8000), pos, dir, extra, arc);
  EXPECT_EQ(pos, Vector2(Real(17), Raw(0x20000 + 0x1000)));
  EXPECT_EQ(dir, Vector2(Raw(-0x800), Raw(0x10000 - 0x800)));
  EXPECT_EQ(extra, Raw(0x70000 + 0x1000));
  EXPECT_EQ(arc, Real(16.5f));
  // t = 0.25 is arc 8, half of the first segment, plus the bias: f = 0.53125.
  p.Interpolate(Raw(0x4000), pos, dir, extra, arc);
  EXPECT_EQ(pos, Vector2(Real(8.5f), Raw(0x10000 + 0x1000)));
  EXPECT_EQ(arc, Real(8.5f));
  EXPECT_EQ(p.Interpolate(Raw(0x4000)), pos);
  // Just below the end the bias can carry the result past the last point.
  p.Interpolate(Raw(0xFFFF), pos, dir, extra, arc);
  EXPECT_GT(arc, Real(32));
}

TEST(Path, SpeedParametersUseOneSixtiethStepsAndTheEaseOffset) {
  const Path p = Load(kThreePoints);
  // Speed 1/60 for one unit of time covers one step: 1.0 / 32.
  EXPECT_EQ(p.GetParameterAtConstantSpeed(Real(1), Raw(0x444)), Raw(0x800));
  EXPECT_EQ(p.GetParameterAtConstantSpeed(Real(0), Real(5)), Real(0));
  // At p = 0 the ease runs from (1.1 - 1.0) / 2, about 0.05, not from 0.
  EXPECT_EQ(p.GetParameterWithEaseInOut(Real(0), Real(5)), Raw(0xCCC));
  EXPECT_EQ(p.GetParameterWithSuddenInOut(Real(0), Real(5)), Raw(-0xCCC));
  // p = 1.0: cos(180) is -1.0, so (1.1 + 1.0) / 2.
  const Real full = Real(32) * Raw(0x444);
  EXPECT_EQ(p.GetParameterWithEaseInOut(Real(1), full), Raw((0x11999 + 0x10000) / 2));
  EXPECT_EQ(p.GetParameterWithSuddenInOut(Real(1), full), Raw(0x20000 - (0x11999 + 0x10000) / 2));
}
