// corvid_dialog.cpp: the steps every dialog of the library takes when it opens and closes.
#include "frame/corvid_dialog.h"

#include <cstdio>
#include <mutex>
#include <vector>

#include "frame/corvid_app.h"
#include "frame/help.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"
#include "qmk/QmkGen.h"
#include "toolkit/dialogs/subclass_controls.h"

namespace qmk::frame {
namespace {

namespace ui = platform::ui;

int GetRect(QMK_HWND window, int rect[4]) {
  ui::Rect rc{};
  if (!ui::GetWindowRect(window, &rc)) return 0;
  rect[0] = rc.left;
  rect[1] = rc.top;
  rect[2] = rc.right;
  rect[3] = rc.bottom;
  return 1;
}

void SetRect(QMK_HWND window, const int rect[4]) {
  if (rect[2] <= rect[0] || rect[3] <= rect[1]) return;
  ui::MoveWindow(window, rect[0], rect[1], rect[2] - rect[0], rect[3] - rect[1], true);
}

// The common services move remembered windows through the window system of this library.
void InstallWindowHooks() {
  static std::once_flag once;
  std::call_once(once, [] {
    GenWindowHooks hooks{};
    hooks.size = sizeof hooks;
    hooks.get_rect = GetRect;
    hooks.set_rect = SetRect;
    GenSetWindowHooks(&hooks);
  });
}

}  // namespace

std::string DefaultDialogName(int template_id) {
  char name[32];
  std::snprintf(name, sizeof name, "Dialog box %d", template_id);
  return name;
}

CCorvidDialog::CCorvidDialog(int template_id, HWND parent)
    : CExtResizableDialog(template_id, parent) {
  InstallWindowHooks();
}

bool CCorvidDialog::OnInitDialog() {
  m_bInitialised = true;
  CExtResizableDialog::OnInitDialog();
  // Templates are found by number here, so a dialog without a name is named by its number.
  if (m_strDialogName.empty()) m_strDialogName = DefaultDialogName(m_nTemplateId);
  std::vector<char> buffer(kDialogOptionsSize, '\0');
  GenGetDialogOpts(m_hWnd, m_strDialogName.c_str(), buffer.data(), kDialogOptionsSize);
  m_strDialogOptions = buffer.data();
  if (m_nHelpId > 0) m_nPreviousHelpId = GenSetHelpId(m_nHelpId);
  toolkit::SubclassChildControls(m_hWnd);
  if (!m_strTitle.empty()) ui::SetWindowText(m_hWnd, m_strTitle.c_str());
  return true;
}

void CCorvidDialog::OnDestroy() {
  GenSetDialogOpts(m_hWnd, m_strDialogName.c_str(), m_strDialogOptions.c_str());
  // Swapping back keeps the pair swappable, so nested dialogs unwind like a stack.
  if (m_nHelpId > 0) m_nPreviousHelpId = GenSetHelpId(m_nPreviousHelpId);
}

void CCorvidDialog::HtmlHelp(uintptr_t, unsigned command) {
  ShowHelp(m_hWnd, TheApp(), static_cast<int>(command));
}

intptr_t CCorvidDialog::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_DESTROY) OnDestroy();
  return CExtResizableDialog::WindowProc(msg, wp, lp, handled);
}

}  // namespace qmk::frame
