// Device half of the game host: holds the kernel service that gives time and sleep.
#pragma once
#include "core/NoCopy.h"
#include "ostra/KernelMPI.h"

namespace nox {

class GameHost_pf : public NoCopy {
 protected:
  U32 KernelMilliseconds() const { return m_Kernel.GetElapsedTimeAsMSecs(); }
  void KernelSleep(U32 ms) const { m_Kernel.TaskSleep(ms); }

 private:
  Hollin::Ostra::CKernelMPI m_Kernel;
};

}  // namespace nox
