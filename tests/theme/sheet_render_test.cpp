// sheet_render_test.cpp: the widget sheet of each theme, compared with its reference picture
// within a tolerance. A failing run leaves the picture and a difference map beside the test
// program; QMK_UPDATE_REFERENCES=1 writes new references instead.
#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "theme/theme_fixture.h"
#include "toolkit/theme/theme_sheet.h"

namespace qmk::toolkit::theme::testing {
namespace {

namespace fs = std::filesystem;

// One picture per distinct look; classes that only rename a look share its picture's tests.
const CRuntimeClass* const kSheetClasses[] = {
    QMK_RUNTIME_CLASS(CExtPaintManager),
    QMK_RUNTIME_CLASS(CExtPaintManagerXP),
    QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003NoThemes),
    QMK_RUNTIME_CLASS(CExtPaintManagerStudio2005),
    QMK_RUNTIME_CLASS(CExtPaintManagerStudio2008),
    QMK_RUNTIME_CLASS(CExtPaintManagerStudio2010),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_LunaBlue),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Silver),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_LunaBlue),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Obsidian),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Silver),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R1),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Silver),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Black),
};

// A pixel differs when a channel moves by more than this; a picture when more than
// kMaxDifferentPixels pixels differ (room for a font's hinting on another machine).
constexpr int kChannelTolerance = 48;
constexpr int kMaxDifferentPixels = 800;

fs::path ExeDir() {
  std::error_code ec;
  return fs::read_symlink("/proc/self/exe", ec).parent_path();
}

fs::path ReferenceDir() {
  if (const char* src = std::getenv("QMK_TEST_SOURCE_DIR")) return fs::path(src) / "tests/theme/reference";
  // The compiler names this file relative to the test program's build folder.
  const fs::path here(__FILE__);
  return (here.is_absolute() ? here : ExeDir() / here).parent_path() / "reference";
}

fs::path OutputDir() {
  std::error_code ec;
  fs::path dir = ExeDir() / "theme-sheets";
  fs::create_directories(dir, ec);
  return dir;
}

std::unique_ptr<DrawTarget> RenderSheet(const CRuntimeClass* cls) {
  std::unique_ptr<CExtPaintManager> pm(static_cast<CExtPaintManager*>(cls->CreateObject()));
  pm->SyncSysColors();
  pm->RefreshColors(32);
  auto dc = std::make_unique<DrawTarget>(kSheetWidth, kSheetHeight);
  PaintThemeSheet(*pm, *dc, cls->m_lpszClassName);
  return dc;
}

struct Comparison {
  bool loaded = false;
  int different = 0;
};

// Compares with a PNG; writes a map of the differing pixels in red on grey to `diff_path`.
Comparison CompareWithPng(const DrawTarget& dc, const fs::path& png, const fs::path& diff_path) {
  Comparison out;
  cairo_surface_t* ref = cairo_image_surface_create_from_png(png.c_str());
  if (cairo_surface_status(ref) != CAIRO_STATUS_SUCCESS || cairo_image_surface_get_width(ref) != dc.width() ||
      cairo_image_surface_get_height(ref) != dc.height()) {
    cairo_surface_destroy(ref);
    return out;
  }
  out.loaded = true;
  cairo_surface_flush(ref);
  const uint8_t* data = cairo_image_surface_get_data(ref);
  const int stride = cairo_image_surface_get_stride(ref);
  // True when the pixel at (x, y) moved by more than the tolerance; the reference is opaque,
  // its bytes blue, green, red, alpha.
  auto off = [&](int x, int y) {
    const uint8_t* p = data + y * stride + x * 4;
    const uint32_t have = dc.GetPixel(x, y);
    return std::abs(int(have & 0xFF) - p[2]) > kChannelTolerance ||
           std::abs(int((have >> 8) & 0xFF) - p[1]) > kChannelTolerance ||
           std::abs(int((have >> 16) & 0xFF) - p[0]) > kChannelTolerance;
  };
  for (int y = 0; y < dc.height(); ++y)
    for (int x = 0; x < dc.width(); ++x) out.different += off(x, y);
  if (out.different > kMaxDifferentPixels) {
    DrawTarget diff(dc.width(), dc.height());
    for (int y = 0; y < dc.height(); ++y)
      for (int x = 0; x < dc.width(); ++x) {
        const uint32_t have = dc.GetPixel(x, y);
        const uint32_t grey = ((have & 0xFF) + ((have >> 8) & 0xFF) + ((have >> 16) & 0xFF)) / 6 + 64;
        diff.FillRect({x, y, x + 1, y + 1}, off(x, y) ? 0xFF0000FFu : 0xFF000000u | grey | grey << 8 | grey << 16);
      }
    diff.WritePng(diff_path.string());
  }
  cairo_surface_destroy(ref);
  return out;
}

