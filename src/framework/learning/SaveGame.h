// What a title remembers of a player: one flat block, kept in memory for the whole run
// and written whole to one file in the player's save directory through a
// nox::BackupFile (backup copy, exact length check, atomic replacement). This template
// gives typed access to the framework's part of the block, SaveGameData<A, B, S, R>;
// a title derives from it, puts its own fields after that part in the same block,
// and supplies the block's ident and its reset values.
//
// The block belongs to the derived class; this object borrows it and owns the
// BackupFile. Nothing reads or writes by itself: the title calls ReadAllData once at
// start and WriteAllData at its checkpoints. A session without a profile (see
// SaveGame_pf) keeps everything in memory and reports success.
//
// Bad input: a file of the wrong length is not read (the BackupFile's rule); a whole
// file with another ident starts a new game. Accessors ignore indexes out of range.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "core/BackupFile.h"
#include "core/Debug.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "learning/SaveGameData.h"
#include "platform/SaveGame_pf.h"

namespace noxfw {

template <int A, int B, int S, int R>
class SaveGame : public SaveGame_pf {
 public:
  typedef SaveGameData<A, B, S, R> Data;

  static constexpr uint8_t kGradeAfterReset = 99;  // differs from every real grade
  static constexpr uint8_t kNoGrade = 255;         // the profile has no grade recorded

  virtual ~SaveGame() { delete m_pBackupFile; }

  // Loads the file; a missing, short, long or foreign file starts a new game and
  // answers false. Without a profile: a new game, true.
  virtual bool ReadAllData() {
    if (m_bNoPersist) {
      ResetData();
      return true;
    }
    if (m_pBackupFile && m_pBackupFile->Read() && ValidateData()) {
      InitializeLevelData(m_pData, m_bNoPersist);
      return true;
    }
    ResetData();
    return false;
  }

  // Writes the block if it changed since the last write; false when the block is not
  // valid or the file could not be replaced (the data then stay in memory only).
  virtual bool WriteAllData() {
    if (m_bNoPersist) return true;
    if (!ValidateData() || !m_pBackupFile) return false;
    bool written = m_pBackupFile->Write();
    // The next comparison is against what the disk now holds.
    if (written) m_pBackupFile->CacheData();
    return written;
  }

  virtual bool ValidateData() { return m_pData->ident == GetSaveGameDataIdent(); }
  virtual void ResetData() { InitializeData(m_pData, true, m_bNoPersist); }
  virtual void ResetLevelData() { InitializeLevelData(m_pData, m_bNoPersist); }

  virtual uint8_t GetData_ActivityLevel(int i) { return In(i, A) ? m_pData->activityLevel[i] : 0; }
  virtual uint8_t GetData_ActivitySublevel(int i) { return In(i, A) ? m_pData->activitySublevel[i] : 0; }
  virtual uint16_t GetData_ActivityRound(int i) { return In(i, A) ? m_pData->activityRound[i] : 0; }
  virtual uint16_t GetData_ActivityCa(int i) { return In(i, A) ? m_pData->activityCa[i] : 0; }
  virtual uint16_t GetData_ActivityWa(int i) { return In(i, A) ? m_pData->activityWa[i] : 0; }
  virtual bool GetData_ActivityPlayedTutorial(int i) {
    return In(i, A) && m_pData->activityPlayedTutorial[i];
  }
  virtual bool GetData_Badge(int i) { return In(i, B) && m_pData->badge[i]; }
  virtual uint32_t GetData_RandomExhaustIndex(int i) { return In(i, R) ? m_pData->randomExhaustIndex[i] : 0; }
  virtual uint32_t GetData_RandomExhaustSeed(int i) { return In(i, R) ? m_pData->randomExhaustSeed[i] : 0; }
  virtual bool GetData_SceneUnlocked(int i) { return In(i, S) && m_pData->sceneUnlocked[i]; }
  virtual bool GetData_SceneCompleted(int i) { return In(i, S) && m_pData->sceneCompleted[i]; }
  virtual uint8_t GetData_Grade() { return m_pData->grade; }
  virtual uint16_t GetData_SceneCount(int i) { return In(i, S) ? m_pData->sceneCount[i] : 0; }
  virtual uint8_t GetData_UnlockedCount() { return m_pData->unlockedCount; }
  virtual uint8_t GetData_LastSeenUnlockedCount() { return m_pData->lastSeenUnlockedCount; }
  virtual bool GetData_FirstActivation() { return m_pData->firstActivation != 0; }
  virtual uint32_t GetData_PlayTime() { return m_pData->playTime; }
  virtual uint32_t GetData_ModCount() { return m_pData->modCount; }

