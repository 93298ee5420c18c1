#include "core/StreamedFile.h"

#include <sys/stat.h>

#include "core/Debug.h"
#include "core/FileSystem.h"
#include "core/Inflater.h"

namespace nox {

namespace {

uint32_t ReadU32(const unsigned char* p) {
  return static_cast<uint32_t>(p[0]) | static_cast<uint32_t>(p[1]) << 8 | static_cast<uint32_t>(p[2]) << 16 |
         static_cast<uint32_t>(p[3]) << 24;
}

bool ReadAll(FILE* file, void* data, size_t size) {
  return FileSystem::FileRead(data, 1, size, file) == size;
}

}  // namespace

StreamedFile::Row StreamedFile::GetRow(uint32_t id) const {
  const unsigned char* p = m_pTable + static_cast<size_t>(id) * kRowSize;
  return Row{ReadU32(p), ReadU32(p + 4), ReadU32(p + 8)};
}

void StreamedFile::Refuse(const char* reason) {
  AutomationPrintf("StreamedFile: %s refused: %s", m_Path.c_str(), reason);
  Unload();
}

bool StreamedFile::Load(const std::string& path, uint32_t maxChunks) {
  Unload();
  m_MaxChunks = maxChunks;
  m_Path = path;
  m_NameHash = HashString(path);
  m_pFile = FileSystem::FileOpen(path.c_str(), "rb");
  if (!m_pFile) return false;

  struct stat info;
  if (fstat(fileno(m_pFile), &info) != 0 || !S_ISREG(info.st_mode)) {
    Refuse("not a regular file");
    return false;
  }
  const uint64_t fileSize = static_cast<uint64_t>(info.st_size);
  if (fileSize < kHeaderSize || !ReadAll(m_pFile, m_Header, kHeaderSize)) {
    Refuse("header cut short");
    return false;
  }
  m_bCompressed = ReadU32(m_Header + 8) == 1;
  m_ChunkCount = ReadU32(m_Header + 12);
  m_SlotSize = ReadU32(m_Header + 24);
  m_StaticSize = ReadU32(m_Header + 28);
  const uint32_t tableOffset = ReadU32(m_Header + 16);
  const uint32_t staticOffset = ReadU32(m_Header + 32);

  // A cache that could hold every chunk would never evict: read the file once.
  // 0 slots cannot stream either.
  if (m_MaxChunks >= m_ChunkCount) m_MaxChunks = 0;
  const uint64_t blockSize = m_MaxChunks == 0 ? fileSize : static_cast<uint64_t>(staticOffset) + m_StaticSize;

  const char* reason = nullptr;
  if (blockSize > fileSize) {
    Refuse("static part past the end of the file");
    return false;
  }
  if (m_ChunkCount != 0 &&
      (tableOffset == 0 || tableOffset + static_cast<uint64_t>(m_ChunkCount) * kRowSize > blockSize)) {
    Refuse("chunk table past the end of the data");
    return false;
  }
  if (staticOffset != 0 && staticOffset + static_cast<uint64_t>(m_StaticSize) > fileSize) {
    Refuse("static data past the end of the file");
    return false;
  }

  // The block always starts at offset 0, so header offsets index it directly.
  m_pStatic = new unsigned char[blockSize ? blockSize : 1];
  FileSystem::FileSeek(m_pFile, 0, SEEK_SET);
  if (!ReadAll(m_pFile, m_pStatic, blockSize)) {
    Refuse("read failed");
    return false;
  }
  m_pStaticData = staticOffset ? m_pStatic + staticOffset : nullptr;
  m_pTable = m_ChunkCount ? m_pStatic + tableOffset : nullptr;
  if (!Validate(fileSize, reason)) {
    Refuse(reason);
    return false;
  }

  if (m_MaxChunks == 0) {
    FileSystem::FileClose(m_pFile);
    m_pFile = nullptr;
    return true;
  }
  m_pReadBuffer = new unsigned char[m_SlotSize ? m_SlotSize : 1];
  m_pChunkMemory = new unsigned char[static_cast<size_t>(m_MaxChunks) * m_SlotSize + 1];
  m_pEntries = new CacheEntry[m_MaxChunks];
  for (uint32_t i = 0; i < m_MaxChunks; ++i) {
    m_pEntries[i] = CacheEntry{-1, 0, m_pChunkMemory + static_cast<size_t>(i) * m_SlotSize, 0};
  }
  return true;
}

bool StreamedFile::Validate(uint64_t fileSize, const char*& reason) const {
  if (m_MaxChunks != 0 &&
      (m_SlotSize > kMaxSlotSize || static_cast<uint64_t>(m_MaxChunks) * m_SlotSize > kMaxCacheSize)) {
    reason = "slot size too large";
    return false;
  }
  for (uint32_t id = 0; id < m_ChunkCount; ++id) {
    const Row row = GetRow(id);
    if (static_cast<uint64_t>(row.m_Offset) + row.m_StoredSize > fileSize) {
      reason = "chunk past the end of the file";
      return false;
    }
    if (m_MaxChunks != 0 && (row.m_StoredSize > m_SlotSize || row.m_Size > m_SlotSize)) {
      reason = "chunk larger than a slot";
      return false;
    }
  }
  return true;
}

void StreamedFile::Unload() {
  delete[] m_pStatic;
  m_pStatic = nullptr;
  m_pStaticData = nullptr;
  m_pTable = nullptr;
  if (m_pFile) {
    FileSystem::FileClose(m_pFile);
    m_pFile = nullptr;
  }
  delete[] m_pChunkMemory;
  m_pChunkMemory = nullptr;
  delete[] m_pEntries;
  m_pEntries = nullptr;
  delete[] m_pReadBuffer;
  m_pReadBuffer = nullptr;
  m_ChunkCount = 0;
}

bool StreamedFile::FindChunk(uint32_t id, CacheEntry*& entry) const {
  entry = nullptr;
  for (uint32_t i = 0; i < m_MaxChunks; ++i) {
    CacheEntry& e = m_pEntries[i];
    if (e.m_Id == static_cast<int32_t>(id)) {
      entry = &e;
      return true;
    }
    // The last unreferenced slot is the one to reuse; the first slot never is.
    if (i > 0 && e.m_RefCount == 0) entry = &e;
  }
  return false;
}

bool StreamedFile::ReadChunk(const Row& row, unsigned char* slot, uint32_t& size) {
  if (FileSystem::FileSeek(m_pFile, static_cast<long>(row.m_Offset), SEEK_SET) != 0) return false;
  if (!m_bCompressed) {
    size = row.m_StoredSize;
    return ReadAll(m_pFile, slot, row.m_StoredSize);
  }
  if (!ReadAll(m_pFile, m_pReadBuffer, row.m_StoredSize)) return false;
  unsigned long length = m_SlotSize;
  if (!Inflater::Inflate(slot, length, m_pReadBuffer, row.m_StoredSize)) return false;
  size = static_cast<uint32_t>(length);
  return true;
}

unsigned char* StreamedFile::LoadChunk(uint32_t id) {
  if (!m_pStatic || id >= m_ChunkCount) return nullptr;
  if (m_MaxChunks == 0) return m_pStatic + GetRow(id).m_Offset;
  if (!m_pFile) return nullptr;

  CacheEntry* entry;
  if (FindChunk(id, entry)) {
    ++entry->m_RefCount;
    return entry->m_pSlot;
  }
  if (!entry) return nullptr;

  // The slot's old chunk is gone from here on, whatever the read gives.
  entry->m_Id = -1;
  entry->m_Size = 0;
  uint32_t size = 0;
  if (!ReadChunk(GetRow(id), entry->m_pSlot, size)) {
    AutomationPrintf("StreamedFile: %s chunk %u unreadable", m_Path.c_str(), id);
    return nullptr;
  }
  entry->m_RefCount = 1;
  entry->m_Id = static_cast<int32_t>(id);
  entry->m_Size = size;
  return entry->m_pSlot;
}

bool StreamedFile::ReleaseChunk(uint32_t id) {
  if (m_MaxChunks == 0) return true;
  CacheEntry* entry;
  if (!FindChunk(id, entry)) return false;
  if (entry->m_RefCount > 0) --entry->m_RefCount;
  return entry->m_RefCount > 0;
}

unsigned char* StreamedFile::GetLoadedChunk(uint32_t id) const {
  if (!m_pStatic || id >= m_ChunkCount) return nullptr;
  if (m_MaxChunks == 0) return m_pStatic + GetRow(id).m_Offset;
  CacheEntry* entry;
  return FindChunk(id, entry) && entry->m_RefCount > 0 ? entry->m_pSlot : nullptr;
}

uint32_t StreamedFile::GetChunkSize(uint32_t id) const {
  if (!m_pStatic || id >= m_ChunkCount) return 0;
  if (m_MaxChunks == 0) return GetRow(id).m_StoredSize;
  CacheEntry* entry;
  return FindChunk(id, entry) && entry->m_RefCount > 0 ? entry->m_Size : 0;
}

}  // namespace nox
