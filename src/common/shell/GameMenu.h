// What the shell's menus share: a script of their own (clicks, voices, the scene's
// end), the voice said on opening and the one said again after a quiet while. A
// paused menu (under the exit pop-up) holds its script and its reminder.
//
// Steps on the script borrow the menu, so it is emptied before anything else of the
// menu goes; a subclass whose steps borrow its own parts empties it first itself.
#pragma once
#include <string>

#include "menu/Menu.h"
#include "sequencer/Sequencer.h"
#include "shell/InactivityPrompt.h"

namespace game {

class GameMenu : public noxfw::Menu {
  NOX_RTTI_DECLARE

 public:
  // Null voices stand for "NONE": nothing is said.
  GameMenu(const char* background, const char* font, const char* introVoice, const char* repeatVoice);
  ~GameMenu() override;

  // The script, the reminder after quiet, then the menu's widgets.
  void Update(unsigned long ms) override;

  noxfw::Sequencer& GetSequencer() { return m_Sequencer; }
  const std::string& GetIntroVoice() const { return m_IntroVoice; }
  const std::string& GetRepeatVoice() const { return m_RepeatVoice; }

 protected:
  static const unsigned long kMenuCategory = 8;    // clicks and prompts
  static const unsigned long kSpeechCategory = 1;  // the narrator

  // Shows the menu and queues the prompt effect; the subclass then queues its voice.
  void OpenWithPrompt();
  // A waiting step in the speech category; "NONE" or empty queues nothing.
  void QueueVoice(const char* voice);

  noxfw::Sequencer m_Sequencer;
  std::string m_IntroVoice;
  std::string m_RepeatVoice;
  InactivityPrompt m_Prompt;
};

}  // namespace game
