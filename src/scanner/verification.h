// verification.h: holding a read sheet against its description, and clearing the timing track.
#pragma once

#include "qmk/QmkScan.h"

namespace qmk::scanner {

// Checks the form-ID marks, the line counts and the thickness window. Returns non-zero for a
// fault and sets the status bits that name it.
int ScnVerifySheetMarks(qlkdata_rec* rec, const sht_desc* desc, int require_marks);
// Checks the skew marks; non-zero and bit 10 of status2 for the first that is missing.
int ScnVerifySkewMarks(qlkdata_rec* rec, const sht_desc* desc);
// Sets the solid right-hand margin of each side (the timing track) to cleared cells.
void ScnClearSolidColumns(qlkdata_rec* rec);

}  // namespace qmk::scanner
