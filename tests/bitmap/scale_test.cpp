// scale_test.cpp: the kernels at sample points, and Scale against a plain resampler written here.
#include <gtest/gtest.h>

#include <cmath>

#include "bitmap/test_pictures.h"
#include "toolkit/bitmap/filter.h"

namespace bitmap_test {
namespace {

using Filter = CExtBitmap::Filter;
using namespace qmk::toolkit::bitmap;

TEST(Kernels, ValuesAtSamplePoints) {
  struct Case { int kind; double x, want; };
  const Case cases[] = {
      {kFilterBox, 0.5, 1}, {kFilterBox, 0.51, 0}, {kFilterBox, -0.5, 1},
      {kFilterLinear, -0.5, 0.5}, {kFilterLinear, 0.25, 0.75}, {kFilterLinear, 1.5, 0},
      {kFilterBilinear, 0.25, 0.75}, {kFilterBilinear, 1, 0},
      {kFilterHermite, 0, 1}, {kFilterHermite, 0.5, 0.5}, {kFilterHermite, -0.25, 0.84375}, {kFilterHermite, 1.2, 0},
      {kFilterSinc, 0, 1}, {kFilterSinc, 0.5, 2 / M_PI}, {kFilterSinc, 2.5, 1 / (2.5 * M_PI)},
      {kFilterCatmullRom, 0, 1}, {kFilterCatmullRom, 0.5, 0.5625}, {kFilterCatmullRom, -1.5, -0.0625},
      {kFilterCatmullRom, 1.5, -0.0625}, {kFilterCatmullRom, 2.1, 0},
      {kFilterBSpline, 0, 2.0 / 3}, {kFilterBSpline, 1, 1.0 / 6}, {kFilterBSpline, -1.5, 0.125 / 6}, {kFilterBSpline, 2.5, 0},
      {kFilterBlackman, 0, 1}, {kFilterBlackman, 0.25, 0.34}, {kFilterBlackman, 0.6, 0},
      {kFilterLanczos, 0, 1}, {kFilterLanczos, 1.5, (2 / M_PI) * (-1 / (1.5 * M_PI))}, {kFilterLanczos, 3, 0},
      {kFilterQuadratic, 0, 0.75}, {kFilterQuadratic, 1, 0.125}, {kFilterQuadratic, -1, 0.125}, {kFilterQuadratic, 1.5, 0},
      {kFilterGaussian, 0, 0.3989422804}, {kFilterGaussian, 1, 0.2419707245}, {kFilterGaussian, 3.5, 0},
      {kFilterHamming, 0, 1}, {kFilterHamming, 0.25, 0.54 * std::sin(M_PI / 4) / (M_PI / 4)}, {kFilterHamming, 0.6, 0},
      {kFilterBicubic, 0, 8.0 / 9}, {kFilterBicubic, 1, 1.0 / 18}, {kFilterBicubic, -1.5, -0.0347222222},
      {kFilterBicubic, 2.5, 0},
  };
  for (const Case& c : cases)
    EXPECT_NEAR(Filter(c.kind).Evaluate(c.x), c.want, 1e-9) << Filter(c.kind).GetName() << " at " << c.x;
}

TEST(Kernels, NamesSupportsAndWindowing) {
  struct Case { int kind; const char* name; double support; bool windowed; };
  for (const Case& c : {Case{kFilterBox, "Box", 0.5, true}, {kFilterSinc, "Sinc", 1, false},
                        {kFilterCatmullRom, "Catmull-Rom", 2, false}, {kFilterBlackman, "Blackman", 0.5, true},
                        {kFilterLanczos, "Lanczos", 3, true}, {kFilterGaussian, "Gaussian", 3, true},
                        {kFilterBicubic, "Bicubic", 2, false}}) {
    const Filter f(c.kind);
    EXPECT_STREQ(f.GetName(), c.name);
    EXPECT_EQ(f.GetSupport(), c.support) << c.name;
    EXPECT_EQ(f.IsWindowed(), c.windowed) << c.name;
    EXPECT_EQ(Filter::KindFromName(c.name), c.kind);
  }
  EXPECT_EQ(Filter::KindFromName("lanczos"), kFilterLanczos);
  EXPECT_EQ(Filter::KindFromName("Mitchell"), -1);
  Filter f(kFilterLanczos);
  f.SetSupport(2);
  EXPECT_EQ(f.Evaluate(2.5), 0);
  f.ResetSupport();
  EXPECT_EQ(f.GetSupport(), 3);
  EXPECT_EQ(f.Clone()->GetKind(), kFilterLanczos);
  EXPECT_FALSE(Filter(13).IsValid());
  EXPECT_EQ(f.GetParam(10), 0);
  EXPECT_EQ(f.GetParam(-1), 0);
}

TEST(Kernels, BicubicParameters) {
  const double catmull_rom[] = {0, 0.5};
  EXPECT_NEAR(Filter(kFilterBicubic, catmull_rom, 2).Evaluate(0.5), 0.5625, 1e-12);
  EXPECT_DOUBLE_EQ(Filter(kFilterBicubic).GetParam(0), 1.0 / 3);
  const double one[] = {1};
  EXPECT_DOUBLE_EQ(Filter(kFilterBicubic, one, 1).GetParam(1), 1.0 / 3) << "fewer than two: both 1/3";
  const double many[12] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 7, 8, 9};
  EXPECT_EQ(Filter(kFilterBox, many, 12).GetParam(9), 7);
}

// A plain two-pass resampler: weights computed afresh for every pixel, in doubles, with the
// same pass order and the same rounding of the in-between picture.
std::vector<uint8_t> ReferenceScale(const std::vector<uint8_t>& in, int sw, int sh, int dw, int dh, int ch,
                                    const Filter& f) {
  auto pass = [&](const std::vector<uint8_t>& src, int w, int h, int n_out, bool along_x) {
    const int n_in = along_x ? w : h;
    const int ow = along_x ? n_out : w, oh = along_x ? h : n_out;
    std::vector<uint8_t> out(static_cast<size_t>(ow) * oh * ch);
    if (n_in == n_out) return src;
    const double scale = double(n_out) / n_in;
    const double fs = std::min(scale, 1.0), width = f.GetSupport() / fs;
    for (int y = 0; y < oh; ++y)
      for (int x = 0; x < ow; ++x) {
        const int i = along_x ? x : y;
        const double center = (i + 0.5) / scale;
        double total = 0, sum[4] = {};
        for (int j = std::max(0, int(std::floor(center - width))); j <= std::min(n_in - 1, int(std::ceil(center + width))); ++j) {
          const double wt = f.Evaluate((center - j - 0.5) * fs);
          total += wt;
          const int sx = along_x ? j : x, sy = along_x ? y : j;
          for (int c = 0; c < ch; ++c) sum[c] += wt * src[(static_cast<size_t>(sy) * w + sx) * ch + c];
        }
        for (int c = 0; c < ch; ++c)
          out[(static_cast<size_t>(y) * ow + x) * ch + c] =
              static_cast<uint8_t>(std::clamp(std::floor(sum[c] / total + 0.5), 0.0, 255.0));
      }
    return out;
  };
  if (int64_t{sh} * dw > int64_t{dh} * sw) return pass(pass(in, sw, sh, dh, false), sw, dh, dw, true);
  return pass(pass(in, sw, sh, dw, true), dw, sh, dh, false);
}

// The picture's pixel bytes without row padding, in block order.
std::vector<uint8_t> Packed(const CExtBitmap& b, int ch) {
  std::vector<uint8_t> out;
  for (int y = 0; y < b.Height(); ++y) {
    const uint8_t* r = PixelBlock::Row(b.Block(), y);
    out.insert(out.end(), r, r + static_cast<size_t>(b.Width()) * ch);
  }
  return out;
}

CExtBitmap Noise(int w, int h, int depth) {
  CExtBitmap b = Patterned(w, h, depth);
  uint32_t seed = 12345;
  for (int y = 0; y < h; ++y) {
    uint8_t* r = PixelBlock::Row(b.Block(), y);
    for (size_t i = 0; i < static_cast<size_t>(w) * depth / 8; ++i) {
      seed = seed * 1103515245 + 12345;
      r[i] = static_cast<uint8_t>((seed >> 16) & 0xFF);
      // Smooth stretches as well as noise, so that ringing kernels meet both.
      if ((i / 12) % 2) r[i] = static_cast<uint8_t>(i * 9 + y * 5);
    }
  }
  return b;
}

TEST(Scale, MatchesThePlainResamplerWithinOneUnit) {
  struct Size { int sw, sh, dw, dh; };
  const Size sizes[] = {{17, 13, 5, 4}, {7, 5, 19, 11}, {12, 9, 30, 4}, {9, 30, 12, 7}, {10, 10, 10, 25}};
  for (int kind = 0; kind < kFilterKindCount; ++kind)
    for (int depth : {24, 32})
      for (const Size& s : sizes) {
        const Filter f(kind);
        CExtBitmap bmp = Noise(s.sw, s.sh, depth);
        const int ch = depth / 8;
        const std::vector<uint8_t> want = ReferenceScale(Packed(bmp, ch), s.sw, s.sh, s.dw, s.dh, ch, f);
        ASSERT_TRUE(bmp.Scale(s.dw, s.dh, f));
        const std::vector<uint8_t> got = Packed(bmp, ch);
        ASSERT_EQ(got.size(), want.size());
        int worst = 0;
        for (size_t i = 0; i < got.size(); ++i) worst = std::max(worst, std::abs(got[i] - want[i]));
        EXPECT_LE(worst, 1) << f.GetName() << " depth " << depth << " " << s.sw << "x" << s.sh << " to " << s.dw
                            << "x" << s.dh;
      }
}

TEST(Scale, SameSizeAndRefusals) {
  CExtBitmap bmp = Patterned(4, 3, 24);
  const CExtBitmap before(bmp);
  EXPECT_TRUE(bmp.Scale(4, 3, kFilterLanczos));
  EXPECT_EQ(std::memcmp(PixelBlock::Pixels(bmp.Block()), PixelBlock::Pixels(before.Block()),
                        PixelBlock::PixelBytes(before.Block())), 0);
  EXPECT_FALSE(bmp.Scale(0, 3));
  EXPECT_FALSE(bmp.Scale(3, -1));
  EXPECT_FALSE(bmp.Scale(2, 2, 99));
  CExtBitmap b8 = Patterned(4, 4, 8);
  EXPECT_FALSE(b8.Scale(2, 2)) << "palette pictures are not resampled";
  EXPECT_FALSE(CExtBitmap().Scale(2, 2));
  EXPECT_EQ(bmp.Width(), 4);
}

TEST(Scale, FlatColoursStayFlatInEveryDepth) {
  for (int depth : {16, 24, 32})
    for (int kind : {kFilterBox, kFilterLanczos, kFilterBicubic, kFilterGaussian}) {
      CExtBitmap bmp;
      bmp.Create(9, 7, depth);
      for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 9; ++x) bmp.SetPixel(x, y, Quad(200, 96, 8, 255));
      RGBQUAD want;
      bmp.GetPixel(0, 0, want);
      ASSERT_TRUE(bmp.Scale(20, 3, kind));
      for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 20; ++x) {
          RGBQUAD c;
          bmp.GetPixel(x, y, c);
          ASSERT_EQ(c, want) << depth << " " << kind << " at " << x << "," << y;
        }
    }
}

TEST(Scale, PremultipliedPictureIsTurnedBackFirst) {
  CExtBitmap bmp;
  bmp.Create(2, 2, 32);
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 2; ++x) bmp.SetPixel(x, y, Quad(200, 100, 50, 100));
  bmp.PreMultiply(true);
  ASSERT_TRUE(bmp.Scale(4, 4, kFilterBox));
  EXPECT_FALSE(bmp.IsPreMultiplied());
  RGBQUAD c;
  bmp.GetPixel(3, 3, c);
  EXPECT_NEAR(c.rgbRed, 200, 3);
  EXPECT_EQ(c.rgbReserved, 100);
}

}  // namespace
}  // namespace bitmap_test
