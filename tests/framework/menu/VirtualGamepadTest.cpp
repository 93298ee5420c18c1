// The on-screen pad: fingers on its areas press the areas' bits on the controller
// that the game reads, from the next frame on, and the real buttons still pass.
#include <gtest/gtest.h>

#include "MenuTestSupport.h"
#include "menu/VirtualGamepadOverlay.h"

namespace {

using nox::Real;
using nox::Vector2;
using noxfw::VirtualGamepadOverlay;

class VirtualGamepadTest : public menutest::WidgetTest {
 protected:
  uint32_t Triggered() const {
    return nox::Input::s_pInput->GetController(0)->GetTriggeredButtons(0xFFFFFFFF);
  }
  uint32_t Held() const { return nox::Input::s_pInput->GetController(0)->GetHeldButtons(0xFFFFFFFF); }
};

TEST_F(VirtualGamepadTest, TheDefaultLayoutPlacesEachButtonInItsSquare) {
  VirtualGamepadOverlay pad;
  pad.InitializeWithDefaultLayout();
  EXPECT_EQ(pad.GetAreaCount(), 8);
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(50), Real(100))), 8u);  // corner, edges count
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(145), Real(195))), 2u);
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(120), Real(70))), 1u);
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(270), Real(120))), 16u);
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(20), Real(60))), 64u);
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(120), Real(120))), 0u);  // the middle of the cross
  EXPECT_TRUE(pad.IsPointInButton(Vector2(Real(320), Real(120)), 0x30));
  EXPECT_FALSE(pad.IsPointInButton(Vector2(Real(320), Real(120)), 0x10));

  // A circle far from the origin: its squared distances do not overflow.
  pad.AddCirculaturButtonArea(0x400, Vector2(Real(400), Real(220)), Real(30));
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(430), Real(220))), 0x400u);
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(422), Real(242))), 0u);
  pad.ClearButtonArea();
  EXPECT_EQ(pad.GetAreaCount(), 0);
  EXPECT_EQ(pad.GetButtonForPoint(Vector2(Real(50), Real(100))), 0u);
}

TEST_F(VirtualGamepadTest, AFingerOnAnAreaPressesItsBitsOnThePad) {
  VirtualGamepadOverlay* pad = new VirtualGamepadOverlay();
  pad->InitializeWithDefaultLayout();
  nox::WindowManager::Get()->OpenWindow(pad, true);

  Touch(true, 270, 120);  // A
  Frame();
  EXPECT_EQ(pad->GetPressedButtons(), 0x10u);
  Frame();  // seen by the pad from the next poll
  EXPECT_EQ(Triggered(), 0x10u);
  Frame();
  EXPECT_EQ(Triggered(), 0u);
  EXPECT_EQ(Held(), 0x10u);
  Touch(true, 120, 70);  // slides onto up
  Frame();
  Frame();
  EXPECT_EQ(Triggered(), 0x1u);
  EXPECT_EQ(Held(), 0u);
  Touch(false, 120, 70);
  Frame();
  Frame();
  EXPECT_EQ(nox::Input::s_pInput->GetController(0)->GetCurrentButtons(), 0u);

  // The real buttons pass through while the overlay is open.
  menutest::TestButtons() = 0x20;
  Frame();
  EXPECT_EQ(Triggered(), 0x20u);
  menutest::TestButtons() = 0;

  // Closed, the controller leaves the slot; the default controller is in front again.
  nox::WindowManager::Get()->CloseWindow(pad);
  EXPECT_NE(nox::Input::s_pInput->GetController(0), &pad->GetController());
  pad->Open();
  delete pad;  // still pushed: the destructor takes it out
  Frame();
  EXPECT_EQ(Triggered(), 0u);
}

}  // namespace
