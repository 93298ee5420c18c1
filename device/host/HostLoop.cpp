#include "HostLoop.h"

#include <dlfcn.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <ctime>
#include <memory>

#include "AllocCounter.h"
#include "FrameStats.h"
#include "display/Framebuffer.h"
#include "display/Screenshot.h"
#include "input/InputScript.h"
#include "input/InputState.h"
#include "kernel/Clock.h"
#include "ostra/AppInterface.h"
#include "ostra/BaseUtils.h"
#include "ostra/HostAudio.h"
#include "window/Window.h"

namespace appmanager {
namespace {

namespace Ostra = Hollin::Ostra;
using Ostra::Framebuffer::kHeight;
using Ostra::Framebuffer::kWidth;

const char* const kCreateAppSymbol = "_Z9CreateAppPv";  // CreateApp(void*)

void Say(const std::string& line) {
  fprintf(stderr, "appmanager: %s\n", line.c_str());
}

bool HasDisplay() {
  const char* x11 = getenv("DISPLAY");
  const char* wayland = getenv("WAYLAND_DISPLAY");
  return (x11 && x11[0]) || (wayland && wayland[0]);
}

// The next free "screenshot-NNNN.png" in the working directory.
std::string NextScreenshotPath() {
  char cwd[PATH_MAX];
  std::string dir = getcwd(cwd, sizeof cwd) ? cwd : ".";
  for (int i = 1; i < 10000; ++i) {
    char name[32];
    snprintf(name, sizeof name, "/screenshot-%04d.png", i);
    if (!BaseUtils::FileExists(dir + name)) return dir + name;
  }
  return dir + "/screenshot.png";
}

// Reads the frame back, writes the screenshots due and shows it in the window. The GL
// read-back and the window system allocate inside their libraries; the caller leaves
// this step out of the allocation count. False when a requested screenshot failed.
bool ShowFrame(const Options& options, U32 frame, bool numberedShot, bool windowed, U8* pixels) {
  if (!Ostra::Framebuffer::ReadPixels(pixels)) return true;
  bool ok = true;
  for (const ScreenshotRequest& shot : options.screenshots) {
    std::string error;
    if (shot.frame == frame && !Ostra::Screenshot::WritePng(shot.path, pixels, kWidth, kHeight, error)) {
      Say("cannot write screenshot " + error);
      ok = false;
    }
  }
  if (numberedShot) {
    std::string path = NextScreenshotPath(), error;
    if (Ostra::Screenshot::WritePng(path, pixels, kWidth, kHeight, error)) {
      Say("screenshot written to " + path);
    } else {
      Say("cannot write screenshot " + error);
    }
  }
  if (windowed) Ostra::Window::Present(pixels);
  return ok;
}

// Sleeps until the next 60 Hz tick, the pace a window shows frames at.
class Pacer {
 public:
  void Wait() {
    const long long kFrameNSecs = 1000000000ll / 60;
    long long now = Now();
    if (m_Next == 0 || now - m_Next > 100000000ll) m_Next = now;  // start, or after a stall
    m_Next += kFrameNSecs;
    long long wait = m_Next - now;
    if (wait > 0) {
      timespec ts = {static_cast<time_t>(wait / 1000000000ll), static_cast<long>(wait % 1000000000ll)};
      nanosleep(&ts, nullptr);
    }
  }

