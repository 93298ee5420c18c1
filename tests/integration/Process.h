// Runs a program to completion for the integration tests: arguments, extra environment,
// captured stdout and stderr, exit status, and a time limit after which it is killed.
#pragma once
#include <string>
#include <vector>

namespace integration {

struct ProcessResult {
  int exitCode = -1;  // -1 when it did not exit normally
  int signal = 0;     // the signal that ended it, if any
  bool timedOut = false;
  std::string out;
  std::string err;
};

ProcessResult RunProcess(const std::vector<std::string>& argv, const std::vector<std::string>& extraEnv = {},
                         int timeoutSeconds = 120);

// The paths given on the test program's command line.
struct Paths {
  std::string appmanager;
  std::string fakeTitle;
  std::string badTitle;
  std::string realTitle;
};
const Paths& GetPaths();

// A fresh empty directory under the system's temp directory, removed at exit.
std::string MakeTempDir();
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& text);
std::vector<std::string> SplitLines(const std::string& text);
// The index of the first of `lines` equal to `text` at or after `from`, or -1.
int FindLine(const std::vector<std::string>& lines, const std::string& text, int from = 0);
inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

}  // namespace integration
