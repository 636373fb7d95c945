// pick.h: feeding one sheet through the transport.
#pragma once

#include "qmk/QmkScan.h"

namespace qmk::scanner {

// Results of a pick.
constexpr int kPickRead = 0, kPickFailed = 1, kPickStopped = 7;

// Feeds one sheet and reads its status. Returns kPickRead, kPickFailed (the status words say
// why) or kPickStopped (the operator stopped; the transport was stopped).
int ScnPickSheet(qlkdata_rec* rec, QMK_HWND parent);

}  // namespace qmk::scanner
