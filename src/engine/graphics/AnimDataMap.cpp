#include "graphics/AnimDataMap.h"

#include "graphics/TileAnimData.h"

namespace nox {

AnimDataMap::~AnimDataMap() {
  for (auto& entry : m_Map) delete entry.second;
}

TileAnimData* AnimDataMap::GetAnimData(const std::string& name) {
  const NameHash hash = HashString(name);
  auto found = m_Map.find(hash);
  if (found != m_Map.end()) return found->second;
  TileAnimData* data = new TileAnimData(name.c_str(), false, false);
  if (!data->IsLoaded()) {
    delete data;
    return nullptr;
  }
  m_Map[hash] = data;
  return data;
}

bool AnimDataMap::SetAnimData(const std::string& name, TileAnimData* data) {
  return m_Map.emplace(HashString(name), data).second;
}

}  // namespace nox
