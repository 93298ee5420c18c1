// Small file helpers of the platform.
#pragma once
#include <string>

namespace BaseUtils {
bool FileExists(const std::string& path);
bool DirectoryExists(const std::string& path);
bool MakeDirectories(const std::string& path);  // like mkdir -p
}  // namespace BaseUtils
