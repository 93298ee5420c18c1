// Delivery order and the copy-then-deliver rule of nox::EventSource.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/EventSource.h"

namespace {

struct Door : public nox::EventSource<Door> {};

// Records each call as its name and lets a test hook an action into it.
class Recorder : public nox::EventListener<Door> {
 public:
  Recorder(const char* name, std::vector<std::string>* log) : m_Name(name), m_pLog(log) {}
  void OnEventOccurred(Door* source, const nox::EventData* data) override {
    m_pLog->push_back(m_Name + ":" + std::to_string(data ? data->m_Type : 999));
    m_LastSource = source;
    if (m_Action) m_Action(source);
  }
  std::function<void(Door*)> m_Action;
  Door* m_LastSource = nullptr;

 private:
  std::string m_Name;
  std::vector<std::string>* m_pLog;
};

nox::EventData Event(uint32_t type) {
  nox::EventData data;
  data.m_Type = type;
  return data;
}

TEST(EventSource, ServesListenersInTheOrderAddedAndDuplicatesTwice) {
  std::vector<std::string> log;
  Door door;
  Recorder a("a", &log), b("b", &log);
  door.AddEventListener(&a);
  door.AddEventListener(&b);
  door.AddEventListener(&a);
  nox::EventData data = Event(4);
  door.FireEvent(&door, &data);
  EXPECT_EQ(log, (std::vector<std::string>{"a:4", "b:4", "a:4"}));
  EXPECT_EQ(b.m_LastSource, &door);

  log.clear();
  door.RemoveEventListener(&a);  // the first entry only
  door.FireEvent(&door, &data);
  EXPECT_EQ(log, (std::vector<std::string>{"b:4", "a:4"}));
}

TEST(EventSource, AListenerRemovingItselfDuringDeliveryDoesNotDisturbTheWalk) {
  std::vector<std::string> log;
  Door door;
  Recorder a("a", &log), b("b", &log), c("c", &log);
  b.m_Action = [&](Door* d) { d->RemoveEventListener(&b); };
  door.AddEventListener(&a);
  door.AddEventListener(&b);
  door.AddEventListener(&c);
  nox::EventData first = Event(1), second = Event(2);
  door.FireEvent(&door, &first);
  door.FireEvent(&door, &second);
  EXPECT_EQ(log, (std::vector<std::string>{"a:1", "b:1", "c:1", "a:2", "c:2"}));
}

TEST(EventSource, AListenerRemovedBeforeItsTurnIsStillCalledInThatDelivery) {
  std::vector<std::string> log;
  Door door;
  Recorder a("a", &log), b("b", &log);
  a.m_Action = [&](Door* d) { d->RemoveEventListener(&b); };
  door.AddEventListener(&a);
  door.AddEventListener(&b);
  nox::EventData first = Event(1), second = Event(2);
  door.FireEvent(&door, &first);
  door.FireEvent(&door, &second);
  EXPECT_EQ(log, (std::vector<std::string>{"a:1", "b:1", "a:2"}));
}

TEST(EventSource, AListenerAddedDuringDeliveryIsFirstCalledOnTheNextEvent) {
  std::vector<std::string> log;
  Door door;
  Recorder a("a", &log), late("late", &log);
  a.m_Action = [&](Door* d) {
    if (!d->HasEventListener(&late)) d->AddEventListener(&late);
  };
  door.AddEventListener(&a);
  nox::EventData first = Event(1), second = Event(2);
  door.FireEvent(&door, &first);
  door.FireEvent(&door, &second);
  EXPECT_EQ(log, (std::vector<std::string>{"a:1", "a:2", "late:2"}));
}

TEST(EventSource, RemovingAListenerThatIsNotThereChangesNothing) {
  std::vector<std::string> log;
  Door door;
  Recorder a("a", &log), stranger("x", &log);
  door.AddEventListener(&a);
  door.RemoveEventListener(&stranger);
  door.FireEvent(&door, nullptr);
  EXPECT_EQ(log, (std::vector<std::string>{"a:999"}));
  EXPECT_EQ(door.size(), 1u);
}

}  // namespace
