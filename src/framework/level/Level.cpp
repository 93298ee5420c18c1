#include "level/Level.h"

#include "agents/LevelLoader.h"
#include "core/Debug.h"
#include "level/Arena.h"
#include "level/LevelElements.h"
#include "level/LevelTokens.h"

namespace noxfw {

Level::Level(nox::ContextPool& pool, nox::AgentFactoryManager& factories, nox::Scene* scene)
    : m_ContextPool(pool), m_Factories(factories), m_pScene(scene) {}

Level::~Level() {
  Clear();
}

void Level::Clear() {
  for (auto& entry : m_Arenas) delete entry.second;
  m_Arenas.clear();
  m_ArenaCount = 0;
  delete m_pGlobalArena;
  m_pGlobalArena = nullptr;
  m_Paths.clear();
  m_StringTable.Clear();
}

void Level::Begin() {
  m_UnknownElements = 0;
  m_FirstUnknownId = 0;
}

void Level::Finish(const nox::LevelLoader& loader) {
  if (m_UnknownElements == 0) return;
  nox::AutomationPrintf("Level: %s: %lu unknown element word(s) skipped, the first %lu",
                        loader.GetFileName().c_str(), m_UnknownElements, m_FirstUnknownId);
}

bool Level::Load(const char* fileName) {
  Begin();
  nox::LevelLoader loader(this, nox::LevelLoaderCallback<Level, &Level::LoadElement>);
  if (!loader.Load(fileName)) return false;
  Finish(loader);
  return true;
}

void Level::LoadText(const char* name, const char* data, size_t size) {
  Begin();
  nox::LevelLoader loader(this, nox::LevelLoaderCallback<Level, &Level::LoadElement>);
  loader.LoadText(name, data, size);
  Finish(loader);
}

bool Level::LoadElement(nox::LevelLoader* loader, unsigned long id, std::istringstream& stream) {
  switch (id) {
    case kLevelElementPath:
      ReadPaths(loader, stream);
      return true;
    case kLevelElementArena: {
      Arena* arena = ReadArena(loader, stream);
      arena->LinkAfter(GetArena(m_ArenaCount - 1));
      m_Arenas[m_ArenaCount++] = arena;
      return true;
    }
    case kLevelElementGlobal:
      delete m_pGlobalArena;
      m_pGlobalArena = ReadArena(loader, stream);
      m_pGlobalArena->Load();
      return true;
    case kLevelElementStringTable:
      if (!m_StringTable.Initialize(stream, loader->GetFileName().c_str())) {
        stream.setstate(std::ios::failbit);
      }
      return true;
    default:
      if (m_UnknownElements++ == 0) m_FirstUnknownId = id;
      SkipLevelWord(stream);
      return false;
  }
}

Arena* Level::ReadArena(nox::LevelLoader* loader, std::istringstream& stream) {
  Arena* arena = new Arena(m_ContextPool, &m_Factories, m_pScene);
  arena->Read(stream, loader->GetRemaining(), loader->GetFileName().c_str());
  return arena;
}

bool Level::ReadPaths(nox::LevelLoader* loader, std::istringstream& stream) {
  m_Paths.clear();
  const size_t available = loader->GetRemaining();
  uint32_t number, count;
  if (!SkipLevelWord(stream) || !ReadLevelUnsigned(stream, number) || !ReadLevelUnsigned(stream, count)) {
    nox::AutomationPrintf("Level: %s: the paths' header does not read", loader->GetFileName().c_str());
    stream.setstate(std::ios::failbit);
    return false;
  }
  // A path has two points of six numbers and two counts at the least: 14 tokens.
  if (count > available / 28) {
    nox::AutomationPrintf("Level: %s: %u paths announced, more than the file holds",
                          loader->GetFileName().c_str(), count);
    stream.setstate(std::ios::failbit);
    return false;
  }
  m_Paths.resize(count);
  for (uint32_t i = 0; i < count; ++i) {
    if (!m_Paths[i].Initialise(stream)) {
      nox::AutomationPrintf("Level: %s: path %u of %u refused; reading stops", loader->GetFileName().c_str(),
                            i, count);
      m_Paths.clear();
      stream.setstate(std::ios::failbit);
      return false;
    }
  }
  return true;
}

Arena* Level::GetArena(long index) const {
  auto it = m_Arenas.find(index);
  return it == m_Arenas.end() ? nullptr : it->second;
}

}  // namespace noxfw
