#include "core/StringTable.h"

#include <algorithm>
#include <limits>

#include "core/Debug.h"

namespace noxfw {

bool StringTable::Initialize(std::istream& stream, const char* name) {
  m_Strings.clear();
  std::string word;
  unsigned long skipped = 0;
  long count = 0;
  if (!(stream >> word >> skipped >> count)) {
    nox::AutomationPrintf("StringTable: %s refused: header does not parse", name);
    return false;
  }
  stream.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  if (count <= 0) return true;

  // The count comes from the file: grow with the lines actually present rather than
  // trusting it for one allocation.
  m_Strings.reserve(static_cast<size_t>(std::min(count, 1024L)));
  std::string line;
  for (long i = 0; i < count; ++i) {
    if (!std::getline(stream, line)) {
      nox::AutomationPrintf("StringTable: %s refused: %ld of %ld lines present", name, i, count);
      m_Strings.clear();
      return false;
    }
    line.erase(std::remove_if(line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }),
               line.end());
    m_Strings.push_back(line);
  }
  return true;
}

const std::string& StringTable::GetString(unsigned long index) const {
  static const std::string s_Empty;
  return index < m_Strings.size() ? m_Strings[index] : s_Empty;
}

}  // namespace noxfw
