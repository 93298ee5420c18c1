// Device half of nox::BackupFile: the file primitives it saves through. The atomic
// pair comes from the platform (fopenAtomic writes to a temporary beside the file,
// fcloseAtomic syncs it and renames it over the old one). The descriptor functions
// are the pieces of the same guarantee for a platform without the atomic pair.
#pragma once
#include <cstddef>
#include <cstdio>
#include "core/NoCopy.h"

namespace nox {

class BackupFile_pf : public NoCopy {
 protected:
  static FILE* OpenFileForReadWrite(const char* name, const char* mode);
  static FILE* AtomicOpen(const char* name, const char* mode);
  // True when the new contents replaced the old file.
  static bool AtomicClose(FILE* file);
  // Drops an atomic file without replacing anything.
  static void AtomicAbort(FILE* file);
  // True when all `size` bytes went out.
  static bool DoWrite(FILE* file, const void* data, size_t size);

  static int OpenFileAtomicWrite(const char* name);  // open(O_WRONLY|O_CREAT|O_TRUNC, 0777)
  static int CloseFile(int fd);
  static int FlushContentsToDisk(int fd);  // fsync
};

}  // namespace nox
