// parser_test.cpp: the formula grammar: operator strength, the resolved points of blanks and
// signs, calls, ranges, intersections, and failures.
#include <gtest/gtest.h>

#include "formula/parse_helpers.h"
#include "toolkit/formula/alphabet.h"

namespace qmk::toolkit::formula {
namespace {

using testing::ParseTree;
using testing::Printed;

struct PrintCase {
  const char* text;
  const char* printed;  // "FAIL" when the text must not parse
};

void ExpectPrinted(std::initializer_list<PrintCase> cases) {
  for (const PrintCase& c : cases) EXPECT_EQ(Printed(c.text), c.printed) << "formula " << c.text;
}

TEST(FormulaParser, OperatorStrengthWeakestFirst) {
  ExpectPrinted({
      // ":" is weaker than everything but the blank; A1+1:B2 is (A1+1):B2.
      {"=A1+1:B2", "=(A1+1):B2"},
      {"=A1:B2=C3", "=A1:(B2=C3)"},
      // "=" is weaker than "&" and binds to the right.
      {"=1=2&3", "=(1=(2&3))"},
      {"=1=2=3", "=(1=(2=3))"},
      // "&" and "<>" share a level, to the left.
      {"=1&2<>3", "=((1&2)<>3)"},
      {"=1<>2&3", "=((1<>2)&3)"},
      {"=1&2<3", "=(1&(2<3))"},
      {"=1<2>3", "=((1<2)>3)"},
      {"=1<=2>=3", "=((1<=2)>=3)"},
      {"=1<2+3", "=(1<(2+3))"},
      {"=1-2+3", "=((1-2)+3)"},
      {"=1+2*3", "=(1+(2*3))"},
      {"=1/2*3", "=((1/2)*3)"},
      {"=2*3%", "=(2*((3)%))"},
      {"=2%*3", "=(((2)%)*3)"},
      // "^" binds to the left and tighter than "%": 2^3% is (2^3)%.
      {"=2^3^2", "=((2^3)^2)"},
      {"=2^3%", "=(((2^3))%)"},
      // Unary signs bind to a primary only: -2^2 is (-2)^2; unary plus leaves no node.
      {"=-2^2", "=((-(2))^2)"},
      {"=+2", "=2"},
      {"=--2", "=(-((-(2))))"},
      {"=-+-2", "=(-((-(2))))"},
      {"=-(1+2)", "=(-((1+2)))"},
  });
}

TEST(FormulaParser, PrefixPercentTakesItsOperandWithItsOwnStrength) {
  ExpectPrinted({
      {"=%2", "=((2)%)"},
      {"=%2+3", "=(((2)%)+3)"},
      {"=%2^3", "=(((2^3))%)"},
      {"=1+%2", "=(1+((2)%))"},
  });
}

TEST(FormulaParser, BlankBehindAnExpressionFoldsBeforeBinaryOperators) {
  ExpectPrinted({
      {"=1 * 2", "=(1*2)"},
      {"=1 / 2", "=(1/2)"},
      {"=1 & 2", "=(1&2)"},
      {"=1 < 2", "=(1<2)"},
      {"=1 > 2", "=(1>2)"},
      {"=1 = 2", "=(1=2)"},
      {"=1 >= 2", "=(1>=2)"},
      {"=1 <= 2", "=(1<=2)"},
      {"=1 <> 2", "=(1<>2)"},
      {"=1 ^ 2", "=(1^2)"},
      {"=SUM(1 , 2 )", "=SUM(1,2)"},
      {"=( 1 )", "=1"},
      {"= 1 ", "=1"},
      {"=1+ 2", "=(1+2)"},
      {"=1- 2", "=(1-2)"},
  });
}

TEST(FormulaParser, BlankBeforeSignsNamesAndParenthesesIsTheIntersection) {
  ExpectPrinted({
      {"=1 2", "=1 2"},
      {"=1 +2", "=1 2"},
      {"=1 -2", "=1 (-(2))"},
      {"=1 %2", "=1 ((2)%)"},
      {"=1 (2)", "=1 2"},
      {"=1 \"a\"", "=1 \"a\""},
      {"=A1 B2", "=A1 B2"},
      // A call name followed by a blank is no call.
      {"=SUM (A1)", "=SUM A1"},
      // A blank on both sides of a binary sign leaves the second blank no place.
      {"=1 + 2", "FAIL"},
      {"=1 - 2", "FAIL"},
  });
}

TEST(FormulaParser, CommentsCountAsBlanks) {
  ExpectPrinted({
      {"=1/*c*/+2", "=(1+2)"},
      {"=1/*c*/", "=1"},
      {"=1 // note", "=1"},
      // A blank, a comment and the blank that ends every text are two blank tokens: the first
      // is then taken as the intersection operator, and nothing follows it.
      {"=1 /*c*/", "FAIL"},
      {"=1 /*c*/ 2", "=1 2"},
  });
}

TEST(FormulaParser, IntersectionsStayFlatAndBindWeakest) {
  const auto tree = ParseTree("=A1 B2 (C3 D4) E5");
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->m_nKind, kKindIntersection);
  EXPECT_EQ(tree->m_strDescription, "range intersection");
  ASSERT_EQ(tree->GetChildCount(), 5);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(tree->GetChildAt(i)->m_nKind, kKindIdentifier);
  EXPECT_EQ(tree->GetChildAt(4)->GetParent(), tree.get());
  ExpectPrinted({
      {"=A1:B2 C3", "=A1:B2 C3"},
      {"=A1 B2:C3", "=A1 B2:C3"},
      {"=1+2 3", "=(1+2) 3"},
  });
}

TEST(FormulaParser, BlanksAroundAColonVanish) {
  for (const char* text : {"=A1 : B2", "=A1 :B2", "=A1: B2", "=A1:B2", "=A1\t:\nB2"}) {
    const auto tree = ParseTree(text);
    ASSERT_TRUE(tree) << text;
    EXPECT_EQ(tree->m_nKind, kKindRange) << text;
    EXPECT_EQ(tree->m_strDescription, "range");
    EXPECT_EQ(tree->ToText(), "=A1:B2") << text;
  }
}

TEST(FormulaParser, CallsAndArguments) {
  ExpectPrinted({
      {"=PI()", "=PI()"},
      {"=SUM(1)", "=SUM(1)"},
      {"=SUM(1,2,3)", "=SUM(1,2,3)"},
      {"=IF(A1>0,SUM(A1:A3),\"no\")", "=IF((A1>0),SUM(A1:A3),\"no\")"},
      {"=f(g(h()))", "=f(g(h()))"},
      // Commas exist only inside calls.
      {"=1,2", "FAIL"},
      {"=(1,2)", "FAIL"},
      {"=SUM(1,)", "FAIL"},
      {"=SUM(,1)", "FAIL"},
      {"=SUM(1", "FAIL"},
      {"=(1+2", "FAIL"},
      {"=1+2)", "FAIL"},
  });
  const auto tree = ParseTree("=SUM(A1, 2)");
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->m_nKind, kKindFunctionCall);
  EXPECT_EQ(tree->m_strText, "SUM");
  EXPECT_EQ(tree->m_strDescription, "function call");
  EXPECT_EQ(tree->m_location.start, 1);
  EXPECT_EQ(tree->m_location.end, 11);  // through the closing parenthesis
  EXPECT_EQ(tree->GetChildCount(), 2);
}

