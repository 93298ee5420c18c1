#include "sequencer/SoundSeqItems.h"

#include "sound/SoundManager.h"

namespace noxfw {

namespace {

// No manager (a tool or a test without sound) means nothing plays, like a refusal.
void PlayInCategory(nox::Sound* sound, uint32_t category, bool copy) {
  if (nox::SoundManager::sm_pInstance) nox::SoundManager::sm_pInstance->Play(sound, category, copy);
}

// A memory sound without samples returns from Play without any event, so a
// category would keep it listed after this step deleted it. It could not play
// anyway: it is not handed over.
void PlayMemory(nox::MemorySound* sound, uint32_t category, bool copy) {
  if (sound && sound->GetBuffer()) PlayInCategory(sound, category, copy);
}

int WaitFor(const nox::Sound& sound, bool dontWait) {
  return dontWait ? 0 : sound.IsPlaying();
}

}  // namespace

// PlayMemorySoundSeqItem

PlayMemorySoundSeqItem::PlayMemorySoundSeqItem(const char* name, unsigned long category, unsigned long id,
                                               bool dontWait, unsigned long priority)
    : SequencerItem(id),
      m_Category(static_cast<uint32_t>(category)),
      m_bDontWait(dontWait),
      m_Priority(static_cast<uint32_t>(priority)) {
  m_Sound.Load(name ? name : "");
}

void PlayMemorySoundSeqItem::Initialize() {
  m_Sound.SetPriority(m_Priority);
  // A don't-wait sound is played as the manager's own copy, so it outlives this step.
  PlayMemory(&m_Sound, m_Category, m_bDontWait);
}

int PlayMemorySoundSeqItem::Update(unsigned long ms) {
  return WaitFor(m_Sound, m_bDontWait);
}

void PlayMemorySoundSeqItem::Terminate() {
  SequencerItem::Terminate();
  if (!m_bDontWait) m_Sound.Stop();
}

// PlayStreamingSoundSeqItem

PlayStreamingSoundSeqItem::PlayStreamingSoundSeqItem(const char* file, unsigned long category,
                                                     unsigned long id, bool dontWait, unsigned long priority)
    : SequencerItem(id),
      m_Category(static_cast<uint32_t>(category)),
      m_bDontWait(dontWait),
      m_Priority(static_cast<uint32_t>(priority)) {
  m_Sound.Load(file ? file : "");
}

void PlayStreamingSoundSeqItem::Initialize() {
  m_Sound.SetPriority(m_Priority);
  PlayInCategory(&m_Sound, m_Category, m_bDontWait);
}

int PlayStreamingSoundSeqItem::Update(unsigned long ms) {
  return WaitFor(m_Sound, m_bDontWait);
}

void PlayStreamingSoundSeqItem::Terminate() {
  SequencerItem::Terminate();
  if (!m_bDontWait) m_Sound.Stop();
}

// PlayMyMemorySoundSeqItem

PlayMyMemorySoundSeqItem::PlayMyMemorySoundSeqItem(nox::MemorySound* sound, unsigned long category,
                                                   bool dontWait, unsigned long id)
    : SequencerItem(id),
      m_pSound(sound),
      m_Category(static_cast<uint32_t>(category)),
      m_bDontWait(dontWait) {}

void PlayMyMemorySoundSeqItem::Initialize() {
  PlayMemory(m_pSound, m_Category, false);
}

int PlayMyMemorySoundSeqItem::Update(unsigned long ms) {
  return m_pSound ? WaitFor(*m_pSound, m_bDontWait) : 0;
}

void PlayMyMemorySoundSeqItem::Terminate() {
  SequencerItem::Terminate();
  if (!m_bDontWait && m_pSound) m_pSound->Stop();
}

// PlayMyStreamingSoundSeqItem

PlayMyStreamingSoundSeqItem::PlayMyStreamingSoundSeqItem(nox::StreamingSound* sound, unsigned long category,
                                                         const std::string& file, bool dontWait,
                                                         unsigned long id)
    : SequencerItem(id),
      m_pSound(sound),
      m_Category(static_cast<uint32_t>(category)),
      m_File(file),
      m_bDontWait(dontWait) {}

void PlayMyStreamingSoundSeqItem::Initialize() {
  if (!m_pSound) return;
  m_pSound->Load(m_File);
  PlayInCategory(m_pSound, m_Category, false);
}

int PlayMyStreamingSoundSeqItem::Update(unsigned long ms) {
  return m_pSound ? WaitFor(*m_pSound, m_bDontWait) : 0;
}

void PlayMyStreamingSoundSeqItem::Terminate() {
  SequencerItem::Terminate();
  if (!m_bDontWait && m_pSound) m_pSound->Stop();
}

}  // namespace noxfw
