// levelc: sources with names compiled into level files that the game's reader loads as
// written, and sources with mistakes reported line by line.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "FunWriter.h"
#include "JsonDoc.h"
#include "LevelReader.h"
#include "agents/AgentEngine.h"
#include "agents/AgentFactoryManager.h"
#include "agents/RefPoint.h"
#include "agents/RefPointFactory.h"
#include "level/Arena.h"
#include "level/Level.h"
#include "level/LevelElements.h"
#include "level/WallEntry.h"
#include "volumes/SpawnPointFactory.h"

namespace {

using nox::HashString;

// Characters stand in as RefPoints under the character type's name.
class CharacterFactory : public nox::RefPointFactory {
 public:
  nox::NameHash GetElementTypeId() const override { return HashString("AdventureCharacter"); }
};

// A scene's level with the walls the adventure scenes read.
class WalledLevel : public noxfw::Level {
 public:
  using noxfw::Level::Level;
  bool LoadElement(nox::LevelLoader* loader, unsigned long id, std::istringstream& stream) override {
    if (id != noxfw::kLevelElementWall) return noxfw::Level::LoadElement(loader, id, stream);
    m_Walls.emplace_back();
    return m_Walls.back().Read(stream);
  }
  std::vector<noxfw::WallEntry> m_Walls;
};

struct Compiled {
  bool ok = false;
  std::string text;
  std::vector<std::string> problems;
};

Compiled Compile(const std::string& json, const std::string& file = "level.json") {
  Compiled result;
  soundgen::Diagnostics diag;
  soundgen::JsonDoc doc;
  levelc::LevelSource level;
  if (doc.Parse(file, json, diag)) result.ok = levelc::ReadLevelSource(doc, level, diag);
  result.problems = diag.Lines();
  if (result.ok) result.text = levelc::WriteFun(level);
  return result;
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

class LevelcRoundTrip : public ::testing::Test {
 protected:
  LevelcRoundTrip() : m_Level(m_Pool, m_Factories, nullptr) {
    m_AgentContext.m_pAgentEngine = &m_Engine;
    m_Pool.m_pAgentContext = &m_AgentContext;
    m_Factories.Register(new nox::RefPointFactory());
    m_Factories.Register(new noxfw::SpawnPointFactory());
    m_Factories.Register(new CharacterFactory());
  }

  nox::AgentEngine m_Engine;
  nox::AgentContext m_AgentContext;
  nox::ContextPool m_Pool;
  nox::AgentFactoryManager m_Factories;
  WalledLevel m_Level;
};

TEST_F(LevelcRoundTrip, TheTitlesTestLevelLoadsAsItsSourceDescribesIt) {
  const Compiled compiled = Compile(ReadFile(NOX_CONTENT_DIR "/levels/TestLevel.json"), "TestLevel.json");
  ASSERT_TRUE(compiled.ok) << (compiled.problems.empty() ? "" : compiled.problems[0]);
  m_Level.LoadText("TestLevel.fun", compiled.text.data(), compiled.text.size());

  EXPECT_EQ(m_Level.GetUnknownElementCount(), 0u);
  EXPECT_EQ(m_Level.GetStringTable().GetString(1), "The cave is dark.");
  ASSERT_EQ(m_Level.GetPaths().size(), 1u);
  EXPECT_EQ(m_Level.GetPaths()[0].GetArcLength(), nox::Real(361));
  EXPECT_EQ(m_Level.GetPaths()[0].GetTriggers()[0].Id, HashString("RiverBank"));
  ASSERT_EQ(m_Level.m_Walls.size(), 3u);
  EXPECT_EQ(m_Level.m_Walls[2].m_Depth, 2);
  EXPECT_EQ(m_Level.m_Walls[0].m_Shapes[0].size(), 4u);

  ASSERT_NE(m_Level.GetGlobalArena(), nullptr);
  EXPECT_EQ(m_Level.GetGlobalArena()->GetAgentByName(HashString("CameraHome"))->GetParent(),
            m_Level.GetGlobalArena());

  ASSERT_EQ(m_Level.GetArenaCount(), 2u);
  noxfw::Arena* meadow = m_Level.GetArena(0);
  noxfw::Arena* cave = m_Level.GetArena(1);
  EXPECT_EQ(meadow->GetBounds()[2], 480);
  EXPECT_EQ(cave->GetBounds()[0], 480);
  meadow->Load();
  cave->Load();
  EXPECT_EQ(meadow->GetSpawnPos(HashString("Corrin_1")),
            nox::Vector3(nox::Real(440), nox::Real(200), nox::Real()));
  EXPECT_EQ(cave->GetSpawnPos(HashString("Corrin_0")),
            nox::Vector3(nox::Real(500), nox::Real(200), nox::Real()));

  // The guard starts disabled; the meadow's action list, written with names, enables it.
  nox::Agent* guard = meadow->GetAgentByName(HashString("GuardTall"));
  ASSERT_NE(guard, nullptr);
  EXPECT_FALSE(guard->IsEnabled());
  meadow->Execute(*meadow->GetActionList(0));
  EXPECT_TRUE(guard->IsEnabled());
  EXPECT_EQ(meadow->GetAgentCount(), 4u);
  EXPECT_EQ(cave->GetAgentCount(), 2u);
}

TEST_F(LevelcRoundTrip, NamesBecomeHashesValuesKeepTheirSignAndStylesAreLookedUpByName) {
  const Compiled compiled = Compile(R"({"arenas": [{"name": "A", "bounds": [-10, -20, 30, 40],
    "agents": [{"type": "RefPoint", "style": "Witch", "at": [-3, 4],
                "attributes": {"index": 5, "Offset": -7, "pool": "Wall", "enable": false}}]}]})");
  ASSERT_TRUE(compiled.ok);
  m_Level.LoadText("a.fun", compiled.text.data(), compiled.text.size());
  noxfw::Arena* arena = m_Level.GetArena(0);
  ASSERT_NE(arena, nullptr);
  EXPECT_EQ(arena->GetBounds()[1], -20);
  arena->Load();
  ASSERT_EQ(arena->GetAgentCount(), 1u);
  nox::RefPoint* point = nox::TypeCast<nox::RefPoint>(arena->GetAgentById(0));
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->GetPosition(), nox::Vector3(nox::Real(-3), nox::Real(4), nox::Real()));
  EXPECT_EQ(point->GetIndex(), 5u);
  EXPECT_FALSE(point->IsEnabled());
  // The text itself: the style's hash and the signed value of a name.
  EXPECT_NE(compiled.text.find(" " + std::to_string(HashString("Witch")) + " 4 -3 4 "), std::string::npos);
  EXPECT_NE(compiled.text.find(std::to_string(HashString("Offset")) + " -7"), std::string::npos);
  EXPECT_NE(compiled.text.find(std::to_string(static_cast<int32_t>(HashString("Wall")))), std::string::npos);
}

