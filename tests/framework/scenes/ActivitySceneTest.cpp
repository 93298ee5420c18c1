// The activity scene's frame and input, and the command queue beside it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scenes/CommandManager.h"

namespace {

using noxfw::CommandManager;

class RecordingCommands : public CommandManager {
 public:
  void HandleCommand(unsigned long command) override {
    handled.push_back(command);
    // A handler that queues another command sees it run in a later frame.
    if (command == 7) Run(8);
  }
  std::vector<unsigned long> handled;
};

TEST(CommandManagerTest, RunsOneCommandPerFrameInOrderAndAnEmptyQueueDoesNothing) {
  RecordingCommands commands;
  commands.Update(16);
  EXPECT_TRUE(commands.handled.empty());

  commands.Run(3);
  commands.Run(7);
  commands.Update(16);
  EXPECT_EQ(commands.handled, std::vector<unsigned long>({3}));
  commands.Update(0);  // dt does not matter
  EXPECT_EQ(commands.handled, std::vector<unsigned long>({3, 7}));
  EXPECT_EQ(commands.GetCount(), 1u);
  commands.Update(16);
  EXPECT_EQ(commands.handled, std::vector<unsigned long>({3, 7, 8}));
  EXPECT_TRUE(commands.IsEmpty());
}

TEST(CommandManagerTest, InstallReplacesTheSingleton) {
  CommandManager::Create();
  ASSERT_NE(CommandManager::sm_pInstance, nullptr);
  RecordingCommands* mine = new RecordingCommands();
  CommandManager::Install(mine);
  EXPECT_EQ(CommandManager::sm_pInstance, mine);
  CommandManager::Destroy();
  EXPECT_EQ(CommandManager::sm_pInstance, nullptr);
}

}  // namespace
