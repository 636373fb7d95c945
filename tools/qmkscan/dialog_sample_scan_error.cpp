// dialog_sample_scan_error.cpp: the scan error dialog of `qmkscan dialog scan-error`, listing the
// faults of a sheet that came out too thick and without its timing marks.
#include <cstdio>
#include <string>
#include <vector>

#include "dialog_samples.h"
#include "frame/dlg_scan_error.h"
#include "platform/ui/messages.h"

namespace qmkscan {
namespace {

class ScanErrorSample : public DialogSample {
 public:
  qmk::toolkit::CExtResDlg& Dialog() override { return dialog_; }
  int TemplateId() const override { return qmk::frame::kScanErrorTemplate; }
  void PrintResult(intptr_t result) override {
    std::printf("%s\n", result == qmk::platform::ui::IDOK ? "read the sheet again" : "stop");
  }

 private:
  std::vector<std::string> faults_ = {"Sheet too thick", "Timing marks missing",
                                      "Sheet jammed in the transport"};
  qmk::frame::CDlgScanError dialog_{faults_};
};

}  // namespace

std::unique_ptr<DialogSample> MakeScanErrorSample() { return std::make_unique<ScanErrorSample>(); }

}  // namespace qmkscan
