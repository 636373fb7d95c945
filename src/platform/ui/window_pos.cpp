// window_pos.cpp: geometry: rectangles and coordinate mapping, moving, sizing, z-order, showing,
// enabling, deferred positioning and hit testing.
#include <algorithm>

#include "platform/ui/screen.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

bool g_in_configure = false;

Rect ScreenWindowRect(Window* w) {
  if (!w->is_child()) return w->window_rect;
  Window* p = Find(w->parent);
  const Point o = p ? ClientOrigin(p) : Point{};
  return OffsetRect(w->window_rect, o.x, o.y);
}

void Reorder(Window* w, HWND insert_after) {
  std::vector<HWND>& list = SiblingList(w);
  list.erase(std::remove(list.begin(), list.end(), w->handle), list.end());
  if (insert_after == HWND_TOP()) {
    list.insert(list.begin(), w->handle);
  } else if (insert_after == HWND_BOTTOM()) {
    list.push_back(w->handle);
  } else {
    auto it = std::find(list.begin(), list.end(), insert_after);
    list.insert(it == list.end() ? list.end() : it + 1, w->handle);
  }
}

bool Visible(Window* w) {
  for (; w; w = w->is_child() ? Find(w->parent) : nullptr)
    if (!(w->style & WS_VISIBLE)) return false;
  return true;
}

// Deepest visible child of `w` holding the screen point, or `w`.
Window* HitChild(Window* w, Point screen) {
  const Point o = ClientOrigin(w);
  for (HWND c : w->children) {
    Window* cw = Find(c);
    if (!cw || !(cw->style & WS_VISIBLE)) continue;
    const Rect r = OffsetRect(cw->window_rect, o.x, o.y);
    if (!PtInRect(r, screen)) continue;
    if (Send(c, WM_NCHITTEST, 0, MAKELPARAM(screen.x, screen.y)) == HTTRANSPARENT) continue;
    return HitChild(cw, screen);
  }
  return w;
}

}  // namespace

struct DeferredPositions {
  std::vector<PositionChange> changes;
};

Point ClientOrigin(Window* w) {
  if (!w->is_child()) return {w->client_rect.left, w->client_rect.top};
  Window* p = Find(w->parent);
  const Point o = p ? ClientOrigin(p) : Point{};
  return {o.x + w->client_rect.left, o.y + w->client_rect.top};
}

Rect RectInTop(Window* w, bool client) {
  Window* top = TopLevelOf(w);
  Rect r;
  if (client) {
    const Point o = ClientOrigin(w);
    r = {o.x, o.y, o.x + w->client_rect.Width(), o.y + w->client_rect.Height()};
  } else {
    r = ScreenWindowRect(w);
  }
  return OffsetRect(r, -top->window_rect.left, -top->window_rect.top);
}

bool GetWindowRect(HWND hwnd, Rect* out) {
  Window* w = Find(hwnd);
  if (!w || !out) return false;
  *out = ScreenWindowRect(w);
  return true;
}

bool GetClientRect(HWND hwnd, Rect* out) {
  Window* w = Find(hwnd);
  if (!w || !out) return false;
  *out = {0, 0, w->client_rect.Width(), w->client_rect.Height()};
  return true;
}

bool ClientToScreen(HWND hwnd, Point* p) {
  Window* w = Find(hwnd);
  if (!w || !p) return false;
  const Point o = ClientOrigin(w);
  p->x += o.x;
  p->y += o.y;
  return true;
}

bool ScreenToClient(HWND hwnd, Point* p) {
  Window* w = Find(hwnd);
  if (!w || !p) return false;
  const Point o = ClientOrigin(w);
  p->x -= o.x;
  p->y -= o.y;
  return true;
}

int MapWindowPoints(HWND from, HWND to, Point* points, int count) {
  Point a{}, b{};
  if (from) {
    Window* w = Find(from);
    if (!w) return 0;
    a = ClientOrigin(w);
  }
  if (to) {
    Window* w = Find(to);
    if (!w) return 0;
    b = ClientOrigin(w);
  }
  const int dx = a.x - b.x, dy = a.y - b.y;
  for (int i = 0; i < count; ++i) {
    points[i].x += dx;
    points[i].y += dy;
  }
  return MAKELPARAM(static_cast<unsigned>(dx), static_cast<unsigned>(dy));
}

bool MapWindowRect(HWND from, HWND to, Rect* r) {
  if (!r) return false;
  Point pts[2] = {{r->left, r->top}, {r->right, r->bottom}};
  if ((from && !Find(from)) || (to && !Find(to))) return false;
  MapWindowPoints(from, to, pts, 2);
  *r = {pts[0].x, pts[0].y, pts[1].x, pts[1].y};
  return true;
}

