// grid_cell_test.cpp: formula cells as grid cells: their archive form, their text-setting path
// through the store that owns them, and the joint of store and manager.
#include <gtest/gtest.h>

#include "engine_helpers.h"
#include "toolkit/formula/formula_provider.h"

namespace qmk::toolkit::formula {
namespace {

using testing::Shown;

TEST(FormulaGridCell, StartsAsAnEmptyStringWithItsStyleBits) {
  CExtFormulaGridCell cell;
  EXPECT_EQ(cell.ValueGet().Type(), platform::VT_BSTR);
  EXPECT_EQ(cell.ValueGet().StringValue(), "");
  EXPECT_EQ(cell.GetStyle() & CExtFormulaGridCell::kFormulaCellStyle, CExtFormulaGridCell::kFormulaCellStyle);
  EXPECT_TRUE(cell.IsEmptyOfFormula());
  EXPECT_TRUE(cell.IsKindOf(&grid::CExtGridCellVariant::kClass));
}

TEST(FormulaGridCell, ArchiveKeepsTheFormulaAfterTheVariant) {
  CExtFormulaDataProvider sheet(10, 10);
  sheet.SetCellText(0, 0, "=2*21");
  const CExtFormulaGridCell* cell = sheet.FindCell(0, 0);
  ASSERT_NE(cell, nullptr);
  ASSERT_NE(cell->GetTree(), nullptr);
  platform::Archive out = platform::Archive::ToMemory();
  ASSERT_TRUE(const_cast<CExtFormulaGridCell*>(cell)->Serialize(out));
  const std::vector<uint8_t> bytes = out.TakeStored();
  // The flag and the length-prefixed text close the form.
  ASSERT_GE(bytes.size(), 4u + 4u + 5u);
  const uint8_t* tail = bytes.data() + bytes.size() - 5;
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(tail), 5), "=2*21");

  CExtFormulaGridCell loaded;
  platform::Archive in = platform::Archive::FromMemory(bytes.data(), bytes.size());
  ASSERT_TRUE(loaded.Serialize(in));
  EXPECT_EQ(loaded.FormulaText(), "=2*21");
  EXPECT_EQ(loaded.GetTree(), nullptr);  // loading compiles nothing
  EXPECT_EQ(ScalarText(loaded.ValueGet()), "42");

  // Every shorter piece of the form fails cleanly.
  for (size_t cut = 0; cut < bytes.size(); ++cut) {
    CExtFormulaGridCell partial;
    platform::Archive damaged = platform::Archive::FromMemory(bytes.data(), cut);
    EXPECT_FALSE(partial.Serialize(damaged)) << cut;
  }
}

TEST(FormulaGridCell, AssignCopiesTheFormulaButNotTheTree) {
  CExtFormulaDataProvider sheet(10, 10);
  sheet.SetCellText(0, 0, "=1+1");
  CExtFormulaGridCell copy;
  copy.Assign(*sheet.FindCell(0, 0));
  EXPECT_EQ(copy.FormulaText(), "=1+1");
  EXPECT_EQ(copy.GetTree(), nullptr);
  EXPECT_EQ(ScalarText(copy.ValueGet()), "2");
  // From a plain variant cell only the value comes.
  grid::CExtGridCellVariant plain;
  plain.VariantSet(platform::Variant::R8(7.5));
  copy.Assign(plain);
  EXPECT_FALSE(copy.IsFormula());
  EXPECT_EQ(ScalarText(copy.ValueGet()), "7.5");
}

