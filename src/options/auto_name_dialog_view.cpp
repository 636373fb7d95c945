// auto_name_dialog_view.cpp: the automatic file naming dialog's controls and its model.
#include "options/auto_name_dialog_view.h"

#include <algorithm>

#include "options/dialog_exchange.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/window.h"

namespace qmk::options::view {
namespace {

namespace ui = platform::ui;

const std::vector<int> kResetRadios = {kIdcResetDaily, kIdcResetWeekly, kIdcResetMonthly,
                                       kIdcNeverReset};

}  // namespace

CAutoNameDialog::CAutoNameDialog(options::CAutoNameDialog& model, HWND parent)
    : CCorvidDialog(options::CAutoNameDialog::kIdd, parent), model_(model) {}

bool CAutoNameDialog::OnInitDialog() {
  CCorvidDialog::OnInitDialog();
  model_.SetWindow(m_hWnd);
  LimitText(m_hWnd, kIdcNext, 3);
  model_.OnInitDialog();
  // The combo sorts what it is given the way the model sorted its entries.
  FillCombo(m_hWnd, kIdcTemplate, model_.entries(), -1);
  ShowValues();
  return true;
}

void CAutoNameDialog::ShowValues() {
  ShowRadio(m_hWnd, kResetRadios, model_.m_nResetRule);
  ShowCheck(m_hWnd, kIdcUseAsBatch, model_.m_bUseAsBatch);
  ShowText(m_hWnd, kIdcNext, std::to_string(model_.m_nNext));
  const int selected = model_.selected();
  if (selected >= 0) {
    const std::string& entry = model_.entries()[selected];
    SelectCombo(m_hWnd, kIdcTemplate,
                static_cast<int>(ui::SendDlgItemMessage(m_hWnd, kIdcTemplate, ui::CB_FINDSTRINGEXACT,
                                                        static_cast<ui::WPARAM>(-1),
                                                        reinterpret_cast<ui::LPARAM>(entry.c_str()))));
  }
  ShowText(m_hWnd, kIdcTemplate, model_.m_strTemplate);
  ShowText(m_hWnd, kIdcDescription, model_.description());
  ShowEnabled(m_hWnd, kIdcDescription, model_.description_enabled());
}

void CAutoNameDialog::ReadValues() {
  model_.m_nResetRule = ReadRadio(m_hWnd, kResetRadios, 3);
  model_.m_bUseAsBatch = ReadCheck(m_hWnd, kIdcUseAsBatch);
  long long next = 0;
  // Text that is no number fails the model's range check with the framework's message.
  model_.m_nNext = ReadNumber(m_hWnd, kIdcNext, next) && next >= -1 && next <= 99999
                       ? static_cast<int>(next) : -1;
  model_.m_strTemplate = ReadText(m_hWnd, kIdcTemplate);
}

void CAutoNameDialog::OnSelChange() {
  const int index = ReadComboSelection(m_hWnd, kIdcTemplate);
  if (index < 0) return;
  const std::string text = ComboItemText(m_hWnd, kIdcTemplate, index);
  const auto& entries = model_.entries();
  const auto found = std::find(entries.begin(), entries.end(), text);
  if (found == entries.end()) return;
  model_.OnSelChange(static_cast<int>(found - entries.begin()));
  ShowText(m_hWnd, kIdcDescription, model_.description());
  ShowEnabled(m_hWnd, kIdcDescription, model_.description_enabled());
}

void CAutoNameDialog::OnOK() {
  ReadValues();
  if (model_.OnOK()) EndDialog(ui::IDOK);
}

intptr_t CAutoNameDialog::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_COMMAND && ui::LOWORD(wp) == kIdcTemplate) {
    const unsigned code = ui::HIWORD(wp);
    if (code == ui::CBN_SELCHANGE) {
      OnSelChange();
    } else if (code == ui::CBN_EDITCHANGE) {
      model_.OnEditChange(ReadText(m_hWnd, kIdcTemplate));
      ShowEnabled(m_hWnd, kIdcDescription, model_.description_enabled());
    }
  }
  return CCorvidDialog::WindowProc(msg, wp, lp, handled);
}

}  // namespace qmk::options::view
