// join_manager.cpp: CExtGridJoinManager: setting joins, and the walkers of inserts and removals.
// The walkers sort the joins into lists first and change the map afterwards, since the map must
// not change while it is walked.
#include "toolkit/grid/join_manager.h"

#include <algorithm>
#include <vector>

namespace qmk::toolkit::grid {

namespace {

int64_t KeyOf(int column, int row) {
  return MakePositionKey(static_cast<uint32_t>(column), static_cast<uint32_t>(row));
}

// A join seen along one direction: its start and length there, the rest as it is.
struct Join {
  int column, row;
  CSize size;
  int Start(bool columns) const { return columns ? column : row; }
  int Length(bool columns) const { return columns ? size.cx : size.cy; }
  Join Moved(bool columns, int start, int length) const {
    Join j = *this;
    (columns ? j.column : j.row) = start;
    (columns ? j.size.cx : j.size.cy) = length;
    return j;
  }
};

std::vector<Join> AllJoins(const CExtGridJoinManager::JoinMap& map) {
  std::vector<Join> joins;
  for (POSITION p = map.GetStartPosition(); p;) {
    int64_t key;
    CSize size;
    map.GetNextAssoc(p, key, size);
    joins.push_back({static_cast<int>(KeyColumn(key)), static_cast<int>(KeyRow(key)), size});
  }
  return joins;
}

}  // namespace

CSize CExtGridJoinManager::JoinGet(int column, int row) const {
  CSize size{1, 1};
  if (column >= 0 && row >= 0) m_map.Lookup(KeyOf(column, row), size);
  return size;
}

bool CExtGridJoinManager::JoinSet(int column, int row, int columns, int rows, bool redraw) {
  if (column < 0 || row < 0 || columns < 1 || rows < 1) return false;
  const int64_t key = KeyOf(column, row);
  const CSize present = JoinGet(column, row);
  if (present.cx > 1 || present.cy > 1) {
    m_map.RemoveKey(key);
    OnJoinClear(column, row, present.cx, present.cy, redraw);
  }
  if (columns > 1 || rows > 1) {
    m_map.SetAt(key, CSize{columns, rows});
    OnJoinApply(column, row, columns, rows, redraw);
  }
  return true;
}

void CExtGridJoinManager::SeriesInsert(bool columns, int position, int count, bool redraw) {
  if (count <= 0) return;
  std::vector<Join> moved, widened;
  for (const Join& j : AllJoins(m_map)) {
    const int start = j.Start(columns), length = j.Length(columns);
    if (start >= position)
      moved.push_back(j);
    else if (start + length > position)
      widened.push_back(j);
  }
  for (const Join& j : moved) m_map.RemoveKey(KeyOf(j.column, j.row));
  for (const Join& j : moved) {
    const Join to = j.Moved(columns, j.Start(columns) + count, j.Length(columns));
    m_map.SetAt(KeyOf(to.column, to.row), to.size);
    OnJoinMove(j.column, j.row, to.column, to.row, to.size.cx, to.size.cy, redraw);
  }
  for (const Join& j : widened) {
    const Join to = j.Moved(columns, j.Start(columns), j.Length(columns) + count);
    m_map.SetAt(KeyOf(to.column, to.row), to.size);
    OnJoinResize(j.column, j.row, j.size.cx, j.size.cy, to.size.cx, to.size.cy, redraw);
  }
}

void CExtGridJoinManager::SeriesRemove(bool columns, int position, int count, bool redraw) {
  if (count <= 0) return;
  const int end = position + count;
  std::vector<Join> dropped, moved, cut, shifted;
  for (const Join& j : AllJoins(m_map)) {
    const int start = j.Start(columns), stop = start + j.Length(columns);
    if (start >= position && stop <= end)
      dropped.push_back(j);
    else if (start >= end)
      moved.push_back(j);
    else if (start < position && stop > position)
      cut.push_back(j);
    else if (start >= position && start < end && stop > end)
      shifted.push_back(j);
  }
  for (const Join& j : dropped) {
    m_map.RemoveKey(KeyOf(j.column, j.row));
    OnJoinClear(j.column, j.row, j.size.cx, j.size.cy, redraw);
  }
  // What is left of each join, at its new place; a join that falls to 1 by 1 is dropped.
  struct Change {
    Join from, to;
    bool move;
  };
  std::vector<Change> changes;
  for (const Join& j : moved) changes.push_back({j, j.Moved(columns, j.Start(columns) - count, j.Length(columns)), true});
  for (const Join& j : cut) {
    const int stop = j.Start(columns) + j.Length(columns);
    const int inside = std::min(stop, end) - position;
    changes.push_back({j, j.Moved(columns, j.Start(columns), j.Length(columns) - inside), false});
  }
  for (const Join& j : shifted) {
    const int stop = j.Start(columns) + j.Length(columns);
    changes.push_back({j, j.Moved(columns, position, stop - end), true});
  }
  for (const Change& c : changes) m_map.RemoveKey(KeyOf(c.from.column, c.from.row));
  for (const Change& c : changes) {
    const Join& to = c.to;
    if (c.move) OnJoinMove(c.from.column, c.from.row, to.column, to.row, to.size.cx, to.size.cy, redraw);
    if (to.size.cx <= 1 && to.size.cy <= 1) {
      OnJoinClear(to.column, to.row, to.size.cx, to.size.cy, redraw);
      continue;
    }
    m_map.SetAt(KeyOf(to.column, to.row), to.size);
    if (!(to.size == c.from.size))
      OnJoinResize(to.column, to.row, c.from.size.cx, c.from.size.cy, to.size.cx, to.size.cy, redraw);
  }
}

}  // namespace qmk::toolkit::grid
