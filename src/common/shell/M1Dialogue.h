// The voice lines of the main menu: the greeting, the reminder after a while without a
// touch, and kButtonVoices, the name of each big button by MainMenu::ButtonIndex - 1
// (activities, adventure, micromods, badges, journal), said when it is chosen or
// reached with the pad.
#pragma once

namespace game {

struct M1Dialogue {
  static constexpr int kButtonVoiceCount = 5;
  static constexpr const char* kButtonVoices[kButtonVoiceCount] = {"KDNA0003", "KDNA0004", "KDNA0005",
                                                                   "KDNA0006", "KDNA0007"};
  static constexpr const char* kIntro = "KDNA0001";
  static constexpr const char* kRepeat = "KDNA0002";
};

}  // namespace game
