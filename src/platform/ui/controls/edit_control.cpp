// edit_control.cpp: the edit control's messages, keys, mouse and painting.
#include "platform/ui/controls/edit_control.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "platform/ui/backend.h"
#include "platform/ui/controls/clipboard.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/edit_keys.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {
namespace {

std::string Utf8(char32_t c) {
  std::string out;
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
  return out;
}

LRESULT PackPair(int lo, int hi) {
  return static_cast<LRESULT>(MAKELPARAM(static_cast<unsigned>(std::min(lo, 0xFFFF)),
                                         static_cast<unsigned>(std::min(hi, 0xFFFF))));
}

}  // namespace

void EditControl::OnCreate(const CREATESTRUCT& cs) {
  EditOptions o;
  o.multi_line = (cs.style & ES_MULTILINE) != 0;
  o.read_only = (cs.style & ES_READONLY) != 0;
  o.number_only = (cs.style & ES_NUMBER) != 0;
  o.password = (cs.style & ES_PASSWORD) != 0 && !o.multi_line;
  model_ = EditModel(o);
  if (cs.lpszName) {
    EditModel scratch(o);
    scratch.ReplaceSel(cs.lpszName, false);
    model_.SetText(o.multi_line ? scratch.text() : std::string(cs.lpszName));
  }
}

EditView EditControl::View() const {
  EditView v;
  v.font = font();
  v.line_height = LineHeight();
  // The border (WS_BORDER, WS_EX_CLIENTEDGE) is the window system's non-client frame.
  v.area = Deflate(ClientRect(), 2, model_.options().multi_line ? 1 : 0);
  uint32_t s = style();
  v.align = (s & ES_RIGHT) ? TextAlign::kRight : (s & ES_CENTER) ? TextAlign::kCenter
                                                                  : TextAlign::kLeft;
  v.password_char = password_char_;
  v.vcenter = true;
  return v;
}

LRESULT EditControl::DialogCode(LPARAM lparam) const {
  LRESULT code = DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS;
  // A multi-line edit that wants Enter keeps it from the default button.
  const MSG* msg = reinterpret_cast<const MSG*>(lparam);
  if (msg && msg->message == WM_KEYDOWN && msg->wParam == VK_RETURN &&
      model_.options().multi_line && (style() & ES_WANTRETURN)) {
    code |= DLGC_WANTMESSAGE;
  }
  return code;
}

void EditControl::Refused() const { CurrentBackend().Beep(); }

void EditControl::ScrollCaretIntoView() {
  EditView v = View();
  model_.SetVisibleLines(std::max(1, v.area.Height() / std::max(1, v.line_height)));
  model_.EnsureCaretVisible(WidthIn(v.font), v.area.Width());
}

void EditControl::Changed(const EditResult& result) {
  if (result.changed) {
    StoreWindowText(model_.text());
    ScrollCaretIntoView();
    Invalidate();
    NotifyCommand(EN_UPDATE);
    NotifyCommand(EN_CHANGE);
  }
  if (result.hit_limit) NotifyCommand(EN_MAXTEXT);
  if (!result.changed && result.refusal != EditRefusal::kNone &&
      result.refusal != EditRefusal::kNothingToDo) {
    Refused();
  }
}

bool EditControl::FitsWithoutScroll(const std::string& text) const {
  if (model_.options().multi_line || (style() & ES_AUTOHSCROLL)) return true;
  std::string next = model_.text();
  next.replace(model_.SelStart(), model_.SelEnd() - model_.SelStart(), text);
  if (model_.options().password) next.assign(next.size(), password_char_);
  return MeasureText(font(), next) <= View().area.Width();
}

