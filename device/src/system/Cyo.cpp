// Vantle::CCyo over "wordlist.txt" in the player's directory. The file is kept as its
// lines so that a rewrite changes only the status field of one word line and leaves
// the adult's comments, settings and word order as they were. Lines that are not
// understood are named on the debug output and skipped, like meta.inf's.
#include "ostra/Cyo.h"

#include <sys/stat.h>

#include <cstdio>

#include "ostra/AtomicFile.h"
#include "ostra/DebugOut.h"
#include "ostra/HostConfig.h"
#include "ostra/System.h"

namespace Vantle {
namespace {

const size_t kMaxFileBytes = 64 * 1024;

void Report(const std::string& path, const std::string& what) {
  std::string line = "wordlist: " + path + ": " + what + "\n";
  PlatformDebugOutput(line.c_str());
}

bool IsBlank(char c) {
  return c == ' ' || c == '\r' || c == '\v' || c == '\f';
}

// Spaces only: a TAB separates fields and is never part of one.
std::string Trim(const std::string& s) {
  size_t begin = 0;
  size_t end = s.size();
  while (begin < end && IsBlank(s[begin])) ++begin;
  while (end > begin && IsBlank(s[end - 1])) --end;
  return s.substr(begin, end - begin);
}

bool ParseU32(const std::string& s, U32& out) {
  if (s.empty() || s.size() > 10) return false;
  unsigned long long v = 0;
  for (char c : s) {
    if (c < '0' || c > '9') return false;
    v = v * 10 + static_cast<unsigned>(c - '0');
  }
  if (v > 0xFFFFFFFFull) return false;
  out = static_cast<U32>(v);
  return true;
}

std::vector<std::string> SplitTabs(const std::string& line) {
  std::vector<std::string> fields;
  size_t pos = 0;
  for (;;) {
    size_t tab = line.find('\t', pos);
    fields.push_back(Trim(line.substr(pos, tab == std::string::npos ? std::string::npos : tab - pos)));
    if (tab == std::string::npos) return fields;
    pos = tab + 1;
  }
}

// The whole file, or false when it is missing, too big or unreadable.
bool ReadSmallFile(const std::string& path, std::string& out) {
  struct stat st;
  if (stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
  if (static_cast<unsigned long long>(st.st_size) > kMaxFileBytes) {
    Report(path, "larger than " + std::to_string(kMaxFileBytes) + " bytes, not read");
    return false;
  }
  FILE* file = fopen(path.c_str(), "rb");
  if (!file) {
    Report(path, "cannot be read");
    return false;
  }
  out.resize(kMaxFileBytes + 1);
  size_t n = fread(&out[0], 1, out.size(), file);
  fclose(file);
  out.resize(n);
  if (n > kMaxFileBytes) {
    Report(path, "grew while being read, not read");
    return false;
  }
  return true;
}

}  // namespace

CCyo::CCyo() : CCyo(CSystem::GetCurrentPlayerID()) {}

CCyo::CCyo(U32 playerId) : m_Path(PathFor(playerId)) {
  Load();
}

std::string CCyo::PathFor(U32 playerId) {
  return Hollin::Ostra::Host::PlayerDirectory(playerId) + "/wordlist.txt";
}

void CCyo::Load() {
  std::string text;
  if (!ReadSmallFile(m_Path, text)) return;
  m_bLoaded = true;
  size_t pos = text.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
  bool tooMany = false;
  while (pos < text.size()) {
    size_t end = text.find('\n', pos);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(pos, end - pos);
    pos = end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    m_Lines.push_back(line);

    std::vector<std::string> fields = SplitTabs(line);
    bool blank = line.find_first_not_of(" \t\r\v\f") == std::string::npos;
    if (blank || (!fields[0].empty() && fields[0][0] == '#')) continue;
    std::string where = "line " + std::to_string(m_Lines.size()) + ": ";
    if (line.find('\0') != std::string::npos) {
      Report(m_Path, where + "contains a NUL byte, ignored");
      continue;
    }
    if (fields[0].find('=') != std::string::npos) {
      std::string setting = Trim(line);
      size_t eq = setting.find('=');
      std::string key = Trim(setting.substr(0, eq));
      std::string value = Trim(setting.substr(eq + 1));
      U32 number = 0;
      if (key == "ListId" && ParseU32(value, number)) {
        m_Id = number;
      } else if (key == "Completion" && ParseU32(value, number) && number >= 1 && number <= kMaxCompletion) {
        m_Completion = number;
      } else {
        Report(m_Path, where + "not a known setting with a good value, ignored");
      }
      continue;
    }
    Word word;
    word.value = fields[0];
    word.audio = fields.size() > 1 ? fields[1] : std::string();
    word.line = m_Lines.size() - 1;
    if (word.value.empty()) {
      Report(m_Path, where + "no word before the TAB, ignored");
    } else if (fields.size() > 3) {
      Report(m_Path, where + "more than three fields, ignored");
    } else if (word.value.size() > kMaxWordBytes || word.audio.size() > kMaxAudioBytes) {
      Report(m_Path, where + "word or audio name too long, ignored");
    } else if (word.audio.find('/') != std::string::npos) {
      Report(m_Path, where + "an audio name is a name, not a path, ignored");
    } else if (fields.size() == 3 && !fields[2].empty() && fields[2] != "0" && fields[2] != "1") {
      Report(m_Path, where + "status is not 0 or 1, ignored");
    } else if (m_Words.size() >= kMaxWords) {
      if (!tooMany)
        Report(m_Path, where + "more than " + std::to_string(kMaxWords) + " words, the rest ignored");
      tooMany = true;
    } else {
      word.status = fields.size() == 3 && fields[2] == "1" ? kStatusMastered : kStatusOpen;
      m_Words.push_back(word);
    }
  }
}

std::string CCyo::GetValue(U32 i) const {
  return i < m_Words.size() ? m_Words[i].value : std::string();
}

std::string CCyo::GetAudio(U32 i) const {
  return i < m_Words.size() ? m_Words[i].audio : std::string();
}

U32 CCyo::GetStatus(U32 i) const {
  return i < m_Words.size() ? m_Words[i].status : kStatusOpen;
}

bool CCyo::SetStatus(U32 i, U32 status, bool save) {
  if (i >= m_Words.size() || status > kStatusMastered) return false;
  Word& word = m_Words[i];
  word.status = status;
  m_Lines[word.line] = word.value + "\t" + word.audio + "\t" + std::to_string(status);
  return !save || Save();
}

bool CCyo::Save() const {
  std::string text;
  for (const std::string& line : m_Lines) text += line + "\n";
  FILE* file = fopenAtomic(m_Path.c_str(), "wb");
  if (!file) return false;
  if (fwrite(text.data(), 1, text.size(), file) != text.size()) {
    fabortAtomic(file);
    return false;
  }
  return fcloseAtomic(file) == 0;
}

}  // namespace Vantle
