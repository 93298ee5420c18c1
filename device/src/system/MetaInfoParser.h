// The parser behind Vantle::CMetaInfo. A meta.inf is UTF-8 text of "Key=Value" lines;
// blank lines and lines starting with '#' are skipped, spaces around keys and values are
// trimmed, and a later key replaces an earlier one. A line without '=' or with an empty
// key is reported and ignored, as is a ProductId that is not a decimal number.
#pragma once
#include <map>
#include <string>
#include <vector>

namespace Hollin {
namespace Ostra {
namespace MetaInfoParser {

const size_t kMaxFileBytes = 64 * 1024;  // larger files are not meta information

struct Result {
  std::map<std::string, std::string> values;
  std::vector<std::string> problems;  // "line N: reason", one per ignored line
};

Result Parse(const std::string& text);

}  // namespace MetaInfoParser
}  // namespace Ostra
}  // namespace Hollin
