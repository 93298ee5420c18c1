// The activity scene's frame and input, and the command queue beside it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../engine/files/TestFiles.h"
#include "agents/Agent.h"
#include "core/GameHost.h"
#include "graphics/Animation.h"
#include "graphics/ScreenManager.h"
#include "graphics/WindowManager.h"
#include "input/Input.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"
#include "ostra/TouchEventQueue.h"
#include "physics/Particle.h"
#include "scenes/ActivityScene.h"
#include "scenes/CommandManager.h"

namespace {

namespace Host = Hollin::Ostra::Host;
using nox::Real;
using noxfw::ActivityScene;

std::vector<std::string> g_Calls;

uint32_t g_Buttons = 0;
uint32_t ReadButtons() {
  return g_Buttons;
}

std::string Flags(bool a, bool b, bool c, bool d) {
  return std::string(a ? "L" : "-") + (b ? "R" : "-") + (c ? "U" : "-") + (d ? "D" : "-");
}

std::string At(const nox::Vector2& p) {
  return std::to_string(p.x.ToInt()) + "," + std::to_string(p.y.ToInt());
}

class ProbeAnimation : public nox::Animation {
 public:
  explicit ProbeAnimation(const char* label) : m_Label(label) {}
  void Update(unsigned long ms) override { g_Calls.push_back(m_Label); }
  void Draw() override {}

 private:
  std::string m_Label;
};

class ProbeAgent : public nox::Agent {
 public:
  explicit ProbeAgent(nox::ContextPool& pool) : nox::Agent(pool) {}
  void Update(unsigned long dt) override { g_Calls.push_back("agent " + std::to_string(dt)); }
};

// Records its hooks; a moving particle in its physics engine shows where the step ran.
class ProbeScene : public ActivityScene {
 public:
  explicit ProbeScene(bool physicsOn = true)
      : ActivityScene(physicsOn), m_World("world"), m_Screen("screen") {
    GetWorldAnimations().AddAnimation(&m_World);
    GetScreenAnimations().AddAnimation(&m_Screen);
    GetAgentEngine().AddAgent(new ProbeAgent(*GetContextPool()));
    m_Body.m_Position = nox::Vector3(Real(1), Real(), Real());  // one unit a frame to the right
    GetPhysicsEngine().AddParticle(&m_Body);
  }
  ~ProbeScene() override {
    GetWorldAnimations().RemoveAnimation(&m_World);
    GetScreenAnimations().RemoveAnimation(&m_Screen);
    GetPhysicsEngine().RemoveParticle(&m_Body);
  }

 protected:
  void PrePhysics() override { g_Calls.push_back("pre x=" + std::to_string(m_Body.m_Position.x.ToInt())); }
  void PostPhysics() override { g_Calls.push_back("post x=" + std::to_string(m_Body.m_Position.x.ToInt())); }
  void UpdateScene(unsigned long dt) override {
    g_Calls.push_back("scene " + std::to_string(dt));
    if (m_bPan) GetCamera().PanToPosition(nox::Vector3(Real(600), Real(136), Real()));
  }
  void PressedA() override { g_Calls.push_back("A"); }
  void PressedB() override { g_Calls.push_back("B"); }
  void PressedLeftShoulder() override { g_Calls.push_back("LS"); }
  void PressedRightShoulder() override { g_Calls.push_back("RS"); }
  void PressedHint() override { g_Calls.push_back("hint"); }
  void PressedPause() override { g_Calls.push_back("pause"); }
  void PressedHome() override { g_Calls.push_back("home"); }
  void PressedDpad(bool l, bool r, bool u, bool d) override {
    g_Calls.push_back("pressed " + Flags(l, r, u, d));
  }
  void HeldDpad(bool l, bool r, bool u, bool d) override { g_Calls.push_back("held " + Flags(l, r, u, d)); }
  void StylusDown(const nox::Vector2& p) override { g_Calls.push_back("down " + At(p)); }
  void StylusHeld(const nox::Vector2& p) override { g_Calls.push_back("still " + At(p)); }
  void StylusUp(const nox::Vector2& p) override { g_Calls.push_back("up " + At(p)); }

 public:
  bool m_bPan = false;

