// dialog_samples.h: the dialogs that `qmkscan dialog NAME` shows or renders, each with sample
// data. One make function per dialog; the table of names is in cmd_dialog.cpp.
#pragma once

#include <cstdint>
#include <memory>

#include "discovery/configure_scanner_dialog.h"
#include "toolkit/dialogs/res_dlg.h"

namespace qmkscan {

// One dialog with its sample data, alive as long as the dialog is shown.
class DialogSample {
 public:
  virtual ~DialogSample() = default;
  // The dialog to show; it stays owned by the sample.
  virtual qmk::toolkit::CExtResDlg& Dialog() = 0;
  // The template the dialog is made from.
  virtual int TemplateId() const = 0;
  // Prints what the dialog left behind after a live run that ended with `result`.
  virtual void PrintResult(intptr_t result) { (void)result; }
};

using MakeDialogSample = std::unique_ptr<DialogSample> (*)();

struct DialogSampleEntry {
  const char* name;
  const char* summary;
  MakeDialogSample make;
};

// The sample dialog (every plain control) on the library's dialog base.
std::unique_ptr<DialogSample> MakeSampleDialog();
// The scanner configuration dialog over a serial scanner's records.
std::unique_ptr<DialogSample> MakeConfigureDialog();
// Prints the records the configuration dialog left (cmd_configure.cpp).
void PrintScannerConfig(intptr_t result, const sct_config& cfg, const sct_config_ex& comm,
                        const qmk::discovery::ScannerConfigReport* report);

}  // namespace qmkscan
