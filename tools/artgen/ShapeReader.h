// Reads the drawing part of an art manifest: shapes, their fills, colours and motions.
// Every problem is added to the diagnostics at the line of the field it is about, and
// reading goes on, so that one run reports all mistakes.
//
// Colours are "#rgb", "#rrggbb", "#rrggbbaa", "clear", or a name from the palette in
// use (the sprite's own, then "base"); "name@0.5" multiplies the alpha. Templates are
// kept as JSON and read at each use, so that a template takes the palette of the
// sprite that uses it.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "ArtRecipe.h"
#include "FieldReader.h"
#include "JsonDoc.h"

namespace artgen {

using soundgen::Diagnostics;
using soundgen::FieldReader;
using soundgen::Json;
using soundgen::JsonDoc;

typedef std::map<std::string, Rgba> Palette;

struct TemplateRef {
  const JsonDoc* doc = nullptr;
  std::string path;  // of the template's array of shapes
};

// What the shapes of one sprite or background are read against.
struct ShapeContext {
  const std::map<std::string, Palette>* palettes = nullptr;
  std::string palette;  // the sprite's; "" for "base" only
  const std::map<std::string, TemplateRef>* templates = nullptr;
  std::string fontDir;
  std::vector<std::string> layers;  // the sprite's layer names; empty: one layer
};

class ShapeReader {
 public:
  ShapeReader(const ShapeContext& context, Diagnostics& diag) : m_Context(context), m_Diag(diag) {}

  // An array of shapes at `path`; appends to `out`.
  void ReadShapes(const JsonDoc& doc, const std::string& path, std::vector<Shape>& out);
  // One motion object or an array of them at `path`.
  void ReadMotions(const JsonDoc& doc, const std::string& path, std::vector<Motion>& out);
  // A colour text; false with `error` describing it.
  bool ParseColour(const std::string& text, Rgba& out, std::string& error) const;

 private:
  bool ReadShape(const JsonDoc& doc, const std::string& path, Shape& out, int depth);
  void ReadShapeList(const JsonDoc& doc, const std::string& path, std::vector<Shape>& out, int depth);
  bool ReadKind(FieldReader& f, const JsonDoc& doc, const std::string& path, Shape& out, int depth);
  bool ReadPainter(FieldReader& f, const JsonDoc& doc, Shape& out);
  bool ReadPaint(const JsonDoc& doc, FieldReader& f, const char* key, Paint& out);
  bool ReadColour(FieldReader& f, const char* key, Rgba& out);
  bool ReadMotion(const JsonDoc& doc, const std::string& path, Motion& out);

  const ShapeContext m_Context;
  Diagnostics& m_Diag;
};

// Helpers for arrays of numbers in manifests: `count` numbers (any count when 0)
// between lo and hi. They complain through the reader.
bool ReadNumbers(FieldReader& f, const char* key, size_t count, double lo, double hi,
                 std::vector<double>& out, bool required = false);
bool ReadPair(FieldReader& f, const char* key, double lo, double hi, std::array<double, 2>& out,
              bool required = false);
// The node at a path made by JoinPath; null when there is none.
const Json* FindPath(const Json& root, const std::string& path);
// Frames [first, last] of a sequence.
bool ReadFrameSpan(FieldReader& f, const char* key, int& first, int& last);

}  // namespace artgen
