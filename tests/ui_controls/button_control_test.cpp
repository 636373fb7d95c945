// button_control_test.cpp: buttons through their messages and through clicks and keys on the
// headless back end: check states by kind, automatic radio groups, notifications, dialog codes.
#include <gmock/gmock.h>

#include "ui_controls/control_fixture.h"

namespace qmk::platform::ui::controls::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using ButtonTest = ControlTest;

TEST_F(ButtonTest, ClicksCycleCheckStatesByKind) {
  struct Case { uint32_t kind; std::vector<int> states; };  // after each of three clicks
  const Case cases[] = {
      {BS_AUTOCHECKBOX, {1, 0, 1}},
      {BS_AUTO3STATE, {1, 2, 0}},
      {BS_CHECKBOX, {0, 0, 0}},  // a plain check box leaves its state to the program
      {BS_3STATE, {0, 0, 0}},
      {BS_PUSHBUTTON, {0, 0, 0}},
  };
  int id = 100;
  for (const Case& c : cases) {
    HWND b = Make(kButtonClass, "Option", c.kind | WS_TABSTOP, {10, 10, 150, 30}, ++id);
    for (int expected : c.states) {
      ClickAt(b, {20, 10});
      EXPECT_EQ(Send(b, BM_GETCHECK), expected) << "kind " << c.kind;
    }
    EXPECT_THAT(Commands(id), ElementsAre(BN_CLICKED, BN_CLICKED, BN_CLICKED)) << c.kind;
    DestroyWindow(b);
  }
}

TEST_F(ButtonTest, SetCheckIsClampedToTheKindAndTellsNobody) {
  struct Case { uint32_t kind; int set; int want; };
  for (const Case& c : {Case{BS_CHECKBOX, 2, 1}, Case{BS_3STATE, 2, 2}, Case{BS_AUTO3STATE, 5, 2},
                        Case{BS_RADIOBUTTON, 2, 1}, Case{BS_PUSHBUTTON, 1, 0},
                        Case{BS_GROUPBOX, 1, 0}, Case{BS_AUTOCHECKBOX, -3, 0}}) {
    HWND b = Make(kButtonClass, "x", c.kind, {0, 0, 80, 20}, 7);
    Send(b, BM_SETCHECK, static_cast<WPARAM>(c.set));
    EXPECT_EQ(Send(b, BM_GETCHECK), c.want) << "kind " << c.kind << " set " << c.set;
    DestroyWindow(b);
  }
  EXPECT_THAT(Commands(7), IsEmpty());
}

TEST_F(ButtonTest, ReleasingOutsideDoesNotClick) {
  HWND b = Make(kButtonClass, "Go", BS_PUSHBUTTON, {10, 10, 90, 35}, 5);
  Point down{20, 10}, away{200, 200};
  ClientToScreen(b, &down);
  ClientToScreen(b, &away);
  InjectMouse(MouseAction::Down, down);
  Pump();
  EXPECT_TRUE(Send(b, BM_GETSTATE) & BST_PUSHED);
  InjectMouse(MouseAction::Move, away);
  InjectMouse(MouseAction::Up, away);
  Pump();
  EXPECT_FALSE(Send(b, BM_GETSTATE) & BST_PUSHED);
  EXPECT_THAT(Commands(5), IsEmpty());
}

TEST_F(ButtonTest, SpaceBarClicksTheFocusedButton) {
  HWND b = Make(kButtonClass, "Log", BS_AUTOCHECKBOX | WS_TABSTOP, {10, 10, 120, 30}, 9);
  SetFocus(b);
  Key(VK_SPACE);
  EXPECT_EQ(Send(b, BM_GETCHECK), BST_CHECKED);
  EXPECT_THAT(Commands(9), ElementsAre(BN_CLICKED));
  Send(b, BM_CLICK);
  EXPECT_EQ(Send(b, BM_GETCHECK), BST_UNCHECKED);
}

TEST_F(ButtonTest, AutoRadioClearsItsGroupOnlyAndKeepsOneTabStop) {
  HWND a = Make(kButtonClass, "7", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, {10, 10, 80, 28}, 21);
  HWND b = Make(kButtonClass, "8", BS_AUTORADIOBUTTON, {10, 30, 80, 48}, 22);
  HWND c = Make(kButtonClass, "Odd", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, {100, 10, 180, 28}, 23);
  HWND d = Make(kButtonClass, "Even", BS_AUTORADIOBUTTON, {100, 30, 180, 48}, 24);
  Send(a, BM_SETCHECK, BST_CHECKED);
  Send(c, BM_SETCHECK, BST_CHECKED);
  ClickAt(b, {5, 5});
  EXPECT_EQ(Send(a, BM_GETCHECK), 0);
  EXPECT_EQ(Send(b, BM_GETCHECK), 1);
  EXPECT_EQ(Send(c, BM_GETCHECK), 1);  // the other group stands
  EXPECT_EQ(Send(d, BM_GETCHECK), 0);
  auto tab = [](HWND h) { return (GetWindowLongPtr(h, GWL_STYLE) & WS_TABSTOP) != 0; };
  EXPECT_FALSE(tab(a));
  EXPECT_TRUE(tab(b));
  EXPECT_THAT(Commands(22), ElementsAre(BN_CLICKED));
}

TEST_F(ButtonTest, DialogCodesAndDefaultStyle) {
  struct Case { uint32_t kind; LRESULT code; };
  for (const Case& c : {Case{BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},
                        Case{BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON},
                        Case{BS_AUTOCHECKBOX, DLGC_BUTTON},
                        Case{BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON},
                        Case{BS_GROUPBOX, DLGC_STATIC}}) {
    HWND b = Make(kButtonClass, "x", c.kind, {0, 0, 60, 20}, 3);
    EXPECT_EQ(Send(b, WM_GETDLGCODE), c.code) << c.kind;
    DestroyWindow(b);
  }
  HWND ok = Make(kButtonClass, "OK", BS_PUSHBUTTON, {0, 0, 60, 20}, IDOK);
  Send(ok, BM_SETSTYLE, BS_DEFPUSHBUTTON, 1);
  EXPECT_EQ(Send(ok, WM_GETDLGCODE), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
}

TEST_F(ButtonTest, NotifyStyleReportsFocus) {
  HWND plain = Make(kButtonClass, "a", BS_PUSHBUTTON, {0, 0, 60, 20}, 31);
  HWND notify = Make(kButtonClass, "b", BS_PUSHBUTTON | BS_NOTIFY, {0, 30, 60, 50}, 32);
  SetFocus(plain);
  SetFocus(notify);
  SetFocus(plain);
  Pump();
  EXPECT_THAT(Commands(31), IsEmpty());
  EXPECT_THAT(Commands(32), ElementsAre(BN_SETFOCUS, BN_KILLFOCUS));
}

}  // namespace
}  // namespace qmk::platform::ui::controls::testing
