#include "shell/PlayAgain.h"

#include "input/Input.h"
#include "menu/Button.h"
#include "scenes/ExitReason.h"
#include "sequencer/SoundSeqItems.h"
#include "shell/DoneSceneSeqItem.h"
#include "sound/PlayCopy.h"

namespace game {

NOX_RTTI_DEFINE(PlayAgain, GameMenu);

namespace {

const char* const kButtonSprites[PlayAgain::kButtonCount] = {"YesButton", "NoButton"};
// The background's points where the buttons stand, by ButtonIndex - 1.
const char* const kButtonPoints[PlayAgain::kButtonCount] = {"YesButton", "NoButton"};

const uint32_t kHomeBit = 0x100;

}  // namespace

PlayAgain::PlayAgain(const char* introVoice, const char* repeatVoice)
    : GameMenu("M5_Background", nullptr, introVoice, repeatVoice) {
  for (int i = 0; i < kButtonCount; ++i) {
    m_pButtons[i] = CreateButton(kButtonSprites[i]);
    PlaceButton(m_pButtons[i], kButtonPoints[i]);
  }
  noxfw::Button* yes = m_pButtons[kYes - 1];
  noxfw::Button* no = m_pButtons[kNo - 1];
  //        button up       down     left     right    previous next
  AddButton(yes, nullptr, nullptr, nullptr, no, no, no);
  AddButton(no, nullptr, nullptr, yes, nullptr, yes, yes);
}

PlayAgain::~PlayAgain() {
  m_Sequencer.Empty();
}

noxfw::Button* PlayAgain::GetButton(ButtonIndex index) const {
  return index >= 1 && index <= kButtonCount ? m_pButtons[index - 1] : nullptr;
}

void PlayAgain::Open() {
  OpenWithPrompt();
  QueueVoice(m_IntroVoice.c_str());
}

bool PlayAgain::HandleInput() {
  const bool used = noxfw::Menu::HandleInput();
  if (used) m_Prompt.Reset();
  return used;
}

void PlayAgain::Answer(const char* click, noxfw::ExitReason::eExitReason reason) {
  LockInput();
  m_Sequencer.Empty();
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(click, kMenuCategory));
  m_Sequencer.AppendItem(new DoneSceneSeqItem(reason));
}

void PlayAgain::Activate() {
  noxfw::Menu::Activate();
  switch (GetSelectedId()) {
    case kYes:
      Answer("h_OSTM_MenuSelectSfx_6", noxfw::ExitReason::Jump);
      break;
    case kNo:
      Answer("h_OSTM_MenuSelectSfx_6", noxfw::ExitReason::MenuBack);
      break;
    default:
      break;
  }
}

void PlayAgain::Back() {
  noxfw::Menu::Back();
  if (IsInputLocked()) return;
  const nox::Input* input = nox::Input::s_pInput;
  const bool home = input && input->GetController(0)->GetTriggeredButtons(kHomeBit);
  Answer(home ? "h_OSTM_HomeSfx_6" : "h_OSTM_BackSfx_6", noxfw::ExitReason::MenuBack);
}

}  // namespace game
