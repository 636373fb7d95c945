// button_test.cpp: push buttons, check boxes and radio buttons bound to plain buttons: the
// states they are drawn in, clicks and notices, a radio group's one tab stop and its arrows.
#include <gmock/gmock.h>

#include "dialog_controls/themed_fixture.h"
#include "platform/ui/controls/control_messages.h"
#include "toolkit/dialogs/dialog_keyboard.h"
#include "toolkit/dialogs/ext_button.h"
#include "toolkit/dialogs/ext_check_box.h"
#include "toolkit/dialogs/ext_radio_button.h"
#include "toolkit/theme/widget_state.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace toolkit;
using namespace toolkit::theme;

class Buttons : public ThemedTest {
 protected:
  // Sends a mouse move straight to a window, as the pump would deliver it.
  static void MoveOver(HWND h, Point p) { Send(h, WM_MOUSEMOVE, 0, MAKELPARAM(p.x, p.y)); }
};

TEST_F(Buttons, PushButtonStates) {
  HWND h = Make(kButtonClass, "Scan", BS_PUSHBUTTON | WS_TABSTOP, {10, 10, 90, 34}, 1);
  HWND other = Make(kButtonClass, "Other", BS_PUSHBUTTON, {100, 10, 180, 34}, 2);
  CExtButton b;
  ASSERT_TRUE(b.SubclassWindow(h));
  EXPECT_EQ(b.PaintState(), kStateNormal);
  MoveOver(h, {5, 5});
  EXPECT_EQ(b.PaintState(), kStateHot);
  MoveOver(h, {500, 5});  // outside, while the mouse would be captured
  EXPECT_EQ(b.PaintState(), kStateNormal);
  Send(h, BM_SETSTATE, 1);
  EXPECT_EQ(b.PaintState(), kStatePressed);
  Send(h, BM_SETSTATE, 0);
  Send(h, BM_SETSTYLE, BS_DEFPUSHBUTTON, 1);
  EXPECT_EQ(b.PaintState(), kStateDefault);
  SetFocus(h);
  EXPECT_EQ(b.PaintState(), kStateDefault | kStateFocused);
  SetFocus(other);
  EnableWindow(h, false);
  EXPECT_EQ(b.PaintState(), kStateDisabled | kStateDefault) << "disabled hides hot and focus";
}

TEST_F(Buttons, HotStateLeavesWhenTheMouseGoesElsewhere) {
  HWND h = Make(kButtonClass, "Scan", BS_PUSHBUTTON, {10, 10, 90, 34}, 1);
  HWND label = Make(kStaticClass, "plain", 0, {10, 60, 90, 80}, 2);
  CExtButton b;
  ASSERT_TRUE(b.SubclassWindow(h));
  Point p{20, 10};
  ClientToScreen(h, &p);
  InjectMouse(MouseAction::Move, p);
  Pump();
  EXPECT_TRUE(b.IsHot());
  Point q{5, 5};
  ClientToScreen(label, &q);
  InjectMouse(MouseAction::Move, q);
  Pump();
  EXPECT_FALSE(b.IsHot());
}

TEST_F(Buttons, ClicksStillReachTheParent) {
  HWND h = Make(kButtonClass, "Scan", BS_PUSHBUTTON, {10, 10, 90, 34}, 7);
  CExtButton b;
  ASSERT_TRUE(b.SubclassWindow(h));
  ClickAt(h, {10, 10});
  SetFocus(h);
  Key(VK_SPACE);
  EXPECT_THAT(Commands(7), ElementsAre(BN_CLICKED, BN_CLICKED));
  EnableWindow(h, false);
  Send(h, BM_CLICK);
  EXPECT_THAT(Commands(7), ElementsAre(BN_CLICKED, BN_CLICKED));
}

TEST_F(Buttons, AnswersTheMnemonicItsTextMarks) {
  struct Case { const char* text; char key; bool mnemonics; bool enabled; LRESULT want; };
  const Case cases[] = {
      {"&Scan", 'S', true, true, 1},   {"&scan", 'S', true, true, 1},  // offered upper case
      {"&Scan", 'C', true, true, 0},   {"Sc&an", 'A', true, true, 1},
      {"&&Scan", 'S', true, true, 0},  // "&&" is a plain ampersand
      {"Scan", 'S', true, true, 0},    {"&Scan", 'S', false, true, 0},
      {"&Scan", 'S', true, false, 0},
  };
  int id = 60;
  for (const Case& c : cases) {
    HWND h = Make(kButtonClass, c.text, BS_PUSHBUTTON, {10, 10, 90, 34}, ++id);
    CExtButton b;
    ASSERT_TRUE(b.SubclassWindow(h));
    b.m_bMnemonics = c.mnemonics;
    EnableWindow(h, c.enabled);
    EXPECT_EQ(Send(h, toolkit::kMsgOfferMnemonic, static_cast<WPARAM>(c.key)), c.want) << c.text << " " << c.key;
    b.UnsubclassWindow();
    DestroyWindow(h);
  }
}

