// Device half of Camera: puts the camera's view matrix on the GL model-view stack.
#pragma once
#include "core/Matrix4.h"

namespace nox {

class Camera_pf {
 protected:
  Camera_pf() = default;
  ~Camera_pf() = default;

  // Multiplies the model-view matrix by `view` (column-major, as glMultMatrixx
  // takes it). The matrix mode is left at GL_MODELVIEW.
  static void MultiplyView(const Matrix4& view);
};

}  // namespace nox
