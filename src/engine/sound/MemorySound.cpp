#include "sound/MemorySound.h"

#include "core/PathRegistry.h"
#include "sound/SoundGroup.h"
#include "sound/SoundPlayer.h"

namespace nox {

MemorySound::MemorySound(const MemorySound& other) : Sound(other), m_pBuffer(other.m_pBuffer) {
  if (m_pBuffer) m_pBuffer->AddRef();
}

MemorySound::~MemorySound() {
  if (m_bBind) {
    Stop();
  } else if (m_bIsPlaying && m_pBuffer && m_pBuffer->GetRefCount() == 1 && SoundPlayer::m_pSoundPlayer) {
    // Fire and forget may let the audio run on, but not over samples about to be freed.
    SoundPlayer::m_pSoundPlayer->Stop(m_Id);
    m_Id = 0;
  }
  ReleaseBuffer();
}

void MemorySound::ReleaseBuffer() {
  if (m_pBuffer && m_pBuffer->Release() == 0) delete m_pBuffer;
  m_pBuffer = nullptr;
}

Sound* MemorySound::Copy() const {
  return new MemorySound(*this);
}

bool MemorySound::Load(const std::string& name) {
  Stop();
  m_Name = name;
  ReleaseBuffer();
  if (MemorySound* resident = SoundGroup::FindSound(name)) {
    m_pBuffer = resident->m_pBuffer;
    if (m_pBuffer) m_pBuffer->AddRef();
    return m_pBuffer != nullptr;
  }
  PathRegistry* registry = PathRegistry::sm_pInstance;
  if (!registry) return false;
  const std::string& suffix = registry->GetSoundSuffix();
  const std::string file = name.find(suffix) == std::string::npos ? name + suffix : name;
  std::string path;
  if (!registry->FindFile(registry->m_AudioPaths, file, path)) return false;
  m_pBuffer = new SoundBuffer(path);
  return true;
}

bool MemorySound::Play() {
  if (m_bIsPlaying) Stop();
  if (!m_pBuffer) return false;
  SoundPlayer* player = SoundPlayer::m_pSoundPlayer;
  uint32_t id = player ? player->PlayMemory(m_pBuffer->GetData(), m_pBuffer->GetSize(),
                                            m_bBind ? this : nullptr, m_Volume, m_Priority, m_Pan, m_bLoop)
                       : 0;
  return Started(id);
}

}  // namespace nox
