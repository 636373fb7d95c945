// splitters_test.cpp: the attribute splitter of tags, the "style" attribute splitter and the
// three value splitters, and the style sheet and selector readers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/readers.h"

namespace qmk::toolkit::richcontent {
namespace {

using Strings = std::vector<std::string>;

// "name=value" of each attribute of the first element of `html`.
Strings AttributesOf(const std::string& html) {
  CExtRichContentLayout layout;
  layout.ParseHtml(html);
  Strings out;
  if (!layout.Root() || layout.Root()->m_children.empty()) return out;
  for (const CExtRichContentItem* a : layout.Root()->m_children[0]->m_attributes)
    out.push_back(a->m_strName + "=" + a->m_strRaw);
  return out;
}

TEST(TagText, AttributeForms) {
  struct Case {
    const char* html;
    Strings attributes;
  };
  const Case cases[] = {
      {"<a href = \"x\" title='y z' data=bare>", {"href=x", "title=y z", "data=bare"}},
      {"<td nowrap width=5>", {"width=5"}},  // a name with no value produces nothing
      {"<a title=\"say 'hi there'\">", {"title=say hi there"}},
      {"<a title=\"a\\\"b\">", {"title=a\"b"}},
      {"<a title=\"  padded  \">", {"title=padded"}},
      {"<a x=>", {"x="}},
  };
  for (const Case& c : cases) EXPECT_EQ(AttributesOf(c.html), c.attributes) << c.html;
}

TEST(TagText, StyleAttributeBecomesDeclarations) {
  CExtRichContentLayout layout;
  ASSERT_TRUE(layout.ParseHtml("<p style=\"color: red; FONT-SIZE:12px ;margin:1px 2px\">x</p>"));
  const CExtRichContentItem* style = layout.Root()->m_children[0]->m_attributes.at(0);
  EXPECT_EQ(style->m_nKind, kKindStyleAttribute);
  Strings declarations;
  for (const CExtRichContentItem* d : style->m_attributes) {
    std::string text = d->m_strName + ":";
    for (const CExtRichContentItem* v : d->m_children) text += "[" + v->m_strName + "]";
    declarations.push_back(text);
  }
  EXPECT_EQ(declarations, (Strings{"color:[red]", "font-size:[12px]", "margin:[1px][2px]"}));
}

TEST(TagText, EmptyPropertyNameMarksTheStyleAttribute) {
  CExtRichContentLayout layout;
  layout.ParseHtml("<p style=\":red\">x</p>");
  EXPECT_EQ(layout.Root()->m_children[0]->m_attributes.at(0)->m_nError, kErrorEmptyName);
}

TEST(ValueSplitters, General) {
  struct Case {
    const char* value;
    Strings tokens;
  };
  const Case cases[] = {
      {"1px solid red", {"1px", "solid", "red"}},
      {"rgb(1, 2, 3) x", {"rgb(1, 2, 3)", "x"}},
      {"12px / 1.5 arial", {"12px/1.5", "arial"}},
      {"a , b", {"a", "b"}},
      {"a,b", {"a", "b"}},
      {"'a b' \"c d\"", {"a b", "c d"}},
      {"  ", {}},
  };
  for (const Case& c : cases) EXPECT_EQ(SplitGeneralValue(c.value), c.tokens) << c.value;
}

TEST(ValueSplitters, FontFamilyAndContent) {
  EXPECT_EQ(SplitFontFamilyValue("arial, , 'x y' ,z"), (Strings{"arial", "'x y'", "z"}));
  struct Case {
    const char* value;
    const char* content;
  };
  const Case cases[] = {
      {"", "none"}, {"''", "none"}, {"\"\"", "none"},
      {"x", "x"}, {"'abc", "'abc"},  // not wrapped in a pair: kept as it stands
      {"'ab'", "ab"},
      {"'a' attr(TITLE) 'b'", "aattr(title)b"},
  };
  for (const Case& c : cases) EXPECT_EQ(SplitContentValue(c.value), Strings{c.content}) << c.value;
}

TEST(StyleSheet, SelectorForms) {
  CExtRichContentLayout layout;
  ASSERT_TRUE(layout.ParseCss(
      "/* c */ p { color: red } .Note{x:1} h1, H2 {a:b} a:hover:active{c:d} a:unknown{e:f}"
      " q:before{content:'x'} :hover{g:h} empty{} --> li:first-child{i:j}"));
  for (const char* key : {"p", "note", "h1", "h2", "a", "q", "empty", "li"})
    EXPECT_EQ(layout.FindRuleKey(key) != nullptr, std::string(key) != "empty") << key;
  EXPECT_EQ(layout.FindRuleKey(""), nullptr);  // ":hover" alone is refused

  const CExtRichContentItem* a = layout.FindRuleKey("a");
  ASSERT_EQ(a->m_ruleChildren.size(), 1u);
  PseudoStateSet hoverActive;
  hoverActive.m_fields[kPseudoHover] = hoverActive.m_fields[kPseudoActive] = 2;
  EXPECT_EQ(a->m_ruleChildren[0]->m_state, hoverActive);
  // Unknown words only: the declarations went to the plain key.
  EXPECT_NE(a->FindAttribute("style"), nullptr);

  const CExtRichContentItem* q = layout.FindRuleKey("q");
  ASSERT_EQ(q->m_ruleChildren.size(), 1u);
  EXPECT_EQ(q->m_ruleChildren[0]->m_state.m_fields[kPseudoBefore], 2);
  EXPECT_EQ(layout.FindRuleKey("li")->m_ruleChildren.at(0)->m_state.m_fields[kPseudoFirstChild], 2);
}

TEST(PseudoStates, Matching) {
  PseudoStateSet hover, hoverActive, before, state;
  hover.m_fields[kPseudoHover] = 2;
  hoverActive = hover;
  hoverActive.m_fields[kPseudoActive] = 2;
  before.m_fields[kPseudoBefore] = 2;
  EXPECT_FALSE(PseudoStateSet::Matches(hover, state));
  EXPECT_TRUE(PseudoStateSet::Matches(before, state));  // pseudo elements match with nothing further
  state.m_fields[kPseudoHover] = 2;
  EXPECT_TRUE(PseudoStateSet::Matches(hover, state));
  EXPECT_FALSE(PseudoStateSet::Matches(hoverActive, state));
  state.m_fields[kPseudoActive] = 2;
  EXPECT_TRUE(PseudoStateSet::Matches(hoverActive, state));
  EXPECT_FALSE(PseudoStateSet::Matches(PseudoStateSet(), state));  // nothing named
  PseudoStateSet merged;
  merged.MergeFrom(hover);
  merged.MergeFrom(before);
  EXPECT_EQ(merged.m_fields[kPseudoHover], 2);
  EXPECT_EQ(merged.m_fields[kPseudoBefore], 2);
  merged.Clear();
  EXPECT_TRUE(merged.IsEmpty());
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