TEST(FormulaGridCell, TextSetGoesThroughTheOwningStore) {
  CExtFormulaDataProvider sheet(10, 10);
  sheet.SetCellText(0, 0, "5");
  sheet.SetCellText(1, 0, "=A1*2");
  grid::CExtGridCell* a1 = sheet.CellGet(0, 0);
  ASSERT_NE(a1, nullptr);
  // Text given to the cell itself recomputes what reads it.
  a1->TextSet("7");
  EXPECT_EQ(Shown(sheet, 1, 0), "14");
  // A formula typed without its closing parenthesis is taken with one added.
  sheet.CellGet(2, 0, &CExtFormulaGridCell::kClass)->TextSet("=SUM(A1,B1");
  EXPECT_EQ(sheet.FindCell(2, 0)->FormulaText(), "=SUM(A1,B1)");
  EXPECT_EQ(Shown(sheet, 2, 0), "21");
  std::string edited;
  sheet.CellGet(2, 0)->OnQueryTextForInplaceControl(edited);
  EXPECT_EQ(edited, "=SUM(A1,B1)");
  // Plain text turns a formula cell back into a value cell that nothing computes.
  sheet.CellGet(2, 0)->TextSet("  plain");
  EXPECT_FALSE(sheet.FindCell(2, 0)->IsFormula());
  EXPECT_EQ(sheet.GetFormulaCellCount(), 1u);
}

TEST(FormulaGridCell, OutsideAStoreTextIsOnlyAValue) {
  CExtFormulaGridCell cell;
  cell.TextSet("=1+2");
  EXPECT_FALSE(cell.IsFormula());
  EXPECT_EQ(cell.ValueGet().StringValue(), "=1+2");
}

TEST(FormulaGridCell, ErrorsShowTheirMessageAndAnUnchangedCodeDoesNothing) {
  CExtFormulaGridCell cell;
  cell.SetError(3);
  EXPECT_EQ(cell.DisplayText(), "Error: 3 - Division by zero.");
  cell.ResultSet(platform::Variant::R8(1), false);
  cell.SetError(3);  // same code: the value stays
  EXPECT_EQ(cell.DisplayText(), "1");
  cell.SetError(0);
  EXPECT_EQ(cell.DisplayText(), "");
  cell.SetCircularError("A1", "B1");
  EXPECT_EQ(cell.GetErrorCode(), 10);
  EXPECT_EQ(cell.DisplayText(), "Error: cross reference between A1 and B1");
  cell.SetErrorInCell("C3");
  EXPECT_EQ(cell.DisplayText(), "Error: error in C3");
}

TEST(FormulaGridCell, FormulaTextAccessStoresAndForgetsTheTree) {
  CExtFormulaDataProvider sheet(10, 10);
  sheet.SetCellText(0, 0, "=1");
  CExtFormulaGridCell& cell = *sheet.GetCell(0, 0);
  std::string text;
  EXPECT_TRUE(cell.FormulaTextAccess(text, true));
  EXPECT_EQ(text, "=1");
  text = "=2";
  cell.FormulaTextAccess(text, false);
  EXPECT_EQ(cell.GetTree(), nullptr);
  std::string none;
  CExtFormulaGridCell empty;
  EXPECT_FALSE(empty.FormulaTextAccess(none, true));
}

TEST(FormulaDataProvider, CellsLiveInTheStoreAtProviderPositions) {
  CExtFormulaDataProvider sheet(10, 10);
  // One reserved column and row: data position (0, 0) is the store's (1, 1).
  ASSERT_TRUE(sheet.CacheReservedCountsSet(1, 1));
  EXPECT_EQ(sheet.GetColumnCount(), 9);
  sheet.SetCellText(0, 0, "3");
  sheet.SetCellText(1, 0, "=A1+1");
  EXPECT_NE(dynamic_cast<CExtFormulaGridCell*>(sheet.CellGet(1, 1)), nullptr);
  EXPECT_EQ(sheet.CellGet(0, 0), nullptr);
  EXPECT_EQ(Shown(sheet, 1, 0), "4");
  int column = -1, row = -1;
  ASSERT_TRUE(sheet.GetCellPosition(sheet.CellGet(2, 1), column, row));
  EXPECT_EQ(column, 1);
  EXPECT_EQ(row, 0);
}

