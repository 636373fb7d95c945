// option_dialogs.cpp: each option dialog's model run through its view.
#include "options/option_dialogs.h"

#include "options/conversion_options_view.h"
#include "options/scanning_options_view.h"

namespace qmk::options {

bool ShowScanOptions(build_data* record, const sct_config& config, int read_level,
                     OptionServices& services) {
  // The dialog has no parent window: the export's window argument is not used.
  return RunScanOptions(record, config, read_level, services, [](CScanningOptionsMainDlg& model) {
    view::CScanningOptionsMainDlg dialog(model);
    return static_cast<int>(dialog.DoModal());
  });
}

bool ShowConversionOptions(build_data* record, int help_id, QMK_HWND parent,
                           OptionServices& services) {
  return RunConversionOptions(record, help_id, services,
                              [parent](CConvertOptionsDialog& model) {
                                view::CConvertOptionsDialog dialog(model, parent);
                                return static_cast<int>(dialog.DoModal());
                              });
}

bool ShowEditOptions(build_data* record, int help_id, QMK_HWND parent) {
  return RunEditOptions(record, help_id, [parent](CEditOptionsDialog& model) {
    view::CEditOptionsDialog dialog(model, parent);
    return static_cast<int>(dialog.DoModal());
  });
}

}  // namespace qmk::options
