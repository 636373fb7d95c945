// flow_test.cpp: block and inline flow measured with a fixed width font: line breaking,
// alignment, lists, tables with spans, out-of-flow items, scrolling boxes and rotation.
#include <gtest/gtest.h>

#include "richcontent/layout_fixture.h"

namespace qmk::toolkit::richcontent {
namespace {

using testing::LaidOut;

std::string Page(const std::string& body) { return "<html><body>" + body + "</body></html>"; }

TEST(Flow, EmptyDocumentHasAnEmptyRootBox) {
  LaidOut d("<html></html>");
  ASSERT_NE(d.document.Root(), nullptr);
  EXPECT_EQ(d.Box(d.document.Root()).Height(), 0);
  EXPECT_EQ(d.layout.DocumentHeight(), 0);
}

TEST(Flow, LinesBreakAtSpacesOnly) {
  // Words are 32 pixels, spaces 8.
  const struct {
    int width;
    int bTop, cTop, cLeft;
  } kCases[] = {{200, 0, 0, 80}, {100, 0, 16, 0}, {72, 0, 16, 0}, {71, 16, 32, 0}, {10, 16, 32, 0}};
  for (const auto& c : kCases) {
    LaidOut d(Page("<p>aaaa bbbb cccc</p>"), c.width);
    EXPECT_EQ(d.WordBox("aaaa").top, 0) << c.width;
    EXPECT_EQ(d.WordBox("bbbb").top, c.bTop) << c.width;
    EXPECT_EQ(d.WordBox("cccc").top, c.cTop) << c.width;
    EXPECT_EQ(d.WordBox("cccc").left, c.cLeft) << c.width;
  }
}

TEST(Flow, NoWrapKeepsOneLine) {
  LaidOut d(Page("<p style=\"white-space: nowrap\">aaaa bbbb cccc</p>"), 50);
  EXPECT_EQ(d.WordBox("cccc").top, 0);
  EXPECT_EQ(d.WordBox("cccc").left, 80);
}

TEST(Flow, TextAlignment) {
  // 100 pixels: "aaaa bbbb" (72) on the first line, "cccc dd" (56) on the second.
  const struct {
    const char* align;
    int bLeft, ddLeft;
  } kCases[] = {
      {"left", 40, 40}, {"center", 54, 62}, {"right", 68, 84},
      // justify leaves the block's last line alone; justifywithlastline does not.
      {"justify", 68, 40}, {"justifywithlastline", 68, 84},
  };
  for (const auto& c : kCases) {
    LaidOut d(Page(std::string("<p style=\"text-align: ") + c.align + "\">aaaa bbbb cccc dd</p>"), 100);
    EXPECT_EQ(d.WordBox("bbbb").left, c.bLeft) << c.align;
    EXPECT_EQ(d.WordBox("dd").left, c.ddLeft) << c.align;
  }
}

TEST(Flow, BlocksStackWithTheirBoxSides) {
  LaidOut d(Page("<div id=a style=\"margin: 5px; border: 2px solid red; padding: 3px\">xx</div><div id=b>yy</div>"));
  EXPECT_EQ(d.Box(d.ById("a")), (RichRect{0, 0, 200, 16 + 20}));
  EXPECT_EQ(d.WordBox("xx").left, 10);
  EXPECT_EQ(d.WordBox("xx").top, 10);
  EXPECT_EQ(d.Box(d.ById("b")).top, 36);
  EXPECT_EQ(d.WordBox("yy").top, 36);
}

TEST(Flow, WidthsAndHiddenItems) {
  LaidOut d(Page("<div id=a style=\"width: 50px; height: 40px\">xx</div><div id=n style=\"display: none\">zz</div>"
                 "<div id=p style=\"width: 50%\">yy</div>"));
  EXPECT_EQ(d.Box(d.ById("a")), (RichRect{0, 0, 50, 40}));
  EXPECT_TRUE(d.Box(d.ById("n")).IsEmpty());
  EXPECT_EQ(d.Box(d.ById("p")), (RichRect{0, 40, 100, 56}));
}

TEST(Flow, BreakElementEndsTheLine) {
  LaidOut d(Page("<p>aa<br>bb<br><br>cc</p>"));
  EXPECT_EQ(d.WordBox("aa").top, 0);
  EXPECT_EQ(d.WordBox("bb").top, 16);
  EXPECT_EQ(d.WordBox("cc").top, 48);
}

TEST(Flow, InlineElementsCoverTheirWords) {
  LaidOut d(Page("<p>aa <span id=s>bb cc</span> dd</p>"));
  EXPECT_EQ(d.Box(d.ById("s")), (RichRect{24, 0, 64, 16}));
}

TEST(Flow, ListMarkersCountAndTakeValues) {
  LaidOut d(Page("<ol><li id=a>x</li><li id=b value=7>y</li><li id=c>z</li></ol><ul><li id=d>w</li></ul>"));
  const struct {
    const char* id;
    const char* marker;
  } kCases[] = {{"a", "1.  "}, {"b", "7.  "}, {"c", "8.  "}, {"d", ""}};
  for (const auto& c : kCases) {
    const RichItemBox* b = d.layout.BoxOf(d.ById(c.id));
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->marker, c.marker) << c.id;
    EXPECT_FALSE(b->markerBox.IsEmpty()) << c.id;
    EXPECT_LE(b->markerBox.right, b->content.left) << c.id;
    // Texts start on the first line; bullets are centred on it.
    const RichRect line = d.Box(d.ById(c.id)->m_children.front());
    EXPECT_GE(b->markerBox.top, line.top) << c.id;
    EXPECT_LE(b->markerBox.bottom, line.bottom) << c.id;
    if (*c.marker) {
      EXPECT_EQ(b->markerBox.top, line.top) << c.id;
    }
  }
  EXPECT_EQ(d.layout.BoxOf(d.ById("d"))->markerType, 2);  // a disc
}

TEST(Flow, TableWithSpans) {
  // Columns of "aaaa" (32) and "bb" (16); the spanning cell "cccccccccc" (80, less one gap of 2)
  // widens them by 15 each.
  LaidOut d(Page("<table id=t style=\"border-spacing: 2px\">"
                 "<tr><td id=a>aaaa</td><td id=b rowspan=2>bb</td></tr>"
                 "<tr><td id=c>c1<br>c2<br>c3</td></tr>"
                 "<tr><td id=w colspan=2>cccccccccc</td></tr></table>"), 300);
  const CExtRichTableLayout* t = d.layout.TableOf(d.ById("t"));
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(t->RowCount(), 3);
  EXPECT_EQ(t->ColumnCount(), 2);
  EXPECT_EQ(t->m_columnWidths[1], (std::vector<int32_t>{47, 31}));
  EXPECT_EQ(t->m_sizes, (std::vector<int32_t>{16, 48, 16}));
  EXPECT_EQ(d.Box(d.ById("a")), (RichRect{2, 2, 49, 18}));
  EXPECT_EQ(d.Box(d.ById("b")), (RichRect{51, 2, 82, 2 + 16 + 2 + 48}));
  EXPECT_EQ(d.Box(d.ById("w")), (RichRect{2, 70, 82, 86}));
  EXPECT_EQ(d.Box(d.ById("t")), (RichRect{0, 0, 84, 88}));
}

TEST(Flow, TableWithoutRowsHasNoGap) {
  LaidOut d(Page("<table id=t style=\"border-spacing: 5px\"></table>"));
  EXPECT_EQ(d.Box(d.ById("t")).Height(), 0);
}

TEST(Flow, OutOfFlowItemsAreArrangedAfterTheTree) {
  LaidOut d(Page("<p>aa</p><div id=abs style=\"position: absolute; left: 30px; top: 40px; width: 20px\">x</div>"
                 "<div id=fl style=\"float: right; width: 20px\">y</div><p>bb</p>"));
  ASSERT_EQ(d.layout.OutOfFlow().size(), 2u);
  EXPECT_EQ(d.Box(d.ById("abs")), (RichRect{30, 40, 50, 56}));
  EXPECT_EQ(d.Box(d.ById("fl")), (RichRect{180, 16, 200, 32}));
  EXPECT_EQ(d.WordBox("bb").top, 16);  // the flow closes over them
}

TEST(Flow, RelativeItemsMoveAfterTheirPlace) {
  LaidOut d(Page("<div id=r style=\"position: relative; left: -5px; top: 7px\">x</div><p>y</p>"));
  EXPECT_EQ(d.Box(d.ById("r")), (RichRect{-5, 7, 195, 23}));
  EXPECT_EQ(d.WordBox("y").top, 16);
}

TEST(Flow, ScrollingBoxes) {
  LaidOut d(Page("<div id=s style=\"overflow: auto; height: 30px\">a<br>b<br>c<br>d</div>"
                 "<div id=h style=\"overflow: hidden; height: 20px\">a<br>b</div>"));
  RichItemBox* s = d.layout.BoxOf(d.ById("s"));
  ASSERT_NE(s, nullptr);
  EXPECT_TRUE(s->barV);
  EXPECT_FALSE(s->barH);
  EXPECT_EQ(s->content.right, 200 - RichDocumentLayout::kScrollBarSize);
  EXPECT_EQ(s->extentHeight, 64);
  EXPECT_TRUE(d.layout.ScrollTo(*d.ById("s"), 0, 500));
  EXPECT_EQ(s->scrollY, 34);  // clamped to the extent less the view
  EXPECT_FALSE(d.layout.ScrollTo(*d.ById("s"), 0, 34));
  const RichItemBox* h = d.layout.BoxOf(d.ById("h"));
  EXPECT_FALSE(h->barV || h->barH);
}

TEST(Flow, DockedChildrenTakeTheSidesInOrder) {
  LaidOut d(Page("<div style=\"height: 100px\">"
                 "<div id=t style=\"display: ui-dock; ui-dock: top; height: 10px\"></div>"
                 "<div id=r style=\"display: ui-dock; ui-dock: right; width: 20px\"></div>"
                 "<div id=b style=\"display: ui-dock; ui-dock: bottom; height: 10px\"></div>"
                 "<div id=f style=\"display: ui-dock; ui-dock: fill\"></div>"
                 "<div id=l style=\"display: ui-dock; ui-dock: pre-left; width: 30px\"></div>ww</div>"));
  const struct {
    const char* id;
    RichRect box;
  } kCases[] = {{"l", {0, 0, 30, 100}},    // a "pre-" side goes first: the whole height
                {"t", {30, 0, 200, 10}},   {"r", {180, 10, 200, 100}},
                {"b", {30, 90, 180, 100}}, {"f", {30, 10, 180, 90}}};
  for (const auto& c : kCases) EXPECT_EQ(d.Box(d.ById(c.id)), c.box) << c.id;
  EXPECT_EQ(d.WordBox("ww").left, 30);
  EXPECT_EQ(d.WordBox("ww").top, 10);
}

TEST(Flow, TurnedDocumentsUseTheTurnedPage) {
  LaidOut upright(Page("<p id=p>aa</p>"), 300, 0);
  LaidOut turned(Page("<p id=p>aa</p>"), 300, 90);  // the client is 300 x 1000
  EXPECT_EQ(upright.Box(upright.ById("p")).Width(), 300);
  EXPECT_EQ(turned.Box(turned.ById("p")).Width(), 1000);
  EXPECT_EQ(turned.layout.Client(), (RichRect{0, 0, 300, 1000}));  // given back afterwards
}

TEST(Flow, DeepNestingDoesNotExhaustTheStack) {
  std::string html = "<html><body>";
  for (int i = 0; i < 3000; ++i) html += "<div>";
  html += "x";
  LaidOut d(html);
  EXPECT_GE(d.layout.DocumentHeight(), 0);
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
