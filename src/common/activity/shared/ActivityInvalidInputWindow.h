// The reminder that comes up when the child uses an input the game can't use here:
// the buttons where only touches count (DPadIsInvalid, with the d-pad picture), or
// touches where only the buttons count (StylusIsInvalid, with the stylus picture). The
// narrator says what to use while the picture blinks; a second wrong input in a row
// only gives the dead click, so a child who keeps pressing is not talked at each time.
//
// While it is open every sound category but 8 (where the narrator speaks the reminder)
// and the music are paused; closing resumes them. The window lasts as long as its
// script: the update that finds the script empty closes it. Closing tells the scene
// manager, which lets the scene that the reminder paused go on.
//
// The game's scene manager owns the one instance and opens it above everything. Owns
// its sprites, their data, its sounds and its animation engine; missing sprite files
// leave it invisible, but its scripts still run and end.
#pragma once
#include "graphics/AnimationEngine.h"
#include "graphics/Window.h"
#include "sequencer/Sequencer.h"
#include "sound/StreamingSound.h"

namespace nox {
class TileAnimData;
class TileAnimation;
}  // namespace nox

namespace game {

class ActivityInvalidInputWindow : public nox::Window {
  NOX_RTTI_DECLARE

 public:
  static const unsigned long kReminderCategory = 8;  // the one category left playing
  static const unsigned long kEffectCategory = 10;
  static const unsigned long kBlinkMs = 250;
  static const int kBlinkCount = 6;  // switches between the highlight and the rest picture

  ActivityInvalidInputWindow();
  ~ActivityInvalidInputWindow() override;

  // Pauses the music if it plays, and the categories 1 to 7 and 9 to 11.
  void Open() override;
  // Ends the script, stops the voices, hides the pictures, tells the scene manager and
  // resumes what Open paused. Only an open window does any of it.
  void Close() override;
  // Runs the script and the pictures; closes the window once the script is empty.
  void Update(unsigned long ms) override;
  void Draw() override;

  // The child used the stylus, or the d-pad, where it does nothing. Ignored while a
  // reminder plays. Every second time in a row, beginning with the first, the spoken
  // reminder with its picture; each time the dead click.
  void StylusIsInvalid();
  void DPadIsInvalid();

  bool IsReminding() const { return !m_Sequencer.IsEmpty(); }
  nox::TileAnimation* GetDPadPicture() const { return m_pDPad; }
  nox::TileAnimation* GetStylusPicture() const { return m_pStylus; }

  // Categories the reminder holds, ascending.
  static const unsigned long kPausedCategories[];
  static const int kPausedCategoryCount;

 private:
  // Flips the toggle; when it comes on, shows `picture` and queues its script.
  void Remind(bool& toggle, nox::TileAnimation* picture, nox::StreamingSound& voice, const char* line,
              const char* restSequence);
  void PauseSounds();
  void ResumeSounds();
  static nox::TileAnimation* MakePicture(nox::TileAnimData*& data, const char* name);

  noxfw::Sequencer m_Sequencer;
  nox::StreamingSound m_DPadVoice;    // preloaded with "CANA0063"; speaks "KDNA0666"
  nox::StreamingSound m_StylusVoice;  // preloaded with "CANA0062"; speaks "SLNA0003"
  nox::AnimationEngine m_Engine;
  nox::TileAnimData* m_pDPadData = nullptr;    // owned
  nox::TileAnimData* m_pStylusData = nullptr;  // owned
  nox::TileAnimation* m_pDPad = nullptr;       // owned; null when its files are missing
  nox::TileAnimation* m_pStylus = nullptr;     // owned
  bool m_bStylusToggle = false;                // on after an odd number of wrong inputs in a row
  bool m_bDPadToggle = false;
  bool m_bMusicPaused = false;  // Open paused the music, so Close resumes it
  bool m_bDestroying = false;   // no one to tell while the owner is going
};

}  // namespace game
