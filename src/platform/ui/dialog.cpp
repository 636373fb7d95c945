// dialog.cpp: dialog windows: creation from templates, the dialog class's own handling, modal
// and modeless dialogs, and the helpers that read and set dialog controls.
#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <utility>

#include "platform/ui/control_messages.h"
#include "platform/ui/controls/register.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_state.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/screen.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

std::string g_last_error;

int MulDiv(int v, int num, int den) {
  const long long n = static_cast<long long>(v) * num;
  return static_cast<int>((n + (n >= 0 ? den / 2 : -(den / 2))) / den);
}

DialogState* StateOf(HWND hwnd) {
  Window* w = Find(hwnd);
  return w ? w->dialog.get() : nullptr;
}

HWND FirstTabItem(HWND dlg) { return GetNextDlgTabItem(dlg, nullptr, false); }

// What the dialog does with a message its procedure did not handle.
LRESULT DefDlgProc(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  DialogState* d = StateOf(hwnd);
  switch (msg) {
    case WM_CLOSE: {
      HWND cancel = GetDlgItem(hwnd, IDCANCEL);
      if (!cancel || IsWindowEnabled(cancel))
        Send(hwnd, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(cancel));
      return 0;
    }
    case WM_COMMAND: {
      // OK and Cancel end the dialog unless its procedure took them.
      const unsigned id = LOWORD(wparam);
      if ((id == IDOK || id == IDCANCEL) && HIWORD(wparam) == BN_CLICKED) EndDialog(hwnd, id);
      return 0;
    }
    case DM_GETDEFID:
      return d && d->def_id ? MAKELPARAM(static_cast<unsigned>(d->def_id), DC_HASDEFID) : 0;
    case DM_SETDEFID: {
      if (!d) return 0;
      const int old = d->def_id;
      d->def_id = static_cast<int>(wparam);
      HWND old_button = old ? GetDlgItem(hwnd, old) : nullptr;
      HWND new_button = GetDlgItem(hwnd, d->def_id);
      if (old_button && old_button != new_button &&
          (Send(old_button, WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON))
        Send(old_button, BM_SETSTYLE, BS_PUSHBUTTON, 1);
      if (new_button && (Send(new_button, WM_GETDLGCODE) & DLGC_UNDEFPUSHBUTTON))
        Send(new_button, BM_SETSTYLE, BS_DEFPUSHBUTTON, 1);
      return 1;
    }
    case WM_NEXTDLGCTL: {
      HWND target = lparam ? reinterpret_cast<HWND>(wparam)
                           : GetNextDlgTabItem(hwnd, GetFocus(), wparam != 0);
      if (target) SetDlgFocus(hwnd, target);
      return 0;
    }
    case WM_SETFOCUS: {
      // The dialog passes focus on to its control.
      HWND target = d && IsWindow(d->saved_focus) && IsChild(hwnd, d->saved_focus)
                        ? d->saved_focus
                        : FirstTabItem(hwnd);
      if (target && IsWindowEnabled(target)) SetFocus(target);
      return 0;
    }
    case WM_ACTIVATE:
      if (!d) break;
      if (LOWORD(wparam) == WA_INACTIVE) {
        if (IsChild(hwnd, GetFocus())) d->saved_focus = GetFocus();
      } else if (!IsChild(hwnd, GetFocus())) {
        Window* w = Find(hwnd);
        HWND target = w && IsWindow(w->saved_focus) && IsChild(hwnd, w->saved_focus)
                          ? w->saved_focus
                          : nullptr;
        if (!target && IsWindow(d->saved_focus) && IsChild(hwnd, d->saved_focus))
          target = d->saved_focus;
        if (!target) target = FirstTabItem(hwnd);
        if (target) SetDlgFocus(hwnd, target);
        else SetFocus(hwnd);
      }
      return 0;
    default:
      break;
  }
  return DefWindowProc(hwnd, msg, wparam, lparam);
}

// Answers of these messages are the procedure's return value itself, not DWLP_MSGRESULT.
bool ReturnsDirectly(unsigned msg) {
  return msg == WM_INITDIALOG || (msg >= WM_CTLCOLOREDIT && msg <= WM_CTLCOLORSTATIC);
}

LRESULT DialogWndProc(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_NCCREATE) {
    const auto* cs = reinterpret_cast<const CREATESTRUCT*>(lparam);
    Window* w = Find(hwnd);
    auto* state = cs ? static_cast<DialogState*>(cs->lpCreateParams) : nullptr;
    if (w && state && !state->adopted) {
      state->adopted = true;
      w->dialog.reset(state);
    }
    return DefWindowProc(hwnd, msg, wparam, lparam);
  }
  DialogState* d = StateOf(hwnd);
  if (msg == WM_NCDESTROY && d && d->script) StopDialogScript(std::exchange(d->script, 0));
  if (d && d->proc) {
    d->msg_result = 0;
    const intptr_t handled = d->proc(hwnd, msg, wparam, lparam);
    if (handled) {
      if (ReturnsDirectly(msg)) return handled;
      d = StateOf(hwnd);
      return d ? d->msg_result : 0;
    }
  }
  return DefDlgProc(hwnd, msg, wparam, lparam);
}

