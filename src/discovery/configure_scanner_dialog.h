// configure_scanner_dialog.h: CDlgConfigureScanner, the window of the scanner configuration
// dialog (template 2000): a thin view that passes each event to the dialog's model and shows
// the model's states and values in the controls.
#pragma once

#include <cstdint>

#include "discovery/config_dialog_model.h"
#include "frame/corvid_dialog.h"

namespace qmk::discovery {

// The controls of template 2000.
namespace config_ids {
constexpr int kModelLabel = 286, kModelList = 1824, kTransportBox = 285;
constexpr int kPrinter = 1827, kBarCode = 1825, kBarCodePort = 1847, kSelect = 1849, kLog = 1828;
constexpr int kAutoConfigure = 1024;
constexpr int kPortBox = 1840, kPortLabel = 1830, kPortList = 1829;
constexpr int kBaudLabel = 1841, kBaudList = 1831;
constexpr int kTimeoutLabel = 1842, kTimeout = 1839, kSpin = 1846;
constexpr int kDataBitsBox = 1844, kData7 = 1834, kData8 = 1835;
constexpr int kParityBox = 1843, kOdd = 1836, kEven = 1837, kNone = 1838;
constexpr int kStopBitsBox = 1845, kStop1 = 1832, kStop2 = 1833;
constexpr int kBusyText = 1035;
}  // namespace config_ids

class CDlgConfigureScanner : public frame::CCorvidDialog {
 public:
  static constexpr int kIdd = 2000;

  // `help_id` 0 stands for the dialog's own help context, 2000.
  CDlgConfigureScanner(sct_config& config, sct_config_ex& comm, ConfigDialogServices& services,
                       unsigned help_id = 0);

  ConfigureScannerModel& model() { return model_; }

 protected:
  bool OnInitDialog() override;
  void OnOK() override;
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;

 private:
  // False for the commands this dialog leaves to its base.
  bool OnCommand(int id, unsigned code);
  void OnToggle(int id);
  void OnAutoConfigure();
  // The model's states, lists and values into the controls.
  void ShowAll();
  void ShowStates();
  void ShowLists();
  void ShowValues();
  // The controls' values into the model; the control `skip` is left out.
  void ReadValues(int skip = 0);
  void ShowBusy(bool busy);

  ConfigureScannerModel model_;
};

// What ScnScannerConfig reports to a host after OK.
struct ScannerConfigReport {
  int tested = 0;
  int select_state = 0, printer_state = 0, bar_code_state = 0;
};

// The report of a dialog closed with OK.
ScannerConfigReport ReportOf(const ConfigureScannerModel& model);

// Runs the dialog modally over the host's records: the dialog's result (1 OK, 2 Cancel, -1 when
// it can't be shown), and on OK the report.
intptr_t RunScannerConfig(sct_config& config, sct_config_ex& comm, unsigned help_id,
                          ConfigDialogServices& services, ScannerConfigReport* report);

}  // namespace qmk::discovery
