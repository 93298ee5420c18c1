// The agent model: lifecycle of one agent, changes to a container during its update,
// destruction, and look-ups.
#include <gtest/gtest.h>

#include "TestAgents.h"
#include "agents/AgentEngine.h"
#include "core/HashString.h"

namespace agenttest {

NOX_RTTI_DEFINE(TestEntity, nox::Entity);

namespace {

class Listener : public nox::EventListener<nox::Agent> {
 public:
  explicit Listener(Journal& journal) : m_Journal(journal) {}
  void OnEventOccurred(nox::Agent* source, const nox::EventData* data) override {
    m_Journal.calls.push_back("event " + std::to_string(data->m_Type));
  }

 private:
  Journal& m_Journal;
};

TEST(Agent, EnableBeforeInitOnlyStoresAndImplsRunBetweenInitAndDeinit) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  TestAgent agent(scene.pool, journal, "A");

  agent.Enable(false);
  agent.Enable(true);
  EXPECT_TRUE(journal.calls.empty());

  agent.Init();
  agent.Enable(true);  // same value: nothing
  agent.Enable(false);
  agent.Enable(true);
  agent.Deinit();
  agent.Enable(false);  // after Deinit: stored only
  EXPECT_EQ(journal.calls,
            (std::vector<std::string>{"enable A", "disable A", "enable A", "deinit A", "disable A"}));
  EXPECT_FALSE(agent.IsEnabled());
}

TEST(Agent, BaseActionCodesSetIndexEnableAndNameAndUnknownCodesChangeNothing) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  TestAgent agent(scene.pool, journal, "A");
  EXPECT_EQ(agent.GetIndex(), 0xFFFFFFFFu);

  EXPECT_TRUE(agent.HandleAction(nox::HashString("index"), 7));
  EXPECT_TRUE(agent.HandleAction(nox::HashString("id"), nox::HashString("Gate")));
  EXPECT_TRUE(agent.HandleAction(nox::HashString("enable"), 0));
  EXPECT_FALSE(agent.HandleAction(nox::HashString("Index"), 9));

  EXPECT_EQ(agent.GetIndex(), 7u);
  EXPECT_EQ(agent.GetName(), nox::HashString("Gate"));
  EXPECT_FALSE(agent.IsEnabled());
}

TEST(AgentContainer, NeighbourDestroyedDuringUpdateIsStillUpdatedThatFrameThenDeleted) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  TestAgent* a = new TestAgent(scene.pool, journal, "A");
  TestAgent* b = new TestAgent(scene.pool, journal, "B");
  TestAgent* c = new TestAgent(scene.pool, journal, "C");
  for (TestAgent* agent : {a, b, c}) scene.engine.AddAgent(agent);
  b->m_OnUpdate = [&] {
    c->Destroy();  // later in the list
    a->Destroy();  // earlier in the list
  };

  scene.engine.Update(16);
  EXPECT_EQ(journal.calls, (std::vector<std::string>{"update A", "update B", "update C", "deinit C",
                                                     "delete C", "deinit A", "delete A"}));
  ASSERT_EQ(scene.engine.GetAgentCount(), 1u);
  EXPECT_EQ(scene.engine.GetAgentById(0), b);
}

TEST(AgentContainer, AgentsAddedDuringUpdateJoinAfterItAndAddPlusRemoveInOneFrameStays) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  TestAgent* a = new TestAgent(scene.pool, journal, "A");
  TestAgent* late = new TestAgent(scene.pool, journal, "Late");
  scene.engine.AddAgent(a);
  a->m_OnUpdate = [&] {
    scene.engine.AddAgent(late);
    scene.engine.RemoveAgent(late);  // removals run first, so the addition wins
    a->m_OnUpdate = nullptr;
  };

  scene.engine.Update(16);
  EXPECT_EQ(journal.Count("update Late"), 0);
  ASSERT_EQ(scene.engine.GetAgentCount(), 2u);
  EXPECT_EQ(scene.engine.GetAgentById(1), late);
  EXPECT_EQ(late->GetParent(), nullptr);

  scene.engine.Update(16);
  EXPECT_EQ(journal.Count("update Late"), 1);
}

