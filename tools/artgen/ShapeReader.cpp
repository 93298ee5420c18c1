#include "ShapeReader.h"

#include <sys/stat.h>

#include <cmath>

#include "Painters.h"

namespace artgen {

namespace {

constexpr double kCoordLimit = 8192;
constexpr int kMaxTemplateDepth = 8;

const std::vector<std::string> kCommonFields = {"about",  "fill",   "outline", "width", "shine",
                                                "at",     "rotate", "scale",   "flip",  "alpha",
                                                "motion", "frames", "layer"};

const char* const kKinds[] = {"rect", "circle", "ellipse", "star", "polygon",
                              "line", "text",   "group",   "use",  "painter"};

std::vector<std::string> FieldsOf(const std::string& kind) {
  std::vector<std::string> fields = kCommonFields;
  fields.push_back(kind);
  if (kind == "rect") fields.push_back("radius");
  if (kind == "star") fields.push_back("points");
  if (kind == "line") fields.insert(fields.end(), {"closed", "rounded"});
  if (kind == "text") fields.insert(fields.end(), {"font", "size", "align", "stagger"});
  return fields;
}

int Hex(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool FileExists(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

}  // namespace

const Json* FindPath(const Json& root, const std::string& path) {
  const Json* node = &root;
  size_t pos = 0;
  while (node && pos < path.size()) {
    const size_t next = path.find('/', pos + 1);
    const std::string key =
        path.substr(pos + 1, next == std::string::npos ? std::string::npos : next - pos - 1);
    if (node->is_object()) {
      auto it = node->find(key);
      node = it == node->end() ? nullptr : &*it;
    } else if (node->is_array()) {
      char* end = nullptr;
      const unsigned long index = strtoul(key.c_str(), &end, 10);
      node = (key.empty() || *end != '\0' || index >= node->size()) ? nullptr : &(*node)[index];
    } else {
      node = nullptr;
    }
    if (next == std::string::npos) break;
    pos = next;
  }
  return node;
}

bool ReadNumbers(FieldReader& f, const char* key, size_t count, double lo, double hi,
                 std::vector<double>& out, bool required) {
  if (!f.Has(key)) {
    if (required && f.IsObject()) f.Complain(nullptr, std::string("needs the field \"") + key + "\"");
    return false;
  }
  const Json& v = *f.Get(key);
  const std::string expected = count ? std::to_string(count) + " numbers" : "a list of numbers";
  if (!v.is_array() || (count && v.size() != count) || v.empty()) {
    f.Complain(key, "must be " + expected + " in [ ]");
    return false;
  }
  std::vector<double> values;
  for (const Json& n : v) {
    const double d = n.is_number() ? n.get<double>() : NAN;
    if (!(d >= lo && d <= hi)) {
      f.Complain(
          key, "must hold numbers from " + soundgen::FormatNumber(lo) + " to " + soundgen::FormatNumber(hi));
      return false;
    }
    values.push_back(d);
  }
  out = values;
  return true;
}

bool ReadPair(FieldReader& f, const char* key, double lo, double hi, std::array<double, 2>& out,
              bool required) {
  std::vector<double> v;
  if (!ReadNumbers(f, key, 2, lo, hi, v, required)) return false;
  out = {{v[0], v[1]}};
  return true;
}

bool ReadFrameSpan(FieldReader& f, const char* key, int& first, int& last) {
  std::vector<double> v;
  if (!ReadNumbers(f, key, 2, 0, 9999, v)) return false;
  if (v[0] != std::floor(v[0]) || v[1] != std::floor(v[1]) || v[1] < v[0]) {
    f.Complain(key, "must be two frame numbers [first, last] with first <= last");
    return false;
  }
  first = static_cast<int>(v[0]);
  last = static_cast<int>(v[1]);
  return true;
}

bool ShapeReader::ParseColour(const std::string& text, Rgba& out, std::string& error) const {
  std::string name = text;
  double alpha = 1;
  const size_t at = text.find('@');
  if (at != std::string::npos) {
    name = text.substr(0, at);
    char* end = nullptr;
    const std::string a = text.substr(at + 1);
    alpha = strtod(a.c_str(), &end);
    if (a.empty() || *end != '\0' || !(alpha >= 0 && alpha <= 1)) {
      error = "\"" + text + "\": the alpha after @ must be a number from 0 to 1";
      return false;
    }
  }
  if (name == "clear") {
    out = Rgba{0, 0, 0, 0};
    return true;
  }
  if (!name.empty() && name[0] == '#') {
    const std::string hex = name.substr(1);
    std::vector<int> d;
    for (char c : hex) d.push_back(Hex(c));
    bool ok = hex.size() == 3 || hex.size() == 6 || hex.size() == 8;
    for (int v : d) ok = ok && v >= 0;
    if (!ok) {
      error = "\"" + text + "\" is not a colour: use #rgb, #rrggbb or #rrggbbaa";
      return false;
    }
    if (hex.size() == 3) {
      out = Rgba{d[0] / 15.0, d[1] / 15.0, d[2] / 15.0, 1};
    } else {
      out = Rgba{(d[0] * 16 + d[1]) / 255.0, (d[2] * 16 + d[3]) / 255.0, (d[4] * 16 + d[5]) / 255.0, 1};
      if (hex.size() == 8) out.a = (d[6] * 16 + d[7]) / 255.0;
    }
    out.a *= alpha;
    return true;
  }
  for (const std::string& palette : {m_Context.palette, std::string("base")}) {
    if (palette.empty() || !m_Context.palettes) continue;
    auto p = m_Context.palettes->find(palette);
    if (p == m_Context.palettes->end()) continue;
    auto c = p->second.find(name);
    if (c != p->second.end()) {
      out = c->second;
      out.a *= alpha;
      return true;
    }
  }
  error =
      "\"" + text + "\" is not a colour: not #rrggbb and not in the palette" +
      (m_Context.palette.empty() ? std::string(" \"base\"") : " \"" + m_Context.palette + "\" or \"base\"");
  return false;
}

bool ShapeReader::ReadColour(FieldReader& f, const char* key, Rgba& out) {
  std::string text;
  if (!f.Has(key)) return false;
  if (!f.String(key, text)) return false;
  std::string error;
  if (!ParseColour(text, out, error)) {
    f.Complain(key, error);
    return false;
  }
  return true;
}

bool ShapeReader::ReadPaint(const JsonDoc& doc, FieldReader& f, const char* key, Paint& out) {
  if (!f.Has(key)) return false;
  const Json& v = *f.Get(key);
  if (v.is_string()) {
    if (!ReadColour(f, key, out.colour)) return false;
    out.kind = Paint::kSolid;
    return true;
  }
  if (!v.is_object()) {
    f.Complain(key, "must be a colour or a gradient {\"linear\": [x0, y0, x1, y1], \"stops\": [...]}");
    return false;
  }
  FieldReader g(doc, f.PathOf(key), f.What() + " gradient", {"linear", "radial", "stops"}, m_Diag);
  std::vector<double> geom;
  if (g.Has("linear") == g.Has("radial")) {
    g.Complain(nullptr, "needs one of \"linear\": [x0, y0, x1, y1] or \"radial\": [cx, cy, r]");
    return false;
  }
  if (g.Has("linear")) {
    if (!ReadNumbers(g, "linear", 4, -kCoordLimit, kCoordLimit, geom)) return false;
    out.kind = Paint::kLinear;
    out.x0 = geom[0], out.y0 = geom[1], out.x1 = geom[2], out.y1 = geom[3];
  } else {
    if (!ReadNumbers(g, "radial", 0, -kCoordLimit, kCoordLimit, geom)) return false;
    if (geom.size() != 3 && geom.size() != 4) {
      g.Complain("radial", "must be [cx, cy, r] or [cx, cy, inner r, outer r]");
      return false;
    }
    out.kind = Paint::kRadial;
    out.x0 = geom[0], out.y0 = geom[1];
    out.r0 = geom.size() == 4 ? geom[2] : 0;
    out.r1 = geom.back();
  }
  const Json* stops = g.Get("stops");
  if (!stops || !stops->is_array() || stops->size() < 2) {
    g.Complain(stops ? "stops" : nullptr, stops ? "must be a list of 2 or more colours"
                                                : "needs the field \"stops\": a list of colours");
    return false;
  }
  for (size_t i = 0; i < stops->size(); ++i) {
    const Json& s = (*stops)[i];
    double offset = static_cast<double>(i) / (stops->size() - 1);
    std::string text;
    if (s.is_string()) {
      text = s.get<std::string>();
    } else if (s.is_array() && s.size() == 2 && s[0].is_number() && s[1].is_string()) {
      offset = s[0].get<double>();
      text = s[1].get<std::string>();
    } else {
      g.Complain("stops", "must hold colours or [offset, colour] pairs");
      return false;
    }
    Rgba c;
    std::string error;
    if (!(offset >= 0 && offset <= 1) || !ParseColour(text, c, error)) {
      g.Complain("stops", error.empty() ? "offsets must lie from 0 to 1" : error);
      return false;
    }
    out.stops.push_back({offset, c});
  }
  return g.Ok();
}

bool ShapeReader::ReadMotion(const JsonDoc& doc, const std::string& path, Motion& out) {
  FieldReader f(doc, path, "motion",
                {"about", "move", "scale", "rotate", "alpha", "pivot", "frames", "ease", "cycles"}, m_Diag);
  if (!f.IsObject()) return false;
  if (const Json* move = f.Get("move")) {
    if (move->is_array() && move->size() == 2 && (*move)[0].is_array()) {
      const Json& m = *move;
      bool ok = m[0].size() == 2 && m[1].size() == 2;
      for (int i = 0; ok && i < 2; ++i) {
        for (int j = 0; ok && j < 2; ++j)
          ok = m[i][j].is_number() && std::fabs(m[i][j].get<double>()) <= kCoordLimit;
      }
      if (!ok) {
        f.Complain("move", "must be [dx, dy] or [[x0, y0], [x1, y1]]");
      } else {
        out.moveFrom = {{m[0][0].get<double>(), m[0][1].get<double>()}};
        out.moveTo = {{m[1][0].get<double>(), m[1][1].get<double>()}};
      }
    } else {
      ReadPair(f, "move", -kCoordLimit, kCoordLimit, out.moveTo);
    }
  }
  std::vector<double> v;
  if (const Json* scale = f.Get("scale")) {
    if (scale->is_array() && scale->size() == 2 && (*scale)[0].is_array()) {
      const Json& s = *scale;
      bool ok = s[0].size() == 2 && s[1].size() == 2;
      for (int i = 0; ok && i < 2; ++i) {
        for (int j = 0; ok && j < 2; ++j) ok = s[i][j].is_number() && std::fabs(s[i][j].get<double>()) <= 64;
      }
      if (!ok) {
        f.Complain("scale", "must be [from, to] or [[sx0, sy0], [sx1, sy1]]");
      } else {
        out.scaleFrom = {{s[0][0].get<double>(), s[0][1].get<double>()}};
        out.scaleTo = {{s[1][0].get<double>(), s[1][1].get<double>()}};
      }
    } else if (ReadNumbers(f, "scale", 2, -64, 64, v)) {
      out.scaleFrom = {{v[0], v[0]}};
      out.scaleTo = {{v[1], v[1]}};
    }
  }
  if (ReadNumbers(f, "rotate", 2, -3600, 3600, v)) out.rotateFrom = v[0], out.rotateTo = v[1];
  if (ReadNumbers(f, "alpha", 2, 0, 1, v)) out.alphaFrom = v[0], out.alphaTo = v[1];
  ReadPair(f, "pivot", -kCoordLimit, kCoordLimit, out.pivot);
  ReadFrameSpan(f, "frames", out.first, out.last);
  int ease = 0;
  if (f.Choice("ease", {"linear", "in", "out", "inout", "back", "bounce", "pulse", "wave", "step"}, ease)) {
    out.ease = static_cast<Ease>(ease);
  }
  f.Number("cycles", 0.25, 64, out.cycles);
  return f.Ok();
}

void ShapeReader::ReadMotions(const JsonDoc& doc, const std::string& path, std::vector<Motion>& out) {
  const Json* node = FindPath(doc.Root(), path);
  if (node && node->is_array()) {
    for (size_t i = 0; i < node->size(); ++i) {
      Motion m;
      if (ReadMotion(doc, soundgen::JoinPath(path, std::to_string(i)), m)) out.push_back(m);
    }
    return;
  }
  Motion m;
  if (ReadMotion(doc, path, m)) out.push_back(m);
}

void ShapeReader::ReadShapes(const JsonDoc& doc, const std::string& path, std::vector<Shape>& out) {
  ReadShapeList(doc, path, out, 0);
}

void ShapeReader::ReadShapeList(const JsonDoc& doc, const std::string& path, std::vector<Shape>& out,
                                int depth) {
  const Json* node = FindPath(doc.Root(), path);
  if (!node || !node->is_array()) {
    doc.Complain(m_Diag, path, "shapes must be a list [ {...}, ... ]");
    return;
  }
  for (size_t i = 0; i < node->size(); ++i) {
    Shape shape;
    if (ReadShape(doc, soundgen::JoinPath(path, std::to_string(i)), shape, depth))
      out.push_back(std::move(shape));
  }
}

bool ShapeReader::ReadShape(const JsonDoc& doc, const std::string& path, Shape& out, int depth) {
  const Json* node = FindPath(doc.Root(), path);
  if (!node || !node->is_object()) {
    doc.Complain(m_Diag, path,
                 "a shape must be an object such as {\"circle\": [x, y, r], \"fill\": \"red\"}");
    return false;
  }
  std::string kind;
  for (const char* k : kKinds) {
    if (!node->contains(k)) continue;
    if (!kind.empty()) {
      doc.Complain(m_Diag, path, "a shape has one kind, not both \"" + kind + "\" and \"" + k + "\"");
      return false;
    }
    kind = k;
  }
  if (kind.empty()) {
    doc.Complain(
        m_Diag, path,
        "a shape needs its kind: rect, circle, ellipse, star, polygon, line, text, group, use or painter");
    return false;
  }
  std::vector<std::string> fields = FieldsOf(kind);
  const PainterDef* painter = nullptr;
  if (kind == "painter") {
    const Json& name = (*node)["painter"];
    painter = name.is_string() ? FindPainter(name.get<std::string>()) : nullptr;
    if (!painter) {
      std::string names;
      for (const PainterDef& p : AllPainters()) names += (names.empty() ? "" : ", ") + std::string(p.name);
      doc.Complain(m_Diag, soundgen::JoinPath(path, "painter"), "\"painter\" must name one of: " + names);
      return false;
    }
    for (const PainterParam& p : painter->params) fields.push_back(p.name);
  }
  out.file = doc.File();
  out.line = doc.LineOf(path);
  FieldReader f(doc, path, kind, fields, m_Diag);
  ReadPaint(doc, f, "fill", out.fill);
  ReadColour(f, "outline", out.outline);
  if (f.Has("outline")) out.outlineWidth = 3;
  f.Number("width", 0, 64, out.outlineWidth);
  ReadColour(f, "shine", out.shine);
  ReadPair(f, "at", -kCoordLimit, kCoordLimit, out.at);
  f.Number("rotate", -3600, 3600, out.rotate);
  if (const Json* s = f.Get("scale")) {
    if (s->is_number()) {
      double v = 1;
      if (f.Number("scale", 0.01, 64, v)) out.scale = {{v, v}};
    } else {
      ReadPair(f, "scale", 0.01, 64, out.scale);
    }
  }
  int flip = 0;
  if (f.Choice("flip", {"h", "v", "hv"}, flip)) {
    if (flip != 1) out.scale[0] = -out.scale[0];
    if (flip != 0) out.scale[1] = -out.scale[1];
  }
  f.Number("alpha", 0, 1, out.alpha);
  if (f.Has("motion")) ReadMotions(doc, f.PathOf("motion"), out.motions);
  ReadFrameSpan(f, "frames", out.showFirst, out.showLast);
  std::string layer;
  if (f.String("layer", layer)) {
    const std::vector<std::string> layers =
        m_Context.layers.empty() ? std::vector<std::string>{"Main"} : m_Context.layers;
    bool found = false;
    for (size_t i = 0; i < layers.size(); ++i) {
      if (layers[i] == layer) out.layer = static_cast<unsigned>(i), found = true;
    }
    if (!found) f.Complain("layer", "is \"" + layer + "\", which is not a layer of the sprite");
  }
  if (painter) {
    out.kind = ShapeKind::kPainter;
    out.painter = painter->name;
    ReadPainter(f, doc, out);
  } else {
    ReadKind(f, doc, path, out, depth);
  }
  return f.Ok();
}

bool ShapeReader::ReadPainter(FieldReader& f, const JsonDoc&, Shape& out) {
  const PainterDef* def = FindPainter(out.painter);
  for (const PainterParam& p : def->params) {
    if (!f.Has(p.name)) continue;
    if (p.kind == PainterParam::kNumber) {
      double v = 0;
      if (f.Number(p.name, p.lo, p.hi, v)) out.numbers[p.name] = v;
    } else if (p.kind == PainterParam::kWord) {
      int index = 0;
      if (f.Choice(p.name, p.words, index)) out.words[p.name] = p.words[index];
    } else {
      Rgba c;
      if (ReadColour(f, p.name, c)) out.colours[p.name] = c;
    }
  }
  return f.Ok();
}

bool ShapeReader::ReadKind(FieldReader& f, const JsonDoc& doc, const std::string& path, Shape& out,
                           int depth) {
  if (f.Has("rect")) {
    out.kind = ShapeKind::kRect;
    if (ReadNumbers(f, "rect", 4, -kCoordLimit, kCoordLimit, out.geometry)) {
      if (out.geometry[2] <= 0 || out.geometry[3] <= 0)
        f.Complain("rect", "must be [x, y, width, height] with a size");
    }
    f.Number("radius", 0, 1024, out.radius);
  } else if (f.Has("circle")) {
    out.kind = ShapeKind::kCircle;
    ReadNumbers(f, "circle", 3, -kCoordLimit, kCoordLimit, out.geometry);
  } else if (f.Has("ellipse")) {
    out.kind = ShapeKind::kEllipse;
    ReadNumbers(f, "ellipse", 4, -kCoordLimit, kCoordLimit, out.geometry);
  } else if (f.Has("star")) {
    out.kind = ShapeKind::kStar;
    ReadNumbers(f, "star", 4, -kCoordLimit, kCoordLimit, out.geometry);
    f.Int("points", 3, 32, out.starPoints);
  } else if (f.Has("polygon") || f.Has("line")) {
    const char* key = f.Has("polygon") ? "polygon" : "line";
    out.kind = f.Has("polygon") ? ShapeKind::kPolygon : ShapeKind::kLine;
    out.closed = out.kind == ShapeKind::kPolygon;
    const Json& pts = *f.Get(key);
    bool ok = pts.is_array() && pts.size() >= 2;
    for (size_t i = 0; ok && i < pts.size(); ++i) {
      ok = pts[i].is_array() && pts[i].size() == 2 && pts[i][0].is_number() && pts[i][1].is_number() &&
           std::fabs(pts[i][0].get<double>()) <= kCoordLimit &&
           std::fabs(pts[i][1].get<double>()) <= kCoordLimit;
      if (ok) out.points.push_back({{pts[i][0].get<double>(), pts[i][1].get<double>()}});
    }
    if (!ok) f.Complain(key, "must be a list of two or more points [[x, y], [x, y], ...]");
    if (f.Has("closed") && !f.Get("closed")->is_boolean()) f.Complain("closed", "must be true or false");
    if (f.Has("closed") && f.Get("closed")->is_boolean()) out.closed = f.Get("closed")->get<bool>();
    if (f.Has("rounded") && f.Get("rounded")->is_boolean()) out.rounded = f.Get("rounded")->get<bool>();
  } else if (f.Has("text")) {
    out.kind = ShapeKind::kText;
    f.String("text", out.text, true);
    std::string font = "Andika-Bold";
    f.String("font", font);
    out.fontFile = m_Context.fontDir + "/" + font + ".ttf";
    if (!FileExists(out.fontFile))
      f.Complain(f.Has("font") ? "font" : "text",
                 "needs the font file " + out.fontFile + ", which is not there");
    f.Number("size", 4, 400, out.fontSize);
    int align = 1;
    if (f.Choice("align", {"left", "centre", "right"}, align)) out.align = static_cast<Align>(align);
    f.Int("stagger", 0, 100, out.stagger);
  } else if (f.Has("group")) {
    out.kind = ShapeKind::kGroup;
    ReadShapeList(doc, f.PathOf("group"), out.children, depth);
  } else if (f.Has("use")) {
    out.kind = ShapeKind::kGroup;
    std::string name;
    if (!f.String("use", name)) return false;
    auto t = m_Context.templates ? m_Context.templates->find(name) : decltype(m_Context.templates->end()){};
    if (!m_Context.templates || t == m_Context.templates->end()) {
      f.Complain("use", "names \"" + name + "\", which is not a template");
      return false;
    }
    if (depth >= kMaxTemplateDepth) {
      f.Complain("use", "goes " + std::to_string(kMaxTemplateDepth) + " templates deep: does \"" + name +
                            "\" use itself?");
      return false;
    }
    const size_t before = m_Diag.Lines().size();
    ReadShapeList(*t->second.doc, t->second.path, out.children, depth + 1);
    if (m_Diag.Lines().size() != before)
      f.Complain("use", "uses the template \"" + name + "\", which has mistakes");
  }
  (void)path;
  return f.Ok();
}

}  // namespace artgen
