#include "FramePainter.h"

#include <algorithm>
#include <cmath>

#include "FontCache.h"
#include "Painters.h"

namespace artgen {

namespace {

constexpr double kPi = 3.14159265358979323846;

double Lerp(double a, double b, double t) {
  return a + (b - a) * t;
}

double Bounce(double t) {
  const double n = 7.5625, d = 2.75;
  if (t < 1 / d) return n * t * t;
  if (t < 2 / d) return n * (t -= 1.5 / d) * t + 0.75;
  if (t < 2.5 / d) return n * (t -= 2.25 / d) * t + 0.9375;
  return n * (t -= 2.625 / d) * t + 0.984375;
}

void SetPaint(cairo_t* cr, const Paint& paint) {
  if (paint.kind == Paint::kSolid) {
    SetColour(cr, paint.colour);
    return;
  }
  cairo_pattern_t* p =
      paint.kind == Paint::kLinear
          ? cairo_pattern_create_linear(paint.x0, paint.y0, paint.x1, paint.y1)
          : cairo_pattern_create_radial(paint.x0, paint.y0, paint.r0, paint.x0, paint.y0, paint.r1);
  for (const auto& stop : paint.stops) {
    const Rgba& c = stop.second;
    cairo_pattern_add_color_stop_rgba(p, stop.first, c.r, c.g, c.b, c.a);
  }
  cairo_set_source(cr, p);
  cairo_pattern_destroy(p);
}

// Applies the motions at `time` to the transform; returns the alpha they give.
double ApplyMotions(cairo_t* cr, const std::vector<Motion>& motions, const FrameTime& time) {
  double alpha = 1;
  for (const Motion& m : motions) {
    const double e = MotionAmount(m, time);
    cairo_translate(cr, Lerp(m.moveFrom[0], m.moveTo[0], e), Lerp(m.moveFrom[1], m.moveTo[1], e));
    cairo_translate(cr, m.pivot[0], m.pivot[1]);
    cairo_rotate(cr, Lerp(m.rotateFrom, m.rotateTo, e) * kPi / 180);
    const double sx = Lerp(m.scaleFrom[0], m.scaleTo[0], e), sy = Lerp(m.scaleFrom[1], m.scaleTo[1], e);
    // A scale of exactly 0 would make the matrix singular; a tiny one draws nothing.
    cairo_scale(cr, std::fabs(sx) < 1e-4 ? 1e-4 : sx, std::fabs(sy) < 1e-4 ? 1e-4 : sy);
    cairo_translate(cr, -m.pivot[0], -m.pivot[1]);
    alpha *= std::clamp(Lerp(m.alphaFrom, m.alphaTo, e), 0.0, 1.0);
  }
  return alpha;
}

void StarPath(cairo_t* cr, const Shape& s) {
  const double cx = s.geometry[0], cy = s.geometry[1], outer = s.geometry[2], inner = s.geometry[3];
  for (int i = 0; i < s.starPoints * 2; ++i) {
    const double r = i % 2 ? inner : outer;
    const double a = -kPi / 2 + i * kPi / s.starPoints;
    if (i == 0) {
      cairo_move_to(cr, cx + r * cos(a), cy + r * sin(a));
    } else {
      cairo_line_to(cr, cx + r * cos(a), cy + r * sin(a));
    }
  }
  cairo_close_path(cr);
}

void RoundedRectPath(cairo_t* cr, double x, double y, double w, double h, double r) {
  r = std::min(r, std::min(w, h) / 2);
  if (r <= 0) {
    cairo_rectangle(cr, x, y, w, h);
    return;
  }
  cairo_new_sub_path(cr);
  cairo_arc(cr, x + w - r, y + r, r, -kPi / 2, 0);
  cairo_arc(cr, x + w - r, y + h - r, r, 0, kPi / 2);
  cairo_arc(cr, x + r, y + h - r, r, kPi / 2, kPi);
  cairo_arc(cr, x + r, y + r, r, kPi, 3 * kPi / 2);
  cairo_close_path(cr);
}

// Builds the path of a plain shape; false for kinds that are drawn otherwise.
bool ShapePath(cairo_t* cr, const Shape& s) {
  const std::vector<double>& g = s.geometry;
  switch (s.kind) {
    case ShapeKind::kRect:
      RoundedRectPath(cr, g[0], g[1], g[2], g[3], s.radius);
      return true;
    case ShapeKind::kCircle:
      cairo_new_sub_path(cr);
      cairo_arc(cr, g[0], g[1], std::fabs(g[2]), 0, 2 * kPi);
      return true;
    case ShapeKind::kEllipse:
      if (g[2] == 0 || g[3] == 0) return false;
      cairo_save(cr);
      cairo_translate(cr, g[0], g[1]);
      cairo_scale(cr, g[2], g[3]);
      cairo_new_sub_path(cr);
      cairo_arc(cr, 0, 0, 1, 0, 2 * kPi);
      cairo_restore(cr);
      return true;
    case ShapeKind::kStar:
      StarPath(cr, s);
      return true;
    case ShapeKind::kPolygon:
    case ShapeKind::kLine:
      for (size_t i = 0; i < s.points.size(); ++i) {
        if (i == 0) {
          cairo_move_to(cr, s.points[i][0], s.points[i][1]);
        } else {
          cairo_line_to(cr, s.points[i][0], s.points[i][1]);
        }
      }
      if (s.closed) cairo_close_path(cr);
      return true;
    default:
      return false;
  }
}

// A soft highlight over the upper part of the current path, which it consumes.
void Shine(cairo_t* cr, const Rgba& shine) {
  double x0, y0, x1, y1;
  cairo_fill_extents(cr, &x0, &y0, &x1, &y1);
  cairo_save(cr);
  cairo_clip(cr);
  const double w = x1 - x0, h = y1 - y0;
  cairo_pattern_t* p = cairo_pattern_create_linear(0, y0, 0, y0 + h * 0.5);
  cairo_pattern_add_color_stop_rgba(p, 0, shine.r, shine.g, shine.b, shine.a);
  cairo_pattern_add_color_stop_rgba(p, 1, shine.r, shine.g, shine.b, 0);
  cairo_set_source(cr, p);
  cairo_pattern_destroy(p);
  cairo_save(cr);
  cairo_translate(cr, x0 + w / 2, y0 + h * 0.24);
  cairo_scale(cr, w * 0.42, h * 0.2);
  cairo_arc(cr, 0, 0, 1, 0, 2 * kPi);
  cairo_restore(cr);
  cairo_fill(cr);
  cairo_restore(cr);
}

void DrawPlain(cairo_t* cr, const Shape& s) {
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  if (s.kind == ShapeKind::kLine) {
    if (!s.rounded) {
      cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
      cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
    }
    ShapePath(cr, s);
    if (s.closed && s.fill.kind != Paint::kNone) {
      SetPaint(cr, s.fill);
      cairo_fill_preserve(cr);
    }
    SetColour(cr, s.outlineWidth > 0 ? s.outline : s.fill.colour);
    cairo_set_line_width(cr, s.outlineWidth > 0 ? s.outlineWidth : 2);
    cairo_stroke(cr);
    return;
  }
  if (!ShapePath(cr, s)) return;
  if (s.outlineWidth > 0) {
    SetColour(cr, s.outline);
    cairo_set_line_width(cr, s.outlineWidth * 2);
    cairo_stroke_preserve(cr);
  }
  if (s.fill.kind != Paint::kNone) {
    SetPaint(cr, s.fill);
    cairo_fill_preserve(cr);
  }
  if (s.shine.a > 0) {
    Shine(cr, s.shine);
  }
  cairo_new_path(cr);
}

void DrawShape(cairo_t* cr, const Shape& s, const FrameTime& time);

void DrawText(cairo_t* cr, const Shape& s, const FrameTime& time) {
  cairo_font_face_t* face = FontFace(s.fontFile);
  if (!face) return;
  cairo_set_font_face(cr, face);
  cairo_set_font_size(cr, s.fontSize);
  cairo_font_extents_t fe;
  cairo_font_extents(cr, &fe);
  cairo_text_extents_t te;
  cairo_text_extents(cr, s.text.c_str(), &te);
  double x = s.align == Align::kLeft ? 0 : s.align == Align::kRight ? -te.x_advance : -te.x_advance / 2;
  const double baseline = (fe.ascent - fe.descent) / 2;
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);

