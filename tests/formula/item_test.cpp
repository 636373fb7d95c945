// item_test.cpp: CExtFormulaItem: children, locations, literal values, shifting references,
// finding nodes, rectangles, dependencies, and the error texts.
#include <gtest/gtest.h>

#include "formula/fake_manager.h"
#include "formula/parse_helpers.h"
#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/errors.h"

namespace qmk::toolkit::formula {
namespace {

using platform::Variant;
using testing::FakeManager;
using testing::ParseTree;

const CExtFormulaAlphabet kAlphabet;

CExtFormulaItem* Leaf(const char* text, int start, int end) {
  auto* node = new CExtFormulaItem;
  node->m_strText = text;
  node->m_location.start = start;
  node->m_location.end = end;
  return node;
}

TEST(FormulaItem, ChildrenInsertAdoptDetach) {
  CExtFormulaItem parent;
  EXPECT_EQ(parent.InsertChild(Leaf("b", 0, 0), -1), 0);
  EXPECT_EQ(parent.InsertChild(Leaf("a", 0, 0), 0), 0);
  EXPECT_EQ(parent.InsertChild(Leaf("c", 0, 0), 7), 2);  // beyond the count: appended
  EXPECT_EQ(parent.AddChild(Leaf("d", 0, 0)), 3);
  ASSERT_EQ(parent.GetChildCount(), 4);
  EXPECT_EQ(parent.GetChildAt(0)->m_strText, "a");
  EXPECT_EQ(parent.GetChildAt(2)->m_strText, "c");
  EXPECT_EQ(parent.GetChildAt(1)->GetParent(), &parent);
  EXPECT_EQ(parent.GetChildAt(-1), nullptr);
  EXPECT_EQ(parent.GetChildAt(4), nullptr);

  auto* other = new CExtFormulaItem;
  other->AddChild(Leaf("e", 0, 0));
  parent.AdoptChildren(other, true);
  ASSERT_EQ(parent.GetChildCount(), 5);
  EXPECT_EQ(parent.GetChildAt(4)->GetParent(), &parent);

  const std::vector<CExtFormulaItem*> children = parent.m_children;
  parent.DetachAllChildren();  // leaves the nodes alive, without a parent
  EXPECT_EQ(parent.GetChildCount(), 0);
  for (CExtFormulaItem* child : children) {
    EXPECT_EQ(child->GetParent(), nullptr);
    delete child;
  }
}

TEST(FormulaItem, CopyLocationByGroups) {
  CExtFormulaItem from;
  from.m_location = {3, 9, 1, 2, 4, 5};
  from.AddChild(Leaf("x", 4, 5));
  from.AddChild(Leaf("y", 7, 8));
  CExtFormulaItem to;
  to.CopyLocation(&from, false, true, false);
  EXPECT_EQ(to.m_location.start, 3);
  EXPECT_EQ(to.m_location.start_column, 1);
  EXPECT_EQ(to.m_location.start_line, 2);
  EXPECT_EQ(to.m_location.end, 0);
  to.CopyLocation(&from, false, false, true);
  EXPECT_EQ(to.m_location.end, 9);
  EXPECT_EQ(to.m_location.end_line, 5);
  to.CopyLocation(&from, true, true, true);
  EXPECT_EQ(to.m_location.start, 4);
  EXPECT_EQ(to.m_location.end, 8);
  CExtFormulaItem childless;
  childless.m_location = {1, 2, 0, 0, 0, 0};
  to.CopyLocation(&childless, true, true, true);  // no children: its own location
  EXPECT_EQ(to.m_location.start, 1);
  EXPECT_EQ(to.m_location.end, 2);
}

TEST(FormulaItem, LiteralValues) {
  struct Case {
    const char* formula;
    Variant value;
  };
  for (const Case& c : {Case{"=42", Variant::I4(42)},
                        // Integer literals read as decimal: "0x10" is 0, "017" is 17.
                        {"=0x10", Variant::I4(0)},
                        {"=017", Variant::I4(17)},
                        {"=99999999999", Variant::I4(2147483647)},
                        {"=1e3", Variant::R8(1000.0)},
                        {"=.5", Variant::R8(0.5)},
                        {"=1e", Variant::R8(1.0)},
                        {"=\"x y\"", Variant::Str("x y")}}) {
    const auto tree = ParseTree(c.formula);
    ASSERT_TRUE(tree) << c.formula;
    Variant value;
    EXPECT_TRUE(tree->LiteralToValue(value)) << c.formula;
    EXPECT_EQ(value, c.value) << c.formula;
  }
  Variant untouched = Variant::I4(5);
  EXPECT_FALSE(ParseTree("=A1")->LiteralToValue(untouched));
  EXPECT_EQ(untouched, Variant::I4(5));
}

TEST(FormulaItem, PrintedForms) {
  struct Case {
    const char* formula;
    const char* printed;
  };
  for (const Case c : {Case{"=\"a\\\"b\"", "=\"a\"b\""},  // strings print without escaping
                       {"=5%", "=((5)%)"}, {"=-A1", "=(-(A1))"}, {"=f()", "=f()"},
                       {"=A1:B2 C3", "=A1:B2 C3"}, {"=1.5", "=1.5e0"}}) {
    EXPECT_EQ(testing::Printed(c.formula), c.printed) << c.formula;
  }
  // Only the root prints the "=".
  const auto tree = ParseTree("=1+2");
  EXPECT_EQ(tree->GetChildAt(0)->ToText(), "1");
}

std::string Shifted(const std::string& formula, int dx, int dy, const FormulaManager* manager = nullptr,
                    const CExtGridRangeSet* filter = nullptr) {
  const auto tree = ParseTree(formula);
  if (!tree) return "FAIL";
  std::string text = formula;
  tree->ShiftReferences(manager, kAlphabet, text, dx, dy, filter);
  return text;
}

TEST(FormulaItem, ShiftReferences) {
  FakeManager manager(100, 100);
  manager.AddName("Total", {0, 0, 0, 0});
  manager.AddName("B2", {5, 5, 5, 5});  // a named range shadows the cell of the same name
  const CExtGridRangeSet filter(CellRect{0, 0, 1, 1});
  struct Case {
    const char* formula;
    int dx, dy;
    const FormulaManager* manager;
    const CExtGridRangeSet* filter;
    const char* shifted;
  };
  for (const Case c : {
           Case{"=A1+B2", 1, 1, nullptr, nullptr, "=B2+C3"},
           {"=SUM(A1:Z9, AA1)", 1, 0, nullptr, nullptr, "=SUM(B1:BA9, B1)"},
           // Every name that is a cell moves; literals and text do not.
           {"=\"A1\"&A1&1", 0, 1, nullptr, nullptr, "=\"A1\"&A2&1"},
           // "$" does not hold a reference: it moves, and prints without the marker.
           {"=$A1*2", 2, 0, nullptr, nullptr, "=C1*2"},
           {"=a1", 0, 0, nullptr, nullptr, "=A1"},
           // No clamping: moved below 0 they print as the alphabet makes them.
           {"=A1+B1", -1, 0, nullptr, nullptr, "=1+A1"},
           {"=A1", 0, -1, nullptr, nullptr, "=A0"},
           {"=A1/*c*/+ 1", 0, 2, nullptr, nullptr, "=A3/*c*/+ 1"},
           {"=Total+B2+C3", 1, 0, &manager, nullptr, "=Total+B2+D3"},
           {"=A1+B2+C3", 1, 1, nullptr, &filter, "=B2+C3+C3"},
           {"=A1+\n  B2", 1, 0, nullptr, nullptr, "=B1+\n  C2"},
       }) {
    EXPECT_EQ(Shifted(c.formula, c.dx, c.dy, c.manager, c.filter), c.shifted) << c.formula;
  }
}

TEST(FormulaItem, FindCallAtOffset) {
  const std::string text = "=IF(A1, SUM(1,2), 3)";
  const auto tree = ParseTree(text);
  ASSERT_TRUE(tree);
  struct Case {
    size_t offset;
    const char* call;  // null when no call
    int argument;
  };
  for (const Case c : {Case{text.find("A1"), "IF", 1}, {text.find("A1") + 2, "IF", 1},
                       {text.find(" SUM"), "IF", 2}, {text.find("1,2"), "SUM", 1}, {text.find(",2") + 1, "SUM", 2},
                       {text.find("3)"), "IF", 3}, {text.find("3)") + 1, "IF", 3}, {0, nullptr, 0},
                       {1, nullptr, 0}, {text.size(), nullptr, 0}}) {
    int argument = -7;
    const CExtFormulaItem* call = tree->FindCallAtOffset(static_cast<int>(c.offset), argument);
    if (c.call == nullptr) {
      EXPECT_EQ(call, nullptr) << c.offset;
      continue;
    }
    ASSERT_NE(call, nullptr) << c.offset;
    EXPECT_EQ(call->m_strText, c.call) << c.offset;
    EXPECT_EQ(argument, c.argument) << c.offset;
  }
  int argument = -1;
  EXPECT_EQ(ParseTree("=PI()")->FindCallAtOffset(4, argument)->m_strText, "PI");
  EXPECT_EQ(argument, 0);
}

TEST(FormulaItem, FindItemAtOffsets) {
  const auto tree = ParseTree("=A1+B22");
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->FindItemAtOffsets(4, 7)->m_strText, "B22");
  EXPECT_EQ(tree->FindItemAtOffsets(4, -1)->m_strText, "B22");
  EXPECT_EQ(tree->FindItemAtOffsets(-1, 3)->m_strText, "A1");
  EXPECT_EQ(tree->FindItemAtOffsets(1, 7), tree.get());  // the sum spans both operands
  EXPECT_EQ(tree->FindItemAtOffsets(-1, -1), tree.get());
  EXPECT_EQ(tree->FindItemAtOffsets(2, 3), nullptr);
}

TEST(FormulaItem, CollectRectsAndFindItemWithRect) {
  FakeManager manager(10, 20);
  manager.AddName("Block", {3, 3, 4, 5});
  const auto tree = ParseTree("=SUM(B3:A1, C7, Block, A:B, nothing, 5)");
  ASSERT_TRUE(tree);
  CExtGridRangeSet cells;
  tree->CollectRects(&manager, kAlphabet, cells);
  EXPECT_TRUE(cells.Contains(0, 0));
  EXPECT_TRUE(cells.Contains(2, 6));
  EXPECT_TRUE(cells.Contains(4, 5));
  EXPECT_TRUE(cells.Contains(1, 19));
  EXPECT_FALSE(cells.Contains(5, 0));
  const CExtFormulaItem* range = tree->GetChildAt(0);
  EXPECT_EQ(range->m_rcSecondary, (CellRect{1, 2, 0, 0}));  // as written
  EXPECT_EQ(range->m_rcPrimary, (CellRect{0, 0, 1, 2}));    // normalised
  EXPECT_EQ(tree->GetChildAt(4)->m_rcPrimary, CellRect{});  // not a reference: stays -1
  EXPECT_EQ(tree->FindItemWithRect({1, 2}, {0, 0}), range);
  EXPECT_EQ(tree->FindItemWithRect({0, 0}, {1, 2}), range);
  EXPECT_EQ(tree->FindItemWithRect({2, 6}, {2, 6})->m_strText, "C7");
  EXPECT_EQ(tree->FindItemWithRect({3, 3}, {4, 5})->m_strText, "Block");
  EXPECT_EQ(tree->FindItemWithRect({9, 9}, {9, 9}), nullptr);
}

CExtGridRangeSet Dependencies(const char* formula, const FormulaManager* manager) {
  CExtGridRangeSet cells;
  const auto tree = ParseTree(formula);
  EXPECT_TRUE(tree) << formula;
  if (tree) tree->CollectDependencies(manager, kAlphabet, cells);
  return cells;
}

TEST(FormulaItem, CollectDependencies) {
  FakeManager manager(10, 20);
  manager.AddName("Block", {3, 3, 4, 5});
  manager.AddBareFunction("RAND");
  struct Case {
    const char* formula;
    std::vector<CellRect> rects;
  };
  for (const Case& c : std::initializer_list<Case>{
           {"=A1+B2*2", {{0, 0, 0, 0}, {1, 1, 1, 1}}},
           {"=SUM(B3:A1)", {{0, 0, 1, 2}}},
           {"=Block&RAND&nothing&A0", {{3, 3, 4, 5}}},
           {"=A:A", {{0, 0, 0, 19}}},
           // Intersections report the common cells only.
           {"=A1:C3 B2:D4", {{1, 1, 2, 2}}},
           {"=A1:C3 Block", {}},
           {"=A1:E9 Block B1:D9", {{3, 3, 3, 5}}},
           // A part that names no cells ends the intersection quietly.
           {"=A1:C3 nothing B2", {}},
           {"=A1:C3 (1+2)", {}},
           {"=-A1%", {{0, 0, 0, 0}}},
       }) {
    const CExtGridRangeSet cells = Dependencies(c.formula, &manager);
    EXPECT_EQ(cells.Rects(), c.rects) << c.formula;
  }
  // Without a manager there are neither names nor whole columns.
  EXPECT_TRUE(Dependencies("=A:A+Block", nullptr).IsEmpty());
}

TEST(FormulaErrors, Texts) {
  struct Case {
    int code;
    const char* text;
  };
  for (const Case c : {Case{0, "No error."}, {1, "Syntax error."}, {12, "Expression result is the reference to the range of cells."},
                       {20, "Type conversion error."}, {23, "Floating point type conversion error for the right part of expression."},
                       {32, "Non empty string value is required."}, {100, "Unknown function."},
                       {104, "Function cannot accept cell ranges in parameters."}, {13, "Unknown error (13)."},
                       {-1, "Unknown error (-1)."}, {105, "Unknown error (105)."}}) {
    EXPECT_EQ(GetErrorText(c.code), c.text) << c.code;
  }
}

}  // namespace
}  // namespace qmk::toolkit::formula
