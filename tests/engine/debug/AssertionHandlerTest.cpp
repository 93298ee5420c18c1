#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <string>
#include <vector>

#include "core/Debug.h"
#include "ostra/HostConfig.h"

namespace Host = Hollin::Ostra::Host;

TEST(AssertionHandler, PrintsItsSixLinesThroughTheAutomationLogAndGoesOn) {
  char pattern[] = "/tmp/assert-test-XXXXXX";
  std::string dir = mkdtemp(pattern);
  Host::HostConfig config;
  config.logFile = dir + "/automation.log";
  config.quiet = true;
  Host::SetHostConfig(config);

  int value = 3;
  NOX_ASSERT(value == 4);
  NOX_ASSERT(value == 3);  // holds: prints nothing

  Host::SetHostConfig(Host::HostConfig());  // closes the log
  std::vector<std::string> lines;
  std::ifstream in(dir + "/automation.log");
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0], "ERROR: Assertion failed. Please report this message to a programmer.");
  EXPECT_EQ(lines[1], "Expression: value == 4");
  EXPECT_NE(lines[2].find("Function: "), std::string::npos);
  EXPECT_NE(lines[3].find("AssertionHandlerTest.cpp"), std::string::npos);
  EXPECT_EQ(lines[4].rfind("Line: ", 0), 0u);
  EXPECT_EQ(lines[5], "Press pause button or hold screen for 2 seconds to continue...");
  unlink(config.logFile.c_str());
  rmdir(dir.c_str());
}
