// omr_read.h: reading a sheet's mark cells for the host, and the last bar code.
#pragma once

#include "qmk/QmkScan.h"

namespace qmk::scanner {

int ScanForOMR(QMK_HWND parent, qlkdata_rec* rec, int stop_on_empty, int buffer_size, char* front,
               char* back, int* max_cell_front, int* max_cell_back, int* omr_length_front,
               int* omr_length_back);

// Picks until a sheet reads, the operator stops, or (with stop_on_empty) the hopper is empty.
// Returns kPickRead or kPickStopped.
int PickUntilRead(qlkdata_rec* rec, QMK_HWND parent, bool stop_on_empty);

int ReadBarcodeBuffer(qlkdata_rec* rec, int size, char* text);

}  // namespace qmk::scanner
