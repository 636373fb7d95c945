// sheet_test.cpp: cells, recalculation, cycles and their messages, joins, inserts, removes,
// names and fills.
#include <gtest/gtest.h>

#include "engine_helpers.h"
#include "toolkit/formula/editor_support.h"

namespace qmk::toolkit::formula {
namespace {

using testing::Shown;

// Cells are given by name: {"A1", "=B1"}.
struct CellText {
  const char* cell;
  const char* text;
};

CellPos At(const CExtFormulaDataManager& sheet, const char* name) {
  const char* p = name;
  return sheet.GetAlphabet().ParseCell(p);
}

void Put(CExtFormulaDataManager& sheet, std::initializer_list<CellText> cells) {
  for (const CellText& c : cells) {
    const CellPos p = At(sheet, c.cell);
    sheet.SetCellText(p.column, p.row, c.text);
  }
}

std::string ShownAt(const CExtFormulaDataManager& sheet, const char* name) {
  const CellPos p = At(sheet, name);
  return Shown(sheet, p.column, p.row);
}

std::string FormulaAt(CExtFormulaDataManager& sheet, const char* name) {
  const CellPos p = At(sheet, name);
  const CExtFormulaGridCell* cell = sheet.FindCell(p.column, p.row);
  return cell == nullptr ? "<none>" : cell->FormulaText();
}

TEST(FormulaSheet, ChangesFlowDownstreamInOrder) {
  CExtFormulaDataManager sheet;
  Put(sheet, {{"A1", "2"}, {"B1", "=A1*10"}, {"C1", "=B1+A1"}, {"D1", "=SUM(A1:C1)"}});
  EXPECT_EQ(ShownAt(sheet, "C1"), "22");
  EXPECT_EQ(ShownAt(sheet, "D1"), "44");
  const std::vector<CellPos> recomputed = sheet.SetCellText(0, 0, "3");
  ASSERT_EQ(recomputed.size(), 3u);
  // Every cell comes after its precedents.
  EXPECT_EQ(recomputed[0], At(sheet, "B1"));
  EXPECT_EQ(recomputed[1], At(sheet, "C1"));
  EXPECT_EQ(recomputed[2], At(sheet, "D1"));
  EXPECT_EQ(ShownAt(sheet, "D1"), "66");
}

TEST(FormulaSheet, CyclesEndInCrossReferenceMessages) {
  CExtFormulaDataManager sheet;
  Put(sheet, {{"A1", "=A1"}});
  EXPECT_EQ(ShownAt(sheet, "A1"), "Error: cross reference between A1 and A1");
  Put(sheet, {{"C1", "=D1"}, {"D1", "=C1"}});
  EXPECT_EQ(ShownAt(sheet, "C1").rfind("Error: cross reference between ", 0), 0u) << ShownAt(sheet, "C1");
  EXPECT_EQ(ShownAt(sheet, "D1").rfind("Error: cross reference between ", 0), 0u) << ShownAt(sheet, "D1");
  std::map<int64_t, int64_t> cycles;
  sheet.FindCycles(2, 0, cycles);
  EXPECT_EQ(cycles.size(), 2u);
  // Breaking the cycle clears the message.
  Put(sheet, {{"D1", "5"}});
  EXPECT_EQ(ShownAt(sheet, "C1"), "5");
}

TEST(FormulaSheet, ErrorsShowTheirTextAndDependentsReadIt) {
  CExtFormulaDataManager sheet;
  // Dependents recomputed after the cell in error read its message as a string.
  Put(sheet, {{"B1", "=A1&\"!\""}, {"C1", "=A1+1"}, {"G1", "=A1:A1"}, {"A1", "=1/0"}, {"D1", "=A1:A2"},
              {"E1", "=SUM(1,2"}, {"F1", "=1 + 2"}, {"H1", "=(A1+1):B2"}, {"I1", "=A1"}});
  EXPECT_EQ(ShownAt(sheet, "A1"), "Error: 3 - Division by zero.");
  EXPECT_EQ(ShownAt(sheet, "B1"), "\"Error: 3 - Division by zero.!\"");
  EXPECT_EQ(ShownAt(sheet, "C1"), "Error: 22 - Floating point type conversion error for the left part of expression.");
  EXPECT_EQ(ShownAt(sheet, "D1"), "Error: 12 - Expression result is the reference to the range of cells.");
  // A missing ")" is added; a text that still does not parse shows as typed.
  EXPECT_EQ(FormulaAt(sheet, "E1"), "=SUM(1,2)");
  EXPECT_EQ(ShownAt(sheet, "E1"), "3");
  EXPECT_EQ(ShownAt(sheet, "F1"), "\"=1 + 2\"");
  EXPECT_EQ(ShownAt(sheet, "G1"), "\"Error: 3 - Division by zero.\"");
  EXPECT_EQ(ShownAt(sheet, "H1"), "Error: 10 - Dependency computation error.");
  // A formula entered later computes the cell in error afresh, which fails its read.
  EXPECT_EQ(ShownAt(sheet, "I1"), "Error: 10 - Dependency computation error.");
}

TEST(FormulaSheet, EmptyAndHiddenCellsReadAsZero) {
  CExtFormulaDataManager sheet;
  Put(sheet, {{"A1", "=A2&\"x\""}, {"B2", "9"}, {"C1", "=B2+1"}});
  EXPECT_EQ(ShownAt(sheet, "A1"), "\"0x\"");
  EXPECT_EQ(ShownAt(sheet, "C1"), "10");
  // A join from A2 over two columns hides B2, stored value and all.
  sheet.SetJoin(0, 1, 2, 1);
  sheet.RecomputeAll();
  EXPECT_EQ(ShownAt(sheet, "C1"), "1");
}

TEST(FormulaSheet, ColumnInsertAndRemoveShiftReferences) {
  CExtFormulaDataManager sheet;
  Put(sheet, {{"A1", "1"}, {"B1", "2"}, {"A2", "=B1"}, {"B2", "=A1"}, {"C2", "=SUM(A1:B1)"}});
  ASSERT_TRUE(sheet.ColumnInsert(1, 1));
  EXPECT_EQ(FormulaAt(sheet, "A2"), "=C1");
  EXPECT_EQ(FormulaAt(sheet, "C2"), "=A1");
  EXPECT_EQ(FormulaAt(sheet, "D2"), "=SUM(A1:C1)");
  EXPECT_EQ(ShownAt(sheet, "A2"), "2");
  EXPECT_EQ(ShownAt(sheet, "D2"), "3");
  ASSERT_TRUE(sheet.ColumnRemove(1, 1));
  EXPECT_EQ(FormulaAt(sheet, "A2"), "=B1");
  EXPECT_EQ(FormulaAt(sheet, "B2"), "=A1");
  EXPECT_EQ(FormulaAt(sheet, "C2"), "=SUM(A1:B1)");
  EXPECT_EQ(ShownAt(sheet, "C2"), "3");
}

TEST(FormulaSheet, RowInsertAndRemoveShiftReferences) {
  CExtFormulaDataManager sheet;
  Put(sheet, {{"A1", "4"}, {"A2", "6"}, {"B1", "=A2*2"}, {"B3", "=A1+A2"}});
  ASSERT_TRUE(sheet.RowInsert(1, 2));
  EXPECT_EQ(FormulaAt(sheet, "B1"), "=A4*2");
  EXPECT_EQ(FormulaAt(sheet, "B5"), "=A1+A4");
  EXPECT_EQ(ShownAt(sheet, "B5"), "10");
  ASSERT_TRUE(sheet.RowRemove(1, 2));
  EXPECT_EQ(FormulaAt(sheet, "B3"), "=A1+A2");
  EXPECT_EQ(ShownAt(sheet, "B1"), "12");
}

TEST(FormulaSheet, NamedRangesSurviveInserts) {
  CExtFormulaDataManager sheet;
  CExtGridRangeSet b1(CellRect{1, 0, 1, 0});
  ASSERT_TRUE(sheet.SetNamedRange("price", &b1));
  Put(sheet, {{"B1", "8"}, {"A2", "=price+B1"}});
  EXPECT_EQ(ShownAt(sheet, "A2"), "16");
  ASSERT_TRUE(sheet.ColumnInsert(1, 1));
  // The name is not rewritten and still names B1; the cell reference moved to C1.
  EXPECT_EQ(FormulaAt(sheet, "A2"), "=price+C1");
  EXPECT_EQ(ShownAt(sheet, "A2"), "8");
}

TEST(FormulaSheet, NamedRangeChangesReachReaders) {
  CExtFormulaDataManager sheet;
  CExtGridRangeSet a1(CellRect{0, 0, 0, 0}), a2(CellRect{0, 1, 0, 1});
  sheet.SetNamedRange("x", &a1);
  Put(sheet, {{"A1", "1"}, {"A2", "2"}, {"B1", "=x*10"}});
  EXPECT_EQ(ShownAt(sheet, "B1"), "10");
  sheet.SetNamedRange("x", &a2);
  const std::vector<CellPos> recomputed = sheet.SetCellText(0, 1, "3");
  ASSERT_EQ(recomputed.size(), 1u);
  EXPECT_EQ(ShownAt(sheet, "B1"), "30");
}

TEST(FormulaSheet, FillDownAndRightMoveReferencesPerTile) {
  CExtFormulaDataManager sheet;
  Put(sheet, {{"A1", "1"}, {"A2", "2"}, {"A3", "3"}, {"B1", "=A1*2"}});
  ASSERT_TRUE(sheet.Fill(59422, {1, 0, 1, 0}, {1, 1, 1, 2}));
  EXPECT_EQ(FormulaAt(sheet, "B2"), "=A2*2");
  EXPECT_EQ(FormulaAt(sheet, "B3"), "=A3*2");
  EXPECT_EQ(ShownAt(sheet, "B3"), "6");
  // A two-column source tiled right over three columns: the last tile is clipped.
  Put(sheet, {{"C1", "=B1+1"}, {"D1", "x"}});
  ASSERT_TRUE(sheet.Fill(59421, {2, 0, 3, 0}, {4, 0, 6, 0}));
  EXPECT_EQ(FormulaAt(sheet, "E1"), "=D1+1");
  EXPECT_EQ(ShownAt(sheet, "F1"), "\"x\"");
  EXPECT_EQ(FormulaAt(sheet, "G1"), "=F1+1");
  EXPECT_EQ(ShownAt(sheet, "G1"), "Error: 22 - Floating point type conversion error for the left part of expression.");
  ASSERT_TRUE(sheet.Fill(59419, {1, 2, 1, 2}, {1, 0, 1, 1}));
  EXPECT_EQ(FormulaAt(sheet, "B1"), "=A1*2");
  EXPECT_FALSE(sheet.Fill(1, {1, 2, 1, 2}, {1, 0, 1, 1}));
}

TEST(FormulaSheet, DependentsAndPrecedents) {
  CExtFormulaDataManager sheet;
  Put(sheet, {{"A1", "1"}, {"B1", "=A1"}, {"C1", "=B1"}, {"D1", "=B1+C1"}});
  std::vector<CellPos> found;
  sheet.CollectDependents(0, 0, false, found, false, false);
  EXPECT_EQ(found, (std::vector<CellPos>{At(sheet, "B1")}));
  sheet.CollectDependents(0, 0, false, found, true, false);
  EXPECT_EQ(found.size(), 3u);
  sheet.CollectPrecedents(3, 0, found);
  EXPECT_EQ(found, (std::vector<CellPos>{At(sheet, "B1"), At(sheet, "C1")}));
  // Plain cells need no computing: they are no precedents.
  sheet.CollectPrecedents(1, 0, found);
  EXPECT_TRUE(found.empty());
}

TEST(FormulaSheet, LongChainsNeedNoDeepRecursion) {
  CExtFormulaDataManager sheet;
  sheet.PutCellText(0, 0, "1");
  for (int row = 1; row < 50000; ++row) sheet.PutCellText(0, row, "=A" + std::to_string(row) + "+1");
  sheet.RecomputeAll();
  EXPECT_EQ(Shown(sheet, 0, 49999), "50000");
  const std::vector<CellPos> recomputed = sheet.SetCellText(0, 0, "2");
  EXPECT_EQ(recomputed.size(), 49999u);
  EXPECT_EQ(Shown(sheet, 0, 49999), "50001");
}

}  // namespace
}  // namespace qmk::toolkit::formula