// Where a dialog goes: its template position from the owner's corner, or centred (DS_CENTER),
// and always inside the work area of its monitor.
Rect PlaceDialog(const DialogTemplate& tpl, HWND owner, int width, int height, Size base) {
  Rect owner_rect{};
  const bool have_owner = owner && GetWindowRect(owner, &owner_rect) && IsWindowVisible(owner);
  const Monitor mon = have_owner ? MonitorFromWindow(owner) : PrimaryMonitor();
  int x = MulDiv(tpl.x, base.cx, 4), y = MulDiv(tpl.y, base.cy, 8);
  if (tpl.style & DS_CENTER) {
    const Rect around = have_owner ? owner_rect : mon.work;
    x = around.left + (around.Width() - width) / 2;
    y = around.top + (around.Height() - height) / 2;
  } else if (have_owner) {
    x += owner_rect.left;
    y += owner_rect.top;
  }
  x = std::max(mon.work.left, std::min(x, mon.work.right - width));
  y = std::max(mon.work.top, std::min(y, mon.work.bottom - height));
  return {x, y, x + width, y + height};
}

HWND CreateFromTemplate(const DialogTemplate& tpl, HWND owner, DLGPROC proc, LPARAM init,
                        int template_id, bool modal) {
  RegisterSystemClasses();
  g_last_error.clear();
  const Monitor mon = owner ? MonitorFromWindow(owner) : PrimaryMonitor();
  LOGFONT lf;
  lf.face = tpl.font_face;
  lf.height = PointsToPixels(tpl.font_points, mon.dpi);
  auto* state = new DialogState;
  state->proc = proc;
  state->template_id = template_id ? template_id : tpl.id;
  state->modal = modal;
  state->font = CreateFontIndirect(lf);
  state->base_units = GetFontBaseUnits(state->font);
  const Size base = state->base_units;
  const int width = MulDiv(tpl.cx, base.cx, 4), height = MulDiv(tpl.cy, base.cy, 8);

  const bool child = (tpl.style & WS_CHILD) != 0;
  Rect r = child ? Rect{MulDiv(tpl.x, base.cx, 4), MulDiv(tpl.y, base.cy, 8), 0, 0}
                 : PlaceDialog(tpl, owner, width, height, base);
  const HWND dlg = CreateWindowEx(tpl.ex_style | WS_EX_CONTROLPARENT, kDialogClass,
                                  tpl.caption.c_str(), tpl.style & ~WS_VISIBLE, r.left, r.top,
                                  width, height, owner, 0, state);
  if (!state->adopted) delete state;
  if (!dlg) {
    g_last_error = "the dialog window cannot be created";
    return nullptr;
  }
  HFONT font = StateOf(dlg) ? StateOf(dlg)->font : nullptr;
  Send(dlg, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
  for (const DialogItemTemplate& item : tpl.items) {
    const uint32_t style = item.style | WS_CHILD | WS_VISIBLE;
    const HWND ctrl = CreateWindowEx(
        item.ex_style, item.class_name.c_str(), item.text.c_str(), style,
        MulDiv(item.x, base.cx, 4), MulDiv(item.y, base.cy, 8), MulDiv(item.cx, base.cx, 4),
        MulDiv(item.cy, base.cy, 8), dlg, item.id, nullptr);
    if (!ctrl) {
      g_last_error = "no window class \"" + item.class_name + "\" for control " +
                     std::to_string(item.id);
      if (GetClassInfo(item.class_name.c_str(), nullptr))
        g_last_error = "control " + std::to_string(item.id) + " refused to be created";
      Trace("dialog %d: %s", template_id, g_last_error.c_str());
      DestroyWindow(dlg);
      return nullptr;
    }
    Send(ctrl, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
    // The first control that calls itself the default push button is the dialog's default.
    DialogState* d = StateOf(dlg);
    if (d && !d->def_id && (Send(ctrl, WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON)) d->def_id = item.id;
  }
  const HWND first = FirstTabItem(dlg);
  if (Send(dlg, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), init) && first && IsWindow(first))
    SetDlgFocus(dlg, first);
  if (!IsWindow(dlg)) {
    g_last_error = "the dialog closed itself while it was made";
    return nullptr;
  }
  if ((tpl.style & WS_VISIBLE) && !modal) ShowWindow(dlg, SW_SHOW);
  // A modeless window of its own plays its script from now until it is destroyed.
  if (!modal && !child)
    if (DialogState* d = StateOf(dlg)) d->script = StartDialogScript(dlg, d->template_id);
  return dlg;
}

bool LoadTemplate(int template_id, DialogTemplate* tpl) {
  const auto text = FindTemplateText(template_id, DialogLanguage());
  if (!text) {
    g_last_error = "template " + std::to_string(template_id) + " not found";
    return false;
  }
  TemplateError error;
  if (!ParseDialogTemplate(*text, tpl, &error)) {
    g_last_error = "template " + std::to_string(template_id) + ", line " +
                   std::to_string(error.line) + ": " + error.message;
    Trace("%s", g_last_error.c_str());
    return false;
  }
  return true;
}

}  // namespace

void RegisterSystemClasses() {
  static bool done = false;
  if (done) return;
  done = true;
  WNDCLASS wc;
  wc.lpszClassName = kDialogClass;
  wc.lpfnWndProc = DialogWndProc;
  wc.style = CS_DBLCLKS;
  RegisterClass(wc);
  // The plain controls are there before the first window, so templates can name them.
  RegisterPlainControls();
}

std::string LastDialogError() { return g_last_error; }

HWND CreateDialogIndirectParam(const DialogTemplate& tpl, HWND owner, DLGPROC proc, LPARAM init,
                               int template_id) {
  return CreateFromTemplate(tpl, owner, proc, init, template_id, false);
}

HWND CreateDialogParam(int template_id, HWND owner, DLGPROC proc, LPARAM init) {
  DialogTemplate tpl;
  if (!LoadTemplate(template_id, &tpl)) return nullptr;
  return CreateFromTemplate(tpl, owner, proc, init, template_id, false);
}

intptr_t DialogBoxIndirectParam(const DialogTemplate& tpl, HWND owner, DLGPROC proc, LPARAM init,
                                int template_id) {
  Window* ow = Find(owner);
  Window* owner_top = ow ? TopLevelOf(ow) : nullptr;
  const HWND owner_handle = owner_top ? owner_top->handle : nullptr;
  const HWND dlg = CreateFromTemplate(tpl, owner_handle, proc, init, template_id, true);
  if (!dlg) return -1;
  // The owner takes no input while its modal dialog is up.
  const bool disable_owner = owner_handle && IsWindowEnabled(owner_handle) &&
                             !NativeWindowId(owner_handle);
  if (disable_owner) EnableWindow(owner_handle, false);
  DialogState* d = StateOf(dlg);
  if (d && !d->ended) ShowWindow(dlg, SW_SHOW);
  const int script = StartDialogScript(dlg, template_id ? template_id : tpl.id);
  if (!RunModalLoop(dlg, [dlg] {
        DialogState* s = StateOf(dlg);
        return !s || s->ended;
      }))
    g_last_error = "the dialog's loop ended on a quit message";
  StopDialogScript(script);
  d = StateOf(dlg);
  const intptr_t result = d && d->ended ? d->result : -1;
  if (disable_owner && IsWindow(owner_handle)) EnableWindow(owner_handle, true);
  if (IsWindow(dlg)) {
    // The owner becomes active again before the dialog goes, so focus returns to it.
    if (disable_owner && GetActiveWindow() == dlg) SetActiveWindow(owner_handle);
    DestroyWindow(dlg);
  }
  return result;
}

intptr_t DialogBoxParam(int template_id, HWND owner, DLGPROC proc, LPARAM init) {
  DialogTemplate tpl;
  if (!LoadTemplate(template_id, &tpl)) return -1;
  return DialogBoxIndirectParam(tpl, owner, proc, init, template_id);
}

bool EndDialog(HWND dlg, intptr_t result) {
  DialogState* d = StateOf(dlg);
  if (!d) return false;
  d->result = result;
  d->ended = true;
  if (d->modal)
    PostMessage(dlg, WM_NULL, 0, 0);  // wakes the modal loop to see the end
  else
    ShowWindow(dlg, SW_HIDE);
  return true;
}

int GetDialogTemplateId(HWND dlg) {
  DialogState* d = StateOf(dlg);
  return d ? d->template_id : 0;
}

void SetDialogResult(HWND dlg, LRESULT result) {
  if (DialogState* d = StateOf(dlg)) d->msg_result = result;
}

// ---- Controls --------------------------------------------------------------------------------
HWND GetDlgItem(HWND dlg, int id) {
  for (HWND c : GetChildren(dlg))
    if (GetDlgCtrlID(c) == id) return c;
  return nullptr;
}

bool SetDlgItemText(HWND dlg, int id, const char* text) {
  HWND c = GetDlgItem(dlg, id);
  return c && SetWindowText(c, text);
}

std::string GetDlgItemText(HWND dlg, int id) { return GetWindowText(GetDlgItem(dlg, id)); }

bool SetDlgItemInt(HWND dlg, int id, int value, bool is_signed) {
  const std::string text = is_signed ? std::to_string(value)
                                     : std::to_string(static_cast<unsigned>(value));
  return SetDlgItemText(dlg, id, text.c_str());
}

int GetDlgItemInt(HWND dlg, int id, bool* ok, bool is_signed) {
  if (ok) *ok = false;
  HWND c = GetDlgItem(dlg, id);
  if (!c) return 0;
  std::string text = GetWindowText(c);
  size_t i = 0;
  while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
  bool negative = false;
  if (i < text.size() && text[i] == '-' && is_signed) {
    negative = true;
    ++i;
  }
  size_t digits = 0;
  long long v = 0;
  for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i, ++digits) {
    v = v * 10 + (text[i] - '0');
    if (v > 0xFFFFFFFFll) return 0;
  }
  while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
  if (!digits || i != text.size()) return 0;
  if (negative) v = -v;
  if (is_signed ? (v < INT_MIN || v > INT_MAX) : v > 0xFFFFFFFFll) return 0;
  if (ok) *ok = true;
  return static_cast<int>(static_cast<int64_t>(v));
}

