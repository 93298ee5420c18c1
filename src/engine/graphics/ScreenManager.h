// Owns the one display: creates the GL context through the platform at start, sets
// the viewport and shows each finished frame.
#pragma once
#include <cstdint>

#include "platform/ScreenManager_pf.h"

namespace nox {

class ScreenManager : public ScreenManager_pf {
 public:
  static void Create();
  static void Destroy();
  static ScreenManager* GetPtr() { return sm_pInstance; }

  void Initialize();
  void SetActiveScreen(uint32_t id);
  void SwapBuffers(uint32_t id);
  uint16_t GetDeviceWidth() const { return m_DeviceWidth; }
  uint16_t GetDeviceHeight() const { return m_DeviceHeight; }

 private:
  ScreenManager() = default;
  static ScreenManager* sm_pInstance;
  uint16_t m_DeviceWidth = 0;
  uint16_t m_DeviceHeight = 0;
};

}  // namespace nox
