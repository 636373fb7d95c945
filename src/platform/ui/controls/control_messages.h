// control_messages.h: the styles, messages and notifications of the plain controls that the
// window system's shared list (platform/ui/control_messages.h) leaves out, with the platform's
// numeric values, and the records some of them carry.
#pragma once

#include <cstdint>

#include "platform/ui/control_messages.h"
#include "platform/ui/messages.h"

namespace qmk::platform::ui::controls {

// The pop-up list of a drop-down combo box.
inline constexpr const char* kComboListClass = "ComboLBox";

// ---- static ----
constexpr uint32_t SS_BLACKRECT = 0x4, SS_GRAYRECT = 0x5, SS_WHITERECT = 0x6, SS_SIMPLE = 0xB,
                   SS_LEFTNOWORDWRAP = 0xC, SS_BITMAP = 0xE, SS_ETCHEDHORZ = 0x10,
                   SS_ETCHEDVERT = 0x11, SS_CENTERIMAGE = 0x200, SS_SUNKEN = 0x1000;
constexpr unsigned STM_SETIMAGE = 0x172, STM_GETIMAGE = 0x173;
constexpr unsigned STN_CLICKED = 0, STN_DBLCLK = 1;

// ---- button ----
constexpr uint32_t BS_USERBUTTON = 0x8, BS_PUSHBOX = 0xA, BS_OWNERDRAW = 0xB, BS_ICON = 0x40,
                   BS_BITMAP = 0x80, BS_LEFT = 0x100, BS_RIGHT = 0x200, BS_CENTER = 0x300,
                   BS_TOP = 0x400, BS_BOTTOM = 0x800, BS_VCENTER = 0xC00, BS_PUSHLIKE = 0x1000,
                   BS_MULTILINE = 0x2000, BS_NOTIFY = 0x4000, BS_FLAT = 0x8000;
constexpr unsigned BN_DBLCLK = 5;

// ---- edit ----
constexpr unsigned EM_GETRECT = 0xB2, EM_SCROLL = 0xB5, EM_LINESCROLL = 0xB6,
                   EM_SCROLLCARET = 0xB7, EM_LINEINDEX = 0xBB, EM_LINELENGTH = 0xC1,
                   EM_GETLINE = 0xC4, EM_UNDO = 0xC7, EM_LINEFROMCHAR = 0xC9,
                   EM_SETPASSWORDCHAR = 0xCC, EM_EMPTYUNDOBUFFER = 0xCD,
                   EM_GETFIRSTVISIBLELINE = 0xCE, EM_GETPASSWORDCHAR = 0xD2,
                   EM_POSFROMCHAR = 0xD6, EM_CHARFROMPOS = 0xD7;
constexpr unsigned EN_ERRSPACE = 0x500, EN_HSCROLL = 0x601, EN_VSCROLL = 0x602;

// ---- list box ----
constexpr uint32_t LBS_NOREDRAW = 0x4, LBS_HASSTRINGS = 0x40, LBS_WANTKEYBOARDINPUT = 0x400,
                   LBS_DISABLENOSCROLL = 0x1000,
                   LBS_NOSEL = 0x4000;
constexpr unsigned LB_SELITEMRANGEEX = 0x183, LB_SELECTSTRING = 0x18C,
                   LB_GETSELITEMS = 0x191, LB_GETITEMRECT = 0x198, LB_SELITEMRANGE = 0x19B,
                   LB_SETANCHORINDEX = 0x19C, LB_GETANCHORINDEX = 0x19D,
                   LB_SETCARETINDEX = 0x19E, LB_GETCARETINDEX = 0x19F,
                   LB_SETITEMHEIGHT = 0x1A0, LB_ITEMFROMPOINT = 0x1A9;
constexpr LRESULT LB_OKAY = 0;
constexpr unsigned LBN_SELCANCEL = 3;

// ---- combo box ----
constexpr unsigned CB_SELECTSTRING = 0x14D, CB_GETDROPPEDCONTROLRECT = 0x152,
                   CB_SETITEMHEIGHT = 0x153, CB_GETITEMHEIGHT = 0x154, CB_GETTOPINDEX = 0x15B,
                   CB_SETTOPINDEX = 0x15C;
constexpr LRESULT CB_OKAY = 0;
constexpr unsigned CBN_EDITUPDATE = 6;

// ---- up-down ----
constexpr uint32_t UDS_HOTTRACK = 0x100;
constexpr unsigned UDM_SETACCEL = WM_USER + 107, UDM_GETACCEL = WM_USER + 108,
                   UDM_SETBASE = WM_USER + 109, UDM_GETBASE = WM_USER + 110;

// UDN_DELTAPOS record: the parent may change iDelta, or refuse the step by answering non-zero.
struct NMUPDOWN {
  NMHDR hdr;
  int iPos = 0;
  int iDelta = 0;
};

// ---- tab strip ----
constexpr uint32_t TCS_BOTTOM = 0x2, TCS_HOTTRACK = 0x40, TCS_BUTTONS = 0x100,
                   TCS_MULTILINE = 0x200, TCS_FIXEDWIDTH = 0x400, TCS_FOCUSNEVER = 0x8000;
constexpr unsigned TCM_DELETEITEM = 0x1308, TCM_GETITEMRECT = 0x130A, TCM_HITTEST = 0x130D,
                   TCM_ADJUSTRECT = 0x1328, TCM_GETROWCOUNT = 0x132C,
                   TCM_GETCURFOCUS = 0x132F, TCM_SETCURFOCUS = 0x1330;
constexpr unsigned TCIF_TEXT = 0x1, TCIF_IMAGE = 0x2, TCIF_PARAM = 0x8, TCIF_STATE = 0x10;
constexpr unsigned TCN_KEYDOWN = static_cast<unsigned>(-550);
constexpr unsigned TCHT_NOWHERE = 0x1, TCHT_ONITEM = 0x6;

// TCM_INSERTITEM, TCM_SETITEM and TCM_GETITEM record.
struct TCITEM {
  unsigned mask = 0;
  uint32_t dwState = 0;
  uint32_t dwStateMask = 0;
  char* pszText = nullptr;
  int cchTextMax = 0;
  int iImage = -1;
  LPARAM lParam = 0;
};

// TCM_HITTEST record.
struct TCHITTESTINFO {
  Point pt;
  unsigned flags = 0;
};

// ---- progress ----
constexpr unsigned PBM_GETSTEP = WM_USER + 13;

// ---- scroll bar ----
constexpr unsigned SBM_ENABLE_ARROWS = 0xE4, SBM_SETRANGEREDRAW = 0xE6,
                   SBM_SETSCROLLINFO = 0xE9, SBM_GETSCROLLINFO = 0xEA;
constexpr unsigned SIF_RANGE = 0x1, SIF_PAGE = 0x2, SIF_POS = 0x4, SIF_DISABLENOSCROLL = 0x8,
                   SIF_TRACKPOS = 0x10, SIF_ALL = 0x17;

// SBM_SETSCROLLINFO and SBM_GETSCROLLINFO record.
struct SCROLLINFO {
  uint32_t cbSize = sizeof(SCROLLINFO);
  uint32_t fMask = 0;
  int nMin = 0;
  int nMax = 0;
  uint32_t nPage = 0;
  int nPos = 0;
  int nTrackPos = 0;
};

}  // namespace qmk::platform::ui::controls
