// Level files: the elements a world scene reads, arenas and their agents, and files
// that are truncated, oversized or name things that do not exist.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "../../engine/files/TestFiles.h"
#include "agents/AgentEngine.h"
#include "agents/AgentFactoryManager.h"
#include "agents/RefPoint.h"
#include "agents/RefPointFactory.h"
#include "level/Arena.h"
#include "level/Level.h"
#include "level/LevelElements.h"
#include "level/StyleManager.h"
#include "volumes/SpawnPoint.h"
#include "volumes/SpawnPointFactory.h"

namespace {

using nox::HashString;

// "12 34" for the hash of a name, as level files write it.
std::string H(const char* name) {
  return std::to_string(HashString(name));
}

// A hash as an attribute value: values are signed 32-bit numbers.
std::string V(const char* name) {
  return std::to_string(static_cast<int32_t>(HashString(name)));
}

// An arena element: header, then the agents' lines and the action text as given.
std::string ArenaText(const char* element, const char* name, int agents, int attributes, int lists,
                      int actions, const std::string& body) {
  std::ostringstream s;
  s << H(element) << " " << name << " 0 0 0 480 272 " << agents << " " << attributes << " " << lists << " "
    << actions << "\n"
    << body;
  return s.str();
}

// Two spawn points and a ref point, one with a style, and one action list of two actions.
std::string MeadowArena() {
  const std::string body = H("SpawnPoint") + " Corrin_0 0 1 40 200 " + H("id") + " " + V("Corrin_0") + "\n" +
                           H("SpawnPoint") + " Gate 0 1 400 180 " + H("id") + " " + V("Gate") + "\n" +
                           H("RefPoint") + " Marker " + H("Beacon") + " 1 -5 7 " + H("enable") + " 1\n" +
                           "2\n" + "1 " + H("enable") + " 0\n" + "9 " + H("enable") + " 0\n";
  return ArenaText("Arena", "Meadow", 3, 3, 1, 2, body);
}

class LevelTest : public ::testing::Test {
 protected:
  LevelTest() : m_Log(m_Dir), m_Level(m_Pool, m_Factories, nullptr) {
    m_AgentContext.m_pAgentEngine = &m_Engine;
    m_Pool.m_pAgentContext = &m_AgentContext;
    m_Factories.Register(new nox::RefPointFactory());
    m_Factories.Register(new noxfw::SpawnPointFactory());
    noxfw::StyleManager::Create();
  }
  ~LevelTest() override {
    m_Level.Clear();
    noxfw::StyleManager::Destroy();
  }

  void Load(const std::string& text) { m_Level.LoadText("test.fun", text.data(), text.size()); }

