// A sound whose decoded samples are held in memory, in a SoundBuffer shared with every
// copy and with the resident sound of the same name in a SoundGroup. Copies are cheap,
// which is what lets the sound manager play a copy each time.
#pragma once
#include "sound/Sound.h"
#include "sound/SoundBuffer.h"

namespace nox {

class MemorySound : public Sound {
 public:
  MemorySound() = default;
  // Shares the buffer (one more reference).
  MemorySound(const MemorySound& other);
  ~MemorySound() override;

  Sound* Copy() const override;
  // Without a buffer: false, and no event.
  bool Play() override;
  // Stops and drops the old buffer; then shares the buffer of a group's sound of that
  // name, or loads "<name>.wav" (".wav" only added when missing) from the audio
  // directories. False when neither is there: the sound then has no buffer.
  virtual bool Load(const std::string& name);

  SoundBuffer* GetBuffer() const { return m_pBuffer; }

 private:
  void ReleaseBuffer();

  SoundBuffer* m_pBuffer = nullptr;  // shared through its count; deleted by the last holder
};

}  // namespace nox
