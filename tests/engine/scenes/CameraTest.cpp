// The world camera: pans that end and report once, cut-short pans, tracking, the
// clamp to the bounds at every step, and the mapping between screen and world (also
// as the matrix handed to GL).
#include <GLES/gl.h>
#include <gtest/gtest.h>

#include "../graphics/GLTestSupport.h"
#include "scenes/Camera.h"

namespace {

using nox::Camera;
using nox::Real;
using nox::Rectangle;
using nox::Vector2;
using nox::Vector3;

Vector3 V3(int x, int y) {
  return Vector3(Real(x), Real(y), Real());
}

// Counts the reports and can start a new pan from inside one.
struct Listener {
  void OnPanDone(Camera& camera) {
    ++reports;
    lastPosition = camera.GetPosition();
    if (chainTo) {
      const Vector3 next = *chainTo;
      chainTo = nullptr;
      camera.PanToPosition(next);
    }
  }
  int reports = 0;
  Vector3 lastPosition;
  const Vector3* chainTo = nullptr;
};

class CameraTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_Camera.SetCallback(&nox::CameraCallback<Listener, &Listener::OnPanDone>, &m_Listener);
  }

  // Updates of `ms` until the pan is done; the number of updates, or -1 after `limit`.
  int UpdatesToArrive(unsigned long ms, int limit = 10000) {
    for (int i = 1; i <= limit; ++i) {
      m_Camera.Update(ms);
      if (m_Camera.IsDonePanning()) return i;
    }
    return -1;
  }

  // The view lies inside the bounds.
  void ExpectInsideBounds() {
    const Rectangle view = m_Camera.GetScreenBoundaries();
    const Rectangle& bounds = m_Camera.GetBounds();
    EXPECT_GE(view.left, bounds.left);
    EXPECT_GE(view.top, bounds.top);
    EXPECT_LE(view.right, bounds.right);
    EXPECT_LE(view.bottom, bounds.bottom);
  }

  Camera m_Camera;
  Listener m_Listener;
};

TEST_F(CameraTest, ADefaultCameraShowsTheWorldPixelForPixel) {
  EXPECT_EQ(m_Camera.GetAbsolutePosition(), V3(240, 136));
  EXPECT_EQ(m_Camera.GetScreenBoundaries(), Rectangle(Real(0), Real(0), Real(480), Real(272)));
  EXPECT_EQ(m_Camera.ScreenToWorld(Vector2(Real(17), Real(250))), Vector2(Real(17), Real(250)));
  EXPECT_TRUE(m_Camera.IsDonePanning());
  EXPECT_TRUE(m_Camera.IsDoneShifting());
}

TEST_F(CameraTest, APanGetsCloserEveryUpdateWithoutOvershootAndReportsOnceOnArrival) {
  const Vector3 target = V3(2000, -700);
  m_Camera.PanToPosition(target);
  EXPECT_FALSE(m_Camera.IsDonePanning());
  Real last =
      (Vector2(target.x, target.y) - Vector2(m_Camera.GetPosition().x, m_Camera.GetPosition().y)).magnitude();
  int updates = 0;
  while (!m_Camera.IsDonePanning() && updates < 2000) {
    m_Camera.Update(16);
    ++updates;
    const Vector3 p = m_Camera.GetPosition();
    // On the segment from the start: x only grows, y only falls.
    EXPECT_LE(p.x, target.x);
    EXPECT_GE(p.y, target.y);
    const Real now = (Vector2(target.x, target.y) - Vector2(p.x, p.y)).magnitude();
    EXPECT_LE(now, last);
    last = now;
    EXPECT_EQ(m_Listener.reports, m_Camera.IsDonePanning() ? 1 : 0);
  }
  // 1,900 pixels at no more than 960 a second: two seconds and a little more.
  EXPECT_GT(updates, 120);
  EXPECT_LT(updates, 400);
  EXPECT_EQ(m_Camera.GetPosition(), target);
  EXPECT_EQ(m_Listener.lastPosition, target);
  for (int i = 0; i < 50; ++i) m_Camera.Update(16);
  EXPECT_EQ(m_Listener.reports, 1);
  EXPECT_EQ(m_Camera.GetPosition(), target);
}

