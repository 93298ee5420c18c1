// The only code that talks to the device's audio module. Turns a file name or a block of
// samples into a running audio id, and brings the module's done messages from its thread
// into the frame: Notify (in SoundPlayer_pf) queues the id under the mutex, Update takes
// the ids that have a listener out of the id map under the same mutex, releases it, and
// only then calls each listener with event type 0. Listeners may play or stop sounds
// from the callback.
//
// Stop(id) drops the id's listener before telling the module, so a stopped sound never
// hears of its end. The listener map holds borrowed pointers. Singleton m_pSoundPlayer,
// created during the title's enter phase; Update runs at the top of every frame.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/EventSource.h"
#include "core/NoCopy.h"
#include "platform/SoundPlayer_pf.h"

namespace nox {

class SoundPlayer : public SoundPlayer_pf, public EventSource<SoundPlayer>, public NoCopy {
 public:
  typedef EventListener<SoundPlayer> Listener;

  // Destroys an existing player first. Neither argument is used.
  static void Create(int voices, bool unused);
  static void Destroy();
  static SoundPlayer* m_pSoundPlayer;

  // Becomes the module's default listener; the module's resource path becomes the title
  // directory followed by `resourcePath`.
  void Initialize(const std::string& resourcePath);
  // Stops everything, delivers what is queued, and leaves the module.
  void Shutdown();
  void Update(uint32_t dt);

  // Audio id, or 0 when nothing started. A listener given is entered under the id.
  uint32_t PlayStreaming(const std::string& name, Listener* listener, uint32_t volume, uint32_t priority,
                         int32_t pan, bool loop);
  uint32_t PlayMemory(const void* data, uint32_t size, Listener* listener, uint32_t volume, uint32_t priority,
                      int32_t pan, bool loop);

  void Stop(uint32_t id);
  void StopAll();
  void Pause(uint32_t id);
  void Resume(uint32_t id);
  // The whole audio system.
  void Pause();
  void Resume();
  bool IsPlaying(uint32_t id) const;
  bool IsPlaying() const;
  uint32_t Priority(uint32_t id) const;
  void Priority(uint32_t id, uint32_t value);
  int32_t Pan(uint32_t id) const;
  void Pan(uint32_t id, int32_t value);
  uint32_t Volume(uint32_t id) const;
  void Volume(uint32_t id, uint32_t value);
  // The master volume. Its setter has a name of its own: Volume(value) would read the
  // same as the per-sound getter Volume(id).
  uint32_t Volume() const;
  void SetMasterVolume(uint32_t value);
  uint32_t GetTime(uint32_t id) const;
  void RemoveSoundListener(uint32_t id);
  // The listener is not looked at: the id alone names the entry.
  void RemoveSoundListener(Listener* listener, uint32_t id);

  // `name` with ".ogg" added unless it holds it somewhere.
  static std::string StreamingFileName(const std::string& name);
  // Looks for StreamingFileName(name) in the audio directories of the path registry.
  static bool FindStreamingFile(const std::string& name, std::string& path);

  ~SoundPlayer() override;

 private:
  SoundPlayer();
  void Enter(uint32_t id, Listener* listener);

  struct Delivery {
    uint32_t id;
    Listener* listener;  // null once removed during the delivery
  };

  std::map<uint32_t, Listener*> m_Listeners;  // borrowed
  std::vector<Delivery> m_Delivering;         // ends taken by Update, being called
  bool m_bDelivering = false;
};

}  // namespace nox
