// selection.cpp: CExtGridSelection.
#include "toolkit/grid/selection.h"

#include <algorithm>

namespace qmk::toolkit::grid {

namespace {

bool Intersect(const CellRect& a, const CellRect& b) {
  return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

CellRect Union(const CellRect& a, const CellRect& b) {
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

// Two ranges whose union is exactly a rectangle covered by them.
bool Mergeable(const CellRect& a, const CellRect& b) {
  const bool sameColumns = a.left == b.left && a.right == b.right;
  const bool sameRows = a.top == b.top && a.bottom == b.bottom;
  const bool touchVertically = b.top <= a.bottom + 1 && a.top <= b.bottom + 1;
  const bool touchHorizontally = b.left <= a.right + 1 && a.left <= b.right + 1;
  return (sameColumns && touchVertically) || (sameRows && touchHorizontally) || a.Covers(b) || b.Covers(a);
}

}  // namespace

void CExtGridSelection::SelectionAdd(const CellRect& range) {
  if (m_bSingle) m_arrAreas.clear();
  m_arrAreas.push_back(range.Normalized());
}

CellRect CExtGridSelection::SelectionGetAt(int area) const {
  if (area < 0 || area >= SelectionGetAreaCount()) return {};
  return m_arrAreas[static_cast<size_t>(area)];
}

bool CExtGridSelection::SelectionRemoveAt(int index, bool) {
  if (index < 0 || index >= SelectionGetAreaCount()) return false;
  m_arrAreas.erase(m_arrAreas.begin() + index);
  return true;
}

bool CExtGridSelection::SelectionIsCellSelected(int column, int row) const {
  return std::any_of(m_arrAreas.begin(), m_arrAreas.end(), [&](const CellRect& r) { return r.Contains(column, row); });
}

void CExtGridSelection::SelectionCompact(bool subtractMode) {
  if (m_arrAreas.size() < 2) return;
  for (size_t i = 0; i < m_arrAreas.size();) {
    bool removedI = false;
    for (size_t j = i + 1; j < m_arrAreas.size();) {
      const CellRect a = m_arrAreas[i], b = m_arrAreas[j];
      if (subtractMode && Intersect(a, b)) {
        m_arrAreas.erase(m_arrAreas.begin() + static_cast<std::ptrdiff_t>(j));
        m_arrAreas.erase(m_arrAreas.begin() + static_cast<std::ptrdiff_t>(i));
        removedI = true;
        break;
      }
      if (Mergeable(a, b)) {
        m_arrAreas[i] = Union(a, b);
        m_arrAreas.erase(m_arrAreas.begin() + static_cast<std::ptrdiff_t>(j));
        continue;
      }
      ++j;
    }
    if (!removedI) ++i;
  }
}

}  // namespace qmk::toolkit::grid
