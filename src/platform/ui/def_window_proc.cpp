// def_window_proc.cpp: what a window does with a message its own procedure leaves alone.
#include <algorithm>
#include <cstring>

#include "platform/ui/paint.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {

void DefaultPrint(HWND hwnd, Dc* dc, unsigned flags);
void DefaultPrintClient(HWND hwnd, Dc* dc);
void RestoreFocusOnActivate(Window* w);

namespace {

// Frame widths: a client edge is two pixels, a border or a static edge one. Top-level windows
// have none of their own: the back end draws their native frame.
int FrameWidth(const Window* w) {
  if (!w->is_child()) return 0;
  int width = 0;
  if (w->ex_style & WS_EX_CLIENTEDGE) width += 2;
  if (w->ex_style & WS_EX_STATICEDGE) width += 1;
  if (w->style & WS_BORDER) width += 1;
  return width;
}

}  // namespace

// Sunken edges in the neutral look: shadow above and left, light below and right.
void DrawWindowFrame(Window* w, Dc& dc) {
  Rect r{0, 0, w->window_rect.Width(), w->window_rect.Height()};
  auto edge = [&](uint32_t top_left, uint32_t bottom_right) {
    dc.FillRect({r.left, r.top, r.right, r.top + 1}, top_left);
    dc.FillRect({r.left, r.top, r.left + 1, r.bottom}, top_left);
    dc.FillRect({r.left, r.bottom - 1, r.right, r.bottom}, bottom_right);
    dc.FillRect({r.right - 1, r.top, r.right, r.bottom}, bottom_right);
    r = {r.left + 1, r.top + 1, r.right - 1, r.bottom - 1};
  };
  if (w->style & WS_BORDER) edge(0xFF646464u, 0xFF646464u);
  if (w->ex_style & WS_EX_STATICEDGE) edge(0xFFA0A0A0u, 0xFFFFFFFFu);
  if (w->ex_style & WS_EX_CLIENTEDGE) {
    edge(0xFFA0A0A0u, 0xFFFFFFFFu);
    edge(0xFF696969u, 0xFFE3E3E3u);
  }
}

