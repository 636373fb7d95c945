// pixel_test.cpp: the pixel block, pixel access, premultiplication, conversion to 32 bits,
// mirroring, deep copies, the archive form and the tile copy.
#include <gtest/gtest.h>

#include "bitmap/test_pictures.h"

namespace bitmap_test {
namespace {

using qmk::toolkit::bitmap::ChannelMasks;
using qmk::toolkit::bitmap::kMasks24;
using qmk::toolkit::bitmap::kMasks32;
using qmk::toolkit::bitmap::kMasks565;
using qmk::toolkit::bitmap::Rect;
using qmk::toolkit::bitmap::Stride;

// Counts change notices.
class CountingBitmap : public CExtBitmap {
 public:
  void OnContentChanged() override { ++changes; }
  int changes = 0;
};

TEST(PixelBlock, StrideAlignmentAndPaletteSize) {
  struct Case { int width, depth; uint64_t stride; };
  for (const Case c : {Case{1, 1, 4}, {33, 1, 8}, {3, 4, 4}, {9, 4, 8}, {5, 8, 8}, {3, 16, 8}, {5, 24, 16},
                       {1, 32, 4}})
    EXPECT_EQ(Stride(c.width, c.depth), c.stride) << c.width << "x" << c.depth;
  for (int depth : {1, 4, 8, 16, 24, 32}) {
    CExtBitmap bmp;
    ASSERT_TRUE(bmp.Create(3, 2, depth));
    const uint8_t* block = bmp.Block();
    EXPECT_EQ(reinterpret_cast<uintptr_t>(PixelBlock::Pixels(block)) % 16, 0u) << depth;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(PixelBlock::Header(block)) % 16, 0u) << depth;
    EXPECT_EQ(PixelBlock::PaletteCount(block), depth <= 8 ? 1u << depth : 0u);
    EXPECT_EQ(PixelBlock::Header(block)->biPlanes, 1);
  }
  EXPECT_EQ(*PixelBlock::Masks(Patterned(1, 1, 32).Block()), kMasks32);
  CExtBitmap bad;
  EXPECT_FALSE(bad.Create(0, 1, 32));
  EXPECT_FALSE(bad.Create(1 << 20, 1 << 20, 32));
  EXPECT_TRUE(bad.IsEmpty());
}

TEST(Pixels, GetPixelByDepth) {
  CExtBitmap b1 = Patterned(16, 2, 1), b8 = Patterned(4, 2, 8), b24 = Patterned(2, 2, 24);
  RGBQUAD c;
  // Row 0 from the top is the last stored row; bit 7 of its first byte is pixel 0.
  const uint8_t first = PixelBlock::Row(b1.Block(), 1)[0];
  ASSERT_TRUE(b1.GetPixel(0, 0, c));
  RGBQUAD want = PixelBlock::Palette(b1.Block())[first >> 7];
  want.rgbReserved = 255;
  EXPECT_EQ(c, want);
  ASSERT_TRUE(b8.GetPixel(2, 1, c));
  want = PixelBlock::Palette(b8.Block())[PixelBlock::Row(b8.Block(), 0)[2]];
  want.rgbReserved = 255;
  EXPECT_EQ(c, want);
  ASSERT_TRUE(b24.GetPixel(1, 0, c));
  const uint8_t* p = PixelBlock::Row(b24.Block(), 1) + 3;
  EXPECT_EQ(c, (RGBQUAD{p[0], p[1], p[2], 255}));
  for (auto [x, y] : {std::pair{-1, 0}, {0, -1}, {2, 0}, {0, 2}}) EXPECT_FALSE(b24.GetPixel(x, y, c));
  EXPECT_FALSE(CExtBitmap().GetPixel(0, 0, c));
}

TEST(Pixels, SixteenBitScalesByTruncation) {
  struct Case { ChannelMasks masks; uint16_t word; RGBQUAD want; };
  for (const Case& c : {Case{kMasks565, 0xF800, Quad(255, 0, 0, 255)}, {kMasks565, 0x0020, Quad(0, 4, 0, 255)},
                        {kMasks565, 0x0001, Quad(0, 0, 8, 255)},
                        {qmk::toolkit::bitmap::kMasks555, 0x0400, Quad(8, 0, 0, 255)}}) {
    CExtBitmap bmp;
    bmp.Create(1, 1, 16, c.masks);
    PixelBlock::Row(bmp.Block(), 0)[0] = static_cast<uint8_t>(c.word);
    PixelBlock::Row(bmp.Block(), 0)[1] = static_cast<uint8_t>(c.word >> 8);
    RGBQUAD got;
    ASSERT_TRUE(bmp.GetPixel(0, 0, got));
    EXPECT_EQ(got, c.want) << std::hex << c.word;
  }
}

TEST(Pixels, SetPixelChannelFlags) {
  CExtBitmap bmp;
  bmp.Create(1, 1, 32);
  bmp.SetPixel(0, 0, Quad(10, 20, 30, 40));
  bmp.SetPixel(0, 0, Quad(99, 99, 99, 200), false, false, false, true);
  RGBQUAD c;
  bmp.GetPixel(0, 0, c);
  EXPECT_EQ(c, Quad(10, 20, 30, 200)) << "alpha only keeps colour";
  bmp.SetPixel(0, 0, Quad(1, 2, 3, 4), false, true, false, false);
  bmp.GetPixel(0, 0, c);
  EXPECT_EQ(c, Quad(10, 2, 30, 200));
  EXPECT_FALSE(bmp.SetPixel(1, 0, c));
}

TEST(Pixels, SetPixelOnPalettePicturePicksNearestEntry) {
  CExtBitmap bmp = Patterned(4, 1, 8);
  const RGBQUAD entry = PixelBlock::Palette(bmp.Block())[77];
  ASSERT_TRUE(bmp.SetPixel(3, 0, entry));
  EXPECT_EQ(PixelBlock::Row(bmp.Block(), 0)[3], 77);
}

TEST(PreMultiply, FormulasFlagsAndNotice) {
  CountingBitmap bmp;
  bmp.Create(2, 1, 32);
  bmp.SetPixel(0, 0, Quad(200, 100, 51, 128));
  bmp.SetPixel(1, 0, Quad(200, 100, 51, 0));
  bmp.changes = 0;
  ASSERT_TRUE(bmp.PreMultiply(true));
  EXPECT_EQ(bmp.changes, 1);
  EXPECT_TRUE(bmp.IsPreMultiplied());
  const uint8_t* p = PixelBlock::Row(bmp.Block(), 0);
  EXPECT_EQ(p[2], 200 * 128 / 255);
  EXPECT_EQ(p[1], 100 * 128 / 255);
  EXPECT_EQ(p[0], 51 * 128 / 255);
  EXPECT_EQ(p[3], 128);
  EXPECT_EQ(p[6], 0) << "alpha 0 clears colour";
  RGBQUAD c;
  bmp.GetPixel(0, 0, c);
  EXPECT_EQ(c.rgbRed, std::min(255, (200 * 128 / 255) * 255 / 128));
  ASSERT_TRUE(bmp.PreMultiply(false));
  EXPECT_FALSE(bmp.IsPreMultiplied());
  EXPECT_EQ(p[2], (200 * 128 / 255) * 255 / 128);
  CExtBitmap b24 = Patterned(1, 1, 24);
  EXPECT_FALSE(b24.PreMultiply(true));
}

TEST(PreMultiply, EveryCallTransformsWhateverTheFlag) {
  CountingBitmap bmp;
  bmp.Create(1, 1, 32);
  bmp.SetPixel(0, 0, Quad(200, 100, 51, 128));
  bmp.changes = 0;
  ASSERT_TRUE(bmp.PreMultiply(true));
  ASSERT_TRUE(bmp.PreMultiply(true));
  EXPECT_EQ(bmp.changes, 2);
  const uint8_t* p = PixelBlock::Row(bmp.Block(), 0);
  EXPECT_EQ(p[2], (200 * 128 / 255) * 128 / 255) << "multiplied twice";
}

TEST(PreMultiply, GetPixelCapsUndoneChannelsAt255) {
  CExtBitmap bmp;
  bmp.Create(1, 1, 32);
  PixelBlock::Row(bmp.Block(), 0)[2] = 90;  // red above alpha: impossible after premultiplying
  PixelBlock::Row(bmp.Block(), 0)[3] = 60;
  bmp.SetPreMultiplied(true);
  RGBQUAD c;
  bmp.GetPixel(0, 0, c);
  EXPECT_EQ(c.rgbRed, 255);
}

TEST(Make32, EveryDepthKeepsColoursWithFullAlpha) {
  for (int depth : {1, 4, 8, 16, 24}) {
    CExtBitmap bmp = Patterned(5, 3, depth);
    CExtBitmap wide(bmp);
    ASSERT_TRUE(wide.Make32()) << depth;
    EXPECT_EQ(wide.Depth(), 32);
    EXPECT_TRUE(SamePixels(bmp, wide)) << depth;
  }
  CExtBitmap b32;
  b32.Create(1, 1, 32, kMasks24);
  ASSERT_TRUE(b32.Make32());
  EXPECT_EQ(PixelBlock::Masks(b32.Block())->alpha, 0xFF000000u);
}

TEST(Flip, AxesRectanglesAndCentreColumn) {
  CExtBitmap bmp;
  bmp.Create(3, 2, 24);
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 3; ++x) bmp.SetPixel(x, y, Quad(uint8_t(x), uint8_t(y), 0, 255));
  auto at = [&](int x, int y) {
    RGBQUAD c;
    bmp.GetPixel(x, y, c);
    return std::pair<int, int>{c.rgbRed, c.rgbGreen};
  };
  ASSERT_TRUE(bmp.Flip(true, false));
  EXPECT_EQ(at(0, 0), (std::pair{2, 0}));
  EXPECT_EQ(at(1, 0), (std::pair{1, 0})) << "the centre column stays";
  ASSERT_TRUE(bmp.Flip(false, true));
  EXPECT_EQ(at(0, 0), (std::pair{2, 1}));
  const Rect r{1, -5, 99, 1};  // clamped to columns 1..2 of row 0
  ASSERT_TRUE(bmp.Flip(true, true, &r));
  EXPECT_EQ(at(1, 0), (std::pair{0, 1}));
  EXPECT_EQ(at(2, 0), (std::pair{1, 1}));
  EXPECT_EQ(at(0, 0), (std::pair{2, 1}));
  const Rect outside{5, 5, 9, 9};
  EXPECT_FALSE(bmp.Flip(true, false, &outside));
}

