// The string table of a level: its text form, line endings, and refusal of a table
// that ends early.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "core/StringTable.h"
#include "ostra/HostConfig.h"

namespace {

// Sends the platform's debug output to a file of our own and reads it back.
class StringTableTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_LogPath = "/tmp/nox-stringtable-" + std::to_string(getpid()) + ".log";
    Hollin::Ostra::Host::HostConfig config;
    config.logFile = m_LogPath;
    config.quiet = true;
    Hollin::Ostra::Host::SetHostConfig(config);
  }
  void TearDown() override {
    Hollin::Ostra::Host::SetHostConfig(Hollin::Ostra::Host::HostConfig{});
    remove(m_LogPath.c_str());
  }
  std::vector<std::string> LogLines() const {
    std::ifstream in(m_LogPath);
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(in, line)) lines.push_back(line);
    return lines;
  }
  std::vector<std::string> Entries(const noxfw::StringTable& table) const {
    std::vector<std::string> out;
    for (unsigned long i = 0; i < table.GetCount(); ++i) out.push_back(table.GetString(i));
    return out;
  }

  std::string m_LogPath;
};

TEST_F(StringTableTest, ReadsCountLinesAfterTheHeaderLineAndDropsLineEndings) {
  std::istringstream text("StringTable 42 4 anything else on this line\nHello\r\nA\rB\n\nlast");
  noxfw::StringTable table;
  EXPECT_TRUE(table.Initialize(text));
  EXPECT_EQ(Entries(table), (std::vector<std::string>{"Hello", "AB", "", "last"}));
}

TEST_F(StringTableTest, LeavesTheRestOfTheStreamForTheNextElement) {
  std::istringstream text("Strings 0 1\nfirst\n3471272874 more");
  noxfw::StringTable table;
  EXPECT_TRUE(table.Initialize(text));
  unsigned long next = 0;
  text >> next;
  EXPECT_EQ(next, 3471272874u);
}

TEST_F(StringTableTest, ACountOfZeroOrLessGivesAnEmptyTable) {
  for (const char* header : {"T 0 0\nignored\n", "T 0 -5\nignored\n"}) {
    std::istringstream text(header);
    noxfw::StringTable table;
    EXPECT_TRUE(table.Initialize(text)) << header;
    EXPECT_EQ(table.GetCount(), 0u);
  }
  EXPECT_TRUE(LogLines().empty());
}

TEST_F(StringTableTest, ATableThatEndsEarlyIsRefusedWithOneLineNamingIt) {
  const char* broken[] = {"T 0 3\none\ntwo\n", "T 0 2147483647\nonly\n", "T 0\n", "", "T x 2\na\nb\n"};
  int refused = 0;
  for (const char* input : broken) {
    std::istringstream text(input);
    noxfw::StringTable table;
    EXPECT_FALSE(table.Initialize(text, "Zone3.fun")) << input;
    EXPECT_EQ(table.GetCount(), 0u) << input;
    ++refused;
  }
  std::vector<std::string> lines = LogLines();
  ASSERT_EQ(static_cast<int>(lines.size()), refused);
  for (const std::string& line : lines) EXPECT_NE(line.find("Zone3.fun"), std::string::npos) << line;
}

TEST_F(StringTableTest, AnIndexPastTheEndGivesAnEmptyString) {
  std::istringstream text("T 0 1\nonly\n");
  noxfw::StringTable table;
  ASSERT_TRUE(table.Initialize(text));
  EXPECT_EQ(table.GetString(0), "only");
  EXPECT_EQ(table.GetString(1), "");
  EXPECT_EQ(table.GetString(~0ul), "");
}

}  // namespace