TEST(FormulaParser, CellNameForms) {
  ExpectPrinted({
      {"=$A1", "=$A1"},
      // "$" opens a name but may not follow its first character: "$A$1" is two names.
      {"=$A$1", "FAIL"},
      {"=A$1", "FAIL"},
      {"=Sheet1!A1", "=Sheet1!A1"},
      {"=_x", "=_x"},
  });
}

TEST(FormulaParser, LiteralsAndTheirKinds) {
  struct Case {
    const char* text;
    int kind;
    const char* node_text;
  };
  for (const Case c : {Case{"=12", kKindInteger, "12"}, {"=017", kKindInteger, "017"},
                       {"=0x1F", kKindInteger, "0x1F"}, {"=1e3", kKindReal, "1.0e3"},
                       {"=\"a\\\"b\"", kKindString, "a\"b"}, {"=\"\"", kKindString, ""},
                       {"=name", kKindIdentifier, "name"}}) {
    const auto tree = ParseTree(c.text);
    ASSERT_TRUE(tree) << c.text;
    EXPECT_EQ(tree->m_nKind, c.kind) << c.text;
    EXPECT_EQ(tree->m_strText, c.node_text) << c.text;
  }
}

TEST(FormulaParser, OperatorNodesCarryKindsAndDescriptions) {
  struct Case {
    const char* text;
    int kind;
    const char* sign;
    const char* description;
  };
  for (const Case c : {Case{"=1*2", kKindMultiply, "*", ""}, {"=1/2", kKindDivide, "/", ""},
                       {"=1+2", kKindAdd, "+", ""}, {"=1-2", kKindSubtract, "-", ""},
                       {"=1<2", kKindLess, "<", ""}, {"=1>2", kKindGreater, ">", ""},
                       {"=1>=2", kKindGreaterOrEqual, ">=", ""}, {"=1<=2", kKindLessOrEqual, "<=", ""},
                       {"=1<>2", kKindNotEqual, "<>", ""}, {"=1&2", kKindConcatenate, "&", ""},
                       {"=1^2", kKindPower, "^", ""}, {"=1=2", kKindEqual, "=", ""},
                       {"=1%", kKindPercent, "%", "unary"}, {"=%1", kKindPercent, "%", "unary"},
                       {"=-1", kKindNegate, "-", "unary"}, {"=1 2", kKindIntersection, " ", "range intersection"}}) {
    const auto tree = ParseTree(c.text);
    ASSERT_TRUE(tree) << c.text;
    EXPECT_EQ(tree->m_nKind, c.kind) << c.text;
    EXPECT_EQ(tree->m_strText, c.sign) << c.text;
    EXPECT_EQ(tree->m_strDescription, c.description) << c.text;
  }
  // Two blank tokens in a row (a comment between blanks) stand as an empty operand.
  const auto blanks = ParseTree("=1* /**/ ");
  ASSERT_TRUE(blanks);
  EXPECT_EQ(blanks->GetChildAt(1)->m_nKind, kKindNone);
}

