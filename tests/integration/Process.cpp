#include "Process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace integration {
namespace {

Paths s_Paths;
std::vector<std::string> s_TempDirs;

void RemoveTempDirs() {
  for (const std::string& dir : s_TempDirs) {
    std::string command = "rm -rf '" + dir + "'";
    if (system(command.c_str()) != 0) fprintf(stderr, "could not remove %s\n", dir.c_str());
  }
}

}  // namespace

const Paths& GetPaths() {
  return s_Paths;
}

std::string MakeTempDir() {
  const char* base = getenv("TMPDIR");
  std::string pattern = std::string(base && base[0] ? base : "/tmp") + "/corrin-it-XXXXXX";
  if (!mkdtemp(&pattern[0])) return std::string();
  if (s_TempDirs.empty()) atexit(RemoveTempDirs);
  s_TempDirs.push_back(pattern);
  return pattern;
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
}

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

int FindLine(const std::vector<std::string>& lines, const std::string& text, int from) {
  for (size_t i = static_cast<size_t>(from < 0 ? 0 : from); i < lines.size(); ++i) {
    if (lines[i] == text) return static_cast<int>(i);
  }
  return -1;
}

ProcessResult RunProcess(const std::vector<std::string>& argv, const std::vector<std::string>& extraEnv,
                         int timeoutSeconds) {
  ProcessResult result;
  std::string dir = MakeTempDir();
  std::string outPath = dir + "/stdout", errPath = dir + "/stderr";
  pid_t pid = fork();
  if (pid == 0) {
    int out = open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    int err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(out, 1);
    dup2(err, 2);
    for (const std::string& assignment : extraEnv) putenv(strdup(assignment.c_str()));
    std::vector<char*> args;
    for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    execv(args[0], args.data());
    _exit(127);
  }
  int status = 0;
  time_t deadline = time(nullptr) + timeoutSeconds;
  while (waitpid(pid, &status, WNOHANG) == 0) {
    if (time(nullptr) > deadline) {
      kill(pid, SIGKILL);
      waitpid(pid, &status, 0);
      result.timedOut = true;
      break;
    }
    usleep(10000);
  }
  if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) result.signal = WTERMSIG(status);
  result.out = ReadFile(outPath);
  result.err = ReadFile(errPath);
  return result;
}

}  // namespace integration

// The paths come as --name=value arguments from CMake; GoogleTest takes its own first.
int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  integration::Paths& paths = integration::s_Paths;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    auto take = [&](const char* name, std::string& out) {
      std::string prefix = std::string("--") + name + "=";
      if (arg.compare(0, prefix.size(), prefix) == 0) out = arg.substr(prefix.size());
    };
    take("appmanager", paths.appmanager);
    take("fake-title", paths.fakeTitle);
    take("bad-title", paths.badTitle);
    take("real-title", paths.realTitle);
  }
  if (paths.appmanager.empty() || paths.fakeTitle.empty()) {
    fprintf(
        stderr,
        "usage: test_integration --appmanager=PATH --fake-title=DIR [--bad-title=DIR] [--real-title=DIR]\n");
    return 2;
  }
  return RUN_ALL_TESTS();
}
