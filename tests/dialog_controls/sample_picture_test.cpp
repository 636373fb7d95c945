// sample_picture_test.cpp: the sample dialog with its controls themed, one picture per theme
// family, compared with reference pictures within a tolerance.
#include <gtest/gtest.h>

#include "support/picture_match.h"
#include "support/theme_families.h"
#include "dialog_controls/themed_fixture.h"
#include "toolkit/dialogs/sample_dialog.h"

namespace qmk::testing {
namespace {

namespace fs = std::filesystem;

// Every family, and the dark variant of the 2007 look.
const std::vector<Family> kLooks = [] {
  std::vector<Family> looks(std::begin(kFamilies), std::end(kFamilies));
  looks.push_back({"office2007-obsidian", 29759});
  return looks;
}();

class SamplePictures : public ThemedTest, public ::testing::WithParamInterface<Family> {};

TEST_P(SamplePictures, SampleDialogInTheTheme) {
  ASSERT_TRUE(SelectFamilyTheme(GetParam().theme_id));
  toolkit::CSampleDialog dlg;
  ASSERT_TRUE(dlg.Create(toolkit::kSampleDialogTemplate, nullptr));
  // Labels, edits, combos, the spin, the group, radios, checks, progress, the scroll bar and
  // the two buttons; the list and the tab strip are the dialog's own members.
  EXPECT_EQ(dlg.ThemedByWalk(), 21);
  for (int id : {toolkit::kSampleListId, toolkit::kSampleTabsId})
    EXPECT_NE(toolkit::ThemedControl::FromHandle(GetDlgItem(dlg.GetSafeHwnd(), id)), nullptr) << id;
  ShowWindow(dlg.GetSafeHwnd(), SW_SHOW);
  auto picture = RenderWindow(dlg.GetSafeHwnd());
  ASSERT_NE(picture, nullptr);
  const fs::path reference =
      SourceTree() / "tests/dialog_controls/reference" / (std::string("sample-") + GetParam().name + ".png");
  EXPECT_TRUE(MatchesPicture(*picture, reference,
                             {48, DialogPictureAllowance(*picture), fs::temp_directory_path() / "qmk-dialog-controls"}));
  dlg.DestroyWindow();
}

INSTANTIATE_TEST_SUITE_P(Families, SamplePictures, ::testing::ValuesIn(kLooks), FamilyTestName);

}  // namespace
}  // namespace qmk::testing
