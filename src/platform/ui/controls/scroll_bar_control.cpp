// scroll_bar_control.cpp: the scroll bar's messages, the requests it sends as the mouse and keys
// work it, and its painting.
#include "platform/ui/controls/scroll_bar_control.h"

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {
namespace {
constexpr uintptr_t kRepeatTimer = 1;
constexpr unsigned kFirstDelayMs = 400;
constexpr unsigned kRepeatMs = 100;
}  // namespace

ScrollBarLayout ScrollBarControl::Layout() const {
  return {ClientRect(), (style() & SBS_VERT) != 0};
}

void ScrollBarControl::Tell(int code, int pos) {
  HWND parent = GetParent(hwnd());
  if (!parent) return;
  SendMessage(parent, (style() & SBS_VERT) ? WM_VSCROLL : WM_HSCROLL,
              MAKEWPARAM(static_cast<unsigned>(code), static_cast<unsigned>(pos)),
              reinterpret_cast<LPARAM>(hwnd()));
}

int ScrollBarControl::CodeFor(ScrollPart part) const {
  switch (part) {
    case ScrollPart::kLineBack: return SB_LINEUP;
    case ScrollPart::kLineForward: return SB_LINEDOWN;
    case ScrollPart::kPageBack: return SB_PAGEUP;
    case ScrollPart::kPageForward: return SB_PAGEDOWN;
    default: return -1;
  }
}

LRESULT ScrollBarControl::HandleMouse(unsigned msg, LPARAM lparam) {
  Point p{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
  ScrollBarLayout layout = Layout();
  switch (msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      if (!enabled()) return 0;
      pressed_ = layout.HitTest(model_, p);
      if (pressed_ == ScrollPart::kNone) return 0;
      SetCapture(hwnd());
      if (pressed_ == ScrollPart::kThumb) {
        drag_offset_ = layout.Along(p) - layout.ArrowLength() -
                       model_.Thumb(layout.TrackLength(), kMinThumb).offset;
        model_.SetTrackPos(model_.pos());
      } else {
        Tell(CodeFor(pressed_));
        SetTimer(hwnd(), kRepeatTimer, kFirstDelayMs, nullptr);
      }
      Invalidate();
      return 0;
    }
    case WM_MOUSEMOVE:
      if (pressed_ == ScrollPart::kThumb) {
        int offset = layout.Along(p) - layout.ArrowLength() - drag_offset_;
        int track = model_.PosFromThumbOffset(offset, layout.TrackLength(), kMinThumb);
        if (track != model_.track_pos()) {
          model_.SetTrackPos(track);
          Invalidate();
          Tell(SB_THUMBTRACK, track);
        }
      }
      return 0;
    case WM_LBUTTONUP: {
      if (pressed_ == ScrollPart::kNone) return 0;
      ScrollPart was = pressed_;
      pressed_ = ScrollPart::kNone;
      repeating_ = false;
      KillTimer(hwnd(), kRepeatTimer);
      ReleaseCapture();
      if (was == ScrollPart::kThumb) Tell(SB_THUMBPOSITION, model_.track_pos());
      Tell(SB_ENDSCROLL);
      Invalidate();
      return 0;
    }
    default:
      return 0;
  }
}

LRESULT ScrollBarControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  bool handled = true;
  LRESULT r = HandleBarMessage(msg, wparam, lparam, &handled);
  if (handled) return r;
  switch (msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
      return HandleMouse(msg, lparam);
    case WM_TIMER:
      if (wparam != kRepeatTimer || CodeFor(pressed_) < 0) return 0;
      if (!repeating_) {
        repeating_ = true;
        SetTimer(hwnd(), kRepeatTimer, kRepeatMs, nullptr);
      }
      Tell(CodeFor(pressed_));
      return 0;
    case WM_CAPTURECHANGED:
      if (pressed_ != ScrollPart::kNone) {
        pressed_ = ScrollPart::kNone;
        KillTimer(hwnd(), kRepeatTimer);
        Invalidate();
      }
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN: {
      int code = -1;
      switch (wparam) {
        case VK_UP: case VK_LEFT: code = SB_LINEUP; break;
        case VK_DOWN: case VK_RIGHT: code = SB_LINEDOWN; break;
        case VK_PRIOR: code = SB_PAGEUP; break;
        case VK_NEXT: code = SB_PAGEDOWN; break;
        case VK_HOME: code = SB_TOP; break;
        case VK_END: code = SB_BOTTOM; break;
        default: return Default(msg, wparam, lparam);
      }
      Tell(code);
      Tell(SB_ENDSCROLL);
      return 0;
    }
    default:
      return PlainControl::Handle(msg, wparam, lparam);
  }
}

LRESULT ScrollBarControl::HandleBarMessage(unsigned msg, WPARAM wparam, LPARAM lparam,
                                           bool* handled) {
  switch (msg) {
    case SBM_SETPOS: {
      int before = model_.SetPos(static_cast<int>(static_cast<intptr_t>(wparam)));
      if (lparam) Invalidate();
      return before;
    }
    case SBM_GETPOS: return model_.pos();
    case SBM_SETRANGE:
    case SBM_SETRANGEREDRAW: {
      int before = model_.pos();
      model_.SetRange(static_cast<int>(static_cast<intptr_t>(wparam)), static_cast<int>(lparam));
      if (msg == SBM_SETRANGEREDRAW) Invalidate();
      return before;
    }
    case SBM_GETRANGE:
      if (wparam) *reinterpret_cast<int*>(wparam) = model_.min();
      if (lparam) *reinterpret_cast<int*>(lparam) = model_.max();
      return 0;
    case SBM_SETSCROLLINFO: {
      auto* info = reinterpret_cast<const SCROLLINFO*>(lparam);
      if (!info) return model_.pos();
      if (info->fMask & SIF_RANGE) model_.SetRange(info->nMin, info->nMax);
      if (info->fMask & SIF_PAGE) model_.SetPage(info->nPage);
      if (info->fMask & SIF_POS) model_.SetPos(info->nPos);
      if (wparam) Invalidate();
      return model_.pos();
    }
    case SBM_GETSCROLLINFO: {
      auto* info = reinterpret_cast<SCROLLINFO*>(lparam);
      if (!info) return 0;
      if (info->fMask & SIF_RANGE) { info->nMin = model_.min(); info->nMax = model_.max(); }
      if (info->fMask & SIF_PAGE) info->nPage = model_.page();
      if (info->fMask & SIF_POS) info->nPos = model_.pos();
      if (info->fMask & SIF_TRACKPOS) {
        info->nTrackPos = pressed_ == ScrollPart::kThumb ? model_.track_pos() : model_.pos();
      }
      return 1;
    }
    case SBM_ENABLE_ARROWS: return 1;
    default:
      *handled = false;
      return 0;
  }
}

void ScrollBarControl::Paint(Dc& dc) {
  // A dragged thumb shows where the mouse holds it, before the parent moves the bar.
  ScrollBarModel shown = model_;
  if (pressed_ == ScrollPart::kThumb) shown.SetPos(model_.track_pos());
  PaintScrollBar(dc, Layout(), shown, enabled(), pressed_);
  if (focused() && pressed_ == ScrollPart::kNone) {
    Rect thumb = Layout().PartRect(model_, ScrollPart::kThumb);
    if (!thumb.IsEmpty()) dc.DrawFocusRect(Deflate(thumb, 2, 2));
  }
}

}  // namespace qmk::platform::ui::controls
