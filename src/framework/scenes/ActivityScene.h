// The scene of a game that has a world: it owns the engines its agents run in (two
// animation engines, one for sprites that scroll with the world and one for the
// screen's fixed layer; the agent engine; the physics engine with its collision
// pools; the shared animation data; the camera) and the ContextPool through which
// agents reach them. Activities and world scenes derive from it.
//
// One frame (Update) runs in a fixed order: the world animations, the screen
// animations, the agents; then, only while physics is on, the PrePhysics hook, one
// physics step of 1.0 whatever the frame's length, the PostPhysics hook; then the
// UpdateScene hook; last the camera. The camera's view is the screen's size; the
// world layer is drawn through it and culled to what it shows. A long frame thus slows the game rather than
// changing what happens in it.
//
// Input reaches the scene through its view, once a frame: the buttons of controller 0
// and the first finger on the screen are turned into the Pressed.../Held.../Stylus...
// hooks, which are empty here. The d-pad and the stylus can be locked apart;
// LockInput locks both and everything else.
//
// Teardown: the destructor deinitialises and deletes the agents left in the engine
// while every engine still exists, since agents take their sprites and hulls out of
// them. Members are declared so that the physics engine outlives the pools.
#pragma once
#include "agents/AgentEngine.h"
#include "agents/ContextPool.h"
#include "core/Vector2.h"
#include "graphics/AnimDataMap.h"
#include "graphics/AnimationEngine.h"
#include "physics/CollisionPoolMap.h"
#include "physics/PhysicsEngine.h"
#include "scenes/ActivityView.h"
#include "scenes/Camera.h"
#include "scenes/Scene.h"

namespace noxfw {

class ActivityScene : public nox::Scene {
  NOX_RTTI_DECLARE

 public:
  // Controller bits, as the platform gives them.
  static const uint32_t kButtonUp = 0x1;
  static const uint32_t kButtonDown = 0x2;
  static const uint32_t kButtonRight = 0x4;
  static const uint32_t kButtonLeft = 0x8;
  static const uint32_t kButtonA = 0x10;
  static const uint32_t kButtonB = 0x20;
  static const uint32_t kButtonLeftShoulder = 0x40;
  static const uint32_t kButtonRightShoulder = 0x80;
  static const uint32_t kButtonHome = 0x100;
  static const uint32_t kButtonHint = 0x200;
  static const uint32_t kButtonPause = 0x400;
  static const uint32_t kDPadMask = kButtonUp | kButtonDown | kButtonRight | kButtonLeft;
  // The physics engine of every scene holds this many hulls, all pools together.
  static const unsigned kHullCount = 825;

  // `physicsOn`: whether the frame steps the physics from the start (SetupPhysics
  // and TearDownPhysics switch it later).
  explicit ActivityScene(bool physicsOn = true);
  ~ActivityScene() override;

  // Deletes the loading aid, if the subclass set one: the scene is ready by now.
  void Enter() override;
  void Update(unsigned long dt) override;
  void LockInput() override;
  void UnlockInput() override;

  nox::AgentEngine* GetAgentContext() override { return &m_AgentEngine; }
  nox::AnimationEngine* GetAnimationContext() override { return &m_WorldAnimations; }
  nox::PhysicsEngine* GetPhysicsContext() override { return &m_PhysicsEngine; }
  nox::ContextPool* GetContextPool() override { return &m_ContextPool; }
  unsigned long GetNumViews() const override { return 1; }
  nox::Window* GetView(unsigned long index) const override;

  // The world's sprites, then the screen's fixed layer.
  virtual void Draw(ActivityView& view);
  // The hooks for this frame's input; false when the scene is paused or its input is
  // locked, true when any hook was called.
  virtual bool HandleInput(ActivityView& view);

  void SetupPhysics() { m_bPhysicsOn = true; }
  void TearDownPhysics() { m_bPhysicsOn = false; }
  bool IsPhysicsOn() const { return m_bPhysicsOn; }
  void LockDPad(bool locked) { m_bDPadLocked = locked; }
  bool DPadLocked() const { return m_bDPadLocked; }
  void LockStylus(bool locked) { m_bStylusLocked = locked; }
  bool StylusLocked() const { return m_bStylusLocked; }

  nox::AnimationEngine& GetWorldAnimations() { return m_WorldAnimations; }
  nox::AnimationEngine& GetScreenAnimations() { return m_ScreenAnimations; }
  nox::AnimDataMap& GetAnimDataMap() { return m_AnimDataMap; }
  nox::CollisionPoolMap& GetCollisionPoolMap() { return m_CollisionPools; }
  nox::PhysicsEngine& GetPhysicsEngine() { return m_PhysicsEngine; }
  nox::AgentEngine& GetAgentEngine() { return m_AgentEngine; }
  nox::Camera& GetCamera() { return m_Camera; }
  // The view that GetView(0) answers: the scene's own, or the one a subclass set.
  ActivityView& GetActivityView() { return *m_pView; }

 protected:
  // Frame hooks, empty here.
  virtual void PrePhysics() {}
  virtual void PostPhysics() {}
  virtual void UpdateScene(unsigned long dt) {}

  // Input hooks, empty here. Directions are given as left, right, up, down.
  virtual void PressedA() {}
  virtual void PressedB() {}
  virtual void PressedLeftShoulder() {}
  virtual void PressedRightShoulder() {}
  virtual void PressedDpad(bool left, bool right, bool up, bool down) {}
  virtual void HeldDpad(bool left, bool right, bool up, bool down) {}
  virtual void PressedHint() {}
  virtual void PressedPause() {}
  virtual void PressedHome() {}
  // Screen positions in virtual pixels: where the finger came down, where it is
  // while held, where it lifted.
  virtual void StylusDown(const nox::Vector2& position) {}
  virtual void StylusHeld(const nox::Vector2& position) {}
  virtual void StylusUp(const nox::Vector2& position) {}

  // Something shown while the scene is built (a picture over a slow level load);
  // owned from here on and deleted, closed first if open, by Enter.
  void SetLoadingAid(nox::Window* aid);
  // A subclass with a view of its own (borrowed; it must live as long as the scene).
  void SetView(ActivityView* view) { m_pView = view ? view : &m_View; }

 private:
  bool HandleButtons();
  bool HandleStylus();

  nox::PhysicsEngine m_PhysicsEngine;
  nox::CollisionPoolMap m_CollisionPools;
  nox::AnimDataMap m_AnimDataMap;
  nox::AnimationEngine m_WorldAnimations;
  nox::AnimationEngine m_ScreenAnimations;
  nox::AgentEngine m_AgentEngine;
  nox::AgentContext m_AgentContext;
  nox::AnimationContext m_AnimationContext;
  nox::PhysicsContext m_PhysicsContext;
  nox::ContextPool m_ContextPool;
  nox::Camera m_Camera;
  ActivityView m_View;
  ActivityView* m_pView = &m_View;
  nox::Window* m_pLoadingAid = nullptr;  // owned until Enter
  bool m_bPhysicsOn;
  bool m_bDPadLocked = false;
  bool m_bStylusLocked = false;
};

}  // namespace noxfw
