// artgen: draws the title's sprites and backgrounds from the art manifests.
//
//   artgen --title DIR [--cache FILE] [--fonts DIR] [--jobs N] [--quiet] [--check] MANIFEST...
//   artgen --preview OUT.png SPRITE/SEQUENCE/FRAME... [--fonts DIR] MANIFEST...
//
// Reads and checks all manifests first; any mistake is printed as "file:line: what is
// wrong", one line each, and nothing is made (exit 1). Otherwise draws every sprite
// into DIR/AnimData (.anim, .tex) and every background into DIR/Levels (.til,
// -tiled.tex). With --cache only what changed is drawn again. --fonts is where text
// shapes find their .ttf files. --check only reads the manifests. --preview draws the
// named frames straight from the manifests, one over the other with their canvases'
// corners together, as they look before they are cut into tiles: screen-sized sprites
// show a whole screen that way.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "ArtBuilder.h"
#include "FramePainter.h"
#include "ManifestReader.h"

namespace {

const char* const kUsage =
    "usage: artgen --title DIR [--cache FILE] [--fonts DIR] [--jobs N] [--quiet] [--check] MANIFEST...\n"
    "       artgen --preview OUT.png SPRITE/SEQUENCE/FRAME... [--fonts DIR] MANIFEST...";
const char* const kDefaultFonts = "/usr/share/fonts/truetype/andika";

int Fail(const std::string& message) {
  fprintf(stderr, "artgen: %s\n", message.c_str());
  return 1;
}

// Draws each "Sprite/Sequence/Frame" over the ones before it.
int Preview(const artgen::ArtSet& set, const std::string& out, const std::vector<std::string>& frames) {
  assetlib::Image canvas;
  for (const std::string& wanted : frames) {
    const size_t a = wanted.find('/'), b = wanted.rfind('/');
    const artgen::SpriteRecipe* sprite = nullptr;
    for (const artgen::SpriteRecipe& s : set.sprites) {
      if (a != std::string::npos && s.name == wanted.substr(0, a)) sprite = &s;
    }
    const artgen::SequenceRecipe* sequence = nullptr;
    for (size_t i = 0; sprite && b > a && i < sprite->sequences.size(); ++i) {
      if (sprite->sequences[i].name == wanted.substr(a + 1, b - a - 1)) sequence = &sprite->sequences[i];
    }
    const int frame = b > a ? atoi(wanted.c_str() + b + 1) : -1;
    if (!sequence || frame < 0 || frame >= sequence->frames)
      return Fail(wanted + ": no such sprite/sequence/frame");
    if (canvas.width == 0)
      canvas = assetlib::Image(static_cast<uint32_t>(sprite->width), static_cast<uint32_t>(sprite->height));
    for (unsigned l = 0; l < sprite->layers.size(); ++l) {
      const assetlib::Image picture = artgen::RenderSpriteFrame(*sprite, *sequence, frame, l);
      for (uint32_t y = 0; y < std::min(canvas.height, picture.height); ++y) {
        for (uint32_t x = 0; x < std::min(canvas.width, picture.width); ++x) {
          const uint8_t* p = picture.At(x, y);
          uint8_t* c = canvas.At(x, y);
          const unsigned alpha = p[3];
          for (int i = 0; i < 3; ++i)
            c[i] = static_cast<uint8_t>((p[i] * alpha + c[i] * (255 - alpha)) / 255);
          c[3] = static_cast<uint8_t>(alpha + c[3] * (255 - alpha) / 255);
        }
      }
    }
  }
  std::string error;
  if (!assetlib::WritePng(out, canvas, error)) return Fail(error);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  artgen::ArtOptions options;
  options.jobs = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  std::string fonts = kDefaultFonts;
  std::vector<std::string> manifests;
  bool check = false;
  std::string preview;
  std::vector<std::string> previewFrames;
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
    } else if (arg == "--preview") {
      ok = take(preview);
    } else if (!preview.empty() && arg.find('/') != std::string::npos &&
               arg.find(".json") == std::string::npos) {
      previewFrames.push_back(arg);
    } else if (arg.compare(0, 2, "--") == 0) {
      ok = false;
    } else {
      manifests.push_back(arg);
    }
    if (!ok) return Fail(kUsage);
  }
  if (manifests.empty() || (!check && preview.empty() && options.titleDir.empty())) return Fail(kUsage);

  const auto start = std::chrono::steady_clock::now();
  soundgen::Diagnostics diag;
  artgen::ArtSet set;
  if (!artgen::ReadArtManifests(manifests, fonts, set, diag)) {
    fputs(diag.Joined().c_str(), stderr);
    return 1;
  }
  if (check) return 0;
  if (!preview.empty()) return Preview(set, preview, previewFrames);

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
