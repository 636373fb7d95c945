// grid_wnd_test.cpp: the formula grid's column and row inserts and removals with reference
// shifting, named ranges across them, hidden join cells and the cell walks.
#include <gtest/gtest.h>

#include "engine_helpers.h"
#include "toolkit/formula/formula_grid_wnd.h"

namespace qmk::toolkit::formula {
namespace {

CellPos At(CExtFormulaGridWnd& grid, const char* name) {
  const char* p = name;
  return grid.GetFormulaDataManager().GetAlphabet().ParseCell(p);
}

void Set(CExtFormulaGridWnd& grid, const char* name, const char* text) {
  const CellPos p = At(grid, name);
  grid.FormulaSet(p.column, p.row, text);
}

std::string FormulaAt(CExtFormulaGridWnd& grid, const char* name) {
  const CellPos p = At(grid, name);
  std::string text;
  return grid.FormulaGet(p.column, p.row, text) ? text : "<none>";
}

std::string ShownAt(CExtFormulaGridWnd& grid, const char* name) {
  const CellPos p = At(grid, name);
  return testing::Shown(grid.GetFormulaDataManager(), p.column, p.row);
}

enum class Op { kColumnInsert, kColumnRemove, kRowInsert, kRowRemove };

struct ShiftCase {
  Op op;
  int position, count;
  const char* formula;    // entered in E5
  const char* movedTo;    // where E5 went
  const char* rewritten;  // its text afterwards
};

bool Apply(CExtFormulaGridWnd& grid, Op op, int position, int count) {
  switch (op) {
    case Op::kColumnInsert: return grid.ColumnInsert(position, count);
    case Op::kColumnRemove: return grid.ColumnRemove(position, count);
    case Op::kRowInsert: return grid.RowInsert(position, count);
    case Op::kRowRemove: return grid.RowRemove(position, count);
  }
  return false;
}

TEST(FormulaGridWnd, InsertsAndRemovalsMoveReferencesIntoTheMovedRegion) {
  // Columns: A is 0, so position 1 is before B. Rows: position 1 is before row 2.
  static const ShiftCase kCases[] = {
      {Op::kColumnInsert, 1, 1, "=B1", "F5", "=C1"},
      {Op::kColumnInsert, 1, 1, "=A1", "F5", "=A1"},
      {Op::kColumnInsert, 1, 2, "=SUM(A1:C1)", "G5", "=SUM(A1:E1)"},
      {Op::kColumnInsert, 5, 1, "=B1+D2", "E5", "=B1+D2"},  // behind every reference
      {Op::kColumnRemove, 1, 1, "=C1", "D5", "=B1"},
      {Op::kColumnRemove, 1, 1, "=A1+D1", "D5", "=A1+C1"},
      {Op::kColumnRemove, 1, 1, "=B1", "D5", "=B1"},  // a removed cell is kept as written
      {Op::kRowInsert, 1, 1, "=A2*A1", "E6", "=A3*A1"},
      {Op::kRowInsert, 0, 3, "=$A1", "E8", "=A4"},
      {Op::kRowRemove, 1, 2, "=A4+A1", "E3", "=A2+A1"},
      {Op::kRowRemove, 1, 2, "=SUM(A1:A9)", "E3", "=SUM(A1:A7)"},
  };
  for (const ShiftCase& c : kCases) {
    CExtFormulaGridWnd grid(26, 100);
    Set(grid, "E5", c.formula);
    ASSERT_TRUE(Apply(grid, c.op, c.position, c.count)) << c.formula;
    EXPECT_EQ(FormulaAt(grid, c.movedTo), c.rewritten) << c.formula << " op " << static_cast<int>(c.op);
  }
}

TEST(FormulaGridWnd, InsertingAndRemovingAColumnRoundTripsValues) {
  CExtFormulaGridWnd grid(26, 100);
  Set(grid, "A1", "2");
  Set(grid, "B1", "3");
  Set(grid, "C2", "=A1*B1");
  const int refreshes = grid.m_nRefreshCount;
  ASSERT_TRUE(grid.ColumnInsert(1, 1));
  EXPECT_EQ(grid.m_nRefreshCount, refreshes + 1);
  EXPECT_EQ(FormulaAt(grid, "D2"), "=A1*C1");
  EXPECT_EQ(ShownAt(grid, "D2"), "6");
  // Writing into the new column reaches nothing: the reference moved past it.
  Set(grid, "B1", "100");
  EXPECT_EQ(ShownAt(grid, "D2"), "6");
  ASSERT_TRUE(grid.ColumnRemove(1, 1, false));
  EXPECT_EQ(grid.m_nRefreshCount, refreshes + 2);  // the FormulaSet above; no redraw asked
  EXPECT_EQ(FormulaAt(grid, "C2"), "=A1*B1");
  Set(grid, "B1", "4");
  EXPECT_EQ(ShownAt(grid, "C2"), "8");
}

TEST(FormulaGridWnd, RemovingTheCellsAFormulaReadsLeavesItReadingWhatIsThereNow) {
  CExtFormulaGridWnd grid(26, 100);
  Set(grid, "A1", "1");
  Set(grid, "A2", "=A1+1");
  Set(grid, "A3", "=A2+1");
  Set(grid, "A4", "=A3*10");
  ASSERT_TRUE(grid.RowRemove(1, 2));
  // A4 moved to A2; its reference to the removed A3 is kept as written and now reads A3, empty.
  EXPECT_EQ(FormulaAt(grid, "A2"), "=A3*10");
  EXPECT_EQ(ShownAt(grid, "A2"), "0");
  EXPECT_EQ(grid.GetFormulaDataManager().GetFormulaCellCount(), 1u);
}

TEST(FormulaGridWnd, OutOfRangeInsertsAndRemovalsChangeNothing) {
  CExtFormulaGridWnd grid(5, 5);
  Set(grid, "B2", "=A1");
  EXPECT_FALSE(grid.ColumnInsert(-1, 1));
  EXPECT_FALSE(grid.ColumnInsert(6, 1));
  EXPECT_FALSE(grid.RowInsert(0, 0));
  EXPECT_FALSE(grid.ColumnRemove(5, 1));
  EXPECT_FALSE(grid.RowRemove(0, -2));
  EXPECT_EQ(FormulaAt(grid, "B2"), "=A1");
  // A removal running past the end takes what there is.
  EXPECT_TRUE(grid.RowRemove(3, 10));
  EXPECT_EQ(grid.GetFormulaDataManager().GetRowCount(), 3);
}

TEST(FormulaGridWnd, ANamedRangeKeepsItsCellsAcrossInserts) {
  CExtFormulaGridWnd grid(26, 100);
  CExtFormulaDataManager& manager = grid.GetFormulaDataManager();
  const CExtGridRangeSet b1(CellRect{1, 0, 1, 0});
  ASSERT_TRUE(manager.SetNamedRange("rate", &b1));
  Set(grid, "B1", "5");
  Set(grid, "A3", "=rate*B1");
  EXPECT_EQ(ShownAt(grid, "A3"), "25");
  ASSERT_TRUE(grid.ColumnInsert(0, 1));
  ASSERT_TRUE(grid.RowInsert(0, 1));
  // The name still names B1, now empty; the written reference followed its cell to C2.
  EXPECT_EQ(*manager.FindNamedRange("rate"), b1);
  EXPECT_EQ(FormulaAt(grid, "B4"), "=rate*C2");
  EXPECT_EQ(ShownAt(grid, "B4"), "0");
  Set(grid, "B1", "2");
  EXPECT_EQ(ShownAt(grid, "B4"), "10");
}

TEST(FormulaGridWnd, CellsHiddenInAJoinReadAsZero) {
  CExtFormulaGridWnd grid(10, 10);
  Set(grid, "B1", "9");
  Set(grid, "C1", "4");
  Set(grid, "D1", "=B1+C1");
  EXPECT_EQ(ShownAt(grid, "D1"), "13");
  // A1 over three columns covers B1 and C1; their stored values no longer count.
  ASSERT_TRUE(grid.JoinSet(0, 0, 3, 1));
  EXPECT_EQ(ShownAt(grid, "D1"), "0");
  EXPECT_EQ(grid.CellTextGet(1, 0), "9");  // the value is still stored
  // A join does not reach past the grid.
  EXPECT_FALSE(grid.JoinSet(8, 0, 3, 1));
  // The cell a join starts from is not hidden.
  Set(grid, "A1", "7");
  Set(grid, "E1", "=A1");
  EXPECT_EQ(ShownAt(grid, "E1"), "7");
}

TEST(FormulaGridWnd, JoinsMoveWithInsertsAndStillHideTheirCells) {
  CExtFormulaGridWnd grid(10, 10);
  Set(grid, "B2", "6");
  ASSERT_TRUE(grid.JoinSet(0, 1, 2, 1));
  Set(grid, "D1", "=B2+1");
  EXPECT_EQ(ShownAt(grid, "D1"), "1");
  ASSERT_TRUE(grid.RowInsert(0, 1));
  EXPECT_EQ(FormulaAt(grid, "D2"), "=B3+1");
  EXPECT_EQ(ShownAt(grid, "D2"), "1");
}

TEST(FormulaGridWnd, WalksCountFormulaCellsAndStopOnRequest) {
  CExtFormulaGridWnd grid(10, 10);
  Set(grid, "A1", "1");
  Set(grid, "A2", "=A1+1");
  Set(grid, "B2", "=A2+1");
  Set(grid, "C3", "text");
  for_each_base_t count;
  EXPECT_TRUE(grid.ForEachCell(CExtGridRangeSet(CellRect{0, 0, 9, 9}), count));
  EXPECT_EQ(count.GetCount(), 2);

  struct StopAtFirst : for_each_base_t {
    bool OnFormulaCell(CExtFormulaGridWnd&, CExtFormulaGridCell&, int, int) override { return false; }
  } stop;
  EXPECT_FALSE(grid.ForEachCell(CExtGridRangeSet(CellRect{0, 0, 9, 9}), stop));
  EXPECT_EQ(stop.GetCount(), 1);

  // Erasing the formulas of column A, and emptying its other cells.
  for_each_erase_t erase(true);
  grid.ForEachCell(CExtGridRangeSet(CellRect{0, 0, 0, 9}), erase);
  EXPECT_EQ(FormulaAt(grid, "A2"), "<none>");
  EXPECT_EQ(grid.CellTextGet(0, 0), "");
  EXPECT_EQ(grid.GetFormulaDataManager().GetFormulaCellCount(), 1u);

  for_each_compute_t compute;
  Set(grid, "A2", "5");
  grid.ForEachCell(CExtGridRangeSet(CellRect{1, 1, 1, 1}), compute);
  EXPECT_EQ(compute.m_computed, (std::vector<CellPos>{{1, 1}}));
  EXPECT_EQ(ShownAt(grid, "B2"), "6");
}

}  // namespace
}  // namespace qmk::toolkit::formula
