// The named painters of artgen: drawings in C++ for what is too fiddly to write as a
// list of shapes, such as the heroine or a flickering flame. A manifest shape
// {"painter": "corrin", "pose": "wave", ...} calls one; its parameters are checked
// against the painter's list when the manifest is read.
//
// A painter draws around (0, 0) of the shape in its natural size (the heroine is about
// 100 pixels tall with her feet at (0, 0)); the shape's placement, scale and motions
// put it where it belongs. `phase` runs from 0 to 1 over the sequence, so that a
// painter's own movement (a blink, a flicker, a waving arm) loops with the sequence.
#pragma once
#include <cairo.h>

#include <functional>
#include <string>
#include <vector>

#include "ArtRecipe.h"

namespace artgen {

struct PainterParam {
  enum Kind { kNumber, kWord, kColour };
  const char* name;
  Kind kind;
  double lo = 0, hi = 0;           // numbers
  std::vector<std::string> words;  // words: the allowed values
};

struct PainterCall {
  const Shape& shape;  // numbers, words and colours given in the manifest
  double phase;        // 0 to 1 over the sequence
  int frame;

  double Number(const char* name, double fallback) const;
  std::string Word(const char* name, const std::string& fallback) const;
  Rgba Colour(const char* name, const Rgba& fallback) const;
};

struct PainterDef {
  const char* name;
  const char* about;
  std::vector<PainterParam> params;
  std::function<void(cairo_t*, const PainterCall&)> draw;
};

// All painters; null for an unknown name.
const PainterDef* FindPainter(const std::string& name);
const std::vector<PainterDef>& AllPainters();

// The painters by theme, gathered by AllPainters.
void AddCharacterPainters(std::vector<PainterDef>& out);
void AddScenePainters(std::vector<PainterDef>& out);

// Drawing helpers shared by the painters: the outlined, bright look of the title.
Rgba Mix(const Rgba& a, const Rgba& b, double t);
Rgba Darker(const Rgba& c, double amount);   // towards black
Rgba Lighter(const Rgba& c, double amount);  // towards white
void SetColour(cairo_t* cr, const Rgba& c);
// Fills the current path with `fill` and strokes an outline of `width` under it.
void FillOutlined(cairo_t* cr, const Rgba& fill, const Rgba& outline, double width);

}  // namespace artgen
