// A temporary directory for one test, removed with everything in it when the test ends.
#pragma once
#include <ftw.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace devicetest {

class TempDir {
 public:
  TempDir() {
    const char* base = getenv("TMPDIR");
    m_Path = std::string(base && base[0] ? base : "/tmp") + "/ostra-test-XXXXXX";
    if (!mkdtemp(&m_Path[0])) m_Path.clear();
  }
  ~TempDir() {
    if (!m_Path.empty()) {
      nftw(
          m_Path.c_str(), [](const char* p, const struct stat*, int, FTW*) { return ::remove(p); }, 16,
          FTW_DEPTH | FTW_PHYS);
    }
  }
  const std::string& Path() const { return m_Path; }
  std::string operator/(const std::string& name) const { return m_Path + "/" + name; }

 private:
  std::string m_Path;
};

inline std::string ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

inline void WriteText(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
}

}  // namespace devicetest
