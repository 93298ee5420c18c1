#include "graphics/AnimationEngine.h"

#include "graphics/Animation.h"
#include "graphics/GLTexture.h"

namespace nox {

bool AnimationComparer::operator()(const Animation* a, const Animation* b) const {
  return a->GetRawPosition().z > b->GetRawPosition().z;
}

void AnimationEngine::Sort() {
  // std::list::sort is a stable merge sort and allocates nothing.
  m_Animations.sort(AnimationComparer());
}

void AnimationEngine::AddAnimation(Animation* animation) {
  const int32_t whole = animation->GetRawPosition().z.ToInt();
  auto it = m_Animations.begin();
  while (it != m_Animations.end() && (*it)->GetRawPosition().z.Raw() <= whole) ++it;
  m_Animations.insert(it, animation);
}

void AnimationEngine::RemoveAnimation(Animation* animation) {
  for (auto it = m_Animations.begin(); it != m_Animations.end(); ++it) {
    if (*it == animation) {
      m_Animations.erase(it);
      return;
    }
  }
}

bool AnimationEngine::HasAnimation(const Animation* animation) const {
  for (const Animation* a : m_Animations) {
    if (a == animation) return true;
  }
  return false;
}

void AnimationEngine::Update(unsigned long ms) {
  Sort();
  for (Animation* animation : m_Animations) animation->Update(ms);
}

void AnimationEngine::Draw() {
  BeginDraw(m_bDepthTest, m_bAlphaTest);
  for (Animation* animation : m_Animations) {
    if (!animation->GetVisible()) continue;
    if (animation->IsOnScreen(m_ViewRect)) {
      animation->DrawBuffered(m_Buffer);
    } else {
      animation->UnloadOffscreenResources();
    }
  }
  m_Buffer.Flush();
  GLTexture::UnBind();
  EndDraw();
}

Animation* AnimationEngine::FindAnimation(const Vector2& point, bool useBounds) {
  Sort();
  for (Animation* animation : m_Animations) {
    if (useBounds ? animation->HitTestBounds(point) : animation->HitTest(point)) return animation;
  }
  return nullptr;
}

}  // namespace nox
