// Device half of the sound player: the audio module, the kernel mutex and the queue of
// finished audio ids. Notify is the one entry point of the audio module's thread: it
// only appends to the queue under the mutex. SoundPlayer::Update empties the queue on
// the game thread under the same mutex and does everything else.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "ostra/AudioMPI.h"
#include "ostra/KernelMPI.h"

namespace nox {

class SoundPlayer_pf : public Hollin::Ostra::IEventListener {
 public:
  static const Hollin::Ostra::tEventType kSoundTypes = 0x100007ffu;  // all audio events

  // The audio module's thread: queues the audio id of a done message.
  Hollin::Ostra::tErrType Notify(const Hollin::Ostra::IEventMessage& message) override;

 protected:
  SoundPlayer_pf();
  ~SoundPlayer_pf() override;

  // Asks the module for its done messages and sets its resource path.
  void AttachToModule(const std::string& resourcePath);
  void DetachFromModule();

  // The module's answer, with kNoAudioID already turned into 0. `loop` becomes the payload
  // and flags of the module: a loop count never reached, or a single play.
  uint32_t StartStream(const std::string& path, uint32_t volume, uint32_t priority, int32_t pan, bool loop);
  uint32_t StartMemory(const void* data, uint32_t size, uint32_t volume, uint32_t priority, int32_t pan,
                       bool loop);

  // Guard m_Pending; held only for a few instructions on either side.
  void LockPending() const { m_Kernel.LockMutex(m_Mutex); }
  void UnlockPending() const { m_Kernel.UnlockMutex(m_Mutex); }

  Hollin::Ostra::CAudioMPI& Audio() { return m_Audio; }
  const Hollin::Ostra::CAudioMPI& Audio() const { return m_Audio; }

  std::string m_ResourcePath;
  std::vector<uint32_t> m_Pending;  // audio ids of done messages not yet seen by Update
  mutable Hollin::Ostra::tMutex m_Mutex;
  Hollin::Ostra::CKernelMPI m_Kernel;
  Hollin::Ostra::CAudioMPI m_Audio;
};

}  // namespace nox
