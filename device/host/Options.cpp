#include "Options.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace appmanager {
namespace {

using Hollin::Ostra::Host::ClockMode;

bool ParseNumber(const std::string& text, long long min, long long max, long long& out) {
  if (text.empty()) return false;
  errno = 0;
  char* end = nullptr;
  long long value = strtoll(text.c_str(), &end, 10);
  if (errno != 0 || *end != '\0' || value < min || value > max) return false;
  out = value;
  return true;
}

bool ParseScreenshot(const std::string& value, ScreenshotRequest& out) {
  size_t colon = value.find(':');
  long long frame;
  if (colon == std::string::npos || colon + 1 == value.size()) return false;
  if (!ParseNumber(value.substr(0, colon), 0, 0x7FFFFFFF, frame)) return false;
  out.frame = static_cast<U32>(frame);
  out.path = value.substr(colon + 1);
  return true;
}

}  // namespace

void PrintHelp(FILE* out) {
  fputs(
      "usage: appmanager --title DIR [options]\n"
      "Loads DIR/App.so and runs it frame by frame, in a window or headless.\n"
      "\n"
      "  --title DIR            the title directory (App.so, meta.inf, assets); required\n"
      "  --downloads DIR        download packages, one subdirectory each with a meta.inf\n"
      "                         (default: $XDG_DATA_HOME/corrin/downloads)\n"
      "  --saves DIR            root of the players' save directories\n"
      "                         (default: $XDG_DATA_HOME/corrin/players)\n"
      "  --player N             current player id, 0..4294967295 or -1 for none (default 0)\n"
      "  --grade N              store grade N (0..255, 255 = none) in the player's profile\n"
      "  --locale LOC           locale, e.g. en-us (default) or en-gb\n"
      "  --cheats               switch the game's debug facilities on\n"
      "  --clock real|virtual   real monotonic time (default), or 17/17/16 ms per frame\n"
      "  --headless             no window: draw into an off-screen 480x272 surface\n"
      "  --scale N              window size 480x272 times N, 1..4 (default 2)\n"
      "  --fullscreen           full-screen window, picture scaled and letterboxed\n"
      "  --frames N             stop after N frames\n"
      "  --screenshot F:FILE    write the picture after frame F (from 0) to FILE.png;\n"
      "                         may be given several times\n"
      "  --input FILE           play an input script (see the README, \"Input scripts\")\n"
      "  --log FILE             also write the debug output to FILE, flushed per line\n"
      "  --quiet                no debug output on stderr\n"
      "  --stock-audio DIR      the platform's stock sounds (h_OSTM_...)\n"
      "                         (default: $XDG_DATA_HOME/corrin/StockAudio)\n"
      "  --audio-out FILE       also write the mixed sound to FILE (WAV, 32 kHz stereo)\n"
      "  --mute                 play no sound on the sound device\n"
      "  --stats                print frame count, frame CPU time and heap allocations\n"
      "                         per frame (from frame 60 on) at the end\n"
      "  --help                 show this text\n"
      "\n"
      "In a window: arrows d-pad, Z/Space/Enter A, X/Backspace B, Q/W shoulders,\n"
      "Esc/Home Home, H hint, P pause, E extra, I/J/K/L tilt, mouse touch, F12 screenshot.\n"
      "Exit status: 0 done, 1 the title could not be run, 2 bad command line or input script.\n",
      out);
}

