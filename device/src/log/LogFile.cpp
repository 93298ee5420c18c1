// CLogFile: telemetry as JSON lines in <player dir>/telemetry.jsonl. Each record is one
// write() on a file opened with O_APPEND, so records never interleave or tear mid-line
// even if the process dies, and a reader can drop an unfinished last line.
#include "ostra/LogFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "ostra/BaseUtils.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"
#include "ostra/System.h"

void AppendJsonString(std::string& out, const char* text) {
  out += '"';
  for (const char* p = text ? text : ""; *p; ++p) {
    unsigned char c = static_cast<unsigned char>(*p);
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (c < 0x20) {
          char escape[8];
          snprintf(escape, sizeof escape, "\\u%04x", c);
          out += escape;
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  out += '"';
}

CLogFile* CLogFile::Instance() {
  static CLogFile s_Instance;
  return &s_Instance;
}

std::string CLogFile::GetPath() const {
  return Hollin::Ostra::Host::PlayerDirectory(Vantle::CSystem::GetCurrentPlayerID()) + "/telemetry.jsonl";
}

bool CLogFile::Append(const CLogData& record) {
  Hollin::Ostra::CKernelMPI kernel;
  std::string line = "{\"time\":" + std::to_string(kernel.GetElapsedTimeAsMSecs()) + ",\"type\":";
  AppendJsonString(line, record.GetTypeName());
  std::string fields;
  record.WriteFields(fields);
  if (!fields.empty()) {
    line += ',';
    line += fields;
  }
  line += "}\n";

  std::string path = GetPath();
  std::string dir = path.substr(0, path.rfind('/'));
  if (!BaseUtils::MakeDirectories(dir)) return false;
  int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  if (fd < 0) return false;
  ssize_t written = write(fd, line.data(), line.size());
  close(fd);
  return written == static_cast<ssize_t>(line.size());
}
