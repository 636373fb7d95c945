// The option dialogs as a person sees them, in one theme of each family, compared with reference
// pictures within a tolerance. QMK_UPDATE_REFERENCES=1 writes the references anew.
#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>

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

constexpr int kChannelTolerance = 48;
constexpr int kMaxDifferentPixels = 800;


fs::path SourceDir() {
  const char* src = std::getenv("QMK_TEST_SOURCE_DIR");
  return src ? fs::path(src) : fs::current_path();
}

// Pixels whose red, green or blue differ by more than the tolerance.
int CountDifferences(const platform::DrawTarget& actual, cairo_surface_t* ref) {
  const int stride = cairo_image_surface_get_stride(ref);
  const unsigned char* data = cairo_image_surface_get_data(ref);
  int bad = 0;
  for (int y = 0; y < actual.height(); ++y)
    for (int x = 0; x < actual.width(); ++x) {
      const uint32_t r = *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4);
      const uint32_t want = ((r >> 16) & 0xFF) | (r & 0xFF00) | ((r & 0xFF) << 16);
      const uint32_t got = actual.GetPixel(x, y);
      for (int shift : {0, 8, 16})
        if (std::abs(static_cast<int>((got >> shift) & 0xFF) - static_cast<int>((want >> shift) & 0xFF)) >
            kChannelTolerance) {
          ++bad;
          break;
        }
    }
  return bad;
}

::testing::AssertionResult MatchesReference(const platform::DrawTarget& actual, const std::string& name) {
  const fs::path ref = SourceDir() / "tests/options/reference" / (name + ".png");
  if (std::getenv("QMK_UPDATE_REFERENCES")) {
    fs::create_directories(ref.parent_path());
    actual.WritePng(ref.string());
  }
  cairo_surface_t* s = cairo_image_surface_create_from_png(ref.string().c_str());
  const bool same_size = cairo_surface_status(s) == CAIRO_STATUS_SUCCESS &&
                         cairo_image_surface_get_width(s) == actual.width() &&
                         cairo_image_surface_get_height(s) == actual.height();
  const int bad = same_size ? CountDifferences(actual, s) : -1;
  cairo_surface_destroy(s);
  const int allowed = std::min(kMaxDifferentPixels, actual.width() * actual.height() / 100);
  if (same_size && bad <= allowed) return ::testing::AssertionSuccess();
  const fs::path out = fs::temp_directory_path() / "qmk-option-pictures";
  fs::create_directories(out);
  actual.WritePng((out / (name + ".actual.png")).string());
  return ::testing::AssertionFailure()
         << name << ": " << (same_size ? std::to_string(bad) + " pixels differ" : "no reference of this size")
         << "; see " << out;
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
