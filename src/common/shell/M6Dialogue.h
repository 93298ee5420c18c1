// The voice lines of the zone picker: the greeting, the reminder after a while, and
// kZoneVoices, in which lines 1 to 5 name the zone chosen on button 1 to 5; line 0 is
// the greeting and line 6 the greeting once the story is done and every badge earned.
#pragma once

namespace game {

struct M6Dialogue {
  static constexpr int kZoneVoiceCount = 7;
  static constexpr const char* kZoneVoices[kZoneVoiceCount] = {
      "KDNA0107", "KDNA0108", "KDNA0108b", "KDNA0108c", "KDNA0108d", "KDNA0108e", "KDNA0108f"};
  static constexpr const char* kIntro = "KDNA0107";
  static constexpr const char* kRepeat = "KDNA0011";
  // The greeting once the last zone is done: with every badge, or with badges to find.
  static constexpr const char* kStoryDoneAllBadges = "KDNA0108f";
  static constexpr const char* kStoryDoneBadgesLeft = "KDNA0014";
};

}  // namespace game
