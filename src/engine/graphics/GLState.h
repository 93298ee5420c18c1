// A diagnostic snapshot of GL for debugging draw state by hand: which capabilities
// are enabled (as flags and as one line of their names), the matrix mode, and copies
// of the matrix stacks taken on request. Nothing on a running path uses it; reading
// GL state stalls the pipeline.
#pragma once
#include <cstdint>
#include <vector>

#include "core/Real.h"

namespace nox {

struct StateMatrix4x4 {
  Real m[16];  // column after column
};

class GLState {
 public:
  static constexpr int kFlagCount = 38;  // the 37 named capabilities and one spare
  static constexpr int kNamedFlags = 37;

  // Zeroes everything, then takes the model view matrix when its stack is one deep.
  GLState();

  // Reads each named capability with glIsEnabled (an unknown one reads as off).
  void ReadFlags();
  // Writes "NAME, " for each set flag, in the fixed order, into the flag string.
  void UpdateFlagString();
  // Records `mode` and writes its name ("GL_PROJECTION", "GL_TEXTURE",
  // "GL_MODELVIEW" or "(Unknown matrix mode)") into the mode text.
  void glGetMatrixMode(uint32_t mode);
  // Reads the matrix of `mode` and appends it, each element shifted left by 16, to
  // the stack of the recorded mode.
  void PushMatrix(uint32_t mode);
  // Drops the top of `mode`'s stack unless it is empty.
  void PopMatrix(uint32_t mode);
  // Pop then push, for the recorded mode.
  void Update();
  // The identity in place of the top of the recorded mode's stack.
  void SetIdentity();

  bool m_Flags[kFlagCount];
  char m_MatrixModeName[32];
  char m_FlagString[512];
  uint32_t m_MatrixMode;
  std::vector<StateMatrix4x4> m_ModelView;
  std::vector<StateMatrix4x4> m_Projection;
  std::vector<StateMatrix4x4> m_Texture;

  // The capability names in flag order, each with its trailing comma and blank.
  static const char* const kFlagNames[kNamedFlags];

 private:
  void InitStacks();
  void ReadMatrix(uint32_t mode, std::vector<StateMatrix4x4>& stack);
  std::vector<StateMatrix4x4>* StackOf(uint32_t mode);
};

}  // namespace nox
