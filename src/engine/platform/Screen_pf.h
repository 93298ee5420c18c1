// Device half of the screen. The display's handles live with the screen manager
// (ScreenManager_pf), so nothing of the screen itself is bound to the device: this
// base only keeps screens from being copied, as each is registered by address with
// the accelerometer while auto-orientation is on.
#pragma once
#include "core/NoCopy.h"

namespace nox {

class Screen_pf : public NoCopy {
 protected:
  Screen_pf() = default;
  ~Screen_pf() = default;
};

}  // namespace nox
