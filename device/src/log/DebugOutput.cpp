#include "log/DebugOutput.h"

#include <cstdio>
#include <mutex>

#include "ostra/DebugOut.h"

namespace Hollin {
namespace Ostra {
namespace DebugOutput {
namespace {

std::mutex s_Mutex;
FILE* s_pLog = nullptr;  // owned
bool s_bQuiet = false;

}  // namespace

bool OpenLog(const std::string& path) {
  std::lock_guard<std::mutex> lock(s_Mutex);
  if (s_pLog) fclose(s_pLog);
  s_pLog = nullptr;
  if (path.empty()) return true;
  s_pLog = fopen(path.c_str(), "w");
  return s_pLog != nullptr;
}

void SetQuiet(bool quiet) {
  std::lock_guard<std::mutex> lock(s_Mutex);
  s_bQuiet = quiet;
}

}  // namespace DebugOutput
}  // namespace Ostra
}  // namespace Hollin

void PlatformDebugOutput(const char* text) {
  using namespace Hollin::Ostra::DebugOutput;
  if (!text) return;
  std::lock_guard<std::mutex> lock(s_Mutex);
  if (!s_bQuiet) {
    fputs(text, stderr);
    fflush(stderr);
  }
  if (s_pLog) {
    fputs(text, s_pLog);
    fflush(s_pLog);
  }
}
