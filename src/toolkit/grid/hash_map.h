// hash_map.h: CExtHashMapT, the grid's chained hash map with a fixed bucket count, whose bucket
// order is the iteration order every walker of the grid sees.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

#include "platform/archive.h"
#include "toolkit/grid/types.h"

namespace qmk::toolkit::grid {

// The bucket hash of the grid's keys. A position key is two 32-bit halves, hashed by the sum of
// both halves shifted right by 4; any other key is its own bits shifted right by 4. All unsigned.
inline uint32_t HashKeyOf(int64_t key) {
  const uint64_t u = static_cast<uint64_t>(key);
  return (static_cast<uint32_t>(u >> 32) >> 4) + (static_cast<uint32_t>(u) >> 4);
}
inline uint32_t HashKeyOf(int32_t key) { return static_cast<uint32_t>(key) >> 4; }
inline uint32_t HashKeyOf(uint32_t key) { return key >> 4; }
template <class T>
uint32_t HashKeyOf(T* key) {
  return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(key) >> 4);
}

// Archive form of keys and values: 64-bit keys take 8 bytes, 32-bit ones 4, a size 8 (two
// 32-bit words). Pointers are written as a 32-bit word and read back as null: an address means
// nothing to another process.
namespace map_archive {
inline void Store(platform::Archive& ar, int64_t v) {
  ar.WriteU32(static_cast<uint32_t>(v));
  ar.WriteU32(static_cast<uint32_t>(static_cast<uint64_t>(v) >> 32));
}
inline void Load(platform::Archive& ar, int64_t& v) {
  const uint64_t lo = ar.ReadU32();
  v = static_cast<int64_t>(lo | (static_cast<uint64_t>(ar.ReadU32()) << 32));
}
inline void Store(platform::Archive& ar, int32_t v) { ar.WriteU32(static_cast<uint32_t>(v)); }
inline void Load(platform::Archive& ar, int32_t& v) { v = static_cast<int32_t>(ar.ReadU32()); }
inline void Store(platform::Archive& ar, const CSize& v) {
  Store(ar, v.cx);
  Store(ar, v.cy);
}
inline void Load(platform::Archive& ar, CSize& v) {
  Load(ar, v.cx);
  Load(ar, v.cy);
}
template <class T>
void Store(platform::Archive& ar, T* v) {
  ar.WriteU32(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(v)));
}
template <class T>
void Load(platform::Archive& ar, T*& v) {
  ar.ReadU32();
  v = nullptr;
}
inline size_t StoredSize(int64_t) { return 8; }
inline size_t StoredSize(int32_t) { return 4; }
inline size_t StoredSize(const CSize&) { return 8; }
template <class T>
size_t StoredSize(T*) { return 4; }
}  // namespace map_archive

// Opaque iteration cursor; null ends a walk.
using POSITION = struct PositionTag*;

