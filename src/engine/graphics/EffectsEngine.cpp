#include "graphics/EffectsEngine.h"

#include <algorithm>

#include "graphics/Effect.h"

namespace nox {

EffectsEngine::~EffectsEngine() {
  DestroyEffects();
}

void EffectsEngine::Insert(std::list<Effect*>& list, Effect* effect) {
  auto it = std::find_if(list.begin(), list.end(),
                         [effect](const Effect* e) { return e->GetLayer() > effect->GetLayer(); });
  list.insert(it, effect);
}

void EffectsEngine::AddEffect(Effect* effect) {
  Insert(m_Owned, effect);
}

void EffectsEngine::AddEffectManaged(Effect* effect) {
  Insert(m_Managed, effect);
}

void EffectsEngine::RemoveEffect(Effect* effect) {
  auto it = std::find(m_Owned.begin(), m_Owned.end(), effect);
  if (it != m_Owned.end()) m_Owned.erase(it);
}

void EffectsEngine::RemoveEffectManaged(Effect* effect) {
  auto it = std::find(m_Managed.begin(), m_Managed.end(), effect);
  if (it != m_Managed.end()) m_Managed.erase(it);
}

bool EffectsEngine::CanRemoveEffectManaged(const Effect* effect) const {
  return std::find(m_Managed.begin(), m_Managed.end(), effect) != m_Managed.end();
}

void EffectsEngine::DestroyEffects() {
  for (Effect* effect : m_Owned) delete effect;
  m_Owned.clear();
  m_Managed.clear();
}

void EffectsEngine::UpdateList(std::list<Effect*>& list, unsigned long ms, bool owned) {
  for (auto it = list.begin(); it != list.end();) {
    Effect* effect = *it;
    effect->Update(ms);
    if (!effect->IsDone()) {
      ++it;
      continue;
    }
    it = list.erase(it);
    if (owned) delete effect;
  }
}

void EffectsEngine::Update(unsigned long ms) {
  UpdateList(m_Owned, ms, true);
  UpdateList(m_Managed, ms, false);
}

void EffectsEngine::Draw() {
  for (Effect* effect : m_Owned) effect->Draw(*this, 0);
  for (Effect* effect : m_Managed) effect->Draw(*this, 0);
}

}  // namespace nox
