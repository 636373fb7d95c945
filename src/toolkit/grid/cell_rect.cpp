// cell_rect.cpp: CExtGridZoneLayout::GetCellRect: a cell's place is the sum of the extents of the
// series before it in its zone, after the zones in front.
#include "toolkit/grid/cell_rect.h"

namespace qmk::toolkit::grid {

int CExtGridZoneLayout::Sum(bool columns, int type, int first, int last) const {
  int total = 0;
  for (int i = first; i <= last; ++i) {
    int before = 0, after = 0;
    total += columns ? OnQueryColumnExtent(type, i, before, after) : OnQueryRowExtent(type, i, before, after);
  }
  return total;
}

bool CExtGridZoneLayout::Place(bool columns, int type, int index, int& start, int& extent, int& before,
                               int& after) const {
  const Axis& a = columns ? m_columns : m_rows;
  const int nearWidth = Sum(columns, kZoneNear, 0, a.nearCount - 1);
  const int trailingFirst = a.dataCount - a.fixedTrailing;
  const int scrollFirst = a.firstVisible > a.fixedLeading ? a.firstVisible : a.fixedLeading;
  const int scrollLast = a.lastVisible < trailingFirst - 1 ? a.lastVisible : trailingFirst - 1;
  const int leadingWidth = Sum(columns, kZoneData, 0, a.fixedLeading - 1);
  const int scrollWidth = Sum(columns, kZoneData, scrollFirst, scrollLast);
  if (type == kZoneNear) {
    if (a.nearCount == 0 || index < 0 || index >= a.nearCount) return false;
    start = Sum(columns, kZoneNear, 0, index - 1);
  } else if (type == kZoneFar) {
    if (a.farCount == 0 || index < 0 || index >= a.farCount) return false;
    start = nearWidth + leadingWidth + scrollWidth + Sum(columns, kZoneData, trailingFirst, a.dataCount - 1) +
            Sum(columns, kZoneFar, 0, index - 1);
  } else if (type == kZoneData) {
    if (index < 0 || index >= a.dataCount) return false;
    if (index < a.fixedLeading)
      start = nearWidth + Sum(columns, kZoneData, 0, index - 1);
    else if (index >= trailingFirst)
      start = nearWidth + leadingWidth + scrollWidth + Sum(columns, kZoneData, trailingFirst, index - 1);
    else if (index >= scrollFirst && index <= scrollLast)
      start = nearWidth + leadingWidth + Sum(columns, kZoneData, scrollFirst, index - 1);
    else
      return false;  // scrolled out of view
  } else {
    return false;
  }
  before = after = 0;
  extent = columns ? OnQueryColumnExtent(type, index, before, after) : OnQueryRowExtent(type, index, before, after);
  return extent > 0;
}

bool CExtGridZoneLayout::GetCellRect(int column, int row, int columnType, int rowType, PixelRect& outer,
                                     PixelRect* inner) const {
  outer = {};
  if (inner) *inner = {};
  int x = 0, width = 0, left = 0, right = 0, y = 0, height = 0, top = 0, bottom = 0;
  if (!Place(true, columnType, column, x, width, left, right) || !Place(false, rowType, row, y, height, top, bottom))
    return false;
  outer = {x, y, x + width, y + height};
  if (inner) *inner = {x + left, y + top, x + width - right, y + height - bottom};
  return true;
}

}  // namespace qmk::toolkit::grid
