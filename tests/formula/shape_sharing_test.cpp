// shape_sharing_test.cpp: cells whose formulas have one shape share a parse tree, and compute,
// recompute, shift and depend exactly as cells with trees of their own.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "engine_helpers.h"
#include "toolkit/formula/function.h"

namespace qmk::toolkit::formula {
namespace {

using testing::Shown;

// A formula template: given a row and a way of writing a cell name, the formula of that row.
using CellName = std::function<std::string(int column, int row)>;
using RowFormula = std::function<std::string(int row, const CellName& name)>;

// Builds the same sheet twice: once with cell names as the alphabet prints them (these share
// trees), once with a "$" before each name, which reads the same but keeps every tree apart.
struct Twins {
  CExtFormulaDataManager shared, apart;

  void Fill(int rows, const std::vector<RowFormula>& columns) {
    const CExtFormulaAlphabet& alphabet = shared.GetAlphabet();
    const CellName plain = [&](int c, int r) { return alphabet.FormatCell(c, r); };
    const CellName marked = [&](int c, int r) { return "$" + alphabet.FormatCell(c, r); };
    for (int row = 0; row < rows; ++row) {
      shared.PutCellText(0, row, std::to_string(row % 7 + 1));
      apart.PutCellText(0, row, std::to_string(row % 7 + 1));
      for (size_t i = 0; i < columns.size(); ++i) {
        shared.PutCellText(static_cast<int>(i) + 1, row, columns[i](row, plain));
        apart.PutCellText(static_cast<int>(i) + 1, row, columns[i](row, marked));
      }
    }
    shared.RecomputeAll();
    apart.RecomputeAll();
  }

