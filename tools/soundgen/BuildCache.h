// Remembers, for every sound file soundgen wrote, a key over everything the file was made
// from (the manifest entry, its speaker, the format and the generator itself). A file
// whose key is unchanged and which still exists is not made again; a file that was
// made before but is no longer wanted is removed, so that taking a line out of a
// manifest takes its sound out of the title.
//
// The cache is a text file of "key path" lines, kept in the build tree, outside the
// title directory.
#pragma once
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace soundgen {

class BuildCache {
 public:
  // A missing or unreadable file is an empty cache.
  void Load(const std::string& path);
  bool Save() const;

  bool UpToDate(const std::string& output, uint64_t key) const;
  void Record(const std::string& output, uint64_t key) { m_Keys[output] = key; }
  void Forget(const std::string& output) { m_Keys.erase(output); }
  // Outputs recorded here that are not in `wanted`.
  std::vector<std::string> Unwanted(const std::set<std::string>& wanted) const;

 private:
  std::string m_Path;
  std::map<std::string, uint64_t> m_Keys;
};

// FNV-1a, 64 bits.
uint64_t Fnv64(const std::string& text, uint64_t hash = 14695981039346656037ull);

}  // namespace soundgen
