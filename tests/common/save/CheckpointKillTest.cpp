// A writer killed at random moments while it saves checkpoints: every restart must
// load the last checkpoint that was reported done, or the one being written, whole.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "SaveEnvironment.h"

namespace savetest {
namespace {

// One checkpoint: the mod count and fields spread over the block, all derived from it,
// so a save mixing two checkpoints cannot pass for one.
void Stamp(GameSaveGame& save, uint32_t n) {
  save.SetData_ModCount(n);
  save.SetData_PlayTime(n * 7u);
  save.SetData_ActivityRound(3, static_cast<uint16_t>(n));
  save.SetData_SceneCount(40, static_cast<uint16_t>(n >> 3));
  game::GameSaveData& block = save.GetBlock();
  block.ridingBestScore = n ^ 0x5A5A5A5Au;
  for (int i = 0; i < 9; ++i) block.pinTailPuzzleCounts[i] = n + i;
  save.SetQuestConditions(11, (uint64_t(n) << 32) | (n * 3u));
  block.word1868 = ~n;
}

// The checkpoint the block holds, or -1 if it is not one whole checkpoint.
long CheckpointOf(GameSaveGame& save) {
  uint32_t n = save.GetData_ModCount();
  game::GameSaveData& block = save.GetBlock();
  bool whole = save.GetData_PlayTime() == n * 7u && save.GetData_ActivityRound(3) == uint16_t(n) &&
               save.GetData_SceneCount(40) == uint16_t(n >> 3) &&
               block.ridingBestScore == (n ^ 0x5A5A5A5Au) &&
               save.GetQuestConditions(11) == ((uint64_t(n) << 32) | (n * 3u)) && block.word1868 == ~n;
  for (int i = 0; i < 9; ++i) whole = whole && block.pinTailPuzzleCounts[i] == n + i;
  return whole ? static_cast<long>(n) : -1;
}

// Loads, reports what it loaded, then saves checkpoint after checkpoint, reporting
// each one written, until killed.
[[noreturn]] void WriteCheckpoints(int report) {
  GameSaveGame save;
  if (!save.ReadAllData()) _exit(2);
  uint32_t n = save.GetData_ModCount();
  if (write(report, &n, sizeof n) != sizeof n) _exit(4);
  for (int i = 0; i < 1000000; ++i) {
    Stamp(save, ++n);
    if (!save.WriteAllData()) _exit(3);
    if (write(report, &n, sizeof n) != sizeof n) _exit(4);
  }
  _exit(0);
}

class CheckpointKillTest : public SaveEnvironment {
 protected:
  // In memory when the system has it, so that a save costs little and the kills land
  // in many different saves; a kill is not a power loss, so the file system's kind
  // does not change what the rename protects.
  void SetUp() override { StartPlayer(1, 3, m_Shm.Path().empty() ? std::string() : m_Shm.Path()); }
  testfiles::TempDir m_Shm{access("/dev/shm", W_OK) == 0 ? "/dev/shm" : nullptr};
};

TEST_F(CheckpointKillTest, EveryRestartLoadsTheLastReportedCheckpointOrTheNextWhole) {
  Save().ResetData();
  Stamp(Save(), 1);
  ASSERT_TRUE(Save().WriteAllData());

  std::mt19937 random(20240612);
  std::uniform_int_distribution<int> delayUs(0, 3000);
  long last = 1;
  int advanced = 0;
  for (int round = 0; round < 200; ++round) {
    int pipeEnds[2];
    ASSERT_EQ(pipe(pipeEnds), 0);
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      close(pipeEnds[0]);
      WriteCheckpoints(pipeEnds[1]);
    }
    close(pipeEnds[1]);
    uint32_t reported = 0;
    ASSERT_EQ(read(pipeEnds[0], &reported, sizeof reported), ssize_t(sizeof reported))
        << "writer failed before saving";
    ASSERT_EQ(long(reported), last) << "round " << round;
    usleep(delayUs(random));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "writer stopped by itself, status " << status;
    uint32_t value;
    while (read(pipeEnds[0], &value, sizeof value) == ssize_t(sizeof value)) reported = value;
    close(pipeEnds[0]);

    GameSaveGame restart;
    ASSERT_TRUE(restart.ReadAllData()) << "round " << round;
    long now = CheckpointOf(restart);
    ASSERT_TRUE(now == long(reported) || now == long(reported) + 1)
        << "round " << round << ": loaded " << now << ", last reported " << reported;
    advanced += now > last;
    last = now;
  }
  EXPECT_GT(advanced, 10) << "too few kills fell after a save went through";
  std::printf("[          ] %d of 200 kills after at least one new checkpoint, last %ld\n", advanced, last);
}

}  // namespace
}  // namespace savetest
