#include "learning/CYOData.h"

#include <algorithm>
#include <cstring>

#include "core/PathRegistry.h"

namespace noxfw {

const char* const CYOData::kFileName = "CYOData.bin";

CYOData::CYOData() {}

CYOData::~CYOData() {
  CloseBackupFile();
  delete[] m_pRecords;
}

bool CYOData::OpenBackupFile(CYOStoreData* array, uint32_t count) {
  CloseBackupFile();
  m_bNoPersist = IsSessionWithoutProfile();
  if (m_bNoPersist) return true;
  nox::PathRegistry* paths = nox::PathRegistry::sm_pInstance;
  if (!paths || !array || count == 0) return false;
  std::string path = paths->GetLocalDataPath() + "/" + kFileName;
  m_pBackupFile = new nox::BackupFile(path, count * static_cast<uint32_t>(sizeof(CYOStoreData)), array);
  return true;
}

void CYOData::CloseBackupFile() {
  delete m_pBackupFile;
  m_pBackupFile = nullptr;
}

bool CYOData::InitCYOData(uint32_t count, uint32_t param) {
  CloseBackupFile();
  delete[] m_pRecords;
  // The platform caps its lists far below this; a larger count is not a list.
  if (count > kMaxRecords) count = 0;
  m_Count = count;
  m_CompletionParam = param;
  m_pRecords = new CYOStoreData[count ? count : 1]();
  if (!OpenBackupFile(m_pRecords, count)) return false;
  // Without a profile nothing was kept: the caller starts the counts afresh.
  if (m_bNoPersist) return false;
  if (!m_pBackupFile->Read()) {
    CloseBackupFile();
    return false;
  }
  FitCountsToParam();
  return true;
}

void CYOData::FitCountsToParam() {
  // The counts were made under the completion parameter of their day; the adult may
  // have changed it since. A mastered word stays mastered, an open word stays open
  // and is at most one spelling away from mastering.
  for (uint32_t i = 0; i < m_Count; ++i) {
    CYOStoreData& record = m_pRecords[i];
    if (record.status == CYOStoreData::kStatusMastered) {
      record.count = m_CompletionParam;
    } else if (record.count >= m_CompletionParam) {
      record.count = m_CompletionParam ? m_CompletionParam - 1 : 0;
    }
  }
}

bool CYOData::ResetCYOData(const CYOStoreData* records, uint32_t param) {
  m_CompletionParam = param;
  if (!m_pRecords || !records) return false;
  memcpy(m_pRecords, records, m_Count * sizeof(CYOStoreData));
  for (uint32_t i = 0; i < m_Count; ++i) {
    // A word the platform already counts as mastered needs no more spellings.
    m_pRecords[i].count = m_pRecords[i].status == CYOStoreData::kStatusMastered ? param : 0;
  }
  if (!m_bNoPersist && !m_pBackupFile && !OpenBackupFile(m_pRecords, m_Count)) return false;
  if (!CommitCYOData()) {
    CloseBackupFile();
    return false;
  }
  return true;
}

bool CYOData::ValidateStoreData(const CYOStoreData* records) const {
  if (!m_pRecords || !records) return false;
  for (uint32_t i = 0; i < m_Count; ++i) {
    const CYOStoreData& stored = m_pRecords[i];
    const CYOStoreData& wanted = records[i];
    // The word too: a list replaced by one of the same length must not inherit counts.
    if (stored.index != wanted.index || stored.status != wanted.status ||
        memcmp(stored.word, wanted.word, sizeof stored.word) != 0) {
      return false;
    }
  }
  return true;
}

void CYOData::CreateRandomList(nox::RandomExhaustiveList<CYOStoreData>& list) const {
  list.Clear();
  std::vector<bool> taken(m_Count, false);
  for (uint32_t i = 0; i < m_Count; ++i) {
    if (m_pRecords[i].count < m_CompletionParam) {
      list.Add(m_pRecords[i]);
      taken[i] = true;
    }
  }
  nox::GameHost* host = nox::GameHost::s_pGameHost;
  // Words already mastered keep a short round from repeating one word over and over:
  // first random ones, then, should the draws keep hitting the same few, in order.
  for (uint32_t attempt = 0; host && attempt < m_Count && list.Size() < kMinimumRound; ++attempt) {
    uint32_t r = host->GetRandomU32(m_Count);
    if (!taken[r]) {
      list.Add(m_pRecords[r]);
      taken[r] = true;
    }
  }
  for (uint32_t i = 0; i < m_Count && list.Size() < kMinimumRound; ++i) {
    if (!taken[i]) {
      list.Add(m_pRecords[i]);
      taken[i] = true;
    }
  }
  if (host) list.Shuffle();
}

bool CYOData::CommitCYOData() {
  if (m_bNoPersist) return true;
  if (!m_pBackupFile) return false;
  bool written = m_pBackupFile->Write();
  if (written) m_pBackupFile->CacheData();
  return written;
}

bool CYOData::IncrementWordCA(uint32_t i) {
  if (i >= m_Count) return false;
  CYOStoreData& record = m_pRecords[i];
  if (record.count >= m_CompletionParam) return false;
  ++record.count;
  if (record.count < m_CompletionParam) return false;
  record.status = CYOStoreData::kStatusMastered;
  return true;
}

uint32_t CYOData::GetWordCACount(uint32_t i) const {
  return i < m_Count ? m_pRecords[i].count : 0;
}

}  // namespace noxfw
