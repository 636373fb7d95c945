// scanning_options_view.cpp: the scanning options dialog's windows: the page container, the two
// pages and the moves of values between their controls and the model.
#include "options/scanning_options_view.h"

#include "frame/message_display.h"
#include "options/dialog_exchange.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/ext_edit.h"

namespace qmk::options::view {
namespace {

namespace ui = platform::ui;
using ScannerPage = options::CScanningOptionsTabScannerControl;

const std::vector<int> kOutputRadios = {kIdcUseDefaultName, kIdcUseOther};
const std::vector<int> kFileModeRadios = {kIdcAppend, kIdcReplace, kIdcReplaceAtSerial};
constexpr int kReadCombos[ScannerPage::kReadFields] = {
    kIdcBubbleThreshold, kIdcBubbleDiscrimination, kIdcCheckThreshold,
    kIdcCheckDiscrimination, kIdcTickThreshold, kIdcTickDiscrimination};
constexpr int kPrintPositionMin = 1, kPrintPositionMax = 63;

// The check boxes of the scanner control page and the values they show.
struct PageCheck {
  int id;
  bool ScannerPage::*value;
};
constexpr PageCheck kScannerChecks[] = {
    {kIdcStopSystem, &ScannerPage::m_bStopSystem},     {kIdcStopLitho, &ScannerPage::m_bStopLitho},
    {kIdcStopThickness, &ScannerPage::m_bStopThickness}, {kIdcPrintSerial, &ScannerPage::m_bPrintSerial},
    {kIdcPrintBatch, &ScannerPage::m_bPrintBatch},     {kIdcPrintRun, &ScannerPage::m_bPrintRun},
    {kIdcPrintDate, &ScannerPage::m_bPrintDate},       {kIdcFourDigitYear, &ScannerPage::m_bFourDigitYear},
    {kIdcOffsetEdit, &ScannerPage::m_bOffsetEdit},
};

// Every control of the scanner control page whose enabled state the refresh rule sets.
constexpr int kScannerRuled[] = {
    kIdcStopSystem, kIdcBatchLabel, kIdcBatch, kIdcSerialLabel, kIdcSerial, kIdcPrintGroup,
    kIdcPrintSerial, kIdcPrintBatch, kIdcPrintRun, kIdcPrintDate, kIdcOffsetEdit,
    kIdcPrintPosition, kIdcPrintSpin, kIdcPrintPositionLabel, kIdcFourDigitYear,
    kIdcBubbleThreshold, kIdcBubbleDiscrimination, kIdcCheckThreshold, kIdcCheckDiscrimination,
    kIdcTickThreshold, kIdcTickDiscrimination, kIdcBubbleLabel, kIdcCheckLabel, kIdcTickLabel};

int ReadCombo(int id) {
  for (int field = 0; field < ScannerPage::kReadFields; ++field)
    if (kReadCombos[field] == id) return field;
  return -1;
}

// A number edit's value as the framework reads it: false when the text is none.
bool ReadUnsigned(HWND dlg, int id, unsigned& value) {
  long long number = 0;
  if (!ReadNumber(dlg, id, number) || number < 0 || number > 0xFFFFFFFFLL) return false;
  value = static_cast<unsigned>(number);
  return true;
}

}  // namespace

// ---- File names page ---------------------------------------------------------------------------

CScanningOptionsTabFileNames::CScanningOptionsTabFileNames(options::CScanningOptionsTabFileNames& page,
                                                           CScanningOptionsMainDlg& main)
    : CCorvidDialog(options::CScanningOptionsTabFileNames::kIdd), page_(page), main_(main) {
  m_nHelpId = page.m_nHelpId;
}

void CScanningOptionsTabFileNames::ShowValues() {
  ShowRadio(m_hWnd, kOutputRadios, page_.m_nOutputChoice);
  ShowText(m_hWnd, kIdcOutputFile, page_.m_strOutputFile);
  ShowRadio(m_hWnd, kFileModeRadios, page_.m_nFileMode);
  ShowCheck(m_hWnd, kIdcAutoGenerate, page_.m_bAutoGenerate);
  ShowCheck(m_hWnd, kIdcOnlineEdit, page_.m_bOnlineEdit);
  for (int id : {kIdcOutputFile, kIdcBrowse, kIdcAutonameRules})
    ShowEnabled(m_hWnd, id, page_.Enabled(id));
  ShowTooltip();
}

void CScanningOptionsTabFileNames::ShowTooltip() {
  auto* edit = dynamic_cast<toolkit::CExtEdit*>(toolkit::ThemedControl::FromHandle(ui::GetDlgItem(m_hWnd, kIdcOutputFile)));
  if (edit) edit->SetTooltipText(page_.tooltip());
}

// Buttons reach the model through their clicks, so only the text is read here.
void CScanningOptionsTabFileNames::ReadValues() {
  page_.m_strOutputFile = ReadText(m_hWnd, kIdcOutputFile);
}

intptr_t CScanningOptionsTabFileNames::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_COMMAND) {
    const int id = ui::LOWORD(wp);
    const unsigned code = ui::HIWORD(wp);
    if (id == kIdcOutputFile && code == ui::EN_CHANGE) {
      page_.OnOutputFileChange(ReadText(m_hWnd, kIdcOutputFile));
      ShowTooltip();
    } else if (code == ui::BN_CLICKED && id != ui::IDOK && id != ui::IDCANCEL) {
      main_.RunRule([&] { page_.OnClick(id); });
      handled = true;
      return 0;
    }
  }
  return CCorvidDialog::WindowProc(msg, wp, lp, handled);
}