// Nodes live in blocks of `block size` and are numbered; buckets hold doubly linked chains of
// node numbers, newest first, so that a removal keeps the order of the others. A side index
// (open addressing over node numbers) answers lookups, so that a map of a million entries with
// 17 buckets never walks a chain to find a key; the side index changes no order.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CExtHashMapT {
 public:
  explicit CExtHashMapT(uint32_t blockSize = 10) : block_size_(blockSize ? blockSize : 10) {}
  CExtHashMapT(const CExtHashMapT&) = delete;
  CExtHashMapT& operator=(const CExtHashMapT&) = delete;
  ~CExtHashMapT() = default;

  // Sets the bucket count; only an empty map can be re-sized, and growth never changes it, since
  // the bucket order is what walkers see. False when refused.
  bool InitHashTable(uint32_t count) {
    if (count_ != 0 || count == 0) return false;
    bucket_count_ = count;
    buckets_.clear();
    return true;
  }
  uint32_t GetHashTableSize() const { return bucket_count_; }
  uint32_t GetBlockSize() const { return block_size_; }
  int GetCount() const { return static_cast<int>(count_); }
  int GetSize() const { return GetCount(); }
  bool IsEmpty() const { return count_ == 0; }

  bool Lookup(ARG_KEY key, VALUE& value) const {
    const uint32_t n = Find(key);
    if (n == kNone) return false;
    value = NodeAt(n).value;
    return true;
  }
  // The value of `key`, inserted as an empty value when absent.
  VALUE& operator[](ARG_KEY key) {
    uint32_t n = Find(key);
    if (n == kNone) n = Insert(key);
    return NodeAt(n).value;
  }
  void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
  bool RemoveKey(ARG_KEY key) {
    const uint32_t n = Find(key);
    if (n == kNone) return false;
    Unlink(n);
    return true;
  }
  void RemoveAll() {
    std::vector<uint32_t>().swap(buckets_);
    std::vector<std::unique_ptr<Node[]>>().swap(blocks_);
    std::vector<uint64_t>().swap(index_);
    free_ = kNone;
    count_ = 0;
    used_ = 0;
  }

  // Walks in bucket order: bucket 0 first, each chain from its newest entry.
  POSITION GetStartPosition() const {
    if (count_ == 0) return nullptr;
    return Encode(NextFrom(0));
  }
  void GetNextAssoc(POSITION& pos, KEY& key, VALUE& value) const {
    const uint32_t n = Decode(pos);
    const Node& node = NodeAt(n);
    key = node.key;
    value = node.value;
    uint32_t next = node.next;
    if (next == kNone) next = NextFrom(Bucket(node.key) + 1);
    pos = Encode(next);
  }

  // Archive form: a 32-bit count, then key and value of each entry in bucket order. Loading
  // replaces the contents; false when the archive ended early or is damaged.
  bool Serialize(platform::Archive& ar) {
    if (ar.IsStoring()) {
      ar.WriteU32(count_);
      for (POSITION p = GetStartPosition(); p;) {
        KEY k;
        VALUE v;
        GetNextAssoc(p, k, v);
        map_archive::Store(ar, k);
        map_archive::Store(ar, v);
      }
      return ar.ok();
    }
    RemoveAll();
    const uint32_t n = ar.ReadU32();
    const size_t entry = map_archive::StoredSize(KEY{}) + map_archive::StoredSize(VALUE{});
    // A count larger than what is left can't be right; refuse before touching memory.
    if (auto left = ar.Remaining(); left && *left / entry < n) return false;
    for (uint32_t i = 0; i < n && ar.ok(); ++i) {
      KEY k{};
      VALUE v{};
      map_archive::Load(ar, k);
      map_archive::Load(ar, v);
      if (ar.ok()) SetAt(k, v);
    }
    if (!ar.ok()) RemoveAll();
    return ar.ok();
  }

  // How many side-index slots a lookup of `key` reads (0 when absent): how crowded it is there.
  size_t ProbeLength(ARG_KEY key) const {
    if (index_.empty()) return 0;
    size_t count = 1;
    for (Probe p = Home(Tag(key));; Advance(p), ++count) {
      const uint64_t slot = index_[At(p)];
      if (slot == 0) return 0;
      if (NodeAt(SlotNode(slot)).key == key) return count;
    }
  }

  // Bytes held by the map's own structures (blocks, buckets, side index).
  size_t MemoryUsed() const {
    return blocks_.size() * (block_size_ * sizeof(Node) + sizeof(std::unique_ptr<Node[]>)) +
           buckets_.capacity() * sizeof(uint32_t) + index_.capacity() * sizeof(uint64_t);
  }

 private:
  static constexpr uint32_t kNone = 0xFFFFFFFFu;
  struct Node {
    KEY key{};
    VALUE value{};
    uint32_t next = kNone;
    uint32_t prev = kNone;
  };

  static POSITION Encode(uint32_t n) {
    return n == kNone ? nullptr : reinterpret_cast<POSITION>(static_cast<uintptr_t>(n) + 1);
  }
  static uint32_t Decode(POSITION p) { return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(p) - 1); }

  Node& NodeAt(uint32_t n) { return blocks_[n / block_size_][n % block_size_]; }
  const Node& NodeAt(uint32_t n) const { return blocks_[n / block_size_][n % block_size_]; }
  uint32_t Bucket(const KEY& key) const { return HashKeyOf(key) % bucket_count_; }

  uint32_t NextFrom(uint32_t bucket) const {
    for (uint32_t b = bucket; b < buckets_.size(); ++b)
      if (buckets_[b] != kNone) return buckets_[b];
    return kNone;
  }

  // A well-mixed hash for the side index only; it has nothing to do with the bucket order.
  static uint64_t Mix(const KEY& key) {
    uint64_t x = 0;
    if constexpr (std::is_pointer_v<KEY>)
      x = reinterpret_cast<uintptr_t>(key);
    else
      x = static_cast<uint64_t>(key);
    x ^= x >> 33;
    x *= 0xff51afd7ed558ccdull;
    x ^= x >> 33;
    x *= 0xc4ceb9fe1a85ec53ull;
    return x ^ (x >> 33);
  }

  // The side index keeps, beside each node number, a 32-bit tag of the key: a probe that meets
  // another key is told apart without reading its node, and growing the index reads no node at
  // all. Slot: tag << 32 | (node number + 1); 0 is empty.
  //
  // The index is cut into windows of up to 64 slots. A position key's tile of 8 rows by 8
  // columns (the grid's position key holds the column in the low half, the row in the high) has
  // one window, row by row and permuted by the tile's mix, so that walking a sheet row by row finds
  // its cells in neighbouring slots. Probing walks "lanes" (slot o of every window, then slot
  // o + 1 of every window): two keys of a tile never share a lane and each lane's keys come from
  // differently mixed tiles, so no pattern of cells piles up in one stretch. Other keys are mixed.
  // The tag's low 6 bits choose the lane, the rest the window.
  static uint32_t Tag(const KEY& key) {
    if constexpr (std::is_same_v<KEY, int64_t>) {
      const uint64_t column = static_cast<uint32_t>(key), row = static_cast<uint64_t>(key) >> 32;
      const uint64_t tile = Mix(static_cast<KEY>((row >> 3) << 32 | (column >> 3)));
      const uint64_t inTile = ((row & 7) << 3) | (column & 7);
      return static_cast<uint32_t>(((tile >> 32) & ~uint64_t{63}) | ((inTile ^ tile) & 63));
    } else {
      return static_cast<uint32_t>(Mix(key) >> 32);
    }
  }
  static uint64_t Slot(uint32_t tag, uint32_t n) { return (static_cast<uint64_t>(tag) << 32) | (n + 1); }
  static uint32_t SlotNode(uint64_t slot) { return static_cast<uint32_t>(slot) - 1; }
  static uint32_t SlotTag(uint64_t slot) { return static_cast<uint32_t>(slot >> 32); }

  // A place in probe order: a lane and a window. The index holds `windows_` windows of `width_`
  // slots; its size grows by half (a multiple of 64 once past 64) and so stays fuller than a
  // doubling one.
  struct Probe {
    size_t lane;
    size_t window;
  };
  Probe Home(uint32_t tag) const { return {(tag & 63u) % width_, (tag >> 6) % windows_}; }
  size_t At(Probe p) const { return p.window * width_ + p.lane; }
  void Advance(Probe& p) const {
    if (++p.window < windows_) return;
    p.window = 0;
    if (++p.lane == width_) p.lane = 0;
  }
  // The place in the cyclic probe order, for telling whether one entry lies between two others.
  size_t Order(Probe p) const { return p.lane * windows_ + p.window; }

  uint32_t Find(const KEY& key) const {
    if (index_.empty()) return kNone;
    const uint32_t tag = Tag(key);
    for (Probe p = Home(tag);; Advance(p)) {
      const uint64_t slot = index_[At(p)];
      if (slot == 0) return kNone;
      if (SlotTag(slot) == tag && NodeAt(SlotNode(slot)).key == key) return SlotNode(slot);
    }
  }

  void IndexInsert(uint32_t n) {
    if ((used_ + 1) * 4 > index_.size() * 3) GrowIndex();
    IndexPlace(Slot(Tag(NodeAt(n).key), n));
  }
  void IndexPlace(uint64_t slot) {
    Probe p = Home(SlotTag(slot));
    while (index_[At(p)] != 0) Advance(p);
    index_[At(p)] = slot;
    ++used_;
  }

  void GrowIndex() {
    std::vector<uint64_t> old;
    old.swap(index_);
    size_t size = old.empty() ? 16 : old.size() + old.size() / 2;
    if (size > 64) size = (size + 63) / 64 * 64;
    width_ = size < 64 ? size : 64;
    windows_ = size / width_;
    index_.assign(size, 0);
    used_ = 0;
    for (uint64_t slot : old)
      if (slot != 0) IndexPlace(slot);
  }

  // Removal with backward shifting along the probe order, so that no tombstones pile up.
  void IndexErase(uint32_t n) {
    Probe p = Home(Tag(NodeAt(n).key));
    while (index_[At(p)] == 0 || SlotNode(index_[At(p)]) != n) Advance(p);
    size_t i = Order(p);
    Probe q = p;
    for (Advance(q); index_[At(q)] != 0; Advance(q)) {
      const size_t j = Order(q), home = Order(Home(SlotTag(index_[At(q)])));
      // Move q back to the hole at p when its home does not lie cyclically in (p, q].
      const bool between = i <= j ? (home > i && home <= j) : (home > i || home <= j);
      if (!between) {
        index_[At(p)] = index_[At(q)];
        p = q;
        i = j;
      }
    }
    index_[At(p)] = 0;
    --used_;
  }

  uint32_t NewNode() {
    if (free_ == kNone) {
      const uint32_t base = static_cast<uint32_t>(blocks_.size()) * block_size_;
      blocks_.push_back(std::make_unique<Node[]>(block_size_));
      // The block's first node is handed out first.
      for (uint32_t i = block_size_; i-- > 0;) {
        NodeAt(base + i).next = free_;
        free_ = base + i;
      }
    }
    const uint32_t n = free_;
    free_ = NodeAt(n).next;
    return n;
  }

  uint32_t Insert(const KEY& key) {
    if (buckets_.empty()) buckets_.assign(bucket_count_, kNone);
    const uint32_t n = NewNode();
    Node& node = NodeAt(n);
    node.key = key;
    node.value = VALUE{};
    const uint32_t b = Bucket(key);
    node.prev = kNone;
    node.next = buckets_[b];
    if (node.next != kNone) NodeAt(node.next).prev = n;
    buckets_[b] = n;
    ++count_;
    IndexInsert(n);
    return n;
  }

  void Unlink(uint32_t n) {
    IndexErase(n);
    Node& node = NodeAt(n);
    if (node.prev != kNone)
      NodeAt(node.prev).next = node.next;
    else
      buckets_[Bucket(node.key)] = node.next;
    if (node.next != kNone) NodeAt(node.next).prev = node.prev;
    node.value = VALUE{};
    node.next = free_;
    free_ = n;
    // The whole store goes back to the heap when the map empties.
    if (--count_ == 0) RemoveAll();
  }

  std::vector<uint32_t> buckets_;
  std::vector<std::unique_ptr<Node[]>> blocks_;
  std::vector<uint64_t> index_;
  uint32_t free_ = kNone;
  uint32_t bucket_count_ = 17;
  uint32_t count_ = 0;
  uint32_t used_ = 0;
  size_t width_ = 1;    // slots per window of the side index
  size_t windows_ = 1;  // windows in the side index
  uint32_t block_size_;
};

}  // namespace qmk::toolkit::grid
