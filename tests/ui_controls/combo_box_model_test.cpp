// combo_box_model_test.cpp: the three combo kinds: what the edit and list show after each user
// action, and the notifications the parent receives, in order.
#include "platform/ui/controls/combo_box_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/ui/controls/control_messages.h"

namespace qmk::platform::ui::controls {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ComboBoxModel Make(ComboKind kind, bool sorted = false) {
  ComboBoxModel m(kind, sorted);
  for (const char* t : {"1200", "2400", "4800", "9600", "19200"}) m.list().AddString(t);
  return m;
}

TEST(ComboBoxModelKinds, ProgramSelectionFillsTheEditWithoutNotices) {
  for (ComboKind kind : {ComboKind::kSimple, ComboKind::kDropDown, ComboKind::kDropDownList}) {
    ComboBoxModel m = Make(kind);
    EXPECT_EQ(m.SetCurSel(3), 3);
    EXPECT_EQ(m.Text(), "9600");
    EXPECT_EQ(m.SetCurSel(9), CB_ERR);
    EXPECT_EQ(m.CurSel(), CB_ERR);
    EXPECT_EQ(m.Text(), "") << int(kind);
  }
}

TEST(ComboBoxModelKinds, WindowTextOfADropDownListSelectsTheItemNamed) {
  ComboBoxModel list = Make(ComboKind::kDropDownList);
  list.SetText("4800");
  EXPECT_EQ(list.CurSel(), 2);
  list.SetText("nothing like it");
  EXPECT_EQ(list.CurSel(), CB_ERR);
  ComboBoxModel drop = Make(ComboKind::kDropDown);
  drop.SetText("free text");
  EXPECT_EQ(drop.Text(), "free text");
  EXPECT_EQ(drop.CurSel(), CB_ERR);
}

TEST(ComboBoxModelKeys, ClosedArrowsChooseAndNotify) {
  ComboBoxModel m = Make(ComboKind::kDropDownList);
  EXPECT_THAT(m.KeyMove(ListMove::kDown), ElementsAre(CBN_SELCHANGE));
  EXPECT_EQ(m.CurSel(), 0);
  m.KeyMove(ListMove::kEnd);
  EXPECT_EQ(m.Text(), "19200");
  EXPECT_THAT(m.KeyMove(ListMove::kDown), IsEmpty());  // already last: no notice
}

TEST(ComboBoxModelKeys, DropDownListTypeAheadSelects) {
  ComboBoxModel m = Make(ComboKind::kDropDownList);
  EXPECT_THAT(m.KeyChar('4'), ElementsAre(CBN_SELCHANGE));
  EXPECT_EQ(m.Text(), "4800");
  EXPECT_THAT(m.KeyChar('7'), IsEmpty());
  EXPECT_EQ(m.CurSel(), 2);
}

TEST(ComboBoxModelKeys, EditKindArrowStartsFromTheItemItsTextNames) {
  ComboBoxModel m = Make(ComboKind::kDropDown);
  m.SetText("4800");
  EXPECT_THAT(m.KeyMove(ListMove::kDown), ElementsAre(CBN_SELCHANGE));
  EXPECT_EQ(m.Text(), "9600");
  EXPECT_EQ(m.edit().SelectedText(), "9600");
}

TEST(ComboBoxModelDrop, EscapeTakesBackTheHighlightEnterKeepsIt) {
  ComboBoxModel m = Make(ComboKind::kDropDownList);
  m.SetCurSel(1);
  EXPECT_THAT(m.ShowDropDown(true), ElementsAre(CBN_DROPDOWN));
  EXPECT_TRUE(m.dropped());
  EXPECT_THAT(m.ShowDropDown(true), IsEmpty());
  EXPECT_THAT(m.KeyMove(ListMove::kDown), ElementsAre(CBN_SELCHANGE));
  EXPECT_THAT(m.KeyEscape(), ElementsAre(CBN_SELENDCANCEL, CBN_CLOSEUP));
  EXPECT_FALSE(m.dropped());
  EXPECT_EQ(m.CurSel(), 1);

  m.ShowDropDown(true);
  m.KeyMove(ListMove::kDown);
  EXPECT_THAT(m.KeyEnter(), ElementsAre(CBN_SELENDOK, CBN_CLOSEUP));
  EXPECT_EQ(m.CurSel(), 2);
  EXPECT_THAT(m.KeyEnter(), IsEmpty());
}

TEST(ComboBoxModelDrop, MousePickSelectsAndCloses) {
  ComboBoxModel m = Make(ComboKind::kDropDown);
  m.ShowDropDown(true);
  EXPECT_THAT(m.PickWithMouse(4), ElementsAre(CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP));
  EXPECT_EQ(m.Text(), "19200");
  EXPECT_FALSE(m.dropped());
  EXPECT_THAT(m.PickWithMouse(17), IsEmpty());
  ComboBoxModel simple = Make(ComboKind::kSimple);
  EXPECT_THAT(simple.ShowDropDown(true), IsEmpty());
  EXPECT_THAT(simple.PickWithMouse(0), ElementsAre(CBN_SELCHANGE));
}

TEST(ComboBoxModelEdit, TypingTellsEditChangeAndTheListFollowsOnlyWhenShown) {
  ComboBoxModel closed = Make(ComboKind::kDropDown);
  closed.SetCurSel(0);
  closed.edit().SetSel(0, -1);
  EXPECT_THAT(closed.KeyChar('4'), ElementsAre(CBN_EDITUPDATE, CBN_EDITCHANGE));
  EXPECT_EQ(closed.Text(), "4");
  EXPECT_EQ(closed.CurSel(), CB_ERR);

  ComboBoxModel open = Make(ComboKind::kDropDown);
  open.ShowDropDown(true);
  open.KeyChar('1');
  open.KeyChar('9');
  EXPECT_EQ(open.CurSel(), 4);
  EXPECT_THAT(open.EditDelete(true), ElementsAre(CBN_EDITUPDATE, CBN_EDITCHANGE));
  EXPECT_EQ(open.CurSel(), 0);  // "1" begins "1200" first

  ComboBoxModel simple = Make(ComboKind::kSimple);
  simple.KeyChar('9');
  EXPECT_EQ(simple.CurSel(), 3);
}

TEST(ComboBoxModelEdit, SortedComboInsertsInOrder) {
  ComboBoxModel m(ComboKind::kDropDownList, true);
  for (const char* t : {"Odd", "even", "None"}) m.list().AddString(t);
  EXPECT_EQ(m.list().Text(0), "even");
  EXPECT_EQ(m.SelectString(-1, "n"), 1);
  EXPECT_EQ(m.SelectString(-1, "x"), CB_ERR);
  EXPECT_EQ(m.CurSel(), 1);
}

}  // namespace
}  // namespace qmk::platform::ui::controls
