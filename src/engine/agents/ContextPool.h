// The records through which an agent reaches its scene's services. The scene owns
// and fills them; agents and factories only borrow. A scene without a service leaves
// its pointer null, and code that reaches through the pool tests each step.
#pragma once

namespace nox {

class AgentEngine;
class AnimationEngine;
class AnimDataMap;
class CollisionPoolMap;
class PhysicsEngine;
class Scene;

struct AgentContext {
  AgentEngine* m_pAgentEngine = nullptr;  // the scene's engine; agents without a parent go here
};

struct AnimationContext {
  AnimationEngine* m_pWorldEngine = nullptr;   // sprites that scroll with the world
  AnimationEngine* m_pScreenEngine = nullptr;  // the screen's fixed layer
  AnimDataMap* m_pAnimDataMap = nullptr;
};

struct PhysicsContext {
  PhysicsEngine* m_pPhysicsEngine = nullptr;
  CollisionPoolMap* m_pCollisionPoolMap = nullptr;
};

class ContextPool {
 public:
  AgentContext* m_pAgentContext = nullptr;
  AnimationContext* m_pAnimationContext = nullptr;
  PhysicsContext* m_pPhysicsContext = nullptr;
  Scene* m_pScene = nullptr;  // the scene that filled this pool

  AgentEngine* GetAgentEngine() const { return m_pAgentContext ? m_pAgentContext->m_pAgentEngine : nullptr; }
};

}  // namespace nox
