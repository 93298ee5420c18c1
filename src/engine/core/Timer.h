// A countdown in seconds that calls a plain function when it runs out, once or
// repeatedly. Update takes the frame's milliseconds; a single update fires at most
// once however long the frame was. Owned by value by whoever drives it.
#pragma once
#include <cstdint>
#include "core/Real.h"

namespace nox {

struct Timer {
  typedef void (*Callback)(void* context, unsigned long param);

  explicit Timer(Real period = Real(), bool repeat = false, Callback callback = nullptr,
                 void* context = nullptr, uint32_t param = 0, bool start = false)
      : m_Period(period),
        m_Remaining(period),
        m_pCallback(callback),
        m_pContext(context),
        m_Param(param),
        m_bRepeat(repeat),
        m_bRunning(start) {}

  // Counts down by dt ms while running; at 0 fires, then reloads or stops.
  void Update(uint32_t dt);
  // Reloads the full period and runs.
  void Start() {
    m_Remaining = m_Period;
    m_bRunning = true;
  }
  void Stop() { m_bRunning = false; }

  Real m_Period;         // seconds
  Real m_Remaining;      // seconds left
  Callback m_pCallback;  // may be null
  void* m_pContext;      // first callback argument, borrowed
  uint32_t m_Param;      // second callback argument
  bool m_bRepeat;        // reload on expiry
  bool m_bRunning;       // counts down only when true
};

}  // namespace nox
