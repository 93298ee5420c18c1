#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "core/Debug.h"
#include "ostra/DebugOut.h"

namespace nox {

void AutomationPrintf(const char* format, ...) {
  // 256 bytes with room kept for the added newline.
  char buffer[257];
  va_list args;
  va_start(args, format);
  int n = vsnprintf(buffer, 256, format, args);
  va_end(args);
  if (n < 0) return;
  size_t len = strlen(buffer);
  if (len == 0 || buffer[len - 1] != '\n') {
    buffer[len] = '\n';
    buffer[len + 1] = '\0';
  }
  PlatformDebugOutput(buffer);
}

}  // namespace nox
