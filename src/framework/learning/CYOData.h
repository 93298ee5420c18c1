// The game's counts for a player's own word list: how often each word was spelled
// right, and which are mastered. Kept as an array of CYOStoreData in "CYOData.bin" in
// the save directory through a nox::BackupFile, whose length test (count x 128 bytes)
// turns away a file made for a list of another size. The array is owned here; the
// BackupFile borrows it. A session without a profile keeps the counts in memory.
#pragma once
#include <cstdint>
#include <vector>

#include "core/BackupFile.h"
#include "core/RandomExhaustiveList.h"
#include "learning/CYOStoreData.h"
#include "platform/CYOData_pf.h"

namespace noxfw {

class CYOData : public CYOData_pf {
 public:
  static const char* const kFileName;  // "CYOData.bin"
  // A drawing round offers at least this many words when the list has them.
  static constexpr uint32_t kMinimumRound = 5;
  static constexpr uint32_t kMaxRecords = 65536;

  CYOData();
  ~CYOData();
  CYOData(const CYOData&) = delete;
  CYOData& operator=(const CYOData&) = delete;

  // Makes room for `count` records and reads them from the file; false when no whole
  // file of that size is there (the file is then closed again). Counts read are
  // fitted to `param`: mastered words hold it, open words stay below it.
  bool InitCYOData(uint32_t count, uint32_t param);
  // Starts the counts afresh from `records` (m_Count of them) and writes them; false
  // when the file could not be written (it is closed, the counts are not usable).
  bool ResetCYOData(const CYOStoreData* records, uint32_t param);
  // True when every stored record has the index, word and status of `records`.
  bool ValidateStoreData(const CYOStoreData* records) const;
  // Fills `list` with the words not yet spelled `param` times, topped up from the
  // whole list to kMinimumRound distinct words, and shuffles it.
  void CreateRandomList(nox::RandomExhaustiveList<CYOStoreData>& list) const;
  bool CommitCYOData();
  // Counts one correct spelling of word `i`, stopping at the completion parameter;
  // true when this one made the word mastered.
  bool IncrementWordCA(uint32_t i);
  uint32_t GetWordCACount(uint32_t i) const;
  // Sets up the file over `array`, or nothing for a session without a profile.
  bool OpenBackupFile(CYOStoreData* array, uint32_t count);
  void CloseBackupFile();

  uint32_t GetCount() const { return m_Count; }
  uint32_t GetCompletionParam() const { return m_CompletionParam; }
  const CYOStoreData* GetRecord(uint32_t i) const { return i < m_Count ? &m_pRecords[i] : nullptr; }
  bool IsNoPersist() const { return m_bNoPersist; }
  bool IsFileOpen() const { return m_pBackupFile != nullptr; }

 private:
  void FitCountsToParam();

  nox::BackupFile* m_pBackupFile = nullptr;  // owned
  CYOStoreData* m_pRecords = nullptr;        // owned, m_Count records
  uint32_t m_Count = 0;
  uint32_t m_CompletionParam = 0;  // correct spellings that master a word
  bool m_bNoPersist = false;
};

}  // namespace noxfw
