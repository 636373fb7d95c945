// painting.cpp: invalid regions, the paint cycle (WM_NCPAINT, WM_ERASEBKGND, WM_PAINT), the
// pictures of top-level windows, their presentation by the back end, and printing a window.
#include <cairo.h>

#include <algorithm>

#include "platform/ui/message_loop.h"
#include "platform/ui/paint.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

struct PaintSession {
  Dc* dc = nullptr;
  cairo_t* cr = nullptr;
  HWND top = nullptr;
  Rect dirty;  // in the top-level window's pixels
};

std::vector<PaintSession>& Sessions() {
  static std::vector<PaintSession> sessions;
  return sessions;
}

bool Shown(Window* w) { return (w->style & WS_VISIBLE) != 0; }

// What of the window can be drawn in its top-level picture: inside every ancestor's client
// area, not under a sibling above it or an ancestor's sibling above, and (for the client area)
// not under its own children.
Region VisibleRegion(Window* w, bool client) {
  Region r(RectInTop(w, client));
  Window* top = TopLevelOf(w);
  r.Intersect({0, 0, top->window_rect.Width(), top->window_rect.Height()});
  for (Window* cur = w; cur->is_child();) {
    Window* p = Find(cur->parent);
    if (!p) break;
    for (HWND s : p->children) {
      if (s == cur->handle) break;
      Window* sw = Find(s);
      if (sw && Shown(sw)) r.Subtract(RectInTop(sw, false));
    }
    r.Intersect(RectInTop(p, true));
    cur = p;
  }
  if (client)
    for (HWND c : w->children)
      if (Window* cw = Find(c); cw && Shown(cw)) r.Subtract(RectInTop(cw, false));
  return r;
}

bool Visible(Window* w) {
  for (; w; w = w->is_child() ? Find(w->parent) : nullptr)
    if (!Shown(w)) return false;
  return true;
}

// A cairo context on the window's top-level picture, clipped to `clip` (top pixels) and with
// its origin moved to `origin` (top pixels).
cairo_t* OpenContext(Window* top, const Region& clip, Point origin) {
  EnsureSurface(top);
  cairo_t* cr = cairo_create(top->surface);
  for (const Rect& r : clip.rects()) cairo_rectangle(cr, r.left, r.top, r.Width(), r.Height());
  if (clip.IsEmpty()) cairo_rectangle(cr, 0, 0, 0, 0);
  cairo_clip(cr);
  cairo_translate(cr, origin.x, origin.y);
  return cr;
}

Dc* OpenSession(Window* w, const Region& clip, bool client) {
  Window* top = TopLevelOf(w);
  const Rect base = RectInTop(w, client);
  cairo_t* cr = OpenContext(top, clip, {base.left, base.top});
  Dc* dc = new Dc(cr, w->handle, OffsetRect(clip.Bounds(), -base.left, -base.top));
  Sessions().push_back({dc, cr, top->handle, clip.Bounds()});
  return dc;
}

bool CloseSession(Dc* dc) {
  auto& sessions = Sessions();
  auto it = std::find_if(sessions.begin(), sessions.end(),
                         [&](const PaintSession& s) { return s.dc == dc; });
  if (it == sessions.end()) return false;
  if (it->cr) {
    if (Window* top = Find(it->top)) {
      cairo_surface_flush(top->surface);
      top->presented_dirty = UnionRect(top->presented_dirty, it->dirty);
    }
    cairo_destroy(it->cr);
    delete it->dc;
  }
  sessions.erase(it);
  return true;
}

HWND NextIn(Window* w) {
  if (!Shown(w) || w->native_id) return nullptr;
  if (!w->redraw_off && (!w->invalid.IsEmpty() || w->frame_dirty)) return w->handle;
  for (HWND c : w->children)
    if (Window* cw = Find(c))
      if (HWND h = NextIn(cw)) return h;
  return nullptr;
}

