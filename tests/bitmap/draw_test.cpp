// draw_test.cpp: pictures on the drawing target: blits, alpha blends, nine parts, the cached
// device form and command icons.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "bitmap/test_pictures.h"
#include "toolkit/bitmap/bitmap_cache.h"
#include "toolkit/bitmap/cmd_icon.h"
#include "toolkit/bitmap/colour.h"

namespace bitmap_test {
namespace {

using namespace qmk::toolkit::bitmap;
using qmk::platform::DrawTarget;

constexpr uint32_t kRed = 0xFF0000FF, kGreen = 0xFF00FF00, kBlue = 0xFFFF0000, kWhite = 0xFFFFFFFF;

// A picture whose pixels are the given colour words (red low, alpha high), row by row.
CExtBitmap Picture(int w, int h, const std::vector<uint32_t>& colours) {
  CExtBitmap bmp;
  bmp.Create(w, h, 32);
  for (int i = 0; i < w * h; ++i) {
    const uint32_t c = colours[static_cast<size_t>(i)];
    bmp.SetPixel(i % w, i / w, Quad(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF, c >> 24));
  }
  return bmp;
}

TEST(Draw, BlitAndStretchedBlit) {
  CExtBitmap bmp = Picture(2, 1, {kRed, kGreen});
  DrawTarget dc(8, 4);
  ASSERT_TRUE(dc.ok());
  ASSERT_TRUE(bmp.Draw(dc, 1, 1));
  EXPECT_EQ(dc.GetPixel(1, 1), kRed);
  EXPECT_EQ(dc.GetPixel(2, 1), kGreen);
  EXPECT_EQ(dc.GetPixel(3, 1), 0u);
  ASSERT_TRUE(bmp.Draw(dc, Rect{0, 2, 8, 4}));
  EXPECT_EQ(dc.GetPixel(3, 3), kRed);
  EXPECT_EQ(dc.GetPixel(4, 3), kGreen);
  EXPECT_FALSE(bmp.Draw(dc, 0, 0, 0x00EE0086)) << "only plain copies";
  EXPECT_FALSE(CExtBitmap().Draw(dc, 0, 0));
}

TEST(Draw, BlitCopiesColourWhateverTheAlpha) {
  CExtBitmap bmp = Picture(1, 1, {0x000000FF});
  DrawTarget dc(1, 1);
  ASSERT_TRUE(bmp.Draw(dc, 0, 0));
  EXPECT_EQ(dc.GetPixel(0, 0), kRed);
}

TEST(Draw, PalettePicturesDrawThroughTheirPalette) {
  CExtBitmap bmp;
  ASSERT_TRUE(bmp.FromResource("check"));
  DrawTarget dc(8, 8);
  ASSERT_TRUE(bmp.Draw(dc, 0, 0));
  EXPECT_EQ(dc.GetPixel(0, 3), 0xFF000000u);
  EXPECT_EQ(dc.GetPixel(0, 0), kWhite);
}

TEST(AlphaBlend, ByPixelAlphaAndConstantAlpha) {
  CExtBitmap bmp = Picture(2, 1, {0x800000FF, 0x00FF0000});
  DrawTarget dc(2, 1);
  dc.FillRect({0, 0, 2, 1}, kWhite);
  ASSERT_TRUE(bmp.AlphaBlend(dc, Rect{0, 0, 2, 1}));
  const uint32_t p = dc.GetPixel(0, 0);
  EXPECT_NEAR(p & 0xFF, 255, 1);
  EXPECT_NEAR((p >> 8) & 0xFF, 127, 2);
  EXPECT_EQ(dc.GetPixel(1, 0), kWhite) << "alpha 0 leaves the target";
  dc.FillRect({0, 0, 2, 1}, kWhite);
  CExtBitmap solid = Picture(1, 1, {0xFF000000});
  ASSERT_TRUE(solid.AlphaBlend(dc, Rect{0, 0, 1, 1}, {}, 64));
  EXPECT_NEAR(dc.GetPixel(0, 0) & 0xFF, 191, 2);
}

TEST(AlphaBlend, PremultipliedPictureBlendsTheSame) {
  CExtBitmap plain = Picture(1, 1, {0x800000FF});
  CExtBitmap pre(plain);
  pre.PreMultiply(true);
  DrawTarget a(1, 1), b(1, 1);
  a.FillRect({0, 0, 1, 1}, kBlue);
  b.FillRect({0, 0, 1, 1}, kBlue);
  plain.AlphaBlend(a, Rect{0, 0, 1, 1});
  pre.AlphaBlend(b, Rect{0, 0, 1, 1});
  EXPECT_EQ(a.GetPixel(0, 0), b.GetPixel(0, 0));
}

// A 3 by 3 source, one colour per part, drawn with margins of one pixel into 7 by 5.
CExtBitmap NineColours() {
  std::vector<uint32_t> c(9);
  for (int i = 0; i < 9; ++i) c[i] = 0xFF000000u | static_cast<uint32_t>(i * 25 + 10);
  return Picture(3, 3, c);
}

uint32_t PartColour(int part) { return 0xFF000000u | static_cast<uint32_t>(part * 25 + 10); }

TEST(NinePart, CornersNaturalEdgesStretchedMiddleLast) {
  CExtBitmap bmp = NineColours();
  DrawTarget dc(7, 5);
  ASSERT_TRUE(bmp.DrawNinePart(dc, Rect{0, 0, 7, 5}, Rect{}, Rect{1, 1, 1, 1}));
  // Expected part index (row * 3 + column of the source) at each target pixel.
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 7; ++x) {
      const int col = x == 0 ? 0 : x == 6 ? 2 : 1, row = y == 0 ? 0 : y == 4 ? 2 : 1;
      EXPECT_EQ(dc.GetPixel(x, y) & 0xFF, PartColour(row * 3 + col) & 0xFF) << x << "," << y;
    }
}

TEST(NinePart, WithoutMiddleAndWithStretchModeRestored) {
  CExtBitmap bmp = NineColours();
  DrawTarget dc(7, 5);
  dc.SetStretchMode(qmk::platform::kStretchHalftone);
  ASSERT_TRUE(bmp.DrawNinePart(dc, Rect{0, 0, 7, 5}, Rect{}, Rect{1, 1, 1, 1}, 0, false));
  EXPECT_EQ(dc.GetPixel(3, 2), 0u);
  EXPECT_EQ(dc.GetStretchMode(), qmk::platform::kStretchHalftone);
}

TEST(NinePart, DrawMethods) {
  CExtBitmap bmp = NineColours();
  {
    DrawTarget dc(7, 5);
    EXPECT_TRUE(bmp.DrawNinePart(dc, Rect{0, 0, 7, 5}, Rect{}, Rect{1, 1, 1, 1}, kNinePartHollow));
    EXPECT_EQ(dc.GetPixel(0, 0), 0u);
  }
  {
    DrawTarget dc(7, 5);
    EXPECT_TRUE(bmp.DrawNinePart(dc, Rect{0, 0, 7, 5}, Rect{}, Rect{1, 1, 1, 1}, kNinePartCenter));
    EXPECT_EQ(dc.GetPixel(0, 0), 0u);
    EXPECT_EQ(dc.GetPixel(3, 2) & 0xFF, PartColour(4) & 0xFF);
  }
  {
    // Tiled top edge of a 4-wide source: its two middle columns repeat.
    std::vector<uint32_t> c(16, kWhite);
    c[1] = kRed;
    c[2] = kGreen;
    CExtBitmap wide = Picture(4, 4, c);
    DrawTarget dc(8, 4);
    ASSERT_TRUE(wide.DrawNinePart(dc, Rect{0, 0, 8, 4}, Rect{}, Rect{1, 1, 1, 1}, kNinePartTileAll));
    EXPECT_EQ(dc.GetPixel(1, 0), kRed);
    EXPECT_EQ(dc.GetPixel(2, 0), kGreen);
    EXPECT_EQ(dc.GetPixel(3, 0), kRed);
    EXPECT_EQ(dc.GetPixel(6, 0), kGreen);
  }
  DrawTarget dc(2, 2);
  EXPECT_FALSE(bmp.DrawNinePart(dc, Rect{0, 0, 2, 2}, Rect{}, Rect{1, 1, 1, 1}, static_cast<NinePartMethod>(6)));
}

TEST(NinePart, PartsOutsideTheClipAreSkipped) {
  CExtBitmap bmp = NineColours();
  DrawTarget dc(7, 5);
  dc.SetClip({0, 0, 1, 1});
  EXPECT_TRUE(bmp.DrawNinePart(dc, Rect{0, 0, 7, 5}, Rect{}, Rect{1, 1, 1, 1}, kNinePartStretch));
  EXPECT_EQ(dc.GetPixel(0, 0) & 0xFF, PartColour(0) & 0xFF);
  EXPECT_FALSE(dc.RectVisible({2, 2, 4, 4}));
  EXPECT_EQ(dc.GetPixel(3, 2), 0u);
}

TEST(BitmapCache, DeviceFormMadeOnFirstBlendAndDroppedOnChange) {
  CExtBitmapCache bmp;
  bmp.Create(2, 2, 32);
  bmp.SetPixel(0, 0, Quad(255, 0, 0, 255));
  EXPECT_FALSE(bmp.HasDeviceForm());
  DrawTarget dc(2, 2);
  ASSERT_TRUE(bmp.AlphaBlend(dc, Rect{0, 0, 2, 2}));
  EXPECT_TRUE(bmp.HasDeviceForm());
  EXPECT_EQ(dc.GetPixel(0, 0), kRed);
  bmp.SetPixel(0, 0, Quad(0, 255, 0, 255));
  EXPECT_FALSE(bmp.HasDeviceForm());
  ASSERT_TRUE(bmp.AlphaBlend(dc, Rect{0, 0, 2, 2}));
  EXPECT_EQ(dc.GetPixel(0, 0), kGreen) << "not the stale form";
  dc.SetRightToLeft(true);
  EXPECT_TRUE(bmp.AlphaBlend(dc, Rect{0, 0, 2, 2})) << "falls back to the plain blend";
}

TEST(CmdIcon, MadeDisabledFormAndStoredStates) {
  CExtCmdIcon icon;
  EXPECT_TRUE(icon.IsEmpty());
  CExtBitmap normal = Picture(2, 1, {0xFF0000FF, 0xFF00FF00});
  ASSERT_TRUE(icon.SetBitmap(CExtCmdIcon::kNormal, normal));
  EXPECT_EQ(icon.Flags(), 0u);
  CExtBitmap& disabled = icon.GetBitmap(CExtCmdIcon::kDisabled);
  ASSERT_NE(&disabled, &icon.GetBitmap(CExtCmdIcon::kNormal));
  RGBQUAD c;
  disabled.GetPixel(0, 0, c);
  EXPECT_EQ(c.rgbRed, c.rgbGreen) << "grey";
  EXPECT_EQ(c.rgbReserved, 127) << "half alpha";
  EXPECT_FALSE(icon.IsStored(CExtCmdIcon::kDisabled));
  EXPECT_EQ(&icon.GetBitmap(CExtCmdIcon::kHover), &icon.GetBitmap(CExtCmdIcon::kNormal));
  EXPECT_EQ(&icon.GetBitmap(7), &icon.GetBitmap(CExtCmdIcon::kNormal));
  ASSERT_TRUE(icon.SetBitmap(CExtCmdIcon::kPressed, Picture(2, 1, {kBlue, kBlue})));
  EXPECT_EQ(icon.Flags(), 4u);
  icon.GetBitmap(CExtCmdIcon::kPressed).GetPixel(0, 0, c);
  EXPECT_EQ(c, Quad(0, 0, 255, 255));
}

TEST(CmdIcon, SerializeWritesFlagsNormalAndStoredPictures) {
  CExtCmdIcon icon;
  icon.SetBitmap(CExtCmdIcon::kNormal, Picture(1, 1, {kRed}));
  icon.SetBitmap(CExtCmdIcon::kHover, Picture(1, 1, {kGreen}));
  icon.GetBitmap(CExtCmdIcon::kDisabled);  // made, not stored
  Archive out = Archive::ToMemory();
  ASSERT_TRUE(icon.Serialize(out));
  const std::vector<uint8_t> bytes = out.TakeStored();
  EXPECT_EQ(bytes[0], 2);
  CExtCmdIcon back;
  Archive in = Archive::FromMemory(bytes.data(), bytes.size());
  ASSERT_TRUE(back.Serialize(in));
  EXPECT_EQ(back.Flags(), 2u);
  RGBQUAD c;
  back.GetBitmap(CExtCmdIcon::kHover).GetPixel(0, 0, c);
  EXPECT_EQ(c, Quad(0, 255, 0, 255));
  Archive cut = Archive::FromMemory(bytes.data(), bytes.size() - 5);
  EXPECT_FALSE(back.Serialize(cut));
  EXPECT_TRUE(back.IsEmpty());
}

TEST(CmdIcon, StateDrawingForms) {
  CExtCmdIcon icon;
  icon.SetBitmap(CExtCmdIcon::kNormal, Picture(2, 2, {kRed, kRed, kRed, 0}));
  DrawTarget dc(4, 4);
  dc.FillRect({0, 0, 4, 4}, kWhite);
  ASSERT_TRUE(icon.PaintMonochrome(dc, 0, 0, RGB(0, 0, 255)));
  const uint32_t mono = dc.GetPixel(0, 0);
  EXPECT_GT((mono >> 16) & 0xFF, mono & 0xFF) << "blue tint";
  EXPECT_EQ(dc.GetPixel(1, 1), kWhite) << "transparent pixel";
  dc.FillRect({0, 0, 4, 4}, kWhite);
  ASSERT_TRUE(icon.PaintDisabledClassic(dc, 0, 0, RGB(128, 128, 128)));
  EXPECT_LT(dc.GetPixel(0, 0) & 0xFF, 128) << "dark copy on top";
  EXPECT_NE(dc.GetPixel(2, 1), kWhite) << "light copy one pixel down and right";
  ASSERT_TRUE(icon.PaintDisabledLighter(dc, 0, 0, RGB(128, 128, 128)));
  ASSERT_TRUE(icon.Paint(dc, CExtCmdIcon::kNormal, 0, 0));
  EXPECT_EQ(dc.GetPixel(0, 0), kRed);
  EXPECT_FALSE(CExtCmdIcon().Paint(dc, 0, 0, 0));
}

TEST(DrawTarget, OpaqueFillsKeepTheirColourTheBoundsAndTheClip) {
  DrawTarget dc(4, 3);
  dc.FillRect({-2, -2, 10, 10}, 0xFF123456);
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 4; ++x) ASSERT_EQ(dc.GetPixel(x, y), 0xFF123456u) << x << "," << y;
  dc.SetClip({1, 1, 3, 2});
  dc.FillRect({0, 0, 4, 3}, kRed);
  EXPECT_EQ(dc.GetPixel(1, 1), kRed);
  EXPECT_EQ(dc.GetPixel(2, 1), kRed);
  for (auto [x, y] : {std::pair{0, 1}, {3, 1}, {1, 0}, {1, 2}}) EXPECT_EQ(dc.GetPixel(x, y), 0xFF123456u);
  dc.SetClip({});
  dc.FillRect({0, 0, 1, 1}, 0x800000FF);
  EXPECT_EQ(dc.GetPixel(0, 0), 0x800000FFu) << "a translucent fill replaces the pixel too";
}

