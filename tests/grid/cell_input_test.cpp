// cell_input_test.cpp: the locale number and currency cells and the masked string's seam.
#include <gtest/gtest.h>

#include "grid/archive_bytes.h"
#include "platform/variant/change_type.h"
#include "toolkit/grid/cell_input.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;

namespace {

TEST(SystemNumberCells, ShowTheLocaleForm) {
  struct Case { double value; int decimals; const char* number; const char* currency; };
  const Case cases[] = {
      {1234.5, 2, "1,234.50", "$1,234.50"},
      {-3, 2, "-3.00", "-$3.00"},
      {1234567, 0, "1,234,567", "$1,234,567"},
      {0.004, 2, "0.00", "$0.00"},
      {-0.001, 2, "0.00", "$0.00"},  // no minus before a zero
      {999.999, 2, "1,000.00", "$1,000.00"},
  };
  for (const Case& c : cases) {
    CExtGridCellSystemNumber number;
    CExtGridCellSystemCurrency currency;
    number.DecimalsSet(c.decimals);
    currency.DecimalsSet(c.decimals);
    number.SetNumber(c.value);
    currency.SetNumber(c.value);
    EXPECT_EQ(Text(number), c.number) << c.value;
    EXPECT_EQ(Text(currency), c.currency) << c.value;
  }
  CExtGridCellSystemNumber empty;
  EXPECT_EQ(Text(empty), "");
}

TEST(SystemNumberCells, ReadTheLocaleFormBack) {
  struct Case { const char* text; bool ok; double value; };
  for (const Case& c : {Case{"1,234.50", true, 1234.5}, Case{"$12", true, 12}, Case{"-7.25", true, -7.25},
                        Case{"+", true, 0}, Case{"1.2.3", false, 0}, Case{"12a", false, 0}, Case{"", false, 0},
                        Case{"1e5", false, 0}}) {
    CExtGridCellSystemCurrency cell;
    cell.SetNumber(99);
    EXPECT_EQ(cell.OnParseText(c.text) == S_OK, c.ok) << c.text;
    cell.TextSet(c.text);
    EXPECT_DOUBLE_EQ(cell.GetNumber(), c.ok ? c.value : 99) << c.text;
  }
}

TEST(SystemNumberCells, CompareByNumberAndAssignFromOtherCells) {
  CExtGridCellSystemNumber a, b;
  a.SetNumber(2);
  b.SetNumber(10);
  EXPECT_EQ(a.Compare(b), -1);  // as numbers, not as texts
  CExtGridCellVariant text;
  text.VariantSet(Variant::Str("42.5"));
  a.Assign(text);
  EXPECT_DOUBLE_EQ(a.GetNumber(), 42.5);
  text.VariantSet(Variant::Str("not a number"));
  a.Assign(text);
  EXPECT_TRUE(a.IsEmpty());
}

struct DigitsOnly : CellInputBehaviour {
  HRESULT ValidateText(const std::string& text) const override {
    return text.find_first_not_of("0123456789") == std::string::npos ? S_OK : DISP_E_TYPEMISMATCH;
  }
  std::string EditText(const std::string& shown) const override { return "[" + shown + "]"; }
};

TEST(MaskedCell, EditingGoesThroughTheBehaviour) {
  CExtGridCellStringMasked cell;
  cell.TextSet("12");
  EXPECT_EQ(cell.OnParseText("ab"), S_OK);  // no behaviour: the plain string accepts anything
  DigitsOnly digits;
  cell.InputBehaviourSet(&digits);
  EXPECT_EQ(cell.OnParseText("ab"), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(cell.OnParseText("34"), S_OK);
  std::string shown;
  cell.OnQueryTextForInplaceControl(shown);
  EXPECT_EQ(shown, "[12]");
}

}  // namespace
