// colour_model_test.cpp: the colour table, the translation map, GetColor's index rules, the XP
// blends at both depths and the shaded helper brushes.
#include <gtest/gtest.h>

#include "theme/theme_fixture.h"
#include "toolkit/bitmap/colour.h"

namespace qmk::toolkit::theme::testing {
namespace {

using bitmap::Mix100;
using bitmap::RGB;

// A desktop whose colours are all different, so that a wrong slot shows.
SystemColorTable DistinctColors() {
  SystemColorTable t = DefaultSystemColors();
  t[COLOR_WINDOW] = RGB(250, 248, 240);
  t[COLOR_WINDOWTEXT] = RGB(10, 20, 30);
  t[COLOR_HIGHLIGHT] = RGB(40, 90, 200);
  t[COLOR_HIGHLIGHTTEXT] = RGB(254, 253, 252);
  t[COLOR_BTNFACE] = RGB(210, 205, 190);
  t[COLOR_BTNSHADOW] = RGB(140, 135, 120);
  t[COLOR_GRAYTEXT] = RGB(120, 121, 122);
  t[COLOR_BTNTEXT] = RGB(5, 6, 7);
  t[COLOR_BTNHIGHLIGHT] = RGB(253, 252, 251);
  t[COLOR_3DDKSHADOW] = RGB(60, 50, 40);
  t[COLOR_3DLIGHT] = RGB(230, 228, 220);
  return t;
}

class ColourModel : public ThemeTest {
 protected:
  void SetUp() override {
    ThemeTest::SetUp();
    sys_ = DistinctColors();
    SetSystemColorSource([this] { return sys_; });
  }
  SystemColorTable sys_;
};

TEST_F(ColourModel, BaseTranslationRowEdges) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManager));
  struct Case { int index, slot; };
  for (const Case c : {Case{1000, 15}, {1002, 15}, {1003, 22}, {1005, 22}, {1006, 20}, {1008, 20},
                       {1009, 16}, {1011, 16}, {1012, 21}, {1014, 21}, {1015, 8}, {1016, 8},
                       {1017, 17}, {1018, 8}, {1019, 14}, {1020, 17}, {1021, 5}, {1022, 5},
                       {1023, 8}, {1024, 8}, {1025, 14}, {1026, 14}, {1027, 15}, {1028, 13},
                       {1029, 15}, {1030, 13}, {1031, 5}, {1032, 16}, {1033, 16}})
    EXPECT_EQ(pm->GetColor(c.index), sys_[c.slot]) << "index " << c.index;
}

TEST_F(ColourModel, GetColorIndexRules) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManager));
  const int installed = pm->InstallColor(RGB(1, 2, 3));
  pm->SetTranslatedColor(1500, installed);
  pm->SetTranslatedColor(1501, 100000);  // points past the array
  const uint32_t face = sys_[COLOR_BTNFACE];
  struct Case { int index; uint32_t want; };
  for (const Case c : {Case{COLOR_WINDOW, sys_[COLOR_WINDOW]}, {0, sys_[0]}, {installed, RGB(1, 2, 3)},
                       {1500, RGB(1, 2, 3)}, {1034, face}, {999, face}, {installed + 1, face},
                       {-1, face}, {1501, face}, {INT32_MIN, face}, {INT32_MAX, face}})
    EXPECT_EQ(pm->GetColor(c.index), c.want) << "index " << c.index;
}

TEST_F(ColourModel, InstallColorFindsOrAppends) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManager));
  const size_t before = pm->ColorCount();
  const int a = pm->InstallColor(RGB(9, 9, 9));
  EXPECT_EQ(a, static_cast<int>(before));
  EXPECT_EQ(pm->InstallColor(RGB(9, 9, 9)), a) << "the same colour is found, not added again";
  EXPECT_EQ(pm->InstallColor(sys_[COLOR_HIGHLIGHT]), COLOR_HIGHLIGHT);
  EXPECT_EQ(pm->InstallColor(RGB(9, 9, 9) | 0xFF000000u), a) << "the upper byte is no part of a colour";
  EXPECT_EQ(pm->InstallColor(RGB(7, 7, 7), a), a);
  EXPECT_EQ(pm->GetColor(a), RGB(7, 7, 7));
  EXPECT_EQ(pm->ColorCount(), before + 1);
}

TEST_F(ColourModel, RefreshStartsFromTheDesktopAgain) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManagerXP));
  const size_t count = pm->ColorCount();
  sys_[COLOR_BTNFACE] = RGB(100, 100, 100);
  pm->RefreshColors(32);
  EXPECT_EQ(pm->ColorCount(), count) << "installed colours don't pile up over refreshes";
  EXPECT_EQ(pm->GetColor(1002), RGB(100, 100, 100));
  EXPECT_EQ(pm->GetColor(2000), Mix100(sys_[COLOR_WINDOW], RGB(100, 100, 100), 165));
}

