// A stand-in application for the host's integration tests. It clears the screen to a
// colour that follows the frame number (red = frame * 3 mod 256, green 128, blue 64),
// marks the touch point with an 8x8 white square, and prints what it sees through the
// platform's debug output:
//   fake_app: enter
//   fake_app: frame N time T          every 30 frames (T is the kernel clock)
//   fake_app: buttons S changed C     when the button word changes
//   fake_app: touch S X Y             for each touch event
//   fake_app: tilt X Y Z              for each accelerometer message
//   fake_app: suspend | resume | exit
// The environment variable FAKE_APP_POP_FRAME makes it call PopApp on that frame.
// Nothing here allocates per frame, so --stats can see the host's own allocations;
// FAKE_APP_ALLOCATE=1 makes it allocate (and free) one block a frame, to prove the count.
#include <EGL/egl.h>
#include <GLES/gl.h>

#include <boost/make_shared.hpp>
#include <cstdio>
#include <cstdlib>

#include "ostra/AccelerometerMPI.h"
#include "ostra/AppInterface.h"
#include "ostra/ButtonMPI.h"
#include "ostra/DebugOut.h"
#include "ostra/DisplayMPI.h"
#include "ostra/KernelMPI.h"
#include "ostra/TouchEventQueue.h"

namespace {

using namespace Hollin::Ostra;

void Print(const char* format, long a = 0, long b = 0, long c = 0) {
  char line[128];
  snprintf(line, sizeof line, format, a, b, c);
  PlatformDebugOutput(line);
}

class TiltListener : public IEventListener {
 public:
  TiltListener() : IEventListener(kGroupAccelerometer) {}
  tErrType Notify(const IEventMessage& msg) override {
    if (msg.GetEventType() != kAccelerometerDataChanged) return kErr;
    const tAccelerometerData& d = static_cast<const CAccelerometerMessage&>(msg).GetAccelerometerData();
    Print("fake_app: tilt %ld %ld %ld\n", d.accelX, d.accelY, d.accelZ);
    return kNoErr;
  }
};

class FakeApp : public CAppInterface {
 public:
  void Enter() override {
    AllocOverideEnable();
    m_pDisplay = new OstraOpenGLConfig(2, 14);
    eglSwapInterval(m_pDisplay->eglDisplay, 1);
    m_Accelerometer.RegisterEventListener(&m_Tilt);
    const char* pop = getenv("FAKE_APP_POP_FRAME");
    m_PopFrame = pop ? atol(pop) : -1;
    const char* allocate = getenv("FAKE_APP_ALLOCATE");
    m_bAllocate = allocate && allocate[0] == '1';
    Print("fake_app: enter\n");
  }

  void Update() override {
    tButtonData2 buttons = m_Buttons.GetButtonState2();
    if (buttons.buttonTransition)
      Print("fake_app: buttons %lx changed %lx\n", buttons.buttonState, buttons.buttonTransition);
    tTouchData touch;
    while (m_Touch.Front(touch)) {
      Print("fake_app: touch %ld %ld %ld\n", touch.touchState, touch.x, touch.y);
      m_bTouching = touch.touchState != 0;
      m_TouchX = touch.x;
      m_TouchY = touch.y;
      m_Touch.PopFront();
    }
    if (m_Frame % 30 == 0) Print("fake_app: frame %ld time %ld\n", m_Frame, m_Kernel.GetElapsedTimeAsMSecs());

    glViewport(0, 0, 480, 272);
    glDisable(GL_SCISSOR_TEST);
    GLfixed red = static_cast<GLfixed>((m_Frame * 3 % 256) * 65536 / 255);
    glClearColorx(red, 128 * 65536 / 255, 64 * 65536 / 255, 65536);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (m_bTouching) {
      glEnable(GL_SCISSOR_TEST);
      glScissor(m_TouchX - 4, 272 - m_TouchY - 4, 8, 8);
      glClearColorx(65536, 65536, 65536, 65536);
      glClear(GL_COLOR_BUFFER_BIT);
      glDisable(GL_SCISSOR_TEST);
    }
    eglSwapBuffers(m_pDisplay->eglDisplay, m_pDisplay->eglSurface);
    if (m_Frame == m_PopFrame) CAppManager::Instance()->PopApp();
    if (m_bAllocate) {
      // Kept until the next frame, so the compiler cannot drop the pair.
      delete[] m_pScratch;
      m_pScratch = new char[64];
    }
    ++m_Frame;
  }

  void Exit() override {
    m_Accelerometer.UnregisterEventListener(&m_Tilt);
    delete m_pDisplay;
    m_pDisplay = nullptr;
    delete[] m_pScratch;
    m_pScratch = nullptr;
    Print("fake_app: exit after %ld frames\n", m_Frame);
  }

  void Suspend() override { Print("fake_app: suspend\n"); }
  void Resume() override { Print("fake_app: resume\n"); }

 private:
  OstraOpenGLConfig* m_pDisplay = nullptr;  // owned
  CKernelMPI m_Kernel;
  CButtonMPI m_Buttons;
  CTouchEventQueue m_Touch;
  CAccelerometerMPI m_Accelerometer;
  TiltListener m_Tilt;
  long m_Frame = 0;
  long m_PopFrame = -1;
  bool m_bTouching = false;
  bool m_bAllocate = false;
  char* m_pScratch = nullptr;  // owned
  int m_TouchX = 0;
  int m_TouchY = 0;
};

}  // namespace

__attribute__((visibility("default"))) boost::shared_ptr<CAppInterface> CreateApp(void* userData) {
  return boost::make_shared<FakeApp>();
}
