// Reads the art manifests (content/art/*.json) into recipes. A manifest holds any of:
//
//   "palettes":    { "menu": { "sky": "#7fd4ff", ... } }   colour names by zone or screen
//   "templates":   { "tree": [ shapes ] }                  reused with {"use": "tree"}
//   "sprites":     { "M1_Background": { ... } }            each made into .anim and .tex
//   "backgrounds": { "Zone1_Back": { ... } }               each made into .til and -tiled.tex
//
// Palettes, templates and names are shared by all manifests of one run, so a name may
// be given only once across them. See content/README.md for every field. All mistakes
// are reported, one line each, as "file:line: what is wrong"; the result is only
// usable when none were found.
#pragma once
#include <string>
#include <vector>

#include "ArtRecipe.h"
#include "JsonDoc.h"

namespace artgen {

// `fontDir` is where text shapes find their fonts (name + ".ttf").
bool ReadArtManifests(const std::vector<std::string>& files, const std::string& fontDir, ArtSet& out,
                      soundgen::Diagnostics& diag);

}  // namespace artgen
