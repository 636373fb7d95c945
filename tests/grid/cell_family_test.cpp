// cell_family_test.cpp: the hyperlink, boolean, date, colour and slider cells.
#include <gtest/gtest.h>

#include <memory>

#include "grid/archive_bytes.h"
#include "toolkit/grid/cell_family.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;

namespace {

std::string Text(const CExtGridCell& cell) {
  std::string t;
  cell.TextGet(t);
  return t;
}

TEST(BoolCell, TextInAndOut) {
  struct Case { const char* in; bool ok; bool value; const char* shown; };
  for (const Case& c : {Case{"True", true, true, "True"}, Case{"false", true, false, "False"},
                        Case{"0", true, false, "False"}, Case{"-1", true, true, "True"}, Case{"maybe", false, false, ""}}) {
    CExtGridCellBool cell;
    EXPECT_EQ(cell.OnParseText(c.in) == S_OK, c.ok) << c.in;
    cell.TextSet(c.in);
    EXPECT_EQ(cell.IsEmpty(), !c.ok) << c.in;
    EXPECT_EQ(cell.GetValue(), c.value) << c.in;
    EXPECT_EQ(Text(cell), c.shown) << c.in;
  }
}

TEST(DateTimeCell, HoldsDaysSince1899) {
  CExtGridCellDateTime cell;
  cell.TextSet("1/2/1900");
  EXPECT_DOUBLE_EQ(cell.GetDate(), 3.0);
  Variant v;
  cell.VariantGet(v);
  EXPECT_EQ(v, Variant::Date(3.0));
  EXPECT_NE(cell.OnParseText("not a date"), S_OK);
  cell.TextSet("not a date");
  EXPECT_DOUBLE_EQ(cell.GetDate(), 3.0);  // kept
  CExtGridCellDateTime copy;
  copy.Assign(cell);
  EXPECT_EQ(Text(copy), Text(cell));
}

TEST(ColorCell, ShowsItsChannelsRedFirst) {
  CExtGridCellColor cell;
  EXPECT_EQ(Text(cell), "");
  cell.SetColor(0xFF102030);  // the high byte is no part of a colour
  EXPECT_EQ(cell.GetColor(), 0x102030u);
  EXPECT_EQ(Text(cell), "RGB(48, 32, 16)");
}

TEST(HyperLinkCell, OpensItsAddressOrItsText) {
  CExtGridCellHyperLink cell;
  cell.TextSet("example.org");
  EXPECT_EQ(cell.AddressToOpen(), "example.org");
  cell.UrlSet("https://example.org/a");
  cell.TargetSet("_blank");
  EXPECT_EQ(cell.AddressToOpen(), "https://example.org/a");
  CExtGridCellHyperLink back;
  ASSERT_TRUE(Load(back, Store(cell)));
  EXPECT_EQ(back.UrlGet(), "https://example.org/a");
  EXPECT_EQ(back.TargetGet(), "_blank");
  EXPECT_EQ(Text(back), "example.org");
}

TEST(SliderCell, StaysInsideItsRange) {
  CExtGridCellSlider cell;
  ASSERT_TRUE(cell.SetRange(-5, 5));
  EXPECT_FALSE(cell.SetRange(3, 3));
  cell.SetPos(9);
  EXPECT_EQ(cell.GetPos(), 5);
  EXPECT_TRUE(cell.IsMaximum());
  EXPECT_FALSE(cell.CanIncrement());
  EXPECT_TRUE(cell.Decrement(20));
  EXPECT_EQ(cell.GetPos(), -5);
  EXPECT_FALSE(cell.CanDecrement());
  EXPECT_TRUE(cell.Increment(2));
  EXPECT_EQ(cell.GetPos(), -3);
  cell.TextSet("4");
  EXPECT_EQ(cell.GetPos(), 4);
  cell.TextSet("x");
  EXPECT_EQ(cell.GetPos(), 4);
  CExtGridCellSlider back;
  ASSERT_TRUE(Load(back, Store(cell)));
  EXPECT_EQ(back.GetLow(), -5);
  EXPECT_EQ(back.GetHigh(), 5);
  EXPECT_EQ(back.GetPos(), 4);
}

TEST(FamilyCells, RoundTripAndCloneByClass) {
  for (const char* name : {"CExtGridCellHyperLink", "CExtGridCellBool", "CExtGridCellDateTime", "CExtGridCellColor",
                           "CExtGridCellSlider"}) {
    const CellClass* c = FindCellClass(name);
    ASSERT_NE(c, nullptr) << name;
    std::unique_ptr<CExtGridCell> cell(c->CreateObject(nullptr));
    cell->TextSet("1");
    const Bytes bytes = Store(*cell);
    std::unique_ptr<CExtGridCell> back(c->CreateObject(nullptr));
    ASSERT_TRUE(Load(*back, bytes)) << name;
    EXPECT_EQ(Store(*back), bytes) << name;
    std::unique_ptr<CExtGridCell> copy(cell->Clone());
    EXPECT_EQ(Text(*copy), Text(*cell)) << name;
    EXPECT_EQ(copy->Compare(*cell), 0) << name;
  }
}

}  // namespace
