// The shell's menus under test: the widget test's headless screen, input and window
// manager, plus the settings the menus read, a fresh save game, and a scene manager
// that only counts the endings the menus ask for. Sounds are not played; each one a
// menu queues is named in the automation log as it is looked up (the test title has
// no audio), which is how a test hears what a menu would say.
#pragma once
#include <string>
#include <vector>

#include "../../framework/menu/MenuTestSupport.h"
#include "core/Settings.h"
#include "menu/Menu.h"
#include "save/GameSaveGame.h"
#include "scenes/SceneManager.h"

namespace shelltest {

// Counts DoneScene and keeps the reasons; changes nothing.
class EndingsSceneManager : public noxfw::SceneManager {
 public:
  void DoneScene(eExitReason reason) override { reasons.push_back(reason); }
  std::vector<eExitReason> reasons;
};

class ShellMenuTest : public menutest::WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    nox::Settings::Create();
    nox::Settings* s = nox::Settings::s_pSettings;
    s->RegisterBool("Award All Badges", false, "1.Global", nullptr);
    s->RegisterBool("Unlock All Games", true, "1.Global", nullptr);
    s->RegisterBool("Unlock All Unlockables", false, "1.Global", nullptr);
    s->RegisterBool("Unlock All Adventure Zones", false, "A0.Adventure", nullptr);
    game::GameSaveGame::Create();
    Save().ResetData();
    m_pScenes = new EndingsSceneManager();
    noxfw::SceneManager::sm_pInstance = m_pScenes;
  }
  void TearDown() override {
    CloseMenu();
    noxfw::SceneManager::sm_pInstance = nullptr;
    delete m_pScenes;
    game::GameSaveGame::Destroy();
    nox::Settings::Destroy();
    WidgetTest::TearDown();
  }

  static void SetBool(const char* name, bool value) { nox::Settings::s_pSettings->SetBoolValue(name, value); }
  static game::GameSaveGame& Save() { return *game::GameSaveGame::s_pSaveGame; }
  static game::GameSaveData& Block() { return Save().GetBlock(); }

  // Takes the menu, opens it on the screen as the scene manager would.
  void ShowMenu(noxfw::Menu* menu) {
    CloseMenu();
    m_pMenu = menu;
    m_pMenu->SetScreen(nox::ScreenManager::Get());
    nox::WindowManager::Get()->OpenWindow(m_pMenu, false);
  }
  void CloseMenu() {
    if (!m_pMenu) return;
    nox::WindowManager::Get()->CloseWindow(m_pMenu);
    delete m_pMenu;
    m_pMenu = nullptr;
  }
  // Frames until the menu's script has run out (or a bound is reached).
  void RunScript(noxfw::Sequencer& script, int maxFrames = 200) {
    for (int i = 0; i < maxFrames && !script.IsEmpty(); ++i) Frame();
  }

  // The sounds asked for since the last call, in order.
  std::vector<std::string> TakeSounds() {
    const std::string log = testfiles::ReadText(m_Dir / "automation.log");
    const std::string marker = "Failed to find audio: ";
    std::vector<std::string> names;
    size_t at = log.find(marker, m_LogRead);
    while (at != std::string::npos) {
      const size_t end = log.find('\n', at);
      names.push_back(log.substr(at + marker.size(), end - at - marker.size()));
      at = log.find(marker, end);
    }
    m_LogRead = log.size();
    return names;
  }

  EndingsSceneManager* m_pScenes = nullptr;
  noxfw::Menu* m_pMenu = nullptr;  // owned
  size_t m_LogRead = 0;
};

}  // namespace shelltest
