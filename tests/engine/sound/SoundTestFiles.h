// Helpers of the sound tests: a temporary title directory, WAV files built byte by byte,
// sox when it is installed, and a headless platform whose automation log can be read.
#pragma once
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ostra/BaseUtils.h"
#include "ostra/HostConfig.h"

namespace soundtest {

typedef std::vector<uint8_t> Bytes;

class TempDir {
 public:
  TempDir() {
    const char* base = getenv("TMPDIR");
    std::string pattern = std::string(base && base[0] ? base : "/tmp") + "/noxsound-XXXXXX";
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
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

inline Bytes ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void Put16(Bytes& out, uint32_t v) {
  out.push_back(static_cast<uint8_t>(v));
  out.push_back(static_cast<uint8_t>(v >> 8));
}

inline void Put32(Bytes& out, uint32_t v) {
  Put16(out, v & 0xFFFF);
  Put16(out, v >> 16);
}

inline void PutTag(Bytes& out, const char* tag) {
  out.insert(out.end(), tag, tag + 4);
}

// A RIFF WAVE file from its chunks; `riffSize` 0 means the true size.
struct WavBuilder {
  Bytes body;
  void Chunk(const char* tag, const Bytes& payload, uint32_t claimedSize = 0xFFFFFFFFu) {
    PutTag(body, tag);
    Put32(body, claimedSize == 0xFFFFFFFFu ? static_cast<uint32_t>(payload.size()) : claimedSize);
    body.insert(body.end(), payload.begin(), payload.end());
  }
  void Format(uint16_t tag, uint16_t channels, uint32_t rate, uint16_t blockAlign, uint16_t bits,
              const Bytes& extra = Bytes()) {
    Bytes fmt;
    Put16(fmt, tag);
    Put16(fmt, channels);
    Put32(fmt, rate);
    Put32(fmt, rate * blockAlign);
    Put16(fmt, blockAlign);
    Put16(fmt, bits);
    fmt.insert(fmt.end(), extra.begin(), extra.end());
    Chunk("fmt ", fmt);
  }
  Bytes File(uint32_t riffSize = 0) const {
    Bytes out;
    PutTag(out, "RIFF");
    Put32(out, riffSize ? riffSize : static_cast<uint32_t>(body.size() + 4));
    PutTag(out, "WAVE");
    out.insert(out.end(), body.begin(), body.end());
    return out;
  }
};

inline Bytes Samples16(const std::vector<int16_t>& samples) {
  Bytes out;
  for (int16_t s : samples) Put16(out, static_cast<uint16_t>(s));
  return out;
}

inline bool HaveSox() {
  return system("sox --version >/dev/null 2>&1") == 0;
}

inline bool Sox(const std::string& arguments) {
  return system(("sox " + arguments + " 2>/dev/null").c_str()) == 0;
}

// The samples of the "data" chunk of a 16-bit PCM WAV file.
inline std::vector<int16_t> ReadPcm16(const std::string& path) {
  Bytes file = ReadBytes(path);
  std::vector<int16_t> samples;
  for (size_t i = 12; i + 8 <= file.size();) {
    uint32_t size =
        file[i + 4] | file[i + 5] << 8 | file[i + 6] << 16 | static_cast<uint32_t>(file[i + 7]) << 24;
    if (std::string(file.begin() + i, file.begin() + i + 4) == "data") {
      for (size_t j = i + 8; j + 1 < i + 8 + size && j + 1 < file.size(); j += 2) {
        samples.push_back(static_cast<int16_t>(file[j] | file[j + 1] << 8));
      }
      break;
    }
    i += 8 + size;
  }
  return samples;
}

// Points the platform at a title in `dir` with the virtual clock; the automation log
// goes to a file that Count reads back.
class Platform {
 public:
  explicit Platform(const TempDir& dir) : m_Log(dir / "automation.log") {
    Hollin::Ostra::Host::HostConfig config;
    config.titlePath = dir / "title";
    config.saveRoot = dir / "players";
    config.stockAudioPath = dir / "stock";
    config.clock = Hollin::Ostra::Host::ClockMode::kVirtual;
    config.logFile = m_Log;
    config.quiet = true;
    BaseUtils::MakeDirectories(config.titlePath);
    Hollin::Ostra::Host::SetHostConfig(config);
  }
  ~Platform() { Hollin::Ostra::Host::SetHostConfig(Hollin::Ostra::Host::HostConfig{}); }

  int Count(const std::string& line) const {
    std::ifstream in(m_Log);
    std::string text;
    int n = 0;
    while (std::getline(in, text)) n += text == line;
    return n;
  }

 private:
  std::string m_Log;
};

}  // namespace soundtest
