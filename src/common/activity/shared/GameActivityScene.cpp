#include "activity/shared/GameActivityScene.h"

#include "core/HashString.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "graphics/WindowManager.h"
#include "sequencer/AnimSeqItems.h"
#include "shell/GameSceneManager.h"
#include "sound/PlayCopy.h"
#include "sound/SoundManager.h"

namespace game {

NOX_RTTI_DEFINE(GameActivityScene, noxfw::ActivityScene);

namespace {

const char* const kClickSound = "h_OSTM_DefaultClickSfx_6";
const nox::NameHash kStylusTip = nox::HashString("StylusTip");

bool IsLargeScreen() {
  const nox::Screen* screen = nox::ScreenManager::Get();
  return screen && screen->GetDeviceWidth() == 480;
}

}  // namespace

nox::TileAnimation* GameActivityScene::MakePicture(nox::TileAnimData*& data, const char* name) {
  data = new nox::TileAnimData(name, false, false);
  nox::TileAnimation* picture = data->CreateCellAnimation();
  if (!picture) return nullptr;
  picture->SetVisible(false);
  picture->SetAnchorHash(nox::HashString("Origin"));
  picture->SetPosition(nox::Vector3(nox::Real(240), nox::Real(136), nox::Real(0)));
  GetScreenAnimations().AddAnimation(picture);
  return picture;
}

GameActivityScene::GameActivityScene(bool physicsOn) : noxfw::ActivityScene(physicsOn) {
  const bool large = IsLargeScreen();
  m_pDPad = MakePicture(m_pDPadData, "DPad");
  m_pStylus = MakePicture(m_pStylusData, large ? "Stylus_LPad" : "Stylus");
  m_pTrainingOverlay =
      MakePicture(m_pTrainingOverlayData, large ? "TrainingOverlay_LPad" : "TrainingOverlay");
  if (m_pDPad) m_pDPad->Hold(nox::HashString("Idle"));
  if (m_pStylus) m_pStylus->Hold(nox::HashString("Show"));
}

GameActivityScene::~GameActivityScene() {
  // Steps borrow the pictures: they go first, then the pictures, then their data.
  m_Sequencer.Empty();
  for (nox::TileAnimation* picture : {m_pDPad, m_pStylus, m_pTrainingOverlay}) {
    if (picture) GetScreenAnimations().RemoveAnimation(picture);
    delete picture;
  }
  delete m_pDPadData;
  delete m_pStylusData;
  delete m_pTrainingOverlayData;
}

void GameActivityScene::Update(unsigned long dt) {
  // The soft buttons lie above the scene and keep the touch that marks Hint, so the
  // scene's input may not come in that frame; the mark lasts until the windows'
  // update, which follows this one.
  TakeHintButton();
  noxfw::ActivityScene::Update(dt);
  if (!IsPaused()) m_Sequencer.Update(dt);
  m_bHintTaken = false;
}

bool GameActivityScene::TakeHintButton() {
  if (m_bHintTaken || IsPaused() || IsInputLocked()) return false;
  GameSceneManager* scenes = GameSceneManager::Get();
  if (!scenes || !scenes->GetHintButtonTouched()) return false;
  m_bHintTaken = true;
  scenes->TriggerHintButton();
  PressedHint();
  return true;
}

bool GameActivityScene::HandleInput(noxfw::ActivityView& view) {
  if (IsPaused() || IsInputLocked()) return false;
  if (TakeHintButton()) return true;
  return noxfw::ActivityScene::HandleInput(view);
}

void GameActivityScene::Pause() {
  // Closing the reminder gives the scene back to play, so the pause comes after it.
  GameSceneManager* scenes = GameSceneManager::Get();
  if (scenes && scenes->IsInputReminderOpen()) {
    if (nox::WindowManager* windows = nox::WindowManager::Get()) {
      windows->CloseWindow(scenes->GetInputReminder());
    } else {
      scenes->GetInputReminder()->Close();
    }
  }
  noxfw::ActivityScene::Pause();
}

// The scene manager pauses the scene for as long as the reminder lasts.
void GameActivityScene::StylusIsInvalid() {
  if (GameSceneManager* scenes = GameSceneManager::Get()) scenes->PlayStylusInputReminderIfNecessary();
}

void GameActivityScene::DPadIsInvalid() {
  if (GameSceneManager* scenes = GameSceneManager::Get()) scenes->PlayDPadInputReminderIfNecessary();
}

void GameActivityScene::ShowTrainingOverlay(bool show) {
  if (!m_pTrainingOverlay) return;
  m_pTrainingOverlay->SetVisible(show);
  if (!show) return;
  m_Sequencer.AppendItem(new noxfw::PlayAnimSequenceSeqItem(m_pTrainingOverlay, nox::HashString("Flash")));
  m_Sequencer.AppendItem(
      new noxfw::PlayAnimSequenceSeqItem(m_pTrainingOverlay, nox::HashString("Idle"), 0, true));
}

void GameActivityScene::ShowStylusAnimation(bool show) {
  if (m_pStylus) m_pStylus->SetVisible(show);
}

void GameActivityScene::StylusTapScreen() {
  if (!m_pStylus) return;
  const nox::Vector3 tip = m_pStylus->GetPoint(kStylusTip);
  const nox::Vector2 position(tip.x, tip.y);
  StylusDown(position);
  StylusUp(position);
}

void GameActivityScene::PlayClick() {
  PlayCopy(kClickSound, kClickCategory);
}

void GameActivityScene::PressedA() {
  PlayClick();
}

void GameActivityScene::PressedB() {
  PlayClick();
}

void GameActivityScene::PressedLeftShoulder() {
  PlayClick();
}

void GameActivityScene::PressedRightShoulder() {
  PlayClick();
}

void GameActivityScene::PressedDpad(bool left, bool right, bool up, bool down) {
  PlayClick();
}

void GameActivityScene::PressedHint() {
  PlayClick();
}

}  // namespace game
