// appmanager refuses what it cannot run with one clear line and a non-zero status.
#include <gtest/gtest.h>

#include "Process.h"

namespace integration {
namespace {

// Runs appmanager headless (so no window is tried) and returns the result.
ProcessResult RunAppManager(std::vector<std::string> args) {
  args.insert(args.begin(), GetPaths().appmanager);
  return RunProcess(args);
}

void ExpectOneLineFailure(const ProcessResult& r, const std::string& fragment) {
  EXPECT_NE(r.exitCode, 0);
  EXPECT_EQ(r.signal, 0) << r.err;
  std::vector<std::string> lines = SplitLines(r.err);
  ASSERT_EQ(lines.size(), 1u) << r.err;
  EXPECT_EQ(lines[0].rfind("appmanager: ", 0), 0u) << lines[0];
  EXPECT_NE(lines[0].find(fragment), std::string::npos) << lines[0];
}

TEST(AppManagerErrors, MissingOrUnusableTitlesAreRejected) {
  std::string empty = MakeTempDir();
  ExpectOneLineFailure(RunAppManager({"--headless", "--title", empty + "/nowhere"}), "does not exist");
  ExpectOneLineFailure(RunAppManager({"--headless", "--title", empty}), "App.so not found");
  ExpectOneLineFailure(RunAppManager({"--headless", "--title", GetPaths().badTitle}), "has no CreateApp");

  // A file that is not a shared object at all.
  WriteFile(empty + "/App.so", "not an ELF file\n");
  ExpectOneLineFailure(RunAppManager({"--headless", "--title", empty}), "cannot load");
  ExpectOneLineFailure(RunAppManager({"--headless"}), "no title directory");
}

TEST(AppManagerErrors, BadOptionsAndValuesAreRejectedBeforeAnythingRuns) {
  const std::string title = GetPaths().fakeTitle;
  ExpectOneLineFailure(RunAppManager({"--title", title, "--bogus"}), "unknown option '--bogus'");
  ExpectOneLineFailure(RunAppManager({"--title", title, "--scale", "5"}), "--scale");
  ExpectOneLineFailure(RunAppManager({"--title", title, "--scale=0"}), "--scale");
  ExpectOneLineFailure(RunAppManager({"--title", title, "--clock", "fast"}), "--clock");
  ExpectOneLineFailure(RunAppManager({"--title", title, "--frames", "-3"}), "--frames");
  ExpectOneLineFailure(RunAppManager({"--title", title, "--grade", "256"}), "--grade");
  ExpectOneLineFailure(RunAppManager({"--title", title, "--screenshot", "12"}), "FRAME:FILE");
  ExpectOneLineFailure(RunAppManager({"--title", title, "--headless=yes"}), "takes no value");
  ExpectOneLineFailure(RunAppManager({"--title"}), "needs a value");
}

TEST(AppManagerErrors, ABadInputScriptLineIsNamedByFileAndLine) {
  std::string dir = MakeTempDir();
  std::string script = dir + "/bad.input";
  WriteFile(script, "# fine\n0 tap 10 10\n5 tap 500 10\n");
  ProcessResult r = RunAppManager({"--headless", "--title", GetPaths().fakeTitle, "--input", script});
  ExpectOneLineFailure(r, script + ":3: ");
  EXPECT_EQ(r.exitCode, 2);
}

TEST(AppManagerErrors, HelpDescribesEveryOption) {
  ProcessResult r = RunAppManager({"--help"});
  EXPECT_EQ(r.exitCode, 0);
  for (const char* option : {"--title", "--downloads", "--saves", "--player", "--grade", "--locale",
                             "--cheats", "--clock", "--headless", "--scale", "--fullscreen", "--frames",
                             "--screenshot", "--input", "--log", "--quiet", "--stats", "--help"}) {
    EXPECT_NE(r.out.find(option), std::string::npos) << option;
  }
}

}  // namespace
}  // namespace integration
