// list_box_control.cpp: the list box's messages, keys, mouse and painting.
#include "platform/ui/controls/list_box_control.h"

#include <algorithm>
#include <cstring>

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {

void ListBoxControl::OnCreate(const CREATESTRUCT& cs) {
  ListBoxOptions o;
  o.sorted = (cs.style & LBS_SORT) != 0;
  o.multiple = (cs.style & LBS_MULTIPLESEL) != 0;
  o.extended = (cs.style & LBS_EXTENDEDSEL) != 0 && !o.multiple;
  model_ = ListBoxModel(o);
}

void ListBoxControl::Relayout() {
  // The border (WS_BORDER, WS_EX_CLIENTEDGE) is the window system's non-client frame.
  pane_.Layout(ClientRect(), item_height_ > 0 ? item_height_ : LineHeight(), (style() & WS_VSCROLL) != 0,
               (style() & LBS_DISABLENOSCROLL) != 0);
}

void ListBoxControl::UserChanged(bool selection_changed) {
  Invalidate();
  if (selection_changed && (style() & LBS_NOTIFY)) NotifyCommand(LBN_SELCHANGE);
}

LRESULT ListBoxControl::KeyDown(unsigned vk) {
  ListMove move;
  switch (vk) {
    case VK_UP: case VK_LEFT: move = ListMove::kUp; break;
    case VK_DOWN: case VK_RIGHT: move = ListMove::kDown; break;
    case VK_PRIOR: move = ListMove::kPageUp; break;
    case VK_NEXT: move = ListMove::kPageDown; break;
    case VK_HOME: move = ListMove::kHome; break;
    case VK_END: move = ListMove::kEnd; break;
    case VK_SPACE: UserChanged(model_.ToggleCaret()); return 0;
    default: return 0;
  }
  Relayout();
  UserChanged(model_.KeyMove(move, ShiftDown()));
  return 0;
}

LRESULT ListBoxControl::HandleMouse(unsigned msg, WPARAM wparam, LPARAM lparam) {
  Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
  switch (msg) {
    case WM_LBUTTONDOWN: {
      if (!focused()) SetFocus(hwnd());
      SetCapture(hwnd());
      if (pane_.ScrollBarDown(p)) {
        Invalidate();
        return 0;
      }
      int index = pane_.ItemFromPoint(p);
      if (index < 0) return 0;
      dragging_ = true;
      UserChanged(model_.Click(index, (wparam & MK_CONTROL) != 0, (wparam & MK_SHIFT) != 0));
      return 0;
    }
    case WM_MOUSEMOVE:
      if (pane_.dragging_scroll()) {
        pane_.ScrollBarDrag(p);
        Invalidate();
      } else if (dragging_ && !model_.options().multiple) {
        // Dragging a single or extended selection follows the mouse, scrolling at the edges.
        int index = pane_.NearestItem(p);
        if (index >= 0 && index != model_.caret()) {
          UserChanged(model_.options().extended ? model_.Click(index, false, true)
                                                : model_.Click(index, false, false));
        }
      }
      return 0;
    case WM_LBUTTONUP:
      pane_.ScrollBarUp();
      dragging_ = false;
      ReleaseCapture();
      Invalidate();
      return 0;
    case WM_LBUTTONDBLCLK:
      if (pane_.ItemFromPoint(p) >= 0 && (style() & LBS_NOTIFY)) NotifyCommand(LBN_DBLCLK);
      return 0;
    default:
      return 0;
  }
}

LRESULT ListBoxControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  bool handled = true;
  LRESULT r = HandleListMessage(msg, wparam, lparam, &handled);
  if (handled) {
    Relayout();
    return r;
  }
  switch (msg) {
    case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN: return KeyDown(static_cast<unsigned>(wparam));
    case WM_CHAR: {
      unsigned c = static_cast<unsigned>(wparam);
      if (c <= 0x20 || c >= 0x7F) return 0;
      UserChanged(model_.KeyChar(static_cast<char>(c)));
      return 0;
    }
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
      return HandleMouse(msg, wparam, lparam);
    case WM_CAPTURECHANGED:
      dragging_ = false;
      pane_.ScrollBarUp();
      return 0;
    case WM_MOUSEWHEEL:
      pane_.Wheel(static_cast<int16_t>(HIWORD(wparam)));
      Invalidate();
      return 0;
    case WM_SIZE:
      Relayout();
      return Default(msg, wparam, lparam);
    case WM_SETFOCUS:
      if (model_.caret() < 0 && model_.Count() > 0) model_.SetCaret(0);
      NotifyCommand(LBN_SETFOCUS);
      return PlainControl::Handle(msg, wparam, lparam);
    case WM_KILLFOCUS:
      NotifyCommand(LBN_KILLFOCUS);
      return PlainControl::Handle(msg, wparam, lparam);
    default:
      return PlainControl::Handle(msg, wparam, lparam);
  }
}

