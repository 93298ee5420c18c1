// A player's own spelling list ("create your own"), made by a parent or teacher: the
// text file "wordlist.txt" in the player's directory, one word a line with the name
// of its voice clip and whether the child has mastered it (format in the README,
// "Word lists"). The list is read once at construction; SetStatus changes one word's
// status and rewrites the file atomically, keeping its comments and settings.
#pragma once
#include <string>
#include <vector>
#include "ostra/PlatformTypes.h"

namespace Vantle {

class CCyo {
 public:
  static constexpr U32 kStatusOpen = 0;
  static constexpr U32 kStatusMastered = 1;
  static constexpr U32 kDefaultCompletion = 3;  // correct spellings that master a word
  static constexpr U32 kMaxCompletion = 100;
  static constexpr U32 kMaxWords = 500;       // later word lines are ignored
  static constexpr U32 kMaxWordBytes = 64;    // longer words are ignored
  static constexpr U32 kMaxAudioBytes = 128;  // longer audio names are ignored

  // The list of the current player.
  CCyo();
  explicit CCyo(U32 playerId);

  // True when the file was there and read; it may still hold no words.
  bool IsLoaded() const { return m_bLoaded; }
  // How many correct spellings master a word ("Completion=", 1..100).
  U32 GetCompletionParameters() const { return m_Completion; }
  U32 size() const { return static_cast<U32>(m_Words.size()); }
  // Word, voice clip name and status of entry `i`; empty or open past the end.
  std::string GetValue(U32 i) const;
  std::string GetAudio(U32 i) const;
  U32 GetStatus(U32 i) const;
  // Stores the status (0 open, 1 mastered) of entry `i` and, with `save`, rewrites the
  // file. False for a bad index or status, or when the file could not be replaced
  // (the new status is then kept in memory only).
  bool SetStatus(U32 i, U32 status, bool save = true);
  // The list's own number ("ListId="), 0 when it has none.
  U32 GetID() const { return m_Id; }
  const std::string& GetPath() const { return m_Path; }

  // The file of `playerId`'s list.
  static std::string PathFor(U32 playerId);

 private:
  struct Word {
    std::string value;
    std::string audio;
    U32 status = kStatusOpen;
    size_t line = 0;  // index into m_Lines
  };

  void Load();
  bool Save() const;

  std::string m_Path;
  bool m_bLoaded = false;
  U32 m_Completion = kDefaultCompletion;
  U32 m_Id = 0;
  std::vector<Word> m_Words;
  std::vector<std::string> m_Lines;  // the file as read, without line ends
};

}  // namespace Vantle
