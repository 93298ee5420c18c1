// soundgen: makes the title's sounds from the manifests in content/sounds.
//
//   soundgen --voices F --effects F --stock F --music F --title DIR --stock-dir DIR
//            [--cache FILE] [--jobs N] [--quiet] [--check]
//
// Reads and checks all manifests first; any mistake is printed as "file:line: what is
// wrong", one line each, and nothing is made (exit 1). Otherwise speaks the voice lines,
// synthesises the effects, stock sounds and music, and writes them where the game and the
// platform look for them (see SoundBuilder.h). With --cache, files whose sources did not
// change are kept. --check only reads the manifests.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#include "ManifestReader.h"
#include "SoundBuilder.h"

namespace {

const char* const kUsage =
    "usage: soundgen --voices F --effects F --stock F --music F --title DIR --stock-dir DIR\n"
    "                [--cache FILE] [--jobs N] [--quiet] [--check]";

int Fail(const std::string& message) {
  fprintf(stderr, "soundgen: %s\n", message.c_str());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  soundgen::ManifestFiles files;
  soundgen::BuildOptions options;
  options.jobs = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  bool check = false;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
    auto take = [&](std::string& out) {
      if (!value) return false;
      out = value;
      ++i;
      return true;
    };
    bool ok = true;
    if (arg == "--voices") {
      ok = take(files.voices);
    } else if (arg == "--effects") {
      ok = take(files.effects);
    } else if (arg == "--stock") {
      ok = take(files.stock);
    } else if (arg == "--music") {
      ok = take(files.music);
    } else if (arg == "--title") {
      ok = take(options.titleDir);
    } else if (arg == "--stock-dir") {
      ok = take(options.stockDir);
    } else if (arg == "--cache") {
      ok = take(options.cachePath);
    } else if (arg == "--jobs") {
      std::string n;
      ok = take(n) && (options.jobs = atoi(n.c_str())) >= 1 && options.jobs <= 64;
    } else if (arg == "--quiet") {
      options.quiet = true;
    } else if (arg == "--check") {
      check = true;
    } else {
      ok = false;
    }
    if (!ok) return Fail(kUsage);
  }
  if (!check && (options.titleDir.empty() || options.stockDir.empty())) return Fail(kUsage);

  const auto start = std::chrono::steady_clock::now();
  soundgen::Diagnostics diag;
  soundgen::SoundSet set;
  if (!soundgen::ReadManifests(files, set, diag)) {
    fputs(diag.Joined().c_str(), stderr);
    return 1;
  }
  if (check) return 0;

  soundgen::BuildReport report;
  const bool ok = soundgen::BuildSounds(set, options, report, diag);
  fputs(diag.Joined().c_str(), stderr);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  printf(
      "soundgen: %zu voices, %zu effects, %zu stock sounds, %zu tracks: %d files made, %d up to date, "
      "%d removed, %d failed (%.1f s)\n",
      set.voices.size(), set.effects.size(), set.stock.size(), set.music.size(), report.made, report.upToDate,
      report.removed, report.failed, seconds);
  return ok ? 0 : 1;
}
