// One frame of the window manager on the headless Mesa context: a bare clear and
// swap against frames with N windows, each drawing one 64 by 64 sprite through its
// own sprite batch. glFinish ends each frame so the driver's work is counted.
#include <GLES/gl.h>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "core/GameHost.h"
#include "graphics/GLTexture.h"
#include "graphics/RenderBuffer2D.h"
#include "graphics/ScreenManager.h"
#include "graphics/Window.h"
#include "graphics/WindowManager.h"
#include "ostra/HostConfig.h"

namespace {

class SpriteWindow : public nox::Window {
 public:
  SpriteWindow(nox::GLTexture* texture, int x, int y) : m_pTexture(texture), m_X(x), m_Y(y) {}
  void Draw() override {
    m_Batch.SetTexture(m_pTexture);
    nox::Vertex2D* v = m_Batch.Reserve(6);
    Corner(v[0], 0, 0);
    Corner(v[1], 0, 1);
    Corner(v[2], 1, 1);
    v[3] = v[0];
    v[4] = v[2];
    Corner(v[5], 1, 0);
    m_Batch.Flush();
  }

 private:
  void Corner(nox::Vertex2D& v, int u, int w) const {
    v.x = nox::Real(m_X + 64 * u);
    v.y = nox::Real(m_Y + 64 * w);
    v.z = nox::Real(0);
    v.u = nox::Real(u);
    v.v = nox::Real(w);
    v.r = v.g = v.b = v.a = 255;
  }
  nox::RenderBuffer2D m_Batch;
  nox::GLTexture* m_pTexture;
  int m_X;
  int m_Y;
};

struct Display {
  Display() {
    Hollin::Ostra::Host::HostConfig config;
    config.clock = Hollin::Ostra::Host::ClockMode::kVirtual;
    config.quiet = true;
    Hollin::Ostra::Host::SetHostConfig(config);
    nox::GameHost::Create();
    nox::ScreenManager::Create();
    nox::WindowManager::Create();
  }
  ~Display() {
    nox::WindowManager::Destroy();
    nox::ScreenManager::Destroy();
    nox::GameHost::Destroy();
  }
};

void Frame() {
  nox::WindowManager* windows = nox::WindowManager::Get();
  windows->Clear();
  windows->Draw();
  nox::ScreenManager::GetPtr()->SwapBuffers(0);
  glFinish();
}

void BM_ClearAndSwap(benchmark::State& state) {
  Display display;
  for (auto _ : state) Frame();
}
BENCHMARK(BM_ClearAndSwap)->Unit(benchmark::kMicrosecond);

void BM_WindowsWithOneSpriteEach(benchmark::State& state) {
  Display display;
  nox::GLTexture texture(nox::TextureFormat::kRGBA);
  std::vector<uint16_t> texels(64 * 64, 0xF0F8);
  texture.Update(64, 64, nox::PixelFormat::kRGBA4444, texels.data());
  std::vector<std::unique_ptr<SpriteWindow>> list;
  for (int i = 0; i < state.range(0); ++i) {
    list.emplace_back(new SpriteWindow(&texture, (i * 37) % 416, (i * 23) % 208));
    nox::WindowManager::Get()->OpenWindow(list.back().get(), false);
  }
  for (auto _ : state) Frame();
  for (auto& w : list) nox::WindowManager::Get()->CloseWindow(w.get());
}
BENCHMARK(BM_WindowsWithOneSpriteEach)->Arg(1)->Arg(8)->Arg(32)->Unit(benchmark::kMicrosecond);

// What the window manager does between windows, alone: the depth clear before each.
void BM_DepthClearsAlone(benchmark::State& state) {
  Display display;
  for (auto _ : state) {
    nox::WindowManager::Get()->Clear();
    for (int i = 0; i < state.range(0); ++i) glClear(GL_DEPTH_BUFFER_BIT);
    nox::ScreenManager::GetPtr()->SwapBuffers(0);
    glFinish();
  }
}
BENCHMARK(BM_DepthClearsAlone)->Arg(8)->Arg(32)->Unit(benchmark::kMicrosecond);

}  // namespace
