// Whole-file reading. LoadFile returns a new array holding the file followed by one
// zero byte that is not counted in the size, so text formats can be read as a C
// string without running past the end. The caller frees it with UnloadFile.
#pragma once
#include <string>

namespace nox {

class Loader {
 public:
  // Null when the file cannot be opened or measured. A short read prints
  // "Reading error" on standard error and returns the buffer, zero-filled past what
  // was read. `size`, if given, receives the file's length.
  static unsigned char* LoadFile(const char* path, unsigned long* size = nullptr);
  static unsigned char* LoadFile(const std::string& path, unsigned long* size = nullptr) {
    return LoadFile(path.c_str(), size);
  }
  // Frees what LoadFile returned; null is fine.
  static void UnloadFile(void* data);
  // Length in bytes; 0 when the file cannot be opened.
  static unsigned long GetFileSize(const char* path);
};

}  // namespace nox
