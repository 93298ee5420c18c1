// The sprites of a scene by name: a map from the name's NameHash to its TileAnimData,
// which the map owns. The key is the hash alone, so two names with one hash are one
// sprite. A sprite whose files are missing or malformed is not kept: GetAnimData
// answers null for it, and asks the files again on the next call.
#pragma once
#include <map>
#include <string>

#include "core/HashString.h"
#include "core/NoCopy.h"

namespace nox {

class TileAnimData;

class AnimDataMap : public NoCopy {
 public:
  AnimDataMap() = default;
  virtual ~AnimDataMap();

  // The stored data on a hit; on a miss loads TileAnimData(name, false, false), keeps
  // it and returns it. Null when the sprite could not be loaded.
  TileAnimData* GetAnimData(const std::string& name);
  // Stores `data` (and takes it) only if the hash is not there yet; true when stored.
  // A refused `data` stays the caller's.
  bool SetAnimData(const std::string& name, TileAnimData* data);
  size_t GetCount() const { return m_Map.size(); }

 private:
  std::map<NameHash, TileAnimData*> m_Map;  // values owned
};

}  // namespace nox
