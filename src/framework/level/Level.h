// What a level file holds, read through nox::LevelLoader: the arenas by index, the
// global arena, the shared paths and the string table. A world scene owns one and
// passes the loader's elements to LoadElement; a scene with kinds of its own
// (walls) overrides LoadElement and hands the others to this one.
//
// The level owns its arenas. A scene that added an arena to its AgentEngine takes it
// out again before the level is cleared or destroyed.
//
// Bad input: an element that cannot be read leaves its arena empty and ends the load,
// with one automation line naming the file; unknown element kinds cost one word each
// and are summed up in one line at the end of the load.
#pragma once
#include <map>
#include <sstream>
#include <vector>

#include "core/NoCopy.h"
#include "core/Path.h"
#include "core/StringTable.h"

namespace nox {
class AgentFactoryManager;
class ContextPool;
class LevelLoader;
class Scene;
}  // namespace nox

namespace noxfw {

class Arena;

class Level : public nox::NoCopy {
 public:
  // All three are borrowed and must outlive the level; `scene` may be null.
  Level(nox::ContextPool& pool, nox::AgentFactoryManager& factories, nox::Scene* scene);
  virtual ~Level();

  // Reads the file; false when it cannot be read at all.
  bool Load(const char* fileName);
  // The same over text in memory; `name` labels messages.
  void LoadText(const char* name, const char* data, size_t size);
  // Deletes the arenas and empties the tables.
  void Clear();

  // One element whose id has been read. False for an unknown id, which then costs
  // exactly one word of input.
  virtual bool LoadElement(nox::LevelLoader* loader, unsigned long id, std::istringstream& stream);

  unsigned long GetArenaCount() const { return static_cast<unsigned long>(m_Arenas.size()); }
  // Null for an index that no arena has.
  Arena* GetArena(long index) const;
  Arena* GetGlobalArena() const { return m_pGlobalArena; }
  const std::vector<nox::Path>& GetPaths() const { return m_Paths; }
  const StringTable& GetStringTable() const { return m_StringTable; }
  unsigned long GetUnknownElementCount() const { return m_UnknownElements; }

 protected:
  nox::ContextPool& GetContextPool() const { return m_ContextPool; }

 private:
  void Begin();
  void Finish(const nox::LevelLoader& loader);
  Arena* ReadArena(nox::LevelLoader* loader, std::istringstream& stream);
  bool ReadPaths(nox::LevelLoader* loader, std::istringstream& stream);

  nox::ContextPool& m_ContextPool;
  nox::AgentFactoryManager& m_Factories;
  nox::Scene* m_pScene;
  StringTable m_StringTable;
  std::vector<nox::Path> m_Paths;
  std::map<long, Arena*> m_Arenas;  // owned, by running index
  long m_ArenaCount = 0;
  Arena* m_pGlobalArena = nullptr;  // owned
  unsigned long m_UnknownElements = 0;
  unsigned long m_FirstUnknownId = 0;
};

}  // namespace noxfw
