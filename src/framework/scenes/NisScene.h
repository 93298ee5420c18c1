// A short cut-scene: one tile animation played by a script on the scene's own
// sequencer. Until Play the animation holds its "Black" sequence (if it has one), so
// the scene shows black behind the fade-in; Play runs "Page1", waits two seconds and
// completes. Subclasses queue their own scripts with SeqAnim, SeqWait and
// SeqComplete.
//
// Completing fires the scene's event once; the scene manager takes that as Complete.
// A paused scene holds still: its script and its animation wait for Resume.
// A skippable scene is skipped by A, B, a shoulder button or a new touch.
//
// The animation is borrowed: the subclass that made it keeps it alive for as long as
// the scene. Without an animation the scene shows nothing and its script still runs.
#pragma once
#include "core/HashString.h"
#include "graphics/AnimationEngine.h"
#include "scenes/NisView.h"
#include "scenes/Scene.h"
#include "sequencer/Sequencer.h"

namespace nox {
class TileAnimation;
}

namespace noxfw {

class NisScene : public nox::Scene {
  NOX_RTTI_DECLARE

 public:
  // Pad bits that skip a skippable scene: A, B and the two shoulders.
  static const uint32_t kSkipMask = 0x10 | 0x20 | 0x40 | 0x80;
  static const unsigned long kPageMs = 2000;

  explicit NisScene(nox::TileAnimation* animation = nullptr, bool skippable = false);
  ~NisScene() override;

  void Enter() override;
  void Leave() override;
  void Play() override;
  void Update(unsigned long ms) override;
  unsigned long GetNumViews() const override { return 1; }
  nox::Window* GetView(unsigned long index) const override;

  virtual void Draw(NisView& view);
  // True when the input skipped the scene.
  virtual bool HandleInput(NisView& view);

  // Script steps on the scene's sequencer. A null animation queues nothing.
  void SeqAnim(nox::TileAnimation* animation, nox::NameHash sequence, long frame = 0);
  void SeqWait(unsigned long ms);
  void SeqComplete();

  void Skip() { Cancel(); }
  // Ends the scene, once.
  void Complete();
  bool IsComplete() const { return m_bComplete; }
  void SetSkippable(bool skippable) { m_bSkippable = skippable; }
  bool IsSkippable() const { return m_bSkippable; }
  nox::TileAnimation* GetAnimation() const { return m_pAnimation; }
  Sequencer& GetSequencer() { return m_Sequencer; }

 protected:
  // Skipping: the script is dropped and the scene completes.
  virtual void Cancel();
  // Borrows the animation and holds it on "Black" when it has that sequence.
  void SetAnimation(nox::TileAnimation* animation);
  // Drops the script and lets go of the animation, for an owner about to delete it.
  void ReleaseAnimation();

 private:
  nox::AnimationEngine m_Engine;
  nox::TileAnimation* m_pAnimation = nullptr;  // borrowed
  Sequencer m_Sequencer;
  bool m_bSkippable;
  bool m_bComplete = false;
  NisView m_View;
};

}  // namespace noxfw
