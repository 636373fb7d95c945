// colour_test.cpp: colour blends, the HLS conversions and the colour filters of a picture.
#include <gtest/gtest.h>

#include "bitmap/test_pictures.h"
#include "toolkit/bitmap/colour.h"

namespace bitmap_test {
namespace {

using namespace qmk::toolkit::bitmap;

TEST(ColourBlend, Mix100ScalesByPart) {
  struct Case { uint32_t c1, c2; int part; uint32_t want; };
  for (const Case& c : {Case{RGB(200, 0, 100), RGB(0, 200, 0), 50, RGB(100, 100, 50)},
                        {RGB(255, 255, 255), RGB(0, 0, 0), 99, RGB(252, 252, 252)},  // (255*99+50)/100
                        // From 100 up the part counts thousandths.
                        {RGB(255, 255, 255), RGB(0, 0, 0), 100, RGB(26, 26, 26)},    // (25500+500)/1000
                        {RGB(255, 0, 0), RGB(0, 0, 255), 125, RGB(32, 0, 223)},
                        {RGB(9, 9, 9), RGB(1, 1, 1), 1000, RGB(9, 9, 9)},
                        {RGB(9, 9, 9), RGB(1, 1, 1), 0, RGB(1, 1, 1)}})
    EXPECT_EQ(Mix100(c.c1, c.c2, c.part), c.want) << c.part;
}

TEST(ColourBlend, Mix255AndInvert) {
  EXPECT_EQ(Mix255(RGB(255, 0, 10), RGB(0, 255, 20), 128), RGB(128, 127, 14));
  EXPECT_EQ(Mix255(RGB(255, 0, 0), RGB(0, 0, 0), 255), RGB(255, 0, 0));
  EXPECT_EQ(Mix255(RGB(255, 0, 0), RGB(0, 0, 0), 300), RGB(255, 0, 0)) << "clamped";
  EXPECT_EQ(Invert(0xFF123456), 0x00EDCBA9u);
}

TEST(ColourHLS, KnownColours) {
  struct Case { uint32_t rgb; double h, l, s; };
  for (const Case& c : {Case{RGB(255, 0, 0), 0, 0.5, 1}, {RGB(0, 255, 0), 1.0 / 3, 0.5, 1},
                        {RGB(0, 0, 255), 2.0 / 3, 0.5, 1}, {RGB(255, 0, 255), 5.0 / 6, 0.5, 1},
                        {RGB(128, 128, 128), 0, 128 / 255.0, 0}, {RGB(255, 128, 128), 0, (255 + 128) / 510.0, 1}}) {
    const HLS v = RGBtoHLS(c.rgb);
    EXPECT_NEAR(v.h, c.h, 1e-9) << std::hex << c.rgb;
    EXPECT_NEAR(v.l, c.l, 1e-9) << std::hex << c.rgb;
    EXPECT_NEAR(v.s, c.s, 1e-9) << std::hex << c.rgb;
  }
  EXPECT_EQ(HLStoRGB(0, 0.5, 1), RGB(255, 0, 0));
  EXPECT_EQ(HLStoRGB(0.5, 0.25, 0), RGB(63, 63, 63)) << "grey ignores hue; truncated";
  EXPECT_EQ(HLStoRGB(2.0 / 3, 0.75, 1), RGB(127, 127, 255));
}

TEST(ColourHLS, RoundTripWithinTruncation) {
  for (uint32_t r = 0; r < 256; r += 15)
    for (uint32_t g = 0; g < 256; g += 17)
      for (uint32_t b = 0; b < 256; b += 51) {
        const HLS v = RGBtoHLS(RGB(r, g, b));
        const uint32_t back = HLStoRGB(v.h, v.l, v.s);
        EXPECT_NEAR(GetRValue(back), r, 1);
        EXPECT_NEAR(GetGValue(back), g, 1);
        EXPECT_NEAR(GetBValue(back), b, 1);
        const HLSDegrees d = RGBtoHLSDegrees(RGB(r, g, b));
        const uint32_t back_d = HLSDegreesToRGB(d.h, d.l, d.s);
        EXPECT_NEAR(GetRValue(back_d), r, 1);
        EXPECT_NEAR(GetBValue(back_d), b, 1);
      }
}

TEST(ColourHLS, DeltaRule) {
  struct Case { double v, d, want; };
  for (const Case& c : {Case{0.4, 0.5, 0.7}, {0.4, -0.5, 0.2}, {0.4, 0, 0.4}, {0.4, 1, 1}, {0.4, -1, 0},
                        {0.4, 3, 1}, {0.4, -3, 0}})
    EXPECT_NEAR(ApplyDelta(c.v, c.d), c.want, 1e-12) << c.v << " " << c.d;
}

CExtBitmap Colours32() {
  CExtBitmap bmp;
  bmp.Create(3, 1, 32);
  bmp.SetPixel(0, 0, Quad(200, 100, 50, 255));
  bmp.SetPixel(1, 0, Quad(10, 220, 30, 128));
  bmp.SetPixel(2, 0, Quad(90, 90, 90, 0));
  return bmp;
}

RGBQUAD At(const CExtBitmap& b, int x, int y = 0) {
  RGBQUAD c;
  b.GetPixel(x, y, c);
  return c;
}

TEST(MakeMono, GreyByWeightsAndTint) {
  CExtBitmap bmp = Colours32();
  ASSERT_TRUE(bmp.MakeMono());
  const int g = static_cast<int>(0.11 * 50 + 0.59 * 100 + 0.3 * 200);
  EXPECT_EQ(At(bmp, 0), Quad(g, g, g, 255));
  EXPECT_EQ(At(bmp, 1).rgbReserved, 128) << "alpha kept";
  CExtBitmap tinted = Colours32();
  ASSERT_TRUE(tinted.MakeMono(RGB(255, 0, 0)));
  const HLS v = RGBtoHLS(RGB(At(tinted, 0).rgbRed, At(tinted, 0).rgbGreen, At(tinted, 0).rgbBlue));
  EXPECT_NEAR(v.h, 0, 1e-9);
  EXPECT_NEAR(v.l, g / 255.0, 0.01);
  const Rect first{0, 0, 1, 1};
  CExtBitmap part = Colours32();
  ASSERT_TRUE(part.MakeMono(-1, &first));
  EXPECT_EQ(At(part, 1), At(Colours32(), 1)) << "outside the rectangle";
  CExtBitmap palette = Patterned(2, 2, 8);
  EXPECT_FALSE(palette.MakeMono());
}

TEST(AdjustHLS, ZeroDeltasLeaveThePicture) {
  CExtBitmap bmp = Colours32();
  EXPECT_TRUE(bmp.AdjustHLS(-1, -1, 0, 0, 0));
  EXPECT_TRUE(SamePixels(bmp, Colours32()));
}

TEST(AdjustHLS, LightnessAndExcludedRange) {
  CExtBitmap bmp = Colours32();
  ASSERT_TRUE(bmp.AdjustHLS(-1, -1, 0, 0.5, 0));
  const HLS before = RGBtoHLS(RGB(200, 100, 50));
  const RGBQUAD c = At(bmp, 0);
  EXPECT_NEAR(RGBtoHLS(RGB(c.rgbRed, c.rgbGreen, c.rgbBlue)).l, before.l + 0.5 * (1 - before.l), 0.01);
  EXPECT_EQ(c.rgbReserved, 255);
  // Colours from (5, 200, 25) up to (5+10, 200+30, 25+10) stay as they are.
  CExtBitmap kept = Colours32();
  ASSERT_TRUE(kept.AdjustHLS(RGB(5, 200, 25), RGB(10, 30, 10), 0, -1, 0));
  EXPECT_EQ(At(kept, 1), At(Colours32(), 1));
  EXPECT_EQ(At(kept, 0), Quad(0, 0, 0, 255));
}

TEST(AdjustAlpha, FullDeltasAndZeroAlpha) {
  CExtBitmap down = Colours32();
  ASSERT_TRUE(down.AdjustAlpha(-1));
  EXPECT_EQ(At(down, 0), Quad(200, 100, 50, 0)) << "colour kept";
  EXPECT_EQ(At(down, 2).rgbReserved, 0);
  CExtBitmap up = Colours32();
  ASSERT_TRUE(up.AdjustAlpha(1));
  EXPECT_EQ(At(up, 1).rgbReserved, 255);
  EXPECT_EQ(At(up, 2).rgbReserved, 0) << "alpha 0 is skipped";
  CExtBitmap half = Colours32();
  ASSERT_TRUE(half.AdjustAlpha(-0.5));
  EXPECT_EQ(At(half, 1).rgbReserved, static_cast<int>(128 / 255.0 * 0.5 * 255));
  EXPECT_TRUE(half.AdjustAlpha(0));
}

TEST(AdjustAlpha, PremultipliedPictureIsTurnedBack) {
  CExtBitmap bmp = Colours32();
  bmp.PreMultiply(true);
  ASSERT_TRUE(bmp.AdjustAlpha(0.5));
  EXPECT_FALSE(bmp.IsPreMultiplied());
  EXPECT_EQ(At(bmp, 0).rgbRed, 200);
}

TEST(ChangeColor, TakesHueAndSaturationKeepsLightnessSparesOneColour) {
  CExtBitmap bmp = Colours32();
  ASSERT_TRUE(bmp.ChangeColor(RGB(10, 220, 30), RGB(0, 0, 255)));
  EXPECT_EQ(At(bmp, 1), At(Colours32(), 1));
  const RGBQUAD c = At(bmp, 0);
  const HLS v = RGBtoHLS(RGB(c.rgbRed, c.rgbGreen, c.rgbBlue));
  EXPECT_NEAR(v.h, 2.0 / 3, 0.01);
  EXPECT_NEAR(v.l, RGBtoHLS(RGB(200, 100, 50)).l, 0.01);
}

TEST(PaintGradient, BandsAndPositions) {
  CExtBitmap bmp;
  bmp.Create(8, 2, 32);
  ASSERT_TRUE(bmp.PaintGradient(Rect{0, 0, 8, 2}, Quad(0, 0, 0, 255), Quad(200, 100, 40, 255), true, 4));
  // Band i of 4: (c1 * (4 - i) + c2 * i) / 4, two pixels each.
  const int want_red[8] = {0, 0, 50, 50, 100, 100, 150, 150};
  for (int x = 0; x < 8; ++x) EXPECT_EQ(At(bmp, x, 1).rgbRed, want_red[x]) << x;
  CExtBitmap tall;
  tall.Create(1, 5, 24);
  ASSERT_TRUE(tall.PaintGradient(Rect{0, 0, 1, 5}, Quad(0, 0, 0, 0), Quad(90, 0, 0, 0), false, 2));
  EXPECT_EQ(At(tall, 0, 0).rgbRed, 0);
  EXPECT_EQ(At(tall, 0, 2).rgbRed, 0) << "MulDiv(1, 5, 2) rounds to 3";
  EXPECT_EQ(At(tall, 0, 3).rgbRed, 45);
  EXPECT_EQ(At(tall, 0, 4).rgbRed, 45) << "the last band runs to the end";
  EXPECT_FALSE(tall.PaintGradient(Rect{0, 0, 1, 5}, {}, {}, false, 0));
}

// With more bands than pixels the bands step one pixel each and the far colour is never drawn.
TEST(PaintGradient, MoreBandsThanPixelsNeverReachTheSecondColour) {
  CExtBitmap bmp;
  bmp.Create(2, 1, 24);
  ASSERT_TRUE(bmp.PaintGradient(Rect{0, 0, 2, 1}, Quad(0, 0, 0, 0), Quad(100, 0, 0, 0), true, 10));
  EXPECT_EQ(At(bmp, 0).rgbRed, 0);
  EXPECT_EQ(At(bmp, 1).rgbRed, 10);
}

}  // namespace
}  // namespace bitmap_test
