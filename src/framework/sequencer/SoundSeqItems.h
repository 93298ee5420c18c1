// Steps that play a sound through nox::SoundManager in a category. A waiting step
// runs until its sound stops playing and stops the sound if it is cancelled; a
// don't-wait step ends on its first frame and leaves the sound playing. A sound
// that fails to start is not playing, so its step ends on that same frame.
//
// PlayMemorySoundSeqItem and PlayStreamingSoundSeqItem own their sound, made from
// a name at construction. A don't-wait step of this kind has the manager play and
// own a copy, so the sound outlives the step. The "My" steps play a sound owned by
// the caller, which must outlive its playing.
#pragma once
#include <cstdint>
#include <string>

#include "sequencer/SequencerItem.h"
#include "sound/MemorySound.h"
#include "sound/StreamingSound.h"

namespace noxfw {

class PlayMemorySoundSeqItem : public SequencerItem {
 public:
  // Loads `name` (see nox::MemorySound::Load) into the step's own sound.
  PlayMemorySoundSeqItem(const char* name, unsigned long category, unsigned long id = 0,
                         bool dontWait = false, unsigned long priority = 100);

  void Initialize() override;
  int Update(unsigned long ms) override;
  void Terminate() override;

  nox::MemorySound& GetSound() { return m_Sound; }

 private:
  nox::MemorySound m_Sound;  // owned
  uint32_t m_Category;
  bool m_bDontWait;
  uint32_t m_Priority;
};

class PlayStreamingSoundSeqItem : public SequencerItem {
 public:
  // Opens `file` (see nox::StreamingSound::Load) in the step's own sound.
  PlayStreamingSoundSeqItem(const char* file, unsigned long category, unsigned long id = 0,
                            bool dontWait = false, unsigned long priority = 100);

  void Initialize() override;
  int Update(unsigned long ms) override;
  void Terminate() override;

  nox::StreamingSound& GetSound() { return m_Sound; }

 private:
  nox::StreamingSound m_Sound;  // owned
  uint32_t m_Category;
  bool m_bDontWait;
  uint32_t m_Priority;
};

class PlayMyMemorySoundSeqItem : public SequencerItem {
 public:
  PlayMyMemorySoundSeqItem(nox::MemorySound* sound, unsigned long category, bool dontWait = false,
                           unsigned long id = 0);

  void Initialize() override;
  int Update(unsigned long ms) override;
  void Terminate() override;

 private:
  nox::MemorySound* m_pSound;  // borrowed
  uint32_t m_Category;
  bool m_bDontWait;
};

// Loads `file` into the caller's sound when the step starts, so that one sound
// object can serve a whole script of lines.
class PlayMyStreamingSoundSeqItem : public SequencerItem {
 public:
  PlayMyStreamingSoundSeqItem(nox::StreamingSound* sound, unsigned long category, const std::string& file,
                              bool dontWait = false, unsigned long id = 0);

  void Initialize() override;
  int Update(unsigned long ms) override;
  void Terminate() override;

 private:
  nox::StreamingSound* m_pSound;  // borrowed
  uint32_t m_Category;
  std::string m_File;
  bool m_bDontWait;
};

}  // namespace noxfw
