// The game's style table as the style manager sees it.
#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "level/StyleManager.h"
#include "styles/GameAgentStyles.h"

namespace {

TEST(GameAgentStyles, All55RowsLoadUnderDistinctHashesAndANameFindsItsFirstRow) {
  std::set<nox::NameHash> hashes;
  for (const nox::AgentStyle& row : game::g_AgentStyles) {
    EXPECT_EQ(row.m_Count, 0u);
    EXPECT_LT(std::strlen(row.m_NameText), sizeof row.m_NameText);
    hashes.insert(row.m_Name);
  }
  EXPECT_EQ(hashes.size(), game::kAgentStyleCount);

  noxfw::StyleManager::Create();
  game::GameAgentStyles::Load(*noxfw::StyleManager::Get());
  EXPECT_EQ(noxfw::StyleManager::Get()->GetStyleCount(), game::kAgentStyleCount);
  // "InteractivesZone1" is printed three times in the table; a level naming it gets row 4.
  EXPECT_EQ(noxfw::StyleManager::Find(nox::HashString("InteractivesZone1")), &game::g_AgentStyles[4]);
  EXPECT_EQ(noxfw::StyleManager::Find(nox::HashString("MumBear")), &game::g_AgentStyles[45]);
  noxfw::StyleManager::Destroy();
}

}  // namespace
