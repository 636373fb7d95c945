// sample_picture_test.cpp: the sample dialog with its controls themed, one picture per theme
// family, compared with reference pictures within a tolerance.
#include <gtest/gtest.h>

#include "support/picture_match.h"
#include "support/theme_families.h"
#include "dialog_controls/themed_fixture.h"
#include "platform/ui/controls/control_messages.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/dialogs/subclass_controls.h"

namespace qmk::testing {
namespace {

namespace fs = std::filesystem;

// The sample dialog with every control themed and a few values in them.
class ThemedSample : public toolkit::CExtResizableDialog {
 public:
  ThemedSample() : CExtResizableDialog(9000) {}
  int themed = 0;

 protected:
  bool OnInitDialog() override {
    themed = toolkit::SubclassChildControls(m_hWnd);
    SetDlgItemText(m_hWnd, 1001, "Ada Lovelace");
    for (const char* colour : {"Red", "Green", "Blue"})
      SendDlgItemMessage(m_hWnd, 1002, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(colour));
    SendDlgItemMessage(m_hWnd, 1002, CB_SETCURSEL, 1, 0);
    CheckRadioButton(m_hWnd, 1005, 1007, 1006);
    CheckDlgButton(m_hWnd, 1008, BST_CHECKED);
    CheckDlgButton(m_hWnd, 1009, BST_INDETERMINATE);
    SendDlgItemMessage(m_hWnd, 1015, PBM_SETRANGE32, 0, 100);
    SendDlgItemMessage(m_hWnd, 1015, PBM_SETPOS, 60, 0);
    return CExtResizableDialog::OnInitDialog();
  }
};

// Every family, and the dark variant of the 2007 look.
const std::vector<Family> kLooks = [] {
  std::vector<Family> looks(std::begin(kFamilies), std::end(kFamilies));
  looks.push_back({"office2007-obsidian", 29759});
  return looks;
}();

class SamplePictures : public ThemedTest, public ::testing::WithParamInterface<Family> {};

TEST_P(SamplePictures, SampleDialogInTheTheme) {
  ASSERT_TRUE(SelectFamilyTheme(GetParam().theme_id));
  ThemedSample dlg;
  ASSERT_TRUE(dlg.Create(9000, nullptr));
  // Labels, edits, combos, the spin, the group, radios, checks, progress and the two buttons.
  EXPECT_EQ(dlg.themed, 20);
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
