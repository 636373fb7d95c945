// form_id_search.h: finding the form-ID marks of a sample sheet, and the solid row.
#pragma once

#include "qmk/QmkScan.h"

namespace qmk::scanner {

// Fills the description's mark columns and rows from the sheet. Returns non-zero when there
// were more marks than the description holds and the list was cut.
int ScnFindFormIdMarks(qlkdata_rec* rec, sht_desc* desc, bool front_only, bool first_line,
                       bool last_line);
// On the PadLot model, the 1-based number of the first front row whose first 12 cells are
// solid; 0 when there is none, and always 0 on other scanners.
int ScnFindSolidRow(qlkdata_rec* rec, const sht_desc* desc);

// The thickness window that a sample sheet's reading teaches.
struct ThicknessWindow {
  int min, max;
};
ThicknessWindow WindowForThickness(int thickness);

}  // namespace qmk::scanner
