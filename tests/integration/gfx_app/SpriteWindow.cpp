#include "SpriteWindow.h"

#include "core/Debug.h"
#include "core/HashString.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"

namespace gfxapp {

namespace {

using nox::Real;

const nox::NameHash kSpin = nox::HashString("Spin");
const nox::NameHash kLoop = nox::HashString("Loop");
const nox::NameHash kIdle = nox::HashString("Idle");
const nox::NameHash kHeld = nox::HashString("Held");

// Where each spinner stands and how it plays. Deeper spinners (larger z) are drawn
// first, so the overlapping pairs show the depth order.
struct SpinnerPlace {
  int x, y, z;
  int start;  // first frame; below 0 plays backwards from the end
  bool hflip;
  int scalePercent;
  int turnDegrees;
};
const SpinnerPlace kPlaces[SpriteWindow::kSpinners] = {
    {60, 90, 50, 0, false, 100, 0},    {100, 100, 40, 2, false, 100, 0}, {180, 120, 30, -1, false, 100, 0},
    {250, 110, 30, 4, true, 100, 0},   {320, 130, 20, 1, false, 150, 0}, {400, 100, 20, 6, false, 75, 0},
    {420, 180, 10, 3, false, 100, 30}, {300, 200, 60, 5, true, 100, 0},
};

}  // namespace

SpriteWindow::~SpriteWindow() {
  for (nox::TileAnimation*& spinner : m_pSpinners) {
    m_Engine.RemoveAnimation(spinner);
    delete spinner;
    spinner = nullptr;
  }
  m_Engine.RemoveAnimation(m_pStar);
  delete m_pStar;
}

bool SpriteWindow::Load() {
  nox::TileAnimData* spinner = m_Data.GetAnimData("GfxSpinner");
  nox::TileAnimData* star = m_Data.GetAnimData("GfxStar");
  if (!spinner) nox::AutomationPrintf("gfx_app: sprite GfxSpinner is missing");
  if (!star) nox::AutomationPrintf("gfx_app: sprite GfxStar is missing");
  if (spinner) {
    for (int i = 0; i < kSpinners; ++i) {
      const SpinnerPlace& place = kPlaces[i];
      nox::TileAnimation* sprite = spinner->CreateCellAnimation();
      if (!sprite) continue;
      sprite->SetLoop(true);
      sprite->Play(kSpin, place.start, place.hflip, false);
      sprite->SetPosition(Real(place.x), Real(place.y), Real(place.z));
      if (place.scalePercent != 100) sprite->SetScale(Real(place.scalePercent) / Real(100));
      sprite->SetZRotation(Real(place.turnDegrees));
      m_pSpinners[i] = sprite;
      // Play has raised frame 0's event already; only a return to frame 0 counts.
      sprite->ClearPendingCallback(kLoop);
      m_Engine.AddAnimation(sprite);
    }
  }
  if (star) {
    m_pStar = star->CreateCellAnimation();
    if (m_pStar) {
      m_pStar->Play(kIdle, 0);
      m_pStar->SetPosition(Real(60), Real(200), Real(0));
      m_Engine.AddAnimation(m_pStar);
    }
  }
  return spinner && star;
}

bool SpriteWindow::HandleInput() {
  nox::Screen* screen = nox::ScreenManager::Get();
  if (!screen || screen->GetTouchStateCount() == 0) return false;
  const nox::Screen::MultiTouchState& touch = screen->GetTouchState(0);
  if (touch.triggered) {
    const int x = touch.triggerPosition.x.ToInt();
    const int y = touch.triggerPosition.y.ToInt();
    if (m_pStar && m_pStar->HitTestBounds(touch.triggerPosition)) {
      m_bDragging = true;
      m_pStar->Play(kHeld, 0);
      nox::AutomationPrintf("gfx_app: star picked at %d %d", x, y);
    } else {
      nox::AutomationPrintf("gfx_app: touch missed at %d %d", x, y);
    }
  }
  if (m_bDragging && touch.down) m_pStar->SetPosition(touch.heldPosition);
  if (touch.released) {
    const int x = touch.releasePosition.x.ToInt();
    const int y = touch.releasePosition.y.ToInt();
    if (m_bDragging) {
      m_bDragging = false;
      m_pStar->SetPosition(touch.releasePosition);
      m_pStar->Play(kIdle, 0);
      nox::AutomationPrintf("gfx_app: star dropped at %d %d", x, y);
    }
    if (screen->WasTouchDoubleTap()) nox::AutomationPrintf("gfx_app: double tap at %d %d", x, y);
  }
  return touch.triggered || touch.down || touch.released;
}

void SpriteWindow::Update(unsigned long ms) {
  m_Engine.Update(ms);
  // The first spinner stepped onto frame 0 again: its "Loop" event is up.
  if (m_pSpinners[0] && m_pSpinners[0]->GetCallback(kLoop) != 0) {
    m_pSpinners[0]->ClearPendingCallback(kLoop);
    if (!m_bLoopSeen) nox::AutomationPrintf("gfx_app: spinner looped at frame %u", m_Frame);
    m_bLoopSeen = true;
  }
  ++m_Frame;
}

void SpriteWindow::Draw() {
  m_Engine.Draw();
}

}  // namespace gfxapp
