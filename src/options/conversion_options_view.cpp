// conversion_options_view.cpp: the controls of the conversion and edit options dialogs and their
// models.
#include "options/conversion_options_view.h"

#include "options/dialog_exchange.h"
#include "options/scanning_options_model.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/window.h"

namespace qmk::options::view {
namespace {

namespace ui = platform::ui;

const std::vector<int> kOutputRadios = {kIdcUseDefaultName, kIdcUseOther};
const std::vector<int> kEditModeRadios = {kIdcEditNormally, kIdcRecheckAll, kIdcClearEditFlags};
constexpr int kTopLeft[2] = {0, 0}, kTopRight[2] = {100, 0};

}  // namespace

CConvertOptionsDialog::CConvertOptionsDialog(options::CConvertOptionsDialog& model, HWND parent)
    : CCorvidDialog(options::CConvertOptionsDialog::kIdd, parent), model_(model) {
  m_nHelpId = model.m_nHelpId;
  m_strTitle = model.m_strTitle;
}

bool CConvertOptionsDialog::OnInitDialog() {
  AddAnchor(kIdcOutputFile, kTopLeft, kTopRight);
  AddAnchor(kIdcBrowse, kTopRight, kTopRight);
  AddAnchor(ui::IDOK, kTopRight, kTopRight);
  AddAnchor(ui::IDCANCEL, kTopRight, kTopRight);
  CCorvidDialog::OnInitDialog();
  model_.OnInitDialog();
  ShowValues();
  ui::SetFocus(ui::GetDlgItem(m_hWnd, model_.focus()));
  return false;
}

void CConvertOptionsDialog::ShowValues() {
  ShowRadio(m_hWnd, kOutputRadios, model_.choice());
  ShowText(m_hWnd, kIdcOutputFile, model_.file_name());
  ShowCheck(m_hWnd, kIdcReplaceExisting, model_.replace());
  for (int id : {kIdcOutputFile, kIdcBrowse}) ShowEnabled(m_hWnd, id, model_.Enabled(id));
}

void CConvertOptionsDialog::ReadValues() {
  model_.choice() = ReadRadio(m_hWnd, kOutputRadios, model_.choice());
  model_.file_name() = ReadText(m_hWnd, kIdcOutputFile);
  model_.replace() = ReadCheck(m_hWnd, kIdcReplaceExisting);
}

void CConvertOptionsDialog::OnOK() {
  ReadValues();
  if (model_.OnOK()) EndDialog(ui::IDOK);
}

intptr_t CConvertOptionsDialog::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_COMMAND && ui::HIWORD(wp) == ui::BN_CLICKED) {
    const int id = ui::LOWORD(wp);
    if (id == kIdcUseDefaultName || id == kIdcUseOther || id == kIdcBrowse) {
      ReadValues();
      model_.OnClick(id);
      ShowValues();
    }
  }
  return CCorvidDialog::WindowProc(msg, wp, lp, handled);
}

CEditOptionsDialog::CEditOptionsDialog(options::CEditOptionsDialog& model, HWND parent)
    : CCorvidDialog(options::CEditOptionsDialog::kIdd, parent), model_(model) {
  m_nHelpId = model.m_nHelpId;
  m_strTitle = model.m_strTitle;
}

bool CEditOptionsDialog::OnInitDialog() {
  AddAnchor(ui::IDOK, kTopRight, kTopRight);
  AddAnchor(ui::IDCANCEL, kTopRight, kTopRight);
  CCorvidDialog::OnInitDialog();
  model_.OnInitDialog();
  ShowRadio(m_hWnd, kEditModeRadios, model_.m_nRadio);
  ui::SetFocus(ui::GetDlgItem(m_hWnd, ui::IDOK));
  return false;
}

void CEditOptionsDialog::OnOK() {
  model_.m_nRadio = ReadRadio(m_hWnd, kEditModeRadios, 0);
  if (model_.OnOK()) EndDialog(ui::IDOK);
}

}  // namespace qmk::options::view
