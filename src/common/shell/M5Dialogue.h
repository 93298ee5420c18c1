// The voice lines of the play-again menu: the question when it opens, and the
// reminder after a while without an answer.
#pragma once

namespace game {

struct M5Dialogue {
  static constexpr const char* kIntro = "KDNA0012";
  static constexpr const char* kRepeat = "KDNA0013";
};

}  // namespace game
