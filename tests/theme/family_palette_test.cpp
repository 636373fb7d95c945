// family_palette_test.cpp: the shaded families' colours: which palette each class takes, the
// recipe's blends, the fixed Office 2007 colours, and the fall-backs on palette displays.
#include <gtest/gtest.h>

#include <set>

#include "theme/theme_fixture.h"
#include "toolkit/bitmap/colour.h"

namespace qmk::toolkit::theme::testing {
namespace {

using bitmap::RGB;

class FamilyPalettes : public ThemeTest {};

const CExtPaintManagerOffice2003& AsOffice(const CExtPaintManager& pm) {
  return dynamic_cast<const CExtPaintManagerOffice2003&>(pm);
}

TEST_F(FamilyPalettes, EachClassTakesItsPalette) {
  struct Case { const CRuntimeClass* cls; const char* key; };
  const Case cases[] = {
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003), "office2003-blue"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003NoThemes), "office2003-system"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerStudio2005), "studio2005"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerStudio2008), "studio2008"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerStudio2010), "studio2010"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1), "office2007-r1"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian), "office2007-r2-obsidian"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R3_Silver), "office2007-r3-silver"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Black), "office2007-r3-obsidian"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R1), "office2010-blue"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Silver), "office2010-silver"},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Black), "office2010-black"},
  };
  for (const Case& c : cases) {
    auto pm = Make(c.cls);
    EXPECT_STREQ(AsOffice(*pm).Palette().key, c.key) << c.cls->m_lpszClassName;
    // Every colour of the recipe is installed under its index with the palette's blend.
    for (const RecipeRow& row : ModernRecipe()) {
      if (pm->IsKindOf(QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Impl)) && row.index >= 3006 && row.index <= 3009)
        continue;
      EXPECT_EQ(pm->GetColor(row.index), ResolveRecipe(row, AsOffice(*pm).Palette(), QuerySystemColors()))
          << c.cls->m_lpszClassName << " index " << row.index;
    }
  }
}

TEST_F(FamilyPalettes, PinnedColoursOfEachFamily) {
  struct Case { const CRuntimeClass* cls; int index; uint32_t want; };
  const Case cases[] = {
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003), kClrDialogBottom, RGB(0xB9, 0xD1, 0xF3)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003), kClrHotBottom, RGB(0xFF, 0xD5, 0x8E)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerStudio2010), kClrDialogBottom, RGB(0x29, 0x39, 0x55)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerStudio2010), kClrLabelText, RGB(255, 255, 255)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian), kClrLabelText, RGB(255, 255, 255)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1), kClrText, RGB(0x15, 0x42, 0x8B)},
      {QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP), kClrMark, RGB(0x21, 0xA1, 0x21)},
      // Mix100(white, face, 60) of the Office 2003 blue face #9EBEF5.
      {QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003), kClrFaceTop, RGB(216, 229, 251)},
  };
  for (const Case& c : cases)
    EXPECT_EQ(Make(c.cls)->GetColor(c.index), c.want) << c.cls->m_lpszClassName << " index " << c.index;
}

TEST_F(FamilyPalettes, Office2007AndLaterCarryTheFixedHotColours) {
  const CRuntimeClass* later[] = {
      QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Impl), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R2_Obsidian),
      QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_Silver), QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R2_Black)};
  for (const CRuntimeClass* cls : later) {
    auto pm = Make(cls);
    EXPECT_EQ(pm->GetColor(3006), RGB(0xFF, 0xFB, 0xD6)) << cls->m_lpszClassName;
    EXPECT_EQ(pm->GetColor(3007), RGB(0xFF, 0xC3, 0x73)) << cls->m_lpszClassName;
    EXPECT_EQ(pm->GetColor(3008), RGB(0xFF, 0xDB, 0x94)) << cls->m_lpszClassName;
  }
  // Office 2003 itself blends its hot colours from its own accent.
  EXPECT_NE(Make(QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003))->GetColor(3006), RGB(0xFF, 0xFB, 0xD6));
}

TEST_F(FamilyPalettes, Office2003FollowsTheVisualStyleScheme) {
  struct Case { const char* scheme; const char* key; };
  for (const Case c : {Case{"normalcolor", "office2003-blue"}, {"homestead", "office2003-olive"},
                       {"metallic", "office2003-silver"}, {"", "office2003-blue"}, {"royale", "office2003-blue"}}) {
    g_PaintManager().m_visualStyle.color_scheme = c.scheme;
    auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003));
    EXPECT_STREQ(AsOffice(*pm).Palette().key, c.key) << "scheme \"" << c.scheme << "\"";
    EXPECT_EQ(pm->GetColor(kClrDialogBottom), FindPalette(c.key)->seeds[kSeedBack].rgb);
  }
}

