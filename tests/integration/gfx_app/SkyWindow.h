// The graphics test title's bottom layer: a scrolling background that drifts right
// and down at a steady pace (one pixel every 8 ms across, every 24 ms down), so that
// it crosses tile boundaries in both directions within the first second.
#pragma once
#include <cstdint>

#include "graphics/ScrollableQuad.h"
#include "graphics/Window.h"

namespace gfxapp {

class SkyWindow : public nox::Window {
 public:
  SkyWindow();
  // Opens the background "GfxSky"; false, with a log line, when it is missing.
  bool Load();
  void Update(unsigned long ms) override;
  void Draw() override;

 private:
  nox::ScrollableQuad m_Quad;
  uint32_t m_ElapsedMS = 0;
};

}  // namespace gfxapp
