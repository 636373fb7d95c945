// combo_box_control.cpp: the combo box's messages, keys, mouse, its drop-down pop-up, and its
// painting.
#include "platform/ui/controls/combo_box_control.h"

#include <algorithm>
#include <cstring>

#include "platform/ui/controls/clipboard.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/edit_keys.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {

ComboBoxControl::~ComboBoxControl() {
  if (popup_ && IsWindow(popup_)) DestroyWindow(popup_);
}

void ComboBoxControl::OnCreate(const CREATESTRUCT& cs) {
  ComboKind kind = ComboKind::kDropDownList;
  switch (cs.style & CBS_TYPEMASK) {
    case CBS_SIMPLE: kind = ComboKind::kSimple; break;
    case CBS_DROPDOWN: kind = ComboKind::kDropDown; break;
    default: break;
  }
  model_ = ComboBoxModel(kind, (cs.style & CBS_SORT) != 0);
  dropped_height_ = cs.cy;
  if (cs.lpszName) model_.SetText(cs.lpszName);
}

int ComboBoxControl::ItemHeight() const { return item_height_ > 0 ? item_height_ : LineHeight(); }
int ComboBoxControl::FieldHeight() const { return LineHeight() + 8; }

Rect ComboBoxControl::FieldRect() const {
  Rect r = ClientRect();
  return {r.left, r.top, r.right, r.top + std::min(FieldHeight(), r.Height())};
}

Rect ComboBoxControl::ButtonRect() const {
  if (model_.kind() == ComboKind::kSimple) return {};
  Rect inner = Deflate(FieldRect(), 2, 2);
  return {std::max(inner.left, inner.right - kScrollBarSize), inner.top, inner.right, inner.bottom};
}

EditView ComboBoxControl::View() const {
  EditView v;
  v.font = font();
  v.line_height = LineHeight();
  Rect inner = Deflate(FieldRect(), 2, 2);
  if (model_.kind() != ComboKind::kSimple) inner.right = ButtonRect().left;
  v.area = Deflate(inner, 2, 0);
  v.vcenter = true;
  return v;
}

void ComboBoxControl::LayoutSimpleList() {
  Rect r = ClientRect();
  Rect list{r.left, FieldRect().bottom, r.right, r.bottom};
  pane_.Layout(Deflate(list, 2, 2), ItemHeight(), true);
}

void ComboBoxControl::Tell(const ComboNotices& notices) {
  StoreWindowText(model_.Text());
  Invalidate();
  if (popup_) InvalidateRect(popup_, nullptr, false);
  for (unsigned code : notices) {
    if (code == CBN_DROPDOWN) {
      // The parent hears of the drop before the list shows, so it can fill it.
      NotifyCommand(code);
      PlacePopup();
      continue;
    }
    if (code == CBN_CLOSEUP && popup_) {
      ShowWindow(popup_, SW_HIDE);
      if (GetCapture() == hwnd()) ReleaseCapture();
    }
    NotifyCommand(code);
  }
}

void ComboBoxControl::PlacePopup() {
  if (!model_.dropped()) return;
  if (!popup_) {
    HWND top = GetAncestor(hwnd(), GA_ROOT);
    popup_ = CreateWindowEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, kComboListClass, "",
                            WS_POPUP, 0, 0, 10, 10, top, 0, hwnd());
    if (!popup_) return;
    SendMessage(popup_, WM_SETFONT, reinterpret_cast<WPARAM>(font()), 0);
  }
  Rect field = FieldRect();
  Point corner{field.left, field.bottom};
  ClientToScreen(hwnd(), &corner);
  int height = PopupRows() * ItemHeight() + 2;
  SetWindowPos(popup_, HWND_TOP(), corner.x, corner.y, field.Width(), height,
               SWP_NOACTIVATE | SWP_SHOWWINDOW);
  pane_.Layout(Deflate({0, 0, field.Width(), height}, 1, 1), ItemHeight(), true);
  InvalidateRect(popup_, nullptr, false);
  SetCapture(hwnd());
}

int ComboBoxControl::PopupRows() const {
  // The list shows as many rows as the template's height allows, at least one, no more than
  // it has.
  int rows = std::max(1, (dropped_height_ - FieldHeight() - 2) / ItemHeight());
  return std::min(rows, std::max(1, model_.list().Count()));
}

