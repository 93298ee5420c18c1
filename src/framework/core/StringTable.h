// The strings of a level, by index. Filled from the "StringTable" element of a level
// file: a word and an unsigned number (both skipped), a count, the rest of that line
// dropped, then `count` lines, each stored without any carriage return or line feed.
// A count of 0 or less leaves the table empty. A table that ends before `count`
// lines, or whose first line does not parse, is refused: the table is left empty and
// one automation line names it.
#pragma once
#include <istream>
#include <string>
#include <vector>

namespace noxfw {

class StringTable {
 public:
  // `name` only labels the automation line of a refused table.
  bool Initialize(std::istream& stream, const char* name = "StringTable");

  // Entry `index`; an index past the end gives an empty string.
  const std::string& GetString(unsigned long index) const;
  unsigned long GetCount() const { return static_cast<unsigned long>(m_Strings.size()); }
  void Clear() { m_Strings.clear(); }

 private:
  std::vector<std::string> m_Strings;
};

}  // namespace noxfw
