#include "scenes/ActivityScene.h"

#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/WindowManager.h"
#include "input/Controller.h"
#include "input/Input.h"

namespace noxfw {

NOX_RTTI_DEFINE(ActivityScene, nox::Scene);

ActivityScene::ActivityScene(bool physicsOn)
    : m_PhysicsEngine(nox::Real(1), kHullCount),
      m_CollisionPools(m_PhysicsEngine),
      m_View(*this),
      m_bPhysicsOn(physicsOn) {
  m_AgentContext.m_pAgentEngine = &m_AgentEngine;
  m_AnimationContext.m_pWorldEngine = &m_WorldAnimations;
  m_AnimationContext.m_pScreenEngine = &m_ScreenAnimations;
  m_AnimationContext.m_pAnimDataMap = &m_AnimDataMap;
  m_PhysicsContext.m_pPhysicsEngine = &m_PhysicsEngine;
  m_PhysicsContext.m_pCollisionPoolMap = &m_CollisionPools;
  m_ContextPool.m_pAgentContext = &m_AgentContext;
  m_ContextPool.m_pAnimationContext = &m_AnimationContext;
  m_ContextPool.m_pPhysicsContext = &m_PhysicsContext;
  m_ContextPool.m_pScene = this;
  if (const nox::Screen* screen = nox::ScreenManager::Get()) {
    const nox::Rectangle& r = screen->GetVirtualRectangle();
    m_Camera.SetViewSize(r.right - r.left, r.bottom - r.top);
  }
}

ActivityScene::~ActivityScene() {
  SetLoadingAid(nullptr);
  m_AgentEngine.DeinitAllAgents();
  m_AgentEngine.DestroyAllAgents();
  // The pools go before the engine that lends them their nodes.
  m_CollisionPools.Destroy();
}

void ActivityScene::SetLoadingAid(nox::Window* aid) {
  if (m_pLoadingAid && m_pLoadingAid != aid) {
    if (m_pLoadingAid->GetWindowState() != nox::Window::kClosed && nox::WindowManager::Get()) {
      nox::WindowManager::Get()->CloseWindow(m_pLoadingAid);
    }
    delete m_pLoadingAid;
  }
  m_pLoadingAid = aid;
}

void ActivityScene::Enter() {
  SetLoadingAid(nullptr);
}

nox::Window* ActivityScene::GetView(unsigned long index) const {
  return index == 0 ? m_pView : nullptr;
}

void ActivityScene::Update(unsigned long dt) {
  // A paused scene holds still under whatever paused it (the exit question, an input
  // reminder): nothing moves, steps or counts down until it is resumed.
  if (IsPaused()) return;
  m_WorldAnimations.Update(dt);
  m_ScreenAnimations.Update(dt);
  m_AgentEngine.Update(dt);
  if (m_bPhysicsOn) {
    PrePhysics();
    // Velocities are units per frame: one fixed step, whatever the frame's length.
    m_PhysicsEngine.step(1);
    PostPhysics();
  }
  UpdateScene(dt);
  m_Camera.Update(dt);
}

void ActivityScene::Draw(ActivityView& view) {
  m_WorldAnimations.SetViewRect(m_Camera.GetScreenBoundaries());
  view.BeginWorldLayer(m_Camera);
  m_WorldAnimations.Draw();
  view.EndWorldLayer();
  m_ScreenAnimations.Draw();
}

void ActivityScene::LockInput() {
  nox::Scene::LockInput();
  LockDPad(true);
  LockStylus(true);
}

void ActivityScene::UnlockInput() {
  nox::Scene::UnlockInput();
  LockDPad(false);
  LockStylus(false);
}

bool ActivityScene::HandleInput(ActivityView& view) {
  if (IsPaused() || IsInputLocked()) return false;
  const bool buttons = HandleButtons();
  const bool stylus = HandleStylus();
  return buttons || stylus;
}

bool ActivityScene::HandleButtons() {
  nox::Input* input = nox::Input::s_pInput;
  if (!input || input->GetControllerCount() == 0) return false;
  const nox::Controller* pad = input->GetController(0);
  if (!pad) return false;
  const uint32_t triggered = pad->GetTriggeredButtons(0xFFFFFFFFu);
  bool handled = false;
  if (triggered & kButtonA) PressedA(), handled = true;
  if (triggered & kButtonB) PressedB(), handled = true;
  if (triggered & kButtonHint) PressedHint(), handled = true;
  if (triggered & kButtonPause) PressedPause(), handled = true;
  if (triggered & kButtonHome) PressedHome(), handled = true;
  if (triggered & kButtonLeftShoulder) PressedLeftShoulder(), handled = true;
  if (triggered & kButtonRightShoulder) PressedRightShoulder(), handled = true;
  if (DPadLocked()) return handled;
  if (triggered & kDPadMask) {
    PressedDpad(triggered & kButtonLeft, triggered & kButtonRight, triggered & kButtonUp,
                triggered & kButtonDown);
    handled = true;
  }
  const uint32_t held = pad->GetHeldButtons(kDPadMask);
  if (held) {
    HeldDpad(held & kButtonLeft, held & kButtonRight, held & kButtonUp, held & kButtonDown);
    handled = true;
  }
  return handled;
}

bool ActivityScene::HandleStylus() {
  if (StylusLocked()) return false;
  const nox::Screen* screen = nox::ScreenManager::Get();
  if (!screen || screen->GetTouchStateCount() == 0) return false;
  const nox::Screen::MultiTouchState& touch = screen->GetTouchState(0);
  if (touch.triggered) {
    StylusDown(touch.triggerPosition);
  } else if (touch.released) {
    StylusUp(touch.releasePosition);
  } else if (touch.down) {
    StylusHeld(touch.heldPosition);
  } else {
    return false;
  }
  return true;
}

}  // namespace noxfw
