// One numbered category of the sound manager: how many sounds may play in it at once,
// which play now (oldest first), and its rule list. The category listens to each of its
// sounds; their stopped, failed and finished events run the post-play rules and take the
// sound out of the active list (deleting it if the category owns it).
#pragma once
#include <cstdint>
#include <list>

#include "core/EventListener.h"
#include "sound/SoundRule.h"

namespace nox {

class Sound;

class SoundCategoryData final : public EventListener<Sound> {
 public:
  typedef std::list<SoundData> ActiveList;
  typedef std::list<SoundRule*> RuleList;

  SoundCategoryData(uint32_t id, uint32_t slots) : m_Id(id), m_Slots(slots) {}
  ~SoundCategoryData();

  void OnEventOccurred(Sound* sound, const EventData* data) override;
  // Listens to the sound, then appends the pair.
  void Add(const SoundData& soundData);
  // If the sound is active: stops listening to it, deletes it if owned, drops the pair.
  void Remove(Sound* sound);
  SoundData* FindSound(Sound* sound);

  uint32_t GetId() const { return m_Id; }
  uint32_t GetSlots() const { return m_Slots; }
  uint32_t CountActive() const { return static_cast<uint32_t>(m_Active.size()); }
  ActiveList& GetActive() { return m_Active; }
  RuleList& GetRules() { return m_Rules; }

 private:
  uint32_t m_Id;
  uint32_t m_Slots;  // sounds that may be active at once
  ActiveList m_Active;
  RuleList m_Rules;  // borrowed, in the order of AddRule
};

}  // namespace nox
