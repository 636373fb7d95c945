// control_messages.h: class names, styles, messages and notifications of the plain controls,
// shared by the controls themselves, the dialog manager and the scripted operator.
#pragma once

#include <cstdint>

#include "platform/ui/messages.h"

namespace qmk::platform::ui {

// ---- Class names -----------------------------------------------------------------------------
inline constexpr const char* kButtonClass = "Button";
inline constexpr const char* kStaticClass = "Static";
inline constexpr const char* kEditClass = "Edit";
inline constexpr const char* kListBoxClass = "ListBox";
inline constexpr const char* kComboBoxClass = "ComboBox";
inline constexpr const char* kScrollBarClass = "ScrollBar";
inline constexpr const char* kUpDownClass = "msctls_updown32";
inline constexpr const char* kTabClass = "SysTabControl32";
inline constexpr const char* kProgressClass = "msctls_progress32";
// The class of dialog windows made from templates.
inline constexpr const char* kDialogClass = "#32770";

// ---- Buttons ---------------------------------------------------------------------------------
constexpr uint32_t BS_PUSHBUTTON = 0x0, BS_DEFPUSHBUTTON = 0x1, BS_CHECKBOX = 0x2,
                   BS_AUTOCHECKBOX = 0x3, BS_RADIOBUTTON = 0x4, BS_3STATE = 0x5,
                   BS_AUTO3STATE = 0x6, BS_GROUPBOX = 0x7, BS_AUTORADIOBUTTON = 0x9,
                   BS_TYPEMASK = 0xF, BS_LEFTTEXT = 0x20;
constexpr unsigned BM_GETCHECK = 0x00F0, BM_SETCHECK = 0x00F1, BM_GETSTATE = 0x00F2,
                   BM_SETSTATE = 0x00F3, BM_SETSTYLE = 0x00F4, BM_CLICK = 0x00F5;
constexpr unsigned BST_UNCHECKED = 0x0, BST_CHECKED = 0x1, BST_INDETERMINATE = 0x2,
                   BST_PUSHED = 0x4, BST_FOCUS = 0x8;
constexpr unsigned BN_CLICKED = 0, BN_SETFOCUS = 6, BN_KILLFOCUS = 7;

// ---- Statics ---------------------------------------------------------------------------------
constexpr uint32_t SS_LEFT = 0x0, SS_CENTER = 0x1, SS_RIGHT = 0x2, SS_ICON = 0x3,
                   SS_BLACKFRAME = 0x7, SS_GRAYFRAME = 0x8, SS_WHITEFRAME = 0x9,
                   SS_ETCHEDFRAME = 0x12, SS_TYPEMASK = 0x1F, SS_NOPREFIX = 0x80,
                   SS_NOTIFY = 0x100;
constexpr unsigned STM_SETICON = 0x0170, STM_GETICON = 0x0171;

// ---- Edits -----------------------------------------------------------------------------------
constexpr uint32_t ES_LEFT = 0x0, ES_CENTER = 0x1, ES_RIGHT = 0x2, ES_MULTILINE = 0x4,
                   ES_UPPERCASE = 0x8, ES_LOWERCASE = 0x10, ES_PASSWORD = 0x20,
                   ES_AUTOVSCROLL = 0x40, ES_AUTOHSCROLL = 0x80, ES_NOHIDESEL = 0x100,
                   ES_READONLY = 0x800, ES_WANTRETURN = 0x1000, ES_NUMBER = 0x2000;
constexpr unsigned EM_GETSEL = 0x00B0, EM_SETSEL = 0x00B1, EM_REPLACESEL = 0x00C2,
                   EM_GETLINECOUNT = 0x00BA, EM_LIMITTEXT = 0x00C5, EM_SETLIMITTEXT = 0x00C5,
                   EM_CANUNDO = 0x00C6, EM_SETREADONLY = 0x00CF, EM_GETLIMITTEXT = 0x00D5,
                   EM_GETMODIFY = 0x00B8, EM_SETMODIFY = 0x00B9;
constexpr unsigned EN_SETFOCUS = 0x0100, EN_KILLFOCUS = 0x0200, EN_CHANGE = 0x0300,
                   EN_UPDATE = 0x0400, EN_MAXTEXT = 0x0501;

// ---- List boxes ------------------------------------------------------------------------------
constexpr uint32_t LBS_NOTIFY = 0x1, LBS_SORT = 0x2, LBS_MULTIPLESEL = 0x8,
                   LBS_NOINTEGRALHEIGHT = 0x100, LBS_EXTENDEDSEL = 0x800;
constexpr unsigned LB_ADDSTRING = 0x0180, LB_INSERTSTRING = 0x0181, LB_DELETESTRING = 0x0182,
                   LB_RESETCONTENT = 0x0184, LB_SETSEL = 0x0185, LB_SETCURSEL = 0x0186,
                   LB_GETSEL = 0x0187, LB_GETCURSEL = 0x0188, LB_GETTEXT = 0x0189,
                   LB_GETTEXTLEN = 0x018A, LB_GETCOUNT = 0x018B, LB_GETTOPINDEX = 0x018E,
                   LB_FINDSTRING = 0x018F, LB_GETSELCOUNT = 0x0190, LB_SETTOPINDEX = 0x0197,
                   LB_GETITEMDATA = 0x0199, LB_SETITEMDATA = 0x019A, LB_GETITEMHEIGHT = 0x01A1,
                   LB_FINDSTRINGEXACT = 0x01A2;
constexpr unsigned LBN_SELCHANGE = 1, LBN_DBLCLK = 2, LBN_SETFOCUS = 4, LBN_KILLFOCUS = 5;
constexpr LRESULT LB_ERR = -1;

// ---- Combo boxes -----------------------------------------------------------------------------
constexpr uint32_t CBS_SIMPLE = 0x1, CBS_DROPDOWN = 0x2, CBS_DROPDOWNLIST = 0x3,
                   CBS_TYPEMASK = 0x3, CBS_AUTOHSCROLL = 0x40, CBS_SORT = 0x100;
constexpr unsigned CB_GETEDITSEL = 0x0140, CB_LIMITTEXT = 0x0141, CB_SETEDITSEL = 0x0142,
                   CB_ADDSTRING = 0x0143, CB_DELETESTRING = 0x0144, CB_GETCOUNT = 0x0146,
                   CB_GETCURSEL = 0x0147, CB_GETLBTEXT = 0x0148, CB_GETLBTEXTLEN = 0x0149,
                   CB_INSERTSTRING = 0x014A, CB_RESETCONTENT = 0x014B, CB_FINDSTRING = 0x014C,
                   CB_SETCURSEL = 0x014E, CB_SHOWDROPDOWN = 0x014F, CB_GETITEMDATA = 0x0150,
                   CB_SETITEMDATA = 0x0151, CB_GETDROPPEDSTATE = 0x0157,
                   CB_FINDSTRINGEXACT = 0x0158;
constexpr unsigned CBN_SELCHANGE = 1, CBN_DBLCLK = 2, CBN_SETFOCUS = 3, CBN_KILLFOCUS = 4,
                   CBN_EDITCHANGE = 5, CBN_DROPDOWN = 7, CBN_CLOSEUP = 8, CBN_SELENDOK = 9,
                   CBN_SELENDCANCEL = 10;
constexpr LRESULT CB_ERR = -1;

// ---- Scroll bars -----------------------------------------------------------------------------
constexpr uint32_t SBS_HORZ = 0x0, SBS_VERT = 0x1;
constexpr unsigned SBM_SETPOS = 0x00E0, SBM_GETPOS = 0x00E1, SBM_SETRANGE = 0x00E2,
                   SBM_GETRANGE = 0x00E3;
// WM_HSCROLL / WM_VSCROLL request codes (low word of wParam).
constexpr unsigned SB_LINEUP = 0, SB_LINELEFT = 0, SB_LINEDOWN = 1, SB_LINERIGHT = 1,
                   SB_PAGEUP = 2, SB_PAGELEFT = 2, SB_PAGEDOWN = 3, SB_PAGERIGHT = 3,
                   SB_THUMBPOSITION = 4, SB_THUMBTRACK = 5, SB_TOP = 6, SB_BOTTOM = 7,
                   SB_ENDSCROLL = 8;

// ---- Up-down ---------------------------------------------------------------------------------
constexpr uint32_t UDS_WRAP = 0x1, UDS_SETBUDDYINT = 0x2, UDS_ALIGNRIGHT = 0x4,
                   UDS_ALIGNLEFT = 0x8, UDS_AUTOBUDDY = 0x10, UDS_ARROWKEYS = 0x20,
                   UDS_HORZ = 0x40, UDS_NOTHOUSANDS = 0x80;
constexpr unsigned UDM_SETRANGE = WM_USER + 101, UDM_GETRANGE = WM_USER + 102,
                   UDM_SETPOS = WM_USER + 103, UDM_GETPOS = WM_USER + 104,
                   UDM_SETBUDDY = WM_USER + 105, UDM_GETBUDDY = WM_USER + 106,
                   UDM_SETRANGE32 = WM_USER + 111, UDM_GETRANGE32 = WM_USER + 112,
                   UDM_SETPOS32 = WM_USER + 113, UDM_GETPOS32 = WM_USER + 114;
constexpr unsigned UDN_DELTAPOS = static_cast<unsigned>(-722);

// ---- Tab strip -------------------------------------------------------------------------------
constexpr unsigned TCM_GETITEMCOUNT = 0x1304, TCM_DELETEALLITEMS = 0x1309,
                   TCM_GETCURSEL = 0x130B, TCM_SETCURSEL = 0x130C,
                   TCM_INSERTITEM = 0x133E, TCM_GETITEM = 0x133C, TCM_SETITEM = 0x133D;
constexpr unsigned TCN_SELCHANGE = static_cast<unsigned>(-551),
                   TCN_SELCHANGING = static_cast<unsigned>(-552);

// ---- Progress bar ----------------------------------------------------------------------------
constexpr uint32_t PBS_SMOOTH = 0x1, PBS_VERTICAL = 0x4;
constexpr unsigned PBM_SETRANGE = WM_USER + 1, PBM_SETPOS = WM_USER + 2,
                   PBM_DELTAPOS = WM_USER + 3, PBM_SETSTEP = WM_USER + 4,
                   PBM_STEPIT = WM_USER + 5, PBM_SETRANGE32 = WM_USER + 6,
                   PBM_GETRANGE = WM_USER + 7, PBM_GETPOS = WM_USER + 8;

}  // namespace qmk::platform::ui