TEST_F(CameraTest, PansEndInBoundedTimeWhateverTheUpdateLengthAndSpeed) {
  // Tiny updates, a crawling speed, a long way and a sub-pixel way: all end.
  m_Camera.SetPanSpeed(Real::FromRaw(1));
  EXPECT_EQ(m_Camera.GetPanSpeed(), Real(Camera::kCrawlSpeed));
  m_Camera.PanToPosition(V3(240, 137));
  EXPECT_GT(UpdatesToArrive(1, 1000000), 0);
  m_Camera.SetPanSpeed(Real());  // back to the default
  EXPECT_EQ(m_Camera.GetPanSpeed(), Real(Camera::kDefaultPanSpeed));
  m_Camera.PanToPosition(V3(9000, 9000));
  EXPECT_GT(UpdatesToArrive(1, 100000), 0);
  m_Camera.PanToPosition(Vector3(Real(9000) + Real::FromRaw(3), Real(9000), Real()));
  EXPECT_EQ(UpdatesToArrive(16), 1);
  // One second of an update is capped, and then lands on a near target at once.
  m_Camera.PanToPosition(V3(9500, 9000));
  EXPECT_EQ(UpdatesToArrive(100000), 1);
  EXPECT_EQ(m_Listener.reports, 4);
}

TEST_F(CameraTest, AnUpdateOfNoTimeMovesNothingButAPanToWhereItStandsArrives) {
  m_Camera.PanToPosition(V3(600, 136));
  m_Camera.Update(0);
  EXPECT_EQ(m_Camera.GetPosition(), V3(240, 136));
  EXPECT_FALSE(m_Camera.IsDonePanning());
  m_Camera.PanToPosition(V3(240, 136));
  m_Camera.Update(0);
  EXPECT_TRUE(m_Camera.IsDonePanning());
  EXPECT_EQ(m_Listener.reports, 1);
}

TEST_F(CameraTest, ANewTargetDuringAPanIsOnePanThatReportsOnce) {
  m_Camera.PanToPosition(V3(1000, 136));
  for (int i = 0; i < 10; ++i) m_Camera.Update(16);
  m_Camera.PanToPosition(V3(100, 500));
  EXPECT_GT(UpdatesToArrive(16), 0);
  EXPECT_EQ(m_Listener.reports, 1);
  EXPECT_EQ(m_Camera.GetPosition(), V3(100, 500));
}

TEST_F(CameraTest, SnapAndStopCutAPanShortAndReportIt) {
  m_Camera.PanToPosition(V3(1000, 136));
  m_Camera.Update(16);
  m_Camera.SnapToPosition(V3(50, 60));
  EXPECT_EQ(m_Listener.reports, 1);
  EXPECT_TRUE(m_Camera.IsDonePanning());
  EXPECT_EQ(m_Camera.GetPosition(), V3(50, 60));
  EXPECT_EQ(m_Camera.GetTarget(), V3(50, 60));
  for (int i = 0; i < 20; ++i) m_Camera.Update(16);
  EXPECT_EQ(m_Camera.GetPosition(), V3(50, 60));

  // With nothing running, neither reports.
  m_Camera.SnapToPosition(V3(70, 80));
  m_Camera.Stop();
  EXPECT_EQ(m_Listener.reports, 1);

  m_Camera.PanToPosition(V3(1000, 80));
  m_Camera.Update(16);
  const Vector3 stoppedAt = m_Camera.GetPosition();
  m_Camera.Stop();
  EXPECT_EQ(m_Listener.reports, 2);
  EXPECT_EQ(m_Listener.lastPosition, stoppedAt);
  m_Camera.Update(16);
  EXPECT_EQ(m_Camera.GetPosition(), stoppedAt);

  // Without a callback nothing is told, and nothing breaks.
  m_Camera.SetCallback(nullptr, &m_Listener);
  m_Camera.PanToPosition(V3(300, 80));
  EXPECT_GT(UpdatesToArrive(16), 0);
  EXPECT_EQ(m_Listener.reports, 2);
}

