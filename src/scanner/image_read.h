// image_read.h: reading a sheet checked against a description, and teaching a description.
#pragma once

#include "qmk/QmkScan.h"

namespace qmk::scanner {

int ScanForImage(QMK_HWND parent, qlkdata_rec* rec, sht_desc* desc, int read_level, char* front,
                 char* back, int buffer_size, int require_marks);

int ScanToDefineFormIds(QMK_HWND parent, qlkdata_rec* rec, sht_desc* desc, int read_level,
                        char* front, char* back, int buffer_size, int front_only, int first_line,
                        int last_line, int stop_on_empty);

}  // namespace qmk::scanner
