// The developer's settings screen (scene id 3, "Settings"): the list of
// DebugSettingsOverlay over a dark screen. It is left with A or B, or a touch in a
// top corner, whenever the list has no use for them (B or the top-left corner at the
// group list, A or the top-right corner inside a group); the scene then ends with
// Complete, and the scene manager goes back to the scene the settings were opened
// from.
//
// The scene owns its overlay and its one view.
#pragma once
#include "menu/DebugSettingsOverlay.h"
#include "menu/DebugSettingsView.h"
#include "scenes/Scene.h"

namespace noxfw {

class DebugSettingsScene : public nox::Scene {
  NOX_RTTI_DECLARE

 public:
  static const unsigned long kSceneId = 3;
  static const uint32_t kLeaveMask = 0x10 | 0x20;

  DebugSettingsScene();
  ~DebugSettingsScene() override;

  void Update(unsigned long ms) override;
  unsigned long GetNumViews() const override { return 1; }
  nox::Window* GetView(unsigned long index) const override;

  // The overlay first; what it leaves unused may end the scene.
  virtual bool HandleInput();
  virtual void Draw();

  bool IsDone() const { return m_bDone; }
  DebugSettingsOverlay& GetOverlay() { return m_Overlay; }

 private:
  // Ends the scene once, as Complete.
  void Done();

  DebugSettingsOverlay m_Overlay;
  DebugSettingsView m_View;
  bool m_bDone = false;
};

}  // namespace noxfw
