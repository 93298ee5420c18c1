#include "core/FixedPoint.h"

#include <csignal>
#include <cstdlib>

#include "core/Debug.h"

namespace nox {

void RealDivisionByZero() {
  AutomationPrintf("Real: division by zero");
  std::raise(SIGFPE);
  // Only reached when SIGFPE is ignored or handled and returns.
  std::abort();
}

}  // namespace nox