 private:
  ProbeAnimation m_World;
  ProbeAnimation m_Screen;
  nox::Particle m_Body;
};

class ActivitySceneTest : public ::testing::Test {
 protected:
  void SetUp() override {
    g_Calls.clear();
    g_Buttons = 0;
    Host::HostConfig config;
    config.saveRoot = m_Dir / "players";
    config.logFile = m_Dir / "automation.log";
    config.clock = Host::ClockMode::kVirtual;
    config.headless = true;
    config.quiet = true;
    Host::SetHostConfig(config);
    Hollin::Ostra::CTouchEventQueue().Clear();
    nox::Input::SetButtonSource(ReadButtons);
    nox::GameHost::Create();
    nox::ScreenManager::Create();
    nox::WindowManager::Create();
    nox::Input::Create(1);
  }
  void TearDown() override {
    nox::Input::Destroy();
    nox::WindowManager::Destroy();
    nox::ScreenManager::Destroy();
    nox::GameHost::Destroy();
    nox::Input::SetButtonSource(nullptr);
    Hollin::Ostra::CTouchEventQueue().Clear();
    Host::SetHostConfig(Host::HostConfig());
  }
  static void Touch(bool down, int x, int y) {
    Hollin::Ostra::tTouchData t;
    t.touchState = down ? 100 : 0;
    t.x = static_cast<int16_t>(x);
    t.y = static_cast<int16_t>(y);
    t.timeMS = 0;
    Hollin::Ostra::CTouchEventQueue().Push(t);
  }
  // Polls the input and hands it to the scene, as its open view would be.
  static bool Poll(ActivityScene& scene) {
    Hollin::Ostra::CKernelMPI().TaskSleep(17);
    nox::GameHost::s_pGameHost->Update();
    nox::Input::s_pInput->Update();
    return scene.GetView(0)->HandleInput();
  }

