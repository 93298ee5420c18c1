// The agent container of a scene: it holds the agents that have no other parent
// (arenas, free agents) and is updated once a frame, after the animation engines and
// before physics. Agents without a parent that call Destroy() come here to be
// deleted.
#pragma once
#include "agents/AgentContainer.h"

namespace nox {

class AgentEngine : public AgentContainer {
 public:
  AgentEngine() : AgentContainer(nullptr) {}
  // Sized for `count` agents, so that adding up to that many never reallocates.
  explicit AgentEngine(unsigned long count) : AgentContainer(nullptr, count) {}
  ~AgentEngine() override;

  // Tells every agent that the scene is about to unload.
  void PrepareForUnload();
  void OutputDebugInformation() const {}
};

}  // namespace nox
