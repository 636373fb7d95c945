// resizable_dialog.cpp: the top layer of the dialog chain.
#include "toolkit/dialogs/resizable_dialog.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/dialog_keyboard.h"
#include "toolkit/dialogs/system_menu.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
bool g_tab_across_nested = true;

bool IsKeyMessage(unsigned m) {
  return m == ui::WM_KEYDOWN || m == ui::WM_KEYUP || m == ui::WM_CHAR ||
         m == ui::WM_SYSKEYDOWN || m == ui::WM_SYSKEYUP || m == ui::WM_SYSCHAR;
}

unsigned DlgCode(ui::HWND h) {
  return static_cast<unsigned>(ui::SendMessage(h, ui::WM_GETDLGCODE, 0, 0));
}

}  // namespace

void SetTabAcrossNestedDefault(bool on) { g_tab_across_nested = on; }

CExtResizableDialog::CExtResizableDialog(int template_id, HWND parent)
    : CExtResizableDialogBase(template_id, parent) {
  m_nFlags |= kWsGripperWanted;
  if (g_tab_across_nested) m_nStateFlags |= kStateTabAcrossNested;
}

CExtResizableDialog::~CExtResizableDialog() { StopPreTranslate(); }

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

void CExtResizableDialog::StartPreTranslate() {
  if (m_nFilterId) return;
  m_nFilterId = ui::AddMessageFilter([this](ui::MSG& msg) { return PreTranslateMessage(msg); });
}

void CExtResizableDialog::StopPreTranslate() {
  if (m_nFilterId) ui::RemoveMessageFilter(m_nFilterId);
  m_nFilterId = 0;
}

bool CExtResizableDialog::PreTranslateMessage(ui::MSG& msg) {
  if (!IsKeyMessage(msg.message) || !ui::IsWindow(m_hWnd)) return false;
  if (msg.hwnd != m_hWnd && !ui::IsChild(m_hWnd, msg.hwnd)) return false;
  // A page leaves its keys to the dialog it lies in, which sees the whole Tab order.
  if (IsChildDialog() || !ui::IsWindowVisible(m_hWnd) || !ui::IsWindowEnabled(m_hWnd)) return false;
  return TranslateSystemMenu(msg) || TranslateTab(msg) || TranslateMnemonic(msg);
}

bool CExtResizableDialog::TranslateSystemMenu(const ui::MSG& msg) {
  if (SystemMenuOf(m_hWnd)) {
    // The open menu holds the keyboard: its keys work it, the rest of the key messages are lost.
    if (msg.message == ui::WM_KEYDOWN || msg.message == ui::WM_SYSKEYDOWN)
      SystemMenuKey(static_cast<unsigned>(msg.wParam));
    return true;
  }
  const bool alt_space = msg.message == ui::WM_SYSKEYDOWN && msg.wParam == ui::VK_SPACE;
  if (alt_space) {
    TrackSystemMenu(nullptr, true);
    return true;
  }
  // The character of Alt+Space, which would otherwise reach the mnemonics.
  return msg.message == ui::WM_SYSCHAR && msg.wParam == ' ';
}

bool CExtResizableDialog::TranslateTab(const ui::MSG& msg) {
  if (!(m_nStateFlags & kStateTabAcrossNested)) return false;
  const bool tab_key = (msg.message == ui::WM_KEYDOWN || msg.message == ui::WM_KEYUP) &&
                       msg.wParam == ui::VK_TAB;
  const bool tab_char = msg.message == ui::WM_CHAR && msg.wParam == '\t';
  if (!tab_key && !tab_char) return false;
  // Ctrl+Tab belongs to a tab page container (it changes pages), not to focus traversal.
  if (ui::GetKeyState(ui::VK_CONTROL) < 0) return false;
  const HWND focus = ui::GetFocus();
  if (focus && ui::IsChild(m_hWnd, focus) && (DlgCode(focus) & ui::DLGC_WANTTAB)) return false;
  if (msg.message != ui::WM_KEYDOWN) return true;  // the key-up and its character are eaten
  const bool previous = ui::GetKeyState(ui::VK_SHIFT) < 0;
  if (const HWND next = NextNestedTabStop(m_hWnd, focus, previous)) FocusAndSelect(next);
  return true;
}

bool CExtResizableDialog::TranslateMnemonic(const ui::MSG& msg) {
  if (m_hWndMnemonic) {
    // The character and the key-up of a claimed key belong to the claiming button.
    if (msg.message == ui::WM_CHAR) return true;
    if (msg.message == ui::WM_KEYUP && msg.wParam == m_nMnemonicKey) {
      const HWND button = m_hWndMnemonic;
      m_hWndMnemonic = nullptr;
      if (ui::IsWindow(button)) ui::SendMessage(button, ui::BM_CLICK, 0, 0);
      return true;
    }
  }
  if (msg.message != ui::WM_KEYDOWN) return false;
  if (ui::GetKeyState(ui::VK_CONTROL) < 0 || ui::GetKeyState(ui::VK_SHIFT) < 0) return false;
  const HWND focus = ui::GetFocus();
  if (!focus || ui::GetParent(focus) != m_hWnd || (DlgCode(focus) & ui::DLGC_WANTCHARS)) return false;
  const auto vk = static_cast<unsigned>(msg.wParam);
  const bool letter_or_digit = (vk >= 'A' && vk <= 'Z') || (vk >= '0' && vk <= '9');
  if (!letter_or_digit) return false;
  const HWND button = ClaimMnemonic(m_hWnd, static_cast<char>(vk));
  if (!button) return false;
  ui::SetFocus(button);
  m_hWndMnemonic = button;
  m_nMnemonicKey = vk;
  return true;
}

intptr_t CExtResizableDialog::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_ENTERIDLE) RunIdleUpdate();
  if (msg == ui::WM_INITDIALOG) StartPreTranslate();
  if (msg == ui::WM_DESTROY) StopPreTranslate();
  if (msg == ui::WM_SETFOCUS && ui::IsWindow(m_hWndFocusRestore) &&
      ui::IsChild(m_hWnd, m_hWndFocusRestore)) {
    ui::SetFocus(m_hWndFocusRestore);
    handled = true;
    return 0;
  }
  return CExtResizableDialogBase::WindowProc(msg, wp, lp, handled);
}

}  // namespace qmk::toolkit
