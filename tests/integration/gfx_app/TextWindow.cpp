#include "TextWindow.h"

#include <cstdio>

#include "graphics/Font.h"
#include "graphics/FontManager.h"

namespace gfxapp {

namespace {

using nox::Real;
using nox::TextProperties;
using nox::Vector3;

const char kFontName[] = "GfxSans";

}  // namespace

TextWindow::TextWindow()
    : m_pSmall(nox::FontManager::Get()->GetFont(kFontName, kSmallSize)),
      m_pLarge(nox::FontManager::Get()->GetFont(kFontName, kLargeSize)) {
  m_Surface.Initialise(Real(480), Real(272), 96);
  Compose();
}

TextWindow::~TextWindow() {
  nox::FontManager::Get()->ReleaseFont(m_pLarge);
  nox::FontManager::Get()->ReleaseFont(m_pSmall);
}

void TextWindow::Compose() {
  m_Surface.Clear();
  TextProperties heading;
  heading.colour = Vector3(Real(1), Real(1), Real(1));
  heading.horizontalAlignment = TextProperties::kCentre;
  heading.shadow = true;
  heading.shadowX = 2;
  heading.shadowY = 2;
  m_Surface.DrawText("Sprites and text", m_pLarge, Real(240), Real(6), heading);

  TextProperties line;
  line.colour = Vector3(Real(1), Real(1), Real(0));
  line.shadow = true;
  m_Surface.DrawText("Drag the star with the stylus", m_pSmall, Real(6), Real(254), line);

  char counter[32];
  snprintf(counter, sizeof counter, "frame %u", m_Frame);
  TextProperties right;
  right.horizontalAlignment = TextProperties::kRight;
  m_Surface.DrawText(counter, m_pSmall, Real(474), Real(254), right);
}

void TextWindow::Update(unsigned long ms) {
  Compose();
  ++m_Frame;
}

void TextWindow::Draw() {
  m_Surface.Draw();
}

}  // namespace gfxapp
