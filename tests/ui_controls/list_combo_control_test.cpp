// list_combo_control_test.cpp: the list box and the combo box through their messages, keys and
// clicks: selection by arrows, notifications, pick by keyboard and by mouse, drop-down state.
#include <gmock/gmock.h>

#include <cstring>

#include "platform/ui/controls/combo_box_control.h"
#include "ui_controls/control_fixture.h"

namespace qmk::platform::ui::controls::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const char* const kBauds[] = {"1200", "2400", "4800", "9600", "19200", "38400", "115200"};

class ListComboTest : public ControlTest {
 protected:
  HWND MakeList(uint32_t style, int id = 1824) {
    HWND l = Make(kListBoxClass, "", WS_BORDER | WS_VSCROLL | WS_TABSTOP | style,
                  {10, 10, 160, 80}, id);
    for (const char* b : kBauds) SendText(l, LB_ADDSTRING, 0, b);
    return l;
  }
  HWND MakeCombo(uint32_t kind, int id = 1831) {
    HWND c = Make(kComboBoxClass, "", WS_TABSTOP | WS_VSCROLL | kind, {10, 10, 160, 200}, id);
    for (const char* b : kBauds) SendText(c, CB_ADDSTRING, 0, b);
    return c;
  }
  static std::string LbText(HWND l, int i) {
    char buffer[64] = {};
    return Send(l, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(buffer)) < 0
               ? "<err>" : buffer;
  }
};

TEST_F(ListComboTest, ListSelectionByArrowsNotifiesOnlyWithNotifyStyle) {
  HWND quiet = MakeList(0, 1);
  HWND notify = MakeList(LBS_NOTIFY, 2);
  for (HWND l : {quiet, notify}) {
    SetFocus(l);
    Key(VK_DOWN);
    Key(VK_DOWN);
    Key(VK_END);
    Key(VK_UP);
    EXPECT_EQ(Send(l, LB_GETCURSEL), 5);
    EXPECT_GE(5, Send(l, LB_GETTOPINDEX));
  }
  EXPECT_THAT(Commands(1), ElementsAre(LBN_SETFOCUS, LBN_KILLFOCUS));
  EXPECT_THAT(Commands(2), ElementsAre(LBN_SETFOCUS, LBN_SELCHANGE, LBN_SELCHANGE, LBN_SELCHANGE,
                                       LBN_SELCHANGE));
}

TEST_F(ListComboTest, ListMessagesAndErrors) {
  HWND l = Make(kListBoxClass, "", LBS_SORT, {10, 10, 160, 80}, 3);
  for (const char* t : {"pear", "Apple", "fig"}) SendText(l, LB_ADDSTRING, 0, t);
  EXPECT_EQ(LbText(l, 0), "Apple");
  EXPECT_EQ(LbText(l, 9), "<err>");
  EXPECT_EQ(Send(l, LB_GETTEXTLEN, 2), 4);
  EXPECT_EQ(SendText(l, LB_FINDSTRING, static_cast<WPARAM>(-1), "F"), 1);
  EXPECT_EQ(SendText(l, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "PEAR"), 2);
  EXPECT_EQ(SendText(l, LB_SELECTSTRING, static_cast<WPARAM>(-1), "p"), 2);
  EXPECT_EQ(Send(l, LB_GETCURSEL), 2);
  EXPECT_EQ(Send(l, LB_SETCURSEL, 7), LB_ERR);
  EXPECT_EQ(Send(l, LB_GETCURSEL), LB_ERR);
  EXPECT_EQ(Send(l, LB_SETITEMDATA, 1, 1200), LB_OKAY);
  EXPECT_EQ(Send(l, LB_GETITEMDATA, 1), 1200);
  EXPECT_EQ(Send(l, LB_SETSEL, 1, 0), LB_ERR);  // single-selection lists refuse SETSEL
  EXPECT_EQ(Send(l, LB_DELETESTRING, 0), 2);
  EXPECT_EQ(Send(l, LB_GETCOUNT), 2);
  Send(l, LB_RESETCONTENT);
  EXPECT_EQ(Send(l, LB_GETCOUNT), 0);
}

