#include "core/FileSystem.h"

#include <sys/stat.h>

#include <ctime>
#include <string>

#include "ostra/SystemData.h"

namespace nox {

bool FileSystem::FileExists(const char* path) {
  struct stat info;
  return path && stat(path, &info) == 0;
}

void FileSystem::GetBuildTimestamp(char* buffer, size_t size) {
  if (!buffer || size == 0) return;
  buffer[0] = '\0';
  std::string app = CSystemData::Instance()->GetCurrentTitlePath() + "/App.so";
  struct stat info;
  if (stat(app.c_str(), &info) != 0) return;

  // ctime form: "Wed Jun 30 21:49:08 1993\n".
  char text[64];
  if (!ctime_r(&info.st_mtime, text)) return;
  char weekday[16], month[16];
  int day, hour, minute, second, year;
  if (sscanf(text, "%15s %15s %d %d:%d:%d %d", weekday, month, &day, &hour, &minute, &second, &year) != 7) {
    return;
  }
  snprintf(buffer, size, "%s %d %d %02d:%02d:%02d", month, day, year, hour, minute, second);
}

}  // namespace nox
