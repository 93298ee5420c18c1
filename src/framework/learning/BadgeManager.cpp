#include "learning/BadgeManager.h"

#include "core/Settings.h"

namespace noxfw {

BadgeManager* BadgeManager::sm_pInstance = nullptr;

void BadgeManager::Create() {
  if (!sm_pInstance) sm_pInstance = new BadgeManager();
}

void BadgeManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

BadgeManager::BadgeManager() {}

BadgeManager::~BadgeManager() {}

bool BadgeManager::AllBadgesAwarded() {
  nox::Settings* settings = nox::Settings::s_pSettings;
  return settings && settings->GetBoolValue("Award All Badges");
}

BadgeManager::Badge* BadgeManager::FindRow(uint32_t id) const {
  if (id < m_Count && m_pTable[id].id == id) return &m_pTable[id];
  for (uint32_t i = 0; i < m_Count; ++i) {
    if (m_pTable[i].id == id) return &m_pTable[i];
  }
  return nullptr;
}

void BadgeManager::SetBadges(Badge* table, uint32_t count) {
  m_pTable = table;
  m_Count = table ? count : 0;
  m_AwardedCount = 0;
  bool all = AllBadgesAwarded();
  for (uint32_t i = 0; i < m_Count; ++i) {
    if (all || m_pTable[i].awarded) ++m_AwardedCount;
  }
}

void BadgeManager::AwardBadge(uint32_t id) {
  Badge* row = FindRow(id);
  if (!row) return;
  AwardBadge(id, row->platformId);
  if (AllBadgesAwarded() || row->awarded) return;
  row->awarded = 1;
  ++m_AwardedCount;
}

void BadgeManager::AwardAchievement(uint32_t id) {
  AwardBadge(id, id);
}

bool BadgeManager::IsAwarded(uint32_t id) const {
  const Badge* row = FindRow(id);
  return row && row->awarded;
}

}  // namespace noxfw
