// Ends the running scene with an exit reason, as a step of a menu's script, so that
// the click and the voice queued before it are heard before the scene changes.
#pragma once
#include "scenes/ExitReason.h"
#include "scenes/SceneManager.h"
#include "sequencer/SequencerItem.h"

namespace game {

class DoneSceneSeqItem : public noxfw::SequencerItem {
 public:
  explicit DoneSceneSeqItem(noxfw::ExitReason::eExitReason reason, unsigned long id = 0)
      : noxfw::SequencerItem(id), m_Reason(reason) {}

  int Update(unsigned long ms) override {
    noxfw::SceneManager* scenes = noxfw::SceneManager::sm_pInstance;
    // One change at a time: a second ending while one runs is dropped.
    if (scenes && !scenes->IsChangingScene()) scenes->DoneScene(m_Reason);
    return 0;
  }

 private:
  noxfw::ExitReason::eExitReason m_Reason;
};

}  // namespace game