LRESULT DefWindowProc(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  Window* w = Find(hwnd);
  if (!w) return 0;
  switch (msg) {
    case WM_NCCREATE: {
      const auto* cs = reinterpret_cast<const CREATESTRUCT*>(lparam);
      if (cs && cs->lpszName) w->text = cs->lpszName;
      return 1;
    }
    case WM_NCCALCSIZE: {
      auto* nc = reinterpret_cast<NCCALCSIZE_PARAMS*>(lparam);
      if (!nc) return 0;
      const int f = FrameWidth(w);
      Rect& r = nc->rgrc[0];
      r = {r.left + f, r.top + f, std::max(r.left + f, r.right - f),
           std::max(r.top + f, r.bottom - f)};
      return 0;
    }
    case WM_SETTEXT: {
      const char* text = reinterpret_cast<const char*>(lparam);
      w->text = text ? text : "";
      if (!w->is_child() && BackendStarted()) TheBackend().SetSurfaceTitle(hwnd, w->text);
      return 1;
    }
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(w->text.size());
    case WM_GETTEXT: {
      char* buffer = reinterpret_cast<char*>(lparam);
      if (!buffer || wparam == 0) return 0;
      const size_t n = std::min(w->text.size(), static_cast<size_t>(wparam) - 1);
      std::memcpy(buffer, w->text.data(), n);
      buffer[n] = 0;
      return static_cast<LRESULT>(n);
    }
    // Every window keeps the font it is given, so that a font applied down a tree of windows
    // can be read back from any of them.
    case WM_SETFONT:
      w->font = reinterpret_cast<HFONT>(wparam);
      if (lparam) InvalidateRect(hwnd, nullptr, true);
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(w->font);
    case WM_SETREDRAW:
      w->redraw_off = wparam == 0;
      if (wparam) InvalidateRect(hwnd, nullptr, true);
      return 0;
    case WM_PAINT: {
      PAINTSTRUCT ps;
      BeginPaint(hwnd, &ps);
      EndPaint(hwnd, &ps);
      return 0;
    }
    case WM_ERASEBKGND: {
      Dc* dc = DcFromWParam(wparam);
      WNDCLASS wc;
      if (!dc || !GetClassInfo(w->class_name.c_str(), &wc) || wc.background == kNoBackground)
        return 0;
      dc->FillRect({0, 0, w->client_rect.Width(), w->client_rect.Height()}, wc.background);
      return 1;
    }
    case WM_NCPAINT: {
      if (w->window_rect == w->client_rect) return 0;
      Dc* dc = GetWindowDC(hwnd);
      if (!dc) return 0;
      DrawWindowFrame(w, *dc);
      ReleaseDC(hwnd, dc);
      return 0;
    }
    case WM_PRINT:
      DefaultPrint(hwnd, DcFromWParam(wparam), static_cast<unsigned>(lparam));
      return 0;
    case WM_PRINTCLIENT:
      DefaultPrintClient(hwnd, DcFromWParam(wparam));
      return 0;
    case WM_CLOSE:
      DestroyWindow(hwnd);
      return 0;
    case WM_SYSCOMMAND:
      if ((wparam & 0xFFF0) == SC_CLOSE) Send(hwnd, WM_CLOSE);
      return 0;
    case WM_SYSKEYDOWN:
      // Alt+F4 closes the top-level window.
      if (wparam == VK_F4)
        if (Window* top = TopLevelOf(w)) PostMessage(top->handle, WM_SYSCOMMAND, SC_CLOSE, 0);
      return 0;
    case WM_WINDOWPOSCHANGED: {
      const auto* wp = reinterpret_cast<const WINDOWPOS*>(lparam);
      if (!wp) return 0;
      if (!(wp->flags & SWP_NOMOVE))
        Send(hwnd, WM_MOVE, 0, MAKELPARAM(static_cast<unsigned>(w->client_rect.left),
                                          static_cast<unsigned>(w->client_rect.top)));
      if (!(w = Find(hwnd))) return 0;
      if (!(wp->flags & SWP_NOSIZE))
        Send(hwnd, WM_SIZE, SIZE_RESTORED,
             MAKELPARAM(w->client_rect.Width(), w->client_rect.Height()));
      return 0;
    }
    case WM_WINDOWPOSCHANGING: {
      // Top-level windows keep to the sizes their WM_GETMINMAXINFO allows.
      auto* wp = reinterpret_cast<WINDOWPOS*>(lparam);
      if (!wp || w->is_child() || (wp->flags & SWP_NOSIZE)) return 0;
      MINMAXINFO mmi;
      mmi.ptMinTrackSize = {1, 1};
      mmi.ptMaxTrackSize = {32767, 32767};
      Send(hwnd, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&mmi));
      wp->cx = std::clamp(wp->cx, mmi.ptMinTrackSize.x, std::max(mmi.ptMinTrackSize.x,
                                                                   mmi.ptMaxTrackSize.x));
      wp->cy = std::clamp(wp->cy, mmi.ptMinTrackSize.y, std::max(mmi.ptMinTrackSize.y,
                                                                   mmi.ptMaxTrackSize.y));
      return 0;
    }
    case WM_ACTIVATE:
      if (LOWORD(wparam) != WA_INACTIVE) RestoreFocusOnActivate(w);
      return 0;
    case WM_MOUSEACTIVATE:
      return MA_ACTIVATE;
    case WM_NCHITTEST:
      return HTCLIENT;
    case WM_NCACTIVATE:
      return 1;
    case WM_CANCELMODE:
      if (GetCapture() == hwnd) ReleaseCapture();
      return 0;
    case WM_MOUSEWHEEL:
      // Unhandled wheel turns go up to the parent.
      if (w->is_child()) return Send(w->parent, msg, wparam, lparam);
      return 0;
    default:
      return 0;
  }
}

}  // namespace qmk::platform::ui
