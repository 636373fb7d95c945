// dlg_scan_error.cpp: the fault list of a failed sheet in its dialog.
#include "frame/dlg_scan_error.h"

#include "frame/corvid_app.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "qmk/QmkGen.h"

namespace qmk::frame {

namespace ui = platform::ui;

CDlgScanError::CDlgScanError(const std::vector<std::string>& errors, HWND parent)
    : CCorvidDialog(kScanErrorTemplate, parent), m_arrErrors(errors) {
  m_nHelpId = kScanErrorTemplate;
}

bool CDlgScanError::OnInitDialog() {
  CCorvidDialog::OnInitDialog();
  for (const std::string& error : m_arrErrors)
    ui::SendDlgItemMessage(m_hWnd, kScanErrorListId, ui::LB_ADDSTRING, 0,
                           reinterpret_cast<ui::LPARAM>(error.c_str()));
  return true;
}

int RunScanErrorDialog(const std::vector<std::string>& errors) {
  CDlgScanError dialog(errors, TheApp().m_pMainWnd);
  const intptr_t result = dialog.DoModal();
  if (result < 0)
    GenTraceDebugFormatted("Scan Error", "the dialog could not be shown: %s",
                           ui::LastDialogError().c_str());
  // Anything but OK stops: a read is repeated only when a person asked for it.
  return result == ui::IDOK ? 1 : 2;
}

}  // namespace qmk::frame
