#include "platform/RenderTarget_pf.h"

#include <GLES/gl.h>

#include <algorithm>

#include "graphics/GLTexture.h"
#include "graphics/GLUtils.h"
#include "graphics/RenderTarget.h"

namespace nox {

namespace {

bool IsEmpty(const Rectangle& r) {
  return r.right <= r.left || r.bottom <= r.top;
}

}  // namespace

void RenderTarget_pf::Bind(GLTexture* texture, bool useDepth) {
  m_pTarget = texture;
  m_DirtyRect = Rectangle();
  if (useDepth) {
    glEnable(GL_DEPTH_TEST);
  } else {
    glDisable(GL_DEPTH_TEST);
  }
  glDisable(GL_ALPHA_TEST);
  glDisable(GL_BLEND);
  glDisable(GL_CULL_FACE);
  glDisable(GL_DITHER);
  glEnable(GL_TEXTURE_2D);
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  if (texture) {
    texture->Bind();
    DrawRenderTargetQuad(texture->GetWidth(), texture->GetHeight());
  }
  glDisable(GL_TEXTURE_2D);
  glEnable(GL_DITHER);
}

void RenderTarget_pf::Invalidate(const Rectangle& rect) {
  Rectangle& d = m_DirtyRect;
  if (IsEmpty(d)) {
    d = rect;
  } else {
    d.left = std::min(d.left, rect.left);
    d.top = std::min(d.top, rect.top);
    d.right = std::max(d.right, rect.right);
    d.bottom = std::max(d.bottom, rect.bottom);
  }
  d.left = std::max(d.left, Real(0));
  d.top = std::max(d.top, Real(0));
  d.right = std::min(d.right, Real(kScreenWidth));
  d.bottom = std::min(d.bottom, Real(kScreenHeight));
}

void RenderTarget_pf::UnBind() {
  if (m_pTarget && !IsEmpty(m_DirtyRect)) {
    CopyRegion pieces[4];
    const int count = RenderTarget::GetCopyPieces(m_DirtyRect, pieces);
    m_pTarget->Bind();
    for (int i = 0; i < count; ++i) {
      const CopyRegion& p = pieces[i];
      // The offset in the texture equals the place on the screen.
      glCopyTexSubImage2D(GL_TEXTURE_2D, 0, p.x, p.y, p.x, p.y, p.width, p.height);
    }
    GLTexture::UnBind();
  }
  m_pTarget = nullptr;
}

}  // namespace nox