TEST(AssignFrom, DeepCopyAndEmptySource) {
  CExtBitmap a = Patterned(4, 4, 8);
  CExtBitmap b;
  ASSERT_TRUE(b.AssignFrom(a));
  EXPECT_NE(a.Block(), b.Block());
  EXPECT_TRUE(SamePixels(a, b));
  PixelBlock::Row(a.Block(), 0)[0] ^= 0xFF;
  EXPECT_FALSE(SamePixels(a, b));
  EXPECT_FALSE(b.AssignFrom(CExtBitmap()));
  EXPECT_TRUE(b.IsEmpty());
}

TEST(Serialize, EmptyPictureIsOneWord) {
  CExtBitmap empty;
  const std::vector<uint8_t> bytes = Serialized(empty);
  EXPECT_EQ(bytes, (std::vector<uint8_t>{1, 0, 0, 0}));
  CExtBitmap back = Patterned(2, 2, 24);
  Archive in = Archive::FromMemory(bytes.data(), bytes.size());
  EXPECT_TRUE(back.Serialize(in));
  EXPECT_TRUE(back.IsEmpty());
}

TEST(Serialize, PremultipliedPictureIsStoredPlainAndLeftPlain) {
  CExtBitmap bmp;
  bmp.Create(2, 1, 32);
  bmp.SetPixel(0, 0, Quad(200, 100, 50, 100));
  bmp.SetPixel(1, 0, Quad(10, 20, 30, 255));
  bmp.PreMultiply(true);
  const std::vector<uint8_t> bytes = Serialized(bmp);
  EXPECT_FALSE(bmp.IsPreMultiplied());
  CountingBitmap back;
  Archive in = Archive::FromMemory(bytes.data(), bytes.size());
  ASSERT_TRUE(back.Serialize(in));
  EXPECT_GE(back.changes, 1);
  EXPECT_FALSE(back.IsPreMultiplied());
  EXPECT_EQ(std::memcmp(PixelBlock::Pixels(back.Block()), PixelBlock::Pixels(bmp.Block()), 8), 0);
  RGBQUAD c;
  back.GetPixel(1, 0, c);
  EXPECT_EQ(c, Quad(10, 20, 30, 255));
}

