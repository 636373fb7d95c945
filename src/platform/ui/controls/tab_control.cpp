// tab_control.cpp: the tab strip's messages, the selection change it asks its parent about,
// scrolling by its arrows, and its painting.
#include "platform/ui/controls/tab_control.h"

#include <algorithm>
#include <cstring>

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/edit_view.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {
namespace {
constexpr int kTabPadding = 6;
constexpr int kStripMargin = 2;
constexpr int kArrowWidth = 16;
}  // namespace

int TabControl::StripHeight() const { return LineHeight() + 8; }

void TabControl::Relayout() {
  for (int i = 0; i < model_.Count(); ++i) {
    TabStripModel::Item* item = model_.Get(i);
    item->width = MeasureText(font(), item->text) + 2 * kTabPadding;
  }
  model_.Layout(ClientRect().Width() - kStripMargin, 2 * kArrowWidth, kStripMargin);
}

Rect TabControl::TabBounds(int index) const {
  TabRect r = model_.Rect(index);
  if (r.left == r.right) return {};
  return {r.left, 2, r.right, StripHeight()};
}

Rect TabControl::ArrowRect(bool forward) const {
  if (!model_.scrolling()) return {};
  int right = ClientRect().right;
  int h = std::min(kArrowWidth, StripHeight() - 2);
  int left = right - (forward ? 1 : 2) * kArrowWidth;
  return {left, StripHeight() - h - 2, left + kArrowWidth, StripHeight() - 2};
}

void TabControl::SelectByUser(int index) {
  if (index < 0 || index >= model_.Count() || index == model_.cur_sel()) return;
  NMHDR nm;
  if (NotifyParent(&nm, TCN_SELCHANGING) != 0) return;
  model_.SetCurSel(index);
  model_.EnsureVisible(index);
  Invalidate();
  NotifyParent(&nm, TCN_SELCHANGE);
}

bool TabControl::ReadItem(const void* tcitem, TabStripModel::Item* item) const {
  const auto* tc = static_cast<const TCITEM*>(tcitem);
  if (!tc) return false;
  if ((tc->mask & TCIF_TEXT) && tc->pszText) item->text = tc->pszText;
  if (tc->mask & TCIF_IMAGE) item->image = tc->iImage;
  if (tc->mask & TCIF_PARAM) item->param = tc->lParam;
  return true;
}

LRESULT TabControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  bool handled = true;
  LRESULT r = HandleTabMessage(msg, wparam, lparam, &handled);
  if (handled) {
    Relayout();
    Invalidate();
    return r;
  }
  switch (msg) {
    case WM_GETDLGCODE: return DLGC_WANTARROWS;
    case WM_LBUTTONDOWN: {
      Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
      Relayout();
      if (PtInRect(ArrowRect(false), p)) { model_.Scroll(-1); Invalidate(); return 0; }
      if (PtInRect(ArrowRect(true), p)) { model_.Scroll(1); Invalidate(); return 0; }
      if (p.y >= StripHeight()) return 0;
      int index = model_.HitTest(p.x);
      if (index < 0) return 0;
      if (!(style() & TCS_FOCUSNEVER)) SetFocus(hwnd());
      SelectByUser(index);
      return 0;
    }
    case WM_MOUSEMOVE: {
      if (!(style() & TCS_HOTTRACK)) return 0;
      Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
      int index = p.y < StripHeight() ? model_.HitTest(p.x) : -1;
      if (model_.SetHot(index)) Invalidate();
      return 0;
    }
    case WM_KEYDOWN:
      if (wparam == VK_LEFT) { SelectByUser(model_.cur_sel() - 1); return 0; }
      if (wparam == VK_RIGHT) { SelectByUser(model_.cur_sel() + 1); return 0; }
      return Default(msg, wparam, lparam);
    case WM_SIZE:
    case WM_SETFONT:
      Relayout();
      return PlainControl::Handle(msg, wparam, lparam);
    default:
      return PlainControl::Handle(msg, wparam, lparam);
  }
}

