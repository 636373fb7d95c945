// option_dialogs.h: the option dialogs run whole, on screen: a host's record in, the record
// changed only on OK. What the exports and the command-line host call.
#pragma once

#include "options/option_services.h"
#include "qmk/QmkScan.h"

namespace qmk::options {

// The scanning options dialog over `record`; true on OK.
bool ShowScanOptions(build_data* record, const sct_config& config, int read_level,
                     OptionServices& services = DefaultOptionServices());
// The conversion options dialog; `help_id` becomes the dialog's, `parent` its parent window.
bool ShowConversionOptions(build_data* record, int help_id, QMK_HWND parent,
                           OptionServices& services = DefaultOptionServices());
// The edit options dialog, likewise.
bool ShowEditOptions(build_data* record, int help_id, QMK_HWND parent);

}  // namespace qmk::options