TEST_F(ListComboTest, MultipleSelectionClicksToggle) {
  HWND l = MakeList(LBS_MULTIPLESEL | LBS_NOTIFY, 4);
  Rect first;
  ASSERT_EQ(Send(l, LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first)), 1);
  ClickAt(l, {first.left + 5, first.top + 2});
  ClickAt(l, {first.left + 5, first.bottom + first.Height() + 2});
  EXPECT_EQ(Send(l, LB_GETSELCOUNT), 2);
  int items[4] = {};
  EXPECT_EQ(Send(l, LB_GETSELITEMS, 4, reinterpret_cast<LPARAM>(items)), 2);
  EXPECT_EQ(items[0], 0);
  EXPECT_EQ(items[1], 2);
  ClickAt(l, {first.left + 5, first.top + 2});
  EXPECT_EQ(Send(l, LB_GETSELCOUNT), 1);
  // A multiple-selection list's current item is its caret, selected or not.
  EXPECT_EQ(Send(l, LB_GETCURSEL), 0);
}

TEST_F(ListComboTest, ListScrollBarArrowScrollsByALine) {
  HWND l = MakeList(0, 5);
  Rect client;
  GetClientRect(l, &client);
  EXPECT_EQ(Send(l, LB_GETTOPINDEX), 0);
  ClickAt(l, {client.right - 5, client.bottom - 4});
  EXPECT_EQ(Send(l, LB_GETTOPINDEX), 1);
  ClickAt(l, {client.right - 5, 3});
  EXPECT_EQ(Send(l, LB_GETTOPINDEX), 0);
}

TEST_F(ListComboTest, DropDownListPicksByKeyboardAndTellsSelChange) {
  HWND c = MakeCombo(CBS_DROPDOWNLIST);
  Rect r;
  GetWindowRect(c, &r);
  EXPECT_LT(r.Height(), 40);  // the window is the field; 200 was the list's room
  SetFocus(c);
  Key(VK_DOWN);
  Key(VK_DOWN);
  EXPECT_EQ(Send(c, CB_GETCURSEL), 1);
  EXPECT_EQ(GetWindowText(c), "2400");
  Type("9");
  EXPECT_EQ(GetWindowText(c), "9600");
  EXPECT_THAT(Commands(1831), ElementsAre(CBN_SETFOCUS, CBN_SELCHANGE, CBN_SELCHANGE,
                                          CBN_SELCHANGE));
}

TEST_F(ListComboTest, ResizingADropDownSetsTheListsRoomNotTheField) {
  HWND c = MakeCombo(CBS_DROPDOWN);
  Rect before;
  GetWindowRect(c, &before);
  MoveWindow(c, 10, 10, 200, 300, true);
  Rect after;
  GetWindowRect(c, &after);
  EXPECT_EQ(after.Height(), before.Height());
  EXPECT_EQ(after.Width(), 200);
  Rect dropped;
  Send(c, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
  EXPECT_EQ(dropped.Height(), 300);
}

TEST_F(ListComboTest, DropDownOpensAndAMouseClickPicks) {
  HWND c = MakeCombo(CBS_DROPDOWNLIST);
  Send(c, CB_SETCURSEL, 0);
  ClickAt(c, {10, 5});
  ASSERT_EQ(Send(c, CB_GETDROPPEDSTATE), 1);
  ControlOf<ComboBoxControl>(c);  // the pop-up belongs to the combo
  HWND popup = ControlOf<ComboBoxControl>(c)->popup();
  ASSERT_NE(popup, nullptr);
  EXPECT_TRUE(IsWindowVisible(popup));
  int row = static_cast<int>(Send(c, CB_GETITEMHEIGHT, 0));
  ClickAt(popup, {20, 3 * row + row / 2 + 1});
  EXPECT_EQ(Send(c, CB_GETDROPPEDSTATE), 0);
  EXPECT_FALSE(IsWindowVisible(popup));
  EXPECT_EQ(Send(c, CB_GETCURSEL), 3);
  EXPECT_THAT(Commands(1831), ElementsAre(CBN_SETFOCUS, CBN_DROPDOWN, CBN_SELCHANGE,
                                          CBN_SELENDOK, CBN_CLOSEUP));
}

TEST_F(ListComboTest, EscapeInAnOpenListTakesTheChoiceBackAndStaysInTheDialog) {
  HWND c = MakeCombo(CBS_DROPDOWNLIST);
  Send(c, CB_SETCURSEL, 2);
  SetFocus(c);
  Key(VK_F4);
  EXPECT_EQ(Send(c, CB_GETDROPPEDSTATE), 1);
  MSG escape{c, WM_KEYDOWN, VK_ESCAPE, 0, 0, {}};
  EXPECT_TRUE(Send(c, WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&escape)) &
              DLGC_WANTMESSAGE);
  Key(VK_DOWN);
  EXPECT_EQ(Send(c, CB_GETCURSEL), 3);
  Key(VK_ESCAPE);
  EXPECT_EQ(Send(c, CB_GETDROPPEDSTATE), 0);
  EXPECT_EQ(Send(c, CB_GETCURSEL), 2);
  EXPECT_FALSE(Send(c, WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&escape)) &
               DLGC_WANTMESSAGE);
}