TEST_F(CameraTest, TheCallbackMayStartTheNextPan) {
  const Vector3 second = V3(400, 400);
  m_Listener.chainTo = &second;
  m_Camera.PanToPosition(V3(300, 136));
  for (int i = 0; i < 1000 && m_Listener.reports == 0; ++i) m_Camera.Update(16);
  EXPECT_EQ(m_Listener.reports, 1);
  EXPECT_EQ(m_Listener.lastPosition, V3(300, 136));
  EXPECT_FALSE(m_Camera.IsDonePanning());  // the chained pan
  EXPECT_GT(UpdatesToArrive(16), 0);
  EXPECT_EQ(m_Listener.reports, 2);
  EXPECT_EQ(m_Camera.GetPosition(), second);
}

TEST_F(CameraTest, TrackingFollowsAMovingPointAndNeverReports) {
  Vector3 hero = V3(240, 136);
  m_Camera.TrackToPosition(&hero);
  for (int i = 0; i < 300; ++i) {
    hero.x += Real(2);
    m_Camera.Update(16);
  }
  // 2 pixels an update is far below the pan speed: the camera keeps close behind.
  EXPECT_LT(hero.x - m_Camera.GetPosition().x, Real(30));
  EXPECT_GT(hero.x - m_Camera.GetPosition().x, Real(0));
  for (int i = 0; i < 100; ++i) m_Camera.Update(16);
  EXPECT_EQ(m_Camera.GetPosition(), hero);
  EXPECT_EQ(m_Listener.reports, 0);
  // A pan takes over from tracking; the point no longer pulls.
  m_Camera.PanToPosition(V3(0, 0));
  hero.x = Real(5000);
  EXPECT_GT(UpdatesToArrive(16), 0);
  EXPECT_EQ(m_Camera.GetPosition(), V3(0, 0));
  EXPECT_FALSE(m_Camera.IsTracking());
}

TEST_F(CameraTest, TheViewNeverLeavesTheBoundsAndAPanPastAnEdgeEndsThereAndReports) {
  m_Camera.SetBounds(Real(0), Real(0), Real(1000), Real(600));
  m_Camera.PanToPosition(V3(-500, 2000));
  int updates = 0;
  while (!m_Camera.IsDonePanning() && updates++ < 1000) {
    m_Camera.Update(16);
    ExpectInsideBounds();
  }
  EXPECT_EQ(m_Camera.GetPosition(), V3(240, 600 - 136));
  EXPECT_EQ(m_Listener.reports, 1);

  // A tracked point that runs off the far edge, and an offset leaning past it.
  Vector3 hero = V3(500, 300);
  m_Camera.TrackToPosition(&hero);
  m_Camera.ShiftTo(Vector2(Real(300), Real(-300)));
  for (int i = 0; i < 400; ++i) {
    hero.x += Real(4);
    m_Camera.Update(16);
    ExpectInsideBounds();
  }
  EXPECT_EQ(m_Camera.GetAbsolutePosition(), V3(1000 - 240, 136));
  EXPECT_TRUE(m_Camera.IsDoneShifting());
  m_Camera.ResetOffsets();
  EXPECT_EQ(m_Camera.GetOffset(), Vector2());

  // Zooming in shrinks the view: the clamp lets the centre closer to the edge.
  m_Camera.Zoom(Real(2));
  m_Camera.SnapToPosition(V3(-100, -100));
  EXPECT_EQ(m_Camera.GetPosition(), V3(120, 68));
  ExpectInsideBounds();
  // Bounds narrower than the view centre it; bounds given backwards are turned.
  m_Camera.Zoom(Real(1));
  m_Camera.SetBounds(Real(300), Real(100), Real(100), Real(0));
  EXPECT_EQ(m_Camera.GetBounds(), Rectangle(Real(100), Real(0), Real(300), Real(100)));
  EXPECT_EQ(m_Camera.GetPosition(), V3(200, 50));
  m_Camera.ClearBounds();
  m_Camera.SnapToPosition(V3(-100, -100));
  EXPECT_EQ(m_Camera.GetPosition(), V3(-100, -100));
}

TEST_F(CameraTest, ShiftingGlidesTheOffsetAndEnds) {
  m_Camera.ShiftTo(Vector2(Real(-40), Real(25)));
  EXPECT_FALSE(m_Camera.IsDoneShifting());
  int updates = 0;
  while (!m_Camera.IsDoneShifting() && updates++ < 1000) m_Camera.Update(16);
  EXPECT_LT(updates, 1000);
  EXPECT_EQ(m_Camera.GetAbsolutePosition(), V3(200, 161));
  EXPECT_EQ(m_Camera.GetPosition(), V3(240, 136));
  EXPECT_EQ(m_Listener.reports, 0);
  // Stop holds a shift where it is.
  m_Camera.ShiftTo(Vector2());
  m_Camera.Update(16);
  m_Camera.Stop();
  EXPECT_TRUE(m_Camera.IsDoneShifting());
  EXPECT_NE(m_Camera.GetOffset(), Vector2());
}

