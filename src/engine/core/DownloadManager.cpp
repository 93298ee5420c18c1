#include "core/DownloadManager.h"

#include <cstring>
#include <vector>

#include "core/Debug.h"
#include "core/PathRegistry.h"
#include "ostra/BaseUtils.h"
#include "ostra/MetaInfo.h"
#include "ostra/MicroDownloads.h"
#include "ostra/System.h"

namespace nox {

DownloadManager* DownloadManager::sm_pInstance = nullptr;

namespace {

void CopyCut(char* dest, size_t size, const std::string& text) {
  size_t n = text.size() < size - 1 ? text.size() : size - 1;
  memcpy(dest, text.data(), n);
  dest[n] = '\0';
}

}  // namespace

void DownloadManager::Create() {
  if (!sm_pInstance) sm_pInstance = new DownloadManager();
}

void DownloadManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

DownloadManager::DownloadManager() {
  FindDownloads();
  RegisterPaths();
}

DownloadManager::~DownloadManager() {
  ClearRecords();
}

void DownloadManager::ClearRecords() {
  m_Downloads.clear();
  delete[] m_pRecords;
  m_pRecords = nullptr;
  m_RecordCount = 0;
}

void DownloadManager::FindDownloads() {
  ClearRecords();
  const std::vector<std::string> packages =
      Vantle::CMicroDownloads::get(Vantle::CSystem::GetCurrentPlayerID());
  if (packages.empty()) return;

  m_RecordCount = packages.size();
  m_pRecords = new DownloadRecord[m_RecordCount];
  for (size_t i = 0; i < packages.size(); ++i) {
    const std::string& path = packages[i];
    const std::string metaFile = path + "/meta.inf";
    if (!BaseUtils::FileExists(metaFile)) continue;

    Vantle::CMetaInfo meta(metaFile);
    const std::string id = meta.IsValid() ? meta.GetPackageId() : std::string();
    if (id.empty()) {
      AutomationPrintf("DownloadManager: unreadable %s, package skipped", metaFile.c_str());
      continue;
    }
    DownloadRecord& record = m_pRecords[i];
    record.m_PackageId = id;
    CopyCut(record.m_ShortName, sizeof(record.m_ShortName), meta.GetShortName());
    CopyCut(record.m_Path, sizeof(record.m_Path), path);
    if (path.size() >= sizeof(record.m_Path)) {
      AutomationPrintf("DownloadManager: package path %s cut to %d characters", path.c_str(),
                       static_cast<int>(sizeof(record.m_Path) - 1));
    }
    // A later package with the same id takes the key over.
    m_Downloads[id] = &record;
  }
}

void DownloadManager::RegisterPaths() {
  PathRegistry* registry = PathRegistry::sm_pInstance;
  if (!registry) return;
  for (const auto& entry : m_Downloads) {
    const std::string files = std::string(entry.second->m_Path) + "/Files";
    if (BaseUtils::FileExists(files)) registry->AddSearchDirectory(files);
  }
}

bool DownloadManager::IsDownloaded(const std::string& packageId) const {
  return m_Downloads.count(packageId) != 0;
}

const DownloadRecord* DownloadManager::GetRecord(const std::string& packageId) const {
  auto it = m_Downloads.find(packageId);
  return it == m_Downloads.end() ? nullptr : it->second;
}

std::string DownloadManager::GetPath(const std::string& packageId) const {
  const DownloadRecord* record = GetRecord(packageId);
  return record ? std::string(record->m_Path) : std::string();
}

}  // namespace nox
