// sheet_render_test.cpp: the widget sheet of each theme, compared with its reference picture
// within a tolerance. A failing run leaves the picture and a difference map beside the test
// program; QMK_UPDATE_REFERENCES=1 writes new references instead.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "support/picture_match.h"
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

// A pixel differs when a channel moves by more than 48; a picture when more than 800 pixels
// differ (room for a font's hinting on another machine).
// A failing run leaves its pictures in theme-sheets beside the test program.
qmk::testing::PictureRule SheetRule() {
  return {48, 800, fs::read_symlink("/proc/self/exe").parent_path() / "theme-sheets"};
}

std::unique_ptr<DrawTarget> RenderSheet(const CRuntimeClass* cls) {
  std::unique_ptr<CExtPaintManager> pm(static_cast<CExtPaintManager*>(cls->CreateObject()));
  pm->SyncSysColors();
  pm->RefreshColors(32);
  auto dc = std::make_unique<DrawTarget>(kSheetWidth, kSheetHeight);
  PaintThemeSheet(*pm, *dc, cls->m_lpszClassName);
  return dc;
}

class ThemeSheet : public ThemeTest, public ::testing::WithParamInterface<const CRuntimeClass*> {};

TEST_P(ThemeSheet, MatchesItsReference) {
  const CRuntimeClass* cls = GetParam();
  const std::unique_ptr<DrawTarget> dc = RenderSheet(cls);
  ASSERT_TRUE(dc->ok());
  const fs::path ref = qmk::testing::SourceTree() / "tests/theme/reference" / (std::string(cls->m_lpszClassName) + ".png");
  EXPECT_TRUE(qmk::testing::MatchesPicture(*dc, ref, SheetRule()));
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
