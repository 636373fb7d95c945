// range_set.h: CExtGridRangeSet, an ordered list of inclusive cell rectangles with set operations.
#pragma once

#include <cstddef>
#include <vector>

namespace qmk::toolkit::formula {

// An inclusive rectangle of cell positions: left..right columns, top..bottom rows.
struct CellRect {
  int left = -1, top = -1, right = -1, bottom = -1;

  bool operator==(const CellRect&) const = default;
  // A rectangle whose corners are ordered.
  CellRect Normalized() const;
  bool IsValid() const { return left >= 0 && top >= 0 && left <= right && top <= bottom; }
  bool Contains(int column, int row) const {
    return column >= left && column <= right && row >= top && row <= bottom;
  }
  bool Covers(const CellRect& other) const {
    return other.left >= left && other.right <= right && other.top >= top && other.bottom <= bottom;
  }
};

// A cell position.
struct CellPos {
  int column = -1, row = -1;
  bool operator==(const CellPos&) const = default;
};

class CExtGridRangeSet {
 public:
  CExtGridRangeSet() = default;
  explicit CExtGridRangeSet(const CellRect& rect) { Add(rect); }

  void Assign(const CExtGridRangeSet& other) { rects_ = other.rects_; }
  void Empty() { rects_.clear(); }
  bool IsEmpty() const { return rects_.empty(); }
  size_t GetCount() const { return rects_.size(); }
  const CellRect& GetAt(size_t index) const { return rects_[index]; }
  const std::vector<CellRect>& Rects() const { return rects_; }

  // Adds one rectangle (normalised). A rectangle already covered by one in the set is not
  // added again, so that the cursor does not visit its cells twice.
  void Add(const CellRect& rect);
  bool Contains(int column, int row) const;
  bool Contains(const CellPos& cell) const { return Contains(cell.column, cell.row); }
  // Exactly one rectangle, of exactly one cell.
  bool IsSingleCell() const;

  void UnionWith(const CExtGridRangeSet& other);
  // Keeps of each rectangle the part inside `rect`; rectangles that fall outside are dropped.
  void IntersectWith(const CellRect& rect);
  // The union of this set's intersections with each rectangle of `other`; empty if `other` is.
  void IntersectWith(const CExtGridRangeSet& other);

  bool operator==(const CExtGridRangeSet&) const = default;

  // Walks the cells of each rectangle in turn, row after row, left to right inside a row.
  class Cursor {
   public:
    explicit Cursor(const CExtGridRangeSet& set) : set_(set) {}
    // The next cell; false when every cell was visited.
    bool Next(CellPos& cell);

   private:
    const CExtGridRangeSet& set_;
    size_t rect_ = 0;
    long long column_ = -1, row_ = -1;
  };

 private:
  std::vector<CellRect> rects_;
};

}  // namespace qmk::toolkit::formula
