// sort_order.h: CExtGridDataSortOrder, the list of series a sort compares by, kept right through
// inserts and removals by UpdateIndices.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/archive.h"

namespace qmk::toolkit::grid {

class CExtGridDataSortOrder {
 public:
  struct ITEM_INFO {
    int32_t m_nRowColNo = -1;
    bool m_bAscending = true;
    bool operator==(const ITEM_INFO&) const = default;
  };

  std::vector<ITEM_INFO> m_arrItems;

  bool IsEmpty() const { return m_arrItems.empty(); }
  int GetSize() const { return static_cast<int>(m_arrItems.size()); }
  void Empty() { m_arrItems.clear(); }
  bool operator==(const CExtGridDataSortOrder& other) const { return m_arrItems == other.m_arrItems; }
  bool operator!=(const CExtGridDataSortOrder& other) const { return !(*this == other); }

  // With `insert`, indices at or past `position` grow by `count`. Without it, indices at or past
  // position + count shrink by count and records inside the removed span are dropped.
  void UpdateIndices(int position, int count, bool insert);

  // A 32-bit count, then per record the 32-bit index and one byte (1 for ascending). False when
  // the archive ended early; a damaged archive leaves the order empty.
  bool Serialize(platform::Archive& ar);
};

}  // namespace qmk::toolkit::grid