TEST_F(FamilyPalettes, WithoutThemeColoursTheDesktopGreysAreShaded) {
  SystemColorTable sys = DefaultSystemColors();
  sys[COLOR_BTNFACE] = RGB(180, 100, 60);
  SetSystemColorSource([&] { return sys; });
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003NoThemes));
  EXPECT_EQ(pm->GetColor(kClrFaceBottom), RGB(180, 100, 60));
  EXPECT_NE(pm->GetColor(kClrDialogBottom), RGB(180, 100, 60)) << "the background is the face lightened";
  EXPECT_GT(bitmap::RGBtoHLS(pm->GetColor(kClrDialogBottom)).l, bitmap::RGBtoHLS(RGB(180, 100, 60)).l);
}

TEST_F(FamilyPalettes, PaletteDisplaysFallBackToPlainLooks) {
  auto office = Make(QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1), 8);
  EXPECT_FALSE(office->HasTranslation(kClrDialogTop));
  EXPECT_FALSE(office->HasTranslation(3006));
  ASSERT_NE(office->GetWidgetLook(), nullptr);
  EXPECT_EQ(office->GetWidgetLook()->face_top, COLOR_BTNFACE) << "the flat XP look of system colours";
  EXPECT_EQ(Make(QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP), 8)->GetWidgetLook(), nullptr);
  EXPECT_EQ(Make(QMK_RUNTIME_CLASS(CExtPaintManager))->GetWidgetLook(), nullptr);
}

TEST(RecipeRules, BlendsShadesAndSeeds) {
  const FamilyPalette& p = *FindPalette("office2003-blue");
  const SystemColorTable sys = DefaultSystemColors();
  EXPECT_EQ(ResolveRecipe({3000, RecipeOp::kCopy, kSeedEdge, 0, 0}, p, sys), RGB(0x00, 0x2D, 0x96));
  EXPECT_EQ(ResolveRecipe({3000, RecipeOp::kMix, kSeedWhite, kSeedBlack, 50}, p, sys), RGB(128, 128, 128));
  EXPECT_EQ(ResolveRecipe({3000, RecipeOp::kShade, kSeedBlack, 0, 50}, p, sys), RGB(127, 127, 127));
  EXPECT_EQ(ResolveRecipe({3000, RecipeOp::kShade, kSeedWhite, 0, -100}, p, sys), RGB(0, 0, 0));
  EXPECT_EQ(ResolveSeed(p, -1, sys), 0u);
  EXPECT_EQ(ResolveSeed(p, 99, sys), 0u);
  const FamilyPalette& system = *FindPalette("office2003-system");
  EXPECT_EQ(ResolveSeed(system, kSeedFace, sys), sys[COLOR_BTNFACE]);
  EXPECT_EQ(ResolveSeed(system, kSeedFace, std::span<const uint32_t>()), 0u) << "a short table reads black";
  EXPECT_EQ(FindPalette("no such palette"), nullptr);
}

TEST(RecipeRules, EveryLogicalColourIsMadeOnceAndTheLookUsesOnlyThem) {
  std::set<int> made;
  for (const RecipeRow& row : ModernRecipe()) {
    EXPECT_TRUE(made.insert(row.index).second) << "index " << row.index << " twice";
    EXPECT_GE(row.index, kClrDialogTop);
    EXPECT_LE(row.index, kClrModernLast);
  }
  EXPECT_EQ(made.size(), static_cast<size_t>(kClrModernLast - kClrDialogTop + 1));
  const WidgetLook look = ModernLook({0, false, false, false});
  const int fields[] = {look.dialog_top, look.dialog_bottom, look.face_top, look.face_bottom, look.border,
                        look.hot_top, look.hot_bottom, look.hot_border, look.pressed_top, look.pressed_bottom,
                        look.pressed_border, look.text, look.disabled_text, look.label_text, look.disabled_label,
                        look.field, look.field_border, look.field_disabled, look.mark, look.tab_strip,
                        look.tab_selected_top, look.tab_selected_bottom, look.tab_border, look.progress_track,
                        look.progress_top, look.progress_bottom, look.scroll_track, look.selection,
                        look.selection_text, look.gripper, look.group_line, look.icon_area, look.focus};
  for (int f : fields) EXPECT_TRUE(made.count(f)) << "look reads " << f << ", which no recipe row makes";
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