void InvalidateWalk(Window* w, const Rect& r, bool erase) {
  if (!Shown(w)) return;
  const Rect whole = RectInTop(w, false);
  const Rect wr = IntersectRect(whole, r);
  if (wr.IsEmpty()) return;
  const Rect cr = RectInTop(w, true);
  const Rect ci = IntersectRect(cr, r);
  if (!(whole == cr) && !(ci == wr)) w->frame_dirty = true;
  if (ci.IsEmpty()) return;
  w->invalid.Add(OffsetRect(ci, -cr.left, -cr.top));
  if (erase) w->erase = true;
  for (HWND c : w->children)
    if (Window* cw = Find(c)) InvalidateWalk(cw, ci, erase);
}

}  // namespace

void DrawWindowFrame(Window* w, Dc& dc);

void EnsureSurface(Window* top) {
  const int width = std::max(1, top->window_rect.Width());
  const int height = std::max(1, top->window_rect.Height());
  if (top->surface && cairo_image_surface_get_width(top->surface) == width &&
      cairo_image_surface_get_height(top->surface) == height)
    return;
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  cairo_t* cr = cairo_create(s);
  cairo_set_source_rgb(cr, (kFaceColor & 0xFF) / 255.0, ((kFaceColor >> 8) & 0xFF) / 255.0,
                       ((kFaceColor >> 16) & 0xFF) / 255.0);
  cairo_paint(cr);
  cairo_destroy(cr);
  cairo_surface_t* old = top->surface;
  top->surface = s;
  top->presented_dirty = {0, 0, width, height};
  // The back end holds the picture it was last given: it gets the new one before the old goes.
  if (old && BackendStarted()) {
    TheBackend().Present(top->handle, s, top->presented_dirty);
    top->presented_dirty = {};
  }
  if (old) cairo_surface_destroy(old);
}

void InvalidateInTop(Window* top, const Rect& r, bool erase) { InvalidateWalk(top, r, erase); }

HWND NextWindowToPaint() {
  for (HWND t : TopLevels())
    if (Window* w = Find(t))
      if (HWND h = NextIn(w)) return h;
  return nullptr;
}

bool NeedsPaint() { return NextWindowToPaint() != nullptr; }

void PresentAll() {
  if (!BackendStarted()) return;
  for (HWND t : std::vector<HWND>(TopLevels())) {
    Window* w = Find(t);
    if (!w || !w->surface || w->presented_dirty.IsEmpty() || w->native_id) continue;
    const Rect dirty = w->presented_dirty;
    w->presented_dirty = {};
    TheBackend().Present(t, w->surface, dirty);
  }
}

void PaintPending() {
  for (int budget = 10000; budget > 0; --budget) {
    const HWND h = NextWindowToPaint();
    if (!h) break;
    MSG msg{h, WM_PAINT, 0, 0, 0, {}};
    DispatchMessage(&msg);
    if (Window* w = Find(h)) w->frame_dirty = false;
  }
  PresentAll();
}

// ---- Invalid regions -------------------------------------------------------------------------
bool InvalidateRect(HWND hwnd, const Rect* r, bool erase) {
  Window* w = Find(hwnd);
  if (!w) return false;
  if (!Visible(w)) return true;
  const Rect client{0, 0, w->client_rect.Width(), w->client_rect.Height()};
  const Rect area = r ? IntersectRect(*r, client) : client;
  if (area.IsEmpty()) return true;
  w->invalid.Add(area);
  if (erase) w->erase = true;
  if (BackendStarted()) TheBackend().Wake();
  return true;
}

bool ValidateRect(HWND hwnd, const Rect* r) {
  Window* w = Find(hwnd);
  if (!w) return false;
  if (r)
    w->invalid.Subtract(*r);
  else
    w->invalid.Clear();
  if (w->invalid.IsEmpty()) w->erase = false;
  return true;
}

bool GetUpdateRect(HWND hwnd, Rect* out, bool erase) {
  Window* w = Find(hwnd);
  if (!w) return false;
  const Rect b = w->invalid.Bounds();
  if (out) *out = b;
  if (erase && w->erase && !b.IsEmpty()) {
    Dc* dc = OpenSession(w, [&] {
      Region clip = w->invalid;
      const Rect cr = RectInTop(w, true);
      clip.Offset(cr.left, cr.top);
      Region vis = VisibleRegion(w, true);
      Region out_region;
      for (const Rect& a : clip.rects())
        for (const Rect& v : vis.rects()) out_region.Add(IntersectRect(a, v));
      return out_region;
    }(), true);
    w->erase = false;
    Send(hwnd, WM_ERASEBKGND, DcToWParam(dc), 0);
    CloseSession(dc);
  }
  return !b.IsEmpty();
}

