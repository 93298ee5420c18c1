// A frame of text that changes, drawn again and again, allocates nothing: overlay
// lines, a surface cleared and refilled, and a font measuring and laying out.
#include <gtest/gtest.h>

#include "AllocationCount.h"

#include "TextFixtures.h"
#include "debug/DebugOverlay.h"
#include "graphics/FontManager.h"
#include "graphics/TextSurface.h"

namespace {

using allocationcount::s_Allocations;
using allocationcount::s_Counting;
using nox::Real;

TEST(SteadyFrameTest, DrawingChangingTextEveryFrameAllocatesNothing) {
  if (!NOX_COUNTS_ALLOCATIONS) GTEST_SKIP() << "allocations are not counted under the address sanitizer";
  texttest::TitleWithScreen title;
  title.PutFont("HNCurry_10", texttest::SmallFdata(), texttest::SmallFtex());
  nox::FontManager::Create();
  nox::DebugOverlay::Create();
  nox::DebugOverlay* overlay = nox::DebugOverlay::sm_pInstance;
  nox::Font* font = nox::FontManager::Get()->GetFont("HNCurry", 10);
  nox::TextSurface surface;
  surface.Initialise(Real(480), Real(272), 256);
  const nox::Vector3 white(Real(1), Real(1), Real(1));
  overlay->AddString(true, white, "persistent");
  // Longer than the short-string buffer of std::string, so a copy would allocate.
  const std::string text = "ABBA BABA ABAB ABBA BABA";
  short positions[12 * 32];
  Real coords[12 * 32];

  auto drawFrame = [&](unsigned frame) {
    overlay->AddString(false, white, "FPS: %u", frame);
    overlay->AddString(false, nox::Vector3(), nullptr, white, "%s", text.c_str());
    overlay->AddLine(false, nox::Vector2(), nox::Vector2(Real(9), Real(9)), nullptr, white);
    overlay->Draw();
    surface.Clear();
    nox::TextProperties props;
    props.shadow = frame % 2 == 0;
    surface.DrawText(text, font, nox::Rectangle(Real(0), Real(0), Real(480), Real(272)), props);
    surface.Draw();
    unsigned long triangles = 0;
    font->MeasureText(text, &triangles);
    font->FormatText(text, positions, coords, &triangles, nullptr);
  };
  // The GL driver builds its pipelines for each new state in the first frames.
  for (unsigned frame = 0; frame < 10; ++frame) drawFrame(frame);
  s_Counting = true;
  for (unsigned frame = 10; frame < 40; ++frame) drawFrame(frame);
  s_Counting = false;
  EXPECT_EQ(s_Allocations, 0);

  nox::FontManager::Get()->ReleaseFont(font);
  nox::DebugOverlay::Destroy();
  nox::FontManager::Destroy();
}

}  // namespace
