// Steps on a tile animation: play a sequence (and wait for its end, or not), hold a
// frame, wait for the end of whatever plays, and show or hide. The animation is
// borrowed and must outlive the step; nothing touches it before the step starts.
#pragma once
#include "core/HashString.h"
#include "sequencer/SequencerItem.h"

namespace nox {
class TileAnimation;
}

namespace noxfw {

// Plays `sequence` from `frame`; unless don't-wait, runs until the animation ends
// (a looping sequence never does).
class PlayAnimSequenceSeqItem : public SequencerItem {
 public:
  PlayAnimSequenceSeqItem(nox::TileAnimation* animation, nox::NameHash sequence, long frame = 0,
                          bool dontWait = false, unsigned long id = 0)
      : SequencerItem(id),
        m_pAnimation(animation),
        m_Sequence(sequence),
        m_Frame(frame),
        m_bDontWait(dontWait) {}

  void Initialize() override;
  int Update(unsigned long ms) override;

 private:
  nox::TileAnimation* m_pAnimation;  // borrowed
  nox::NameHash m_Sequence;
  long m_Frame;
  bool m_bDontWait;
};

// Holds `frame` of `sequence`; instant.
class HoldAnimSequenceSeqItem : public SequencerItem {
 public:
  HoldAnimSequenceSeqItem(nox::TileAnimation* animation, nox::NameHash sequence, long frame,
                          unsigned long id = 0)
      : SequencerItem(id), m_pAnimation(animation), m_Sequence(sequence), m_Frame(frame) {}

  void Initialize() override;

 private:
  nox::TileAnimation* m_pAnimation;  // borrowed
  nox::NameHash m_Sequence;
  long m_Frame;
};

// Runs until the animation's present sequence ends.
class WaitOnAnimSeqItem : public SequencerItem {
 public:
  explicit WaitOnAnimSeqItem(nox::TileAnimation* animation, unsigned long id = 0)
      : SequencerItem(id), m_pAnimation(animation) {}

  int Update(unsigned long ms) override;

 private:
  nox::TileAnimation* m_pAnimation;  // borrowed
};

// Shows or hides the animation; instant.
class SetTileAnimVisibleSeqItem : public SequencerItem {
 public:
  SetTileAnimVisibleSeqItem(nox::TileAnimation* animation, bool visible, unsigned long id = 0)
      : SequencerItem(id), m_pAnimation(animation), m_bVisible(visible) {}

  void Initialize() override;

 private:
  nox::TileAnimation* m_pAnimation;  // borrowed
  bool m_bVisible;
};

}  // namespace noxfw