  virtual void SetData_ActivityLevel(int i, uint8_t v) {
    if (In(i, A)) m_pData->activityLevel[i] = v;
  }
  virtual void SetData_ActivitySublevel(int i, uint8_t v) {
    if (In(i, A)) m_pData->activitySublevel[i] = v;
  }
  virtual void SetData_ActivityRound(int i, uint16_t v) {
    if (In(i, A)) m_pData->activityRound[i] = v;
  }
  virtual void SetData_ActivityCa(int i, uint16_t v) {
    if (In(i, A)) m_pData->activityCa[i] = v;
  }
  virtual void SetData_ActivityWa(int i, uint16_t v) {
    if (In(i, A)) m_pData->activityWa[i] = v;
  }
  virtual void SetData_ActivityPlayedTutorial(int i, bool v) {
    if (In(i, A)) m_pData->activityPlayedTutorial[i] = v;
  }
  // Writes only a badge not yet earned, so that nothing here takes one back.
  virtual void SetData_Badge(int i, bool v) {
    if (In(i, B) && m_pData->badge[i] == 0) m_pData->badge[i] = v;
  }
  virtual void SetData_RandomExhaustIndex(int i, uint32_t v) {
    if (In(i, R)) m_pData->randomExhaustIndex[i] = v;
  }
  virtual void SetData_RandomExhaustSeed(int i, uint32_t v) {
    if (In(i, R)) m_pData->randomExhaustSeed[i] = v;
  }
  virtual void SetData_SceneUnlocked(int i, bool v) {
    if (In(i, S)) m_pData->sceneUnlocked[i] = v;
  }
  virtual void SetData_SceneCompleted(int i, bool v) {
    if (In(i, S)) m_pData->sceneCompleted[i] = v;
  }
  virtual void SetData_Grade(uint8_t v) { m_pData->grade = v; }
  virtual void SetData_SceneCount(int i, uint16_t v) {
    if (In(i, S)) m_pData->sceneCount[i] = v;
  }
  virtual void SetData_UnlockedCount(uint8_t v) { m_pData->unlockedCount = v; }
  virtual void SetData_LastSeenUnlockedCount(uint8_t v) { m_pData->lastSeenUnlockedCount = v; }
  virtual void IncUnlockedCount() { ++m_pData->unlockedCount; }
  virtual void SetData_FirstActivation(bool v) { m_pData->firstActivation = v; }
  virtual void SetData_PlayTime(uint32_t v) { m_pData->playTime = v; }
  virtual void SetData_ModCount(uint32_t v) { m_pData->modCount = v; }

  // True while the framework's part is what a new game has: a copy is set up as new
  // (keeping the seeds) and compared. The title's own fields are not looked at.
  virtual bool IsNewGame() {
    Data copy;
    memcpy(&copy, m_pData, sizeof(Data));
    // The framework's own version: a title's override would write past the copy.
    SaveGame::InitializeData(&copy, false, m_bNoPersist);
    return memcmp(&copy, m_pData, sizeof(Data)) == 0;
  }

  virtual uint32_t GetSaveGameDataIdent() = 0;

  // Sets `data` up as a new game. `reset` clears it first and draws fresh seeds;
  // otherwise the random-exhaust seeds and the reserved bytes stay.
  virtual void InitializeData(Data* data, bool reset, bool noPersist) {
    if (reset) memset(data, 0, sizeof(Data));
    data->ident = GetSaveGameDataIdent();
    memset(data->activityLevel, 0, sizeof data->activityLevel);
    memset(data->activitySublevel, 0, sizeof data->activitySublevel);
    memset(data->activityRound, 0, sizeof data->activityRound);
    memset(data->activityCa, 0, sizeof data->activityCa);
    memset(data->activityWa, 0, sizeof data->activityWa);
    memset(data->activityPlayedTutorial, 0, sizeof data->activityPlayedTutorial);
    memset(data->sceneCount, 0, sizeof data->sceneCount);
    memset(data->sceneUnlocked, 0, sizeof data->sceneUnlocked);
    memset(data->sceneCompleted, 0, sizeof data->sceneCompleted);
    memset(data->badge, 0, sizeof data->badge);
    memset(data->randomExhaustIndex, 0, sizeof data->randomExhaustIndex);
    data->unlockedCount = 0;
    data->lastSeenUnlockedCount = 0;
    data->playTime = 0;
    data->modCount = 0;
    data->firstActivation = 1;
    if (reset) {
      for (int i = 0; i < R; ++i) data->randomExhaustSeed[i] = FreshSeed();
    }
    // A grade no player has: the level set-up below takes every activity anew.
    data->grade = kGradeAfterReset;
    InitializeLevelData(data, noPersist);
  }

