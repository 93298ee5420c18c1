// The question Home asks before the child leaves what they are doing: a panel over
// the paused scene with one line of text ("Do you want to stop playing?" and the
// like), a voice saying it, and a Yes and a No button. It is the program's only way
// out: Yes in the main menu stops the sound, plays the select click and asks the
// device's application manager to end the title (PopApp).
//
// The target is the scene Yes leads to: 1 ends the title; 13 the adventure, 28 the
// main menu, 29 the activity picker, 31 the micromods. It chooses the text sequence
// of "ExitPopUpText" and the voice. Yes for any other target plays the click, lets an
// activity's intro or outro close, ends the scene with Back (whose way leads to the
// target) and closes the pop-up. No plays the back click, closes the pop-up and
// resumes the scene. The answer locks the input at once, so a double tap gives one
// answer.
//
// The game's scene manager holds the pop-up, pauses the scene, opens the pop-up as an
// overlay above everything and calls ExitPrompt. While open it takes every input,
// so nothing below it is touched. Its own sequencer runs the sounds and the steps of
// an answer. Owns its sprites (the panel "ExitPopUp", the text, the buttons "YesButton"
// and "NoButton"); missing files leave it invisible, but its answers still work.
#pragma once
#include <cstdint>

#include "menu/Menu.h"
#include "sequencer/Sequencer.h"

namespace nox {
class TileAnimation;
}

namespace game {

class GameExitPopUp : public noxfw::Menu {
  NOX_RTTI_DECLARE

 public:
  enum ButtonIndex { kYes = 1, kNo = 2, kButtonCount = 2 };
  enum Target {
    kExitTitle = 1,
    kAdventure = 13,
    kMainMenu = 28,
    kActivityPicker = 29,
    kMicromods = 31,
  };

  static const uint32_t kHomeBit = 0x100;
  static const unsigned long kSpeechCategory = 1;
  static const unsigned long kConfirmCategory = 11;

  GameExitPopUp();
  ~GameExitPopUp() override;

  // Holds the question for `target`, opens the pop-up if it is not open, and asks:
  // the voice in the speech category and the prompt effect in the confirmation one.
  // Every prompt starts unanswered, with no button focused.
  void ExitPrompt(unsigned long target);
  unsigned long GetTarget() const { return m_Target; }
  bool IsAnswered() const { return m_bAnswered; }

  // The sequence of "ExitPopUpText" and the voice for a target; an unknown target
  // reads as the main menu's question and says nothing ("NONE").
  static const char* GetTextSequence(unsigned long target);
  static const char* GetVoice(unsigned long target);

  void Open() override;
  // Takes every input while open; Home again leaves the question up.
  bool HandleInput() override;
  void Update(unsigned long ms) override;
  void Activate() override;
  // B is No.
  void Back() override;

  nox::TileAnimation* GetText() const { return m_pText; }
  noxfw::Sequencer& GetSequencer() { return m_Sequencer; }

 private:
  void AnswerYes();
  void AnswerNo();
  // Steps of the answers.
  void CloseScene();
  void ClosePopUp();
  void QuitTitle();
  void PlaceText();

  noxfw::Sequencer m_Sequencer;
  nox::TileAnimation* m_pText = nullptr;  // owned; null without its files
  noxfw::Button* m_pYes;                  // owned by the menu
  noxfw::Button* m_pNo;                   // owned by the menu
  unsigned long m_Target = kExitTitle;
  bool m_bAnswered = false;
};

}  // namespace game
