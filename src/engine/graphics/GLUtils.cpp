#include "graphics/GLUtils.h"

#include <GLES/gl.h>

#include <algorithm>

#include "core/Trig.h"
#include "graphics/GLTexture.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/WholePixel.h"
#include "graphics/Window.h"

namespace nox {

namespace {

const GLfixed kOne = 0x10000;
const GLushort kQuadIndices[6] = {0, 1, 2, 0, 2, 3};

GLfixed X(Real r) {
  return r.Raw();
}

// Starts a projection: GL_PROJECTION, identity, then the screen's turn about z.
void BeginProjection(const Screen* screen) {
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  if (!screen) return;
  switch (screen->GetOrientation()) {
    case Screen::kSideways1:
      glRotatex(X(Real(-90)), 0, 0, kOne);
      break;
    case Screen::kSideways2:
      glRotatex(X(Real(90)), 0, 0, kOne);
      break;
    case Screen::kUpsideDown:
      glRotatex(X(Real(180)), 0, 0, kOne);
      break;
    case Screen::kUpright:
      break;
  }
}

void UnbindBuffers() {
  glBindBuffer(GL_ARRAY_BUFFER, 0);
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

}  // namespace

void ApplyOrthographicProjection(const Screen* screen, Real nearPlane, Real farPlane) {
  if (!screen) return;
  Rectangle r;
  screen->GetVirtualPixelMapping(r);
  BeginProjection(screen);
  // y grows downwards: the rectangle's bottom is GL's bottom.
  glOrthox(X(r.left), X(r.right), X(r.bottom), X(r.top), X(nearPlane), X(farPlane));
  glMatrixMode(GL_MODELVIEW);
}

void ApplyOrthographicProjection(const Window* window, Real nearPlane, Real farPlane) {
  const Screen* screen = window->GetScreen();
  BeginProjection(screen);
  const Vector2 size = window->GetSize();
  if (window->IsCentredProjection()) {
    const Real hw = size.x / Real(2);
    const Real hh = size.y / Real(2);
    glOrthox(X(-hw), X(hw), X(hh), X(-hh), X(nearPlane), X(farPlane));
  } else {
    Real sx = size.x;
    Real sy = size.y;
    if (screen && screen->IsSideways()) std::swap(sx, sy);
    glOrthox(0, X(sx), X(sy), 0, X(nearPlane), X(farPlane));
  }
  glMatrixMode(GL_MODELVIEW);
}

void ApplyPerspectiveProjection(const Window* window, Real fieldOfView, Real nearPlane, Real farPlane) {
  BeginProjection(window->GetScreen());
  const Vector2 size = window->GetSize();
  const Real ymax = nearPlane * tan(fieldOfView / Real(2));
  const Real aspect = size.x / size.y;
  const Real xmax = ymax * aspect;
  glFrustumx(X(-xmax), X(xmax), X(-ymax), X(ymax), X(nearPlane), X(farPlane));
  glMatrixMode(GL_MODELVIEW);
}

void DrawTexture(GLTexture& texture, const Vector2& a, const Vector2& b, const Vector2& t0,
                 const Vector2& t1) {
  const GLfixed vertices[8] = {X(a.x), X(a.y), X(a.x), X(b.y), X(b.x), X(b.y), X(b.x), X(a.y)};
  const GLfixed coords[8] = {X(t0.x), X(t0.y), X(t0.x), X(t1.y), X(t1.x), X(t1.y), X(t1.x), X(t0.y)};
  texture.Bind();
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  glEnable(GL_TEXTURE_2D);
  glEnable(GL_BLEND);
  glDisable(GL_DEPTH_TEST);
  UnbindBuffers();
  glColor4x(kOne, kOne, kOne, kOne);
  glVertexPointer(2, GL_FIXED, 0, vertices);
  glTexCoordPointer(2, GL_FIXED, 0, coords);
  glDrawElements(GL_TRIANGLES, 6, GL_UNSIGNED_SHORT, kQuadIndices);
  glDisable(GL_TEXTURE_2D);
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glDisableClientState(GL_VERTEX_ARRAY);
  GLTexture::UnBind();
}

void DrawRenderTargetQuad(uint16_t width, uint16_t height) {
  const Real w = Real(static_cast<int>(width));
  const Real h = Real(static_cast<int>(height));
  const Real lift = Real(16);  // the target's lower strip hangs off the top of the screen
  const Real z = Real(10);
  const GLfixed vertices[12] = {0,    X(-lift),    X(z), 0,    X(h - lift), X(z),
                                X(w), X(h - lift), X(z), X(w), X(-lift),    X(z)};
  const GLfixed coords[8] = {0, kOne, 0, 0, kOne, 0, kOne, kOne};
  UnbindBuffers();
  glColor4x(kOne, kOne, kOne, kOne);
  glVertexPointer(3, GL_FIXED, 0, vertices);
  glTexCoordPointer(2, GL_FIXED, 0, coords);
  glDrawElements(GL_TRIANGLES, 6, GL_UNSIGNED_SHORT, kQuadIndices);
}

uint32_t CopySidePowerOfTwo(uint32_t n) {
  if ((n & (n - 1)) == 0) return n;
  if (n & 0x8000u) return 0;
  uint32_t p = 1;
  while (p < n) p <<= 1;
  return p;
}

int GetCopyTexturePieces(int32_t screenWidth, int32_t screenHeight, uint32_t srcWidth, uint32_t srcHeight,
                         CopyRegion out[4]) {
  const int32_t W = static_cast<int32_t>(
      CopySidePowerOfTwo(std::min(static_cast<uint32_t>(std::max(screenWidth, 0)), srcWidth)));
  const int32_t H = static_cast<int32_t>(
      CopySidePowerOfTwo(std::min(static_cast<uint32_t>(std::max(screenHeight, 0)), srcHeight)));
  int count;
  if (W <= 256 && H <= 128) {
    out[0] = {0, 0, W, H};
    count = 1;
  } else if (W <= 256) {
    out[0] = {0, 0, W, 128};
    out[1] = {0, 128, W, 128};
    count = 2;
  } else if (H <= 128) {
    out[0] = {0, 0, 256, H};
    out[1] = {256, 0, 64, H};
    count = 2;
  } else {
    out[0] = {0, 0, 256, 128};
    out[1] = {0, 112, 256, 128};
    out[2] = {256, 0, 64, 128};
    out[3] = {256, 112, 64, 128};
    count = 4;
  }
  for (int i = 0; i < count; ++i) {
    if (out[i].x + out[i].width > screenWidth) out[i].x = screenWidth - out[i].width;
    if (out[i].y + out[i].height > screenHeight) out[i].y = screenHeight - out[i].height;
  }
  return count;
}

void CopyTexture(GLTexture& source, GLTexture& destination) {
  const Screen* screen = ScreenManager::Get();
  if (!screen) return;
  const uint16_t w = source.GetWidth();
  const uint16_t h = source.GetHeight();
  if (destination.GetWidth() != w || destination.GetHeight() != h) {
    destination.Update(w, h, PixelFormat::kRGB565, nullptr);
  }

  glDisable(GL_ALPHA_TEST);
  glDisable(GL_BLEND);
  glDisable(GL_CULL_FACE);
  glEnable(GL_TEXTURE_2D);
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  source.Bind();
  DrawRenderTargetQuad(w, h);

  const Rectangle& r = screen->GetVirtualRectangle();
  CopyRegion pieces[4];
  const int count =
      GetCopyTexturePieces(WholeExtentInt(r.left, r.right), WholeExtentInt(r.top, r.bottom), w, h, pieces);
  destination.Bind();
  for (int i = 0; i < count; ++i) {
    const CopyRegion& p = pieces[i];
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, p.x, p.y, p.x, p.y, p.width, p.height);
  }
  GLTexture::UnBind();
}

void CaptureScreen(const Screen& screen, const Rectangle& rect, unsigned char* out) {
  const Rectangle& s = screen.GetVirtualRectangle();
  const int32_t x = WholePixel(rect.left).ToInt();
  const int32_t y = WholeExtentInt(s.top, s.bottom) - WholePixel(rect.bottom).ToInt();
  glReadPixels(x, y, WholeExtentInt(rect.left, rect.right), WholeExtentInt(rect.top, rect.bottom), GL_RGBA,
               GL_UNSIGNED_BYTE, out);
}

}  // namespace nox
