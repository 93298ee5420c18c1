#include "shell/GameTitle.h"

#include "core/Settings.h"
#include "learning/Logger.h"
#include "ostra/MetaInfo.h"
#include "ostra/SystemData.h"

namespace game {

GameTitle::GameTitle() {}

GameTitle::~GameTitle() {}

void GameTitle::Enter() {
  noxfw::Title::Enter();
}

void GameTitle::HandleInput() {
  noxfw::Title::HandleInput();
}

void GameTitle::Update() {
  noxfw::Title::Update();
}

void GameTitle::Draw() {
  noxfw::Title::Draw();
}

void GameTitle::Leave() {
  noxfw::Title::Leave();
}

void GameTitle::Suspend() {
  m_bSuspended = true;
}

void GameTitle::Resume() {
  m_bSuspended = false;
}

}  // namespace game