void ComboBoxControl::SetDropped(bool show) { Tell(model_.ShowDropDown(show)); }

void ComboBoxControl::PickFromPopup(int index) { Tell(model_.PickWithMouse(index)); }

LRESULT ComboBoxControl::DialogCode(LPARAM lparam) const {
  LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
  if (model_.HasEdit()) code |= DLGC_HASSETSEL;
  // While the list is open, Enter and Escape close it instead of ending the dialog.
  const MSG* msg = reinterpret_cast<const MSG*>(lparam);
  if (msg && msg->message == WM_KEYDOWN && model_.dropped() &&
      (msg->wParam == VK_RETURN || msg->wParam == VK_ESCAPE)) {
    code |= DLGC_WANTMESSAGE;
  }
  return code;
}

void ComboBoxControl::EditClipboard(unsigned vk) {
  EditModel& edit = model_.edit();
  bool shift = ShiftDown(), ctrl = ControlDown();
  EditResult r;
  if ((ctrl && vk == 'C') || (ctrl && vk == VK_INSERT)) {
    edit.Copy(CurrentClipboard());
    return;
  }
  if ((ctrl && vk == 'X') || (shift && vk == VK_DELETE)) r = edit.Cut(CurrentClipboard());
  else if ((ctrl && vk == 'V') || (shift && vk == VK_INSERT)) r = edit.Paste(CurrentClipboard());
  if (r.changed) Tell(model_.AfterEditChange());
}

LRESULT ComboBoxControl::KeyDown(unsigned vk, bool alt) {
  bool drop_kind = model_.kind() != ComboKind::kSimple;
  if (drop_kind && (vk == VK_F4 || (alt && (vk == VK_DOWN || vk == VK_UP)))) {
    SetDropped(!model_.dropped());
    return 0;
  }
  if (vk == VK_RETURN) { Tell(model_.KeyEnter()); return 0; }
  if (vk == VK_ESCAPE) { Tell(model_.KeyEscape()); return 0; }
  switch (vk) {
    case VK_UP: Tell(model_.KeyMove(ListMove::kUp)); return 0;
    case VK_DOWN: Tell(model_.KeyMove(ListMove::kDown)); return 0;
    case VK_PRIOR: Tell(model_.KeyMove(ListMove::kPageUp)); return 0;
    case VK_NEXT: Tell(model_.KeyMove(ListMove::kPageDown)); return 0;
    default: break;
  }
  if (!model_.HasEdit()) {
    // A drop-down list has no caret: the other arrows and Home and End choose too.
    switch (vk) {
      case VK_LEFT: Tell(model_.KeyMove(ListMove::kUp)); return 0;
      case VK_RIGHT: Tell(model_.KeyMove(ListMove::kDown)); return 0;
      case VK_HOME: Tell(model_.KeyMove(ListMove::kHome)); return 0;
      case VK_END: Tell(model_.KeyMove(ListMove::kEnd)); return 0;
      default: return 0;
    }
  }
  EditKeyOutcome outcome = ApplyEditKey(model_.edit(), vk, ShiftDown(), ControlDown());
  if (outcome.result.changed) {
    Tell(model_.AfterEditChange());
  } else if (outcome.handled) {
    Invalidate();
  } else {
    EditClipboard(vk);
  }
  return 0;
}

