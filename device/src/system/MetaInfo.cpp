// Vantle::CMetaInfo: reads a meta.inf through MetaInfoParser. Ignored lines are named
// on the debug output with the file's path; a file without a PackageId is not valid.
#include "ostra/MetaInfo.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>

#include "ostra/DebugOut.h"
#include "system/MetaInfoParser.h"

namespace Vantle {
namespace {

using Hollin::Ostra::MetaInfoParser::kMaxFileBytes;

void Report(const std::string& path, const std::string& what) {
  std::string line = "meta.inf: " + path + ": " + what + "\n";
  PlatformDebugOutput(line.c_str());
}

// Reads the whole file; false (with a report) when it is missing, too big or unreadable.
bool ReadSmallFile(const std::string& path, std::string& out) {
  struct stat st;
  if (stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
  if (static_cast<unsigned long long>(st.st_size) > kMaxFileBytes) {
    Report(path, "larger than " + std::to_string(kMaxFileBytes) + " bytes, ignored");
    return false;
  }
  FILE* file = fopen(path.c_str(), "rb");
  if (!file) {
    Report(path, "cannot be read");
    return false;
  }
  out.resize(kMaxFileBytes + 1);
  size_t n = fread(&out[0], 1, out.size(), file);
  fclose(file);
  out.resize(n);
  if (n > kMaxFileBytes) {
    Report(path, "grew while being read, ignored");
    return false;
  }
  return true;
}

}  // namespace

CMetaInfo::CMetaInfo(const std::string& path) {
  struct stat st;
  std::string file = path;
  if (stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) file = path + "/meta.inf";
  std::string text;
  if (!ReadSmallFile(file, text)) return;
  Hollin::Ostra::MetaInfoParser::Result result = Hollin::Ostra::MetaInfoParser::Parse(text);
  for (const std::string& problem : result.problems) Report(file, problem + ", ignored");
  m_Values.swap(result.values);
  m_bValid = !GetPackageId().empty();
  if (!m_bValid) Report(file, "no PackageId, not valid");
}

std::string CMetaInfo::GetValue(const std::string& key) const {
  auto it = m_Values.find(key);
  return it == m_Values.end() ? std::string() : it->second;
}

std::string CMetaInfo::GetPackageId() const {
  return GetValue("PackageId");
}
std::string CMetaInfo::GetShortName() const {
  return GetValue("ShortName");
}
std::string CMetaInfo::GetLongName() const {
  return GetValue("LongName");
}
std::string CMetaInfo::GetPartNumber() const {
  return GetValue("PartNumber");
}
std::string CMetaInfo::GetPackageVersion() const {
  return GetValue("PackageVersion");
}

U32 CMetaInfo::GetProductId() const {
  std::string value = GetValue("ProductId");
  // The parser let through decimal numbers within 32 bits only.
  return value.empty() ? 0 : static_cast<U32>(strtoul(value.c_str(), nullptr, 10));
}

}  // namespace Vantle
