#include "sound/PlayCopy.h"

#include <cstring>

#include "sound/SoundManager.h"
#include "sound/StreamingSound.h"

namespace game {

void PlayCopy(const char* name, uint32_t category) {
  nox::SoundManager* sounds = nox::SoundManager::sm_pInstance;
  if (!sounds) return;
  nox::StreamingSound sound;
  sound.Load(name);
  sounds->Play(&sound, category, true);
}

bool IsSpoken(const char* voice) {
  return voice && voice[0] != '\0' && strcmp(voice, "NONE") != 0;
}

}  // namespace game
