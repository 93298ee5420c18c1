#include "ostra/BaseUtils.h"

#include <sys/stat.h>

#include <cerrno>

namespace BaseUtils {

bool FileExists(const std::string& path) {
  struct stat st;
  return !path.empty() && stat(path.c_str(), &st) == 0;
}

bool DirectoryExists(const std::string& path) {
  struct stat st;
  return !path.empty() && stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

bool MakeDirectories(const std::string& path) {
  if (path.empty()) return false;
  if (DirectoryExists(path)) return true;
  // Create each parent in turn; one that appears meanwhile is no failure.
  for (size_t pos = path.find('/', 1); pos != std::string::npos; pos = path.find('/', pos + 1)) {
    std::string part = path.substr(0, pos);
    if (mkdir(part.c_str(), 0777) != 0 && errno != EEXIST) return false;
  }
  if (mkdir(path.c_str(), 0777) != 0 && errno != EEXIST) return false;
  return DirectoryExists(path);
}

}  // namespace BaseUtils
