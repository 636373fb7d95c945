// markup_test.cpp: the tag tokenizer, the tree builder with its implied closes and error codes,
// the choice of form, and linked sheets.
#include <gtest/gtest.h>

#include <memory>

#include "richcontent/tree_text.h"
#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {
namespace {

using testing::ParseToTree;
using testing::TreeText;

struct TreeCase {
  const char* html;
  const char* tree;
  bool ok;
};

TEST(MarkupTokenizer, KeptOddities) {
  const TreeCase cases[] = {
      // "<" opens a tag only before a letter, "/" or "!".
      {"a < b", "a _ < _ b", true},
      {"a <b>c</b>", "a _ b(c)", true},
      // "/*" in body text starts a comment that eats text.
      {"1 /* 2 */ 3", "1 _ 3", true},
      {"a /* never closed", "a _", true},
      {"x<!-- gone -->y", "xy", true},
      {"a<!-- never closed", "a", true},
      // A closing tag of a void element is discarded; "<br>" closes itself.
      {"a<br>b</br>c", "a br b c", true},
      // The void table's "!DOCTYPE" is compared with a lower-cased name: a doctype is an
      // ordinary element, left open at the end.
      {"<!DOCTYPE html><p>x</p>", "!doctype!3(p(x))", false},
      {"<![if x]>a<![endif]>", "![if a ![endif]", true},
      // "/>" self-closes unless a quote follows the ">"; then the "/" is tag text.
      {"<x a=b/>c", "x c", true},
      {"<x a=b/>\"c", "x!3(\"c)", false},
      // An unterminated tag at the end is dropped.
      {"a<b", "a", true},
      {"<pre>a\nb</pre>", "pre(a br b)", true},
      {"", "", true},
  };
  for (const TreeCase& c : cases) {
    bool ok = false;
    EXPECT_EQ(ParseToTree(c.html, &ok), c.tree) << c.html;
    EXPECT_EQ(ok, c.ok) << c.html;
  }
}

TEST(MarkupTokenizer, WholeTagTextIsLowerCased) {
  CExtRichContentLayout layout;
  ASSERT_TRUE(layout.ParseHtml("<P CLASS=\"Note\" HREF=\"Http://X/Y.Html\">t</P>"));
  const CExtRichContentItem* p = layout.Root()->m_children.at(0);
  EXPECT_EQ(p->m_strName, "p");
  ASSERT_NE(p->FindAttribute("class"), nullptr);
  EXPECT_EQ(p->FindAttribute("CLASS")->m_strRaw, "note");
  EXPECT_EQ(p->FindAttribute("href")->m_strRaw, "http://x/y.html");
}

TEST(MarkupTokenizer, SpacesBetweenCommentsKeepTheirBlanks) {
  CExtRichContentLayout layout;
  ASSERT_TRUE(layout.ParseHtml("1 /* 2 */ 3"));
  const auto& children = layout.Root()->m_children;
  ASSERT_EQ(children.size(), 3u);
  EXPECT_EQ(children[1]->m_nKind, kKindSpace);
  EXPECT_EQ(children[1]->m_strName, "  ");  // "1  3"
}

TEST(MarkupTokenizer, StyleCommentMarksTheStyleElementAndKeepsTheSheet) {
  CExtRichContentLayout layout;
  ASSERT_TRUE(layout.ParseHtml("<style><!-- p{color:red} --></style><p>x</p>"));
  ASSERT_EQ(layout.HeadItems().size(), 1u);
  const CExtRichContentItem* style = layout.HeadItems()[0];
  EXPECT_EQ(style->m_nKind, kKindStyle);
  EXPECT_TRUE(style->m_bCommentInsideStyle);
  EXPECT_NE(layout.FindRuleKey("p"), nullptr);
}

TEST(MarkupTokenizer, BadAttributeTextEndsTheRunWithCode2) {
  CExtRichContentLayout layout;
  EXPECT_FALSE(layout.ParseHtml("<a =\"x\">t</a><b>later</b>"));
  ASSERT_FALSE(layout.Items().empty());
  const CExtRichContentItem* last = layout.Items().back();
  EXPECT_EQ(last->m_nError, kErrorTagText);
  EXPECT_EQ(TreeText(layout.Root()).find("later"), std::string::npos);
}

TEST(TreeBuilder, ImpliedClosesAndErrors) {
  const TreeCase cases[] = {
      {"<p>one<p>two</p>", "p(one) p(two)", true},
      {"<p>one<p>two", "p(one) p!3(two)", false},
      {"<ul><li>a<li>b</ul>", "ul(li(a) li(b))", true},
      {"<table><tr><td>x<tr><td>y</table>", "table(tr(td(x)) tr(td(y)))", true},
      {"<dl><dt>a<dd>b</dl>", "dl(dt(a) dd(b))", true},
      {"<select><option>a<option>b</select>", "select(option(a) option(b))", true},
      {"<table><thead><tr><td>h<tbody><tr><td>b</table>",
       "table(thead(tr(td(h))) tbody(tr(td(b))))", true},
      {"<table><tr><td>a<td>b</tr></table>", "table(tr(td(a) td(b)))", true},
      {"<p>a<div>b</div>", "p(a) div(b)", true},
      {"<p>a<li>b", "p(a) li!3(b)", false},
      // A block closing inside "p" closes the "p" only, so the "div" stays open.
      {"<div><p>a</div>", "div!3(p(a))", false},
      // A closing tag that matches nothing is counted and ignored.
      {"<b>x</i>y</b>", "b(x y)", false},
      {"<span>x</div></span>", "span(x)", false},
      {"<img src=a>x", "img x", true},
      {"<tr><td>a</tr>", "tr(td(a))", true},
  };
  for (const TreeCase& c : cases) {
    bool ok = false;
    EXPECT_EQ(ParseToTree(c.html, &ok), c.tree) << c.html;
    EXPECT_EQ(ok, c.ok) << c.html;
  }
}

TEST(TreeBuilder, UnmatchedClosingTagGetsCode1) {
  CExtRichContentLayout layout;
  EXPECT_FALSE(layout.ParseHtml("<b>x</i>y</b>"));
  EXPECT_EQ(layout.ErrorCount(), 1);
  int unmatched = 0;
  for (const CExtRichContentItem* item : layout.Items())
    if (item->m_bClosing && item->m_strName == "i") unmatched = item->m_nError;
  EXPECT_EQ(unmatched, kErrorUnmatchedClose);
}

TEST(TreeBuilder, HeadElementsGetTheirKinds) {
  CExtRichContentLayout layout;
  layout.ParseHtml("<title>t</title><script>s</script><meta name=a><link rel=x><p>x</p>");
  ASSERT_EQ(layout.HeadItems().size(), 4u);
  EXPECT_EQ(layout.HeadItems()[0]->m_nKind, kKindTitle);
  EXPECT_EQ(layout.HeadItems()[1]->m_nKind, kKindScript);
  EXPECT_EQ(layout.HeadItems()[2]->m_nKind, kKindMeta);
  EXPECT_EQ(layout.HeadItems()[3]->m_nKind, kKindLink);
}

TEST(TreeBuilder, LinkedSheets) {
  {
    CExtRichContentLayout layout;  // no "rel": ignored without an error
    EXPECT_TRUE(layout.ParseHtml("<link type=text/css href=x.css><p>x</p>"));
  }
  {
    CExtRichContentLayout layout;  // an unknown name fails with code 6
    EXPECT_FALSE(layout.ParseHtml("<link rel=stylesheet type=\"text/css\" href='missing.css'><p>x</p>"));
    EXPECT_EQ(layout.HeadItems().at(0)->m_nError, kErrorSheetLoad);
  }
  {
    CExtRichContentLayout layout;
    auto sheet = std::make_unique<CExtRichDocObjectLayoutKeeper>("Site.CSS");
    sheet->SetText("p { color: #010203 }", kFormCss);
    ASSERT_TRUE(layout.LocalContainer().Add(std::move(sheet)));
    EXPECT_TRUE(layout.ParseHtml("<link rel=stylesheet type=text/css href=site.css><p>x</p>"));
    ASSERT_EQ(layout.LinkedLayouts().size(), 2u);  // the default sheet, then the linked one
    CExtRichStyleDescription root;
    layout.ComputeTree(root);
    const CExtRichContentItem* p = layout.Root()->m_children.back();
    EXPECT_EQ(p->m_pStyle->m_colors[kColorText], 0x030201);
  }
}

int FormTwo(const char*, int) { return kFormCss; }

TEST(ParseAuto, DetectorAndForms) {
  struct Case {
    const char* text;
    int form;
  };
  for (const Case c : {Case{"<HTML><p>x", kFormHtml}, {" \n\t<html>", kFormHtml},
                       {"<h-t-m-l>", kFormHtml},  // other characters are passed over
                       {"<p>x</p>", kFormPlain}, {"<htm", kFormPlain}, {"hello world", kFormPlain},
                       {"", kFormPlain}})
    EXPECT_EQ(CExtRichContentLayout::StandardDetector(c.text, -1), c.form) << c.text;

  CExtRichContentLayout layout;
  EXPECT_TRUE(layout.ParseAuto("<html><p>x</p></html>", kFormDetect));
  EXPECT_EQ(layout.Form(), kFormHtml);
  EXPECT_FALSE(layout.ParseAuto("x", 7));
  CExtRichContentLayout::SetDetector(&FormTwo);
  EXPECT_TRUE(layout.ParseAuto("p{color:red}", kFormDetect));
  EXPECT_EQ(layout.Form(), kFormCss);
  CExtRichContentLayout::SetDetector(nullptr);
  EXPECT_FALSE(layout.ParseAuto("x", kFormDetect));
  CExtRichContentLayout::SetDetector(&CExtRichContentLayout::StandardDetector);
}

TEST(DocObjects, ContainersAreCaseBlindAndRefuseDuplicates) {
  CExtRichDocObjectContainer container("c");
  EXPECT_TRUE(container.Add(std::make_unique<CExtRichDocObjectImage>("Logo")));
  EXPECT_FALSE(container.Add(std::make_unique<CExtRichDocObjectImage>("LOGO")));
  EXPECT_TRUE(container.Add(std::make_unique<CExtRichDocObjectImage>("logo"), true));
  EXPECT_NE(container.Find("lOgO"), nullptr);
  EXPECT_TRUE(container.Remove("LOGO"));
  EXPECT_EQ(container.Count(), 0u);
  auto* keeper = dynamic_cast<CExtRichDocObjectLayoutKeeper*>(
      CExtRichDocObjectContainerGlobal::Instance().Find(kDefaultSheetName));
  ASSERT_NE(keeper, nullptr);
  EXPECT_EQ(keeper->Layout().Form(), kFormCss);
  EXPECT_NE(keeper->Layout().FindRuleKey("blockquote"), nullptr);
}

}  // namespace
}  // namespace qmk::toolkit::richcontent

