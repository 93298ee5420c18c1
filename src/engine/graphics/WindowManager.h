// Keeps the two ordered lists of open windows (normal, then overlays) and runs their
// update, input and draw each frame. Windows are borrowed, never owned. Overlays see
// input first and draw last; within a list the newest window sees input first and
// the oldest draws first.
#pragma once
#include <cstdint>
#include <list>
#include <vector>

#include "core/NoCopy.h"

namespace nox {

class Window;

class WindowManager : public NoCopy {
 public:
  static void Create();
  static void Destroy();
  static WindowManager* Get() { return sm_pInstance; }

  void Initialize() {}
  void OpenWindow(Window* window, bool overlay);
  void CloseWindow(Window* window);
  void Update(unsigned long ms);
  void HandleInput();
  void Clear();
  void Draw();

  virtual ~WindowManager();

 private:
  WindowManager();
  void UpdateList(std::list<Window*>& list, unsigned long ms);
  bool HandleInputList(const std::list<Window*>& list);
  void DrawList(const std::list<Window*>& list);

  static WindowManager* sm_pInstance;
  std::list<Window*> m_Windows;      // borrowed
  std::list<Window*> m_Overlays;     // borrowed
  std::vector<Window*> m_InputCopy;  // reused each frame: no allocation once it is large enough
  std::list<Window*> m_Marker;       // one spare node spliced in while a window updates
  int32_t m_ClearColour[4];          // Q16.16 red, green, blue, alpha
};

}  // namespace nox
