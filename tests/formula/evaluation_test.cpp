// evaluation_test.cpp: computing trees: operators, references, ranges, intersections and errors.
#include <gtest/gtest.h>

#include "engine_helpers.h"
#include "toolkit/formula/value.h"

namespace qmk::toolkit::formula {
namespace {

using testing::EvalCase;
using testing::Evaluate;

TEST(FormulaEvaluation, OperatorsAndLiterals) {
  for (const EvalCase& c : std::initializer_list<EvalCase>{
           {"=1+2*3", "7"},
           {"=-2^2", "4"},
           {"=2^3^2", "64"},
           {"=2^3%", "0.08"},
           {"=50%", "0.5"},
           {"=1 * 2", "2"},
           {"=1+ 2", "3"},
           {"=1 2", "ERR 5"},
           {"=0x10", "0"},
           {"=017", "17"},
           {"=1e3", "1000"},
           {"=1e0", "1"},
           {"=7/2", "3.5"},
           {"=1/0", "ERR 3"},
           {"=\"a\"+1", "ERR 22"},
           {"=1+\"a\"", "ERR 23"},
           {"=\"2\"*\"3\"", "6"},
           {"=\" \"+1", "1"},  // a blank text counts as 0
           {"=-\"a\"", "ERR 5"},
           {"=-TRUE", "ERR 5"},
           {"=\"a\"%", "ERR 21"},
           {"=1<2", "TRUE"},
           {"=2<=1", "FALSE"},
           {"=\"a\"=\"a\"", "TRUE"},
           {"=\"a\"<>\"b\"", "TRUE"},
           {"=\"a\"&1", "\"a1\""},
           {"=SUM (A1)", "ERR 11"},
           {"=A0", "ERR 11"},
           {"=NOPE", "ERR 11"},
           {"=NOPE(1)", "ERR 100"},
           {"=A1 : B2", "RANGE"},
           {"=A1:A1", "RANGE"},
           // The first corner is no cell and no column or row: no half is flagged, and the
           // range holds no cell; a cell holding it fails (see the sheet tests).
           {"=(A1+1):B2", "RANGE"},
           {"=A1:B", "RANGE"},
           {"=A1:A3 A2:B2", "RANGE"},
           {"=A1:A3 1", "ERR 5"},
       })
    EXPECT_EQ(Evaluate(c.formula), c.expected) << c.formula;
}

TEST(FormulaEvaluation, DatesStayDatesThroughArithmeticExceptPower) {
  CExtFormulaDataManager sheet;
  CExtFormulaScanner scanner;
  for (const auto& [text, type] : std::initializer_list<std::pair<const char*, platform::VarType>>{
           {"=DATE(2000,1,1)+1", platform::VT_DATE},
           {"=1+DATE(2000,1,1)", platform::VT_R8},
           {"=DATE(2000,1,1)^1", platform::VT_R8},
       }) {
    scanner.SetText(text);
    ASSERT_TRUE(scanner.Parse()) << text;
    std::unique_ptr<CExtFormulaItem> root(scanner.DetachRoot());
    FormulaContext context;
    CExtFormulaValue value;
    const CExtFormulaItem* errorItem = nullptr;
    ASSERT_EQ(root->Compute(context, value, sheet, errorItem), 0) << text;
    EXPECT_EQ(value.m_value.Type(), type) << text;
  }
}

TEST(FormulaEvaluation, ErrorItemIsTheNodeThatFailedFirst) {
  CExtFormulaDataManager sheet;
  CExtFormulaScanner scanner;
  scanner.SetText("=1+LEN(1/0)");
  ASSERT_TRUE(scanner.Parse());
  std::unique_ptr<CExtFormulaItem> root(scanner.DetachRoot());
  FormulaContext context;
  CExtFormulaValue value;
  const CExtFormulaItem* errorItem = nullptr;
  EXPECT_EQ(root->Compute(context, value, sheet, errorItem), 3);
  ASSERT_NE(errorItem, nullptr);
  EXPECT_EQ(errorItem->m_nKind, kKindDivide);
}

TEST(FormulaEvaluation, NamedRanges) {
  CExtFormulaDataManager sheet;
  sheet.SetCellText(1, 0, "5");
  sheet.SetCellText(1, 1, "7");
  CExtGridRangeSet one(CellRect{1, 0, 1, 0}), two(CellRect{1, 0, 1, 1});
  ASSERT_TRUE(sheet.SetNamedRange("rate", &one));
  ASSERT_TRUE(sheet.SetNamedRange("pair", &two));
  EXPECT_FALSE(sheet.SetNamedRange("", &one));
  EXPECT_EQ(testing::Evaluate(sheet, "=rate*2"), "10");
  EXPECT_EQ(testing::Evaluate(sheet, "=SUM(pair)"), "12");
  EXPECT_EQ(testing::Evaluate(sheet, "=pair"), "RANGE");
  // A named range passes the syntax check of a function that takes no ranges and reaches
  // the conversion, where an empty variant reads as 0.
  EXPECT_EQ(testing::Evaluate(sheet, "=ABS(pair)"), "0");
  EXPECT_EQ(testing::Evaluate(sheet, "=pair B2"), "RANGE");
  EXPECT_EQ(sheet.RemoveAllNamedRanges(), 2u);
  EXPECT_EQ(testing::Evaluate(sheet, "=rate"), "ERR 11");
}

TEST(FormulaEvaluation, NormalizeDate) {
  struct Case {
    platform::Variant in;
    bool changed;
    double out;
  };
  for (const Case& c : {Case{platform::Variant::Date(2.75), true, 0.75}, Case{platform::Variant::Date(3.5), true, 3.5},
                        Case{platform::Variant::Date(1.5), true, 1.5}, Case{platform::Variant::R8(2.5), false, 2.5}}) {
    CExtFormulaValue v;
    v.SetScalar(c.in);
    EXPECT_EQ(v.NormalizeDate(), c.changed);
    EXPECT_EQ(v.m_value.DoubleValue(), c.out);
  }
  CExtFormulaValue cleared;
  cleared.SetScalar(platform::Variant::I4(1));
  cleared.Clear();
  EXPECT_TRUE(cleared.IsEmptyKind());
  EXPECT_TRUE(cleared.m_bEmpty);
}

TEST(FormulaEvaluation, ScalarTextIsShortestExact) {
  EXPECT_EQ(ScalarText(platform::Variant::R8(0.1)), "0.1");
  EXPECT_EQ(ScalarText(platform::Variant::R8(1e20)), "1e+20");
  EXPECT_EQ(ScalarText(platform::Variant::R8(1234.5)), "1234.5");
  EXPECT_EQ(ScalarText(platform::Variant::R8(1.0 / 3)), "0.3333333333333333");
  EXPECT_EQ(ScalarText(platform::Variant::I4(-7)), "-7");
  EXPECT_EQ(ScalarText(platform::Variant::Str("x")), "\"x\"");
}

}  // namespace
}  // namespace qmk::toolkit::formula