TEST_F(CameraTest, ScreenAndWorldRoundTripWithAnOffsetAndZoomedCamera) {
  m_Camera.SnapToPosition(
      Vector3(Real(700) + Real::FromRaw(0x8000), Real(300) + Real::FromRaw(0x4000), Real()));
  m_Camera.ShiftTo(Vector2(Real(-13), Real(7)));
  while (!m_Camera.IsDoneShifting()) m_Camera.Update(16);
  // The screen's top left and centre.
  EXPECT_EQ(m_Camera.ScreenToWorld(Vector2()), Vector2(Real(700 - 13 - 240) + Real::FromRaw(0x8000),
                                                       Real(300 + 7 - 136) + Real::FromRaw(0x4000)));
  EXPECT_EQ(
      m_Camera.WorldToScreen(Vector2(Real(687) + Real::FromRaw(0x8000), Real(307) + Real::FromRaw(0x4000))),
      Vector2(Real(240), Real(136)));

  for (int zoom = 1; zoom <= 4; zoom *= 2) {
    m_Camera.Zoom(Real(zoom));
    const nox::Matrix4 view = m_Camera.GetViewMatrix();
    for (int y = -8; y <= 280; y += 16) {
      for (int x = -8; x <= 488; x += 20) {
        const Vector2 screen(Real(x) + Real::FromRaw((x & 32) ? 0x8000 : 0), Real(y));
        const Vector2 world = m_Camera.ScreenToWorld(screen);
        EXPECT_EQ(m_Camera.WorldToScreen(world), screen) << x << ", " << y << " at zoom " << zoom;
        // The matrix handed to GL maps as WorldToScreen does.
        const Vector3 mapped = view.FastTransformPoint(Vector3(world, Real(3)));
        EXPECT_EQ(Vector2(mapped.x, mapped.y), screen);
        EXPECT_EQ(mapped.z, Real(3));
      }
    }
  }
  const Rectangle view = m_Camera.GetScreenBoundaries();
  EXPECT_EQ(view.GetWidth(), Real(120));
  EXPECT_EQ(view.GetHeight(), Real(68));
}

TEST_F(CameraTest, BadSizesAndZoomsAreIgnoredOrHeld) {
  m_Camera.Zoom(Real());
  m_Camera.Zoom(Real(-2));
  EXPECT_EQ(m_Camera.GetZoom(), Real(1));
  m_Camera.Zoom(Real(1000));
  EXPECT_EQ(m_Camera.GetZoom(), Real(8));
  m_Camera.Zoom(Real::FromRaw(1));
  EXPECT_EQ(m_Camera.GetZoom(), Real::FromRaw(0x2000));
  m_Camera.Zoom(Real(1));
  m_Camera.SetViewSize(Real(), Real(100));
  EXPECT_EQ(m_Camera.GetViewSize(), Vector2(Real(480), Real(272)));
  m_Camera.SetViewSize(Real(320), Real(240));
  EXPECT_EQ(m_Camera.GetScreenBoundaries(), Rectangle(Real(0), Real(0), Real(320), Real(240)));
}

class CameraGLTest : public gltest::GLTest {};

TEST_F(CameraGLTest, ApplyMultipliesTheModelViewMatrixByTheView) {
  Camera camera;
  camera.SnapToPosition(V3(1000, 400));
  camera.Zoom(Real(2));
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glTranslatex(0x30000, 0, 0);  // a window's own offset stays in front
  camera.Apply();
  GLfixed m[16] = {};
  glGetFixedv(GL_MODELVIEW_MATRIX, m);
  const nox::Matrix4 view = camera.GetViewMatrix();
  EXPECT_EQ(m[0], view[0].Raw());
  EXPECT_EQ(m[5], view[5].Raw());
  EXPECT_EQ(m[12], (view[12] + Real(3)).Raw());
  EXPECT_EQ(m[13], view[13].Raw());
}

}  // namespace
