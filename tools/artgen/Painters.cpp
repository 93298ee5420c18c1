#include "Painters.h"

#include <algorithm>

namespace artgen {

double PainterCall::Number(const char* name, double fallback) const {
  auto it = shape.numbers.find(name);
  return it == shape.numbers.end() ? fallback : it->second;
}

std::string PainterCall::Word(const char* name, const std::string& fallback) const {
  auto it = shape.words.find(name);
  return it == shape.words.end() ? fallback : it->second;
}

Rgba PainterCall::Colour(const char* name, const Rgba& fallback) const {
  auto it = shape.colours.find(name);
  return it == shape.colours.end() ? fallback : it->second;
}

const std::vector<PainterDef>& AllPainters() {
  static const std::vector<PainterDef> s_Painters = [] {
    std::vector<PainterDef> all;
    AddCharacterPainters(all);
    AddScenePainters(all);
    return all;
  }();
  return s_Painters;
}

const PainterDef* FindPainter(const std::string& name) {
  for (const PainterDef& p : AllPainters()) {
    if (name == p.name) return &p;
  }
  return nullptr;
}

Rgba Mix(const Rgba& a, const Rgba& b, double t) {
  return Rgba{a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t, a.a + (b.a - a.a) * t};
}

Rgba Darker(const Rgba& c, double amount) {
  Rgba d = Mix(c, Rgba{0, 0, 0, c.a}, amount);
  d.a = c.a;
  return d;
}

Rgba Lighter(const Rgba& c, double amount) {
  Rgba d = Mix(c, Rgba{1, 1, 1, c.a}, amount);
  d.a = c.a;
  return d;
}

void SetColour(cairo_t* cr, const Rgba& c) {
  cairo_set_source_rgba(cr, c.r, c.g, c.b, c.a);
}

void FillOutlined(cairo_t* cr, const Rgba& fill, const Rgba& outline, double width) {
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  if (width > 0) {
    SetColour(cr, outline);
    cairo_set_line_width(cr, width * 2);
    cairo_stroke_preserve(cr);
  }
  SetColour(cr, fill);
  cairo_fill(cr);
}

}  // namespace artgen