TEST(DrawTarget, PictureOfATargetCopiesItsColoursBack) {
  DrawTarget src(2, 1);
  src.FillRect({0, 0, 1, 1}, 0x800000FF);
  src.FillRect({1, 0, 2, 1}, 0x00FF0000);
  std::unique_ptr<qmk::platform::DeviceImage> image = qmk::platform::DeviceImage::Create(src.Pixels());
  ASSERT_TRUE(image);
  DrawTarget dc(2, 1);
  ASSERT_TRUE(dc.Blit(*image, {0, 0, 2, 1}, {0, 0, 2, 1}, qmk::platform::kRopSourceCopy));
  EXPECT_EQ(dc.GetPixel(0, 0), kRed) << "half-covered red copies as full red";
  EXPECT_EQ(dc.GetPixel(1, 0), 0xFF000000u) << "nothing under alpha 0 to bring back";
}

TEST(DrawTarget, WritesPng) {
  DrawTarget dc(3, 2);
  dc.FillRect({0, 0, 3, 2}, kGreen);
  const auto path = std::filesystem::temp_directory_path() / ("qmk_draw_" + std::to_string(getpid()) + ".png");
  ASSERT_TRUE(dc.WritePng(path.string()));
  EXPECT_GT(std::filesystem::file_size(path), 8u);
  std::filesystem::remove(path);
  EXPECT_FALSE(DrawTarget(0, 5).ok());
}

}  // namespace
}  // namespace bitmap_test
