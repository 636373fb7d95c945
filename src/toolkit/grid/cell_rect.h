// cell_rect.h: CExtGridZoneLayout, where a cell lies on the grid's surface: zones of outer and
// data columns and rows, fixed and scrolling parts, and extents asked of the grid one by one.
#pragma once

namespace qmk::toolkit::grid {

// A rectangle of pixels, right and bottom exclusive.
struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;
  bool IsEmpty() const { return right <= left || bottom <= top; }
  bool operator==(const PixelRect&) const = default;
};

// Zone types of a column or a row.
constexpr int kZoneNear = -1;  // row headers on the left, column headers on top
constexpr int kZoneData = 0;
constexpr int kZoneFar = 1;

class CExtGridZoneLayout {
 public:
  // The zones of one direction. Outer counts come from the provider's reserved counts (near) and
  // the window (far); inside the data zone the leading and trailing fixed series do not scroll,
  // and the others are in view from `firstVisible` to `lastVisible`.
  struct Axis {
    int nearCount = 0;
    int farCount = 0;
    int dataCount = 0;
    int fixedLeading = 0;
    int fixedTrailing = 0;
    int firstVisible = 0;
    int lastVisible = -1;
  };

  virtual ~CExtGridZoneLayout() = default;
  // The extent of series `index` of zone `type`; `before` and `after` receive margins that stay
  // inside the extent.
  virtual int OnQueryColumnExtent(int type, int index, int& before, int& after) const = 0;
  virtual int OnQueryRowExtent(int type, int index, int& before, int& after) const = 0;

  // The outer rectangle of a cell and, if asked, the inner one (margins taken off). False, with
  // empty rectangles, for a cell out of view or a position outside its zone.
  bool GetCellRect(int column, int row, int columnType, int rowType, PixelRect& outer,
                   PixelRect* inner = nullptr) const;

  Axis m_columns;
  Axis m_rows;

 private:
  // Start and extent of one series along a direction, with its margins.
  bool Place(bool columns, int type, int index, int& start, int& extent, int& before, int& after) const;
  int Sum(bool columns, int type, int first, int last) const;
};

}  // namespace qmk::toolkit::grid
