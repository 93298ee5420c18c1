// animwriter: PNG frames and a JSON description to the engine's sprite files.
//
//   animwriter [--verbose] DESCRIPTION.json OUTPUT-PREFIX
//
// writes OUTPUT-PREFIX.anim and OUTPUT-PREFIX.tex. The engine finds a sprite by name
// in the animation directories:
//   animwriter corrin/corrin.json title/AnimData/Corrin
// The description is told in tools/assetlib/AnimWriter.h; picture names in it are
// relative to its directory. --verbose prints what was stored. On failure prints one
// line "animwriter: FILE: what is wrong" and exits with 1.
#include <cstdio>
#include <cstring>
#include <string>

#include "AnimWriter.h"

int main(int argc, char** argv) {
  bool verbose = false;
  const char* paths[2] = {};
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    if (strcmp(argv[i], "--verbose") == 0) {
      verbose = true;
    } else if (argv[i][0] != '-' && count < 2) {
      paths[count++] = argv[i];
    } else {
      count = 3;
      break;
    }
  }
  if (count != 2) {
    fprintf(stderr, "usage: animwriter [--verbose] DESCRIPTION.json OUTPUT-PREFIX\n");
    return 1;
  }
  std::string error;
  assetlib::AnimOutput output;
  if (!assetlib::WriteAnim(paths[0], paths[1], &output, error)) {
    fprintf(stderr, "animwriter: %s\n", error.c_str());
    return 1;
  }
  if (verbose) {
    if (output.sheet) {
      printf("%s: sheet %ux%u, %u distinct tiles, %u distinct frames\n", paths[1], output.sheetWidth,
             output.sheetHeight, output.distinctTiles, output.distinctFrames);
    } else {
      printf("%s: one texture a frame, %u distinct frames, %u tiles in them\n", paths[1],
             output.distinctFrames, output.distinctTiles);
    }
  }
  return 0;
}
