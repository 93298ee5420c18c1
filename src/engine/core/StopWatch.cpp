#include "core/StopWatch.h"

#include "core/GameHost.h"

namespace nox {

StopWatch::StopWatch() {
  Start();
}

void StopWatch::Start() {
  m_StartMS = GameHost::s_pGameHost->GetCurrentMilliseconds();
}

uint32_t StopWatch::GetElapsedMS() const {
  return GameHost::s_pGameHost->GetCurrentMilliseconds() - m_StartMS;
}

}  // namespace nox
