// tab_page_container_test.cpp: pages of the tab page container: ids, visibility, placement,
// selection and its notices, removal, clicks on the strip and the page keys.
#include <gmock/gmock.h>

#include "dialog_controls/themed_fixture.h"
#include "toolkit/dialogs/builtin_resources.h"
#include "toolkit/dialogs/ext_tab_page_container.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;
using toolkit::CExtTabPageContainerWnd;

constexpr int kContainerId = 500;

class TabPages : public ThemedTest {
 protected:
  void SetUp() override {
    ThemedTest::SetUp();
    ASSERT_TRUE(tabs_.Create(host_, {10, 10, 310, 210}, kContainerId));
  }
  // A page: a child window of the host class with two edits on it.
  HWND MakePage(int first_edit_id) {
    HWND page = CreateWindowEx(0, "QmkControlTestHost", "", WS_CHILD, 0, 0, 50, 50, tabs_.GetSafeHwnd(), 0, nullptr);
    for (int i = 0; i < 2; ++i)
      CreateWindowEx(0, kEditClass, "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 4, 4 + 20 * i, 80, 16, page,
                     first_edit_id + i, nullptr);
    return page;
  }
  void AddThree() {
    for (int i = 0; i < 3; ++i) {
      pages_[i] = MakePage(100 * (i + 1));
      ASSERT_TRUE(tabs_.PageInsert(pages_[i], std::string("Page ") + char('A' + i)));
    }
  }
  std::vector<unsigned> Notices() { return ControlTest::Notices(kContainerId); }
  // Where tab `index` lies in the strip window.
  Point TabCentre(int index) {
    Rect client;
    GetClientRect(tabs_.GetSafeHwnd(), &client);
    std::vector<std::string> titles;
    for (int i = 0; i < tabs_.PageGetCount(); ++i) titles.push_back(tabs_.PageTextGet(i));
    auto parts = toolkit::theme::layout::TabStrip(*toolkit::theme::g_PaintManager().GetPM(), client, titles);
    return Centre(parts.tabs[static_cast<size_t>(index)]);
  }

  CExtTabPageContainerWnd tabs_;
  HWND pages_[3] = {};
};

TEST_F(TabPages, FirstPageIsSelectedAndPagesAreNumberedAfterTheStrip) {
  EXPECT_EQ(tabs_.GetSafeTabWindow(), nullptr) << "the strip is made on first need";
  AddThree();
  ASSERT_NE(tabs_.GetSafeTabWindow(), nullptr);
  EXPECT_EQ(GetDlgCtrlID(tabs_.GetSafeTabWindow()), 256);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(GetDlgCtrlID(pages_[i]), 257 + i);
    EXPECT_EQ(GetParent(pages_[i]), tabs_.GetSafeHwnd());
  }
  EXPECT_EQ(tabs_.PageSelectionGet(), 0);
  EXPECT_TRUE(Visible(pages_[0]));
  EXPECT_FALSE(Visible(pages_[1]));
  EXPECT_FALSE(Visible(pages_[2]));
}

TEST_F(TabPages, HiddenPagesShareTheActivePagesRectangleBelowTheStrip) {
  AddThree();
  const Rect r = RectIn(pages_[0]);
  EXPECT_EQ(r, tabs_.PageRect());
  EXPECT_EQ(RectIn(pages_[1]), r);
  EXPECT_EQ(RectIn(pages_[2]), r);
  EXPECT_GE(r.top, tabs_.TabStripHeight());
  EXPECT_GT(r.Width(), 250);
  // A new size reaches every page.
  MoveWindow(tabs_.GetSafeHwnd(), 10, 10, 360, 260, true);
  EXPECT_EQ(RectIn(pages_[2]), tabs_.PageRect());
  EXPECT_GT(RectIn(pages_[2]).Width(), r.Width());
}

TEST_F(TabPages, SelectionShowsOnePageAndTellsTheParent) {
  AddThree();
  HeardLog().clear();
  ASSERT_TRUE(tabs_.PageSelectionSet(2));
  EXPECT_THAT(Notices(), ElementsAre(TCN_SELCHANGING, TCN_SELCHANGE));
  EXPECT_FALSE(Visible(pages_[0]));
  EXPECT_TRUE(Visible(pages_[2]));
  EXPECT_FALSE(tabs_.PageSelectionSet(3));
  EXPECT_FALSE(tabs_.PageSelectionSet(-1));
  EXPECT_EQ(tabs_.PageSelectionGet(), 2);
}