void EditControl::TypeText(const std::string& utf8) {
  std::string text = utf8;
  if (style() & ES_UPPERCASE) for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  if (style() & ES_LOWERCASE) for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  // Without auto-scroll a single-line edit takes only what it can show.
  if (!FitsWithoutScroll(text)) {
    Refused();
    return;
  }
  if (text.size() == 1) {
    Changed(model_.TypeChar(text[0]));
    return;
  }
  if (model_.options().read_only) return Changed({false, EditRefusal::kReadOnly, false});
  if (model_.options().number_only) return Changed({false, EditRefusal::kNotDigit, false});
  Changed(model_.ReplaceSel(text, true));
}

LRESULT EditControl::KeyDown(unsigned vk) {
  bool shift = ShiftDown(), ctrl = ControlDown();
  EditKeyOutcome outcome = ApplyEditKey(model_, vk, shift, ctrl);
  if (outcome.handled) {
    if (outcome.moved) {
      ScrollCaretIntoView();
      Invalidate();
    }
    Changed(outcome.result);
    return 0;
  }
  // The clipboard keys go through their messages, so that a subclass sees them.
  if (vk == VK_DELETE && shift) return SendMessage(hwnd(), WM_CUT, 0, 0);
  if (vk == VK_INSERT && ctrl) return SendMessage(hwnd(), WM_COPY, 0, 0);
  if (vk == VK_INSERT && shift) return SendMessage(hwnd(), WM_PASTE, 0, 0);
  if (vk == VK_RETURN && model_.options().multi_line) TypeText("\r");
  if (!ctrl) return 0;
  switch (vk) {
    case 'C': return SendMessage(hwnd(), WM_COPY, 0, 0);
    case 'V': return SendMessage(hwnd(), WM_PASTE, 0, 0);
    case 'X': return SendMessage(hwnd(), WM_CUT, 0, 0);
    default: return 0;
  }
}

LRESULT EditControl::HandleMouse(unsigned msg, WPARAM wparam, LPARAM lparam) {
  Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
  switch (msg) {
    case WM_LBUTTONDOWN: {
      if (!focused()) SetFocus(hwnd());
      int pos = CharFromPoint(model_, View(), p);
      if (wparam & MK_SHIFT) model_.SetSel(model_.anchor(), pos);
      else model_.SetSel(pos, pos);
      dragging_ = true;
      SetCapture(hwnd());
      break;
    }
    case WM_MOUSEMOVE:
      if (!dragging_) return 0;
      model_.SetSel(model_.anchor(), CharFromPoint(model_, View(), p));
      break;
    case WM_LBUTTONUP:
      if (!dragging_) return 0;
      dragging_ = false;
      ReleaseCapture();
      return 0;
    case WM_LBUTTONDBLCLK:
      model_.SelectWordAt(CharFromPoint(model_, View(), p));
      break;
    default:
      return 0;
  }
  ScrollCaretIntoView();
  Invalidate();
  return 0;
}

void EditControl::UpdateWrap() {
  // A multi-line edit without auto-scroll wraps its lines at its width.
  bool wrap = model_.options().multi_line && !(style() & ES_AUTOHSCROLL);
  int px = wrap ? View().area.Width() : 0;
  if (px == wrap_px_ && font() == wrap_font_) return;
  wrap_px_ = px;
  wrap_font_ = font();
  model_.SetWrap(wrap ? WidthIn(font()) : TextWidth(), px);
}