class ThemeSheet : public ThemeTest, public ::testing::WithParamInterface<const CRuntimeClass*> {};

TEST_P(ThemeSheet, MatchesItsReference) {
  const CRuntimeClass* cls = GetParam();
  const std::unique_ptr<DrawTarget> dc = RenderSheet(cls);
  ASSERT_TRUE(dc->ok());
  const std::string name = cls->m_lpszClassName;
  const fs::path ref = ReferenceDir() / (name + ".png");
  if (std::getenv("QMK_UPDATE_REFERENCES")) {
    ASSERT_TRUE(dc->WritePng(ref.string()));
    GTEST_SKIP() << "wrote " << ref;
  }
  const fs::path out = OutputDir();
  const Comparison c = CompareWithPng(*dc, ref, out / (name + ".diff.png"));
  if (!c.loaded || c.different > kMaxDifferentPixels) dc->WritePng((out / (name + ".png")).string());
  ASSERT_TRUE(c.loaded) << "no reference " << ref << "; the picture is in " << out;
  EXPECT_LE(c.different, kMaxDifferentPixels) << name << ": see " << out;
}

std::string SheetName(const ::testing::TestParamInfo<const CRuntimeClass*>& p) {
  return p.param->m_lpszClassName;
}
INSTANTIATE_TEST_SUITE_P(EveryLook, ThemeSheet, ::testing::ValuesIn(kSheetClasses), SheetName);

// Share of pixels that differ between two sheets, in percent.
double PercentDifferent(const DrawTarget& a, const DrawTarget& b) {
  int n = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) n += a.GetPixel(x, y) != b.GetPixel(x, y);
  return 100.0 * n / (a.width() * a.height());
}

class ThemeSheetLooks : public ThemeTest {};

TEST_F(ThemeSheetLooks, EveryThemeLooksLikeItself) {
  const std::unique_ptr<DrawTarget> plain = RenderSheet(QMK_RUNTIME_CLASS(CExtPaintManager));
  for (const CRuntimeClass* cls : kSheetClasses) {
    if (cls == QMK_RUNTIME_CLASS(CExtPaintManager)) continue;
    EXPECT_GT(PercentDifferent(*plain, *RenderSheet(cls)), 10.0) << cls->m_lpszClassName << " looks plain";
  }
  // Neighbours in the tree must not look the same either.
  struct Pair { const CRuntimeClass* a; const CRuntimeClass* b; double min_percent; };
  const Pair pairs[] = {
      {QMK_RUNTIME_CLASS(CExtPaintManagerXP), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003), 40},
      {QMK_RUNTIME_CLASS(CExtPaintManagerXP), QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP), 20},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003NoThemes), 40},
      {QMK_RUNTIME_CLASS(CExtPaintManagerStudio2005), QMK_RUNTIME_CLASS(CExtPaintManagerStudio2008), 40},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R1), 40},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Silver), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian), 40},
  };
  for (const Pair& p : pairs)
    EXPECT_GT(PercentDifferent(*RenderSheet(p.a), *RenderSheet(p.b)), p.min_percent)
        << p.a->m_lpszClassName << " and " << p.b->m_lpszClassName;
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
