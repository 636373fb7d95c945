// modeless_info_dlg.h: CModelessInfoDlg, the modeless notice of the waits: a centred line of text
// and, where the wait can be given up, a Cancel button that only raises a flag.
#pragma once

#include <string>

#include "frame/corvid_dialog.h"
#include "frame/operator.h"

namespace qmk::frame {

// The notice's template and its label.
constexpr int kInfoDialogTemplate = 2001;
constexpr int kInfoLabelId = 2000;

// A notice of the dialog operator. It is made hidden by Create; the wait that owns it shows,
// moves, retexts and finally destroys it. Destroying the object destroys its window.
class CModelessInfoDlg : public CCorvidDialog, public Notice {
 public:
  CModelessInfoDlg(std::string text, bool show_cancel, HWND parent);
  ~CModelessInfoDlg() override;

  // Makes the window (hidden) over the parent given at construction; false when it can't.
  bool Create();

  void SetText(const std::string& text) override;
  void Show(bool visible) override;
  Rect Bounds() const override;
  void MoveTo(int x, int y) override;
  bool Cancelled() const override { return m_bCancelled; }

  HWND m_Label = nullptr;
  HWND m_Cancel = nullptr;
  bool m_bShowCancel = false;
  bool m_bCancelled = false;
  std::string m_strText;

 protected:
  bool OnInitDialog() override;
  // Cancel raises the flag and nothing else: the owner of the wait decides what follows.
  void OnCancel() override { m_bCancelled = true; }
  // The notice has no OK: Enter leaves it standing.
  void OnOK() override {}
};

}  // namespace qmk::frame
