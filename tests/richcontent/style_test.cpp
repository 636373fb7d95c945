// style_test.cpp: the style records on their own: font requests, merging, computing with the
// parent's values, and deep documents.
#include <gtest/gtest.h>

#include <string>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/style_text.h"

namespace qmk::toolkit::richcontent {
namespace {

TEST(FontDescription, OrderRotationAndUnderline) {
  CExtRichFontDescription a, b;
  EXPECT_EQ(a.Compare(b), 0);
  b.lfWeight = 700;
  EXPECT_LT(a.Compare(b), 0);
  b = a;
  b.SetFace("Zz");
  EXPECT_LT(a, b);
  b.lfHeight = -20;  // the height is compared before the face
  EXPECT_GT(a.Compare(b), 0);
  b.SetFace(std::string(100, 'x'));
  EXPECT_EQ(std::string(b.lfFaceName).size(), 31u);

  CExtRichFontDescription f;
  f.lfHeight = -13;
  f.lfWidth = 5;
  const CExtRichFontDescription turned = f.ForRotation(90);
  EXPECT_EQ(turned.lfHeight, 5);
  EXPECT_EQ(turned.lfWidth, -13);
  EXPECT_EQ(turned.lfEscapement, 900);
  EXPECT_EQ(f.ForRotation(180), f);
  EXPECT_EQ(f.Underlined().lfUnderline, 1);
  f.lfUnderline = 1;
  EXPECT_EQ(f.Underlined(), f);
}

TEST(RuleMerge, PercentAndPixelTravelTogether) {
  CExtRichStyleRule target, source;
  target.m_lengths[kWidth] = 50;
  source.m_percents[kWidth] = 30.0f;  // percent only; the pixel form is the sentinel
  target.Merge(source);
  EXPECT_FLOAT_EQ(target.m_percents[kWidth], 30.0f);
  EXPECT_EQ(target.m_lengths[kWidth], kNoValue);
  CExtRichStyleRule strings;
  strings.m_strFace = "serif";
  strings.m_bQuotesSet = true;
  target.m_quotes = {{"a", "b"}};
  target.Merge(strings);
  EXPECT_EQ(target.m_strFace, "serif");
  EXPECT_TRUE(target.m_quotes.empty());  // quote lists replace
  target.Merge(CExtRichStyleRule());
  EXPECT_EQ(target.m_strFace, "serif");
}

TEST(Compute, RelativeFontSizesMoveAwayFromZero) {
  struct Case {
    int height, relative, want;
  };
  for (const Case c : {Case{-13, 2, -15}, {-13, -12, -1}, {-13, -20, -1}, {10, 3, 13}, {10, -9, 1},
                       {10, -20, 1}}) {
    CExtRichStyleDescription parent, style;
    parent.m_font.lfHeight = c.height;
    style.CopyFromParent(parent);
    CExtRichStyleRule rule;
    rule.m_nFontSizeRelative = c.relative;
    style.Compute(rule, parent);
    EXPECT_EQ(style.m_font.lfHeight, c.want) << c.height << " " << c.relative;
  }
}

TEST(Compute, SizeFactorMakesTheHeightNegative) {
  CExtRichStyleDescription parent, style;
  parent.m_font.lfHeight = 20;
  style.CopyFromParent(parent);
  CExtRichStyleRule rule;
  rule.m_lfSizeFactor = 0.75;
  style.Compute(rule, parent);
  EXPECT_EQ(style.m_font.lfHeight, -15);
}

TEST(Compute, EnumSentinelsAndParentValues) {
  CExtRichStyleDescription parent;
  parent.m_enums[kPosition] = 0;
  parent.m_enums[kCursor] = 1;
  parent.m_strings[kCursorUrl] = "hand.cur";
  parent.m_enums[kClip] = 3;
  parent.m_lengths[kClipLeft] = 9;
  CExtRichStyleDescription style;
  style.CopyFromParent(parent);
  EXPECT_EQ(style.m_enums[kPosition], 3);  // not inherited: the default
  CExtRichStyleRule rule;
  rule.m_enums[kPosition] = 4;
  rule.m_enums[kCursor] = 18;
  rule.m_enums[kClip] = 2;
  style.Compute(rule, parent);
  EXPECT_EQ(style.m_enums[kPosition], 0);
  EXPECT_EQ(style.m_enums[kCursor], 1);
  EXPECT_EQ(style.m_strings[kCursorUrl], "hand.cur");
  EXPECT_EQ(style.m_lengths[kClipLeft], 9);
  EXPECT_EQ(style.m_enums[kClip], 3);  // "clip" 2 takes the parent's clip with its rectangle
  CExtRichStyleDescription plain;
  plain.m_enums[kDisplay] = 17;
  EXPECT_EQ(plain.Display(), 2);
}

TEST(Compute, BackgroundFlag) {
  CExtRichStyleDescription parent, style;
  CExtRichStyleRule rule;
  rule.m_colors[kColorBackground] = 0x112233;
  style.Compute(rule, parent);
  EXPECT_TRUE(style.m_bBackground);
  rule.Reset();
  rule.m_nBackgroundSet = -1;
  style.Compute(rule, parent);
  EXPECT_FALSE(style.m_bBackground);
  EXPECT_EQ(style.m_colors[kColorBackground], -1);
}

TEST(DeepDocuments, NestingDoesNotExhaustTheStack) {
  std::string html;
  for (int i = 0; i < 20000; ++i) html += "<div>";
  CExtRichContentLayout layout;
  EXPECT_FALSE(layout.ParseHtml(html + "x"));
  EXPECT_EQ(layout.ErrorCount(), 20000);  // every div is left open
  CExtRichStyleDescription root;
  layout.ComputeTree(root);
  const CExtRichContentItem* item = layout.Root();
  int depth = 0;
  while (!item->m_children.empty() && item->m_children[0]->m_nKind == kKindTag) {
    item = item->m_children[0];
    ++depth;
  }
  EXPECT_EQ(depth, 20000);
  EXPECT_EQ(item->m_pStyle->m_enums[kDisplay], 1);
}

TEST(StyleText, DifferencesAreNamed) {
  CExtRichStyleDescription reference, style;
  style.m_enums[kDisplay] = 1;
  style.m_colors[kColorText] = 0x0000ff;  // red in the low byte
  style.m_font.lfWeight = 700;
  style.m_strings[kDirection] = "rtl";
  EXPECT_EQ(DescribeStyleDifferences(style, reference),
            (std::vector<std::string>{"font-weight=700", "display=1", "color=#ff0000", "direction=\"rtl\""}));
  EXPECT_STREQ(ItemKindName(kKindRoot), "root");
  EXPECT_STREQ(ItemKindName(kKindLink), "link");
  EXPECT_STREQ(ItemKindName(12), "?");
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
