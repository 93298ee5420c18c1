// Keeps the two ordered lists of open windows (normal, then overlays) and runs their
// update, input and draw each frame. Windows are borrowed, never owned: whoever
// created a window closes it here and then destroys it.
//
// Order: overlays see input first and draw last; within a list the newest window sees
// input first and the oldest draws first. The depth buffer is cleared before each
// window, so the order on screen is the opening order alone.
//
// Safety while walking: during Update a window may close itself or any other window
// (a marker node keeps the walk's place); during HandleInput handlers may open and
// close windows (the walk is over a copy). Steady frames allocate nothing: the marker
// node and the copy's storage are kept from frame to frame.
#pragma once
#include <cstdint>
#include <list>
#include <vector>

#include "core/NoCopy.h"
#include "core/Profiler.h"
#include "core/Real.h"
#include "core/Vector3.h"

namespace nox {

class Window;

class WindowManager : public NoCopy {
 public:
  static void Create();
  static void Destroy();
  static WindowManager* Get() { return sm_pInstance; }

  void Initialize() {}
  // Appends to the overlay or the normal list and opens the window. Opening twice
  // lists the window twice.
  void OpenWindow(Window* window, bool overlay);
  // Takes the first entry of the window out (normal list first) and closes it, listed
  // or not.
  void CloseWindow(Window* window);
  // Updates the normal list, then the overlays, oldest first.
  void Update(unsigned long ms);
  // Offers the input to the overlays, then the normal windows, newest first; the
  // first window that consumes it ends the walk.
  void HandleInput();
  // Clears colour and depth with the clear colour.
  void Clear();
  // The screen's projection and the windows' common draw state, then every window.
  void Draw();

  // Red, green, blue, alpha as Reals (GL's 0 to 1.0 range); black with alpha 255.0 at
  // start.
  void SetClearColour(Real red, Real green, Real blue, Real alpha);
  const Real* GetClearColour() const { return m_ClearColour; }
  // Translation applied to the model view before any window draws.
  void SetGlobalDrawOffset(const Vector3& offset) { m_GlobalDrawOffset = offset; }
  const Vector3& GetGlobalDrawOffset() const { return m_GlobalDrawOffset; }
  const std::list<Window*>& GetWindows() const { return m_Windows; }
  const std::list<Window*>& GetOverlays() const { return m_Overlays; }

  virtual ~WindowManager();

 private:
  WindowManager();
  void UpdateList(std::list<Window*>& list, unsigned long ms);
  bool HandleInputList(const std::list<Window*>& list);
  void DrawList(const std::list<Window*>& list);

  static WindowManager* sm_pInstance;
  std::list<Window*> m_Windows;   // borrowed
  std::list<Window*> m_Overlays;  // borrowed
  Vector3 m_GlobalDrawOffset;     // virtual pixels
  Real m_ClearColour[4];          // red, green, blue, alpha
  Profiler m_Profiler;            // named "Test"

  std::vector<Window*> m_InputCopy;  // reused each frame
  std::list<Window*> m_Marker;       // the one spare node spliced in while a window updates
};

}  // namespace nox
