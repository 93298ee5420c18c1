#include "FontCache.h"

#include <cairo-ft.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <map>
#include <mutex>

namespace artgen {

cairo_font_face_t* FontFace(const std::string& path) {
  static std::mutex s_Mutex;
  static FT_Library s_Library = nullptr;
  static std::map<std::string, cairo_font_face_t*> s_Faces;
  std::lock_guard<std::mutex> lock(s_Mutex);
  auto found = s_Faces.find(path);
  if (found != s_Faces.end()) return found->second;
  if (!s_Library && FT_Init_FreeType(&s_Library) != 0) return nullptr;
  FT_Face face = nullptr;
  if (FT_New_Face(s_Library, path.c_str(), 0, &face) != 0) return nullptr;
  cairo_font_face_t* cairoFace = cairo_ft_font_face_create_for_ft_face(face, 0);
  if (cairo_font_face_status(cairoFace) != CAIRO_STATUS_SUCCESS) {
    cairo_font_face_destroy(cairoFace);
    FT_Done_Face(face);
    return nullptr;
  }
  s_Faces[path] = cairoFace;
  return cairoFace;
}

}  // namespace artgen
