#include "window/KeyMap.h"

#include "ostra/ButtonMPI.h"

namespace Hollin {
namespace Ostra {
namespace KeyMap {

U32 ButtonOfKey(SDL_Keycode key) {
  switch (key) {
    case SDLK_UP:
      return kButtonUp;
    case SDLK_DOWN:
      return kButtonDown;
    case SDLK_LEFT:
      return kButtonLeft;
    case SDLK_RIGHT:
      return kButtonRight;
    case SDLK_z:
    case SDLK_SPACE:
    case SDLK_RETURN:
      return kButtonA;
    case SDLK_x:
    case SDLK_BACKSPACE:
      return kButtonB;
    case SDLK_q:
      return kButtonLeftShoulder;
    case SDLK_w:
      return kButtonRightShoulder;
    case SDLK_ESCAPE:
    case SDLK_HOME:
      return kButtonHome;
    case SDLK_h:
      return kButtonHint;
    case SDLK_p:
      return kButtonPause;
    case SDLK_e:
      return kButtonExtra;
    default:
      return 0;
  }
}

U32 ButtonOfPad(SDL_GameControllerButton button) {
  switch (button) {
    case SDL_CONTROLLER_BUTTON_DPAD_UP:
      return kButtonUp;
    case SDL_CONTROLLER_BUTTON_DPAD_DOWN:
      return kButtonDown;
    case SDL_CONTROLLER_BUTTON_DPAD_LEFT:
      return kButtonLeft;
    case SDL_CONTROLLER_BUTTON_DPAD_RIGHT:
      return kButtonRight;
    case SDL_CONTROLLER_BUTTON_A:
      return kButtonA;
    case SDL_CONTROLLER_BUTTON_B:
      return kButtonB;
    case SDL_CONTROLLER_BUTTON_X:
      return kButtonHint;
    case SDL_CONTROLLER_BUTTON_Y:
      return kButtonExtra;
    case SDL_CONTROLLER_BUTTON_LEFTSHOULDER:
      return kButtonLeftShoulder;
    case SDL_CONTROLLER_BUTTON_RIGHTSHOULDER:
      return kButtonRightShoulder;
    case SDL_CONTROLLER_BUTTON_START:
      return kButtonPause;
    case SDL_CONTROLLER_BUTTON_BACK:
    case SDL_CONTROLLER_BUTTON_GUIDE:
      return kButtonHome;
    default:
      return 0;
  }
}

bool TiltOfKey(SDL_Keycode key, int& axis, int& direction) {
  switch (key) {
    case SDLK_i:
      axis = 1;
      direction = -1;
      return true;
    case SDLK_k:
      axis = 1;
      direction = 1;
      return true;
    case SDLK_j:
      axis = 0;
      direction = -1;
      return true;
    case SDLK_l:
      axis = 0;
      direction = 1;
      return true;
    default:
      return false;
  }
}

}  // namespace KeyMap
}  // namespace Ostra
}  // namespace Hollin