LRESULT EditControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  if (msg != WM_NCDESTROY) UpdateWrap();
  bool handled = true;
  LRESULT r = HandleEditMessage(msg, wparam, lparam, &handled);
  if (handled) return r;
  switch (msg) {
    case WM_GETDLGCODE: return DialogCode(lparam);
    case WM_SETTEXT: {
      const char* text = reinterpret_cast<const char*>(lparam);
      EditModel scratch(model_.options());
      scratch.ReplaceSel(text ? text : "", false);
      model_.SetText(model_.options().multi_line ? scratch.text() : std::string(text ? text : ""));
      StoreWindowText(model_.text());
      Invalidate();
      // Setting the text tells the parent as typing does; dialogs see EN_CHANGE while they fill
      // their edits, as programs written for the platform expect.
      NotifyCommand(EN_UPDATE);
      NotifyCommand(EN_CHANGE);
      return 1;
    }
    case WM_CHAR: {
      char32_t c = static_cast<char32_t>(wparam);
      // Control keys are handled on key down; a character that comes with Ctrl held is a
      // shortcut, not text.
      if (c < 0x20 || c == 0x7F || ControlDown()) return 0;
      TypeText(Utf8(c));
      return 0;
    }
    case WM_KEYDOWN: return KeyDown(static_cast<unsigned>(wparam));
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
      return HandleMouse(msg, wparam, lparam);
    case WM_CAPTURECHANGED: dragging_ = false; return 0;
    case WM_MOUSEWHEEL:
      if (model_.options().multi_line) {
        int delta = static_cast<int16_t>(HIWORD(wparam));
        model_.ScrollLines(delta > 0 ? -3 : 3);
        Invalidate();
      }
      return 0;
    case WM_SETFOCUS:
      NotifyCommand(EN_SETFOCUS);
      return PlainControl::Handle(msg, wparam, lparam);
    case WM_KILLFOCUS:
      NotifyCommand(EN_KILLFOCUS);
      return PlainControl::Handle(msg, wparam, lparam);
    case WM_SIZE:
      ScrollCaretIntoView();
      return Default(msg, wparam, lparam);
    default: return PlainControl::Handle(msg, wparam, lparam);
  }
}

