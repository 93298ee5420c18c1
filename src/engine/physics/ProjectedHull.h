// A pool's list node: a hull with its x and y projections as of the last
// projectPool. Nodes come from the engine's preallocated block and go back to it;
// a pool's list starts with a sentinel node that has no hull.
//
// The live links (next, previous) keep the list sorted by min x. A sweep against
// another pool unlinks nodes from the live list and restores it from the saved
// links; a y-sorted sweep of a stacking pool keeps the live links in the y links
// while it re-sorts a segment.
#pragma once
#include "core/Real.h"

namespace nox {

class AbstractHull;

struct ProjectedHull {
  void Clear() { *this = ProjectedHull(); }

  Real m_MinX;  // the hull's projection on x
  Real m_MaxX;
  AbstractHull* m_pHull = nullptr;   // borrowed; null in a sentinel
  ProjectedHull* m_pNext = nullptr;  // the live list, sorted by min x ascending
  ProjectedHull* m_pPrev = nullptr;
  ProjectedHull* m_pSavedNext = nullptr;  // the live links as of the last projectPool
  ProjectedHull* m_pSavedPrev = nullptr;
  Real m_MinY;  // the projection on y
  Real m_MaxY;
  ProjectedHull* m_pYNext = nullptr;  // live links kept over a y-sorted sweep
  ProjectedHull* m_pYPrev = nullptr;
  bool m_bParticleFixed = false;  // the particle's fixed flag when the hull was added
  bool m_bDead = false;           // leaves the list at the next CollectGarbage
};

// Stable insertion sort of the list after `head` (a node without a hull) by min x,
// ascending. A node moves back only past neighbours with a strictly greater key, so
// a list that is nearly in order costs about one comparison per node.
void insertion_sort(ProjectedHull* head);

// The same by max y, descending.
void y_insertion_sort(ProjectedHull* head);

// Debug output of the list from `head`: each node's address and max y.
void printList(ProjectedHull* head);

}  // namespace nox
