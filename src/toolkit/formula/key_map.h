// key_map.h: FlatKeyMap, an open-addressing hash map from cell position keys to small values,
// for the lookups recalculation makes by the hundred thousand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qmk::toolkit::formula {

// The slot order of position keys (column in the high half, row in the low). A tile of 8 rows by
// 8 columns takes one window of 64 neighbouring slots, row by row, so that recalculation walking
// a sheet's rows finds a row's cells in one cache line and the next rows beside them; the
// windows are scattered by a full mix of the tile, and each tile's slots are permuted (an xor
// with another part of that mix) so that a row of the tile still shares one group of eight slots.
//
// Probing does not walk along the slots but down the "lanes": lane o is slot o of every window,
// one after the other, then lane o + 1. Two keys of one tile never share a lane, and the keys in
// one lane come from different tiles with mixed windows; so whatever the pattern of cells (dense
// columns, rows spaced by powers of two, one row, one column), each lane fills like a plain
// hash table and a lookup probes about as often as in one.
struct TileSlots {
  static constexpr int kWindowBits = 6;  // 64 slots: a tile of 8 rows by 8 columns

  explicit TileSlots(size_t capacity) {
    int bits = 0;
    while ((size_t{1} << bits) < capacity) ++bits;
    windowBits = bits < kWindowBits ? bits : kWindowBits;
    laneBits = bits - windowBits;
    mask = capacity - 1;
  }
  // The probe position (lane-major) where a key's search starts.
  size_t Home(int64_t key) const {
    const uint64_t column = static_cast<uint64_t>(key) >> 32, row = static_cast<uint32_t>(key);
    uint64_t x = (((row >> 3) << 32) | (column >> 3)) + 0x9e3779b97f4a7c15ull;
    x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9ull;
    x = (x ^ (x >> 27)) * 0x94d049bb133111ebull;
    x ^= x >> 31;
    const uint64_t inTile = ((row & 7) << 3) | (column & 7);
    const uint64_t lane = (inTile ^ (x >> 40)) & ((uint64_t{1} << windowBits) - 1);
    return static_cast<size_t>((lane << laneBits) | (x & ((uint64_t{1} << laneBits) - 1)));
  }
  // The slot of a probe position, and back.
  size_t SlotOf(size_t probe) const {
    return ((probe & ((size_t{1} << laneBits) - 1)) << windowBits) | (probe >> laneBits);
  }
  size_t Next(size_t probe) const { return (probe + 1) & mask; }

  int windowBits = 0;
  int laneBits = 0;
  size_t mask = 0;
};

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
    for (size_t p = m_slots.Home(key);; p = m_slots.Next(p)) {
      const size_t i = m_slots.SlotOf(p);
      if (!m_used[i]) return nullptr;
      if (m_keys[i] == key) return &m_values[i];
    }
  }
  const V* Find(int64_t key) const { return const_cast<FlatKeyMap*>(this)->Find(key); }
  bool Contains(int64_t key) const { return Find(key) != nullptr; }

  // The value of `key`, inserted with `value` when new; the flag says whether it was new.
  V& Insert(int64_t key, const V& value, bool* inserted = nullptr) {
    if ((m_nCount + 1) * 4 > m_keys.size() * 3) Grow();
    size_t p = m_slots.Home(key), i = m_slots.SlotOf(p);
    for (; m_used[i]; p = m_slots.Next(p), i = m_slots.SlotOf(p))
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

  // Removes `key`; the entries behind it in its probe run are moved up so that probing stays
  // valid. Positions here are probe positions, not slots.
  bool Erase(int64_t key) {
    size_t p = m_slots.Home(key);
    for (;; p = m_slots.Next(p)) {
      const size_t i = m_slots.SlotOf(p);
      if (!m_used[i]) return false;
      if (m_keys[i] == key) break;
    }
    m_used[m_slots.SlotOf(p)] = 0;
    --m_nCount;
    for (size_t q = m_slots.Next(p); m_used[m_slots.SlotOf(q)]; q = m_slots.Next(q)) {
      const size_t j = m_slots.SlotOf(q), home = m_slots.Home(m_keys[j]);
      // The entry at q may move into the hole at p if its home is not in (p, q].
      const bool between = p <= q ? (home > p && home <= q) : (home > p || home <= q);
      if (between) continue;
      const size_t i = m_slots.SlotOf(p);
      m_keys[i] = m_keys[j];
      m_values[i] = m_values[j];
      m_used[i] = 1;
      m_used[j] = 0;
      p = q;
    }
    return true;
  }

  // How many slots a lookup of `key` reads (0 when absent): how crowded the table is around it.
  size_t ProbeLength(int64_t key) const {
    size_t count = 1;
    for (size_t p = m_slots.Home(key);; p = m_slots.Next(p), ++count) {
      const size_t i = m_slots.SlotOf(p);
      if (!m_used[i]) return 0;
      if (m_keys[i] == key) return count;
    }
  }

  template <typename F>
  void ForEach(F visit) const {
    for (size_t i = 0; i < m_keys.size(); ++i)
      if (m_used[i]) visit(m_keys[i], m_values[i]);
  }

 private:
  void Reset(size_t capacity) {
    m_keys.assign(capacity, 0);
    m_values.assign(capacity, V());
    m_used.assign(capacity, 0);
    m_slots = TileSlots(capacity);
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
  TileSlots m_slots{16};
  size_t m_nCount = 0;
};

using FlatKeySet = FlatKeyMap<uint8_t>;

}  // namespace qmk::toolkit::formula
