// The scan error dialog and the wait notice as a person sees them, in one theme of each family,
// compared with reference pictures within a tolerance.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/theme_families.h"
#include "dialog_session_fixture.h"
#include "frame/dlg_scan_error.h"
#include "frame/modeless_info_dlg.h"
#include "platform/ui/headless.h"
#include "platform/ui/window.h"
#include "toolkit/theme/selection.h"
#include "ui/picture_compare.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;


class DialogPictures : public DialogSessionTest, public ::testing::WithParamInterface<Family> {
 protected:
  void SetUp() override {
    DialogSessionTest::SetUp();
    ASSERT_TRUE(SelectFamilyTheme(GetParam().theme_id));
  }
  void TearDown() override {
    SelectPlainTheme();
    DialogSessionTest::TearDown();
  }
  ::testing::AssertionResult LooksRight(HWND window, const std::string& what) {
    Pump();
    auto picture = RenderWindow(window);
    if (!picture) return ::testing::AssertionFailure() << "no picture of " << what;
    return MatchesReference(*picture, "frame-" + what + "-" + GetParam().name);
  }
};

TEST_P(DialogPictures, ScanError) {
  const std::vector<std::string> faults = {"Sheet too thick", "Timing marks missing",
                                           "Sheet jammed in the transport"};
  frame::CDlgScanError dialog(faults);
  ASSERT_TRUE(dialog.Create(frame::kScanErrorTemplate, nullptr));
  ShowWindow(dialog.GetSafeHwnd(), SW_SHOW);
  EXPECT_TRUE(LooksRight(dialog.GetSafeHwnd(), "scan-error"));
}

TEST_P(DialogPictures, LampNotice) {
  frame::CModelessInfoDlg notice("Lamps are warming up.  1:30 minutes remaining.", true, nullptr);
  ASSERT_TRUE(notice.Create());
  notice.Show(true);
  EXPECT_TRUE(LooksRight(notice.GetSafeHwnd(), "wait-lamp"));
}

INSTANTIATE_TEST_SUITE_P(Families, DialogPictures, ::testing::ValuesIn(kFamilies), FamilyTestName);

}  // namespace
}  // namespace qmk::testing
