// reader_index.h: CellReaderIndex, for each cell the formula cells that read it, as linked
// lists in one pool so that a million small formulas cost no heap piece each.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "toolkit/formula/key_map.h"

namespace qmk::toolkit::formula {

class CExtFormulaGridCell;

class CellReaderIndex {
 public:
  // Enters `reader` under `cell`; `object` is the reader's cell, handed back to the walks that
  // want it so that they need not look the reader up again.
  void Add(int64_t cell, int64_t reader, CExtFormulaGridCell* object = nullptr) {
    uint32_t& head = Head(cell, true);
    uint32_t link = m_nFree;
    if (link != 0) {
      m_nFree = m_links[link - 1].next;
    } else {
      m_links.push_back({});
      link = static_cast<uint32_t>(m_links.size());
    }
    m_links[link - 1] = {reader, object, head};
    head = link;
  }

  void Remove(int64_t cell, int64_t reader) {
    for (uint32_t* at = &Head(cell, false); *at != 0; at = &m_links[*at - 1].next) {
      const uint32_t link = *at;
      if (m_links[link - 1].reader != reader) continue;
      *at = m_links[link - 1].next;
      m_links[link - 1].next = m_nFree;
      m_nFree = link;
      return;
    }
  }

  // Calls `visit(reader)` for each reader of `cell`, newest first.
  template <typename Visit>
  void ForEachReader(int64_t cell, Visit visit) const {
    const uint32_t* group = m_groups.Find(GroupKey(cell));
    if (group == nullptr) return;
    for (uint32_t link = m_heads[*group][Slot(cell)]; link != 0; link = m_links[link - 1].next)
      visit(m_links[link - 1].reader);
  }
  // The same, calling `visit(reader, object)` with the cell the reader was entered with.
  template <typename Visit>
  void ForEachReaderCell(int64_t cell, Visit visit) const {
    const uint32_t* group = m_groups.Find(GroupKey(cell));
    if (group == nullptr) return;
    for (uint32_t link = m_heads[*group][Slot(cell)]; link != 0; link = m_links[link - 1].next)
      visit(m_links[link - 1].reader, m_links[link - 1].object);
  }

  void clear() {
    m_groups.clear();
    m_heads.clear();
    m_links.clear();
    m_nFree = 0;
  }

 private:
  // Cells are grouped by 16 rows of one column, so that the formulas of neighbouring rows,
  // entered one after the other, find their lists together.
  static constexpr int kRowShift = 4;
  using Heads = std::array<uint32_t, 1u << kRowShift>;  // 1 + the index of each first link

  static int64_t GroupKey(int64_t cell) { return cell >> kRowShift; }  // the row is the low half
  static size_t Slot(int64_t cell) { return static_cast<size_t>(cell & ((1 << kRowShift) - 1)); }

  uint32_t& Head(int64_t cell, bool create) {
    static uint32_t none = 0;
    uint32_t* group = m_groups.Find(GroupKey(cell));
    if (group == nullptr) {
      if (!create) return none = 0;
      group = &m_groups.Insert(GroupKey(cell), static_cast<uint32_t>(m_heads.size()));
      m_heads.push_back({});
    }
    return m_heads[*group][Slot(cell)];
  }

  struct Link {
    int64_t reader = 0;
    CExtFormulaGridCell* object = nullptr;
    uint32_t next = 0;  // 1 + the index of the next link; 0 ends the list
  };
  FlatKeyMap<uint32_t> m_groups;  // group key to index in m_heads
  std::vector<Heads> m_heads;
  std::vector<Link> m_links;
  uint32_t m_nFree = 0;  // 1 + the index of the first free link
};

}  // namespace qmk::toolkit::formula
