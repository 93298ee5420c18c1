#include "shell/GameExitPopUp.h"


#include "core/Debug.h"
#include "core/HashString.h"
#include "graphics/ScreenManager.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "graphics/WindowManager.h"
#include "input/Controller.h"
#include "input/Input.h"
#include "menu/Button.h"
#include "ostra/AppInterface.h"
#include "scenes/ExitReason.h"
#include "scenes/NisScene.h"
#include "sequencer/ClassFuncSeqItem.h"
#include "sequencer/SoundSeqItems.h"
#include "shell/DoneSceneSeqItem.h"
#include "shell/GameSceneManager.h"
#include "sound/PlayCopy.h"
#include "sound/SoundManager.h"

namespace game {

NOX_RTTI_DEFINE(GameExitPopUp, noxfw::Menu);

namespace {

// One row per target: the text sequence and what the narrator asks.
struct Question {
  unsigned long target;
  const char* text;
  const char* voice;
};

const Question kQuestions[] = {
    {GameExitPopUp::kExitTitle, "Exit", "KDNA0662"},
    {GameExitPopUp::kAdventure, "Adventure", "KDNA0663"},
    {GameExitPopUp::kMainMenu, "Main", "KDNA0664"},
    {GameExitPopUp::kActivityPicker, "Activity", "KDNA0665"},
    {GameExitPopUp::kMicromods, "Micromods", "NONE"},
};
// What an unknown target asks: the way back leads to a menu in any case.
const Question kUnknownQuestion = {0, "Main", "NONE"};

const Question& FindQuestion(unsigned long target) {
  for (const Question& q : kQuestions) {
    if (q.target == target) return q;
  }
  return kUnknownQuestion;
}

// Where the text and the buttons sit on the panel; without them each keeps the place
// its picture was drawn at.
const nox::NameHash kTextPoint = nox::HashString("Text");
const char* const kYesPoint = "YesButton";
const char* const kNoPoint = "NoButton";

// The activities' intros and outros, which close before the scene ends.
bool IsIntroOrOutro(unsigned long id) {
  return id >= 20 && id <= 27;
}

}  // namespace

const char* GameExitPopUp::GetTextSequence(unsigned long target) {
  return FindQuestion(target).text;
}

const char* GameExitPopUp::GetVoice(unsigned long target) {
  return FindQuestion(target).voice;
}

GameExitPopUp::GameExitPopUp() : noxfw::Menu("ExitPopUp", nullptr) {
  SetScreen(nox::ScreenManager::Get());
  m_pYes = CreateButton("YesButton");
  m_pNo = CreateButton("NoButton");
  PlaceButton(m_pYes, kYesPoint);
  PlaceButton(m_pNo, kNoPoint);
  //        button  up       down     left    right   previous next
  AddButton(m_pYes, nullptr, nullptr, nullptr, m_pNo, nullptr, m_pNo);
  AddButton(m_pNo, nullptr, nullptr, m_pYes, nullptr, m_pYes, nullptr);
  nox::TileAnimData* data = GetAnimData("ExitPopUpText");
  if (data) m_pText = data->CreateCellAnimation();
  if (m_pText) {
    m_pText->SetLoop(true);
    GetAnimationEngine().AddAnimation(m_pText);
  }
  PlaceText();
}

GameExitPopUp::~GameExitPopUp() {
  // Steps borrow the pop-up: they go first.
  m_Sequencer.Empty();
  if (m_pText) GetAnimationEngine().RemoveAnimation(m_pText);
  delete m_pText;
}

void GameExitPopUp::PlaceText() {
  nox::TileAnimation* panel = GetBackground();
  if (!m_pText || !panel) return;
  nox::Vector3 at = panel->HasPoint(kTextPoint) ? panel->GetPoint(kTextPoint) : nox::Vector3();
  // The panel's depth: the engine keeps the order of adding among equals, so the text
  // draws over the panel, and a smaller depth could fall in front of the near plane.
  at.z = panel->GetDepth();
  m_pText->SetPosition(at);
}

void GameExitPopUp::ExitPrompt(unsigned long target) {
  m_Target = target;
  const Question& question = FindQuestion(target);
  nox::AutomationPrintf("Exit pop-up: asking \"%s\" for scene %lu", question.text, target);
  if (m_pText) m_pText->Play(nox::HashString(question.text), 0);
  // Above every other overlay, so that it draws last and sees the input first.
  nox::WindowManager* windows = nox::WindowManager::Get();
  if (windows && GetWindowState() == kClosed) {
    windows->OpenWindow(this, true);
  } else {
    Open();
  }
  m_Sequencer.Empty();
  // The effect rings on while the narrator asks.
  m_Sequencer.AppendItem(
      new noxfw::PlayStreamingSoundSeqItem("h_OSTM_PromptSfx_6", kConfirmCategory, 0, true));
  if (IsSpoken(question.voice)) {
    m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(question.voice, kSpeechCategory));
  }
}

