#include "core/Timer.h"

namespace nox {

void Timer::Update(uint32_t dt) {
  if (!m_bRunning) return;
  // In Real, as the game's timings were tuned: dt of 32768 ms or more wraps.
  m_Remaining -= Real(dt) / Real(1000);
  if (m_Remaining.Raw() >= 1) return;
  m_Remaining = Real();
  if (m_pCallback) m_pCallback(m_pContext, m_Param);
  if (m_bRepeat) {
    m_Remaining = m_Period;
  } else {
    m_bRunning = false;
  }
}

}  // namespace nox
