#include "sound/SoundGroup.h"

#include "core/PathRegistry.h"
#include "core/StringUtils.h"
#include "sound/MemorySound.h"

namespace nox {

std::map<uint32_t, SoundGroup*> SoundGroup::sm_groups;

SoundGroup::SoundGroup(uint32_t id) : m_Id(id) {
  sm_groups[id] = this;
}

SoundGroup::~SoundGroup() {
  Unload();
  auto it = sm_groups.find(m_Id);
  if (it != sm_groups.end() && it->second == this) sm_groups.erase(it);
}

SoundGroup* SoundGroup::GetGroup(uint32_t id) {
  auto it = sm_groups.find(id);
  return it == sm_groups.end() ? nullptr : it->second;
}

MemorySound* SoundGroup::FindSound(const std::string& name) {
  for (auto& entry : sm_groups) {
    if (entry.second->Contains(name)) return entry.second->Find(name);
  }
  return nullptr;
}

MemorySound* SoundGroup::FindSound(const char* name) {
  return FindSound(std::string(name ? name : ""));
}

MemorySound* SoundGroup::Find(const std::string& name) const {
  auto it = m_Sounds.find(name);
  return it == m_Sounds.end() ? nullptr : it->second;
}

Sound* SoundGroup::GetSound(const std::string& name) {
  return Find(name);
}

bool SoundGroup::Contains(const std::string& name) {
  return m_Sounds.count(name) != 0;
}

Sound* SoundGroup::Load(const std::string& name) {
  PathRegistry* registry = PathRegistry::sm_pInstance;
  const std::string file = AppendSuffix(name);
  std::string path;
  if (!registry || !registry->FindFile(registry->m_AudioPaths, file, path)) return nullptr;
  MemorySound* sound = new MemorySound();
  sound->SetBind(true);
  sound->Load(file);
  MemorySound*& slot = m_Sounds[name];
  delete slot;
  slot = sound;
  return sound;
}

void SoundGroup::Unload() {
  for (auto& entry : m_Sounds) delete entry.second;
  m_Sounds.clear();
}

}  // namespace nox
