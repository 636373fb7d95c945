// up_down_control.cpp: the up-down's messages, its buddy (placement, number text, arrow keys),
// the press and auto-repeat of its arrows, and its painting.
#include "platform/ui/controls/up_down_control.h"

#include <algorithm>

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {
namespace {

constexpr uintptr_t kRepeatTimer = 1;
constexpr unsigned kFirstDelayMs = 400;
constexpr unsigned kRepeatMs = 100;
constexpr const char* kBuddyOwnerProp = "qmk.updown";
constexpr const char* kBuddyProcProp = "qmk.updown.proc";

// The buddy's window procedure while an up-down with arrow keys owns it: the Up and Down keys
// step the number.
LRESULT BuddyProc(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  auto old = reinterpret_cast<WNDPROC>(GetProp(hwnd, kBuddyProcProp));
  auto owner = static_cast<HWND>(GetProp(hwnd, kBuddyOwnerProp));
  if (msg == WM_KEYDOWN && (wparam == VK_UP || wparam == VK_DOWN) && owner && IsWindow(owner)) {
    if (UpDownControl* updown = ControlOf<UpDownControl>(owner)) {
      updown->Press(wparam == VK_UP ? 1 : -1);
      return 0;
    }
  }
  if (msg == WM_GETDLGCODE) return CallWindowProc(old, hwnd, msg, wparam, lparam) | DLGC_WANTARROWS;
  if (msg == WM_NCDESTROY) {
    SubclassWindow(hwnd, old);
    RemoveProp(hwnd, kBuddyProcProp);
    RemoveProp(hwnd, kBuddyOwnerProp);
  }
  return CallWindowProc(old, hwnd, msg, wparam, lparam);
}

}  // namespace

UpDownControl::~UpDownControl() { ReleaseBuddy(); }

void UpDownControl::OnCreate(const CREATESTRUCT& cs) {
  model_.SetWrap((cs.style & UDS_WRAP) != 0);
  model_.SetThousands((cs.style & UDS_NOTHOUSANDS) == 0);
}

bool UpDownControl::Horizontal() const { return (style() & UDS_HORZ) != 0; }

void UpDownControl::ReleaseBuddy() {
  if (!buddy_ || !IsWindow(buddy_)) {
    buddy_ = nullptr;
    return;
  }
  if (GetWindowProc(buddy_) == &BuddyProc) {
    SubclassWindow(buddy_, reinterpret_cast<WNDPROC>(GetProp(buddy_, kBuddyProcProp)));
    RemoveProp(buddy_, kBuddyProcProp);
    RemoveProp(buddy_, kBuddyOwnerProp);
  }
  buddy_ = nullptr;
}

HWND UpDownControl::SetBuddy(HWND buddy) {
  HWND old = buddy_;
  ReleaseBuddy();
  if (!buddy || !IsWindow(buddy)) return old;
  buddy_ = buddy;
  if ((style() & UDS_ARROWKEYS) && GetProp(buddy, kBuddyProcProp) == nullptr) {
    SetProp(buddy, kBuddyOwnerProp, hwnd());
    SetProp(buddy, kBuddyProcProp, reinterpret_cast<void*>(SubclassWindow(buddy, &BuddyProc)));
  }
  AlignToBuddy();
  if (style() & UDS_SETBUDDYINT) WriteBuddy();
  return old;
}

void UpDownControl::AlignToBuddy() {
  uint32_t s = style();
  if (!buddy_ || !(s & (UDS_ALIGNLEFT | UDS_ALIGNRIGHT))) return;
  Rect b;
  GetWindowRect(buddy_, &b);
  MapWindowRect(nullptr, GetParent(hwnd()), &b);
  Rect mine;
  GetWindowRect(hwnd(), &mine);
  int width = std::max(8, mine.Width());
  // The arrows take the buddy's edge, overlapping its border by two pixels.
  int cut = width - 2;
  if (s & UDS_ALIGNRIGHT) {
    MoveWindow(buddy_, b.left, b.top, b.Width() - cut, b.Height(), true);
    MoveWindow(hwnd(), b.right - width, b.top, width, b.Height(), true);
  } else {
    MoveWindow(buddy_, b.left + cut, b.top, b.Width() - cut, b.Height(), true);
    MoveWindow(hwnd(), b.left, b.top, width, b.Height(), true);
  }
}

bool UpDownControl::ReadBuddy() {
  if (!buddy_ || !IsWindow(buddy_) || !(style() & UDS_SETBUDDYINT)) return false;
  int value = 0;
  if (!model_.ParseBuddy(GetWindowText(buddy_), &value)) return false;
  model_.SetPos(value);
  return true;
}

void UpDownControl::WriteBuddy() {
  if (!buddy_ || !IsWindow(buddy_) || !(style() & UDS_SETBUDDYINT)) return;
  std::string text = model_.FormatBuddy();
  if (GetWindowText(buddy_) != text) SetWindowText(buddy_, text.c_str());
}

void UpDownControl::Press(int clicks) {
  if (!enabled()) return;
  ReadBuddy();
  NMUPDOWN nm;
  nm.iPos = model_.pos();
  nm.iDelta = model_.RawDelta(clicks);
  // The parent may refuse the step, or change it.
  if (NotifyParent(&nm.hdr, UDN_DELTAPOS) != 0) return;
  if (model_.Step(nm.iDelta)) WriteBuddy();
  HWND parent = GetParent(hwnd());
  if (parent) {
    SendMessage(parent, Horizontal() ? WM_HSCROLL : WM_VSCROLL,
                MAKEWPARAM(SB_THUMBPOSITION, static_cast<unsigned>(model_.pos())),
                reinterpret_cast<LPARAM>(hwnd()));
  }
  Invalidate();
}

int UpDownControl::ArrowAt(Point p) const {
  Rect r = ClientRect();
  if (!PtInRect(r, p)) return 0;
  if (Horizontal()) return p.x >= r.left + r.Width() / 2 ? 1 : -1;
  return p.y < r.top + r.Height() / 2 ? 1 : -1;
}

void UpDownControl::EndPress() {
  if (pressed_ == 0) return;
  pressed_ = 0;
  repeating_ = false;
  KillTimer(hwnd(), kRepeatTimer);
  if (HWND parent = GetParent(hwnd())) {
    SendMessage(parent, Horizontal() ? WM_HSCROLL : WM_VSCROLL,
                MAKEWPARAM(SB_ENDSCROLL, static_cast<unsigned>(model_.pos())),
                reinterpret_cast<LPARAM>(hwnd()));
  }
  Invalidate();
}

LRESULT UpDownControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_CREATE:
      // The auto buddy is the control made just before this one.
      if (style() & UDS_AUTOBUDDY) SetBuddy(GetWindow(hwnd(), GW_HWNDPREV));
      return Default(msg, wparam, lparam);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      int arrow = ArrowAt({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
      if (arrow == 0 || !enabled()) return 0;
      if (buddy_ && IsWindow(buddy_)) SetFocus(buddy_);
      SetCapture(hwnd());
      pressed_ = arrow;
      Press(arrow);
      SetTimer(hwnd(), kRepeatTimer, kFirstDelayMs, nullptr);
      return 0;
    }
    case WM_TIMER:
      if (wparam != kRepeatTimer || pressed_ == 0) return 0;
      if (!repeating_) {
        repeating_ = true;
        SetTimer(hwnd(), kRepeatTimer, kRepeatMs, nullptr);
      }
      Press(pressed_);
      return 0;
    case WM_LBUTTONUP:
      if (pressed_ != 0) {
        EndPress();
        ReleaseCapture();
      }
      return 0;
    case WM_CAPTURECHANGED:
      EndPress();
      return 0;
    case WM_KEYDOWN:
      if (wparam == VK_UP || wparam == VK_RIGHT) { Press(1); return 0; }
      if (wparam == VK_DOWN || wparam == VK_LEFT) { Press(-1); return 0; }
      return Default(msg, wparam, lparam);
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case UDM_SETRANGE:
      model_.SetRange(static_cast<int16_t>(HIWORD(static_cast<uintptr_t>(lparam))),
                      static_cast<int16_t>(LOWORD(static_cast<uintptr_t>(lparam))));
      Invalidate();
      return 0;
    case UDM_GETRANGE:
      return MAKELPARAM(static_cast<unsigned>(model_.upper()), static_cast<unsigned>(model_.lower()));
    case UDM_SETRANGE32:
      model_.SetRange(static_cast<int>(static_cast<intptr_t>(wparam)), static_cast<int>(lparam));
      Invalidate();
      return 0;
    case UDM_GETRANGE32:
      if (wparam) *reinterpret_cast<int*>(wparam) = model_.lower();
      if (lparam) *reinterpret_cast<int*>(lparam) = model_.upper();
      return 0;
    case UDM_SETPOS:
    case UDM_SETPOS32: {
      int pos = msg == UDM_SETPOS ? static_cast<int16_t>(LOWORD(static_cast<uintptr_t>(lparam)))
                                  : static_cast<int>(lparam);
      int before = model_.SetPos(pos);
      WriteBuddy();
      return before;
    }
    case UDM_GETPOS: {
      // The buddy's text is read first; a text that is not a number in range sets the high word.
      bool bad = buddy_ && (style() & UDS_SETBUDDYINT) && !ReadBuddy();
      return MAKELPARAM(static_cast<unsigned>(model_.pos()), bad ? 1u : 0u);
    }
    case UDM_GETPOS32: {
      bool bad = buddy_ && (style() & UDS_SETBUDDYINT) && !ReadBuddy();
      if (lparam) *reinterpret_cast<int*>(lparam) = bad ? 1 : 0;
      return model_.pos();
    }
    case UDM_SETBUDDY:
      return reinterpret_cast<LRESULT>(SetBuddy(reinterpret_cast<HWND>(wparam)));
    case UDM_GETBUDDY:
      return reinterpret_cast<LRESULT>(buddy_);
    case UDM_SETBASE: {
      int before = model_.SetBase(static_cast<int>(wparam));
      if (before) WriteBuddy();
      return before;
    }
    case UDM_GETBASE:
      return model_.base();
    case UDM_SETACCEL:
      // Steps are always one per press or tick: a table of accelerations is taken and unused.
      return 1;
    case UDM_GETACCEL:
      if (wparam > 0 && lparam) *reinterpret_cast<UDACCEL*>(lparam) = UDACCEL{0, 1};
      return 1;
    default:
      return PlainControl::Handle(msg, wparam, lparam);
  }
}

void UpDownControl::Paint(Dc& dc) {
  Rect r = ClientRect();
  dc.FillRect(r, colors::kFace);
  Rect first = r, second = r;
  if (Horizontal()) {
    first.right = second.left = r.left + r.Width() / 2;
    DrawArrowButton(dc, first, Arrow::kLeft, pressed_ == -1, enabled());
    DrawArrowButton(dc, second, Arrow::kRight, pressed_ == 1, enabled());
  } else {
    first.bottom = second.top = r.top + r.Height() / 2;
    DrawArrowButton(dc, first, Arrow::kUp, pressed_ == 1, enabled());
    DrawArrowButton(dc, second, Arrow::kDown, pressed_ == -1, enabled());
  }
}

}  // namespace qmk::platform::ui::controls