LRESULT ComboBoxControl::HandleMouse(unsigned msg, WPARAM wparam, LPARAM lparam) {
  (void)wparam;
  Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
  // While dropped the combo holds the capture: points over the pop-up go to the list.
  Point in_popup = p;
  bool over_popup = false;
  if (popup_ && model_.dropped()) {
    MapWindowPoints(hwnd(), popup_, &in_popup, 1);
    Rect pr;
    GetClientRect(popup_, &pr);
    over_popup = PtInRect(pr, in_popup);
  }
  switch (msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      if (over_popup) {
        scrolling_list_ = pane_.ScrollBarDown(in_popup);
        if (scrolling_list_) InvalidateRect(popup_, nullptr, false);
        return 0;
      }
      if (model_.dropped() && !PtInRect(FieldRect(), p)) {
        Tell(model_.Dismiss());
        return 0;
      }
      if (!focused()) SetFocus(hwnd());
      if (model_.kind() == ComboKind::kSimple && !PtInRect(FieldRect(), p)) {
        LayoutSimpleList();
        if (pane_.ScrollBarDown(p)) { scrolling_list_ = true; Invalidate(); return 0; }
        int index = pane_.ItemFromPoint(p);
        if (index >= 0) Tell(model_.PickWithMouse(index));
        return 0;
      }
      // The button, or anywhere on a drop-down list's field, opens and closes the list.
      if (PtInRect(ButtonRect(), p) || (!model_.HasEdit() && model_.kind() != ComboKind::kSimple)) {
        button_down_ = true;
        SetDropped(!model_.dropped());
        return 0;
      }
      if (model_.HasEdit()) {
        EditView v = View();
        int pos = CharFromPoint(model_.edit(), v, p);
        if (msg == WM_LBUTTONDBLCLK) model_.edit().SelectWordAt(pos);
        else model_.edit().SetSel(pos, pos);
        selecting_text_ = true;
        SetCapture(hwnd());
        Invalidate();
      }
      return 0;
    }
    case WM_MOUSEMOVE:
      if (scrolling_list_) {
        pane_.ScrollBarDrag(model_.kind() == ComboKind::kSimple ? p : in_popup);
        Invalidate();
        if (popup_) InvalidateRect(popup_, nullptr, false);
      } else if (selecting_text_) {
        model_.edit().SetSel(model_.edit().anchor(), CharFromPoint(model_.edit(), View(), p));
        Invalidate();
      }
      return 0;
    case WM_LBUTTONUP: {
      if (scrolling_list_) {
        scrolling_list_ = false;
        pane_.ScrollBarUp();
        Invalidate();
        if (popup_) InvalidateRect(popup_, nullptr, false);
        return 0;
      }
      if (selecting_text_) {
        selecting_text_ = false;
        ReleaseCapture();
        return 0;
      }
      bool was_button = button_down_;
      button_down_ = false;
      // Releasing over an item after pressing the button picks it, as a drag-through does.
      if (over_popup) {
        int index = pane_.ItemFromPoint(in_popup);
        if (index >= 0) Tell(model_.PickWithMouse(index));
      } else if (!was_button && model_.dropped() && !PtInRect(FieldRect(), p)) {
        Tell(model_.Dismiss());
      }
      Invalidate();
      return 0;
    }
    default:
      return 0;
  }
}

