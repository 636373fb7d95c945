// range_set.cpp: union, intersection and the reading-order cursor of CExtGridRangeSet.
#include "toolkit/formula/range_set.h"

#include <algorithm>

namespace qmk::toolkit::formula {

CellRect CellRect::Normalized() const {
  return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
}

void CExtGridRangeSet::Add(const CellRect& rect) {
  const CellRect r = rect.Normalized();
  for (const CellRect& have : rects_)
    if (have.Covers(r)) return;
  rects_.push_back(r);
}

bool CExtGridRangeSet::Contains(int column, int row) const {
  return std::any_of(rects_.begin(), rects_.end(),
                     [&](const CellRect& r) { return r.Contains(column, row); });
}

bool CExtGridRangeSet::IsSingleCell() const {
  return rects_.size() == 1 && rects_[0].left == rects_[0].right && rects_[0].top == rects_[0].bottom;
}

void CExtGridRangeSet::UnionWith(const CExtGridRangeSet& other) {
  if (&other == this) return;
  for (const CellRect& r : other.rects_) Add(r);
}

void CExtGridRangeSet::IntersectWith(const CellRect& rect) {
  const CellRect with = rect.Normalized();
  std::vector<CellRect> kept;
  for (const CellRect& r : rects_) {
    const CellRect part{std::max(r.left, with.left), std::max(r.top, with.top),
                        std::min(r.right, with.right), std::min(r.bottom, with.bottom)};
    if (part.left <= part.right && part.top <= part.bottom) kept.push_back(part);
  }
  rects_.clear();
  for (const CellRect& r : kept) Add(r);
}

void CExtGridRangeSet::IntersectWith(const CExtGridRangeSet& other) {
  CExtGridRangeSet result;
  for (const CellRect& r : other.rects_) {
    CExtGridRangeSet part(*this);
    part.IntersectWith(r);
    result.UnionWith(part);
  }
  rects_ = std::move(result.rects_);
}

bool CExtGridRangeSet::Cursor::Next(CellPos& cell) {
  while (rect_ < set_.rects_.size()) {
    const CellRect& r = set_.rects_[rect_];
    if (row_ < 0) {
      column_ = r.left;
      row_ = r.top;
    } else if (++column_ > r.right) {
      column_ = r.left;
      ++row_;
    }
    if (row_ <= r.bottom && column_ <= r.right) {
      cell = {static_cast<int>(column_), static_cast<int>(row_)};
      return true;
    }
    ++rect_;
    row_ = -1;
  }
  return false;
}

}  // namespace qmk::toolkit::formula
