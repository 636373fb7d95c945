// dialog_sample_scan_options.cpp: the scanning options dialog of `qmkscan dialog scan-options`
// and `qmkscan options scan --png`, with the sample job record and scanner.
#include <cstdio>
#include <algorithm>
#include <cstring>

#include "dialog_samples.h"
#include "options/scanning_options_view.h"
#include "platform/ui/messages.h"

namespace qmkscan {
namespace {

class ScanOptionsSample : public DialogSample {
 public:
  ScanOptionsSample(const build_data& record, int read_level)
      : config_(SampleScannerConfig()),
        model_(record, config_, read_level, qmk::options::DefaultOptionServices()) {}
  qmk::toolkit::CExtResDlg& Dialog() override { return view_; }
  int TemplateId() const override { return qmk::options::CScanningOptionsMainDlg::kIdd; }
  void PrintResult(intptr_t result) override {
    std::printf("%s\n", result == qmk::platform::ui::IDOK ? "ok" : "cancelled");
  }

 private:
  sct_config config_;
  qmk::options::CScanningOptionsMainDlg model_;
  qmk::options::view::CScanningOptionsMainDlg view_{model_};
};

void Put(char* field, size_t size, const char* text) {
  std::memset(field, 0, size);
  std::memcpy(field, text, std::min(std::strlen(text), size - 1));
}

}  // namespace

build_data SampleJobRecord() {
  build_data r{};
  r.formNumber = 12;
  Put(r.dataFileName, sizeof r.dataFileName, "EXAM0612.DAT");
  Put(r.autoNameTemplate, sizeof r.autoNameTemplate, "*W*S.dat");
  Put(r.scanConversionFileName, sizeof r.scanConversionFileName, "/var/lib/quillmark/scanner/exam.txt");
  Put(r.serialNumberText, sizeof r.serialNumberText, "1");
  Put(r.batchNumberText, sizeof r.batchNumberText, "7");
  Put(r.runNumberText, sizeof r.runNumberText, "1");
  r.fileOptionFlags = QMK_FILEOPT_AUTONAME;
  r.printFlags = QMK_PRINT_SERIAL | QMK_PRINT_SCAN_DATE;
  r.printPosition = 12;
  r.dataFileMode = 1;
  r.stopFlags = QMK_STOP_SYSTEM | QMK_STOP_THICKNESS;
  r.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
  r.autoNameSequence = 4;
  r.conversionFlags = QMK_FILEOPT_DEFAULT_CONVERSION;
  r.editMode = 1;
  return r;
}

sct_config SampleScannerConfig() {
  sct_config config{};
  Put(reinterpret_cast<char*>(config.host_portion), QMK_PATH_BYTES, "/var/lib/quillmark/scanner");
  config.feat_mask.family = 3;
  config.feat_mask.select_stacker = 1;
  config.feat_mask.transport_printer = 1;
  config.feat_mask.image_read = 1;
  return config;
}

std::unique_ptr<DialogSample> MakeScanOptionsDialogOn(const build_data& record, int read_level) {
  return std::make_unique<ScanOptionsSample>(record, read_level);
}

std::unique_ptr<DialogSample> MakeScanOptionsDialog() {
  return MakeScanOptionsDialogOn(SampleJobRecord(), 3);
}

}  // namespace qmkscan
