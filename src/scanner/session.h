// session.h: opening a scanner session, setting its reading mode, and closing it.
#pragma once

#include "qmk/QmkScan.h"

namespace qmk::scanner {

qlkdata_rec* OpenSession(QMK_HWND parent, sct_config* cfg, sct_config_ex* comm, int* error);
int SetScannerMode(qlkdata_rec* rec, int spectrum, int mode_flag, int read_mode,
                   unsigned char level, unsigned char detect);
void CloseSession(qlkdata_rec* rec);

// The spectrum value that the transport takes: 0 is 16, 1 is 32, anything else -1.
int SpectrumValue(int spectrum);

}  // namespace qmk::scanner
