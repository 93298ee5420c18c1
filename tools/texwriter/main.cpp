// texwriter: one PNG to the engine's plain picture file.
//
//   texwriter [--format 4444|5551] [--plain] [--pad] INPUT.png OUTPUT.tex
//
// --format picks the 16-bit pixel layout (default 4444); --plain stores the pixels
// without zlib; --pad grows a picture whose sides are not powers of two with clear
// pixels instead of refusing it. On failure prints one line
// "texwriter: FILE: what is wrong" and exits with 1.
#include <cstdio>
#include <cstring>
#include <string>

#include "TexWriter.h"

int main(int argc, char** argv) {
  assetlib::TexOptions options;
  const char* paths[2] = {};
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    if (strcmp(argv[i], "--format") == 0 && i + 1 < argc) {
      if (!assetlib::ParsePixelFormat(argv[++i], options.format)) {
        fprintf(stderr, "texwriter: %s: not a pixel format (4444 or 5551)\n", argv[i]);
        return 1;
      }
    } else if (strcmp(argv[i], "--plain") == 0) {
      options.packed = false;
    } else if (strcmp(argv[i], "--pad") == 0) {
      options.pad = true;
    } else if (argv[i][0] != '-' && count < 2) {
      paths[count++] = argv[i];
    } else {
      count = 3;
      break;
    }
  }
  if (count != 2) {
    fprintf(stderr, "usage: texwriter [--format 4444|5551] [--plain] [--pad] INPUT.png OUTPUT.tex\n");
    return 1;
  }
  std::string error;
  if (!assetlib::WriteTex(paths[0], paths[1], options, error)) {
    fprintf(stderr, "texwriter: %s\n", error.c_str());
    return 1;
  }
  return 0;
}
