// Thin static wrappers over the C library's FILE* functions, so that every file
// access of the engine passes one place, and SCOPEDNOXFILE, which closes a FILE* when
// it goes out of scope. The sound thread also reads through FileOpen and FileRead on
// its own handles; nothing here holds state.
#pragma once
#include <cstddef>
#include <cstdio>
#include "core/NoCopy.h"

namespace nox {

class FileSystem {
 public:
  static FILE* FileOpen(const char* path, const char* mode) { return fopen(path, mode); }
  static int FileClose(FILE* file) { return fclose(file); }
  static size_t FileWrite(const void* data, size_t size, size_t count, FILE* file) {
    return fwrite(data, size, count, file);
  }
  static size_t FileRead(void* data, size_t size, size_t count, FILE* file) {
    return fread(data, size, count, file);
  }
  static int FileError(FILE* file) { return ferror(file); }
  static long FileTell(FILE* file) { return ftell(file); }
  static int FileSeek(FILE* file, long offset, int origin) { return fseek(file, offset, origin); }
  static void FileRewind(FILE* file) { rewind(file); }

  // True when stat succeeds: files and directories alike.
  static bool FileExists(const char* path);

  // The modification time of the title's "App.so" as "Jun 30 1993 21:49:08"; an
  // empty text if it cannot be read.
  static void GetBuildTimestamp(char* buffer, size_t size);

  // Kept for the debug overlay; there is no table of open files.
  static void DebugPrintOpenFiles() {}
};

class SCOPEDNOXFILE : public NoCopy {
 public:
  explicit SCOPEDNOXFILE(FILE* file = nullptr) : m_pFile(file) {}
  ~SCOPEDNOXFILE() {
    if (m_pFile) fclose(m_pFile);
  }

  FILE* Get() const { return m_pFile; }
  operator FILE*() const { return m_pFile; }
  // Gives up ownership without closing.
  FILE* Release() {
    FILE* file = m_pFile;
    m_pFile = nullptr;
    return file;
  }

 private:
  FILE* m_pFile;  // owned, may be null
};

}  // namespace nox
