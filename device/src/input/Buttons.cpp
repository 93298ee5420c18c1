// CButtonMPI over the host's button word. The transition word is relative to the previous
// read by anybody, since the game reads the buttons once a frame through one object.
#include <atomic>

#include "input/InputState.h"
#include "ostra/ButtonMPI.h"
#include "ostra/KernelMPI.h"

namespace Hollin {
namespace Ostra {
namespace {

std::atomic<U32> s_Buttons{0};
std::atomic<U32> s_LastRead{0};

}  // namespace

namespace InputState {

void PressButtons(U32 bits) {
  s_Buttons.fetch_or(bits);
}
void ReleaseButtons(U32 bits) {
  s_Buttons.fetch_and(~bits);
}
U32 GetButtons() {
  return s_Buttons.load();
}

}  // namespace InputState

void ResetButtons() {
  s_Buttons = 0;
  s_LastRead = 0;
}

tButtonData2 CButtonMPI::GetButtonState2() const {
  tButtonData2 data;
  data.buttonState = s_Buttons.load();
  data.buttonTransition = data.buttonState ^ s_LastRead.exchange(data.buttonState);
  data.timeMS = CKernelMPI().GetElapsedTimeAsMSecs();
  return data;
}

}  // namespace Ostra
}  // namespace Hollin
