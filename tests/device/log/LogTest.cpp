// Telemetry lines and the debug output.
#include <gtest/gtest.h>

#include "../TempDir.h"
#include "kernel/Clock.h"
#include "ostra/DebugOut.h"
#include "ostra/HostConfig.h"
#include "ostra/LogFile.h"
#include "ostra/LogRecords.h"

namespace {

using devicetest::ReadText;
using devicetest::TempDir;
namespace Host = Hollin::Ostra::Host;

class AnswerRecord : public CLogData {
 public:
  AnswerRecord(const char* question, int id) : m_Question(question), m_Id(id) {}
  const char* GetTypeName() const override { return "CorrectAnswer"; }
  void WriteFields(std::string& out) const override {
    out += "\"id\":" + std::to_string(m_Id) + ",\"question\":";
    AppendJsonString(out, m_Question);
  }

 private:
  const char* m_Question;
  int m_Id;
};

class BareRecord : public CLogData {
 public:
  const char* GetTypeName() const override { return "Title\"Exit"; }
  void WriteFields(std::string&) const override {}
};

class LogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Host::HostConfig config;
    config.saveRoot = dir / "players";
    config.playerId = 5;
    config.clock = Host::ClockMode::kVirtual;
    config.quiet = true;
    config.logFile = dir / "debug.log";
    Host::SetHostConfig(config);
  }
  void TearDown() override { Host::SetHostConfig(Host::HostConfig()); }
  TempDir dir;
};

TEST_F(LogTest, RecordsAreAppendedAsOneJsonLineEachWithTimeAndType) {
  CLogFile* log = CLogFile::Instance();
  EXPECT_EQ(log->GetPath(), dir / "players/5/telemetry.jsonl");
  Hollin::Ostra::Clock::AdvanceFrame();
  ASSERT_TRUE(log->Append(AnswerRecord("2 + 2 = \"4\"?\n\ttab\x01", 31)));
  Hollin::Ostra::Clock::AdvanceFrame();
  ASSERT_TRUE(log->Append(BareRecord()));
  EXPECT_EQ(ReadText(log->GetPath()),
            "{\"time\":17,\"type\":\"CorrectAnswer\",\"id\":31,\"question\":\"2 + 2 = "
            "\\\"4\\\"?\\n\\ttab\\u0001\"}\n"
            "{\"time\":34,\"type\":\"Title\\\"Exit\"}\n");
}

TEST_F(LogTest, TheGamesRecordsWriteTheirFieldsInOrder) {
  CLogFile* log = CLogFile::Instance();
  ASSERT_TRUE(log->Append(LogData::Foxglove::CTitleStart(99, "PartNumber", "1.0", 1)));
  ASSERT_TRUE(log->Append(LogData::Foxglove::CWrongAnswer(7, "Which?", "\"that\"")));
  ASSERT_TRUE(log->Append(LogData::Foxglove::CAchievementEarned(65535)));
  EXPECT_EQ(ReadText(log->GetPath()),
            "{\"time\":0,\"type\":\"TitleStart\",\"id\":99,\"name\":\"PartNumber\",\"version\":\"1.0\","
            "\"number\":1}\n"
            "{\"time\":0,\"type\":\"WrongAnswer\",\"questionId\":7,\"question\":\"Which?\",\"answer\":"
            "\"\\\"that\\\"\"}\n"
            "{\"time\":0,\"type\":\"AchievementEarned\",\"id\":65535}\n");
}

TEST_F(LogTest, DebugOutputReachesTheLogFileAtOnce) {
  PlatformDebugOutput("first line\n");
  // Readable before the file is closed: a killed run keeps what it printed.
  EXPECT_EQ(ReadText(dir / "debug.log"), "first line\n");
  PlatformDebugOutput("second\n");
  PlatformDebugOutput(nullptr);
  EXPECT_EQ(ReadText(dir / "debug.log"), "first line\nsecond\n");
}

}  // namespace
