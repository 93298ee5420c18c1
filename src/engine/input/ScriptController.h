// A controller that scripts can press: tutorials and demos push one on a slot and
// set its buttons. The scripted bits have their own group of words, so a read gives
// the real (or merged) word ANDed with the mask, ORed with the scripted word. With
// pass-through the controller's own words follow the real and scripted buttons
// together; without it they are left alone and only the scripted words move.
#pragma once
#include <cstdint>

#include "input/Controller.h"

namespace nox {

class ScriptController : public Controller {
 public:
  explicit ScriptController(bool passThrough);

  // Stores the scripted raw state and updates the scripted words at once.
  void SetState(const ControllerState& state);
  // Presses or lets go of raw `bits` in the scripted state; seen at the next update.
  void SetButtonPressed(uint32_t bits, bool down);
  const ControllerState& GetScriptState() const { return m_ScriptState; }
  bool IsPassThrough() const { return m_bPassThrough; }

  void Clear() override;
  void Update(ControllerState& state) override;
  uint32_t GetTriggeredButtons(unsigned long mask) const override {
    return (m_Triggered & mask) | m_ScriptTriggered;
  }
  uint32_t GetHeldButtons(unsigned long mask) const override { return (m_Held & mask) | m_ScriptHeld; }
  uint32_t GetReleasedButtons(unsigned long mask) const override {
    return (m_Released & mask) | m_ScriptReleased;
  }

 private:
  void UpdateScriptButtons();

  ControllerState m_ScriptState;
  bool m_bPassThrough;
  uint32_t m_ScriptCurrent = 0;  // logical words of the scripted bits alone
  uint32_t m_ScriptPrevious = 0;
  uint32_t m_ScriptTriggered = 0;
  uint32_t m_ScriptReleased = 0;
  uint32_t m_ScriptHeld = 0;
};

}  // namespace nox
