// msg_box.cpp: the message box: remembered answers, its controls and their layout, the
// countdown timer, its keys, and the Copy and Help actions.
#include "toolkit/dialogs/msg_box.h"

#include <algorithm>
#include <cstdio>

#include "platform/ui/control_messages.h"
#include "platform/ui/controls/clipboard.h"
#include "platform/ui/dialog.h"
#include "platform/ui/paint.h"
#include "platform/ui/screen.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/label_text.h"
#include "toolkit/dialogs/resource_manager.h"
#include "toolkit/dialogs/resource_manager_holder.h"
#include "toolkit/dialogs/subclass_controls.h"
#include "toolkit/dialogs/system_menu.h"
#include "toolkit/dialogs/themed_paint.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;

constexpr int kTextId = kMsgBoxTextId;
constexpr unsigned kVkCancel = 0x03;  // Ctrl+Break
constexpr int kScrollBarWidth = 17;

constexpr int kIconSide = 32;
constexpr uint32_t kBoxStyle = 0x96C800C4u, kBoxStyleSystemModal = 0x96C800C6u;

std::string& ApplicationName() {
  static std::string name = "QmkScan";
  return name;
}

MsgBoxHelpHandler& HelpHandler() {
  static MsgBoxHelpHandler handler;
  return handler;
}

}  // namespace

void SetMsgBoxHelpHandler(MsgBoxHelpHandler handler) { HelpHandler() = std::move(handler); }

void SetMsgBoxApplicationName(std::string name) { ApplicationName() = std::move(name); }

CExtMsgBox::CExtMsgBox(HWND parent, std::string text, std::string caption, uint32_t style,
                       int help_id, std::string unique_name, uint32_t ex_style)
    : CExtResizableDialog(0, parent),
      m_strCaption(std::move(caption)),
      m_strText(std::move(text)),
      m_nStyle(style),
      m_nExtendedStyle(ex_style),
      m_nHelpId(help_id) {
  m_strUniqueId = MsgBoxUniqueId(unique_name, help_id, m_strText);
  m_buttons = MakeMsgBoxButtons(style, ex_style);
  m_nDefaultButton = m_buttons.default_id;
  m_nEscapeButton = m_buttons.escape_id;
  m_nFlags &= ~kWsGripperWanted;  // a message box has a fixed frame
}

void CExtMsgBox::SetTimer(int seconds, bool disable) {
  m_nTimerSeconds = std::max(0, seconds);
  m_bDisableWhileTimer = disable;
}

intptr_t CExtMsgBox::DoModal() {
  if (HasCheckBox()) {
    const int stored = ReadDialogProfileInt(kMbProfileSection, m_strUniqueId, -1);
    if (stored != -1) return stored;
  }
  ui::DialogTemplate tpl;
  tpl.style = (m_nStyle & kMbSystemModal) ? kBoxStyleSystemModal : kBoxStyle;
  if (ResourceManager()->IsRightToLeftLanguage()) tpl.ex_style |= ui::WS_EX_LAYOUTRTL;
  if (m_nStyle & kMbTopmost) tpl.ex_style |= ui::WS_EX_TOPMOST;
  tpl.id = kMsgBoxTemplateId;
  tpl.caption = m_strCaption;
  tpl.cx = 100;
  tpl.cy = 40;
  if (!ui::IsWindow(m_hWndParent)) m_hWndParent = nullptr;
  return RunModalIndirect(tpl);
}

bool CExtMsgBox::IsOwnButton(int id) const {
  return std::any_of(m_buttons.buttons.begin(), m_buttons.buttons.end(),
                     [id](const MsgBoxButton& b) { return b.id == id; });
}

void CExtMsgBox::CreateControls() {
  const ui::HFONT font = reinterpret_cast<ui::HFONT>(ui::SendMessage(m_hWnd, ui::WM_GETFONT, 0, 0));
  auto make = [&](const char* cls, const std::string& text, uint32_t style, int id) {
    HWND h = ui::CreateWindowEx(0, cls, text.c_str(), ui::WS_CHILD | ui::WS_VISIBLE | style, 0, 0,
                                10, 10, m_hWnd, id, nullptr);
    if (h) ui::SendMessage(h, ui::WM_SETFONT, reinterpret_cast<ui::WPARAM>(font), 0);
    return h;
  };
  if (TextScrolls()) {
    // A long text reads in a read-only edit that scrolls, and can be selected and copied.
    const uint32_t bar = (m_nExtendedStyle & kMbExScrollBar) ? ui::WS_VSCROLL : 0u;
    make("Edit", m_strText,
         ui::ES_MULTILINE | ui::ES_READONLY | ui::ES_AUTOVSCROLL | ui::WS_TABSTOP | bar, kTextId);
  } else {
    make("Static", m_strText, ui::SS_LEFT | ui::SS_NOPREFIX | kSsEditControl, kTextId);
  }
  for (const MsgBoxButton& b : m_buttons.buttons) {
    const uint32_t kind = b.id == m_nDefaultButton ? ui::BS_DEFPUSHBUTTON : ui::BS_PUSHBUTTON;
    make("Button", b.text, kind | ui::WS_TABSTOP, b.id);
  }
  if (HasCheckBox()) {
    const std::string text = (m_nStyle & kMbCheckDontDisplay)
                                 ? "Don't display this &message again."
                                 : "Don't ask this &question again.";
    make("Button", text, ui::BS_AUTOCHECKBOX | ui::WS_TABSTOP, kMbCheckBoxId);
  }
}

