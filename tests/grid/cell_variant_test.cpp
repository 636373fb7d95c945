// cell_variant_test.cpp: the variant cell's value rules: text in and out, ChangeType's own
// handling of text, spin limits, alignment and comparison.
#include <gtest/gtest.h>

#include <cfloat>

#include "grid/archive_bytes.h"
#include "platform/variant/change_type.h"
#include "toolkit/grid/cell_variant.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;

namespace {

TEST(VariantCell, NewCellIsEmptyOfTypeZeroWithEmptyText) {
  CExtGridCellVariant cell;
  EXPECT_TRUE(cell.IsEmpty());
  EXPECT_EQ(cell.GetVariantPtr()->Type(), VT_EMPTY);
  EXPECT_EQ(Text(cell), "");
  EXPECT_EQ(cell.GetStyle(), 0x40000000u);
  EXPECT_EQ(cell.GetStyleEx(), 0x80u);
  EXPECT_EQ(cell.IconIndexGet(), -1);
  EXPECT_EQ(cell.FontIndexGet(), -1);
}

TEST(VariantCell, TextSetConvertsToThePresentType) {
  struct Case { Variant start; const char* text; Variant want; };
  const Case cases[] = {
      {Variant::I4(7), "+", Variant::I4(0)},        // a lone sign reads as 0
      {Variant::R8(1.5), "-", Variant::R8(0)},
      {Variant::I4(7), "abc", Variant::I4(7)},      // refused: the old number stays
      {Variant::I4(7), "42", Variant::I4(42)},
      {Variant::I2(7), "40000", Variant::I2(7)},    // overflow keeps the old value
      {Variant::Str("x"), "  12 ", Variant::Str("  12 ")},
      {Variant(), "12", Variant::Str("12")},        // an untyped cell takes text
  };
  for (const Case& c : cases) {
    CExtGridCellVariant cell;
    cell.VariantSet(c.start);
    cell.TextSet(c.text);
    EXPECT_EQ(*cell.GetVariantPtr(), c.want) << c.text;
    EXPECT_FALSE(cell.IsEmpty());
  }
}

TEST(VariantCell, TextSetAsIsAlwaysStoresTheString) {
  CExtGridCellVariant cell;
  cell._VariantAssign(int32_t{3});
  cell.TextSet("abc", true);
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::Str("abc"));
  cell.TextSetAsIs("d");
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::Str("d"));
}

TEST(VariantCell, OnParseTextReportsWhatTextSetWouldRefuse) {
  struct Case { Variant start; const char* text; HRESULT want; };
  for (const Case& c : {Case{Variant::I4(1), "abc", DISP_E_TYPEMISMATCH}, Case{Variant::I4(1), "-", S_OK},
                        Case{Variant::I4(1), "9", S_OK}, Case{Variant::I2(1), "70000", DISP_E_OVERFLOW},
                        Case{Variant::Str("s"), "anything", S_OK}, Case{Variant(), "anything", S_OK}}) {
    CExtGridCellVariant cell;
    cell.VariantSet(c.start);
    EXPECT_EQ(cell.OnParseText(c.text), c.want) << c.text;
  }
}

// ChangeType trims text bound for a number or date, and blank text becomes integer 0: a rule of
// the cell that the plain conversion does not have.
TEST(VariantCell, ChangeTypeTreatsBlankTextAsZeroForNumbers) {
  struct Case { const char* text; VarType to; bool ok; Variant want; };
  const Case cases[] = {
      {"", VT_I4, true, Variant::I4(0)},
      {" \t\r\n", VT_R8, true, Variant::R8(0)},
      {"  17\n", VT_I2, true, Variant::I2(17)},
      {"", VT_DATE, true, Variant::Date(0)},
      {"", VT_BOOL, false, Variant::Str("")},       // BOOL is not in the list: no rule
      {"  x ", VT_I4, false, Variant::Str("  x ")}, // failure leaves the value
  };
  for (const Case& c : cases) {
    CExtGridCellVariant cell;
    cell.VariantSet(Variant::Str(c.text));
    EXPECT_EQ(cell.ChangeType(c.to), c.ok) << '"' << c.text << "\" to " << c.to;
    EXPECT_EQ(*cell.GetVariantPtr(), c.want) << '"' << c.text << "\" to " << c.to;
  }
  Variant plain;
  EXPECT_NE(ChangeType(plain, Variant::Str(""), VT_I4), S_OK);  // the platform conversion refuses
}

