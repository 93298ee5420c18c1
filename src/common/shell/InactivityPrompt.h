// A menu's reminder: after a stretch of quiet (nothing queued on its script, input
// open, no touch used) the menu says its repeat voice again. Update counts the quiet
// time and answers true once it is due, then counts afresh; any activity restarts it.
#pragma once

namespace game {

class InactivityPrompt {
 public:
  static const unsigned long kDelayMs = 20000;

  // `quiet`: the menu is waiting for the child this frame.
  bool Update(unsigned long ms, bool quiet) {
    if (!quiet) {
      m_QuietMs = 0;
      return false;
    }
    m_QuietMs += ms;
    if (m_QuietMs < kDelayMs) return false;
    m_QuietMs = 0;
    return true;
  }
  void Reset() { m_QuietMs = 0; }
  unsigned long GetQuietMs() const { return m_QuietMs; }

 private:
  unsigned long m_QuietMs = 0;  // ms
};

}  // namespace game