TEST(FormulaParser, Failures) {
  for (const char* text : {"", "   ", "=", "= ", "1+2", "==1", "=1+", "=*2", "=1 2 +", "=a|b", "=a~b",
                           "=1.2.3", "=09", "=12x", "=\"abc", "=1/*never closed", "=\"\\1\"",
                           "=\"\\x41\"", "=A1:", "=:A1", "=()", "=f(", "=1 = = 2"}) {
    CExtFormulaScanner scanner;
    scanner.SetText(text);
    EXPECT_FALSE(scanner.Parse()) << '"' << text << '"';
    EXPECT_EQ(scanner.GetRoot(), nullptr);
    EXPECT_FALSE(scanner.GetErrorMessage().empty());
  }
}

TEST(FormulaParser, ErrorMessagesSayWhatFailed) {
  struct Case {
    const char* text;
    const char* message;
  };
  for (const Case c : {Case{"=1+", "syntax error"}, {"=\"abc", "unexpected EOF"},
                       {"=1/*x", "unexpected EOF"},
                       {"=\"\\x41\"", "hex char codes in string values not supported"},
                       {"=\"\\7\"", "hex char codes in string values not supported"}}) {
    CExtFormulaScanner scanner;
    scanner.SetText(c.text);
    EXPECT_FALSE(scanner.Parse());
    EXPECT_EQ(scanner.GetErrorMessage(), c.message) << c.text;
  }
}

TEST(FormulaParser, StackLimitEndsDeepNestingWithoutHarm) {
  const auto nested = [](int depth) {
    return "=" + std::string(static_cast<size_t>(depth), '(') + "1" + std::string(static_cast<size_t>(depth), ')');
  };
  EXPECT_NE(Printed(nested(200)), "FAIL");
  CExtFormulaScanner scanner;
  const std::string deep = nested(600);
  scanner.SetText(deep.c_str());
  EXPECT_FALSE(scanner.Parse());
  EXPECT_EQ(scanner.GetErrorMessage(), "parser stack overflow");
  const std::string signs = "=" + std::string(600, '-') + "1";
  scanner.SetText(signs.c_str());
  EXPECT_FALSE(scanner.Parse());
}

