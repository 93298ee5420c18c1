// gfx_art: draws the pictures of the graphics test title and writes the sprite
// descriptions beside them, for animwriter and tilwriter to turn into the title's
// files at build time.
//
//   gfx_art OUTPUT-DIR
//
// writes into OUTPUT-DIR:
//   spin0.png .. spin7.png, Spinner.json   a 48 by 48 disc whose white wedge turns
//                                          45 degrees a frame; event "Loop" on frame 0
//   star_idle.png, star_held.png, Star.json   the 24 by 24 diamond the stylus drags
//   sky.png                                a 1024 by 512 scrolling background
// Everything is drawn with integer arithmetic, so the pictures are the same on every
// machine. On failure prints one line "gfx_art: FILE: what is wrong" and exits with 1.
#include <cstdio>
#include <string>

#include "Image.h"

namespace {

using assetlib::Image;

void Put(Image& image, uint32_t x, uint32_t y, uint8_t r, uint8_t g, uint8_t b, uint8_t a = 255) {
  uint8_t* p = image.At(x, y);
  p[0] = r;
  p[1] = g;
  p[2] = b;
  p[3] = a;
}

// Which eighth of the turn (0 at "east", counting clockwise on screen, y down) the
// offset (dx, dy) falls in, from the signs and the larger component alone.
int Octant(int dx, int dy) {
  const int ax = dx < 0 ? -dx : dx;
  const int ay = dy < 0 ? -dy : dy;
  if (dx >= 0 && dy >= 0) return ax >= ay ? 0 : 1;
  if (dx < 0 && dy >= 0) return ay > ax ? 2 : 3;
  if (dx < 0 && dy < 0) return ax >= ay ? 4 : 5;
  return ay > ax ? 6 : 7;
}

Image SpinnerFrame(int frame) {
  Image image(48, 48);
  // The disc's colour walks round the hues with the frames.
  static const uint8_t kColours[8][3] = {{230, 40, 40},  {230, 140, 30}, {200, 200, 30}, {60, 200, 60},
                                         {30, 190, 190}, {40, 90, 230},  {140, 50, 220}, {220, 50, 160}};
  for (int y = 0; y < 48; ++y) {
    for (int x = 0; x < 48; ++x) {
      const int dx = 2 * x + 1 - 48;  // half pixels from the centre
      const int dy = 2 * y + 1 - 48;
      const int d2 = dx * dx + dy * dy;
      if (d2 > 44 * 44) continue;
      if (d2 > 40 * 40) {
        Put(image, x, y, 20, 20, 20);
      } else if (Octant(dx, dy) == frame && d2 > 8 * 8) {
        Put(image, x, y, 255, 255, 255);
      } else {
        Put(image, x, y, kColours[frame][0], kColours[frame][1], kColours[frame][2]);
      }
    }
  }
  return image;
}

Image Star(uint8_t r, uint8_t g, uint8_t b) {
  Image image(24, 24);
  for (int y = 0; y < 24; ++y) {
    for (int x = 0; x < 24; ++x) {
      const int dx = 2 * x + 1 - 24;
      const int dy = 2 * y + 1 - 24;
      const int d = (dx < 0 ? -dx : dx) + (dy < 0 ? -dy : dy);  // diamond distance
      if (d > 24) continue;
      if (d > 18)
        Put(image, x, y, 120, 0, 0);
      else
        Put(image, x, y, r, g, b);
    }
  }
  return image;
}

// A sky that darkens upwards over green hills and a road of checks. Each sky row is
// one colour, so its tiles share a picture; the hills and checks tell where one is.
Image Sky() {
  Image image(1024, 512);
  for (uint32_t y = 0; y < 512; ++y) {
    for (uint32_t x = 0; x < 1024; ++x) {
      // A hill line made of straight slopes, 96 pixels a period.
      const int phase = static_cast<int>(x % 192);
      const int hill = 300 - (phase < 96 ? phase : 192 - phase) - static_cast<int>(x / 192) * 8;
      if (y >= 448) {
        const bool dark = ((x / 32) + (y / 32)) % 2 == 0;
        Put(image, x, y, dark ? 60 : 200, dark ? 60 : 200, dark ? 70 : 210);
      } else if (static_cast<int>(y) >= hill) {
        const uint8_t shade = static_cast<uint8_t>(90 + (x / 64) % 4 * 30);
        Put(image, x, y, 40, shade, 50);
      } else {
        const uint8_t level = static_cast<uint8_t>(y / 2);
        Put(image, x, y, static_cast<uint8_t>(40 + level / 2), static_cast<uint8_t>(80 + level / 2), 230);
      }
    }
  }
  return image;
}

bool Write(const std::string& path, const Image& image) {
  std::string error;
  if (assetlib::WritePng(path, image, error)) return true;
  fprintf(stderr, "gfx_art: %s\n", error.c_str());
  return false;
}

bool WriteText(const std::string& path, const std::string& text) {
  FILE* file = fopen(path.c_str(), "wb");
  if (!file || fwrite(text.data(), 1, text.size(), file) != text.size() || fclose(file) != 0) {
    fprintf(stderr, "gfx_art: %s: cannot write\n", path.c_str());
    return false;
  }
  return true;
}

const char kSpinnerJson[] = R"({
  "tileSize": 16,
  "storage": "sheet",
  "sequences": [{
    "name": "Spin",
    "origin": [24, 24],
    "frames": ["spin0.png", "spin1.png", "spin2.png", "spin3.png",
               "spin4.png", "spin5.png", "spin6.png", "spin7.png"],
    "callbacks": {"Loop": {"0": 1}}
  }]
}
)";

// Fetched a frame at a time, unlike the spinner, so both kinds of frame holder draw.
const char kStarJson[] = R"({
  "tileSize": 8,
  "storage": "frames",
  "sequences": [
    {"name": "Idle", "origin": [12, 12], "frames": ["star_idle.png"]},
    {"name": "Held", "origin": [12, 12], "frames": ["star_held.png"]}
  ]
}
)";

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: gfx_art OUTPUT-DIR\n");
    return 1;
  }
  const std::string dir = argv[1];
  bool ok = true;
  for (int f = 0; f < 8; ++f) ok = ok && Write(dir + "/spin" + std::to_string(f) + ".png", SpinnerFrame(f));
  ok = ok && WriteText(dir + "/Spinner.json", kSpinnerJson);
  ok = ok && Write(dir + "/star_idle.png", Star(255, 220, 0));
  ok = ok && Write(dir + "/star_held.png", Star(0, 230, 120));
  ok = ok && WriteText(dir + "/Star.json", kStarJson);
  ok = ok && Write(dir + "/sky.png", Sky());
  return ok ? 0 : 1;
}
