// res_dlg.h: CExtResDlg, the bottom of the dialog chain: a dialog object bound to a window made
// from a template that the resource manager finds, with a virtual window procedure.
#pragma once

#include <cstdint>

#include "platform/ui/dialog.h"
#include "toolkit/theme/pm_bridge.h"

namespace qmk::toolkit {

class CExtResDlg : public theme::CExtPmBridge {
 public:
  using HWND = platform::ui::HWND;
  using WPARAM = platform::ui::WPARAM;
  using LPARAM = platform::ui::LPARAM;

  explicit CExtResDlg(int template_id = 0, HWND parent = nullptr);
  ~CExtResDlg() override;

  // Runs the dialog modally with the module guard in force; the EndDialog result, or -1 when
  // the template can't be found or the dialog can't be made.
  virtual intptr_t DoModal();
  // A modeless dialog (a child page when the template has WS_CHILD); false on failure.
  bool Create(int template_id, HWND parent);
  bool DestroyWindow();

  HWND GetSafeHwnd() const { return m_hWnd; }
  int GetTemplateId() const { return m_nTemplateId; }
  bool IsChildDialog() const;
  theme::WindowHandle PmBridge_GetSafeHwnd() const override;

  // The dialog object of a window made by this class, or null.
  static CExtResDlg* FromHandle(HWND hwnd);

 protected:
  // Messages of the dialog; `handled` false lets the dialog manager's default run.
  virtual intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled);
  virtual bool OnInitDialog() { return true; }
  virtual void OnOK() { EndDialog(platform::ui::IDOK); }
  virtual void OnCancel() { EndDialog(platform::ui::IDCANCEL); }
  void EndDialog(intptr_t result);
  // Runs a dialog made from a template in memory, modally, with the module guard in force.
  intptr_t RunModalIndirect(const platform::ui::DialogTemplate& tpl);

  HWND m_hWnd = nullptr;
  HWND m_hWndParent = nullptr;
  int m_nTemplateId = 0;

 private:
  static intptr_t DialogProc(HWND hwnd, unsigned msg, WPARAM wp, LPARAM lp);
};

}  // namespace qmk::toolkit
