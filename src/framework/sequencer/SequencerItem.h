// One step of a script. A Sequencer owns its queued items and runs only the one at
// its head: it sets the started flag and calls Initialize once, then Update each
// frame until Update returns 0 (non-zero means busy), then Terminate, then deletes
// the item. An item that overrides only Initialize is therefore instant: it ends on
// its first frame. An item may end itself from Initialize by clearing its started
// flag; it is then removed without Update or Terminate.
//
// Items are built anew for each script and never reused. An item that stands in a
// queue has not touched its target; values that must be fresh (positions, states)
// are read in Initialize.
#pragma once
#include <cstdint>

namespace noxfw {

class Sequencer;

class SequencerItem {
 public:
  explicit SequencerItem(unsigned long id = 0) : m_bStarted(false), m_ID(static_cast<uint32_t>(id)) {}
  // Runs the base Terminate only, if the item is still marked started; the
  // sequencer clears the flag and runs the derived Terminate on all of its paths.
  virtual ~SequencerItem();

  virtual void Initialize() {}
  // `ms`: this frame's milliseconds. Non-zero while busy, 0 when finished.
  virtual int Update(unsigned long ms) { return 0; }
  // Zeroes the ID, so a terminated item no longer matches an ID search.
  virtual void Terminate() { m_ID = 0; }
  virtual unsigned long GetID() const { return m_ID; }

  bool IsStarted() const { return m_bStarted; }

  SequencerItem(const SequencerItem&) = delete;
  SequencerItem& operator=(const SequencerItem&) = delete;

 protected:
  bool m_bStarted;  // set by the sequencer before Initialize

 private:
  friend class Sequencer;
  uint32_t m_ID;  // 0 for an item without an identity
};

}  // namespace noxfw