  // Stores the player's grade; when it differs from the one stored, every activity
  // starts again at the level that grade gives (grades 0 to 8: levels 2 to 10).
  virtual void InitializeLevelData(Data* data, bool noPersist) {
    uint8_t grade = GetPlayerGrade();
    if (grade == data->grade) return;
    data->grade = grade;
    SetAllActivitiesToLevel(data, grade <= 8 ? grade + 2 : 1);
  }

  bool IsNoPersist() const { return m_bNoPersist; }
  nox::BackupFile* GetBackupFile() { return m_pBackupFile; }
  Data* GetFrameworkData() { return m_pData; }

 protected:
  // `data` is the start of a block of `blockSize` bytes kept in the file `fileName`
  // ("/SaveGame.bin") of the save directory. Neither is touched here.
  SaveGame(Data* data, uint32_t blockSize, const char* fileName)
      : m_pData(data), m_pBackupFile(nullptr), m_bNoPersist(IsSessionWithoutProfile()) {
    nox::PathRegistry* paths = nox::PathRegistry::sm_pInstance;
    if (!m_bNoPersist && paths) {
      m_pBackupFile = new nox::BackupFile(paths->GetLocalDataPath() + fileName, blockSize, data);
    }
  }

  static void SetAllActivitiesToLevel(Data* data, int level) {
    for (int i = 0; i < A; ++i) {
      data->activityLevel[i] = static_cast<uint8_t>(level);
      data->activitySublevel[i] = 1;
      data->activityRound[i] = 0;
      data->activityCa[i] = 0;
      data->activityWa[i] = 0;
      data->activityPlayedTutorial[i] = 0;
      nox::AutomationPrintf("Setting the activity level to %d from the player's grade\n", level);
    }
  }

  static uint32_t FreshSeed() {
    nox::GameHost* host = nox::GameHost::s_pGameHost;
    return host ? host->GenerateRandomSeed() : 0;
  }

  Data* m_pData;                   // borrowed: the derived class's block
  nox::BackupFile* m_pBackupFile;  // owned; null without a profile or a path registry
  bool m_bNoPersist;

 private:
  static bool In(int i, int n) { return i >= 0 && i < n; }

  SaveGame(const SaveGame&) = delete;
  SaveGame& operator=(const SaveGame&) = delete;
};

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the block is stored as it lies in memory");

// The layout every title of this family shares: 316 bytes.
typedef SaveGameData<8, 35, 45, 1> StandardSaveGameData;
static_assert(sizeof(StandardSaveGameData) == 316, "framework part of the save block");
static_assert(offsetof(StandardSaveGameData, ident) == 0, "");
static_assert(offsetof(StandardSaveGameData, grade) == 4, "");
static_assert(offsetof(StandardSaveGameData, activityLevel) == 5, "");
static_assert(offsetof(StandardSaveGameData, activitySublevel) == 13, "");
static_assert(offsetof(StandardSaveGameData, activityRound) == 22, "");
static_assert(offsetof(StandardSaveGameData, activityCa) == 38, "");
static_assert(offsetof(StandardSaveGameData, activityWa) == 54, "");
static_assert(offsetof(StandardSaveGameData, activityPlayedTutorial) == 70, "");
static_assert(offsetof(StandardSaveGameData, sceneCount) == 78, "");
static_assert(offsetof(StandardSaveGameData, sceneUnlocked) == 168, "");
static_assert(offsetof(StandardSaveGameData, sceneCompleted) == 213, "");
static_assert(offsetof(StandardSaveGameData, badge) == 258, "");
static_assert(offsetof(StandardSaveGameData, randomExhaustSeed) == 296, "");
static_assert(offsetof(StandardSaveGameData, randomExhaustIndex) == 300, "");
static_assert(offsetof(StandardSaveGameData, unlockedCount) == 304, "");
static_assert(offsetof(StandardSaveGameData, lastSeenUnlockedCount) == 305, "");
static_assert(offsetof(StandardSaveGameData, firstActivation) == 306, "");
static_assert(offsetof(StandardSaveGameData, playTime) == 308, "");
static_assert(offsetof(StandardSaveGameData, modCount) == 312, "");

}  // namespace noxfw
