#include "sound/StreamingSound.h"

#include "core/Debug.h"
#include "sound/SoundPlayer.h"

namespace nox {

Sound* StreamingSound::Copy() const {
  return new StreamingSound(*this);
}

bool StreamingSound::Load(const std::string& name) {
  Stop();
  m_Name = name;
  std::string path;
  if (SoundPlayer::FindStreamingFile(name, path)) return true;
  AutomationPrintf("Failed to find audio: %s\n", name.c_str());
  return false;
}

bool StreamingSound::Play() {
  if (m_bIsPlaying) Stop();
  SoundPlayer* player = SoundPlayer::m_pSoundPlayer;
  uint32_t id =
      player ? player->PlayStreaming(m_Name, m_bBind ? this : nullptr, m_Volume, m_Priority, m_Pan, m_bLoop)
             : 0;
  // Said before the start event, which may end this object's life.
  if (id != 0) AutomationPrintf("Playing audio file: %s\n", m_Name.c_str());
  return Started(id);
}

}  // namespace nox