TEST(AgentContainer, AgentMadeAndDestroyedInOneUpdateIsDeletedOnceAndNeverAdded) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  TestAgent* a = new TestAgent(scene.pool, journal, "A");
  scene.engine.AddAgent(a);
  a->m_OnUpdate = [&] {
    TestAgent* shortLived = new TestAgent(scene.pool, journal, "S");
    scene.engine.AddAgent(shortLived);
    shortLived->Destroy();
    a->m_OnUpdate = nullptr;
  };

  scene.engine.Update(16);
  EXPECT_EQ(journal.Count("delete S"), 1);
  EXPECT_EQ(scene.engine.GetAgentCount(), 1u);
  scene.engine.Update(16);  // a dangling entry would show here under the sanitizer
}

TEST(AgentContainer, DestroyTwiceDeletesOnceAndTellsListenersOnce) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  Listener listener(journal);
  TestAgent* a = new TestAgent(scene.pool, journal, "A");
  scene.engine.AddAgent(a);
  a->AddEventListener(&listener);
  a->m_OnUpdate = [&] {
    a->Destroy();
    a->Destroy();
    EXPECT_FALSE(a->IsValid());
  };

  scene.engine.Update(16);
  EXPECT_EQ(journal.Count("event 1"), 1);
  EXPECT_EQ(journal.Count("delete A"), 1);
  EXPECT_EQ(scene.engine.GetAgentCount(), 0u);
}

TEST(AgentContainer, DestroyOutsideAnUpdateDeletesAtOnceAfterTellingListeners) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  Listener listener(journal);
  TestAgent* a = new TestAgent(scene.pool, journal, "A");
  a->Init();
  scene.engine.AddAgent(a);
  a->AddEventListener(&listener);

  a->Destroy();
  EXPECT_EQ(journal.calls,
            (std::vector<std::string>{"enable A", "event 1", "deinit A", "disable A", "delete A"}));
  EXPECT_EQ(scene.engine.GetAgentCount(), 0u);
}

TEST(AgentContainer, ChildOfAnAgentIsHandedToItsParentOnDestroy) {
  // A parent that is a container too, as an arena is.
  class Parent : public TestAgent, public nox::AgentContainer {
   public:
    Parent(nox::ContextPool& pool, Journal& journal)
        : TestAgent(pool, journal, "P"), nox::AgentContainer(this) {}
    ~Parent() override { DestroyAllAgents(); }
    void Update(unsigned long dt) override { nox::AgentContainer::Update(dt); }
    void OnChildDestroyed(nox::Agent* child) override { DestroyAgent(child); }
  };
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  Parent* parent = new Parent(scene.pool, journal);
  TestAgent* child = new TestAgent(scene.pool, journal, "C");
  scene.engine.AddAgent(parent);
  parent->AddAgent(child);
  EXPECT_EQ(child->GetParent(), parent);
  child->m_OnUpdate = [&] { child->Destroy(); };

  scene.engine.Update(16);
  EXPECT_EQ(journal.Count("delete C"), 1);
  EXPECT_EQ(parent->GetAgentCount(), 0u);
  EXPECT_EQ(scene.engine.GetAgentCount(), 1u);
}

TEST(AgentContainer, PausedContainerSkipsUpdatesButStillWorksOffItsQueues) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  TestAgent* a = new TestAgent(scene.pool, journal, "A");
  scene.engine.AddAgent(a);
  a->m_OnUpdate = [&] { a->Destroy(); };  // queued while updating
  scene.engine.Update(16);
  EXPECT_EQ(journal.Count("delete A"), 1);

  TestAgent* b = new TestAgent(scene.pool, journal, "B");
  scene.engine.AddAgent(b);
  scene.engine.Pause();
  scene.engine.Update(16);
  EXPECT_EQ(journal.Count("update B"), 0);
  scene.engine.Resume();
  b->Enable(false);
  scene.engine.Update(16);
  EXPECT_EQ(journal.Count("update B"), 0);  // disabled agents are not updated
}

