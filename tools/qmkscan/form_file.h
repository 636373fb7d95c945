// form_file.h: a form description (sht_desc) saved as text, so that define-form and scan share it.
//
//   # qmkscan form description
//   lines 12 0              expected timing lines, front and back (0: no check)
//   thickness 5 9           accepted thickness window (max 0: no check)
//   mark 1 1 front 0        form-ID mark: column, row, side, sense (0 marked, 1 empty)
//   skew 63 1 front         skew mark: column, row, side
//   solid-row 0
#pragma once

#include <string>

#include "qmk/QmkScan.h"

namespace qmkscan {

std::string FormToText(const sht_desc& desc);
// Reads a description; false with "line N: ..." in error.
bool FormFromText(const std::string& text, sht_desc& desc, std::string& error);

bool SaveForm(const std::string& path, const sht_desc& desc, std::string& error);
bool LoadForm(const std::string& path, sht_desc& desc, std::string& error);

}  // namespace qmkscan
