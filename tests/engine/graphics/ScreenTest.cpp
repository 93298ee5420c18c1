// The screen without GL: the whole-pixel cut, device and virtual pixels in every
// orientation against 64-bit references, touch states, auto-orientation through the
// accelerometer's events, and how a window takes its size from the screen.
#include <gtest/gtest.h>

#include <cstdint>

#include "graphics/Screen.h"
#include "graphics/WholePixel.h"
#include "graphics/Window.h"
#include "input/Input.h"

namespace {

using nox::Real;
using nox::Screen;
using nox::TouchStateData;
using nox::Vector2;

Real R(double v) {
  return Real(v);
}

// The normalized coordinate of a device pixel centre, as the input computes it.
TouchStateData Touch(uint32_t id, int x, int y, bool down) {
  TouchStateData t;
  t.id = id;
  t.x = (Real(x) + Real::FromRaw(0x8000) - Real(240)) / Real(240);
  t.y = (Real(136) - Real::FromRaw(0x8000) - Real(y)) / Real(136);
  t.down = down;
  t.tapCount = 1;
  return t;
}

class PlainWindow : public nox::Window {
 public:
  void Draw() override {}
};

}  // namespace

TEST(WholePixel, CutsTowardsMinusInfinityAndNegativeHalvesOneLower) {
  EXPECT_EQ(nox::WholePixel(R(1.75)), Real(1));
  EXPECT_EQ(nox::WholePixel(R(1.25)), Real(1));
  EXPECT_EQ(nox::WholePixel(R(-1.25)), Real(-2));
  EXPECT_EQ(nox::WholePixel(R(-1.75)), Real(-3));
  EXPECT_EQ(nox::WholePixel(R(-1.5)), Real(-3));
  EXPECT_EQ(nox::WholePixel(Real(-1)), Real(-1));
  EXPECT_EQ(nox::WholePixel(Real::FromRaw(-1)), Real(-1));
  EXPECT_EQ(nox::WholePixel(Real(0)), Real(0));
  EXPECT_EQ(nox::WholeExtent(Real(10), R(3.5)), Real(6));
  EXPECT_EQ(nox::WholeExtentInt(R(0.5), R(480.75)), 480);
}

TEST(ScreenMapping, UprightEveryDevicePixelIsItsOwnVirtualPixel) {
  Screen screen(0, 480, 272, 480, 272);
  for (int y = 0; y < 272; ++y) {
    for (int x = 0; x < 480; ++x) {
      ASSERT_EQ(screen.GetVirtualPixelFromDevicePixel(Real(x), Real(y)), Vector2(Real(x), Real(y)))
          << x << ", " << y;
    }
  }
}

TEST(ScreenMapping, VirtualToDeviceDividesFirstSoItMayFallOnePixelShort) {
  Screen screen(0, 480, 272, 480, 272);
  // (x / 480) is cut to Q16.16 before the multiplication by 480.
  for (int x = 0; x < 480; ++x) {
    const Real d = screen.GetDevicePixelFromVirtualPixel(Real(x), Real(0)).x;
    ASSERT_TRUE(d == Real(x) || d == Real(x - 1)) << x;
  }
  for (int y = 0; y < 272; ++y) {
    const Real d = screen.GetDevicePixelFromVirtualPixel(Real(0), Real(y)).y;
    ASSERT_TRUE(d == Real(y) || d == Real(y - 1)) << y;
  }
  EXPECT_EQ(screen.GetDevicePixelFromVirtualPixel(Real(0), Real(0)), Vector2(Real(0), Real(0)));
  EXPECT_EQ(screen.GetDevicePixelFromVirtualPixel(Real(240), Real(136)), Vector2(Real(240), Real(136)));
  EXPECT_EQ(screen.GetDevicePixelFromVirtualPixel(Real(10), Real(200)), Vector2(Real(9), Real(199)));
}

TEST(ScreenMapping, UpsideDownTurnsTouchesButVirtualToDeviceIgnoresOrientation) {
  Screen screen(0, 480, 272, 480, 272);
  screen.SetOrientation(Screen::kUpsideDown);
  EXPECT_EQ(screen.GetVirtualPixelFromDevicePixel(Real(0), Real(0)), Vector2(Real(479), Real(271)));
  EXPECT_EQ(screen.GetVirtualPixelFromDevicePixel(Real(479), Real(271)), Vector2(Real(0), Real(0)));
  EXPECT_EQ(screen.GetVirtualPixelFromDevicePixel(Real(10), Real(200)), Vector2(Real(469), Real(71)));
  EXPECT_EQ(screen.GetDevicePixelFromVirtualPixel(Real(240), Real(136)), Vector2(Real(240), Real(136)));
}

