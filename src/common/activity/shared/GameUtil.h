// Small static services around letters and spoken numbers for activities that build
// words or read numbers out: the animation sequence of a letter or letter group, the
// narrator's clip for a letter or a number, a duration read aloud as a script, and
// the check that keeps a random combination of letters from spelling something rude.
//
// The letter voices are a seam: this title has none and answers with an empty name
// for what a later title would voice, and with the alert effect for anything else.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "core/HashString.h"

namespace noxfw {
class Sequencer;
}

namespace game {

class GameUtil {
 public:
  static const char* const kAlertSound;  // "L_OSTM_AlertSfx_6"

  // The sequence of a letter ("A_Upper", "a_Lower" as "A_Lower") or of a digraph or
  // blend in either case ("SH_Digraph", "ST_Blend"); with `highlight` the name ends
  // in "H". Anything else gives "A_Lower".
  static nox::NameHash CharToSeq(const std::string& text, bool highlight);
  // Empty for one Latin letter, the alert effect otherwise.
  static std::string CharToSoundStringNa(const std::string& text);
  // Empty for a small-letter digraph, blend or vowel team ("th", "sn", "aw"), the
  // alert effect otherwise.
  static std::string LettersToSoundStringNa(const std::string& text);
  // "CANM" (middle of a sentence) or "CANE" (`end`) and n in three digits, for 0 to
  // 100 and the hundreds 200 to 900; the alert effect for any other n.
  static std::string NumberToSoundStringNa(int n, bool end);
  // The clips that say a duration: minutes, "minute(s)", seconds, "second(s)".
  static std::vector<std::string> ReadTimeNa(uint32_t ms);
  // Appends ReadTimeNa(ms) to `sequencer`, one streaming sound after the other in
  // category 10.
  static void SeqReadTimeNa(uint32_t ms, noxfw::Sequencer& sequencer);
  // True for a banned three-letter word written all small or all capital; a mixed
  // spelling or a longer text is not matched.
  static bool IsBadWord(const std::string& text);
};

}  // namespace game