  testfiles::TempDir m_Dir;
  testfiles::AutomationLog m_Log;
  nox::AgentEngine m_Engine;
  nox::AgentContext m_AgentContext;
  nox::ContextPool m_Pool;
  nox::AgentFactoryManager m_Factories;
  noxfw::Level m_Level;
};

TEST_F(LevelTest, ReadsStringsPathsTheGlobalArenaAndArenasInOrder) {
  const std::string text = H("StringTable") + " Strings 0 2\nHello there\r\nSecond\n" + H("Path") +
                           " Paths 0 1 2 0 0 1 0 0 0 10 0 1 0 0 10 1 5 " + H("Mid") + "\n" +
                           ArenaText("Global", "Global", 1, 0, 0, 0, H("RefPoint") + " Any 0 0 1 2\n") +
                           MeadowArena() + ArenaText("Arena", "Cave", 0, 0, 0, 0, "");
  Load(text);

  EXPECT_EQ(m_Level.GetStringTable().GetCount(), 2u);
  EXPECT_EQ(m_Level.GetStringTable().GetString(0), "Hello there");
  ASSERT_EQ(m_Level.GetPaths().size(), 1u);
  EXPECT_EQ(m_Level.GetPaths()[0].GetTriggers().size(), 1u);

  noxfw::Arena* global = m_Level.GetGlobalArena();
  ASSERT_NE(global, nullptr);
  EXPECT_TRUE(global->IsLoaded());  // at once
  EXPECT_EQ(global->GetAgentCount(), 1u);

  ASSERT_EQ(m_Level.GetArenaCount(), 2u);
  noxfw::Arena* meadow = m_Level.GetArena(0);
  noxfw::Arena* cave = m_Level.GetArena(1);
  EXPECT_EQ(meadow->GetLabel(), "Meadow");
  EXPECT_FALSE(meadow->IsLoaded());
  EXPECT_EQ(meadow->GetEntryCount(), 3u);
  EXPECT_EQ(meadow->GetBounds()[2], 480);
  EXPECT_EQ(meadow->GetNext(), cave);
  EXPECT_EQ(cave->GetPrevious(), meadow);
  EXPECT_EQ(m_Log.Lines().size(), 0u);
}

TEST_F(LevelTest, ArenaLoadBuildsAgentsWithStylesUnderTheirAttributesAndUnloadDeletesThem) {
  // The style disables, the agent's own attribute enables again: the attribute wins.
  const nox::KeyValuePair pairs[] = {{nox::Agent::kActionEnable, 0}, {nox::Agent::kActionId, 77}};
  const nox::AgentStyle styles[] = {{pairs, 2, HashString("Beacon"), "Beacon"}};
  noxfw::StyleManager::Get()->Load(styles, 1);
  Load(MeadowArena());
  noxfw::Arena* arena = m_Level.GetArena(0);
  arena->Load();
  arena->Load();  // once only

  ASSERT_EQ(arena->GetAgentCount(), 3u);
  nox::Agent* marker = arena->GetAgentById(2);
  EXPECT_TRUE(nox::IsA<nox::RefPoint>(marker));
  EXPECT_TRUE(marker->IsEnabled());
  EXPECT_EQ(marker->GetName(), 77u);
  EXPECT_EQ(marker->GetParent(), arena);
  EXPECT_EQ(static_cast<nox::RefPoint*>(marker)->GetPosition(),
            nox::Vector3(nox::Real(-5), nox::Real(7), nox::Real()));

  EXPECT_EQ(arena->GetSpawnPos(0), nox::Vector3(nox::Real(40), nox::Real(200), nox::Real()));
  EXPECT_EQ(arena->GetSpawnPos(HashString("Gate")),
            nox::Vector3(nox::Real(400), nox::Real(180), nox::Real()));
  EXPECT_EQ(arena->GetSpawnPos(HashString("Nowhere")), nox::Vector3());

  // The list's second action names agent 9, which does not exist, and is skipped.
  ASSERT_EQ(arena->GetActionListCount(), 1u);
  arena->Execute(*arena->GetActionList(0));
  EXPECT_FALSE(arena->GetAgentById(1)->IsEnabled());

  arena->Unload();
  EXPECT_EQ(arena->GetAgentCount(), 0u);
  arena->Load();  // an arena can be entered again
  EXPECT_EQ(arena->GetAgentCount(), 3u);
}

TEST_F(LevelTest, AgentThatDestroysItselfIsDeletedByItsArenaAfterTheUpdate) {
  Load(MeadowArena());
  noxfw::Arena* arena = m_Level.GetArena(0);
  arena->Load();
  m_Engine.AddAgent(arena);
  arena->GetAgentById(0)->Destroy();
  m_Engine.Update(16);
  EXPECT_EQ(arena->GetAgentCount(), 2u);
  m_Engine.RemoveAgent(arena);
}

TEST_F(LevelTest, ArenaWithoutAgentsLoadsUpdatesAndUnloads) {
  Load(ArenaText("Arena", "Empty", 0, 0, 0, 0, ""));
  noxfw::Arena* arena = m_Level.GetArena(0);
  ASSERT_NE(arena, nullptr);
  arena->Load();
  EXPECT_TRUE(arena->IsLoaded());
  arena->Update(16);
  EXPECT_TRUE(arena->IsDone());
  EXPECT_EQ(arena->GetSpawnPos(0), nox::Vector3());
  arena->Unload();
  EXPECT_FALSE(arena->IsLoaded());
  EXPECT_EQ(m_Log.Lines().size(), 0u);
}

TEST_F(LevelTest, UnknownElementCostsOneWordAndIsReportedOnce) {
  // 12345 is no element: it takes "Stray" with it, and the arena after it still reads.
  // 999 then is an unknown element of its own, and takes the arena's id.
  Load("12345 Stray " + MeadowArena() + "999 " + MeadowArena());
  ASSERT_EQ(m_Level.GetArenaCount(), 1u);
  EXPECT_EQ(m_Level.GetArena(0)->GetEntryCount(), 3u);
  EXPECT_GE(m_Level.GetUnknownElementCount(), 2u);
  EXPECT_EQ(m_Log.Count("unknown element"), 1);
}

TEST_F(LevelTest, UnregisteredAgentTypeLeavesTheArenaEmptyWithOneLine) {
  Load(ArenaText("Arena", "Odd", 2, 0, 0, 0, H("RefPoint") + " A 0 0 1 1\n" + H("Dragon") + " B 0 0 1 1\n"));
  noxfw::Arena* arena = m_Level.GetArena(0);
  arena->Load();
  EXPECT_EQ(arena->GetAgentCount(), 0u);
  EXPECT_EQ(m_Log.Count("no factory makes agent type " + H("Dragon")), 1);
}

TEST_F(LevelTest, CountsLargerThanTheFileAreRefusedBeforeAnythingIsRead) {
  const struct {
    const char* what;
    std::string text;
  } cases[] = {
      {"more agents than follow", ArenaText("Arena", "A", 50, 0, 0, 0, H("RefPoint") + " A 0 0 1 1\n")},
      {"a count wider than 32 bits", H("Arena") + " A 0 0 0 1 1 4294967296 0 0 0\n"},
      {"a hash value above the signed range",
       ArenaText("Arena", "A", 1, 1, 0, 0, H("RefPoint") + " A 0 1 1 1 1 " + H("Corrin_0") + "\n")},
      {"huge attribute total", ArenaText("Arena", "A", 1, 4000000000, 0, 0, H("RefPoint") + " A 0 0 1 1\n")},
      {"negative action total", ArenaText("Arena", "A", 0, 0, 0, -1, "")},
      {"agent count above 75", ArenaText("Arena", "A", 76, 0, 0, 0, std::string(2000, ' '))},
      {"agent attributes beyond the total",
       ArenaText("Arena", "A", 1, 1, 0, 0, H("RefPoint") + " A 0 2 1 1 1 1 2 2\n")},
      {"attributes short of the total",
       ArenaText("Arena", "A", 1, 2, 0, 0, H("RefPoint") + " A 0 1 1 1 1 1 0 0\n")},
      {"list counts beyond the total", ArenaText("Arena", "A", 0, 0, 1, 1, "2 0 0 0 0 0 0\n")},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    m_Level.Clear();
    Load(c.text + MeadowArena());
    ASSERT_GE(m_Level.GetArenaCount(), 1u);
    EXPECT_EQ(m_Level.GetArena(0)->GetEntryCount(), 0u);
    EXPECT_EQ(m_Level.GetArenaCount(), 1u);  // reading stops after a refused arena
  }
  EXPECT_EQ(m_Log.Count("refused"), 9);
}

TEST_F(LevelTest, EveryTruncationOfALevelLoadsSafelyAndLeavesUnreadArenasEmpty) {
  const std::string text = H("StringTable") + " S 0 1\nline\n" + H("Path") +
                           " P 0 1 2 0 0 1 0 0 0 10 0 1 0 0 10 0\n" + MeadowArena() + MeadowArena();
  for (size_t length = 0; length < text.size(); ++length) {
    m_Level.Clear();
    m_Level.LoadText("cut.fun", text.data(), length);
    for (unsigned long i = 0; i < m_Level.GetArenaCount(); ++i) {
      noxfw::Arena* arena = m_Level.GetArena(static_cast<long>(i));
      const unsigned long entries = arena->GetEntryCount();
      EXPECT_TRUE(entries == 0 || entries == 3) << "at length " << length;
      arena->Load();
      arena->Execute(arena->GetActionListCount() ? *arena->GetActionList(0) : nox::ActionList());
    }
  }
  m_Level.Clear();
  Load(text);
  EXPECT_EQ(m_Level.GetArenaCount(), 2u);
}

TEST_F(LevelTest, TextEndsAtTheFirstZeroByte) {
  std::string text = MeadowArena() + std::string(1, '\0') + MeadowArena();
  Load(text);
  EXPECT_EQ(m_Level.GetArenaCount(), 1u);
}

TEST(StyleManager, LaterRowsReplaceEarlierOnesAndZeroFindsNothing) {
  const nox::AgentStyle first[] = {{nullptr, 0, 5, "A"}, {nullptr, 0, 0, "Zero"}};
  const nox::AgentStyle second[] = {{nullptr, 0, 5, "B"}};
  noxfw::StyleManager::Create();
  noxfw::StyleManager* styles = noxfw::StyleManager::Get();
  styles->Load(first, 2);
  styles->Load(second, 1);
  EXPECT_STREQ(styles->GetStyle(5)->m_NameText, "B");
  EXPECT_EQ(styles->GetStyle(0), nullptr);
  EXPECT_EQ(styles->GetStyle(6), nullptr);
  noxfw::StyleManager::Destroy();
  EXPECT_EQ(noxfw::StyleManager::Find(5), nullptr);
}

}  // namespace
