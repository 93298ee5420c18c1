// A plain box as an animation: filled or outlined in one colour, centred on its
// position, at its depth. Used for debugging shapes and simple markers; it has no
// frames and Update does nothing.
#pragma once
#include "core/Vector3.h"
#include "graphics/Animation.h"
#include "platform/RectAnimation_pf.h"

namespace nox {

class RectAnimation : public Animation, protected RectAnimation_pf {
 public:
  RectAnimation(Real width, Real height) : m_Width(width), m_Height(height) {}

  void Update(unsigned long ms) override {}
  // Leaves the vertex array and blending as it found them enabled.
  void Draw() override;

  void SetAlpha(Real alpha) { m_Colour[3] = alpha; }
  void SetWidth(Real width) { m_Width = width; }
  void SetHeight(Real height) { m_Height = height; }
  void SetColor(const Vector3& rgb);
  void SetOutline(bool outline) { m_bOutline = outline; }
  void SetLineWidth(Real width) { m_LineWidth = width; }
  void SetPosition(const Vector3& position) { m_Position = position; }
  // Inside the box, edges included.
  bool ContainsPoint(const Vector2& point);
  const Rectangle& GetBoundingBox() const { return m_BoundingBox; }

 private:
  void UpdateBox();

  Real m_Colour[4] = {Real(), Real(), Real(), Real(1)};  // red, green, blue, alpha
  Real m_Width;                                          // pixels
  Real m_Height;
  Real m_LineWidth = Real(3);
  bool m_bOutline = false;
  Rectangle m_BoundingBox;
  Real m_Vertices[6 * 3];
};

}  // namespace nox
