// A headless GL context for the graphics tests (the platform's pbuffer of 480 by 272
// on Mesa, under the virtual clock), and reading pixels back in virtual coordinates.
#pragma once
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "core/GameHost.h"
#include "graphics/ScreenManager.h"
#include "ostra/HostConfig.h"

namespace gltest {

namespace Host = Hollin::Ostra::Host;

struct Rgb {
  uint8_t r, g, b;
  bool operator==(const Rgb& o) const { return r == o.r && g == o.g && b == o.b; }
};

inline std::ostream& operator<<(std::ostream& os, const Rgb& c) {
  return os << "(" << int(c.r) << ", " << int(c.g) << ", " << int(c.b) << ")";
}

const Rgb kRed = {255, 0, 0};
const Rgb kGreen = {0, 255, 0};
const Rgb kBlue = {0, 0, 255};
const Rgb kBlack = {0, 0, 0};

class GLTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Host::HostConfig config;
    config.clock = Host::ClockMode::kVirtual;
    config.headless = true;
    config.quiet = true;
    Host::SetHostConfig(config);
    nox::GameHost::Create();
    nox::ScreenManager::Create();
    m_pScreen = nox::ScreenManager::Get();
    ASSERT_EQ(m_pScreen->GetDeviceWidth(), 480);
    ASSERT_EQ(m_pScreen->GetDeviceHeight(), 272);
  }
  void TearDown() override {
    nox::ScreenManager::Destroy();
    nox::GameHost::Destroy();
  }

  // The pixel at virtual (x, y) of the upright screen: GL counts rows from the bottom.
  static Rgb PixelAt(int x, int y) {
    uint8_t rgba[4] = {};
    glReadPixels(x, 271 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    return Rgb{rgba[0], rgba[1], rgba[2]};
  }

  static void ClearTo(const Rgb& c) {
    glClearColorx(c.r * 0x10000 / 255, c.g * 0x10000 / 255, c.b * 0x10000 / 255, 0x10000);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }

  nox::Screen* m_pScreen = nullptr;
};

}  // namespace gltest
