// callback_operator.h: an operator made of a host's C callbacks, installed through ScnSetOperator.
#pragma once

#include "frame/operator.h"
#include "qmk/QmkScan.h"

namespace qmk::frame {

// Checks a host's callback set: 0 when it can be installed, else the export's error code.
int CheckCallbacks(const ScnOperator& callbacks);

class CallbackOperator : public Operator {
 public:
  // Keeps a copy of `callbacks`, which CheckCallbacks has accepted.
  explicit CallbackOperator(const ScnOperator& callbacks);

  void EnableWindow(QMK_HWND window, bool enabled) override;
  // The host places its own notices: the library has no rectangle to centre them on.
  Rect WindowRect(QMK_HWND) override { return Rect{}; }
  std::unique_ptr<Notice> CreateNotice(QMK_HWND parent, const std::string& text,
                                       bool show_cancel) override;
  int MessageBox(QMK_HWND parent, const std::string& text, const std::string& caption,
                 unsigned flags, int help_id) override;
  int ShowScanErrorList(const std::vector<std::string>& faults) override;
  void PumpMessages() override;

 private:
  ScnOperator c_;
};

}  // namespace qmk::frame
