// Keeps effects in two lists, both sorted by layer, ascending: the owned ones, which
// the engine deletes when they end or when it is destroyed, and the managed ones,
// which stay their creator's. Equal layers keep the order in which they were added.
// Adding and removing allocate or free one list node; a frame that only updates and
// draws allocates nothing.
#pragma once
#include <list>

#include "core/NoCopy.h"

namespace nox {

class Effect;

class EffectsEngine : public NoCopy {
 public:
  EffectsEngine() = default;
  virtual ~EffectsEngine();

  // The engine owns `effect` from here on.
  void AddEffect(Effect* effect);
  // Takes `effect` out without deleting it; one that is not listed is ignored.
  void RemoveEffect(Effect* effect);
  // `effect` stays its caller's.
  void AddEffectManaged(Effect* effect);
  // Takes `effect` out of the managed list; one that is not listed is ignored.
  void RemoveEffectManaged(Effect* effect);
  bool CanRemoveEffectManaged(const Effect* effect) const;
  // Deletes the owned effects and empties both lists.
  void DestroyEffects();

  // Owned effects first, then managed: each updates, and leaves when it has ended.
  void Update(unsigned long ms);
  void Draw();

 private:
  static void Insert(std::list<Effect*>& list, Effect* effect);
  static void UpdateList(std::list<Effect*>& list, unsigned long ms, bool owned);

  std::list<Effect*> m_Owned;    // owned
  std::list<Effect*> m_Managed;  // borrowed
};

}  // namespace nox
