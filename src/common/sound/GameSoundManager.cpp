#include "sound/GameSoundManager.h"

namespace game {
namespace {

const unsigned long kIds[GameSoundManager::kCategoryCount] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
const unsigned long kSlots[GameSoundManager::kCategoryCount] = {1,
                                                                1,
                                                                2,
                                                                0,
                                                                2,
                                                                1,
                                                                1,
                                                                4,
                                                                1,
                                                                1,
                                                                GameSoundManager::kUnlimited,
                                                                GameSoundManager::kUnlimited,
                                                                GameSoundManager::kUnlimited};

bool s_bIsGame = false;  // sm_pInstance was made here

}  // namespace

void GameSoundManager::Create() {
  if (sm_pInstance) return;
  sm_pInstance = new GameSoundManager();
  s_bIsGame = true;
}

GameSoundManager* GameSoundManager::Get() {
  return s_bIsGame ? static_cast<GameSoundManager*>(sm_pInstance) : nullptr;
}

GameSoundManager::GameSoundManager() : m_ResidentSFX(0) {
  Initialise(kCategoryCount, kIds, kSlots);
  AddRule(&m_OverrideSame);
  AddRule(&m_OverrideAny);
  AddRule(&m_Duck);
  AddRule(&m_Restore);
  m_ResidentSFX.SetResourcePath("Audio/SFX/");
}

GameSoundManager::~GameSoundManager() {
  RemoveRule(&m_OverrideSame);
  RemoveRule(&m_OverrideAny);
  RemoveRule(&m_Duck);
  RemoveRule(&m_Restore);
  s_bIsGame = false;
}

}  // namespace game
