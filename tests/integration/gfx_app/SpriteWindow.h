// The graphics test title's sprite layer: a row of spinners playing one looping
// sequence at assorted frames, depths, flips, scales and turns through one animation
// engine, and a star that the stylus drags.
//
// Touch: a press on the star picks it up (it turns green and follows the finger); the
// release drops it where the finger lifted. A press elsewhere is logged as a miss, and
// a release that completes a double tap is logged too. Log lines:
//   gfx_app: star picked at X Y
//   gfx_app: star dropped at X Y
//   gfx_app: touch missed at X Y
//   gfx_app: double tap at X Y
//   gfx_app: spinner looped at frame N      the first spinner's "Loop" event, once
#pragma once
#include <cstdint>

#include "graphics/AnimDataMap.h"
#include "graphics/AnimationEngine.h"
#include "graphics/Window.h"

namespace nox {
class TileAnimation;
}

namespace gfxapp {

class SpriteWindow : public nox::Window {
 public:
  static const int kSpinners = 8;

  SpriteWindow() = default;
  ~SpriteWindow() override;
  // Loads the sprites "GfxSpinner" and "GfxStar"; false, with a log line, when one is
  // missing (the window then draws what it has).
  bool Load();
  bool HandleInput() override;
  void Update(unsigned long ms) override;
  void Draw() override;

 private:
  nox::AnimDataMap m_Data;
  nox::AnimationEngine m_Engine;
  nox::TileAnimation* m_pSpinners[kSpinners] = {};  // owned
  nox::TileAnimation* m_pStar = nullptr;            // owned
  uint32_t m_Frame = 0;
  bool m_bDragging = false;
  bool m_bLoopSeen = false;
};

}  // namespace gfxapp
