// Slanted text: the italic flag reaches pango, so a word drawn italic differs from the upright
// one at the same size.
#include <gtest/gtest.h>

#include "platform/draw/draw_target.h"
#include "platform/draw/text.h"

namespace qmk::platform {
namespace {

// The pixels of `text` drawn black on white in `font`.
std::vector<uint32_t> Drawn(const std::string& text, const FontSpec& font) {
  DrawTarget target(120, 30);
  target.FillRect({0, 0, 120, 30}, 0xFFFFFFFF);
  EXPECT_TRUE(DrawText(target, {2, 2, 118, 28}, text, font, 0xFF000000));
  std::vector<uint32_t> pixels;
  for (int y = 0; y < 30; ++y)
    for (int x = 0; x < 120; ++x) pixels.push_back(target.GetPixel(x, y));
  return pixels;
}

TEST(ItalicText, SlantedWordDiffersFromTheUprightOne) {
  FontSpec upright;
  upright.pixels = 16;
  FontSpec slanted = upright;
  slanted.italic = true;
  EXPECT_FALSE(upright == slanted);
  EXPECT_NE(Drawn("Illinois", upright), Drawn("Illinois", slanted));
  EXPECT_EQ(Drawn("Illinois", slanted), Drawn("Illinois", slanted));
}

}  // namespace
}  // namespace qmk::platform
