// Input scripts: what good lines expand to, where bad lines are reported, and what
// reaches the platform's queues frame by frame.
#include <gtest/gtest.h>

#include "input/InputScript.h"
#include "input/InputState.h"
#include "ostra/ButtonMPI.h"
#include "ostra/TouchEventQueue.h"

namespace {

using namespace Hollin::Ostra;

std::vector<ScriptEvent> ParseOk(const std::string& text) {
  InputScript script;
  std::string error;
  EXPECT_TRUE(script.Parse(text, "t.input", error)) << error;
  return script.Events();
}

std::string ParseError(const std::string& text) {
  InputScript script;
  std::string error;
  EXPECT_FALSE(script.Parse(text, "t.input", error)) << text;
  EXPECT_TRUE(script.Events().empty());
  return error;
}

std::vector<tTouchData> DrainTouches() {
  std::vector<tTouchData> out;
  CTouchEventQueue queue;
  for (tTouchData t; queue.Front(t); queue.PopFront()) out.push_back(t);
  return out;
}

TEST(InputScriptParse, TouchCommandsExpandToPressesAndReleasesAtTheirFrames) {
  std::vector<ScriptEvent> e = ParseOk(
      "# comment line\n"
      "\n"
      "  3 tap 10 20   # trailing comment\n"
      "5 hold 0 0 4\n"
      "6 drag 0 0 100 50 4\n");
  // Sorted by frame, same-frame events in the order written.
  std::vector<std::tuple<U32, S32, S32, S32>> expected = {
      {3, 100, 10, 20}, {4, 0, 10, 20}, {5, 100, 0, 0},   {6, 100, 0, 0},     {7, 100, 25, 12},
      {8, 100, 50, 25}, {9, 0, 0, 0},   {9, 100, 75, 37}, {10, 100, 100, 50}, {10, 0, 100, 50},
  };
  ASSERT_EQ(e.size(), expected.size());
  for (size_t i = 0; i < e.size(); ++i) {
    EXPECT_EQ(e[i].kind, ScriptEvent::kTouch) << i;
    EXPECT_EQ(std::make_tuple(e[i].frame, e[i].a, e[i].b, e[i].c), expected[i]) << "event " << i;
  }
}

TEST(InputScriptParse, ButtonsTiltAndFocusCommands) {
  std::vector<ScriptEvent> e = ParseOk(
      "0 down a home 0x800\n"
      "1 up home\n"
      "2 tilt -1 0 1\n"
      "3 suspend\n"
      "4 resume\n"
      "5 quit\n");
  ASSERT_EQ(e.size(), 6u);
  EXPECT_EQ(e[0].kind, ScriptEvent::kButtonsDown);
  EXPECT_EQ(static_cast<U32>(e[0].a), kButtonA | kButtonHome | kButtonExtra);
  EXPECT_EQ(e[1].kind, ScriptEvent::kButtonsUp);
  EXPECT_EQ(static_cast<U32>(e[1].a), kButtonHome);
  EXPECT_EQ(e[2].kind, ScriptEvent::kTilt);
  EXPECT_EQ(std::make_tuple(e[2].a, e[2].b, e[2].c), std::make_tuple(-1, 0, 1));
  EXPECT_EQ(e[3].kind, ScriptEvent::kSuspend);
  EXPECT_EQ(e[4].kind, ScriptEvent::kResume);
  EXPECT_EQ(e[5].kind, ScriptEvent::kQuit);
}

TEST(InputScriptParse, BadLinesAreNamedByFileLineAndReason) {
  struct Case {
    const char* text;
    const char* error;
  };
  const Case cases[] = {
      {"0 tap 480 0\n", "t.input:1: position 480 0 is not within"},
      {"0 tap 0 272\n", "t.input:1: position"},
      {"0 tap -1 5\n", "t.input:1: position"},
      {"0 tap 1\n", "t.input:1: expected \"FRAME tap X Y\""},
      {"# ok\n0 tap 1 2 3\n", "t.input:2: expected"},
      {"x tap 1 2\n", "t.input:1: 'x' is not a frame number"},
      {"-4 tap 1 2\n", "t.input:1: '-4' is not a frame number"},
      {"7\n", "t.input:1: a command must follow"},
      {"0 poke 1 2\n", "t.input:1: unknown command 'poke'"},
      {"0 hold 1 2 0\n", "t.input:1: frame count '0'"},
      {"0 drag 1 2 3 4 x\n", "t.input:1: frame count 'x'"},
      {"0 tilt 0 9 0\n", "t.input:1: tilt '9'"},
      {"0 down\n", "t.input:1: expected \"FRAME down BUTTON...\""},
      {"0 down a jump\n", "t.input:1: unknown button 'jump'"},
      {"0 up 0x0\n", "t.input:1: unknown button '0x0'"},
      {"0 quit now\n", "t.input:1: expected \"FRAME quit\""},
      {"5 tap 1 1\n\n3 tap 1 1\n", "t.input:3: frame 3 comes before frame 5"},
  };
  for (const Case& c : cases) {
    std::string error = ParseError(c.text);
    EXPECT_EQ(error.rfind(c.error, 0), 0u) << "script: " << c.text << "error: " << error;
  }
}

TEST(InputScriptPlay, EventsReachTheQueuesOnTheirFramesAndStopAtFocusChanges) {
  InputState::Reset();
  InputScript script;
  std::string error;
  ASSERT_TRUE(script.Parse("1 press 5 6\n1 down b\n2 suspend\n2 move 7 8\n3 release\n3 up b\n", "t", error));

  EXPECT_EQ(script.Play(0), ScriptEvent::kTouch);
  EXPECT_TRUE(DrainTouches().empty());
  EXPECT_EQ(script.Play(1), ScriptEvent::kTouch);
  EXPECT_EQ(InputState::GetButtons(), kButtonB);
  std::vector<tTouchData> touches = DrainTouches();
  ASSERT_EQ(touches.size(), 1u);
  EXPECT_EQ(touches[0].touchState, InputState::kTouchPressed);
  EXPECT_EQ(touches[0].x, 5);
  EXPECT_EQ(touches[0].y, 6);

  // A focus change is handed back before the rest of the frame's events.
  EXPECT_EQ(script.Play(2), ScriptEvent::kSuspend);
  EXPECT_TRUE(DrainTouches().empty());
  EXPECT_EQ(script.Play(2), ScriptEvent::kTouch);
  EXPECT_EQ(DrainTouches().size(), 1u);

  // A bare release happens where the touch last was.
  EXPECT_EQ(script.Play(3), ScriptEvent::kTouch);
  touches = DrainTouches();
  ASSERT_EQ(touches.size(), 1u);
  EXPECT_EQ(touches[0].touchState, 0);
  EXPECT_EQ(touches[0].x, 7);
  EXPECT_EQ(touches[0].y, 8);
  EXPECT_EQ(InputState::GetButtons(), 0u);
}

}  // namespace
