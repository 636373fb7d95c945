// properties_test.cpp: each property's keywords at the edges of its table, the shorthands, the
// attributes, and the sentinels of a rule.
#include <gtest/gtest.h>

#include <string>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/readers.h"

namespace qmk::toolkit::richcontent {
namespace {

constexpr int32_t Rgb(int r, int g, int b) { return r | g << 8 | b << 16; }

// The rule that the declarations of one sheet rule give, against a parent of font height -13.
CExtRichStyleRule RuleOf(const std::string& declarations, const CExtRichStyleDescription& parent = {}) {
  CExtRichContentLayout layout;
  layout.ParseCss("x{" + declarations + "}");
  CExtRichStyleRule rule;
  if (CExtRichContentItem* key = layout.FindRuleKey("x")) key->ApplyDeclarations(rule, parent);
  return rule;
}

TEST(PropertyTable, HasAllRows) {
  EXPECT_EQ(PropertyTableSize(), 123u);
  EXPECT_EQ(AttributeTableSize(), 23u);
}

TEST(Keywords, EnumPropertiesAtTheirEdges) {
  struct Case {
    const char* declaration;
    EnumField field;
    int value;
  };
  const int kReset = kNoValue;
  const Case cases[] = {
      {"visibility: collapse", kVisibility, 2}, {"visibility: inherit", kVisibility, 3},
      {"display: none", kDisplay, 0}, {"display: ui-dock", kDisplay, 16}, {"display: INHERIT", kDisplay, 17},
      {"display: flex", kDisplay, 2},  // unknown: left as it was (the cleared value)
      {"ui-dock: top", kDockPosition, 1}, {"ui-dock: pre-fill", kDockPosition, 10},
      {"ui-dock: middle", kDockPosition, 0},
      {"table-layout: fixed", kTableLayout, 1}, {"table-layout: inherit", kTableLayout, 2},
      {"empty-cells: hide", kEmptyCells, 0}, {"caption-side: bottom", kCaptionSide, 1},
      {"border-collapse: collapse", kBorderCollapse, 0}, {"border-collapse: inherit", kBorderCollapse, 2},
      {"cursor: auto", kCursor, 0}, {"cursor: wait", kCursor, 17}, {"cursor: inherit", kCursor, 18},
      {"cursor: url(hand.cur)", kCursor, 1},
      {"float: left", kFloat, 0}, {"float: none", kFloat, 2}, {"float: inherit", kFloat, 3},
      {"overflow: auto", kOverflow, 3}, {"overflow: inherit", kOverflow, 4},
      {"ui-sbh: none", kScrollBarH, 1}, {"ui-sbv: visible", kScrollBarV, 2},
      {"position: absolute", kPosition, 0}, {"position: inherit", kPosition, 4},
      {"list-style-type: none", kListType, 0}, {"list-style-type: upper-roman", kListType, 11},
      {"list-style-position: outside", kListPosition, 1},
      {"outline-style: outset", kOutlineStyle, 8}, {"outline-style: inherit", kOutlineStyle, 9},
      {"background-repeat: no-repeat", kBackgroundRepeat, 3},
      {"background-attachment: fixed", kBackgroundAttachment, 1},
      {"white-space: normal", kWhiteSpace, 0}, {"white-space: pre-wrap", kWhiteSpace, 4},
      {"white-space: inherit", kWhiteSpace, 5},
      {"text-align: justifywithlastline", kTextAlign, 4}, {"text-align: inherit", kTextAlign, -1},
      {"text-align: middle", kTextAlign, kReset},
      {"vertical-align: super", kVerticalAlign, 7}, {"vertical-align: inherit", kVerticalAlign, -1},
      // Anything else leaves "bottom" rather than the value before.
      {"vertical-align: 3px", kVerticalAlign, 3},
      {"text-transform: lowercase", kTextTransform, 3},
      {"ui-can-be-focus: yes", kCanBeFocused, 2}, {"ui-can-be-focused: 0", kCanBeFocused, 1},
      {"ui-can-be-hovered: maybe", kCanBeHovered, 0}, {"ui-can-be-disable: not", kCanBeDisabled, 1},
      {"ui-focus-off-make-unselection-sibling: true", kFocusOffMakeUnselectedSibling, 2},
      {"ui-list-navigation: list-xy", kListNavigation, 4}, {"ui-list-navigation: list-x", kListNavigation, 2},
      {"ui-list-navigation: list", kListNavigation, 3}, {"ui-list-navigation: none", kListNavigation, 1},
      {"ui-draw-method: tile", kDrawMethod, 5}, {"ui-background-draw-method: hollow", kBackgroundDrawMethod, 0},
      {"ui-focus-ensure-visibility: ensure", kFocusEnsureVisibility, 2},
      {"ui-delayed-draw: topmost", kDelayedDraw, 4}, {"ui-delayed-draw: inherit", kDelayedDraw, 1},
      {"ui-delayed-draw: odd", kDelayedDraw, kReset},
      {"ui-sb-type: hidden", kScrollBarType, 5}, {"ui-sb-type: popover-light", kScrollBarType, 3},
      {"border-left-style: groove", kBorderStyleLeft, 5},
      {"display: block block", kDisplay, 2},  // single-valued: two values are ignored
  };
  for (const Case& c : cases) EXPECT_EQ(RuleOf(c.declaration).m_enums[c.field], c.value) << c.declaration;
}

TEST(Keywords, LengthsMarginsAndBoxes) {
  struct Case {
    const char* declaration;
    LengthField field;
    int value;
  };
  const Case cases[] = {
      {"margin: -5px", kMarginLeft, 0},  // negative results become 0 in the shorthand
      {"margin-left: -5px", kMarginLeft, -5},
      {"margin-left: -5pt", kMarginLeft, -1},  // the default: not declared
      {"margin: 1px 2px 3px", kMarginTop, 1}, {"margin: 1px 2px 3px", kMarginRight, 2},
      {"margin: 1px 2px 3px", kMarginLeft, 2}, {"margin: 1px 2px 3px", kMarginBottom, 3},
      {"margin: 1px 2px", kMarginBottom, 1}, {"margin: 1px 2px 3px 4px", kMarginLeft, 4},
      {"margin: 1px 2px 3px 4px 5px", kMarginLeft, -1},
      {"margin: 0 auto", kMarginAutoLeft, 1}, {"margin-right: auto", kMarginAutoRight, 1},
      {"padding: -2px 3px", kPaddingTop, 0}, {"padding-top: 1em", kPaddingTop, 13},
      {"border-width: thin medium thick", kBorderWidthTop, 3},
      {"border-width: thin medium thick", kBorderWidthLeft, 5},
      {"border-width: thin medium thick", kBorderWidthBottom, 7},
      {"border: 2px solid red", kBorderWidthRight, 2},
      {"outline-width: thick", kOutlineWidth, 7},
      {"width: 150%", kWidth, 20},  // the pixel form: 150% of the font height 13 {"width: 12px", kWidth, 12}, {"width: auto", kWidth, kAutoLength},
      {"min-width: -20", kMinWidth, 20}, {"max-height: none", kMaxHeight, -1},
      {"left: auto", kLeft, kAutoLength}, {"top: -4px", kTop, -4},
      {"border-spacing: 3 4px", kBorderSpacingX, 3}, {"border-spacing: 3 4px", kBorderSpacingY, 4},
      {"border-spacing: 5px", kBorderSpacingY, 5},
      {"z-index: 7", kZIndex, 7}, {"z-index: 0", kZIndex, kNoValue}, {"z-index: auto", kZIndex, kNoValue},
      {"text-indent: 2em", kTextIndent, 26},
      {"ui-slice: 1px 2px 3px 4px", kSliceLeft, 4},
      {"clip: rect(1px, 2px, 3px, 4px)", kClipLeft, 4},
      {"clip: rect(1px, 2px, 3, 4px)", kClipTop, -1},  // a plain number resets the rectangle
      {"background-position: 5px 7px", kBackgroundPositionY, 7},
  };
  for (const Case& c : cases) EXPECT_EQ(RuleOf(c.declaration).m_lengths[c.field], c.value) << c.declaration;
}

TEST(Keywords, PercentForms) {
  EXPECT_FLOAT_EQ(RuleOf("width: 150%").m_percents[kWidth], 100.0f);
  EXPECT_FLOAT_EQ(RuleOf("width: 40%").m_percents[kWidth], 40.0f);
  EXPECT_FLOAT_EQ(RuleOf("width: 40px").m_percents[kWidth], -1.0f);
  EXPECT_FLOAT_EQ(RuleOf("min-height: 250%").m_percents[kMinHeight], 100.0f);
  EXPECT_FLOAT_EQ(RuleOf("left: 25%").m_percents[kLeft], 25.0f);
  EXPECT_FLOAT_EQ(RuleOf("background-position: right bottom").m_percents[kBackgroundPositionX], 100.0f);
  EXPECT_FLOAT_EQ(RuleOf("background-position: center").m_percents[kBackgroundPositionX], 50.0f);
}

TEST(Keywords, ZIndexStates) {
  EXPECT_EQ(RuleOf("z-index: 7").m_enums[kZIndexState], 2);
  EXPECT_EQ(RuleOf("z-index: 0").m_enums[kZIndexState], 0);
  EXPECT_EQ(RuleOf("z-index: 3px").m_enums[kZIndexState], 0);  // a length is "auto"
  EXPECT_EQ(RuleOf("z-index: inherit").m_enums[kZIndexState], 1);
  EXPECT_EQ(RuleOf("color: red").m_enums[kZIndexState], kNoValue);
}

TEST(Keywords, FontsAndText) {
  CExtRichStyleDescription parent;
  parent.m_font.lfHeight = -20;
  parent.m_font.lfWeight = 700;
  struct Case {
    const char* declaration;
    int px, factor100, weightAbs, weightRel, italic;
  };
  const Case cases[] = {
      {"font-size: xx-small", 9, 100, 0, 0, 0}, {"font-size: xx-large", 32, 100, 0, 0, 0},
      {"font-size: smaller", 0, 75, 0, 0, 0}, {"font-size: larger", 0, 125, 0, 0, 0},
      {"font-size: 50%", 0, 50, 0, 0, 0}, {"font-size: 2em", 40, 100, 0, 0, 0},
      {"font-size: inherit", 20, 100, 0, 0, 0}, {"font-size: huge", 0, 100, 0, 0, 0},
      {"font-weight: normal", 0, 100, 400, 0, 0}, {"font-weight: bolder", 0, 100, 0, 300, 0},
      {"font-weight: lighter", 0, 100, 0, -300, 0}, {"font-weight: 600", 0, 100, 600, 0, 0},
      {"font-weight: inherit", 0, 100, 700, 0, 0}, {"font-weight: 0", 0, 100, 0, 0, 0},
      {"font-style: oblique", 0, 100, 0, 0, 1}, {"font-style: normal", 0, 100, 0, 0, -1},
      {"font: italic bold 12px/30px serif", 12, 100, 700, 0, 1},
  };
  for (const Case& c : cases) {
    const CExtRichStyleRule r = RuleOf(c.declaration, parent);
    EXPECT_EQ(r.m_nFontSizePx, c.px) << c.declaration;
    EXPECT_EQ(static_cast<int>(r.m_lfSizeFactor * 100 + 0.5), c.factor100) << c.declaration;
    EXPECT_EQ(r.m_nWeightAbsolute, c.weightAbs) << c.declaration;
    EXPECT_EQ(r.m_nWeightRelative, c.weightRel) << c.declaration;
    EXPECT_EQ(r.m_nItalic, c.italic) << c.declaration;
  }
  EXPECT_EQ(RuleOf("font: italic bold 12px/30px serif").m_nLineHeight, 30);
  EXPECT_EQ(RuleOf("font: italic bold 12px/30px serif").m_strFace, "serif");
  EXPECT_EQ(RuleOf("font: menu").m_strFace, CExtRichFontDescription().lfFaceName);
  EXPECT_EQ(RuleOf("font-family: 'Times New Roman', serif").m_strFace, "Times New Roman");
  EXPECT_EQ(RuleOf("line-height: 1.5", parent).m_nLineHeight, 30);  // times the font height
  EXPECT_DOUBLE_EQ(RuleOf("line-height: 150%").m_lfLineHeightFactor, 1.5);
  EXPECT_EQ(RuleOf("text-decoration: underline line-through").m_nStrike, 1);
  EXPECT_EQ(RuleOf("text-decoration: none").m_nUnderline, -1);
}

// A plain number or "em" after the font shorthand's "/" measures the font the shorthand gives;
// the line-height property alone measures the parent's.
TEST(Keywords, LineHeightOfTheFontShorthandMeasuresItsOwnSize) {
  CExtRichStyleDescription parent;  // height -13
  struct Case {
    const char* declaration;
    int lineHeight;
  };
  const Case cases[] = {
      {"font: italic bold 20px/2 Arial", 40},
      {"font: 20px/1.5em serif", 30},
      {"font: 20px/30px serif", 30},
      {"font: 200%/2 serif", 52},  // twice 26
      {"font: large/1 serif", 18},
      {"font: 20px serif", -1},    // no line height given
      {"line-height: 2", 26},
      {"font-size: 20px; line-height: 2", 26},
  };
  for (const Case& c : cases) EXPECT_EQ(RuleOf(c.declaration, parent).m_nLineHeight, c.lineHeight) << c.declaration;
}

TEST(Keywords, ColoursStringsAndShorthands) {
  EXPECT_EQ(RuleOf("color: #00ff00").m_colors[kColorText], Rgb(0, 255, 0));
  EXPECT_EQ(RuleOf("color: nosuch").m_colors[kColorText], -1);
  EXPECT_EQ(RuleOf("outline-color: invert").m_colors[kColorOutline], -3);
  EXPECT_EQ(RuleOf("border: 1px dotted blue").m_colors[kBorderColorLeft], Rgb(0, 0, 255));
  EXPECT_EQ(RuleOf("border: 1px dotted blue").m_enums[kBorderStyleTop], 1);
  EXPECT_EQ(RuleOf("border-color: red green").m_colors[kBorderColorRight], Rgb(0, 128, 0));
  const CExtRichStyleRule bg = RuleOf("background: yellow url(a.png) repeat-x fixed left top");
  EXPECT_EQ(bg.m_colors[kColorBackground], Rgb(255, 255, 0));
  EXPECT_EQ(bg.m_strings[kBackgroundImage], "a.png");
  EXPECT_EQ(bg.m_enums[kBackgroundRepeat], 1);
  EXPECT_EQ(bg.m_enums[kBackgroundAttachment], 1);
  // A bad position (or a third one) restores the whole background as it was.
  const CExtRichStyleRule bad = RuleOf("background: yellow url(a.png) left top bottom");
  EXPECT_EQ(bad.m_colors[kColorBackground], -1);
  EXPECT_TRUE(bad.m_strings[kBackgroundImage].empty());
  const CExtRichStyleRule list = RuleOf("list-style: square inside url('dot.png')");
  EXPECT_EQ(list.m_enums[kListType], 3);
  EXPECT_EQ(list.m_enums[kListPosition], 0);
  EXPECT_EQ(list.m_strings[kListImage], "dot.png");
  const CExtRichStyleRule outline = RuleOf("outline: red dashed 2px");
  EXPECT_EQ(outline.m_enums[kOutlineStyle], 2);
  EXPECT_EQ(outline.m_lengths[kOutlineWidth], 2);
  EXPECT_EQ(RuleOf("counter-reset: Chapter 1").m_strings[kCounter], "chapter 1");
  EXPECT_EQ(RuleOf("direction: rtl").m_strings[kDirection], "rtl");
  EXPECT_EQ(RuleOf("cursor: url(hand.cur)").m_strings[kCursorUrl], "hand.cur");
  const CExtRichStyleRule quotes = RuleOf("quotes: \"<<\" \">>\" \"[\" \"]\"");
  ASSERT_EQ(quotes.m_quotes.size(), 2u);
  EXPECT_EQ(quotes.m_quotes[1], (CQuoutes{"[", "]"}));
  EXPECT_EQ(RuleOf("content: 'hi'").m_strings[kContent], "hi");
}

TEST(Attributes, Handlers) {
  CExtRichContentLayout layout;
  layout.ParseHtml("<table border=2 cellpadding=3 cellspacing=4 width=50% bgcolor=#0000ff align=center>"
                   "<tr><td colspan=2 valign=middle color=nosuch>x</td></tr></table><img align=right src=a>"
                   "<hr noshade size=+1 face=Mono id=Top name=n uiidsrc=s uiiddst=d>");
  CExtRichStyleDescription root;
  layout.ComputeTree(root);
  const CExtRichContentItem* table = layout.Root()->m_children.at(0);
  const CExtRichStyleDescription& t = *table->m_pStyle;
  EXPECT_EQ(t.m_lengths[kBorderWidthLeft], 2);
  EXPECT_EQ(t.m_lengths[kPaddingBottom], 3);
  EXPECT_EQ(t.m_lengths[kBorderSpacingY], 4);
  EXPECT_FLOAT_EQ(t.m_percents[kWidth], 50.0f);
  EXPECT_EQ(t.m_colors[kColorBackground], Rgb(0, 0, 255));
  EXPECT_TRUE(t.m_bBackground);
  EXPECT_EQ(t.m_enums[kTextAlign], 1);
  const CExtRichContentItem* td = table->m_children.at(0)->m_children.at(0);
  EXPECT_EQ(td->m_pStyle->m_lengths[kColSpan], 2);
  EXPECT_EQ(td->m_pStyle->m_enums[kVerticalAlign], 2);
  EXPECT_EQ(td->m_pStyle->m_colors[kColorText], -1);
  EXPECT_EQ(layout.Root()->m_children.at(1)->m_pStyle->m_enums[kFloat], 1);  // img: align is a float
  const CExtRichContentItem* hr = layout.Root()->m_children.at(2);
  EXPECT_EQ(hr->m_pStyle->m_enums[kNoShade], 0);  // "noshade" has no value, so nothing
  EXPECT_STREQ(hr->m_pStyle->m_font.lfFaceName, "mono");
  EXPECT_EQ(hr->m_strId, "top");
  EXPECT_EQ(hr->m_strNameAttr + hr->m_strSourceLink + hr->m_strDestinationLink, "nsd");
}

TEST(RuleSentinels, MergeSkipsUndeclaredFields) {
  CExtRichStyleRule target = RuleOf("color: red; margin-left: 4px; display: block; font-weight: bold");
  target.Merge(RuleOf("font-style: italic"));
  EXPECT_EQ(target.m_colors[kColorText], Rgb(255, 0, 0));
  EXPECT_EQ(target.m_lengths[kMarginLeft], 4);
  EXPECT_EQ(target.m_nWeightAbsolute, 700);
  EXPECT_EQ(target.m_nItalic, 1);
  // "display: inline" (2) is also the cleared value of the field; declared, it still counts.
  target.Merge(RuleOf("display: inline"));
  EXPECT_EQ(target.m_enums[kDisplay], 2);
  target.Merge(RuleOf("color: blue"));
  EXPECT_EQ(target.m_enums[kDisplay], 2);
  target.Merge(RuleOf("display: list-item"));
  EXPECT_EQ(target.m_enums[kDisplay], 5);
  CExtRichStyleRule cleared;
  EXPECT_EQ(cleared.m_enums[kDisplay], 2);
  EXPECT_FALSE(cleared.IsDeclared(kDisplay));
  EXPECT_EQ(cleared.m_lengths[kMarginAutoLeft], kNoValue);
  EXPECT_EQ(cleared.m_lengths[kZIndex], kNoValue);
  EXPECT_EQ(cleared.m_enums[kCursor], 1);
  EXPECT_EQ(cleared.m_enums[kPosition], 3);
}

// Only display and white-space mark a declared cleared value; for the other fields the cleared
// value is the one that changes nothing, and a declaration of it merges as not declared.
TEST(RuleSentinels, ClearedValuesThatCountWhenDeclared) {
  struct Case {
    const char* earlier;
    const char* later;
    EnumField field;
    int merged;
  };
  const Case cases[] = {
      {"display: block", "display: inline", kDisplay, 2},
      {"white-space: pre", "white-space: inherit", kWhiteSpace, 5},
      {"visibility: hidden", "visibility: visible", kVisibility, 1},
      {"position: absolute", "position: static", kPosition, 0},
      {"border-collapse: collapse", "border-collapse: separate", kBorderCollapse, 0},
      {"caption-side: bottom", "caption-side: top", kCaptionSide, 1},
      {"empty-cells: hide", "empty-cells: show", kEmptyCells, 0},
      {"table-layout: fixed", "table-layout: auto", kTableLayout, 1},
      // The url cursor shares the cleared value 1: only its text travels.
      {"cursor: pointer", "cursor: url(h.cur)", kCursor, 10},
  };
  for (const Case& c : cases) {
    CExtRichStyleRule rule = RuleOf(c.earlier);
    rule.Merge(RuleOf(c.later));
    EXPECT_EQ(rule.m_enums[c.field], c.merged) << c.earlier << " then " << c.later;
  }
  // The mark is part of the rule's content: equal values, one declared, are different rules.
  EXPECT_FALSE(RuleOf("display: inline") == CExtRichStyleRule());
  EXPECT_TRUE(RuleOf("visibility: visible") == CExtRichStyleRule());
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
