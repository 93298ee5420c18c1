// A handle for one playable thing: its volume, priority, pan, loop, pause count and
// ducked state, and the audio id while it runs. StreamingSound and MemorySound say what
// is played; this class keeps the state, the ducking ramp and the events.
//
// Events raised to the sound's listeners (EventData::m_Type): kStarted when Play got an
// audio id, kStopped by Stop of a playing sound, kFailedToStart when Play got none,
// kFinished when the player reports the end. Listeners are called on a private copy of
// the list and may remove themselves, or delete the sound, while the event runs; the
// sound touches none of its members after raising an event.
//
// With bind true the sound listens to the player for its end and stops its audio when
// destroyed; with bind false it is fire and forget: no end event, and it stays marked as
// playing until stopped. All of it runs on the game thread.
#pragma once
#include <cstdint>
#include <string>

#include "core/EventListener.h"
#include "core/EventSource.h"

namespace nox {

class SoundPlayer;

class Sound : public EventListener<SoundPlayer>, public EventSource<Sound> {
 public:
  enum Event : uint32_t { kStarted = 0, kStopped = 2, kFailedToStart = 3, kFinished = 4 };

  Sound();
  // Copies bind, loop, volume, priority, pan, ducked, type and name; the copy is idle,
  // unpaused and has no listeners.
  Sound(const Sound& other);
  Sound& operator=(const Sound&) = delete;
  virtual ~Sound();

  // The player's end of this sound's audio (type 0 from the player).
  void OnEventOccurred(SoundPlayer* player, const EventData* data) override;
  // A new sound of the same kind and settings, owned by the caller.
  virtual Sound* Copy() const = 0;
  // Stops first if playing; true when the audio started.
  virtual bool Play() = 0;
  virtual const std::string& GetName() const { return m_Name; }
  // The ducking ramp: one step towards the ducked or the normal level per call.
  virtual void Update(uint32_t dt);
  virtual void Stop();
  // Pauses nest: n pauses need n resumes.
  virtual void Pause();
  // True when this call let the sound go on.
  virtual bool Resume();
  virtual void SetVolume(unsigned long volume);
  virtual void SetPriority(unsigned long priority);
  virtual void SetPan(long pan);
  virtual void SetIsDucked(bool ducked) { m_bIsDucked = ducked; }
  virtual void SetLoop(bool loop) { m_bLoop = loop; }
  virtual void SetBind(bool bind) { m_bBind = bind; }
  virtual void SetType(unsigned long type) { m_Type = static_cast<uint32_t>(type); }
  virtual uint32_t GetVolume() const { return m_Volume; }
  virtual uint32_t GetPriority() const { return m_Priority; }
  virtual int32_t GetPan() const { return m_Pan; }
  virtual bool GetIsDucked() const { return m_bIsDucked; }
  virtual uint32_t GetId() const { return m_Id; }
  virtual bool GetLoop() const { return m_bLoop; }
  virtual bool GetBind() const { return m_bBind; }
  virtual uint32_t GetType() const { return m_Type; }
  virtual bool IsPlaying() const { return m_bIsPlaying; }
  virtual bool IsPaused() const { return m_bIsPaused; }
  // ms played so far, from the player; 0 when idle.
  virtual uint32_t GetElapsedTime() const;

  uint32_t GetPauseCount() const { return m_PauseCount; }

 protected:
  // The end of Play: stores the id, marks playing and raises kStarted or kFailedToStart.
  // Returns whether it plays; the sound may be gone by then, so callers return at once.
  bool Started(uint32_t id);
  void RaiseEvent(uint32_t type);

  bool m_bBind = true;  // a new sound hears its end unless told otherwise
  bool m_bIsPlaying = false;
  bool m_bIsPaused = false;
  bool m_bLoop = false;
  bool m_bIsDucked = false;
  uint32_t m_Volume = 100;  // 0..100 in use; only the low 8 bits are kept
  uint32_t m_Id = 0;        // audio id of the running sound, 0 when idle
  uint32_t m_Priority = 100;
  uint32_t m_PauseCount = 0;
  int32_t m_Pan = 0;    // -100..100, reaches the player as a signed byte
  uint32_t m_Type = 0;  // noxfw::FrameworkSoundType
  std::string m_Name = "<unnamed>";
};

}  // namespace nox
