// Attributes of agents as they come from a level file or a style table: pairs of an
// action code and a value, applied in order through Agent::HandleAction. Neither
// AttributeList nor AgentStyle owns its pairs: they point into arrays held by an
// arena or into static tables.
#pragma once
#include <cstdint>

#include "core/HashString.h"

namespace nox {

class Agent;

struct KeyValuePair {
  NameHash m_Key;   // action code
  int32_t m_Value;  // whole numbers, or a hash stored in the same 32 bits
};

struct AttributeList {
  const KeyValuePair* m_pPairs = nullptr;  // borrowed
  uint32_t m_Count = 0;

  AttributeList() = default;
  AttributeList(const KeyValuePair* pairs, uint32_t count) : m_pPairs(pairs), m_Count(count) {}

  // HandleAction for each pair, in order.
  void Apply(Agent* agent) const;
  // The first pair with this key, or null.
  const KeyValuePair* FindAttribute(NameHash key) const;
};

// A named list of attributes shared by many agents. The table form carries the
// printed name as well; the hash, not the text, is what levels look up.
struct AgentStyle {
  const KeyValuePair* m_pPairs;  // borrowed, static
  uint32_t m_Count;
  NameHash m_Name;
  char m_NameText[32];  // zero padded

  void Apply(Agent* agent) const { AttributeList(m_pPairs, m_Count).Apply(agent); }
  const KeyValuePair* FindAttribute(NameHash key) const {
    return AttributeList(m_pPairs, m_Count).FindAttribute(key);
  }
};

}  // namespace nox