TEST_F(ColourModel, XpHighColourBlends) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManagerXP));
  const uint32_t face = sys_[COLOR_BTNFACE], window = sys_[COLOR_WINDOW], shadow = sys_[COLOR_BTNSHADOW];
  const uint32_t hilite = sys_[COLOR_HIGHLIGHT];
  const uint32_t A = Mix100(face, window, 143), B = Mix100(face, shadow, 90);
  const uint32_t C = Mix100(window, face, 165), D = Mix100(hilite, window, 30);
  const uint32_t E = Mix100(hilite, window, 50), F = Mix100(shadow, window, 70);
  const uint32_t G = Mix100(shadow, window, 50);
  // (shadow * 3 + dark shadow) * 250 / 1000 per channel: (140*3+60)/4, (135*3+50)/4, (120*3+40)/4.
  const uint32_t H = RGB(120, 113, 100);
  struct Case { int index; uint32_t want; };
  for (const Case c : {Case{1000, C}, {1001, D}, {1002, face}, {1003, H}, {1014, H}, {1015, sys_[8]},
                       {1016, RGB(0, 0, 0)}, {1019, RGB(0, 0, 0)}, {1017, sys_[17]}, {1018, sys_[8]},
                       {1020, sys_[17]}, {1021, A}, {1022, A}, {1023, sys_[8]}, {1026, sys_[8]},
                       {2011, face}, {2000, C}, {2001, A}, {2002, F}, {2012, F}, {2003, E},
                       {2004, hilite}, {2005, hilite}, {2006, B}, {2007, sys_[14]},
                       {2008, Mix100(sys_[COLOR_BTNTEXT], window, 20)}, {2009, A}, {2010, C},
                       {2013, G}, {1027, face}, {1033, shadow}})
    EXPECT_EQ(pm->GetColor(c.index), c.want) << "index " << c.index;
  EXPECT_EQ(pm->GetShadowAlpha(), 128);
}

TEST_F(ColourModel, XpPaletteDisplayUsesPlainSystemColours) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManagerXP), 8);
  struct Case { int index; uint32_t want; };
  for (const Case c : {Case{1001, sys_[13]}, {2011, sys_[15]}, {2012, sys_[16]}, {2007, sys_[14]},
                       {2000, sys_[15]}, {2001, sys_[15]}, {2002, sys_[16]}, {2006, sys_[15]},
                       {2003, sys_[13]}, {2004, RGB(255, 255, 255)}, {2005, RGB(0, 0, 0)},
                       {2008, RGB(255, 255, 255)}, {2009, sys_[15]}, {2010, sys_[15]}, {2013, sys_[16]},
                       // Entries the palette table leaves alone keep the base map.
                       {1000, sys_[15]}, {1003, sys_[22]}, {1016, sys_[8]}, {1019, sys_[14]}})
    EXPECT_EQ(pm->GetColor(c.index), c.want) << "index " << c.index;
}

TEST_F(ColourModel, HelperBrushesStepBetweenFaceHighlightAndShadow) {
  sys_[COLOR_BTNFACE] = RGB(100, 0, 200);
  sys_[COLOR_BTNHIGHLIGHT] = RGB(201, 255, 0);
  sys_[COLOR_BTNSHADOW] = RGB(0, 100, 50);
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManager));
  // Steps are MulDiv of the difference: rounded half away from zero, also for falling channels.
  struct Case { int brush; uint32_t want; };
  for (const Case c : {Case{0, RGB(151, 128, 100)}, {1, RGB(161, 153, 80)}, {2, RGB(181, 204, 40)},
                       {3, RGB(50, 50, 125)}, {4, RGB(40, 60, 110)}, {5, RGB(20, 80, 80)}}) {
    EXPECT_EQ(pm->Brush(c.brush).color, c.want) << "brush " << c.brush;
    EXPECT_FALSE(pm->Brush(c.brush).pattern);
    EXPECT_EQ(pm->SystemBrush(c.brush).color, c.want) << "system brush " << c.brush;
  }
}

TEST_F(ColourModel, PaletteDisplaysDitherTheBrushes) {
  auto pm = Make(QMK_RUNTIME_CLASS(CExtPaintManager), 8);
  const uint32_t face = sys_[COLOR_BTNFACE], hi = sys_[COLOR_BTNHIGHLIGHT];
  const HelperBrush& half = pm->Brush(0);
  ASSERT_TRUE(half.pattern);
  EXPECT_EQ(half.pixels[0], face);
  EXPECT_EQ(half.pixels[1], hi) << "the half step alternates every pixel";
  EXPECT_EQ(half.pixels[16], hi);
  const HelperBrush& step2 = pm->Brush(1);
  EXPECT_EQ(step2.pixels[1], face) << "the other steps use squares of two";
  EXPECT_EQ(step2.pixels[2], hi);
  EXPECT_EQ(pm->Brush(3).pixels[0], sys_[COLOR_BTNSHADOW]);
}

TEST(MulDivRule, RoundsHalfAwayFromZero) {
  struct Case { int a, b, c, want; };
  for (const Case k : {Case{10, 144, 96, 15}, {1, 1, 2, 1}, {-1, 1, 2, -1}, {3, 1, 2, 2}, {-3, 1, 2, -2},
                       {5, 2, -3, -3}, {7, 0, 5, 0}, {1, 1, 0, -1}, {INT32_MAX, 2, 2, INT32_MAX}})
    EXPECT_EQ(MulDiv(k.a, k.b, k.c), k.want) << k.a << "*" << k.b << "/" << k.c;
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
