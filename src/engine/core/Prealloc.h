// Owner of arrays allocated up front for a pool: each Allocate(n) makes one array of
// n default-constructed T with array new and keeps it until the Prealloc is
// destroyed. Users hand out the elements themselves (the collision engine keeps its
// own free list over them); nothing is freed one element at a time.
#pragma once
#include <cstddef>
#include <vector>
#include "core/NoCopy.h"

namespace nox {

template <class T>
class Prealloc : public NoCopy {
 public:
  Prealloc() = default;
  virtual ~Prealloc() {
    for (T* block : m_Blocks) delete[] block;
  }

  // A new owned array of `count` elements; null for a count of 0.
  T* Allocate(size_t count) {
    if (count == 0) return nullptr;
    T* block = new T[count];
    m_Blocks.push_back(block);
    return block;
  }

  size_t GetBlockCount() const { return m_Blocks.size(); }
  T* GetBlock(size_t i) const { return i < m_Blocks.size() ? m_Blocks[i] : nullptr; }

 private:
  std::vector<T*> m_Blocks;  // owned arrays
};

}  // namespace nox
