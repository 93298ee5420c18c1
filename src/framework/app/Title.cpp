#include "app/Title.h"

#include "core/Debug.h"
#include "core/DownloadManager.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "core/Real.h"
#include "core/Settings.h"
#include "debug/DebugOverlay.h"
#include "graphics/FontManager.h"
#include "graphics/Rectangle.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/WindowManager.h"
#include "input/Input.h"
#include "learning/BadgeManager.h"
#include "menu/DebugSettingsScene.h"
#include "menu/ScreenTransition.h"
#include "ostra/System.h"
#include "scenes/SceneManager.h"
#include "sound/SoundManager.h"
#include "sound/SoundPlayer.h"

namespace noxfw {

namespace {

// While the screen transition is faded out or running, no window sees the frame's
// input (polling has happened all the same).
bool ScreenTransitionHoldsInput() {
  ScreenTransition* transition = ScreenTransition::sm_pInstance;
  return transition && transition->IsFadedOrTransitioning();
}

}  // namespace

using nox::GameHost;
using nox::Real;

Title::Title() : m_AudioPath("Audio/"), m_Profiler("Title") {}

Title::~Title() {}

void Title::Enter() {
  GameHost::Create();
  nox::PathRegistry::Create();
  nox::ScreenManager::Create();
  nox::Settings::Create();
  nox::WindowManager::Create();
  nox::DownloadManager::Create();
  nox::Input::Create(1);
  nox::FontManager::Create();
  nox::DebugOverlay::Create();
  nox::SoundPlayer::Create(16, false);
  BadgeManager::Create();
  // Fade-only: no transition model is loaded.
  ScreenTransition::Create(nullptr);
  nox::WindowManager::Get()->OpenWindow(ScreenTransition::sm_pInstance, true);
  nox::SoundPlayer::m_pSoundPlayer->Initialize(m_AudioPath);
  RegisterSettings();
  // One poll now, so that the first frame sees no stale edge.
  nox::Input::s_pInput->Update();
}

uint32_t Title::ClampedDelta(uint32_t deltaMS, uint8_t fixedStep) {
  if (deltaMS <= kMaxFrameMS) return deltaMS;
  // A stall of more than a second advances by the fixed step in frames of 1/60 s,
  // taken as a whole number of ms: 0 with the default step of 1, on purpose.
  Real step = Real(static_cast<int>(fixedStep)) * Real::FromRaw(0x444);
  return static_cast<uint32_t>(step.ToInt());
}

void Title::MeasureFrame() {
  GameHost* host = GameHost::s_pGameHost;
  uint32_t now = host->GetCurrentMilliseconds();
  m_Profiler.m_LastFrameMS = now - m_Profiler.m_FrameStartMS;
  m_Profiler.m_WindowSumMS += m_Profiler.m_LastFrameMS;
  m_Profiler.m_FrameEndMS = now;
  if (m_Profiler.m_WindowFrames == kStatisticsWindow) {
    // The sum is shifted into Q16.16 first; a sum of 0 gives 0 without dividing.
    Real sum = Real::FromRaw(static_cast<int32_t>(m_Profiler.m_WindowSumMS << 16));
    Real fps = sum.Raw() == 0 ? Real::FromRaw(0) : Real(20000) / sum;
    m_Profiler.m_FPS = static_cast<uint32_t>(fps.ToInt());
    m_Profiler.m_AverageMS = m_Profiler.m_WindowSumMS / kStatisticsWindow;
    m_Profiler.m_WindowSumMS = 0;
    m_Profiler.m_WindowFrames = 0;
  }
  m_LastFPS = m_Profiler.m_FPS;
  m_Profiler.m_FrameStartMS = host->GetCurrentMilliseconds();
  ++m_Profiler.m_WindowFrames;
}

void Title::HandleInput() {
  MeasureFrame();
  GameHost::s_pGameHost->Update();
  nox::Input::s_pInput->Update();
  if (ScreenTransitionHoldsInput()) return;
  nox::WindowManager::Get()->HandleInput();
  if (Vantle::CSystem().AreCheatsEnabled()) RunDebugGestures();
}

void Title::RunDebugGestures() {
  // The chord: both shoulder buttons held while hint is pressed.
  nox::Controller* pad = nox::Input::s_pInput->GetController(0);
  const uint32_t shoulders = 0x40 | 0x80;
  if (pad->GetHeldButtons(shoulders) == shoulders && pad->GetTriggeredButtons(0x200)) {
    ShowSettingsScene();
    return;
  }

  // The long hold: a finger kept down for kDebugHoldMS inside a small square in the
  // screen's far (bottom-right) corner.
  static uint32_t sSylusTriggerMS = 0;
  static uint32_t sSylusHeldMS = 0;
  nox::Screen* screen = nox::ScreenManager::Get();
  if (!screen || screen->GetTouchStateCount() == 0) return;
  const nox::Screen::MultiTouchState& touch = screen->GetTouchState(0);
  uint32_t now = GameHost::s_pGameHost->GetCurrentMilliseconds();
  if (touch.triggered) {
    sSylusHeldMS = 0;
    sSylusTriggerMS = now;
  } else if (touch.down) {
    sSylusHeldMS = now - sSylusTriggerMS;
  }
  if (!touch.down || sSylusHeldMS < kDebugHoldMS) return;
  nox::Rectangle area;
  screen->GetVirtualPixelMapping(area);
  int32_t right = screen->GetVirtualPixelLeft().ToInt() + (area.right - area.left).ToInt();
  int32_t bottom = screen->GetVirtualPixelTop().ToInt() + (area.bottom - area.top).ToInt();
  int32_t x = touch.heldPosition.x.ToInt();
  int32_t y = touch.heldPosition.y.ToInt();
  if (x >= right - kDebugCornerPixels && y >= bottom - kDebugCornerPixels) {
    // Start timing again so that one hold opens the settings once.
    sSylusTriggerMS = now;
    sSylusHeldMS = 0;
    ShowSettingsScene();
  }
}

void Title::Update() {
  GameHost* host = GameHost::s_pGameHost;
  uint32_t dt = ClampedDelta(host->GetDeltaMS(), host->GetFixedStep());
  nox::SoundPlayer::m_pSoundPlayer->Update(dt);
  if (SceneManager::sm_pInstance) SceneManager::sm_pInstance->Update(dt);
  nox::WindowManager::Get()->Update(dt);
  if (nox::SoundManager::sm_pInstance) nox::SoundManager::sm_pInstance->Update(dt);
  if (Vantle::CSystem().AreCheatsEnabled()) nox::DebugOverlay::sm_pInstance->Update(dt);
}

void Title::Draw() {
  nox::WindowManager* windows = nox::WindowManager::Get();
  windows->Clear();
  windows->Draw();
  if (Vantle::CSystem().AreCheatsEnabled()) {
    PrintStatistics();
    nox::DebugOverlay::sm_pInstance->Draw();
  }
  nox::ScreenManager::GetPtr()->SwapBuffers(0);
}

void Title::Throttle() {
  if (!nox::Settings::s_pSettings->GetBoolValue("Throttle Framerate")) return;
  GameHost* host = GameHost::s_pGameHost;
  uint32_t now = host->GetCurrentMilliseconds();
  if (m_LastThrottleMS == 0) {
    m_LastThrottleMS = now;
    return;
  }
  uint32_t target = 1000 / host->GetTargetFPS();
  uint32_t elapsed = now - m_LastThrottleMS;
  if (elapsed >= target) {
    m_LastThrottleMS = now;
    return;
  }
  host->Sleep(target - elapsed);
  m_LastThrottleMS = host->GetCurrentMilliseconds();
}

void Title::Leave() {
  nox::SoundPlayer::m_pSoundPlayer->Shutdown();
  nox::WindowManager::Get()->CloseWindow(ScreenTransition::sm_pInstance);
  BadgeManager::Destroy();
  nox::SoundManager::Destroy();
  nox::SoundPlayer::Destroy();
  nox::DebugOverlay::Destroy();
  nox::FontManager::Destroy();
  nox::DownloadManager::Destroy();
  // The host goes before the window, settings and screen singletons: none of them
  // may ask for the time while being destroyed.
  nox::GameHost::Destroy();
  ScreenTransition::Destroy();
  nox::WindowManager::Destroy();
  nox::Settings::Destroy();
  nox::ScreenManager::Destroy();
  nox::Input::Destroy();
  nox::PathRegistry::Destroy();
}

// Sends the running scene to the settings scene through its Quit column. Only the
// scene manager's copy of the row changes, never the table, so the settings scene's
// way back returns to the scene that was running.
void Title::ShowSettingsScene() {
  noxfw::SceneManager* manager = noxfw::SceneManager::sm_pInstance;
  if (!manager) return;
  noxfw::SceneData data = manager->GetSceneData();
  if (data.id == DebugSettingsScene::kSceneId) return;
  data.next[noxfw::ExitReason::Quit] = DebugSettingsScene::kSceneId;
  manager->SetSceneData(data);
  manager->DoneScene(noxfw::ExitReason::Quit);
}

void Title::PrintStatistics() {
  if (!nox::Settings::s_pSettings->GetBoolValue("Print FPS")) return;
  // 30 and up green, 20 to 29 yellow, below 20 white.
  nox::Real red = m_LastFPS >= 30 ? nox::Real(0) : nox::Real(1);
  nox::Real blue = m_LastFPS >= 20 ? nox::Real(0) : nox::Real(1);
  nox::DebugOverlay::sm_pInstance->AddString(false, nox::Vector3(red, nox::Real(1), blue), "FPS: %u",
                                             m_LastFPS);
}

void Title::RegisterSettings() {
  nox::Settings* s = nox::Settings::s_pSettings;
  s->RegisterU32("Sound Duck Amount", 20, 0, 100, 5, "1.Global", nullptr);
  s->RegisterU32("Sound Duck Step", 4, 1, 10, 1, "1.Global", nullptr);
  s->RegisterU32("Background Music Level", 45, 0, 100, 5, "1.Global", nullptr);
  s->RegisterBool("Throttle Framerate", false, "2.Debug", nullptr);
  s->RegisterBool("Erase Save Game", false, "2.Debug", nullptr);
  s->RegisterBool("Award All Badges", false, "1.Global", nullptr);
  s->RegisterBool("Disable Random Exhaustive Shuffling", false, "1.Global", nullptr);
  s->RegisterBool("Print FPS", false, "2.Debug", nullptr);
  s->RegisterBool("Unlock All Games", true, "1.Global", nullptr);
  s->RegisterBool("Unlock All Unlockables", false, "1.Global", nullptr);
  s->RegisterBool("Stop all BGM", false, "1.Global", nullptr);
  s->RegisterBool("View Rambler Screen", false, "1.Global", nullptr);
}

}  // namespace noxfw
