// cell_family_test.cpp: the hyperlink, boolean, date, colour and slider cells.
#include <gtest/gtest.h>

#include <memory>

#include "grid/archive_bytes.h"
#include "toolkit/grid/cell_family.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;

namespace {

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
                           "CExtGridCellSlider", "CExtGridCellComboBox", "CExtGridCellDropListComboBox",
                           "CExtGridCellPercentage"}) {
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

namespace {

TEST(ComboBoxCells, DropListStoresOnlyItsItems) {
  CExtGridCellDropListComboBox cell;
  cell.ItemsSet({"Red", "Green", "Blue"});
  struct Case { const char* text; bool ok; const char* stored; };
  for (const Case& c : {Case{"green", true, "Green"}, Case{"Purple", false, "Green"}, Case{"", false, "Green"},
                        Case{"BLUE", true, "Blue"}}) {
    EXPECT_EQ(cell.OnParseText(c.text) == S_OK, c.ok) << c.text;
    cell.TextSet(c.text);
    EXPECT_EQ(Text(cell), c.stored) << c.text;
  }
  EXPECT_FALSE(cell.SelectItem(3));
  CExtGridCellComboBox free;
  free.ItemsSet({"a"});
  free.TextSet("anything");
  EXPECT_EQ(Text(free), "anything");
  EXPECT_EQ(free.OnParseText("else"), S_OK);
  CExtGridCellDropListComboBox back;
  ASSERT_TRUE(Load(back, Store(cell)));
  EXPECT_EQ(back.ItemsGet(), cell.ItemsGet());
  EXPECT_EQ(Text(back), "Blue");
  Bytes hostile = Store(cell);
  hostile.resize(hostile.size() - 19);  // the count and the three items ("Red", "Green", "Blue")
  Put32(hostile, 0x7FFFFFFF);
  EXPECT_FALSE(Load(back, hostile));
}

TEST(PercentageCell, IsANumberCell) {
  EXPECT_TRUE(CExtGridCellPercentage::kClass.IsDerivedFrom(&CExtGridCellNumber::kClass));
}

TEST(PercentageCell, ShowsAndReadsHundredths) {
  struct Case { const char* in; bool ok; double fraction; const char* shown; };
  for (const Case& c : {Case{"12.5%", true, 0.125, "12.5%"}, Case{"40", true, 0.4, "40%"},
                        Case{"-3 %", true, -0.03, "-3%"}, Case{"lots", false, 0, ""}}) {
    CExtGridCellPercentage cell;
    EXPECT_EQ(cell.OnParseText(c.in) == S_OK, c.ok) << c.in;
    cell.TextSet(c.in);
    EXPECT_EQ(cell.IsEmpty(), !c.ok) << c.in;
    if (c.ok) {
      EXPECT_DOUBLE_EQ(cell.GetVariantPtr()->DoubleValue(), c.fraction) << c.in;
    }
    EXPECT_EQ(Text(cell), c.shown) << c.in;
  }
}

}  // namespace