LRESULT ComboBoxControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  // The list keeps the number of rows it will show, so that a selection made while it is
  // closed scrolls it as the open list will need.
  if (model_.kind() != ComboKind::kSimple) model_.list().SetVisibleRows(PopupRows());
  bool handled = true;
  LRESULT r = HandleComboMessage(msg, wparam, lparam, &handled);
  if (handled) return r;
  switch (msg) {
    case WM_CREATE: {
      // A drop-down combo's window is its field; the template's height is the dropped list's.
      if (model_.kind() != ComboKind::kSimple) {
        Rect w;
        GetWindowRect(hwnd(), &w);
        SetWindowPos(hwnd(), HWND_TOP(), 0, 0, w.Width(), FieldHeight(),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
      }
      StoreWindowText(model_.Text());
      return Default(msg, wparam, lparam);
    }
    case WM_WINDOWPOSCHANGING: {
      auto* pos = reinterpret_cast<WINDOWPOS*>(lparam);
      if (pos && model_.kind() != ComboKind::kSimple && !(pos->flags & SWP_NOSIZE) &&
          pos->cy != FieldHeight()) {
        dropped_height_ = pos->cy;
        pos->cy = FieldHeight();
      }
      return Default(msg, wparam, lparam);
    }
    case WM_GETDLGCODE: return DialogCode(lparam);
    case WM_SETTEXT: {
      const char* text = reinterpret_cast<const char*>(lparam);
      model_.SetText(text ? text : "");
      StoreWindowText(model_.Text());
      Invalidate();
      if (!model_.HasEdit() && model_.CurSel() < 0 && text && *text) return CB_ERR;
      return 1;
    }
    case WM_KEYDOWN: return KeyDown(static_cast<unsigned>(wparam), false);
    case WM_SYSKEYDOWN:
      if (wparam == VK_DOWN || wparam == VK_UP) return KeyDown(static_cast<unsigned>(wparam), true);
      return Default(msg, wparam, lparam);
    case WM_CHAR: {
      unsigned c = static_cast<unsigned>(wparam);
      if (c < 0x20 || c >= 0x7F || ControlDown()) return 0;
      Tell(model_.KeyChar(static_cast<char>(c)));
      return 0;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
      return HandleMouse(msg, wparam, lparam);
    case WM_MOUSEWHEEL:
      if (model_.dropped() || model_.kind() == ComboKind::kSimple) {
        pane_.Wheel(static_cast<int16_t>(HIWORD(wparam)));
        Invalidate();
        if (popup_) InvalidateRect(popup_, nullptr, false);
      } else {
        Tell(model_.KeyMove(static_cast<int16_t>(HIWORD(wparam)) > 0 ? ListMove::kUp : ListMove::kDown));
      }
      return 0;
    case WM_CAPTURECHANGED:
      selecting_text_ = false;
      scrolling_list_ = false;
      button_down_ = false;
      return 0;
    case WM_SETFOCUS:
      NotifyCommand(CBN_SETFOCUS);
      return PlainControl::Handle(msg, wparam, lparam);
    case WM_KILLFOCUS:
      Tell(model_.Dismiss());
      NotifyCommand(CBN_KILLFOCUS);
      return PlainControl::Handle(msg, wparam, lparam);
    case WM_SIZE:
      if (model_.kind() == ComboKind::kSimple) LayoutSimpleList();
      return Default(msg, wparam, lparam);
    default:
      return PlainControl::Handle(msg, wparam, lparam);
  }
}

LRESULT ComboBoxControl::HandleComboMessage(unsigned msg, WPARAM wparam, LPARAM lparam,
                                            bool* handled) {
  ListBoxModel& list = model_.list();
  const int index = static_cast<int>(static_cast<intptr_t>(wparam));
  const char* text = reinterpret_cast<const char*>(lparam);
  auto repaint = [&](LRESULT result) {
    Invalidate();
    if (popup_) InvalidateRect(popup_, nullptr, false);
    return result;
  };
  switch (msg) {
    case CB_ADDSTRING: return repaint(list.AddString(text ? text : ""));
    case CB_INSERTSTRING: return repaint(list.InsertString(index, text ? text : ""));
    case CB_DELETESTRING: {
      LRESULT left = model_.DeleteString(index);
      StoreWindowText(model_.Text());
      return repaint(left);
    }
    case CB_RESETCONTENT:
      model_.ResetContent();
      StoreWindowText(model_.Text());
      return repaint(CB_OKAY);
    case CB_GETCOUNT: return list.Count();
    case CB_GETCURSEL: return model_.CurSel();
    case CB_SETCURSEL: {
      LRESULT result = model_.SetCurSel(index);
      StoreWindowText(model_.Text());
      return repaint(result);
    }
    case CB_SELECTSTRING: {
      LRESULT result = model_.SelectString(index, text ? text : "");
      StoreWindowText(model_.Text());
      return repaint(result);
    }
    case CB_GETLBTEXT: {
      if (index < 0 || index >= list.Count()) return CB_ERR;
      std::string t = list.Text(index);
      if (text) std::memcpy(reinterpret_cast<char*>(lparam), t.c_str(), t.size() + 1);
      return static_cast<LRESULT>(t.size());
    }
    case CB_GETLBTEXTLEN: return list.TextLength(index);
    case CB_FINDSTRING: return list.FindString(index, text ? text : "");
    case CB_FINDSTRINGEXACT: return list.FindStringExact(index, text ? text : "");
    case CB_GETITEMDATA: return list.ItemData(index);
    case CB_SETITEMDATA: return list.SetItemData(index, lparam) ? CB_OKAY : CB_ERR;
    case CB_SHOWDROPDOWN: SetDropped(wparam != 0); return 1;
    case CB_GETDROPPEDSTATE: return model_.dropped() ? 1 : 0;
    case CB_GETEDITSEL: {
      if (!model_.HasEdit()) return CB_ERR;
      const EditModel& e = model_.edit();
      if (wparam) *reinterpret_cast<uint32_t*>(wparam) = static_cast<uint32_t>(e.SelStart());
      if (lparam) *reinterpret_cast<uint32_t*>(lparam) = static_cast<uint32_t>(e.SelEnd());
      return static_cast<LRESULT>(MAKELPARAM(static_cast<unsigned>(e.SelStart()), static_cast<unsigned>(e.SelEnd())));
    }
    case CB_SETEDITSEL:
      if (!model_.HasEdit()) return CB_ERR;
      model_.edit().SetSel(static_cast<int16_t>(LOWORD(static_cast<uintptr_t>(lparam))),
                           static_cast<int16_t>(HIWORD(static_cast<uintptr_t>(lparam))));
      return repaint(1);
    case CB_LIMITTEXT:
      if (!model_.HasEdit()) return CB_ERR;
      model_.edit().SetLimit(static_cast<int>(std::min<WPARAM>(wparam, 0x7FFFFFFE)));
      return 1;
    case CB_GETITEMHEIGHT: return index == -1 ? FieldHeight() : ItemHeight();
    case CB_SETITEMHEIGHT:
      if (lparam <= 0 || lparam > 255) return CB_ERR;
      if (index != -1) item_height_ = static_cast<int>(lparam);
      return repaint(CB_OKAY);
    case CB_GETDROPPEDCONTROLRECT: {
      if (!lparam) return CB_ERR;
      Rect w;
      GetWindowRect(hwnd(), &w);
      w.bottom = w.top + std::max(dropped_height_, FieldHeight());
      *reinterpret_cast<Rect*>(lparam) = w;
      return 1;
    }
    case CB_GETTOPINDEX: return list.top_index();
    case CB_SETTOPINDEX:
      if (index < 0 || index >= list.Count()) return CB_ERR;
      list.SetTopIndex(index);
      return repaint(CB_OKAY);
    default:
      *handled = false;
      return 0;
  }
}

void ComboBoxControl::Paint(Dc& dc) {
  Rect client = ClientRect();
  dc.FillRect(client, colors::kFace);
  Rect field = FieldRect();
  bool grey = !enabled();
  dc.FillRect(field, grey ? colors::kFace : colors::kWindow);
  DrawEdge(dc, field, Edge::kSunken);
  if (model_.kind() != ComboKind::kSimple) {
    DrawArrowButton(dc, ButtonRect(), Arrow::kDown, button_down_ && model_.dropped(), enabled());
  }
  EditView v = View();
  if (model_.HasEdit()) {
    PaintEditText(dc, model_.edit(), v, focused(), enabled(), focused());
  } else {
    // A focused drop-down list shows its choice highlighted.
    Rect text_area = Deflate(v.area, -1, 2);
    bool hot = focused() && !model_.dropped();
    if (hot) dc.FillRect(text_area, colors::kSelection);
    DrawLabel(dc, model_.Text(), Deflate(text_area, 1, 0),
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_LEFT, enabled(),
              hot ? colors::kSelectionText : colors::kText);
    if (focused()) dc.DrawFocusRect(text_area);
  }
  if (model_.kind() == ComboKind::kSimple) {
    LayoutSimpleList();
    Rect list{client.left, field.bottom, client.right, client.bottom};
    if (!list.IsEmpty()) {
      dc.FillRect(list, colors::kWindow);
      DrawEdge(dc, list, Edge::kSunken);
      pane_.Paint(dc, false, enabled());
    }
  }
}

void ComboBoxControl::PaintPopup(Dc& dc, const Rect& client) {
  dc.FillRect(client, colors::kWindow);
  dc.FrameRect(client, colors::kText);
  pane_.Paint(dc, false, true);
}

// ---- the pop-up list ----

void ComboListPopup::OnCreate(const CREATESTRUCT& cs) {
  combo_ = static_cast<HWND>(cs.lpCreateParams);
}

ComboBoxControl* ComboListPopup::Combo() const {
  return combo_ && IsWindow(combo_) ? ControlOf<ComboBoxControl>(combo_) : nullptr;
}

LRESULT ComboListPopup::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE: {
      // Without the combo's capture (a back end that sends clicks here), hand them over in
      // the combo's coordinates.
      if (!combo_ || !IsWindow(combo_)) return 0;
      Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
      MapWindowPoints(hwnd(), combo_, &p, 1);
      return SendMessage(combo_, msg, wparam,
                         MAKELPARAM(static_cast<unsigned>(p.x), static_cast<unsigned>(p.y)));
    }
    default:
      return PlainControl::Handle(msg, wparam, lparam);
  }
}

void ComboListPopup::Paint(Dc& dc) {
  if (ComboBoxControl* combo = Combo()) combo->PaintPopup(dc, ClientRect());
}

}  // namespace qmk::platform::ui::controls
