// The agent styles of the running game, by name hash: named lists of attributes that
// many agents of a level share. Tables are static data and stay owned by whoever
// defines them; a later row with the same hash replaces an earlier one.
#pragma once
#include <map>

#include "agents/AttributeList.h"
#include "core/NoCopy.h"

namespace noxfw {

class StyleManager : public nox::NoCopy {
 public:
  static void Create();
  static void Destroy();
  static StyleManager* Get() { return sm_pInstance; }
  // The style of the running instance; null when there is none or for a hash of 0.
  static const nox::AgentStyle* Find(nox::NameHash name);

  void Load(const nox::AgentStyle* table, unsigned long count);
  // Null for 0 and for a hash that no loaded table holds.
  const nox::AgentStyle* GetStyle(nox::NameHash name) const;
  unsigned long GetStyleCount() const { return static_cast<unsigned long>(m_Styles.size()); }

 private:
  StyleManager() = default;
  ~StyleManager() = default;

  static StyleManager* sm_pInstance;
  std::map<nox::NameHash, const nox::AgentStyle*> m_Styles;  // rows borrowed from static tables
};

}  // namespace noxfw
