// static_control.cpp: the "Static" class: text with its alignment, icons, frames and rectangles.
#include "platform/ui/controls/static_control.h"

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {

LRESULT StaticControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_NCHITTEST:
      // Labels let the mouse through to what lies below, unless they report clicks.
      return (style() & SS_NOTIFY) ? HTCLIENT : HTTRANSPARENT;
    case WM_GETDLGCODE:
      return DLGC_STATIC;
    case WM_SETTEXT: {
      LRESULT r = Default(msg, wparam, lparam);
      Invalidate();
      return r;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (style() & SS_NOTIFY) NotifyCommand(msg == WM_LBUTTONDOWN ? STN_CLICKED : STN_DBLCLK);
      return 0;
    case STM_SETICON:
    case STM_SETIMAGE: {
      HICON old = icon_;
      icon_ = reinterpret_cast<HICON>(msg == STM_SETICON ? wparam : static_cast<WPARAM>(lparam));
      Invalidate();
      return reinterpret_cast<LRESULT>(old);
    }
    case STM_GETICON:
    case STM_GETIMAGE:
      return reinterpret_cast<LRESULT>(icon_);
    default:
      return PlainControl::Handle(msg, wparam, lparam);
  }
}

void StaticControl::OnCreate(const CREATESTRUCT& cs) {
  // An icon static names a standard icon by its text ("#32515" or a number).
  if ((cs.style & SS_TYPEMASK) == SS_ICON && cs.lpszName) icon_ = LoadStandardIconByName(cs.lpszName);
}

void StaticControl::Paint(Dc& dc) {
  Rect r = ClientRect();
  uint32_t kind = style() & SS_TYPEMASK;
  switch (kind) {
    case SS_BLACKRECT: dc.FillRect(r, colors::kText); return;
    case SS_GRAYRECT: dc.FillRect(r, colors::kShadow); return;
    case SS_WHITERECT: dc.FillRect(r, colors::kWindow); return;
    default: break;
  }
  dc.FillRect(r, colors::kFace);
  switch (kind) {
    case SS_BLACKFRAME: dc.FrameRect(r, colors::kText); return;
    case SS_GRAYFRAME: dc.FrameRect(r, colors::kShadow); return;
    case SS_WHITEFRAME: dc.FrameRect(r, colors::kWindow); return;
    case SS_ETCHEDFRAME: DrawEdge(dc, r, Edge::kEtched); return;
    case SS_ETCHEDHORZ:
      dc.FillRect({r.left, r.top, r.right, r.top + 1}, colors::kShadow);
      dc.FillRect({r.left, r.top + 1, r.right, r.top + 2}, colors::kHighlight3d);
      return;
    case SS_ETCHEDVERT:
      dc.FillRect({r.left, r.top, r.left + 1, r.bottom}, colors::kShadow);
      dc.FillRect({r.left + 1, r.top, r.left + 2, r.bottom}, colors::kHighlight3d);
      return;
    case SS_ICON:
    case SS_BITMAP:
      if (icon_) DrawIcon(dc, icon_, r, (style() & SS_CENTERIMAGE) != 0);
      return;
    default:
      break;
  }
  if (style() & SS_SUNKEN) r = DrawEdge(dc, r, Edge::kThinSunken);
  unsigned format = DT_WORDBREAK;
  switch (kind) {
    case SS_CENTER: format = DT_CENTER | DT_WORDBREAK; break;
    case SS_RIGHT: format = DT_RIGHT | DT_WORDBREAK; break;
    case SS_SIMPLE:
    case SS_LEFTNOWORDWRAP: format = DT_LEFT | DT_SINGLELINE; break;
    default: break;
  }
  if (style() & SS_CENTERIMAGE) format = (format & ~DT_WORDBREAK) | DT_SINGLELINE | DT_VCENTER;
  if (style() & SS_NOPREFIX) format |= DT_NOPREFIX;
  DrawLabel(dc, GetWindowText(hwnd()), r, format, enabled());
}

}  // namespace qmk::platform::ui::controls
