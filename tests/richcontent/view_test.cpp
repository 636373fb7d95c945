// view_test.cpp: the rich content control's view: the form it reads, the bar it shows when the
// document is taller than the control, scrolling by clicks and by position, hit tests through
// the scroll position, and the scroll bar parts placed by the theme.
#include <gtest/gtest.h>

#include <string>

#include "richcontent/layout_fixture.h"
#include "toolkit/richcontent/rich_content_view.h"

namespace qmk::toolkit::richcontent {
namespace {

// Forty paragraphs of 16 pixels: 640 pixels of document.
std::string LongDocument() {
  std::string html = "<html><body style=\"margin: 0\">";
  for (int i = 0; i < 40; ++i) html += "<p id=p" + std::to_string(i) + ">line" + std::to_string(i) + "</p>";
  return html + "</body></html>";
}

class ViewTest : public ::testing::Test {
 protected:
  testing::FixedMeasurer measurer;
  RichContentView view{&measurer};
};

TEST_F(ViewTest, ReadsMarkupOrPlainTextByTheFirstCharacter) {
  view.Resize(200, 100);
  view.SetText("  <b>bold</b>");
  EXPECT_EQ(view.Document().Form(), kFormHtml) << "markup needn't start with <html in the control";
  view.SetText("a < b & c");
  EXPECT_EQ(view.Document().Form(), kFormPlain);
  EXPECT_FALSE(view.HasBar());
}

TEST_F(ViewTest, ATallDocumentGetsTheBarAndScrollsWithinItsHeight) {
  view.Resize(200, 100);
  view.SetText(LongDocument());
  ASSERT_TRUE(view.HasBar());
  EXPECT_EQ(view.DocumentHeight(), 640);
  EXPECT_EQ(view.MaxScroll(), 540);
  EXPECT_FALSE(view.ScrollTo(-5)) << "already at the top";
  EXPECT_TRUE(view.ScrollTo(10000));
  EXPECT_EQ(view.ScrollPosition(), 540);
  // The document was laid out in the room the bar leaves.
  const RichItemBox* first = view.Layout().BoxOf(view.Document().Root());
  ASSERT_NE(first, nullptr);
  EXPECT_LE(first->box.right, 200 - RichContentView::kBarWidth);
  // Growing the control past the document takes the bar away and the view back to the top.
  view.Resize(200, 700);
  EXPECT_FALSE(view.HasBar());
  EXPECT_EQ(view.ScrollPosition(), 0);
}

TEST_F(ViewTest, ClicksOnTheBarScrollALineOrAPage) {
  view.Resize(200, 100);
  view.SetText(LongDocument());
  const ScrollBarParts parts = view.BarParts();
  ASSERT_FALSE(parts.thumb.IsEmpty());
  EXPECT_TRUE(view.ClickBar(parts.arrowHigh.left + 1, parts.arrowHigh.top + 1));
  EXPECT_EQ(view.ScrollPosition(), RichContentView::kLineStep);
  EXPECT_TRUE(view.ClickBar(parts.arrowHigh.left + 1, parts.arrowHigh.top - 2)) << "the track below the thumb";
  EXPECT_EQ(view.ScrollPosition(), RichContentView::kLineStep + 100);
  const ScrollBarParts moved = view.BarParts();
  EXPECT_GT(moved.thumb.top, parts.thumb.top) << "the thumb follows the position";
  EXPECT_TRUE(view.ClickBar(moved.arrowLow.left + 1, moved.arrowLow.top + 1));
  EXPECT_EQ(view.ScrollPosition(), 100);
  EXPECT_FALSE(view.ClickBar(5, 5)) << "the document is not the bar";
}

TEST_F(ViewTest, HitTestsFollowTheScrollPosition) {
  view.Resize(200, 100);
  view.SetText(LongDocument());
  CExtRichContentItem* top = view.ItemAt(4, 4);
  ASSERT_NE(top, nullptr);
  EXPECT_EQ(top->m_strId, "p0");
  view.ScrollTo(160);
  CExtRichContentItem* below = view.ItemAt(4, 4);
  ASSERT_NE(below, nullptr);
  EXPECT_EQ(below->m_strId, "p10");
  EXPECT_EQ(view.ItemAt(200 - 4, 4), nullptr) << "on the bar";
}

TEST(ScrollBarParts, ThumbShowsTheVisibleShareAtThePosition) {
  const RichRect bar{0, 0, 12, 112};
  const ScrollBarParts top = ScrollBarPartsAt(bar, true, 400, 100, 0);
  const ScrollBarParts end = ScrollBarPartsAt(bar, true, 400, 100, 300);
  EXPECT_EQ(top.arrowLow.top, 0);
  EXPECT_EQ(top.arrowHigh.bottom, 112);
  EXPECT_EQ(top.thumb.top, top.arrowLow.bottom);
  EXPECT_EQ(top.thumb.Height(), (112 - top.arrowLow.Height() - top.arrowHigh.Height()) / 4);
  EXPECT_EQ(end.thumb.bottom, end.arrowHigh.top);
  // Nothing to scroll: the theme is told the bar is disabled and gives no thumb.
  EXPECT_TRUE(ScrollBarPartsAt(bar, true, 50, 100, 0).thumb.IsEmpty());
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
