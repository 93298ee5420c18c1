#include "system/MetaInfoParser.h"

#include <cctype>

namespace Hollin {
namespace Ostra {
namespace MetaInfoParser {
namespace {

std::string Trim(const std::string& s) {
  size_t begin = 0;
  size_t end = s.size();
  while (begin < end && isspace(static_cast<unsigned char>(s[begin]))) ++begin;
  while (end > begin && isspace(static_cast<unsigned char>(s[end - 1]))) --end;
  return s.substr(begin, end - begin);
}

bool IsDecimalU32(const std::string& s) {
  if (s.empty() || s.size() > 10) return false;
  unsigned long long v = 0;
  for (char c : s) {
    if (c < '0' || c > '9') return false;
    v = v * 10 + static_cast<unsigned>(c - '0');
  }
  return v <= 0xFFFFFFFFull;
}

}  // namespace

Result Parse(const std::string& text) {
  Result result;
  size_t pos = 0;
  // A byte order mark from a Windows editor is not part of the first key.
  if (text.compare(0, 3, "\xEF\xBB\xBF") == 0) pos = 3;
  int lineNumber = 0;
  while (pos < text.size()) {
    size_t end = text.find('\n', pos);
    if (end == std::string::npos) end = text.size();
    std::string line = Trim(text.substr(pos, end - pos));
    pos = end + 1;
    ++lineNumber;
    if (line.empty() || line[0] == '#') continue;
    std::string where = "line " + std::to_string(lineNumber) + ": ";
    if (line.find('\0') != std::string::npos) {
      result.problems.push_back(where + "contains a NUL byte");
      continue;
    }
    size_t eq = line.find('=');
    if (eq == std::string::npos) {
      result.problems.push_back(where + "no '=' in \"" + line + "\"");
      continue;
    }
    std::string key = Trim(line.substr(0, eq));
    std::string value = Trim(line.substr(eq + 1));
    if (key.empty()) {
      result.problems.push_back(where + "empty key");
      continue;
    }
    if (key == "ProductId" && !IsDecimalU32(value)) {
      result.problems.push_back(where + "ProductId is not a number: \"" + value + "\"");
      continue;
    }
    result.values[key] = value;
  }
  return result;
}

}  // namespace MetaInfoParser
}  // namespace Ostra
}  // namespace Hollin
