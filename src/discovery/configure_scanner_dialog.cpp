// configure_scanner_dialog.cpp: the scanner configuration dialog's window: events to the model,
// the model's states and values to the controls, and the modal run that a host's call starts.
#include "discovery/configure_scanner_dialog.h"

#include <initializer_list>
#include <vector>

#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"

namespace qmk::discovery {
namespace {

namespace ui = platform::ui;
using namespace config_ids;

// The controls of each group, in the order of ConfigGroup.
struct GroupControls {
  ConfigGroup group;
  std::initializer_list<int> ids;
};
const GroupControls kGroupControls[] = {
    {kGroupModel, {kModelLabel, kModelList, kTransportBox}},
    {kGroupPrinter, {kPrinter}},
    {kGroupBarCode, {kBarCode}},
    {kGroupBarCodePort, {kBarCodePort}},
    {kGroupSelect, {kSelect}},
    {kGroupLog, {kLog}},
    {kGroupAuto, {kAutoConfigure}},
    {kGroupPort, {kPortBox, kPortLabel, kPortList}},
    {kGroupBaud, {kBaudLabel, kBaudList}},
    {kGroupTimeout, {kTimeoutLabel, kTimeout, kSpin}},
    {kGroupDataBits, {kDataBitsBox, kData7, kData8}},
    {kGroupParity, {kParityBox, kOdd, kEven, kNone}},
    {kGroupStopBits, {kStopBitsBox, kStop1, kStop2}},
    {kGroupBusyText, {kBusyText}},
};

constexpr int kTimeoutDigits = 2, kTimeoutLowest = 2, kTimeoutHighest = 60;
constexpr unsigned kHelpOfThisDialog = 2000;

void FillCombo(ui::HWND dlg, int id, const std::vector<ListRow>& rows) {
  ui::SendDlgItemMessage(dlg, id, ui::CB_RESETCONTENT, 0, 0);
  for (const ListRow& row : rows) {
    const auto index = ui::SendDlgItemMessage(dlg, id, ui::CB_ADDSTRING, 0,
                                              reinterpret_cast<ui::LPARAM>(row.text.c_str()));
    ui::SendDlgItemMessage(dlg, id, ui::CB_SETITEMDATA, static_cast<ui::WPARAM>(index), row.value);
  }
}

void SelectRow(ui::HWND dlg, int id, int row) {
  ui::SendDlgItemMessage(dlg, id, ui::CB_SETCURSEL, static_cast<ui::WPARAM>(row), 0);
}

int SelectedRow(ui::HWND dlg, int id, int fallback) {
  const auto row = ui::SendDlgItemMessage(dlg, id, ui::CB_GETCURSEL, 0, 0);
  return row >= 0 ? static_cast<int>(row) : fallback;
}

bool Checked(ui::HWND dlg, int id) { return ui::IsDlgButtonChecked(dlg, id) == ui::BST_CHECKED; }

void SetCheck(ui::HWND dlg, int id, bool on) {
  ui::CheckDlgButton(dlg, id, on ? ui::BST_CHECKED : ui::BST_UNCHECKED);
}

}  // namespace

CDlgConfigureScanner::CDlgConfigureScanner(sct_config& config, sct_config_ex& comm,
                                           ConfigDialogServices& services, unsigned help_id)
    : CCorvidDialog(kIdd), model_(config, comm, services) {
  m_nHelpId = static_cast<int>(help_id ? help_id : kHelpOfThisDialog);
  model_.SetBusyListener([this](bool busy) { ShowBusy(busy); });
}

bool CDlgConfigureScanner::OnInitDialog() {
  CCorvidDialog::OnInitDialog();
  ui::SendDlgItemMessage(m_hWnd, kTimeout, ui::EM_LIMITTEXT, kTimeoutDigits, 0);
  ui::SendDlgItemMessage(m_hWnd, kSpin, ui::UDM_SETRANGE32, kTimeoutLowest, kTimeoutHighest);
  model_.OnInitDialog();
  FillCombo(m_hWnd, kModelList, model_.models());
  ShowAll();
  if (model_.top_most()) {
    const intptr_t ex = ui::GetWindowLongPtr(m_hWnd, ui::GWL_EXSTYLE);
    ui::SetWindowLongPtr(m_hWnd, ui::GWL_EXSTYLE, ex | static_cast<intptr_t>(ui::WS_EX_TOPMOST));
  }
  return true;
}

void CDlgConfigureScanner::OnOK() {
  ReadValues();
  // A refusal has shown its message; the dialog stays open.
  if (model_.OnOK()) EndDialog(ui::IDOK);
}

intptr_t CDlgConfigureScanner::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_COMMAND) {
    if (OnCommand(static_cast<int>(ui::LOWORD(wp)), ui::HIWORD(wp))) {
      handled = true;
      return 0;
    }
  }
  if (msg == ui::WM_VSCROLL && reinterpret_cast<HWND>(lp) == ui::GetDlgItem(m_hWnd, kSpin)) {
    model_.OnSpin(static_cast<int>(ui::HIWORD(wp)));
    ui::SetDlgItemInt(m_hWnd, kTimeout, model_.m_nTimeout, true);
    handled = true;
    return 0;
  }
  return CCorvidDialog::WindowProc(msg, wp, lp, handled);
}

