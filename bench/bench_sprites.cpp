// A busy 2D frame on the headless Mesa context: 300 animated sprites played by one
// animation engine and a scrolling background that covers the screen, against a bare
// clear and swap. 280 sprites share one sheet; 20 larger ones fetch and unpack each
// frame as they play, each into its own texture, as big characters do. The background swings back and forth
// across a 1024 by 512 picture of distinct tiles, so it crosses tile boundaries (and streams tiles) all the
// time.
//
// Reported per frame: the process's CPU time (the rasteriser's threads included) and
// the wall time (glFinish ends each frame), and "allocs", the heap allocations made on
// the benchmark's thread per steady frame, GL driver included (a bare frame shows the
// driver's own share). BM_SpritesUpdateOnly is the engine's work without any drawing.
//
// The sprites and the background are written by the asset tools' library into a
// temporary title directory at start.
#include <GLES/gl.h>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "AllocCounter.h"
#include "BenchTitle.h"
#include "Image.h"
#include "TilWriter.h"
#include "core/HashString.h"
#include "graphics/AnimationEngine.h"
#include "graphics/ScreenManager.h"
#include "graphics/ScrollableQuad.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimation.h"
#include "graphics/Window.h"
#include "graphics/WindowManager.h"

namespace {

using assetlib::Image;
using nox::Real;

const int kSprites = 300;
const int kFetchedSprites = 20;  // of kSprites
const unsigned long kFrameMS = 17;

// Eight 32 by 32 frames: a disc with a bar that turns a step a frame, each frame its
// own picture.
Image SpinnerFrame(int frame) {
  Image image(32, 32);
  for (int y = 0; y < 32; ++y) {
    for (int x = 0; x < 32; ++x) {
      const int dx = 2 * x - 31, dy = 2 * y - 31;
      if (dx * dx + dy * dy > 30 * 30) continue;
      uint8_t* p = image.At(x, y);
      const bool bar = (frame % 4 == 0 && dy * dy < 36) || (frame % 4 == 1 && (dx - dy) * (dx - dy) < 72) ||
                       (frame % 4 == 2 && dx * dx < 36) || (frame % 4 == 3 && (dx + dy) * (dx + dy) < 72);
      p[0] = bar ? 255 : static_cast<uint8_t>(60 + frame * 20);
      p[1] = bar ? 255 : 80;
      p[2] = bar ? 255 : static_cast<uint8_t>(200 - frame * 20);
      p[3] = 255;
    }
  }
  return image;
}

// Smooth bands with a distinct tile everywhere: no two tiles share a slot.
Image Background() {
  Image image(1024, 512);
  for (uint32_t y = 0; y < 512; ++y) {
    for (uint32_t x = 0; x < 1024; ++x) {
      uint8_t* p = image.At(x, y);
      p[0] = static_cast<uint8_t>(x / 4 + y / 32 * 16);
      p[1] = static_cast<uint8_t>(y / 2);
      p[2] = static_cast<uint8_t>((x + y) / 8 + x / 32 * 8);
      p[3] = 255;
    }
  }
  return image;
}

// Eight frames of a spinner `size` pixels wide, "Spin", stored as asked.
assetlib::AnimDesc SpinnerDescription(int size, assetlib::AnimStorage storage) {
  assetlib::AnimDesc desc;
  desc.tileSize = 16;
  desc.storage = storage;
  desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
  assetlib::AnimSequenceDesc spin;
  spin.name = "Spin";
  spin.originX = size / 2;
  spin.originY = size / 2;
  for (int f = 0; f < 8; ++f) spin.frames.push_back({{0u, "f" + std::to_string(f)}});
  desc.sequences.push_back(spin);
  return desc;
}

// The same spinner drawn twice as large.
Image Doubled(const Image& small) {
  Image big(small.width * 2, small.height * 2);
  for (uint32_t y = 0; y < big.height; ++y) {
    for (uint32_t x = 0; x < big.width; ++x) memcpy(big.At(x, y), small.At(x / 2, y / 2), 4);
  }
  return big;
}

bool WriteSprite(const bench::BenchTitle& title, const std::string& name, const assetlib::AnimDesc& desc,
                 bool doubled) {
  return title.WriteSprite(name, desc, [doubled](const std::string& picture, Image& out, std::string&) {
    out = SpinnerFrame(atoi(picture.c_str() + 1));
    if (doubled) out = Doubled(out);
    return true;
  });
}

bool WriteAssets(const bench::BenchTitle& title) {
  std::string error;
  assetlib::TilOutput til;
  if (!assetlib::BuildTil(Background(), assetlib::TilOptions(), "BenchSky", til, error)) {
    fprintf(stderr, "bench_sprites: %s\n", error.c_str());
    return false;
  }
  return WriteSprite(title, "BenchSpinner", SpinnerDescription(32, assetlib::AnimStorage::kSheet), false) &&
         WriteSprite(title, "BenchBig", SpinnerDescription(64, assetlib::AnimStorage::kFrames), true) &&
         title.Write("Levels/BenchSky.til", til.index) && title.Write("Levels/BenchSky-tiled.tex", til.data);
}

// The engine's singletons over a temporary title with the assets in it.
struct Display {
  Display() : m_bReady(WriteAssets(m_Title)) {
    nox::ScreenManager::Create();
    nox::WindowManager::Create();
  }
  ~Display() {
    nox::WindowManager::Destroy();
    nox::ScreenManager::Destroy();
  }
  bench::BenchTitle m_Title{"bench_sprites"};
  const bool m_bReady;
};

// A world scene's view reduced to its drawing: the background, then the sprites.
class SceneWindow : public nox::Window {
 public:
  SceneWindow() : m_Quad(32, 0) {}
  ~SceneWindow() override {
    for (nox::TileAnimation* sprite : m_Sprites) {
      m_Engine.RemoveAnimation(sprite);
      delete sprite;
    }
  }
  bool Load() {
    m_Small.reset(new nox::TileAnimData("BenchSpinner", false, false));
    m_Big.reset(new nox::TileAnimData("BenchBig", false, false));
    if (!m_Small->IsLoaded() || !m_Big->IsLoaded() || !m_Quad.Initialize("BenchSky")) return false;
    const nox::NameHash spin = nox::HashString("Spin");
    for (int i = 0; i < kSprites; ++i) {
      nox::TileAnimation* sprite =
          (i % (kSprites / kFetchedSprites) == 0 ? m_Big : m_Small)->CreateCellAnimation();
      sprite->SetLoop(true);
      sprite->Play(spin, i % 8, i % 3 == 0, false);
      sprite->SetPosition(Real(16 + i * 37 % 448), Real(16 + i * 23 % 240), Real(i % 50));
      m_Sprites.push_back(sprite);
      m_Engine.AddAnimation(sprite);
    }
    return true;
  }
  void Update(unsigned long ms) override {
    // Back and forth over the picture's width beyond the screen, 3 pixels a frame.
    m_Step = (m_Step + 1) % (2 * 180);
    const int x = m_Step < 180 ? m_Step * 3 : (360 - m_Step) * 3;
    m_Quad.SetPosition(nox::Vector2(Real(x), Real(x / 4)));
    m_Quad.Update();
    m_Engine.Update(ms);
  }
  void Draw() override {
    m_Quad.Draw();
    m_Engine.Draw();
  }

