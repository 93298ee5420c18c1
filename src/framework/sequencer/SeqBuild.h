// Script-building calls: each appends one step to a sequencer and returns its
// position, with the step's ID as the optional last argument. Owners that keep a
// sequencer (question managers, scenes, quests) forward their own SeqX calls here.
//
//   SeqWait(m_Sequencer, 500);
//   SeqFunction(m_Sequencer, boost::bind(&Scene::OpenDoor, this));
//   SeqClassFunc<Scene, &Scene::CloseDoor>(m_Sequencer, this);
#pragma once
#include <boost/function.hpp>
#include <string>

#include "core/HashString.h"
#include "core/Real.h"
#include "sequencer/AnimSeqItems.h"
#include "sequencer/ClassFuncSeqItem.h"
#include "sequencer/ConditionallySequenceSeqItem.h"
#include "sequencer/FunctionSeqItem.h"
#include "sequencer/Sequencer.h"
#include "sequencer/SoundSeqItems.h"
#include "sequencer/TweenTileAnimAlphaSeqItem.h"
#include "sequencer/WaitSeqItem.h"

namespace noxfw {

inline Sequencer::iterator SeqWait(Sequencer& sequencer, unsigned long ms, unsigned long id = 0) {
  return sequencer.AppendItem(new WaitSeqItem(ms, id));
}

inline Sequencer::iterator SeqFunction(Sequencer& sequencer, const boost::function<void()>& function,
                                       unsigned long id = 0) {
  return sequencer.AppendItem(new FunctionSeqItem(function, id));
}

// Holds the script until the function returns true.
inline Sequencer::iterator SeqWaitUntil(Sequencer& sequencer, const boost::function<bool()>& function,
                                        unsigned long id = 0) {
  return sequencer.AppendItem(new CheckBoolFunctionSeqItem(function, id));
}

inline Sequencer::iterator SeqConditionalFunction(Sequencer& sequencer,
                                                  const boost::function<bool()>& condition,
                                                  const boost::function<void()>& ifTrue,
                                                  const boost::function<void()>& ifFalse,
                                                  unsigned long id = 0) {
  return sequencer.AppendItem(new ConditionalFunctionSeqItem(condition, ifTrue, ifFalse, id));
}

// Takes ownership of both steps, either of which may be null.
inline Sequencer::iterator SeqConditionally(Sequencer& sequencer, const boost::function<bool()>& condition,
                                            SequencerItem* ifTrue, SequencerItem* ifFalse,
                                            unsigned long id = 0) {
  return sequencer.AppendItem(new ConditionallySequenceSeqItem(condition, ifTrue, ifFalse, id));
}

template <class C, void (C::*Method)()>
Sequencer::iterator SeqClassFunc(Sequencer& sequencer, C* object, unsigned long id = 0) {
  return sequencer.AppendItem(new ClassFuncSeqItem(&ClassFunc<C, Method>, object, id));
}

template <class C, class T, void (C::*Method)(T)>
Sequencer::iterator SeqClassFuncWithParam(Sequencer& sequencer, C* object, T argument, unsigned long id = 0) {
  return sequencer.AppendItem(
      new ClassFuncSeqItemWithParam<T>(&ClassFuncWithParam<C, T, Method>, object, argument, id));
}

// Holds the script while the member's result differs from `waitForTrue`.
template <class C, bool (C::*Method)()>
Sequencer::iterator SeqClassCheckBool(Sequencer& sequencer, C* object, bool waitForTrue,
                                      unsigned long id = 0) {
  return sequencer.AppendItem(new ClassCheckBoolFuncSeqItem(&ClassFunc<C, Method>, object, waitForTrue, id));
}

// Tile animations, borrowed.

// Plays `sequence` from `frame`; with `wait` the script holds until it ends.
inline Sequencer::iterator SeqAnim(Sequencer& sequencer, nox::TileAnimation& animation,
                                   nox::NameHash sequence, bool wait = true, long frame = 0,
                                   unsigned long id = 0) {
  return sequencer.AppendItem(new PlayAnimSequenceSeqItem(&animation, sequence, frame, !wait, id));
}

inline Sequencer::iterator SeqHold(Sequencer& sequencer, nox::TileAnimation& animation,
                                   nox::NameHash sequence, long frame, unsigned long id = 0) {
  return sequencer.AppendItem(new HoldAnimSequenceSeqItem(&animation, sequence, frame, id));
}

inline Sequencer::iterator SeqWaitAnim(Sequencer& sequencer, nox::TileAnimation& animation,
                                       unsigned long id = 0) {
  return sequencer.AppendItem(new WaitOnAnimSeqItem(&animation, id));
}

inline Sequencer::iterator SeqVisible(Sequencer& sequencer, nox::TileAnimation& animation, bool visible,
                                      unsigned long id = 0) {
  return sequencer.AppendItem(new SetTileAnimVisibleSeqItem(&animation, visible, id));
}

inline Sequencer::iterator SeqFadeAnim(Sequencer& sequencer, nox::TileAnimation& animation,
                                       nox::Real startAlpha, nox::Real endAlpha, unsigned long ms,
                                       unsigned long id = 0) {
  return sequencer.AppendItem(new TweenTileAnimAlphaSeqItem(&animation, startAlpha, endAlpha, ms, id));
}

// Sounds. With a name the step owns a new sound of that name at priority 100; with
// the caller's sound object the step plays that object (a streaming one is loaded
// with the name when the step starts, so one object serves a whole script).

inline Sequencer::iterator SeqMemorySound(Sequencer& sequencer, const char* name, unsigned long category,
                                          bool dontWait = false, unsigned long id = 0) {
  return sequencer.AppendItem(new PlayMemorySoundSeqItem(name, category, id, dontWait));
}

inline Sequencer::iterator SeqMemorySound(Sequencer& sequencer, nox::MemorySound& sound,
                                          unsigned long category, bool dontWait = false,
                                          unsigned long id = 0) {
  return sequencer.AppendItem(new PlayMyMemorySoundSeqItem(&sound, category, dontWait, id));
}

inline Sequencer::iterator SeqStreamingSound(Sequencer& sequencer, const char* name, unsigned long category,
                                             bool dontWait = false, unsigned long id = 0) {
  return sequencer.AppendItem(new PlayStreamingSoundSeqItem(name, category, id, dontWait));
}

inline Sequencer::iterator SeqStreamingSound(Sequencer& sequencer, nox::StreamingSound& sound,
                                             const std::string& name, unsigned long category,
                                             bool dontWait = false, unsigned long id = 0) {
  return sequencer.AppendItem(new PlayMyStreamingSoundSeqItem(&sound, category, name, dontWait, id));
}

}  // namespace noxfw