// ---- Scanner control page ----------------------------------------------------------------------

CScanningOptionsTabScannerControl::CScanningOptionsTabScannerControl(
    options::CScanningOptionsTabScannerControl& page, CScanningOptionsMainDlg& main)
    : CCorvidDialog(options::CScanningOptionsTabScannerControl::kIdd), page_(page), main_(main) {
  m_nHelpId = page.m_nHelpId;
}

void CScanningOptionsTabScannerControl::Prepare() {
  LimitText(m_hWnd, kIdcSerial, 6);
  LimitText(m_hWnd, kIdcRun, 1);
  LimitText(m_hWnd, kIdcBatch, 3);
  ui::SendDlgItemMessage(m_hWnd, kIdcPrintSpin, ui::UDM_SETRANGE32, kPrintPositionMin, kPrintPositionMax);
  FillCombo(m_hWnd, kIdcDate, {main_.Services().Text(kTextToday)}, -1);
  for (int field = 0; field < ScannerPage::kReadFields; ++field) {
    std::vector<std::string> texts;
    for (const ReadLevelEntry& entry : page_.ListOf(static_cast<ScannerPage::ReadField>(field)))
      texts.push_back(entry.text);
    FillCombo(m_hWnd, kReadCombos[field], texts,
              page_.SelectedRead(static_cast<ScannerPage::ReadField>(field)));
  }
}

void CScanningOptionsTabScannerControl::ShowValues(bool all) {
  for (const PageCheck& check : kScannerChecks) ShowCheck(m_hWnd, check.id, page_.*check.value);
  for (int id : kScannerRuled) ShowEnabled(m_hWnd, id, page_.Enabled(id));
  ShowText(m_hWnd, kIdcDate, page_.m_strDate);
  if (all || main_.Model().m_bBatchEditable) ShowText(m_hWnd, kIdcBatch, std::to_string(page_.m_nBatch));
  if (!all) return;
  ShowText(m_hWnd, kIdcSerial, std::to_string(page_.m_nSerial));
  ShowText(m_hWnd, kIdcRun, std::to_string(page_.m_nRun));
  ShowText(m_hWnd, kIdcPrintPosition, std::to_string(page_.m_nPrintPosition));
  ui::SendDlgItemMessage(m_hWnd, kIdcPrintSpin, ui::UDM_SETPOS32, 0, page_.m_nSpinPosition);
}

