// The platform's debug output: stderr, and a log file when the host was given one.
// AutomationPrintf's lines end here; tests read them back from the log file.
#pragma once

void PlatformDebugOutput(const char* text);