TEST_F(TabPages, TheParentMayRefuseAChange) {
  AddThree();
  HeardLog().clear();
  NotifyAnswer() = 1;
  EXPECT_FALSE(tabs_.PageSelectionSet(1));
  EXPECT_THAT(Notices(), ElementsAre(TCN_SELCHANGING));
  EXPECT_EQ(tabs_.PageSelectionGet(), 0);
  EXPECT_TRUE(Visible(pages_[0]));
  EXPECT_FALSE(Visible(pages_[1]));
}

TEST_F(TabPages, InsertingBeforeTheSelectionKeepsTheSelectedPage) {
  AddThree();
  ASSERT_TRUE(tabs_.PageSelectionSet(1));
  HWND extra = MakePage(900);
  ASSERT_TRUE(tabs_.PageInsert(extra, "First", false, 0));
  EXPECT_EQ(tabs_.PageSelectionGet(), 2);
  EXPECT_EQ(tabs_.PageHwndGet(2), pages_[1]);
  EXPECT_EQ(GetDlgCtrlID(extra), 257);
  EXPECT_EQ(GetDlgCtrlID(pages_[2]), 260);
  EXPECT_FALSE(tabs_.PageInsert(extra, "Twice")) << "a page is taken once";
  ASSERT_TRUE(tabs_.PageInsert(MakePage(950), "Chosen", false, -1, true));
  EXPECT_EQ(tabs_.PageSelectionGet(), 4);
}

TEST_F(TabPages, RemovingTheSelectedPageSelectsTheNextAndRenumbers) {
  AddThree();
  ASSERT_TRUE(tabs_.PageSelectionSet(1));
  ASSERT_TRUE(tabs_.PageRemove(1));
  EXPECT_FALSE(IsWindow(pages_[1]));
  EXPECT_EQ(tabs_.PageGetCount(), 2);
  EXPECT_EQ(tabs_.PageSelectionGet(), 1);
  EXPECT_EQ(tabs_.PageHwndGet(1), pages_[2]);
  EXPECT_TRUE(Visible(pages_[2]));
  EXPECT_EQ(GetDlgCtrlID(pages_[2]), 258);
  // The last page removed while selected gives the selection to the one before it.
  ASSERT_TRUE(tabs_.PageRemove(1, false));
  EXPECT_TRUE(IsWindow(pages_[2]));
  EXPECT_FALSE(Visible(pages_[2]));
  EXPECT_EQ(tabs_.PageSelectionGet(), 0);
  EXPECT_TRUE(Visible(pages_[0]));
  ASSERT_TRUE(tabs_.PageRemove(0));
  EXPECT_EQ(tabs_.PageSelectionGet(), -1);
  EXPECT_FALSE(tabs_.PageRemove(0));
}

TEST_F(TabPages, APageDestroyedFromOutsideLeavesTheList) {
  AddThree();
  ASSERT_TRUE(tabs_.PageSelectionSet(2));
  DestroyWindow(pages_[0]);
  EXPECT_TRUE(tabs_.PageSelectionSet(0));
  EXPECT_EQ(tabs_.PageGetCount(), 2);
  EXPECT_EQ(tabs_.PageHwndGet(0), pages_[1]);
  EXPECT_EQ(GetDlgCtrlID(pages_[2]), 258);
}

TEST_F(TabPages, AClickOnATabSelectsItsPageAndFocusesIt) {
  AddThree();
  HeardLog().clear();
  ClickAt(tabs_.GetSafeTabWindow(), TabCentre(1));
  EXPECT_EQ(tabs_.PageSelectionGet(), 1);
  EXPECT_TRUE(Visible(pages_[1]));
  EXPECT_FALSE(Visible(pages_[0]));
  EXPECT_THAT(Notices(), ElementsAre(TCN_SELCHANGING, TCN_SELCHANGE));
  EXPECT_EQ(GetFocus(), GetDlgItem(pages_[1], 200));
}

