// functions_test.cpp: every function family against a table of its rules and edge cases.
#include <gtest/gtest.h>

#include <cmath>

#include "engine_helpers.h"

namespace qmk::toolkit::formula {
namespace {

using testing::EvalCase;
using testing::Evaluate;

void RunTable(std::initializer_list<EvalCase> cases) {
  for (const EvalCase& c : cases) EXPECT_EQ(Evaluate(c.formula), c.expected) << c.formula;
}

TEST(FormulaFunctions, Logical) {
  RunTable({
      {"=IF(TRUE,1)", "1"},
      {"=IF(FALSE,1)", "FALSE"},
      {"=IF(0,1,2)", "2"},
      {"=IF(\"x\",1,2)", "ERR 24"},
      // The branch not taken is never computed.
      {"=IF(TRUE,1,1/0)", "1"},
      {"=IFERROR(1/0,2)", "2"},
      {"=IFERROR(3,1/0)", "3"},
      {"=NOT(0)", "TRUE"},
      {"=NOT(5)", "FALSE"},
      {"=AND(TRUE,1,0)", "FALSE"},
      {"=AND(FALSE,\"x\")", "FALSE"},  // stops before the bad argument
      {"=AND(TRUE,\"x\")", "ERR 24"},
      {"=OR(FALSE,2)", "TRUE"},
      {"=OR(TRUE,1/0)", "TRUE"},
      {"=TRUE", "TRUE"},
      {"=FALSE()", "FALSE"},
      {"=CHOOSE(2,\"a\",\"b\",\"c\")", "\"b\""},
      {"=CHOOSE(4,\"a\",\"b\",\"c\")", "ERR 9"},
      {"=CHOOSE(0,1)", "ERR 9"},
      {"=CHOOSE(\"x\",1)", "ERR 24"},
      {"=CHOOSE(1,1,1/0)", "1"},
  });
}

TEST(FormulaFunctions, MathAndTrig) {
  RunTable({
      {"=ABS(-2.5)", "2.5"},
      {"=SQRT(16)", "4"},
      {"=PI()", "3.141592653589793"},
      {"=PI", "ERR 6"},
      {"=DEGREES(PI())", "180"},
      {"=EXP(0)", "1"},
      {"=POWER(2,10)", "1024"},
      {"=SIGN(-3)", "-1"},
      {"=INT(-2.5)", "-3"},
      // EVEN is the ceiling, not the next even number.
      {"=EVEN(2.5)", "3"},
      {"=ODD(2)", "3"},
      {"=ODD(0)", "1"},
      {"=ODD(-1.5)", "-3"},
      {"=FACT(5)", "120"},
      {"=FACT(4.5)", "120"},
      {"=FACT(171)", "ERR 7"},
      {"=FACT(-1)", "ERR 7"},
      {"=MOD(7,3)", "1"},
      // MOD of a negative number is the distance to the next integer, whatever the divisor.
      {"=MOD(-7,3)", "0"},
      {"=MOD(-7.25,3)", "0.75"},
      {"=MOD(7,0)", "ERR 3"},
      // ROUND of a negative value always goes down.
      {"=ROUND(-2.5,0)", "-3"},
      {"=ROUND(2.5,0)", "3"},
      {"=ROUND(1.234,2)", "1.23"},
      {"=ROUNDUP(-2.5,0)", "-2"},
      {"=ROUNDDOWN(2.5,0)", "2"},
      {"=TRUNC(2.789,1)", "2.7"},
      {"=CEILING(7,5)", "10"},
      {"=CEILING(10,5)", "10"},
      {"=CEILING(-3,1)", "ERR 4"},
      {"=CEILING(3,0)", "0"},
      {"=FLOOR(7,5)", "5"},
      {"=FLOOR(7,-1)", "ERR 4"},
      // LOG takes one argument and is always base 10.
      {"=LOG(1000)", "3"},
      {"=LOG(8,2)", "ERR 102"},
      {"=LN(1)", "0"},
      {"=ABS(\"x\")", "ERR 21"},
      {"=ABS(A1:A2)", "ERR 104"},
      {"=ABS()", "ERR 102"},
      {"=RANDBETWEEN(5,5)", "5"},
      {"=abs(1)", "ERR 100"},
  });
}

TEST(FormulaFunctions, RandomStaysInItsRange) {
  for (int i = 0; i < 50; ++i) {
    const double r = std::stod(Evaluate("=RAND"));
    EXPECT_GE(r, 0.0);
    EXPECT_LE(r, 1.0);
    const double b = std::stod(Evaluate("=RANDBETWEEN(10,1)"));
    EXPECT_GE(b, 1.0);
    EXPECT_LT(b, 10.0);  // the high end is not reached
  }
}

TEST(FormulaFunctions, Statistical) {
  RunTable({
      {"=SUM(1,2,3)", "6"},
      {"=SUM(\"4\",1)", "5"},
      {"=SUM(\"x\")", "ERR 21"},
      // AVERAGE leaves zero arguments out of the divisor.
      {"=AVERAGE(0,4)", "4"},
      {"=AVERAGE(0)", "ERR 3"},
      {"=AVERAGE(2,4)", "3"},
      {"=MIN(3,1,2)", "1"},
      {"=MAX(3,1,2)", "3"},
      {"=MAX(-3,-1)", "-1"},
      {"=MIN(A1:A3)", "0"},
      {"=SUM(A1:B9)", "0"},
  });
}

TEST(FormulaFunctions, StatisticsOverCells) {
  CExtFormulaDataManager sheet;
  sheet.SetCellText(0, 0, "1");
  sheet.SetCellText(0, 1, "2");
  sheet.SetCellText(0, 2, "6");
  sheet.SetCellText(1, 0, "text");
  sheet.SetCellText(1, 1, "5");
  for (const EvalCase& c : std::initializer_list<EvalCase>{
           {"=SUM(A1:A3)", "9"},
           {"=SUM(A1:A3,1)", "10"},
           // A text cell fails a sum but is skipped by MIN and MAX.
           {"=SUM(B1:B2)", "ERR 21"},
           {"=MAX(B1:B2)", "5"},
           {"=MIN(B1:B2)", "5"},
           // Three cells walked: the divisor grows by the last index plus one.
           {"=AVERAGE(A1:A3)", "3"},
           // One existing cell adds to the sum only.
           {"=AVERAGE(A1:A1,4)", "5"},
           {"=AVERAGE(B2:B9,4)", "9"},
       })
    EXPECT_EQ(testing::Evaluate(sheet, c.formula), c.expected) << c.formula;
}

TEST(FormulaFunctions, Text) {
  RunTable({
      {"=CONCATENATE(\"a\",\"b\",1)", "\"ab1\""},
      {"=EXACT(\"a\",\"A\")", "FALSE"},
      {"=EXACT(\"a\",\"a\")", "TRUE"},
      {"=LEN(\"abc\")", "3"},
      {"=CODE(\"A\")", "65"},
      {"=CODE(\"\")", "ERR 32"},
      {"=CODE(CHAR(200))", "-56"},  // the first byte is a signed char
      {"=CHAR(65)", "\"A\""},
      {"=CHAR(0)", "ERR 9"},
      {"=CHAR(256)", "ERR 9"},
      {"=LOWER(\"AbC\")", "\"abc\""},
      {"=UPPER(\"AbC\")", "\"ABC\""},
      {"=T(\"x\")", "\"x\""},
      {"=T(1)", "\"\""},
      {"=TRIM(\"  a   b  \")", "\"a b\""},
      {"=LEFT(\"abc\")", "\"a\""},
      {"=LEFT(\"abc\",5)", "\"abc\""},
      {"=LEFT(\"abc\",0)", "ERR 9"},
      {"=RIGHT(\"abc\",2)", "\"bc\""},
      {"=MID(\"abc\",2,5)", "\"bc\""},
      {"=MID(\"abc\",4,1)", "ERR 9"},
      {"=MID(\"abc\",1,0)", "ERR 9"},
      {"=REPT(\"ab\",3)", "\"ababab\""},
      {"=REPT(\"ab\",0)", "\"\""},
      {"=REPT(\"ab\",-1)", "ERR 9"},
      {"=FIND(\"\",\"abc\",2)", "2"},
      {"=FIND(\"z\",\"abc\")", "ERR 8"},
      {"=FIND(\"B\",\"abc\")", "ERR 8"},
      {"=FIND(\"c\",\"abcabc\",4)", "6"},
      {"=FIND(\"c\",\"abc\",4)", "ERR 9"},
      {"=SEARCH(\"B\",\"abc\")", "2"},
      {"=REPLACE(\"abcdef\",2,3,\"X\")", "\"aXef\""},
      {"=REPLACE(\"abc\",9,1,\"X\")", "\"abcX\""},
      {"=REPLACE(\"\",1,1,\"X\")", "\"X\""},
      {"=REPLACE(\"abc\",0,1,\"X\")", "ERR 9"},
      {"=SUBSTITUTE(\"aaa\",\"a\",\"b\",2)", "\"aba\""},
      {"=SUBSTITUTE(\"aaa\",\"a\",\"bb\")", "\"bbbbbb\""},
      {"=SUBSTITUTE(\"abc\",\"\",\"x\")", "\"abc\""},
      {"=SUBSTITUTE(\"abc\",\"a\",\"x\",0)", "ERR 9"},
      {"=LEN(1.5)", "3"},
  });
}

TEST(FormulaFunctions, DateAndTime) {
  RunTable({
      {"=YEAR(DATE(99,1,1))", "1999"},
      {"=MONTH(DATE(2000,14,1))", "2"},
      {"=YEAR(DATE(2000,14,1))", "2001"},
      {"=MONTH(DATE(2000,0,1))", "12"},
      {"=YEAR(DATE(2000,0,1))", "1999"},
      {"=DAY(DATE(2000,1,32))", "1"},
      {"=DATE(-1,1,1)", "ERR 9"},
      {"=DATE(\"x\",1,1)", "ERR 25"},
      {"=DATE(2000,1,1)", "36526"},
      // TIME's date falls on 1 January 1900, which normalising turns into a fraction of a day.
      {"=N(TIME(12,0,0))", "0.5"},
      {"=TIME(12,0,0)*1", "0.5"},
      {"=HOUR(TIME(25,0,0))", "1"},
      {"=MINUTE(TIME(0,0,150))", "2"},
      {"=SECOND(TIME(0,0,150))", "30"},
      {"=TIME(-1,0,0)", "ERR 9"},
      {"=DATEVALUE(\"2000-01-01\")", "36526"},
      {"=DATEVALUE(\"nonsense\")", "ERR 27"},
      {"=TIMEVALUE(TIME(6,0,0))", "0.25"},
      {"=WEEKDAY(DATE(2024,1,7))", "1"},    // a Sunday
      {"=WEEKDAY(DATE(2024,1,7),2)", "7"},
      {"=WEEKDAY(DATE(2024,1,8),3)", "0"},  // a Monday
      {"=WEEKDAY(DATE(2024,1,7),4)", "ERR 9"},
      // 2023 begins on a Sunday: 1 January is in week 2 under type 1.
      {"=WEEKNUM(DATE(2023,1,1))", "2"},
      {"=WEEKNUM(DATE(2023,1,1),2)", "2"},
      {"=WEEKNUM(DATE(2024,12,31))", "54"},
      {"=WEEKNUM(DATE(2024,1,1),3)", "ERR 9"},
      {"=YEAR(\"x\")", "ERR 27"},
      {"=TODAY", "ERR 6"},
  });
  EXPECT_GT(std::stod(Evaluate("=NOW()")), 40000.0);
  EXPECT_EQ(std::stod(Evaluate("=TODAY()")), std::floor(std::stod(Evaluate("=TODAY()"))));
}

TEST(FormulaFunctions, Information) {
  RunTable({
      {"=ISBLANK(1)", "FALSE"},
      {"=ISNOTEXT(\"\")", "TRUE"},
      {"=ISTEXT(\"a\")", "TRUE"},
      {"=ISTEXT(1)", "FALSE"},
      {"=ISLOGICAL(TRUE)", "TRUE"},
      {"=ISNUMBER(1)", "TRUE"},
      {"=ISNUMBER(\"1\")", "FALSE"},
      {"=ISNUMBER(IFERROR(1/0,2))", "TRUE"},
      {"=ISERROR(1/0)", "TRUE"},
      {"=ISERR(1)", "FALSE"},
      {"=ISNA(1/0)", "TRUE"},
      {"=ISEVEN(-2.7)", "TRUE"},
      {"=ISODD(3)", "TRUE"},
      {"=ISODD(\"x\")", "ERR 25"},
      {"=TYPE(1)", "1"},
      {"=TYPE(\"a\")", "2"},
      {"=TYPE(TRUE)", "4"},
      {"=TYPE(1/0)", "16"},
      {"=TYPE(A1:A2)", "ERR 104"},
      {"=N(\"x\")", "ERR 21"},
      {"=N(TRUE)", "-1"},
      {"=N(5)", "5"},
  });
}

TEST(FormulaFunctions, IsBlankSeesTheEmptyBitOfAnExistingCell) {
  CExtFormulaDataManager sheet;
  sheet.SetCellText(0, 0, "");
  EXPECT_EQ(testing::Evaluate(sheet, "=ISBLANK(A1)"), "TRUE");
  // A cell that does not exist reads as 0.0, which is no blank.
  EXPECT_EQ(testing::Evaluate(sheet, "=ISBLANK(C9)"), "FALSE");
}

TEST(FormulaFunctions, SetLooksUpExactCaseAndGivesTheEditorItsTexts) {
  CExtFormulaFunctionSet set;
  ASSERT_TRUE(set.Reset());
  EXPECT_EQ(set.GetCount(), 89u);
  EXPECT_EQ(set.Find("sum"), nullptr);
  EXPECT_EQ(set.Find(nullptr), nullptr);
  const CExtFormulaFunction* f = set.Find("IF");
  ASSERT_NE(f, nullptr);
  std::string text;
  f->GetDescription(0, text);
  EXPECT_EQ(text, "Checks whether condition is met, and returns one value if TRUE, and another value if FALSE.");
  f->GetDescription(-3, text);
  EXPECT_EQ(text, "value_if_false");
  EXPECT_FALSE(f->GetDescription(-4, text));
  EXPECT_EQ(f->GetCategoryName(), "Logical");
  set.Find("LOG")->GetDescription(-2, text);
  EXPECT_EQ(text, "base");
  set.Find("SUM")->GetDescription(-1, text);
  EXPECT_EQ(text, "number%d");
  int perCategory[7] = {};
  auto pos = set.GetFirstPosition();
  while (const CExtFormulaFunction* g = set.GetNext(pos, -1)) ++perCategory[g->GetCategory()];
  const int expected[7] = {7, 34, 4, 17, 14, 1, 12};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(perCategory[i], expected[i]) << i;
  EXPECT_FALSE(set.Add(nullptr, true));
  EXPECT_FALSE(set.RegisterCategory(0, false));  // the names are there already
  EXPECT_TRUE(set.Remove("IF"));
  EXPECT_TRUE(set.RegisterCategory(0, true));
}

TEST(FormulaFunctions, ParameterCountRule) {
  struct Fixed : CExtFormulaFunction {
    int low, high;
    Fixed(int l, int h) : low(l), high(h) {}
    const char* GetName() const override { return "F"; }
    int GetMinParams() const override { return low; }
    int GetMaxParams() const override { return high; }
    int ComputeResult(FunctionCall&) const override { return 0; }
  };
  EXPECT_TRUE(Fixed(2, 2).IsValidParamCount(2));
  EXPECT_FALSE(Fixed(2, 2).IsValidParamCount(3));
  EXPECT_TRUE(Fixed(1, -1).IsValidParamCount(100));
  EXPECT_FALSE(Fixed(1, -1).IsValidParamCount(0));
  EXPECT_FALSE(Fixed(0, 3).IsValidParamCount(-1));
  EXPECT_TRUE(Fixed(0, 0).AllowsBareName());
  EXPECT_FALSE(Fixed(0, 1).AllowsBareName());
}

}  // namespace
}  // namespace qmk::toolkit::formula