TEST(Levelc, EveryMistakeIsReportedAtItsLine) {
  const Compiled compiled = Compile(R"({
  "strings": ["two\nlines"],
  "paths": [{"points": [[0, 0, 1, 0, 0, 5], [9, 0, 1, 0, 0, 5]]}],
  "arenas": [
    {"name": "Two words", "bounds": [0, 0, 480],
     "agents": [
       {"type": "SpawnPoint", "name": "A", "at": [0, 0]},
       {"type": "SpawnPoint", "name": "A", "at": [1, 0], "colour": "red"},
       {"name": "B", "at": [0, 3000000000], "attributes": {"x": 1.5}}
     ],
     "actions": [[{"agent": "Nobody", "code": "enable"}]]}
  ]
})");
  EXPECT_FALSE(compiled.ok);
  const std::vector<std::string> expected = {
      "level.json:2: string 0 holds a line break",
      "level.json:3: path 0: the first point's arc must be 0",
      "level.json:3: path 0: arc 5 does not rise",
      "level.json:5: arena 0 name \"Two words\" must be one word",
      "level.json:5: arena 0 \"Two words\": \"bounds\" must be [left, top, right, bottom]",
      "level.json:8: arena 0 \"Two words\" agent 1: unknown field \"colour\"",
      "level.json:8: arena 0 \"Two words\": two agents are named \"A\"",
      "level.json:9: arena 0 \"Two words\" agent 2 needs the field \"type\"",
      "level.json:9: arena 0 \"Two words\" agent 2 \"at\" y must be a whole number",
      "level.json:9: arena 0 \"Two words\" agent 2 attribute \"x\" must be a whole number",
      "level.json:11: arena 0 \"Two words\" action 0.0: no agent of this arena is named \"Nobody\"",
  };
  std::string all;
  for (const std::string& line : compiled.problems) all += line + "\n";
  for (const std::string& e : expected) EXPECT_NE(all.find(e), std::string::npos) << e << "\nin:\n" << all;
  EXPECT_EQ(compiled.problems.size(), expected.size()) << all;
}

TEST(Levelc, AnArenaOfMoreThan75AgentsIsRefused) {
  std::string agents;
  for (int i = 0; i < 76; ++i) agents += std::string(i ? "," : "") + R"({"type": "RefPoint", "at": [0, 0]})";
  const Compiled compiled =
      Compile(R"({"arenas": [{"name": "Big", "bounds": [0, 0, 1, 1], "agents": [)" + agents + "]}]}");
  ASSERT_EQ(compiled.problems.size(), 1u);
  EXPECT_NE(compiled.problems[0].find("has 76 agents; an arena holds 75"), std::string::npos);
}

TEST(Levelc, TheProgramWritesNothingWhenTheSourceIsWrong) {
  const std::string dir = ::testing::TempDir();
  const std::string bad = dir + "/levelc_bad.json", good = dir + "/levelc_good.json";
  const std::string out = dir + "/levelc_out.fun";
  std::ofstream(bad) << "{\"arenas\": [{\"name\": \"A\"}]}";
  std::ofstream(good) << "{\"arenas\": [{\"name\": \"A\", \"bounds\": [0, 0, 1, 1]}]}";
  std::remove(out.c_str());

  const std::string run = std::string(LEVELC_EXE) + " ";
  int status = std::system((run + bad + " " + out + " 2>/dev/null").c_str());
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_TRUE(ReadFile(out).empty());

  status = std::system((run + good + " " + out).c_str());
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(ReadFile(out).rfind(std::to_string(noxfw::kLevelElementArena) + " A 0 0 0 1 1 0 0 0 0", 0), 0u);
}

}  // namespace
