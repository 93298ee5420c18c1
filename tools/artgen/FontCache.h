// TrueType fonts for the text shapes, opened once per run through FreeType and shared
// by every drawing thread (cairo locks a face while it reads it). Faces live until the
// process ends.
#pragma once
#include <cairo.h>

#include <string>

namespace artgen {

// The cairo face of the font file at `path`; null when FreeType cannot open it.
cairo_font_face_t* FontFace(const std::string& path);

}  // namespace artgen
