// The on-screen assertion: reports the failed expression, shows it over the last
// frame and holds the game until the child presses pause or holds the screen.
#include "core/Debug.h"
#include "core/GameHost.h"
#include "core/Vector3.h"
#include "debug/AssertionHold.h"
#include "debug/DebugOverlay.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "input/Controller.h"
#include "input/Input.h"

namespace nox {

namespace {

bool ScreenTouched() {
  Screen* screen = ScreenManager::Get();
  if (!screen) return false;
  for (int i = 0; i < screen->GetTouchStateCount(); ++i) {
    if (screen->GetTouchState(i).down) return true;
  }
  return false;
}

}  // namespace

void AssertionHandler(const char* expression, const char* function, const char* file, long line) {
  const char* kHeader = "ERROR: Assertion failed. Please report this message to a programmer.";
  const char* kFooter = "Press pause button or hold screen for 2 seconds to continue...";
  AutomationPrintf("%s", kHeader);
  AutomationPrintf("Expression: %s", expression);
  AutomationPrintf("Function: %s", function);
  AutomationPrintf("File: %s", file);
  AutomationPrintf("Line: %ld", line);
  AutomationPrintf("%s", kFooter);

  // Without a display and input (tests, tools, early start) there is nobody to wait for.
  DebugOverlay* overlay = DebugOverlay::sm_pInstance;
  ScreenManager* screens = ScreenManager::GetPtr();
  if (!overlay || !screens || !Input::s_pInput || !GameHost::s_pGameHost) return;

  const Vector3 red(Real(1), Real(0), Real(0));
  overlay->AddString(false, red, "%s", kHeader);
  overlay->AddString(false, red, "Expression: %s", expression);
  overlay->AddString(false, red, "Function: %s", function);
  overlay->AddString(false, red, "File: %s", file);
  overlay->AddString(false, red, "Line: %ld", line);
  overlay->AddString(false, red, "%s", kFooter);
  overlay->Draw();
  screens->SwapBuffers(0);

  AssertionHold hold;
  for (;;) {
    Input::s_pInput->Update();
    bool pause = Input::s_pInput->GetController(0)->GetTriggeredButtons(0x400) != 0;
    if (hold.Pass(pause, ScreenTouched())) break;
    GameHost::s_pGameHost->Sleep(AssertionHold::kPassMS);
  }
}

}  // namespace nox
