// plain_control.cpp: the messages every plain control answers the same way.
#include "platform/ui/controls/plain_control.h"

namespace qmk::platform::ui::controls {

LRESULT PlainControl::Handle(unsigned msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_SETFONT:
      font_ = reinterpret_cast<HFONT>(wparam);
      if (LOWORD(static_cast<uintptr_t>(lparam))) Invalidate();
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(font_);
    case WM_ERASEBKGND:
      return 1;  // Paint fills the whole client area
    case WM_PAINT: {
      PAINTSTRUCT ps;
      if (Dc* dc = BeginPaint(hwnd_, &ps)) PaintWith(*dc);
      EndPaint(hwnd_, &ps);
      return 0;
    }
    case WM_PRINTCLIENT:
      if (Dc* dc = DcFromWParam(wparam)) PaintWith(*dc);
      return 0;
    case WM_ENABLE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      Invalidate();
      return Default(msg, wparam, lparam);
    default:
      return Default(msg, wparam, lparam);
  }
}

void PlainControl::PaintWith(Dc& dc) {
  HFONT old = dc.SelectFont(font());
  Paint(dc);
  dc.SelectFont(old);
}

void PlainControl::SetStyleBits(uint32_t bits, bool on) {
  uint32_t s = style();
  uint32_t next = on ? (s | bits) : (s & ~bits);
  if (next != s) SetWindowLongPtr(hwnd_, GWL_STYLE, static_cast<intptr_t>(next));
}

Rect PlainControl::ClientRect() const {
  Rect r;
  GetClientRect(hwnd_, &r);
  return r;
}

void PlainControl::NotifyCommand(unsigned code) {
  HWND parent = GetParent(hwnd_);
  if (!parent) return;
  SendMessage(parent, WM_COMMAND, MAKEWPARAM(static_cast<unsigned>(id()), code),
              reinterpret_cast<LPARAM>(hwnd_));
}

LRESULT PlainControl::NotifyParent(NMHDR* header, unsigned code) {
  header->hwndFrom = hwnd_;
  header->idFrom = static_cast<uintptr_t>(id());
  header->code = code;
  HWND parent = GetParent(hwnd_);
  if (!parent) return 0;
  return SendMessage(parent, WM_NOTIFY, static_cast<WPARAM>(id()),
                     reinterpret_cast<LPARAM>(header));
}

void PlainControl::StoreWindowText(const std::string& text) {
  DefWindowProc(hwnd_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

int PlainControl::LineHeight() const {
  TEXTMETRIC tm;
  if (!GetTextMetrics(font(), &tm) || tm.tmHeight <= 0) return 13;
  return tm.tmHeight;
}

bool PlainControl::ShiftDown() { return GetKeyState(VK_SHIFT) < 0; }
bool PlainControl::ControlDown() { return GetKeyState(VK_CONTROL) < 0; }

}  // namespace qmk::platform::ui::controls