TEST_F(ListComboTest, DropDownEditTypingTellsEditChange) {
  HWND c = MakeCombo(CBS_DROPDOWN);
  SetFocus(c);
  Type("48");
  EXPECT_EQ(GetWindowText(c), "48");
  EXPECT_EQ(Send(c, CB_GETCURSEL), CB_ERR);
  EXPECT_THAT(Commands(1831), ElementsAre(CBN_SETFOCUS, CBN_EDITUPDATE, CBN_EDITCHANGE,
                                          CBN_EDITUPDATE, CBN_EDITCHANGE));
  Send(c, CB_SETCURSEL, 4);
  EXPECT_EQ(GetWindowText(c), "19200");
  uint32_t start = 9, end = 9;
  Send(c, CB_GETEDITSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(start, 0u);
  EXPECT_EQ(end, 5u);
  Send(c, CB_LIMITTEXT, 3);
  Send(c, CB_SETEDITSEL, 0, MAKELPARAM(0, 5));
  Type("123456");
  EXPECT_EQ(GetWindowText(c), "123");
}

TEST_F(ListComboTest, SimpleComboListIsAlwaysShownAndClickable) {
  HWND c = MakeCombo(CBS_SIMPLE);
  EXPECT_EQ(Send(c, CB_SHOWDROPDOWN, 1), 1);
  EXPECT_EQ(Send(c, CB_GETDROPPEDSTATE), 0);
  int field = static_cast<int>(Send(c, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
  int row = static_cast<int>(Send(c, CB_GETITEMHEIGHT, 0));
  ClickAt(c, {20, field + 2 + row + row / 2});
  EXPECT_EQ(Send(c, CB_GETCURSEL), 1);
  EXPECT_EQ(GetWindowText(c), "2400");
}

TEST_F(ListComboTest, ComboTextOfADropDownListMustNameAnItem) {
  HWND c = MakeCombo(CBS_DROPDOWNLIST);
  EXPECT_EQ(SendText(c, WM_SETTEXT, 0, "38400"), 1);
  EXPECT_EQ(Send(c, CB_GETCURSEL), 5);
  EXPECT_EQ(SendText(c, WM_SETTEXT, 0, "57600"), CB_ERR);
  EXPECT_EQ(Send(c, CB_GETCURSEL), CB_ERR);
  EXPECT_EQ(SendText(c, CB_SELECTSTRING, static_cast<WPARAM>(-1), "11"), 6);
  char buffer[16] = {};
  EXPECT_EQ(Send(c, CB_GETLBTEXT, 6, reinterpret_cast<LPARAM>(buffer)), 6);
  EXPECT_STREQ(buffer, "115200");
  EXPECT_EQ(Send(c, CB_GETLBTEXT, 60, reinterpret_cast<LPARAM>(buffer)), CB_ERR);
}

}  // namespace
}  // namespace qmk::platform::ui::controls::testing
