// The recipes that artgen reads from the art manifests and draws: sprites made of
// sequences of frames, backgrounds made of one picture, and the shapes both are drawn
// from. Everything here is plain data, filled by the manifest reader and read by the
// painter and the builder; numbers are in the picture's pixels unless said otherwise.
#pragma once
#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace artgen {

// A colour with straight (not premultiplied) alpha, each channel 0 to 1.
struct Rgba {
  double r = 0, g = 0, b = 0, a = 1;
};

// How a shape is filled: nothing, one colour, or a gradient.
struct Paint {
  enum Kind { kNone, kSolid, kLinear, kRadial };
  Kind kind = kNone;
  Rgba colour;
  // Linear: from (x0, y0) to (x1, y1). Radial: centre (x0, y0), radius r1, inner
  // radius r0 at the same centre.
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0, r0 = 0, r1 = 0;
  std::vector<std::pair<double, Rgba>> stops;  // offset 0 to 1, colour
};

// The curves that turn a motion's progress t (0 to 1) into its amount.
enum class Ease {
  kLinear,  // t
  kIn,      // slow start
  kOut,     // slow end
  kInOut,
  kBack,    // overshoots the end a little, then settles
  kBounce,  // falls to the end and bounces twice
  kPulse,   // 0 -> 1 -> 0, `cycles` times over the span: breathing, bobbing
  kWave,    // sin: 0 -> 1 -> 0 -> -1 -> 0, `cycles` times: swaying
  kStep,    // 0 before the middle of the span, 1 from there on: blinks, flips
};

// A change of a shape over the frames of a sequence: each property goes from its
// first value to its second as the curve goes from 0 to 1.
struct Motion {
  std::array<double, 2> moveFrom{{0, 0}}, moveTo{{0, 0}};  // pixels
  std::array<double, 2> scaleFrom{{1, 1}}, scaleTo{{1, 1}};
  double rotateFrom = 0, rotateTo = 0;  // degrees, clockwise
  double alphaFrom = 1, alphaTo = 1;
  std::array<double, 2> pivot{{0, 0}};  // scale and rotation centre, shape coordinates
  int first = 0;                        // frames of the span; last -1 is the sequence's last
  int last = -1;
  Ease ease = Ease::kLinear;
  double cycles = 1;  // for kPulse and kWave
};

enum class ShapeKind { kRect, kCircle, kEllipse, kStar, kPolygon, kLine, kText, kGroup, kPainter };

enum class Align { kLeft, kCentre, kRight };

struct Shape {
  ShapeKind kind = ShapeKind::kRect;
  std::string file;  // manifest and line, for messages at draw time
  int line = 0;

  // Geometry, by kind, in the shape's own coordinates:
  //   rect [x, y, w, h] and `radius` for rounded corners; circle [cx, cy, r];
  //   ellipse [cx, cy, rx, ry]; star [cx, cy, outer, inner] with `starPoints`.
  std::vector<double> geometry;
  double radius = 0;
  int starPoints = 5;
  std::vector<std::array<double, 2>> points;  // polygon corners, line points
  bool closed = true;                         // line: join the last point to the first
  bool rounded = true;                        // line: round caps and joins

  // Text: drawn with its anchor at (0, 0) of the shape, vertically centred on it.
  std::string text;
  std::string fontFile;  // full path of the TrueType font
  double fontSize = 24;  // pixels
  Align align = Align::kCentre;
  int stagger = 0;  // frames between the motions of one letter and the next; 0: whole text

  Paint fill;
  Rgba outline;
  double outlineWidth = 0;  // 0: no outline. Drawn under the fill, so it shows at half width
  Rgba shine{0, 0, 0, 0};   // a soft highlight on the upper part; alpha 0 for none

  // Placement: translate to `at`, rotate, scale, flip, then the motions.
  std::array<double, 2> at{{0, 0}};
  double rotate = 0;  // degrees
  std::array<double, 2> scale{{1, 1}};
  double alpha = 1;
  std::vector<Motion> motions;
  int showFirst = 0;  // drawn only in these frames of a sequence
  int showLast = std::numeric_limits<int>::max();

  unsigned layer = 0;  // index into the sprite's layers

  std::vector<Shape> children;  // group

  // Painter: a named C++ drawing with its parameters.
  std::string painter;
  std::map<std::string, double> numbers;
  std::map<std::string, std::string> words;
  std::map<std::string, Rgba> colours;
};

struct PointSeries {
  std::string name;
  std::vector<std::array<int, 2>> values;  // one for all frames, or one per frame
  std::vector<bool> present;               // false: the frame has no such point
};

struct RectSeries {
  std::string name;
  std::vector<std::array<int, 4>> values;  // left, top, right, bottom
  std::vector<bool> present;
};

struct CallbackSeries {
  std::string name;
  std::map<int, uint32_t> values;  // frame -> value; other frames 0
};

enum class Filter { kNone, kGrey, kDark, kBright };

struct SequenceRecipe {
  std::string name;
  int line = 0;
  int frames = 1;
  bool loop = false;  // the last frame leads back to the first: periodic motions close up
  bool base = true;   // draw the sprite's own shapes under this sequence's
  Filter filter = Filter::kNone;
  std::vector<Motion> motions;  // move the whole picture
  std::vector<Shape> shapes;
  std::vector<PointSeries> points;
  std::vector<RectSeries> rects;
  std::vector<CallbackSeries> callbacks;
};

struct LayerRecipe {
  std::string name;
  double depth = 0;
};

struct SpriteRecipe {
  std::string name;
  std::string file;
  int line = 0;
  int width = 0, height = 0;  // canvas, pixels
  int originX = 0, originY = 0;
  bool format4444 = true;  // else 5551
  bool packed = true;
  int storage = 0;  // 0 auto, 1 sheet, 2 frames
  int tileSize = 16;
  std::vector<LayerRecipe> layers;  // at least one
  std::vector<Shape> shapes;        // drawn under every sequence that has `base`
  std::vector<SequenceRecipe> sequences;
  uint64_t fingerprint = 0;  // of everything the sprite is made from
};

struct BackgroundRecipe {
  std::string name;
  std::string file;
  int line = 0;
  int width = 0, height = 0;
  std::vector<Shape> shapes;
  uint64_t fingerprint = 0;
};

struct ArtSet {
  std::vector<SpriteRecipe> sprites;
  std::vector<BackgroundRecipe> backgrounds;
};

}  // namespace artgen
