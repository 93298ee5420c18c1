// A player's own spelling list ("create your own"), as an activity draws from it. The
// platform supplies the list (CYO_pf); CYOData keeps how often each word was spelled
// right. Words are drawn in shuffled rounds of the words still open, topped up to five
// from the whole list; a word spelled right often enough is mastered, here and on the
// platform.
//
// Construction does all the setting up and ends in a status: kReady with a usable
// list, or the reason there is none. Without a list the activity simply goes on
// without one.
#pragma once
#include <cstdint>
#include <vector>

#include "core/RandomExhaustiveList.h"
#include "learning/CYOData.h"
#include "platform/CYO_pf.h"

namespace noxfw {

class CYO : public CYO_pf {
 public:
  enum Status {
    kReady = 0,
    kStoreFailed = 1,  // the counts could not be written
    kNoList = 3,       // the platform has no list, or an empty one
    kAllMastered = 4,
  };

  CYO();

  // A copy of the next word; an empty record when there is no usable list.
  CYOStoreData GetNextWordData();
  // Counts a correct spelling of the word last drawn and writes the counts; a word that
  // reaches the completion parameter is marked mastered on the platform too.
  void CurrWordSpelledCorrectly();
  bool WordListMastered() const;
  // Starts the counts afresh from the platform's list; false when they can't be written.
  bool ResetWordList();
  uint32_t GetID() const { return GetPlatformID(); }
  uint32_t GetCompletionParam() const { return m_CompletionParam; }
  // The platform has a list with words in it.
  bool CYOFileAvailable() const { return m_bLoaded && m_Size > 0; }

  int GetStatus() const { return m_Status; }
  bool IsListValid() const { return m_bListValid; }
  const CYOData& GetData() const { return m_Data; }
  const CYOStoreData& GetCurrentWord() const { return m_Current; }

 private:
  // The platform's list as records: index, word, audio, status, no spellings yet.
  void ConstructWordList();

  CYOData m_Data;
  CYOStoreData m_Current;  // the word last drawn
  nox::RandomExhaustiveList<CYOStoreData> m_List;
  int m_Status = kReady;
  bool m_bListValid = false;
  std::vector<CYOStoreData> m_Words;  // the platform's list
};

}  // namespace noxfw
