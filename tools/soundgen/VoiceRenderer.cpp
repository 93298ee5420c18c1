#include "VoiceRenderer.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

extern char** environ;

namespace soundgen {

namespace {

// Starts `args` with stdin and stdout redirected (-1 leaves them as they are). Every pipe
// is made close-on-exec, so a program started by another thread never holds our ends
// open; dup2 onto 0 and 1 clears the flag for the child's own copies.
bool Spawn(const std::vector<std::string>& args, int in, int out, pid_t& pid, std::string& error) {
  std::vector<char*> argv;
  for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (in >= 0) posix_spawn_file_actions_adddup2(&actions, in, 0);
  if (out >= 0) posix_spawn_file_actions_adddup2(&actions, out, 1);
  const int rc = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) {
    error = "cannot start " + args[0] + ": " + strerror(rc) + " (scripts/install-deps installs it)";
    return false;
  }
  return true;
}

bool Reap(pid_t pid, const std::string& name, std::string& error) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) {
      error = "lost " + name;
      return false;
    }
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return true;
  if (error.empty()) error = name + " failed (status " + std::to_string(status) + ")";
  return false;
}

}  // namespace

bool RenderVoice(const std::string& words, const Speaker& speaker, std::vector<int16_t>& samples,
                 std::string& error) {
  const std::vector<std::string> speak = {"espeak-ng",
                                          "-v",
                                          speaker.voice,
                                          "-p",
                                          std::to_string(speaker.pitch),
                                          "-s",
                                          std::to_string(speaker.speed),
                                          "-g",
                                          std::to_string(speaker.wordGap),
                                          "-b",
                                          "1",
                                          "--stdout",
                                          words};
  const std::vector<std::string> convert = {"sox",  "-q",   "-t",   "wav",     "-",
                                            "-t",   "raw",  "-r",   "16000",   "-c",
                                            "1",    "-b",   "16",   "-e",      "signed-integer",
                                            "-L",   "-",    "norm", "-3",      "silence",
                                            "1",    "0.02", "-50d", "reverse", "silence",
                                            "1",    "0.02", "-50d", "reverse", "pad",
                                            "0.02", "0.08"};
  int between[2], result[2];
  if (pipe2(between, O_CLOEXEC) != 0) {
    error = "no pipe";
    return false;
  }
  if (pipe2(result, O_CLOEXEC) != 0) {
    close(between[0]);
    close(between[1]);
    error = "no pipe";
    return false;
  }
  pid_t speakPid = -1, convertPid = -1;
  bool ok = Spawn(speak, -1, between[1], speakPid, error);
  close(between[1]);
  if (ok) ok = Spawn(convert, between[0], result[1], convertPid, error);
  close(between[0]);
  close(result[1]);

  std::vector<unsigned char> bytes;
  unsigned char chunk[16384];
  for (;;) {
    const ssize_t got = read(result[0], chunk, sizeof chunk);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    bytes.insert(bytes.end(), chunk, chunk + got);
  }
  close(result[0]);
  if (speakPid > 0) ok = Reap(speakPid, "espeak-ng", error) && ok;
  if (convertPid > 0) ok = Reap(convertPid, "sox", error) && ok;
  if (!ok) return false;

  samples.resize(bytes.size() / 2);
  for (size_t i = 0; i < samples.size(); ++i) {
    samples[i] = static_cast<int16_t>(static_cast<uint16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8));
  }
  if (samples.empty()) {
    error = "espeak-ng and sox gave no sound";
    return false;
  }
  return true;
}

bool VoiceToolsAvailable() {
  const char* path = getenv("PATH");
  if (!path) return false;
  auto found = [&](const char* name) {
    std::string dirs = path;
    size_t pos = 0;
    while (pos <= dirs.size()) {
      const size_t end = dirs.find(':', pos);
      const std::string dir = dirs.substr(pos, end == std::string::npos ? std::string::npos : end - pos);
      if (!dir.empty() && access((dir + "/" + name).c_str(), X_OK) == 0) return true;
      if (end == std::string::npos) break;
      pos = end + 1;
    }
    return false;
  };
  return found("espeak-ng") && found("sox");
}

}  // namespace soundgen
