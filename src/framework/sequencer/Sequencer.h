// The game's script queue: a strictly serial list of SequencerItems in run order.
// Each Update advances exactly the head item by one frame; when it finishes it is
// terminated and deleted, and the next item starts on the next frame, never the
// same one. A script of n instant items thus takes n frames. Concurrent scripts
// are separate sequencers.
//
// Ownership: every queued item belongs to the sequencer, which deletes it through
// its virtual destructor; callers never keep a queued item. Re-entrancy is allowed:
// an item's Initialize, Update or Terminate may add items to its own sequencer.
// A running item must not Empty() its sequencer or cancel its own ID.
//
// Positions are list iterators, which stay valid while other items come and go, so
// a script can be spliced into the middle of a queue with InsertAfter.
#pragma once
#include <list>

#include "sequencer/SequencerItem.h"

namespace noxfw {

class Sequencer {
 public:
  typedef std::list<SequencerItem*> ItemList;
  typedef ItemList::iterator iterator;

  Sequencer() = default;
  virtual ~Sequencer();
  Sequencer(const Sequencer&) = delete;
  Sequencer& operator=(const Sequencer&) = delete;

  bool IsEmpty() const { return m_Items.empty(); }
  // How many queued items carry `id`; callers test it with < 1.
  int HasSeqID(unsigned long id);

  iterator Begin() { return m_Items.begin(); }
  iterator End() { return m_Items.end(); }

  // Each insertion takes ownership of `item` and returns its position.
  iterator AppendItem(SequencerItem* item);
  // Appends `count` items in array order and returns the last one's position; a
  // count below 1 adds nothing and returns the tail (End() when empty).
  iterator AppendItems(SequencerItem** items, int count);
  iterator InsertBefore(iterator position, SequencerItem* item);
  // Inserts behind `position`; given End() it appends.
  iterator InsertAfter(iterator position, SequencerItem* item);
  // Runs `item` next without interrupting a started head: behind a started head
  // (returning the new position), otherwise at the head (returning the head).
  iterator Prepend(SequencerItem* item);

  void Update(unsigned long ms);
  // Removes the head: unlinks it first, then terminates it if started, then deletes
  // it, so that its Terminate may queue new items. The queue must not be empty.
  void PopItem();
  void Empty();
  // Removes the first item (or with `all`, every item) whose GetID() is `id`,
  // terminating started ones while still linked. True if anything was removed.
  bool TerminateItemID(unsigned long id, bool all);

 private:
  void Remove(iterator position);

  ItemList m_Items;  // owned items, head first
};

}  // namespace noxfw