 private:
  std::unique_ptr<nox::TileAnimData> m_Small;  // on one sheet
  std::unique_ptr<nox::TileAnimData> m_Big;    // frames fetched as they play
  nox::ScrollableQuad m_Quad;
  nox::AnimationEngine m_Engine;
  std::vector<nox::TileAnimation*> m_Sprites;  // owned
  int m_Step = 0;
};

void Frame() {
  nox::WindowManager* windows = nox::WindowManager::Get();
  windows->Update(kFrameMS);
  windows->Clear();
  windows->Draw();
  nox::ScreenManager::GetPtr()->SwapBuffers(0);
  glFinish();
}

// Runs the frames of the timed loop with the thread's allocations counted, after a
// second of warm-up frames in which the driver builds its pipelines.
template <typename F>
void CountedLoop(benchmark::State& state, F frame) {
  for (int i = 0; i < 60; ++i) frame();
  const uint64_t before = appmanager::AllocCounter::Count();
  appmanager::AllocCounter::CountThisThread();
  for (auto _ : state) frame();
  appmanager::AllocCounter::PauseThisThread();
  if (!appmanager::AllocCounter::IsAvailable()) {
    state.counters["allocs"] = -1;  // not counted in sanitizer builds
    return;
  }
  state.counters["allocs"] = benchmark::Counter(
      static_cast<double>(appmanager::AllocCounter::Count() - before), benchmark::Counter::kAvgIterations);
}

void BM_BareClearAndSwap(benchmark::State& state) {
  Display display;
  CountedLoop(state, Frame);
}
BENCHMARK(BM_BareClearAndSwap)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime()->UseRealTime();

void BM_300SpritesAndScrollingBackground(benchmark::State& state) {
  Display display;
  SceneWindow scene;
  if (!display.m_bReady || !scene.Load()) {
    state.SkipWithError("the sprites or the background could not be made");
    return;
  }
  nox::WindowManager::Get()->OpenWindow(&scene, false);
  scene.SetScreen(nox::ScreenManager::Get());
  CountedLoop(state, Frame);
  nox::WindowManager::Get()->CloseWindow(&scene);
}
BENCHMARK(BM_300SpritesAndScrollingBackground)
    ->Unit(benchmark::kMicrosecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

// The engine's side alone: sorting and stepping 300 sprites and following the scroll
// (tile streaming included), with nothing drawn.
void BM_SpritesUpdateOnly(benchmark::State& state) {
  Display display;
  SceneWindow scene;
  if (!display.m_bReady || !scene.Load()) {
    state.SkipWithError("the sprites or the background could not be made");
    return;
  }
  CountedLoop(state, [&scene] { scene.Update(kFrameMS); });
}
BENCHMARK(BM_SpritesUpdateOnly)->Unit(benchmark::kMicrosecond);

}  // namespace
