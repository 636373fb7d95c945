// error_list.h: a failed sheet's status words turned into the operator's list of fault texts.
#pragma once

#include <string>
#include <vector>

#include "qmk/QmkScan.h"

namespace qmk::scanner {

// Appends the fault texts of `rec` to `faults`. Edits the record's words on the way, so hosts
// read the edited words afterwards.
void ScnBuildErrorList(qlkdata_rec* rec, std::vector<std::string>& faults);

}  // namespace qmk::scanner
