#include "window/Window.h"

#include <SDL.h>
#include <algorithm>

#include "display/Framebuffer.h"
#include "input/InputState.h"
#include "window/KeyMap.h"

namespace Hollin {
namespace Ostra {
namespace Window {
namespace {

const int kW = Framebuffer::kWidth;
const int kH = Framebuffer::kHeight;
const int kMaxPads = 4;

SDL_Window* s_pWindow = nullptr;
SDL_Surface* s_pFrame = nullptr;   // 480x272 in the window's pixel format
SDL_Rect s_Dest = {0, 0, kW, kH};  // where the frame lands in the window
SDL_GameController* s_Pads[kMaxPads] = {};
const int kMaxHeldKeys = 16;
SDL_Keycode s_HeldKeys[kMaxHeldKeys];  // button keys down now; two keys may share a button
int s_HeldKeyCount = 0;
U32 s_KeyButtons = 0;         // buttons held on the keyboard
U32 s_PadButtons = 0;         // and on the gamepads
U32 s_AppliedButtons = 0;     // what the input state was last given
int s_KeyTilt[2] = {0, 0};    // x, y from the tilt keys
int s_StickTilt[2] = {0, 0};  // x, y from a left stick
bool s_bMouseDown = false;

void ApplyButtons() {
  U32 now = s_KeyButtons | s_PadButtons;
  InputState::PressButtons(now & ~s_AppliedButtons);
  InputState::ReleaseButtons(s_AppliedButtons & ~now);
  s_AppliedButtons = now;
}

int Clamp(int v, int lo, int hi) {
  return v < lo ? lo : v > hi ? hi : v;
}

void ApplyTilt() {
  int x = Clamp(s_KeyTilt[0] + s_StickTilt[0], -1, 1);
  int y = Clamp(s_KeyTilt[1] + s_StickTilt[1], -1, 1);
  InputState::SetTilt(x, y, (x == 0 && y == 0) ? 1 : 0);
}

// Fits the 480x272 frame into the window: the largest whole scale, centred; a window
// smaller than the frame gets the frame squeezed to fit.
void UpdateDestination() {
  SDL_Surface* surface = SDL_GetWindowSurface(s_pWindow);
  if (!surface) return;
  int scale = std::min(surface->w / kW, surface->h / kH);
  if (scale >= 1) {
    s_Dest = SDL_Rect{(surface->w - kW * scale) / 2, (surface->h - kH * scale) / 2, kW * scale, kH * scale};
  } else {
    s_Dest = SDL_Rect{0, 0, surface->w, surface->h};
  }
  SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 0, 0, 0));
}

void PushMouse(U16 state, int wx, int wy) {
  if (s_Dest.w <= 0 || s_Dest.h <= 0) return;
  int x = Clamp((wx - s_Dest.x) * kW / s_Dest.w, 0, kW - 1);
  int y = Clamp((wy - s_Dest.y) * kH / s_Dest.h, 0, kH - 1);
  InputState::PushTouch(state, static_cast<S16>(x), static_cast<S16>(y));
}

void OnKey(const SDL_KeyboardEvent& key, bool down, HostEvents& out) {
  if (key.repeat) return;
  SDL_Keycode code = key.keysym.sym;
  if (code == SDLK_F12) {
    if (down) out.screenshot = true;
    return;
  }
  int axis, direction;
  if (KeyMap::TiltOfKey(code, axis, direction)) {
    s_KeyTilt[axis] = down ? direction : (s_KeyTilt[axis] == direction ? 0 : s_KeyTilt[axis]);
    ApplyTilt();
    return;
  }
  if (!KeyMap::ButtonOfKey(code)) return;
  int i = 0;
  while (i < s_HeldKeyCount && s_HeldKeys[i] != code) ++i;
  if (down && i == s_HeldKeyCount && s_HeldKeyCount < kMaxHeldKeys) s_HeldKeys[s_HeldKeyCount++] = code;
  if (!down && i < s_HeldKeyCount) s_HeldKeys[i] = s_HeldKeys[--s_HeldKeyCount];
  s_KeyButtons = 0;
  for (int k = 0; k < s_HeldKeyCount; ++k) s_KeyButtons |= KeyMap::ButtonOfKey(s_HeldKeys[k]);
  ApplyButtons();
}

void OnPadAxis(const SDL_ControllerAxisEvent& axis) {
  const int kHalf = 16384;
  int value = axis.value > kHalf ? 1 : axis.value < -kHalf ? -1 : 0;
  if (axis.axis == SDL_CONTROLLER_AXIS_LEFTX)
    s_StickTilt[0] = value;
  else if (axis.axis == SDL_CONTROLLER_AXIS_LEFTY)
    s_StickTilt[1] = value;
  else
    return;
  ApplyTilt();
}

// Several pads, and two pad buttons for Home, may hold one bit: ask every pad afresh.
void OnPadButton() {
  s_PadButtons = 0;
  for (SDL_GameController* pad : s_Pads) {
    if (!pad) continue;
    for (int b = 0; b < SDL_CONTROLLER_BUTTON_MAX; ++b) {
      SDL_GameControllerButton button = static_cast<SDL_GameControllerButton>(b);
      if (SDL_GameControllerGetButton(pad, button)) s_PadButtons |= KeyMap::ButtonOfPad(button);
    }
  }
  ApplyButtons();
}

void OpenPad(int index) {
  for (SDL_GameController*& pad : s_Pads) {
    if (!pad) {
      pad = SDL_GameControllerOpen(index);
      return;
    }
  }
}

void ClosePad(SDL_JoystickID id) {
  for (SDL_GameController*& pad : s_Pads) {
    if (pad && SDL_JoystickInstanceID(SDL_GameControllerGetJoystick(pad)) == id) {
      SDL_GameControllerClose(pad);
      pad = nullptr;
    }
  }
}

// Letting go of everything when focus goes keeps keys from sticking down.
void ReleaseAll() {
  s_HeldKeyCount = 0;
  s_KeyButtons = s_PadButtons = 0;
  s_KeyTilt[0] = s_KeyTilt[1] = s_StickTilt[0] = s_StickTilt[1] = 0;
  ApplyButtons();
  ApplyTilt();
  if (s_bMouseDown) {
    int x, y;
    SDL_GetMouseState(&x, &y);
    PushMouse(0, x, y);
    s_bMouseDown = false;
  }
}

}  // namespace

bool Open(int scale, bool fullscreen, std::string& error) {
  // The window is a plain software surface; SDL must not make a GL context of its own.
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_GAMECONTROLLER) != 0) {
    error = SDL_GetError();
    return false;
  }
  Uint32 flags = SDL_WINDOW_SHOWN | (fullscreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
  s_pWindow = SDL_CreateWindow("Corrin", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, kW * scale,
                               kH * scale, flags);
  SDL_Surface* surface = s_pWindow ? SDL_GetWindowSurface(s_pWindow) : nullptr;
  if (!surface) {
    error = SDL_GetError();
    Close();
    return false;
  }
  s_pFrame = SDL_CreateRGBSurfaceWithFormat(0, kW, kH, 32, surface->format->format);
  if (!s_pFrame) {
    error = SDL_GetError();
    Close();
    return false;
  }
  SDL_SetSurfaceBlendMode(s_pFrame, SDL_BLENDMODE_NONE);
  UpdateDestination();
  return true;
}

