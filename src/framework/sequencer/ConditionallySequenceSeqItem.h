// Chooses one of two steps when it starts and runs it in place. The condition is
// evaluated once, in Initialize; the chosen step runs on an inner sequencer from
// that same frame, and the other is deleted unstarted. With a null choice the item
// ends on its first frame.
//
// Ownership: both steps belong to this item from construction (either may be
// null); a step not yet chosen is deleted with the item.
#pragma once
#include <boost/function.hpp>

#include "sequencer/Sequencer.h"
#include "sequencer/SequencerItem.h"

namespace noxfw {

class ConditionallySequenceSeqItem : public SequencerItem {
 public:
  ConditionallySequenceSeqItem(const boost::function<bool()>& condition, SequencerItem* ifTrue,
                               SequencerItem* ifFalse, unsigned long id = 0)
      : SequencerItem(id), m_Condition(condition), m_pIfTrue(ifTrue), m_pIfFalse(ifFalse), m_bChosen(false) {}
  ~ConditionallySequenceSeqItem() override;

  void Initialize() override;
  int Update(unsigned long ms) override;

 private:
  boost::function<bool()> m_Condition;
  SequencerItem* m_pIfTrue;   // owned until chosen or deleted
  SequencerItem* m_pIfFalse;  // owned until chosen or deleted
  Sequencer m_Inner;          // runs the chosen step
  bool m_bChosen;
};

}  // namespace noxfw
