#include "sound/SoundRules.h"

#include "sound/FrameworkSoundType.h"
#include "sound/Sound.h"
#include "sound/SoundCategoryData.h"
#include "sound/SoundManager.h"
#include "sound/StreamingSound.h"

namespace noxfw {
namespace {

using nox::kSoundRuleAll;
using nox::Sound;
using nox::SoundCategoryData;
using nox::SoundData;
using nox::SoundRule;
using nox::SoundRuleResult;

void SetDucked(SoundCategoryData* target, bool ducked) {
  for (SoundData& entry : target->GetActive()) entry.m_pSound->SetIsDucked(ducked);
  nox::SoundManager* manager = nox::SoundManager::sm_pInstance;
  nox::StreamingSound* music = manager ? manager->GetBackgroundMusic() : nullptr;
  if (music && music->IsPlaying()) music->SetIsDucked(ducked);
}

// The quietest of the new sound and the active sounds that `counts`; the new sound
// wins ties, so only a strictly quieter one is returned in its place.
template <class Filter>
Sound* Quietest(Sound* sound, SoundCategoryData* target, Filter counts) {
  Sound* lowest = sound;
  for (SoundData& entry : target->GetActive()) {
    if (counts(entry.m_pSound) && entry.m_pSound->GetVolume() < lowest->GetVolume()) lowest = entry.m_pSound;
  }
  return lowest;
}

bool SameEffect(const Sound* a, const Sound* b) {
  return a->GetType() == b->GetType() && a->GetName() == b->GetName();
}

}  // namespace

DuckMusicForNarratorSoundRule::DuckMusicForNarratorSoundRule() : SoundRule(kSoundRuleAll, 1, 0, PrePlay) {}

uint32_t DuckMusicForNarratorSoundRule::Apply(Sound*, SoundCategoryData*, SoundCategoryData* target,
                                              SoundRuleResult&) {
  SetDucked(target, true);
  return 0;
}

RestoreMusicAfterNarratorSoundRule::RestoreMusicAfterNarratorSoundRule()
    : SoundRule(kSoundRuleAll, 1, 0, PostPlay) {}

uint32_t RestoreMusicAfterNarratorSoundRule::Apply(Sound*, SoundCategoryData*, SoundCategoryData* target,
                                                   SoundRuleResult&) {
  SetDucked(target, false);
  return 0;
}

OverrideAnyWithLowestVolumeSoundRule::OverrideAnyWithLowestVolumeSoundRule()
    : SoundRule(kSoundRuleAll, 4, 4, ReplacementCheck) {}

uint32_t OverrideAnyWithLowestVolumeSoundRule::Apply(Sound* sound, SoundCategoryData*,
                                                     SoundCategoryData* target, SoundRuleResult& result) {
  Sound* lowest = Quietest(sound, target, [](const Sound*) { return true; });
  if (lowest == sound) return 0;
  lowest->Stop();
  ++result.stoppedCount;
  return 0;
}

OverrideSameWithLowestVolumeSoundRule::OverrideSameWithLowestVolumeSoundRule()
    : SoundRule(FrameworkSoundType::Action, 4, 4, PreSlotCheck) {}

uint32_t OverrideSameWithLowestVolumeSoundRule::Apply(Sound* sound, SoundCategoryData*,
                                                      SoundCategoryData* target, SoundRuleResult& result) {
  Sound* lowest = Quietest(sound, target, [sound](const Sound* other) { return SameEffect(other, sound); });
  if (lowest == sound) return 0;
  lowest->Stop();
  ++result.stoppedCount;
  return 0;
}

VaryEnemySoundsSoundRule::VaryEnemySoundsSoundRule()
    : SoundRule(FrameworkSoundType::Action, 4, 4, PreSlotCheck) {}

uint32_t VaryEnemySoundsSoundRule::Apply(Sound* sound, SoundCategoryData*, SoundCategoryData* target,
                                         SoundRuleResult& result) {
  for (SoundData& entry : target->GetActive()) {
    if (SameEffect(entry.m_pSound, sound)) {
      result.veto = true;
      break;
    }
  }
  return 0;
}

PlayerDeathSoundRule::PlayerDeathSoundRule() : SoundRule(FrameworkSoundType::Death, 2, 1, PreSlotCheck) {}

uint32_t PlayerDeathSoundRule::Apply(Sound*, SoundCategoryData*, SoundCategoryData* target,
                                     SoundRuleResult& result) {
  SoundCategoryData::ActiveList& active = target->GetActive();
  for (auto it = active.begin(); it != active.end();) {
    Sound* sound = (it++)->m_pSound;
    sound->Stop();
    ++result.stoppedCount;
  }
  return 0;
}

}  // namespace noxfw
