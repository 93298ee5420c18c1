#include "agents/Agent.h"

#include "agents/AgentEngine.h"

namespace nox {

NOX_RTTI_DEFINE(Agent, RTTIBase);

static_assert(HashString("index") == Agent::kActionIndex, "action code of \"index\"");
static_assert(HashString("enable") == Agent::kActionEnable, "action code of \"enable\"");
static_assert(HashString("id") == Agent::kActionId, "action code of \"id\"");

Agent::Agent(ContextPool& pool) : m_pContextPool(&pool) {}

Agent::~Agent() {
  Enable(false);
  clear();
}

void Agent::Init() {
  m_bInitialised = true;
  if (m_bEnabled) EnableImpl();
}

void Agent::Deinit() {
  // A second Deinit, or one without Init, must not take out what was never put in.
  if (!m_bInitialised) return;
  m_bInitialised = false;
  if (m_bEnabled) DisableImpl();
}

void Agent::Enable(bool on) {
  if (on == m_bEnabled) return;
  m_bEnabled = on;
  if (!m_bInitialised) return;
  if (on) {
    EnableImpl();
  } else {
    DisableImpl();
  }
}

bool Agent::HandleAction(NameHash code, uint32_t value) {
  switch (code) {
    case kActionIndex:
      SetIndex(value);
      return true;
    case kActionEnable:
      Enable(value != 0);
      return true;
    case kActionId:
      m_Name = value;
      return true;
    default:
      return false;
  }
}

void Agent::Destroy() {
  if (!m_bValid) return;
  m_bValid = false;
  // Listeners hear of it first: outside an update the container deletes the agent
  // at once, and nothing may touch it after that.
  EventData data;
  data.m_Type = kEventDestroyed;
  FireEvent(this, &data);
  if (m_pParent) {
    m_pParent->OnChildDestroyed(this);
  } else if (AgentEngine* engine = m_pContextPool->GetAgentEngine()) {
    engine->DestroyAgent(this);
  }
}

}  // namespace nox
