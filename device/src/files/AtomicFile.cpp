// Atomic replacement: the data goes to a temporary ".<name>.tmp-XXXXXX" in the same
// directory (so rename stays within one file system), is synced, and only fcloseAtomic
// renames it over the target and syncs the directory entry. A process that dies before
// that leaves only the temporary, which nothing reads and the next fopenAtomic of the
// same path removes.
#include "ostra/AtomicFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <mutex>
#include <string>

namespace {

struct PendingFile {
  std::string tempPath;
  std::string finalPath;
};

std::mutex s_Mutex;
std::map<FILE*, PendingFile> s_Pending;  // files open through fopenAtomic

std::string DirectoryOf(const std::string& path) {
  size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

std::string BaseNameOf(const std::string& path) {
  size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string TempPrefix(const std::string& base) {
  return "." + base + ".tmp-";
}

// Removes temporaries that an earlier writer of the same file left behind.
void RemoveStaleTemps(const std::string& dir, const std::string& base) {
  DIR* d = opendir(dir.c_str());
  if (!d) return;
  std::string prefix = TempPrefix(base);
  while (dirent* entry = readdir(d)) {
    if (strncmp(entry->d_name, prefix.c_str(), prefix.size()) == 0) {
      unlinkat(dirfd(d), entry->d_name, 0);
    }
  }
  closedir(d);
}

bool SyncDirectory(const std::string& dir) {
  int fd = open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return false;
  bool ok = fsync(fd) == 0;
  close(fd);
  return ok;
}

// Copies the current contents of `path` (if any) into `out`, for the append modes.
bool CopyExisting(const std::string& path, FILE* out) {
  FILE* in = fopen(path.c_str(), "rb");
  if (!in) return errno == ENOENT;
  char buffer[8192];
  size_t n;
  bool ok = true;
  while ((n = fread(buffer, 1, sizeof buffer, in)) > 0) {
    if (fwrite(buffer, 1, n, out) != n) {
      ok = false;
      break;
    }
  }
  if (ferror(in)) ok = false;
  fclose(in);
  return ok;
}

PendingFile TakePending(FILE* file, bool& found) {
  std::lock_guard<std::mutex> lock(s_Mutex);
  auto it = s_Pending.find(file);
  found = it != s_Pending.end();
  if (!found) return PendingFile();
  PendingFile pending = it->second;
  s_Pending.erase(it);
  return pending;
}

}  // namespace

FILE* fopenAtomic(const char* path, const char* mode) {
  if (!path || !mode || !path[0]) return nullptr;
  // Reading gains nothing from atomicity; only the writing modes are offered.
  if (mode[0] != 'w' && mode[0] != 'a') {
    errno = EINVAL;
    return nullptr;
  }
  std::string finalPath = path;
  std::string dir = DirectoryOf(finalPath);
  std::string base = BaseNameOf(finalPath);
  if (base.empty()) {
    errno = EISDIR;
    return nullptr;
  }
  RemoveStaleTemps(dir, base);

  std::string temp = dir + "/" + TempPrefix(base) + "XXXXXX";
  int fd = mkstemp(&temp[0]);
  if (fd < 0) return nullptr;
  // mkstemp makes 0600; give the file the mode a plain fopen would.
  mode_t mask = umask(0);
  umask(mask);
  fchmod(fd, 0666 & ~mask);

  bool plus = strchr(mode, '+') != nullptr;
  FILE* file = fdopen(fd, plus ? "w+b" : "wb");
  if (!file) {
    close(fd);
    unlink(temp.c_str());
    return nullptr;
  }
  if (mode[0] == 'a' && !CopyExisting(finalPath, file)) {
    fclose(file);
    unlink(temp.c_str());
    return nullptr;
  }
  std::lock_guard<std::mutex> lock(s_Mutex);
  s_Pending[file] = PendingFile{temp, finalPath};
  return file;
}

int fcloseAtomic(FILE* file) {
  if (!file) return EOF;
  bool found = false;
  PendingFile pending = TakePending(file, found);
  if (!found) return fclose(file) == 0 ? 0 : EOF;

  bool ok = fflush(file) == 0 && fsync(fileno(file)) == 0;
  ok = (fclose(file) == 0) && ok;
  if (ok) ok = rename(pending.tempPath.c_str(), pending.finalPath.c_str()) == 0;
  if (!ok) {
    unlink(pending.tempPath.c_str());
    return EOF;
  }
  // The rename is durable only once the directory itself is on disk.
  SyncDirectory(DirectoryOf(pending.finalPath));
  return 0;
}

void fabortAtomic(FILE* file) {
  if (!file) return;
  bool found = false;
  PendingFile pending = TakePending(file, found);
  fclose(file);
  if (found) unlink(pending.tempPath.c_str());
}
