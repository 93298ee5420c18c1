// The framework's title: creates every engine singleton in a fixed order at start,
// runs one frame as input, update, draw and throttle, and tears the singletons down
// in another fixed order. Later singletons use earlier ones in their constructors,
// so both orders matter. The game derives its own title from this one.
#pragma once
#include <cstdint>
#include <string>

#include "core/Profiler.h"

namespace noxfw {

class Title {
 public:
  Title();
  virtual ~Title();
  virtual void Enter();
  virtual void HandleInput();
  virtual void Update();
  virtual void Draw();
  virtual void Throttle();
  virtual void Leave();
  virtual void ShowSettingsScene();
  virtual void PrintStatistics();
  virtual void RegisterSettings();

  uint32_t GetLastFPS() const { return m_LastFPS; }
  const nox::Profiler& GetProfiler() const { return m_Profiler; }

  // A frame longer than this many ms advances nothing (dt becomes the clamped step).
  static const uint32_t kMaxFrameMS = 1000;
  // Frames in one statistics window.
  static const uint32_t kStatisticsWindow = 20;
  // The debug hold: this long, inside a square of this many pixels in the far corner.
  static const uint32_t kDebugHoldMS = 3000;
  static const int32_t kDebugCornerPixels = 32;

 protected:
  // The dt handed to every subsystem this frame.
  static uint32_t ClampedDelta(uint32_t deltaMS, uint8_t fixedStep);
  // Ends the statistics window when it is full.
  void MeasureFrame();
  void RunDebugGestures();

  uint32_t m_LastThrottleMS = 0;  // host ms at the last throttle; 0 until the first frame passed
  std::string m_AudioPath;        // sound root handed to the sound player: "Audio/"
  nox::Profiler m_Profiler;       // frame statistics, named "Title"
  uint32_t m_LastFPS = 0;
};

}  // namespace noxfw
