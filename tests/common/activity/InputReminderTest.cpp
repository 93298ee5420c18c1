// The activity scene base and the invalid-input reminder in a headless title: the
// reminder every second wrong input in a row, the sounds it holds while it speaks, its
// blinking picture, the scene it pauses and gives back, and the scene's own input
// (the soft Hint button first, clicks, the how-to-play stylus).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../framework/menu/MenuTestSupport.h"
#include "activity/shared/ActivityInvalidInputWindow.h"
#include "activity/shared/GameActivityScene.h"
#include "activity/shared/GameQuestionManager.h"
#include "core/HashString.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "menu/Button.h"
#include "shell/DappletSoftButtons.h"
#include "shell/GameSceneManager.h"
#include "sound/GameSoundManager.h"
#include "sound/SoundManager.h"
#include "sound/StreamingSound.h"

namespace {

using game::ActivityInvalidInputWindow;
using game::GameSceneManager;

// Plays without an audio module: started at once, and playing until stopped.
class QuietSound : public nox::StreamingSound {
 public:
  bool Play() override { return Started(1); }
  nox::Sound* Copy() const override { return new QuietSound(*this); }
};

// An activity that records its input hooks and runs a question flow.
class ProbeActivityScene : public game::GameActivityScene {
 public:
  void PressedA() override {
    hooks.push_back("A");
    GameActivityScene::PressedA();
  }
  void PressedHint() override {
    hooks.push_back("Hint");
    GameActivityScene::PressedHint();
  }
  void StylusDown(const nox::Vector2& p) override { taps.push_back(p); }
  void StylusUp(const nox::Vector2& p) override { taps.push_back(p); }
  void UpdateScene(unsigned long dt) override { questions.Update(dt); }

