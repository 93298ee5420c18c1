#include "platform/BackupFile_pf.h"

#include <fcntl.h>
#include <unistd.h>

#include "ostra/AtomicFile.h"

namespace nox {

FILE* BackupFile_pf::OpenFileForReadWrite(const char* name, const char* mode) {
  return fopen(name, mode);
}

FILE* BackupFile_pf::AtomicOpen(const char* name, const char* mode) {
  return fopenAtomic(name, mode);
}

bool BackupFile_pf::AtomicClose(FILE* file) {
  return fcloseAtomic(file) == 0;
}

void BackupFile_pf::AtomicAbort(FILE* file) {
  fabortAtomic(file);
}

bool BackupFile_pf::DoWrite(FILE* file, const void* data, size_t size) {
  return fwrite(data, 1, size, file) == size;
}

int BackupFile_pf::OpenFileAtomicWrite(const char* name) {
  return open(name, O_WRONLY | O_CREAT | O_TRUNC, 0777);
}

int BackupFile_pf::CloseFile(int fd) {
  return close(fd);
}

int BackupFile_pf::FlushContentsToDisk(int fd) {
  return fsync(fd);
}

}  // namespace nox
