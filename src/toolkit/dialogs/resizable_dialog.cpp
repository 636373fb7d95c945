// resizable_dialog.cpp: the top layer of the dialog chain.
#include "toolkit/dialogs/resizable_dialog.h"

#include "platform/ui/message_loop.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
bool g_tab_across_nested = true;

}  // namespace

void SetTabAcrossNestedDefault(bool on) { g_tab_across_nested = on; }

CExtResizableDialog::CExtResizableDialog(int template_id, HWND parent)
    : CExtResizableDialogBase(template_id, parent) {
  m_nFlags |= kWsGripperWanted;
  if (g_tab_across_nested) m_nStateFlags |= kStateTabAcrossNested;
}

void CExtResizableDialog::OnOK() {
  if (!IsChildDialog()) CExtResizableDialogBase::OnOK();
}

void CExtResizableDialog::OnCancel() {
  if (!IsChildDialog()) CExtResizableDialogBase::OnCancel();
}

void CExtResizableDialog::SetIdleUpdate(bool on) {
  m_nDialogFlags = on ? (m_nDialogFlags | 1u) : (m_nDialogFlags & ~1u);
}

void CExtResizableDialog::RunIdleUpdate() {
  if (!(m_nDialogFlags & 1u) || (m_nDialogFlags & 2u)) return;
  m_nDialogFlags |= 2u;
  OnUpdateCmdUI();
  m_nDialogFlags &= ~2u;
}

intptr_t CExtResizableDialog::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_ENTERIDLE) RunIdleUpdate();
  if (msg == ui::WM_SETFOCUS && ui::IsWindow(m_hWndFocusRestore) &&
      ui::IsChild(m_hWnd, m_hWndFocusRestore)) {
    ui::SetFocus(m_hWndFocusRestore);
    handled = true;
    return 0;
  }
  return CExtResizableDialogBase::WindowProc(msg, wp, lp, handled);
}

}  // namespace qmk::toolkit
