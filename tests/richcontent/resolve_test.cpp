// resolve_test.cpp: entities, colours and lengths at the edges of their tables and rules.
#include <gtest/gtest.h>

#include <string>

#include "richcontent/tree_text.h"
#include "toolkit/richcontent/resolve.h"

namespace qmk::toolkit::richcontent {
namespace {

constexpr int32_t Rgb(int r, int g, int b) { return r | g << 8 | b << 16; }

TEST(Entities, TableRowsAndNumbers) {
  struct Case {
    const char* name;
    int code;
  };
  const Case cases[] = {
      {"quot", 34}, {"apos", 39}, {"amp", 38}, {"lt", 60}, {"gt", 62}, {"nbsp", 160},
      {"iquest", 191}, {"times", 215}, {"szlig", 223}, {"divide", 247}, {"yuml", 255},
      // The upper-case Latin-1 rows are spelled in lower case and overwritten by the
      // lower-case letters: "agrave" is 224 and "Agrave" is unknown.
      {"agrave", 224}, {"aelig", 230}, {"eth", 240}, {"thorn", 254}, {"yacute", 253},
      {"Agrave", 0}, {"THORN", 0}, {"ETH", 0},
      {"AMP", 0},  // names are case-sensitive
      {"OElig", 338}, {"Yuml", 376}, {"euro", 8364}, {"forall", 8704}, {"Alpha", 913},
      {"Xi", 926}, {"thetasym", 977}, {"piv", 982}, {"diams", 9830},
      {"#65", 65}, {"#x41", 65}, {"#X41", 65}, {"x41", 65},
      // "xi" is read as hexadecimal first and reaches the table only because "i" is not a digit.
      {"xi", 958}, {"xa", 10},
      {"#0", 0}, {"", 0}, {"nosuch", 0},
  };
  for (const Case& c : cases) EXPECT_EQ(ResolveEntity(c.name), c.code) << c.name;
}

TEST(Entities, TableHas241RowsAndLeavesOutTheInvisibleAndLetterLikeOnes) {
  // 96 Latin-1 rows (30 of them spelled twice) and 145 others.
  EXPECT_EQ(EntityRowCount(), 241u);
  for (const char* name : {"ensp", "emsp", "thinsp", "zwnj", "zwj", "lrm", "rlm", "image",
                           "weierp", "real", "trade", "alefsym"})
    EXPECT_EQ(ResolveEntity(name), 0) << name;
  // Every upper-case Latin-1 letter row is overwritten: none of the 30 names keeps its capital.
  const char* doubled[] = {"agrave", "aacute", "acirc", "atilde", "auml", "aring", "aelig",
                           "ccedil", "egrave", "eacute", "ecirc", "euml", "igrave", "iacute",
                           "icirc", "iuml", "eth", "ntilde", "ograve", "oacute", "ocirc",
                           "otilde", "ouml", "oslash", "ugrave", "uacute", "ucirc", "uuml",
                           "yacute", "thorn"};
  for (const char* name : doubled) {
    EXPECT_GE(ResolveEntity(name), 224) << name;
    std::string capital = name;
    capital[0] = static_cast<char>(capital[0] - 'a' + 'A');
    EXPECT_EQ(ResolveEntity(capital), 0) << capital;
  }
  // Neighbours of the left-out ones stay.
  EXPECT_EQ(ResolveEntity("rsaquo"), 8250);
  EXPECT_EQ(ResolveEntity("frasl"), 8260);
  EXPECT_EQ(ResolveEntity("larr"), 8592);
}

TEST(Entities, InTextAreOneByteAndUnknownStayLiteral) {
  CExtRichContentLayout layout;
  ASSERT_TRUE(layout.ParseHtml("&euro;|&Agrave;|&agrave;|&lt;b&gt;|&#65;"));
  // The euro sign is 8364; its low eight bits are 0xAC.
  EXPECT_EQ(testing::TreeText(layout.Root()), "\xAC|&Agrave;|\xE0|<b>|A");
}

TEST(Entities, AmpersandWithoutSemicolonLosesTheName) {
  CExtRichContentLayout layout;
  ASSERT_TRUE(layout.ParseHtml("x&amp y &copy"));
  std::string words;
  for (const CExtRichContentItem* item : layout.Root()->m_children)
    if (item->m_nKind == kKindWord) words += "[" + item->m_strName + "]";
  EXPECT_EQ(words, "[x][y]");
}

TEST(Colors, Forms) {
  const int32_t kDefault = 0x123456;
  struct Case {
    const char* text;
    int32_t color;
  };
  const Case cases[] = {
      {"#ff0000", Rgb(255, 0, 0)},
      {"#FF8000", Rgb(255, 128, 0)},
      // "#rgb" has no doubling.
      {"#ff0", Rgb(255, 0, 0)},
      {"#abc", Rgb(0xab, 0xc0, 0)},
      {"#12345678", Rgb(0x12, 0x34, 0x56)},
      {"#zz0000", Rgb(0, 0, 0)},
      {"rgb(255,0,0)", Rgb(255, 0, 0)},
      {"rgb(100%, 50%, 0%)", Rgb(255, 128, 0)},
      {"rgb(300,-5,7)", Rgb(255, 0, 7)},
      {"rgb(1;2;3)", Rgb(1, 2, 3)},
      {"rgb(10 20 30)", kDefault},  // no separator
      {"hsl(0,100%,50%)", Rgb(255, 0, 0)},
      {"hsl(240,100%,50%)", Rgb(0, 0, 255)},
      {"hsl(0,100%,50)", kDefault},  // one "%" only: read as a name
      {"RED", Rgb(255, 0, 0)},
      {" r e d ", Rgb(255, 0, 0)},
      {"navyblue", Rgb(0, 0, 128)},
      {"yellowgreen", Rgb(0x9a, 0xcd, 0x32)},
      // System colour names never match the lower-cased text.
      {"ButtonFace", kDefault},
      {"buttonface", kDefault},
      {"", kDefault},
      {"nosuchcolour", kDefault},
  };
  for (const Case& c : cases) EXPECT_EQ(ResolveColor(c.text, kDefault), c.color) << c.text;
}

TEST(Lengths, UnitsAndRounding) {
  SetDisplayDpi(96, 96);
  CExtRichFontDescription font;
  font.lfHeight = -13;
  struct Case {
    const char* text;
    int px;
  };
  const int kDefault = -77;
  const Case cases[] = {
      {"12px", 12}, {"-5px", -5}, {"1.9px", 1}, {" 7 px", 7},
      {"12pt", 16}, {"-1pt", kDefault}, {"1in", 96}, {"2.54cm", 96}, {"25.4mm", 96},
      {"1pc", 16},
      {"1em", 13}, {"1.5em", 20}, {"1.4em", 18}, {"2__qem", 26},
      {"7ex", 7},  // one ex is one pixel
      {"3pxem", 3},  // the first unit of the search order wins
      {"12", 12}, {"-12", kDefault},
      {"thin", kDefault}, {"MEDIUM", kDefault}, {"thick", kDefault}, {"", kDefault},
  };
  for (const Case& c : cases) EXPECT_EQ(ResolveLength(c.text, true, &font, kDefault), c.px) << c.text;
  EXPECT_EQ(ResolveLength(nullptr, true, &font, kDefault), kDefault);
}

TEST(Lengths, PercentAndPlainNumberOutputs) {
  CExtRichFontDescription font;
  font.lfHeight = -13;
  double percent = 9;
  bool isPercent = false, isPlain = true;
  EXPECT_EQ(ResolveLength("50%", true, &font, 0, &percent, &isPercent, &isPlain), 7);
  EXPECT_DOUBLE_EQ(percent, 0.5);
  EXPECT_TRUE(isPercent);
  EXPECT_FALSE(isPlain);
  EXPECT_EQ(ResolveLength("-50%", true, &font, 40, &percent, &isPercent), 40);
  EXPECT_DOUBLE_EQ(percent, 0.4);
  // Allowed negative: the fraction comes through, the pixels are still the default.
  EXPECT_EQ(ResolveLength("-50%", true, &font, 40, &percent, &isPercent, nullptr, true), 40);
  EXPECT_DOUBLE_EQ(percent, -0.5);
  EXPECT_EQ(ResolveLength("-50%", true, &font, 40, nullptr, nullptr, nullptr, true), 40);
  EXPECT_EQ(ResolveLength("-5pt", true, &font, 40, nullptr, nullptr, nullptr, true), 40);
  EXPECT_EQ(ResolveLength("-5px", true, &font, 40, nullptr, nullptr, nullptr, false), -5);
  EXPECT_EQ(ResolveLength("5", true, &font, 0, &percent, &isPercent, &isPlain), 5);
  EXPECT_TRUE(isPlain);
  EXPECT_FALSE(isPercent);
}

TEST(Lengths, DotsPerInchOfTheAxis) {
  SetDisplayDpi(96, 120);
  EXPECT_EQ(ResolveLength("1in", true, nullptr, 0), 96);
  EXPECT_EQ(ResolveLength("1in", false, nullptr, 0), 120);
  SetDisplayDpi(96, 96);
}

TEST(Lengths, RoundingRaisesFromOneHalf) {
  struct Case {
    double x;
    int rounded;
  };
  for (const Case c : {Case{2.5, 3}, {2.49, 2}, {2.0, 2}, {-2.5, -2}, {-2.6, -3}, {0.5, 1}})
    EXPECT_EQ(RoundLength(c.x), c.rounded) << c.x;
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