namespace qmk::toolkit::richcontent {
namespace {

TEST(DocObjects, ContainerArchiveRoundTrip) {
  CExtRichDocObjectContainer container("Shared");
  auto sheet = std::make_unique<CExtRichDocObjectLayoutKeeper>("Site.css");
  sheet->SetText("p { color: red }", kFormCss);
  container.Add(std::move(sheet));
  auto inner = std::make_unique<CExtRichDocObjectContainer>("inner");
  inner->Add(std::make_unique<CExtRichDocObjectLayoutKeeper>("empty"));
  container.Add(std::move(inner));
  platform::Archive out = platform::Archive::ToMemory();
  ASSERT_TRUE(container.Serialize(out));
  out.Flush();
  const std::vector<uint8_t> bytes = out.TakeStored();

  CExtRichDocObjectContainer loaded("");
  platform::Archive in = platform::Archive::FromMemory(bytes.data(), bytes.size());
  ASSERT_TRUE(loaded.Serialize(in));
  EXPECT_EQ(loaded.Name(), "Shared");
  auto* keeper = dynamic_cast<CExtRichDocObjectLayoutKeeper*>(loaded.Find("site.css"));
  ASSERT_NE(keeper, nullptr);
  EXPECT_EQ(keeper->Text(), "p { color: red }");
  EXPECT_NE(keeper->Layout().FindRuleKey("p"), nullptr);
  ASSERT_NE(dynamic_cast<CExtRichDocObjectContainer*>(loaded.Find("inner")), nullptr);

  // A cut archive fails instead of inventing objects.
  platform::Archive cut = platform::Archive::FromMemory(bytes.data(), bytes.size() / 2);
  CExtRichDocObjectContainer broken("");
  EXPECT_FALSE(broken.Serialize(cut));
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
