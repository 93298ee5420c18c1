// A short-lived thing drawn on screen without being a sprite, kept and updated by an
// EffectsEngine. The engine asks each effect after its Update whether it has ended,
// and then takes it out (deleting it too when it owns it).
#pragma once
#include <cstdint>

#include "core/NoCopy.h"

namespace nox {

class EffectsEngine;

class Effect : public NoCopy {
 public:
  virtual ~Effect() {}
  virtual void Update(unsigned long ms) = 0;
  // True once the effect has ended.
  virtual bool IsDone() const = 0;
  // `engine` is the engine drawing it; `flags` is 0 from EffectsEngine::Draw.
  virtual void Draw(EffectsEngine& engine, unsigned long flags) = 0;

  int32_t GetLayer() const { return m_Layer; }
  void SetLayer(int32_t layer) { m_Layer = layer; }

 protected:
  int32_t m_Layer = 0;  // sort key: lower layers update and draw first
};

}  // namespace nox