bool CDlgConfigureScanner::OnCommand(int id, unsigned code) {
  if (code == ui::CBN_SELCHANGE && id == kModelList) {
    ReadValues();
    model_.OnModelChange(SelectedRow(m_hWnd, kModelList, model_.model_row()));
    ShowAll();
  } else if (code == ui::CBN_SELCHANGE && id == kPortList) {
    ReadValues();
    model_.OnPortChange(model_.m_nPortRow);
    ShowAll();
  } else if (code == ui::BN_CLICKED && (id == kBarCode || id == kSelect || id == kPrinter || id == kLog)) {
    OnToggle(id);
  } else if (code == ui::BN_CLICKED && id == kAutoConfigure) {
    OnAutoConfigure();
  } else {
    return false;
  }
  return true;
}

void CDlgConfigureScanner::OnToggle(int id) {
  // The model flips the box itself: it sees the other controls as they stand, this one as it was.
  ReadValues(id);
  switch (id) {
    case kBarCode: model_.OnBarCodeToggle(); break;
    case kSelect: model_.OnSelectToggle(); break;
    case kPrinter: model_.OnPrinterToggle(); break;
    default: model_.OnLogToggle(); break;
  }
  ShowAll();
}

void CDlgConfigureScanner::OnAutoConfigure() {
  ReadValues();
  model_.AutoConfigure();
  ShowAll();
}

void CDlgConfigureScanner::ShowAll() {
  ShowLists();
  ShowValues();
  ShowStates();
}

void CDlgConfigureScanner::ShowStates() {
  for (const GroupControls& g : kGroupControls) {
    const ControlState state = model_.State(g.group);
    for (const int id : g.ids) {
      const HWND control = ui::GetDlgItem(m_hWnd, id);
      ui::ShowWindow(control, state == STATE_HIDDEN ? ui::SW_HIDE : ui::SW_SHOW);
      ui::EnableWindow(control, state == STATE_SHOWN);
    }
  }
}

void CDlgConfigureScanner::ShowLists() {
  FillCombo(m_hWnd, kPortList, model_.ports());
  FillCombo(m_hWnd, kBaudList, model_.bauds());
  FillCombo(m_hWnd, kBarCodePort, model_.bar_code_ports());
}

