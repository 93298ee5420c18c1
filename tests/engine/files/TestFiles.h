// Temporary directories, whole-file helpers and a reader for the automation log, for
// the file tests.
#pragma once
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "ostra/BaseUtils.h"
#include "ostra/HostConfig.h"

namespace testfiles {

typedef std::vector<unsigned char> Bytes;

class TempDir {
 public:
  // Under `base`, or under $TMPDIR (else /tmp) when `base` is null.
  explicit TempDir(const char* base = nullptr) {
    if (!base) base = getenv("TMPDIR");
    std::string pattern = std::string(base && base[0] ? base : "/tmp") + "/noxfiles-XXXXXX";
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (mkdtemp(buffer.data())) m_Path = buffer.data();
  }
  ~TempDir() {
    if (!m_Path.empty()) {
      nftw(
          m_Path.c_str(), [](const char* p, const struct stat*, int, struct FTW*) { return remove(p); }, 16,
          FTW_DEPTH | FTW_PHYS);
    }
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::string& Path() const { return m_Path; }
  std::string operator/(const std::string& name) const { return m_Path + "/" + name; }

 private:
  std::string m_Path;
};

inline void WriteBytes(const std::string& path, const Bytes& bytes) {
  size_t slash = path.rfind('/');
  if (slash != std::string::npos) BaseUtils::MakeDirectories(path.substr(0, slash));
  FILE* file = fopen(path.c_str(), "wb");
  if (!file) return;
  if (!bytes.empty()) fwrite(bytes.data(), 1, bytes.size(), file);
  fclose(file);
}

inline void WriteText(const std::string& path, const std::string& text) {
  WriteBytes(path, Bytes(text.begin(), text.end()));
}

inline Bytes ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline std::string ReadText(const std::string& path) {
  Bytes bytes = ReadBytes(path);
  return std::string(bytes.begin(), bytes.end());
}

inline bool Exists(const std::string& path) {
  struct stat info;
  return stat(path.c_str(), &info) == 0;
}

// Points the platform at `config` with its debug output going to a log file in
// `dir` only; Lines() reads back what was written since.
class AutomationLog {
 public:
  AutomationLog(const TempDir& dir, Hollin::Ostra::Host::HostConfig config = {})
      : m_Path(dir / "automation.log") {
    config.logFile = m_Path;
    config.quiet = true;
    if (config.saveRoot.empty()) config.saveRoot = dir / "players";
    Hollin::Ostra::Host::SetHostConfig(config);
  }
  ~AutomationLog() { Hollin::Ostra::Host::SetHostConfig(Hollin::Ostra::Host::HostConfig{}); }

  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    std::istringstream in(ReadText(m_Path));
    std::string line;
    while (std::getline(in, line)) lines.push_back(line);
    return lines;
  }
  // Lines that mention `text`.
  int Count(const std::string& text) const {
    int n = 0;
    for (const std::string& line : Lines()) n += line.find(text) != std::string::npos;
    return n;
  }

 private:
  std::string m_Path;
};

}  // namespace testfiles