TEST(Serialize, EightBitPicturesUseRunLengthsAndDamageLeavesEmpty) {
  CExtBitmap bmp;
  bmp.Create(64, 2, 8);
  std::vector<uint8_t> bytes = Serialized(bmp);
  ASSERT_GT(bytes.size(), 4 + 14 + 16u);
  EXPECT_EQ(bytes[4 + 14 + 16], 1) << "compression RLE8";
  EXPECT_LT(bytes.size(), 4 + 14 + 40 + 1024 + 64u);
  bytes.resize(bytes.size() - 3);
  CExtBitmap back = Patterned(1, 1, 24);
  Archive in = Archive::FromMemory(bytes.data(), bytes.size());
  EXPECT_FALSE(back.Serialize(in));
  EXPECT_TRUE(back.IsEmpty());
}

TEST(TileCopy, RotationsLaidInARowOrAColumn) {
  // A 3 by 1 source: red, green, blue.
  CExtBitmap src;
  src.Create(3, 1, 32);
  src.SetPixel(0, 0, Quad(255, 0, 0, 255));
  src.SetPixel(1, 0, Quad(0, 255, 0, 255));
  src.SetPixel(2, 0, Quad(0, 0, 255, 255));
  auto red = [](const CExtBitmap& b, int x, int y) {
    RGBQUAD c;
    b.GetPixel(x, y, c);
    return c.rgbRed == 255;
  };
  struct Case { int angle; int w, h; int red_x, red_y; };
  for (const Case c : {Case{0, 2, 1, 0, 0}, {90, 1, 2, 0, 0}, {180, 2, 1, 1, 0}, {270, 1, 2, 0, 1}, {360, 2, 1, 0, 0}}) {
    CExtBitmap out;
    ASSERT_TRUE(out.TileCopy(src, Rect{0, 0, 2, 1}, 0, 0, 1, c.angle, false)) << c.angle;
    EXPECT_EQ(out.Width(), c.w) << c.angle;
    EXPECT_EQ(out.Height(), c.h) << c.angle;
    EXPECT_TRUE(red(out, c.red_x, c.red_y)) << c.angle;
  }
  CExtBitmap strip;
  ASSERT_TRUE(strip.TileCopy(src, Rect{0, 0, 1, 1}, 1, 0, 3, 0, true));
  EXPECT_EQ(strip.Width(), 1);
  EXPECT_EQ(strip.Height(), 3);
  RGBQUAD c;
  strip.GetPixel(0, 2, c);
  EXPECT_EQ(c, Quad(0, 0, 255, 255)) << "the source moves one step a frame";
  EXPECT_TRUE(src.TileCopy(src, Rect{0, 0, 3, 1}, 0, 0, 2, 0, false)) << "onto itself";
  EXPECT_EQ(src.Width(), 6);
  EXPECT_FALSE(strip.TileCopy(Patterned(2, 2, 8), Rect{0, 0, 1, 1}, 0, 0, 1, 0, false));
  EXPECT_FALSE(strip.TileCopy(src, Rect{0, 0, 1, 1}, 0, 0, 1, 45, false));
  EXPECT_FALSE(strip.TileCopy(src, Rect{0, 0, 1, 1}, 0, 0, 0, 0, false));
}

}  // namespace
}  // namespace bitmap_test
