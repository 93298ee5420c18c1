#include "graphics/TileResourceFile.h"

#include <cstring>

#include "core/Debug.h"
#include "core/FileSystem.h"
#include "core/Inflater.h"
#include "core/Loader.h"
#include "core/PathRegistry.h"

namespace nox {

TileResourceFile::~TileResourceFile() {
  Release();
}

void TileResourceFile::Release() {
  if (m_pDataFile) FileSystem::FileClose(m_pDataFile);
  m_pDataFile = nullptr;
  Loader::UnloadFile(m_pIndex);
  m_pIndex = nullptr;
  m_pEntries = nullptr;
  m_Header = TileIndexHeader{};
  m_bInitialized = false;
}

bool TileResourceFile::Initialize(const std::string& name) {
  Release();
  if (!PathRegistry::sm_pInstance) return false;
  std::string indexPath, dataPath;
  const std::vector<std::string>& paths = PathRegistry::sm_pInstance->m_LevelPaths;
  if (!PathRegistry::sm_pInstance->FindFile(paths, name + ".til", indexPath) ||
      !PathRegistry::sm_pInstance->FindFile(paths, name + "-tiled.tex", dataPath))
    return false;
  FILE* data = FileSystem::FileOpen(dataPath.c_str(), "rb");
  if (!data) return false;
  const unsigned long dataSize = Loader::GetFileSize(dataPath.c_str());
  if (!LoadTileIndexData(indexPath, dataSize)) {
    FileSystem::FileClose(data);
    return false;
  }
  m_pDataFile = data;
  m_bInitialized = true;
  return true;
}

bool TileResourceFile::LoadTileIndexData(const std::string& path, unsigned long dataSize) {
  Loader::UnloadFile(m_pIndex);
  m_pIndex = nullptr;
  m_pEntries = nullptr;
  m_Header = TileIndexHeader{};
  unsigned long size = 0;
  uint8_t* index = Loader::LoadFile(path, &size);
  if (!index) return false;
  if (const char* problem = CheckTileIndex(index, size, dataSize)) {
    AutomationPrintf("Malformed file: %s: %s", path.c_str(), problem);
    Loader::UnloadFile(index);
    return false;
  }
  m_pIndex = index;
  memcpy(&m_Header, index, sizeof(m_Header));
  m_pEntries = reinterpret_cast<const TileIndexEntry*>(index + sizeof(TileIndexHeader));
  return true;
}

const TileIndexEntry* TileResourceFile::FindTileIndexData(unsigned x, unsigned y) const {
  // The index was checked whole at load; this keeps a caller's slip inside it too.
  if (!m_pEntries || x >= m_Header.columns || y >= m_Header.rows) return nullptr;
  return &m_pEntries[x + static_cast<unsigned long>(m_Header.columns) * y];
}

uint32_t TileResourceFile::GetTileKey(unsigned x, unsigned y) const {
  const TileIndexEntry* entry = FindTileIndexData(x, y);
  return entry ? entry->offset : kNoTileKey;
}

void TileResourceFile::LoadTile(unsigned x, unsigned y, unsigned char* out, unsigned long size) {
  const TileIndexEntry* entry = FindTileIndexData(x, y);
  if (!entry || !out) return;
  if (entry->packedSize == 0) {
    memset(out, 0, size);
    return;
  }
  if (!m_pDataFile || FileSystem::FileSeek(m_pDataFile, static_cast<long>(entry->offset), SEEK_SET) != 0)
    return;
  unsigned char packed[kTileMaxBytes];
  if (FileSystem::FileRead(packed, 1, entry->packedSize, m_pDataFile) != entry->packedSize) return;
  unsigned long limit = size < kTileMaxBytes ? size : kTileMaxBytes;
  Inflater::Inflate(out, limit, packed, entry->packedSize);
}

}  // namespace nox
