#include "sequencer/Sequencer.h"

#include <iterator>

namespace noxfw {

Sequencer::~Sequencer() {
  Empty();
}

int Sequencer::HasSeqID(unsigned long id) {
  int count = 0;
  for (SequencerItem* item : m_Items) {
    if (item->GetID() == id) ++count;
  }
  return count;
}

Sequencer::iterator Sequencer::AppendItem(SequencerItem* item) {
  return m_Items.insert(m_Items.end(), item);
}

Sequencer::iterator Sequencer::AppendItems(SequencerItem** items, int count) {
  if (count < 1) return m_Items.empty() ? m_Items.end() : std::prev(m_Items.end());
  iterator last = m_Items.end();
  for (int i = 0; i < count; ++i) last = AppendItem(items[i]);
  return last;
}

Sequencer::iterator Sequencer::InsertBefore(iterator position, SequencerItem* item) {
  return m_Items.insert(position, item);
}

Sequencer::iterator Sequencer::InsertAfter(iterator position, SequencerItem* item) {
  if (position == m_Items.end()) return AppendItem(item);
  return m_Items.insert(std::next(position), item);
}

Sequencer::iterator Sequencer::Prepend(SequencerItem* item) {
  if (!m_Items.empty() && m_Items.front()->m_bStarted) {
    return m_Items.insert(std::next(m_Items.begin()), item);
  }
  return m_Items.insert(m_Items.begin(), item);
}

void Sequencer::Update(unsigned long ms) {
  if (m_Items.empty()) return;
  // The head's position stays valid whatever the item queues around itself.
  const iterator head = m_Items.begin();
  SequencerItem* item = *head;
  if (!item->m_bStarted) {
    item->m_bStarted = true;
    item->Initialize();
    if (!item->m_bStarted) {
      // It finished itself during Initialize.
      Remove(head);
      return;
    }
  }
  if (item->Update(ms)) return;
  if (item->m_bStarted) {
    item->m_bStarted = false;
    item->Terminate();
  }
  Remove(head);
}

void Sequencer::Remove(iterator position) {
  SequencerItem* item = *position;
  m_Items.erase(position);
  if (item->m_bStarted) {
    item->m_bStarted = false;
    item->Terminate();
  }
  delete item;
}

void Sequencer::PopItem() {
  Remove(m_Items.begin());
}

void Sequencer::Empty() {
  while (!m_Items.empty()) PopItem();
}

bool Sequencer::TerminateItemID(unsigned long id, bool all) {
  bool removed = false;
  iterator it = m_Items.begin();
  while (it != m_Items.end()) {
    SequencerItem* item = *it;
    if (item->GetID() != id) {
      ++it;
      continue;
    }
    if (item->m_bStarted) {
      item->m_bStarted = false;
      item->Terminate();
    }
    it = m_Items.erase(it);
    delete item;
    removed = true;
    if (!all) break;
  }
  return removed;
}

}  // namespace noxfw