  std::vector<std::string> hooks;
  std::vector<nox::Vector2> taps;
  game::GameQuestionManager questions;
};

// Builds the probe activity as scene 16 and keeps the reasons scenes end with.
class ProbeSceneManager : public GameSceneManager {
 public:
  bool CreateScene(unsigned long id) override {
    if (id != 16) return GameSceneManager::CreateScene(id);
    SetScene(new ProbeActivityScene());
    SetupSoftButtons(id);
    ActivateSoftButtons();
    EnterScene();
    return true;
  }
  void DoneScene(eExitReason reason) override {
    reasons.push_back(reason);
    GameSceneManager::DoneScene(reason);
  }
  std::vector<int> reasons;
};

class InputReminderTest : public menutest::WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    WritePicture("DPad", {"Idle", "Blank", "IdleHighlight"});
    WritePicture("Stylus_LPad", {"Show", "Idle", "IdleHighlight"});
    WritePicture("TrainingOverlay_LPad", {"Flash", "Idle"}, 3);
    WriteButton(game::DappletSoftButtons::kHomeSprite, 44, 44, 4, 4);
    WriteButton(game::DappletSoftButtons::kHintSprite, 44, 44, 432, 4);
    game::GameSoundManager::Create();
    m_pScenes = new ProbeSceneManager();
    noxfw::SceneManager::sm_pInstance = m_pScenes;
    nox::SoundManager::sm_pInstance->SetBackgroundMusic(&m_Music);
    m_pScenes->SetSceneData(m_pScenes->GetSceneDataFromTable(16));
    ASSERT_TRUE(m_pScenes->CreateCurrScene());
    Settle();
    m_pScene = static_cast<ProbeActivityScene*>(m_pScenes->GetScene());
  }
  void TearDown() override {
    GameSceneManager::Destroy();
    nox::SoundManager::Destroy();
    WidgetTest::TearDown();
  }

  // A sprite with one plain frame a sequence (`frames` for the last one), its
  // "Origin" at the top left and the stylus's tip at (10, 20).
  void WritePicture(const std::string& name, const std::vector<std::string>& sequences, int lastFrames = 1) {
    assetlib::AnimDesc desc;
    desc.tileSize = 8;
    desc.storage = assetlib::AnimStorage::kSheet;
    desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
    for (size_t i = 0; i < sequences.size(); ++i) {
      assetlib::AnimSequenceDesc seq;
      seq.name = sequences[i];
      const int frames = i + 1 == sequences.size() ? lastFrames : 1;
      for (int f = 0; f < frames; ++f) seq.frames.push_back({{0u, "plain"}});
      seq.points.push_back({"Origin", std::vector<assetlib::AnimPoint>(frames, {false, 0, 0})});
      seq.points.push_back({"StylusTip", std::vector<assetlib::AnimPoint>(frames, {false, 10, 20})});
      desc.sequences.push_back(seq);
    }
    WriteSprite(name, desc, {{"plain", menutest::Filled(32, 32, menutest::kOtherColour)}});
  }
  // The input half of a frame: the marks of the soft buttons are still there after it.
  static void InputOnly() {
    Hollin::Ostra::CKernelMPI().TaskSleep(17);
    nox::GameHost::s_pGameHost->Update();
    nox::Input::s_pInput->Update();
    nox::WindowManager::Get()->HandleInput();
  }
  void Settle() {
    for (int i = 0; i < 100 && m_pScenes->IsChangingScene(); ++i) Step(20);
  }
  // One frame of the title's update.
  void Step(unsigned long ms = 17) {
    m_pScenes->Update(ms);
    nox::WindowManager::Get()->Update(ms);
  }
  ActivityInvalidInputWindow& Reminder() { return *m_pScenes->GetInputReminder(); }
  bool ReminderOpen() { return m_pScenes->IsInputReminderOpen(); }
  int DeadClicks() const { return LogCount("Failed to find audio: h_OSTM_DeadClickSfx_6\n"); }
  // Frames until the reminder has closed, or a bound.
  int RunReminder() {
    int frames = 0;
    while (ReminderOpen() && frames < 400) {
      Step();
      ++frames;
    }
    return frames;
  }
  static bool Holds(nox::TileAnimation* picture, const char* sequence) {
    return picture->GetCurrentSequenceIndex() ==
           picture->GetTileAnimData()->GetSequenceIndexByName(nox::HashString(sequence));
  }

  ProbeSceneManager* m_pScenes = nullptr;
  ProbeActivityScene* m_pScene = nullptr;
  QuietSound m_Music;
};

}  // namespace

TEST_F(InputReminderTest, TheFirstWrongInputRemindsTheSecondOnlyClicksAndInputMeanwhileChangesNothing) {
  m_pScene->StylusIsInvalid();
  ASSERT_TRUE(ReminderOpen());
  EXPECT_TRUE(Reminder().IsReminding());
  EXPECT_TRUE(m_pScene->IsPaused());
  EXPECT_TRUE(Reminder().GetDPadPicture()->GetVisible());
  EXPECT_EQ(DeadClicks(), 1);

  // During the reminder: no second script, no click, by either path.
  m_pScene->StylusIsInvalid();
  Reminder().DPadIsInvalid();
  Reminder().StylusIsInvalid();
  EXPECT_EQ(DeadClicks(), 1);
  EXPECT_FALSE(Reminder().GetStylusPicture()->GetVisible());

  // It lasts its script: six blinks of 250 ms.
  const int frames = RunReminder();
  EXPECT_GE(frames * 17, 1500);
  EXPECT_LT(frames, 400);
  EXPECT_FALSE(m_pScene->IsPaused());
  EXPECT_FALSE(Reminder().GetDPadPicture()->GetVisible());

  // The second in a row only clicks; the window is gone at its next update.
  m_pScene->StylusIsInvalid();
  EXPECT_TRUE(ReminderOpen());
  EXPECT_FALSE(Reminder().IsReminding());
  EXPECT_EQ(DeadClicks(), 2);
  EXPECT_TRUE(m_pScene->IsPaused());
  Step();
  EXPECT_FALSE(ReminderOpen());
  EXPECT_FALSE(m_pScene->IsPaused());

  // The third reminds again; the other kind keeps its own count.
  m_pScene->StylusIsInvalid();
  EXPECT_TRUE(Reminder().IsReminding());
  RunReminder();
  m_pScene->DPadIsInvalid();
  EXPECT_TRUE(Reminder().IsReminding());
  EXPECT_TRUE(Reminder().GetStylusPicture()->GetVisible());
  EXPECT_EQ(DeadClicks(), 4);
}