void CScanningOptionsTabScannerControl::ReadValues() {
  ReadUnsigned(m_hWnd, kIdcSerial, page_.m_nSerial);
  ReadUnsigned(m_hWnd, kIdcRun, page_.m_nRun);
  ReadUnsigned(m_hWnd, kIdcBatch, page_.m_nBatch);
  page_.m_strDate = ReadText(m_hWnd, kIdcDate);
  long long position = 0;
  if (ReadNumber(m_hWnd, kIdcPrintPosition, position) && position >= -32768 && position <= 32767)
    page_.m_nPrintPosition = static_cast<int>(position);
  page_.m_nSpinPosition =
      static_cast<int>(ui::SendDlgItemMessage(m_hWnd, kIdcPrintSpin, ui::UDM_GETPOS32, 0, 0));
}

bool CScanningOptionsTabScannerControl::ReadNumbersStrictly() {
  struct NumberEdit {
    int id;
    bool is_unsigned;
  };
  for (const NumberEdit edit : {NumberEdit{kIdcSerial, true}, {kIdcRun, true}, {kIdcBatch, true},
                                {kIdcPrintPosition, false}}) {
    long long value = 0;
    const bool read = ReadNumber(m_hWnd, edit.id, value) && (!edit.is_unsigned || value >= 0);
    if (read) continue;
    main_.Services().ShowText(edit.is_unsigned ? "Please enter an unsigned integer."
                                               : "Please enter an integer.",
                              frame::kMbIconExclamation);
    ui::SetFocus(ui::GetDlgItem(m_hWnd, edit.id));
    return false;
  }
  ReadValues();
  return true;
}

intptr_t CScanningOptionsTabScannerControl::WindowProc(unsigned msg, WPARAM wp, LPARAM lp,
                                                       bool& handled) {
  if (msg == ui::WM_COMMAND) {
    const int id = ui::LOWORD(wp);
    const unsigned code = ui::HIWORD(wp);
    const int field = ReadCombo(id);
    if (field >= 0 && code == ui::CBN_SELCHANGE) {
      page_.OnSelectRead(static_cast<ScannerPage::ReadField>(field), ReadComboSelection(m_hWnd, id));
    } else if (id == kIdcDate && code == ui::CBN_SELCHANGE) {
      const int index = ReadComboSelection(m_hWnd, id);
      if (index >= 0) page_.m_strDate = ComboItemText(m_hWnd, id, index);
    } else if (id == kIdcDate && code == ui::CBN_KILLFOCUS) {
      main_.RunRule([&] { page_.OnDateKillFocus(); });
    } else if (code == ui::BN_CLICKED && id != ui::IDOK && id != ui::IDCANCEL) {
      main_.RunRule([&] { page_.OnClick(id); });
      handled = true;
      return 0;
    }
  }
  return CCorvidDialog::WindowProc(msg, wp, lp, handled);
}

// ---- Main dialog -------------------------------------------------------------------------------

CScanningOptionsMainDlg::CScanningOptionsMainDlg(options::CScanningOptionsMainDlg& model, HWND parent)
    : CCorvidDialog(options::CScanningOptionsMainDlg::kIdd, parent),
      model_(model),
      file_names_(model.m_tabFileNames, *this),
      scanner_control_(model.m_tabScannerControl, *this) {
  m_nHelpId = model.m_nHelpId;
  m_strTitle = model.m_strTitle;
}

bool CScanningOptionsMainDlg::OnInitDialog() {
  CCorvidDialog::OnInitDialog();
  CreatePageContainer();
  // The model makes and initialises both pages before it takes the current file name.
  model_.OnInitDialog();
  struct PageWindow {
    frame::CCorvidDialog* dialog;
    int template_id;
    const std::string& title;
  };
  const PageWindow pages[] = {
      {&file_names_, options::CScanningOptionsTabFileNames::kIdd, model_.m_tabFileNames.m_strTitle},
      {&scanner_control_, options::CScanningOptionsTabScannerControl::kIdd,
       model_.m_tabScannerControl.m_strTitle}};
  for (const PageWindow& page : pages) {
    page.dialog->Create(page.template_id, container_.GetSafeHwnd());
    container_.PageInsert(page.dialog->GetSafeHwnd(), page.title);
  }
  scanner_control_.Prepare();
  ShowAll(true);
  SelectPage(model_.selected_page());
  key_filter_ = ui::AddMessageFilter([this](ui::MSG& msg) { return PageKeyOutsideContainer(msg); });
  ui::SetFocus(ui::GetDlgItem(m_hWnd, model_.focus()));
  return false;
}

