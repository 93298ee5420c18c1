// sprite2png: a look at one sequence of a sprite, as content makers check their work.
//
//   sprite2png SPRITE-PREFIX SEQUENCE OUTPUT.png
//
// reads SPRITE-PREFIX.anim and SPRITE-PREFIX.tex and draws every frame of the named
// sequence side by side, each in a cell as large as the union of the frames. A
// number in place of a name picks the sequence by its index. On failure prints one
// line "sprite2png: FILE: what is wrong" and exits with 1.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "SpriteReader.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    fprintf(stderr, "usage: sprite2png SPRITE-PREFIX SEQUENCE OUTPUT.png\n");
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
  if (!sprite.RenderStrip(static_cast<unsigned>(sequence), strip, error) ||
      !assetlib::WritePng(argv[3], strip, error)) {
    fprintf(stderr, "sprite2png: %s\n", error.c_str());
    return 1;
  }
  return 0;
}
