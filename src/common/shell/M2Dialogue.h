// The voice lines of the activity picker that are not a star's (those are with
// ActivityStars): what it says when it opens and after a while without a touch.
#pragma once

namespace game {

struct M2Dialogue {
  static constexpr const char* kIntro = "KDNA0008";
  static constexpr const char* kRepeat = "KDNA0009";
};

}  // namespace game
