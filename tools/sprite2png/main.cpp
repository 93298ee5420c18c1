// sprite2png: a look at one sequence of a sprite, as content makers check their work.
//
//   sprite2png SPRITE-PREFIX SEQUENCE OUTPUT.png [FRAME]
//
// reads SPRITE-PREFIX.anim and SPRITE-PREFIX.tex and draws every frame of the named
// sequence side by side, each in a cell as large as the union of the frames, or only
// the cell of FRAME (counted from 0) when one is given. A
// number in place of a name picks the sequence by its index. On failure prints one
// line "sprite2png: FILE: what is wrong" and exits with 1.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "SpriteReader.h"

int main(int argc, char** argv) {
  if (argc != 4 && argc != 5) {
    fprintf(stderr, "usage: sprite2png SPRITE-PREFIX SEQUENCE OUTPUT.png [FRAME]\n");
    return 1;
  }
  std::string error;
  assetlib::SpriteReader sprite;
  if (!sprite.Open(argv[1], error)) {
    fprintf(stderr, "sprite2png: %s\n", error.c_str());
    return 1;
  }
  int sequence = sprite.FindSequence(nox::HashString(argv[2]));
  char* end = nullptr;
  const unsigned long index = strtoul(argv[2], &end, 10);
  if (sequence < 0 && end != argv[2] && *end == '\0' && index < sprite.GetNumSequences())
    sequence = static_cast<int>(index);
  if (sequence < 0) {
    fprintf(stderr, "sprite2png: %s.anim: no sequence \"%s\"\n", argv[1], argv[2]);
    return 1;
  }
  assetlib::Image strip;
  if (!sprite.RenderStrip(static_cast<unsigned>(sequence), strip, error)) {
    fprintf(stderr, "sprite2png: %s\n", error.c_str());
    return 1;
  }
  if (argc == 5) {
    const unsigned frames = sprite.GetFrameCount(static_cast<unsigned>(sequence));
    const unsigned long frame = strtoul(argv[4], &end, 10);
    if (end == argv[4] || *end != '\0' || frame >= frames) {
      fprintf(stderr, "sprite2png: %s.anim: sequence \"%s\" has no frame %s (it has %u)\n", argv[1], argv[2],
              argv[4], frames);
      return 1;
    }
    const uint32_t cell = strip.width / frames;
    assetlib::Image one(cell, strip.height);
    for (uint32_t y = 0; y < strip.height; ++y) {
      memcpy(one.At(0, y), strip.At(static_cast<uint32_t>(frame) * cell, y), cell * 4);
    }
    strip = one;
  }
  if (!assetlib::WritePng(argv[3], strip, error)) {
    fprintf(stderr, "sprite2png: %s\n", error.c_str());
    return 1;
  }
  return 0;
}
