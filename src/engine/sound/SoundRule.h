// A small policy object that the sound manager runs at one stage of every play request:
// who gives way when a category is full, who gets quieter while the narrator talks. A
// rule lives in the rule list of its home category (or of every category) and names the
// category it acts on; whoever adds a rule owns it, but rules still listed when the
// manager dies are deleted by the manager.
#pragma once
#include <cstdint>

namespace nox {

class Sound;
class SoundCategoryData;

// A category id, sound type or target meaning "any" or "each".
const uint32_t kSoundRuleAll = 0xFFFFFFFFu;

// What a rule did; zeroed by the manager before each Apply.
struct SoundRuleResult {
  uint32_t unused = 0;
  uint32_t stoppedCount = 0;  // sounds the rule stopped
  bool veto = false;          // the request must not go on
};

// One entry of a category's active list.
struct SoundData {
  Sound* m_pSound = nullptr;
  bool m_bOwned = false;  // the category deletes the sound when it ends
};

class SoundRule {
 public:
  enum Stage : uint32_t { PreSlotCheck = 0, ReplacementCheck = 1, PrePlay = 2, PostPlay = 3 };

  SoundRule(uint32_t typeFilter, uint32_t homeCategory, uint32_t targetCategory, Stage stage)
      : m_TypeFilter(typeFilter),
        m_HomeCategory(homeCategory),
        m_TargetCategory(targetCategory),
        m_Stage(stage) {}
  virtual ~SoundRule() {}

  // `sound` is the sound asking to play; the return value is read by nobody.
  virtual uint32_t Apply(Sound* sound, SoundCategoryData* homeCategory, SoundCategoryData* targetCategory,
                         SoundRuleResult& result) = 0;

  uint32_t GetTypeFilter() const { return m_TypeFilter; }
  uint32_t GetHomeCategory() const { return m_HomeCategory; }
  uint32_t GetTargetCategory() const { return m_TargetCategory; }
  Stage GetStage() const { return m_Stage; }

 protected:
  uint32_t m_TypeFilter;      // a sound type, or kSoundRuleAll for any sound
  uint32_t m_HomeCategory;    // whose rule list holds the rule; kSoundRuleAll: every list
  uint32_t m_TargetCategory;  // handed to Apply; kSoundRuleAll: each category in turn
  Stage m_Stage;
};

}  // namespace nox
