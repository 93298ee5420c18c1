// Makes the title's pictures from the recipes: each sprite into AnimData/<name>.anim and
// .tex, each background into Levels/<name>.til and -tiled.tex, the places where the
// engine looks for them. Frames are drawn with FramePainter and cut into tiles by the
// asset library's writers, in memory, in as many threads as asked for.
//
// With a cache, a picture whose recipe (and the palettes, templates, fonts and artgen
// itself) did not change is not made again, and files of pictures no longer in any
// manifest are removed from the title.
#pragma once
#include <string>

#include "AnimWriter.h"
#include "ArtRecipe.h"
#include "JsonDoc.h"
#include "TilWriter.h"

namespace artgen {

struct ArtOptions {
  std::string titleDir;
  std::string cachePath;  // empty: make everything
  int jobs = 1;
  bool quiet = false;  // no line per picture
};

struct ArtReport {
  int made = 0;
  int upToDate = 0;
  int removed = 0;
  int failed = 0;
  size_t bytes = 0;  // of the files made
};

// The two files of one sprite, in memory.
bool MakeSprite(const SpriteRecipe& sprite, assetlib::AnimOutput& out, std::string& error);
// The two files of one background, in memory.
bool MakeBackground(const BackgroundRecipe& background, assetlib::TilOutput& out, std::string& error);

// Makes what is out of date; failures are added to `diag` as "file:line: ...".
bool BuildArt(const ArtSet& set, const ArtOptions& options, ArtReport& report, soundgen::Diagnostics& diag);

}  // namespace artgen
