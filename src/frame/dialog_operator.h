// dialog_operator.h: the library's own dialogs as the operator: notices are CModelessInfoDlg,
// message boxes CExtMsgBox, the fault list CDlgScanError, all on the window system in use.
#pragma once

#include "frame/operator.h"

namespace qmk::frame {

class DialogOperator : public Operator {
 public:
  // Disables or enables one of the window system's windows; other handles are left alone.
  void EnableWindow(QMK_HWND window, bool enabled) override;
  // The window's rectangle; for no window (or a handle that is none), the primary monitor's.
  Rect WindowRect(QMK_HWND window) override;
  std::unique_ptr<Notice> CreateNotice(QMK_HWND parent, const std::string& text,
                                       bool show_cancel) override;
  int MessageBox(QMK_HWND parent, const std::string& text, const std::string& caption,
                 unsigned flags, int help_id) override;
  int ShowScanErrorList(const std::vector<std::string>& faults) override;
  // One batch of the window system's messages: input to the notices, their timers, painting.
  void PumpMessages() override;
};

}  // namespace qmk::frame