LRESULT TabControl::HandleTabMessage(unsigned msg, WPARAM wparam, LPARAM lparam, bool* handled) {
  const int index = static_cast<int>(static_cast<intptr_t>(wparam));
  switch (msg) {
    case TCM_GETITEMCOUNT: return model_.Count();
    case TCM_INSERTITEM: {
      TabStripModel::Item item;
      if (!ReadItem(reinterpret_cast<const void*>(lparam), &item)) return -1;
      return model_.Insert(index, item);
    }
    case TCM_SETITEM: {
      TabStripModel::Item* item = model_.Get(index);
      if (!item) return 0;
      return ReadItem(reinterpret_cast<const void*>(lparam), item) ? 1 : 0;
    }
    case TCM_GETITEM: {
      const TabStripModel::Item* item = model_.Get(index);
      auto* tc = reinterpret_cast<TCITEM*>(lparam);
      if (!item || !tc) return 0;
      if ((tc->mask & TCIF_TEXT) && tc->pszText && tc->cchTextMax > 0) {
        size_t n = std::min(item->text.size(), static_cast<size_t>(tc->cchTextMax - 1));
        std::memcpy(tc->pszText, item->text.data(), n);
        tc->pszText[n] = '\0';
      }
      if (tc->mask & TCIF_IMAGE) tc->iImage = item->image;
      if (tc->mask & TCIF_PARAM) tc->lParam = item->param;
      return 1;
    }
    case TCM_DELETEITEM: return model_.Delete(index) ? 1 : 0;
    case TCM_DELETEALLITEMS: model_.DeleteAll(); return 1;
    case TCM_GETCURSEL: return model_.cur_sel();
    case TCM_SETCURSEL: {
      int before = model_.SetCurSel(index);
      if (before >= -1 && index >= 0 && index < model_.Count()) {
        Relayout();
        model_.EnsureVisible(index);
      }
      return before;
    }
    case TCM_GETCURFOCUS: return model_.focus();
    case TCM_SETCURFOCUS: model_.SetFocus(index); return 0;
    case TCM_GETITEMRECT: {
      if (index < 0 || index >= model_.Count() || !lparam) return 0;
      Relayout();
      *reinterpret_cast<Rect*>(lparam) = TabBounds(index);
      return 1;
    }
    case TCM_HITTEST: {
      auto* info = reinterpret_cast<TCHITTESTINFO*>(lparam);
      if (!info) return -1;
      Relayout();
      int hit = info->pt.y >= 0 && info->pt.y < StripHeight() ? model_.HitTest(info->pt.x) : -1;
      info->flags = hit >= 0 ? TCHT_ONITEM : TCHT_NOWHERE;
      return hit;
    }
    case TCM_ADJUSTRECT: {
      auto* r = reinterpret_cast<Rect*>(lparam);
      if (!r) return 0;
      // The page area lies under the strip, inside the raised frame.
      int top = StripHeight() + 2;
      if (wparam) *r = {r->left - 4, r->top - top, r->right + 4, r->bottom + 4};
      else *r = {r->left + 4, r->top + top, r->right - 4, r->bottom - 4};
      return 0;
    }
    case TCM_GETROWCOUNT: return 1;
    default:
      *handled = false;
      return 0;
  }
}

void TabControl::PaintTab(Dc& dc, int index) {
  Rect r = TabBounds(index);
  if (r.IsEmpty()) return;
  bool selected = index == model_.cur_sel();
  // The selected tab stands two pixels taller and wider and joins the page below it.
  if (selected) r = {r.left - 2, r.top - 2, r.right + 2, r.bottom + 1};
  dc.FillRect(r, colors::kFace);
  dc.FillRect({r.left, r.top + 2, r.left + 1, r.bottom}, colors::kHighlight3d);
  dc.FillRect({r.left + 2, r.top, r.right - 2, r.top + 1}, colors::kHighlight3d);
  dc.FillRect({r.left + 1, r.top + 1, r.left + 2, r.top + 2}, colors::kHighlight3d);
  dc.FillRect({r.right - 2, r.top + 1, r.right - 1, r.bottom}, colors::kShadow);
  dc.FillRect({r.right - 1, r.top + 2, r.right, r.bottom}, colors::kDarkShadow);
  Rect text = Deflate(r, kTabPadding - (selected ? 0 : 2), 0);
  bool hot = index == model_.hot() && (style() & TCS_HOTTRACK);
  DrawLabel(dc, model_.Get(index)->text, text, DT_SINGLELINE | DT_VCENTER | DT_CENTER,
            enabled(), hot ? colors::kSelection : colors::kText);
  if (selected && focused()) dc.DrawFocusRect(Deflate(r, 3, 3));
}

void TabControl::Paint(Dc& dc) {
  Relayout();
  Rect client = ClientRect();
  dc.FillRect(client, colors::kFace);
  Rect page{client.left, StripHeight(), client.right, client.bottom};
  if (!page.IsEmpty()) {
    dc.FillRect(page, colors::kFace);
    DrawEdge(dc, page, Edge::kRaised);
  }
  for (int i = model_.first_visible(); i < model_.Count(); ++i) {
    if (i != model_.cur_sel()) PaintTab(dc, i);
  }
  if (model_.cur_sel() >= model_.first_visible()) PaintTab(dc, model_.cur_sel());
  if (model_.scrolling()) {
    dc.FillRect({ArrowRect(false).left, 0, client.right, StripHeight()}, colors::kFace);
    DrawArrowButton(dc, ArrowRect(false), Arrow::kLeft, false, model_.CanScrollBack());
    DrawArrowButton(dc, ArrowRect(true), Arrow::kRight, false, model_.CanScrollForward());
  }
}

}  // namespace qmk::platform::ui::controls