TEST_F(Buttons, AThemeChangeRepaintsTheButton) {
  HWND h = Make(kButtonClass, "Scan", BS_PUSHBUTTON, {10, 10, 90, 34}, 1);
  CExtButton b;
  ASSERT_TRUE(b.SubclassWindow(h));
  Pump();
  Rect dirty;
  ASSERT_FALSE(GetUpdateRect(h, &dirty, false));
  auto before = RenderWindow(h);
  ASSERT_TRUE(SelectPaintManagerById(29757, [](int) {}));
  EXPECT_TRUE(GetUpdateRect(h, &dirty, false));
  auto after = RenderWindow(h);
  ASSERT_TRUE(before && after);
  EXPECT_NE(before->GetPixel(40, 12), after->GetPixel(40, 12)) << "the face changed colour";
}

TEST_F(Buttons, TextColourSlotsOverrideTheTheme) {
  HWND h = Make(kButtonClass, "WWWW", BS_PUSHBUTTON, {10, 10, 90, 34}, 1);
  CExtButton b;
  ASSERT_TRUE(b.SubclassWindow(h));
  auto count_red = [&] {
    auto picture = RenderWindow(h);
    int red = 0;
    for (int y = 0; y < picture->height(); ++y)
      for (int x = 0; x < picture->width(); ++x) red += (picture->GetPixel(x, y) & 0xFFFFFF) == 0x0000FF;
    return red;
  };
  EXPECT_EQ(count_red(), 0);
  b.SetTextColorNormal(0x0000FF);
  EXPECT_GT(count_red(), 10);
  b.SetTextColorNormal(kThemeColor);
  EXPECT_EQ(count_red(), 0);
}

TEST_F(Buttons, CheckBoxStatesFollowTheCheck) {
  struct Case { uint32_t kind; int check; unsigned want; };
  const Case cases[] = {
      {BS_AUTOCHECKBOX, 0, kStateNormal},
      {BS_AUTOCHECKBOX, 1, kStateChecked},
      {BS_AUTO3STATE, 2, kStateIndeterminate},
      {BS_CHECKBOX, 2, kStateChecked},  // a two-state box takes 2 as checked
      {BS_AUTORADIOBUTTON, 1, kStateChecked},
  };
  int id = 10;
  for (const Case& c : cases) {
    HWND h = Make(kButtonClass, "Option", c.kind, {10, 10, 150, 30}, ++id);
    CExtCheckBox box;
    ASSERT_TRUE(box.SubclassWindow(h));
    Send(h, BM_SETCHECK, static_cast<WPARAM>(c.check));
    EXPECT_EQ(box.PaintState(), c.want) << "kind " << c.kind << " check " << c.check;
    box.UnsubclassWindow();
    DestroyWindow(h);
  }
}

TEST_F(Buttons, AutomaticThreeStateBoxCyclesOnClicks) {
  HWND h = Make(kButtonClass, "Keep", BS_AUTO3STATE, {10, 10, 150, 30}, 3);
  CExtCheckBox box;
  ASSERT_TRUE(box.SubclassWindow(h));
  std::vector<LRESULT> seen;
  for (int i = 0; i < 3; ++i) {
    ClickAt(h, {5, 10});
    seen.push_back(Send(h, BM_GETCHECK));
  }
  EXPECT_THAT(seen, ElementsAre(1, 2, 0));
  EXPECT_THAT(Commands(3), ElementsAre(BN_CLICKED, BN_CLICKED, BN_CLICKED));
}

