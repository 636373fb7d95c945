// dialog_samples.h: the dialogs that `qmkscan dialog NAME` shows or renders, each with sample
// data. One make function per dialog; the table of names is in cmd_dialog.cpp.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "qmk/QmkScan.h"
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

// Makes the sample's dialog modeless on the back end in use, writes its picture to `png` and
// destroys it; 0, or 1 with a message that starts with `command`.
int RenderDialogSample(DialogSample& sample, const std::string& png, const char* command);

struct DialogSampleEntry {
  const char* name;
  const char* summary;
  MakeDialogSample make;
};

// The sample dialog (every plain control) on the library's dialog base.
std::unique_ptr<DialogSample> MakeSampleDialog();
std::unique_ptr<DialogSample> MakeScanErrorSample();
std::unique_ptr<DialogSample> MakeWaitConnectSample();
std::unique_ptr<DialogSample> MakeWaitLampSample();
// A wait notice with its text, and Cancel when asked; Cancel or closing it ends a live run.
std::unique_ptr<DialogSample> MakeNoticeSample(std::string text, bool show_cancel);
// Draws the named dialog with its sample data to a PNG on the headless back end; 0 when written.
int RenderNamedDialog(const char* name, const std::string& png);

// The option dialogs over a sample job record (and, for scanning options, a scanner with a
// printer, select stacker and image reading, at the named read levels).
std::unique_ptr<DialogSample> MakeScanOptionsDialog();
std::unique_ptr<DialogSample> MakeAutoNameDialog();
std::unique_ptr<DialogSample> MakeConversionDialog();
std::unique_ptr<DialogSample> MakeEditDialog();
// The same dialogs over a given record, for `qmkscan options --png`.
std::unique_ptr<DialogSample> MakeScanOptionsDialogOn(const build_data& record, int read_level);
std::unique_ptr<DialogSample> MakeConversionDialogOn(const build_data& record);
std::unique_ptr<DialogSample> MakeEditDialogOn(const build_data& record);
// The sample job record and scanner of those dialogs.
build_data SampleJobRecord();
sct_config SampleScannerConfig();
// The scanner configuration dialog over a serial scanner's records.
std::unique_ptr<DialogSample> MakeConfigureDialog();
// Prints the records the configuration dialog left (cmd_configure.cpp).
void PrintScannerConfig(intptr_t result, const sct_config& cfg, const sct_config_ex& comm,
                        const qmk::discovery::ScannerConfigReport* report);

}  // namespace qmkscan