namespace qmk::toolkit::formula {
namespace {

struct RecordingEdit : FormulaEditSink {
  std::string text;
  std::vector<std::pair<std::string, int32_t>> colored;
  void SetColor(int start, int end, int32_t color, bool, bool) override {
    colored.push_back({text.substr(static_cast<size_t>(start), static_cast<size_t>(end - start)), color});
  }
  void ReplaceText(int start, int end, const std::string& with) override {
    text.replace(static_cast<size_t>(start), static_cast<size_t>(end - start), with);
  }
};

TEST(FormulaEditor, HighlightCyclesThePaletteAndFixesNameCase) {
  CExtFormulaDataManager sheet;
  RecordingEdit edit;
  edit.text = "=sum(A1:B2,C3,\"s\",4)+Z9";
  CExtFormulaScanner scanner;
  scanner.SetText(edit.text.c_str());
  ASSERT_TRUE(scanner.Parse());
  std::unique_ptr<CExtFormulaItem> root(scanner.DetachRoot());
  FormulaHighlightColors colors;
  colors.string = 0x123456;
  HighlightInEdit(*root, sheet, colors, edit);
  EXPECT_EQ(edit.text, "=SUM(A1:B2,C3,\"s\",4)+Z9");
  const std::vector<std::pair<std::string, int32_t>> expected{
      {"A1:B2", 0xff0000}, {"C3", 0x8000}, {"\"s\"", 0x123456}, {"Z9", 0xcc0099}};
  EXPECT_EQ(edit.colored, expected);
  EXPECT_EQ(colors.cursor, 3);
  for (int i = 0; i < 5; ++i) colors.NextReference(root->m_nColorIndex);
  EXPECT_EQ(root->m_nColorIndex, 0);  // the eighth reference wraps to the first colour
}

TEST(FormulaEditor, RepairTriesInItsOrder) {
  CExtFormulaScanner scanner;
  struct Case {
    const char* text;
    const char* repaired;
  };
  for (const Case& c : {Case{"=SUM(1,2", "=SUM(1,2)"}, Case{"=1+", "=1"}, Case{"=(1+2))", "=(1+2)"},
                        Case{"=\"abc", "=\"abc\""}}) {
    std::string repaired;
    ASSERT_TRUE(RepairFormulaText(c.text, scanner, repaired)) << c.text;
    EXPECT_EQ(repaired, c.repaired) << c.text;
  }
  std::string none;
  EXPECT_FALSE(RepairFormulaText("x", scanner, none));
}

}  // namespace
}  // namespace qmk::toolkit::formula

