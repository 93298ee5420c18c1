// Agents that record what happens to them, for the agent tests.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "agents/Agent.h"
#include "agents/AgentEngine.h"
#include "agents/ContextPool.h"
#include "agents/Entity.h"
#include "graphics/Animation.h"

namespace agenttest {

// A shared record of calls: "update A", "enable A", "deinit B", "delete B", ...
struct Journal {
  std::vector<std::string> calls;
  int Count(const std::string& call) const {
    int n = 0;
    for (const std::string& c : calls) n += c == call;
    return n;
  }
};

class TestAgent : public nox::Agent {
 public:
  TestAgent(nox::ContextPool& pool, Journal& journal, const char* label)
      : nox::Agent(pool), m_Journal(journal), m_Label(label) {}
  ~TestAgent() override { m_Journal.calls.push_back("delete " + m_Label); }

  void Update(unsigned long dt) override {
    m_Journal.calls.push_back("update " + m_Label);
    if (m_OnUpdate) m_OnUpdate();
  }
  void Deinit() override {
    m_Journal.calls.push_back("deinit " + m_Label);
    nox::Agent::Deinit();
  }

  std::function<void()> m_OnUpdate;

 protected:
  void EnableImpl() override { m_Journal.calls.push_back("enable " + m_Label); }
  void DisableImpl() override { m_Journal.calls.push_back("disable " + m_Label); }

 private:
  Journal& m_Journal;
  std::string m_Label;
};

// An animation that answers hit tests inside one box.
class BoxAnimation : public nox::Animation {
 public:
  BoxAnimation(nox::Real left, nox::Real top, nox::Real right, nox::Real bottom)
      : m_Left(left), m_Top(top), m_Right(right), m_Bottom(bottom) {}
  void Update(unsigned long) override {}
  void Draw() override {}
  bool HitTest(const nox::Vector2& p) const override {
    return p.x >= m_Left && p.x <= m_Right && p.y >= m_Top && p.y <= m_Bottom;
  }

 private:
  nox::Real m_Left, m_Top, m_Right, m_Bottom;
};

class TestEntity : public nox::Entity {
  NOX_RTTI_DECLARE

 public:
  TestEntity(nox::ContextPool& pool, nox::Animation* animation)
      : nox::Entity(pool), m_pAnimation(animation) {}
  void Update(unsigned long) override {}
  void SetPosition(const nox::Vector3& p) override { m_Position = p; }
  nox::Vector3 GetPosition() const override { return m_Position; }
  nox::Animation* GetAnimation() const override { return m_pAnimation; }

 private:
  nox::Animation* m_pAnimation;
  nox::Vector3 m_Position;
};

// A scene's services with an agent engine in them.
struct Scene {
  nox::AgentEngine engine{75};
  nox::AgentContext agentContext;
  nox::ContextPool pool;
  Scene() {
    agentContext.m_pAgentEngine = &engine;
    pool.m_pAgentContext = &agentContext;
  }
  ~Scene() { engine.DestroyAllAgents(); }
};

}  // namespace agenttest
