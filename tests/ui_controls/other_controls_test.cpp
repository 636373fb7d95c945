// other_controls_test.cpp: up-down with its buddy, tab strip, progress bar, scroll bar and static
// through their messages, clicks and keys on the headless back end.
#include <gmock/gmock.h>

#include "platform/ui/controls/icons.h"
#include "platform/ui/controls/progress_control.h"
#include "ui_controls/control_fixture.h"

namespace qmk::platform::ui::controls::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using OtherControlsTest = ControlTest;

TEST_F(OtherControlsTest, UpDownStepsItsBuddyWithinTheRangeAndTellsTheParent) {
  HWND edit = Make(kEditClass, "10", WS_BORDER | ES_NUMBER, {10, 10, 80, 32}, 1839);
  HWND spin = Make(kUpDownClass, "", UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ALIGNRIGHT |
                                         UDS_ARROWKEYS, {0, 0, 16, 22}, 1846);
  EXPECT_EQ(reinterpret_cast<HWND>(Send(spin, UDM_GETBUDDY)), edit);
  Send(spin, UDM_SETRANGE32, 2, 60);
  Send(spin, UDM_SETPOS32, 0, 59);
  EXPECT_EQ(GetWindowText(edit), "59");
  Rect e, s;
  GetWindowRect(edit, &e);
  GetWindowRect(spin, &s);
  EXPECT_EQ(s.right, e.right + 14);  // the arrows sit on the buddy's right edge
  HeardLog().clear();
  ClickAt(spin, {8, 3});  // up
  ClickAt(spin, {8, 3});  // at the top already
  EXPECT_EQ(GetWindowText(edit), "60");
  EXPECT_EQ(Send(spin, UDM_GETPOS32), 60);
  std::vector<Heard> steps;
  for (const Heard& h : HeardLog()) if (h.message == WM_NOTIFY) steps.push_back(h);
  ASSERT_EQ(steps.size(), 2u);
  EXPECT_EQ(steps[0].pos, 1);  // the parent hears the step asked for, before any clamp
  EXPECT_THAT(HeardLog(), ::testing::Contains(Heard{WM_VSCROLL, 1846, SB_THUMBPOSITION, 60}));
  SetFocus(edit);
  Key(VK_DOWN);
  EXPECT_EQ(GetWindowText(edit), "59");
}

TEST_F(OtherControlsTest, UpDownReadsTheBuddyAndReportsABadNumber) {
  HWND edit = Make(kEditClass, "", WS_BORDER, {10, 10, 80, 32}, 1);
  HWND spin = Make(kUpDownClass, "", UDS_SETBUDDYINT, {90, 10, 106, 32}, 2);
  Send(spin, UDM_SETBUDDY, reinterpret_cast<WPARAM>(edit));
  Send(spin, UDM_SETRANGE, 0, MAKELPARAM(5000, 0));  // upper 5000, lower 0
  Send(spin, UDM_SETPOS, 0, 1234);
  EXPECT_EQ(GetWindowText(edit), "1,234");
  SetWindowText(edit, "2,000");
  LRESULT r = Send(spin, UDM_GETPOS);
  EXPECT_EQ(LOWORD(static_cast<uintptr_t>(r)), 2000);
  EXPECT_EQ(HIWORD(static_cast<uintptr_t>(r)), 0);
  SetWindowText(edit, "lots");
  r = Send(spin, UDM_GETPOS);
  EXPECT_EQ(HIWORD(static_cast<uintptr_t>(r)), 1);
  int bad = 0;
  EXPECT_EQ(Send(spin, UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&bad)), 2000);
  EXPECT_EQ(bad, 1);
}

TEST_F(OtherControlsTest, UpDownStepRefusedByTheParentChangesNothing) {
  HWND spin = Make(kUpDownClass, "", UDS_WRAP, {10, 10, 26, 40}, 3);
  Send(spin, UDM_SETRANGE32, 0, 3);
  Send(spin, UDM_SETPOS32, 0, 3);
  NotifyAnswer() = 1;
  ClickAt(spin, {8, 3});
  EXPECT_EQ(Send(spin, UDM_GETPOS32), 3);
  NotifyAnswer() = 0;
  ClickAt(spin, {8, 3});
  EXPECT_EQ(Send(spin, UDM_GETPOS32), 0);  // wraps round
  ClickAt(spin, {8, 26});
  EXPECT_EQ(Send(spin, UDM_GETPOS32), 3);
}

