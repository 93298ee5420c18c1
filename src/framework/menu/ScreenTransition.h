// The screen-wide fade that every scene change goes through: a window in the overlay
// list, above everything, holding a nox::Fader. A fade may wait a number of frames
// before it starts moving (the delay), so that a scene built on the frame of a fade-in
// gets drawn once under cover first.
//
// A singleton made by the title at start and opened at once in the overlay list; the
// title closes and destroys it at the end. The transition can also show a captured
// copy of the screen on a model and play the model's animation over the next scene
// (Initialize, Capture, Play). The engine has no model loader yet, so Initialize
// keeps the transition fade-only and says so once in the automation log; Play then
// ends at once. Fading is the only mode a scene change uses.
#pragma once
#include <cstdint>

#include "graphics/Fader.h"
#include "graphics/Window.h"

namespace noxfw {

class ScreenTransition : public nox::Window {
  NOX_RTTI_DECLARE

 public:
  // `modelFile`: the transition model's path, or null. Nothing when one exists.
  static void Create(const char* modelFile = nullptr);
  static void Destroy();
  static ScreenTransition* sm_pInstance;

  ~ScreenTransition() override;

  // Start the fade from the present level to clear (in) or covered (out).
  void FadeIn(unsigned short ms);
  void FadeOut(unsigned short ms);
  // Frames to wait before a fade moves; 0 at start.
  void SetDelay(uint32_t frames) { m_Delay = frames; }
  bool IsTransitionComplete() const;
  // True while fading, and after a fade that left the screen covered.
  bool IsFadedOrTransitioning() const;
  // Loads the transition model; false, and fade-only, when there is none. An instance
  // reports its missing model once.
  bool Initialize(const char* modelName);
  bool HasModel() const { return false; }
  // Plays the model's animation at `speed`; without a model it is complete at once.
  void Play(const char* animation, nox::Real speed);
  // Copies the frame buffer into the model's picture; nothing without a model.
  void Capture() {}
  void Cleanup() {}

  void Update(unsigned long ms) override;
  void Draw() override;
  void SetScreen(nox::Screen* screen) override;

  nox::Fader& GetFader() { return m_Fader; }

 private:
  ScreenTransition();

  nox::Fader m_Fader;
  uint32_t m_DelayCount = 0;  // frames waited by the running fade
  uint32_t m_Delay = 0;       // frames
  bool m_bFadeMode = true;
  bool m_bModelLogged = false;  // the missing model has been reported
};

}  // namespace noxfw
