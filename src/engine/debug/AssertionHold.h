// The wait of the on-screen assertion: it ends when pause is pressed, or when the
// screen has been held for more than 2000 counted ms. Each pass of the wait counts 17
// ms; lifting the finger starts the count again.
#pragma once
#include <cstdint>

namespace nox {

class AssertionHold {
 public:
  static const uint32_t kPassMS = 17;
  static const uint32_t kHoldMS = 2000;

  // One pass of the wait; true when the wait is over.
  bool Pass(bool pauseTriggered, bool touched) {
    if (pauseTriggered) return true;
    m_CountMS = touched ? m_CountMS + kPassMS : 0;
    return touched && m_CountMS > kHoldMS;
  }
  uint32_t GetCount() const { return m_CountMS; }

 private:
  uint32_t m_CountMS = 0;
};

}  // namespace nox
