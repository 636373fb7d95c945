// join_manager.h: CExtGridJoinManager, the cell joins of a grid (a position and its size), kept
// right while rows and columns are inserted and removed.
#pragma once

#include "toolkit/grid/hash_map.h"
#include "toolkit/grid/types.h"

namespace qmk::toolkit::grid {

class CExtGridJoinManager {
 public:
  using JoinMap = CExtHashMapT<int64_t, int64_t, CSize, CSize>;

  CExtGridJoinManager() : m_map(10) { m_map.InitHashTable(17); }
  CExtGridJoinManager(const CExtGridJoinManager&) = delete;
  CExtGridJoinManager& operator=(const CExtGridJoinManager&) = delete;
  virtual ~CExtGridJoinManager() = default;

  // The map's archive form: a count, then per join the position key and the size.
  virtual bool Serialize(platform::Archive& ar) { return m_map.Serialize(ar); }
  // Clears the join at this place (if any), then stores the new one unless it is 1 by 1.
  virtual bool JoinSet(int column, int row, int columns, int rows, bool redraw = false);
  // The size stored here, or (1, 1).
  virtual CSize JoinGet(int column, int row) const;
  virtual void OnColumnInsert(int position, int count, bool redraw = false) { SeriesInsert(true, position, count, redraw); }
  virtual void OnRowInsert(int position, int count, bool redraw = false) { SeriesInsert(false, position, count, redraw); }
  virtual void OnColumnRemove(int position, int count, bool redraw = false) { SeriesRemove(true, position, count, redraw); }
  virtual void OnRowRemove(int position, int count, bool redraw = false) { SeriesRemove(false, position, count, redraw); }
  // Effects, called for each change; the provider's join layer writes cell extents in them.
  virtual void OnJoinApply(int, int, int, int, bool) {}
  virtual void OnJoinClear(int, int, int, int, bool) {}
  virtual void OnJoinMove(int, int, int, int, int, int, bool) {}
  virtual void OnJoinResize(int, int, int, int, int, int, bool) {}

  const JoinMap& MapGet() const { return m_map; }
  int JoinCount() const { return m_map.GetCount(); }
  void RemoveAll() { m_map.RemoveAll(); }

 private:
  void SeriesInsert(bool columns, int position, int count, bool redraw);
  void SeriesRemove(bool columns, int position, int count, bool redraw);

  JoinMap m_map;
};

}  // namespace qmk::toolkit::grid
