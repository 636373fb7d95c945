// messages.h: message numbers, their parameter structures, styles and key codes of the window
// system. The numbers are those of the platform model the toolkit was written against, so that
// code ported from it keeps its constants (set-font is 48, the user range starts at 0x400).
#pragma once

#include <cstdint>

#include "platform/ui/types.h"

namespace qmk::platform::ui {

// ---- Window messages -------------------------------------------------------------------------
constexpr unsigned WM_NULL = 0x0000;
constexpr unsigned WM_CREATE = 0x0001;
constexpr unsigned WM_DESTROY = 0x0002;
constexpr unsigned WM_MOVE = 0x0003;
constexpr unsigned WM_SIZE = 0x0005;
constexpr unsigned WM_ACTIVATE = 0x0006;
constexpr unsigned WM_SETFOCUS = 0x0007;
constexpr unsigned WM_KILLFOCUS = 0x0008;
constexpr unsigned WM_ENABLE = 0x000A;
constexpr unsigned WM_SETREDRAW = 0x000B;
constexpr unsigned WM_SETTEXT = 0x000C;
constexpr unsigned WM_GETTEXT = 0x000D;
constexpr unsigned WM_GETTEXTLENGTH = 0x000E;
constexpr unsigned WM_PAINT = 0x000F;
constexpr unsigned WM_CLOSE = 0x0010;
constexpr unsigned WM_QUIT = 0x0012;
constexpr unsigned WM_ERASEBKGND = 0x0014;
constexpr unsigned WM_SHOWWINDOW = 0x0018;
constexpr unsigned WM_ACTIVATEAPP = 0x001C;
constexpr unsigned WM_CANCELMODE = 0x001F;
constexpr unsigned WM_SETCURSOR = 0x0020;
constexpr unsigned WM_MOUSEACTIVATE = 0x0021;
constexpr unsigned WM_GETMINMAXINFO = 0x0024;
constexpr unsigned WM_NEXTDLGCTL = 0x0028;
constexpr unsigned WM_SETFONT = 0x0030;
constexpr unsigned WM_GETFONT = 0x0031;
constexpr unsigned WM_WINDOWPOSCHANGING = 0x0046;
constexpr unsigned WM_WINDOWPOSCHANGED = 0x0047;
constexpr unsigned WM_NOTIFY = 0x004E;
constexpr unsigned WM_STYLECHANGING = 0x007C;
constexpr unsigned WM_STYLECHANGED = 0x007D;
constexpr unsigned WM_NCCREATE = 0x0081;
constexpr unsigned WM_NCDESTROY = 0x0082;
constexpr unsigned WM_NCCALCSIZE = 0x0083;
constexpr unsigned WM_NCHITTEST = 0x0084;
constexpr unsigned WM_NCPAINT = 0x0085;
constexpr unsigned WM_NCACTIVATE = 0x0086;
constexpr unsigned WM_GETDLGCODE = 0x0087;
constexpr unsigned WM_KEYDOWN = 0x0100;
constexpr unsigned WM_KEYUP = 0x0101;
constexpr unsigned WM_CHAR = 0x0102;
constexpr unsigned WM_SYSKEYDOWN = 0x0104;
constexpr unsigned WM_SYSKEYUP = 0x0105;
constexpr unsigned WM_SYSCHAR = 0x0106;
constexpr unsigned WM_INITDIALOG = 0x0110;
constexpr unsigned WM_COMMAND = 0x0111;
constexpr unsigned WM_SYSCOMMAND = 0x0112;
constexpr unsigned WM_TIMER = 0x0113;
constexpr unsigned WM_HSCROLL = 0x0114;
constexpr unsigned WM_VSCROLL = 0x0115;
constexpr unsigned WM_ENTERIDLE = 0x0121;
constexpr unsigned WM_CTLCOLOREDIT = 0x0133;
constexpr unsigned WM_CTLCOLORLISTBOX = 0x0134;
constexpr unsigned WM_CTLCOLORBTN = 0x0135;
constexpr unsigned WM_CTLCOLORDLG = 0x0136;
constexpr unsigned WM_CTLCOLORSTATIC = 0x0138;
constexpr unsigned WM_MOUSEFIRST = 0x0200;
constexpr unsigned WM_MOUSEMOVE = 0x0200;
constexpr unsigned WM_LBUTTONDOWN = 0x0201;
constexpr unsigned WM_LBUTTONUP = 0x0202;
constexpr unsigned WM_LBUTTONDBLCLK = 0x0203;
constexpr unsigned WM_RBUTTONDOWN = 0x0204;
constexpr unsigned WM_RBUTTONUP = 0x0205;
constexpr unsigned WM_RBUTTONDBLCLK = 0x0206;
constexpr unsigned WM_MBUTTONDOWN = 0x0207;
constexpr unsigned WM_MBUTTONUP = 0x0208;
constexpr unsigned WM_MOUSEWHEEL = 0x020A;
constexpr unsigned WM_MOUSELAST = 0x020A;
constexpr unsigned WM_CAPTURECHANGED = 0x0215;
constexpr unsigned WM_DPICHANGED = 0x02E0;
constexpr unsigned WM_CUT = 0x0300;
constexpr unsigned WM_COPY = 0x0301;
constexpr unsigned WM_PASTE = 0x0302;
constexpr unsigned WM_CLEAR = 0x0303;
constexpr unsigned WM_UNDO = 0x0304;
constexpr unsigned WM_PRINT = 0x0317;
constexpr unsigned WM_PRINTCLIENT = 0x0318;
constexpr unsigned WM_USER = 0x0400;
constexpr unsigned WM_APP = 0x8000;

// Dialog messages.
constexpr unsigned DM_GETDEFID = WM_USER + 0;
constexpr unsigned DM_SETDEFID = WM_USER + 1;
// High word of DM_GETDEFID's answer when the dialog has a default push button.
constexpr unsigned DC_HASDEFID = 0x534B;

// ---- Parameters ------------------------------------------------------------------------------
// WM_SIZE wParam.
constexpr WPARAM SIZE_RESTORED = 0, SIZE_MINIMIZED = 1, SIZE_MAXIMIZED = 2;
// WM_ACTIVATE wParam low word.
constexpr unsigned WA_INACTIVE = 0, WA_ACTIVE = 1, WA_CLICKACTIVE = 2;
// Mouse message wParam: buttons and modifier keys held.
constexpr unsigned MK_LBUTTON = 0x01, MK_RBUTTON = 0x02, MK_SHIFT = 0x04, MK_CONTROL = 0x08,
                   MK_MBUTTON = 0x10;
// WM_PRINT lParam.
constexpr unsigned PRF_CHECKVISIBLE = 0x01, PRF_NONCLIENT = 0x02, PRF_CLIENT = 0x04,
                   PRF_ERASEBKGND = 0x08, PRF_CHILDREN = 0x10, PRF_OWNED = 0x20;
// WM_SYSCOMMAND wParam.
constexpr unsigned SC_CLOSE = 0xF060;
// WM_NCHITTEST answers.
constexpr int HTNOWHERE = 0, HTCLIENT = 1, HTTRANSPARENT = -1;
// WM_MOUSEACTIVATE answers.
constexpr int MA_ACTIVATE = 1, MA_NOACTIVATE = 3;

// WM_GETDLGCODE answers: what keys a control wants to see instead of the dialog manager.
constexpr unsigned DLGC_WANTARROWS = 0x0001;
constexpr unsigned DLGC_WANTTAB = 0x0002;
constexpr unsigned DLGC_WANTALLKEYS = 0x0004;
constexpr unsigned DLGC_WANTMESSAGE = 0x0004;
constexpr unsigned DLGC_HASSETSEL = 0x0008;
constexpr unsigned DLGC_DEFPUSHBUTTON = 0x0010;
constexpr unsigned DLGC_UNDEFPUSHBUTTON = 0x0020;
constexpr unsigned DLGC_RADIOBUTTON = 0x0040;
constexpr unsigned DLGC_WANTCHARS = 0x0080;
constexpr unsigned DLGC_STATIC = 0x0100;
constexpr unsigned DLGC_BUTTON = 0x2000;

// Command identifiers of the standard buttons.
constexpr int IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6,
              IDNO = 7, IDCLOSE = 8, IDHELP = 9;
constexpr int IDC_STATIC = -1;

// ---- Window styles ---------------------------------------------------------------------------
constexpr uint32_t WS_OVERLAPPED = 0x00000000;
constexpr uint32_t WS_POPUP = 0x80000000;
constexpr uint32_t WS_CHILD = 0x40000000;
constexpr uint32_t WS_MINIMIZE = 0x20000000;
constexpr uint32_t WS_VISIBLE = 0x10000000;
constexpr uint32_t WS_DISABLED = 0x08000000;
constexpr uint32_t WS_CLIPSIBLINGS = 0x04000000;
constexpr uint32_t WS_CLIPCHILDREN = 0x02000000;
constexpr uint32_t WS_MAXIMIZE = 0x01000000;
constexpr uint32_t WS_CAPTION = 0x00C00000;
constexpr uint32_t WS_BORDER = 0x00800000;
constexpr uint32_t WS_DLGFRAME = 0x00400000;
constexpr uint32_t WS_VSCROLL = 0x00200000;
constexpr uint32_t WS_HSCROLL = 0x00100000;
constexpr uint32_t WS_SYSMENU = 0x00080000;
constexpr uint32_t WS_THICKFRAME = 0x00040000;
constexpr uint32_t WS_GROUP = 0x00020000;
constexpr uint32_t WS_TABSTOP = 0x00010000;
constexpr uint32_t WS_MINIMIZEBOX = 0x00020000;
constexpr uint32_t WS_MAXIMIZEBOX = 0x00010000;
constexpr uint32_t WS_OVERLAPPEDWINDOW =
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;

constexpr uint32_t WS_EX_DLGMODALFRAME = 0x00000001;
constexpr uint32_t WS_EX_NOPARENTNOTIFY = 0x00000004;
constexpr uint32_t WS_EX_TOPMOST = 0x00000008;
constexpr uint32_t WS_EX_TRANSPARENT = 0x00000020;
constexpr uint32_t WS_EX_TOOLWINDOW = 0x00000080;
constexpr uint32_t WS_EX_WINDOWEDGE = 0x00000100;
constexpr uint32_t WS_EX_CLIENTEDGE = 0x00000200;
constexpr uint32_t WS_EX_CONTROLPARENT = 0x00010000;
constexpr uint32_t WS_EX_STATICEDGE = 0x00020000;
constexpr uint32_t WS_EX_LAYOUTRTL = 0x00400000;

// Dialog styles (low bits of a dialog's style).
constexpr uint32_t DS_SETFONT = 0x0040;
constexpr uint32_t DS_MODALFRAME = 0x0080;
constexpr uint32_t DS_CONTROL = 0x0400;
constexpr uint32_t DS_CENTER = 0x0800;

// ---- Positioning and showing -----------------------------------------------------------------
constexpr unsigned SWP_NOSIZE = 0x0001;
constexpr unsigned SWP_NOMOVE = 0x0002;
constexpr unsigned SWP_NOZORDER = 0x0004;
constexpr unsigned SWP_NOREDRAW = 0x0008;
constexpr unsigned SWP_NOACTIVATE = 0x0010;
constexpr unsigned SWP_FRAMECHANGED = 0x0020;
constexpr unsigned SWP_SHOWWINDOW = 0x0040;
constexpr unsigned SWP_HIDEWINDOW = 0x0080;
constexpr unsigned SWP_NOOWNERZORDER = 0x0200;
constexpr unsigned SWP_NOSENDCHANGING = 0x0400;

// Special insert-after values of SetWindowPos.
inline HWND HWND_TOP() { return nullptr; }
inline HWND HWND_BOTTOM() { return reinterpret_cast<HWND>(uintptr_t{1}); }

constexpr int SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_SHOWMINIMIZED = 2, SW_MAXIMIZE = 3,
              SW_SHOWNOACTIVATE = 4, SW_SHOW = 5, SW_MINIMIZE = 6, SW_SHOWNA = 8, SW_RESTORE = 9;

// GetWindow relations.
constexpr unsigned GW_HWNDFIRST = 0, GW_HWNDLAST = 1, GW_HWNDNEXT = 2, GW_HWNDPREV = 3,
                   GW_OWNER = 4, GW_CHILD = 5;

// Get/SetWindowLongPtr indexes.
constexpr int GWLP_WNDPROC = -4;
constexpr int GWLP_ID = -12;
constexpr int GWL_STYLE = -16;
constexpr int GWL_EXSTYLE = -20;
constexpr int GWLP_USERDATA = -21;
// A dialog's answer to the message being handled, read when the dialog procedure returns TRUE.
constexpr int DWLP_MSGRESULT = 0;

// ---- Keys ------------------------------------------------------------------------------------
constexpr unsigned VK_BACK = 0x08, VK_TAB = 0x09, VK_RETURN = 0x0D, VK_SHIFT = 0x10,
                   VK_CONTROL = 0x11, VK_MENU = 0x12, VK_ESCAPE = 0x1B, VK_SPACE = 0x20,
                   VK_PRIOR = 0x21, VK_NEXT = 0x22, VK_END = 0x23, VK_HOME = 0x24,
                   VK_LEFT = 0x25, VK_UP = 0x26, VK_RIGHT = 0x27, VK_DOWN = 0x28,
                   VK_INSERT = 0x2D, VK_DELETE = 0x2E, VK_F1 = 0x70, VK_F4 = 0x73;
// Letters and digits use their upper-case character code ('A' is 0x41, '0' is 0x30).

// ---- Structures ------------------------------------------------------------------------------
// WM_NCCREATE and WM_CREATE lParam.
struct CREATESTRUCT {
  void* lpCreateParams = nullptr;
  HWND hwndParent = nullptr;
  int id = 0;
  int cy = 0, cx = 0, y = 0, x = 0;
  uint32_t style = 0;
  const char* lpszName = nullptr;
  const char* lpszClass = nullptr;
  uint32_t dwExStyle = 0;
};

// WM_WINDOWPOSCHANGING and WM_WINDOWPOSCHANGED lParam; x and y are in the parent's client
// coordinates (screen for top-level windows).
struct WINDOWPOS {
  HWND hwnd = nullptr;
  HWND hwndInsertAfter = nullptr;
  int x = 0, y = 0, cx = 0, cy = 0;
  unsigned flags = 0;
};

// WM_GETMINMAXINFO lParam.
struct MINMAXINFO {
  Point ptReserved;
  Point ptMaxSize;
  Point ptMaxPosition;
  Point ptMinTrackSize;
  Point ptMaxTrackSize;
};

// WM_NCCALCSIZE lParam: rgrc[0] comes in as the window rectangle and goes out as the client
// rectangle, both in the parent's coordinates.
struct NCCALCSIZE_PARAMS {
  Rect rgrc[3];
  WINDOWPOS* lppos = nullptr;
};

// WM_STYLECHANGING and WM_STYLECHANGED lParam; wParam is GWL_STYLE or GWL_EXSTYLE.
struct STYLESTRUCT {
  uint32_t styleOld = 0;
  uint32_t styleNew = 0;
};

// WM_NOTIFY lParam head.
struct NMHDR {
  HWND hwndFrom = nullptr;
  uintptr_t idFrom = 0;
  unsigned code = 0;
};

// A queued message.
struct MSG {
  HWND hwnd = nullptr;
  unsigned message = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
  int64_t time = 0;
  Point pt;
};

}  // namespace qmk::platform::ui
