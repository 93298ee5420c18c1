#include "physics/ProjectedHull.h"

#include <cstdint>

#include "core/Debug.h"

namespace nox {
namespace {

// Moves `node` to sit right after `after`.
void MoveAfter(ProjectedHull* node, ProjectedHull* after) {
  node->m_pPrev->m_pNext = node->m_pNext;
  if (node->m_pNext) node->m_pNext->m_pPrev = node->m_pPrev;
  node->m_pNext = after->m_pNext;
  node->m_pPrev = after;
  after->m_pNext->m_pPrev = node;
  after->m_pNext = node;
}

template <class OutOfOrder>
void SortAfter(ProjectedHull* head, OutOfOrder outOfOrder) {
  ProjectedHull* node = head->m_pNext ? head->m_pNext->m_pNext : nullptr;
  while (node) {
    ProjectedHull* following = node->m_pNext;
    ProjectedHull* before = node->m_pPrev;
    if (before->m_pHull && outOfOrder(before, node)) {
      do {
        before = before->m_pPrev;
      } while (before->m_pHull && outOfOrder(before, node));
      MoveAfter(node, before);
    }
    node = following;
  }
}

}  // namespace

void insertion_sort(ProjectedHull* head) {
  SortAfter(head, [](const ProjectedHull* left, const ProjectedHull* n) { return left->m_MinX > n->m_MinX; });
}

void y_insertion_sort(ProjectedHull* head) {
  SortAfter(head, [](const ProjectedHull* left, const ProjectedHull* n) { return left->m_MaxY < n->m_MaxY; });
}

void printList(ProjectedHull* head) {
  AutomationPrintf("BEGIN PRINT LIST\n");
  int count = 0;
  for (ProjectedHull* node = head; node; node = node->m_pNext) {
    AutomationPrintf("node: 0x%x\nnode max position: %f\n\n",
                     static_cast<unsigned>(reinterpret_cast<uintptr_t>(node)),
                     static_cast<double>(node->m_MaxY.ToFloat()));
    ++count;
  }
  AutomationPrintf("total nodes: %d\n", count);
  AutomationPrintf("END PRINT LIST\n");
}

}  // namespace nox
