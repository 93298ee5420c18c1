#include "learning/CYO.h"

#include <cstring>

namespace noxfw {

CYO::CYO() {
  memset(&m_Current, 0, sizeof m_Current);
  if (!CYOFileAvailable()) {
    m_Status = kNoList;
    return;
  }
  ConstructWordList();
  if (WordListMastered()) {
    m_Status = kAllMastered;
    return;
  }
  if (!m_Data.InitCYOData(m_Size, m_CompletionParam) || !m_Data.ValidateStoreData(m_Words.data())) {
    if (!ResetWordList()) {
      m_Status = kStoreFailed;
      return;
    }
  }
  m_Status = kReady;
  m_bListValid = true;
  m_Data.CreateRandomList(m_List);
}

void CYO::ConstructWordList() {
  m_Words.assign(m_Size, CYOStoreData());
  for (uint32_t i = 0; i < m_Size; ++i) {
    CYOStoreData& record = m_Words[i];
    memset(&record, 0, sizeof record);
    record.index = i;
    record.SetWord(GetPlatformWord(i));
    record.SetAudio(GetPlatformAudio(i));
    record.status = GetPlatformStatus(i) == Vantle::CCyo::kStatusMastered ? CYOStoreData::kStatusMastered
                                                                          : CYOStoreData::kStatusOpen;
  }
}

bool CYO::ResetWordList() {
  if (m_Words.empty()) return false;
  if (m_Data.GetCount() != m_Words.size())
    m_Data.InitCYOData(static_cast<uint32_t>(m_Words.size()), m_CompletionParam);
  return m_Data.ResetCYOData(m_Words.data(), m_CompletionParam);
}

bool CYO::WordListMastered() const {
  if (m_Status == kAllMastered) return true;
  // Before the counts are read the platform's statuses tell; afterwards the counts.
  if (m_Data.GetCount() == 0) {
    for (const CYOStoreData& word : m_Words) {
      if (word.status != CYOStoreData::kStatusMastered) return false;
    }
    return true;
  }
  for (uint32_t i = 0; i < m_Data.GetCount(); ++i) {
    if (m_Data.GetRecord(i)->status != CYOStoreData::kStatusMastered) return false;
  }
  return true;
}

CYOStoreData CYO::GetNextWordData() {
  if (!m_bListValid) return m_Current;
  if (m_List.IsExhausted()) m_Data.CreateRandomList(m_List);
  if (m_List.IsEmpty()) return m_Current;
  m_Current = m_List.GetNext();
  return m_Current;
}

void CYO::CurrWordSpelledCorrectly() {
  if (!m_bListValid || m_Current.word[0] == '\0') return;
  uint32_t index = m_Current.index;
  if (m_Data.IncrementWordCA(index)) {
    m_Current.status = CYOStoreData::kStatusMastered;
    SetPlatformStatus(index, Vantle::CCyo::kStatusMastered);
    if (index < m_Words.size()) m_Words[index].status = CYOStoreData::kStatusMastered;
  }
  if (const CYOStoreData* record = m_Data.GetRecord(index)) m_Current.count = record->count;
  m_Data.CommitCYOData();
}

}  // namespace noxfw
