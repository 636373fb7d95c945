// finish_test.cpp: the properties the layout and painter apply beyond the box model:
// text-transform, letter spacing, "pre" text, captions, fixed table layout, empty cells,
// background transparency and list images; and the sharing of alike styles.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "richcontent/layout_fixture.h"
#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/render.h"
#include "toolkit/richcontent/word_text.h"

namespace qmk::toolkit::richcontent {
namespace {

using testing::LaidOut;

TEST(TextTransform, ChangesOnlyAsciiLetters) {
  struct Case {
    int transform;
    const char* word;
    const char* shown;
  };
  const Case cases[] = {
      {kTransformNone, "miXed", "miXed"},     {kTransformCapitalize, "word", "Word"},
      {kTransformCapitalize, "9lives", "9lives"}, {kTransformUpper, "miXed-1", "MIXED-1"},
      {kTransformLower, "MiXED", "mixed"},    {kTransformUpper, "\xE0z", "\xE0Z"},
  };
  for (const Case& c : cases) {
    CExtRichStyleDescription s;
    s.m_enums[kTextTransform] = c.transform;
    EXPECT_EQ(ShownText(c.word, s), c.shown) << c.word << " " << c.transform;
  }
}

TEST(TextTransform, IsReadFromTheStyleSheet) {
  LaidOut doc("<p style=\"text-transform: capitalize\">two words</p>");
  const CExtRichContentItem* p = doc.Word("two")->m_pParent;
  EXPECT_EQ(ShownText("two", *p->m_pStyle), "Two");
}

TEST(LetterSpacing, WidensEachCharacterAndNeverGoesBelowZero) {
  LaidOut doc("<p><span style=\"letter-spacing: 3px\">abcd</span> <span style=\"letter-spacing: -20px\">ef</span> gh</p>");
  EXPECT_EQ(doc.WordBox("abcd").Width(), 4 * 8 + 4 * 3);
  EXPECT_EQ(doc.WordBox("ef").Width(), 0);
  EXPECT_EQ(doc.WordBox("gh").Width(), 16);
}

TEST(PreText, NewlinesBreakAndBlanksKeepTheirWidth) {
  LaidOut doc("<pre>ab   cd\nef</pre>");
  const RichRect ab = doc.WordBox("ab"), cd = doc.WordBox("cd"), ef = doc.WordBox("ef");
  EXPECT_EQ(cd.left - ab.right, 3 * 8) << "three blanks";
  EXPECT_EQ(ef.top, ab.bottom) << "the newline starts a line";
  EXPECT_EQ(ef.left, ab.left);
}

TEST(PreText, PreWrapKeepsBlanksAndStillWraps) {
  LaidOut kept("<p style=\"white-space: pre-wrap\">ab   cd</p>");
  EXPECT_EQ(kept.WordBox("cd").left - kept.WordBox("ab").right, 3 * 8);
  LaidOut normal("<p>ab   cd</p>");
  EXPECT_EQ(normal.WordBox("cd").left - normal.WordBox("ab").right, 8) << "a run of blanks shows as one";
  LaidOut narrow("<p style=\"white-space: pre-wrap\">abcd efgh</p>", 40);
  EXPECT_EQ(narrow.WordBox("efgh").top, narrow.WordBox("abcd").bottom) << "pre-wrap still breaks lines";
}

// The same paragraph with its "white-space" given by a style element, a style attribute, or
// (for `pre`) the default sheet: newlines, blanks and wrapping must not depend on the source.
std::string WithWhiteSpace(const std::string& value, const std::string& text, int source) {
  if (source == 0) return "<html><head><style>p.w { white-space: " + value + " }</style></head><body><p class=w>" + text + "</p></body></html>";
  return "<html><body><p style=\"white-space: " + value + "\">" + text + "</p></body></html>";
}

TEST(WhiteSpace, BehavesTheSameFromASheetOrAStyleAttribute) {
  struct Case {
    const char* value;
    bool newlineBreaks, blanksKept, wraps;
  };
  const Case cases[] = {{"normal", false, false, true}, {"nowrap", false, false, false}, {"pre", true, true, false},
                        {"pre-line", true, false, true}, {"pre-wrap", true, true, true}};
  for (const Case& c : cases)
    for (int source : {0, 1}) {
      const std::string where = std::string(c.value) + (source == 0 ? " from a sheet" : " from an attribute");
      LaidOut lines(WithWhiteSpace(c.value, "ab   cd\nef", source));
      const RichRect ab = lines.WordBox("ab"), cd = lines.WordBox("cd"), ef = lines.WordBox("ef");
      EXPECT_EQ(cd.left - ab.right, c.blanksKept ? 3 * 8 : 8) << where;
      if (c.newlineBreaks) {
        EXPECT_EQ(ef.top, ab.bottom) << where;
        EXPECT_EQ(ef.left, ab.left) << where;
      } else {
        EXPECT_EQ(ef.top, ab.top) << where;
        EXPECT_EQ(ef.left, cd.right + 8) << where;
      }
      LaidOut narrow(WithWhiteSpace(c.value, "abcd efgh", source), 40);
      EXPECT_EQ(narrow.WordBox("efgh").top, c.wraps ? narrow.WordBox("abcd").bottom : narrow.WordBox("abcd").top) << where;
    }
}

TEST(WhiteSpace, PreFromTheDefaultSheetAndFromASheetLookAlike) {
  LaidOut tag("<pre>ab\n  cd\n\nef</pre>");
  LaidOut sheet(WithWhiteSpace("pre", "ab\n  cd\n\nef", 0));
  for (LaidOut* doc : {&tag, &sheet}) {
    const RichRect ab = doc->WordBox("ab"), cd = doc->WordBox("cd"), ef = doc->WordBox("ef");
    EXPECT_EQ(cd.left - ab.left, 2 * 8) << "the blanks that start a line are kept";
    EXPECT_EQ(cd.top, ab.bottom);
    EXPECT_EQ(ef.top, cd.bottom + 16) << "an empty line keeps its height";
  }
}

TEST(WhiteSpace, IsInheritedFromAnOuterBlock) {
  LaidOut doc("<html><head><style>div.w { white-space: pre-line }</style></head><body>"
              "<div class=w><p>ab\ncd <b>ef\ngh</b></p></div></body></html>");
  EXPECT_EQ(doc.WordBox("cd").top, doc.WordBox("ab").bottom);
  EXPECT_EQ(doc.WordBox("gh").top, doc.WordBox("ef").bottom) << "an inline element's newline ends the line too";
  EXPECT_EQ(doc.WordBox("gh").left, doc.WordBox("ab").left);
}

TEST(WhiteSpace, WrappedLinesOfPreWrapDropTheirLeadingBlank) {
  LaidOut doc(WithWhiteSpace("pre-wrap", "abcd efgh", 1), 40);
  EXPECT_EQ(doc.WordBox("efgh").left, doc.WordBox("abcd").left);
}

TEST(WhiteSpace, TextThatNeverWrapsWidensItsTableCell) {
  LaidOut doc("<html><head><style>td { white-space: nowrap }</style></head><body>"
              "<table style=\"border-spacing: 0\"><tr><td id=a>aaaa bbbb cccc</td></tr></table></body></html>", 60);
  EXPECT_EQ(doc.Box(doc.ById("a")).Width(), 14 * 8);
  EXPECT_EQ(doc.WordBox("cccc").top, doc.WordBox("aaaa").top);
}

TEST(Captions, SitAboveOrBelowTheGridInsideTheTable) {
  LaidOut top("<table style=\"border-spacing: 0\"><caption id=c>title</caption><tr><td id=a>x</td></tr></table>");
  const RichRect caption = top.Box(top.ById("c")), cell = top.Box(top.ById("a"));
  const RichRect table = top.Box(top.ById("c")->m_pParent);
  EXPECT_EQ(caption.top, table.top);
  EXPECT_EQ(cell.top, caption.bottom);
  EXPECT_EQ(table.bottom, cell.bottom);
  // A caption wider than the grid widens the table; the grid stays at the left.
  EXPECT_EQ(caption.Width(), 5 * 8);
  EXPECT_EQ(table.Width(), 5 * 8);
  EXPECT_EQ(cell.Width(), 8);
  EXPECT_EQ(cell.left, table.left);

  LaidOut bottom("<table style=\"border-spacing: 0\"><caption id=c style=\"caption-side: bottom\">title</caption>"
                 "<tr><td id=a>x</td></tr></table>");
  const RichRect under = bottom.Box(bottom.ById("c")), above = bottom.Box(bottom.ById("a"));
  EXPECT_EQ(above.top, bottom.Box(bottom.ById("a")->m_pParent->m_pParent).top);
  EXPECT_EQ(under.top, above.bottom);
}

TEST(FixedTableLayout, ColumnWidthsShareWhatIsLeft) {
  struct Case {
    std::vector<int> declared;
    int available;
    std::vector<int> widths;
  };
  const Case cases[] = {
      {{-1, -1, -1}, 10, {4, 3, 3}},   // the remainder a pixel each to the first ones
      {{10, -1, -1}, 15, {10, 3, 2}},
      {{50, -1}, 30, {50, 0}},         // declared widths are kept even when too wide
      {{5, 6}, 100, {5, 6}},           // nothing open: nothing is widened
      {{}, 40, {}},
  };
  for (const Case& c : cases) EXPECT_EQ(FixedColumnWidths(c.declared, c.available), c.widths) << c.available;
}

TEST(FixedTableLayout, FirstRowDecidesAndContentDoesNotWiden) {
  const std::string cells = "<tr><td id=a style=\"width: 30px\">aaaaaaaaaaaa</td><td id=b>b</td><td id=c>c</td></tr>"
                            "<tr><td>x</td><td>yyyyyyyyyyyyyyyy</td><td>z</td></tr></table>";
  LaidOut fixed("<table style=\"table-layout: fixed; width: 100px; border-spacing: 0\">" + cells);
  EXPECT_EQ(fixed.Box(fixed.ById("a")).Width(), 30);
  EXPECT_EQ(fixed.Box(fixed.ById("b")).Width(), 35);
  EXPECT_EQ(fixed.Box(fixed.ById("c")).Width(), 35);
  LaidOut automatic("<table style=\"width: 100px; border-spacing: 0\">" + cells);
  EXPECT_NE(automatic.Box(automatic.ById("b")).Width(), 35) << "content decides without the fixed layout";
}

// The colour word of a painted pixel, alpha dropped.
uint32_t PixelOf(LaidOut& doc, int x, int y, int width = 200) {
  const auto page = RenderDocument(doc.layout, width);
  return page ? page->GetPixel(x, y) & 0xFFFFFFu : 0xDEADu;
}

TEST(EmptyCells, HideDrawsNoBackgroundForABlankCell) {
  const std::string cell = "<td style=\"background-color: #ff0000; width: 20px; height: 20px; empty-cells: ";
  LaidOut hidden("<table style=\"border-spacing: 0\"><tr>" + cell + "hide\"> </td></tr></table>");
  LaidOut shown("<table style=\"border-spacing: 0\"><tr>" + cell + "show\"> </td></tr></table>");
  LaidOut filled("<table style=\"border-spacing: 0\"><tr>" + cell + "hide\">x</td></tr></table>");
  EXPECT_EQ(PixelOf(hidden, 5, 5), 0xFFFFFFu);
  EXPECT_EQ(PixelOf(shown, 5, 5), 0x0000FFu);
  EXPECT_EQ(PixelOf(filled, 12, 3), 0x0000FFu) << "a cell with content is not empty";
}

TEST(BackgroundTransparency, BlendsTheColourWithWhatIsBelow) {
  struct Case {
    const char* value;
    int blue;  // the blue colour laid over white: red and green show how much white is left
    int whiteLeft;
  };
  const Case cases[] = {{"50%", 255, 127}, {"0%", 255, 255}, {"255", 255, 0}, {"64px", 255, 191}};
  for (const Case& c : cases) {
    LaidOut doc(std::string("<div style=\"height: 10px; background-color: #0000ff; ui-background-transparency: ") +
                c.value + "\"></div>");
    const uint32_t pixel = PixelOf(doc, 4, 4);
    EXPECT_NEAR(static_cast<int>(pixel & 0xFF), c.whiteLeft, 2) << c.value;
    EXPECT_EQ(static_cast<int>((pixel >> 16) & 0xFF), c.blue) << c.value;
  }
}

TEST(ListImages, APictureTheDocumentHoldsStandsForTheMarker) {
  LaidOut doc("<ul style=\"list-style-image: url(dot.bmp); margin-left: 40px\"><li id=i>x</li>"
              "<li id=j style=\"list-style-image: url(missing.bmp)\">y</li></ul>");
  auto dot = std::make_unique<CExtRichDocObjectImage>("dot.bmp");
  ASSERT_TRUE(dot->m_bitmap.Create(6, 6));
  for (int y = 0; y < 6; ++y)
    for (int x = 0; x < 6; ++x) dot->m_bitmap.SetPixel(x, y, {0, 0, 255, 255});
  ASSERT_TRUE(doc.document.LocalContainer().Add(std::move(dot)));
  doc.layout.LayoutTree({0, 0, 200, 1000});
  const RichItemBox* i = doc.layout.BoxOf(doc.ById("i"));
  ASSERT_NE(i, nullptr);
  EXPECT_EQ(i->markerImage, "dot.bmp");
  EXPECT_EQ(i->markerBox.Width(), 6);
  EXPECT_EQ(i->markerBox.right, i->content.left - 4) << "a quarter line from the content";
  EXPECT_EQ(doc.layout.BoxOf(doc.ById("j"))->markerImage, "") << "an unknown picture keeps the list type";
  const RichRect m = i->markerBox;
  EXPECT_EQ(PixelOf(doc, m.left + 3, m.top + 3), 0x0000FFu);
}

TEST(SharedStyles, AlikeElementsShareOneRecord) {
  std::string html = "<html><body>";
  for (int i = 0; i < 500; ++i) html += "<div><p>text</p></div><table><tr><td>a<td>b</table>";
  CExtRichContentLayout document;
  document.ParseHtml(html);
  document.ComputeTree(CExtRichStyleDescription());
  // root, html, body, div, p, table, tr, td: a handful of distinct styles, not thousands.
  EXPECT_LE(document.SharedStyleCount(), 12u);
  const CExtRichContentItem* body = document.Root()->m_children.at(0)->m_children.at(0);
  EXPECT_EQ(body->m_children.at(0)->m_pStyle, body->m_children.at(2)->m_pStyle);
  EXPECT_NE(body->m_children.at(0)->m_pStyle, body->m_children.at(1)->m_pStyle);
}

TEST(SharedStyles, ARunTimeChangeGivesTheItemARecordOfItsOwn) {
  CExtRichContentLayout document;
  document.ParseHtml("<html><p>a</p><p>b</p></html>");
  const CExtRichStyleDescription root;
  document.ComputeTree(root);
  CExtRichContentItem* html = document.Root()->m_children.at(0);
  CExtRichContentItem* first = html->m_children.at(0);
  CExtRichContentItem* second = html->m_children.at(1);
  ASSERT_EQ(first->m_pStyle, second->m_pStyle);
  ASSERT_TRUE(first->ApplyRunTimeDeclarations("color: red", *html->m_pStyle));
  EXPECT_NE(first->m_pStyle, second->m_pStyle);
  EXPECT_EQ(first->m_pStyle->m_colors[kColorText], 0x0000FF);
  EXPECT_EQ(second->m_pStyle->m_colors[kColorText], -1) << "the shared record was not changed in place";
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
