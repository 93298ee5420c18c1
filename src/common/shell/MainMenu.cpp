#include "shell/MainMenu.h"

#include "core/Settings.h"
#include "input/Input.h"
#include "menu/Button.h"
#include "save/GameBadge.h"
#include "save/GameSaveGame.h"
#include "scenes/ExitReason.h"
#include "sequencer/SoundSeqItems.h"
#include "shell/DoneSceneSeqItem.h"
#include "sound/PlayCopy.h"

namespace game {

NOX_RTTI_DEFINE(MainMenu, GameMenu);

namespace {

// Sprite names by ButtonIndex - 1.
const char* const kButtonSprites[MainMenu::kButtonCount] = {
    "M1_ActivityButton", "M1_AdventureModeButton", "M1_MicroModButton", "M1_BadgeButton", "M1_JournalButton"};
static_assert(M1Dialogue::kButtonVoiceCount == MainMenu::kButtonCount, "one name per button");

// Pad bits: the directions and the shoulders move the focus; the hint key.
const uint32_t kMoveBits = 0x1 | 0x2 | 0x4 | 0x8 | 0x40 | 0x80;
const uint32_t kHintBit = 0x200;

bool AllBadgesSetting() {
  nox::Settings* settings = nox::Settings::s_pSettings;
  return settings && settings->GetBoolValue("Award All Badges");
}

uint32_t TriggeredPadButtons() {
  nox::Input* input = nox::Input::s_pInput;
  return input ? input->GetController(0)->GetTriggeredButtons(0xFFFFFFFFu) : 0;
}

}  // namespace

MainMenu::MainMenu(bool first, bool newBadge, bool newDownloads, bool newDrawing, const char* introVoice,
                   const char* repeatVoice)
    : GameMenu("M1_Background", "HNCurry", introVoice, repeatVoice),
      m_bFirst(first),
      m_bNewBadge(newBadge),
      m_bNewDownloads(newDownloads),
      m_bNewDrawing(newDrawing) {
  // Every sprite is drawn at its place on the screen.
  for (int i = 0; i < kButtonCount; ++i) m_pButtons[i] = CreateButton(kButtonSprites[i]);
  noxfw::Button* const* b = m_pButtons;
  noxfw::Button* adventure = b[kAdventure - 1];
  noxfw::Button* activity = b[kActivity - 1];
  noxfw::Button* micromod = b[kMicroMod - 1];
  noxfw::Button* badge = b[kBadge - 1];
  noxfw::Button* journal = b[kJournal - 1];
  // Entered in ButtonIndex order, which is the selection the scene manager reads.
  // Activities, adventure, micromods on top; the journal and the badges below.
  //        button     up        down     left       right      previous   next
  AddButton(activity, nullptr, journal, nullptr, adventure, badge, adventure);
  AddButton(adventure, nullptr, journal, activity, micromod, activity, micromod);
  AddButton(micromod, nullptr, badge, adventure, nullptr, adventure, journal);
  AddButton(badge, micromod, nullptr, journal, nullptr, journal, activity);
  AddButton(journal, activity, nullptr, nullptr, badge, micromod, badge);
}

MainMenu::~MainMenu() {
  m_Sequencer.Empty();
}

const char* MainMenu::GetButtonVoice(int index) {
  return index >= 1 && index <= kButtonCount ? M1Dialogue::kButtonVoices[index - 1] : "NONE";
}

void MainMenu::Open() {
  OpenWithPrompt();
  if (CheckBadges()) {
    m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("SFX_BadgeVictory", kMenuCategory));
  }
  QueueVoice(m_IntroVoice.c_str());
}

bool MainMenu::CheckBadges() {
  GameSaveGame* save = GameSaveGame::s_pSaveGame;
  if (!save || save->GetCurrentZone() != kLastZone || AllBadgesSetting()) return false;
  for (int badge = 0; badge < GameBadge::eBadgeCount; ++badge) {
    if (!save->GetData_Badge(badge)) return false;
  }
  // Straight to the game's rule rather than through the scene manager, which does the
  // same but does not say whether the achievement was new.
  return GameBadge::AwardAchievement(GameBadge::kAllBadgesAchievement);
}

bool MainMenu::HandleInput() {
  if (IsInputLocked() || IsPaused()) return false;
  // The stylus as the framework takes it: a press chooses at once, and the choice
  // says the button's name itself.
  if (HandleTouch()) {
    m_Prompt.Reset();
    return true;
  }
  const uint32_t pressed = TriggeredPadButtons();
  const noxfw::Button* focus = GetSelected();
  if (HandlePad()) {
    m_Prompt.Reset();
    // A choice has queued its own click and voice.
    if (IsInputLocked()) return true;
    const bool moved = GetSelected() != focus && GetSelected();
    const bool move = (pressed & kMoveBits) && !(pressed & kBackMask);
    if (!moved && !move) return true;
    // What was being said gives way: the child is choosing now.
    m_Sequencer.Empty();
    m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_DefaultClickSfx_6", kMenuCategory));
    if (moved && IsSpoken(GetButtonVoice(GetSelectedId()))) {
      // A copy that plays on by itself, so the next move can cut in at once.
      m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(GetButtonVoice(GetSelectedId()),
                                                                  kSpeechCategory, 0, true, 100));
    }
    return true;
  }
  if (!(pressed & kHintBit)) return false;
  m_Prompt.Reset();
  m_Sequencer.Empty();
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_HintButtonSfx_6", kMenuCategory));
  QueueVoice(m_IntroVoice.c_str());
  return true;
}

void MainMenu::Activate() {
  noxfw::Menu::Activate();
  const int index = GetSelectedId();
  if (index < 1 || index > kButtonCount) return;
  LockInput();
  m_Sequencer.Empty();
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_MenuSelectSfx_6", kMenuCategory));
  // A waiting step: the scene ends only once the name has been said.
  QueueVoice(GetButtonVoice(index));
  m_Sequencer.AppendItem(new DoneSceneSeqItem(noxfw::ExitReason::Complete));
}

}  // namespace game
