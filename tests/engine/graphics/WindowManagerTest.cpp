// The window lists: opening and closing, the walk of Update when windows close
// during it, the input order, and the draw order on real pixels, where the opening
// order wins over any depth.
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "GLTestSupport.h"
#include "graphics/Window.h"
#include "graphics/WindowManager.h"

namespace {

using gltest::kBlue;
using gltest::kGreen;
using gltest::kRed;
using gltest::Rgb;
using nox::Real;
using nox::WindowManager;

std::vector<std::string> g_Log;

class TestWindow : public nox::Window {
 public:
  explicit TestWindow(const char* name) : m_Name(name) {}
  void Update(unsigned long ms) override {
    g_Log.push_back(m_Name);
    m_LastMS = ms;
    if (onUpdate) onUpdate();
  }
  void Draw() override {
    g_Log.push_back(std::string("draw ") + m_Name);
    if (onDraw) onDraw();
  }
  bool HandleInput() override {
    g_Log.push_back(std::string("input ") + m_Name);
    if (onInput) onInput();
    return m_bConsumes;
  }
  void Close() override {
    ++closes;
    Window::Close();
  }

  std::string m_Name;
  unsigned long m_LastMS = 0;
  bool m_bConsumes = false;
  int closes = 0;
  std::function<void()> onUpdate;
  std::function<void()> onDraw;
  std::function<void()> onInput;
};

// A quad over the whole screen at depth z in one colour.
void FillScreen(Real z, const Rgb& c) {
  const GLfixed v[12] = {0,         0,         z.Raw(), 0,         272 << 16, z.Raw(),
                         480 << 16, 272 << 16, z.Raw(), 480 << 16, 0,         z.Raw()};
  glColor4x(c.r * 0x101, c.g * 0x101, c.b * 0x101, 0x10000);
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(3, GL_FIXED, 0, v);
  glDrawArrays(GL_TRIANGLE_FAN, 0, 4);
  glDisableClientState(GL_VERTEX_ARRAY);
}

class Windows : public ::testing::Test {
 protected:
  void SetUp() override {
    g_Log.clear();
    WindowManager::Create();
    m_pManager = WindowManager::Get();
  }
  void TearDown() override { WindowManager::Destroy(); }
  WindowManager* m_pManager = nullptr;
};

class WindowDrawing : public gltest::GLTest {
 protected:
  void SetUp() override {
    gltest::GLTest::SetUp();
    g_Log.clear();
    WindowManager::Create();
  }
  void TearDown() override {
    WindowManager::Destroy();
    gltest::GLTest::TearDown();
  }
};

}  // namespace

TEST_F(Windows, OpeningTwiceListsTwiceAndClosingTakesOneEntryAndAlwaysCloses) {
  TestWindow a("a"), stray("stray");
  m_pManager->OpenWindow(&a, false);
  m_pManager->OpenWindow(&a, false);
  EXPECT_EQ(a.GetWindowState(), nox::Window::kOpen);
  EXPECT_EQ(m_pManager->GetWindows().size(), 2u);
  m_pManager->Update(5);
  EXPECT_EQ(g_Log, (std::vector<std::string>{"a", "a"}));

  m_pManager->CloseWindow(&a);
  EXPECT_EQ(m_pManager->GetWindows().size(), 1u);
  EXPECT_EQ(a.closes, 1);

  // Unlisted: closed all the same, no list changes.
  stray.Open();
  m_pManager->CloseWindow(&stray);
  EXPECT_EQ(stray.closes, 1);
  EXPECT_EQ(stray.GetWindowState(), nox::Window::kClosed);
  EXPECT_EQ(m_pManager->GetWindows().size(), 1u);
  EXPECT_TRUE(m_pManager->GetOverlays().empty());
}

TEST_F(Windows, UpdateRunsNormalsThenOverlaysOldestFirstAndSurvivesClosingDuringTheWalk) {
  TestWindow a("a"), b("b"), c("c"), o("o");
  m_pManager->OpenWindow(&o, true);
  m_pManager->OpenWindow(&a, false);
  m_pManager->OpenWindow(&b, false);
  m_pManager->OpenWindow(&c, false);
  // a closes itself, b closes the window after it and opens a new one at the end.
  TestWindow d("d");
  a.onUpdate = [&] { m_pManager->CloseWindow(&a); };
  b.onUpdate = [&] {
    m_pManager->CloseWindow(&c);
    m_pManager->OpenWindow(&d, false);
  };
  m_pManager->Update(16);
  EXPECT_EQ(g_Log, (std::vector<std::string>{"a", "b", "d", "o"}));
  EXPECT_EQ(d.m_LastMS, 16u);

  // A window that closes the window before it (the marker's predecessor) is safe too.
  g_Log.clear();
  b.onUpdate = nullptr;
  d.onUpdate = [&] { m_pManager->CloseWindow(&b); };
  m_pManager->Update(16);
  EXPECT_EQ(g_Log, (std::vector<std::string>{"b", "d", "o"}));
  g_Log.clear();
  m_pManager->Update(16);
  EXPECT_EQ(g_Log, (std::vector<std::string>{"d", "o"}));
}

