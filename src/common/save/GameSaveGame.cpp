#include "save/GameSaveGame.h"

#include <cstring>

#include "core/HashString.h"
#include "core/Real.h"

namespace game {

const char* const GameSaveGame::kFileName = "/SaveGame.bin";
GameSaveGame* GameSaveGame::s_pSaveGame = nullptr;

void GameSaveGame::Create() {
  if (!s_pSaveGame) s_pSaveGame = new GameSaveGame();
}

void GameSaveGame::Destroy() {
  delete s_pSaveGame;
  s_pSaveGame = nullptr;
}

GameSaveGame::GameSaveGame() : SaveGame(&m_Block.framework, sizeof(GameSaveData), kFileName) {
  // Zeros, not a new game: a file that is not read leaves a block that fails the ident.
  memset(&m_Block, 0, sizeof m_Block);
}

GameSaveGame::~GameSaveGame() {}

void GameSaveGame::InitializeData(Data* data, bool reset, bool noPersist) {
  // `data` is always the start of a whole block: the framework part comes first.
  GameSaveData* block = reinterpret_cast<GameSaveData*>(data);
  if (reset) memset(block, 0, sizeof *block);
  SaveGame::InitializeData(data, reset, noPersist);

  block->ridingFirstVisit = 1;
  block->ridingBestTimeMS = 1000000;
  block->ridingBestScore = 0;
  block->archeryFirstVisit = 1;
  block->archeryBestScore = 0;
  block->archerySecondStarCounter = 0;
  block->archeryThirdStarCounter = 0;
  block->tripletsFirstVisit = 1;
  block->tripletsBestTimeS = 1000000;
  block->tripletsPuzzlesFinished = 0;
  block->tripletsNextLevel = 0;
  block->pinTailFirstVisit = 1;
  memset(block->pinTailWords, 0, sizeof block->pinTailWords);
  block->pinTailObject = kPinTheTailObjects;
  memset(block->pinTailObjectFlags, 0, sizeof block->pinTailObjectFlags);
  memset(block->pinTailPlayedLevel1, 0, sizeof block->pinTailPlayedLevel1);
  memset(block->pinTailPlayedLevel2, 0, sizeof block->pinTailPlayedLevel2);
  memset(block->pinTailLevelUpProgress, 0, sizeof block->pinTailLevelUpProgress);
  memset(block->pinTailLevelDownProgress, 0, sizeof block->pinTailLevelDownProgress);
  memset(block->pinTailAchievementFlags, 0, sizeof block->pinTailAchievementFlags);
  block->journalTutorialSeen = 0;
  block->badgeMenuSeen = 0;
  block->firstQuestStarted = 0;
  memset(block->zoneWords, 0, sizeof block->zoneWords);
  memset(block->heroinePosition, 0, sizeof block->heroinePosition);
  block->currentZone = 0;
  memset(block->runeBits, 0, sizeof block->runeBits);
  block->adventureFlag = 1;
  block->adventureLogUnlocked = 0;
  block->bowAndArrowUnlocked = 0;
  for (int z = 0; z < kZoneCount; ++z) block->zoneUnlocked[z] = z == 0;
  block->modState = 254;
  memset(block->modLimits, 224, sizeof block->modLimits);
  memset(block->modBytes, 0, sizeof block->modBytes);
  block->mainMenuWispSkin = nox::HashString("Idle");
  memset(block->modSkinBytes, 0, sizeof block->modSkinBytes);
  for (SavedJournalFact& fact : block->journalFacts) {
    fact.locked = 1;
    fact.flags[0] = 0;
    fact.flags[1] = 0;
    fact.marker = -1;
    fact.voiceIndex = 0;
    fact.voiceSeed = FreshSeed();
  }
  memset(block->journalDiagramPlayed, 0, sizeof block->journalDiagramPlayed);
  memset(block->questConditions, 0, sizeof block->questConditions);
  memset(block->questData, 0, sizeof block->questData);
  for (SavedRandomList& list : block->randomLists) {
    list.index = 0;
    list.seed = FreshSeed();
  }
  memset(block->bytes1680, 0, sizeof block->bytes1680);
  memset(block->predictionPlayed, 0, sizeof block->predictionPlayed);
  memset(block->words1744, 0, sizeof block->words1744);
  memset(block->bytes1756, 0, sizeof block->bytes1756);
  block->word1760 = 0;
  memset(block->bytes1764, 0, sizeof block->bytes1764);
  memset(&block->questState, 0, sizeof block->questState);
  memset(block->pinTailPuzzleCounts, 0, sizeof block->pinTailPuzzleCounts);
  block->word1868 = 0;
  memset(block->storyFlags, 0, sizeof block->storyFlags);
  memset(block->storyPending, 0, sizeof block->storyPending);
  block->flag1884 = 0;
}

void GameSaveGame::InitializeLevelData(Data* data, bool noPersist) {
  // Touches the framework part only: IsNewGame runs this on a copy of that part alone.
  uint8_t grade = GetPlayerGrade();
  uint8_t before = data->grade;
  data->grade = grade;
  if (grade == before) return;
  SetAllActivitiesToLevel(data, !noPersist && grade >= 1 && grade <= 8 ? 2 : 1);
}

bool GameSaveGame::ApplyPlayerGrade(uint8_t grade) {
  uint8_t saved = GetData_Grade();
  if (grade > saved || (saved == kNoGrade && grade != kNoGrade)) {
    ResetLevelData();
    return true;
  }
  return false;
}

void GameSaveGame::AddRunPlayTime(uint32_t frameMS) {
  int32_t seconds = (nox::Real(frameMS) / nox::Real(1000.0)).ToInt();
  SetData_PlayTime(GetData_PlayTime() + static_cast<uint32_t>(seconds));
}

uint64_t GameSaveGame::GetQuestConditions(int quest) const {
  if (quest < 0 || quest >= kQuestCount) return 0;
  return m_Block.questConditions[quest][0] | (uint64_t(m_Block.questConditions[quest][1]) << 32);
}

void GameSaveGame::SetQuestConditions(int quest, uint64_t conditions) {
  if (quest < 0 || quest >= kQuestCount) return;
  m_Block.questConditions[quest][0] = static_cast<uint32_t>(conditions);
  m_Block.questConditions[quest][1] = static_cast<uint32_t>(conditions >> 32);
}

nox::Vector3 GameSaveGame::GetHeroinePosition(int zone) const {
  if (zone < 0 || zone >= kZoneCount) return nox::Vector3();
  const SavedVector3& p = m_Block.heroinePosition[zone];
  return nox::Vector3(nox::Real::FromRaw(p.x), nox::Real::FromRaw(p.y), nox::Real::FromRaw(p.z));
}

void GameSaveGame::SetHeroinePosition(int zone, const nox::Vector3& position) {
  if (zone < 0 || zone >= kZoneCount) return;
  SavedVector3& p = m_Block.heroinePosition[zone];
  p.x = position.x.Raw();
  p.y = position.y.Raw();
  p.z = position.z.Raw();
}

int GameSaveGame::GetCurrentZone() const {
  return m_Block.currentZone < static_cast<uint32_t>(kZoneCount) ? static_cast<int>(m_Block.currentZone) : 0;
}

bool GameSaveGame::GetStoryFlag(int i) const {
  return i >= 0 && i < kStoryFlags && m_Block.storyFlags[i];
}

void GameSaveGame::SetStoryFlag(int i, bool set) {
  if (i >= 0 && i < kStoryFlags) m_Block.storyFlags[i] = set;
}

}  // namespace game
