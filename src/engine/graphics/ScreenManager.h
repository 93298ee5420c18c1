// Owns the one display: creates the GL context through the platform at start, holds
// the display's Screen (id 0), sets the viewport and shows each finished frame.
// Created third at start, destroyed late; textures and buffers can exist only while
// it does. Get() is the display's screen, GetPtr() the manager.
#pragma once
#include <cstdint>

#include "core/Vector2.h"
#include "graphics/Screen.h"
#include "platform/ScreenManager_pf.h"

namespace nox {

class ScreenManager : public ScreenManager_pf {
 public:
  static void Create();
  static void Destroy();
  static ScreenManager* GetPtr() { return sm_pInstance; }
  // The display's screen; null while no manager exists.
  static Screen* Get() { return sm_pInstance ? &sm_pInstance->m_Screens[0] : nullptr; }

  // Makes the GL configuration and the screen of the size the display reports.
  void Initialize();
  // The viewport over the whole device; there is one screen, whatever the id.
  void SetActiveScreen(uint32_t id);
  void SwapBuffers(uint32_t id);
  // Always this screen and the same point.
  bool GlobalToScreen(const Vector2& point, Screen*& screen, Vector2& screenPoint);
  uint32_t GetScreenCount() const { return m_ScreenCount; }
  uint16_t GetDeviceWidth() const { return m_Screens[0].GetDeviceWidth(); }
  uint16_t GetDeviceHeight() const { return m_Screens[0].GetDeviceHeight(); }

 private:
  ScreenManager() = default;
  ~ScreenManager() = default;
  static ScreenManager* sm_pInstance;
};

}  // namespace nox
