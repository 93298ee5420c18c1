// The manager singleton that an application asks to be ended, and the switch for the
// host's allocation counting. appmanager reads both between frames.
#include <atomic>

#include "ostra/AppInterface.h"

namespace {
std::atomic<bool> s_bAllocCounting{false};
}

CAppManager* CAppManager::Instance() {
  static CAppManager s_Instance;
  return &s_Instance;
}

void CAppManager::PopApp() {
  m_bPopRequested = true;
}

bool CAppManager::IsPopRequested() const {
  return m_bPopRequested;
}

void CAppManager::ClearPopRequest() {
  m_bPopRequested = false;
}

void AllocOverideEnable() {
  s_bAllocCounting = true;
}

bool IsAllocOverideEnabled() {
  return s_bAllocCounting;
}