  // Every cell of the first `columns` by `rows` shows the same in both sheets.
  void ExpectSame(int columns, int rows) {
    for (int row = 0; row < rows; ++row)
      for (int column = 0; column < columns; ++column)
        ASSERT_EQ(Shown(shared, column, row), Shown(apart, column, row))
            << shared.GetAlphabet().FormatCell(column, row);
  }
};

std::string Previous(const CellName& name, int column, int row) { return row == 0 ? "0" : name(column, row - 1); }

// The benchmark's kind of sheet: a chain, a branch, rounding, a range sum, a second chain.
const std::vector<RowFormula> kChains = {
    [](int r, const CellName& n) { return "=" + Previous(n, 1, r) + "+" + n(0, r); },
    [](int r, const CellName& n) { return "=IF(" + n(0, r) + ">3," + n(0, r) + "*2," + n(0, r) + "-1)"; },
    [](int r, const CellName& n) { return "=ROUND(" + n(1, r) + "*0.01+" + n(2, r) + ",2)"; },
    [](int r, const CellName& n) { return "=SUM(" + n(0, r == 0 ? 0 : r - 1) + ":" + n(0, r) + ")+" + n(3, r); },
    [](int r, const CellName& n) { return "=" + Previous(n, 5, r) + "*0.5+" + n(4, r); },
};

TEST(FormulaShapes, RowsOfOneShapeShareOneTree) {
  Twins twins;
  twins.Fill(200, kChains);
  // Row 0 differs from the others (no previous row); rows 1..199 share one tree per column.
  EXPECT_LE(twins.shared.GetShapeCount(), 10u);
  EXPECT_EQ(twins.shared.FindCell(1, 5)->GetTree(), twins.shared.FindCell(1, 150)->GetTree());
  EXPECT_NE(twins.shared.FindCell(1, 5)->GetTree(), twins.shared.FindCell(2, 5)->GetTree());
  // A "$" keeps the tree apart: sharing it would move a name the text does not move.
  EXPECT_NE(twins.apart.FindCell(1, 5)->GetTree(), twins.apart.FindCell(1, 6)->GetTree());
  twins.ExpectSame(6, 200);
}

TEST(FormulaShapes, ChangesRecomputeTheSameCellsInTheSameOrder) {
  Twins twins;
  twins.Fill(120, kChains);
  for (int row : {0, 60, 119}) {
    const std::vector<CellPos> a = twins.shared.SetCellText(0, row, "9");
    const std::vector<CellPos> b = twins.apart.SetCellText(0, row, "9");
    EXPECT_EQ(a, b);
    twins.ExpectSame(6, 120);
  }
  std::vector<CellPos> a, b;
  twins.shared.CollectPrecedents(5, 70, a);
  twins.apart.CollectPrecedents(5, 70, b);
  EXPECT_EQ(a, b);
  EXPECT_FALSE(a.empty());
}

TEST(FormulaShapes, InsertsAndRemovesMoveSharedShapesRight) {
  Twins twins;
  twins.Fill(80, kChains);
  for (auto* sheet : {&twins.shared, &twins.apart}) {
    ASSERT_TRUE(sheet->RowInsert(30, 3));
    ASSERT_TRUE(sheet->ColumnInsert(2, 1));
    ASSERT_TRUE(sheet->RowRemove(50, 2));
    sheet->SetCellText(0, 10, "100");
  }
  twins.ExpectSame(7, 81);
  // The texts moved alike: only the "$" tells them apart.
  std::string text = twins.apart.FindCell(1, 60)->FormulaText();
  std::erase(text, '$');
  EXPECT_EQ(twins.shared.FindCell(1, 60)->FormulaText(), text);
}

TEST(FormulaShapes, AFillCopiesAShapeDownAndItComputes) {
  CExtFormulaDataManager sheet;
  for (int row = 0; row < 50; ++row) sheet.SetCellText(0, row, std::to_string(row));
  sheet.SetCellText(1, 0, "=A1*2");
  sheet.SetCellText(1, 1, "=B1+A2");
  ASSERT_TRUE(sheet.Fill(59422, CellRect{1, 1, 1, 1}, CellRect{1, 2, 1, 49}));
  EXPECT_EQ(sheet.FindCell(1, 49)->FormulaText(), "=B49+A50");
  EXPECT_EQ(Shown(sheet, 1, 49), std::to_string(49 * 50 / 2));
  EXPECT_EQ(sheet.FindCell(1, 3)->GetTree(), sheet.FindCell(1, 40)->GetTree());
}

// Names are looked up by the text a cell holds, so a name spelt like a cell must be found by
// the one cell whose text spells it, not by the cell the shared tree was parsed for.
TEST(FormulaShapes, ANameSpeltLikeACellIsFoundThroughTheMovedName) {
  Twins twins;
  twins.Fill(10, {[](int r, const CellName& n) { return "=" + n(0, r) + "*10"; }});
  const CExtGridRangeSet named(CellRect{0, 9, 0, 9});  // "A5" names A10
  for (auto* sheet : {&twins.shared, &twins.apart}) {
    sheet->SetNamedRange("A5", &named);
    sheet->RecomputeAll();
  }
  // Only the shared sheet spells the name "A5"; the other writes "$A5", which no name is.
  EXPECT_EQ(Shown(twins.shared, 1, 4), "30");
  EXPECT_EQ(Shown(twins.apart, 1, 4), "50");
  EXPECT_EQ(Shown(twins.shared, 1, 3), "40");
  const std::vector<CellPos> recomputed = twins.shared.SetCellText(0, 9, "2");
  EXPECT_NE(std::find(recomputed.begin(), recomputed.end(), CellPos{1, 4}), recomputed.end());
  EXPECT_EQ(Shown(twins.shared, 1, 4), "20");
}

TEST(FormulaShapes, WholeColumnsAndMixedRangesKeepTheirMeaning) {
  Twins twins;
  twins.Fill(30, {
                     [](int r, const CellName& n) { return "=SUM(A:A)-" + n(0, r); },
                     [](int r, const CellName& n) { return "=SUM(" + n(0, r) + ":B)"; },
                     [](int r, const CellName& n) { return "=" + n(0, r) + "/(" + n(0, r) + "-4)"; },
                     [](int r, const CellName& n) { return "=" + n(0, r) + " " + n(0, r); },
                 });
  EXPECT_EQ(twins.shared.FindCell(1, 3)->GetTree(), twins.shared.FindCell(1, 20)->GetTree());
  // "A4:B" pairs a cell with a column: such a formula keeps its own tree.
  EXPECT_NE(twins.shared.FindCell(2, 3)->GetTree(), twins.shared.FindCell(2, 20)->GetTree());
  twins.ExpectSame(5, 30);
  twins.shared.SetCellText(0, 3, "=7");
  twins.apart.SetCellText(0, 3, "=7");
  twins.ExpectSame(5, 30);
}

TEST(FormulaShapes, TheTreeOutlivesItsFirstCellAndShapesAreForgotten) {
  CExtFormulaDataManager sheet;
  for (int row = 0; row < 20; ++row) {
    sheet.SetCellText(0, row, std::to_string(row));
    sheet.SetCellText(1, row, "=" + sheet.GetAlphabet().FormatCell(0, row) + "+1");
  }
  // The cell the tree was parsed for takes another formula; the others keep computing.
  sheet.SetCellText(1, 0, "=5");
  sheet.SetCellText(0, 12, "100");
  EXPECT_EQ(Shown(sheet, 1, 12), "101");
  EXPECT_EQ(Shown(sheet, 1, 0), "5");
  // A shape no cell uses any more is dropped, sooner or later.
  for (int row = 0; row < 3000; ++row) sheet.SetCellText(2, 0, "=" + std::to_string(row) + "+A1");
  EXPECT_LT(sheet.GetShapeCount(), 2100u);
}

// A function callable without parentheses and spelt like a cell answers to that name first.
class CellNamedFunction : public CExtFormulaFunction {
 public:
  const char* GetName() const override { return "A3"; }
  int GetMinParams() const override { return 0; }
  int GetMaxParams() const override { return 0; }
  int ComputeResult(FunctionCall& call) const override { return call.Result(platform::Variant::R8(-1.0)); }
};

TEST(FormulaShapes, ABareNameFunctionSpeltLikeACellAnswersToIt) {
  CExtFormulaDataManager sheet;
  for (int row = 0; row < 5; ++row) {
    sheet.SetCellText(0, row, std::to_string(row + 1));
    sheet.SetCellText(1, row, "=" + sheet.GetAlphabet().FormatCell(0, row) + "*10");
  }
  EXPECT_EQ(Shown(sheet, 1, 2), "30");
  ASSERT_TRUE(sheet.GetFunctionSet().Add(new CellNamedFunction, false));
  sheet.RecomputeAll();
  EXPECT_EQ(Shown(sheet, 1, 2), "-10");
  EXPECT_EQ(Shown(sheet, 1, 3), "40");
  EXPECT_EQ(sheet.FindCell(1, 2)->GetTree(), sheet.FindCell(1, 3)->GetTree());
}

// Texts that the last shape of a column almost spells: each is read for what it says.
TEST(FormulaShapes, NearMissesOfAColumnsShapeComputeWhatTheySay) {
  CExtFormulaDataManager sheet;
  for (int row = 0; row < 8; ++row) sheet.SetCellText(0, row, std::to_string(row + 1));
  const std::vector<std::pair<std::string, std::string>> cells = {
      {"=A1*2", "2"},         {"=A2*2", "4"},       {"=a3*2", "6"},        {"=A4*2 ", "8"},
      {"=A5*2+0", "10"},      {"=A5*2", "10"},      {"=\"A8*2\"", "\"A8*2\""}, {"=A8*20", "160"},
  };
  for (size_t row = 0; row < cells.size(); ++row) sheet.SetCellText(1, static_cast<int>(row), cells[row].first);
  for (size_t row = 0; row < cells.size(); ++row)
    EXPECT_EQ(Shown(sheet, 1, static_cast<int>(row)), cells[row].second) << cells[row].first;
  EXPECT_EQ(sheet.FindCell(1, 0)->GetTree(), sheet.FindCell(1, 1)->GetTree());
  // B6 reads A5, one row up: another shape than B1's.
  EXPECT_NE(sheet.FindCell(1, 0)->GetTree(), sheet.FindCell(1, 5)->GetTree());
}

}  // namespace
}  // namespace qmk::toolkit::formula
