// The meta information of a title or a download package: a "meta.inf" text file of
// "Key=Value" lines (see the README for the keys).
#pragma once
#include <map>
#include <string>
#include "ostra/PlatformTypes.h"

namespace Vantle {

class CMetaInfo {
 public:
  // `path` is the directory that holds "meta.inf", or the file itself.
  explicit CMetaInfo(const std::string& path);
  bool IsValid() const { return m_bValid; }
  std::string GetPackageId() const;
  std::string GetShortName() const;
  std::string GetLongName() const;
  U32 GetProductId() const;
  std::string GetPartNumber() const;
  std::string GetPackageVersion() const;
  std::string GetValue(const std::string& key) const;

 private:
  bool m_bValid = false;
  std::map<std::string, std::string> m_Values;
};

}  // namespace Vantle
