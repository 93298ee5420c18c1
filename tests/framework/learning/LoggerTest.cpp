// The telemetry logger writes the platform's records: checked by reading back the
// JSON lines the platform appends to the player's log file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "learning/Logger.h"
#include "ostra/HostConfig.h"
#include "ostra/LogFile.h"

namespace {

namespace Host = Hollin::Ostra::Host;
using noxfw::LogEventData;
using noxfw::Logger;

class LoggerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/logger-test-XXXXXX";
    m_Dir = mkdtemp(pattern);
    Host::HostConfig config;
    config.saveRoot = m_Dir;
    config.playerId = 3;
    config.quiet = true;
    Host::SetHostConfig(config);
    Logger::Create();
  }
  void TearDown() override {
    Logger::Destroy();
    std::string command = "rm -rf '" + m_Dir + "'";
    ASSERT_EQ(system(command.c_str()), 0);
  }
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    std::ifstream in(CLogFile::Instance()->GetPath());
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }
  std::string m_Dir;
};

}  // namespace

TEST(LoggerText, LevelTextsAndExitReasonsFollowThePlatformsCodes) {
  EXPECT_EQ(Logger::LevelText(3, 2), "3.2");
  EXPECT_EQ(Logger::LevelText(3, 0), "3");
  EXPECT_EQ(Logger::TitleExitReason(0), 1);
  EXPECT_EQ(Logger::TitleExitReason(4), 2);
  EXPECT_EQ(Logger::TitleExitReason(1), 3);
  const uint8_t activity[] = {3, 5, 1, 2, 4, 3};
  for (uint32_t reason = 0; reason < 6; ++reason) {
    EXPECT_EQ(Logger::ActivityExitReason(reason), activity[reason]) << reason;
  }
}

TEST_F(LoggerTest, TitleAndActivityEventsBecomeRecordsAndGameEventsWriteNothing) {
  LogEventData title;
  title.id = 7;
  title.name = "CRN-0001";
  title.version = "1.0.0";
  title.number = 1;
  Logger::LogEnter("Title", title);
  Logger::LogEnter("Game", LogEventData());
  EXPECT_EQ(Logger::sm_pInstance->GetOpenKinds().size(), 2u);
  Logger::LogLeave("Game", LogEventData());
  Logger::LogLevelUp(3, 2);
  LogEventData leave;
  leave.reason = 4;
  Logger::LogLeave("Title", leave);
  EXPECT_TRUE(Logger::sm_pInstance->GetOpenKinds().empty());

  std::vector<std::string> lines = Lines();
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_NE(lines[0].find("\"type\":\"TitleStart\""), std::string::npos);
  EXPECT_NE(lines[0].find("CRN-0001"), std::string::npos);
  EXPECT_NE(lines[1].find("\"3.2\""), std::string::npos);
  EXPECT_NE(lines[2].find("\"type\":\"TitleExit\""), std::string::npos);
  EXPECT_NE(lines[2].find(":2"), std::string::npos);
}

TEST_F(LoggerTest, NothingIsWrittenWithoutAnInstance) {
  Logger::Destroy();
  Logger::LogBadge(12);
  Logger::LogAnswer(1, "q", "a", true);
  EXPECT_TRUE(Lines().empty());
}
