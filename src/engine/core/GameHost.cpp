#include "core/GameHost.h"

#include <cstdlib>
#include <ctime>

namespace nox {

GameHost* GameHost::s_pGameHost = nullptr;

GameHost::GameHost() {
  // Seed first and read the clock last, so the host's zero is after seeding.
  srand(static_cast<unsigned>(time(nullptr)));
  m_StartMS = KernelMilliseconds();
  (void)m_Reserved;
}

void GameHost::Create() {
  if (!s_pGameHost) s_pGameHost = new GameHost();
}

void GameHost::Destroy() {
  delete s_pGameHost;
  s_pGameHost = nullptr;
}

void GameHost::Update() {
  ++m_FrameCount;
  m_PrevFrameMS = m_FrameMS;
  m_FrameMS = GetCurrentMilliseconds();
  m_DeltaMS = m_FrameMS - m_PrevFrameMS;
}

void GameHost::SetRandomSeed(uint32_t seed) const {
  srand(seed);
}

uint32_t GameHost::GenerateRandomSeed() const {
  uint32_t seed = static_cast<uint32_t>(time(nullptr));
  srand(seed);
  return seed;
}

uint32_t GameHost::GetRandomU32(uint32_t n) const {
  return static_cast<uint32_t>(rand()) % n;
}

}  // namespace nox
