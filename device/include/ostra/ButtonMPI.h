// Hardware buttons as one 32-bit word: 0x1 up, 0x2 down, 0x4 right, 0x8 left,
// 0x10 and 0x20 face buttons, 0x40 and 0x80 shoulders, 0x100 Home, 0x200 hint,
// 0x400 pause, 0x800 a further button.
#pragma once
#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

const U32 kButtonUp = 0x1;
const U32 kButtonDown = 0x2;
const U32 kButtonRight = 0x4;
const U32 kButtonLeft = 0x8;
const U32 kButtonA = 0x10;
const U32 kButtonB = 0x20;
const U32 kButtonLeftShoulder = 0x40;
const U32 kButtonRightShoulder = 0x80;
const U32 kButtonHome = 0x100;
const U32 kButtonHint = 0x200;
const U32 kButtonPause = 0x400;
const U32 kButtonExtra = 0x800;

struct tButtonData2 {
  U32 buttonState;       // bits down now
  U32 buttonTransition;  // bits that changed since the previous read
  U32 timeMS;            // kernel time of the read
};

class CButtonMPI {
 public:
  // The state of all buttons as of the current frame.
  tButtonData2 GetButtonState2() const;
};

}  // namespace Ostra
}  // namespace Hollin
