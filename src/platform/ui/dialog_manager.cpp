// dialog_manager.cpp: keyboard navigation in dialogs: Tab and Shift+Tab over tab stops, arrow
// keys within groups, Enter and Escape, and mnemonics.
#include <cctype>

#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_state.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

bool Usable(HWND h) { return IsWindowVisible(h) && IsWindowEnabled(h); }

uint32_t StyleOf(HWND h) { return static_cast<uint32_t>(GetWindowLongPtr(h, GWL_STYLE)); }

void Collect(HWND parent, std::vector<HWND>* out) {
  for (HWND c : GetChildren(parent)) {
    const auto ex = static_cast<uint32_t>(GetWindowLongPtr(c, GWL_EXSTYLE));
    if ((ex & WS_EX_CONTROLPARENT) && Usable(c))
      Collect(c, out);
    else
      out->push_back(c);
  }
}

// Does the label carry the mnemonic `ch` ("&x", case-insensitive; "&&" is a plain '&')?
bool HasMnemonic(const std::string& text, char32_t ch) {
  if (ch >= 0x80) return false;
  const int want = std::tolower(static_cast<int>(ch));
  for (size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != '&') continue;
    if (text[i + 1] == '&') {
      ++i;
      continue;
    }
    return std::tolower(static_cast<unsigned char>(text[i + 1])) == want;
  }
  return false;
}

unsigned DlgCode(HWND h, const MSG* msg = nullptr) {
  return static_cast<unsigned>(Send(h, WM_GETDLGCODE, msg ? msg->wParam : 0,
                                    reinterpret_cast<LPARAM>(msg)));
}

bool Mnemonic(HWND dlg, char32_t ch) {
  const std::vector<HWND> controls = DialogControls(dlg);
  if (controls.empty()) return false;
  size_t start = 0;
  for (size_t i = 0; i < controls.size(); ++i)
    if (controls[i] == GetFocus()) start = i + 1;
  for (size_t n = 0; n < controls.size(); ++n) {
    const HWND c = controls[(start + n) % controls.size()];
    if (!IsWindowVisible(c)) continue;
    const unsigned code = DlgCode(c);
    if ((code & DLGC_STATIC) && (StyleOf(c) & SS_NOPREFIX) &&
        GetClassName(c) == kStaticClass)
      continue;
    if (!HasMnemonic(GetWindowText(c), ch)) continue;
    if (code & DLGC_STATIC) {
      // A label gives focus to the control after it.
      HWND next = GetNextDlgTabItem(dlg, c, false);
      if (next) SetDlgFocus(dlg, next);
      return true;
    }
    if (!IsWindowEnabled(c)) continue;
    if (code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) {
      Send(c, BM_CLICK);
    } else if (code & DLGC_BUTTON) {
      SetFocus(c);
      Send(c, BM_CLICK);
    } else {
      SetDlgFocus(dlg, c);
    }
    return true;
  }
  return false;
}

// The command a dialog's Enter key gives: the focused push button, else the default button,
// else OK.
int EnterCommand(HWND dlg, HWND focus, unsigned focus_code) {
  if (focus && (focus_code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)))
    return GetDlgCtrlID(focus);
  const LRESULT r = Send(dlg, DM_GETDEFID);
  return HIWORD(static_cast<uintptr_t>(r)) == DC_HASDEFID ? LOWORD(static_cast<uintptr_t>(r))
                                                          : IDOK;
}

void PressCommand(HWND dlg, int id) {
  HWND ctl = GetDlgItem(dlg, id);
  if (ctl && !IsWindowEnabled(ctl)) {
    if (BackendStarted()) TheBackend().Beep();
    return;
  }
  Send(dlg, WM_COMMAND, MAKEWPARAM(static_cast<unsigned>(id), BN_CLICKED),
       reinterpret_cast<LPARAM>(ctl));
}

