// button_control.cpp: clicks by mouse and space bar, automatic check states and radio groups,
// dialog codes, and the plain painting of every button kind.
#include "platform/ui/controls/button_control.h"

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {

ButtonKind KindOfButtonStyle(uint32_t style) {
  switch (style & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
      return ButtonKind::kCheck;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
      return ButtonKind::kRadio;
    case BS_GROUPBOX:
      return ButtonKind::kGroupBox;
    default:
      return ButtonKind::kPush;
  }
}

bool IsAutomaticButton(uint32_t style) {
  uint32_t t = style & BS_TYPEMASK;
  return t == BS_AUTOCHECKBOX || t == BS_AUTO3STATE || t == BS_AUTORADIOBUTTON;
}

int MaxCheckState(uint32_t style) {
  uint32_t t = style & BS_TYPEMASK;
  if (t == BS_3STATE || t == BS_AUTO3STATE) return 2;
  ButtonKind k = KindOfButtonStyle(style);
  return (k == ButtonKind::kCheck || k == ButtonKind::kRadio) ? 1 : 0;
}

namespace {

// The siblings of a radio button's group: from the nearest WS_GROUP at or before it to the next
// WS_GROUP after it, as the dialog manager groups them.
std::vector<HWND> GroupOf(HWND hwnd) {
  std::vector<HWND> siblings = GetChildren(GetParent(hwnd));
  size_t at = 0;
  while (at < siblings.size() && siblings[at] != hwnd) ++at;
  if (at == siblings.size()) return {hwnd};
  auto has_group = [](HWND w) { return (GetWindowLongPtr(w, GWL_STYLE) & WS_GROUP) != 0; };
  size_t first = at;
  while (first > 0 && !has_group(siblings[first])) --first;
  size_t last = at + 1;
  while (last < siblings.size() && !has_group(siblings[last])) ++last;
  return {siblings.begin() + static_cast<std::ptrdiff_t>(first),
          siblings.begin() + static_cast<std::ptrdiff_t>(last)};
}

bool IsAutoRadio(HWND w) {
  return (GetWindowLongPtr(w, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON &&
         GetClassName(w) == kButtonClass;
}

}  // namespace

LRESULT ButtonControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_PAINT:
      if (kind() == ButtonKind::kGroupBox && !lowered_) LowerGroupBox();
      return PlainControl::Handle(msg, wparam, lparam);
    case WM_GETDLGCODE:
      return DialogCode(lparam);
    case WM_NCHITTEST:
      // A group box is a frame: clicks go to the controls inside it.
      return kind() == ButtonKind::kGroupBox ? HTTRANSPARENT : HTCLIENT;
    case WM_SETTEXT: {
      LRESULT r = Default(msg, wparam, lparam);
      Invalidate();
      return r;
    }
    case BM_GETCHECK:
      return MaxCheckState(style()) > 0 ? check_ : 0;
    case BM_SETCHECK:
      SetCheck(static_cast<int>(wparam));
      return 0;
    case BM_GETSTATE:
      return check_ | (pushed_ ? BST_PUSHED : 0) | (focused() ? BST_FOCUS : 0);
    case BM_SETSTATE:
      SetPushed(wparam != 0);
      return 0;
    case BM_SETSTYLE: {
      // The dialog manager moves the default look between push buttons this way.
      uint32_t next = (style() & ~BS_TYPEMASK) | (static_cast<uint32_t>(wparam) & BS_TYPEMASK);
      SetWindowLongPtr(hwnd(), GWL_STYLE, static_cast<intptr_t>(next));
      if (lparam) Invalidate();
      return 0;
    }
    case BM_CLICK:
      if (!enabled() || kind() == ButtonKind::kGroupBox) return 0;
      Click();
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (kind() == ButtonKind::kGroupBox) return 0;
      SetFocus(hwnd());
      SetCapture(hwnd());
      tracking_ = true;
      SetPushed(true);
      if (msg == WM_LBUTTONDBLCLK && (style() & BS_NOTIFY)) NotifyCommand(BN_DBLCLK);
      return 0;
    case WM_MOUSEMOVE:
      if (tracking_) {
        Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
        SetPushed(PtInRect(ClientRect(), p));
      }
      return 0;
    case WM_LBUTTONUP: {
      if (!tracking_) return 0;
      tracking_ = false;
      bool inside = pushed_;
      SetPushed(false);
      ReleaseCapture();
      if (inside) Click();
      return 0;
    }
    case WM_CAPTURECHANGED:
      if (tracking_) {
        tracking_ = false;
        SetPushed(false);
      }
      return 0;
    case WM_KEYDOWN:
      if (wparam == VK_SPACE && kind() != ButtonKind::kGroupBox) {
        space_down_ = true;
        SetPushed(true);
        return 0;
      }
      return Default(msg, wparam, lparam);
    case WM_KEYUP:
      if (wparam == VK_SPACE && space_down_) {
        space_down_ = false;
        SetPushed(false);
        Click();
        return 0;
      }
      return Default(msg, wparam, lparam);
    case WM_KILLFOCUS:
      if (space_down_) {
        space_down_ = false;
        SetPushed(false);
      }
      if (style() & BS_NOTIFY) NotifyCommand(BN_KILLFOCUS);
      return PlainControl::Handle(msg, wparam, lparam);
    case WM_SETFOCUS:
      if (style() & BS_NOTIFY) NotifyCommand(BN_SETFOCUS);
      return PlainControl::Handle(msg, wparam, lparam);
    default:
      return PlainControl::Handle(msg, wparam, lparam);
  }
}

void ButtonControl::LowerGroupBox() {
  // Siblings above a window hide it, and a dialog makes its group boxes before the controls
  // they frame. At its first paint, when the dialog's controls all exist, a group box goes to
  // the bottom of the z-order, so that they show; the toolkit's subclassing does the same.
  lowered_ = true;
  SetWindowPos(hwnd(), HWND_BOTTOM(), 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW);
  Rect mine;
  GetWindowRect(hwnd(), &mine);
  for (HWND sibling : GetChildren(GetParent(hwnd()))) {
    Rect theirs;
    if (sibling != hwnd() && GetWindowRect(sibling, &theirs) &&
        !IntersectRect(mine, theirs).IsEmpty()) {
      InvalidateRect(sibling, nullptr, true);
    }
  }
}

LRESULT ButtonControl::DialogCode(LPARAM lparam) const {
  (void)lparam;
  switch (kind()) {
    case ButtonKind::kPush:
      return DLGC_BUTTON | ((style() & BS_TYPEMASK) == BS_DEFPUSHBUTTON ? DLGC_DEFPUSHBUTTON
                                                                         : DLGC_UNDEFPUSHBUTTON);
    case ButtonKind::kRadio:
      return DLGC_BUTTON | DLGC_RADIOBUTTON;
    case ButtonKind::kGroupBox:
      return DLGC_STATIC;
    case ButtonKind::kCheck:
      return DLGC_BUTTON;
  }
  return DLGC_BUTTON;
}

void ButtonControl::Click() {
  uint32_t s = style();
  if (IsAutomaticButton(s)) {
    if (kind() == ButtonKind::kRadio) {
      // Checking one automatic radio button clears the others of its group.
      for (HWND other : GroupOf(hwnd())) {
        if (other != hwnd() && IsAutoRadio(other)) SendMessage(other, BM_SETCHECK, BST_UNCHECKED, 0);
      }
      SetCheck(BST_CHECKED);
    } else {
      SetCheck((check_ + 1) % (MaxCheckState(s) + 1));
    }
  }
  NotifyCommand(BN_CLICKED);
}

void ButtonControl::SetCheck(int state) {
  int max = MaxCheckState(style());
  if (max == 0) return;
  if (state < 0) state = 0;
  if (state > max) state = max;
  // A radio button is a tab stop exactly while it is checked, so a group is one tab stop.
  if (kind() == ButtonKind::kRadio) SetStyleBits(WS_TABSTOP, state != 0);
  if (state == check_) return;
  check_ = state;
  Invalidate();
}

void ButtonControl::SetPushed(bool on) {
  if (pushed_ == on) return;
  pushed_ = on;
  Invalidate();
}

unsigned ButtonControl::TextFormat(unsigned fallback_horizontal) const {
  uint32_t s = style();
  unsigned format = fallback_horizontal;
  switch (s & BS_CENTER) {
    case BS_LEFT: format = DT_LEFT; break;
    case BS_RIGHT: format = DT_RIGHT; break;
    case BS_CENTER: format = DT_CENTER; break;
    default: break;
  }
  if (s & BS_MULTILINE) return format | DT_WORDBREAK;
  switch (s & BS_VCENTER) {
    case BS_TOP: return format | DT_SINGLELINE;
    case BS_BOTTOM: return format | DT_SINGLELINE | DT_BOTTOM;
    default: return format | DT_SINGLELINE | DT_VCENTER;
  }
}

void ButtonControl::Paint(Dc& dc) {
  Rect r = ClientRect();
  // A group box paints only its frame and label: the controls inside it show through.
  if (kind() == ButtonKind::kGroupBox) {
    PaintGroupBox(dc, r);
    return;
  }
  dc.FillRect(r, colors::kFace);
  switch (kind()) {
    case ButtonKind::kPush: PaintPush(dc, r); break;
    default:
      if (style() & BS_PUSHLIKE) PaintPush(dc, r);
      else PaintCheckOrRadio(dc, r);
      break;
  }
}

void ButtonControl::PaintPush(Dc& dc, const Rect& r) {
  bool is_default = (style() & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
  bool down = pushed_ || ((style() & BS_PUSHLIKE) && check_ != 0);
  Rect face = r;
  // The default button wears a black frame round its edge.
  if (is_default) {
    dc.FrameRect(face, colors::kText);
    face = Deflate(face, 1, 1);
  }
  Rect inside = DrawEdge(dc, face, down ? Edge::kPressed : Edge::kRaised);
  Rect text = Deflate(inside, 2, 1);
  if (down) text = OffsetRect(text, 1, 1);
  DrawLabel(dc, GetWindowText(hwnd()), text, TextFormat(DT_CENTER), enabled());
  if (focused()) dc.DrawFocusRect(Deflate(inside, 1, 1));
}

void ButtonControl::PaintCheckOrRadio(Dc& dc, const Rect& r) {
  bool left_text = (style() & BS_LEFTTEXT) != 0;
  int top = r.top + (r.Height() - kGlyphSize) / 2;
  if ((style() & BS_VCENTER) == BS_TOP) top = r.top;
  if ((style() & BS_VCENTER) == BS_BOTTOM) top = r.bottom - kGlyphSize;
  int glyph_left = left_text ? r.right - kGlyphSize : r.left;
  Rect glyph{glyph_left, top, glyph_left + kGlyphSize, top + kGlyphSize};
  if (kind() == ButtonKind::kRadio) DrawRadio(dc, glyph, check_ != 0, pushed_, enabled());
  else DrawCheckBox(dc, glyph, check_, pushed_, enabled());

  Rect text = left_text ? Rect{r.left, r.top, glyph.left - 4, r.bottom}
                        : Rect{glyph.right + 4, r.top, r.right, r.bottom};
  std::string label = GetWindowText(hwnd());
  unsigned format = TextFormat(left_text ? DT_RIGHT : DT_LEFT);
  DrawLabel(dc, label, text, format, enabled());
  if (focused() && !label.empty()) {
    Rect measure = text;
    dc.DrawText(label, &measure, format | DT_CALCRECT);
    int h = measure.Height();
    int y = (format & DT_VCENTER) ? text.top + (text.Height() - h) / 2 : measure.top;
    int x = (format & DT_RIGHT) ? text.right - measure.Width() : text.left;
    dc.DrawFocusRect({x - 1, y, x + measure.Width() + 1, y + h});
  }
}

void ButtonControl::PaintGroupBox(Dc& dc, const Rect& r) {
  std::string label = GetWindowText(hwnd());
  int line_height = LineHeight();
  Rect frame{r.left, r.top + line_height / 2, r.right, r.bottom};
  DrawEdge(dc, frame, Edge::kEtched);
  if (label.empty()) return;
  Rect measure{r.left + 8, r.top, r.right - 8, r.top + line_height};
  dc.DrawText(label, &measure, DT_SINGLELINE | DT_CALCRECT);
  Rect gap{r.left + 6, r.top, r.left + 10 + measure.Width(), r.top + line_height};
  if (gap.right > r.right - 6) gap.right = r.right - 6;
  dc.FillRect(gap, colors::kFace);
  Rect text{r.left + 8, r.top, gap.right - 2, r.top + line_height};
  DrawLabel(dc, label, text, DT_SINGLELINE | DT_LEFT, enabled());
}

}  // namespace qmk::platform::ui::controls