LRESULT EditControl::HandleEditMessage(unsigned msg, WPARAM wparam, LPARAM lparam,
                                       bool* handled) {
  auto line_arg = [&](WPARAM w) {
    int i = static_cast<int>(static_cast<intptr_t>(w));
    return i < 0 ? model_.LineFromChar(model_.caret()) : i;
  };
  switch (msg) {
    case EM_GETSEL:
      if (wparam) *reinterpret_cast<uint32_t*>(wparam) = static_cast<uint32_t>(model_.SelStart());
      if (lparam) *reinterpret_cast<uint32_t*>(lparam) = static_cast<uint32_t>(model_.SelEnd());
      return PackPair(model_.SelStart(), model_.SelEnd());
    case EM_SETSEL:
      model_.SetSel(static_cast<int>(static_cast<intptr_t>(wparam)), static_cast<int>(lparam));
      ScrollCaretIntoView();
      Invalidate();
      return 0;
    case EM_REPLACESEL: {
      const char* text = reinterpret_cast<const char*>(lparam);
      Changed(model_.ReplaceSel(text ? text : "", wparam != 0));
      return 0;
    }
    case EM_LIMITTEXT: model_.SetLimit(static_cast<int>(std::min<WPARAM>(wparam, 0x7FFFFFFE))); return 0;
    case EM_GETLIMITTEXT: return model_.limit();
    case EM_CANUNDO: return model_.CanUndo() ? 1 : 0;
    case EM_UNDO:
    case WM_UNDO: {
      EditResult r = model_.Undo();
      Changed(r);
      return r.changed ? 1 : 0;
    }
    case EM_EMPTYUNDOBUFFER: model_.EmptyUndo(); return 0;
    case EM_GETMODIFY: return model_.modified() ? 1 : 0;
    case EM_SETMODIFY: model_.SetModified(wparam != 0); return 0;
    case EM_GETLINECOUNT: return model_.LineCount();
    case EM_LINEINDEX: return model_.LineIndex(line_arg(wparam));
    case EM_LINEFROMCHAR: {
      int i = static_cast<int>(static_cast<intptr_t>(wparam));
      return model_.LineFromChar(i < 0 ? model_.SelStart() : i);
    }
    case EM_LINELENGTH: {
      int i = static_cast<int>(static_cast<intptr_t>(wparam));
      if (i >= 0) return model_.LineLength(model_.LineFromChar(i));
      int first = model_.LineFromChar(model_.SelStart()), last = model_.LineFromChar(model_.SelEnd());
      // The unselected characters on the lines the selection touches.
      return (model_.SelStart() - model_.LineIndex(first)) +
             (model_.LineIndex(last) + model_.LineLength(last) - model_.SelEnd());
    }
    case EM_GETLINE: {
      char* buffer = reinterpret_cast<char*>(lparam);
      if (!buffer) return 0;
      uint16_t size = 0;
      std::memcpy(&size, buffer, sizeof size);
      std::string line = model_.Line(static_cast<int>(wparam));
      size_t n = std::min<size_t>(line.size(), size);
      std::memcpy(buffer, line.data(), n);
      return static_cast<LRESULT>(n);
    }
    case EM_GETFIRSTVISIBLELINE: return model_.first_line();
    case EM_LINESCROLL: {
      model_.ScrollLines(static_cast<int>(lparam));
      model_.SetScrollX(model_.scroll_x() + static_cast<int>(static_cast<intptr_t>(wparam)) *
                                                MeasureText(font(), "x"));
      Invalidate();
      return 1;
    }
    case EM_SCROLL: {
      int page = std::max(1, View().area.Height() / std::max(1, LineHeight()));
      int by = wparam == SB_LINEUP ? -1 : wparam == SB_LINEDOWN ? 1
             : wparam == SB_PAGEUP ? -page : wparam == SB_PAGEDOWN ? page : 0;
      int moved = model_.ScrollLines(by);
      Invalidate();
      return static_cast<LRESULT>(MAKELPARAM(static_cast<unsigned>(moved), 1));
    }
    case EM_SCROLLCARET: ScrollCaretIntoView(); Invalidate(); return 1;
    case EM_SETREADONLY:
      model_.SetReadOnly(wparam != 0);
      SetStyleBits(ES_READONLY, wparam != 0);
      Invalidate();
      return 1;
    case EM_SETPASSWORDCHAR:
      password_char_ = static_cast<char>(wparam);
      model_.SetPassword(wparam != 0 && !model_.options().multi_line);
      SetStyleBits(ES_PASSWORD, wparam != 0);
      Invalidate();
      return 0;
    case EM_GETPASSWORDCHAR: return model_.options().password ? password_char_ : 0;
    case EM_POSFROMCHAR: {
      Point p = PosFromChar(model_, View(), static_cast<int>(wparam));
      return static_cast<LRESULT>(MAKELPARAM(static_cast<unsigned>(p.x), static_cast<unsigned>(p.y)));
    }
    case EM_CHARFROMPOS: {
      Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
      int pos = CharFromPoint(model_, View(), p);
      return PackPair(pos, model_.LineFromChar(pos));
    }
    case EM_GETRECT:
      if (lparam) *reinterpret_cast<Rect*>(lparam) = View().area;
      return 0;
    case WM_COPY: model_.Copy(CurrentClipboard()); return 0;
    case WM_CUT: Changed(model_.Cut(CurrentClipboard())); return 0;
    case WM_PASTE: {
      std::string text;
      if (CurrentClipboard().GetText(&text) && !FitsWithoutScroll(text)) {
        Refused();
        return 0;
      }
      Changed(model_.Paste(CurrentClipboard()));
      return 0;
    }
    case WM_CLEAR: Changed(model_.Clear()); return 0;
    default:
      *handled = false;
      return 0;
  }
}

void EditControl::Paint(Dc& dc) {
  Rect r = ClientRect();
  // A read-only or disabled edit sits on the dialog's face, as it can't be typed in.
  bool grey = !enabled() || model_.options().read_only;
  dc.FillRect(r, grey ? colors::kFace : colors::kWindow);
  bool show_selection = focused() || (style() & ES_NOHIDESEL);
  PaintEditText(dc, model_, View(), focused(), enabled(), show_selection);
}

}  // namespace qmk::platform::ui::controls
