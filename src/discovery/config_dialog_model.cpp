// config_dialog_model.cpp: the rules of the scanner configuration dialog: group states per
// model, the lists, the values shown, the changes that reach the host at once, validation, save
// and Auto Configure.
#include "discovery/config_dialog_model.h"

#include <algorithm>
#include <cstring>

#include "frame/features.h"

namespace qmk::discovery {
namespace {

constexpr ControlState S = STATE_SHOWN, D = STATE_DISABLED, H = STATE_HIDDEN;
constexpr int kBarCodeByBit = -1;  // shown when the scanner has a bar-code reader, else hidden

constexpr int kModelOrder[] = {500, 501, 502, 503, 504, 505, 506, 507, 508, 518,
                               509, 511, 510, 512, 513, 515, 516, 514, 517};

// One row of the states table: the models it covers and each group's state.
struct StatesRow {
  int models[3];
  ControlState printer, bar_code;
  int bar_code_port;  // a state, or kBarCodeByBit
  ControlState select, log, autoconf, port, comm;
  int select_state;
  bool options_from_bits;  // printer and bar-code states from the feature bits, else 2
};

constexpr StatesRow kStates[] = {
    {{500}, D, H, H, H, D, D, H, H, 2, false},
    {{501, 507, 508}, S, S, H, H, S, H, H, H, 0, true},
    {{502, 504}, S, S, H, S, S, S, H, H, 1, true},
    {{503}, S, S, H, H, S, S, H, H, 2, true},
    {{505, 506}, H, H, H, H, S, S, H, H, 2, false},
    {{509}, S, S, H, H, S, S, S, S, 2, true},
    {{510, 511, 518}, S, S, H, S, S, S, S, S, 1, true},
    {{512, 513}, S, S, H, H, S, S, S, S, 2, true},
    {{514, 515, 516}, S, S, kBarCodeByBit, H, S, H, H, H, 2, true},
    {{517}, H, H, H, H, S, S, S, D, 0, false},
};

constexpr ConfigGroup kCommGroups[] = {kGroupBaud, kGroupTimeout, kGroupDataBits, kGroupParity,
                                       kGroupStopBits};

const StatesRow& StatesFor(int model) {
  for (const StatesRow& row : kStates)
    if (std::find(std::begin(row.models), std::end(row.models), model) != std::end(row.models))
      return row;
  return kStates[0];
}

bool IsOneOf(int model, std::initializer_list<int> models) {
  return std::find(models.begin(), models.end(), model) != models.end();
}

int RowOf(const std::vector<ListRow>& list, int value) {
  for (size_t i = 0; i < list.size(); ++i)
    if (list[i].value == value) return static_cast<int>(i);
  return -1;
}

// Result codes of Auto Configure and the text each shows.
struct ResultText {
  int first, last, text;
  bool information;
};
constexpr ResultText kResults[] = {
    {0, 0, 2087, true},     {1, 1, 2089, false},    {9, 10, 2090, false},  {37, 37, 2090, false},
    {11, 11, 2091, false},  {29, 32, 2091, false},  {13, 13, 2092, false}, {28, 28, 2093, false},
    {34, 34, 2094, false},  {98, 98, 2062, false},
};
constexpr unsigned kIconExclamation = 0x30, kIconInformation = 0x40;

}  // namespace

int ModelAtOpen(const feat_mask& feat) {
  const unsigned family = feat.family, code = feat.model_code, sub = feat.submodel;
  switch (feat.series) {
    case 0: return 500;
    case 1:
      if (family == 2 && code == 5) return feat.image_read ? 503 : 509;
      if (family == 2 && code == 6) return 510;
      if (family == 2 && code == 7) return feat.image_read ? (sub == 1 ? 502 : 504) : (sub == 1 ? 518 : 511);
      if (family == 5 && code == 11) return 517;
      if (code == 3) return 512;
      if (code == 4) return 513;
      break;
    case 5: return sub == 1 ? 507 : sub == 2 ? 508 : 501;
    case 12: return code == 12 ? 505 : 506;
    default: break;
  }
  if (code == 2) return 515;
  return sub != 0 ? 516 : 514;
}

ConfigureScannerModel::ConfigureScannerModel(sct_config& config, sct_config_ex& comm,
                                           ConfigDialogServices& services)
    : config_(config), comm_(comm), services_(services) {}

void ConfigureScannerModel::OnInitDialog() {
  models_.clear();
  for (const int id : kModelOrder) models_.push_back({services_.ModelName(id), id});
  model_at_open_ = ModelAtOpen(config_.feat_mask);
  model_row_ = std::max(0, RowOf(models_, model_at_open_));
  ComputeStates();
  m_bLog = config_.op_log > 0;
  LoadValues();
  top_most_ = !m_bServerModeWindow;
}

bool ConfigureScannerModel::UsbOffered() const { return IsOneOf(selected_model(), {509, 511, 518}); }

bool ConfigureScannerModel::CommHiddenByUsb() const {
  return UsbOffered() && comm_.port == QMK_PORT_USB && selected_model() == model_at_open_;
}

void ConfigureScannerModel::ComputeStates() {
  states_.fill(STATE_HIDDEN);
  states_[kGroupModel] = STATE_SHOWN;
  const int model = selected_model();
  const StatesRow& row = StatesFor(model);
  const frame::Features f = frame::FeaturesOf(config_.feat_mask);
  states_[kGroupPrinter] = row.printer;
  states_[kGroupBarCode] = row.bar_code;
  states_[kGroupBarCodePort] = row.bar_code_port == kBarCodeByBit
                                   ? (f.bar_code_reader() ? STATE_SHOWN : STATE_HIDDEN)
                                   : static_cast<ControlState>(row.bar_code_port);
  states_[kGroupSelect] = row.select;
  states_[kGroupLog] = row.log;
  states_[kGroupAuto] = row.autoconf;
  states_[kGroupPort] = row.port;
  for (const ConfigGroup g : kCommGroups) states_[g] = row.comm;
  m_nSelectState = row.select_state;
  m_nPrinterState = row.options_from_bits ? (config_.feat_mask.transport_printer ? 0 : 1) : 2;
  m_nBarCodeState = row.options_from_bits ? (f.bar_code_reader() ? 0 : 1) : 2;
  if (CommHiddenByUsb())
    for (const ConfigGroup g : kCommGroups) states_[g] = STATE_HIDDEN;
  FillLists();
}

void ConfigureScannerModel::FillLists() {
  const int model = selected_model();
  static const int kBauds[] = {1200, 2400, 4800, 9600, 19200, 38400};
  bauds_.clear();
  for (int i = 0; i < 6; ++i) bauds_.push_back({std::to_string(kBauds[i]), kBauds[i]});
  const bool fast = IsOneOf(model, {512, 513}) ||
                    (IsOneOf(model, {511, 518}) && states_[kGroupBaud] != STATE_HIDDEN);
  if (fast) bauds_.push_back({"115200", 115200});
  ports_.clear();
  bar_code_ports_.clear();
  if (states_[kGroupPort] == STATE_HIDDEN && states_[kGroupBarCodePort] == STATE_HIDDEN) return;
  const std::vector<ListRow> serial = services_.SerialPorts();
  if (states_[kGroupPort] != STATE_HIDDEN) {
    ports_ = serial;
    if (UsbOffered()) ports_.push_back({"USB", QMK_PORT_USB});
  }
  if (states_[kGroupBarCodePort] != STATE_HIDDEN)
    for (const ListRow& row : serial)
      if (row.value < 10) bar_code_ports_.push_back(row);
}

int ConfigureScannerModel::ValueAt(const std::vector<ListRow>& list, int row) const {
  return row >= 0 && row < static_cast<int>(list.size()) ? list[row].value : 0;
}

void ConfigureScannerModel::LoadValues() {
  const bool saved = selected_model() == model_at_open_;
  const frame::Features f = frame::FeaturesOf(config_.feat_mask);
  m_bPrinter = saved && config_.feat_mask.transport_printer;
  m_bBarCode = saved && f.bar_code_reader();
  m_nBarCodePortRow = 0;
  if (m_bBarCode && states_[kGroupBarCodePort] != STATE_HIDDEN)
    m_nBarCodePortRow = std::max(0, RowOf(bar_code_ports_, config_.bar_code_port));
  m_bSelect = saved && config_.feat_mask.select_stacker;
  m_nPortRow = saved ? std::max(0, RowOf(ports_, comm_.port)) : 0;
  const int last_baud = static_cast<int>(bauds_.size()) - 1;
  if (saved) {
    const int row = RowOf(bauds_, static_cast<int>(comm_.baud));
    m_nBaudRow = row >= 0 ? row : last_baud;
  } else {
    m_nBaudRow = selected_model() == 517 ? RowOf(bauds_, 9600) : last_baud;
  }
  m_nTimeout = saved ? comm_.timeout : 10;
  m_nDataBits = saved && comm_.data_bits == 8 ? 8 : 7;
  m_nStopBits = saved && comm_.stop_bits == 2 ? 2 : 1;
  m_nParity = !saved                  ? kParityEven
              : comm_.parity == 'E'   ? kParityEven
              : comm_.parity == 'N'   ? kParityNone
                                      : kParityOdd;
}

void ConfigureScannerModel::OnModelChange(int row) {
  if (row < 0 || row >= static_cast<int>(models_.size())) return;
  model_row_ = row;
  ComputeStates();
  LoadValues();
}

void ConfigureScannerModel::OnPortChange(int row) {
  m_nPortRow = row;
  comm_.port = static_cast<int16_t>(ValueAt(ports_, row));
  if (UsbOffered()) {
    const ControlState state = comm_.port == QMK_PORT_USB ? STATE_HIDDEN : STATE_SHOWN;
    for (const ConfigGroup g : kCommGroups) states_[g] = state;
  }
  // A row added here carries no value: choosing it saves a baud of 0.
  if (std::none_of(bauds_.begin(), bauds_.end(), [](const ListRow& r) { return r.text == "115200"; }))
    bauds_.push_back({"115200", 0});
}

void ConfigureScannerModel::OnBarCodeToggle() {
  m_bBarCode = !m_bBarCode;
  feat_mask& feat = config_.feat_mask;
  feat.bar_code_reader = m_bBarCode;
  if (!m_bBarCode) {
    states_[kGroupBarCodePort] = STATE_HIDDEN;
    return;
  }
  if (IsOneOf(selected_model(), {514, 515, 516})) {
    states_[kGroupBarCodePort] = states_[kGroupBarCode];
    FillLists();
    m_nBarCodePortRow = std::max(0, RowOf(bar_code_ports_, comm_.aux_port));
  }
}

void ConfigureScannerModel::OnSelectToggle() {
  m_bSelect = !m_bSelect;
  config_.feat_mask.select_stacker = m_bSelect;
}

void ConfigureScannerModel::OnPrinterToggle() {
  m_bPrinter = !m_bPrinter;
  config_.feat_mask.transport_printer = m_bPrinter;
}

bool ConfigureScannerModel::Validate() {
  if (states_[kGroupPort] == STATE_HIDDEN) return true;
  // The parity test reads the radio value of None, so it fires for Odd and Even alike.
  if (m_nDataBits == 8 && m_nStopBits == 2 && m_nParity != kParityNone) {
    services_.ShowMessage(services_.Text(2013), kIconExclamation);
    return false;
  }
  if (states_[kGroupBarCodePort] != STATE_HIDDEN &&
      ValueAt(ports_, m_nPortRow) == ValueAt(bar_code_ports_, m_nBarCodePortRow)) {
    services_.ShowMessage(services_.Text(2015), kIconExclamation);
    return false;
  }
  return true;
}

bool ConfigureScannerModel::OnOK() {
  if (!Validate()) return false;
  Save();
  return true;
}

void ConfigureScannerModel::Save() {
  feat_mask& feat = config_.feat_mask;
  comm_.aux_port = 0;
  const bool printer = states_[kGroupPrinter] != STATE_HIDDEN && m_bPrinter;
  const bool bar_code = states_[kGroupBarCode] != STATE_HIDDEN && m_bBarCode;
  if (states_[kGroupBarCodePort] != STATE_HIDDEN)
    config_.bar_code_port = static_cast<int16_t>(ValueAt(bar_code_ports_, m_nBarCodePortRow));
  config_.op_log = states_[kGroupLog] != STATE_HIDDEN && m_bLog ? 1 : 0;
  const bool comm_hidden = states_[kGroupPort] == STATE_HIDDEN;
  comm_.port = static_cast<int16_t>(comm_hidden ? 0 : ValueAt(ports_, m_nPortRow));
  comm_.baud = static_cast<uint32_t>(states_[kGroupBaud] == STATE_HIDDEN ? 19200 : ValueAt(bauds_, m_nBaudRow));
  // A typed time-out is saved as it stands: the spin and the edit's limit are the only bounds.
  comm_.timeout = static_cast<int16_t>(states_[kGroupTimeout] == STATE_HIDDEN ? 10 : m_nTimeout);
  comm_.data_bits = states_[kGroupDataBits] != STATE_HIDDEN && m_nDataBits == 8 ? 8 : 7;
  comm_.stop_bits = states_[kGroupStopBits] != STATE_HIDDEN && m_nStopBits == 2 ? 2 : 1;
  static const char kParity[] = {'O', 'E', 'N'};
  comm_.parity = states_[kGroupParity] == STATE_HIDDEN ? 'E' : kParity[std::clamp(m_nParity, 0, 2)];
  int forced_port = 0;
  uint32_t word = services_.FeatureWordFor(selected_model(), m_bSelect, forced_port);
  word = (word & ~(3u << 10)) | (printer ? 1u << 10 : 0) | (bar_code ? 1u << 11 : 0);
  std::memcpy(&feat, &word, sizeof word);
  if (forced_port) comm_.port = static_cast<int16_t>(forced_port);
  if (selected_model() != model_at_open_) {
    config_.tune_p8 = 90, config_.tune_p5 = 90, config_.tune_p7 = 7;
    config_.lead_edge_tol = services_.DefaultLeadEdgeTol(feat.family);
    config_.tune_p2 = 16, config_.tune_p3 = 8, config_.limit_a = 2030, config_.limit_b = 2030;
  }
}

void ConfigureScannerModel::EnterBusy() {
  if (busy_) return;
  busy_ = true;
  if (busy_listener_) busy_listener_(true);
}

void ConfigureScannerModel::LeaveBusy() {
  if (!busy_) return;
  busy_ = false;
  if (busy_listener_) busy_listener_(false);
}

void ConfigureScannerModel::SelectModel(int model) {
  model_row_ = std::max(0, RowOf(models_, model));
}

int ConfigureScannerModel::UsbTest() {
  int a = 0, b = 0, c = 0, d = 0;
  if (services_.CheckUsb(a, b, c, d) == 0) return kNotConfigured;
  const bool keep = IsOneOf(selected_model(), {502, 518});
  const int model = b ? (a > 0 ? 503 : 509) : (a ? (keep ? 502 : 504) : (keep ? 518 : 511));
  SelectModel(model);
  ComputeStates();
  LoadValues();
  if (c) m_nBarCodeState = 1;
  if (d) m_nPrinterState = 1;
  return kConfigured;
}

int ConfigureScannerModel::PadLotTest(const std::string& port_name) {
  EnterBusy();
  if (!services_.PadLotOnPort(port_name)) return kNotConfigured;  // busy stays for the search
  const int port = comm_.port;
  SelectModel(517);
  ComputeStates();
  LoadValues();
  m_nPortRow = std::max(0, RowOf(ports_, port));
  LeaveBusy();
  return kConfigured;
}

int ConfigureScannerModel::Search(const std::string& port_name) {
  const std::vector<uint32_t> list = [&] {
    std::vector<uint32_t> values;
    for (const ListRow& row : bauds_) values.push_back(static_cast<uint32_t>(row.value));
    return values;
  }();
  const SearchOutcome outcome = services_.SearchPort(port_name, list, selected_model());
  LeaveBusy();
  if (!outcome.open_error.empty()) {
    services_.ShowMessage(outcome.open_error, kIconInformation);
    return kNotConfigured;
  }
  if (outcome.code != kConfigured) return kNotConfigured;
  // The model row changes; the group states are not recomputed.
  SelectModel(outcome.model.model);
  bauds_.clear();
  for (const uint32_t baud : BaudList(outcome.model.fast))
    bauds_.push_back({std::to_string(baud), static_cast<int>(baud)});
  const int row = RowOf(bauds_, static_cast<int>(outcome.setting.baud));
  m_nBaudRow = row >= 0 ? row : static_cast<int>(bauds_.size()) - 1;
  m_nDataBits = outcome.setting.data_bits;
  m_nStopBits = outcome.setting.stop_bits;
  using platform::serial::Parity;
  m_nParity = outcome.setting.parity == Parity::kOdd    ? kParityOdd
              : outcome.setting.parity == Parity::kEven ? kParityEven
                                                        : kParityNone;
  m_nBarCodeState = outcome.options.bar_code;
  m_nPrinterState = outcome.options.printer;
  return kConfigured;
}

void ConfigureScannerModel::ShowResult(int result) {
  int text = 2095;
  bool information = false;
  for (const ResultText& r : kResults)
    if (result >= r.first && result <= r.last) text = r.text, information = r.information;
  services_.ShowMessage(services_.Text(text), information ? kIconInformation : kIconExclamation);
}

int ConfigureScannerModel::AutoConfigure() {
  m_bTested = false;
  const int model = selected_model();
  int result = kNotConfigured;
  if (IsOneOf(model, {505, 506})) {
    EnterBusy();
    const int found = services_.DetectTwain(model == 505 ? 12 : 13);
    LeaveBusy();
    result = found >= 0 ? found : found == -3 ? kNotConfigured : found == -1 ? 38 : 99;
  } else if (IsOneOf(model, {502, 503, 504})) {
    result = UsbTest();
  } else if (states_[kGroupPort] == STATE_HIDDEN) {
    result = kNotConfigured;
  } else if (ValueAt(ports_, m_nPortRow) == QMK_PORT_USB) {
    result = UsbTest();
  } else {
    const std::string name = "COM" + std::to_string(ValueAt(ports_, m_nPortRow));
    result = PadLotTest(name);
    if (result != kConfigured) result = Search(name);
  }
  if (result == kConfigured) m_bTested = true;
  ShowResult(result);
  return result;
}

}  // namespace qmk::discovery