// ---- Position changes ------------------------------------------------------------------------
bool PrepareChange(PositionChange* c) {
  Window* w = Find(c->hwnd);
  if (!w) return false;
  if (c->flags & SWP_NOSIZE) {
    c->cx = w->window_rect.Width();
    c->cy = w->window_rect.Height();
  }
  if (c->flags & SWP_NOMOVE) {
    c->x = w->window_rect.left;
    c->y = w->window_rect.top;
  }
  if (!(c->flags & SWP_NOSENDCHANGING)) {
    WINDOWPOS wp{c->hwnd, c->insert_after, c->x, c->y, c->cx, c->cy, c->flags};
    Send(c->hwnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&wp));
    if (!(w = Find(c->hwnd))) return false;
    c->insert_after = wp.hwndInsertAfter;
    c->x = wp.x;
    c->y = wp.y;
    c->cx = std::max(0, wp.cx);
    c->cy = std::max(0, wp.cy);
    c->flags = wp.flags;
  }
  // What did not change is flagged so, for WM_WINDOWPOSCHANGED's handlers.
  if (c->cx == w->window_rect.Width() && c->cy == w->window_rect.Height()) c->flags |= SWP_NOSIZE;
  if (c->x == w->window_rect.left && c->y == w->window_rect.top) c->flags |= SWP_NOMOVE;
  const bool visible = (w->style & WS_VISIBLE) != 0;
  if ((c->flags & SWP_SHOWWINDOW) && visible) c->flags &= ~SWP_SHOWWINDOW;
  if ((c->flags & SWP_HIDEWINDOW) && !visible) c->flags &= ~SWP_HIDEWINDOW;
  return true;
}

void ApplyChange(PositionChange* c) {
  Window* w = Find(c->hwnd);
  if (!w) return;
  Window* top = TopLevelOf(w);
  const bool was_visible = Visible(w);
  const Rect old_in_top = RectInTop(w, false);
  bool changed = false;

  if (!(c->flags & SWP_NOZORDER)) {
    std::vector<HWND>& list = SiblingList(w);
    const auto before = list;
    Reorder(w, c->insert_after);
    changed |= before != list;
  }
  const bool resized = !(c->flags & SWP_NOSIZE);
  const bool moved = !(c->flags & SWP_NOMOVE);
  if (resized || moved || (c->flags & SWP_FRAMECHANGED)) {
    const Rect old_client = w->client_rect;
    const Rect old_window = w->window_rect;
    w->window_rect = {c->x, c->y, c->x + c->cx, c->y + c->cy};
    if (resized || (c->flags & SWP_FRAMECHANGED)) {
      NCCALCSIZE_PARAMS nc;
      nc.rgrc[0] = w->window_rect;
      nc.rgrc[1] = old_window;
      nc.rgrc[2] = old_client;
      Send(c->hwnd, WM_NCCALCSIZE, 1, reinterpret_cast<LPARAM>(&nc));
      if (!(w = Find(c->hwnd))) return;
      w->client_rect = IntersectRect(nc.rgrc[0], w->window_rect);
      if (w->client_rect.IsEmpty())
        w->client_rect = {w->window_rect.left, w->window_rect.top, w->window_rect.left,
                          w->window_rect.top};
      w->frame_dirty = true;
    } else {
      w->client_rect = OffsetRect(old_client, c->x - old_window.left, c->y - old_window.top);
    }
    changed = true;
    if (!w->is_child()) {
      EnsureSurface(w);
      if (!g_in_configure) TheBackend().MoveSurface(c->hwnd, w->window_rect);
    }
  }
  if (c->flags & SWP_SHOWWINDOW) {
    w->style |= WS_VISIBLE;
    w->frame_dirty = true;
    changed = true;
    if (!w->is_child())
      TheBackend().ShowSurface(c->hwnd, true, !(c->flags & SWP_NOACTIVATE));
  }
  if (c->flags & SWP_HIDEWINDOW) {
    w->style &= ~WS_VISIBLE;
    changed = true;
    if (!w->is_child()) TheBackend().ShowSurface(c->hwnd, false, false);
  }
  if (!changed || (c->flags & SWP_NOREDRAW)) return;
  // Repaint what the window uncovered and what it covers now.
  if (w->is_child()) {
    if (was_visible) InvalidateInTop(top, old_in_top, true);
    if (Visible(w)) InvalidateInTop(top, RectInTop(w, false), true);
  } else if (Visible(w)) {
    InvalidateInTop(w, {0, 0, w->window_rect.Width(), w->window_rect.Height()}, true);
  }
}

void FinishChange(const PositionChange& c) {
  WINDOWPOS wp{c.hwnd, c.insert_after, c.x, c.y, c.cx, c.cy, c.flags};
  Send(c.hwnd, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&wp));
}

bool SetWindowPos(HWND hwnd, HWND insert_after, int x, int y, int cx, int cy, unsigned flags) {
  PositionChange c{hwnd, insert_after, x, y, cx, cy, flags};
  if (!PrepareChange(&c)) return false;
  const bool hiding = (c.flags & SWP_HIDEWINDOW) != 0;
  ApplyChange(&c);
  if (hiding)
    if (Window* w = Find(hwnd)) ForgetFocus(w);
  FinishChange(c);
  if ((c.flags & SWP_SHOWWINDOW) && !(c.flags & SWP_NOACTIVATE))
    if (Window* w = Find(hwnd); w && !w->is_child()) SetActiveWindow(hwnd);
  return Find(hwnd) != nullptr;
}

