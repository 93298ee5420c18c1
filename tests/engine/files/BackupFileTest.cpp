// The save file protocol: read with fall-back to the backup, write with backup
// first and atomic replacement, skipped writes, and a writer killed at random.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <random>

#include "TestFiles.h"
#include "core/BackupFile.h"

namespace {

using testfiles::Bytes;

Bytes Filled(size_t size, unsigned char value) {
  return Bytes(size, value);
}

class BackupFileTest : public ::testing::Test {
 protected:
  static const uint32_t kSize = 1888;
  testfiles::TempDir m_Dir;
  std::string m_Path = m_Dir / "SaveGame.bin";
  std::string m_Bak = m_Path + ".bak";
  Bytes m_Live = Filled(kSize, 0xD0);  // the caller's defaults
};

TEST_F(BackupFileTest, WithNeitherFileReadFailsAndLeavesTheDataAlone) {
  nox::BackupFile save(m_Path, kSize, m_Live.data());
  EXPECT_FALSE(save.Read());
  EXPECT_EQ(m_Live, Filled(kSize, 0xD0));
  EXPECT_FALSE(testfiles::Exists(m_Path));
  EXPECT_FALSE(testfiles::Exists(m_Bak));
}

TEST_F(BackupFileTest, AGoodMainFileIsReadAndCopiedToTheBackup) {
  testfiles::WriteBytes(m_Path, Filled(kSize, 0x11));
  testfiles::WriteBytes(m_Bak, Filled(kSize, 0x22));
  nox::BackupFile save(m_Path, kSize, m_Live.data());
  EXPECT_TRUE(save.Read());
  EXPECT_TRUE(save.WasFileRead());
  EXPECT_FALSE(save.WasBackupRead());
  EXPECT_TRUE(save.WasBackupOK());
  EXPECT_EQ(m_Live, Filled(kSize, 0x11));
  EXPECT_EQ(testfiles::ReadBytes(m_Bak), Filled(kSize, 0x11));
  EXPECT_FALSE(save.IsCacheDirty());
}

TEST_F(BackupFileTest, AMainFileOfTheWrongLengthFallsToTheBackupAndIsRewrittenFromTheLiveData) {
  for (size_t wrong : {size_t(kSize - 1), size_t(kSize + 1), size_t(0)}) {
    testfiles::WriteBytes(m_Path, Filled(wrong, 0x11));
    testfiles::WriteBytes(m_Bak, Filled(kSize, 0x22));
    m_Live = Filled(kSize, 0xD0);
    nox::BackupFile save(m_Path, kSize, m_Live.data());
    EXPECT_TRUE(save.Read()) << wrong;
    EXPECT_FALSE(save.WasFileRead());
    EXPECT_TRUE(save.WasBackupRead());
    EXPECT_TRUE(save.WasWriteOK());
    // The backup only proves a save existed: the defaults are what gets written.
    EXPECT_EQ(m_Live, Filled(kSize, 0xD0));
    EXPECT_EQ(testfiles::ReadBytes(m_Path), Filled(kSize, 0xD0));
    EXPECT_EQ(testfiles::ReadBytes(m_Bak), Filled(kSize, 0x22));
    EXPECT_FALSE(save.IsCacheDirty());
  }
}

TEST_F(BackupFileTest, BothFilesOfTheWrongLengthCountAsANewGame) {
  testfiles::WriteBytes(m_Path, Filled(kSize - 1, 0x11));
  testfiles::WriteBytes(m_Bak, Filled(kSize + 7, 0x22));
  nox::BackupFile save(m_Path, kSize, m_Live.data());
  EXPECT_FALSE(save.Read());
  EXPECT_EQ(m_Live, Filled(kSize, 0xD0));
  EXPECT_EQ(testfiles::ReadBytes(m_Path).size(), kSize - 1);
}

TEST_F(BackupFileTest, WriteBacksUpTheOldFileThenReplacesIt) {
  nox::BackupFile save(m_Path, kSize, m_Live.data());
  ASSERT_TRUE(save.Write());  // a first save: nothing to back up yet
  EXPECT_FALSE(save.WasFileRead());
  EXPECT_FALSE(testfiles::Exists(m_Bak));
  EXPECT_EQ(testfiles::ReadBytes(m_Path), Filled(kSize, 0xD0));
  save.CacheData();
  EXPECT_FALSE(save.NeedsCache());

  m_Live[100] = 0x5E;
  ASSERT_TRUE(save.Write());
  EXPECT_TRUE(save.WasFileRead());
  EXPECT_TRUE(save.WasBackupOK());
  EXPECT_EQ(testfiles::ReadBytes(m_Bak), Filled(kSize, 0xD0));
  EXPECT_EQ(testfiles::ReadBytes(m_Path), m_Live);
}

TEST_F(BackupFileTest, WriteWithNothingChangedWritesNothingAndRepeatsTheLastResult) {
  nox::BackupFile save(m_Path, kSize, m_Live.data());
  ASSERT_TRUE(save.Write());
  save.CacheData();
  remove(m_Path.c_str());
  EXPECT_TRUE(save.Write());
  EXPECT_FALSE(testfiles::Exists(m_Path));
  EXPECT_FALSE(testfiles::Exists(m_Bak));

  // An untouched object whose live data equal its empty cache answers false.
  Bytes zeros(kSize, 0);
  nox::BackupFile fresh(m_Dir / "other.bin", kSize, zeros.data());
  EXPECT_FALSE(fresh.Write());
  EXPECT_FALSE(testfiles::Exists(m_Dir / "other.bin"));
}

TEST_F(BackupFileTest, AFailedWriteReturnsFalseAndLeavesBothFiles) {
  std::string path = m_Dir / "missing-dir/SaveGame.bin";
  nox::BackupFile save(path, kSize, m_Live.data());
  EXPECT_FALSE(save.Write());
  EXPECT_FALSE(save.WasWriteOK());
  EXPECT_FALSE(testfiles::Exists(path));
}

// Every save the writer makes is one generation: a stamp and bytes derived from it,
// so a torn file cannot pass for a whole one.
const uint32_t kKillSize = 64 * 1024;

void Stamp(Bytes& data, uint32_t generation) {
  memcpy(data.data(), &generation, 4);
  for (uint32_t i = 4; i < data.size(); ++i) data[i] = static_cast<unsigned char>(generation * 31 + i);
}

// The generation a save holds, or -1 if it is not one whole save.
long GenerationOf(const Bytes& data) {
  if (data.size() != kKillSize) return -1;
  uint32_t generation;
  memcpy(&generation, data.data(), 4);
  for (uint32_t i = 4; i < data.size(); ++i) {
    if (data[i] != static_cast<unsigned char>(generation * 31 + i)) return -1;
  }
  return generation;
}

// Tells the parent through `ready` when it starts saving, then saves until killed.
[[noreturn]] void WriteForever(const std::string& path, int ready) {
  Bytes live(kKillSize);
  nox::BackupFile save(path, kKillSize, live.data());
  if (!save.Read()) _exit(2);
  if (write(ready, "r", 1) != 1) _exit(4);
  uint32_t generation;
  memcpy(&generation, live.data(), 4);
  for (int i = 0; i < 100000; ++i) {
    Stamp(live, ++generation);
    if (!save.Write()) _exit(3);
    save.CacheData();
  }
  _exit(0);
}

TEST_F(BackupFileTest, AWriterKilledAtAnyMomentLeavesTheOldOrTheNewSave) {
  // In memory when the system has it: syncs cost nothing there, so the kills land in
  // many different saves within a short test. A kill is not a power loss, so what the
  // rename protects against is the same on any file system.
  testfiles::TempDir dir(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : nullptr);
  ASSERT_FALSE(dir.Path().empty());
  const std::string path = dir / "SaveGame.bin";
  Bytes first(kKillSize);
  Stamp(first, 1);
  testfiles::WriteBytes(path, first);

  std::mt19937 random(20240611);
  // A save takes a fraction of a millisecond here; the delay counts from the moment the
  // writer is ready, since starting a process under the sanitizers takes far longer.
  std::uniform_int_distribution<int> delayUs(0, 3000);
  long last = 1;
  int advanced = 0;
  for (int round = 0; round < 200; ++round) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      close(ready[0]);
      WriteForever(path, ready[1]);
    }
    close(ready[1]);
    char signal = 0;
    ASSERT_EQ(read(ready[0], &signal, 1), 1) << "writer failed before saving";
    close(ready[0]);
    usleep(delayUs(random));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "writer stopped by itself, status " << status;

    long now = GenerationOf(testfiles::ReadBytes(path));
    ASSERT_GE(now, last) << "round " << round;
    advanced += now > last;
    last = now;

    Bytes live(kKillSize);
    nox::BackupFile reader(path, kKillSize, live.data());
    ASSERT_TRUE(reader.Read());
    ASSERT_EQ(GenerationOf(live), now);
  }
  // How many kills fall after a further save depends on the machine's load; one at
  // least shows the kills land while saves go on.
  EXPECT_GT(advanced, 0) << "no kill fell after a save went through";
  std::printf("[          ] %d of 200 kills after at least one new save, last save %ld\n", advanced, last);
}

}  // namespace
