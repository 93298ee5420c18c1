#include "graphics/GLState.h"

#include <GLES/gl.h>
#include <GLES/glext.h>

#include <cstdio>
#include <cstring>

#include "core/WrapArith.h"

namespace nox {

namespace {

// The clip plane stands for all of them, as its name says.
const GLenum kFlagEnums[GLState::kNamedFlags] = {GL_ALPHA_TEST,
                                                 GL_COLOR_LOGIC_OP,
                                                 GL_CLIP_PLANE0,
                                                 GL_COLOR_MATERIAL,
                                                 GL_CULL_FACE,
                                                 GL_DEPTH_TEST,
                                                 GL_DITHER,
                                                 GL_FOG,
                                                 GL_LIGHT0,
                                                 GL_LIGHT1,
                                                 GL_LIGHT2,
                                                 GL_LIGHT3,
                                                 GL_LIGHT4,
                                                 GL_LIGHT5,
                                                 GL_LIGHT6,
                                                 GL_LIGHT7,
                                                 GL_LIGHTING,
                                                 GL_LINE_SMOOTH,
                                                 GL_MULTISAMPLE,
                                                 GL_NORMALIZE,
                                                 GL_POINT_SMOOTH,
                                                 GL_POINT_SPRITE_OES,
                                                 GL_POLYGON_OFFSET_FILL,
                                                 GL_RESCALE_NORMAL,
                                                 GL_SAMPLE_ALPHA_TO_COVERAGE,
                                                 GL_SAMPLE_ALPHA_TO_ONE,
                                                 GL_SAMPLE_COVERAGE,
                                                 GL_SCISSOR_TEST,
                                                 GL_STENCIL_TEST,
                                                 GL_TEXTURE_2D,
                                                 GL_COLOR_ARRAY,
                                                 GL_MATRIX_INDEX_ARRAY_OES,
                                                 GL_NORMAL_ARRAY,
                                                 GL_POINT_SIZE_ARRAY_OES,
                                                 GL_TEXTURE_COORD_ARRAY,
                                                 GL_VERTEX_ARRAY,
                                                 GL_WEIGHT_ARRAY_OES};

}  // namespace

const char* const GLState::kFlagNames[GLState::kNamedFlags] = {"GL_ALPHA_TEST, ",
                                                               "GL_COLOR_LOGIC_OP, ",
                                                               "GL_CLIP_PLANEi, ",
                                                               "GL_COLOR_MATERIAL, ",
                                                               "GL_CULL_FACE, ",
                                                               "GL_DEPTH_TEST, ",
                                                               "GL_DITHER, ",
                                                               "GL_FOG, ",
                                                               "GL_LIGHT0, ",
                                                               "GL_LIGHT1, ",
                                                               "GL_LIGHT2, ",
                                                               "GL_LIGHT3, ",
                                                               "GL_LIGHT4, ",
                                                               "GL_LIGHT5, ",
                                                               "GL_LIGHT6, ",
                                                               "GL_LIGHT7, ",
                                                               "GL_LIGHTING, ",
                                                               "GL_LINE_SMOOTH, ",
                                                               "GL_MULTISAMPLE, ",
                                                               "GL_NORMALIZE, ",
                                                               "GL_POINT_SMOOTH, ",
                                                               "GL_POINT_SPRITE_OES, ",
                                                               "GL_POLYGON_OFFSET_FILL, ",
                                                               "GL_RESCALE_NORMAL, ",
                                                               "GL_SAMPLE_ALPHA_TO_COVERAGE, ",
                                                               "GL_SAMPLE_ALPHA_TO_ONE, ",
                                                               "GL_SAMPLE_COVERAGE, ",
                                                               "GL_SCISSOR_TEST, ",
                                                               "GL_STENCIL_TEST, ",
                                                               "GL_TEXTURE_2D, ",
                                                               "GL_COLOR_ARRAY, ",
                                                               "GL_MATRIX_INDEX_ARRAY_OES, ",
                                                               "GL_NORMAL_ARRAY, ",
                                                               "GL_POINT_SIZE_ARRAY_OES, ",
                                                               "GL_TEXTURE_COORD_ARRAY, ",
                                                               "GL_VERTEX_ARRAY, ",
                                                               "GL_WEIGHT_ARRAY_OES, "};

GLState::GLState() : m_Flags(), m_MatrixModeName(), m_FlagString(), m_MatrixMode(0) {
  InitStacks();
}

void GLState::InitStacks() {
  GLint depth = 0;
  glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
  if (depth == 1) ReadMatrix(GL_MODELVIEW, m_ModelView);
}

void GLState::ReadFlags() {
  for (int i = 0; i < kNamedFlags; ++i) m_Flags[i] = glIsEnabled(kFlagEnums[i]) == GL_TRUE;
  // Capabilities the driver does not know raise an error that nobody wants.
  while (glGetError() != GL_NO_ERROR) {
  }
}

void GLState::UpdateFlagString() {
  size_t used = 0;
  m_FlagString[0] = '\0';
  for (int i = 0; i < kNamedFlags; ++i) {
    if (!m_Flags[i]) continue;
    const size_t length = strlen(kFlagNames[i]);
    if (used + length >= sizeof m_FlagString) break;
    memcpy(m_FlagString + used, kFlagNames[i], length + 1);
    used += length;
  }
}

void GLState::glGetMatrixMode(uint32_t mode) {
  m_MatrixMode = mode;
  const char* name = mode == GL_PROJECTION  ? "GL_PROJECTION"
                     : mode == GL_TEXTURE   ? "GL_TEXTURE"
                     : mode == GL_MODELVIEW ? "GL_MODELVIEW"
                                            : "(Unknown matrix mode)";
  snprintf(m_MatrixModeName, sizeof m_MatrixModeName, "%s", name);
}

std::vector<StateMatrix4x4>* GLState::StackOf(uint32_t mode) {
  switch (mode) {
    case GL_MODELVIEW:
      return &m_ModelView;
    case GL_PROJECTION:
      return &m_Projection;
    case GL_TEXTURE:
      return &m_Texture;
    default:
      return nullptr;
  }
}

void GLState::PushMatrix(uint32_t mode) {
  std::vector<StateMatrix4x4>* stack = StackOf(m_MatrixMode);
  if (stack) ReadMatrix(mode, *stack);
}

void GLState::ReadMatrix(uint32_t mode, std::vector<StateMatrix4x4>& stack) {
  GLenum query = mode == GL_PROJECTION ? GL_PROJECTION_MATRIX
                 : mode == GL_TEXTURE  ? GL_TEXTURE_MATRIX
                                       : GL_MODELVIEW_MATRIX;
  GLfixed values[16] = {};
  glGetFixedv(query, values);
  glGetError();
  StateMatrix4x4 matrix;
  for (int i = 0; i < 16; ++i) matrix.m[i] = Real::FromRaw(WrapShiftLeft(values[i], 16));
  stack.push_back(matrix);
}

void GLState::PopMatrix(uint32_t mode) {
  std::vector<StateMatrix4x4>* stack = StackOf(mode);
  if (stack && !stack->empty()) stack->pop_back();
}

void GLState::Update() {
  PopMatrix(m_MatrixMode);
  PushMatrix(m_MatrixMode);
}

void GLState::SetIdentity() {
  std::vector<StateMatrix4x4>* stack = StackOf(m_MatrixMode);
  if (!stack || stack->empty()) return;
  StateMatrix4x4& top = stack->back();
  for (int i = 0; i < 16; ++i) top.m[i] = Real(i % 5 == 0 ? 1 : 0);
}

}  // namespace nox
