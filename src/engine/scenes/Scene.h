// The engine's idea of a scene: one full-screen stage of the game (a logo, a menu, a
// cut-scene, an activity). Exactly one scene exists at a time; the framework's scene
// manager creates it, enters, plays and updates it, and destroys it after it has
// left. A scene owns its views (the windows it shows) and, for world scenes, the
// engines its agents run in; those are reached through the context getters, which
// are null here.
//
// A scene says it is done by firing an event to its listeners (the scene manager);
// what comes next is decided outside the scene.
#pragma once
#include "core/EventSource.h"
#include "core/NoCopy.h"
#include "core/RTTIBase.h"

namespace nox {

class AgentEngine;
class AnimationEngine;
class PhysicsEngine;
class ContextPool;
class Window;

class Scene : public RTTIBase, public EventSource<Scene>, public NoCopy {
  NOX_RTTI_DECLARE

 public:
  Scene() = default;
  ~Scene() override = default;

  // Gets the frame's delta in ms; the base does nothing.
  virtual void Update(unsigned long ms) {}
  // Called once the scene's first view is open, before the fade-in.
  virtual void Enter() {}
  // Called behind the fade-out, before the scene is destroyed.
  virtual void Leave() {}
  // Called once the fade-in is done: the scene starts its own timing here.
  virtual void Play() {}
  virtual void Pause() { m_bPaused = true; }
  virtual void Resume() { m_bPaused = false; }
  virtual bool IsPaused() const { return m_bPaused; }
  virtual void LockInput() { m_bInputLocked = true; }
  virtual void UnlockInput() { m_bInputLocked = false; }
  virtual bool IsInputLocked() const { return m_bInputLocked; }
  virtual AgentEngine* GetAgentContext() { return nullptr; }
  virtual AnimationEngine* GetAnimationContext() { return nullptr; }
  virtual PhysicsEngine* GetPhysicsContext() { return nullptr; }
  virtual ContextPool* GetContextPool() { return nullptr; }
  virtual unsigned long GetNumViews() const = 0;
  // Null for an index at or past GetNumViews().
  virtual Window* GetView(unsigned long index) const = 0;

 private:
  bool m_bPaused = false;
  bool m_bInputLocked = false;
};

}  // namespace nox
