// GameSceneManager: the story rules that overrule the scene table when a scene ends.
// Zones are numbered 0 to 4 in the save block; quest records are the save block's
// quest flags (in progress, complete), four to a zone.
#include <algorithm>

#include "core/Settings.h"
#include "core/Vector3.h"
#include "learning/Logger.h"
#include "save/GameSaveGame.h"
#include "shell/GameSceneManager.h"

namespace game {

namespace {

bool BoolSetting(const char* name) {
  nox::Settings* settings = nox::Settings::s_pSettings;
  return settings && settings->GetBoolValue(name);
}

uint32_t U32Setting(const char* name, uint32_t fallback) {
  nox::Settings* settings = nox::Settings::s_pSettings;
  return settings ? settings->GetU32Value(name) : fallback;
}

void LogGameEnter(const char* mode) {
  noxfw::LogEventData data;
  data.name = mode;
  noxfw::Logger::LogEnter("Game", data);
}

// The pending unlocks of zones 3 and 4 (bytes 2 and 3 of the story word at 1880), with
// the quest record each one resumes.
const int kPendingZones[2] = {3, 4};
const int kPendingQuests[2] = {11, 15};
const int kZone2Quest = 7;       // its first byte with story flag 7 marks a return to zone 2
const int kZone2ReturnFlag = 7;  // story flag at 1879
const int kZone2ReturnWord = 5;

}  // namespace

noxfw::SceneData GameSceneManager::GetNextScene(eExitReason reason) {
  noxfw::SceneData row = noxfw::SceneManager::GetNextScene(reason);
  if (row.id == kSceneSettings) return row;
  const unsigned long id = GetSceneId();
  unsigned long next = row.id;
  switch (id) {
    case kSceneMainMenu:
      if (reason > noxfw::ExitReason::Quit) next = NextFromMainMenu(next);
      break;
    case kSceneActivityPicker:
      next = NextFromActivityPicker(reason, next);
      break;
    case kSceneZonePicker:
      next = NextFromZonePicker(reason, next);
      break;
    case kSceneAdventure:
      next = NextFromAdventure(reason);
      break;
    default:
      if (m_GameMode != Story) break;
      if (IsActivity(id)) {
        next = NextFromActivity(reason, next);
      } else if (id == kScenePlayAgainA1) {
        next = NextFromPlayAgainA1(reason, next);
      } else if (id == kSceneAdventureLog) {
        next = kSceneAdventure;
      }
      break;
  }
  if (next == row.id) return row;
  return GetSceneDataFromTable(next);
}

unsigned long GameSceneManager::NextFromMainMenu(unsigned long tableId) {
  switch (GetMenuSelection()) {
    case 1:
      SetGameMode(Activity);
      LogGameEnter("AM");
      m_bGameLogOpen = true;
      return kSceneActivityPicker;
    case 2: {
      LogGameEnter("SM");
      SetGameMode(Story);
      m_bGameLogOpen = true;
      GameSaveGame* save = GameSaveGame::s_pSaveGame;
      if (BoolSetting("Activate Quest Cheats")) {
        const uint32_t zone = std::max<uint32_t>(U32Setting("Zone Index", 1), 1);
        const uint32_t quest = U32Setting("Quest Index", 1);
        PickQuest((zone - 1) * 4 + quest);
        if (save) save->GetBlock().adventureFlag = 0;
        return kSceneAdventure;
      }
      if (save && save->GetBlock().adventureFlag && !BoolSetting("Unlock All Adventure Zones")) {
        return kSceneZone1Intro;
      }
      return kSceneZonePicker;
    }
    case 3:
      return kSceneMicromodMenu;
    case 4:
      return kSceneBadgeMenu;
    case 5:
      SetGameMode(Activity);
      LogGameEnter("AM");
      m_bGameLogOpen = true;
      return kSceneAdventureLog;
    default:
      return tableId;
  }
}

unsigned long GameSceneManager::NextFromActivityPicker(eExitReason reason, unsigned long tableId) {
  if (reason == noxfw::ExitReason::Back) return tableId;
  switch (GetMenuSelection()) {
    case 1:
      return 22;
    case 2:
      return 20;
    case 3:
      return 24;
    case 4:
      return 26;
    case 5:
      return kSceneMainMenu;
    default:
      return tableId;
  }
}

void GameSceneManager::OpenZone(GameSaveGame& save, int zone) {
  GameSaveData& block = save.GetBlock();
  ClearQuestsInZone(zone);
  block.currentZone = static_cast<uint32_t>(zone);
  block.zoneWords[zone] = zone == 4 ? 4 : 0;
  block.storyFlags[2 + zone] = 1;  // the zone's intro flag, offset 1874 + zone
  block.zoneUnlocked[zone] = 1;
}

unsigned long GameSceneManager::NextFromZonePicker(eExitReason reason, unsigned long tableId) {
  if (reason == noxfw::ExitReason::Back) return tableId;
  unsigned long next = kSceneAdventure;
  const unsigned long z = GetMenuSelection();
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (save && z >= 1 && z <= kZoneCount) {
    GameSaveData& block = save->GetBlock();
    const int zone = static_cast<int>(z) - 1;
    block.currentZone = static_cast<uint32_t>(zone);
    // Zones 3 and 4 first settle a pending unlock.
    for (int i = 0; i < 2; ++i) {
      if (zone != kPendingZones[i] || !block.storyPending[2 + i]) continue;
      block.storyPending[2 + i] = 0;
      block.questData[kPendingQuests[i]].complete = 0;
      block.questData[kPendingQuests[i]].inProgress = 1;
    }
    const SavedQuestData& opening = block.questData[4 * zone + 1];
    const bool started = (opening.inProgress || opening.complete) && !block.questData[4 * zone + 3].complete;
    if (!started) {
      ClearQuestsInZone(zone);
      block.zoneWords[zone] = zone == 4 ? 4 : 0;
      block.storyFlags[2 + zone] = 1;
      next = kSceneZone1Intro + zone;
    }
  }
  LogZoneAccessesAfterStoryComplete();
  return next;
}

unsigned long GameSceneManager::TakePendingZone(GameSaveGame& save) {
  GameSaveData& block = save.GetBlock();
  for (int i = 0; i < 2; ++i) {
    if (!block.storyPending[2 + i]) continue;
    block.storyPending[2 + i] = 0;
    const int zone = kPendingZones[i];
    if (block.zoneUnlocked[zone]) return kSceneMainMenu;
    OpenZone(save, zone);
    return kSceneZone1Intro + zone;
  }
  return 0;
}

unsigned long GameSceneManager::NextFromActivity(eExitReason reason, unsigned long tableId) {
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save) return tableId;
  GameSaveData& block = save->GetBlock();
  SavedQuestState state = block.questState;
  unsigned long next = tableId;
  const bool ended = reason == noxfw::ExitReason::Complete || reason == noxfw::ExitReason::Incomplete;
  if (!ended && !BoolSetting("Automatically Complete Minigames")) {
    // Left early: the quest that sent the child here is resumed.
    for (int i = 0; i < 2; ++i) {
      if (!block.storyPending[2 + i]) continue;
      block.storyPending[2 + i] = 0;
      block.questData[kPendingQuests[i]].complete = 0;
      block.questData[kPendingQuests[i]].inProgress = 1;
    }
    if (block.questData[kZone2Quest].inProgress && block.storyFlags[kZone2ReturnFlag]) {
      block.storyFlags[kZone2ReturnFlag] = 0;
      if (state.flag) {
        block.zoneWords[1] = kZone2ReturnWord;
        save->SetHeroinePosition(1, nox::Vector3(nox::Real(2030), nox::Real(870), nox::Real(0)));
        next = kSceneAdventure;
      }
    }
  } else {
    state.flag = 1;
    const unsigned long pending = TakePendingZone(*save);
    if (pending) next = pending;
  }
  block.questState = state;
  const unsigned long id = GetSceneId();
  if (id == kSceneActivity4 && ended) {
    const uint32_t object = state.words[2];
    if (object < 41 && !block.journalDiagramPlayed[object]) {
      block.firstQuestStarted = 1;
      block.bytes1764[1] = 1;
      block.journalDiagramPlayed[object] = 1;
    }
    const int zone = save->GetCurrentZone();
    if (zone <= 3) {
      if (GetPTTsCompletedInZone(zone)) AwardBadge(zone + 19);
    } else {
      AwardBadge(23);
    }
  }
  return next;
}

