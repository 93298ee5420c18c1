// A headless title for the widget tests: a title directory with button sprites
// written by the asset library, the GL pbuffer under the virtual clock, the input
// with scripted buttons and the platform's touch queue, and the window manager.
#pragma once
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "../../engine/files/TestFiles.h"
#include "AnimWriter.h"
#include "Image.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "graphics/ScreenManager.h"
#include "graphics/WindowManager.h"
#include "input/Input.h"
#include "ostra/HostConfig.h"
#include "ostra/KernelMPI.h"
#include "ostra/TouchEventQueue.h"

namespace menutest {

namespace Host = Hollin::Ostra::Host;

struct Colour {
  uint8_t r, g, b, a;
};

inline assetlib::Image Filled(uint32_t width, uint32_t height, Colour c) {
  assetlib::Image image(width, height);
  for (uint32_t y = 0; y < height; ++y) {
    for (uint32_t x = 0; x < width; ++x) {
      uint8_t* p = image.At(x, y);
      p[0] = c.r;
      p[1] = c.g;
      p[2] = c.b;
      p[3] = c.a;
    }
  }
  return image;
}

// The colour of each button state in the test sprites.
const Colour kActiveColour = {0, 255, 0, 255};
const Colour kSelectColour = {255, 255, 0, 255};
const Colour kTriggerColour = {255, 0, 0, 255};
const Colour kOtherColour = {0, 0, 255, 255};

inline uint32_t Rgb(Colour c) {
  return static_cast<uint32_t>(c.r) << 16 | c.g << 8 | c.b;
}

// The raw pad word the input reads in the tests.
inline uint32_t& TestButtons() {
  static uint32_t buttons = 0;
  return buttons;
}
inline uint32_t ReadTestButtons() {
  return TestButtons();
}

class WidgetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Host::HostConfig config;
    config.titlePath = m_Dir / "title";
    config.saveRoot = m_Dir / "players";
    config.logFile = m_Dir / "automation.log";
    config.clock = Host::ClockMode::kVirtual;
    config.headless = true;
    config.quiet = true;
    Host::SetHostConfig(config);
    BaseUtils::MakeDirectories(config.titlePath + "/AnimData");
    Hollin::Ostra::CTouchEventQueue().Clear();
    TestButtons() = 0;
    nox::Input::SetButtonSource(ReadTestButtons);
    nox::GameHost::Create();
    nox::PathRegistry::Create();
    nox::ScreenManager::Create();
    nox::WindowManager::Create();
    nox::Input::Create(1);
  }
  void TearDown() override {
    nox::Input::Destroy();
    nox::WindowManager::Destroy();
    nox::ScreenManager::Destroy();
    nox::PathRegistry::Destroy();
    nox::GameHost::Destroy();
    nox::Input::SetButtonSource(nullptr);
    Hollin::Ostra::CTouchEventQueue().Clear();
    Host::SetHostConfig(Host::HostConfig());
  }

  // A button sprite of `width` by `height` with its "Origin" at the top left, the
  // rectangle "Hotspot0" over all of it, and one frame per state in the state's
  // colour; "Prompt" has three frames. With an offset the picture and its hotspot lie
  // that far from the origin, as in art drawn where it sits on the screen.
  void WriteButton(const std::string& name, int width = 40, int height = 30, int offsetX = 0,
                   int offsetY = 0) {
    assetlib::AnimDesc desc;
    desc.tileSize = 8;
    desc.storage = assetlib::AnimStorage::kSheet;
    desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
    struct State {
      const char* name;
      const char* picture;
      int frames;
    };
    const State states[] = {{"Active", "active", 1},    {"Select", "select", 1}, {"Trigger", "trigger", 1},
                            {"Inactive", "other", 1},   {"Prompt", "other", 3},  {"Activate", "other", 2},
                            {"Highlight", "select", 1}, {"Idle", "active", 1}};
    for (const State& state : states) {
      assetlib::AnimSequenceDesc seq;
      seq.name = state.name;
      seq.originX = -offsetX;
      seq.originY = -offsetY;
      for (int f = 0; f < state.frames; ++f) seq.frames.push_back({{0u, state.picture}});
      seq.points.push_back({"Origin", std::vector<assetlib::AnimPoint>(state.frames, {false, 0, 0})});
      seq.rects.push_back(
          {"Hotspot0", std::vector<assetlib::AnimRect>(
                           state.frames, {false, offsetX, offsetY, offsetX + width, offsetY + height})});
      desc.sequences.push_back(seq);
    }
    const uint32_t w = static_cast<uint32_t>(width), h = static_cast<uint32_t>(height);
    std::vector<std::pair<std::string, assetlib::Image>> pictures = {
        {"active", Filled(w, h, kActiveColour)},
        {"select", Filled(w, h, kSelectColour)},
        {"trigger", Filled(w, h, kTriggerColour)},
        {"other", Filled(w, h, kOtherColour)}};
    WriteSprite(name, desc, pictures);
  }

  void WriteSprite(const std::string& name, const assetlib::AnimDesc& desc,
                   const std::vector<std::pair<std::string, assetlib::Image>>& pictures) {
    assetlib::ImageSource images = [&pictures](const std::string& picture, assetlib::Image& out,
                                               std::string& error) {
      for (const auto& p : pictures) {
        if (p.first == picture) {
          out = p.second;
          return true;
        }
      }
      error = picture + ": no such picture";
      return false;
    };
    assetlib::AnimOutput output;
    std::string error;
    ASSERT_TRUE(assetlib::BuildAnim(desc, images, name, output, error)) << error;
    const std::string dir = m_Dir / "title/AnimData/";
    testfiles::WriteBytes(dir + name + ".anim", output.anim);
    testfiles::WriteBytes(dir + name + ".tex", output.tex);
  }

  static void Touch(bool down, int x, int y) {
    Hollin::Ostra::tTouchData t;
    t.touchState = down ? 100 : 0;
    t.x = static_cast<int16_t>(x);
    t.y = static_cast<int16_t>(y);
    t.timeMS = 0;
    Hollin::Ostra::CTouchEventQueue().Push(t);
  }
  // One frame of the title: time passes, the input is polled, the windows take the
  // input and update.
  static void Frame(uint32_t ms = 17) {
    Hollin::Ostra::CKernelMPI().TaskSleep(ms);
    nox::GameHost::s_pGameHost->Update();
    nox::Input::s_pInput->Update();
    nox::WindowManager::Get()->HandleInput();
    nox::WindowManager::Get()->Update(ms);
  }
  // A pad button pressed for one frame and let go in the next.
  static void Tap(uint32_t bits) {
    TestButtons() = bits;
    Frame();
    TestButtons() = 0;
    Frame();
  }
  // A touch down at one point, held for a few frames, and lifted at another.
  static void Stroke(int x0, int y0, int x1, int y1) {
    Touch(true, x0, y0);
    Frame();
    Frame();
    Touch(true, x1, y1);
    Frame();
    Frame();
    Touch(false, x1, y1);
    Frame();
    Frame();
  }
  // The drawn pixel at (x, y), y down, as 0xRRGGBB.
  static uint32_t Pixel(int x, int y) {
    uint8_t p[4] = {};
    glReadPixels(x, 271 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, p);
    return static_cast<uint32_t>(p[0]) << 16 | p[1] << 8 | p[2];
  }
  // Clears and draws the windows, as the title does.
  static void DrawFrame() {
    nox::WindowManager::Get()->Clear();
    nox::WindowManager::Get()->Draw();
  }

  int LogCount(const std::string& text) const {
    int n = 0;
    std::string log = testfiles::ReadText(m_Dir / "automation.log");
    for (size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) ++n;
    return n;
  }

  testfiles::TempDir m_Dir;
};

}  // namespace menutest
