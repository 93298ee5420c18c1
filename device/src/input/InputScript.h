// Input scripts: timed input for headless runs, so a run is repeatable. One command per
// line, at a frame number (the frame before whose Update it takes effect):
//
//   # comment                      blank lines and '#' lines are skipped
//   <frame> tap X Y                touch down at <frame>, up at <frame>+1
//   <frame> press X Y              touch down (stays down)
//   <frame> move X Y               touch moves while down
//   <frame> release                touch up where it last was
//   <frame> hold X Y N             touch down, up N frames later (N >= 1)
//   <frame> drag X1 Y1 X2 Y2 N     down at X1 Y1, moving in a straight line, up at X2 Y2
//                                  N frames later (N >= 1)
//   <frame> tilt X Y Z             accelerometer reading, whole g (-8..8)
//   <frame> down BUTTON...         buttons go down: up down left right a b lshoulder
//   <frame> up BUTTON...           rshoulder home hint pause extra, or a hex mask 0x...
//   <frame> suspend | resume       focus lost / regained: the app's Suspend / Resume
//   <frame> quit                   ends the run as if the window were closed
//
// X is 0..479 and Y 0..271, device pixels. Parse errors name the file and line.
#pragma once
#include <string>
#include <vector>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

struct ScriptEvent {
  enum Kind { kTouch, kButtonsDown, kButtonsUp, kTilt, kSuspend, kResume, kQuit };
  U32 frame;
  Kind kind;
  S32 a, b, c;  // touch: state, x, y; buttons: mask in a; tilt: x, y, z
};

class InputScript {
 public:
  // Parses `text`; on the first bad line returns false and sets `error` to
  // "<name>:<line>: <reason>".
  bool Parse(const std::string& text, const std::string& name, std::string& error);
  bool Load(const std::string& path, std::string& error);

  const std::vector<ScriptEvent>& Events() const { return m_Events; }  // by frame, stable

  // Hands the events of `frame` to the input services; stops at a suspend, resume or
  // quit and returns it (kTouch when there is none left for this frame). Call again
  // until it returns kTouch. Frames must be asked in increasing order.
  ScriptEvent::Kind Play(U32 frame);

 private:
  std::vector<ScriptEvent> m_Events;
  size_t m_Next = 0;
  S32 m_LastX = 0;  // where the touch last was, for a bare release
  S32 m_LastY = 0;
};

}  // namespace Ostra
}  // namespace Hollin
