// Device half of noxfw::CYO: the platform's word list for the current player, read
// once at construction, and the few facts about it that CYO needs.
#pragma once
#include <cstdint>
#include <string>

#include "ostra/Cyo.h"

namespace noxfw {

class CYO_pf {
 protected:
  CYO_pf();

  std::string GetPlatformWord(uint32_t i) const { return m_Cyo.GetValue(i); }
  std::string GetPlatformAudio(uint32_t i) const { return m_Cyo.GetAudio(i); }
  uint32_t GetPlatformStatus(uint32_t i) const { return m_Cyo.GetStatus(i); }
  // Tells the platform that word `i` is mastered; it keeps that in the list's file.
  bool SetPlatformStatus(uint32_t i, uint32_t status) { return m_Cyo.SetStatus(i, status, true); }
  uint32_t GetPlatformID() const { return m_Cyo.GetID(); }

  Vantle::CCyo m_Cyo;
  uint32_t m_CompletionParam;  // correct spellings that master a word
  bool m_bLoaded;              // the list's file was there and read
  uint32_t m_Size;             // words in the list
};

}  // namespace noxfw
