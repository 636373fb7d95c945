// provider_mixins.h: the mix-ins that add to a store an icon table (CExtGDPI), a font table
// (CExtGDPF) and cell joins with extents written into cells (CExtGDPJ), and CExtMDP, which puts
// them over the dense store.
#pragma once

#include <memory>
#include <vector>

#include "toolkit/bitmap/cmd_icon.h"
#include "toolkit/grid/cell_variant.h"
#include "toolkit/grid/join_manager.h"
#include "toolkit/grid/provider_memory.h"

namespace qmk::toolkit::grid {

// Removes `count` entries from `first` (all to the end for a negative count); the number removed.
template <class T>
int RemoveTableRange(std::vector<T>& table, int first, int count) {
  if (first < 0 || first >= static_cast<int>(table.size())) return 0;
  const int left = static_cast<int>(table.size()) - first;
  const int n = count < 0 || count > left ? left : count;
  table.erase(table.begin() + first, table.begin() + first + n);
  return n;
}

// Inserts at `index` (the end for a negative or too large one); the index used.
template <class T>
int InsertTableEntry(std::vector<T>& table, int index, T entry) {
  const int at = index < 0 || index > static_cast<int>(table.size()) ? static_cast<int>(table.size()) : index;
  table.insert(table.begin() + at, std::move(entry));
  return at;
}

template <class BASE>
class CExtGDPI : public BASE {
 public:
  int IconGetCount() const override { return static_cast<int>(m_arrIcons.size()); }
  bitmap::CExtCmdIcon* IconGetAt(int index) const override {
    return index >= 0 && index < IconGetCount() ? m_arrIcons[static_cast<size_t>(index)].get() : nullptr;
  }
  // With `copy` the table keeps a copy; without it the table takes the icon.
  int IconInsert(bitmap::CExtCmdIcon* icon, int index = -1, bool copy = true) override {
    if (!icon) return -1;
    std::unique_ptr<bitmap::CExtCmdIcon> entry;
    if (copy) {
      entry = std::make_unique<bitmap::CExtCmdIcon>();
      if (!icon->IsEmpty() && !entry->AssignFrom(*icon)) return -1;
    } else {
      entry.reset(icon);
    }
    return InsertTableEntry(m_arrIcons, index, std::move(entry));
  }
  int IconRemove(int first = 0, int count = -1) override { return RemoveTableRange(m_arrIcons, first, count); }

 private:
  std::vector<std::unique_ptr<bitmap::CExtCmdIcon>> m_arrIcons;
};

// A font table record: the font and whether the table owns it.
struct CExtGDPFFont {
  GridFont* m_hFont = nullptr;
  bool m_bOwned = false;
  CExtGDPFFont(GridFont* font, bool owned) : m_hFont(font), m_bOwned(owned) {}
  CExtGDPFFont(CExtGDPFFont&& other) noexcept : m_hFont(other.m_hFont), m_bOwned(other.m_bOwned) { other.m_bOwned = false; }
  CExtGDPFFont& operator=(CExtGDPFFont&& other) noexcept {
    if (this != &other) {
      Release();
      m_hFont = other.m_hFont;
      m_bOwned = other.m_bOwned;
      other.m_bOwned = false;
    }
    return *this;
  }
  ~CExtGDPFFont() { Release(); }
  void Release() {
    if (m_bOwned) delete m_hFont;
    m_bOwned = false;
  }
};

template <class BASE>
class CExtGDPF : public BASE {
 public:
  int FontGetCount() const override { return static_cast<int>(m_arrFonts.size()); }
  const GridFont* FontGetAt(int index) const override {
    return index >= 0 && index < FontGetCount() ? m_arrFonts[static_cast<size_t>(index)].m_hFont : nullptr;
  }
  bool FontIsOwned(int index) const {
    return index >= 0 && index < FontGetCount() && m_arrFonts[static_cast<size_t>(index)].m_bOwned;
  }
  // With `copy` the table owns a copy; without it the table refers to the caller's font.
  int FontInsert(GridFont* font, int index = -1, bool copy = true) override {
    if (!font) return -1;
    CExtGDPFFont entry(copy ? new GridFont(*font) : font, copy);
    return InsertTableEntry(m_arrFonts, index, std::move(entry));
  }
  int FontRemove(int first = 0, int count = -1) override { return RemoveTableRange(m_arrFonts, first, count); }

 private:
  std::vector<CExtGDPFFont> m_arrFonts;
};

// Joins over a store. Positions are the store's own (reserved rows and columns included). Every
// cell of a join holds an extent: the top-left cell the join's size, every other cell its
// distance back to the top-left cell as (-dx, -dy).
template <class BASE>
class CExtGDPJ : public BASE {
 public:
  // Every cell of a join is made and holds an extent, so one join may not span more cells than
  // this, and the joins an archive brings no more than kMaxLoadedJoinCells together.
  static constexpr long long kMaxJoinCells = 1 << 16;
  static constexpr long long kMaxLoadedJoinCells = 1 << 20;

  CExtGDPJ() : m_joins(*this) {}

