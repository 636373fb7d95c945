// config_dialog_model.h: the scanner configuration dialog as group states, list selections and
// rules, which a view shows and tests drive without a window.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "discovery/search.h"
#include "qmk/QmkScan.h"

namespace qmk::discovery {

enum ControlState { STATE_SHOWN = 0, STATE_DISABLED = 1, STATE_HIDDEN = 2 };

enum ConfigGroup {
  kGroupModel, kGroupPrinter, kGroupBarCode, kGroupBarCodePort, kGroupSelect, kGroupLog,
  kGroupAuto, kGroupPort, kGroupBaud, kGroupTimeout, kGroupDataBits, kGroupParity,
  kGroupStopBits, kGroupBusyText, kGroupCount
};

// Radio values of the parity group.
constexpr int kParityOdd = 0, kParityEven = 1, kParityNone = 2;

struct ListRow {
  std::string text;
  int value;
};

// What the dialog needs from the transport, the probes and the message display.
class ConfigDialogServices {
 public:
  virtual ~ConfigDialogServices() = default;
  // The display name of a model row (text id 500 to 518).
  virtual std::string ModelName(int text_id) = 0;
  // The openable serial ports: name ("COM3") and number.
  virtual std::vector<ListRow> SerialPorts() = 0;
  virtual int ShowMessage(const std::string& text, unsigned flags) = 0;
  // The transport's TWAIN detection for family code 12 or 13: 0 and above found, negative not.
  virtual int DetectTwain(int family_code) = 0;
  // The USB check: non-zero when a scanner was found, with its four facts.
  virtual int CheckUsb(int& a, int& b, int& c, int& d) = 0;
  // True when the port holds no other scanner and a PadLot scanner answers on it.
  virtual bool PadLotOnPort(const std::string& port_name) = 0;
  virtual SearchOutcome SearchPort(const std::string& port_name, const std::vector<uint32_t>& bauds,
                                   int selected_model) = 0;
  // The feature word the model table writes for `model` (bits 12 to 15 included; printer and
  // bar-code bits clear), and the port it forces (0: none).
  virtual uint32_t FeatureWordFor(int model, bool stacker_box, int& forced_port) = 0;
  virtual int DefaultLeadEdgeTol(int family) = 0;
  // Texts 2062 and 2087 to 2095, 2013 and 2015.
  virtual std::string Text(int id) = 0;
};

// The dialog's rules without a window; CDlgConfigureScanner shows it.
class ConfigureScannerModel {
 public:
  ConfigureScannerModel(sct_config& config, sct_config_ex& comm, ConfigDialogServices& services);

  void OnInitDialog();
  void OnModelChange(int row);
  void OnPortChange(int row);
  void OnBarCodeToggle();
  void OnSelectToggle();
  void OnPrinterToggle();
  void OnLogToggle() { m_bLog = !m_bLog; }
  void OnSpin(int position) { m_nTimeout = position; }
  // Validates and saves; false keeps the dialog open.
  bool OnOK();
  // Auto Configure: returns the result code whose message was shown.
  int AutoConfigure();

  ControlState State(ConfigGroup group) const { return states_[group]; }
  int selected_model() const { return models_[model_row_].value; }
  int model_at_open() const { return model_at_open_; }
  const std::vector<ListRow>& models() const { return models_; }
  const std::vector<ListRow>& ports() const { return ports_; }
  const std::vector<ListRow>& bauds() const { return bauds_; }
  const std::vector<ListRow>& bar_code_ports() const { return bar_code_ports_; }
  int model_row() const { return model_row_; }
  bool busy() const { return busy_; }
  bool top_most() const { return top_most_; }
  // Called with true on entering the busy state and false on leaving it, so that a view can
  // show the busy text while a probe blocks.
  void SetBusyListener(std::function<void(bool)> listener) { busy_listener_ = std::move(listener); }

  // Values the view exchanges with its controls.
  bool m_bPrinter = false, m_bBarCode = false, m_bSelect = false, m_bLog = false;
  int m_nPortRow = 0, m_nBaudRow = 0, m_nBarCodePortRow = 0;
  int m_nTimeout = 10;
  int m_nDataBits = 7, m_nStopBits = 1, m_nParity = kParityEven;
  // What the dialog reports to the host: 0, 1 or 2.
  int m_nSelectState = 2, m_nPrinterState = 2, m_nBarCodeState = 2;
  bool m_bTested = false;
  // Set by the view when the host runs in server mode with a client window.
  bool m_bServerModeWindow = false;

 private:
  void ComputeStates();
  void FillLists();
  void LoadValues();
  bool Validate();
  void Save();
  void EnterBusy();
  void LeaveBusy();
  void SelectModel(int model);
  int UsbTest();
  int PadLotTest(const std::string& port_name);
  int Search(const std::string& port_name);
  void ShowResult(int result);
  bool UsbOffered() const;
  bool CommHiddenByUsb() const;
  int ValueAt(const std::vector<ListRow>& list, int row) const;

  sct_config& config_;
  sct_config_ex& comm_;
  ConfigDialogServices& services_;
  std::array<ControlState, kGroupCount> states_{};
  std::vector<ListRow> models_, ports_, bauds_, bar_code_ports_;
  int model_row_ = 0;
  int model_at_open_ = 500;
  bool busy_ = false;
  bool top_most_ = false;
  std::function<void(bool)> busy_listener_;
};

// The model row that a stored feature word names.
int ModelAtOpen(const feat_mask& feat);

}  // namespace qmk::discovery