LRESULT ListBoxControl::HandleListMessage(unsigned msg, WPARAM wparam, LPARAM lparam,
                                          bool* handled) {
  const int index = static_cast<int>(static_cast<intptr_t>(wparam));
  const char* text = reinterpret_cast<const char*>(lparam);
  auto repaint = [&](LRESULT result) {
    Invalidate();
    return result;
  };
  switch (msg) {
    case LB_ADDSTRING: return repaint(model_.AddString(text ? text : ""));
    case LB_INSERTSTRING: return repaint(model_.InsertString(index, text ? text : ""));
    case LB_DELETESTRING: return repaint(model_.DeleteString(index));
    case LB_RESETCONTENT: model_.ResetContent(); return repaint(0);
    case LB_GETCOUNT: return model_.Count();
    case LB_GETTEXT: {
      if (index < 0 || index >= model_.Count()) return LB_ERR;
      std::string t = model_.Text(index);
      if (text) std::memcpy(reinterpret_cast<char*>(lparam), t.c_str(), t.size() + 1);
      return static_cast<LRESULT>(t.size());
    }
    case LB_GETTEXTLEN: return model_.TextLength(index);
    case LB_GETITEMDATA: return model_.ItemData(index);
    case LB_SETITEMDATA: return model_.SetItemData(index, lparam) ? LB_OKAY : LB_ERR;
    case LB_FINDSTRING: return model_.FindString(index, text ? text : "");
    case LB_FINDSTRINGEXACT: return model_.FindStringExact(index, text ? text : "");
    case LB_SELECTSTRING: {
      if (model_.IsMultiple()) return LB_ERR;
      int found = model_.FindString(index, text ? text : "");
      if (found >= 0) model_.SetCurSel(found);
      return repaint(found);
    }
    case LB_GETCURSEL: return model_.CurSel();
    case LB_SETCURSEL:
      // Only a single-selection list has a current selection to set.
      if (model_.IsMultiple()) return LB_ERR;
      model_.SetCurSel(index);
      return repaint(index >= 0 && index < model_.Count() ? index : LB_ERR);
    case LB_GETSEL:
      if (index < 0 || index >= model_.Count()) return LB_ERR;
      return model_.IsSelected(index) ? 1 : 0;
    case LB_SETSEL: {
      if (!model_.IsMultiple()) return LB_ERR;
      int item = static_cast<int>(lparam);
      if (item < -1 || item >= model_.Count()) return LB_ERR;
      model_.SetSel(item, wparam != 0);
      if (item >= 0) model_.SetCaret(item);
      return repaint(LB_OKAY);
    }
    case LB_GETSELCOUNT: return model_.IsMultiple() ? model_.SelCount() : LB_ERR;
    case LB_GETSELITEMS: {
      if (!model_.IsMultiple()) return LB_ERR;
      std::vector<int> items = model_.SelectedItems();
      int n = std::min(static_cast<int>(items.size()), index);
      int* out = reinterpret_cast<int*>(lparam);
      for (int i = 0; out && i < n; ++i) out[i] = items[i];
      return n;
    }
    case LB_SELITEMRANGE:
      if (!model_.IsMultiple()) return LB_ERR;
      model_.SelItemRange(LOWORD(static_cast<uintptr_t>(lparam)),
                          HIWORD(static_cast<uintptr_t>(lparam)), wparam != 0);
      return repaint(LB_OKAY);
    case LB_SELITEMRANGEEX: {
      if (!model_.IsMultiple()) return LB_ERR;
      int last = static_cast<int>(lparam);
      // A first item after the last clears the range instead.
      if (index <= last) model_.SelItemRange(index, last, true);
      else model_.SelItemRange(last, index, false);
      return repaint(LB_OKAY);
    }
    case LB_GETTOPINDEX: return model_.top_index();
    case LB_SETTOPINDEX:
      if (index < 0 || index >= std::max(1, model_.Count())) return LB_ERR;
      model_.SetTopIndex(index);
      return repaint(LB_OKAY);
    case LB_GETCARETINDEX: return model_.caret();
    case LB_SETCARETINDEX: return repaint(model_.SetCaret(index) ? LB_OKAY : LB_ERR);
    case LB_GETANCHORINDEX: return model_.anchor();
    case LB_SETANCHORINDEX:
      if (index < 0 || index >= model_.Count()) return LB_ERR;
      model_.SetAnchor(index);
      return LB_OKAY;
    case LB_GETITEMHEIGHT: return pane_.item_height();
    case LB_SETITEMHEIGHT:
      if (lparam <= 0 || lparam > 255) return LB_ERR;
      item_height_ = static_cast<int>(lparam);
      Relayout();
      return repaint(LB_OKAY);
    case LB_GETITEMRECT:
      if (index < 0 || index >= model_.Count() || !lparam) return LB_ERR;
      *reinterpret_cast<Rect*>(lparam) = pane_.ItemRect(index);
      return 1;
    case LB_ITEMFROMPOINT: {
      Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
      int item = pane_.ItemFromPoint(p);
      bool outside = item < 0;
      if (outside) item = pane_.NearestItem(p);
      return static_cast<LRESULT>(MAKELPARAM(static_cast<unsigned>(std::max(item, 0)), outside ? 1u : 0u));
    }
    default:
      *handled = false;
      return 0;
  }
}

void ListBoxControl::Paint(Dc& dc) {
  Relayout();
  dc.FillRect(ClientRect(), enabled() ? colors::kWindow : colors::kFace);
  pane_.Paint(dc, focused(), enabled());
}

}  // namespace qmk::platform::ui::controls
