// sort_order.cpp: CExtGridDataSortOrder.
#include "toolkit/grid/sort_order.h"

namespace qmk::toolkit::grid {

void CExtGridDataSortOrder::UpdateIndices(int position, int count, bool insert) {
  if (count <= 0) return;
  std::vector<ITEM_INFO> kept;
  kept.reserve(m_arrItems.size());
  for (ITEM_INFO item : m_arrItems) {
    if (insert) {
      if (item.m_nRowColNo >= position) item.m_nRowColNo += count;
    } else if (item.m_nRowColNo >= position + count) {
      item.m_nRowColNo -= count;
    } else if (item.m_nRowColNo >= position) {
      continue;  // inside the removed span
    }
    kept.push_back(item);
  }
  m_arrItems.swap(kept);
}

bool CExtGridDataSortOrder::Serialize(platform::Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteU32(static_cast<uint32_t>(m_arrItems.size()));
    for (const ITEM_INFO& item : m_arrItems) {
      ar.WriteU32(static_cast<uint32_t>(item.m_nRowColNo));
      ar.WriteU8(item.m_bAscending ? 1 : 0);
    }
    return ar.ok();
  }
  m_arrItems.clear();
  const uint32_t count = ar.ReadU32();
  if (auto left = ar.Remaining(); left && *left / 5 < count) return false;
  for (uint32_t i = 0; i < count && ar.ok(); ++i) {
    ITEM_INFO item;
    item.m_nRowColNo = static_cast<int32_t>(ar.ReadU32());
    item.m_bAscending = ar.ReadU8() != 0;
    m_arrItems.push_back(item);
  }
  if (!ar.ok()) m_arrItems.clear();
  return ar.ok();
}

}  // namespace qmk::toolkit::grid