std::vector<Rect> GetUpdateRegion(HWND hwnd) {
  Window* w = Find(hwnd);
  return w ? w->invalid.rects() : std::vector<Rect>{};
}

bool UpdateWindow(HWND hwnd) {
  Window* root = Find(hwnd);
  if (!root) return false;
  for (int budget = 10000; budget > 0; --budget) {
    Window* w = Find(hwnd);
    if (!w) break;
    const HWND h = NextIn(w);
    if (!h) break;
    MSG msg{h, WM_PAINT, 0, 0, 0, {}};
    DispatchMessage(&msg);
    if (Window* p = Find(h)) p->frame_dirty = false;
  }
  PresentAll();
  return true;
}

bool FlushWindowToScreen(HWND hwnd, int limit_ms) {
  Window* w = Find(hwnd);
  Window* top = w ? TopLevelOf(w) : nullptr;
  // A host's wrapped window is the host's to show.
  if (!top || top->native_id || !IsWindowVisible(hwnd)) return false;
  const HWND handle = top->handle;
  UpdateWindow(handle);
  return IsWindow(handle) && TheBackend().WaitUntilShown(handle, limit_ms);
}

// ---- Painting --------------------------------------------------------------------------------
Dc* BeginPaint(HWND hwnd, PAINTSTRUCT* ps) {
  Window* w = Find(hwnd);
  if (!w || !ps) return nullptr;
  if (w->paint_redirect) {
    ps->dc = w->paint_redirect;
    ps->fErase = false;
    ps->rcPaint = {0, 0, w->client_rect.Width(), w->client_rect.Height()};
    Sessions().push_back({ps->dc, nullptr, nullptr, {}});
    return ps->dc;
  }
  if (w->frame_dirty) {
    w->frame_dirty = false;
    if (!(w->window_rect == w->client_rect)) Send(hwnd, WM_NCPAINT, 1, 0);
    if (!(w = Find(hwnd))) return nullptr;
  }
  Region clip;
  const Rect cr = RectInTop(w, true);
  const Region vis = VisibleRegion(w, true);
  for (const Rect& a : w->invalid.rects())
    for (const Rect& v : vis.rects()) clip.Add(IntersectRect(OffsetRect(a, cr.left, cr.top), v));
  const bool erase = w->erase;
  w->invalid.Clear();
  w->erase = false;
  Dc* dc = OpenSession(w, clip, true);
  ps->dc = dc;
  ps->rcPaint = OffsetRect(clip.Bounds(), -cr.left, -cr.top);
  ps->fErase = erase;
  if (erase && !clip.IsEmpty()) ps->fErase = Send(hwnd, WM_ERASEBKGND, DcToWParam(dc), 0) == 0;
  return dc;
}

bool EndPaint(HWND hwnd, const PAINTSTRUCT* ps) {
  (void)hwnd;
  return ps && CloseSession(ps->dc);
}

Dc* GetDC(HWND hwnd) {
  Window* w = Find(hwnd);
  if (!w) return nullptr;
  return OpenSession(w, Visible(w) ? VisibleRegion(w, true) : Region(), true);
}

Dc* GetWindowDC(HWND hwnd) {
  Window* w = Find(hwnd);
  if (!w) return nullptr;
  return OpenSession(w, Visible(w) ? VisibleRegion(w, false) : Region(), false);
}

bool ReleaseDC(HWND hwnd, Dc* dc) {
  (void)hwnd;
  return CloseSession(dc);
}

