#include "core/StringUtils.h"

namespace nox {

std::vector<std::string> Tokenize(std::string s, std::string delimiter) {
  std::vector<std::string> tokens;
  if (delimiter.empty()) {
    // Would otherwise cut empty tokens forever.
    tokens.push_back(s);
    return tokens;
  }
  std::string::size_type pos;
  while ((pos = s.find(delimiter)) != std::string::npos) {
    tokens.push_back(s.substr(0, pos));
    s.erase(0, pos + 1);
  }
  tokens.push_back(s);
  return tokens;
}

std::string AppendSuffix(const std::string& name) {
  return name + ".wav";
}

}  // namespace nox
