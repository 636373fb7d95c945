// list_box_model_test.cpp: sorted insert, case-blind searches that wrap, selection kinds and
// keyboard moves of the list box model.
#include "platform/ui/controls/list_box_model.h"

#include <gtest/gtest.h>

namespace qmk::platform::ui::controls {
namespace {

ListBoxModel Filled(std::initializer_list<const char*> texts, ListBoxModel::Options o = {}) {
  ListBoxModel m(o);
  for (const char* t : texts) m.AddString(t);
  return m;
}

std::vector<std::string> Texts(const ListBoxModel& m) {
  std::vector<std::string> out;
  for (int i = 0; i < m.Count(); ++i) out.push_back(m.Text(i));
  return out;
}

TEST(ListBoxModelInsert, SortedIsCaseBlindAndKeepsArrivalOrderOfEquals) {
  ListBoxModel m = Filled({"pear", "Apple", "banana", "apple", "Zebra", "cherry"}, {.sorted = true});
  EXPECT_EQ(Texts(m), (std::vector<std::string>{"Apple", "apple", "banana", "cherry", "pear", "Zebra"}));
  // An explicit place is kept even in a sorted list.
  EXPECT_EQ(m.InsertString(0, "zzz"), 0);
  EXPECT_EQ(m.Text(0), "zzz");
  EXPECT_EQ(m.InsertString(99, "bad"), kListError);
  int end = m.InsertString(-1, "end");
  EXPECT_EQ(end, m.Count() - 1);
  EXPECT_EQ(m.Text(end), "end");
}

TEST(ListBoxModelFind, PrefixAndExactSearchesWrapAndIgnoreCase) {
  ListBoxModel m = Filled({"COM1", "com2", "USB", "Com10", "com1"});
  struct Case { bool exact; int start; const char* text; int want; };
  const Case cases[] = {
      {false, -1, "com", 0},
      {false, 0, "com", 1},    // the search begins after `start`
      {false, 1, "COM1", 3},
      {false, 4, "com", 0},    // and goes round
      {false, -1, "", 0},
      {false, 2, "", 3},
      {false, -1, "lpt", kListError},
      {false, 99, "usb", 2},   // a bad start searches from the top
      {true, -1, "com1", 0},
      {true, 0, "com1", 4},
      {true, 4, "COM1", 0},
      {true, -1, "com", kListError},
  };
  for (const Case& c : cases) {
    int got = c.exact ? m.FindStringExact(c.start, c.text) : m.FindString(c.start, c.text);
    EXPECT_EQ(got, c.want) << (c.exact ? "exact " : "prefix ") << c.start << " " << c.text;
  }
  EXPECT_EQ(ListBoxModel().FindString(-1, ""), kListError);
}

TEST(ListBoxModelSelection, SingleSelectionAndBadIndexes) {
  ListBoxModel m = Filled({"a", "b", "c"});
  EXPECT_EQ(m.CurSel(), kListError);
  EXPECT_TRUE(m.SetCurSel(1));
  EXPECT_FALSE(m.SetCurSel(1));
  EXPECT_EQ(m.CurSel(), 1);
  m.SetCurSel(7);
  EXPECT_EQ(m.CurSel(), kListError);
  m.SetCurSel(2);
  EXPECT_EQ(m.DeleteString(0), 2);
  EXPECT_EQ(m.CurSel(), 1);
  EXPECT_EQ(m.DeleteString(1), 1);
  EXPECT_EQ(m.CurSel(), kListError);
  EXPECT_EQ(m.DeleteString(5), kListError);
  EXPECT_EQ(m.ItemData(9), kListError);
  EXPECT_TRUE(m.SetItemData(0, 42));
  EXPECT_EQ(m.ItemData(0), 42);
}

TEST(ListBoxModelSelection, MultipleAndExtendedClicks) {
  ListBoxModel multi = Filled({"a", "b", "c", "d"}, {.multiple = true});
  multi.Click(1, false, false);
  multi.Click(3, false, false);
  multi.Click(1, false, false);
  EXPECT_EQ(multi.SelectedItems(), std::vector<int>{3});

  ListBoxModel ext = Filled({"a", "b", "c", "d", "e"}, {.extended = true});
  ext.Click(1, false, false);
  ext.Click(3, false, true);
  EXPECT_EQ(ext.SelectedItems(), (std::vector<int>{1, 2, 3}));
  ext.Click(4, true, false);
  EXPECT_EQ(ext.SelCount(), 4);
  ext.Click(0, false, false);
  EXPECT_EQ(ext.SelectedItems(), std::vector<int>{0});
  EXPECT_TRUE(ext.SelItemRange(4, 2, true));
  EXPECT_EQ(ext.SelCount(), 4);
  EXPECT_TRUE(ext.SetSel(-1, false));
  EXPECT_EQ(ext.SelCount(), 0);
}

TEST(ListBoxModelKeys, ArrowsPagesAndTypeAhead) {
  struct Case { ListMove move; int from; int want; };
  const Case cases[] = {
      {ListMove::kDown, -1, 0}, {ListMove::kUp, -1, 0},  {ListMove::kDown, 9, 9},
      {ListMove::kUp, 0, 0},    {ListMove::kPageDown, 0, 3}, {ListMove::kPageDown, 8, 9},
      {ListMove::kPageUp, 5, 2}, {ListMove::kHome, 5, 0}, {ListMove::kEnd, 2, 9},
  };
  for (const Case& c : cases) {
    ListBoxModel m = Filled({"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"});
    m.SetVisibleRows(4);
    if (c.from >= 0) m.SetCurSel(c.from);
    m.KeyMove(c.move, false);
    EXPECT_EQ(m.CurSel(), c.want) << "move " << int(c.move) << " from " << c.from;
    EXPECT_GE(c.want, m.top_index());
    EXPECT_LT(c.want, m.top_index() + 4);
  }
  ListBoxModel names = Filled({"Alpha", "beta", "Bravo", "charlie"});
  EXPECT_TRUE(names.KeyChar('b'));
  EXPECT_EQ(names.CurSel(), 1);
  EXPECT_TRUE(names.KeyChar('B'));
  EXPECT_EQ(names.CurSel(), 2);
  EXPECT_TRUE(names.KeyChar('b'));
  EXPECT_EQ(names.CurSel(), 1);
  EXPECT_FALSE(names.KeyChar('x'));
}

TEST(ListBoxModelKeys, ShiftArrowExtendsFromTheAnchorInExtendedLists) {
  ListBoxModel m = Filled({"a", "b", "c", "d"}, {.extended = true});
  m.SetCurSel(1);
  m.KeyMove(ListMove::kDown, true);
  m.KeyMove(ListMove::kDown, true);
  EXPECT_EQ(m.SelectedItems(), (std::vector<int>{1, 2, 3}));
  ListBoxModel multi = Filled({"a", "b"}, {.multiple = true});
  EXPECT_FALSE(multi.KeyMove(ListMove::kDown, false));
  EXPECT_EQ(multi.SelCount(), 0);
  EXPECT_TRUE(multi.ToggleCaret());
  EXPECT_EQ(multi.SelectedItems(), std::vector<int>{0});
}

TEST(ListBoxModelScroll, TopIndexIsClampedToAFullLastPage) {
  ListBoxModel m = Filled({"a", "b", "c", "d", "e"});
  m.SetVisibleRows(3);
  m.SetTopIndex(4);
  EXPECT_EQ(m.top_index(), 2);
  m.SetTopIndex(-3);
  EXPECT_EQ(m.top_index(), 0);
  m.DeleteString(4);
  m.DeleteString(3);
  m.SetTopIndex(2);
  EXPECT_EQ(m.top_index(), 0);
}

}  // namespace
}  // namespace qmk::platform::ui::controls