// ---- Printing --------------------------------------------------------------------------------
// WM_PRINT's default: the frame, the background, the client area through WM_PRINTCLIENT, and
// the children, each with a context of its own over the same picture.
void DefaultPrint(HWND hwnd, Dc* dc, unsigned flags) {
  Window* w = Find(hwnd);
  if (!w || !dc) return;
  if ((flags & PRF_CHECKVISIBLE) && !Visible(w)) return;
  cairo_t* cr = dc->cairo();
  if ((flags & PRF_NONCLIENT) && !(w->window_rect == w->client_rect)) DrawWindowFrame(w, *dc);
  const int dx = w->client_rect.left - w->window_rect.left;
  const int dy = w->client_rect.top - w->window_rect.top;
  const Rect client{0, 0, w->client_rect.Width(), w->client_rect.Height()};
  cairo_save(cr);
  cairo_translate(cr, dx, dy);
  cairo_rectangle(cr, 0, 0, client.right, client.bottom);
  cairo_clip(cr);
  {
    Dc inner(cr, hwnd, client);
    inner.SelectFont(dc->font());
    if (flags & PRF_ERASEBKGND) Send(hwnd, WM_ERASEBKGND, DcToWParam(&inner), 0);
    if (flags & PRF_CLIENT) Send(hwnd, WM_PRINTCLIENT, DcToWParam(&inner), flags);
  }
  if (flags & PRF_CHILDREN) {
    w = Find(hwnd);
    const std::vector<HWND> children = w ? w->children : std::vector<HWND>{};
    for (auto it = children.rbegin(); it != children.rend(); ++it) {
      Window* cw = Find(*it);
      if (!cw || !Shown(cw)) continue;
      cairo_save(cr);
      cairo_translate(cr, cw->window_rect.left, cw->window_rect.top);
      cairo_rectangle(cr, 0, 0, cw->window_rect.Width(), cw->window_rect.Height());
      cairo_clip(cr);
      Dc child(cr, *it, {0, 0, cw->window_rect.Width(), cw->window_rect.Height()});
      Send(*it, WM_PRINT, DcToWParam(&child), flags | PRF_NONCLIENT);
      cairo_restore(cr);
    }
  }
  cairo_restore(cr);
}

// WM_PRINTCLIENT's default: the window's own WM_PAINT, drawing into the given context.
void DefaultPrintClient(HWND hwnd, Dc* dc) {
  Window* w = Find(hwnd);
  if (!w || !dc) return;
  Dc* old = w->paint_redirect;
  w->paint_redirect = dc;
  Send(hwnd, WM_PAINT, 0, 0);
  if ((w = Find(hwnd))) w->paint_redirect = old;
}

std::unique_ptr<DrawTarget> CopyToTarget(cairo_surface_t* surface, const Rect& src) {
  if (!surface || src.IsEmpty()) return nullptr;
  cairo_surface_flush(surface);
  const int stride = cairo_image_surface_get_stride(surface);
  const Rect whole{0, 0, cairo_image_surface_get_width(surface),
                   cairo_image_surface_get_height(surface)};
  const Rect part = IntersectRect(src, whole);
  auto target = std::make_unique<DrawTarget>(src.Width(), src.Height());
  if (part.IsEmpty()) return target;
  PixelView view;
  view.top_row = cairo_image_surface_get_data(surface) +
                 static_cast<ptrdiff_t>(part.top) * stride + part.left * 4;
  view.width = part.Width();
  view.height = part.Height();
  view.stride = stride;
  view.premultiplied = true;
  auto image = DeviceImage::Create(view);
  if (!image) return nullptr;
  const Rect dst = OffsetRect(part, -src.left, -src.top);
  target->Blit(*image, dst, {0, 0, part.Width(), part.Height()}, kRopSourceCopy);
  return target;
}

std::unique_ptr<DrawTarget> PrintWindow(HWND hwnd) {
  Window* w = Find(hwnd);
  if (!w) return nullptr;
  const int width = std::max(1, w->window_rect.Width());
  const int height = std::max(1, w->window_rect.Height());
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  cairo_t* cr = cairo_create(s);
  {
    Dc dc(cr, hwnd, {0, 0, width, height});
    Send(hwnd, WM_PRINT, DcToWParam(&dc),
         PRF_NONCLIENT | PRF_CLIENT | PRF_ERASEBKGND | PRF_CHILDREN);
  }
  cairo_destroy(cr);
  auto target = CopyToTarget(s, {0, 0, width, height});
  cairo_surface_destroy(s);
  return target;
}

}  // namespace qmk::platform::ui
