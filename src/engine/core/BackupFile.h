// A fixed-size save file that survives a crash or power loss at any moment. Write
// first copies the last good main file to "<name>.bak" (a plain write: it may be
// torn, but the main file is whole at that moment), then replaces the main file
// atomically, so the name always refers to the old or the new contents. A file is
// valid only if its length is exactly the size given; Read falls back to the ".bak"
// when the main file is missing or of another length.
//
// The live data belong to the caller; this object keeps a private copy (the cache)
// of what is on disk and skips a Write that would change nothing. After a Write that
// succeeded the caller calls CacheData so the next comparison is against the disk.
// Each operation opens and closes its own files.
#pragma once
#include <cstdint>
#include <string>
#include "platform/BackupFile_pf.h"

namespace nox {

class BackupFile : public BackupFile_pf {
 public:
  BackupFile(const std::string& fileName, uint32_t size, void* data);
  ~BackupFile();

  // True when the main file was read into the live data, or when only the backup
  // was whole, in which case the live data (the caller's defaults) are written as
  // the new main file. False with the live data untouched when neither is whole.
  bool Read();
  // Writes the live data if they differ from the cache; returns whether the main
  // file now holds them (or the last result, when nothing changed).
  bool Write();
  bool IsCacheDirty() const;
  void CacheData();

  const std::string& GetFileName() const { return m_FileName; }
  std::string GetBackupFileName() const { return m_FileName + ".bak"; }
  uint32_t GetSize() const { return m_Size; }
  bool WasWriteOK() const { return m_bWriteOK; }
  bool WasBackupOK() const { return m_bBackupOK; }
  bool WasFileRead() const { return m_bFileRead; }
  bool WasBackupRead() const { return m_bBackupRead; }
  bool NeedsCache() const { return m_bNeedsCache; }

 private:
  // Reads `name` into the cache if its length is exactly m_Size; the file is left
  // open in `file` for the caller to close.
  bool ReadWhole(const std::string& name, FILE*& file);
  void WriteBackupFile();
  void WriteFile();

  void* m_pData;            // live data, borrowed from the caller
  unsigned char* m_pCache;  // owned, m_Size bytes
  uint32_t m_Size;          // exact length of a valid file
  std::string m_FileName;   // full path of the main file
  bool m_bWriteOK = false;
  bool m_bBackupOK = false;
  bool m_bFileRead = false;
  bool m_bBackupRead = false;
  bool m_bNeedsCache = true;
};

}  // namespace nox
