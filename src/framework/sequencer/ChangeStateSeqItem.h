// The step that chains the states of a question flow: when it starts it asks its
// question manager to enter a state. Instant, so the step after it (usually none: the
// new state builds its own script) starts on the next frame.
#pragma once
#include "sequencer/SequencerItem.h"

namespace noxfw {

class QuestionManager;

class ChangeStateSeqItem : public SequencerItem {
 public:
  // `state` is a QuestionManager::eState; the manager is borrowed and owns the
  // sequencer that runs this step.
  ChangeStateSeqItem(QuestionManager* manager, int state, unsigned long id = 0)
      : SequencerItem(id), m_pManager(manager), m_State(state) {}

  void Initialize() override;

 private:
  QuestionManager* m_pManager;  // borrowed
  int m_State;
};

}  // namespace noxfw