bool CScanningOptionsMainDlg::PageKeyOutsideContainer(const ui::MSG& msg) {
  if (msg.message != ui::WM_KEYDOWN || ui::GetKeyState(ui::VK_CONTROL) >= 0) return false;
  if (msg.wParam != ui::VK_TAB && msg.wParam != ui::VK_NEXT && msg.wParam != ui::VK_PRIOR) return false;
  const HWND container = container_.GetSafeHwnd();
  if (msg.hwnd != m_hWnd && !ui::IsChild(m_hWnd, msg.hwnd)) return false;
  if (msg.hwnd == container || ui::IsChild(container, msg.hwnd)) return false;
  // Two pages: forward and back both reach the other one.
  SelectPage(1 - CurrentPage());
  return true;
}

void CScanningOptionsMainDlg::OnDestroy() {
  ui::RemoveMessageFilter(key_filter_);
  key_filter_ = 0;
  CCorvidDialog::OnDestroy();
}

void CScanningOptionsMainDlg::CreatePageContainer() {
  const int id = options::CScanningOptionsTabScannerControl::kIdd;
  const HWND frame = ui::GetDlgItem(m_hWnd, id);
  ui::Rect place{};
  ui::GetWindowRect(frame, &place);
  ui::MapWindowRect(nullptr, m_hWnd, &place);
  ui::DestroyWindow(frame);
  // The container takes the frame's place and id; Tab stops on it.
  container_.Create(m_hWnd, place, id, ui::WS_CHILD | ui::WS_VISIBLE | ui::WS_TABSTOP);
  // First in the tab order, where the frame stood, before OK and Cancel.
  ui::SetWindowPos(container_.GetSafeHwnd(), ui::HWND_TOP(), 0, 0, 0, 0,
                   ui::SWP_NOMOVE | ui::SWP_NOSIZE | ui::SWP_NOACTIVATE);
}

void CScanningOptionsMainDlg::SelectPage(int page) {
  model_.SelectPage(page);
  container_.PageSelectionSet(page);
}

int CScanningOptionsMainDlg::CurrentPage() const {
  return container_.GetSafeHwnd() ? container_.PageSelectionGet() : -1;
}

void CScanningOptionsMainDlg::ReadAll() {
  file_names_.ReadValues();
  scanner_control_.ReadValues();
}

void CScanningOptionsMainDlg::ShowAll(bool all) {
  file_names_.ShowValues();
  scanner_control_.ShowValues(all);
}

void CScanningOptionsMainDlg::OnOK() {
  ReadAll();
  const bool ok = model_.OnOK([this] { return scanner_control_.ReadNumbersStrictly(); });
  if (ok) {
    EndDialog(ui::IDOK);
    return;
  }
  const int page = model_.selected_page();
  SelectPage(page);
  ShowAll(false);
  const int focus = page == options::CScanningOptionsMainDlg::kScannerControlPage
                        ? model_.m_tabScannerControl.focus() : 0;
  if (focus) ui::SetFocus(ui::GetDlgItem(scanner_control_.GetSafeHwnd(), focus));
}

intptr_t CScanningOptionsMainDlg::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_NOTIFY) {
    const auto* header = reinterpret_cast<const ui::NMHDR*>(lp);
    if (header && header->hwndFrom == container_.GetSafeHwnd() && header->code == ui::TCN_SELCHANGE)
      model_.SelectPage(CurrentPage());
  }
  return CCorvidDialog::WindowProc(msg, wp, lp, handled);
}

}  // namespace qmk::options::view
