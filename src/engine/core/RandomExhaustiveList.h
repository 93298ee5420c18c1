// A list drawn from in a shuffled order that repeats nothing until every item has
// come up once; then the same order starts again (a fresh order needs a new
// Shuffle). The order is a function of the random seed alone, so a save game keeps
// a list as one seed and one index and rebuilds it with Restore.
//
// Shuffling uses the game host's generator (nox::GameHost::s_pGameHost must exist).
// RandomExhaustiveBase::SetAllShufflingEnabled(false) turns every shuffle into a
// no-op, leaving lists in the order they were filled.
#pragma once
#include <cstdint>
#include <utility>
#include <vector>
#include "core/GameHost.h"

namespace nox {

class RandomExhaustiveBase {
 public:
  static void SetAllShufflingEnabled(bool enabled) { ms_disableAllShuffling = !enabled; }
  static bool IsShufflingEnabled() { return !ms_disableAllShuffling; }

 protected:
  static bool ms_disableAllShuffling;  // false at start
};

template <class T>
class RandomExhaustiveList : public RandomExhaustiveBase {
 public:
  explicit RandomExhaustiveList(bool shuffle = true) : m_bShuffle(shuffle) {}

  void Add(const T& item) { m_Items.push_back(item); }
  void Clear() {
    m_Items.clear();
    m_Index = 0;
  }
  void SetShuffle(bool shuffle) { m_bShuffle = shuffle; }

  uint32_t Size() const { return static_cast<uint32_t>(m_Items.size()); }
  bool IsEmpty() const { return m_Items.empty(); }
  uint32_t GetIndex() const { return m_Index; }
  // Every item has been drawn since the last shuffle or wrap.
  bool IsExhausted() const { return m_Index >= m_Items.size(); }
  const std::vector<T>& GetItems() const { return m_Items; }

  // The next item; after the last one the same order starts again, unshuffled.
  // An empty list gives a default T.
  const T& GetNext() {
    if (m_Items.empty()) {
      static const T s_Empty{};
      return s_Empty;
    }
    if (m_Index >= m_Items.size()) m_Index = 0;
    return m_Items[m_Index++];
  }

  // Fisher-Yates with the host's GetRandomU32; back to the first item.
  void Shuffle() {
    if (m_bShuffle && !ms_disableAllShuffling && m_Items.size() >= 2) {
      for (uint32_t i = 1; i < m_Items.size(); ++i) {
        uint32_t j = GameHost::s_pGameHost->GetRandomU32(i + 1);
        std::swap(m_Items[i], m_Items[j]);
      }
    }
    m_Index = 0;
  }

  // Rebuilds the order that `seed` gives and continues at `index`, then reseeds the
  // generator from the clock, so that draws after a restore do not repeat the order
  // the stored seed gives.
  void Restore(uint32_t seed, uint32_t index) {
    GameHost::s_pGameHost->SetRandomSeed(seed);
    Shuffle();
    m_Index = index;
    GameHost::s_pGameHost->GenerateRandomSeed();
  }

 private:
  std::vector<T> m_Items;
  bool m_bShuffle;
  uint32_t m_Index = 0;  // of the next item; Size() once all were drawn
};

}  // namespace nox
