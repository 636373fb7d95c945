// selection.h: CExtGridSelection, the ranges a grid has selected, with the focus range last and
// the compaction that merges ranges that together make one rectangle.
#pragma once

#include <vector>

#include "toolkit/formula/range_set.h"

namespace qmk::toolkit::grid {

using formula::CellPos;
using formula::CellRect;

class CExtGridSelection {
 public:
  explicit CExtGridSelection(bool singleSelection = false) : m_bSingle(singleSelection) {}

  bool IsSingleSelection() const { return m_bSingle; }
  // Adds a range (normalised) as the new focus range; in single selection mode it replaces all.
  void SelectionAdd(const CellRect& range);
  int SelectionGetAreaCount() const { return static_cast<int>(m_arrAreas.size()); }
  // The range `area`; an empty rectangle (all -1) for an index out of range.
  CellRect SelectionGetAt(int area) const;
  CellRect SelectionGetLastRange() const { return SelectionGetAt(SelectionGetAreaCount() - 1); }
  bool SelectionRemoveAt(int index, bool redraw = false);
  void SelectionRemoveAll() { m_arrAreas.clear(); }
  bool SelectionIsCellSelected(int column, int row) const;
  // Merges ranges that share two sides and touch or overlap, and ranges inside others. In the
  // subtract mode (selecting again toggles cells off) two ranges that intersect both go.
  void SelectionCompact(bool subtractMode = false);

  CellPos FocusGet() const { return m_ptFocus; }
  void FocusSet(CellPos focus) { m_ptFocus = focus; }

 private:
  bool m_bSingle;
  std::vector<CellRect> m_arrAreas;
  CellPos m_ptFocus;
};

}  // namespace qmk::toolkit::grid