bool ParseOptions(int argc, char** argv, Options& options, std::string& error) {
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    std::string value;
    bool hasInlineValue = false;
    size_t eq = arg.find('=');
    if (arg.compare(0, 2, "--") == 0 && eq != std::string::npos) {
      value = arg.substr(eq + 1);
      arg = arg.substr(0, eq);
      hasInlineValue = true;
    }
    // Options that take a value read it from "--opt=value" or the next argument.
    auto next = [&](std::string& out) {
      if (hasInlineValue) {
        out = value;
        return true;
      }
      if (i + 1 >= argc) {
        error = arg + " needs a value";
        return false;
      }
      out = argv[++i];
      return true;
    };
    auto flag = [&]() {
      if (!hasInlineValue) return true;
      error = arg + " takes no value";
      return false;
    };
    long long number;
    std::string v;
    if (arg == "--help" || arg == "-h") {
      if (!flag()) return false;
      options.help = true;
    } else if (arg == "--title") {
      if (!next(v)) return false;
      options.config.titlePath = v;
      options.titleGiven = true;
    } else if (arg == "--downloads") {
      if (!next(options.config.downloadsPath)) return false;
    } else if (arg == "--saves") {
      if (!next(options.config.saveRoot)) return false;
    } else if (arg == "--player") {
      if (!next(v)) return false;
      if (!ParseNumber(v, -1, 0xFFFFFFFFll, number)) {
        error = "--player: expected a player id from -1 to 4294967295, got '" + v + "'";
        return false;
      }
      options.config.playerId = static_cast<U32>(number);
    } else if (arg == "--grade") {
      if (!next(v)) return false;
      if (!ParseNumber(v, 0, 255, number)) {
        error = "--grade: expected a grade from 0 to 255, got '" + v + "'";
        return false;
      }
      options.config.grade = static_cast<int>(number);
    } else if (arg == "--locale") {
      if (!next(v)) return false;
      if (v.size() < 2 || v.size() > 15 ||
          v.find_first_not_of("abcdefghijklmnopqrstuvwxyz-_") != std::string::npos) {
        error = "--locale: expected a lower-case locale such as en-us, got '" + v + "'";
        return false;
      }
      options.config.locale = v;
    } else if (arg == "--cheats") {
      if (!flag()) return false;
      options.config.cheats = true;
    } else if (arg == "--clock") {
      if (!next(v)) return false;
      if (v != "real" && v != "virtual") {
        error = "--clock: expected 'real' or 'virtual', got '" + v + "'";
        return false;
      }
      options.config.clock = v == "virtual" ? ClockMode::kVirtual : ClockMode::kReal;
    } else if (arg == "--headless") {
      if (!flag()) return false;
      options.forceHeadless = true;
    } else if (arg == "--scale") {
      if (!next(v)) return false;
      if (!ParseNumber(v, 1, 4, number)) {
        error = "--scale: expected a number from 1 to 4, got '" + v + "'";
        return false;
      }
      options.scale = static_cast<int>(number);
    } else if (arg == "--fullscreen") {
      if (!flag()) return false;
      options.fullscreen = true;
    } else if (arg == "--frames") {
      if (!next(v)) return false;
      if (!ParseNumber(v, 1, 0x7FFFFFFF, number)) {
        error = "--frames: expected a frame count of at least 1, got '" + v + "'";
        return false;
      }
      options.frames = number;
    } else if (arg == "--screenshot") {
      if (!next(v)) return false;
      ScreenshotRequest request;
      if (!ParseScreenshot(v, request)) {
        error = "--screenshot: expected FRAME:FILE, got '" + v + "'";
        return false;
      }
      options.screenshots.push_back(request);
    } else if (arg == "--input") {
      if (!next(options.inputScript)) return false;
    } else if (arg == "--log") {
      if (!next(options.config.logFile)) return false;
    } else if (arg == "--quiet") {
      if (!flag()) return false;
      options.config.quiet = true;
    } else if (arg == "--stock-audio") {
      if (!next(options.config.stockAudioPath)) return false;
    } else if (arg == "--audio-out") {
      if (!next(options.audioOut)) return false;
    } else if (arg == "--mute") {
      if (!flag()) return false;
      options.mute = true;
    } else if (arg == "--stats") {
      if (!flag()) return false;
      options.stats = true;
    } else {
      error = "unknown option '" + std::string(argv[i]) + "' (see --help)";
      return false;
    }
  }
  return true;
}

}  // namespace appmanager