  testfiles::TempDir m_Dir;
};

using Calls = std::vector<std::string>;

TEST_F(ActivitySceneTest, AFrameRunsAnimationsAgentsPhysicsThenTheSceneHookInThatOrder) {
  ProbeScene scene;
  scene.Update(16);
  EXPECT_EQ(g_Calls, Calls({"world", "screen", "agent 16", "pre x=1", "post x=2", "scene 16"}));
}

TEST_F(ActivitySceneTest, TheCameraMovesLastSoThatAPanStartedByTheSceneBeginsInTheSameFrame) {
  ProbeScene scene;
  const nox::Real start = scene.GetCamera().GetPosition().x;
  scene.m_bPan = true;
  scene.Update(16);
  EXPECT_GT(scene.GetCamera().GetPosition().x, start);
}

TEST_F(ActivitySceneTest, PhysicsStepsOncePerFrameWhateverTheFrameLasts) {
  ProbeScene scene;
  scene.Update(0);
  scene.Update(1000);
  scene.Update(33);
  EXPECT_EQ(g_Calls[4], "post x=2");
  EXPECT_EQ(g_Calls[10], "post x=3");
  EXPECT_EQ(g_Calls[16], "post x=4");
}

TEST_F(ActivitySceneTest, WithPhysicsOffNeitherHookRunsNorTheWorldSteps) {
  ProbeScene scene(false);
  scene.Update(16);
  EXPECT_EQ(g_Calls, Calls({"world", "screen", "agent 16", "scene 16"}));
  scene.SetupPhysics();
  g_Calls.clear();
  scene.Update(16);
  EXPECT_EQ(g_Calls[3], "pre x=1");
  scene.TearDownPhysics();
  g_Calls.clear();
  scene.Update(16);
  EXPECT_EQ(g_Calls.size(), 4u);
}

TEST_F(ActivitySceneTest, APausedSceneHoldsStillUntilResumed) {
  ProbeScene scene;
  scene.Pause();
  scene.Update(16);
  EXPECT_TRUE(g_Calls.empty());
  scene.Resume();
  scene.Update(16);
  EXPECT_EQ(g_Calls, Calls({"world", "screen", "agent 16", "pre x=1", "post x=2", "scene 16"}));
}

TEST_F(ActivitySceneTest, ButtonsAndTheDpadReachTheirHooks) {
  ProbeScene scene(false);
  g_Buttons = 0x10 | 0x20 | 0x40 | 0x80 | 0x100 | 0x200 | 0x400;
  EXPECT_TRUE(Poll(scene));
  EXPECT_EQ(g_Calls, Calls({"A", "B", "hint", "pause", "home", "LS", "RS"}));

  // Left and up pressed; then up held while right comes.
  g_Calls.clear();
  g_Buttons = 0x8 | 0x1;
  Poll(scene);
  EXPECT_EQ(g_Calls, Calls({"pressed L-U-"}));
  g_Calls.clear();
  g_Buttons = 0x1 | 0x4;
  Poll(scene);
  EXPECT_EQ(g_Calls, Calls({"pressed -R--", "held --U-"}));
  g_Calls.clear();
  g_Buttons = 0;
  EXPECT_FALSE(Poll(scene));
  EXPECT_TRUE(g_Calls.empty());
}

TEST_F(ActivitySceneTest, TheStylusGivesDownHeldAndUpWithItsPositions) {
  ProbeScene scene(false);
  Touch(true, 100, 50);
  Poll(scene);
  Poll(scene);
  Touch(true, 120, 60);
  Poll(scene);
  Touch(false, 120, 60);
  Poll(scene);
  Poll(scene);
  EXPECT_EQ(g_Calls, Calls({"down 100,50", "still 100,50", "still 120,60", "up 120,60"}));
}

TEST_F(ActivitySceneTest, LocksSilenceTheirOwnPartAndLockInputSilencesAll) {
  ProbeScene scene(false);
  scene.LockDPad(true);
  g_Buttons = 0x10 | 0x8;
  Poll(scene);
  EXPECT_EQ(g_Calls, Calls({"A"}));

  g_Calls.clear();
  g_Buttons = 0;
  Poll(scene);
  scene.LockDPad(false);
  scene.LockStylus(true);
  Touch(true, 10, 10);
  g_Buttons = 0x4;
  Poll(scene);
  EXPECT_EQ(g_Calls, Calls({"pressed -R--"}));

  g_Calls.clear();
  g_Buttons = 0;
  Touch(false, 10, 10);
  Poll(scene);
  Poll(scene);
  EXPECT_TRUE(g_Calls.empty());
  scene.LockStylus(false);
  scene.LockInput();
  EXPECT_TRUE(scene.DPadLocked());
  EXPECT_TRUE(scene.StylusLocked());
  g_Buttons = 0x10;
  EXPECT_FALSE(Poll(scene));
  scene.UnlockInput();
  EXPECT_FALSE(scene.DPadLocked());
  EXPECT_FALSE(scene.StylusLocked());
  g_Buttons = 0x20;
  Poll(scene);
  scene.Pause();
  g_Buttons = 0x10;
  EXPECT_FALSE(Poll(scene));
  EXPECT_EQ(g_Calls, Calls({"B"}));
}

class LoadingPicture : public nox::Window {
 public:
  ~LoadingPicture() override { g_Calls.push_back("aid deleted"); }
  void Draw() override {}
};

class SlowScene : public ProbeScene {
 public:
  SlowScene() {
    LoadingPicture* aid = new LoadingPicture();
    nox::WindowManager::Get()->OpenWindow(aid, true);
    SetLoadingAid(aid);
  }
};

TEST_F(ActivitySceneTest, EnterClosesAndDeletesTheLoadingAidOnce) {
  SlowScene scene;
  EXPECT_EQ(nox::WindowManager::Get()->GetOverlays().size(), 1u);
  scene.Enter();
  EXPECT_EQ(g_Calls, Calls({"aid deleted"}));
  EXPECT_TRUE(nox::WindowManager::Get()->GetOverlays().empty());
  scene.Enter();
  EXPECT_EQ(g_Calls.size(), 1u);
}

TEST_F(ActivitySceneTest, TheContextPoolReachesTheScenesOwnEngines) {
  ProbeScene scene;
  nox::ContextPool* pool = scene.GetContextPool();
  ASSERT_NE(pool, nullptr);
  EXPECT_EQ(pool->GetAgentEngine(), scene.GetAgentContext());
  EXPECT_EQ(pool->m_pAnimationContext->m_pWorldEngine, scene.GetAnimationContext());
  EXPECT_EQ(pool->m_pAnimationContext->m_pScreenEngine, &scene.GetScreenAnimations());
  EXPECT_EQ(pool->m_pPhysicsContext->m_pPhysicsEngine, scene.GetPhysicsContext());
  EXPECT_EQ(pool->m_pPhysicsContext->m_pCollisionPoolMap, &scene.GetCollisionPoolMap());
  EXPECT_EQ(pool->m_pScene, &scene);
}

using noxfw::CommandManager;

class RecordingCommands : public CommandManager {
 public:
  void HandleCommand(unsigned long command) override {
    handled.push_back(command);
    // A handler that queues another command sees it run in a later frame.
    if (command == 7) Run(8);
  }
  std::vector<unsigned long> handled;
};

TEST(CommandManagerTest, RunsOneCommandPerFrameInOrderAndAnEmptyQueueDoesNothing) {
  RecordingCommands commands;
  commands.Update(16);
  EXPECT_TRUE(commands.handled.empty());

  commands.Run(3);
  commands.Run(7);
  commands.Update(16);
  EXPECT_EQ(commands.handled, std::vector<unsigned long>({3}));
  commands.Update(0);  // dt does not matter
  EXPECT_EQ(commands.handled, std::vector<unsigned long>({3, 7}));
  EXPECT_EQ(commands.GetCount(), 1u);
  commands.Update(16);
  EXPECT_EQ(commands.handled, std::vector<unsigned long>({3, 7, 8}));
  EXPECT_TRUE(commands.IsEmpty());
}

TEST(CommandManagerTest, InstallReplacesTheSingleton) {
  CommandManager::Create();
  ASSERT_NE(CommandManager::sm_pInstance, nullptr);
  RecordingCommands* mine = new RecordingCommands();
  CommandManager::Install(mine);
  EXPECT_EQ(CommandManager::sm_pInstance, mine);
  CommandManager::Destroy();
  EXPECT_EQ(CommandManager::sm_pInstance, nullptr);
}

}  // namespace
