#include "shell/ActivityPicker.h"

#include <cstdio>

#include "core/Settings.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "input/Input.h"
#include "menu/Button.h"
#include "save/GameSaveGame.h"
#include "scenes/ExitReason.h"
#include "sequencer/SeqBuild.h"
#include "shell/DoneSceneSeqItem.h"
#include "sound/PlayCopy.h"

namespace game {

NOX_RTTI_DEFINE(ActivityPicker, GameMenu);

namespace {

// Sprite names by ButtonIndex - 1. The cards stand riding, archery, triplets, pin the
// tail from left to right; the order of the buttons is the scene manager's.
const char* const kButtonSprites[ActivityPicker::kButtonCount] = {"M2_A2Button", "M2_A1Button", "M2_A3Button",
                                                                  "M2_A4Button", "M2_BackButton"};
// The activity scene of each card, by ButtonIndex - 1.
const unsigned long kActivityScenes[ActivityPicker::kActivityCount] = {17, 16, 18, 19};

const char* const kStarSprite = "M2_Stars";
const nox::NameHash kStarGold = nox::HashString("Star_Gold");
const nox::NameHash kStarGray = nox::HashString("Star_Gray");
const nox::NameHash kGoldFlash = nox::HashString("Gold_Flash_Loop");
const nox::NameHash kGrayFlash = nox::HashString("Gray_Flash_Loop");
const nox::NameHash kHotspot = nox::HashString("Hotspot0");
// A star sits this far below its point.
const int kStarDrop = 11;

const uint32_t kHomeBit = 0x100;

}  // namespace

ActivityPicker::ActivityPicker(const char* introVoice, const char* repeatVoice)
    : GameMenu("M2_Background", nullptr, introVoice, repeatVoice) {
  for (int i = 0; i < kButtonCount; ++i) m_pButtons[i] = CreateButton(kButtonSprites[i]);
  noxfw::Button* archery = m_pButtons[kArchery - 1];
  noxfw::Button* riding = m_pButtons[kRiding - 1];
  noxfw::Button* triplets = m_pButtons[kTriplets - 1];
  noxfw::Button* pinTheTail = m_pButtons[kPinTheTail - 1];
  noxfw::Button* back = m_pButtons[kBack - 1];
  // Entered in ButtonIndex order, which is the selection the scene manager reads.
  //        button      up       down  left      right       previous    next
  AddButton(archery, nullptr, back, riding, triplets, riding, triplets);
  AddButton(riding, nullptr, back, nullptr, archery, back, archery);
  AddButton(triplets, nullptr, back, archery, pinTheTail, archery, pinTheTail);
  AddButton(pinTheTail, nullptr, back, triplets, nullptr, triplets, back);
  AddButton(back, riding, nullptr, nullptr, riding, pinTheTail, riding);
  for (int index = 1; index <= kActivityCount; ++index) {
    m_pButtons[index - 1]->SetLocked(!IsActivityUnlocked(GetActivitySceneId(index)));
  }
  InitializeStars();
}

ActivityPicker::~ActivityPicker() {
  m_Sequencer.Empty();
  for (nox::TileAnimation*& star : m_pStars) {
    if (!star) continue;
    GetAnimationEngine().RemoveAnimation(star);
    delete star;
    star = nullptr;
  }
}

nox::NameHash ActivityPicker::GetHashForIndex(int star) {
  static nox::NameHash s_Hashes[ActivityStars::kNumStars] = {};
  if (star < 0 || star >= ActivityStars::kNumStars) return 0;
  if (s_Hashes[star] == 0) {
    char name[8];
    snprintf(name, sizeof(name), "Star%02d", star + 1);
    s_Hashes[star] = nox::HashString(name);
  }
  return s_Hashes[star];
}

unsigned long ActivityPicker::GetActivitySceneId(int index) {
  return index >= 1 && index <= kActivityCount ? kActivityScenes[index - 1] : 0;
}

bool ActivityPicker::IsActivityUnlocked(unsigned long sceneId) {
  const nox::Settings* settings = nox::Settings::s_pSettings;
  if (settings && settings->GetBoolValue("Unlock All Games")) return true;
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  return save && save->GetData_SceneUnlocked(static_cast<int>(sceneId));
}

void ActivityPicker::InitializeStars() {
  nox::TileAnimData* data = GetAnimData(kStarSprite);
  const nox::TileAnimation* background = GetBackground();
  for (int i = 0; i < ActivityStars::kNumStars; ++i) {
    if (m_pStars[i]) {
      GetAnimationEngine().RemoveAnimation(m_pStars[i]);
      delete m_pStars[i];
      m_pStars[i] = nullptr;
    }
    m_bGold[i] = ActivityStars::StarIsUnlocked(i);
    nox::TileAnimation* star = data ? data->CreateCellAnimation() : nullptr;
    if (!star) continue;
    // The places are the background's; a star sprite may carry them too.
    const nox::NameHash point = GetHashForIndex(i);
    nox::Vector3 at;
    if (background && background->HasPoint(point)) {
      at = background->GetPoint(point);
    } else if (star->HasPoint(point)) {
      at = star->GetPoint(point);
    } else {
      star->SetVisible(false);
    }
    star->SetPosition(nox::Vector3(at.x, at.y + nox::Real(kStarDrop), nox::Real()));
    star->SetLoop(true);
    star->Play(m_bGold[i] ? kStarGold : kStarGray, 0);
    GetAnimationEngine().AddAnimation(star);
    m_pStars[i] = star;
  }
}

void ActivityPicker::FlashStar(int star) {
  nox::TileAnimation* sprite = GetStar(star);
  if (sprite) sprite->Play(m_bGold[star] ? kGoldFlash : kGrayFlash, 0);
}

void ActivityPicker::StillStar(int star) {
  nox::TileAnimation* sprite = GetStar(star);
  if (sprite) sprite->Play(m_bGold[star] ? kStarGold : kStarGray, 0);
}

void ActivityPicker::TurnOnStarFlashLoop(bool on) {
  for (int i = 0; i < ActivityStars::kNumStars; ++i) {
    if (on) {
      FlashStar(i);
    } else {
      StillStar(i);
    }
  }
}

void ActivityPicker::StopScript() {
  m_Sequencer.Empty();
  TurnOnStarFlashLoop(false);
}

void ActivityPicker::Open() {
  OpenWithPrompt();
  uint32_t shown = 0;
  for (int i = 0; i < ActivityStars::kNumStars; ++i) {
    if (m_bGold[i]) shown |= 1u << i;
  }
  // Stars earned since the picker was last open flash through the greeting.
  const bool celebrate = ActivityStars::TakeNewlyEarned(shown) != 0;
  if (celebrate) {
    noxfw::SeqClassFuncWithParam<ActivityPicker, bool, &ActivityPicker::TurnOnStarFlashLoop>(m_Sequencer,
                                                                                             this, true);
  }
  QueueVoice(m_IntroVoice.c_str());
  if (celebrate) {
    noxfw::SeqClassFuncWithParam<ActivityPicker, bool, &ActivityPicker::TurnOnStarFlashLoop>(m_Sequencer,
                                                                                             this, false);
  }
}

int ActivityPicker::FindStar(const nox::Vector2& point) const {
  for (int i = 0; i < ActivityStars::kNumStars; ++i) {
    const nox::TileAnimation* star = m_pStars[i];
    if (!star || !star->GetVisible()) continue;
    const bool hit =
        star->HasRect(kHotspot) ? star->HitTestBounds(point, kHotspot) : star->HitTestBounds(point);
    if (hit) return i;
  }
  return -1;
}

bool ActivityPicker::HandleInput() {
  if (IsInputLocked() || IsPaused()) return false;
  const nox::Screen* screen = GetScreen() ? GetScreen() : nox::ScreenManager::Get();
  if (screen && screen->GetTouchStateCount() > 0) {
    const nox::Screen::MultiTouchState& touch = screen->GetTouchState(0);
    const int star = touch.triggered ? FindStar(touch.triggerPosition) : -1;
    if (star >= 0) {
      SayStar(star);
      m_Prompt.Reset();
      return true;
    }
  }
  const bool used = noxfw::Menu::HandleInput();
  if (used) m_Prompt.Reset();
  return used;
}

void ActivityPicker::SayStar(int star) {
  if (star < 0 || star >= ActivityStars::kNumStars) return;
  StopScript();
  const ActivityStars::Description said =
      m_bGold[star] ? ActivityStars::GetEarnedDescription(star) : ActivityStars::GetUnearnedDescription(star);
  FlashStar(star);
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_DefaultClickSfx_6", kMenuCategory));
  QueueVoice(said.first);
  QueueVoice(said.second);
  noxfw::SeqClassFuncWithParam<ActivityPicker, int, &ActivityPicker::StillStar>(m_Sequencer, this, star);
}

void ActivityPicker::Activate() {
  noxfw::Menu::Activate();
  const int index = GetSelectedId();
  if (index < 1 || index > kButtonCount) return;
  LockInput();
  StopScript();
  const char* click = index == kBack ? "h_OSTM_BackSfx_6" : "h_OSTM_MenuSelectSfx_6";
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(click, kMenuCategory));
  m_Sequencer.AppendItem(new DoneSceneSeqItem(noxfw::ExitReason::Complete));
}

