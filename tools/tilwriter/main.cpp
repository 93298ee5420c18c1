// tilwriter: one large PNG to the engine's scrolling background.
//
//   tilwriter [--format 4444|5551] INPUT.png OUTPUT-PREFIX
//
// writes OUTPUT-PREFIX.til and OUTPUT-PREFIX-tiled.tex. The engine finds a background
// by name in the level directories, so the prefix ends with that name:
//   tilwriter forest.png title/Levels/Forest_Back
// The pixel format defaults to 5551. On failure prints one line
// "tilwriter: FILE: what is wrong" and exits with 1.
#include <cstdio>
#include <cstring>
#include <string>

#include "TilWriter.h"

int main(int argc, char** argv) {
  assetlib::TilOptions options;
  const char* paths[2] = {};
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    if (strcmp(argv[i], "--format") == 0 && i + 1 < argc) {
      if (!assetlib::ParsePixelFormat(argv[++i], options.format)) {
        fprintf(stderr, "tilwriter: %s: not a pixel format (4444 or 5551)\n", argv[i]);
        return 1;
      }
    } else if (argv[i][0] != '-' && count < 2) {
      paths[count++] = argv[i];
    } else {
      count = 3;
      break;
    }
  }
  if (count != 2) {
    fprintf(stderr, "usage: tilwriter [--format 4444|5551] INPUT.png OUTPUT-PREFIX\n");
    return 1;
  }
  std::string error;
  if (!assetlib::WriteTil(paths[0], paths[1], options, error)) {
    fprintf(stderr, "tilwriter: %s\n", error.c_str());
    return 1;
  }
  return 0;
}
