// Crash-safe replacement of a file. fopenAtomic opens a temporary file beside `path`;
// fcloseAtomic flushes it to disk, renames it over `path` and syncs the directory, so
// `path` names the old or the new contents, never a mixture. A file opened with
// fopenAtomic and never passed to fcloseAtomic never replaces the old one.
#pragma once
#include <cstdio>

FILE* fopenAtomic(const char* path, const char* mode);
// Returns 0 on success; EOF on failure (the old file is then left in place).
int fcloseAtomic(FILE* file);
// Drops an atomic file without committing it (removes the temporary).
void fabortAtomic(FILE* file);
