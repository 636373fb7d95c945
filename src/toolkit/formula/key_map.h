// key_map.h: FlatKeyMap, an open-addressing hash map from cell position keys to small values,
// for the lookups recalculation makes by the hundred thousand.
#pragma once

#include <cstdint>
#include <vector>

namespace qmk::toolkit::formula {

// The slot order of position keys (column in the high half, row in the low): eight rows of a
// column side by side, and those runs of eight scattered by a full mix. Recalculation walks
// rows in order and finds them in one cache line; any pattern of cells spreads as well as a
// plain hash would spread it.
inline uint64_t NearbyHash(int64_t key) {
  uint64_t x = (static_cast<uint64_t>(key) >> 3) + 0x9e3779b97f4a7c15ull;
  x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9ull;
  x = (x ^ (x >> 27)) * 0x94d049bb133111ebull;
  x ^= x >> 31;
  return (x << 3) | (static_cast<uint64_t>(key) & 7);
}

template <typename V>
class FlatKeyMap {
 public:
  FlatKeyMap() { Reset(16); }

  size_t size() const { return m_nCount; }
  bool empty() const { return m_nCount == 0; }
  void clear() { Reset(16); }

  // Makes room for `count` keys at once, so that filling an empty map never grows it.
  void reserve(size_t count) {
    size_t capacity = 16;
    while (capacity * 3 < count * 4 + 4) capacity *= 2;
    if (capacity > m_keys.size()) Rehash(capacity);
  }

  // The value of `key`, or null.
  V* Find(int64_t key) {
    for (size_t i = Slot(key);; i = (i + 1) & m_nMask) {
      if (!m_used[i]) return nullptr;
      if (m_keys[i] == key) return &m_values[i];
    }
  }
  const V* Find(int64_t key) const { return const_cast<FlatKeyMap*>(this)->Find(key); }
  bool Contains(int64_t key) const { return Find(key) != nullptr; }

  // The value of `key`, inserted with `value` when new; the flag says whether it was new.
  V& Insert(int64_t key, const V& value, bool* inserted = nullptr) {
    if ((m_nCount + 1) * 4 > m_keys.size() * 3) Grow();
    size_t i = Slot(key);
    for (; m_used[i]; i = (i + 1) & m_nMask)
      if (m_keys[i] == key) {
        if (inserted) *inserted = false;
        return m_values[i];
      }
    m_used[i] = 1;
    m_keys[i] = key;
    m_values[i] = value;
    ++m_nCount;
    if (inserted) *inserted = true;
    return m_values[i];
  }

  // Removes `key`; the entries behind it in its run are moved up so that probing stays valid.
  bool Erase(int64_t key) {
    size_t i = Slot(key);
    for (;; i = (i + 1) & m_nMask) {
      if (!m_used[i]) return false;
      if (m_keys[i] == key) break;
    }
    m_used[i] = 0;
    --m_nCount;
    for (size_t j = (i + 1) & m_nMask; m_used[j]; j = (j + 1) & m_nMask) {
      const size_t home = Slot(m_keys[j]);
      // The entry at j may move into the hole at i if its home is not in (i, j].
      const bool between = i <= j ? (home > i && home <= j) : (home > i || home <= j);
      if (between) continue;
      m_keys[i] = m_keys[j];
      m_values[i] = m_values[j];
      m_used[i] = 1;
      m_used[j] = 0;
      i = j;
    }
    return true;
  }

  template <typename F>
  void ForEach(F visit) const {
    for (size_t i = 0; i < m_keys.size(); ++i)
      if (m_used[i]) visit(m_keys[i], m_values[i]);
  }

 private:
  // Runs of eight rows of a column take neighbouring slots (see NearbyHash).
  size_t Slot(int64_t key) const { return static_cast<size_t>(NearbyHash(key)) & m_nMask; }
  void Reset(size_t capacity) {
    m_keys.assign(capacity, 0);
    m_values.assign(capacity, V());
    m_used.assign(capacity, 0);
    m_nMask = capacity - 1;
    m_nCount = 0;
  }
  void Grow() { Rehash(m_keys.size() * 2); }
  void Rehash(size_t capacity) {
    std::vector<int64_t> keys;
    std::vector<V> values;
    std::vector<uint8_t> used;
    keys.swap(m_keys);
    values.swap(m_values);
    used.swap(m_used);
    Reset(capacity);
    for (size_t i = 0; i < keys.size(); ++i)
      if (used[i]) Insert(keys[i], values[i]);
  }

  std::vector<int64_t> m_keys;
  std::vector<V> m_values;
  std::vector<uint8_t> m_used;
  size_t m_nMask = 0;
  size_t m_nCount = 0;
};

using FlatKeySet = FlatKeyMap<uint8_t>;

}  // namespace qmk::toolkit::formula
