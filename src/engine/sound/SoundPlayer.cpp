#include "sound/SoundPlayer.h"

#include "core/PathRegistry.h"
#include "ostra/SystemData.h"

namespace nox {

SoundPlayer* SoundPlayer::m_pSoundPlayer = nullptr;

void SoundPlayer::Create(int, bool) {
  Destroy();
  m_pSoundPlayer = new SoundPlayer();
}

void SoundPlayer::Destroy() {
  delete m_pSoundPlayer;
  m_pSoundPlayer = nullptr;
}

SoundPlayer::SoundPlayer() {
  m_Delivering.reserve(16);
}

SoundPlayer::~SoundPlayer() {}

void SoundPlayer::Initialize(const std::string& resourcePath) {
  m_ResourcePath = resourcePath;
  std::string title = CSystemData::Instance()->GetCurrentTitlePath();
  if (!title.empty() && title.back() != '/' && !resourcePath.empty() && resourcePath[0] != '/') title += '/';
  AttachToModule(title + resourcePath);
}

void SoundPlayer::Shutdown() {
  StopAll();
  Update(0);
  DetachFromModule();
}

void SoundPlayer::Update(uint32_t) {
  LockPending();
  for (uint32_t id : m_Pending) {
    auto it = m_Listeners.find(id);
    if (it == m_Listeners.end()) continue;  // stopped before its end came: dropped
    m_Delivering.push_back(Delivery{id, it->second});
    m_Listeners.erase(it);
  }
  m_Pending.clear();
  UnlockPending();

  // A listener may call Update again; the outer call delivers what the inner one took.
  if (m_bDelivering) return;
  m_bDelivering = true;
  EventData data;
  data.m_Type = 0;
  for (size_t i = 0; i < m_Delivering.size(); ++i) {
    Listener* listener = m_Delivering[i].listener;
    data.m_Param = m_Delivering[i].id;
    if (listener) listener->OnEventOccurred(this, &data);
  }
  m_Delivering.clear();
  m_bDelivering = false;
}

std::string SoundPlayer::StreamingFileName(const std::string& name) {
  const std::string suffix =
      PathRegistry::sm_pInstance ? PathRegistry::sm_pInstance->GetMusicSuffix() : ".ogg";
  return name.find(suffix) == std::string::npos ? name + suffix : name;
}

bool SoundPlayer::FindStreamingFile(const std::string& name, std::string& path) {
  path.clear();
  PathRegistry* registry = PathRegistry::sm_pInstance;
  return registry && registry->FindFile(registry->m_AudioPaths, StreamingFileName(name), path);
}

void SoundPlayer::Enter(uint32_t id, Listener* listener) {
  if (listener && id != 0) m_Listeners[id] = listener;
}

uint32_t SoundPlayer::PlayStreaming(const std::string& name, Listener* listener, uint32_t volume,
                                    uint32_t priority, int32_t pan, bool loop) {
  std::string path;
  // The title's own files first, then the platform's stock sounds.
  if (!FindStreamingFile(name, path)) path = CSystemData::Instance()->FindAudio(StreamingFileName(name));
  if (path.empty()) return 0;
  uint32_t id = StartStream(path, volume, priority, pan, loop);
  Enter(id, listener);
  return id;
}

uint32_t SoundPlayer::PlayMemory(const void* data, uint32_t size, Listener* listener, uint32_t volume,
                                 uint32_t priority, int32_t pan, bool loop) {
  uint32_t id = StartMemory(data, size, volume, priority, pan, loop);
  Enter(id, listener);
  return id;
}

void SoundPlayer::RemoveSoundListener(uint32_t id) {
  m_Listeners.erase(id);
  // An end already taken by Update but not yet delivered must not reach the listener
  // either: it may be gone by the time its turn comes.
  for (Delivery& delivery : m_Delivering) {
    if (delivery.id == id) delivery.listener = nullptr;
  }
}

void SoundPlayer::RemoveSoundListener(Listener*, uint32_t id) {
  RemoveSoundListener(id);
}

void SoundPlayer::Stop(uint32_t id) {
  RemoveSoundListener(id);
  Audio().StopAudio(id, false);
}

void SoundPlayer::StopAll() {
  Audio().StopAllAudio();
}

void SoundPlayer::Pause(uint32_t id) {
  Audio().PauseAudio(id);
}

void SoundPlayer::Resume(uint32_t id) {
  Audio().ResumeAudio(id);
}

void SoundPlayer::Pause() {
  Audio().PauseAudioSystem();
}

void SoundPlayer::Resume() {
  Audio().ResumeAudioSystem();
}

bool SoundPlayer::IsPlaying(uint32_t id) const {
  return Audio().IsAudioPlaying(id);
}

bool SoundPlayer::IsPlaying() const {
  return Audio().IsAudioPlaying();
}

uint32_t SoundPlayer::Priority(uint32_t id) const {
  return Audio().GetAudioPriority(id);
}

void SoundPlayer::Priority(uint32_t id, uint32_t value) {
  Audio().SetAudioPriority(id, static_cast<Hollin::Ostra::tAudioPriority>(value));
}

int32_t SoundPlayer::Pan(uint32_t id) const {
  return Audio().GetAudioPan(id);
}

void SoundPlayer::Pan(uint32_t id, int32_t value) {
  Audio().SetAudioPan(id, static_cast<Hollin::Ostra::tAudioPan>(value));
}

uint32_t SoundPlayer::Volume(uint32_t id) const {
  return Audio().GetAudioVolume(id);
}

void SoundPlayer::Volume(uint32_t id, uint32_t value) {
  Audio().SetAudioVolume(id, static_cast<Hollin::Ostra::tAudioVolume>(value));
}

uint32_t SoundPlayer::Volume() const {
  return Audio().GetMasterVolume();
}

void SoundPlayer::SetMasterVolume(uint32_t value) {
  Audio().SetMasterVolume(static_cast<U8>(value));
}

uint32_t SoundPlayer::GetTime(uint32_t id) const {
  return Audio().GetAudioTime(id);
}

}  // namespace nox
