// subclass_test.cpp: which toolkit control each plain class and button kind becomes, the walk
// over a window's children, bound controls left alone, group boxes sent below, and controls
// made by the walk behaving like declared ones.
#include <gmock/gmock.h>

#include <memory>
#include <typeinfo>

#include "dialog_controls/themed_fixture.h"
#include "platform/ui/controls/control_messages.h"
#include "toolkit/dialogs/ext_button.h"
#include "toolkit/dialogs/ext_check_box.h"
#include "toolkit/dialogs/ext_combo_box.h"
#include "toolkit/dialogs/ext_edit.h"
#include "toolkit/dialogs/ext_group_box.h"
#include "toolkit/dialogs/ext_label.h"
#include "toolkit/dialogs/ext_radio_button.h"
#include "toolkit/dialogs/ext_spin_wnd.h"
#include "toolkit/dialogs/subclass_controls.h"
#include "toolkit/dialogs/themed_progress.h"
#include "toolkit/dialogs/themed_scroll_bar.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;
using namespace toolkit;

// The dynamic type's name of what a class and style become; "plain" for nothing.
std::string Becomes(const std::string& cls, uint32_t style) {
  std::unique_ptr<ThemedControl> made(MakeThemedControlFor(cls, style));
  if (!made) return "plain";
  const ThemedControl& ref = *made;
  if (typeid(ref) == typeid(CExtRadioButton)) return "radio";
  if (typeid(ref) == typeid(CExtCheckBox)) return "check";
  if (typeid(ref) == typeid(CExtButton)) return "button";
  if (typeid(ref) == typeid(CExtGroupBox)) return "group";
  if (typeid(ref) == typeid(CExtLabel)) return "label";
  if (typeid(ref) == typeid(CExtEdit)) return "edit";
  if (typeid(ref) == typeid(CExtComboBox)) return "combo";
  if (typeid(ref) == typeid(CExtSpinWnd)) return "spin";
  if (typeid(ref) == typeid(ThemedProgress)) return "progress";
  if (typeid(ref) == typeid(ThemedScrollBar)) return "scroll";
  return "other";
}

TEST(SubclassTable, ClassNamesAndButtonKinds) {
  struct Case { const char* cls; uint32_t style; const char* want; };
  const Case cases[] = {
      {"Button", 0, "button"},  {"button", 1, "button"},   {"BUTTON", 2, "check"},
      {"Button", 3, "check"},   {"Button", 5, "check"},    {"Button", 6, "check"},
      {"Button", 4, "radio"},   {"Button", 9, "radio"},    {"Button", 7, "group"},
      // User and owner-drawn buttons, and the kinds no row names, stay plain.
      {"Button", 8, "plain"},   {"Button", 11, "plain"},   {"Button", 10, "plain"},
      {"Button", 0x1003, "check"},  // push-like check boxes are still check boxes
      {"STATIC", 0, "label"},   {"static", 0x12, "label"}, {"Edit", 0, "edit"},
      {"ComboBox", 3, "combo"}, {"msctls_updown32", 0, "spin"}, {"MSCTLS_PROGRESS32", 0, "progress"},
      {"ScrollBar", 0, "scroll"}, {"SCROLLBAR", 1, "scroll"}, {"ListBox", 0, "plain"},  {"SysTabControl32", 0, "plain"},
      {"Buttons", 0, "plain"},  {"", 0, "plain"},
  };
  for (const Case& c : cases) EXPECT_EQ(Becomes(c.cls, c.style), c.want) << c.cls << " style " << c.style;
}

class Subclass : public ThemedTest {};

TEST_F(Subclass, EveryPlainControlOfTheTableIsThemedOnce) {
  HWND label = Make(kStaticClass, "Name:", 0, {10, 10, 80, 24}, 1);
  HWND edit = Make(kEditClass, "", WS_TABSTOP, {90, 10, 200, 26}, 2);
  HWND list = Make(kListBoxClass, "", 0, {10, 40, 100, 100}, 3);
  HWND push = Make(kButtonClass, "OK", BS_DEFPUSHBUTTON, {110, 40, 180, 62}, 4);
  EXPECT_EQ(SubclassChildControls(host_), 3);
  EXPECT_NE(dynamic_cast<CExtLabel*>(ThemedControl::FromHandle(label)), nullptr);
  EXPECT_NE(dynamic_cast<CExtEdit*>(ThemedControl::FromHandle(edit)), nullptr);
  EXPECT_NE(dynamic_cast<CExtButton*>(ThemedControl::FromHandle(push)), nullptr);
  EXPECT_EQ(ThemedControl::FromHandle(list), nullptr);
  EXPECT_EQ(SubclassChildControls(host_), 0) << "a second walk finds everything bound";
  EXPECT_EQ(SubclassChildControls(nullptr), 0);
}

