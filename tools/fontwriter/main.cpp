// fontwriter: turns a TrueType font at one pixel size into the engine's bitmap font.
//
//   fontwriter [--chars RANGES] [--spacing N] [--png FILE] FONT.ttf SIZE OUTPUT-PREFIX
//
// writes OUTPUT-PREFIX.fdata and OUTPUT-PREFIX.ftex. The engine finds a font by
// "<name>_<size>" in the texture directories, so the prefix ends that way:
//   fontwriter Andika-Regular.ttf 12 title/Textures/HNCurry_12
// RANGES: inclusive character codes such as "32-126,160-255" (default 32-126).
// --png writes a greyscale picture of the texture for a look by eye.
// On failure prints one line "fontwriter: FILE: what is wrong" and exits with 1.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "FontWriter.h"

namespace {

int Fail(const std::string& message) {
  fprintf(stderr, "fontwriter: %s\n", message.c_str());
  return 1;
}

bool ParseUnsigned(const char* text, unsigned limit, unsigned& out) {
  char* end = nullptr;
  const unsigned long v = strtoul(text, &end, 10);
  if (end == text || *end != '\0' || text[0] == '-' || v > limit) return false;
  out = static_cast<unsigned>(v);
  return true;
}

const char* const kUsage =
    "usage: fontwriter [--chars RANGES] [--spacing N] [--png FILE] FONT SIZE OUTPUT-PREFIX";

}  // namespace

int main(int argc, char** argv) {
  fontwriter::Options options;
  std::string png;
  const char* positional[3] = {};
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    const char* arg = argv[i];
    const bool hasValue = i + 1 < argc;
    if (strcmp(arg, "--chars") == 0 && hasValue) {
      if (!fontwriter::ParseRanges(argv[++i], options.ranges))
        return Fail(std::string(argv[i]) + ": not a list of character ranges such as 32-126,160-255");
    } else if (strcmp(arg, "--spacing") == 0 && hasValue) {
      if (!ParseUnsigned(argv[++i], 64, options.spacing))
        return Fail(std::string(argv[i]) + ": spacing is not a number from 0 to 64");
    } else if (strcmp(arg, "--png") == 0 && hasValue) {
      png = argv[++i];
    } else if (arg[0] == '-' && arg[1] == '-') {
      return Fail(kUsage);
    } else if (count < 3) {
      positional[count++] = arg;
    } else {
      return Fail(kUsage);
    }
  }
  if (count != 3) return Fail(kUsage);
  options.fontPath = positional[0];
  if (!ParseUnsigned(positional[1], 255, options.pixelSize))
    return Fail(std::string(positional[1]) + ": size is not a number of pixels");

  fontwriter::BuiltFont font;
  std::string error;
  if (!fontwriter::BuildFont(options, font, error)) return Fail(error);
  if (!fontwriter::WriteFiles(font, positional[2], png, error)) return Fail(error);
  return 0;
}
