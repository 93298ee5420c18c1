// artgen: draws the title's sprites and backgrounds from the art manifests.
//
//   artgen --title DIR [--cache FILE] [--fonts DIR] [--jobs N] [--quiet] [--check] MANIFEST...
//
// Reads and checks all manifests first; any mistake is printed as "file:line: what is
// wrong", one line each, and nothing is made (exit 1). Otherwise draws every sprite
// into DIR/AnimData (.anim, .tex) and every background into DIR/Levels (.til,
// -tiled.tex). With --cache only what changed is drawn again. --fonts is where text
// shapes find their .ttf files. --check only reads the manifests.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "ArtBuilder.h"
#include "ManifestReader.h"

namespace {

const char* const kUsage =
    "usage: artgen --title DIR [--cache FILE] [--fonts DIR] [--jobs N] [--quiet] [--check] MANIFEST...";
const char* const kDefaultFonts = "/usr/share/fonts/truetype/andika";

int Fail(const std::string& message) {
  fprintf(stderr, "artgen: %s\n", message.c_str());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  artgen::ArtOptions options;
  options.jobs = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  std::string fonts = kDefaultFonts;
  std::vector<std::string> manifests;
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
    if (arg == "--title") {
      ok = take(options.titleDir);
    } else if (arg == "--cache") {
      ok = take(options.cachePath);
    } else if (arg == "--fonts") {
      ok = take(fonts);
    } else if (arg == "--jobs") {
      std::string n;
      ok = take(n) && (options.jobs = atoi(n.c_str())) >= 1 && options.jobs <= 64;
    } else if (arg == "--quiet") {
      options.quiet = true;
    } else if (arg == "--check") {
      check = true;
    } else if (arg.compare(0, 2, "--") == 0) {
      ok = false;
    } else {
      manifests.push_back(arg);
    }
    if (!ok) return Fail(kUsage);
  }
  if (manifests.empty() || (!check && options.titleDir.empty())) return Fail(kUsage);

  const auto start = std::chrono::steady_clock::now();
  soundgen::Diagnostics diag;
  artgen::ArtSet set;
  if (!artgen::ReadArtManifests(manifests, fonts, set, diag)) {
    fputs(diag.Joined().c_str(), stderr);
    return 1;
  }
  if (check) return 0;

  artgen::ArtReport report;
  const bool ok = artgen::BuildArt(set, options, report, diag);
  fputs(diag.Joined().c_str(), stderr);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  printf(
      "artgen: %zu sprites, %zu backgrounds: %d made (%zu KB), %d up to date, %d files removed, %d failed "
      "(%.1f s)\n",
      set.sprites.size(), set.backgrounds.size(), report.made, (report.bytes + 1023) / 1024, report.upToDate,
      report.removed, report.failed, seconds);
  return ok ? 0 : 1;
}
