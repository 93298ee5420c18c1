#include "platform/Camera_pf.h"

#include <GLES/gl.h>

namespace nox {

void Camera_pf::MultiplyView(const Matrix4& view) {
  static_assert(sizeof(Real) == sizeof(GLfixed), "a Real is handed to GL as GLfixed");
  glMatrixMode(GL_MODELVIEW);
  glMultMatrixx(reinterpret_cast<const GLfixed*>(view.Data()));
}

}  // namespace nox