LRESULT SendDlgItemMessage(HWND dlg, int id, unsigned msg, WPARAM wparam, LPARAM lparam) {
  return Send(GetDlgItem(dlg, id), msg, wparam, lparam);
}

bool CheckDlgButton(HWND dlg, int id, unsigned check) {
  HWND c = GetDlgItem(dlg, id);
  if (!c) return false;
  Send(c, BM_SETCHECK, check, 0);
  return true;
}

unsigned IsDlgButtonChecked(HWND dlg, int id) {
  return static_cast<unsigned>(SendDlgItemMessage(dlg, id, BM_GETCHECK, 0, 0));
}

bool CheckRadioButton(HWND dlg, int first, int last, int check) {
  bool found = false;
  for (HWND c : GetChildren(dlg)) {
    const int id = GetDlgCtrlID(c);
    if (id < first || id > last) continue;
    Send(c, BM_SETCHECK, id == check ? BST_CHECKED : BST_UNCHECKED, 0);
    found |= id == check;
  }
  return found;
}

// ---- Units -----------------------------------------------------------------------------------
int DialogUnitsToPixelsX(int du, int base_x) { return MulDiv(du, base_x, 4); }
int DialogUnitsToPixelsY(int du, int base_y) { return MulDiv(du, base_y, 8); }

Size GetDialogBaseUnits(HWND dlg) {
  if (DialogState* d = StateOf(dlg)) return d->base_units;
  return GetFontBaseUnits(GetStockGuiFont());
}

bool MapDialogRect(HWND dlg, Rect* r) {
  if (!r || !StateOf(dlg)) return false;
  const Size b = GetDialogBaseUnits(dlg);
  *r = {DialogUnitsToPixelsX(r->left, b.cx), DialogUnitsToPixelsY(r->top, b.cy),
        DialogUnitsToPixelsX(r->right, b.cx), DialogUnitsToPixelsY(r->bottom, b.cy)};
  return true;
}

}  // namespace qmk::platform::ui
