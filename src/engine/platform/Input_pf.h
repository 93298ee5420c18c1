// Device half of the input: the platform's touch queue and buttons, the record of
// the finger being followed, and the time of the last release (for double taps).
//
// Suspend and Resume are called by the application before anything else when the
// device suspends and resumes: Resume throws away every touch queued meanwhile, so
// that stale touches never reach the game, yet lets a finger that was down see its
// release.
//
// SetButtonSource replaces the platform's buttons with a function, for tests that
// must press buttons the platform offers no public way to press.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"
#include "graphics/TouchStateData.h"
#include "ostra/ButtonMPI.h"
#include "ostra/TouchEventQueue.h"

namespace nox {

class Input_pf : public NoCopy {
 public:
  typedef uint32_t (*ButtonSource)();

  static void Suspend();
  static void Resume();
  // Null restores the platform's buttons.
  static void SetButtonSource(ButtonSource source) { sm_ButtonSource = source; }

  const TouchStateData& GetTouchData() const { return m_TouchData; }

 protected:
  Input_pf();
  ~Input_pf();

  uint32_t ReadButtons() const;
  bool IsTouchQueueEmpty() const { return m_TouchQueue.IsEmpty(); }
  bool FrontTouch(Hollin::Ostra::tTouchData& out) const { return m_TouchQueue.Front(out); }
  void PopTouch() { m_TouchQueue.PopFront(); }
  // Empties the queue; a release among the events reaches the screen.
  void DiscardTouches();

  Hollin::Ostra::CTouchEventQueue m_TouchQueue;
  Hollin::Ostra::CButtonMPI m_ButtonMPI;
  TouchStateData m_TouchData;  // the finger followed, as last handed to the screen
  uint32_t m_LastReleaseMS;    // host frame ms of the last release

 private:
  static Input_pf* sm_pInstance;
  static ButtonSource sm_ButtonSource;
};

}  // namespace nox