void CDlgConfigureScanner::ShowValues() {
  SelectRow(m_hWnd, kModelList, model_.model_row());
  SelectRow(m_hWnd, kPortList, model_.m_nPortRow);
  SelectRow(m_hWnd, kBaudList, model_.m_nBaudRow);
  SelectRow(m_hWnd, kBarCodePort, model_.m_nBarCodePortRow);
  SetCheck(m_hWnd, kPrinter, model_.m_bPrinter);
  SetCheck(m_hWnd, kBarCode, model_.m_bBarCode);
  SetCheck(m_hWnd, kSelect, model_.m_bSelect);
  SetCheck(m_hWnd, kLog, model_.m_bLog);
  ui::SendDlgItemMessage(m_hWnd, kSpin, ui::UDM_SETPOS32, 0, model_.m_nTimeout);
  ui::SetDlgItemInt(m_hWnd, kTimeout, model_.m_nTimeout, true);
  ui::CheckRadioButton(m_hWnd, kData7, kData8, model_.m_nDataBits == 8 ? kData8 : kData7);
  ui::CheckRadioButton(m_hWnd, kStop1, kStop2, model_.m_nStopBits == 2 ? kStop2 : kStop1);
  ui::CheckRadioButton(m_hWnd, kOdd, kNone, kOdd + model_.m_nParity);
}

void CDlgConfigureScanner::ReadValues(int skip) {
  const auto box = [&](int id, bool& value) {
    if (id != skip) value = Checked(m_hWnd, id);
  };
  box(kPrinter, model_.m_bPrinter);
  box(kBarCode, model_.m_bBarCode);
  box(kSelect, model_.m_bSelect);
  box(kLog, model_.m_bLog);
  model_.m_nPortRow = SelectedRow(m_hWnd, kPortList, model_.m_nPortRow);
  model_.m_nBaudRow = SelectedRow(m_hWnd, kBaudList, model_.m_nBaudRow);
  model_.m_nBarCodePortRow = SelectedRow(m_hWnd, kBarCodePort, model_.m_nBarCodePortRow);
  // The typed number stands as it is; an edit left empty keeps the last value.
  bool number = false;
  const int timeout = ui::GetDlgItemInt(m_hWnd, kTimeout, &number, true);
  if (number) model_.m_nTimeout = timeout;
  model_.m_nDataBits = Checked(m_hWnd, kData8) ? 8 : 7;
  model_.m_nStopBits = Checked(m_hWnd, kStop2) ? 2 : 1;
  model_.m_nParity = Checked(m_hWnd, kNone) ? kParityNone : Checked(m_hWnd, kEven) ? kParityEven : kParityOdd;
}

void CDlgConfigureScanner::ShowBusy(bool busy) {
  if (!m_hWnd) return;
  if (busy) {
    for (const GroupControls& g : kGroupControls)
      for (const int id : g.ids) ui::EnableWindow(ui::GetDlgItem(m_hWnd, id), false);
    ui::ShowWindow(ui::GetDlgItem(m_hWnd, kBusyText), ui::SW_SHOW);
  } else {
    ShowStates();  // the busy text's own state stays hidden
  }
  ui::EnableWindow(ui::GetDlgItem(m_hWnd, ui::IDOK), !busy);
  ui::EnableWindow(ui::GetDlgItem(m_hWnd, ui::IDCANCEL), !busy);
  // A probe blocks the message flow: paint the change before it starts.
  ui::UpdateWindow(m_hWnd);
}

ScannerConfigReport ReportOf(const ConfigureScannerModel& model) {
  ScannerConfigReport report;
  report.tested = model.m_bTested ? 1 : 0;
  report.select_state = model.m_nSelectState != 0 ? 1 : 0;
  report.printer_state = model.m_nPrinterState != 0 ? 1 : 0;
  report.bar_code_state = model.m_nBarCodeState != 0 ? 1 : 0;
  return report;
}

intptr_t RunScannerConfig(sct_config& config, sct_config_ex& comm, unsigned help_id,
                          ConfigDialogServices& services, ScannerConfigReport* report) {
  CDlgConfigureScanner dialog(config, comm, services, help_id);
  const intptr_t result = dialog.DoModal();
  if (result == ui::IDOK && report) *report = ReportOf(dialog.model());
  return result;
}

}  // namespace qmk::discovery
