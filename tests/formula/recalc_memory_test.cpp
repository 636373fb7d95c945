// recalc_memory_test.cpp: what recalculation remembers between changes (each formula's
// registered precedents, a call's function, the computing context's entries, the shortcut of
// integer conversion) gives way when what it was taken from changes.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "engine_helpers.h"
#include "platform/variant/change_type.h"
#include "toolkit/formula/reader_index.h"

namespace qmk::toolkit::formula {
namespace {

using platform::Variant;
using testing::Shown;

CellPos Cell(const CExtFormulaDataManager& sheet, const char* name) {
  const char* p = name;
  return sheet.GetAlphabet().ParseCell(p);
}

std::vector<CellPos> Set(CExtFormulaDataManager& sheet, const char* name, const char* text) {
  const CellPos p = Cell(sheet, name);
  return sheet.SetCellText(p.column, p.row, text);
}

std::string ShownAt(const CExtFormulaDataManager& sheet, const char* name) {
  const CellPos p = Cell(sheet, name);
  return Shown(sheet, p.column, p.row);
}

std::vector<CellPos> Cells(const CExtFormulaDataManager& sheet, std::initializer_list<const char*> names) {
  std::vector<CellPos> cells;
  for (const char* name : names) cells.push_back(Cell(sheet, name));
  return cells;
}

TEST(RecalcMemory, APlainCellTurnedFormulaBecomesAPrecedent) {
  CExtFormulaDataManager sheet;
  Set(sheet, "A1", "1");
  Set(sheet, "C1", "7");
  Set(sheet, "B1", "=A1+C1");
  // B1's registered precedents are found (none: A1 and C1 are plain) and kept.
  EXPECT_EQ(Set(sheet, "A1", "2"), Cells(sheet, {"B1"}));
  EXPECT_EQ(ShownAt(sheet, "B1"), "9");
  Set(sheet, "D1", "=A1");
  Set(sheet, "C1", "=D1*2");
  EXPECT_EQ(ShownAt(sheet, "B1"), "6");
  // B1 now reads the formula C1, which reads D1: both come before it.
  EXPECT_EQ(Set(sheet, "A1", "3"), Cells(sheet, {"D1", "C1", "B1"}));
  EXPECT_EQ(ShownAt(sheet, "B1"), "9");
}

TEST(RecalcMemory, AFormulaTurnedPlainIsNoLongerComputed) {
  CExtFormulaDataManager sheet;
  Set(sheet, "A1", "1");
  Set(sheet, "C1", "=A1*2");
  Set(sheet, "B1", "=A1+C1");
  EXPECT_EQ(Set(sheet, "A1", "2"), Cells(sheet, {"C1", "B1"}));
  Set(sheet, "C1", "5");
  EXPECT_EQ(Set(sheet, "A1", "4"), Cells(sheet, {"B1"}));
  EXPECT_EQ(ShownAt(sheet, "B1"), "9");
  EXPECT_EQ(ShownAt(sheet, "C1"), "5");
}

TEST(RecalcMemory, ARewrittenFormulaWaitsForItsNewPrecedents) {
  CExtFormulaDataManager sheet;
  Set(sheet, "A1", "1");
  Set(sheet, "B1", "=A1");
  Set(sheet, "C1", "=A1*10");
  EXPECT_EQ(Set(sheet, "A1", "2"), Cells(sheet, {"B1", "C1"}));
  Set(sheet, "B1", "=A1+C1");
  EXPECT_EQ(ShownAt(sheet, "B1"), "22");
  EXPECT_EQ(Set(sheet, "A1", "3"), Cells(sheet, {"C1", "B1"}));
  EXPECT_EQ(ShownAt(sheet, "B1"), "33");
}

TEST(RecalcMemory, ACallFollowsTheFunctionSet) {
  CExtFormulaDataManager sheet;
  Set(sheet, "A1", "2.4");
  Set(sheet, "B1", "=ROUND(A1,0)");
  EXPECT_EQ(ShownAt(sheet, "B1"), "2");
  ASSERT_TRUE(sheet.GetFunctionSet().Remove("ROUND"));
  Set(sheet, "A1", "3.6");
  EXPECT_EQ(ShownAt(sheet, "B1").rfind("Error: 100 - ", 0), 0u) << ShownAt(sheet, "B1");
  sheet.GetFunctionSet().Reset();
  Set(sheet, "A1", "4.6");
  EXPECT_EQ(ShownAt(sheet, "B1"), "5");
}

TEST(RecalcMemory, FunctionSetsStampEveryChangeApart) {
  CExtFormulaFunctionSet first, second;
  EXPECT_NE(first.GetChangeCount(), second.GetChangeCount());
  const uint64_t before = first.GetChangeCount();
  first.RemoveAll();
  EXPECT_NE(first.GetChangeCount(), before);
  EXPECT_NE(first.GetChangeCount(), second.GetChangeCount());
}

TEST(RecalcMemory, ContextFindsEntriesMadeBeforeAndAfterAQuestion) {
  FormulaContext context;
  EXPECT_EQ(context.count(PositionKey(0, 0)), 0u);
  context.insert(PositionKey(1, 2));
  EXPECT_EQ(context.count(PositionKey(1, 2)), 1u);
  context.insert(PositionKey(3, 4));
  context.insert(PositionKey(3, 4));
  EXPECT_EQ(context.count(PositionKey(3, 4)), 1u);
  EXPECT_EQ(context.count(PositionKey(4, 3)), 0u);
  EXPECT_EQ(context.size(), 2u);
}

TEST(RecalcMemory, IntegerToDoubleAgreesWithTheGeneralConversion) {
  const Variant cases[] = {
      Variant::I4(0),         Variant::I4(1),          Variant::I4(-1),
      Variant::I4(INT32_MAX), Variant::I4(INT32_MIN),  Variant::I8((int64_t{1} << 53) + 1),
      Variant::I8(INT64_MAX), Variant::I8(INT64_MIN),  Variant::I8(-(int64_t{1} << 60) - 3),
      Variant::I8(123456789012345678),
  };
  for (const Variant& given : cases) {
    Variant fast = given, general;
    ASSERT_TRUE(ConvertVariant(fast, platform::VT_R8));
    ASSERT_EQ(platform::ChangeType(general, given, platform::VT_R8), platform::S_OK);
    ASSERT_EQ(fast.Type(), platform::VT_R8);
    const double a = fast.DoubleValue(), b = general.DoubleValue();
    EXPECT_EQ(std::memcmp(&a, &b, sizeof a), 0) << given.SignedValue();
  }
}

TEST(RecalcMemory, DigitTextsReadAsTheGeneralConversionReadsThem) {
  CExtFormulaDataManager sheet;
  const char* const texts[] = {"0", "7", "017", "000", "1234", "999999999999999", "123456789012345",
                               "1000000000000000", "12a", "1 ", " 1", "-5", "1.5", "1e3"};
  int row = 0;
  for (const char* text : texts) {
    sheet.SetCellText(0, row, text);
    Variant general;
    if (platform::ChangeType(general, Variant::Str(text), platform::VT_R8) != platform::S_OK) general = Variant::Str(text);
    const CExtFormulaGridCell* cell = sheet.FindCell(0, row);
    ASSERT_NE(cell, nullptr) << text;
    EXPECT_EQ(cell->ValueGet().Type(), general.Type()) << text;
    EXPECT_EQ(ScalarText(cell->ValueGet()), ScalarText(general)) << text;
    ++row;
  }
}

TEST(RecalcMemory, ReaderIndexHandsBackTheReadersCell) {
  CellReaderIndex index;
  CExtFormulaGridCell first, second;
  index.Add(PositionKey(0, 0), PositionKey(1, 0), &first);
  index.Add(PositionKey(0, 0), PositionKey(2, 0), &second);
  index.Add(PositionKey(0, 1), PositionKey(3, 0));
  std::vector<std::pair<int64_t, const CExtFormulaGridCell*>> found;
  index.ForEachReaderCell(PositionKey(0, 0), [&](int64_t reader, CExtFormulaGridCell* cell) {
    found.push_back({reader, cell});
  });
  const std::vector<std::pair<int64_t, const CExtFormulaGridCell*>> expected{{PositionKey(2, 0), &second},
                                                                             {PositionKey(1, 0), &first}};
  EXPECT_EQ(found, expected);
  index.Remove(PositionKey(0, 0), PositionKey(2, 0));
  found.clear();
  index.ForEachReaderCell(PositionKey(0, 0), [&](int64_t reader, CExtFormulaGridCell* cell) {
    found.push_back({reader, cell});
  });
  EXPECT_EQ(found, (std::vector<std::pair<int64_t, const CExtFormulaGridCell*>>{{PositionKey(1, 0), &first}}));
}

}  // namespace
}  // namespace qmk::toolkit::formula
