// The characters: the heroine Corrin and the wisps that guide her.
#include <cmath>

#include "Painters.h"

namespace artgen {

namespace {

constexpr double kPi = 3.14159265358979323846;
const Rgba kInk{0.20, 0.12, 0.22, 1};  // the outline of every character

Rgba Hex(unsigned rgb) {
  return Rgba{(rgb >> 16 & 255) / 255.0, (rgb >> 8 & 255) / 255.0, (rgb & 255) / 255.0, 1};
}

void Circle(cairo_t* cr, double x, double y, double r) {
  cairo_new_sub_path(cr);
  cairo_arc(cr, x, y, r, 0, 2 * kPi);
}

void Ellipse(cairo_t* cr, double x, double y, double rx, double ry) {
  cairo_save(cr);
  cairo_translate(cr, x, y);
  cairo_scale(cr, rx, ry);
  cairo_new_sub_path(cr);
  cairo_arc(cr, 0, 0, 1, 0, 2 * kPi);
  cairo_restore(cr);
}

// A limb from (x0, y0) to (x1, y1): an outlined thick line with a round end.
void Limb(cairo_t* cr, double x0, double y0, double x1, double y1, double width, const Rgba& colour) {
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  cairo_move_to(cr, x0, y0);
  cairo_line_to(cr, x1, y1);
  SetColour(cr, kInk);
  cairo_set_line_width(cr, width + 5);
  cairo_stroke_preserve(cr);
  SetColour(cr, colour);
  cairo_set_line_width(cr, width);
  cairo_stroke(cr);
}

// Arm from the shoulder at an angle (degrees from straight down, positive away from
// the body on the right side), with a hand at its end.
void Arm(cairo_t* cr, double sx, double sy, double angle, double side, const Rgba& sleeve, const Rgba& skin) {
  const double a = angle * kPi / 180;
  const double len = 22;
  const double hx = sx + side * sin(a) * len, hy = sy + cos(a) * len;
  Limb(cr, sx, sy, hx, hy, 8, sleeve);
  Circle(cr, hx, hy, 5.5);
  FillOutlined(cr, skin, kInk, 2.5);
}

void DrawCorrin(cairo_t* cr, const PainterCall& call) {
  const Rgba skin = call.Colour("skin", Hex(0xffd9b8));
  const Rgba hair = call.Colour("hair", Hex(0xe0542a));
  const Rgba tunic = call.Colour("tunic", Hex(0x3fae4a));
  const Rgba cape = call.Colour("cape", Hex(0x3a6fd8));
  const Rgba boots = call.Colour("boots", Hex(0x8a4b2a));
  const std::string pose = call.Word("pose", "stand");
  const double t = call.phase;
  const double swing = sin(2 * kPi * t * call.Number("speed", 1));

  if (call.Number("shadow", 1) > 0) {
    Ellipse(cr, 0, 0, 24, 5);
    SetColour(cr, Rgba{0, 0, 0, 0.22});
    cairo_fill(cr);
  }
  cairo_save(cr);
  if (call.Word("facing", "right") == "left") cairo_scale(cr, -1, 1);
  const double bob = pose == "cheer" ? -std::fabs(swing) * 6 : std::fabs(swing) * -call.Number("bob", 1.5);
  cairo_translate(cr, 0, bob);

  // Cape behind everything, fluttering a little.
  const double flutter = sin(2 * kPi * t * 2) * 2;
  cairo_move_to(cr, -12, -60);
  cairo_curve_to(cr, -22, -46, -26 + flutter, -34, -24 + flutter, -22);
  cairo_line_to(cr, 4, -24);
  cairo_line_to(cr, 12, -60);
  cairo_close_path(cr);
  FillOutlined(cr, cape, kInk, 2.5);

  // Ponytail, swinging.
  cairo_save(cr);
  cairo_translate(cr, -16, -92);
  cairo_rotate(cr, (10 + swing * 8) * kPi / 180);
  cairo_move_to(cr, 0, 0);
  cairo_curve_to(cr, -16, 6, -20, 26, -10, 36);
  cairo_curve_to(cr, -6, 26, 2, 12, 8, 4);
  cairo_close_path(cr);
  FillOutlined(cr, hair, kInk, 2.5);
  cairo_restore(cr);

  // Legs and boots; walking moves them in turn.
  const double step = pose == "walk" ? swing * 6 : 0;
  for (int side : {-1, 1}) {
    const double x = side * 6.5 + step * side;
    Limb(cr, x, -28, x, -10, 8, Hex(0x5a3d7a));
    cairo_move_to(cr, x - 6, -12);
    cairo_line_to(cr, x + 5, -12);
    cairo_curve_to(cr, x + 11, -8, x + 11, 0, x + 6, 0);
    cairo_line_to(cr, x - 6, 0);
    cairo_close_path(cr);
    FillOutlined(cr, boots, kInk, 2.5);
  }

  // Arms behind the body for the resting poses, in front when raised.
  double left = 18, right = 18;
  if (pose == "wave") right = 150 + swing * 22;
  if (pose == "cheer") left = right = 155 + swing * 10;
  if (pose == "walk") left = 18 - swing * 22, right = 18 + swing * 22;
  if (pose == "point") right = 85;

  // Tunic: an A-line with a belt.
  cairo_move_to(cr, -12, -64);
  cairo_line_to(cr, 12, -64);
  cairo_curve_to(cr, 16, -50, 20, -36, 21, -26);
  cairo_curve_to(cr, 8, -22, -8, -22, -21, -26);
  cairo_curve_to(cr, -20, -36, -16, -50, -12, -64);
  cairo_close_path(cr);
  FillOutlined(cr, tunic, kInk, 2.5);
  cairo_rectangle(cr, -15, -45, 30, 5);
  FillOutlined(cr, boots, kInk, 1.5);
  cairo_rectangle(cr, -3, -46, 6, 7);
  FillOutlined(cr, Hex(0xffd23f), kInk, 1.5);

  Arm(cr, -12, -60, left, -1, Lighter(tunic, 0.1), skin);
  Arm(cr, 12, -60, right, 1, Lighter(tunic, 0.1), skin);

  // Head.
  Circle(cr, 0, -84, 21);
  FillOutlined(cr, skin, kInk, 2.5);
  // Hair: a cap over the top with a fringe.
  cairo_move_to(cr, -22, -80);
  cairo_curve_to(cr, -26, -112, 26, -114, 22, -82);
  cairo_curve_to(cr, 18, -90, 12, -94, 6, -92);
  cairo_curve_to(cr, 4, -88, 0, -86, -4, -92);
  cairo_curve_to(cr, -10, -90, -16, -92, -17, -82);
  cairo_close_path(cr);
  FillOutlined(cr, hair, kInk, 2.5);
  // A yellow hair band.
  cairo_move_to(cr, -20, -94);
  cairo_curve_to(cr, -10, -104, 10, -104, 20, -94);
  SetColour(cr, Hex(0xffd23f));
  cairo_set_line_width(cr, 3.5);
  cairo_stroke(cr);

  // Face, looking a little to the front side.
  const double fx = 3;
  const bool blink = call.Number("blink", 1) > 0 && t >= 0.84 && t < 0.92;
  for (int side : {-1, 1}) {
    const double ex = fx + side * 7.5, ey = -82;
    if (blink) {
      cairo_move_to(cr, ex - 3.5, ey);
      cairo_curve_to(cr, ex - 2, ey + 2.5, ex + 2, ey + 2.5, ex + 3.5, ey);
      SetColour(cr, kInk);
      cairo_set_line_width(cr, 2);
      cairo_stroke(cr);
    } else {
      Ellipse(cr, ex, ey, 3.2, 4.6);
      SetColour(cr, kInk);
      cairo_fill(cr);
      Circle(cr, ex + 1, ey - 1.8, 1.3);
      SetColour(cr, Rgba{1, 1, 1, 1});
      cairo_fill(cr);
    }
    Ellipse(cr, ex + side * 3, ey + 8, 4, 2.6);
    SetColour(cr, Rgba{1, 0.45, 0.5, 0.45});
    cairo_fill(cr);
  }
  cairo_move_to(cr, fx - 5, -73);
  cairo_curve_to(cr, fx - 2, -68.5, fx + 2, -68.5, fx + 5, -73);
  SetColour(cr, kInk);
  cairo_set_line_width(cr, 2);
  cairo_stroke(cr);
  cairo_restore(cr);
}

void DrawWisp(cairo_t* cr, const PainterCall& call) {
  const Rgba colour = call.Colour("colour", Hex(0x5fd7ff));
  const double t = call.phase;
  const double glow = 0.55 + 0.15 * sin(2 * kPi * t * 2);
  // Glow.
  cairo_pattern_t* p = cairo_pattern_create_radial(0, 0, 4, 0, 0, 26);
  cairo_pattern_add_color_stop_rgba(p, 0, colour.r, colour.g, colour.b, glow);
  cairo_pattern_add_color_stop_rgba(p, 1, colour.r, colour.g, colour.b, 0);
  cairo_set_source(cr, p);
  cairo_pattern_destroy(p);
  Circle(cr, 0, 0, 26);
  cairo_fill(cr);
  // Tail: puffs trailing behind and below, curling with the phase.
  for (int i = 3; i >= 1; --i) {
    const double a = 2 * kPi * (t + i * 0.12);
    Circle(cr, -6 * i + sin(a) * 2, 7 * i * 0.8 + cos(a) * 2, 8 - i * 1.8);
    FillOutlined(cr, Lighter(colour, 0.2 + 0.15 * i), Darker(colour, 0.45), 1.5);
  }
  // Body.
  Circle(cr, 0, 0, 11);
  FillOutlined(cr, Lighter(colour, 0.55), Darker(colour, 0.45), 2);
  Circle(cr, -3, -4, 3.5);
  SetColour(cr, Rgba{1, 1, 1, 0.9});
  cairo_fill(cr);
  if (call.Number("face", 1) > 0) {
    const bool blink = t >= 0.5 && t < 0.58;
    for (int side : {-1, 1}) {
      if (blink) {
        cairo_move_to(cr, side * 4 - 2, 0);
        cairo_line_to(cr, side * 4 + 2, 0);
        SetColour(cr, kInk);
        cairo_set_line_width(cr, 1.6);
        cairo_stroke(cr);
      } else {
        Ellipse(cr, side * 4, 0, 1.8, 2.6);
        SetColour(cr, kInk);
        cairo_fill(cr);
      }
    }
    cairo_move_to(cr, -2.5, 4);
    cairo_curve_to(cr, -1, 6, 1, 6, 2.5, 4);
    SetColour(cr, kInk);
    cairo_set_line_width(cr, 1.4);
    cairo_stroke(cr);
  }
}

}  // namespace

void AddCharacterPainters(std::vector<PainterDef>& out) {
  out.push_back(PainterDef{"corrin",
                           "the heroine, about 110 pixels tall, feet at (0, 0)",
                           {{"pose", PainterParam::kWord, 0, 0, {"stand", "wave", "cheer", "walk", "point"}},
                            {"facing", PainterParam::kWord, 0, 0, {"right", "left"}},
                            {"speed", PainterParam::kNumber, 0, 8},
                            {"bob", PainterParam::kNumber, 0, 10},
                            {"blink", PainterParam::kNumber, 0, 1},
                            {"shadow", PainterParam::kNumber, 0, 1},
                            {"skin", PainterParam::kColour},
                            {"hair", PainterParam::kColour},
                            {"tunic", PainterParam::kColour},
                            {"cape", PainterParam::kColour},
                            {"boots", PainterParam::kColour}},
                           DrawCorrin});
  out.push_back(PainterDef{"wisp",
                           "a glowing spirit with a face and a curling tail, about 40 pixels across, centred",
                           {{"colour", PainterParam::kColour}, {"face", PainterParam::kNumber, 0, 1}},
                           DrawWisp});
}

}  // namespace artgen