TEST(VariantCell, ChangeTypeFailureWithKeepBecomesAnErrorValue) {
  CExtGridCellVariant cell;
  cell.VariantSet(Variant::Str("abc"));
  EXPECT_FALSE(cell.ChangeType(VT_R8, 0, true));
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::Error(DISP_E_TYPEMISMATCH));
  EXPECT_EQ(Text(cell), "Type mismatch");
  cell.VariantSet(Variant::Error(0x12345));
  EXPECT_EQ(Text(cell), "Error 0x00012345");
}

TEST(VariantCell, SetEmptyKeepsTheTypeAndZeroesThePayload) {
  CExtGridCellVariant cell;
  cell.VariantSet(Variant::R8(4.5));
  cell.SetEmpty();
  EXPECT_TRUE(cell.IsEmpty());
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::R8(0));
  EXPECT_EQ(Text(cell), "");
  cell.VariantSet(Variant::Str("abc"));
  cell.Reset();
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::Str(""));
}

TEST(VariantCell, IncrementLimitsByType) {
  struct Case { Variant v; bool up, down; };
  const Case cases[] = {
      {Variant::I2(0x7fff), false, true},
      {Variant::I2(-0x8000), true, false},
      {Variant::I4(0x7ffffffe), true, true},
      {Variant::I4(0x7fffffff), false, true},
      {Variant::UI1(0), true, false},
      {Variant::R4(FLT_MAX), false, true},
      {Variant::R8(DBL_MAX), false, true},
      {Variant::R8(-DBL_MAX), true, false},
      {Variant::Str("1"), false, false},   // not a number
      {Variant::Bool(true), false, false},
  };
  for (const Case& c : cases) {
    CExtGridCellVariant cell;
    cell.VariantSet(c.v);
    EXPECT_EQ(cell.CanIncrement(), c.up) << c.v.Type();
    EXPECT_EQ(cell.CanDecrement(), c.down) << c.v.Type();
  }
}

TEST(VariantCell, IncrementRefusedByStatesAndStyles) {
  auto cell = [] {
    auto c = std::make_unique<CExtGridCellVariant>();
    c->VariantSet(Variant::I4(5));
    return c;
  };
  EXPECT_TRUE(cell()->CanIncrement());
  auto readOnly = cell();
  readOnly->ModifyStyleEx(kStyleExReadOnly);
  EXPECT_FALSE(readOnly->CanIncrement());
  auto disabled = cell();
  disabled->ModifyStyleEx(kStyleExDisabled);
  EXPECT_FALSE(disabled->CanDecrement());
  auto spinOff = cell();
  spinOff->ModifyStyle(kStyleNoIncrement);
  EXPECT_FALSE(spinOff->CanIncrement());
  auto empty = cell();
  empty->SetEmpty();
  EXPECT_FALSE(empty->CanIncrement());
  GridEditState grid{true};
  EXPECT_FALSE(cell()->CanIncrement(&grid));
}

TEST(VariantCell, IncrementStepsAndStopsAtTheEdge) {
  CExtGridCellVariant cell;
  cell.VariantSet(Variant::I2(0x7ffd));
  EXPECT_TRUE(cell.Increment(5));
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::I2(0x7fff));
  EXPECT_TRUE(cell.IsMaximum());
  EXPECT_FALSE(cell.Increment());
  EXPECT_TRUE(cell.Decrement(2));
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::I2(0x7ffd));
  cell.VariantSet(Variant::Cy(15000));
  EXPECT_TRUE(cell.Increment());
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::Cy(25000));
  cell.VariantSet(Variant::R8(0.5));
  EXPECT_TRUE(cell.Decrement());
  EXPECT_EQ(*cell.GetVariantPtr(), Variant::R8(-0.5));
}

