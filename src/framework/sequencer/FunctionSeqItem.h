// Steps around boost::function callbacks, usually made with boost::bind. The work
// is done in Initialize (or in Update for the waiting one). Calling an empty
// function throws boost's bad_function_call, which nothing catches: a script built
// with an unset function is a programming fault.
#pragma once
#include <boost/function.hpp>

#include "sequencer/SequencerItem.h"

namespace noxfw {

// Calls the function once; instant.
class FunctionSeqItem : public SequencerItem {
 public:
  explicit FunctionSeqItem(const boost::function<void()>& function, unsigned long id = 0)
      : SequencerItem(id), m_Function(function) {}

  void Initialize() override { m_Function(); }

 private:
  boost::function<void()> m_Function;
};

// Calls the function each frame until it returns true.
class CheckBoolFunctionSeqItem : public SequencerItem {
 public:
  explicit CheckBoolFunctionSeqItem(const boost::function<bool()>& function, unsigned long id = 0)
      : SequencerItem(id), m_Function(function) {}

  int Update(unsigned long ms) override { return !m_Function(); }

 private:
  boost::function<bool()> m_Function;
};

// Evaluates the condition once and calls one of the two functions; instant. Use
// EmptyFunction for the branch that does nothing.
class ConditionalFunctionSeqItem : public SequencerItem {
 public:
  ConditionalFunctionSeqItem(const boost::function<bool()>& condition, const boost::function<void()>& ifTrue,
                             const boost::function<void()>& ifFalse, unsigned long id = 0)
      : SequencerItem(id), m_Condition(condition), m_IfTrue(ifTrue), m_IfFalse(ifFalse) {}

  void Initialize() override;
  static void EmptyFunction() {}

 private:
  boost::function<bool()> m_Condition;
  boost::function<void()> m_IfTrue;
  boost::function<void()> m_IfFalse;
};

}  // namespace noxfw