TEST(ScreenMapping, SidewaysTheMappingIsScaledByTheRatiosOfTheSides) {
  Screen screen(0, 480, 272, 480, 272);
  screen.SetOrientation(Screen::kSideways1);
  // References in 64 bits: a ratio is (a << 32) / b >> 16, a product (a * b) >> 16.
  const int64_t hOverW = ((int64_t(272) << 48) / (int64_t(480) << 16)) >> 16;
  const int64_t wOverH = ((int64_t(480) << 48) / (int64_t(272) << 16)) >> 16;
  nox::Rectangle m;
  screen.GetVirtualPixelMapping(m);
  EXPECT_EQ(m.left.Raw(), 0);
  EXPECT_EQ(m.right.Raw(), static_cast<int32_t>(((int64_t(480) << 16) * hOverW) >> 16));
  EXPECT_EQ(m.bottom.Raw(), static_cast<int32_t>(((int64_t(272) << 16) * wOverH) >> 16));
  EXPECT_LT(m.right, Real(272));  // just under: the ratio is cut, not rounded
  EXPECT_GT(m.right, Real(271));

  // Orientation 1 turns (x, y) into (-y, x): the device's left edge becomes the top.
  const Vector2 topLeft = screen.GetVirtualPixelFromDevicePixel(Real(0), Real(0));
  EXPECT_EQ(topLeft.x, Real(0));
  EXPECT_EQ(topLeft.y, Real(479));
  const Vector2 bottomRight = screen.GetVirtualPixelFromDevicePixel(Real(479), Real(271));
  EXPECT_EQ(bottomRight.x, Real(271));
  EXPECT_EQ(bottomRight.y, Real(0));

  screen.SetVirtualRectangle(nox::Rectangle(Real(48), Real(16), Real(528), Real(288)));
  EXPECT_EQ(screen.GetVirtualPixelLeft().Raw(), static_cast<int32_t>(((int64_t(48) << 16) * hOverW) >> 16));
  EXPECT_EQ(screen.GetVirtualPixelTop().Raw(), static_cast<int32_t>(((int64_t(16) << 16) * wOverH) >> 16));
  screen.SetOrientation(Screen::kUpright);
  EXPECT_EQ(screen.GetVirtualPixelLeft(), Real(48));
}

TEST(ScreenTouch, EachFingerHasAStateAndALiftedFingerGoesAtTheNextUpdate) {
  Screen screen(0, 480, 272, 480, 272);
  screen.UpdateTouchState(Touch(0, 10, 20, true));
  ASSERT_EQ(screen.GetTouchStateCount(), 1);
  const Screen::MultiTouchState* first = screen.FindTouchState(0);
  EXPECT_TRUE(first->triggered);
  EXPECT_TRUE(first->down);
  EXPECT_EQ(first->triggerPosition, Vector2(Real(10), Real(20)));
  EXPECT_EQ(first->lastPosition, Vector2(Real(10), Real(20)));

  screen.UpdateTouchState(Touch(7, 300, 100, true));
  ASSERT_EQ(screen.GetTouchStateCount(), 2);
  EXPECT_EQ(screen.GetTouchState(1).id, 7u);

  screen.UpdateTouchState(Touch(0, 12, 22, true));
  first = screen.FindTouchState(0);
  EXPECT_FALSE(first->triggered);
  EXPECT_EQ(first->heldPosition, Vector2(Real(12), Real(22)));
  EXPECT_EQ(first->triggerPosition, Vector2(Real(10), Real(20)));

  screen.UpdateTouchState(Touch(0, 14, 24, false));
  first = screen.FindTouchState(0);
  EXPECT_TRUE(first->released);
  EXPECT_FALSE(first->down);
  EXPECT_EQ(first->releasePosition, Vector2(Real(14), Real(24)));
  EXPECT_EQ(first->heldPosition, Vector2(Real(12), Real(22)));

  // The next update, whichever finger it names, drops the lifted one.
  screen.UpdateTouchState(Touch(7, 301, 100, true));
  EXPECT_EQ(screen.FindTouchState(0), nullptr);
  ASSERT_EQ(screen.GetTouchStateCount(), 1);
  EXPECT_EQ(screen.GetTouchState(0).id, 7u);

  screen.ResetTouchState();
  EXPECT_EQ(screen.GetTouchStateCount(), 0);
  EXPECT_FALSE(screen.WasTouchDoubleTap());
}

