// The game's scene manager under test, for the tests of the scene table and of what the
// shell puts over the scenes: a manager that builds a bare probe scene wherever the game
// has no scene of its own, a fixture that installs one for each test on top of a base
// environment (the widget test's screen and input, or the save game's player), and the
// steps that go to a row of the table and wait for the change to end. The title's input
// step alone is here too, so that what a touch did can be seen before the update.
#pragma once
#include <gtest/gtest.h>

#include "scenes/Scene.h"
#include "shell/GameSceneManager.h"
#include "shell/GameTitle.h"

namespace shelltest {

class ProbeView : public nox::Window {
 public:
  void Draw() override {}
};

class ProbeScene : public nox::Scene {
 public:
  unsigned long GetNumViews() const override { return 1; }
  nox::Window* GetView(unsigned long index) const override {
    return index == 0 ? const_cast<ProbeView*>(&m_View) : nullptr;
  }

 private:
  ProbeView m_View;
};

// Builds the game's own scenes, and MakeProbe's wherever the game has none yet.
class ProbeSceneManager : public game::GameSceneManager {
 public:
  bool CreateScene(unsigned long id) override {
    if (GameSceneManager::CreateScene(id)) return true;
    SetScene(MakeProbe(id));
    EnterScene();
    return true;
  }

 protected:
  virtual nox::Scene* MakeProbe(unsigned long) { return new ProbeScene(); }
};

// The title's input step alone.
class InputTitle : public game::GameTitle {
 public:
  void Input() {
    Hollin::Ostra::CKernelMPI().TaskSleep(17);
    HandleInput();
  }
};

// `Base` with a `Scenes` manager installed for each test: made after PrepareScenes,
// destroyed before Base tears down.
template <typename Base, typename Scenes = ProbeSceneManager>
class SceneManagerFixture : public Base {
 protected:
  void SetUp() override {
    Base::SetUp();
    PrepareScenes();
    m_pScenes = new Scenes();
    noxfw::SceneManager::sm_pInstance = m_pScenes;
  }
  void TearDown() override {
    game::GameSceneManager::Destroy();
    Base::TearDown();
  }
  // What the manager reads as it is made: the soft buttons' art, settings.
  virtual void PrepareScenes() {}
  // One step of a scene change; the manager's update alone unless the test draws too.
  virtual void Step() { m_pScenes->Update(20); }

  void Settle() {
    for (int i = 0; i < 100 && m_pScenes->IsChangingScene(); ++i) Step();
  }
  void GoTo(unsigned long id) {
    m_pScenes->SetSceneData(m_pScenes->GetSceneDataFromTable(id));
    ASSERT_TRUE(m_pScenes->CreateCurrScene());
    Settle();
  }

  Scenes* m_pScenes = nullptr;
};

}  // namespace shelltest
