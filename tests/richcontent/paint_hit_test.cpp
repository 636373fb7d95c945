// paint_hit_test.cpp: border styles pixel by pixel, the delayed painting lists, hit testing
// through scroll bars, the ancestor clipping test and focus side effects.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "richcontent/layout_fixture.h"
#include "toolkit/richcontent/border_painter.h"
#include "toolkit/richcontent/hit_test.h"
#include "toolkit/richcontent/painter.h"

namespace qmk::toolkit::richcontent {
namespace {

using testing::LaidOut;

constexpr uint32_t kWhite = 0xFFFFFFFFu;
constexpr int32_t kGrey = 0x808080;  // red in the low byte

uint32_t Rgb(uint32_t pixel) { return pixel & 0xFFFFFFu; }

struct BorderCase {
  const char* name;
  BorderSide side;
  int style, width;
  int neighbour;  // the width of the other sides
  int x, y;       // a pixel of the 40 x 40 box
  int expected;   // -1 untouched (white), 0 the colour, -25 darker, 25 lighter
};

TEST(Borders, StylesPixelByPixel) {
  const BorderCase kCases[] = {
      {"solid", kSideTop, kBorderSolid, 4, 4, 20, 3, 0},
      {"double of 2 is solid", kSideTop, kBorderDouble, 2, 2, 20, 1, 0},
      {"double outer third", kSideTop, kBorderDouble, 6, 6, 20, 1, 0},
      {"double gap", kSideTop, kBorderDouble, 6, 6, 20, 3, -1},
      {"double inner third", kSideTop, kBorderDouble, 6, 6, 20, 5, 0},
      {"ridge of 1 is solid", kSideTop, kBorderRidge, 1, 1, 20, 0, 0},
      {"groove of 1 is solid", kSideLeft, kBorderGroove, 1, 1, 0, 20, 0},
      {"groove top outer half", kSideTop, kBorderGroove, 4, 4, 20, 0, -25},
      {"groove top inner half", kSideTop, kBorderGroove, 4, 4, 20, 3, 25},
      {"groove bottom outer half", kSideBottom, kBorderGroove, 4, 4, 20, 39, 25},
      {"ridge top outer half", kSideTop, kBorderRidge, 4, 4, 20, 0, 25},
      {"inset top", kSideTop, kBorderInset, 2, 2, 20, 0, -25},
      {"inset right", kSideRight, kBorderInset, 2, 2, 39, 20, 25},
      {"outset left", kSideLeft, kBorderOutset, 2, 2, 0, 20, 25},
      {"outset bottom", kSideBottom, kBorderOutset, 2, 2, 20, 39, -25},
      {"dotted piece", kSideTop, kBorderDotted, 2, 2, 9, 0, 0},
      {"dotted gap", kSideTop, kBorderDotted, 2, 2, 11, 0, -1},
      {"dashed piece", kSideTop, kBorderDashed, 2, 2, 14, 0, 0},
      {"dashed gap", kSideTop, kBorderDashed, 2, 2, 20, 0, -1},
      {"dotted left from the bottom", kSideLeft, kBorderDotted, 2, 2, 0, 38, 0},
      {"dotted left gap", kSideLeft, kBorderDotted, 2, 2, 0, 37, -1},
      {"mitre leaves the corner to the neighbour", kSideTop, kBorderSolid, 4, 4, 0, 3, -1},
      {"mitre keeps the outer corner", kSideTop, kBorderSolid, 4, 4, 1, 0, 0},
      {"no neighbour, straight end", kSideTop, kBorderSolid, 4, 0, 0, 3, 0},
  };
  for (const BorderCase& c : kCases) {
    platform::DrawTarget target(40, 40);
    target.FillRect({0, 0, 40, 40}, kWhite);
    const RichRect outer{0, 0, 40, 40};
    RichRect inner{c.neighbour, c.neighbour, 40 - c.neighbour, 40 - c.neighbour};
    if (c.side == kSideTop) inner.top = c.width;
    if (c.side == kSideBottom) inner.bottom = 40 - c.width;
    if (c.side == kSideLeft) inner.left = c.width;
    if (c.side == kSideRight) inner.right = 40 - c.width;
    EXPECT_TRUE(DrawBorderSide(target, outer, inner, c.side, {c.style, kGrey, c.width})) << c.name;
    uint32_t expected = 0xFFFFFF;
    if (c.expected == 0) expected = kGrey;
    if (c.expected == -25) expected = ChangeLightness(kGrey, -0.25);
    if (c.expected == 25) expected = ChangeLightness(kGrey, 0.25);
    EXPECT_EQ(Rgb(target.GetPixel(c.x, c.y)), expected) << c.name;
  }
}

TEST(Borders, SkippedSides) {
  platform::DrawTarget target(10, 10);
  const RichRect outer{0, 0, 10, 10}, inner{2, 2, 8, 8};
  EXPECT_FALSE(DrawBorderSide(target, outer, inner, kSideTop, {kBorderNone, kGrey, 2}));
  EXPECT_FALSE(DrawBorderSide(target, outer, inner, kSideTop, {kBorderSolid, -1, 2}));
  EXPECT_FALSE(DrawBorderSide(target, outer, inner, kSideTop, {kBorderSolid, kGrey, 0}));
  EXPECT_EQ(target.GetPixel(5, 0) >> 24, 0u);  // nothing drawn
}

uint32_t PixelOf(LaidOut& d, int width, int height, int x, int y) {
  platform::DrawTarget target(width, height);
  target.FillRect({0, 0, width, height}, kWhite);
  RichContentPainter(d.layout, target).PaintDocument();
  return Rgb(target.GetPixel(x, y));
}

TEST(Painting, DelayedDrawOrder) {
  // Pixels read back with red in the low byte.
  constexpr uint32_t kRed = 0x0000FF, kBlue = 0xFF0000, kPage = 0xFFFFFF;
  // Block b is moved up over a's lower half; a's delay decides which shows there.
  const struct {
    const char* delay;
    uint32_t at5, at15;
  } kCases[] = {
      {"0", kRed, kBlue},   // painted in order: b covers a
      {"4", kRed, kRed},    // a painted after all others
      {"3", kRed, kRed},    // a on the first list, still after the tree
      {"2", kRed, kRed},    // a after its siblings
      {"1", kPage, kBlue},  // never painted by the walk
  };
  for (const auto& c : kCases) {
    LaidOut d(std::string("<html><body><div style=\"height: 20px; background-color: #ff0000; ui-delayed-draw: ") +
              c.delay + "\"></div><div style=\"height: 20px; background-color: #0000ff; position: relative; "
              "top: -10px\"></div></body></html>", 40);
    EXPECT_EQ(PixelOf(d, 40, 40, 5, 5), c.at5) << c.delay;
    EXPECT_EQ(PixelOf(d, 40, 40, 5, 15), c.at15) << c.delay;
  }
}

TEST(Painting, ScrolledContentIsClippedToItsBox) {
  LaidOut d("<html><body><div id=s style=\"overflow: auto; height: 20px\"><div style=\"height: 15px\"></div>"
            "<div style=\"height: 30px; background-color: #00ff00\"></div></div>"
            "<div style=\"height: 20px\"></div></body></html>", 60);
  EXPECT_EQ(PixelOf(d, 60, 60, 5, 17), 0x00FF00u);
  EXPECT_EQ(PixelOf(d, 60, 60, 5, 25), 0xFFFFFFu);  // below the box: clipped away
  d.layout.ScrollTo(*d.ById("s"), 0, 10);
  EXPECT_EQ(PixelOf(d, 60, 60, 5, 7), 0x00FF00u);
}

// A long document is painted a window at a time: every window must show what the whole page
// shows there, though items wholly outside the window are passed over.
TEST(Painting, WindowsShowWhatTheWholePageShows) {
  std::string body;
  for (int i = 0; i < 12; ++i)
    body += "<ul><li style=\"color: #c00000\">item " + std::to_string(i) + "</li></ul>"
            "<p style=\"outline: 3px solid #00a000; margin: 4px\">one <span style=\"color: #0000c0\">one</span> two</p>";
  LaidOut d("<html><body>" + body + "</body></html>", 120);
  const int height = d.layout.DocumentHeight();
  ASSERT_GT(height, 200);
  platform::DrawTarget whole(120, height);
  whole.FillRect({0, 0, 120, height}, kWhite);
  RichContentPainter(d.layout, whole).PaintDocument();
  platform::DrawTarget window(120, 50);
  RichContentPainter painter(d.layout, window);
  for (int top = 0; top < height; top += 37) {  // windows that cut through lines and boxes
    window.FillRect({0, 0, 120, 50}, kWhite);
    painter.PaintDocument(0, -top);
    for (int y = 0; y < 50 && top + y < height; ++y)
      for (int x = 0; x < 120; ++x)
        ASSERT_EQ(window.GetPixel(x, y), whole.GetPixel(x, top + y)) << x << "," << top + y;
  }
}

TEST(Painting, TheSameWordInAnotherColourIsDrawnInItsOwn) {
  LaidOut d("<html><body><span style=\"color: #ff0000\">mmmm</span> <span style=\"color: #0000ff\">mmmm</span></body></html>", 200);
  platform::DrawTarget target(200, 40);
  target.FillRect({0, 0, 200, 40}, kWhite);
  RichContentPainter(d.layout, target).PaintDocument();
  std::vector<const CExtRichContentItem*> words;
  for (const CExtRichContentItem* item : d.document.Items())
    if (item->m_nKind == kKindWord) words.push_back(item);
  ASSERT_EQ(words.size(), 2u);
  // The strongest ink of each word: red in the low byte, blue in the third.
  for (size_t w = 0; w < 2; ++w) {
    const RichRect box = d.Box(words[w]);
    int red = 0, blue = 0;
    for (int y = box.top; y < box.bottom; ++y)
      for (int x = box.left; x < box.right; ++x) {
        const uint32_t p = target.GetPixel(x, y);
        red = std::max(red, static_cast<int>(p & 0xFF) - static_cast<int>((p >> 16) & 0xFF));
        blue = std::max(blue, static_cast<int>((p >> 16) & 0xFF) - static_cast<int>(p & 0xFF));
      }
    EXPECT_GT(w == 0 ? red : blue, 100) << w;
    EXPECT_EQ(w == 0 ? blue : red, 0) << w;
  }
}

TEST(HitTesting, FindsTheInnermostItem) {
  LaidOut d("<html><body><div id=a style=\"padding: 10px\"><span id=s>word</span></div>"
            "<div id=abs style=\"position: absolute; left: 0px; top: 0px; width: 5px; height: 5px\"></div></body></html>");
  const struct {
    int x, y;
    const char* id;  // null: nothing
  } kCases[] = {{12, 12, "s"}, {5, 5, "a"}, {2, 2, "abs"}, {150, 10, "a"}, {5, 200, nullptr}};
  for (const auto& c : kCases) {
    RichHitTestRecord record;
    record.x = c.x;
    record.y = c.y;
    const bool found = HitTest(d.layout, record);
    EXPECT_EQ(found, c.id != nullptr) << c.x << "," << c.y;
    if (c.id && found) {
      EXPECT_EQ(record.Found()->m_strId, c.id) << c.x << "," << c.y;
    }
  }
}

TEST(HitTesting, AScrollBarNeverReachesTheChildren) {
  LaidOut d("<html><body><div id=s style=\"overflow: scroll; height: 40px; ui-sb-type: pop-over-light\">"
            "<div id=c style=\"height: 100px; width: 300px\"></div></div></body></html>");
  const RichItemBox* s = d.layout.BoxOf(d.ById("s"));
  ASSERT_TRUE(s && s->barV);
  RichHitTestRecord onBar{s->content.right + 2, 10, {}};
  ASSERT_TRUE(HitTest(d.layout, onBar));
  EXPECT_EQ(onBar.Found()->m_strId, "s");
  RichHitTestRecord inside{10, 10, {}};
  ASSERT_TRUE(HitTest(d.layout, inside));
  EXPECT_EQ(inside.Found()->m_strId, "c");
  // Scrolled down 60, a point 5 below the box's top reaches the child at 65.
  d.layout.ScrollTo(*d.ById("s"), 0, 60);
  RichHitTestRecord scrolled{10, 5, {}};
  ASSERT_TRUE(HitTest(d.layout, scrolled));
  EXPECT_EQ(scrolled.Found()->m_strId, "c");
}

TEST(Clipping, VisibleInsideScrolledAncestors) {
  LaidOut d("<html><body><div id=s style=\"overflow: auto; height: 30px\"><div id=a style=\"height: 20px\"></div>"
            "<div id=b style=\"height: 20px\"></div><div id=c style=\"height: 20px\"></div></div></body></html>");
  EXPECT_TRUE(IsVisibleInAncestors(d.layout, *d.ById("a"), false));
  EXPECT_FALSE(IsVisibleInAncestors(d.layout, *d.ById("b"), false));  // half out
  EXPECT_TRUE(IsVisibleInAncestors(d.layout, *d.ById("b"), true));
  EXPECT_FALSE(IsVisibleInAncestors(d.layout, *d.ById("c"), true));
  d.layout.ScrollTo(*d.ById("s"), 0, 40);
  EXPECT_TRUE(IsVisibleInAncestors(d.layout, *d.ById("c"), false));
  EXPECT_FALSE(IsVisibleInAncestors(d.layout, *d.ById("a"), true));
}

struct Recorder : RichFocusEvents, CExtRichContentEvents {
  void OnFocusGained(CExtRichContentItem& item) override { log += "+" + item.m_strId; }
  void OnFocusLost(CExtRichContentItem& item) override { log += "-" + item.m_strId; }
  bool OnQueryItemState(CExtRichContentItem&, const PseudoStateSet&, int32_t) override { return refuse; }
  std::string log;
  bool refuse = false;
};

TEST(Focus, SideEffectsThenSinks) {
  LaidOut d("<html><head><style>.r { ui-focus-on-make-selected: yes; ui-focus-on-make-unselected-sibling: yes; "
            "ui-focus-off-make-unselected: yes; ui-focus-ensure-visibility: yes }</style></head><body>"
            "<div id=s style=\"overflow: auto; height: 20px\"><p id=a class=r name=g>a</p><p id=b class=r name=G>b</p>"
            "<p id=c class=r name=h>c</p><p id=e class=r name=g>e</p></div></body></html>");
  Recorder sink;
  const std::vector<RichFocusEvents*> sinks{&sink};
  CExtRichContentItem* a = d.ById("a");
  ItemFocusGained(d.layout, *d.ById("c"), sinks);
  ItemFocusGained(d.layout, *a, sinks);
  EXPECT_EQ(a->m_state.m_fields[kPseudoSelection], 2);
  ItemFocusGained(d.layout, *d.ById("b"), sinks);  // the same name without case: a loses it
  EXPECT_EQ(a->m_state.m_fields[kPseudoSelection], 0);
  EXPECT_EQ(d.ById("c")->m_state.m_fields[kPseudoSelection], 2);  // another name keeps it
  ItemFocusGained(d.layout, *d.ById("e"), sinks);  // scrolled into view
  EXPECT_EQ(d.layout.BoxOf(d.ById("s"))->scrollY, 48 - 4);
  ItemFocusLost(d.layout, *d.ById("e"), sinks);
  EXPECT_EQ(d.ById("e")->m_state.m_fields[kPseudoSelection], 0);
  EXPECT_EQ(sink.log, "+c+a+b+e-e");
  // A sink that answers the state query keeps the state from changing.
  sink.refuse = true;
  d.document.AddSink(&sink);
  ItemFocusGained(d.layout, *a, sinks);
  EXPECT_EQ(a->m_state.m_fields[kPseudoSelection], 0);
  d.document.RemoveSink(&sink);
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
