// modeless_info_dlg.cpp: the wait notice's window: made hidden, shown over its parent by the wait.
#include "frame/modeless_info_dlg.h"

#include "platform/ui/dialog.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"

namespace qmk::frame {

namespace ui = platform::ui;

namespace {
// How long showing the notice may wait for the display server to map and draw it.
constexpr int kOnScreenLimitMs = 500;
}  // namespace

CModelessInfoDlg::CModelessInfoDlg(std::string text, bool show_cancel, HWND parent)
    : CCorvidDialog(kInfoDialogTemplate, parent), m_bShowCancel(show_cancel),
      m_strText(std::move(text)) {
  m_nHelpId = 0;  // a notice changes no help context
}

CModelessInfoDlg::~CModelessInfoDlg() {
  // Destroyed here, while this class is whole, so that the base's closing steps still run.
  DestroyWindow();
}

bool CModelessInfoDlg::Create() { return CCorvidDialog::Create(kInfoDialogTemplate, m_hWndParent); }

bool CModelessInfoDlg::OnInitDialog() {
  CCorvidDialog::OnInitDialog();
  m_Label = ui::GetDlgItem(m_hWnd, kInfoLabelId);
  m_Cancel = ui::GetDlgItem(m_hWnd, ui::IDCANCEL);
  if (!m_bShowCancel) ui::ShowWindow(m_Cancel, ui::SW_HIDE);
  // Without a text of its own the template's "Please Wait..." stands.
  if (!m_strText.empty()) ui::SetWindowText(m_Label, m_strText.c_str());
  return true;
}

void CModelessInfoDlg::SetText(const std::string& text) {
  m_strText = text;
  ui::SetWindowText(m_Label, text.c_str());
}

void CModelessInfoDlg::Show(bool visible) {
  const bool was_visible = ui::IsWindowVisible(m_hWnd);
  ui::ShowWindow(m_hWnd, visible ? ui::SW_SHOW : ui::SW_HIDE);
  if (!visible) return;
  // The connection wait pumps nothing while it stands: a notice coming up is painted and put on
  // the screen now, or a display server would show it only after the connect. One already up
  // (the lamp countdown's, retexted each second) is painted; the wait's own pumping shows it.
  if (was_visible)
    ui::UpdateWindow(m_hWnd);
  else
    ui::FlushWindowToScreen(m_hWnd, kOnScreenLimitMs);
}

Rect CModelessInfoDlg::Bounds() const {
  ui::Rect r{};
  ui::GetWindowRect(m_hWnd, &r);
  return Rect{r.left, r.top, r.right, r.bottom};
}

void CModelessInfoDlg::MoveTo(int x, int y) {
  // An owned window stays above its owner; this window system keeps no such rule by itself, so
  // the notice goes to the top, where it covers the parent it waits over.
  ui::SetWindowPos(m_hWnd, ui::HWND_TOP(), x, y, 0, 0, ui::SWP_NOSIZE | ui::SWP_NOACTIVATE);
}

}  // namespace qmk::frame
