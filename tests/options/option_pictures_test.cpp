// The option dialogs as a person sees them, in one theme of each family, compared with reference
// pictures within a tolerance. QMK_UPDATE_REFERENCES=1 writes the references anew.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>

#include "support/picture_match.h"
#include "support/theme_families.h"
#include "options/conversion_options_view.h"
#include "options/scanning_options_view.h"
#include "platform/draw/draw_target.h"
#include "toolkit/theme/selection.h"
#include "view_fixture.h"

namespace qmk::options::testing {
namespace {

namespace fs = std::filesystem;
using namespace platform::ui;
using qmk::testing::Family;
using qmk::testing::FamilyTestName;
using qmk::testing::kFamilies;
using qmk::testing::SelectFamilyTheme;
using qmk::testing::SelectPlainTheme;

// A failing run leaves its pictures in the temporary folder.
::testing::AssertionResult MatchesReference(const platform::DrawTarget& actual, const std::string& name) {
  return qmk::testing::MatchesPicture(
      actual, qmk::testing::SourceTree() / "tests/options/reference" / (name + ".png"),
      {48, qmk::testing::DialogPictureAllowance(actual), fs::temp_directory_path() / "qmk-option-pictures"});
}

class OptionPictures : public OptionViewTest, public ::testing::WithParamInterface<Family> {
 protected:
  void SetUp() override {
    OptionViewTest::SetUp();
    ASSERT_TRUE(SelectFamilyTheme(GetParam().theme_id));
    record_ = build_data{};
    Put(record_.dataFileName, sizeof record_.dataFileName, "EXAM0612.DAT");
    Put(record_.autoNameTemplate, sizeof record_.autoNameTemplate, "*W*S.dat");
    Put(record_.serialNumberText, sizeof record_.serialNumberText, "1");
    Put(record_.batchNumberText, sizeof record_.batchNumberText, "7");
    Put(record_.runNumberText, sizeof record_.runNumberText, "1");
    Put(record_.postScanConversionFileName, sizeof record_.postScanConversionFileName, "/data/exam.txt");
    record_.fileOptionFlags = QMK_FILEOPT_AUTONAME | QMK_FILEOPT_DEFAULT_CONVERSION;
    record_.printFlags = QMK_PRINT_SERIAL | QMK_PRINT_SCAN_DATE;
    record_.printPosition = 12;
    record_.dataFileMode = 1;
    record_.stopFlags = QMK_STOP_SYSTEM;
    record_.autoNameFlags = QMK_AUTONAME_RESET_DAILY;
    record_.autoNameSequence = 4;
    record_.editMode = 2;
    config_.feat_mask.transport_printer = 1;
    config_.feat_mask.select_stacker = 1;
  }
  void TearDown() override {
    SelectPlainTheme();
    OptionViewTest::TearDown();
  }

  // Makes the dialog modeless, lets `arrange` act on it, and compares its picture.
  void Expect(toolkit::CExtResDlg& dialog, int template_id, const std::string& name,
              const std::function<void()>& arrange = {}) {
    ASSERT_TRUE(dialog.Create(template_id, nullptr)) << LastDialogError();
    ShowWindow(dialog.GetSafeHwnd(), SW_SHOW);
    if (arrange) arrange();
    PumpMessages(0);
    auto picture = RenderWindow(dialog.GetSafeHwnd());
    ASSERT_NE(picture, nullptr);
    EXPECT_TRUE(MatchesReference(*picture, name + "-" + GetParam().name));
    dialog.DestroyWindow();
  }

  build_data record_;
  sct_config config_{};
};

TEST_P(OptionPictures, ScanningOptionsBothPages) {
  for (int page : {0, 1}) {
    CScanningOptionsMainDlg model(record_, config_, 3, services_);
    view::CScanningOptionsMainDlg dialog(model);
    Expect(dialog, CScanningOptionsMainDlg::kIdd, page == 0 ? "scan-options-files" : "scan-options-scanner",
           [&] { dialog.SelectPage(page); });
  }
}

TEST_P(OptionPictures, AutomaticFileNaming) {
  std::string name_template = record_.autoNameTemplate;
  int16_t sequence = record_.autoNameSequence;
  uint8_t flags = record_.autoNameFlags;
  CAutoNameDialog model(&name_template, &sequence, &flags, services_);
  view::CAutoNameDialog dialog(model);
  Expect(dialog, CAutoNameDialog::kIdd, "auto-name");
}

TEST_P(OptionPictures, ConversionAndEditOptions) {
  int choice = 1;
  std::string name = record_.postScanConversionFileName;
  bool replace = true;
  CConvertOptionsDialog conversion(choice, name, replace, services_);
  view::CConvertOptionsDialog conversion_view(conversion);
  Expect(conversion_view, CConvertOptionsDialog::kIdd, "conversion");
  CEditOptionsDialog edit(record_.editMode);
  view::CEditOptionsDialog edit_view(edit);
  Expect(edit_view, CEditOptionsDialog::kIdd, "edit");
}

INSTANTIATE_TEST_SUITE_P(Families, OptionPictures, ::testing::ValuesIn(kFamilies), FamilyTestName);

}  // namespace
}  // namespace qmk::options::testing
