#include "sound/SoundCategoryData.h"

#include "sound/Sound.h"
#include "sound/SoundManager.h"

namespace nox {

SoundCategoryData::~SoundCategoryData() {
  // Whatever is left no longer reports to this category.
  for (SoundData& entry : m_Active) {
    entry.m_pSound->RemoveEventListener(this);
    if (entry.m_bOwned) delete entry.m_pSound;
  }
}

void SoundCategoryData::OnEventOccurred(Sound* sound, const EventData* data) {
  if (!data) return;
  switch (data->m_Type) {
    case Sound::kStopped:
    case Sound::kFailedToStart:
    case Sound::kFinished:
      if (SoundManager::sm_pInstance) SoundManager::sm_pInstance->ExecutePostPlayRules(sound, this);
      Remove(sound);
      break;
    default:
      break;
  }
}

void SoundCategoryData::Add(const SoundData& soundData) {
  soundData.m_pSound->AddEventListener(this);
  m_Active.push_back(soundData);
}

void SoundCategoryData::Remove(Sound* sound) {
  for (auto it = m_Active.begin(); it != m_Active.end(); ++it) {
    if (it->m_pSound != sound) continue;
    const bool owned = it->m_bOwned;
    m_Active.erase(it);
    sound->RemoveEventListener(this);
    if (owned) delete sound;
    return;
  }
}

SoundData* SoundCategoryData::FindSound(Sound* sound) {
  for (SoundData& entry : m_Active) {
    if (entry.m_pSound == sound) return &entry;
  }
  return nullptr;
}

}  // namespace nox
