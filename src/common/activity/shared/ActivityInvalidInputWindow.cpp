#include "activity/shared/ActivityInvalidInputWindow.h"

#include "core/HashString.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "graphics/WindowManager.h"
#include "sequencer/AnimSeqItems.h"
#include "sequencer/SoundSeqItems.h"
#include "sequencer/WaitSeqItem.h"
#include "shell/GameSceneManager.h"
#include "sound/SoundManager.h"

namespace game {

NOX_RTTI_DEFINE(ActivityInvalidInputWindow, nox::Window);

const unsigned long ActivityInvalidInputWindow::kPausedCategories[] = {1, 2, 3, 4, 5, 6, 7, 9, 10, 11};
const int ActivityInvalidInputWindow::kPausedCategoryCount =
    sizeof(kPausedCategories) / sizeof(kPausedCategories[0]);

namespace {

const nox::NameHash kShow = nox::HashString("Show");
const nox::NameHash kIdle = nox::HashString("Idle");
const nox::NameHash kIdleHighlight = nox::HashString("IdleHighlight");
const char* const kDeadClick = "h_OSTM_DeadClickSfx_6";

// The device's own screen has the larger stylus picture.
bool IsLargeScreen() {
  const nox::Screen* screen = nox::ScreenManager::Get();
  return screen && screen->GetDeviceWidth() == 480 && screen->GetDeviceHeight() == 272;
}

nox::Vector3 ScreenCentre() {
  const nox::Screen* screen = nox::ScreenManager::Get();
  if (!screen) return nox::Vector3(nox::Real(240), nox::Real(136), nox::Real(0));
  const nox::Rectangle& r = screen->GetVirtualRectangle();
  return nox::Vector3((r.left + r.right) / 2, (r.top + r.bottom) / 2, nox::Real(0));
}

// A stock effect as the manager's own copy, so it plays on whatever comes next.
void PlayStock(const char* name, unsigned long category) {
  nox::SoundManager* sounds = nox::SoundManager::sm_pInstance;
  if (!sounds) return;
  nox::StreamingSound sound;
  sound.Load(name);
  sounds->Play(&sound, static_cast<uint32_t>(category), true);
}

}  // namespace

nox::TileAnimation* ActivityInvalidInputWindow::MakePicture(nox::TileAnimData*& data, const char* name) {
  data = new nox::TileAnimData(name, false, false);
  nox::TileAnimation* picture = data->CreateCellAnimation();
  if (!picture) return nullptr;
  picture->SetVisible(false);
  picture->SetScale(nox::Real(1));
  picture->SetAnchorHash(nox::HashString("Origin"));
  picture->SetPosition(ScreenCentre());
  return picture;
}

ActivityInvalidInputWindow::ActivityInvalidInputWindow() {
  m_DPadVoice.Load("CANA0063");
  m_StylusVoice.Load("CANA0062");
  m_pDPad = MakePicture(m_pDPadData, "DPad");
  m_pStylus = MakePicture(m_pStylusData, IsLargeScreen() ? "Stylus_LPad" : "Stylus");
  if (m_pDPad) m_pDPad->Hold(kIdle);
  if (m_pStylus) m_pStylus->Hold(kShow);
  for (nox::TileAnimation* picture : {m_pDPad, m_pStylus}) {
    if (picture) m_Engine.AddAnimation(picture);
  }
}

ActivityInvalidInputWindow::~ActivityInvalidInputWindow() {
  m_bDestroying = true;
  if (GetWindowState() != kClosed) {
    if (nox::WindowManager* windows = nox::WindowManager::Get()) {
      windows->CloseWindow(this);
    } else {
      Close();
    }
  }
  // Steps borrow the pictures and the voices: they go first.
  m_Sequencer.Empty();
  for (nox::TileAnimation* picture : {m_pDPad, m_pStylus}) {
    if (picture) m_Engine.RemoveAnimation(picture);
    delete picture;
  }
  delete m_pDPadData;
  delete m_pStylusData;
}

void ActivityInvalidInputWindow::Open() {
  if (GetWindowState() != kClosed) return;
  nox::Window::Open();
  PauseSounds();
}

void ActivityInvalidInputWindow::Close() {
  if (GetWindowState() == kClosed) return;
  nox::Window::Close();
  m_Sequencer.Empty();
  m_DPadVoice.Stop();
  m_StylusVoice.Stop();
  for (nox::TileAnimation* picture : {m_pDPad, m_pStylus}) {
    if (picture) picture->SetVisible(false);
  }
  if (!m_bDestroying) {
    if (GameSceneManager* scenes = GameSceneManager::Get()) scenes->InputReminderClosed();
  }
  ResumeSounds();
}

void ActivityInvalidInputWindow::PauseSounds() {
  nox::SoundManager* sounds = nox::SoundManager::sm_pInstance;
  if (!sounds) return;
  nox::StreamingSound* music = sounds->GetBackgroundMusic();
  m_bMusicPaused = music && music->IsPlaying() && !music->IsPaused();
  if (m_bMusicPaused) music->Pause();
  for (int i = 0; i < kPausedCategoryCount; ++i) sounds->Pause(static_cast<uint32_t>(kPausedCategories[i]));
}

void ActivityInvalidInputWindow::ResumeSounds() {
  nox::SoundManager* sounds = nox::SoundManager::sm_pInstance;
  if (!sounds) return;
  nox::StreamingSound* music = sounds->GetBackgroundMusic();
  if (m_bMusicPaused && music && music->IsPlaying() && music->IsPaused()) music->Resume();
  m_bMusicPaused = false;
  for (int i = 0; i < kPausedCategoryCount; ++i) sounds->Resume(static_cast<uint32_t>(kPausedCategories[i]));
}

void ActivityInvalidInputWindow::Update(unsigned long ms) {
  m_Sequencer.Update(ms);
  m_Engine.Update(ms);
  if (m_Sequencer.IsEmpty() && GetWindowState() != kClosed) {
    if (nox::WindowManager* windows = nox::WindowManager::Get()) {
      windows->CloseWindow(this);
    } else {
      Close();
    }
  }
}

void ActivityInvalidInputWindow::Draw() {
  m_Engine.Draw();
}

void ActivityInvalidInputWindow::StylusIsInvalid() {
  Remind(m_bStylusToggle, m_pStylus, m_StylusVoice, "SLNA0003", "Idle");
}

void ActivityInvalidInputWindow::DPadIsInvalid() {
  Remind(m_bDPadToggle, m_pDPad, m_DPadVoice, "KDNA0666", "Blank");
}

void ActivityInvalidInputWindow::Remind(bool& toggle, nox::TileAnimation* picture, nox::StreamingSound& voice,
                                        const char* line, const char* restSequence) {
  // A reminder under way plays to its end, and the input that came meanwhile is lost.
  if (!m_Sequencer.IsEmpty()) return;
  toggle = !toggle;
  if (toggle) {
    if (picture) picture->SetVisible(true);
    m_Sequencer.AppendItem(new noxfw::PlayMyStreamingSoundSeqItem(&voice, kReminderCategory, line));
    if (picture) {
      const nox::NameHash rest = nox::HashString(restSequence);
      m_Sequencer.AppendItem(new noxfw::SetTileAnimVisibleSeqItem(picture, true));
      for (int i = 0; i < kBlinkCount; ++i) {
        m_Sequencer.AppendItem(new noxfw::HoldAnimSequenceSeqItem(picture, i % 2 ? rest : kIdleHighlight, 0));
        m_Sequencer.AppendItem(new noxfw::WaitSeqItem(kBlinkMs));
      }
      m_Sequencer.AppendItem(new noxfw::SetTileAnimVisibleSeqItem(picture, false));
    }
  }
  PlayStock(kDeadClick, kEffectCategory);
}

}  // namespace game