  // Letters one by one, so that each can move on its own; outlines of all letters go
  // under the fills of all.
  struct Letter {
    std::string text;
    double x, width;
  };
  std::vector<Letter> letters;
  if (s.stagger > 0) {
    for (size_t i = 0; i < s.text.size(); ++i) {
      cairo_text_extents_t before, one;
      cairo_text_extents(cr, s.text.substr(0, i).c_str(), &before);
      cairo_text_extents(cr, s.text.substr(i, 1).c_str(), &one);
      letters.push_back(Letter{s.text.substr(i, 1), x + before.x_advance, one.x_advance});
    }
  } else {
    letters.push_back(Letter{s.text, x, te.x_advance});
  }
  for (int pass = s.outlineWidth > 0 ? 0 : 1; pass < 2; ++pass) {
    for (size_t i = 0; i < letters.size(); ++i) {
      const Letter& l = letters[i];
      FrameTime own = time;
      own.frame = time.frame - static_cast<int>(i) * s.stagger;
      cairo_save(cr);
      // Each letter turns and grows about its own centre.
      cairo_translate(cr, l.x + l.width / 2, 0);
      const double alpha = s.stagger > 0 ? ApplyMotions(cr, s.motions, own) : 1;
      if (alpha > 0) {
        cairo_push_group(cr);
        cairo_move_to(cr, -l.width / 2, baseline);
        cairo_text_path(cr, l.text.c_str());
        if (pass == 0) {
          SetColour(cr, s.outline);
          cairo_set_line_width(cr, s.outlineWidth * 2);
          cairo_stroke(cr);
        } else {
          SetPaint(cr, s.fill.kind == Paint::kNone ? Paint{Paint::kSolid, Rgba{1, 1, 1, 1}} : s.fill);
          cairo_fill(cr);
        }
        cairo_pop_group_to_source(cr);
        cairo_paint_with_alpha(cr, alpha);
      }
      cairo_restore(cr);
    }
  }
}

void DrawShape(cairo_t* cr, const Shape& s, const FrameTime& time) {
  if (time.frame < s.showFirst || time.frame > s.showLast) return;
  cairo_save(cr);
  cairo_translate(cr, s.at[0], s.at[1]);
  cairo_rotate(cr, s.rotate * kPi / 180);
  cairo_scale(cr, s.scale[0], s.scale[1]);
  double alpha = s.alpha;
  // Staggered text moves letter by letter instead.
  if (!(s.kind == ShapeKind::kText && s.stagger > 0)) alpha *= ApplyMotions(cr, s.motions, time);
  if (alpha > 0) {
    const bool group = alpha < 1;
    if (group) cairo_push_group(cr);
    switch (s.kind) {
      case ShapeKind::kGroup:
        for (const Shape& child : s.children) DrawShape(cr, child, time);
        break;
      case ShapeKind::kText:
        DrawText(cr, s, time);
        break;
      case ShapeKind::kPainter: {
        const PainterDef* def = FindPainter(s.painter);
        const double phase = static_cast<double>(time.frame) / std::max(1, time.frames);
        if (def) def->draw(cr, PainterCall{s, phase, time.frame});
        break;
      }
      default:
        DrawPlain(cr, s);
    }
    if (group) {
      cairo_pop_group_to_source(cr);
      cairo_paint_with_alpha(cr, alpha);
    }
  }
  cairo_restore(cr);
}

const int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

}  // namespace

