// dlg_scan_error.h: CDlgScanError, the dialog that lists the faults of one failed sheet and asks
// whether to read it again (OK) or stop (Cancel).
#pragma once

#include <string>
#include <vector>

#include "frame/corvid_dialog.h"

namespace qmk::frame {

constexpr int kScanErrorTemplate = 101;
constexpr int kScanErrorListId = 1000;

class CDlgScanError : public CCorvidDialog {
 public:
  // Keeps a reference to `errors`, which must outlive the dialog.
  explicit CDlgScanError(const std::vector<std::string>& errors, HWND parent = nullptr);

  const std::vector<std::string>& m_arrErrors;

 protected:
  // Fills the list in the array's order.
  bool OnInitDialog() override;
};

// Runs the dialog over the application's main window: 1 when the sheet is to be read again, 2
// when the operator stopped (Cancel, a closed window, or a dialog that could not be shown).
int RunScanErrorDialog(const std::vector<std::string>& errors);

}  // namespace qmk::frame
