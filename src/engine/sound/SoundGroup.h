// Decoded effects that stay in memory and can be found by name from anywhere. Each group
// enters itself under its id in a class-wide map when made and leaves it when destroyed;
// FindSound asks the groups in id order. A group owns its sounds (MemorySounds, bound);
// the sound manager plays copies of them, which share their buffers.
#pragma once
#include <cstdint>
#include <map>
#include <string>

namespace nox {

class Sound;
class MemorySound;

class SoundGroup {
 public:
  typedef std::map<std::string, MemorySound*> SoundMap;

  explicit SoundGroup(uint32_t id);
  SoundGroup(const SoundGroup&) = delete;
  SoundGroup& operator=(const SoundGroup&) = delete;
  virtual ~SoundGroup();

  // Null when no group has this id.
  static SoundGroup* GetGroup(uint32_t id);
  // The first group in id order that holds the name answers; null when none does.
  static MemorySound* FindSound(const std::string& name);
  static MemorySound* FindSound(const char* name);

  virtual Sound* GetSound(const std::string& name);
  // Loads "<name>.wav" from the audio directories into a new bound MemorySound, entered
  // under `name` (replacing one of that name). Null when there is no such file.
  virtual Sound* Load(const std::string& name);
  // Deletes every sound.
  virtual void Unload();
  virtual bool Contains(const std::string& name);
  virtual void SetResourcePath(const std::string& path) { m_ResourcePath = path; }

  uint32_t GetId() const { return m_Id; }
  const std::string& GetResourcePath() const { return m_ResourcePath; }

 private:
  MemorySound* Find(const std::string& name) const;

  static std::map<uint32_t, SoundGroup*> sm_groups;  // borrowed, by id

  uint32_t m_Id;
  SoundMap m_Sounds;  // owned, by name in byte order
  std::string m_ResourcePath;
};

}  // namespace nox
