#include "sound/Sound.h"

#include <algorithm>

#include "core/Settings.h"
#include "sound/SoundPlayer.h"

namespace nox {
namespace {

SoundPlayer* Player() {
  return SoundPlayer::m_pSoundPlayer;
}

}  // namespace

Sound::Sound() {}

Sound::Sound(const Sound& other)
    : EventListener<SoundPlayer>(),
      EventSource<Sound>(),
      m_bBind(other.m_bBind),
      m_bLoop(other.m_bLoop),
      m_bIsDucked(other.m_bIsDucked),
      m_Volume(other.m_Volume),
      m_Priority(other.m_Priority),
      m_Pan(other.m_Pan),
      m_Type(other.m_Type),
      m_Name(other.m_Name) {}

Sound::~Sound() {
  if (m_bBind) {
    Stop();
  } else if (m_Id != 0 && Player()) {
    // Fire and forget: the audio runs on to its end with nobody to tell.
    Player()->RemoveSoundListener(m_Id);
  }
}

void Sound::RaiseEvent(uint32_t type) {
  EventData data;
  data.m_Type = type;
  FireEvent(this, &data);
}

bool Sound::Started(uint32_t id) {
  m_Id = id;
  m_bIsPlaying = id != 0;
  const bool playing = m_bIsPlaying;
  RaiseEvent(playing ? kStarted : kFailedToStart);
  return playing;
}

void Sound::OnEventOccurred(SoundPlayer*, const EventData* data) {
  if (!data || data->m_Type != 0) return;
  m_bIsPlaying = false;
  m_bIsPaused = false;
  m_PauseCount = 0;
  m_Id = 0;
  RaiseEvent(kFinished);
}

void Sound::Stop() {
  if (!m_bIsPlaying) return;
  m_bIsPlaying = false;
  m_bIsPaused = false;
  m_PauseCount = 0;
  if (Player()) Player()->Stop(m_Id);
  m_Id = 0;
  RaiseEvent(kStopped);
}

void Sound::Pause() {
  if (!m_bIsPlaying) return;
  if (++m_PauseCount == 1) {
    m_bIsPaused = true;
    if (Player()) Player()->Pause(m_Id);
  }
}

bool Sound::Resume() {
  if (!m_bIsPaused || !m_bIsPlaying) return false;
  if (--m_PauseCount != 0) return false;
  m_bIsPaused = false;
  if (Player()) Player()->Resume(m_Id);
  return true;
}

void Sound::SetVolume(unsigned long volume) {
  m_Volume = static_cast<uint32_t>(volume & 255);
  // Passed on even when idle (id 0): the module ignores an unknown id.
  if (Player()) Player()->Volume(m_Id, m_Volume);
}

void Sound::SetPriority(unsigned long priority) {
  m_Priority = static_cast<uint32_t>(priority);
  if (Player()) Player()->Priority(m_Id, m_Priority & 255);
}

void Sound::SetPan(long pan) {
  m_Pan = static_cast<int32_t>(pan);
  if (Player()) Player()->Pan(m_Id, m_Pan);
}

uint32_t Sound::GetElapsedTime() const {
  return Player() && m_Id != 0 ? Player()->GetTime(m_Id) : 0;
}

void Sound::Update(uint32_t) {
  SoundPlayer* player = Player();
  Settings* settings = Settings::s_pSettings;
  if (!m_bIsPlaying || !player || !settings) return;
  // Read each frame, so that the settings screen acts at once.
  const uint32_t amount = settings->GetU32Value("Sound Duck Amount");
  const uint32_t step = settings->GetU32Value("Sound Duck Step");
  const uint32_t musicLevel = settings->GetU32Value("Background Music Level");
  const uint32_t current = player->Volume(m_Id);
  const uint32_t own = m_Volume;
  if (m_bIsDucked) {
    if (current + std::min(amount, own) <= own) return;
    player->Volume(m_Id, current > step ? current - step : 0);
  } else {
    if (current >= own) return;
    // Capped by the music level, not by the sound's own volume: ducking is for music.
    player->Volume(m_Id, std::min(current + step, musicLevel));
  }
}

}  // namespace nox
