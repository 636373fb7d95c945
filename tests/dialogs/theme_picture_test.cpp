// theme_picture_test.cpp: the sample dialog and a message box in one theme of each family,
// compared with reference pictures within a tolerance.
#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "support/theme_families.h"
#include "dialogs/dialog_fixture.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "toolkit/dialogs/msg_box.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/theme/selection.h"

namespace qmk::testing {
namespace {

namespace fs = std::filesystem;
using namespace platform::ui;

constexpr int kChannelTolerance = 48;
constexpr int kMaxDifferentPixels = 800;

fs::path SourceDir() {
  const char* src = std::getenv("QMK_TEST_SOURCE_DIR");
  return src ? fs::path(src) : fs::current_path();
}

int Channel(uint32_t p, int shift) { return static_cast<int>((p >> shift) & 0xFF); }

// Counts pixels whose channels differ by more than the tolerance; paints them red in `diff`.
int CountDifferences(const platform::DrawTarget& a, cairo_surface_t* ref, platform::DrawTarget& diff) {
  const int stride = cairo_image_surface_get_stride(ref);
  const unsigned char* data = cairo_image_surface_get_data(ref);
  int bad = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) {
      const uint32_t r = *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4);
      const uint32_t want = ((r >> 16) & 0xFF) | (r & 0xFF00) | ((r & 0xFF) << 16);  // to RGB order
      const uint32_t got = a.GetPixel(x, y);
      bool differs = false;
      for (int s : {0, 8, 16}) differs |= std::abs(Channel(got, s) - Channel(want, s)) > kChannelTolerance;
      if (differs) {
        ++bad;
        diff.FillRect({x, y, x + 1, y + 1}, 0xFF0000FFu);
      }
    }
  return bad;
}

::testing::AssertionResult MatchesReference(const platform::DrawTarget& actual, const std::string& name) {
  const fs::path ref = SourceDir() / "tests/dialogs/reference" / (name + ".png");
  const fs::path out = fs::temp_directory_path() / "qmk-dialog-pictures";
  fs::create_directories(out);
  if (std::getenv("QMK_UPDATE_REFERENCES")) actual.WritePng(ref.string());
  cairo_surface_t* s = cairo_image_surface_create_from_png(ref.string().c_str());
  const bool loaded = cairo_surface_status(s) == CAIRO_STATUS_SUCCESS;
  const bool same_size = loaded && cairo_image_surface_get_width(s) == actual.width() &&
                         cairo_image_surface_get_height(s) == actual.height();
  platform::DrawTarget diff(actual.width(), actual.height());
  diff.FillRect({0, 0, actual.width(), actual.height()}, 0xFFFFFFFFu);
  const int bad = same_size ? CountDifferences(actual, s, diff) : -1;
  cairo_surface_destroy(s);
  // Small pictures get a smaller allowance, so that a missing icon can't hide in it.
  const int allowed = std::min(kMaxDifferentPixels, actual.width() * actual.height() / 100);
  if (same_size && bad <= allowed) return ::testing::AssertionSuccess();
  actual.WritePng((out / (name + ".actual.png")).string());
  diff.WritePng((out / (name + ".diff.png")).string());
  return ::testing::AssertionFailure() << name << ": " << (same_size ? std::to_string(bad) + " pixels differ" : "no reference of this size") << "; see " << out;
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
  toolkit::CExtResizableDialog dlg(9000);
  ASSERT_TRUE(dlg.Create(9000, nullptr));
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