TEST_F(Subclass, ABoundControlKeepsItsOwnObject) {
  HWND push = Make(kButtonClass, "Browse", BS_PUSHBUTTON, {10, 10, 90, 32}, 5);
  CExtButton declared;
  ASSERT_TRUE(declared.SubclassWindow(push));
  EXPECT_FALSE(CExtButton().SubclassWindow(push)) << "one object per window";
  EXPECT_EQ(SubclassChildControls(host_), 0);
  EXPECT_EQ(ThemedControl::FromHandle(push), &declared);
  ASSERT_TRUE(declared.UnsubclassWindow());
  EXPECT_EQ(ThemedControl::FromHandle(push), nullptr);
  EXPECT_EQ(SubclassChildControls(host_), 1);
}

TEST_F(Subclass, GroupBoxesGoBelowTheControlsTheyFrame) {
  HWND frame = Make(kButtonClass, "Size", BS_GROUPBOX, {10, 10, 200, 120}, 10);
  HWND small = Make(kButtonClass, "Small", BS_AUTORADIOBUTTON | WS_GROUP, {20, 30, 120, 50}, 11);
  HWND large = Make(kButtonClass, "Large", BS_AUTORADIOBUTTON, {20, 60, 120, 80}, 12);
  HWND second = Make(kButtonClass, "More", BS_GROUPBOX, {210, 10, 400, 120}, 13);
  SubclassChildControls(host_);
  const std::vector<HWND> order = GetChildren(host_);  // topmost first
  ASSERT_EQ(order.size(), 4u);
  EXPECT_EQ(order[2], frame);
  EXPECT_EQ(order[3], second) << "each frame behind the one before";
  EXPECT_THAT(std::vector<HWND>(order.begin(), order.begin() + 2), ::testing::UnorderedElementsAre(small, large));
  // The frame still lets clicks through to the buttons inside it.
  EXPECT_EQ(Send(frame, WM_NCHITTEST), HTTRANSPARENT);
  ClickAt(small, {10, 10});
  EXPECT_EQ(Send(small, BM_GETCHECK), BST_CHECKED);
}

TEST_F(Subclass, WalkedAndDeclaredButtonsBehaveAndLookAlike) {
  HWND walked = Make(kButtonClass, "Apply", BS_PUSHBUTTON, {10, 10, 90, 34}, 20);
  HWND declared_window = Make(kButtonClass, "Apply", BS_PUSHBUTTON, {10, 50, 90, 74}, 21);
  CExtButton declared;
  ASSERT_TRUE(declared.SubclassWindow(declared_window));
  SubclassChildControls(host_);
  HeardLog().clear();
  ClickAt(walked, {20, 10});
  ClickAt(declared_window, {20, 10});
  EXPECT_THAT(Commands(20), ElementsAre(BN_CLICKED));
  EXPECT_THAT(Commands(21), ElementsAre(BN_CLICKED));
  SetFocus(host_);
  Pump();
  auto a = RenderWindow(walked), b = RenderWindow(declared_window);
  ASSERT_TRUE(a && b);
  ASSERT_EQ(a->width(), b->width());
  int differing = 0;
  for (int y = 0; y < a->height(); ++y)
    for (int x = 0; x < a->width(); ++x) differing += a->GetPixel(x, y) != b->GetPixel(x, y);
  EXPECT_EQ(differing, 0);
}

TEST_F(Subclass, ObjectsOfTheWalkDieWithTheirWindows) {
  HWND edit = Make(kEditClass, "x", 0, {10, 10, 100, 30}, 30);
  ASSERT_EQ(SubclassChildControls(host_), 1);
  ThemedControl* object = ThemedControl::FromHandle(edit);
  ASSERT_NE(object, nullptr);
  // The sanitizer build reports the object if destroying the window leaves it behind.
  EXPECT_TRUE(DestroyWindow(edit));
  EXPECT_EQ(ThemedControl::FromHandle(edit), nullptr);
}

}  // namespace
}  // namespace qmk::testing
