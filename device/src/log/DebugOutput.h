// Where PlatformDebugOutput writes: stderr unless quiet, and a log file when one is open.
// Each line is flushed at once, so a run that is killed keeps everything it printed.
#pragma once
#include <string>

namespace Hollin {
namespace Ostra {
namespace DebugOutput {

// Closes any open log file and opens `path` for writing (truncated); empty closes only.
// False when the file could not be opened.
bool OpenLog(const std::string& path);
void SetQuiet(bool quiet);

}  // namespace DebugOutput
}  // namespace Ostra
}  // namespace Hollin
