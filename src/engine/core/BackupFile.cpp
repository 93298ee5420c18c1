#include "core/BackupFile.h"

#include <cstring>

namespace nox {

BackupFile::BackupFile(const std::string& fileName, uint32_t size, void* data)
    : m_pData(data), m_pCache(new unsigned char[size ? size : 1]()), m_Size(size), m_FileName(fileName) {}

BackupFile::~BackupFile() {
  delete[] m_pCache;
}

bool BackupFile::IsCacheDirty() const {
  return memcmp(m_pData, m_pCache, m_Size) != 0;
}

void BackupFile::CacheData() {
  memcpy(m_pCache, m_pData, m_Size);
  m_bNeedsCache = false;
}

bool BackupFile::ReadWhole(const std::string& name, FILE*& file) {
  file = OpenFileForReadWrite(name.c_str(), "rb");
  if (!file) return false;
  if (fseek(file, 0, SEEK_END) != 0 || ftell(file) != static_cast<long>(m_Size)) return false;
  if (fseek(file, 0, SEEK_SET) != 0) return false;
  return fread(m_pCache, 1, m_Size, file) == m_Size;
}

bool BackupFile::Read() {
  m_bFileRead = false;
  m_bBackupRead = false;

  FILE* file = nullptr;
  if (ReadWhole(m_FileName, file)) {
    m_bFileRead = true;
    memcpy(m_pData, m_pCache, m_Size);
    WriteBackupFile();
  }
  if (file) fclose(file);
  if (m_bFileRead) return true;

  file = nullptr;
  if (ReadWhole(GetBackupFileName(), file)) {
    m_bBackupRead = true;
    // The backup proves a save existed; what is written back is the live data the
    // caller prepared, and the cache ends equal to it.
    memcpy(m_pCache, m_pData, m_Size);
    WriteFile();
  }
  if (file) fclose(file);
  return m_bFileRead || m_bBackupRead;
}

bool BackupFile::Write() {
  if (!IsCacheDirty()) return m_bWriteOK;
  m_bWriteOK = false;
  m_bBackupOK = false;
  m_bFileRead = false;

  FILE* file = nullptr;
  if (ReadWhole(m_FileName, file)) {
    m_bFileRead = true;
    WriteBackupFile();
  }
  if (file) fclose(file);

  WriteFile();
  return m_bWriteOK;
}

void BackupFile::WriteBackupFile() {
  m_bBackupOK = false;
  FILE* file = OpenFileForReadWrite(GetBackupFileName().c_str(), "wb");
  if (!file) return;
  // The cache, not the live data: it holds the main file as last read.
  bool whole = DoWrite(file, m_pCache, m_Size);
  m_bBackupOK = fclose(file) == 0 && whole;
}

void BackupFile::WriteFile() {
  m_bWriteOK = false;
  FILE* file = AtomicOpen(m_FileName.c_str(), "wb");
  if (!file) return;
  if (!DoWrite(file, m_pData, m_Size)) {
    // Never committed: the old main file stays.
    AtomicAbort(file);
    return;
  }
  m_bWriteOK = AtomicClose(file);
}

}  // namespace nox
