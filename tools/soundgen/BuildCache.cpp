#include "BuildCache.h"

#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <sstream>

namespace soundgen {

uint64_t Fnv64(const std::string& text, uint64_t hash) {
  for (unsigned char c : text) hash = (hash ^ c) * 1099511628211ull;
  return hash;
}

void BuildCache::Load(const std::string& path) {
  m_Path = path;
  m_Keys.clear();
  std::ifstream in(path);
  std::string line;
  while (std::getline(in, line)) {
    const size_t space = line.find(' ');
    if (space == std::string::npos || space == 0) continue;
    char* end = nullptr;
    const uint64_t key = strtoull(line.c_str(), &end, 16);
    if (end != line.c_str() + space) continue;  // a damaged line only costs a remake
    m_Keys[line.substr(space + 1)] = key;
  }
}

bool BuildCache::Save() const {
  const std::string temp = m_Path + ".part";
  FILE* f = fopen(temp.c_str(), "w");
  if (!f) return false;
  bool ok = true;
  for (const auto& entry : m_Keys) {
    ok = ok &&
         fprintf(f, "%016llx %s\n", static_cast<unsigned long long>(entry.second), entry.first.c_str()) > 0;
  }
  ok = fclose(f) == 0 && ok;
  return ok && rename(temp.c_str(), m_Path.c_str()) == 0;
}

bool BuildCache::UpToDate(const std::string& output, uint64_t key) const {
  auto it = m_Keys.find(output);
  struct stat st;
  return it != m_Keys.end() && it->second == key && stat(output.c_str(), &st) == 0 && st.st_size > 0;
}

std::vector<std::string> BuildCache::Unwanted(const std::set<std::string>& wanted) const {
  std::vector<std::string> out;
  for (const auto& entry : m_Keys) {
    if (!wanted.count(entry.first)) out.push_back(entry.first);
  }
  return out;
}

}  // namespace soundgen
