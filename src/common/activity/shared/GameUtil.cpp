#include "activity/shared/GameUtil.h"

#include <cctype>
#include <cstdio>

#include "sequencer/Sequencer.h"
#include "sequencer/SoundSeqItems.h"

namespace game {
namespace {

const char* const kDigraphs[] = {"SH", "CH", "WH", "TH", "AI", "EA", "EE", "OA"};
const char* const kBlends[] = {"SN", "PL", "CL", "FL", "SL", "GL", "TW", "TR", "GR", "CR", "DR",
                               "ST", "SP", "SK", "SW", "LD", "NK", "NT", "MP", "NG", "ND"};
// Vowel teams the letter voices would cover besides the digraphs.
const char* const kVowelTeams[] = {"aw", "au", "ay", "oo", "ou", "ow", "oi", "oy", "ie", "ue", "ew"};

// From the curriculum team's list of combinations never to show; the upper case form
// of each is banned too.
const char* const kBadWords[] = {"ass", "azz", "bum", "coc", "cok", "cum", "dic", "dik", "fag",
                                 "fap", "fck", "fuc", "fuk", "fux", "hoe", "hor", "jap", "jiz",
                                 "kkk", "kok", "kum", "nig", "nip", "pee", "pms", "poo", "pus",
                                 "sex", "sob", "std", "tit", "vag", "wop", "wtf", "xxx"};
static_assert(sizeof kBadWords / sizeof kBadWords[0] == 35, "35 words, each in two cases");

bool IsLatinLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string Upper(const std::string& text) {
  std::string out = text;
  for (char& c : out) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return out;
}

std::string Lower(const std::string& text) {
  std::string out = text;
  for (char& c : out) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return out;
}

template <size_t N>
bool InTable(const char* const (&table)[N], const std::string& text) {
  for (const char* entry : table) {
    if (text == entry) return true;
  }
  return false;
}

}  // namespace

const char* const GameUtil::kAlertSound = "L_OSTM_AlertSfx_6";

nox::NameHash GameUtil::CharToSeq(const std::string& text, bool highlight) {
  std::string name;
  if (text.size() == 1 && IsLatinLetter(text[0])) {
    name = Upper(text) + (text[0] >= 'a' ? "_Lower" : "_Upper");
  } else if (text.size() == 2 && InTable(kDigraphs, Upper(text))) {
    name = Upper(text) + "_Digraph";
  } else if (text.size() == 2 && InTable(kBlends, Upper(text))) {
    name = Upper(text) + "_Blend";
  } else {
    return nox::HashString("A_Lower");
  }
  if (highlight) name += "H";
  return nox::HashString(name);
}

std::string GameUtil::CharToSoundStringNa(const std::string& text) {
  return text.size() == 1 && IsLatinLetter(text[0]) ? std::string() : kAlertSound;
}

std::string GameUtil::LettersToSoundStringNa(const std::string& text) {
  bool small = text == Lower(text);
  bool known = InTable(kDigraphs, Upper(text)) || InTable(kBlends, Upper(text)) || InTable(kVowelTeams, text);
  return small && known ? std::string() : kAlertSound;
}

std::string GameUtil::NumberToSoundStringNa(int n, bool end) {
  bool recorded = (n >= 0 && n <= 100) || (n >= 200 && n <= 900 && n % 100 == 0);
  if (!recorded) return kAlertSound;
  char name[16];
  snprintf(name, sizeof name, "%s%03d", end ? "CANE" : "CANM", n);
  return name;
}

std::vector<std::string> GameUtil::ReadTimeNa(uint32_t ms) {
  std::vector<std::string> clips;
  uint32_t minutes = ms / 60000;
  uint32_t seconds = ms / 1000 - minutes * 60;
  if (minutes > 0) {
    clips.push_back(NumberToSoundStringNa(static_cast<int>(minutes), seconds < 1));
    if (seconds == 0) {
      clips.push_back(minutes == 1 ? "KDNAVS0103b" : "KDNAVS0104b");
    } else {
      clips.push_back(minutes == 1 ? "KDNAVS0103" : "KDNAVS0104");
    }
  }
  if (seconds > 0) {
    clips.push_back(NumberToSoundStringNa(static_cast<int>(seconds), true));
    clips.push_back(seconds == 1 ? "KDNAVS0105" : "KDNAVS0106");
  }
  return clips;
}

void GameUtil::SeqReadTimeNa(uint32_t ms, noxfw::Sequencer& sequencer) {
  for (const std::string& clip : ReadTimeNa(ms)) {
    sequencer.AppendItem(new noxfw::PlayStreamingSoundSeqItem(clip.c_str(), 10));
  }
}

bool GameUtil::IsBadWord(const std::string& text) {
  if (text.size() != 3) return false;
  for (const char* word : kBadWords) {
    if (text == word || text == Upper(word)) return true;
  }
  return false;
}

}  // namespace game
