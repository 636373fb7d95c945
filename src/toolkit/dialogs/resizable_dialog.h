// resizable_dialog.h: CExtResizableDialog, the dialog base of the library: the resource-aware
// dialog with the window size layer and the anchor layer, pages that ignore OK and Cancel, and the
// keyboard care: Tab across nested dialogs and mnemonics offered to the toolkit's buttons.
#pragma once

#include "platform/ui/messages.h"
#include "toolkit/dialogs/anchor_layer.h"
#include "toolkit/dialogs/res_dlg.h"
#include "toolkit/dialogs/window_size_layer.h"

namespace qmk::toolkit {

using CExtResizableDialogBase = CExtWA<CExtWS<CExtADLG<CExtResDlg>, 301>>;

// Bits of CExtResizableDialog::m_nStateFlags.
constexpr unsigned kStateSizeMoveLoop = 1, kStateTabAcrossNested = 2;

class CExtResizableDialog : public CExtResizableDialogBase {
 public:
  explicit CExtResizableDialog(int template_id = 0, HWND parent = nullptr);
  ~CExtResizableDialog() override;

  unsigned m_nDialogFlags = 0;  // 1 idle-update mode, 2 inside an idle update
  HWND m_hWndFocusRestore = nullptr;
  unsigned m_nStateFlags = 0;

  // Idle-update mode: after each idle pass the dialog's commands are updated once.
  void SetIdleUpdate(bool on);
  // Called once per idle pass while idle-update mode is on; not re-entered.
  virtual void OnUpdateCmdUI() {}

  // Sees the thread's messages before they are dispatched, while the window lives; true
  // swallows the message. Key messages aimed at a visible, enabled top-level dialog or its
  // children get Tab traversal (with kStateTabAcrossNested) and the mnemonic offer.
  virtual bool PreTranslateMessage(platform::ui::MSG& msg);

 protected:
  // A dialog that is a child window (a page) is never closed by Enter or Escape.
  void OnOK() override;
  void OnCancel() override;
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override;

 private:
  void RunIdleUpdate();
  void StartPreTranslate();
  void StopPreTranslate();
  bool TranslateSystemMenu(const platform::ui::MSG& msg);
  bool TranslateTab(const platform::ui::MSG& msg);
  bool TranslateMnemonic(const platform::ui::MSG& msg);

  int m_nFilterId = 0;
  HWND m_hWndMnemonic = nullptr;  // the button that claimed a key, until its key-up
  unsigned m_nMnemonicKey = 0;
};

// The default of kStateTabAcrossNested for dialogs made afterwards.
void SetTabAcrossNestedDefault(bool on);

}  // namespace qmk::toolkit
