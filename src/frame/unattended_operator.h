// unattended_operator.h: the operator when nobody can be asked: no host operator, no dialogs,
// no terminal. Faults stop the scan and the trace says why.
#pragma once

#include "frame/operator.h"

namespace qmk::frame {

class UnattendedOperator : public Operator {
 public:
  void EnableWindow(QMK_HWND, bool) override {}
  Rect WindowRect(QMK_HWND) override { return Rect{}; }
  std::unique_ptr<Notice> CreateNotice(QMK_HWND parent, const std::string& text,
                                       bool show_cancel) override;
  // Answers what a closed box answers: Cancel where there is one, else No, else OK.
  int MessageBox(QMK_HWND parent, const std::string& text, const std::string& caption,
                 unsigned flags, int help_id) override;
  // Always 2 (Cancel).
  int ShowScanErrorList(const std::vector<std::string>& faults) override;
};

}  // namespace qmk::frame
