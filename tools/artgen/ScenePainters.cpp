// Scenery: flames, trees, castles and clouds, in the outlined style of the characters.
#include <cmath>

#include "Painters.h"

namespace artgen {

namespace {

constexpr double kPi = 3.14159265358979323846;
const Rgba kInk{0.20, 0.12, 0.22, 1};

Rgba Hex(unsigned rgb) {
  return Rgba{(rgb >> 16 & 255) / 255.0, (rgb >> 8 & 255) / 255.0, (rgb & 255) / 255.0, 1};
}

void Circle(cairo_t* cr, double x, double y, double r) {
  cairo_new_sub_path(cr);
  cairo_arc(cr, x, y, r, 0, 2 * kPi);
}

// A tongue of flame standing on (0, 0), `h` tall, leaning by `lean` pixels at its tip.
void FlamePath(cairo_t* cr, double w, double h, double lean) {
  cairo_move_to(cr, 0, 0);
  cairo_curve_to(cr, -w * 1.1, 0, -w, -h * 0.45, lean, -h);
  cairo_curve_to(cr, w, -h * 0.45, w * 1.1, 0, 0, 0);
  cairo_close_path(cr);
}

void DrawFlame(cairo_t* cr, const PainterCall& call) {
  const double t = call.phase * call.Number("speed", 1);
  const double seed = call.Number("seed", 0);
  const double flicker = sin(2 * kPi * (t * 3 + seed)) * 0.5 + sin(2 * kPi * (t * 5 + seed * 1.7)) * 0.5;
  const double h = 34 * (1 + 0.12 * flicker);
  const double lean = 4 * sin(2 * kPi * (t * 2 + seed));
  cairo_pattern_t* glow = cairo_pattern_create_radial(0, -14, 2, 0, -14, 38);
  cairo_pattern_add_color_stop_rgba(glow, 0, 1, 0.8, 0.3, 0.55 + 0.1 * flicker);
  cairo_pattern_add_color_stop_rgba(glow, 1, 1, 0.6, 0.2, 0);
  cairo_set_source(cr, glow);
  cairo_pattern_destroy(glow);
  Circle(cr, 0, -14, 38);
  cairo_fill(cr);
  FlamePath(cr, 12, h, lean);
  FillOutlined(cr, call.Colour("colour", Hex(0xff7a1a)), Hex(0xb8321a), 2);
  FlamePath(cr, 8, h * 0.7, lean * 0.7);
  FillOutlined(cr, Hex(0xffc93a), kInk, 0);
  FlamePath(cr, 4, h * 0.4, lean * 0.4);
  FillOutlined(cr, Hex(0xfff6c8), kInk, 0);
}

void DrawTree(cairo_t* cr, const PainterCall& call) {
  const Rgba leaves = call.Colour("colour", Hex(0x3fb34f));
  const double sway = sin(2 * kPi * call.phase) * call.Number("sway", 0);
  cairo_move_to(cr, -6, 0);
  cairo_line_to(cr, -4, -40);
  cairo_line_to(cr, 4, -40);
  cairo_line_to(cr, 6, 0);
  cairo_close_path(cr);
  FillOutlined(cr, Hex(0x8a5a34), kInk, 2.5);
  cairo_save(cr);
  cairo_translate(cr, sway, 0);
  if (call.Word("kind", "round") == "pine") {
    for (int i = 0; i < 3; ++i) {
      const double y = -26 - i * 20, w = 30 - i * 7;
      cairo_move_to(cr, -w, y);
      cairo_line_to(cr, 0, y - 32);
      cairo_line_to(cr, w, y);
      cairo_close_path(cr);
      FillOutlined(cr, Darker(leaves, 0.1 * i), kInk, 2.5);
    }
  } else {
    const double blobs[][3] = {{-16, -46, 18}, {16, -46, 18}, {0, -66, 24}, {0, -44, 20}};
    for (const auto& b : blobs) Circle(cr, b[0], b[1], b[2]);
    cairo_set_line_width(cr, 5);
    SetColour(cr, kInk);
    cairo_stroke_preserve(cr);
    SetColour(cr, leaves);
    cairo_fill(cr);
    Circle(cr, -8, -72, 8);
    SetColour(cr, Lighter(leaves, 0.3));
    cairo_fill(cr);
    if (call.Number("fruit", 0) > 0) {
      const double fruit[][2] = {{-14, -52}, {10, -62}, {14, -40}, {-2, -34}};
      for (const auto& f : fruit) {
        Circle(cr, f[0], f[1], 3.5);
        FillOutlined(cr, Hex(0xff4a4a), kInk, 1.2);
      }
    }
  }
  cairo_restore(cr);
}

void Flag(cairo_t* cr, double x, double y, double t, const Rgba& colour) {
  cairo_move_to(cr, x, y);
  cairo_line_to(cr, x, y - 22);
  SetColour(cr, kInk);
  cairo_set_line_width(cr, 2);
  cairo_stroke(cr);
  const double wave = sin(2 * kPi * t * 2) * 3;
  cairo_move_to(cr, x, y - 22);
  cairo_curve_to(cr, x + 6, y - 24 + wave, x + 10, y - 18 - wave, x + 16, y - 19 + wave);
  cairo_line_to(cr, x, y - 13);
  cairo_close_path(cr);
  FillOutlined(cr, colour, kInk, 1.5);
}

void Tower(cairo_t* cr, double x, double w, double h, const Rgba& stone, const Rgba& roof, double t,
           const Rgba& flag) {
  cairo_rectangle(cr, x - w / 2, -h, w, h);
  FillOutlined(cr, stone, kInk, 2.5);
  cairo_move_to(cr, x - w / 2 - 5, -h);
  cairo_line_to(cr, x, -h - w * 1.1);
  cairo_line_to(cr, x + w / 2 + 5, -h);
  cairo_close_path(cr);
  FillOutlined(cr, roof, kInk, 2.5);
  Flag(cr, x, -h - w * 1.1, t, flag);
  cairo_move_to(cr, x - 4, -h + 30);
  cairo_line_to(cr, x - 4, -h + 20);
  cairo_arc(cr, x, -h + 20, 4, kPi, 0);
  cairo_line_to(cr, x + 4, -h + 30);
  cairo_close_path(cr);
  FillOutlined(cr, Hex(0xffe07a), kInk, 1.5);
}

void DrawCastle(cairo_t* cr, const PainterCall& call) {
  const Rgba stone = call.Colour("colour", Hex(0xd9d2e9));
  const Rgba roof = call.Colour("roof", Hex(0xe8475f));
  const Rgba flag = call.Colour("flag", Hex(0xffd23f));
  const double t = call.phase;
  // Wall with battlements.
  cairo_move_to(cr, -60, 0);
  cairo_line_to(cr, -60, -60);
  for (int i = 0; i < 8; ++i) {
    const double x = -60 + i * 15;
    cairo_line_to(cr, x, -68);
    cairo_line_to(cr, x + 7.5, -68);
    cairo_line_to(cr, x + 7.5, -60);
    cairo_line_to(cr, x + 15, -60);
  }
  cairo_line_to(cr, 60, 0);
  cairo_close_path(cr);
  FillOutlined(cr, stone, kInk, 2.5);
  Tower(cr, -62, 30, 96, Darker(stone, 0.06), roof, t, flag);
  Tower(cr, 62, 30, 96, Darker(stone, 0.06), roof, t + 0.3, flag);
  Tower(cr, 0, 36, 120, stone, roof, t + 0.6, flag);
  // Gate.
  cairo_move_to(cr, -14, 0);
  cairo_line_to(cr, -14, -22);
  cairo_arc(cr, 0, -22, 14, kPi, 0);
  cairo_line_to(cr, 14, 0);
  cairo_close_path(cr);
  FillOutlined(cr, Hex(0x8a5a34), kInk, 2.5);
}

void DrawCloud(cairo_t* cr, const PainterCall& call) {
  const Rgba colour = call.Colour("colour", Rgba{1, 1, 1, 1});
  const double blobs[][3] = {{-26, 0, 16}, {0, -10, 22}, {26, -2, 17}, {8, 6, 16}, {-12, 6, 14}};
  for (const auto& b : blobs) Circle(cr, b[0], b[1], b[2]);
  SetColour(cr, Darker(colour, 0.2));
  cairo_set_line_width(cr, 4);
  cairo_stroke_preserve(cr);
  SetColour(cr, colour);
  cairo_fill(cr);
}

}  // namespace

void AddScenePainters(std::vector<PainterDef>& out) {
  out.push_back(PainterDef{"flame",
                           "a flickering flame about 40 pixels tall standing on (0, 0), with its glow",
                           {{"colour", PainterParam::kColour},
                            {"speed", PainterParam::kNumber, 0, 8},
                            {"seed", PainterParam::kNumber, 0, 1}},
                           DrawFlame});
  out.push_back(PainterDef{"tree",
                           "a tree about 90 pixels tall standing on (0, 0)",
                           {{"colour", PainterParam::kColour},
                            {"kind", PainterParam::kWord, 0, 0, {"round", "pine"}},
                            {"sway", PainterParam::kNumber, 0, 10},
                            {"fruit", PainterParam::kNumber, 0, 1}},
                           DrawTree});
  out.push_back(PainterDef{
      "castle",
      "a castle about 150 wide and 170 tall standing on (0, 0), flags waving",
      {{"colour", PainterParam::kColour}, {"roof", PainterParam::kColour}, {"flag", PainterParam::kColour}},
      DrawCastle});
  out.push_back(PainterDef{"cloud",
                           "a puffy cloud about 90 pixels wide, centred",
                           {{"colour", PainterParam::kColour}},
                           DrawCloud});
}

}  // namespace artgen
