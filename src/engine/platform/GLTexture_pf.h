// Device half of GLTexture: the handful of GL calls made on texture objects. Plain
// static primitives, no state; the id and the bind cache live in GLTexture.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"

namespace nox {

class GLTexture_pf : public NoCopy {
 protected:
  GLTexture_pf() = default;
  ~GLTexture_pf() = default;

  // A new texture object with nearest filtering and edge clamping, left unbound.
  static uint32_t GenTexture();
  static void DeleteTexture(uint32_t id);
  static void BindTexture(uint32_t id);
  static void TexImage(uint32_t glFormat, uint16_t width, uint16_t height, uint32_t glType,
                       const void* pixels);
  static void TexSubImage(uint16_t x, uint16_t y, uint16_t width, uint16_t height, uint32_t glFormat,
                          uint32_t glType, const void* pixels);
};

}  // namespace nox
