// The scene base of the four activities. To the framework's activity scene it adds
// what all of them share: the soft Hint button read before any other input, the stock
// click of the buttons, the invalid-input reminders, and three pictures on the
// screen's fixed layer for the how-to-play scripts: the d-pad ("DPad"), the stylus
// ("Stylus", "Stylus_LPad" on the device's 480 by 272 screen) with a point "StylusTip"
// where it touches, and the flashing frame of the training overlay ("TrainingOverlay",
// "TrainingOverlay_LPad"). All three start hidden, anchored by "Origin" at (240, 136).
//
// Owns the pictures, their data and a sequencer of its own for them, run after the
// framework's frame. Missing sprite files leave the pictures out; nothing else
// changes.
#pragma once
#include "scenes/ActivityScene.h"
#include "sequencer/Sequencer.h"

namespace nox {
class TileAnimData;
class TileAnimation;
}  // namespace nox

namespace game {

class GameActivityScene : public noxfw::ActivityScene {
  NOX_RTTI_DECLARE

 public:
  static const unsigned long kClickCategory = 6;

  explicit GameActivityScene(bool physicsOn = false);
  ~GameActivityScene() override;

  void Update(unsigned long dt) override;
  // A touch of the soft Hint button is the frame's only input; otherwise the
  // framework's hooks. A paused or locked scene takes none. The scene's update reads
  // the Hint mark too, for the frames in which the soft buttons kept the input.
  bool HandleInput(noxfw::ActivityView& view) override;
  // Closes the invalid-input reminder, then pauses.
  void Pause() override;

  // The wrong input for this activity: the scene pauses and the reminder comes up
  // (touches where the buttons count; the buttons where touches count).
  virtual void StylusIsInvalid();
  virtual void DPadIsInvalid();

  // Shown: the overlay flashes once, then glows. Hidden: gone at once.
  void ShowTrainingOverlay(bool show);
  void ShowStylusAnimation(bool show);
  // A pretend tap where the stylus picture's tip is, for the how-to-play scripts.
  void StylusTapScreen();

  nox::TileAnimation* GetDPadPicture() const { return m_pDPad; }
  nox::TileAnimation* GetStylusPicture() const { return m_pStylus; }
  nox::TileAnimation* GetTrainingOverlay() const { return m_pTrainingOverlay; }
  noxfw::Sequencer& GetPictureSequencer() { return m_Sequencer; }

 protected:
  // The stock click; activities that override these call them for it.
  void PressedA() override;
  void PressedB() override;
  void PressedLeftShoulder() override;
  void PressedRightShoulder() override;
  void PressedDpad(bool left, bool right, bool up, bool down) override;
  void PressedHint() override;

  void PlayClick();
  // Once a frame: a touch of the soft Hint button becomes PressedHint. True when it
  // did.
  bool TakeHintButton();

 private:
  nox::TileAnimation* MakePicture(nox::TileAnimData*& data, const char* name);

  nox::TileAnimData* m_pDPadData = nullptr;             // owned
  nox::TileAnimData* m_pStylusData = nullptr;           // owned
  nox::TileAnimData* m_pTrainingOverlayData = nullptr;  // owned
  nox::TileAnimation* m_pDPad = nullptr;                // owned; null when its files are missing
  nox::TileAnimation* m_pStylus = nullptr;              // owned
  nox::TileAnimation* m_pTrainingOverlay = nullptr;     // owned
  noxfw::Sequencer m_Sequencer;                         // the pictures' scripts
  bool m_bHintTaken = false;                            // the hint mark was read this frame
};

}  // namespace game
