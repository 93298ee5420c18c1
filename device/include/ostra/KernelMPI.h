// Kernel services: the millisecond clock, sleeping and mutexes.
// The clock is the real monotonic clock, or a virtual clock that the host advances
// a fixed 16/17 ms pattern per frame (and that TaskSleep advances) for repeatable runs.
#pragma once
#include <pthread.h>
#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {

typedef pthread_mutex_t tMutex;
typedef pthread_mutexattr_t tMutexAttr;

class CKernelMPI {
 public:
  CKernelMPI() {}
  bool IsValid() const { return true; }

  // Milliseconds since the platform started; wraps at 2^32.
  U32 GetElapsedTimeAsMSecs() const;
  // Microseconds since the platform started (low 32 bits wrap).
  U64 GetElapsedTimeAsUSecs() const;
  tErrType TaskSleep(U32 ms) const;

  tErrType InitMutex(tMutex& mutex, const tMutexAttr* attr = nullptr) const;
  tErrType DeInitMutex(tMutex& mutex) const;
  tErrType LockMutex(tMutex& mutex) const;
  tErrType TryLockMutex(tMutex& mutex) const;
  tErrType UnlockMutex(tMutex& mutex) const;
};

}  // namespace Ostra
}  // namespace Hollin