unsigned long GameSceneManager::NextFromPlayAgainA1(eExitReason reason, unsigned long tableId) {
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save || reason != noxfw::ExitReason::MenuBack) return tableId;
  GameSaveData& block = save->GetBlock();
  const SavedQuestState& state = block.questState;
  if (block.questData[kZone2Quest].inProgress && block.storyFlags[kZone2ReturnFlag]) {
    block.storyFlags[kZone2ReturnFlag] = 0;
    if (state.flag) {
      block.zoneWords[1] = kZone2ReturnWord;
      save->SetHeroinePosition(1, nox::Vector3(nox::Real(2030), nox::Real(870), nox::Real(0)));
      return kSceneAdventure;
    }
    return tableId;
  }
  if (state.flag) {
    const unsigned long pending = TakePendingZone(*save);
    if (pending) return pending;
  }
  return tableId;
}

unsigned long GameSceneManager::NextFromAdventure(eExitReason reason) {
  if (reason == noxfw::ExitReason::Jump) return m_JumpSceneId;
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (reason != noxfw::ExitReason::Complete || !save) return kSceneMainMenu;
  GameSaveData& block = save->GetBlock();
  if (block.flag1884) {
    block.flag1884 = 0;
    return kSceneZone5Outro;
  }
  // Bytes 0 and 1 of the story word at 1880: zones 1 and 2 (0-based) are due.
  for (int zone = 1; zone <= 2; ++zone) {
    if (!block.storyPending[zone - 1]) continue;
    block.storyPending[zone - 1] = 0;
    if (block.zoneUnlocked[zone]) return kSceneMainMenu;
    OpenZone(*save, zone);
    return kSceneZone1Intro + zone;
  }
  return kSceneMainMenu;
}

}  // namespace game
