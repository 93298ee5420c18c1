// Device half of AnimationEngine: the GL state around drawing a scene's animations.
#pragma once

namespace nox {

class AnimationEngine_pf {
 protected:
  AnimationEngine_pf() = default;
  ~AnimationEngine_pf() = default;

  // Depth test with GL_LEQUAL or none; alpha test passing above a hundredth or none;
  // white colour, no face culling.
  static void BeginDraw(bool depthTest, bool alphaTest);
  // Turns the depth and alpha tests off.
  static void EndDraw();
};

}  // namespace nox
