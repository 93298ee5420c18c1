// CKernelMPI over the platform clock and pthreads.
#include "ostra/KernelMPI.h"

#include "kernel/Clock.h"

namespace Hollin {
namespace Ostra {

U32 CKernelMPI::GetElapsedTimeAsMSecs() const {
  return static_cast<U32>(Clock::NowUSecs() / 1000u);
}

U64 CKernelMPI::GetElapsedTimeAsUSecs() const {
  return Clock::NowUSecs();
}

tErrType CKernelMPI::TaskSleep(U32 ms) const {
  Clock::Sleep(ms);
  return kNoErr;
}

tErrType CKernelMPI::InitMutex(tMutex& mutex, const tMutexAttr* attr) const {
  return pthread_mutex_init(&mutex, attr) == 0 ? kNoErr : kErr;
}

tErrType CKernelMPI::DeInitMutex(tMutex& mutex) const {
  return pthread_mutex_destroy(&mutex) == 0 ? kNoErr : kErr;
}

tErrType CKernelMPI::LockMutex(tMutex& mutex) const {
  return pthread_mutex_lock(&mutex) == 0 ? kNoErr : kErr;
}

tErrType CKernelMPI::TryLockMutex(tMutex& mutex) const {
  return pthread_mutex_trylock(&mutex) == 0 ? kNoErr : kErr;
}

tErrType CKernelMPI::UnlockMutex(tMutex& mutex) const {
  return pthread_mutex_unlock(&mutex) == 0 ? kNoErr : kErr;
}

}  // namespace Ostra
}  // namespace Hollin