class RadioGroup : public Buttons {
 protected:
  void SetUp() override {
    Buttons::SetUp();
    // A group of four (the third plain radio on purpose: it is one of the group all the same),
    // then a check box that starts the next group.
    for (int i = 0; i < 4; ++i) {
      const uint32_t style = BS_RADIOBUTTON | (i == 0 ? WS_GROUP | WS_TABSTOP : WS_TABSTOP);
      h_[i] = Make(kButtonClass, "Choice", style, {10, 10 + 25 * i, 150, 30 + 25 * i}, 100 + i);
      if (i != 2) {
        ASSERT_TRUE(radio_[i].SubclassWindow(h_[i]));
      }
    }
    next_group_ = Make(kButtonClass, "Other", BS_AUTOCHECKBOX | WS_GROUP | WS_TABSTOP, {10, 120, 150, 140}, 200);
  }
  int TabStops() const {
    int n = 0;
    for (HWND h : h_) n += (GetWindowLongPtr(h, GWL_STYLE) & WS_TABSTOP) != 0;
    return n;
  }
  bool Checked(int i) const { return SendMessage(h_[i], BM_GETCHECK, 0, 0) == BST_CHECKED; }

  HWND h_[4] = {};
  CExtRadioButton radio_[4];
  HWND next_group_ = nullptr;
};

TEST_F(RadioGroup, AnswersAsRadioButton) {
  EXPECT_EQ(Send(h_[0], WM_GETDLGCODE), static_cast<LRESULT>(DLGC_RADIOBUTTON | DLGC_BUTTON));
  EXPECT_EQ(radio_[1].GroupRadios().size(), 4u);
}

TEST_F(RadioGroup, CheckingLeavesOneTabStopOnTheCheckedButton) {
  Send(h_[1], BM_SETCHECK, BST_CHECKED);
  EXPECT_EQ(TabStops(), 1);
  EXPECT_TRUE(GetWindowLongPtr(h_[1], GWL_STYLE) & WS_TABSTOP);
  EXPECT_TRUE(GetWindowLongPtr(next_group_, GWL_STYLE) & WS_TABSTOP) << "the next group is not touched";
  Send(h_[1], BM_SETCHECK, BST_UNCHECKED);
  Send(h_[3], BM_SETCHECK, BST_CHECKED);
  EXPECT_EQ(TabStops(), 1);
  EXPECT_TRUE(GetWindowLongPtr(h_[3], GWL_STYLE) & WS_TABSTOP);
}

TEST_F(RadioGroup, ADisabledButtonDoesNotTidyItsGroup) {
  EnableWindow(h_[1], false);
  Send(h_[1], BM_SETCHECK, BST_CHECKED);
  EXPECT_TRUE(Checked(1));
  EXPECT_EQ(TabStops(), 4);
}

TEST_F(RadioGroup, ArrowsMoveTheChoiceRoundTheGroup) {
  Send(h_[0], BM_SETCHECK, BST_CHECKED);
  SetFocus(h_[0]);
  HeardLog().clear();
  Send(h_[0], WM_KEYDOWN, VK_DOWN);
  EXPECT_TRUE(Checked(1));
  EXPECT_FALSE(Checked(0));
  EXPECT_EQ(GetFocus(), h_[1]);
  EXPECT_THAT(Commands(101), ElementsAre(BN_CLICKED));
  // Up from the first wraps round to the last; a hidden or disabled button is passed over.
  Send(h_[1], BM_SETCHECK, BST_UNCHECKED);
  Send(h_[0], BM_SETCHECK, BST_CHECKED);
  ShowWindow(h_[3], SW_HIDE);
  EnableWindow(h_[2], false);
  Send(h_[0], WM_KEYDOWN, VK_UP);
  EXPECT_TRUE(Checked(1));
  EXPECT_FALSE(Checked(0));
  Send(h_[1], WM_KEYDOWN, VK_RIGHT);
  EXPECT_TRUE(Checked(0)) << "past the disabled and the hidden one, round to the first";
  EXPECT_EQ(TabStops(), 1);
}

TEST_F(RadioGroup, AnArrowOntoACheckedButtonDoesNothing) {
  // Two checked at once can only be the program's doing; the arrow leaves them as they are.
  Send(h_[0], BM_SETCHECK, BST_CHECKED);
  CallWindowProc(GetWindowProc(h_[2]), h_[2], BM_SETCHECK, BST_CHECKED, 0);
  ShowWindow(h_[1], SW_HIDE);
  SetFocus(h_[0]);
  HeardLog().clear();
  Send(h_[0], WM_KEYDOWN, VK_DOWN);
  EXPECT_TRUE(Checked(0));
  EXPECT_EQ(GetFocus(), h_[0]);
  EXPECT_THAT(HeardLog(), IsEmpty());
}

}  // namespace
}  // namespace qmk::testing
