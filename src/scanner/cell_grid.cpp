// cell_grid.cpp: a side of the record as a grid.
#include "scanner/cell_grid.h"

#include <algorithm>

#include "qmk/QmkLink.h"

namespace qmk::scanner {

CellGrid CellGrid::Side(qlkdata_rec& rec, int side) {
  const int length = QlkGetOMRLength(side);
  const int reported = side == 0 ? rec.lines_front : rec.lines_back;
  const int fit = length > 0 ? QMK_OMR_BYTES / length : 0;
  return CellGrid{side == 0 ? rec.omr_front : rec.omr_back, std::clamp(reported, 0, fit),
                  std::max(length, 0), rec.feat};
}

int CellGrid::Darkness(int row, int col) const { return QlkImgVal(At(row, col), feat); }

}  // namespace qmk::scanner