TEST_F(TabPages, TheTabUnderTheMouseIsHotUntilTheMouseGoesElsewhere) {
  AddThree();
  Point over = TabCentre(2);
  ClientToScreen(tabs_.GetSafeTabWindow(), &over);
  InjectMouse(MouseAction::Move, over);
  Pump();
  EXPECT_EQ(tabs_.HotTab(), 2);
  Point away{5, 300};
  ClientToScreen(host_, &away);
  InjectMouse(MouseAction::Move, away);
  Pump();
  EXPECT_EQ(tabs_.HotTab(), -1);
}

TEST_F(TabPages, PageKeysCycleAndTabStaysInsideThePage) {
  AddThree();
  SetFocus(GetDlgItem(pages_[0], 101));
  Key(VK_TAB);
  EXPECT_EQ(GetFocus(), GetDlgItem(pages_[0], 100)) << "Tab wraps round inside the page";
  Key(VK_TAB, kModControl);
  EXPECT_EQ(tabs_.PageSelectionGet(), 1);
  EXPECT_EQ(GetFocus(), GetDlgItem(pages_[1], 200)) << "focus follows into the new page";
  Key(VK_NEXT, kModControl);
  EXPECT_EQ(tabs_.PageSelectionGet(), 2);
  Key(VK_NEXT, kModControl);
  EXPECT_EQ(tabs_.PageSelectionGet(), 0) << "wraps round";
  Key(VK_PRIOR, kModControl);
  EXPECT_EQ(tabs_.PageSelectionGet(), 2);
  Key(VK_TAB, kModControl | kModShift);
  EXPECT_EQ(tabs_.PageSelectionGet(), 1);
}

TEST_F(TabPages, KeysOutsideTheContainerAreLeftAlone) {
  AddThree();
  HWND outside = Make(kEditClass, "", WS_TABSTOP, {320, 10, 400, 30}, 77);
  SetFocus(outside);
  Key(VK_TAB, kModControl);
  EXPECT_EQ(tabs_.PageSelectionGet(), 0);
}

TEST_F(TabPages, ANewThemeWithAnotherScaleMovesThePages) {
  AddThree();
  const int top = RectIn(pages_[1]).top;
  auto& holder = toolkit::theme::g_PaintManager();
  holder.SetDpi(1, 192);
  ASSERT_TRUE(toolkit::theme::SelectPaintManagerById(29757, [](int) {}));
  const int scaled_top = RectIn(pages_[1]).top;
  holder.SetDpi(1, 96);
  ASSERT_TRUE(toolkit::theme::SelectPaintManagerById(29750, [](int) {}));
  EXPECT_GT(scaled_top, top) << "a taller strip pushes every page down";
  EXPECT_EQ(RectIn(pages_[1]).top, top);
}

TEST_F(TabPages, ResizableDialogPagesMadeInsideTheContainer) {
  constexpr int kPage = 9931;
  static const bool added = toolkit::AddDialogTemplate(toolkit::BuiltinResources(), kPage, "en", R"(dialog 9931
position 0 0 100 60
style WS_CHILD
edit 301 "" 4 4 60 12
end
)");
  ASSERT_TRUE(added);
  toolkit::CExtResizableDialog first, second;
  ASSERT_TRUE(first.Create(kPage, tabs_.GetSafeHwnd()));
  ASSERT_TRUE(second.Create(kPage, tabs_.GetSafeHwnd()));
  ASSERT_TRUE(tabs_.PageInsert(first.GetSafeHwnd(), "One"));
  ASSERT_TRUE(tabs_.PageInsert(second.GetSafeHwnd(), "Two"));
  EXPECT_TRUE(Visible(first.GetSafeHwnd()));
  EXPECT_FALSE(Visible(second.GetSafeHwnd()));
  EXPECT_EQ(RectIn(second.GetSafeHwnd()), tabs_.PageRect());
  ASSERT_TRUE(tabs_.PageSelectionSet(1));
  EXPECT_TRUE(Visible(second.GetSafeHwnd()));
  // Removing the page without destroying it leaves the dialog object its window.
  ASSERT_TRUE(tabs_.PageRemove(1, false));
  EXPECT_TRUE(IsWindow(second.GetSafeHwnd()));
  EXPECT_TRUE(Visible(first.GetSafeHwnd()));
}

}  // namespace
}  // namespace qmk::testing