TEST_F(InputReminderTest, TheReminderBlinksItsPictureEvery250MsAndThenHidesIt) {
  ActivityInvalidInputWindow window;
  nox::TileAnimation* dpad = window.GetDPadPicture();
  ASSERT_NE(dpad, nullptr);
  window.Open();
  window.DPadIsInvalid();
  window.Update(250);  // the voice, which can't play here
  window.Update(250);  // shown
  for (int blink = 0; blink < ActivityInvalidInputWindow::kBlinkCount; ++blink) {
    window.Update(250);
    EXPECT_TRUE(Holds(dpad, blink % 2 ? "Blank" : "IdleHighlight")) << blink;
    EXPECT_TRUE(dpad->GetVisible()) << blink;
    window.Update(249);
    ASSERT_TRUE(window.IsReminding());
    window.Update(1);  // the wait ends at exactly 250 ms
  }
  window.Update(0);
  EXPECT_FALSE(dpad->GetVisible());
  EXPECT_FALSE(window.IsReminding());
  window.Update(0);
  EXPECT_EQ(window.GetWindowState(), nox::Window::kClosed);
}

TEST_F(InputReminderTest, WhileItSpeaksEverySoundButTheNarratorsCategoryAndTheMusicHold) {
  nox::SoundManager& sounds = *nox::SoundManager::sm_pInstance;
  QuietSound playing[13];
  for (uint32_t c = 0; c < 13; ++c) {
    if (c == 3) continue;  // 3 has no slot
    ASSERT_TRUE(sounds.Play(&playing[c], c, false)) << c;
  }
  m_Music.Play();

  m_pScene->StylusIsInvalid();
  for (uint32_t c = 0; c < 13; ++c) {
    if (c == 3) continue;
    const bool held = c >= 1 && c <= 11 && c != 8;
    EXPECT_EQ(playing[c].IsPaused(), held) << c;
  }
  EXPECT_TRUE(m_Music.IsPaused());

  RunReminder();
  for (uint32_t c = 0; c < 13; ++c) {
    EXPECT_FALSE(playing[c].IsPaused()) << c;
    EXPECT_EQ(playing[c].GetPauseCount(), 0u) << c;
  }
  EXPECT_FALSE(m_Music.IsPaused());

  // Music that was paused before stays paused.
  m_Music.Pause();
  m_pScene->StylusIsInvalid();
  RunReminder();
  EXPECT_TRUE(m_Music.IsPaused());
  EXPECT_EQ(m_Music.GetPauseCount(), 1u);
}

TEST_F(InputReminderTest, PausingTheSceneEndsTheReminderAndTheSceneStaysPausedUntilResumed) {
  nox::SoundManager& sounds = *nox::SoundManager::sm_pInstance;
  QuietSound speech;
  ASSERT_TRUE(sounds.Play(&speech, 1, false));
  m_pScene->StylusIsInvalid();
  m_pScenes->PauseScene();
  EXPECT_FALSE(ReminderOpen());
  EXPECT_TRUE(m_pScene->IsPaused());
  EXPECT_EQ(speech.GetPauseCount(), 1u);  // the scene's pause alone
  Step();
  EXPECT_TRUE(m_pScene->IsPaused());
  m_pScenes->ResumeScene();
  EXPECT_FALSE(m_pScene->IsPaused());
  EXPECT_FALSE(speech.IsPaused());
}

