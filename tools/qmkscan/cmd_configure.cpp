// cmd_configure.cpp: qmkscan configure: the scanner configuration dialog, live, against the
// simulators (a serial scanner on a pseudo-terminal named COM3 in a private device map, the
// transport's USB scanner), and the records it leaves behind.
#include <stdlib.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "commands.h"
#include "dialog_samples.h"
#include "discovery/config_dialog_services.h"
#include "discovery/configure_scanner_dialog.h"
#include "frame/features.h"
#include "frame/model_table.h"
#include "platform/ui/backend.h"
#include "platform/ui/dialog_script.h"
#include "platform/ui/messages.h"
#include "qmk/QmkLinkSim.h"
#include "serial_scanner_sim.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmkscan {
namespace {

namespace fs = std::filesystem;
namespace discovery = qmk::discovery;

constexpr int kSimulatedPort = 3;

// The machine's serial ports and the simulated one.
class SimulatedPortServices : public discovery::LibraryConfigServices {
 public:
  std::vector<discovery::ListRow> SerialPorts() override {
    auto rows = LibraryConfigServices::SerialPorts();
    for (const auto& row : rows)
      if (row.value == kSimulatedPort) return rows;  // a real COM3 holds the name already
    rows.push_back({"COM" + std::to_string(kSimulatedPort), kSimulatedPort});
    return rows;
  }
};

// A device map of its own, removed at the end, so that the user's map is left alone.
class PrivateDeviceMap {
 public:
  PrivateDeviceMap() {
    std::string pattern = (fs::temp_directory_path() / "qmkscan-configure-XXXXXX").string();
    if (mkdtemp(pattern.data())) folder_ = pattern;
    if (!folder_.empty()) setenv("QMK_DEVICE_MAP", folder_.c_str(), 1);
  }
  ~PrivateDeviceMap() {
    std::error_code ec;
    if (!folder_.empty()) fs::remove_all(folder_, ec);
  }
  bool Link(const std::string& device, int number) const {
    std::error_code ec;
    fs::create_symlink(device, fs::path(folder_) / ("com" + std::to_string(number)), ec);
    return !folder_.empty() && !ec;
  }

 private:
  std::string folder_;
};

const char* StateName(int state) { return state ? "1" : "0"; }

}  // namespace

void PrintScannerConfig(intptr_t result, const sct_config& cfg, const sct_config_ex& comm,
                        const discovery::ScannerConfigReport* report) {
  const qmk::frame::Features f = qmk::frame::FeaturesOf(cfg.feat_mask);
  std::printf("result: %s\n", result == 1 ? "ok" : result == 2 ? "cancelled" : "failed");
  std::printf("model: %d (family %u, model code %u, series %u, submodel %u)\n",
              discovery::ModelAtOpen(cfg.feat_mask), f.family(), f.model_code(), f.series(),
              f.submodel());
  std::printf("feature word: 0x%08x\n", f.word);
  std::printf("printer: %u  bar code: %u  select stacker: %u  operations log: %d\n",
              cfg.feat_mask.transport_printer, cfg.feat_mask.bar_code_reader,
              cfg.feat_mask.select_stacker, cfg.op_log);
  std::printf("port: %d  baud: %u  data bits: %d  stop bits: %d  parity: %c  timeout: %d\n",
              comm.port, comm.baud, comm.data_bits, comm.stop_bits, static_cast<char>(comm.parity),
              comm.timeout);
  if (result == 1 && report)
    std::printf("tested: %d  select state: %s  printer state: %s  bar-code state: %s\n",
                report->tested, StateName(report->select_state), StateName(report->printer_state),
                StateName(report->bar_code_state));
}

int RunConfigure(Args& args) {
  const auto model_id = IntOption(args, "model", 511);
  const auto port = IntOption(args, "port", kSimulatedPort);
  const bool usb = args.Flag("usb");
  const bool auto_configure = args.Flag("auto");
  if (!model_id || !port || !SelectThemeOption(args, "configure") || !args.NoUnknownOptions("configure"))
    return 2;
  const qmk::frame::ModelRow* model = qmk::frame::FindModel(static_cast<int>(*model_id));
  if (!model) {
    std::fprintf(stderr, "configure: no model %ld; the models are 500 to 518\n", *model_id);
    return 2;
  }
  PrivateDeviceMap map;
  qmk::serialsim::PtySerialScanner serial(qmk::serialsim::SimConfig{});
  std::string error;
  if (!serial.Start(&error) || !map.Link(serial.path(), kSimulatedPort)) {
    std::fprintf(stderr, "configure: the simulated serial scanner did not start: %s\n", error.c_str());
    return 1;
  }
  QlkSimReset();
  if (usb) QlkSimSetUSBScanner(1, 1, 0, 1, 0);
  std::printf("simulated serial scanner on COM%d (%s)%s\n", kSimulatedPort, serial.path().c_str(),
              usb ? ", simulated USB scanner attached" : "");

  sct_config cfg{};
  const uint32_t word = qmk::frame::FeatureWordFor(*model, false);
  std::memcpy(&cfg.feat_mask, &word, sizeof word);
  sct_config_ex comm{9600, 'E', 7, 1, static_cast<int16_t>(*port), 10, 0};
  qmk::toolkit::InstallToolkitSeams();
  std::printf("back end: %s\n", qmk::platform::ui::CurrentBackend().Name());
  // --auto plays what a person would do: press Auto Configure, then OK.
  if (auto_configure)
    qmk::platform::ui::QueueDialogScript(qmk::platform::ui::DialogScript(discovery::CDlgConfigureScanner::kIdd)
                                             .Click(discovery::config_ids::kAutoConfigure)
                                             .Press(qmk::platform::ui::IDOK));
  SimulatedPortServices services;
  discovery::ScannerConfigReport report;
  const intptr_t result = discovery::RunScannerConfig(cfg, comm, 0, services, &report);
  PrintScannerConfig(result, cfg, comm, &report);
  return result < 0 ? 1 : 0;
}

}  // namespace qmkscan
