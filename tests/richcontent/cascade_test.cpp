// cascade_test.cpp: the order of the cascade, state rules, computed values and the sentinels.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {
namespace {

constexpr int32_t Rgb(int r, int g, int b) { return r | g << 8 | b << 16; }

// A document with a sheet, its styles computed; `First(tag)` finds an element depth first.
class Document {
 public:
  explicit Document(const std::string& html) {
    layout_.ParseHtml(html);
    layout_.ComputeTree(root_);
  }
  CExtRichContentItem* First(const std::string& tag) const {
    std::vector<CExtRichContentItem*> work{layout_.Root()};
    while (!work.empty()) {
      CExtRichContentItem* item = work.back();
      work.pop_back();
      if (item->IsElement() && item->m_strName == tag) return item;
      for (auto c = item->m_children.rbegin(); c != item->m_children.rend(); ++c) work.push_back(*c);
    }
    return nullptr;
  }
  const CExtRichStyleDescription& Style(const std::string& tag) const { return *First(tag)->m_pStyle; }
  void Recompute() { layout_.ComputeTree(root_); }
  CExtRichContentLayout& layout() { return layout_; }

 private:
  CExtRichContentLayout layout_;
  CExtRichStyleDescription root_;
};

TEST(CascadeOrder, InlineStyleWinsOverSheetAndAttributes) {
  Document doc("<style>x {color:blue}</style><p style=\"color:red\" class=\"x\" color=green>t</p>");
  EXPECT_EQ(doc.Style("p").m_colors[kColorText], Rgb(255, 0, 0));
}

TEST(CascadeOrder, ClassWordsInWrittenOrderWithTagForms) {
  const std::string sheet = "<style>a{color:#000001} p.a{color:#000002} b{color:#000003}</style>";
  EXPECT_EQ(Document(sheet + "<p class=\"a\">t</p>").Style("p").m_colors[kColorText], Rgb(0, 0, 2));
  EXPECT_EQ(Document(sheet + "<p class=\"a b\">t</p>").Style("p").m_colors[kColorText], Rgb(0, 0, 3));
  EXPECT_EQ(Document(sheet + "<p class=\"b a\">t</p>").Style("p").m_colors[kColorText], Rgb(0, 0, 2));
  // ".a" and "a" are one key; there is no specificity.
  EXPECT_EQ(Document("<style>.q{color:#000005} p{color:#000006}</style><p class=q>t</p>").Style("p").m_colors[kColorText],
            Rgb(0, 0, 5));
}

TEST(CascadeOrder, DocumentSheetWinsOverDefaultSheet) {
  Document doc("<style>h1 {font-weight: normal}</style><h1>t</h1><h2>u</h2>");
  EXPECT_EQ(doc.Style("h1").m_font.lfWeight, 400);
  EXPECT_EQ(doc.Style("h2").m_font.lfWeight, 700);
  EXPECT_EQ(doc.Style("h1").m_font.lfHeight, -26);  // 2em of 13
}

TEST(CascadeOrder, StateRulesApplyOnlyInTheirState) {
  Document doc("<style>a{color:#000001} a:hover{color:#000002}</style><a href=x>t</a>");
  EXPECT_EQ(doc.Style("a").m_colors[kColorText], Rgb(0, 0, 1));
  PseudoStateSet hover;
  hover.m_fields[kPseudoHover] = 2;
  ASSERT_TRUE(doc.First("a")->SetState(hover, 2, false));
  doc.Recompute();
  EXPECT_EQ(doc.Style("a").m_colors[kColorText], Rgb(0, 0, 2));
  doc.First("a")->SetState(hover, 0, false);
  doc.Recompute();
  EXPECT_EQ(doc.Style("a").m_colors[kColorText], Rgb(0, 0, 1));
}

struct RefusingSink : CExtRichContentEvents {
  bool OnQueryItemState(CExtRichContentItem&, const PseudoStateSet&, int32_t) override {
    ++asked;
    return true;
  }
  void OnClassName(CExtRichContentItem&, const std::string& name) override { classes += name + ";"; }
  int asked = 0;
  std::string classes;
};

TEST(ItemState, SinksAreAskedAndRecursionReachesElements) {
  Document doc("<div class=\"k m\"><p>a</p><p>b</p></div>");
  RefusingSink sink;
  PseudoStateSet focus;
  focus.m_fields[kPseudoFocus] = 2;
  doc.layout().AddSink(&sink);
  EXPECT_FALSE(doc.First("div")->SetState(focus, 2, true));
  EXPECT_EQ(sink.asked, 1);
  doc.First("div")->SetState(PseudoStateSet(), 2, false);  // an empty set skips the query
  EXPECT_EQ(sink.asked, 1);
  doc.layout().RemoveSink(&sink);
  ASSERT_TRUE(doc.First("div")->SetState(focus, 2, true));
  for (const CExtRichContentItem* p : doc.First("div")->m_children) EXPECT_EQ(p->m_state.m_fields[kPseudoFocus], 2);

  CExtRichContentLayout layout;
  layout.AddSink(&sink);
  layout.ParseHtml("<div class=\"k m\">x</div>");
  CExtRichStyleDescription root;
  layout.ComputeTree(root);
  EXPECT_EQ(sink.classes, "k;m;");
  layout.RemoveSink(&sink);
  ASSERT_TRUE(layout.Root()->m_children[0]->SetState(focus, 2, false));
  layout.ComputeTree(root);
  EXPECT_EQ(*layout.Root()->m_children[0]->m_pClassList, (std::vector<std::string>{"k", "div.k", "m", "div.m"}));
}

TEST(PseudoElements, BeforeRulesDoNotAlterTheItem) {
  Document doc("<style>q:before{color:red; content:'>'}</style><q>t</q>");
  const CExtRichStyleDescription& q = doc.Style("q");
  EXPECT_EQ(q.m_colors[kColorText], -1);
  EXPECT_TRUE(q.m_strings[kContent].empty());
  ASSERT_NE(q.m_pBeforeRule, nullptr);
  CExtRichStyleRule before;
  q.m_pBeforeRule->ApplyDeclarations(before, q);
  EXPECT_EQ(before.m_strings[kContentBefore], ">");
  EXPECT_EQ(before.m_colors[kColorText], Rgb(255, 0, 0));
}

// Rules of a part of the element's text (first line, first letter) leave the element alone.
TEST(PseudoElements, PartRulesDoNotRestyleTheElement) {
  const char* sheets[] = {"p:first-line{color:green; display:none}", "p:first-letter{color:green; display:none}",
                          ".note:first-line{color:green}", "q:after{color:green}"};
  for (const char* sheet : sheets) {
    Document doc(std::string("<style>") + sheet + "</style><P CLASS=\"Note\">b <q>c</q></P>");
    EXPECT_EQ(doc.Style("p").m_colors[kColorText], -1) << sheet;
    EXPECT_EQ(doc.Style("p").Display(), 1) << sheet;
    EXPECT_EQ(doc.Style("q").m_colors[kColorText], -1) << sheet;
  }
}

TEST(PseudoClasses, FirstChildIsTheFirstElementOfItsParent) {
  Document doc("<style>li:first-child{color:red} b:first-child{color:blue}</style>"
               "<ul><li>a<li>b<li>c</ul><p>text first <b>x</b><b>y</b></p><div><i>i</i><b>z</b></div>");
  const CExtRichContentItem* list = doc.First("ul");
  ASSERT_EQ(list->m_children.size(), 3u);
  const int32_t expected[] = {Rgb(255, 0, 0), -1, -1};
  for (size_t i = 0; i < 3; ++i)
    EXPECT_EQ(list->m_children[i]->m_pStyle->m_colors[kColorText], expected[i]) << "li " << i;
  // Text before an element does not count; an element before it does.
  const CExtRichContentItem* p = doc.First("p");
  EXPECT_EQ(doc.Style("b").m_colors[kColorText], Rgb(0, 0, 255));
  EXPECT_EQ(p->m_children.back()->m_pStyle->m_colors[kColorText], -1);
  EXPECT_EQ(doc.First("div")->m_children.back()->m_pStyle->m_colors[kColorText], -1);
}

TEST(PseudoClasses, FirstChildRuleWinsOverItsKeyOnlyWhereItApplies) {
  Document doc("<style>li:first-child{color:red} li{color:blue; font-weight:bold}</style><ol><li>a<li>b</ol>");
  const CExtRichContentItem* list = doc.First("ol");
  EXPECT_EQ(list->m_children[0]->m_pStyle->m_colors[kColorText], Rgb(255, 0, 0));
  EXPECT_EQ(list->m_children[0]->m_pStyle->m_font.lfWeight, 700);
  EXPECT_EQ(list->m_children[1]->m_pStyle->m_colors[kColorText], Rgb(0, 0, 255));
}

// Sheets and style attributes alike can make an element inline or restore white-space from
// the parent; "visibility: visible" and "position: static" from a sheet change nothing.
TEST(CascadeOrder, ClearedKeywordsFromSheetsAndAttributes) {
  struct Case {
    const char* html;
    const char* tag;
    EnumField field;
    int value;
  };
  const Case cases[] = {
      {"<style>p{display:inline}</style><p>x</p>", "p", kDisplay, 2},
      {"<style>.x{display:inline}</style><div class=x>x</div>", "div", kDisplay, 2},
      {"<div style=\"display:inline\">x</div>", "div", kDisplay, 2},
      {"<style>span{display:block}</style><span>x</span>", "span", kDisplay, 1},
      {"<style>span{display:block} .i{display:inline}</style><span class=i>x</span>", "span", kDisplay, 2},
      {"<div>x</div>", "div", kDisplay, 1},
      {"<style>p{white-space:pre} .n{white-space:inherit}</style><div><p class=n>x</p></div>", "p", kWhiteSpace, 0},
      {"<style>p{white-space:pre}</style><div><p>x</p></div>", "p", kWhiteSpace, 2},
      // Kept: the cleared value of these fields is the one that changes nothing.
      {"<style>p{visibility:hidden} .v{visibility:visible}</style><p class=v>x</p>", "p", kVisibility, 1},
      {"<style>p{visibility:hidden}</style><p style=\"visibility:visible\">x</p>", "p", kVisibility, 0},
      {"<style>p{position:absolute} .s{position:static}</style><p class=s>x</p>", "p", kPosition, 0},
      {"<style>p{position:absolute}</style><p style=\"position:static\">x</p>", "p", kPosition, 3},
  };
  for (const Case& c : cases) EXPECT_EQ(Document(c.html).Style(c.tag).m_enums[c.field], c.value) << c.html;
}

TEST(Computed, FontWeightsStayInRange) {
  Document doc("<p style=\"font-weight:lighter\"><span style=\"font-weight:lighter\">a</span>"
               "<b><b><b>x</b></b></b></p>");
  EXPECT_EQ(doc.Style("p").m_font.lfWeight, 100);
  EXPECT_EQ(doc.Style("span").m_font.lfWeight, 100);
  EXPECT_EQ(doc.First("b")->m_children[0]->m_children[0]->m_pStyle->m_font.lfWeight, 900);
}

TEST(Computed, FontSizesAndFactors) {
  Document doc("<p style=\"font-size:20px\"><small>s</small><big>b</big><span style=\"font-size:150%\">p</span>"
               "<i style=\"font-size:x-large\">x</i></p><font size=3>f</font><u size=+2>r</u>");
  EXPECT_EQ(doc.Style("p").m_font.lfHeight, -20);
  EXPECT_EQ(doc.Style("small").m_font.lfHeight, -15);
  EXPECT_EQ(doc.Style("big").m_font.lfHeight, -25);
  EXPECT_EQ(doc.Style("span").m_font.lfHeight, -30);
  EXPECT_EQ(doc.Style("i").m_font.lfHeight, -24);
  EXPECT_EQ(doc.Style("font").m_font.lfHeight, -9);  // 3 * 96 / 72 = 4, then * 7 / 3 = 9
  EXPECT_EQ(doc.Style("u").m_font.lfHeight, -15);    // -13 moved away from zero by 2
}

TEST(Computed, InheritedAndNotInherited) {
  Document doc("<div style=\"color:red; margin-left:9px; white-space:pre\"><p>x</p></div>");
  EXPECT_EQ(doc.Style("p").m_colors[kColorText], Rgb(255, 0, 0));
  EXPECT_EQ(doc.Style("p").m_enums[kWhiteSpace], 2);
  EXPECT_EQ(doc.Style("p").m_lengths[kMarginLeft], 0);
  EXPECT_EQ(doc.Style("div").m_lengths[kMarginLeft], 9);
}

TEST(Computed, DisplayInheritAndDock) {
  Document doc("<div style=\"display:ui-dock; ui-dock:left\"><span style=\"display:inherit\">x</span>"
               "<em>y</em></div>");
  EXPECT_EQ(doc.Style("div").m_enums[kDisplay], 16);
  EXPECT_EQ(doc.Style("div").m_enums[kDockPosition], 5);
  EXPECT_EQ(doc.Style("span").m_enums[kDisplay], 16);
  EXPECT_EQ(doc.Style("em").Display(), 2);
  EXPECT_EQ(doc.Style("em").m_enums[kDockPosition], 5);  // any other display takes the parent's side
}

TEST(Computed, RunTimeDeclarationsStay) {
  Document doc("<p style=\"color:red\">x</p>");
  CExtRichStyleDescription root;
  CExtRichContentItem* p = doc.First("p");
  ASSERT_TRUE(p->ApplyRunTimeDeclarations("background-color: blue; font-family: \"courier new\"", root));
  EXPECT_EQ(p->m_pStyle->m_colors[kColorBackground], Rgb(0, 0, 255));
  EXPECT_EQ(p->m_pStyle->m_colors[kColorText], Rgb(255, 0, 0));
  EXPECT_STREQ(p->m_pStyle->m_font.lfFaceName, "courier new");
  doc.Recompute();
  EXPECT_EQ(p->m_pStyle->m_colors[kColorBackground], Rgb(0, 0, 255));
  PseudoStateSet hover;
  hover.m_fields[kPseudoHover] = 2;
  p->SetState(hover, 2, false);  // the own rule is filled again, the declarations stay
  doc.Recompute();
  EXPECT_EQ(p->m_pStyle->m_colors[kColorBackground], Rgb(0, 0, 255));
}

TEST(Computed, OwnRuleIsFilledOnce) {
  Document doc("<p style=\"color:red\">x</p>");
  CExtRichContentItem* p = doc.First("p");
  EXPECT_TRUE(p->m_bFilled);
  p->m_attributes.clear();  // a second computation reuses the rule, not the attributes
  CExtRichStyleRule rule;
  p->ComputeRule(rule, CExtRichStyleDescription());
  EXPECT_EQ(rule.m_colors[kColorText], Rgb(255, 0, 0));
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