TEST(FormulaDataProvider, StoreRemovalsAndClearsKeepTheRegistryInStep) {
  CExtFormulaDataProvider sheet(10, 10);
  sheet.SetCellText(0, 0, "1");
  sheet.SetCellText(1, 1, "=A1+1");
  sheet.SetCellText(1, 2, "=A1*10");
  // The store drops row 2 with its formula; the other moves up to B2, unrewritten.
  ASSERT_TRUE(sheet.RowRemove(1, 1));
  EXPECT_EQ(sheet.GetFormulaCellCount(), 1u);
  EXPECT_EQ(sheet.FindCell(1, 1)->FormulaText(), "=A1*10");
  const std::vector<CellPos> recomputed = sheet.SetCellText(0, 0, "5");
  EXPECT_EQ(recomputed, (std::vector<CellPos>{{1, 1}}));
  EXPECT_EQ(Shown(sheet, 1, 1), "50");
  // Clearing a range drops its formula cells from the registry too.
  ASSERT_TRUE(sheet.CellRangeSet(1, 0, 1, 5, nullptr));
  EXPECT_EQ(sheet.GetFormulaCellCount(), 0u);
  EXPECT_TRUE(sheet.SetCellText(0, 0, "2").empty());
}

TEST(FormulaDataProvider, ACellOfAnotherKindIsReplacedWhenAFormulaArrives) {
  CExtFormulaDataProvider sheet(10, 10);
  auto* plain = static_cast<grid::CExtGridCellVariant*>(sheet.CellGet(0, 0, &grid::CExtGridCellVariant::kClass));
  ASSERT_NE(plain, nullptr);
  plain->VariantSet(platform::Variant::R8(6));
  sheet.SetCellText(1, 0, "=A1*7");
  EXPECT_EQ(Shown(sheet, 1, 0), "42");  // a plain cell is read as it is
  sheet.SetCellText(0, 0, "=2");
  EXPECT_NE(dynamic_cast<CExtFormulaGridCell*>(sheet.CellGet(0, 0)), nullptr);
  EXPECT_EQ(Shown(sheet, 1, 0), "14");
}

}  // namespace
}  // namespace qmk::toolkit::formula

namespace qmk::toolkit::formula {
namespace {

TEST(FormulaDataProvider, StoreArchiveWithFormulaCellsReadsBack) {
  CExtFormulaDataProvider sheet(10, 10);
  sheet.SetCellText(0, 0, "3");
  sheet.SetCellText(1, 0, "=A1*2");
  platform::Archive out = platform::Archive::ToMemory();
  ASSERT_TRUE(sheet.Serialize(out));
  const std::vector<uint8_t> bytes = out.TakeStored();
  // The formula cell's class is named in the archive; a fresh store must know it by that name.
  CExtFormulaDataProvider copy(10, 10);
  platform::Archive in = platform::Archive::FromMemory(bytes.data(), bytes.size());
  ASSERT_TRUE(copy.Serialize(in));
  auto* cell = dynamic_cast<CExtFormulaGridCell*>(copy.CellGet(1, 0));
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->FormulaText(), "=A1*2");
  EXPECT_EQ(grid::FindCellClass(CExtFormulaGridCell::kClass.name), &CExtFormulaGridCell::kClass);
}

TEST(GridCellClasses, RegisteringTwiceOrUnderATakenNameIsRefusedQuietly) {
  EXPECT_TRUE(grid::RegisterCellClass(&CExtFormulaGridCell::kClass));
  EXPECT_TRUE(grid::RegisterCellClass(&CExtFormulaGridCell::kClass));
  EXPECT_FALSE(grid::RegisterCellClass(nullptr));
  grid::CellClass impostor = CExtFormulaGridCell::kClass;
  EXPECT_FALSE(grid::RegisterCellClass(&impostor));
}

}  // namespace
}  // namespace qmk::toolkit::formula
