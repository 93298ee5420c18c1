// CTouchEventQueue over one process-wide ring buffer: every CTouchEventQueue object is a
// view of the same queue, as on the device. Fixed storage, so pushing and popping never
// allocate.
#include <mutex>

#include "input/InputState.h"
#include "ostra/KernelMPI.h"

namespace Hollin {
namespace Ostra {
namespace {

const int kCapacity = InputState::kTouchQueueCapacity;

std::mutex s_Mutex;
tTouchData s_Events[kCapacity];
int s_Head = 0;  // index of the oldest event
int s_Count = 0;

void PushLocked(const tTouchData& data) {
  if (s_Count == kCapacity) {
    s_Head = (s_Head + 1) % kCapacity;
    --s_Count;
  }
  s_Events[(s_Head + s_Count) % kCapacity] = data;
  ++s_Count;
}

}  // namespace

namespace InputState {

void PushTouch(U16 state, S16 x, S16 y) {
  tTouchData data;
  data.touchState = state;
  data.x = x;
  data.y = y;
  data.timeMS = CKernelMPI().GetElapsedTimeAsMSecs();
  std::lock_guard<std::mutex> lock(s_Mutex);
  PushLocked(data);
}

}  // namespace InputState

bool CTouchEventQueue::IsEmpty() const {
  std::lock_guard<std::mutex> lock(s_Mutex);
  return s_Count == 0;
}

bool CTouchEventQueue::Front(tTouchData& out) const {
  std::lock_guard<std::mutex> lock(s_Mutex);
  if (s_Count == 0) return false;
  out = s_Events[s_Head];
  return true;
}

void CTouchEventQueue::PopFront() {
  std::lock_guard<std::mutex> lock(s_Mutex);
  if (s_Count == 0) return;
  s_Head = (s_Head + 1) % kCapacity;
  --s_Count;
}

void CTouchEventQueue::Clear() {
  std::lock_guard<std::mutex> lock(s_Mutex);
  s_Head = 0;
  s_Count = 0;
}

void CTouchEventQueue::Push(const tTouchData& data) {
  std::lock_guard<std::mutex> lock(s_Mutex);
  PushLocked(data);
}

}  // namespace Ostra
}  // namespace Hollin
