// appmanager's command line. Every option is described by PrintHelp and the README.
#pragma once
#include <cstdio>
#include <string>
#include <vector>

#include "ostra/HostConfig.h"

namespace appmanager {

struct ScreenshotRequest {
  U32 frame;
  std::string path;
};

struct Options {
  Hollin::Ostra::Host::HostConfig config;  // title, saves, player, clock, log, ...
  bool titleGiven = false;
  bool forceHeadless = false;
  int scale = 2;  // 1..4
  bool fullscreen = false;
  long long frames = -1;  // -1: until the app pops or the window closes
  std::vector<ScreenshotRequest> screenshots;
  std::string inputScript;
  bool stats = false;
  std::string audioOut;  // WAV capture of the mixed sound; empty: none
  bool mute = false;     // no sound device; the mix still runs, so sounds end on time
  bool help = false;
};

// Parses argv; on a bad option or value returns false with a one-line `error`.
bool ParseOptions(int argc, char** argv, Options& options, std::string& error);
void PrintHelp(FILE* out);

}  // namespace appmanager
