// A controller: the raw button word of a frame turned into edge-triggered logical
// buttons. Each Update maps the raw bits that the enabled mask lets through (turning
// the directions with the screen, so that a direction keeps its meaning on screen
// when the device is turned) and derives the current, triggered, released and held
// words from this frame and the last.
//
// Controllers are stacked per slot in nox::Input; only the front one is updated and
// read. The input owns the default controller of each slot; a pushed controller is
// borrowed and must be removed before it dies.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"
#include "input/ButtonMap.h"

namespace nox {

// One frame's raw input of a slot.
struct ControllerState {
  uint32_t m_Buttons = 0;  // raw button bits
  uint32_t m_Spare = 0;    // not read
};

class Controller : public NoCopy {
 public:
  Controller();
  virtual ~Controller() {}

  // All words to 0, every raw bit enabled.
  virtual void Clear();
  virtual void Update(ControllerState& state);
  // Stores the map and clears.
  virtual void SetButtonMap(const ButtonMap& map);
  // Low 32 bits: the current word, high 32 bits: the previous; the edges follow.
  virtual void SetButtonState(unsigned long long value);
  virtual uint32_t GetTriggeredButtons(unsigned long mask) const { return m_Triggered & mask; }
  virtual uint32_t GetHeldButtons(unsigned long mask) const { return m_Held & mask; }
  virtual uint32_t GetReleasedButtons(unsigned long mask) const { return m_Released & mask; }
  // One frame of raw bits; `rotate` turns directions and shoulders by the screen.
  virtual void UpdateButtons(unsigned long raw, bool rotate);

  uint32_t GetCurrentButtons() const { return m_Current; }
  uint32_t GetPreviousButtons() const { return m_Previous; }
  uint32_t GetEnabledMask() const { return m_EnabledMask; }
  // Raw bits outside the mask are not seen.
  void SetEnabledMask(uint32_t mask) { m_EnabledMask = mask; }
  const ButtonMap& GetButtonMap() const { return m_Map; }

  // The logical bits that `raw` gives under `map` at screen orientation `rotation`
  // (0 to 3; 0 when not rotating).
  static uint32_t MapButtons(uint32_t raw, const ButtonMap& map, uint32_t rotation);
  // The screen's orientation, 0 without a screen.
  static uint32_t GetScreenRotation();

 protected:
  uint32_t m_Current = 0;      // logical bits down this frame
  uint32_t m_Previous = 0;     // down last frame
  uint32_t m_Triggered = 0;    // down now, not before
  uint32_t m_Released = 0;     // down before, not now
  uint32_t m_Held = 0;         // down now and before
  uint32_t m_EnabledMask = 0;  // raw bits that count
  ButtonMap m_Map;
};

}  // namespace nox