double MotionAmount(const Motion& m, const FrameTime& time) {
  const int last = m.last < 0 ? time.frames - 1 : m.last;
  const int f = time.frame;
  if (m.ease == Ease::kStep) return f >= m.first && f <= last ? 1 : 0;
  if (m.ease == Ease::kPulse || m.ease == Ease::kWave) {
    // Periodic: the span's length is a whole number of cycles, so a looping sequence
    // closes up without a jump.
    const double t = std::clamp(static_cast<double>(f - m.first) / std::max(1, last - m.first + 1), 0.0, 1.0);
    const double a = 2 * kPi * t * m.cycles;
    return m.ease == Ease::kPulse ? (1 - cos(a)) / 2 : sin(a);
  }
  double t = last > m.first ? static_cast<double>(f - m.first) / (last - m.first) : (f >= m.first ? 1 : 0);
  t = std::clamp(t, 0.0, 1.0);
  switch (m.ease) {
    case Ease::kIn:
      return t * t * t;
    case Ease::kOut:
      return 1 - (1 - t) * (1 - t) * (1 - t);
    case Ease::kInOut:
      return t * t * (3 - 2 * t);
    case Ease::kBack: {
      const double c1 = 1.70158, c3 = c1 + 1, u = t - 1;
      return 1 + c3 * u * u * u + c1 * u * u;
    }
    case Ease::kBounce:
      return Bounce(t);
    default:
      return t;
  }
}

