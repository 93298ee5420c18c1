// CAccelerometerMPI: the tilt that the host sets. Only changes are sent as messages; the
// rate is stored and reported but samples are not repeated, since the reading only
// changes when the host changes it.
#include <atomic>
#include <mutex>

#include "input/InputState.h"
#include "input/ListenerList.h"
#include "ostra/ButtonMPI.h"
#include "ostra/KernelMPI.h"
#include "ostra/TouchEventQueue.h"

namespace Hollin {
namespace Ostra {

void ResetButtons();  // Buttons.cpp

namespace {

std::mutex s_Mutex;
tAccelerometerData s_Data = {0, 0, 1, 0};
std::atomic<U32> s_Rate{30};

ListenerList& Listeners() {
  static ListenerList s_List;
  return s_List;
}

}  // namespace

namespace InputState {

void SetTilt(S32 x, S32 y, S32 z) {
  tAccelerometerData data;
  {
    std::lock_guard<std::mutex> lock(s_Mutex);
    if (s_Data.accelX == x && s_Data.accelY == y && s_Data.accelZ == z) return;
    s_Data.accelX = x;
    s_Data.accelY = y;
    s_Data.accelZ = z;
    s_Data.timeUSecs = CKernelMPI().GetElapsedTimeAsUSecs();
    data = s_Data;
  }
  CAccelerometerMessage message(data);
  Listeners().Post(message);
  GlobalListeners().Post(message);
}

void Reset() {
  ResetButtons();
  CTouchEventQueue().Clear();
  std::lock_guard<std::mutex> lock(s_Mutex);
  s_Data = tAccelerometerData{0, 0, 1, 0};
}

}  // namespace InputState

bool CAccelerometerMPI::IsAccelerometerPresent() const {
  return true;
}

U32 CAccelerometerMPI::GetAccelerometerRate() const {
  return s_Rate.load();
}

tErrType CAccelerometerMPI::SetAccelerometerRate(U32 rate) {
  if (rate == 0 || rate > 1000) return kErr;
  s_Rate = rate;
  return kNoErr;
}

tAccelerometerData CAccelerometerMPI::GetAccelerometerData() const {
  std::lock_guard<std::mutex> lock(s_Mutex);
  return s_Data;
}

tErrType CAccelerometerMPI::RegisterEventListener(IEventListener* listener) {
  return Listeners().Add(listener);
}

tErrType CAccelerometerMPI::UnregisterEventListener(IEventListener* listener) {
  return Listeners().Remove(listener);
}

}  // namespace Ostra
}  // namespace Hollin
