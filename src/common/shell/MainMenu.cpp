#include "shell/MainMenu.h"

#include "menu/Button.h"
#include "scenes/ExitReason.h"
#include "sequencer/SoundSeqItems.h"
#include "shell/DoneSceneSeqItem.h"

namespace game {

NOX_RTTI_DEFINE(MainMenu, noxfw::Menu);

namespace {

// Sprite names by ButtonIndex - 1.
const char* const kButtonSprites[MainMenu::kButtonCount] = {
    "M1_ActivityButton", "M1_AdventureModeButton", "M1_MicroModButton", "M1_BadgeButton", "M1_JournalButton"};
// What a choice says, by ButtonIndex - 1; "NONE" says nothing.
const char* const kButtonVoices[MainMenu::kButtonCount] = {"NONE", "NONE", "NONE", "NONE", "NONE"};

const unsigned long kMenuCategory = 8;
const unsigned long kSpeechCategory = 1;

}  // namespace

MainMenu::MainMenu(bool first, bool newBadge, bool newDownloads, bool newDrawing, const char* introVoice,
                   const char* repeatVoice)
    : noxfw::Menu("M1_Background", "HNCurry"),
      m_IntroVoice(introVoice ? introVoice : "NONE"),
      m_RepeatVoice(repeatVoice ? repeatVoice : "NONE"),
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

void MainMenu::Open() {
  noxfw::Menu::Open();
  SetVisible(true);
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_PromptSfx_6", kMenuCategory));
  if (m_IntroVoice != "NONE") {
    m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(m_IntroVoice.c_str(), kSpeechCategory));
  }
}

void MainMenu::Update(unsigned long ms) {
  m_Sequencer.Update(ms);
  noxfw::Menu::Update(ms);
}

void MainMenu::Activate() {
  noxfw::Menu::Activate();
  const int index = GetSelectedId();
  if (index < 1 || index > kButtonCount) return;
  LockInput();
  m_Sequencer.Empty();
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_MenuSelectSfx_6", kMenuCategory));
  const char* voice = kButtonVoices[index - 1];
  if (std::string(voice) != "NONE") {
    m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(voice, kSpeechCategory));
  }
  m_Sequencer.AppendItem(new DoneSceneSeqItem(noxfw::ExitReason::Complete));
}

}  // namespace game
