// line_rules_test.cpp: the rules that finish a line and size a table, on their own: list marker
// texts, rotation of rectangles, justification, image alignment, cell areas and shares.
#include <gtest/gtest.h>

#include "toolkit/richcontent/line_finish.h"
#include "toolkit/richcontent/scroll_bars.h"
#include "toolkit/richcontent/table_layout.h"

namespace qmk::toolkit::richcontent {
namespace {

TEST(ListMarker, TextsByType) {
  const struct {
    int type, n;
    bool fallback;
    const char* text;
  } kCases[] = {
      {4, 7, false, "7.  "},          {5, 7, false, "07.  "},       {5, 123, false, "123.  "},
      {6, 1, false, "a.  "},          {7, 26, false, "z.  "},       {9, 27, false, "AA.  "},
      {10, 3, false, "C.  "},         {8, 14, false, "xiv.  "},     {11, 1994, false, "MCMXCIV.  "},
      {11, 4000, false, "MMMM.  "},   {11, 3888, false, "MMMDCCCLXXXVIII.  "},
      {11, 4001, false, ""},          {11, 4001, true, "4001.  "},  {11, 0, false, ""},
      {9, 0, true, "0.  "},           {2, 3, true, ""},             {0, 3, true, ""},
  };
  for (const auto& c : kCases)
    EXPECT_EQ(ListMarkerText(c.type, c.n, c.fallback), c.text) << "type " << c.type << " n " << c.n;
}

TEST(RotateRect, TurnsByQuarterTurns) {
  const RichRect r{1, 2, 3, 4};
  const struct {
    int rotation;
    RichRect expected;
  } kCases[] = {{0, {1, 2, 3, 4}}, {90, {4, 1, 2, 3}}, {180, {3, 4, 1, 2}}, {270, {2, 3, 4, 1}}, {45, {1, 2, 3, 4}}};
  for (const auto& c : kCases) EXPECT_EQ(RotateRect(r, c.rotation), c.expected) << c.rotation;
}

// Words of `widths` pixels, one space of 4 pixels between them, from x = 0.
std::vector<LineItem> Line(const std::vector<int>& widths) {
  std::vector<LineItem> line;
  int x = 0;
  for (size_t i = 0; i < widths.size(); ++i) {
    if (i > 0) {
      LineItem space;
      space.kind = 1;
      space.box = {x, 0, x + 4, 10};
      line.push_back(space);
      x += 4;
    }
    LineItem word;
    word.afterSpace = true;
    word.box = {x, 0, x + widths[i], 10};
    line.push_back(word);
    x += widths[i];
  }
  return line;
}

TEST(JustifyLine, SpreadsTheFreeRoomOverTheGaps) {
  const struct {
    std::vector<int> widths;
    int right;
    bool moves;
    std::vector<int> lefts;  // of the words after justifying
  } kCases[] = {
      {{10}, 100, false, {0}},                     // a single word moves nothing
      {{10, 10}, 30, true, {0, 20}},               // free 6: the second word takes it all
      {{10, 10, 10}, 39, true, {0, 15, 29}},       // free 1 over 2 gaps: the rest pixel goes first
      {{10, 10, 10}, 45, true, {0, 18, 35}},       // free 7 over 2 gaps: 3 + 1 first, then 3
      {{10, 10, 10}, 38, false, {0, 14, 28}},      // exactly full
      {{10, 10, 10}, 30, false, {0, 14, 28}},      // overfull: negative free room
  };
  for (const auto& c : kCases) {
    std::vector<LineItem> line = Line(c.widths);
    EXPECT_EQ(JustifyLine(line, c.right), c.moves) << c.right;
    std::vector<int> lefts;
    for (const LineItem& i : line)
      if (i.kind == 0) lefts.push_back(i.box.left);
    EXPECT_EQ(lefts, c.lefts) << c.right;
    // The spaces reach the words they stand before.
    for (size_t k = 1; k + 1 < line.size(); k += 2) EXPECT_EQ(line[k].box.right, line[k + 1].box.left);
  }
}

TEST(JustifyLine, HiddenWordsAreNoOpportunity) {
  std::vector<LineItem> line = Line({10, 10});
  line[2].hidden = true;
  EXPECT_FALSE(JustifyLine(line, 100));
}

LineItem Image(int height, int align) {
  LineItem i;
  i.kind = 2;
  i.image = true;
  i.verticalAlign = align;
  i.box = {0, 100 - height, 10, 100};
  return i;
}

LineItem Word(int height) {
  LineItem i;
  i.box = {0, 100 - height, 10, 100};
  return i;
}

TEST(AlignLine, OnlyBottomImagesChangeNothing) {
  std::vector<LineItem> line{Word(16), Image(40, kAlignBottom), Image(30, kAlignTextBottom)};
  const std::vector<LineItem> before = line;
  EXPECT_EQ(AlignLine(line, 40), 0);
  for (size_t k = 0; k < line.size(); ++k) EXPECT_EQ(line[k].box, before[k].box);
}

TEST(AlignLine, MovesTopMiddleAndTextTopImages) {
  const struct {
    int align, imageHeight, lineHeight;
    int result, imageTop, wordTop;
  } kCases[] = {
      // middle 40 on words 16: a = 12, up = down = 12, L = 40 = line height; the image moves
      // down 12 then up 12, the word up 12.
      {kAlignMiddle, 40, 40, 0, 60, 72},
      // the same on a line of 16: the line must grow to 40, everything moves down 24 first.
      {kAlignMiddle, 40, 16, 40, 84, 96},
      // text-top 30: down = 14, L = 30; the image moves down 14 and up 14.
      {kAlignTextTop, 30, 30, 0, 70, 70},
      // top 30 on a line of 30: up by 30 - 30.
      {kAlignTop, 30, 30, 0, 70, 84},
  };
  for (const auto& c : kCases) {
    std::vector<LineItem> line{Word(16), Image(c.imageHeight, c.align)};
    EXPECT_EQ(AlignLine(line, c.lineHeight), c.result) << c.align;
    EXPECT_EQ(line[1].box.top, c.imageTop) << c.align;
    EXPECT_EQ(line[0].box.top, c.wordTop) << c.align;
  }
}

TEST(TableSums, GapsAndCellAreas) {
  EXPECT_EQ(VerticalGap(5, 0), 0);
  EXPECT_EQ(VerticalGap(5, 3), 20);
  EXPECT_EQ(HorizontalGap(5, 3), 15);
  CExtRichTableLayout t;
  EXPECT_EQ(t.CellAreaOf(0, 0, 0, 0), RichRect{});
  for (int h : {10, 20}) {
    t.push_back(new CExtRichTableRow);
    t.back()->m_nHeight[0] = t.back()->m_nHeight[1] = h;
  }
  t.m_columnWidths[1] = {30, 40, 50};
  t.m_columnWidths[0] = {1, 2, 3};
  t.m_nSpacingX = 2;
  t.m_nSpacingY = 3;
  EXPECT_EQ(t.TotalColumns(), 120);
  EXPECT_EQ(t.TotalColumns(0), 6);
  EXPECT_EQ(t.TotalRows(), 30);
  const struct {
    int r0, r1, c0, c1, mode;
    RichRect expected;
  } kCases[] = {
      {0, 0, 0, 0, 1, {2, 3, 32, 13}},
      {1, 1, 1, 2, 1, {34, 16, 126, 36}},
      {0, 9, 2, 9, 1, {76, 3, 126, 36}},   // past the end: the last row and column
      {1, 0, 0, 0, 1, {}},                 // inverted
      {0, 0, 2, 1, 1, {}},
      {0, 0, 1, 1, 0, {5, 3, 7, 13}},      // the other measuring mode
  };
  for (const auto& c : kCases)
    EXPECT_EQ(t.CellAreaOf(c.r0, c.r1, c.c0, c.c1, c.mode), c.expected) << c.r0 << c.r1 << c.c0 << c.c1;
}

TEST(TableSums, ColumnSharesAndSpreadHeights) {
  const struct {
    std::vector<int> minimum, preferred, percent;
    int available;
    bool fill;
    std::vector<int> expected;
  } kCases[] = {
      {{10, 10}, {30, 50}, {0, 0}, 100, false, {30, 50}},
      {{10, 10}, {30, 50}, {0, 0}, 101, true, {41, 60}},      // 21 extra: 11 then 10
      {{10, 20}, {60, 80}, {0, 0}, 50, false, {20, 30}},      // too narrow: minimums plus 10 each
      {{10, 20}, {60, 80}, {0, 0}, 20, false, {10, 20}},      // not even the minimums fit
      {{10, 10}, {20, 20}, {50, 0}, 100, true, {50, 50}},     // percent column, the other fills
  };
  for (const auto& c : kCases)
    EXPECT_EQ(ShareColumnWidths(c.minimum, c.preferred, c.percent, c.available, c.fill), c.expected) << c.available;

  std::vector<int> heights{10, 10, 10};
  SpreadSpanned(heights, 0, 3, 41);  // 11 missing: 3 each, then one more to the first two
  EXPECT_EQ(heights, (std::vector<int>{14, 14, 13}));
  SpreadSpanned(heights, 1, 2, 20);  // enough already
  EXPECT_EQ(heights, (std::vector<int>{14, 14, 13}));
  SpreadSpanned(heights, 2, 5, 100);  // out of range: ignored
  EXPECT_EQ(heights, (std::vector<int>{14, 14, 13}));
}

TEST(ScrollDrag, LinesClampedAndUnchangedRefused) {
  int position = 5;
  EXPECT_TRUE(DragScrollPosition(5, 30, 10, 0, 10, position));
  EXPECT_EQ(position, 8);
  EXPECT_FALSE(DragScrollPosition(5, 30, 10, 0, 10, position));
  EXPECT_TRUE(DragScrollPosition(5, 1000, 10, 0, 10, position));
  EXPECT_EQ(position, 11);  // clamped to max + 1
  EXPECT_TRUE(DragScrollPosition(5, -1000, 10, 2, 10, position));
  EXPECT_EQ(position, 2);
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
