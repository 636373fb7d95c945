// scale_font_test.cpp: scaling by axis, the font rules of SyncSysColors, where the UI font comes
// from, and the visual style and composition wrappers on a desktop without them.
#include <gtest/gtest.h>

#include <fstream>

#include "support/scoped_env.h"
#include "theme/theme_fixture.h"
#include "toolkit/theme/optional_library.h"

namespace qmk::toolkit::theme::testing {
namespace {

class Scaling : public ThemeTest {};

TEST_F(Scaling, ScalesEachAxisByItsOwnDpiWhenItsBitIsSet) {
  CExtPaintManagerAutoPtr& holder = g_PaintManager();
  holder.SetDpi(0, 120);
  holder.SetDpi(1, 144);
  holder.SetDpi(2, 192);
  CExtPaintManager* pm = holder.GetPM();
  struct Case { unsigned flags; int value, axis, want; };
  for (const Case c : {Case{15, 10, 1, 15}, {15 & ~kScaleY, 10, 1, 10}, {15, 10, 0, 13}, {15, 10, 2, 20},
                       {kScaleX, 10, 2, 10}, {kScaleZ, 10, 2, 20}, {15, -10, 1, -15}, {15, 1, 1, 2},
                       {15, 10, 3, 10}, {15, 10, -1, 10}, {0, 7, 0, 7}}) {
    holder.m_dwDpiScaling = c.flags;
    EXPECT_EQ(pm->UiScale(c.value, c.axis), c.want) << "flags " << c.flags << " value " << c.value
                                                    << " axis " << c.axis;
  }
}

TEST_F(Scaling, FontRules) {
  struct Case { unsigned flags; bool segoe; bool scaled; int dpi; int height; int quality; const char* face; };
  const Case cases[] = {
      {0, true, true, 144, -12, 0, "DejaVu Sans"},
      {kFontFlagClearType, false, true, 96, -12, 5, "DejaVu Sans"},
      {kFontFlagSegoeUI, false, true, 144, -12, 0, "DejaVu Sans"},
      {kFontFlagSegoeUI, true, true, 97, -13, 0, "Segoe UI"},
      {kFontFlagSegoeUI, true, false, 144, -11, 0, "Segoe UI"},
      // At 96 dpi the face gets -11, smaller than the -12 of the normal font: kept as it is.
      {kFontFlagSegoeUI, true, true, 96, -11, 0, "Segoe UI"},
      {kFontFlagSegoeUI | kFontFlagClearType, true, true, 120, -13, 5, "Segoe UI"},
  };
  for (const Case& c : cases) {
    SetFaceQuery([&](const std::string& face) { return c.segoe && face == "Segoe UI"; });
    LogFont normal;
    normal.lfHeight = -12;
    const LogFont got = ApplyFontRules(normal, c.flags, c.scaled, c.dpi);
    EXPECT_EQ(got.lfHeight, c.height) << "flags " << c.flags << " dpi " << c.dpi;
    EXPECT_EQ(got.lfQuality, c.quality);
    EXPECT_EQ(got.lfFaceName, c.face);
  }
}

TEST_F(Scaling, SyncMakesThreeEqualFontsForTheThemeFlags) {
  SetFaceQuery([](const std::string& face) { return face == "Segoe UI"; });
  g_PaintManager().SetDpi(1, 144);
  auto office = Make(QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1));
  EXPECT_EQ(office->NormalLogFont().lfFaceName, "Segoe UI");
  EXPECT_EQ(office->NormalLogFont().lfHeight, -13);
  EXPECT_EQ(office->NormalLogFont().lfQuality, 5);
  EXPECT_EQ(office->Font(0), office->Font(1));
  EXPECT_EQ(office->Font(1), office->Font(2));
  EXPECT_EQ(office->Font(0).pixels, 13);
  auto plain = Make(QMK_RUNTIME_CLASS(CExtPaintManager));
  EXPECT_EQ(plain->NormalLogFont().lfFaceName, "DejaVu Sans");
  EXPECT_EQ(plain->NormalLogFont().lfHeight, -18) << "9 points at 144 dpi";
}

TEST(UiFont, GtkFontNames) {
  struct Case { const char* text; int dpi; bool ok; const char* face; int height; int weight; };
  const Case cases[] = {
      {"Cantarell 11", 96, true, "Cantarell", -15, 400},
      {"DejaVu Sans Bold 9", 96, true, "DejaVu Sans", -12, 700},
      {"Noto Sans Regular 10.5", 96, true, "Noto Sans", -14, 400},
      {"Ubuntu 11", 144, true, "Ubuntu", -22, 400},
      {"Noto Sans Semi-Bold Italic 9", 96, true, "Noto Sans", -12, 700},
      {"Cantarell", 96, false, "", 0, 0},
      {"11", 96, false, "", 0, 0},
      {"Sans 0", 96, false, "", 0, 0},
      {"Sans .015", 96, false, "", 0, 0},
      {"Sans nan", 96, false, "", 0, 0},
      {"Sans 1", 72, true, "Sans", -1, 400},
      {"Sans 1e9", 96, false, "", 0, 0},
      {"", 96, false, "", 0, 0},
  };
  for (const Case& c : cases) {
    LogFont lf;
    ASSERT_EQ(ParseGtkFontName(c.text, c.dpi, lf), c.ok) << c.text;
    if (!c.ok) continue;
    EXPECT_EQ(lf.lfFaceName, c.face) << c.text;
    EXPECT_EQ(lf.lfHeight, c.height) << c.text;
    EXPECT_EQ(lf.lfWeight, c.weight) << c.text;
  }
}

TEST(UiFont, TheGtkSettingWinsOverTheDefault) {
  qmk::testing::TempDir dir;
  qmk::testing::ScopedEnv xdg("XDG_CONFIG_HOME", dir.str());
  EXPECT_EQ(DefaultUiFont(96).lfFaceName, "DejaVu Sans");
  EXPECT_EQ(DefaultUiFont(96).lfHeight, -12);
  std::filesystem::create_directories(dir.path() / "gtk-3.0");
  std::ofstream(dir.path() / "gtk-3.0" / "settings.ini") << "[Settings]\ngtk-theme-name=Adwaita\n"
                                                        << "gtk-font-name = Cantarell 11\n";
  EXPECT_EQ(DefaultUiFont(96).lfFaceName, "Cantarell");
  EXPECT_EQ(DefaultUiFont(96).lfHeight, -15);
  std::ofstream(dir.path() / "gtk-3.0" / "settings.ini") << "gtk-font-name=broken\n";
  EXPECT_EQ(DefaultUiFont(96).lfFaceName, "DejaVu Sans") << "a setting that can't be read is passed over";
}

TEST(OptionalLibraries, MissingLibrariesAnswerNo) {
  CExtUxTheme ux;
  CExtDWM dwm;
  EXPECT_FALSE(ux.IsLoaded());
  EXPECT_FALSE(ux.IsAppThemed());
  EXPECT_FALSE(ux.IsThemeActive());
  EXPECT_FALSE(dwm.IsCompositionEnabled());
  EXPECT_EQ(ux.Names().size(), 50u);
  EXPECT_EQ(dwm.Names().size(), 17u);
  EXPECT_EQ(CExtUxTheme::ControlClasses().size(), 12u);
  EXPECT_STREQ(ux.LibraryName(), "UxTheme.dll");
  EXPECT_STREQ(dwm.LibraryName(), "dwmapi.dll");
}

int Yes() { return 1; }
long CompositionOn(int* enabled) {
  *enabled = 1;
  return 0;
}

TEST(OptionalLibraries, PresentCallsAreAskedByName) {
  std::vector<std::string> asked;
  CExtUxTheme ux([&](const char* library, const char* name) -> void* {
    asked.push_back(std::string(library) + ":" + name);
    return std::string(name) == "IsAppThemed" ? reinterpret_cast<void*>(&Yes) : nullptr;
  });
  EXPECT_TRUE(ux.IsLoaded());
  EXPECT_TRUE(ux.IsAppThemed());
  EXPECT_FALSE(ux.IsThemeActive());
  ASSERT_EQ(asked.size(), 50u);
  EXPECT_EQ(asked.front(), "UxTheme.dll:OpenThemeData");
  EXPECT_EQ(asked.back(), "UxTheme.dll:DrawThemeBackgroundEx");
  CExtDWM dwm([](const char*, const char* name) -> void* {
    return std::string(name) == "DwmIsCompositionEnabled" ? reinterpret_cast<void*>(&CompositionOn) : nullptr;
  });
  EXPECT_TRUE(dwm.IsCompositionEnabled());
  ux.Load({});
  EXPECT_FALSE(ux.IsLoaded()) << "loading again without a resolver forgets the calls";
  EXPECT_FALSE(ux.IsAppThemed());
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
