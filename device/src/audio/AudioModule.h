// The one audio module of the process, behind CAudioMPI and HostAudio: a fixed array of
// voices, the master volume, the resource path, the output (device, WAV file, or nothing)
// and the thread that delivers done messages.
//
// Locking: m_Lock guards the voices and every setting; the mixer holds it for one chunk of
// output at a time. Done messages are only queued under it and go out on the message
// thread afterwards, so a listener may call straight back into the module.
#pragma once
#include <mutex>
#include <string>

#include "audio/DoneMessages.h"
#include "audio/SdlOutput.h"
#include "audio/Voice.h"
#include "audio/WavWriter.h"
#include "ostra/AudioMPI.h"

namespace Hollin {
namespace Ostra {

class AudioModule {
 public:
  static constexpr U32 kChunkFrames = 512;  // output frames mixed under one hold of the lock

  static AudioModule& Get();
  AudioModule() = default;
  ~AudioModule() { Shutdown(); }
  AudioModule(const AudioModule&) = delete;
  AudioModule& operator=(const AudioModule&) = delete;

  tAudioID StartStream(const std::string& path, const Voice::Settings& settings);
  tAudioID StartMemory(const tAudioHeader& header, const void* samples, const Voice::Settings& settings);
  tErrType Stop(tAudioID id, bool noDoneMessage);
  tErrType StopAll();
  tErrType SetPaused(tAudioID id, bool paused);
  void SetSystemPaused(bool paused);
  bool IsPlaying(tAudioID id) const;
  bool IsAnyPlaying() const;
  // A copy of the sound's settings; false for an unknown id.
  bool GetSettings(tAudioID id, Voice::Settings& out) const;
  void SetVolume(tAudioID id, tAudioVolume volume);
  void SetPriority(tAudioID id, tAudioPriority priority);
  void SetPan(tAudioID id, tAudioPan pan);
  U8 GetMasterVolume() const;
  void SetMasterVolume(U8 volume);
  U32 GetTime(tAudioID id) const;

  void SetDefaultListener(IEventListener* listener) { m_Messages.SetDefaultListener(listener); }
  IEventListener* GetDefaultListener() const { return m_Messages.GetDefaultListener(); }
  void SetResourcePath(const std::string& path);
  std::string GetResourcePath() const;

  // The host's side; see ostra/HostAudio.h.
  bool Configure(const std::string& wavPath, bool mute, bool headless, std::string& error);
  void Update();
  void MixMilliseconds(U32 ms);
  bool IsDeviceOutput() const { return m_Device.IsOpen(); }
  void Shutdown();

  // Mixes `frames` output frames into `out` (interleaved stereo), on whatever thread
  // calls, appends them to the WAV file and lets the done messages of the mix go.
  void Render(S16* out, U32 frames);

 private:
  static void DeviceFill(void* self, S16* frames, U32 count);
  Voice* FindLocked(tAudioID id);
  const Voice* FindLocked(tAudioID id) const;
  // A free voice, or the voice of a sound of lower priority, ended; null if none.
  Voice* TakeVoiceLocked(tAudioPriority priority);
  void EndLocked(Voice& voice, bool doneMessage);
  tAudioID NextIdLocked();
  // On demand: Render in chunks, then wait for the done messages.
  void RenderOnDemand(U64 frames);

  mutable std::mutex m_Lock;
  Voice m_Voices[kMaxAudioVoices];
  S32 m_Mix[kChunkFrames * 2];
  tAudioID m_NextId = 1;
  U8 m_MasterVolume = 100;
  bool m_bSystemPaused = false;
  std::string m_ResourcePath;

  DoneMessages m_Messages;

  // Output; changed only by the host's thread while the device is closed.
  SdlOutput m_Device;
  WavWriter m_Wav;
  S16 m_OnDemand[kChunkFrames * 2];
  bool m_bClockStarted = false;
  U64 m_ClockBaseUSecs = 0;
  U64 m_FramesSinceBase = 0;
};

}  // namespace Ostra
}  // namespace Hollin