bool KeyDown(HWND dlg, MSG* msg, unsigned code) {
  const HWND focus = IsChild(dlg, GetFocus()) ? GetFocus() : nullptr;
  switch (msg->wParam) {
    case VK_TAB: {
      if (code & DLGC_WANTTAB) return false;
      const HWND next = GetNextDlgTabItem(dlg, focus, GetKeyState(VK_SHIFT) < 0);
      if (next) SetDlgFocus(dlg, next);
      return true;
    }
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN: {
      if (code & DLGC_WANTARROWS) return false;
      if (!focus) return true;
      const bool previous = msg->wParam == VK_LEFT || msg->wParam == VK_UP;
      const HWND next = GetNextDlgGroupItem(dlg, focus, previous);
      if (next && next != focus) {
        SetFocus(next);
        // Moving onto a radio button chooses it.
        if (DlgCode(next) & DLGC_RADIOBUTTON) Send(next, BM_CLICK);
      }
      return true;
    }
    case VK_RETURN:
      PressCommand(dlg, EnterCommand(dlg, focus, focus ? DlgCode(focus) : 0));
      return true;
    case VK_ESCAPE:
      PressCommand(dlg, IDCANCEL);
      return true;
    default:
      return false;
  }
}

}  // namespace

std::vector<HWND> DialogControls(HWND dlg) {
  std::vector<HWND> out;
  Collect(dlg, &out);
  return out;
}

void SetDlgFocus(HWND dlg, HWND ctrl) {
  (void)dlg;
  if (DlgCode(ctrl) & DLGC_HASSETSEL) Send(ctrl, EM_SETSEL, 0, -1);
  SetFocus(ctrl);
}

HWND GetNextDlgTabItem(HWND dlg, HWND from, bool previous) {
  const std::vector<HWND> controls = DialogControls(dlg);
  const int n = static_cast<int>(controls.size());
  if (!n) return nullptr;
  int at = -1;
  for (int i = 0; i < n; ++i)
    if (controls[static_cast<size_t>(i)] == from) at = i;
  if (at < 0) at = previous ? 0 : n - 1;
  for (int step = 1; step <= n; ++step) {
    const int i = ((at + (previous ? -step : step)) % n + n) % n;
    const HWND c = controls[static_cast<size_t>(i)];
    if ((StyleOf(c) & WS_TABSTOP) && Usable(c)) return c;
  }
  return from && IsChild(dlg, from) ? from : nullptr;
}

HWND GetNextDlgGroupItem(HWND dlg, HWND from, bool previous) {
  const std::vector<HWND> controls = DialogControls(dlg);
  const int n = static_cast<int>(controls.size());
  int at = -1;
  for (int i = 0; i < n; ++i)
    if (controls[static_cast<size_t>(i)] == from) at = i;
  if (at < 0) return nullptr;
  // The group runs from the control with WS_GROUP at or before `from` to the next one.
  int first = at;
  while (first > 0 && !(StyleOf(controls[static_cast<size_t>(first)]) & WS_GROUP)) --first;
  int last = at + 1;
  while (last < n && !(StyleOf(controls[static_cast<size_t>(last)]) & WS_GROUP)) ++last;
  const int size = last - first;
  for (int step = 1; step < size; ++step) {
    const int i = first + ((at - first + (previous ? -step : step)) % size + size) % size;
    const HWND c = controls[static_cast<size_t>(i)];
    if (Usable(c)) return c;
  }
  return from;
}

bool IsDialogMessage(HWND dlg, MSG* msg) {
  if (!msg || !IsWindow(dlg)) return false;
  if (msg->hwnd != dlg && !IsChild(dlg, msg->hwnd)) return false;
  const unsigned m = msg->message;
  if (m != WM_KEYDOWN && m != WM_CHAR && m != WM_SYSCHAR) return false;
  const unsigned code = DlgCode(msg->hwnd, msg);
  if (code & DLGC_WANTMESSAGE) return false;
  if (m == WM_KEYDOWN) return KeyDown(dlg, msg, code);
  if (m == WM_SYSCHAR) return Mnemonic(dlg, static_cast<char32_t>(msg->wParam));
  // The characters of keys the dialog manager took are dropped with them.
  const auto ch = static_cast<char32_t>(msg->wParam);
  if (ch == '\t') return !(code & DLGC_WANTTAB);
  if (ch == '\r' || ch == 27) return true;
  if (code & DLGC_WANTCHARS) return false;
  return Mnemonic(dlg, ch);
}

bool RouteDialogMessage(MSG* msg) {
  Window* w = Find(msg->hwnd);
  if (!w) return false;
  Window* top = TopLevelOf(w);
  if (!top->dialog) return false;
  return IsDialogMessage(top->handle, msg);
}

}  // namespace qmk::platform::ui