TEST_F(InputReminderTest, TheSoftHintButtonIsTheFramesOnlyInputAndButtonsClick) {
  // The soft buttons lie above the scene and keep the touch; the scene reads their
  // mark in the frame's update, once.
  Touch(true, 450, 20);
  InputOnly();
  ASSERT_TRUE(m_pScenes->GetHintButtonTouched());
  EXPECT_TRUE(m_pScene->hooks.empty());
  Step();
  EXPECT_EQ(m_pScene->hooks, std::vector<std::string>{"Hint"});
  EXPECT_TRUE(m_pScene->taps.empty());
  // Where the scene's input does come, the mark is all it takes that frame.
  m_pScene->hooks.clear();
  Touch(false, 450, 20);
  Frame();
  Touch(true, 450, 20);
  InputOnly();
  m_pScene->HandleInput(m_pScene->GetActivityView());
  Step();
  EXPECT_EQ(m_pScene->hooks, std::vector<std::string>{"Hint"});
  EXPECT_TRUE(m_pScene->taps.empty());
  Touch(false, 450, 20);
  Frame();
  Step();

  m_pScene->hooks.clear();
  const int clicks = LogCount("Failed to find audio: h_OSTM_DefaultClickSfx_6\n");
  Tap(noxfw::ActivityScene::kButtonA);
  EXPECT_EQ(m_pScene->hooks, std::vector<std::string>{"A"});
  EXPECT_EQ(LogCount("Failed to find audio: h_OSTM_DefaultClickSfx_6\n"), clicks + 1);

  // A paused scene takes nothing, the hint button included.
  m_pScene->hooks.clear();
  m_pScene->Pause();
  Tap(noxfw::ActivityScene::kButtonA);
  EXPECT_TRUE(m_pScene->hooks.empty());
}

TEST_F(InputReminderTest, TheHowToPlayPicturesStartHiddenAndTheStylusTapsAtItsTip) {
  nox::TileAnimation* stylus = m_pScene->GetStylusPicture();
  nox::TileAnimation* overlay = m_pScene->GetTrainingOverlay();
  ASSERT_NE(stylus, nullptr);
  ASSERT_NE(overlay, nullptr);
  EXPECT_FALSE(stylus->GetVisible());
  EXPECT_FALSE(m_pScene->GetDPadPicture()->GetVisible());
  EXPECT_FALSE(overlay->GetVisible());
  EXPECT_TRUE(Holds(stylus, "Show"));

  m_pScene->ShowStylusAnimation(true);
  EXPECT_TRUE(stylus->GetVisible());
  m_pScene->StylusTapScreen();
  const nox::Vector3 tip = stylus->GetPoint(nox::HashString("StylusTip"));
  ASSERT_EQ(m_pScene->taps.size(), 2u);  // down and up, at the tip
  EXPECT_EQ(m_pScene->taps[0].x, tip.x);
  EXPECT_EQ(m_pScene->taps[0].y, tip.y);
  EXPECT_EQ(m_pScene->taps[1].x, tip.x);
  EXPECT_EQ(tip.x, nox::Real(250));
  EXPECT_EQ(tip.y, nox::Real(156));

  m_pScene->ShowTrainingOverlay(true);
  EXPECT_TRUE(overlay->GetVisible());
  for (int i = 0; i < 30; ++i) Step(100);
  EXPECT_TRUE(Holds(overlay, "Idle"));
  m_pScene->ShowTrainingOverlay(false);
  EXPECT_FALSE(overlay->GetVisible());
}

TEST_F(InputReminderTest, LeavingAVisitWithoutARightAnswerEndsTheSceneIncomplete) {
  m_pScene->questions.SetState(noxfw::QuestionManager::FeedbackWaState);
  m_pScene->questions.SeqState(noxfw::QuestionManager::LeavingState);
  Step();
  EXPECT_EQ(m_pScenes->reasons, std::vector<int>{noxfw::ExitReason::Incomplete});
  EXPECT_TRUE(m_pScenes->IsChangingScene());
}
