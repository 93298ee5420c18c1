// The graphics test title: a second App.so, never part of the game, that puts the
// engine's 2D drawing and input through appmanager end to end. Bottom to top it shows
// a scrolling background (SkyWindow), animated spinners and a star to drag
// (SpriteWindow), text in two sizes (TextWindow), and a black fader overlay that
// fades in over the first 600 ms.
//
// Its frame is the game's: host clock, input poll, window input, window update with
// the frame's delta, clear, draw, swap. What it does goes to the automation log:
//   gfx_app: enter
//   gfx_app: faded in at frame N
//   gfx_app: exit after N frames
// and the lines of SpriteWindow. The assets (GfxSpinner, GfxStar, GfxSky, GfxSans at
// 12 and 24) are made at build time by the asset tools from pictures that gfx_art
// draws.
#include <boost/make_shared.hpp>

#include "SkyWindow.h"
#include "SpriteWindow.h"
#include "TextWindow.h"
#include "core/Debug.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "graphics/Fader.h"
#include "graphics/FontManager.h"
#include "graphics/ScreenManager.h"
#include "graphics/WindowManager.h"
#include "input/Input.h"
#include "ostra/AppInterface.h"

namespace gfxapp {

namespace {

const unsigned short kFadeInMS = 600;
const uint32_t kMaxFrameMS = 1000;  // a longer frame counts as no time at all

class GfxApp : public CAppInterface {
 public:
  void Enter() override {
    AllocOverideEnable();
    nox::GameHost::Create();
    nox::PathRegistry::Create();
    nox::ScreenManager::Create();
    nox::WindowManager::Create();
    nox::Input::Create(1);
    nox::FontManager::Create();

    m_pSky = new SkyWindow();
    m_pSky->Load();
    m_pSprites = new SpriteWindow();
    m_pSprites->Load();
    m_pText = new TextWindow();
    m_pFader = new nox::Fader();
    m_pFader->SetLevel(nox::Real(1));
    nox::Window* normal[] = {m_pSky, m_pSprites, m_pText};
    nox::WindowManager* windows = nox::WindowManager::Get();
    for (nox::Window* window : normal) {
      window->SetScreen(nox::ScreenManager::Get());
      windows->OpenWindow(window, false);
    }
    m_pFader->SetScreen(nox::ScreenManager::Get());
    windows->OpenWindow(m_pFader, true);
    m_pFader->FadeIn(kFadeInMS);
    windows->SetClearColour(nox::Real(), nox::Real(), nox::Real(), nox::Real(1));
    // One poll now, so that the first frame sees no stale edge.
    nox::Input::s_pInput->Update();
    nox::AutomationPrintf("gfx_app: enter");
  }

  void Update() override {
    nox::GameHost* host = nox::GameHost::s_pGameHost;
    host->Update();
    nox::Input::s_pInput->Update();
    nox::WindowManager* windows = nox::WindowManager::Get();
    windows->HandleInput();
    const uint32_t dt = host->GetDeltaMS() > kMaxFrameMS ? 0 : host->GetDeltaMS();
    windows->Update(dt);
    if (!m_bFadedIn && m_pFader->IsFadeComplete()) {
      m_bFadedIn = true;
      nox::AutomationPrintf("gfx_app: faded in at frame %u", m_Frame);
    }
    windows->Clear();
    windows->Draw();
    nox::ScreenManager::GetPtr()->SwapBuffers(0);
    ++m_Frame;
  }

  void Exit() override {
    nox::WindowManager* windows = nox::WindowManager::Get();
    nox::Window* all[] = {m_pFader, m_pText, m_pSprites, m_pSky};
    for (nox::Window* window : all) {
      windows->CloseWindow(window);
      delete window;
    }
    m_pFader = nullptr;
    m_pText = nullptr;
    m_pSprites = nullptr;
    m_pSky = nullptr;
    nox::FontManager::Destroy();
    nox::GameHost::Destroy();
    nox::WindowManager::Destroy();
    nox::ScreenManager::Destroy();
    nox::Input::Destroy();
    nox::PathRegistry::Destroy();
    nox::AutomationPrintf("gfx_app: exit after %u frames", m_Frame);
  }

  // A suspended app gets no frames; the input throws stale touches away on resume.
  void Suspend() override { nox::Input::Suspend(); }
  void Resume() override { nox::Input::Resume(); }

 private:
  SkyWindow* m_pSky = nullptr;  // owned, like every window here
  SpriteWindow* m_pSprites = nullptr;
  TextWindow* m_pText = nullptr;
  nox::Fader* m_pFader = nullptr;
  uint32_t m_Frame = 0;
  bool m_bFadedIn = false;
};

}  // namespace

}  // namespace gfxapp

__attribute__((visibility("default"))) boost::shared_ptr<CAppInterface> CreateApp(void* userData) {
  return boost::make_shared<gfxapp::GfxApp>();
}
