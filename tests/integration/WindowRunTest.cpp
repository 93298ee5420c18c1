// appmanager in a real window: under Xvfb on a display of our own, and with the title
// that the game's build assembles.
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "Process.h"
#include "Screenshots.h"

namespace integration {
namespace {

bool Executable(const std::string& path) {
  return access(path.c_str(), X_OK) == 0;
}

std::string FindXvfb() {
  for (const char* path : {"/usr/bin/Xvfb", "/usr/local/bin/Xvfb"}) {
    if (Executable(path)) return path;
  }
  return std::string();
}

// An Xvfb server on the first free display from :90, stopped when this goes.
class XServer {
 public:
  bool Start(const std::string& xvfb) {
    for (int n = 90; n < 190; ++n) {
      std::string lock = "/tmp/.X" + std::to_string(n) + "-lock";
      std::string socket = "/tmp/.X11-unix/X" + std::to_string(n);
      if (access(lock.c_str(), F_OK) == 0 || access(socket.c_str(), F_OK) == 0) continue;
      m_Pid = fork();
      if (m_Pid == 0) {
        freopen("/dev/null", "w", stderr);
        std::string display = ":" + std::to_string(n);
        execl(xvfb.c_str(), xvfb.c_str(), display.c_str(), "-screen", "0", "1280x720x24", "-nolisten", "tcp",
              static_cast<char*>(nullptr));
        _exit(127);
      }
      // Ready when its socket appears; a server that lost the race for the number exits.
      for (int i = 0; i < 100; ++i) {
        if (access(socket.c_str(), F_OK) == 0) {
          m_Display = ":" + std::to_string(n);
          return true;
        }
        int status;
        if (waitpid(m_Pid, &status, WNOHANG) == m_Pid) break;
        usleep(50000);
      }
      Stop();
    }
    return false;
  }
  void Stop() {
    if (m_Pid > 0) {
      kill(m_Pid, SIGTERM);
      waitpid(m_Pid, nullptr, 0);
    }
    m_Pid = -1;
  }
  ~XServer() { Stop(); }
  const std::string& Display() const { return m_Display; }

 private:
  pid_t m_Pid = -1;
  std::string m_Display;
};

TEST(WindowRun, SixtyFramesInAnXvfbWindowShowTheAppsPicture) {
  std::string xvfb = FindXvfb();
  if (xvfb.empty())
    GTEST_SKIP() << "Xvfb is not installed (apt-get install xvfb); the window test cannot run";
  XServer server;
  ASSERT_TRUE(server.Start(xvfb)) << "could not start Xvfb";

  std::string dir = MakeTempDir();
  ProcessResult r = RunProcess(
      {GetPaths().appmanager, "--title", GetPaths().fakeTitle, "--clock", "virtual", "--frames", "60",
       "--scale", "2", "--screenshot", "59:" + dir + "/window.png", "--log", dir + "/run.log", "--quiet"},
      {"DISPLAY=" + server.Display(), "WAYLAND_DISPLAY="});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  // A fallback to headless would be announced; the run must really have had a window.
  EXPECT_EQ(r.err.find("running headless"), std::string::npos) << r.err;
  EXPECT_NE(ReadFile(dir + "/run.log").find("fake_app: exit after 60 frames"), std::string::npos);

  Picture picture;
  ASSERT_TRUE(picture.Load(dir + "/window.png"));
  EXPECT_EQ(picture.width, 480);
  EXPECT_EQ(picture.height, 272);
  const unsigned char* px = picture.At(240, 136);
  EXPECT_NEAR(px[0], FakeRed(59), 1);
  EXPECT_NEAR(px[1], kFakeGreen, 1);
  EXPECT_NEAR(px[2], kFakeBlue, 1);
}

TEST(WindowRun, WithoutADisplayTheHostSaysSoAndRunsHeadless) {
  ProcessResult r = RunProcess({GetPaths().appmanager, "--title", GetPaths().fakeTitle, "--frames", "3"},
                               {"DISPLAY=", "WAYLAND_DISPLAY="});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.err.find("appmanager: no display"), std::string::npos) << r.err;
}

TEST(RealTitle, TheGameRunsHeadlessForTwoSecondsOfVirtualTime) {
  const std::string& title = GetPaths().realTitle;
  struct stat st;
  if (title.empty() || stat((title + "/App.so").c_str(), &st) != 0) {
    GTEST_SKIP() << "the title is not built yet (" << title << "/App.so); build the 'title' target";
  }
  std::string dir = MakeTempDir();
  ProcessResult r = RunProcess({GetPaths().appmanager, "--title", title, "--headless", "--clock", "virtual",
                                "--frames", "120", "--quiet", "--saves", dir + "/saves", "--log",
                                dir + "/run.log", "--screenshot", "119:" + dir + "/last.png"},
                               {}, 240);
  EXPECT_EQ(r.exitCode, 0) << r.err << ReadFile(dir + "/run.log");
  EXPECT_EQ(r.signal, 0) << r.err;
  Picture picture;
  ASSERT_TRUE(picture.Load(dir + "/last.png"));
  EXPECT_EQ(picture.width, 480);
}

}  // namespace
}  // namespace integration
