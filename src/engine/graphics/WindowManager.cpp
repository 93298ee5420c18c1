#include "graphics/WindowManager.h"

#include <GLES/gl.h>

#include "graphics/GLUtils.h"
#include "graphics/Screen.h"
#include "graphics/ScreenManager.h"
#include "graphics/Window.h"

namespace nox {

WindowManager* WindowManager::sm_pInstance = nullptr;

WindowManager::WindowManager()
    : m_ClearColour{Real(0), Real(0), Real(0), Real(255)}, m_Profiler("Test"), m_Marker(1, nullptr) {
  m_InputCopy.reserve(32);
}

WindowManager::~WindowManager() {}

void WindowManager::Create() {
  if (!sm_pInstance) sm_pInstance = new WindowManager();
}

void WindowManager::Destroy() {
  delete sm_pInstance;
  sm_pInstance = nullptr;
}

void WindowManager::OpenWindow(Window* window, bool overlay) {
  (overlay ? m_Overlays : m_Windows).push_back(window);
  window->Open();
}

void WindowManager::CloseWindow(Window* window) {
  for (std::list<Window*>* list : {&m_Windows, &m_Overlays}) {
    for (auto it = list->begin(); it != list->end(); ++it) {
      if (*it == window) {
        list->erase(it);
        window->Close();
        return;
      }
    }
  }
  window->Close();
}

void WindowManager::Update(unsigned long ms) {
  UpdateList(m_Windows, ms);
  UpdateList(m_Overlays, ms);
}

void WindowManager::UpdateList(std::list<Window*>& list, unsigned long ms) {
  // The marker sits behind the window being updated, so the window may close itself
  // or any other window; the walk resumes from the marker's successor. Its node is
  // spliced in and out, never allocated, and holds null so no search ever finds it.
  auto it = list.begin();
  while (it != list.end()) {
    Window* window = *it;
    auto marker = m_Marker.begin();
    list.splice(std::next(it), m_Marker, marker);
    window->Update(ms);
    auto next = std::next(marker);
    m_Marker.splice(m_Marker.begin(), list, marker);
    it = next;
  }
}

bool WindowManager::HandleInputList(const std::list<Window*>& list) {
  m_InputCopy.assign(list.begin(), list.end());
  for (auto it = m_InputCopy.rbegin(); it != m_InputCopy.rend(); ++it) {
    if ((*it)->HandleInput()) return true;
  }
  return false;
}

void WindowManager::HandleInput() {
  if (HandleInputList(m_Overlays)) return;
  HandleInputList(m_Windows);
}

void WindowManager::SetClearColour(Real red, Real green, Real blue, Real alpha) {
  m_ClearColour[0] = red;
  m_ClearColour[1] = green;
  m_ClearColour[2] = blue;
  m_ClearColour[3] = alpha;
}

void WindowManager::Clear() {
  glClearColorx(m_ClearColour[0].Raw(), m_ClearColour[1].Raw(), m_ClearColour[2].Raw(),
                m_ClearColour[3].Raw());
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void WindowManager::Draw() {
  ApplyOrthographicProjection(ScreenManager::Get(), Real(0), Real(-1000));
  glShadeModel(GL_FLAT);
  glDepthFunc(GL_LEQUAL);
  glEnable(GL_DEPTH_TEST);
  glDisable(GL_CULL_FACE);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glEnable(GL_BLEND);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glTranslatex(m_GlobalDrawOffset.x.Raw(), m_GlobalDrawOffset.y.Raw(), m_GlobalDrawOffset.z.Raw());
  DrawList(m_Windows);
  DrawList(m_Overlays);
}

void WindowManager::DrawList(const std::list<Window*>& list) {
  ScreenManager* screens = ScreenManager::GetPtr();
  for (auto it = list.begin(); it != list.end();) {
    Window* window = *it++;
    // A listed window is visible by contract; one that is not is passed over rather
    // than waited on.
    if (!window->GetVisible()) continue;
    if (screens) {
      const Screen* screen = window->GetScreen();
      screens->SetActiveScreen(screen ? screen->GetId() : 0);
    }
    glClear(GL_DEPTH_BUFFER_BIT);
    window->Draw();
  }
}

}  // namespace nox
