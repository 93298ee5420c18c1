#include "shell/GameMenu.h"

#include "sequencer/SoundSeqItems.h"
#include "sound/PlayCopy.h"

namespace game {

NOX_RTTI_DEFINE(GameMenu, noxfw::Menu);

GameMenu::GameMenu(const char* background, const char* font, const char* introVoice, const char* repeatVoice)
    : noxfw::Menu(background, font),
      m_IntroVoice(introVoice ? introVoice : "NONE"),
      m_RepeatVoice(repeatVoice ? repeatVoice : "NONE") {}

GameMenu::~GameMenu() {
  m_Sequencer.Empty();
}

void GameMenu::Update(unsigned long ms) {
  if (!IsPaused()) m_Sequencer.Update(ms);
  noxfw::Menu::Update(ms);
  const bool quiet = m_Sequencer.IsEmpty() && !IsInputLocked() && !IsPaused();
  if (m_Prompt.Update(ms, quiet)) QueueVoice(m_RepeatVoice.c_str());
}

void GameMenu::OpenWithPrompt() {
  noxfw::Menu::Open();
  SetVisible(true);
  m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem("h_OSTM_PromptSfx_6", kMenuCategory));
}

void GameMenu::QueueVoice(const char* voice) {
  if (IsSpoken(voice)) m_Sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(voice, kSpeechCategory));
}

}  // namespace game