TEST(AgentContainer, AddingTwiceKeepsOneEntryAndLookUpsFollowListOrder) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  TestAgent* unnamed1 = new TestAgent(scene.pool, journal, "U1");
  TestAgent* named = new TestAgent(scene.pool, journal, "N");
  TestAgent* unnamed2 = new TestAgent(scene.pool, journal, "U2");
  named->HandleAction(nox::Agent::kActionId, nox::HashString("Gate"));
  for (TestAgent* agent : {unnamed1, named, unnamed1, unnamed2}) scene.engine.AddAgent(agent);

  EXPECT_EQ(scene.engine.GetAgentCount(), 3u);
  EXPECT_EQ(scene.engine.GetAgentByName(0), unnamed1);
  EXPECT_EQ(scene.engine.GetAgentByName(nox::HashString("Gate")), named);
  EXPECT_EQ(scene.engine.GetAgentByName(nox::HashString("gate")), nullptr);
  EXPECT_EQ(scene.engine.GetAgentById(2), unnamed2);
  EXPECT_EQ(scene.engine.GetAgentById(3), nullptr);
}

TEST(AgentContainer, RemoveHandsTheAgentBackAndDestroyAllDeletesWithoutDeinit) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  TestAgent* kept = new TestAgent(scene.pool, journal, "K");
  TestAgent* removed = new TestAgent(scene.pool, journal, "R");
  scene.engine.AddAgent(kept);
  scene.engine.AddAgent(removed);
  scene.engine.RemoveAgent(removed);
  EXPECT_FALSE(removed->HasEventListener(&scene.engine));

  scene.engine.DestroyAllAgents();
  EXPECT_EQ(journal.calls, (std::vector<std::string>{"delete K"}));
  delete removed;
}

TEST(AgentContainer, FindEntityAtPointTakesTheFirstEnabledEntityInListOrder) {
  Journal journal;  // outlives the agents that write to it
  Scene scene;
  BoxAnimation wide(nox::Real(0), nox::Real(0), nox::Real(100), nox::Real(100));
  BoxAnimation small(nox::Real(40), nox::Real(40), nox::Real(60), nox::Real(60));
  TestEntity* noSprite = new TestEntity(scene.pool, nullptr);
  TestEntity* hidden = new TestEntity(scene.pool, &small);
  TestEntity* back = new TestEntity(scene.pool, &wide);
  TestEntity* front = new TestEntity(scene.pool, &small);
  scene.engine.AddAgent(new TestAgent(scene.pool, journal, "not an entity"));
  for (TestEntity* e : {noSprite, hidden, back, front}) scene.engine.AddAgent(e);
  hidden->Enable(false);

  EXPECT_EQ(scene.engine.FindEntityAtPoint(nox::Vector2(nox::Real(50), nox::Real(50))), back);
  EXPECT_EQ(scene.engine.FindEntityAtPoint(nox::Vector2(nox::Real(200), nox::Real(50))), nullptr);
  back->Enable(false);
  EXPECT_EQ(scene.engine.FindEntityAtPoint(nox::Vector2(nox::Real(50), nox::Real(50))), front);
}

TEST(Entity, GroupCodeSetsTheGroupWordAndOtherCodesReachTheAgent) {
  Scene scene;
  TestEntity entity(scene.pool, nullptr);
  EXPECT_TRUE(entity.HandleAction(nox::Entity::kActionGroup, 3));
  EXPECT_TRUE(entity.HandleAction(nox::Agent::kActionId, 11));
  EXPECT_EQ(entity.GetGroup(), 3u);
  EXPECT_EQ(entity.GetName(), 11u);
  EXPECT_TRUE(nox::IsA<nox::Agent>(&entity));
}

}  // namespace
}  // namespace agenttest
