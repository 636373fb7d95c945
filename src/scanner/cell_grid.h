// cell_grid.h: one side's cell bytes as rows and columns, read through the transport's darkness.
#pragma once

#include <cstdint>

#include "qmk/QmkScan.h"

namespace qmk::scanner {

// Rows of `length` bytes over one of the record's arrays. Only rows that lie wholly inside the
// 10000-byte array count, whatever line count the transport reported.
struct CellGrid {
  unsigned char* cells;
  int lines;
  int length;
  uint32_t feat;

  // The side of the record: 0 front, 1 back; the line length is asked of the transport.
  static CellGrid Side(qlkdata_rec& rec, int side);

  bool Holds(int row, int col) const {
    return row >= 0 && row < lines && col >= 0 && int64_t{row} * length + col < QMK_OMR_BYTES;
  }
  unsigned char& At(int row, int col) const { return cells[row * length + col]; }
  // The darkness of a cell; the caller has checked Holds.
  int Darkness(int row, int col) const;
};

}  // namespace qmk::scanner
