// A window that covers the whole screen with one colour at a level from 0 (clear) to
// 1.0 (covered), and fades that level over a number of milliseconds. The level follows
// the game host's clock, not the frame's delta: a fade of n ms ends when the clock
// says so, however the frames fall. While a fade runs its speed is not 0; IsFadeComplete
// says that it is. At level 0 the fader draws nothing.
#pragma once
#include <cstdint>

#include "core/Real.h"
#include "core/Vector3.h"
#include "graphics/Window.h"
#include "platform/Fader_pf.h"

namespace nox {

class Fader : public Window, private Fader_pf {
 public:
  Fader();

  // From the present level to 0 in `ms`; at once for 0 ms.
  void FadeIn(unsigned short ms);
  // From the present level to 1.0 in `ms`; at once for 0 ms.
  void FadeOut(unsigned short ms);
  // Sets the level and ends any fade.
  void SetLevel(Real level);
  Real GetLevel() const { return m_Level; }
  bool IsFadeComplete() const { return m_Speed == Real(); }
  void SetColor(const Vector3& colour) { m_Colour = colour; }
  const Vector3& GetColor() const { return m_Colour; }
  Real GetSpeed() const { return m_Speed; }
  const int16_t* GetVertices() const { return m_Vertices; }

  // The screen quad: the whole width and height of the screen's virtual rectangle,
  // swapped for a sideways orientation, at z 0.
  void SetupVertices();

  void Update(unsigned long ms) override;
  void Draw() override;

 private:
  void Start(Real target, Real speed);
  static uint32_t Now();

  int32_t m_Orientation = -1;  // as seen by the last SetupVertices
  int16_t m_Vertices[18];      // six x, y, z triples, virtual pixels
  Real m_Speed;                // level per ms; 0 while idle
  Real m_Level;                // 0 clear to 1.0 covered
  Real m_Target;
  Real m_StartLevel;
  uint32_t m_StartMS = 0;  // host ms
  uint32_t m_EndMS = 0;
  Vector3 m_Colour;  // black unless set
};

}  // namespace nox
