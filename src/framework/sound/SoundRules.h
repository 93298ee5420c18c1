// The framework's sound rules. Each constructor fixes the rule's type filter, home
// category, target category and stage:
//
//   rule                                    type    home target stage
//   DuckMusicForNarratorSoundRule           any     1    0      PrePlay
//   RestoreMusicAfterNarratorSoundRule      any     1    0      PostPlay
//   OverrideAnyWithLowestVolumeSoundRule    any     4    4      ReplacementCheck
//   OverrideSameWithLowestVolumeSoundRule   Action  4    4      PreSlotCheck
//   VaryEnemySoundsSoundRule                Action  4    4      PreSlotCheck
//   PlayerDeathSoundRule                    Death   2    1      PreSlotCheck
//
// They are small enough to share one file. A rule that stops sounds finishes its walk of
// the active list first, or takes the next link before stopping: a stop removes the
// sound from the list at once.
#pragma once
#include "sound/SoundRule.h"

namespace noxfw {

// The narrator starts: every sound of the soundtrack category, and the background music
// if it plays, is marked ducked; the ramps of their Update do the rest.
class DuckMusicForNarratorSoundRule : public nox::SoundRule {
 public:
  DuckMusicForNarratorSoundRule();
  uint32_t Apply(nox::Sound* sound, nox::SoundCategoryData* home, nox::SoundCategoryData* target,
                 nox::SoundRuleResult& result) override;
};

// The narrator ended (finished, stopped or failed): the same sounds rise again.
class RestoreMusicAfterNarratorSoundRule : public nox::SoundRule {
 public:
  RestoreMusicAfterNarratorSoundRule();
  uint32_t Apply(nox::Sound* sound, nox::SoundCategoryData* home, nox::SoundCategoryData* target,
                 nox::SoundRuleResult& result) override;
};

// A full category: the quietest sound gives way, if it is quieter than the new one.
class OverrideAnyWithLowestVolumeSoundRule : public nox::SoundRule {
 public:
  OverrideAnyWithLowestVolumeSoundRule();
  uint32_t Apply(nox::Sound* sound, nox::SoundCategoryData* home, nox::SoundCategoryData* target,
                 nox::SoundRuleResult& result) override;
};

// Before the slots are counted: the quietest running copy of the same effect (same type
// and name) gives way, if it is quieter than the new one.
class OverrideSameWithLowestVolumeSoundRule : public nox::SoundRule {
 public:
  OverrideSameWithLowestVolumeSoundRule();
  uint32_t Apply(nox::Sound* sound, nox::SoundCategoryData* home, nox::SoundCategoryData* target,
                 nox::SoundRuleResult& result) override;
};

// One enemy sound is never heard twice at once: a running copy vetoes the new one.
class VaryEnemySoundsSoundRule : public nox::SoundRule {
 public:
  VaryEnemySoundsSoundRule();
  uint32_t Apply(nox::Sound* sound, nox::SoundCategoryData* home, nox::SoundCategoryData* target,
                 nox::SoundRuleResult& result) override;
};

// The player's death silences the speech category.
class PlayerDeathSoundRule : public nox::SoundRule {
 public:
  PlayerDeathSoundRule();
  uint32_t Apply(nox::Sound* sound, nox::SoundCategoryData* home, nox::SoundCategoryData* target,
                 nox::SoundRuleResult& result) override;
};

}  // namespace noxfw
