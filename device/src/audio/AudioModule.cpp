#include "audio/AudioModule.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstring>

#include "kernel/Clock.h"
#include "ostra/HostAudio.h"

namespace Hollin {
namespace Ostra {
namespace {

const U32 kMinRate = 1000;    // Hz of a memory block
const U32 kMaxRate = 192000;  // Hz

bool Exists(const std::string& path) {
  struct stat info;
  return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

S16 Clamp16(S32 value) {
  return static_cast<S16>(std::max<S32>(-32768, std::min<S32>(32767, value)));
}

}  // namespace

AudioModule& AudioModule::Get() {
  static AudioModule s_Module;
  return s_Module;
}

tAudioID AudioModule::NextIdLocked() {
  tAudioID id = m_NextId++;
  if (m_NextId == 0 || m_NextId == kNoAudioID) m_NextId = 1;
  return id;
}

Voice* AudioModule::FindLocked(tAudioID id) {
  if (id == 0) return nullptr;
  for (Voice& voice : m_Voices) {
    if (voice.GetId() == id) return &voice;
  }
  return nullptr;
}

const Voice* AudioModule::FindLocked(tAudioID id) const {
  return const_cast<AudioModule*>(this)->FindLocked(id);
}

Voice* AudioModule::TakeVoiceLocked(tAudioPriority priority) {
  Voice* lowest = nullptr;
  for (Voice& voice : m_Voices) {
    if (voice.IsFree()) return &voice;
    // Among equals the oldest sound, the one with the smallest id, gives way.
    if (!lowest || voice.GetSettings().priority < lowest->GetSettings().priority ||
        (voice.GetSettings().priority == lowest->GetSettings().priority && voice.GetId() < lowest->GetId())) {
      lowest = &voice;
    }
  }
  if (!lowest || lowest->GetSettings().priority >= priority) return nullptr;
  EndLocked(*lowest, true);
  return lowest;
}

void AudioModule::EndLocked(Voice& voice, bool doneMessage) {
  const Voice::Settings& settings = voice.GetSettings();
  if (doneMessage && (settings.flags & kAudioOptionsDoneMsgAfterComplete)) {
    tAudioMsgAudioCompleted message = {voice.GetId(), settings.payload, voice.GetPlayCount()};
    m_Messages.Push(message, settings.listener);
  }
  voice.Reset();
}

tAudioID AudioModule::StartStream(const std::string& path, const Voice::Settings& settings) {
  std::string resolved = path;
  if (!path.empty() && path[0] != '/' && !Exists(path)) {
    std::string base = GetResourcePath();
    if (!base.empty()) resolved = base + (base.back() == '/' ? "" : "/") + path;
  }
  std::unique_ptr<OggDecoder> decoder(new OggDecoder());
  if (path.empty() || !Exists(resolved) || !decoder->Open(resolved)) return kNoAudioID;
  std::lock_guard<std::mutex> lock(m_Lock);
  Voice* voice = TakeVoiceLocked(settings.priority);
  if (!voice) return kNoAudioID;
  tAudioID id = NextIdLocked();
  voice->StartStream(id, settings, std::move(decoder));
  return id;
}

tAudioID AudioModule::StartMemory(const tAudioHeader& header, const void* samples,
                                  const Voice::Settings& settings) {
  if (header.type != kAudioTypePCM16Mono || header.dataSampleRate < kMinRate ||
      header.dataSampleRate > kMaxRate || (!samples && header.dataSize != 0)) {
    return kNoAudioID;
  }
  const S16* data =
      samples ? reinterpret_cast<const S16*>(static_cast<const char*>(samples) + header.offsetToData)
              : nullptr;
  std::lock_guard<std::mutex> lock(m_Lock);
  Voice* voice = TakeVoiceLocked(settings.priority);
  if (!voice) return kNoAudioID;
  tAudioID id = NextIdLocked();
  voice->StartMemory(id, settings, data, header.dataSize / 2, header.dataSampleRate);
  return id;
}

tErrType AudioModule::Stop(tAudioID id, bool noDoneMessage) {
  std::lock_guard<std::mutex> lock(m_Lock);
  Voice* voice = FindLocked(id);
  if (!voice) return kErr;
  EndLocked(*voice, !noDoneMessage);
  return kNoErr;
}

tErrType AudioModule::StopAll() {
  std::lock_guard<std::mutex> lock(m_Lock);
  for (Voice& voice : m_Voices) {
    if (!voice.IsFree()) EndLocked(voice, true);
  }
  return kNoErr;
}

tErrType AudioModule::SetPaused(tAudioID id, bool paused) {
  std::lock_guard<std::mutex> lock(m_Lock);
  Voice* voice = FindLocked(id);
  if (!voice) return kErr;
  voice->SetPaused(paused);
  return kNoErr;
}

void AudioModule::SetSystemPaused(bool paused) {
  std::lock_guard<std::mutex> lock(m_Lock);
  m_bSystemPaused = paused;
}

bool AudioModule::IsPlaying(tAudioID id) const {
  std::lock_guard<std::mutex> lock(m_Lock);
  return FindLocked(id) != nullptr;
}

bool AudioModule::IsAnyPlaying() const {
  std::lock_guard<std::mutex> lock(m_Lock);
  for (const Voice& voice : m_Voices) {
    if (!voice.IsFree()) return true;
  }
  return false;
}

bool AudioModule::GetSettings(tAudioID id, Voice::Settings& out) const {
  std::lock_guard<std::mutex> lock(m_Lock);
  const Voice* voice = FindLocked(id);
  if (!voice) return false;
  out = voice->GetSettings();
  return true;
}

void AudioModule::SetVolume(tAudioID id, tAudioVolume volume) {
  std::lock_guard<std::mutex> lock(m_Lock);
  if (Voice* voice = FindLocked(id)) voice->GetSettings().volume = std::min<tAudioVolume>(volume, 100);
}

void AudioModule::SetPriority(tAudioID id, tAudioPriority priority) {
  std::lock_guard<std::mutex> lock(m_Lock);
  if (Voice* voice = FindLocked(id)) voice->GetSettings().priority = priority;
}

void AudioModule::SetPan(tAudioID id, tAudioPan pan) {
  std::lock_guard<std::mutex> lock(m_Lock);
  if (Voice* voice = FindLocked(id))
    voice->GetSettings().pan = std::max<tAudioPan>(-100, std::min<tAudioPan>(pan, 100));
}

U8 AudioModule::GetMasterVolume() const {
  std::lock_guard<std::mutex> lock(m_Lock);
  return m_MasterVolume;
}

void AudioModule::SetMasterVolume(U8 volume) {
  std::lock_guard<std::mutex> lock(m_Lock);
  m_MasterVolume = std::min<U8>(volume, 100);
}

U32 AudioModule::GetTime(tAudioID id) const {
  std::lock_guard<std::mutex> lock(m_Lock);
  const Voice* voice = FindLocked(id);
  return voice ? voice->GetElapsedMs() : 0;
}

void AudioModule::SetResourcePath(const std::string& path) {
  std::lock_guard<std::mutex> lock(m_Lock);
  m_ResourcePath = path;
}

std::string AudioModule::GetResourcePath() const {
  std::lock_guard<std::mutex> lock(m_Lock);
  return m_ResourcePath;
}

void AudioModule::Render(S16* out, U32 frames) {
  while (frames > 0) {
    const U32 n = std::min(frames, kChunkFrames);
    {
      std::lock_guard<std::mutex> lock(m_Lock);
      memset(m_Mix, 0, sizeof(S32) * 2 * n);
      if (!m_bSystemPaused) {
        for (Voice& voice : m_Voices) {
          if (voice.IsFree() || voice.IsPaused()) continue;
          if (!voice.Mix(m_Mix, n, HostAudio::kOutputRate, m_MasterVolume)) EndLocked(voice, true);
        }
      }
      for (U32 i = 0; i < 2 * n; ++i) out[i] = Clamp16(m_Mix[i]);
    }
    m_Wav.Append(out, n);
    out += 2 * n;
    frames -= n;
  }
  m_Messages.Flush(false);
}

void AudioModule::DeviceFill(void* self, S16* frames, U32 count) {
  static_cast<AudioModule*>(self)->Render(frames, count);
}

void AudioModule::RenderOnDemand(U64 frames) {
  while (frames > 0) {
    const U32 n = static_cast<U32>(std::min<U64>(frames, kChunkFrames));
    Render(m_OnDemand, n);
    frames -= n;
  }
  m_Messages.Flush(true);
}

bool AudioModule::Configure(const std::string& wavPath, bool mute, bool headless, std::string& error) {
  m_Device.Close();
  m_Wav.Close();
  // The mix starts from the clock as it is now: nothing is owed for the time before.
  m_bClockStarted = true;
  m_ClockBaseUSecs = Clock::NowUSecs();
  m_FramesSinceBase = 0;
  bool ok = true;
  if (!wavPath.empty() && !m_Wav.Open(wavPath, HostAudio::kOutputRate)) {
    error = "cannot write the audio file " + wavPath;
    ok = false;
  }
  if (!headless && !mute) {
    std::string reason;
    if (!m_Device.Open(HostAudio::kOutputRate, &AudioModule::DeviceFill, this, reason)) {
      if (ok) error = reason;
      ok = false;
    }
  }
  return ok;
}

void AudioModule::Update() {
  if (m_Device.IsOpen()) return;
  const U64 now = Clock::NowUSecs();
  if (!m_bClockStarted || now < m_ClockBaseUSecs) {
    m_bClockStarted = true;
    m_ClockBaseUSecs = now;
    m_FramesSinceBase = 0;
  }
  const U64 due = (now - m_ClockBaseUSecs) * HostAudio::kOutputRate / 1000000u;
  RenderOnDemand(due - m_FramesSinceBase);
  m_FramesSinceBase = due;
}

void AudioModule::MixMilliseconds(U32 ms) {
  if (m_Device.IsOpen()) return;
  RenderOnDemand(static_cast<U64>(ms) * HostAudio::kOutputRate / 1000u);
}

void AudioModule::Shutdown() {
  StopAll();
  m_Device.Close();
  m_Messages.Stop();
  m_Wav.Close();
  m_bClockStarted = false;
}

}  // namespace Ostra
}  // namespace Hollin
