// Factories, styles and attributes, and the level loader's reading loop.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestAgents.h"
#include "agents/AgentFactoryManager.h"
#include "agents/LevelLoader.h"
#include "agents/RefPoint.h"
#include "agents/RefPointFactory.h"

namespace agenttest {
namespace {

constexpr nox::NameHash kEnable = nox::Agent::kActionEnable;
constexpr nox::NameHash kId = nox::Agent::kActionId;

nox::AgentEntry RefPointEntry(Scene& scene, int x, int y) {
  nox::AgentEntry entry;
  entry.m_Type = nox::HashString("RefPoint");
  entry.m_Position = nox::Vector3(nox::Real(x), nox::Real(y), nox::Real());
  entry.m_pContextPool = &scene.pool;
  return entry;
}

TEST(AgentFactory, AttributesOverrideTheStyleAndTheAgentComesInitialised) {
  Scene scene;
  nox::AgentFactoryManager factories;
  factories.Register(new nox::RefPointFactory());

  const nox::KeyValuePair stylePairs[] = {{kId, 100}, {kEnable, 0}};
  const nox::AgentStyle style = {stylePairs, 2, nox::HashString("Marker"), "Marker"};
  const nox::KeyValuePair pairs[] = {{kId, 200}};
  nox::AgentEntry entry = RefPointEntry(scene, 12, -3);

  nox::Agent* agent = factories.CreateAgent(&entry, &style, nox::AttributeList(pairs, 1));
  ASSERT_NE(agent, nullptr);
  EXPECT_EQ(agent->GetName(), 200u);  // the attribute, applied last
  EXPECT_FALSE(agent->IsEnabled());   // from the style, which nothing overrode
  EXPECT_TRUE(agent->IsInitialised());
  nox::RefPoint* point = nox::TypeCast<nox::RefPoint>(agent);
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->GetPosition(), nox::Vector3(nox::Real(12), nox::Real(-3), nox::Real()));
  delete agent;
}

TEST(AgentFactory, UnknownTypesMakeNothingAndASecondFactoryOfATypeReplacesTheFirst) {
  Scene scene;
  nox::AgentFactoryManager factories;
  nox::AgentEntry entry = RefPointEntry(scene, 0, 0);
  EXPECT_EQ(factories.CreateAgent(&entry, nullptr, nox::AttributeList()), nullptr);

  // The replaced factory is deleted by the manager; the sanitizer sees a leak otherwise.
  factories.Register(new nox::RefPointFactory());
  nox::AgentFactory* second = new nox::RefPointFactory();
  factories.Register(second);
  factories.Register(second);
  EXPECT_TRUE(factories.HasFactory(nox::HashString("RefPoint")));

  factories.UnRegister(second);
  EXPECT_FALSE(factories.HasFactory(nox::HashString("RefPoint")));
  delete second;
}

TEST(AttributeList, FindAttributeGivesTheFirstPairOfAKey) {
  const nox::KeyValuePair pairs[] = {{1, 10}, {2, 20}, {1, 30}};
  nox::AttributeList list(pairs, 3);
  ASSERT_NE(list.FindAttribute(1), nullptr);
  EXPECT_EQ(list.FindAttribute(1)->m_Value, 10);
  EXPECT_EQ(list.FindAttribute(3), nullptr);
}

// Records what the loader hands over: ids, and the token after each.
struct Elements {
  std::vector<unsigned long> ids;
  std::vector<std::string> next;
  bool Element(nox::LevelLoader*, unsigned long id, std::istringstream& stream) {
    ids.push_back(id);
    std::string word;
    if (id == 1 && stream >> word) next.push_back(word);
    return id == 1;
  }
};

std::vector<unsigned long> LoadIds(const std::string& text) {
  Elements elements;
  nox::LevelLoader loader(&elements, nox::LevelLoaderCallback<Elements, &Elements::Element>);
  loader.LoadText("test.fun", text.data(), text.size());
  return elements.ids;
}

TEST(LevelLoader, ReadsIdsUntilTheTextFailsEndsOrReachesAZeroByte) {
  EXPECT_EQ(LoadIds("1 a 2 3 "), (std::vector<unsigned long>{1, 2, 3}));
  EXPECT_EQ(LoadIds("1 a 2 x 3 "), (std::vector<unsigned long>{1, 2}));  // "x" is no id
  EXPECT_EQ(LoadIds(std::string("1 a 2 \0 3 ", 10)), (std::vector<unsigned long>{1, 2}));
  EXPECT_EQ(LoadIds("1 a 2"), (std::vector<unsigned long>{1}));  // an id that ends the text has no element
  EXPECT_EQ(LoadIds(""), (std::vector<unsigned long>{}));
}

TEST(LevelLoader, MissingFileLoadsNothing) {
  Elements elements;
  nox::LevelLoader loader(&elements, nox::LevelLoaderCallback<Elements, &Elements::Element>);
  EXPECT_FALSE(loader.Load("/nonexistent/level.fun"));
  EXPECT_TRUE(elements.ids.empty());
}

}  // namespace
}  // namespace agenttest
