// terminal_operator.h: an operator that shows notices and asks questions on a terminal.
#pragma once

#include <cstdio>

#include "frame/operator.h"

namespace qmk::frame {

// Notices print their text once to `out`; a message box prints its text and reads the answer
// from `in` ("o"k, "c"ancel, "y"es, "n"o, ...). At the end of input it answers Cancel (or No),
// so an unattended run stops rather than repeating a fault.
class TerminalOperator : public Operator {
 public:
  TerminalOperator(std::FILE* in = stdin, std::FILE* out = stderr) : in_(in), out_(out) {}

  void EnableWindow(QMK_HWND, bool) override {}
  Rect WindowRect(QMK_HWND) override { return Rect{0, 0, 80, 24}; }
  std::unique_ptr<Notice> CreateNotice(QMK_HWND parent, const std::string& text,
                                       bool show_cancel) override;
  int MessageBox(QMK_HWND parent, const std::string& text, const std::string& caption,
                 unsigned flags, int help_id) override;
  int ShowScanErrorList(const std::vector<std::string>& faults) override;

 private:
  std::FILE* in_;
  std::FILE* out_;
};

}  // namespace qmk::frame
