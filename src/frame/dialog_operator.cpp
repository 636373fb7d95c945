// dialog_operator.cpp: the operator that answers through the library's own dialogs.
#include "frame/dialog_operator.h"

#include "frame/corvid_app.h"
#include "frame/dlg_scan_error.h"
#include "frame/modeless_info_dlg.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/screen.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/msg_box.h"
#include "toolkit/dialogs/toolkit_seams.h"

namespace qmk::frame {
namespace {

namespace ui = platform::ui;

// The toolkit's engines must be joined to the window system before its first dialog.
void Ready() { toolkit::InstallToolkitSeams(); }

}  // namespace

void DialogOperator::EnableWindow(QMK_HWND window, bool enabled) {
  if (ui::IsWindow(window)) ui::EnableWindow(window, enabled);
}

Rect DialogOperator::WindowRect(QMK_HWND window) {
  ui::Rect r{};
  if (!ui::IsWindow(window) || !ui::GetWindowRect(window, &r)) r = ui::PrimaryMonitor().bounds;
  return Rect{r.left, r.top, r.right, r.bottom};
}

std::unique_ptr<Notice> DialogOperator::CreateNotice(QMK_HWND parent, const std::string& text,
                                                     bool show_cancel) {
  Ready();
  auto dialog = std::make_unique<CModelessInfoDlg>(text, show_cancel,
                                                   ui::IsWindow(parent) ? parent : nullptr);
  if (!dialog->Create()) return nullptr;
  return dialog;
}

int DialogOperator::MessageBox(QMK_HWND parent, const std::string& text,
                               const std::string& caption, unsigned flags, int help_id) {
  Ready();
  // A box whose parent is gone belongs to the application's main window, if there is one.
  const QMK_HWND owner = ui::IsWindow(parent) ? parent : TheApp().m_pMainWnd;
  return toolkit::ExtMsgBox(owner, text.c_str(), caption.c_str(), flags, help_id);
}

int DialogOperator::ShowScanErrorList(const std::vector<std::string>& faults) {
  Ready();
  return RunScanErrorDialog(faults);
}

void DialogOperator::PumpMessages() { ui::PumpMessages(0); }

}  // namespace qmk::frame