void DrawShapes(cairo_t* cr, const std::vector<Shape>& shapes, const FrameTime& time, int layer) {
  for (const Shape& s : shapes) {
    if (layer < 0 || static_cast<int>(s.layer) == layer) DrawShape(cr, s, time);
  }
}

assetlib::Image FromSurface(cairo_surface_t* surface, Filter filter) {
  cairo_surface_flush(surface);
  const int w = cairo_image_surface_get_width(surface), h = cairo_image_surface_get_height(surface);
  const int stride = cairo_image_surface_get_stride(surface);
  const unsigned char* data = cairo_image_surface_get_data(surface);
  assetlib::Image image(static_cast<uint32_t>(w), static_cast<uint32_t>(h));
  for (int y = 0; y < h; ++y) {
    const uint32_t* row = reinterpret_cast<const uint32_t*>(data + static_cast<size_t>(y) * stride);
    for (int x = 0; x < w; ++x) {
      const uint32_t p = row[x];
      const unsigned a = p >> 24;
      uint8_t* out = image.At(static_cast<uint32_t>(x), static_cast<uint32_t>(y));
      if (a == 0) continue;
      double c[3];
      for (int i = 0; i < 3; ++i) c[i] = std::min(255u, ((p >> (16 - 8 * i)) & 255) * 255 / a);
      if (filter == Filter::kGrey) {
        const double grey = 0.3 * c[0] + 0.59 * c[1] + 0.11 * c[2];
        for (double& v : c) v = grey * 0.75 + 50;
      } else if (filter == Filter::kDark) {
        for (double& v : c) v *= 0.65;
      } else if (filter == Filter::kBright) {
        for (double& v : c) v = v + (255 - v) * 0.3;
      }
      for (int i = 0; i < 3; ++i) out[i] = static_cast<uint8_t>(std::lround(std::clamp(c[i], 0.0, 255.0)));
      out[3] = static_cast<uint8_t>(a);
    }
  }
  return image;
}

void Quantise(assetlib::Image& image, assetlib::PixelFormat16 format) {
  const int levels = format == assetlib::kFormat4444 ? 15 : 31;
  auto expand = [levels](int level) { return levels == 15 ? level * 17 : (level << 3 | level >> 2); };
  for (uint32_t y = 0; y < image.height; ++y) {
    for (uint32_t x = 0; x < image.width; ++x) {
      uint8_t* p = image.At(x, y);
      const double threshold = (kBayer[y & 3][x & 3] + 0.5) / 16.0;
      for (int i = 0; i < 3; ++i) {
        const int level = std::min(levels, static_cast<int>(p[i] * levels / 255.0 + threshold));
        p[i] = static_cast<uint8_t>(expand(level));
      }
      if (format == assetlib::kFormat4444) {
        p[3] = static_cast<uint8_t>(((p[3] * 15 + 127) / 255) * 17);
      } else {
        p[3] = p[3] >= 128 ? 255 : 0;
      }
      if (p[3] == 0) p[0] = p[1] = p[2] = 0;
    }
  }
}

assetlib::Image RenderSpriteFrame(const SpriteRecipe& sprite, const SequenceRecipe& sequence, int frame,
                                  unsigned layer) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, sprite.width, sprite.height);
  cairo_t* cr = cairo_create(surface);
  const FrameTime time{frame, sequence.frames, sequence.loop};
  const double alpha = ApplyMotions(cr, sequence.motions, time);
  if (alpha > 0) {
    cairo_push_group(cr);
    if (sequence.base) DrawShapes(cr, sprite.shapes, time, static_cast<int>(layer));
    DrawShapes(cr, sequence.shapes, time, static_cast<int>(layer));
    cairo_pop_group_to_source(cr);
    cairo_paint_with_alpha(cr, alpha);
  }
  cairo_destroy(cr);
  assetlib::Image image = FromSurface(surface, sequence.filter);
  cairo_surface_destroy(surface);
  Quantise(image, sprite.format4444 ? assetlib::kFormat4444 : assetlib::kFormat5551);
  return image;
}

assetlib::Image RenderBackground(const BackgroundRecipe& background) {
  cairo_surface_t* surface =
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, background.width, background.height);
  cairo_t* cr = cairo_create(surface);
  DrawShapes(cr, background.shapes, FrameTime{}, -1);
  cairo_destroy(cr);
  assetlib::Image image = FromSurface(surface, Filter::kNone);
  cairo_surface_destroy(surface);
  Quantise(image, assetlib::kFormat5551);
  return image;
}

}  // namespace artgen