 private:
  static long long Now() {
    timespec ts;
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return ts.tv_sec * 1000000000ll + ts.tv_nsec;
  }
  long long m_Next = 0;
};

}  // namespace

int RunHost(const Options& options) {
  const std::string& title = options.config.titlePath;
  if (!BaseUtils::DirectoryExists(title)) {
    Say("title directory '" + title + "' does not exist");
    return 1;
  }
  const std::string appPath = title + "/App.so";
  if (!BaseUtils::FileExists(appPath)) {
    Say(appPath + " not found");
    return 1;
  }
  Ostra::InputScript script;
  if (!options.inputScript.empty()) {
    std::string error;
    if (!script.Load(options.inputScript, error)) {
      Say(error);
      return 2;
    }
  }

  void* library = dlopen(appPath.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) {
    Say(std::string("cannot load ") + dlerror());
    return 1;
  }
  auto createApp = reinterpret_cast<CreateAppFunc>(dlsym(library, kCreateAppSymbol));
  if (!createApp) {
    Say(appPath + " has no CreateApp(void*)");
    return 1;
  }

  bool windowed = false;
  if (!options.forceHeadless) {
    std::string error;
    if (!HasDisplay()) {
      if (!options.config.quiet) Say("no display (DISPLAY and WAYLAND_DISPLAY are unset); running headless");
    } else if (!Ostra::Window::Open(options.scale, options.fullscreen, error)) {
      if (!options.config.quiet) Say("cannot open a window (" + error + "); running headless");
    } else {
      windowed = true;
    }
  }
  Ostra::Host::HostConfig config = options.config;
  config.headless = !windowed;
  Ostra::Host::SetHostConfig(config);
  Ostra::InputState::Reset();
  std::string audioError;
  if (!Ostra::HostAudio::Configure(options.audioOut, options.mute, !windowed, audioError)) {
    // The run goes on without that output.
    Say(audioError);
  }

  // All of the frame's memory is made here, before the first frame.
  std::unique_ptr<U8[]> pixels(new U8[kWidth * kHeight * 4]);
  FrameStats stats;
  Pacer pacer;
  int status = 0;

  boost::shared_ptr<CAppInterface> app = createApp(nullptr);
  if (!app) {
    Say("CreateApp returned no application");
    if (windowed) Ostra::Window::Close();
    return 1;
  }
  app->Enter();
  if (options.stats && AllocCounter::IsAvailable()) AllocCounter::CountThisThread();

  bool suspended = false;
  U32 frame = 0;
  for (; options.frames < 0 || frame < options.frames; ++frame) {
    stats.BeginFrame();
    Ostra::Window::HostEvents events;
    if (windowed) {
      // Reading X11 events allocates inside Xlib; that is the window system's business.
      AllocCounter::PauseThisThread();
      Ostra::Window::PumpEvents(events);
      AllocCounter::ResumeThisThread();
    }
    for (Ostra::ScriptEvent::Kind kind; (kind = script.Play(frame)) != Ostra::ScriptEvent::kTouch;) {
      if (kind == Ostra::ScriptEvent::kSuspend) events.focusLost = true;
      if (kind == Ostra::ScriptEvent::kResume) events.focusGained = true;
      if (kind == Ostra::ScriptEvent::kQuit) events.quit = true;
    }
    if (events.quit) break;
    if (events.focusLost && !suspended) {
      app->Suspend();
      suspended = true;
    }
    if (events.focusGained && suspended) {
      app->Resume();
      suspended = false;
    }

    Ostra::Clock::AdvanceFrame();
    // Mixing and decoding allocate inside the platform, not in the application.
    AllocCounter::PauseThisThread();
    Ostra::HostAudio::Update();
    AllocCounter::ResumeThisThread();
    if (!suspended) {
      app->Update();
      // The driver's fences for finishing the frame are its own allocations.
      AllocCounter::PauseThisThread();
      Ostra::Framebuffer::FinishFrame();
      AllocCounter::ResumeThisThread();
    }

    bool shotDue = events.screenshot;
    for (const ScreenshotRequest& shot : options.screenshots) shotDue |= shot.frame == frame;
    if (windowed || shotDue) {
      AllocCounter::PauseThisThread();
      if (!ShowFrame(options, frame, events.screenshot, windowed, pixels.get())) status = 1;
      AllocCounter::ResumeThisThread();
    }
    stats.EndFrame(frame);
    if (CAppManager::Instance()->IsPopRequested()) {
      ++frame;
      break;
    }
    if (windowed) pacer.Wait();
  }

  app->Exit();
  app.reset();
  // Before the window closes: closing it shuts SDL down. This also finishes the WAV.
  Ostra::HostAudio::Shutdown();
  if (windowed) Ostra::Window::Close();
  for (const ScreenshotRequest& shot : options.screenshots) {
    if (shot.frame >= frame)
      Say("no screenshot for frame " + std::to_string(shot.frame) + ": the run ended before it");
  }
  if (options.stats) {
    const char* note = nullptr;
    if (!AllocCounter::IsAvailable())
      note = "sanitizer build";
    else if (!IsAllocOverideEnabled())
      note = "the application did not call AllocOverideEnable";
    stats.Print(stdout, frame, note);
  }
  // App.so stays loaded: its code may still be named by atexit handlers and leak reports.
  return status;
}

}  // namespace appmanager
