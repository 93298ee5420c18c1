// The window on SDL's dummy video driver: its picture, and events pushed into SDL's
// queue come out as platform input in device pixels, and the host hears of focus.
#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <tuple>
#include <vector>

#include "input/InputState.h"
#include "ostra/AccelerometerMPI.h"
#include "ostra/ButtonMPI.h"
#include "ostra/HostConfig.h"
#include "ostra/TouchEventQueue.h"
#include "window/Window.h"

namespace {

using namespace Hollin::Ostra;

class SdlWindow : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    Host::HostConfig config;
    config.quiet = true;
    Host::SetHostConfig(config);
    InputState::Reset();
    std::string error;
    ASSERT_TRUE(Window::Open(3, false, error)) << error;
  }
  void TearDown() override { Window::Close(); }

  void PushMouse(Uint32 type, int x, int y) {
    SDL_Event e = {};
    e.type = type;
    if (type == SDL_MOUSEMOTION) {
      e.motion.x = x;
      e.motion.y = y;
    } else {
      e.button.button = SDL_BUTTON_LEFT;
      e.button.x = x;
      e.button.y = y;
    }
    SDL_PushEvent(&e);
  }
  void PushKey(Uint32 type, SDL_Keycode key) {
    SDL_Event e = {};
    e.type = type;
    e.key.keysym.sym = key;
    SDL_PushEvent(&e);
  }
  Window::HostEvents Pump() {
    Window::HostEvents events;
    Window::PumpEvents(events);
    return events;
  }
};

TEST_F(SdlWindow, MousePositionsAreScaledBackToDevicePixels) {
  PushMouse(SDL_MOUSEMOTION, 30, 30);  // moving without the button is no touch
  PushMouse(SDL_MOUSEBUTTONDOWN, 0, 0);
  PushMouse(SDL_MOUSEMOTION, 720, 408);
  PushMouse(SDL_MOUSEBUTTONUP, 1439, 815);
  Pump();
  CTouchEventQueue queue;
  std::vector<tTouchData> touches;
  for (tTouchData t; queue.Front(t); queue.PopFront()) touches.push_back(t);
  ASSERT_EQ(touches.size(), 3u);
  EXPECT_EQ(touches[0].touchState, 100);
  EXPECT_EQ(touches[0].x, 0);
  EXPECT_EQ(touches[0].y, 0);
  EXPECT_EQ(touches[1].touchState, 100);
  EXPECT_EQ(touches[1].x, 240);
  EXPECT_EQ(touches[1].y, 136);
  EXPECT_EQ(touches[2].touchState, 0);
  EXPECT_EQ(touches[2].x, 479);
  EXPECT_EQ(touches[2].y, 271);
}

TEST_F(SdlWindow, KeysPressButtonsAndTiltAndFocusLossLetsEverythingGo) {
  PushKey(SDL_KEYDOWN, SDLK_z);
  PushKey(SDL_KEYDOWN, SDLK_ESCAPE);
  PushKey(SDL_KEYDOWN, SDLK_RETURN);  // a second key for A
  PushKey(SDL_KEYUP, SDLK_z);         // A stays down: Enter still holds it
  PushKey(SDL_KEYDOWN, SDLK_l);
  PushKey(SDL_KEYDOWN, SDLK_F12);
  Window::HostEvents events = Pump();
  EXPECT_TRUE(events.screenshot);
  EXPECT_EQ(InputState::GetButtons(), kButtonA | kButtonHome);
  tAccelerometerData tilt = CAccelerometerMPI().GetAccelerometerData();
  EXPECT_EQ(tilt.accelX, 1);
  EXPECT_EQ(tilt.accelZ, 0);

  SDL_Event focus = {};
  focus.type = SDL_WINDOWEVENT;
  focus.window.event = SDL_WINDOWEVENT_FOCUS_LOST;
  SDL_PushEvent(&focus);
  events = Pump();
  EXPECT_TRUE(events.focusLost);
  EXPECT_EQ(InputState::GetButtons(), 0u);
  EXPECT_EQ(CAccelerometerMPI().GetAccelerometerData().accelX, 0);
  EXPECT_EQ(CAccelerometerMPI().GetAccelerometerData().accelZ, 1);

  SDL_Event quit = {};
  quit.type = SDL_QUIT;
  SDL_PushEvent(&quit);
  EXPECT_TRUE(Pump().quit);
}

TEST_F(SdlWindow, APictureIsShownScaledWithSquarePixelsAndItsColoursKept) {
  // A 480x272 picture: red rises to the right, blue downwards, one odd pixel at (1, 1).
  std::vector<U8> rgba(480 * 272 * 4);
  for (int y = 0; y < 272; ++y) {
    for (int x = 0; x < 480; ++x) {
      U8* p = &rgba[(y * 480 + x) * 4];
      p[0] = static_cast<U8>(x / 2);
      p[1] = (x == 1 && y == 1) ? 255 : 0;
      p[2] = static_cast<U8>(y);
      p[3] = 255;
    }
  }
  Window::Present(rgba.data());
  SDL_Window* window = SDL_GetWindowFromID(1);
  ASSERT_NE(window, nullptr);
  SDL_Surface* surface = SDL_GetWindowSurface(window);
  ASSERT_EQ(surface->w, 1440);
  ASSERT_EQ(surface->h, 816);
  auto colour = [&](int x, int y) {
    Uint32 pixel = 0;
    memcpy(&pixel,
           static_cast<U8*>(surface->pixels) + y * surface->pitch + x * surface->format->BytesPerPixel,
           surface->format->BytesPerPixel);
    U8 r, g, b;
    SDL_GetRGB(pixel, surface->format, &r, &g, &b);
    return std::make_tuple(int(r), int(g), int(b));
  };
  EXPECT_EQ(colour(0, 0), std::make_tuple(0, 0, 0));
  // Device pixel (1, 1) covers window pixels 3..5 in both directions, and no others.
  EXPECT_EQ(colour(3, 3), std::make_tuple(0, 255, 1));
  EXPECT_EQ(colour(5, 5), std::make_tuple(0, 255, 1));
  EXPECT_EQ(colour(6, 5), std::make_tuple(1, 0, 1));
  EXPECT_EQ(colour(1439, 815), std::make_tuple(239, 0, 271 % 256));
  EXPECT_EQ(colour(720, 408), std::make_tuple(120, 0, 136));
}

}  // namespace
