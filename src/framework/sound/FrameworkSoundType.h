// The kinds of sound that rules can filter on (nox::Sound::SetType). A new sound is
// Default, so rules filtered on Action or Death only ever see sounds that were given
// that type. Ambient and Last share a value by design; nothing may rely on them differing.
#pragma once
#include <cstdint>

namespace noxfw {

namespace FrameworkSoundType {
enum Type : uint32_t {
  Default = 0,
  BackgroundMusic = 1,
  Death = 2,
  VoiceOver = 3,
  Action = 4,
  Interaction = 5,
  Jump = 6,
  Damage = 7,
  HUD = 8,
  Menu = 9,
  Ambient = 10,
  Last = 10,
};
}  // namespace FrameworkSoundType

}  // namespace noxfw
