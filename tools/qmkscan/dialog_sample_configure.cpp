// dialog_sample_configure.cpp: the scanner configuration dialog of `qmkscan dialog configure`:
// a serial scanner with its printer, on COM3 at 9600 baud, with two ports to choose from.
#include <cstring>

#include "dialog_samples.h"
#include "discovery/config_dialog_services.h"
#include "frame/model_table.h"

namespace qmkscan {
namespace {

namespace discovery = qmk::discovery;

// The library's services with a fixed list of ports, so the picture is the same on every machine.
class SamplePortServices : public discovery::LibraryConfigServices {
 public:
  std::vector<discovery::ListRow> SerialPorts() override { return {{"COM1", 1}, {"COM3", 3}}; }
};

class ConfigureSample : public DialogSample {
 public:
  ConfigureSample() {
    uint32_t word = qmk::frame::FeatureWordFor(*qmk::frame::FindModel(kModel), false) | kPrinterBit;
    std::memcpy(&cfg_.feat_mask, &word, sizeof word);
    cfg_.op_log = 1;
  }
  qmk::toolkit::CExtResDlg& Dialog() override { return dialog_; }
  int TemplateId() const override { return discovery::CDlgConfigureScanner::kIdd; }
  void PrintResult(intptr_t result) override {
    const discovery::ScannerConfigReport report = discovery::ReportOf(dialog_.model());
    PrintScannerConfig(result, cfg_, comm_, &report);
  }

 private:
  static constexpr int kModel = 511;
  static constexpr uint32_t kPrinterBit = 1u << 10;

  sct_config cfg_{};
  sct_config_ex comm_{9600, 'E', 7, 2, 3, 10, 0};
  SamplePortServices services_;
  discovery::CDlgConfigureScanner dialog_{cfg_, comm_, services_};
};

}  // namespace

std::unique_ptr<DialogSample> MakeConfigureDialog() { return std::make_unique<ConfigureSample>(); }

}  // namespace qmkscan