  bool JoinSet(int column, int row, int columns, int rows) {
    if (column < 0 || row < 0 || columns < 1 || rows < 1 || column > this->ColumnCountGet() - columns ||
        row > this->RowCountGet() - rows || static_cast<long long>(columns) * rows > kMaxJoinCells)
      return false;
    return m_joins.JoinSet(column, row, columns, rows);
  }
  CSize JoinGet(int column, int row) const { return m_joins.JoinGet(column, row); }
  CExtGridJoinManager& JoinManagerGet() { return m_joins; }

  bool ColumnInsert(int position, int count) override {
    return Rejoin([&] { return BASE::ColumnInsert(position, count); }, [&] { m_joins.OnColumnInsert(position, count); });
  }
  bool RowInsert(int position, int count) override {
    return Rejoin([&] { return BASE::RowInsert(position, count); }, [&] { m_joins.OnRowInsert(position, count); });
  }
  bool ColumnRemove(int position, int count) override {
    return Rejoin([&] { return BASE::ColumnRemove(position, count); }, [&] { m_joins.OnColumnRemove(position, count); });
  }
  bool RowRemove(int position, int count) override {
    return Rejoin([&] { return BASE::RowRemove(position, count); }, [&] { m_joins.OnRowRemove(position, count); });
  }
  // Joins stay where they are while series move under them; the cells now inside get the extents.
  bool SortRun(bool columns, CExtGridDataSortProgress* progress = nullptr) override {
    ForEachJoin(true);
    const bool done = BASE::SortRun(columns, progress);
    ForEachJoin(false);
    return done;
  }
  bool MoveSeries(bool columns, int from, int to) override {
    ForEachJoin(true);
    const bool done = BASE::MoveSeries(columns, from, to);
    ForEachJoin(false);
    return done;
  }
  // The store's form, then the joins.
  bool Serialize(Archive& ar) override {
    if (!BASE::Serialize(ar)) return false;
    if (ar.IsStoring()) return m_joins.Serialize(ar);
    CExtGridJoinManager loaded;
    if (!loaded.Serialize(ar)) return false;
    m_joins.RemoveAll();
    long long cells = 0;
    bool complete = true;
    for (POSITION p = loaded.MapGet().GetStartPosition(); p;) {
      int64_t key;
      CSize size;
      loaded.MapGet().GetNextAssoc(p, key, size);
      cells += size.cx > 0 && size.cy > 0 ? static_cast<long long>(size.cx) * size.cy : 0;
      if (cells > kMaxLoadedJoinCells) return false;
      complete &= JoinSet(static_cast<int>(KeyColumn(key)), static_cast<int>(KeyRow(key)), size.cx, size.cy);
    }
    return complete;
  }

 private:
  class Joins : public CExtGridJoinManager {
   public:
    explicit Joins(CExtGDPJ& owner) : m_owner(owner) {}
    void OnJoinApply(int c, int r, int w, int h, bool) override {
      if (!m_bMuted) m_owner.WriteExtents(c, r, w, h, false);
    }
    void OnJoinClear(int c, int r, int w, int h, bool) override {
      if (!m_bMuted) m_owner.WriteExtents(c, r, w, h, true);
    }
    bool m_bMuted = false;

   private:
    CExtGDPJ& m_owner;
  };

  // An insert or removal: extents of every join are cleared, the store changes, the joins move
  // (their effects muted), and the extents of every join are written again at the new places.
  template <class Change, class Walk>
  bool Rejoin(Change change, Walk walk) {
    ForEachJoin(true);
    const bool done = change();
    if (done) {
      m_joins.m_bMuted = true;
      walk();
      m_joins.m_bMuted = false;
    }
    ForEachJoin(false);
    return done;
  }

  void ForEachJoin(bool clear) {
    for (POSITION p = m_joins.MapGet().GetStartPosition(); p;) {
      int64_t key;
      CSize size;
      m_joins.MapGet().GetNextAssoc(p, key, size);
      WriteExtents(static_cast<int>(KeyColumn(key)), static_cast<int>(KeyRow(key)), size.cx, size.cy, clear);
    }
  }

  void WriteExtents(int column, int row, int columns, int rows, bool clear) {
    for (int dy = 0; dy < rows; ++dy)
      for (int dx = 0; dx < columns; ++dx) {
        CExtGridCell* cell = clear ? this->CellGet(column + dx, row + dy) : Fetch(column + dx, row + dy);
        auto* data = dynamic_cast<CExtGridCellEx*>(cell);
        if (!data) continue;
        data->JoinSet(clear ? CSize{1, 1} : dx == 0 && dy == 0 ? CSize{columns, rows} : CSize{-dx, -dy});
      }
  }

  // A cell of a join is made when missing: from the column's default, else as a variant cell.
  CExtGridCell* Fetch(int column, int row) {
    if (CExtGridCell* cell = this->CellGet(column, row, nullptr, true)) return cell;
    return this->CellGet(column, row, &CExtGridCellVariant::kClass);
  }

  Joins m_joins;
};

template <class BASE = CExtGridDataProviderMemory>
class CExtMDP : public CExtGDPJ<CExtGDPF<CExtGDPI<BASE>>> {};

}  // namespace qmk::toolkit::grid