void CExtMsgBox::Layout() {
  const ui::Size base = ui::GetDialogBaseUnits(m_hWnd);
  auto px = [&](int du) { return ui::DialogUnitsToPixelsX(du, base.cx); };
  auto py = [&](int du) { return ui::DialogUnitsToPixelsY(du, base.cy); };
  const Metrics& m = m_metrics;
  const ui::HFONT font = reinterpret_cast<ui::HFONT>(ui::SendMessage(m_hWnd, ui::WM_GETFONT, 0, 0));
  const bool has_icon = HasIcon();
  const int icon_w = has_icon ? kIconSide + px(m.gap) : 0;

  // The text may take half the screen plus 100 pixels, less the icon and the borders.
  const int limit = std::max(px(m.min_text_width), ui::PrimaryMonitor().bounds.Width() / 2 + 100 -
                                                       icon_w - 2 * px(m.border_x));
  // The text is measured as the label (or the edit) wraps it at the limit, so that every row
  // it draws has its room.
  const HWND text_wnd = ui::GetDlgItem(m_hWnd, kTextId);
  const LabelTextLayout text = TextScrolls() ? LayOutText(font, m_strText, limit, true, true)
                                             : LayOutLabelText(text_wnd, limit);
  int text_w = std::max(px(m.min_text_width), text.Width() + 1);
  int text_h = text.Height();
  text_h = std::max(text_h, has_icon ? kIconSide : 0);
  if (TextScrolls()) {
    // The edit's scroll bar takes its own width; the height stays between the minimum text
    // height and half the work area, and the rest scrolls.
    text_w += theme::g_PaintManager().GetPM()->UiScale(kScrollBarWidth, 0);
    const int most = std::max(py(m.min_text_height), ui::PrimaryMonitor().work.Height() / 2);
    text_h = std::clamp(text_h, py(m.min_text_height), most);
  }

  int button_w = px(m.min_button_width);
  for (const MsgBoxButton& b : m_buttons.buttons)
    button_w = std::max(button_w, ui::GetTextExtent(font, b.text).cx + px(8));
  const int n = static_cast<int>(m_buttons.buttons.size());
  const int row_w = n * button_w + (n - 1) * px(m.gap);
  const int content_w = std::max(icon_w + text_w, row_w);
  const int client_w = content_w + 2 * px(m.border_x);

  int y = py(m.border_y);
  m_rcIcon = has_icon ? ui::Rect{px(m.border_x), y, px(m.border_x) + kIconSide, y + kIconSide}
                      : ui::Rect{};
  ui::MoveWindow(text_wnd, px(m.border_x) + icon_w, y, text_w, text_h, false);
  y += text_h + py(m.gap);
  int x = (client_w - row_w) / 2;
  for (const MsgBoxButton& b : m_buttons.buttons) {
    ui::MoveWindow(ui::GetDlgItem(m_hWnd, b.id), x, y, button_w, py(m.button_height) + 2, false);
    x += button_w + px(m.gap);
  }
  y += py(m.button_height) + 2 + py(m.border_y);
  if (HWND check = ui::GetDlgItem(m_hWnd, kMbCheckBoxId)) {
    y += py(m.check_gap);
    ui::MoveWindow(check, px(m.check_margin), y, client_w - 2 * px(m.check_margin),
                   py(m.check_height), false);
    y += py(m.check_height) + py(m.check_margin);
  }
  ui::Rect whole, client;
  ui::GetWindowRect(m_hWnd, &whole);
  ui::GetClientRect(m_hWnd, &client);
  const int cx = client_w + whole.Width() - client.Width();
  const int cy = y + whole.Height() - client.Height();
  ui::Rect around = m_hWndParent ? ui::Rect{} : ui::PrimaryMonitor().work;
  if (m_hWndParent) ui::GetWindowRect(m_hWndParent, &around);
  ui::SetWindowPos(m_hWnd, nullptr, around.left + (around.Width() - cx) / 2,
                   around.top + (around.Height() - cy) / 2, cx, cy,
                   ui::SWP_NOZORDER | ui::SWP_NOACTIVATE);
}