std::string Chain(int operators) {
  std::string text = "=1";
  for (int i = 0; i < operators; ++i) text += "+1";
  return text;
}

TEST(FormulaParser, LongChainsParseUpToTheDepthLimit) {
  // Each "+" nests the tree one level deeper; the root is level 1.
  const auto tree = ParseTree(Chain(CExtFormulaScanner::kMaxTreeDepth - 1));
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->m_nKind, kKindAdd);
  EXPECT_EQ(tree->ToText().size(), 4 * static_cast<size_t>(CExtFormulaScanner::kMaxTreeDepth - 1) + 2);
  std::string text = Chain(CExtFormulaScanner::kMaxTreeDepth - 1);
  tree->ShiftReferences(nullptr, CExtFormulaAlphabet(), text, 1, 1, nullptr);

  CExtFormulaScanner scanner;
  const std::string deeper = Chain(CExtFormulaScanner::kMaxTreeDepth);
  scanner.SetText(deeper.c_str());
  EXPECT_FALSE(scanner.Parse());
  EXPECT_EQ(scanner.GetErrorMessage(), "formula nested too deeply");
  // Wide is not deep: many arguments of one call are fine.
  std::string wide = "=SUM(1";
  for (int i = 0; i < 3 * CExtFormulaScanner::kMaxTreeDepth; ++i) wide += ",1";
  EXPECT_NE(Printed(wide + ")"), "FAIL");
}

TEST(FormulaParser, OverlongTextIsRefused) {
  const std::string text = "=" + std::string(CExtFormulaScanner::kMaxTextLength, '1');
  CExtFormulaScanner scanner;
  scanner.SetText(text.c_str(), static_cast<int>(text.size()));
  EXPECT_FALSE(scanner.Parse());
  EXPECT_EQ(scanner.GetErrorMessage(), "formula too long");
  EXPECT_EQ(Printed(text.substr(0, CExtFormulaScanner::kMaxTextLength)).size(), CExtFormulaScanner::kMaxTextLength);
}

TEST(FormulaParser, ScannerIsReusableAndOwnsAnUntakenTree) {
  CExtFormulaScanner scanner;
  scanner.SetText("=1+2");
  ASSERT_TRUE(scanner.Parse());
  EXPECT_NE(scanner.GetRoot(), nullptr);
  scanner.SetText("=3");  // the first tree is freed here
  ASSERT_TRUE(scanner.Parse());
  std::unique_ptr<CExtFormulaItem> root(scanner.DetachRoot());
  EXPECT_EQ(root->m_strText, "3");
  EXPECT_EQ(root->GetParent(), nullptr);
  EXPECT_EQ(scanner.GetRoot(), nullptr);
  scanner.SetText("=1+");
  EXPECT_FALSE(scanner.Parse());
}

TEST(FormulaParser, ExplicitLengthStopsEarlyAndZeroBytesAreRefused) {
  CExtFormulaScanner scanner;
  scanner.SetText("=1+2garbage", 4);
  ASSERT_TRUE(scanner.Parse());
  EXPECT_EQ(scanner.GetRoot()->ToText(), "=(1+2)");
  const char with_zero[] = {'=', '1', '\0', '+', '2'};
  scanner.SetText(with_zero, 5);
  EXPECT_FALSE(scanner.Parse());
}

TEST(FormulaParser, LocationsCountLinesAndColumns) {
  const auto tree = ParseTree("=1+\nA1");
  ASSERT_TRUE(tree);
  const CExtFormulaItem* a1 = tree->GetChildAt(1);
  EXPECT_EQ(a1->m_strText, "A1");
  EXPECT_EQ(a1->m_location.start, 4);
  EXPECT_EQ(a1->m_location.start_line, 1);
  EXPECT_EQ(a1->m_location.start_column, 0);
  EXPECT_EQ(a1->m_location.end_column, 2);
}

}  // namespace
}  // namespace qmk::toolkit::formula
