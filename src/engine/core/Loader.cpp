#include "core/Loader.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstring>

#include "core/FileSystem.h"

namespace nox {

namespace {

// Length of an open file from seek and tell; the position is left at the start.
// Anything but a regular file (a directory opens too) measures as -1.
long MeasureFile(FILE* file) {
  struct stat info;
  if (fstat(fileno(file), &info) != 0 || !S_ISREG(info.st_mode)) return -1;
  if (FileSystem::FileSeek(file, 0, SEEK_END) != 0) return -1;
  long size = FileSystem::FileTell(file);
  FileSystem::FileSeek(file, 0, SEEK_SET);
  return size;
}

}  // namespace

unsigned char* Loader::LoadFile(const char* path, unsigned long* size) {
  SCOPEDNOXFILE file(FileSystem::FileOpen(path, "rb"));
  if (!file) return nullptr;
  long length = MeasureFile(file);
  if (length < 0) return nullptr;

  const size_t n = static_cast<size_t>(length);
  unsigned char* data = new unsigned char[n + 1];
  size_t got = FileSystem::FileRead(data, 1, n, file);
  if (got != n) {
    fputs("Reading error\n", stderr);
    memset(data + got, 0, n - got);
  }
  data[n] = 0;
  if (size) *size = static_cast<unsigned long>(n);
  return data;
}

void Loader::UnloadFile(void* data) {
  delete[] static_cast<unsigned char*>(data);
}

unsigned long Loader::GetFileSize(const char* path) {
  SCOPEDNOXFILE file(FileSystem::FileOpen(path, "rb"));
  if (!file) return 0;
  long length = MeasureFile(file);
  return length < 0 ? 0 : static_cast<unsigned long>(length);
}

}  // namespace nox
