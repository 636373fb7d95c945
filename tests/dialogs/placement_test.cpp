// placement_test.cpp: window placement memory in the settings store, and child pages that
// ignore OK and Cancel.
#include <gtest/gtest.h>

#include "dialogs/dialog_fixture.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/resizable_dialog.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;

TEST(Placement, ParsesExactlySixNumbers) {
  const struct {
    const char* text;
    bool ok;
  } cases[] = {{"10,20,310,220,1,0", true}, {"-5,-6,100,90,0,2", true},
               {"10,20,310,220,1", false},  {"10,20,310,220,1,0,7", false},
               {"10,20,310,220,1,x", false}, {"", false},
               {"300,20,10,220,1,0", false}, {"10, 20,310,220,1,0 ", false}};
  for (const auto& c : cases) {
    Rect r;
    int show = -1, flags = -1;
    EXPECT_EQ(toolkit::ParsePlacement(c.text, &r, &show, &flags), c.ok) << c.text;
  }
  Rect r;
  int show = 0, flags = 0;
  ASSERT_TRUE(toolkit::ParsePlacement(toolkit::FormatPlacement({-5, 6, 107, 98}, 1, 2), &r, &show,
                                      &flags));
  EXPECT_EQ(r, (Rect{-5, 6, 107, 98}));
  EXPECT_EQ(show, 1);
  EXPECT_EQ(flags, 2);
}

class Remembering : public DialogTest {};

TEST_F(Remembering, ThePlaceRoundTripsThroughTheSettingsStore) {
  Rect saved;
  {
    toolkit::CExtResizableDialog dlg(kAnchorTemplate);
    ASSERT_TRUE(dlg.Create(kAnchorTemplate, nullptr));
    EXPECT_FALSE(dlg.EnableSaveRestore("Dialogs", "Anchors"));  // nothing stored yet
    MoveWindow(dlg.GetSafeHwnd(), 40, 50, 520, 260, false);
    GetWindowRect(dlg.GetSafeHwnd(), &saved);
    dlg.DestroyWindow();  // the destroy message saves it
  }
  EXPECT_EQ(toolkit::ReadDialogProfileString("Dialogs", "Anchors", ""),
            toolkit::FormatPlacement(saved, SW_HIDE, 0));

  toolkit::CExtResizableDialog again(kAnchorTemplate);
  ASSERT_TRUE(again.Create(kAnchorTemplate, nullptr));
  EXPECT_TRUE(again.EnableSaveRestore("Dialogs", "Anchors", true));
  Rect now;
  GetWindowRect(again.GetSafeHwnd(), &now);
  EXPECT_EQ(now, saved);
}

TEST_F(Remembering, ABrokenStringIsIgnored) {
  ASSERT_TRUE(toolkit::WriteDialogProfileString("Dialogs", "Broken", "1,2,3"));
  toolkit::CExtResizableDialog dlg(kAnchorTemplate);
  ASSERT_TRUE(dlg.Create(kAnchorTemplate, nullptr));
  Rect before, after;
  GetWindowRect(dlg.GetSafeHwnd(), &before);
  EXPECT_FALSE(dlg.EnableSaveRestore("Dialogs", "Broken"));
  GetWindowRect(dlg.GetSafeHwnd(), &after);
  EXPECT_EQ(before, after);
  EXPECT_FALSE(dlg.EnableSaveRestore("", "Broken"));
}

class Pages : public DialogTest {};

TEST_F(Pages, OkAndCancelDoNotClosePagesButCloseTheDialog) {
  toolkit::CExtResizableDialog host(kAnchorTemplate);
  ASSERT_TRUE(host.Create(kAnchorTemplate, nullptr));
  ShowWindow(host.GetSafeHwnd(), SW_SHOW);
  toolkit::CExtResizableDialog page(kPageTemplate);
  ASSERT_TRUE(page.Create(kPageTemplate, host.GetSafeHwnd()));
  ShowWindow(page.GetSafeHwnd(), SW_SHOW);
  ASSERT_TRUE(page.IsChildDialog());
  for (int id : {IDOK, IDCANCEL}) {
    SendMessage(page.GetSafeHwnd(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0);
    EXPECT_TRUE(IsWindowVisible(page.GetSafeHwnd())) << id;
  }
  EXPECT_FALSE(host.IsChildDialog());
}

}  // namespace
}  // namespace qmk::testing
