// Why a scene ended. The scene table has one next-scene column per reason; Terminate
// is the seventh and its column is filled at run time with the scene that was left,
// which makes it the way back.
#pragma once

namespace noxfw {

struct ExitReason {
  enum eExitReason {
    Back = 0,        // Back in pickers and reward menus, the soft Home button in menus
    Quit = 1,        // leaving the application; opening the settings scene
    Complete = 2,    // a cut-scene's end, an activity ended with a right answer
    Incomplete = 3,  // an activity ended without a right answer
    Unused = 4,      // no row names a scene here
    MenuBack = 5,    // a back button inside a menu
    Jump = 6,        // a scene that names its successor itself
    Terminate = 7,   // nothing in the game raises it; its column is the way back
  };
  static const int kCount = 8;
};

}  // namespace noxfw