void Close() {
  for (SDL_GameController*& pad : s_Pads) {
    if (pad) SDL_GameControllerClose(pad);
    pad = nullptr;
  }
  if (s_pFrame) SDL_FreeSurface(s_pFrame);
  s_pFrame = nullptr;
  if (s_pWindow) SDL_DestroyWindow(s_pWindow);
  s_pWindow = nullptr;
  SDL_Quit();
}

bool IsOpen() {
  return s_pWindow != nullptr;
}

void PumpEvents(HostEvents& out) {
  SDL_Event event;
  while (SDL_PollEvent(&event)) {
    switch (event.type) {
      case SDL_QUIT:
        out.quit = true;
        break;
      case SDL_WINDOWEVENT:
        if (event.window.event == SDL_WINDOWEVENT_FOCUS_LOST) {
          ReleaseAll();
          out.focusLost = true;
        } else if (event.window.event == SDL_WINDOWEVENT_FOCUS_GAINED) {
          out.focusGained = true;
        } else if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED ||
                   event.window.event == SDL_WINDOWEVENT_EXPOSED) {
          UpdateDestination();
        }
        break;
      case SDL_KEYDOWN:
        OnKey(event.key, true, out);
        break;
      case SDL_KEYUP:
        OnKey(event.key, false, out);
        break;
      case SDL_MOUSEBUTTONDOWN:
        if (event.button.button == SDL_BUTTON_LEFT) {
          s_bMouseDown = true;
          PushMouse(InputState::kTouchPressed, event.button.x, event.button.y);
        }
        break;
      case SDL_MOUSEMOTION:
        if (s_bMouseDown) PushMouse(InputState::kTouchPressed, event.motion.x, event.motion.y);
        break;
      case SDL_MOUSEBUTTONUP:
        if (event.button.button == SDL_BUTTON_LEFT && s_bMouseDown) {
          s_bMouseDown = false;
          PushMouse(0, event.button.x, event.button.y);
        }
        break;
      case SDL_CONTROLLERDEVICEADDED:
        OpenPad(event.cdevice.which);
        break;
      case SDL_CONTROLLERDEVICEREMOVED:
        ClosePad(event.cdevice.which);
        break;
      case SDL_CONTROLLERBUTTONDOWN:
      case SDL_CONTROLLERBUTTONUP:
        OnPadButton();
        break;
      case SDL_CONTROLLERAXISMOTION:
        OnPadAxis(event.caxis);
        break;
      default:
        break;
    }
  }
}

void Present(const U8* rgba) {
  if (!s_pWindow) return;
  SDL_Surface* surface = SDL_GetWindowSurface(s_pWindow);
  if (!surface) return;
  if (!s_pFrame || surface->format->format != s_pFrame->format->format) {
    if (s_pFrame) SDL_FreeSurface(s_pFrame);
    s_pFrame = SDL_CreateRGBSurfaceWithFormat(0, kW, kH, 32, surface->format->format);
    if (!s_pFrame) return;
    SDL_SetSurfaceBlendMode(s_pFrame, SDL_BLENDMODE_NONE);
    UpdateDestination();
  }
  // Convert into the window's format at 1x, then scale within one format (the fast path).
  SDL_ConvertPixels(kW, kH, SDL_PIXELFORMAT_RGBA32, rgba, kW * 4, s_pFrame->format->format, s_pFrame->pixels,
                    s_pFrame->pitch);
  SDL_BlitScaled(s_pFrame, nullptr, surface, &s_Dest);
  SDL_UpdateWindowSurface(s_pWindow);
}

}  // namespace Window
}  // namespace Ostra
}  // namespace Hollin
