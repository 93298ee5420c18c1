// The graphics test title's text layer: a heading in the large font, centred at the
// top; a line in the small font with a drop shadow at the bottom left; and a frame
// counter in the small font at the bottom right, redrawn every frame from a stack
// buffer so that changing text costs no allocation.
#pragma once
#include <cstdint>

#include "graphics/TextSurface.h"
#include "graphics/Window.h"

namespace nox {
class Font;
}

namespace gfxapp {

class TextWindow : public nox::Window {
 public:
  static const unsigned long kSmallSize = 12;
  static const unsigned long kLargeSize = 24;

  TextWindow();
  ~TextWindow() override;
  void Update(unsigned long ms) override;
  void Draw() override;

 private:
  void Compose();

  nox::Font* m_pSmall;  // shared through the font manager
  nox::Font* m_pLarge;
  nox::TextSurface m_Surface;
  uint32_t m_Frame = 0;
};

}  // namespace gfxapp
