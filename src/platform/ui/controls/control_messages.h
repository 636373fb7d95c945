// control_messages.h: styles, messages and notification codes of the plain controls, with the
// numeric values that dialog templates and programs written for the platform use.
#pragma once

#include <cstdint>

namespace qmk::platform::ui::controls {

// Window class names, as dialog templates name them (compared without regard to case).
inline constexpr const char kStaticClass[] = "Static";
inline constexpr const char kButtonClass[] = "Button";
inline constexpr const char kEditClass[] = "Edit";
inline constexpr const char kListBoxClass[] = "ListBox";
inline constexpr const char kComboBoxClass[] = "ComboBox";
inline constexpr const char kComboLBoxClass[] = "ComboLBox";
inline constexpr const char kUpDownClass[] = "msctls_updown32";
inline constexpr const char kTabControlClass[] = "SysTabControl32";
inline constexpr const char kProgressClass[] = "msctls_progress32";
inline constexpr const char kScrollBarClass[] = "ScrollBar";

// ---- static ----
constexpr uint32_t SS_LEFT = 0x0, SS_CENTER = 0x1, SS_RIGHT = 0x2, SS_ICON = 0x3;
constexpr uint32_t SS_BLACKRECT = 0x4, SS_GRAYRECT = 0x5, SS_WHITERECT = 0x6;
constexpr uint32_t SS_BLACKFRAME = 0x7, SS_GRAYFRAME = 0x8, SS_WHITEFRAME = 0x9;
constexpr uint32_t SS_SIMPLE = 0xB, SS_LEFTNOWORDWRAP = 0xC, SS_BITMAP = 0xE;
constexpr uint32_t SS_ETCHEDHORZ = 0x10, SS_ETCHEDVERT = 0x11, SS_ETCHEDFRAME = 0x12;
constexpr uint32_t SS_TYPEMASK = 0x1F;
constexpr uint32_t SS_NOPREFIX = 0x80, SS_NOTIFY = 0x100, SS_CENTERIMAGE = 0x200;
constexpr uint32_t SS_SUNKEN = 0x1000;
constexpr uint32_t STM_SETICON = 0x170, STM_GETICON = 0x171, STM_SETIMAGE = 0x172,
                   STM_GETIMAGE = 0x173;
constexpr int STN_CLICKED = 0, STN_DBLCLK = 1, STN_ENABLE = 2, STN_DISABLE = 3;

// ---- button ----
constexpr uint32_t BS_PUSHBUTTON = 0x0, BS_DEFPUSHBUTTON = 0x1, BS_CHECKBOX = 0x2,
                   BS_AUTOCHECKBOX = 0x3, BS_RADIOBUTTON = 0x4, BS_3STATE = 0x5,
                   BS_AUTO3STATE = 0x6, BS_GROUPBOX = 0x7, BS_USERBUTTON = 0x8,
                   BS_AUTORADIOBUTTON = 0x9, BS_PUSHBOX = 0xA, BS_OWNERDRAW = 0xB,
                   BS_TYPEMASK = 0xF;
constexpr uint32_t BS_LEFTTEXT = 0x20, BS_ICON = 0x40, BS_BITMAP = 0x80;
constexpr uint32_t BS_LEFT = 0x100, BS_RIGHT = 0x200, BS_CENTER = 0x300;
constexpr uint32_t BS_TOP = 0x400, BS_BOTTOM = 0x800, BS_VCENTER = 0xC00;
constexpr uint32_t BS_PUSHLIKE = 0x1000, BS_MULTILINE = 0x2000, BS_NOTIFY = 0x4000,
                   BS_FLAT = 0x8000;
constexpr uint32_t BM_GETCHECK = 0xF0, BM_SETCHECK = 0xF1, BM_GETSTATE = 0xF2,
                   BM_SETSTATE = 0xF3, BM_SETSTYLE = 0xF4, BM_CLICK = 0xF5,
                   BM_GETIMAGE = 0xF6, BM_SETIMAGE = 0xF7, BM_SETDONTCLICK = 0xF8;
constexpr int BST_UNCHECKED = 0, BST_CHECKED = 1, BST_INDETERMINATE = 2, BST_PUSHED = 4,
              BST_FOCUS = 8;
constexpr int BN_CLICKED = 0, BN_DBLCLK = 5, BN_SETFOCUS = 6, BN_KILLFOCUS = 7;

// ---- edit ----
constexpr uint32_t ES_LEFT = 0x0, ES_CENTER = 0x1, ES_RIGHT = 0x2, ES_MULTILINE = 0x4,
                   ES_UPPERCASE = 0x8, ES_LOWERCASE = 0x10, ES_PASSWORD = 0x20,
                   ES_AUTOVSCROLL = 0x40, ES_AUTOHSCROLL = 0x80, ES_NOHIDESEL = 0x100,
                   ES_READONLY = 0x800, ES_WANTRETURN = 0x1000, ES_NUMBER = 0x2000;
constexpr uint32_t EM_GETSEL = 0xB0, EM_SETSEL = 0xB1, EM_GETRECT = 0xB2, EM_SCROLL = 0xB5,
                   EM_LINESCROLL = 0xB6, EM_SCROLLCARET = 0xB7, EM_GETMODIFY = 0xB8,
                   EM_SETMODIFY = 0xB9, EM_GETLINECOUNT = 0xBA, EM_LINEINDEX = 0xBB,
                   EM_LINELENGTH = 0xC1, EM_REPLACESEL = 0xC2, EM_GETLINE = 0xC4,
                   EM_LIMITTEXT = 0xC5, EM_SETLIMITTEXT = 0xC5, EM_CANUNDO = 0xC6,
                   EM_UNDO = 0xC7, EM_LINEFROMCHAR = 0xC9, EM_SETPASSWORDCHAR = 0xCC,
                   EM_EMPTYUNDOBUFFER = 0xCD, EM_GETFIRSTVISIBLELINE = 0xCE,
                   EM_SETREADONLY = 0xCF, EM_GETPASSWORDCHAR = 0xD2, EM_GETLIMITTEXT = 0xD5,
                   EM_POSFROMCHAR = 0xD6, EM_CHARFROMPOS = 0xD7;
constexpr int EN_SETFOCUS = 0x100, EN_KILLFOCUS = 0x200, EN_CHANGE = 0x300, EN_UPDATE = 0x400,
              EN_ERRSPACE = 0x500, EN_MAXTEXT = 0x501, EN_HSCROLL = 0x601, EN_VSCROLL = 0x602;

// ---- list box ----
constexpr uint32_t LBS_NOTIFY = 0x1, LBS_SORT = 0x2, LBS_NOREDRAW = 0x4, LBS_MULTIPLESEL = 0x8,
                   LBS_HASSTRINGS = 0x40, LBS_USETABSTOPS = 0x80, LBS_NOINTEGRALHEIGHT = 0x100,
                   LBS_WANTKEYBOARDINPUT = 0x400, LBS_EXTENDEDSEL = 0x800,
                   LBS_DISABLENOSCROLL = 0x1000, LBS_NOSEL = 0x4000, LBS_COMBOBOX = 0x8000;
constexpr uint32_t LB_ADDSTRING = 0x180, LB_INSERTSTRING = 0x181, LB_DELETESTRING = 0x182,
                   LB_SELITEMRANGEEX = 0x183, LB_RESETCONTENT = 0x184, LB_SETSEL = 0x185,
                   LB_SETCURSEL = 0x186, LB_GETSEL = 0x187, LB_GETCURSEL = 0x188,
                   LB_GETTEXT = 0x189, LB_GETTEXTLEN = 0x18A, LB_GETCOUNT = 0x18B,
                   LB_SELECTSTRING = 0x18C, LB_GETTOPINDEX = 0x18E, LB_FINDSTRING = 0x18F,
                   LB_GETSELCOUNT = 0x190, LB_GETSELITEMS = 0x191, LB_SETTOPINDEX = 0x197,
                   LB_GETITEMRECT = 0x198, LB_GETITEMDATA = 0x199, LB_SETITEMDATA = 0x19A,
                   LB_SELITEMRANGE = 0x19B, LB_SETANCHORINDEX = 0x19C,
                   LB_GETANCHORINDEX = 0x19D, LB_SETCARETINDEX = 0x19E,
                   LB_GETCARETINDEX = 0x19F, LB_SETITEMHEIGHT = 0x1A0,
                   LB_GETITEMHEIGHT = 0x1A1, LB_FINDSTRINGEXACT = 0x1A2,
                   LB_ITEMFROMPOINT = 0x1A9;
constexpr int LB_OKAY = 0, LB_ERR = -1, LB_ERRSPACE = -2;
constexpr int LBN_ERRSPACE = -2, LBN_SELCHANGE = 1, LBN_DBLCLK = 2, LBN_SELCANCEL = 3,
              LBN_SETFOCUS = 4, LBN_KILLFOCUS = 5;

// ---- combo box ----
constexpr uint32_t CBS_SIMPLE = 0x1, CBS_DROPDOWN = 0x2, CBS_DROPDOWNLIST = 0x3,
                   CBS_KINDMASK = 0x3, CBS_AUTOHSCROLL = 0x40, CBS_SORT = 0x100,
                   CBS_HASSTRINGS = 0x200, CBS_NOINTEGRALHEIGHT = 0x400;
constexpr uint32_t CB_GETEDITSEL = 0x140, CB_LIMITTEXT = 0x141, CB_SETEDITSEL = 0x142,
                   CB_ADDSTRING = 0x143, CB_DELETESTRING = 0x144, CB_GETCOUNT = 0x146,
                   CB_GETCURSEL = 0x147, CB_GETLBTEXT = 0x148, CB_GETLBTEXTLEN = 0x149,
                   CB_INSERTSTRING = 0x14A, CB_RESETCONTENT = 0x14B, CB_FINDSTRING = 0x14C,
                   CB_SELECTSTRING = 0x14D, CB_SETCURSEL = 0x14E, CB_SHOWDROPDOWN = 0x14F,
                   CB_GETITEMDATA = 0x150, CB_SETITEMDATA = 0x151,
                   CB_GETDROPPEDCONTROLRECT = 0x152, CB_SETITEMHEIGHT = 0x153,
                   CB_GETITEMHEIGHT = 0x154, CB_GETDROPPEDSTATE = 0x157,
                   CB_FINDSTRINGEXACT = 0x158, CB_GETTOPINDEX = 0x15B, CB_SETTOPINDEX = 0x15C;
constexpr int CB_OKAY = 0, CB_ERR = -1, CB_ERRSPACE = -2;
constexpr int CBN_ERRSPACE = -1, CBN_SELCHANGE = 1, CBN_DBLCLK = 2, CBN_SETFOCUS = 3,
              CBN_KILLFOCUS = 4, CBN_EDITCHANGE = 5, CBN_EDITUPDATE = 6, CBN_DROPDOWN = 7,
              CBN_CLOSEUP = 8, CBN_SELENDOK = 9, CBN_SELENDCANCEL = 10;

// ---- up-down ----
constexpr uint32_t kWmUser = 0x400;
constexpr uint32_t UDS_WRAP = 0x1, UDS_SETBUDDYINT = 0x2, UDS_ALIGNRIGHT = 0x4,
                   UDS_ALIGNLEFT = 0x8, UDS_AUTOBUDDY = 0x10, UDS_ARROWKEYS = 0x20,
                   UDS_HORZ = 0x40, UDS_NOTHOUSANDS = 0x80, UDS_HOTTRACK = 0x100;
constexpr uint32_t UDM_SETRANGE = kWmUser + 101, UDM_GETRANGE = kWmUser + 102,
                   UDM_SETPOS = kWmUser + 103, UDM_GETPOS = kWmUser + 104,
                   UDM_SETBUDDY = kWmUser + 105, UDM_GETBUDDY = kWmUser + 106,
                   UDM_SETACCEL = kWmUser + 107, UDM_GETACCEL = kWmUser + 108,
                   UDM_SETBASE = kWmUser + 109, UDM_GETBASE = kWmUser + 110,
                   UDM_SETRANGE32 = kWmUser + 111, UDM_GETRANGE32 = kWmUser + 112,
                   UDM_SETPOS32 = kWmUser + 113, UDM_GETPOS32 = kWmUser + 114;
constexpr int UDN_DELTAPOS = -722;

// ---- tab strip ----
constexpr uint32_t TCS_BOTTOM = 0x2, TCS_HOTTRACK = 0x40, TCS_BUTTONS = 0x100,
                   TCS_MULTILINE = 0x200, TCS_FIXEDWIDTH = 0x400, TCS_FOCUSNEVER = 0x8000;
constexpr uint32_t kTcmFirst = 0x1300;
constexpr uint32_t TCM_GETITEMCOUNT = kTcmFirst + 4, TCM_GETITEM = kTcmFirst + 5,
                   TCM_SETITEM = kTcmFirst + 6, TCM_INSERTITEM = kTcmFirst + 7,
                   TCM_DELETEITEM = kTcmFirst + 8, TCM_DELETEALLITEMS = kTcmFirst + 9,
                   TCM_GETITEMRECT = kTcmFirst + 10, TCM_GETCURSEL = kTcmFirst + 11,
                   TCM_SETCURSEL = kTcmFirst + 12, TCM_HITTEST = kTcmFirst + 13,
                   TCM_ADJUSTRECT = kTcmFirst + 40, TCM_GETROWCOUNT = kTcmFirst + 44,
                   TCM_GETCURFOCUS = kTcmFirst + 47, TCM_SETCURFOCUS = kTcmFirst + 48;
constexpr uint32_t TCIF_TEXT = 0x1, TCIF_IMAGE = 0x2, TCIF_PARAM = 0x8, TCIF_STATE = 0x10;
constexpr int TCN_KEYDOWN = -550, TCN_SELCHANGE = -551, TCN_SELCHANGING = -552;

// ---- progress ----
constexpr uint32_t PBS_SMOOTH = 0x1, PBS_VERTICAL = 0x4;
constexpr uint32_t PBM_SETRANGE = kWmUser + 1, PBM_SETPOS = kWmUser + 2,
                   PBM_DELTAPOS = kWmUser + 3, PBM_SETSTEP = kWmUser + 4,
                   PBM_STEPIT = kWmUser + 5, PBM_SETRANGE32 = kWmUser + 6,
                   PBM_GETRANGE = kWmUser + 7, PBM_GETPOS = kWmUser + 8,
                   PBM_GETSTEP = kWmUser + 13;

// ---- scroll bar ----
constexpr uint32_t SBS_HORZ = 0x0, SBS_VERT = 0x1;
constexpr uint32_t SBM_SETPOS = 0xE0, SBM_GETPOS = 0xE1, SBM_SETRANGE = 0xE2,
                   SBM_GETRANGE = 0xE3, SBM_ENABLE_ARROWS = 0xE4, SBM_SETRANGEREDRAW = 0xE6,
                   SBM_SETSCROLLINFO = 0xE9, SBM_GETSCROLLINFO = 0xEA;
constexpr int SB_LINEUP = 0, SB_LINEDOWN = 1, SB_PAGEUP = 2, SB_PAGEDOWN = 3,
              SB_THUMBPOSITION = 4, SB_THUMBTRACK = 5, SB_TOP = 6, SB_BOTTOM = 7,
              SB_ENDSCROLL = 8;
constexpr uint32_t SIF_RANGE = 0x1, SIF_PAGE = 0x2, SIF_POS = 0x4, SIF_DISABLENOSCROLL = 0x8,
                   SIF_TRACKPOS = 0x10, SIF_ALL = 0x17;

// The scroll information record of SBM_SETSCROLLINFO and SBM_GETSCROLLINFO.
struct SCROLLINFO {
  uint32_t cbSize;
  uint32_t fMask;
  int nMin;
  int nMax;
  uint32_t nPage;
  int nPos;
  int nTrackPos;
};

}  // namespace qmk::platform::ui::controls
