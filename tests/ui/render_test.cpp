// render_test.cpp: the order form as a person sees it, compared with a reference picture. A
// failing run writes the actual picture and a difference picture beside the test program.
#include <cairo.h>
#include <unistd.h>

#include <climits>
#include <filesystem>

#include "platform/ui/control_messages.h"
#include "ui/ui_fixture.h"

namespace qmk::testing {
namespace {

using namespace platform::ui;
using platform::DeviceImage;
using platform::DrawTarget;
using platform::kRopSourceCopy;
using platform::PixelView;
namespace fs = std::filesystem;

fs::path ReferenceDir() {
  if (const char* src = std::getenv("QMK_TEST_SOURCE_DIR")) return fs::path(src) / "tests/ui/reference";
  return fs::path(QMK_SOURCE_DIR) / "tests/ui/reference";
}

fs::path OutputDir() {
  char exe[PATH_MAX] = {};
  const ssize_t n = readlink("/proc/self/exe", exe, sizeof exe - 1);
  fs::path dir = n > 0 ? fs::path(std::string(exe, static_cast<size_t>(n))).parent_path()
                       : fs::temp_directory_path();
  dir /= "ui-pictures";
  fs::create_directories(dir);
  return dir;
}

// Reads a PNG into a drawing target through cairo; null when it cannot be read.
std::unique_ptr<DrawTarget> LoadPng(const std::string& path) {
  cairo_surface_t* s = cairo_image_surface_create_from_png(path.c_str());
  if (cairo_surface_status(s) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(s);
    return nullptr;
  }
  cairo_surface_flush(s);
  PixelView view;
  view.top_row = cairo_image_surface_get_data(s);
  view.width = cairo_image_surface_get_width(s);
  view.height = cairo_image_surface_get_height(s);
  view.stride = cairo_image_surface_get_stride(s);
  view.premultiplied = true;
  auto image = DeviceImage::Create(view);
  auto target = std::make_unique<DrawTarget>(view.width, view.height);
  if (image)
    target->Blit(*image, {0, 0, view.width, view.height}, {0, 0, view.width, view.height},
                 kRopSourceCopy);
  cairo_surface_destroy(s);
  return image ? std::move(target) : nullptr;
}

int Channel(uint32_t c, int shift) { return static_cast<int>((c >> shift) & 0xFF); }

// Compares within a tolerance: a pixel differs when a channel is off by more than 24, and up to
// one pixel in five hundred may differ (anti-aliased text edges of another font build).
::testing::AssertionResult MatchesReference(const DrawTarget& actual, const std::string& name) {
  const fs::path ref_path = ReferenceDir() / (name + ".png");
  const fs::path out = OutputDir();
  if (std::getenv("QMK_UPDATE_REFERENCE")) actual.WritePng(ref_path.string());
  auto reference = LoadPng(ref_path.string());
  if (!reference) {
    actual.WritePng((out / (name + ".actual.png")).string());
    return ::testing::AssertionFailure() << "no reference picture " << ref_path
                                         << "; the actual one is in " << out;
  }
  if (reference->width() != actual.width() || reference->height() != actual.height()) {
    actual.WritePng((out / (name + ".actual.png")).string());
    return ::testing::AssertionFailure()
           << "size " << actual.width() << "x" << actual.height() << ", reference "
           << reference->width() << "x" << reference->height() << "; see " << out;
  }
  DrawTarget diff(actual.width(), actual.height());
  long differing = 0;
  for (int y = 0; y < actual.height(); ++y)
    for (int x = 0; x < actual.width(); ++x) {
      const uint32_t a = actual.GetPixel(x, y), r = reference->GetPixel(x, y);
      int worst = 0;
      for (int s : {0, 8, 16}) worst = std::max(worst, std::abs(Channel(a, s) - Channel(r, s)));
      const bool off = worst > 24;
      differing += off;
      diff.FillRect({x, y, x + 1, y + 1}, off ? 0xFF0000FFu : 0xFFFFFFFFu);
    }
  const long allowed = static_cast<long>(actual.width()) * actual.height() / 500;
  if (differing > allowed) {
    actual.WritePng((out / (name + ".actual.png")).string());
    diff.WritePng((out / (name + ".diff.png")).string());
    return ::testing::AssertionFailure() << differing << " pixels differ (" << allowed
                                         << " allowed); actual and difference pictures in " << out;
  }
  return ::testing::AssertionSuccess();
}

class Rendering : public UiTest {};

intptr_t FillOrder(HWND dlg, unsigned msg, WPARAM, LPARAM) {
  if (msg != WM_INITDIALOG) return 0;
  for (const char* c : {"Red", "Green", "Blue"})
    SendDlgItemMessage(dlg, 102, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(c));
  SendDlgItemMessage(dlg, 102, CB_SETCURSEL, 1, 0);
  SetDlgItemText(dlg, 101, "Ada Lovelace");
  CheckRadioButton(dlg, 103, 105, 104);
  CheckDlgButton(dlg, 106, BST_CHECKED);
  return 1;
}

TEST_F(Rendering, OrderFormLooksAsItDid) {
  DialogTemplate tpl;
  ASSERT_TRUE(ParseDialogTemplate(kOrderTemplate, &tpl, nullptr));
  HWND dlg = CreateDialogIndirectParam(tpl, nullptr, FillOrder, 0);
  ASSERT_NE(dlg, nullptr);
  ShowWindow(dlg, SW_SHOW);
  Pump();
  auto picture = RenderWindow(dlg);
  ASSERT_TRUE(picture);
  picture->WritePng((OutputDir() / "order.png").string());
  EXPECT_TRUE(MatchesReference(*picture, "order"));
  EXPECT_TRUE(RenderScreenToPng((OutputDir() / "screen.png").string()));
}

TEST_F(Rendering, ComparisonCatchesAChangedPicture) {
  DialogTemplate tpl;
  ASSERT_TRUE(ParseDialogTemplate(kOrderTemplate, &tpl, nullptr));
  HWND dlg = CreateDialogIndirectParam(tpl, nullptr, FillOrder, 0);
  ShowWindow(dlg, SW_SHOW);
  SetDlgItemText(dlg, 101, "Somebody else entirely");
  Pump();
  auto picture = RenderWindow(dlg);
  ASSERT_TRUE(picture);
  if (std::getenv("QMK_UPDATE_REFERENCE")) GTEST_SKIP() << "updating references";
  EXPECT_FALSE(MatchesReference(*picture, "order"));
}

}  // namespace
}  // namespace qmk::testing