TEST_F(Windows, InputGoesToOverlaysThenNormalsNewestFirstUntilOneConsumes) {
  TestWindow a("a"), b("b"), o1("o1"), o2("o2");
  m_pManager->OpenWindow(&a, false);
  m_pManager->OpenWindow(&b, false);
  m_pManager->OpenWindow(&o1, true);
  m_pManager->OpenWindow(&o2, true);
  m_pManager->HandleInput();
  EXPECT_EQ(g_Log, (std::vector<std::string>{"input o2", "input o1", "input b", "input a"}));

  g_Log.clear();
  o1.m_bConsumes = true;
  m_pManager->HandleInput();
  EXPECT_EQ(g_Log, (std::vector<std::string>{"input o2", "input o1"}));

  // A handler may close windows, itself included, during the walk.
  g_Log.clear();
  o1.m_bConsumes = false;
  TestWindow late("late");
  o2.onInput = [&] {
    m_pManager->CloseWindow(&o2);
    m_pManager->CloseWindow(&b);
    m_pManager->OpenWindow(&late, false);
  };
  m_pManager->HandleInput();
  EXPECT_EQ(g_Log, (std::vector<std::string>{"input o2", "input o1", "input late", "input a"}));
}

TEST_F(WindowDrawing, TheOpeningOrderDecidesWhatIsOnTopWhateverTheDepth) {
  TestWindow back("back"), front("front"), overlay("overlay");
  // The later window draws deeper (larger z is further in) and still covers the first.
  back.onDraw = [] { FillScreen(Real(-10), kRed); };
  front.onDraw = [] { FillScreen(Real(500), kGreen); };
  overlay.onDraw = [] {
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, 10, 10);
    FillScreen(Real(900), kBlue);
    glDisable(GL_SCISSOR_TEST);
  };
  WindowManager* manager = WindowManager::Get();
  manager->OpenWindow(&overlay, true);
  manager->OpenWindow(&back, false);
  manager->OpenWindow(&front, false);
  manager->Clear();
  manager->Draw();
  EXPECT_EQ(g_Log, (std::vector<std::string>{"draw back", "draw front", "draw overlay"}));
  EXPECT_EQ(PixelAt(200, 100), kGreen);
  EXPECT_EQ(PixelAt(5, 266), kBlue);  // the overlay's corner, the bottom left

  // The common draw state every window starts from.
  EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
  EXPECT_TRUE(glIsEnabled(GL_BLEND));
  EXPECT_FALSE(glIsEnabled(GL_CULL_FACE));
  for (TestWindow* w : {&overlay, &back, &front}) manager->CloseWindow(w);
}

TEST_F(WindowDrawing, ClearUsesTheStoredColourAndTheOffsetMovesEveryWindow) {
  WindowManager* manager = WindowManager::Get();
  manager->SetClearColour(Real(0), Real(0), Real(1), Real(1));
  manager->Clear();
  EXPECT_EQ(PixelAt(0, 0), kBlue);

  TestWindow w("w");
  w.onDraw = [] {
    const GLfixed v[8] = {0, 0, 0, 10 << 16, 10 << 16, 10 << 16, 10 << 16, 0};
    glColor4x(0x10000, 0, 0, 0x10000);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(2, GL_FIXED, 0, v);
    glDrawArrays(GL_TRIANGLE_FAN, 0, 4);
    glDisableClientState(GL_VERTEX_ARRAY);
  };
  manager->SetGlobalDrawOffset(nox::Vector3(Real(100), Real(50), Real(0)));
  manager->OpenWindow(&w, false);
  manager->Draw();
  EXPECT_EQ(PixelAt(105, 55), kRed);
  EXPECT_EQ(PixelAt(5, 5), kBlue);
  manager->CloseWindow(&w);
}
