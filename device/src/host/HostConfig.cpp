// The one HostConfig of the process and what changes when it is set.
#include "ostra/HostConfig.h"

#include <cstdio>
#include <cstdlib>

#include "kernel/Clock.h"
#include "log/DebugOutput.h"
#include "ostra/DebugOut.h"
#include "ostra/PlayerProfile.h"

namespace Hollin {
namespace Ostra {
namespace Host {
namespace {

HostConfig& Config() {
  static HostConfig s_Config;
  return s_Config;
}

}  // namespace

void SetHostConfig(const HostConfig& config) {
  Config() = config;
  Clock::Reset(config.clock);
  DebugOutput::SetQuiet(config.quiet);
  if (!DebugOutput::OpenLog(config.logFile)) {
    std::string line = "ostra: cannot write the log file " + config.logFile + "\n";
    PlatformDebugOutput(line.c_str());
  }
  if (config.grade >= 0 && config.grade <= 255) {
    Vantle::CPlayerProfile profile(config.playerId);
    if (!profile.SetGrade(static_cast<U8>(config.grade))) {
      PlatformDebugOutput("ostra: cannot store the grade in the player's profile\n");
    }
  }
}

const HostConfig& GetHostConfig() {
  return Config();
}

std::string DefaultDataRoot() {
  const char* xdg = getenv("XDG_DATA_HOME");
  if (xdg && xdg[0] == '/') return std::string(xdg) + "/corrin";
  const char* home = getenv("HOME");
  return std::string(home && home[0] ? home : "/tmp") + "/.local/share/corrin";
}

std::string PlayerDirectory(U32 playerId) {
  const HostConfig& config = Config();
  std::string root = config.saveRoot.empty() ? DefaultDataRoot() + "/players" : config.saveRoot;
  return root + "/" + std::to_string(playerId);
}

}  // namespace Host
}  // namespace Ostra
}  // namespace Hollin