TEST(VariantCell, AutomaticAlignmentByType) {
  struct Case { Variant v; HorzAlign want; };
  for (const Case& c : {Case{Variant::I4(1), HorzAlign::kRight}, Case{Variant::Error(1), HorzAlign::kRight},
                        Case{Variant::UI8(1), HorzAlign::kRight}, Case{Variant::Date(1), HorzAlign::kCenter},
                        Case{Variant::Bool(true), HorzAlign::kCenter}, Case{Variant::Str("a"), HorzAlign::kDefault}}) {
    CExtGridCellVariant cell;
    cell.VariantSet(c.v);
    HorzAlign h;
    VertAlign v;
    cell.GetAlignment(true, h, v);
    EXPECT_EQ(h, c.want) << c.v.Type();
    EXPECT_EQ(v, VertAlign::kCenter);
    cell.GetAlignment(false, h, v);
    EXPECT_EQ(h, HorzAlign::kDefault);
  }
  CExtGridCellVariant styled;
  styled.VariantSet(Variant::I4(1));
  styled.ModifyStyle(0x1 | 0x10);
  HorzAlign h;
  VertAlign v;
  styled.GetAlignment(true, h, v);
  EXPECT_EQ(h, HorzAlign::kDefault);
  EXPECT_EQ(v, VertAlign::kDefault);
  EXPECT_FALSE(styled.OffersUpDown());
}

TEST(VariantCell, AssignTakesVariantsOrTextAndTheEmptyFlag) {
  CExtGridCellVariant from;
  from.VariantSet(Variant::I4(9));
  from.ModifyStyle(0x4);
  from.TextColorSet(false, 0x00FF00);
  CExtGridCellVariant to;
  to.Assign(from);
  EXPECT_EQ(*to.GetVariantPtr(), Variant::I4(9));
  EXPECT_FALSE(to.IsEmpty());
  EXPECT_EQ(to.GetStyle(), 0x40000004u);
  EXPECT_EQ(to.TextColorGet(false), 0x00FF00u);

  CExtGridCellString text;
  text.TextSet("hello");
  to.Assign(text);
  EXPECT_EQ(*to.GetVariantPtr(), Variant::Str("hello"));
  EXPECT_FALSE(to.IsEmpty());
  CExtGridCellString blank;
  to.Assign(blank);
  EXPECT_TRUE(to.IsEmpty());
}

TEST(VariantCell, CompareValuesThenStyles) {
  auto make = [](Variant v, uint32_t style) {
    auto c = std::make_unique<CExtGridCellVariant>();
    c->VariantSet(v);
    c->ModifyStyle(style);
    return c;
  };
  EXPECT_EQ(make(Variant::I4(1), 0)->Compare(*make(Variant::R8(2), 0)), -1);
  EXPECT_EQ(make(Variant::I4(3), 0)->Compare(*make(Variant::R8(2), 0)), 1);
  // Equal values: the masked styles decide, smaller first; outside the mask they don't count.
  EXPECT_EQ(make(Variant::I4(2), 0x1)->Compare(*make(Variant::I4(2), 0x2), 0x3), -1);
  EXPECT_EQ(make(Variant::I4(2), 0x1)->Compare(*make(Variant::I4(2), 0x2), 0x4), 0);
  // Text and a number: numbers come first.
  EXPECT_EQ(make(Variant::Str("1"), 0)->Compare(*make(Variant::I4(5), 0)), 1);
}

TEST(VariantCell, StringCellAgainstVariantCellWithEqualTextLooksAtStyles) {
  CExtGridCellString text;
  text.TextSet("12");
  text.ModifyStyle(0x8);
  CExtGridCellVariant value;
  value.VariantSet(Variant::Str("12"));
  EXPECT_EQ(text.Compare(value, 0x8), 1);
  EXPECT_EQ(value.Compare(text, 0x8), -1);
  EXPECT_EQ(value.Compare(text, 0x0), 0);
  // Two plain texts compare without regard to case.
  CExtGridCellString upper;
  upper.TextSet("AB");
  CExtGridCellString lower;
  lower.TextSet("ab");
  EXPECT_EQ(upper.Compare(lower), 0);
  lower.TextSet("ac");
  EXPECT_EQ(upper.Compare(lower), -1);
}

}  // namespace
