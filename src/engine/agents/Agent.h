// Anything that lives in a scene and is updated: entities with a body, sound
// emitters, timers, arenas. An agent is reached by borrowed pointers from one
// container at a time (its arena or the scene's AgentEngine), which owns it and
// deletes it on destruction.
//
// Level files drive agents without knowing their classes: every attribute and every
// scripted action is a NameHash code with one 32-bit value, handed to HandleAction.
// Subclasses that know more codes pass the others on to their base.
//
// Lifecycle: constructed, attributes applied, Init(), updated while enabled,
// Deinit(), deleted. EnableImpl/DisableImpl run only between Init and Deinit.
// Destroy() marks the agent invalid and asks its parent (or the scene's engine) to
// delete it once the running update is over; calling it twice is harmless.
#pragma once
#include <cstdint>

#include "agents/ContextPool.h"
#include "core/EventSource.h"
#include "core/HashString.h"
#include "core/NoCopy.h"
#include "core/RTTIBase.h"

namespace nox {

class Agent : public RTTIBase, public EventSource<Agent>, public NoCopy {
  NOX_RTTI_DECLARE

 public:
  // Action codes every agent knows.
  static constexpr NameHash kActionIndex = 0x0FA9159Du;   // "index": SetIndex(value)
  static constexpr NameHash kActionEnable = 0xFB7573ACu;  // "enable": Enable(value != 0)
  static constexpr NameHash kActionId = 0x00597832u;      // "id": the agent's name

  // The m_Type of the event fired to listeners by Destroy().
  static constexpr uint32_t kEventDestroyed = 1;

  explicit Agent(ContextPool& pool);
  // Disables the agent, then drops its listeners. Runs after the derived parts are
  // gone, so a subclass that needs DisableImpl at deletion calls Deinit itself.
  ~Agent() override;

  virtual void Init();
  virtual void Deinit();
  virtual void Update(unsigned long dt) = 0;  // ms
  virtual void Enable(bool on);
  virtual NameHash GetName() const { return m_Name; }
  virtual uint32_t GetIndex() const { return m_Index; }
  virtual void SetIndex(unsigned long index) { m_Index = static_cast<uint32_t>(index); }
  virtual bool IsInitialised() const { return m_bInitialised; }
  virtual bool IsEnabled() const { return m_bEnabled; }
  virtual bool IsValid() const { return m_bValid; }
  virtual void PrepareForUnload() {}
  virtual void Destroy();
  virtual void SetParent(Agent* parent) { m_pParent = parent; }
  virtual Agent* GetParent() const { return m_pParent; }
  virtual void OnChildDestroyed(Agent* child) {}
  // True when the code was known. Unknown codes change nothing.
  virtual bool HandleAction(NameHash code, uint32_t value);

  ContextPool& GetContextPool() const { return *m_pContextPool; }

 protected:
  virtual void EnableImpl() {}
  virtual void DisableImpl() {}

  ContextPool* m_pContextPool;     // borrowed from the scene
  NameHash m_Name = 0;             // from the level's "id" attribute
  uint32_t m_Index = 0xFFFFFFFFu;  // place in its arena's agent list
  uint32_t m_Group = 0xFFFFFFFFu;  // a word for Entity
  bool m_bEnabled = true;
  bool m_bInitialised = false;
  bool m_bValid = true;  // false from Destroy on
  Agent* m_pParent = nullptr;
};

}  // namespace nox
