// corvid_dialog.h: CCorvidDialog, the base of every dialog of the library: options remembered by
// dialog name, the help context of the dialog while it is up, themed child controls, a title set
// from code.
#pragma once

#include <cstdint>
#include <string>

#include "toolkit/dialogs/resizable_dialog.h"

namespace qmk::frame {

class CCorvidDialog : public toolkit::CExtResizableDialog {
 public:
  // Size of the buffer the remembered options are read into.
  static constexpr int kDialogOptionsSize = 500;

  explicit CCorvidDialog(int template_id = 0, HWND parent = nullptr);

  int m_nHelpId = -1;          // only a value above 0 becomes the current help context
  int m_nPreviousHelpId = 0;   // the context that was current before this dialog's
  std::string m_strDialogName;     // options are remembered under this name
  std::string m_strTitle;          // set as the window title when not empty
  std::string m_strDialogOptions;  // the remembered options
  bool m_bInitialised = false;     // set on entry to OnInitDialog

  // Help for this dialog: the help engine with this window as owner.
  virtual void HtmlHelp(uintptr_t data, unsigned command);

 protected:
  bool OnInitDialog() override;
  virtual void OnDestroy();
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;
};

// The name a dialog's options are remembered under when it has none of its own.
std::string DefaultDialogName(int template_id);

}  // namespace qmk::frame
