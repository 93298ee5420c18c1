// How the host sets up the platform before an application runs: where the title, the
// downloads and the saves are, who plays, which clock runs, and where debug output goes.
//
// appmanager fills a HostConfig from its command line and calls SetHostConfig once,
// before it loads App.so. Unit tests of other layers do the same to point the platform
// at temporary directories:
//
//   Hollin::Ostra::Host::HostConfig config;
//   config.titlePath = tempDir + "/title";
//   config.saveRoot = tempDir + "/players";
//   config.playerId = 1;
//   Hollin::Ostra::Host::SetHostConfig(config);
//
// Every field has a usable default, so a test sets only what it looks at. Calling
// SetHostConfig again replaces the whole configuration (it also resets the clock to 0
// and reopens the log file); GetHostConfig reads it back.
#pragma once
#include <string>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {
namespace Host {

enum class ClockMode {
  kReal,     // the monotonic clock of the machine
  kVirtual,  // advanced 17, 17, 16 ms per frame by the host and by TaskSleep
};

const int kGradeFromProfile = -1;  // HostConfig::grade: keep what the profile holds
const U8 kNoGrade = 255;           // a profile without a grade

struct HostConfig {
  std::string titlePath = ".";  // the title directory (App.so, meta.inf, Textures, ...)
  // Download packages, one directory each. Empty: <data root>/downloads.
  std::string downloadsPath;
  // Root of the players' directories (<saveRoot>/<player id>/...). Empty: the data root's
  // "players", where the data root is $XDG_DATA_HOME/corrin or ~/.local/share/corrin.
  std::string saveRoot;
  U32 playerId = 0;               // 0xFFFFFFFF is "no player"
  int grade = kGradeFromProfile;  // 0..255: written to the player's profile on SetHostConfig
  std::string locale = "en-us";   // lower case, "en-us" or "en-gb"
  bool cheats = false;            // Vantle::CSystem::AreCheatsEnabled
  ClockMode clock = ClockMode::kReal;
  bool headless = true;  // false only while appmanager shows a window
  std::string logFile;   // debug output is also appended here when not empty
  bool quiet = false;    // no debug output on stderr
  // Directory of the platform's stock sounds ("h_OSTM_..."). Empty: <data root>/StockAudio.
  std::string stockAudioPath;
};

void SetHostConfig(const HostConfig& config);
const HostConfig& GetHostConfig();

// The platform's data root as described above ($XDG_DATA_HOME/corrin or ~/.local/share/corrin).
std::string DefaultDataRoot();
// The player's own directory: <save root>/<player id>. Not created here.
std::string PlayerDirectory(U32 playerId);

}  // namespace Host
}  // namespace Ostra
}  // namespace Hollin
