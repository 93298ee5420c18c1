// The download packages installed for the current player. At creation it reads each
// package's "meta.inf" (package id, short name) and appends the package's "Files"
// directory to every search list of the path registry, so packages override the
// title's assets; the registry must therefore exist first. A package whose meta.inf
// is missing is skipped; one whose meta.inf cannot be read is skipped with one
// automation line naming it. Singleton; records are owned here.
#pragma once
#include <map>
#include <string>
#include "core/NoCopy.h"

namespace nox {

struct DownloadRecord {
  std::string m_PackageId;
  char m_ShortName[32] = {};  // at most 31 characters kept
  char m_Path[64] = {};       // package directory; at most 63 characters kept
};

class DownloadManager : public NoCopy {
 public:
  static void Create();
  static void Destroy();
  static DownloadManager* Get() { return sm_pInstance; }

  void FindDownloads();
  void RegisterPaths();

  bool IsDownloaded(const std::string& packageId) const;
  // The package's directory; empty for a package that is not installed.
  std::string GetPath(const std::string& packageId) const;
  // The record of an installed package, or null.
  const DownloadRecord* GetRecord(const std::string& packageId) const;
  size_t GetPackageCount() const { return m_Downloads.size(); }

 private:
  DownloadManager();
  ~DownloadManager();
  void ClearRecords();

  static DownloadManager* sm_pInstance;

  std::map<std::string, DownloadRecord*> m_Downloads;  // by package id, into m_pRecords
  DownloadRecord* m_pRecords = nullptr;                // owned array
  size_t m_RecordCount = 0;
};

}  // namespace nox
