// reader_index.h: CellReaderIndex, for each cell the formula cells that read it, as linked
// lists in one pool so that a million small formulas cost no heap piece each.
#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/formula/key_map.h"

namespace qmk::toolkit::formula {

class CellReaderIndex {
 public:
  void Add(int64_t cell, int64_t reader) {
    uint32_t& head = m_heads.Insert(cell, 0);
    uint32_t link = m_nFree;
    if (link != 0) {
      m_nFree = m_links[link - 1].next;
    } else {
      m_links.push_back({});
      link = static_cast<uint32_t>(m_links.size());
    }
    m_links[link - 1] = {reader, head};
    head = link;
  }

  void Remove(int64_t cell, int64_t reader) {
    uint32_t* head = m_heads.Find(cell);
    if (head == nullptr) return;
    for (uint32_t* at = head; *at != 0; at = &m_links[*at - 1].next) {
      const uint32_t link = *at;
      if (m_links[link - 1].reader != reader) continue;
      *at = m_links[link - 1].next;
      m_links[link - 1].next = m_nFree;
      m_nFree = link;
      break;
    }
    if (*head == 0) m_heads.Erase(cell);
  }

  // Calls `visit(reader)` for each reader of `cell`, newest first.
  template <typename Visit>
  void ForEachReader(int64_t cell, Visit visit) const {
    const uint32_t* head = m_heads.Find(cell);
    for (uint32_t link = head != nullptr ? *head : 0; link != 0; link = m_links[link - 1].next)
      visit(m_links[link - 1].reader);
  }

  void clear() {
    m_heads.clear();
    m_links.clear();
    m_nFree = 0;
  }

 private:
  struct Link {
    int64_t reader = 0;
    uint32_t next = 0;  // 1 + the index of the next link; 0 ends the list
  };
  FlatKeyMap<uint32_t> m_heads;  // 1 + the index of the cell's first link
  std::vector<Link> m_links;
  uint32_t m_nFree = 0;  // 1 + the index of the first free link
};

}  // namespace qmk::toolkit::formula