TEST_F(OtherControlsTest, TabClickAsksThenTellsAndProgramSelectionTellsNobody) {
  HWND tabs = Make(kTabClass, "", WS_TABSTOP, {10, 10, 300, 200}, 256);
  for (const char* title : {"General", "Ports", "Options"}) {
    TCITEM item;
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<char*>(title);
    Send(tabs, TCM_INSERTITEM, static_cast<WPARAM>(Send(tabs, TCM_GETITEMCOUNT)),
         reinterpret_cast<LPARAM>(&item));
  }
  EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 0);
  Rect second;
  ASSERT_EQ(Send(tabs, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second)), 1);
  NotifyAnswer() = 1;  // the page refuses to be left
  ClickAt(tabs, {second.left + 4, second.top + 4});
  EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 0);
  NotifyAnswer() = 0;
  ClickAt(tabs, {second.left + 4, second.top + 4});
  EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 1);
  EXPECT_THAT(Notices(256), ElementsAre(TCN_SELCHANGING, TCN_SELCHANGING, TCN_SELCHANGE));
  HeardLog().clear();
  EXPECT_EQ(Send(tabs, TCM_SETCURSEL, 2), 1);
  Key(VK_LEFT);
  EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 1);
  EXPECT_THAT(Notices(256), ElementsAre(TCN_SELCHANGING, TCN_SELCHANGE));
  char text[8] = {};
  TCITEM get;
  get.mask = TCIF_TEXT;
  get.pszText = text;
  get.cchTextMax = sizeof text;
  ASSERT_EQ(Send(tabs, TCM_GETITEM, 2, reinterpret_cast<LPARAM>(&get)), 1);
  EXPECT_STREQ(text, "Options");
  Rect page{0, 0, 300, 200};
  Send(tabs, TCM_ADJUSTRECT, 0, reinterpret_cast<LPARAM>(&page));
  EXPECT_GT(page.top, second.bottom - 1);
  EXPECT_EQ(Send(tabs, TCM_DELETEITEM, 1), 1);
  EXPECT_EQ(Send(tabs, TCM_GETCURSEL), -1);
}

TEST_F(OtherControlsTest, ProgressMessagesReturnWhatWasBefore) {
  HWND bar = Make(kProgressClass, "", 0, {10, 10, 210, 30}, 4);
  EXPECT_EQ(Send(bar, PBM_SETRANGE32, 0, 50), MAKELPARAM(0, 100));
  EXPECT_EQ(Send(bar, PBM_SETPOS, 70), 0);
  EXPECT_EQ(Send(bar, PBM_GETPOS), 50);
  EXPECT_EQ(Send(bar, PBM_SETSTEP, 20), 10);
  EXPECT_EQ(Send(bar, PBM_STEPIT), 50);
  EXPECT_EQ(Send(bar, PBM_GETPOS), 20);
  PBRANGE range;
  EXPECT_EQ(Send(bar, PBM_GETRANGE, 1, reinterpret_cast<LPARAM>(&range)), 0);
  EXPECT_EQ(range.iHigh, 50);
  EXPECT_EQ(Send(bar, PBM_SETRANGE32, 9, 3), 0);  // refused
  EXPECT_EQ(Send(bar, PBM_GETRANGE, 0, 0), 50);
}

TEST_F(OtherControlsTest, ScrollBarAsksItsParentAndIsMovedByIt) {
  HWND sb = Make(kScrollBarClass, "", SBS_VERT, {10, 10, 27, 210}, 5);
  SCROLLINFO info;
  info.fMask = SIF_ALL;
  info.nMin = 0;
  info.nMax = 99;
  info.nPage = 10;
  info.nPos = 95;
  EXPECT_EQ(Send(sb, SBM_SETSCROLLINFO, 1, reinterpret_cast<LPARAM>(&info)), 90);
  ClickAt(sb, {8, 195});  // the down arrow
  EXPECT_EQ(Send(sb, SBM_GETPOS), 90);  // the bar waits for its parent to move it
  EXPECT_THAT(HeardLog(), ElementsAre(Heard{WM_VSCROLL, 5, SB_LINEDOWN, 0},
                                      Heard{WM_VSCROLL, 5, SB_ENDSCROLL, 0}));
  EXPECT_EQ(Send(sb, SBM_SETPOS, 10, 1), 90);
  HeardLog().clear();
  ClickAt(sb, {8, 150});  // below the thumb
  EXPECT_EQ(HeardLog().front().code, static_cast<unsigned>(SB_PAGEDOWN));
  int lo = -1, hi = -1;
  Send(sb, SBM_GETRANGE, reinterpret_cast<WPARAM>(&lo), reinterpret_cast<LPARAM>(&hi));
  EXPECT_EQ(lo, 0);
  EXPECT_EQ(hi, 99);
}

TEST_F(OtherControlsTest, StaticLetsClicksThroughUnlessItNotifies) {
  HWND plain = Make(kStaticClass, "Po&rt:", SS_LEFT, {10, 10, 110, 30}, 6);
  HWND notify = Make(kStaticClass, "Help", SS_NOTIFY, {10, 40, 110, 60}, 7);
  Point p{5, 5};
  ClientToScreen(plain, &p);
  EXPECT_EQ(WindowFromPoint(p), host_);
  ClickAt(notify, {5, 5});
  EXPECT_THAT(Commands(7), ElementsAre(STN_CLICKED));
  EXPECT_EQ(Send(plain, WM_GETDLGCODE), DLGC_STATIC);
  HWND icon = Make(kStaticClass, "#32515", SS_ICON, {120, 10, 152, 42}, 8);
  EXPECT_EQ(reinterpret_cast<HICON>(Send(icon, STM_GETICON)), LoadStandardIcon(IDI_WARNING));
  EXPECT_EQ(LoadStandardIconByName("IDI_ERROR"), LoadStandardIcon(IDI_HAND));
  EXPECT_EQ(LoadStandardIconByName("#1"), nullptr);
}

}  // namespace
}  // namespace qmk::platform::ui::controls::testing
