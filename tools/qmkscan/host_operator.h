// host_operator.h: how qmkscan answers the library's questions: on the terminal, or with a
// fixed answer given on the command line.
#pragma once

#include <optional>

#include "frame/terminal_operator.h"

namespace qmkscan {

class HostOperator : public qmk::frame::TerminalOperator {
 public:
  // answer_ok: nullopt asks on the terminal; true answers OK (go on), false Cancel (stop).
  explicit HostOperator(std::optional<bool> answer_ok) : answer_ok_(answer_ok) {}

  int MessageBox(QMK_HWND parent, const std::string& text, const std::string& caption,
                 unsigned flags, int help_id) override;
  int ShowScanErrorList(const std::vector<std::string>& faults) override;

  int faults_shown() const { return faults_shown_; }

 private:
  std::optional<bool> answer_ok_;
  int faults_shown_ = 0;
};

}  // namespace qmkscan