TEST(ScreenTouch, ADoubleTapIsTheFirstStatesTapCountOfTwo) {
  Screen screen(0, 480, 272, 480, 272);
  TouchStateData t = Touch(0, 5, 5, false);
  t.tapCount = 2;
  screen.UpdateTouchState(t);
  EXPECT_TRUE(screen.WasTouchDoubleTap());
  screen.UpdateTouchState(Touch(0, 5, 5, true));
  EXPECT_FALSE(screen.WasTouchDoubleTap());
}

TEST(ScreenOrientation, FollowsTheAccelerometerOnlyWhileOnAndOnlyToAllowedOrientations) {
  nox::Input::Create(1);
  nox::Accelerometer& accelerometer = nox::Input::s_pInput->GetAccelerometer();
  accelerometer.SetUpdateInterval(R(0.25));  // four samples a second
  {
    Screen screen(0, 480, 272, 480, 272);
    nox::AccelerometerState tilt;
    tilt.y = Real(1);  // upside down
    accelerometer.FireAccelerometerEvent(tilt);
    EXPECT_EQ(screen.GetOrientation(), Screen::kUpright);  // not listening yet

    screen.EnableAutoOrientation(true);
    EXPECT_TRUE(accelerometer.HasEventListener(&screen));
    EXPECT_EQ(accelerometer.GetUpdateInterval(), R(0.25));  // fast enough: kept
    screen.SetAllowedOrientations(1u << 0 | 1u << 3);
    tilt.y = Real(0);
    tilt.x = Real(-1);  // orientation 1, not allowed
    accelerometer.FireAccelerometerEvent(tilt);
    EXPECT_EQ(accelerometer.GetOrientation(), 1u);
    EXPECT_EQ(screen.GetOrientation(), Screen::kUpright);
    tilt.x = Real(0);
    tilt.y = Real(1);
    accelerometer.FireAccelerometerEvent(tilt);
    EXPECT_EQ(screen.GetOrientation(), Screen::kUpsideDown);

    // An orientation past 3 is ignored however the mask reads.
    screen.SetAllowedOrientations(0xFFFFFFFFu);
    nox::EventData bogus;
    bogus.m_Type = nox::Accelerometer::kOrientationChanged;
    bogus.m_Param = 4;
    screen.OnEventOccurred(&accelerometer, &bogus);
    EXPECT_EQ(screen.GetOrientation(), Screen::kUpsideDown);

    screen.EnableAutoOrientation(false);
    EXPECT_FALSE(accelerometer.HasEventListener(&screen));
    EXPECT_EQ(accelerometer.GetUpdateInterval(), R(0.25));
    screen.EnableAutoOrientation(true);
    // The destructor turns it off.
  }
  EXPECT_TRUE(accelerometer.empty());
  nox::Input::Destroy();
}

TEST(WindowScreen, OnlyASizeOfExactlyZeroIsFilledFromTheScreen) {
  Screen screen(0, 480, 272, 480, 272);
  PlainWindow unsized;
  unsized.SetScreen(&screen);
  EXPECT_EQ(unsized.GetSize(), Vector2(Real(480), Real(272)));
  EXPECT_EQ(unsized.GetScreen(), &screen);

  PlainWindow thin;
  thin.SetSize(Vector2(Real(0), Real(5)));
  thin.SetScreen(&screen);
  EXPECT_EQ(thin.GetSize(), Vector2(Real(0), Real(5)));

  PlainWindow window;
  EXPECT_EQ(window.GetWindowState(), nox::Window::kClosed);
  window.Close();
  EXPECT_EQ(window.GetWindowState(), nox::Window::kClosed);
  window.Open();
  EXPECT_EQ(window.GetWindowState(), nox::Window::kOpen);
  EXPECT_TRUE(nox::IsA<nox::Window>(&window));
}
