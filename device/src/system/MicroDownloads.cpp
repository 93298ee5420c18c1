// Installed download packages: the subdirectories of the downloads path that hold a
// meta.inf. Every player sees the same packages on this system.
#include "ostra/MicroDownloads.h"

#include <dirent.h>

#include <algorithm>

#include "ostra/BaseUtils.h"
#include "ostra/SystemData.h"

namespace Vantle {

std::vector<std::string> CMicroDownloads::get(U32 player) {
  std::vector<std::string> packages;
  std::string root = CSystemData::Instance()->GetDownloadsPath();
  DIR* dir = opendir(root.c_str());
  if (!dir) return packages;
  while (dirent* entry = readdir(dir)) {
    std::string name = entry->d_name;
    if (name == "." || name == ".." || name[0] == '.') continue;
    std::string path = root + "/" + name;
    if (BaseUtils::DirectoryExists(path) && BaseUtils::FileExists(path + "/meta.inf")) {
      packages.push_back(path);
    }
  }
  closedir(dir);
  std::sort(packages.begin(), packages.end());
  return packages;
}

}  // namespace Vantle