bool MoveWindow(HWND hwnd, int x, int y, int cx, int cy, bool repaint) {
  return SetWindowPos(hwnd, nullptr, x, y, cx, cy,
                      SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0u : SWP_NOREDRAW));
}

// A change the native window made (the user moved or resized it): no MoveSurface back.
void ApplyConfigure(HWND top, const Rect& screen_rect) {
  Window* w = Find(top);
  if (!w || w->window_rect == screen_rect) return;
  g_in_configure = true;
  SetWindowPos(top, nullptr, screen_rect.left, screen_rect.top, screen_rect.Width(),
               screen_rect.Height(), SWP_NOZORDER | SWP_NOACTIVATE);
  g_in_configure = false;
}

// ---- Deferred positioning --------------------------------------------------------------------
HDWP BeginDeferWindowPos(int expected) {
  auto* list = new DeferredPositions;
  list->changes.reserve(static_cast<size_t>(std::clamp(expected, 0, 4096)));
  return list;
}

HDWP DeferWindowPos(HDWP list, HWND hwnd, HWND insert_after, int x, int y, int cx, int cy,
                    unsigned flags) {
  if (!list) return nullptr;
  if (!Find(hwnd)) {
    delete list;
    return nullptr;
  }
  // A second move of the same window replaces the first.
  for (PositionChange& c : list->changes)
    if (c.hwnd == hwnd) {
      c = {hwnd, insert_after, x, y, cx, cy, flags};
      return list;
    }
  list->changes.push_back({hwnd, insert_after, x, y, cx, cy, flags});
  return list;
}

bool EndDeferWindowPos(HDWP list) {
  if (!list) return false;
  std::unique_ptr<DeferredPositions> owned(list);
  std::vector<PositionChange> ready;
  for (PositionChange c : owned->changes)
    if (PrepareChange(&c)) ready.push_back(c);
  for (PositionChange& c : ready) ApplyChange(&c);
  for (const PositionChange& c : ready) {
    if (c.flags & SWP_HIDEWINDOW)
      if (Window* w = Find(c.hwnd)) ForgetFocus(w);
    FinishChange(c);
  }
  return true;
}

// ---- Showing and enabling --------------------------------------------------------------------
bool ShowWindow(HWND hwnd, int command) {
  Window* w = Find(hwnd);
  if (!w) return false;
  const bool was_visible = (w->style & WS_VISIBLE) != 0;
  const bool show = command != SW_HIDE;
  if (show == was_visible) {
    if (show && !w->is_child() && command != SW_SHOWNA && command != SW_SHOWNOACTIVATE)
      SetActiveWindow(hwnd);
    return was_visible;
  }
  Send(hwnd, WM_SHOWWINDOW, show ? 1 : 0, 0);
  if (!Find(hwnd)) return was_visible;
  unsigned flags = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER;
  flags |= show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
  if (command == SW_SHOWNA || command == SW_SHOWNOACTIVATE || !show || w->is_child())
    flags |= SWP_NOACTIVATE;
  SetWindowPos(hwnd, nullptr, 0, 0, 0, 0, flags);
  return was_visible;
}

bool IsWindowVisible(HWND hwnd) {
  Window* w = Find(hwnd);
  return w && Visible(w);
}

bool EnableWindow(HWND hwnd, bool enable) {
  Window* w = Find(hwnd);
  if (!w) return false;
  const bool was_disabled = (w->style & WS_DISABLED) != 0;
  if (was_disabled == !enable) return was_disabled;
  if (!enable) {
    if (!w->is_child()) Send(hwnd, WM_CANCELMODE);
    if (!(w = Find(hwnd))) return was_disabled;
    w->style |= WS_DISABLED;
    ForgetFocus(w);
  } else {
    w->style &= ~WS_DISABLED;
  }
  Send(hwnd, WM_ENABLE, enable ? 1 : 0, 0);
  InvalidateRect(hwnd, nullptr, true);
  return was_disabled;
}

bool IsWindowEnabled(HWND hwnd) {
  Window* w = Find(hwnd);
  return w && !(w->style & WS_DISABLED);
}

// ---- Hit testing -----------------------------------------------------------------------------
HWND WindowFromPoint(Point screen) {
  for (HWND t : TopLevels()) {
    Window* w = Find(t);
    if (!w || !(w->style & WS_VISIBLE) || w->native_id) continue;
    if (!PtInRect(w->window_rect, screen)) continue;
    return HitChild(w, screen)->handle;
  }
  return nullptr;
}

HWND ChildWindowFromPoint(HWND parent, Point client) {
  Window* w = Find(parent);
  if (!w) return nullptr;
  if (!PtInRect({0, 0, w->client_rect.Width(), w->client_rect.Height()}, client)) return nullptr;
  for (HWND c : w->children) {
    Window* cw = Find(c);
    if (cw && (cw->style & WS_VISIBLE) && PtInRect(cw->window_rect, client)) return c;
  }
  return parent;
}

}  // namespace qmk::platform::ui