bool CExtMsgBox::OnInitDialog() {
  ui::SetWindowText(m_hWnd, m_strCaption.c_str());
  CreateControls();
  // Buttons, check box and text become toolkit controls before the layout measures them, so
  // that every part of the box is drawn by the theme over the theme's background.
  SubclassChildControls(m_hWnd);
  Layout();
  if (!(m_nStyle & kMbNoBeep)) ui::MessageBeep(m_nStyle & kMbIconMask);
  if (m_nStyle & kMbForeground) ui::SetActiveWindow(m_hWnd);
  if (m_nTimerSeconds > 0) {
    m_nSecondsLeft = m_nTimerSeconds;
    m_bWaiting = m_bDisableWhileTimer;
    if (m_bWaiting) SetButtonsEnabled(false);
    m_nTimerHandle = ui::SetTimer(m_hWnd, kMsgBoxTimerId, 1000, nullptr);
    ShowCountdown();
  }
  if (HWND def = ui::GetDlgItem(m_hWnd, m_nDefaultButton); def && !m_bWaiting) ui::SetFocus(def);
  CExtResizableDialog::OnInitDialog();
  return false;  // the focus is set
}

void CExtMsgBox::PaintBody(ui::Dc* dc) {
  ui::Rect client;
  if (!ui::GetClientRect(m_hWnd, &client)) return;
  const ui::Rect icon = m_rcIcon;
  const int icon_bits = static_cast<int>(m_nStyle & kMbIconMask);
  // An icon of the box's own stands in for the system's icon of the icon bits.
  const int theme_icon = m_hIcon ? 0 : icon_bits;
  PaintThemed(dc, client, [&](platform::DrawTarget& t, const platform::DrawRect& r) {
    auto* pm = theme::g_PaintManager().GetPM();
    pm->PaintDialogBackground(t, r);
    pm->PaintMessageBox(t, r, icon, theme_icon);
  });
  if (m_hIcon && dc) ui::controls::DrawIcon(*dc, m_hIcon, icon, false);
}

void CExtMsgBox::ReleaseIcon() {
  if (m_hIcon) ui::controls::DestroyIcon(m_hIcon);
  m_hIcon = nullptr;
}

void CExtMsgBox::CopyText() { ui::controls::CurrentClipboard().SetText(m_strText); }

void CExtMsgBox::OnHelp() {
  if (HelpHandler()) return HelpHandler()(m_hWnd, m_nHelpId);
  const HWND owner = ui::GetParent(m_hWnd);
  if (owner) ui::SendMessage(owner, kMsgBoxHelpMessage, static_cast<WPARAM>(m_nHelpId), 0);
}

void CExtMsgBox::SetButtonsEnabled(bool on) {
  for (const MsgBoxButton& b : m_buttons.buttons) ui::EnableWindow(ui::GetDlgItem(m_hWnd, b.id), on);
  if (HWND check = ui::GetDlgItem(m_hWnd, kMbCheckBoxId)) ui::EnableWindow(check, on);
}

void CExtMsgBox::ShowCountdown() {
  const HWND def = ui::GetDlgItem(m_hWnd, m_nDefaultButton);
  const std::string caption = MsgBoxButtonText(m_nDefaultButton);
  if (m_nSecondsLeft <= 0) {
    ui::SetWindowText(def, caption.c_str());
    return;
  }
  char text[160];
  std::snprintf(text, sizeof text, "%s = %d", caption.c_str(), m_nSecondsLeft);
  ui::SetWindowText(def, text);
}

void CExtMsgBox::OnTimerTick() {
  if (--m_nSecondsLeft > 0) return ShowCountdown();
  ui::KillTimer(m_hWnd, kMsgBoxTimerId);
  m_nTimerHandle = 0;
  ShowCountdown();
  if (!m_bWaiting) return EndWith(m_nDefaultButton);
  m_bWaiting = false;
  SetButtonsEnabled(true);
  if (HWND def = ui::GetDlgItem(m_hWnd, m_nDefaultButton)) ui::SetFocus(def);
}

void CExtMsgBox::EndWith(int id) {
  if (HasCheckBox() && ui::IsDlgButtonChecked(m_hWnd, kMbCheckBoxId) == 1)
    WriteDialogProfileString(kMbProfileSection, m_strUniqueId, std::to_string(id));
  if (m_nTimerHandle) ui::KillTimer(m_hWnd, kMsgBoxTimerId);
  m_nTimerHandle = 0;
  ReleaseIcon();
  ui::EndDialog(m_hWnd, id);
}

