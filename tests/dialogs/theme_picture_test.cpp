// theme_picture_test.cpp: the sample dialog and a message box in one theme of each family,
// compared with reference pictures within a tolerance.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "support/picture_match.h"
#include "support/theme_families.h"
#include "dialogs/dialog_fixture.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "toolkit/dialogs/msg_box.h"
#include "toolkit/dialogs/sample_dialog.h"
#include "toolkit/theme/selection.h"

namespace qmk::testing {
namespace {

namespace fs = std::filesystem;
using namespace platform::ui;

// A failing run leaves its pictures in the temporary folder.
::testing::AssertionResult MatchesReference(const platform::DrawTarget& actual, const std::string& name) {
  return MatchesPicture(actual, SourceTree() / "tests/dialogs/reference" / (name + ".png"),
                        {48, DialogPictureAllowance(actual), fs::temp_directory_path() / "qmk-dialog-pictures"});
}

class ThemePictures : public DialogTest, public ::testing::WithParamInterface<Family> {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    ASSERT_TRUE(SelectFamilyTheme(GetParam().theme_id));
  }
  void TearDown() override {
    SelectPlainTheme();
    DialogTest::TearDown();
  }
};

TEST_P(ThemePictures, SampleDialog) {
  toolkit::CSampleDialog dlg;
  ASSERT_TRUE(dlg.Create(toolkit::kSampleDialogTemplate, nullptr));
  ShowWindow(dlg.GetSafeHwnd(), SW_SHOW);
  auto picture = RenderWindow(dlg.GetSafeHwnd());
  ASSERT_NE(picture, nullptr);
  EXPECT_TRUE(MatchesReference(*picture, std::string("sample-") + GetParam().name));
}

TEST_P(ThemePictures, MessageBox) {
  std::unique_ptr<platform::DrawTarget> picture;
  const int idle = AddIdleHandler([&picture](int) {
    const HWND box = GetActiveWindow();
    if (!picture && box) {
      picture = RenderWindow(box);
      PostMessage(box, WM_COMMAND, IDNO, 0);
    }
    return false;
  });
  const int result = toolkit::ExtMsgBox(nullptr, "Replace the answers of sheet 12?\nThe old ones are lost.",
                                        "Scan", 3 | 0x20 | toolkit::kMbCheckDontAsk | toolkit::kMbNoBeep);
  RemoveIdleHandler(idle);
  EXPECT_EQ(result, IDNO);
  ASSERT_NE(picture, nullptr);
  EXPECT_TRUE(MatchesReference(*picture, std::string("msgbox-") + GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(Families, ThemePictures, ::testing::ValuesIn(kFamilies), FamilyTestName);

}  // namespace
}  // namespace qmk::testing