namespace qmk::toolkit::formula {
namespace {

TEST(FormulaSheetRanges, WholeColumnsIntersectionsAndWideReaders) {
  CExtFormulaDataManager sheet(10, 1000);
  for (int row = 0; row < 5; ++row) sheet.SetCellText(0, row, std::to_string(row + 1));
  sheet.SetCellText(1, 0, "=SUM(A:A)");
  sheet.SetCellText(1, 1, "=SUM(A1:A5 A3:B4)");
  sheet.SetCellText(1, 2, "=SUM(2:2)");
  EXPECT_EQ(Shown(sheet, 1, 0), "15");
  EXPECT_EQ(Shown(sheet, 1, 1), "7");
  EXPECT_EQ(Shown(sheet, 1, 2), "9");  // row 2 holds A2 and the 7 of B2
  // The whole-column reader is found through the list of wide readers.
  const std::vector<CellPos> recomputed = sheet.SetCellText(0, 900, "100");
  EXPECT_EQ(recomputed, (std::vector<CellPos>{{1, 0}}));
  EXPECT_EQ(Shown(sheet, 1, 0), "115");
  // Turning a formula back into a value takes it out of the index.
  sheet.SetCellText(1, 0, "1");
  EXPECT_TRUE(sheet.SetCellText(0, 900, "5").empty());
}

}  // namespace
}  // namespace qmk::toolkit::formula

namespace qmk::toolkit::formula {
namespace {

TEST(FormulaSheetChains, AFormulaEnteredBelowALongChainReadsItsStoredValue) {
  CExtFormulaDataManager sheet;
  sheet.PutCellText(0, 0, "1");
  for (int row = 1; row < 5000; ++row) sheet.PutCellText(0, row, "=A" + std::to_string(row) + "+1");
  sheet.RecomputeAll();
  // Reading A5000 does not walk the 5000 cells above it again.
  sheet.SetCellText(1, 0, "=A5000*2");
  EXPECT_EQ(Shown(sheet, 1, 0), "10000");
}

}  // namespace
}  // namespace qmk::toolkit::formula