void GameExitPopUp::Open() {
  noxfw::Menu::Open();
  SetVisible(true);
  // Each question starts afresh: nothing focused, nothing pressed, input taken.
  Cancel();
  Deselect();
  for (noxfw::Button* button : {m_pYes, m_pNo}) Enable(button);
  m_bAnswered = false;
  UnlockInput();
  Resume();
}

bool GameExitPopUp::HandleInput() {
  if (GetWindowState() == kClosed) return false;
  nox::Input* input = nox::Input::s_pInput;
  const bool home = input && input->GetController(0)->GetTriggeredButtons(kHomeBit);
  // Home while the question is up leaves it up; the menu below would read it as Back.
  if (!home) noxfw::Menu::HandleInput();
  return true;
}

void GameExitPopUp::Update(unsigned long ms) {
  m_Sequencer.Update(ms);
  noxfw::Menu::Update(ms);
}

void GameExitPopUp::Activate() {
  noxfw::Menu::Activate();
  const int index = GetSelectedId();
  if (m_bAnswered || (index != kYes && index != kNo)) return;
  // The first answer is the only one: a second tap finds the input locked.
  m_bAnswered = true;
  LockInput();
  if (index == kYes) {
    AnswerYes();
  } else {
    AnswerNo();
  }
}

void GameExitPopUp::Back() {
  noxfw::Menu::Back();
  if (m_bAnswered || IsInputLocked()) return;
  Select(m_pNo);
  Activate();
}

void GameExitPopUp::AnswerYes() {
  nox::AutomationPrintf("Exit pop-up: yes, to scene %lu", m_Target);
  // The question's voice stops with the answer; so do the paused scene's sounds, which
  // would never be resumed.
  m_Sequencer.Empty();
  nox::SoundManager* sound = nox::SoundManager::sm_pInstance;
  if (sound) {
    if (m_Target == kExitTitle) sound->StopBackgroundMusic();
    for (uint32_t c = 1; c <= 10; ++c) sound->Stop(c);
  }
  // The click is heard in full before anything ends.
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_MenuSelectSfx_6", kConfirmCategory));
  if (m_Target == kExitTitle) {
    m_Sequencer.AppendItem(
        new noxfw::ClassFuncSeqItem(&noxfw::ClassFunc<GameExitPopUp, &GameExitPopUp::QuitTitle>, this));
    return;
  }
  GameSceneManager* scenes = GameSceneManager::Get();
  if (scenes && IsIntroOrOutro(scenes->GetSceneId())) {
    m_Sequencer.AppendItem(
        new noxfw::ClassFuncSeqItem(&noxfw::ClassFunc<GameExitPopUp, &GameExitPopUp::CloseScene>, this));
  }
  // Back: the way back of every scene that asks leads to its target.
  m_Sequencer.AppendItem(new DoneSceneSeqItem(noxfw::ExitReason::Back));
  m_Sequencer.AppendItem(
      new noxfw::ClassFuncSeqItem(&noxfw::ClassFunc<GameExitPopUp, &GameExitPopUp::ClosePopUp>, this));
}

void GameExitPopUp::AnswerNo() {
  nox::AutomationPrintf("Exit pop-up: no");
  m_Sequencer.Empty();
  // A copy: it plays on after the pop-up has closed.
  PlayCopy("h_OSTM_BackSfx_6", kConfirmCategory);
  ClosePopUp();
  if (GameSceneManager* scenes = GameSceneManager::Get()) scenes->ResumeScene();
}

void GameExitPopUp::CloseScene() {
  GameSceneManager* scenes = GameSceneManager::Get();
  // A cut-scene's script goes: its lines stop, and nothing completes it over the
  // Back that follows.
  noxfw::NisScene* nis = scenes ? nox::TypeCast<noxfw::NisScene>(scenes->GetScene()) : nullptr;
  if (nis) nis->GetSequencer().Empty();
}

void GameExitPopUp::ClosePopUp() {
  nox::WindowManager* windows = nox::WindowManager::Get();
  if (windows && GetWindowState() != kClosed) windows->CloseWindow(this);
}

void GameExitPopUp::QuitTitle() {
  nox::AutomationPrintf("Exit pop-up: the title ends");
  CAppManager::Instance()->PopApp();
}

}  // namespace game
