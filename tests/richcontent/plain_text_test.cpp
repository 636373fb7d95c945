// plain_text_test.cpp: the plain text form and its drawing flags.
#include <gtest/gtest.h>

#include <string>

#include "richcontent/tree_text.h"
#include "toolkit/richcontent/layout.h"

namespace qmk::toolkit::richcontent {
namespace {

std::string PlainTree(const std::string& text, unsigned flags) {
  CExtRichContentLayout layout;
  EXPECT_TRUE(layout.ParsePlainText(text, flags));
  return testing::TreeText(layout.Root());
}

TEST(PlainText, FlagsShapeTheItems) {
  struct Case {
    const char* text;
    unsigned flags;
    const char* tree;
  };
  const Case cases[] = {
      {"a b\r\nc", 0, "p(a _ b br c)"},
      {"a b\nc", 0x20, "p(a _ b _ c)"},  // single line: a newline is a blank
      {"a\tb", 0, "p(a _ b)"},
      {"a\tb", 0x40, "p(a \t b)"},  // expanded tabs are words
      {"&File", 0, "p(F ile)"},
      {"a&&b", 0, "p(a&b)"},
      {"&File", 0x800, "p(&File)"},
      {"abc de", 0x8000 | 0x10000, "p(a b c _ d e)"},
      {"abc", 0x8000, "p(abc)"},  // the ellipsis splits only with 0x10000 among 0x10500
      {"abc", 0x8000 | 0x10000 | 0x400, "p(abc)"},
      {"", 0, "p"},
  };
  for (const Case& c : cases) EXPECT_EQ(PlainTree(c.text, c.flags), c.tree) << c.text << " " << c.flags;
}

TEST(PlainText, AcceleratorItems) {
  for (const unsigned flags : {0u, 0x100000u, 0x200000u}) {
    CExtRichContentLayout layout;
    layout.ParsePlainText("&Open", flags);
    const CExtRichContentItem* key = layout.Root()->m_children.at(0)->m_children.at(0);
    EXPECT_EQ(key->m_strSecondary, "O");
    EXPECT_EQ((key->m_nTextFlags & kTextAcceleratorUnderline) != 0, flags != 0x100000u) << flags;
    EXPECT_EQ(key->m_bInvisible, flags == 0x200000u) << flags;
  }
}

TEST(PlainText, BreaksTakeLineMetricsFromTheLastBreak) {
  CExtRichContentLayout layout;
  layout.ParsePlainText("a\nb\nc", 0);
  EXPECT_EQ(layout.Form(), kFormPlain);
  const CExtRichContentItem* p = layout.Root()->m_children.at(0);
  EXPECT_TRUE(p->m_bBlockDisplay);
  const CExtRichContentItem* first = p->m_children.at(1);
  const CExtRichContentItem* second = p->m_children.at(3);
  EXPECT_EQ(first->m_pLineMetricSource, p);
  EXPECT_EQ(second->m_pLineMetricSource, first);
  CExtRichStyleDescription root;
  layout.ComputeTree(root);
  EXPECT_EQ(p->m_pStyle->m_enums[kDisplay], 1);
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