bool CExtMsgBox::PreTranslateMessage(ui::MSG& msg) {
  const bool ours = ui::IsWindow(m_hWnd) && (msg.hwnd == m_hWnd || ui::IsChild(m_hWnd, msg.hwnd));
  const bool key = msg.message == ui::WM_KEYDOWN || msg.message == ui::WM_KEYUP ||
                   msg.message == ui::WM_CHAR || msg.message == ui::WM_SYSKEYDOWN ||
                   msg.message == ui::WM_SYSCHAR;
  if (ours && key && m_bWaiting) return true;  // the disabled wait loses every key
  if (SystemMenuOf(m_hWnd)) return CExtResizableDialog::PreTranslateMessage(msg);  // its keys
  if (ours && msg.message == ui::WM_KEYDOWN && OnKey(static_cast<unsigned>(msg.wParam))) return true;
  return CExtResizableDialog::PreTranslateMessage(msg);
}

bool CExtMsgBox::OnKey(unsigned vk) {
  if (m_bWaiting) return true;
  const bool ctrl = ui::GetKeyState(ui::VK_CONTROL) < 0;
  if (ctrl && (vk == 'C' || vk == ui::VK_INSERT)) {
    if (m_nExtendedStyle & kMbExNoKeyboardCopy) return false;
    CopyText();
    return true;
  }
  if (vk == ui::VK_F1 && !ctrl) {
    if (!(m_nExtendedStyle & kMbExHelpByF1)) return false;
    OnHelp();
    return true;
  }
  if (vk == ui::VK_RETURN) {
    const HWND focus = ui::GetFocus();
    const int id = ui::GetDlgCtrlID(focus);
    const bool own = ui::GetParent(focus) == m_hWnd && IsOwnButton(id);
    // Copy and Help act and leave the box up, by Enter as by a click.
    if (own && id == kMbCopyButtonId) return CopyText(), true;
    if (own && id == kMbHelpButtonId) return OnHelp(), true;
    if (own) m_nDefaultButton = id;
    EndWith(m_nDefaultButton);
    return true;
  }
  if (vk == ui::VK_ESCAPE || (ctrl && vk == kVkCancel)) {
    if (m_nEscapeButton != -1) EndWith(m_nEscapeButton);
    return true;
  }
  return false;
}

intptr_t CExtMsgBox::WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) {
  if (msg == ui::WM_TIMER && wp == kMsgBoxTimerId) {
    handled = true;
    OnTimerTick();
    return 0;
  }
  if (msg == ui::WM_COMMAND) {
    const int id = static_cast<int>(wp & 0xFFFF);
    handled = true;
    if (m_bWaiting) return 0;
    if (id == kMbCopyButtonId && IsOwnButton(id)) {
      CopyText();
    } else if (id == kMbHelpButtonId && IsOwnButton(id)) {
      OnHelp();
    } else if (IsOwnButton(id)) {
      // Enter reaches here as the default button's command: the focused button wins.
      EndWith(id);
    } else if (id == ui::IDCANCEL && !IsOwnButton(ui::IDCANCEL)) {
      // Escape and the close box: only a box with an escape button ends.
      if (m_nEscapeButton != -1) EndWith(m_nEscapeButton);
    } else if (id != kMbCheckBoxId && id != kTextId) {
      handled = false;
    }
    return 0;
  }
  if (msg == ui::WM_ERASEBKGND) {
    handled = true;
    PaintBody(reinterpret_cast<ui::Dc*>(wp));
    return 1;
  }
  if (msg == ui::WM_CLOSE) {
    // The close box is greyed when there is no escape button; a close that still comes (a
    // window manager, a host without a person) ends the box with IDCANCEL rather than hang it.
    handled = true;
    if (m_nEscapeButton != -1) EndWith(m_nEscapeButton);
    else ui::EndDialog(m_hWnd, ui::IDCANCEL);
    return 0;
  }
  if (msg == ui::WM_KEYDOWN && OnKey(static_cast<unsigned>(wp))) {
    handled = true;
    return 0;
  }
  return CExtResizableDialog::WindowProc(msg, wp, lp, handled);
}

int ExtMsgBox(ui::HWND parent, const char* text, const char* caption, uint32_t style,
              int help_id, const char* unique_name, uint32_t ex_style, int timer_seconds,
              bool disable_while_timer, ui::controls::HICON icon) {
  ui::ReleaseCapture();
  CExtMsgBox box(parent, text ? text : "", caption ? caption : ApplicationName(), style, help_id,
                 unique_name ? unique_name : "", ex_style);
  if (timer_seconds > 0) box.SetTimer(timer_seconds, disable_while_timer);
  box.SetIcon(icon);
  return static_cast<int>(box.DoModal());
}

}  // namespace qmk::toolkit
