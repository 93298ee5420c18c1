#include "sound/SoundManager.h"

#include <set>

#include "core/Settings.h"
#include "sound/MemorySound.h"
#include "sound/SoundGroup.h"
#include "sound/StreamingSound.h"

namespace nox {

SoundManager* SoundManager::sm_pInstance = nullptr;

void SoundManager::Create(uint32_t count, const unsigned long* ids, const unsigned long* slots) {
  if (sm_pInstance) return;
  sm_pInstance = new SoundManager();
  sm_pInstance->Initialise(count, ids, slots);
}

void SoundManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

SoundManager::~SoundManager() {
  StopAll();
  // A rule may sit in several lists (home kSoundRuleAll): delete each once.
  std::set<SoundRule*> rules;
  for (auto& entry : m_Categories)
    rules.insert(entry.second->GetRules().begin(), entry.second->GetRules().end());
  for (SoundRule* rule : rules) delete rule;
  for (auto& entry : m_Categories) delete entry.second;
  m_Categories.clear();
  if (sm_pInstance == this) sm_pInstance = nullptr;
}

void SoundManager::Initialise(uint32_t count, const unsigned long* ids, const unsigned long* slots) {
  for (uint32_t i = 0; i < count; ++i) {
    const uint32_t id = static_cast<uint32_t>(ids[i]);
    SoundCategoryData*& category = m_Categories[id];
    delete category;
    category = new SoundCategoryData(id, static_cast<uint32_t>(slots[i]));
  }
}

SoundCategoryData* SoundManager::GetCategory(uint32_t id) const {
  auto it = m_Categories.find(id);
  return it == m_Categories.end() ? nullptr : it->second;
}

bool SoundManager::Play(Sound* sound, uint32_t categoryId, bool copy) {
  if (!sound || sound->GetVolume() == 0) return false;  // a silent sound takes no slot
  SoundCategoryData* category = GetCategory(categoryId);
  if (!category) return false;
  if (!ExecutePreSlotCheckRules(sound, category)) return false;
  // Equality on purpose: a limit that the count never reaches needs no check.
  if (category->CountActive() == category->GetSlots() && !ExecuteReplacementCheckRules(sound, category)) {
    return false;
  }
  ExecutePrePlayRules(sound, category);
  sound->Stop();
  if (copy) sound = sound->Copy();
  SoundData entry;
  entry.m_pSound = sound;
  entry.m_bOwned = copy;
  category->Add(entry);
  // A sound that fails to start raises its failure event, which takes it out again.
  sound->Play();
  return true;
}

bool SoundManager::PlayFromGroup(const std::string& name, uint32_t category, uint32_t volume) {
  MemorySound* resident = SoundGroup::FindSound(name);
  if (!resident) return false;
  resident->SetVolume(volume);
  return Play(resident, category, true);
}

bool SoundManager::PlayFromGroup(const char* name, uint32_t category, uint32_t volume) {
  return PlayFromGroup(std::string(name ? name : ""), category, volume);
}

bool SoundManager::Applies(const SoundRule* rule, SoundRule::Stage stage, const Sound* sound) {
  return rule->GetStage() == stage &&
         (rule->GetTypeFilter() == kSoundRuleAll || rule->GetTypeFilter() == sound->GetType());
}

bool SoundManager::RunRules(SoundRule::Stage stage, Sound* sound, SoundCategoryData* category) {
  if (!category) return true;
  bool veto = false;
  SoundCategoryData::RuleList& rules = category->GetRules();
  for (auto it = rules.begin(); it != rules.end();) {
    SoundRule* rule = *it++;
    if (!Applies(rule, stage, sound)) continue;
    if (rule->GetTargetCategory() == kSoundRuleAll) {
      for (auto& target : m_Categories) {
        SoundRuleResult result;
        rule->Apply(sound, category, target.second, result);
        veto |= result.veto;
      }
    } else if (SoundCategoryData* target = GetCategory(rule->GetTargetCategory())) {
      SoundRuleResult result;
      rule->Apply(sound, category, target, result);
      veto |= result.veto;
    }
  }
  return !veto;
}

bool SoundManager::ExecutePreSlotCheckRules(Sound* sound, SoundCategoryData* category) {
  return RunRules(SoundRule::PreSlotCheck, sound, category);
}

void SoundManager::ExecutePrePlayRules(Sound* sound, SoundCategoryData* category) {
  RunRules(SoundRule::PrePlay, sound, category);
}

void SoundManager::ExecutePostPlayRules(Sound* sound, SoundCategoryData* category) {
  RunRules(SoundRule::PostPlay, sound, category);
}

bool SoundManager::ExecuteReplacementCheckRules(Sound* sound, SoundCategoryData* category) {
  if (!category) return false;
  // The built-in replacement: the lowest priority number among the sounds not above the
  // new one, and among equals the newest. With every sound at the default 100, a full
  // category gives up its newest sound.
  uint32_t priority = sound->GetPriority();
  Sound* candidate = nullptr;
  for (SoundData& entry : category->GetActive()) {
    if (entry.m_pSound->GetPriority() <= priority) {
      candidate = entry.m_pSound;
      priority = candidate->GetPriority();
    }
  }
  if (candidate) {
    candidate->Stop();  // its stopped event takes it out of the list
    return category->CountActive() < category->GetSlots();
  }
  SoundCategoryData::RuleList& rules = category->GetRules();
  for (auto it = rules.begin(); it != rules.end();) {
    SoundRule* rule = *it++;
    if (!Applies(rule, SoundRule::ReplacementCheck, sound)) continue;
    SoundRuleResult result;
    rule->Apply(sound, category, category, result);
    if (result.stoppedCount != 0 && category->CountActive() < category->GetSlots()) return true;
  }
  return false;
}

void SoundManager::AddRule(SoundRule* rule) {
  if (!rule) return;
  if (rule->GetHomeCategory() == kSoundRuleAll) {
    for (auto& entry : m_Categories) entry.second->GetRules().push_back(rule);
  } else if (SoundCategoryData* home = GetCategory(rule->GetHomeCategory())) {
    home->GetRules().push_back(rule);
  }
}

void SoundManager::RemoveRule(SoundRule* rule) {
  for (auto& entry : m_Categories) entry.second->GetRules().remove(rule);
}

void SoundManager::PlayBackgroundMusic(const std::string& name, bool restart) {
  StreamingSound* music = m_pBackgroundMusic;
  if (!music) return;
  const Settings* settings = Settings::s_pSettings;
  music->SetVolume(settings ? settings->GetU32Value("Background Music Level") : music->GetVolume());
  music->SetIsDucked(false);
  if (restart || name.empty()) music->Stop();
  if (name != music->GetName()) {
    music->Load(name);
    if (!name.empty()) music->Play();
  } else if (!music->IsPlaying()) {
    music->Play();
  }
}

void SoundManager::StopBackgroundMusic() {
  if (m_pBackgroundMusic) m_pBackgroundMusic->Stop();
}

void SoundManager::Stop(uint32_t categoryId) {
  SoundCategoryData* category = GetCategory(categoryId);
  if (!category) return;
  SoundCategoryData::ActiveList& active = category->GetActive();
  while (!active.empty()) {
    Sound* first = active.front().m_pSound;
    first->Stop();
    // A sound that was no longer playing raises nothing; take it out by hand.
    if (!active.empty() && active.front().m_pSound == first) category->Remove(first);
  }
}

void SoundManager::Pause(uint32_t categoryId) {
  SoundCategoryData* category = GetCategory(categoryId);
  if (!category) return;
  for (SoundData& entry : category->GetActive()) entry.m_pSound->Pause();
}

void SoundManager::Resume(uint32_t categoryId) {
  SoundCategoryData* category = GetCategory(categoryId);
  if (!category) return;
  for (SoundData& entry : category->GetActive()) {
    if (entry.m_pSound->IsPaused()) entry.m_pSound->Resume();
  }
}

bool SoundManager::IsPlaying(uint32_t categoryId) {
  SoundCategoryData* category = GetCategory(categoryId);
  if (!category) return false;
  for (SoundData& entry : category->GetActive()) {
    if (entry.m_pSound->IsPlaying()) return true;
  }
  return false;
}

Sound* SoundManager::GetSound(uint32_t categoryId) {
  SoundCategoryData* category = GetCategory(categoryId);
  return category && !category->GetActive().empty() ? category->GetActive().front().m_pSound : nullptr;
}

void SoundManager::StopAll() {
  for (auto& entry : m_Categories) Stop(entry.first);
}

void SoundManager::Update(uint32_t dt) {
  for (auto& entry : m_Categories) {
    SoundCategoryData::ActiveList& active = entry.second->GetActive();
    for (auto it = active.begin(); it != active.end();) {
      Sound* sound = (it++)->m_pSound;
      sound->Update(dt);
    }
  }
  if (m_pBackgroundMusic) m_pBackgroundMusic->Update(dt);
}

}  // namespace nox