void ActivityPicker::Back() {
  noxfw::Menu::Back();
  if (IsInputLocked()) return;
  LockInput();
  StopScript();
  const nox::Input* input = nox::Input::s_pInput;
  const bool home = input && input->GetController(0)->GetTriggeredButtons(kHomeBit);
  m_Sequencer.AppendItem(
      new noxfw::PlayStreamingSoundSeqItem(home ? "h_OSTM_HomeSfx_6" : "h_OSTM_BackSfx_6", kMenuCategory));
  m_Sequencer.AppendItem(new DoneSceneSeqItem(noxfw::ExitReason::Back));
}

void ActivityPicker::Invalid(noxfw::Button* button) {
  noxfw::Menu::Invalid(button);
  StopScript();
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_DeadClickSfx_6", kMenuCategory));
}

nox::TileAnimation* ActivityPicker::GetStar(int star) const {
  return star >= 0 && star < ActivityStars::kNumStars ? m_pStars[star] : nullptr;
}

bool ActivityPicker::IsStarGold(int star) const {
  return star >= 0 && star < ActivityStars::kNumStars && m_bGold[star];
}

noxfw::Button* ActivityPicker::GetActivityButton(int index) const {
  return index >= 1 && index <= kButtonCount ? m_pButtons[index - 1] : nullptr;
}

}  // namespace game
