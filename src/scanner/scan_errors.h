// scan_errors.h: a failed sheet: its rejection, the operator's answer, and the scanner's log.
#pragma once

#include "qmk/QmkScan.h"

namespace qmk::scanner {

// Builds the fault list, rejects the sheet and asks the operator. Returns 1 (OK: the transport is
// made ready again) or 2 (Cancel).
int ScnShowScanError(qlkdata_rec* rec);
// Sends the sheet out as rejected, the way the scanner's family does it.
void ScnRejectSheet(qlkdata_rec* rec);

int GetScannerErrorLog(scan_error_log_registry* log, char* first, char* second);
// Empties the log; the host's two texts become its new first entry.
int ResetScannerErrorLog(char* first, char* second);

}  // namespace qmk::scanner
