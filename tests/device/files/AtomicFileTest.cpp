// Atomic files: a file is replaced whole or not at all, however the writer ends.
#include <dirent.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdio>

#include <random>

#include "../TempDir.h"
#include "ostra/AtomicFile.h"
#include "ostra/BaseUtils.h"

namespace {

using devicetest::ReadText;
using devicetest::TempDir;
using devicetest::WriteText;

// Names in `dir` other than the given file, i.e. temporaries left behind.
std::vector<std::string> OtherEntries(const std::string& dir, const std::string& keep) {
  std::vector<std::string> names;
  DIR* d = opendir(dir.c_str());
  while (dirent* e = readdir(d)) {
    std::string name = e->d_name;
    if (name != "." && name != ".." && name != keep) names.push_back(name);
  }
  closedir(d);
  return names;
}

bool WriteAtomically(const std::string& path, const std::string& text) {
  FILE* file = fopenAtomic(path.c_str(), "wb");
  if (!file) return false;
  fwrite(text.data(), 1, text.size(), file);
  return fcloseAtomic(file) == 0;
}

TEST(AtomicFile, ClosingReplacesTheFileAndLeavesNoTemporary) {
  TempDir dir;
  std::string path = dir / "save.bin";
  WriteText(path, "old contents");
  ASSERT_TRUE(WriteAtomically(path, "new"));
  EXPECT_EQ(ReadText(path), "new");
  EXPECT_TRUE(OtherEntries(dir.Path(), "save.bin").empty());
  // A file that did not exist before is created the same way.
  ASSERT_TRUE(WriteAtomically(dir / "fresh.bin", "x"));
  EXPECT_EQ(ReadText(dir / "fresh.bin"), "x");
}

TEST(AtomicFile, AFileNeverClosedNeverReplacesTheOldOne) {
  TempDir dir;
  std::string path = dir / "save.bin";
  WriteText(path, "old contents");
  FILE* file = fopenAtomic(path.c_str(), "wb");
  ASSERT_NE(file, nullptr);
  fputs("half of the new", file);
  fflush(file);
  EXPECT_EQ(ReadText(path), "old contents");
  fabortAtomic(file);
  EXPECT_EQ(ReadText(path), "old contents");
  EXPECT_TRUE(OtherEntries(dir.Path(), "save.bin").empty());
}

TEST(AtomicFile, TemporariesOfADeadWriterAreRemovedByTheNextOpen) {
  TempDir dir;
  std::string path = dir / "save.bin";
  WriteText(path, "old");
  WriteText(dir / ".save.bin.tmp-abc123", "torn");
  WriteText(dir / ".other.bin.tmp-abc123", "someone else's");
  ASSERT_TRUE(WriteAtomically(path, "new"));
  std::vector<std::string> left = OtherEntries(dir.Path(), "save.bin");
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0], ".other.bin.tmp-abc123");
}

TEST(AtomicFile, AppendModeStartsFromTheOldContentsAndReadModesAreRefused) {
  TempDir dir;
  std::string path = dir / "log.txt";
  WriteText(path, "one\n");
  FILE* file = fopenAtomic(path.c_str(), "ab");
  ASSERT_NE(file, nullptr);
  fputs("two\n", file);
  ASSERT_EQ(fcloseAtomic(file), 0);
  EXPECT_EQ(ReadText(path), "one\ntwo\n");
  EXPECT_EQ(fopenAtomic(path.c_str(), "rb"), nullptr);
  EXPECT_EQ(fopenAtomic((dir / "missing/dir/file").c_str(), "wb"), nullptr);
  EXPECT_EQ(fcloseAtomic(nullptr), EOF);
}

// The contents of generation `g`: a header, 48 KiB derived from g, and a trailer, so a
// mixture of two generations or a cut-off file is always told apart.
std::string Generation(unsigned g) {
  std::string text = "GEN " + std::to_string(g) + "\n";
  for (unsigned i = 0; i < 48 * 1024; ++i) text += static_cast<char>('a' + (i * 7 + g) % 26);
  return text + "END " + std::to_string(g) + "\n";
}

bool IsWholeGeneration(const std::string& text) {
  unsigned g = 0;
  if (sscanf(text.c_str(), "GEN %u\n", &g) != 1) return false;
  return text == Generation(g);
}

TEST(AtomicFile, AWriterKilledAtRandomMomentsNeverLeavesATornFile) {
  TempDir dir;
  std::string path = dir / "save.bin";
  std::mt19937 random(12345);
  // Rounds whose kill fell after the writer had gone on past its first commit, i.e.
  // somewhere in a later write; reported, not asserted: how many depends on the load.
  unsigned later = 0;
  for (int round = 0; round < 200; ++round) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const unsigned first = static_cast<unsigned>(round) * 100000u;
    pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
      close(ready[0]);
      for (unsigned g = first;; ++g) {
        FILE* file = fopenAtomic(path.c_str(), "wb");
        if (!file) _exit(3);
        std::string text = Generation(g);
        // Written in pieces, so a kill can land between two of them.
        for (size_t at = 0; at < text.size(); at += 4096)
          fwrite(text.data() + at, 1, std::min<size_t>(4096, text.size() - at), file);
        if (fcloseAtomic(file) != 0) _exit(4);
        // The kill's delay counts from the first commit: starting a process under the
        // sanitizers takes far longer than a write.
        if (g == first && write(ready[1], "r", 1) != 1) _exit(5);
      }
    }
    close(ready[1]);
    char signal = 0;
    ASSERT_EQ(read(ready[0], &signal, 1), 1) << "the writer failed before its first commit";
    close(ready[0]);
    usleep(std::uniform_int_distribution<int>(0, 12000)(random));
    kill(pid, SIGKILL);
    int status = 0;
    waitpid(pid, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer failed on its own with status " << WEXITSTATUS(status);
    std::string text = ReadText(path);
    ASSERT_TRUE(IsWholeGeneration(text))
        << "torn file after round " << round << ", " << text.size() << " bytes";
    unsigned g = 0;
    sscanf(text.c_str(), "GEN %u\n", &g);
    ASSERT_GE(g, first) << "round " << round << " left an older round's file";
    later += g > first;
    EXPECT_LE(OtherEntries(dir.Path(), "save.bin").size(), 1u);
  }
  std::printf("[          ] %u of 200 kills fell after further commits\n", later);
}

TEST(BaseUtils, MakeDirectoriesBuildsEveryMissingLevel) {
  TempDir dir;
  std::string deep = dir / "a/b/c";
  EXPECT_TRUE(BaseUtils::MakeDirectories(deep));
  EXPECT_TRUE(BaseUtils::DirectoryExists(deep));
  EXPECT_TRUE(BaseUtils::MakeDirectories(deep + "/"));
  WriteText(dir / "file", "x");
  EXPECT_TRUE(BaseUtils::FileExists(dir / "file"));
  EXPECT_FALSE(BaseUtils::DirectoryExists(dir / "file"));
  EXPECT_FALSE(BaseUtils::MakeDirectories(dir / "file/sub"));
  EXPECT_FALSE(BaseUtils::FileExists(""));
}

}  // namespace
