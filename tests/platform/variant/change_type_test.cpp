// change_type_test.cpp: ChangeType between the Automation types: numbers and text, banker's
// rounding, overflow and mismatch, booleans, dates, decimal, currency and codes.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/variant/change_type.h"
#include "platform/variant/date_time.h"

namespace qmk::platform {
namespace {

struct Case {
  Variant from;
  VarType to;
  HRESULT hr;
  Variant want;  // compared when hr is S_OK
};

std::string Describe(const Variant& v) {
  Variant text;
  if (v.Type() == VT_BSTR) return "\"" + v.StringValue() + "\"";
  if (ChangeType(text, v, VT_BSTR) == S_OK) return "type " + std::to_string(v.Type()) + " " + text.StringValue();
  return "type " + std::to_string(v.Type());
}

void Check(std::initializer_list<Case> cases) {
  for (const Case& c : cases) {
    Variant out = Variant::I4(12345);  // a failure must leave this alone
    const HRESULT hr = ChangeType(out, c.from, c.to);
    EXPECT_EQ(hr, c.hr) << Describe(c.from) << " to type " << c.to;
    if (c.hr == S_OK) {
      EXPECT_EQ(out, c.want) << Describe(c.from) << " to type " << c.to << ": got " << Describe(out);
    } else {
      EXPECT_EQ(out, Variant::I4(12345)) << Describe(c.from);
    }
  }
}

Decimal Dec(uint64_t mantissa, uint8_t scale, bool negative = false) {
  Decimal d;
  d.lo64 = mantissa;
  d.scale = scale;
  d.negative = negative;
  return d;
}

TEST(ChangeType, FractionsRoundHalfToEven) {
  Check({
      {Variant::R8(2.5), VT_I4, S_OK, Variant::I4(2)},
      {Variant::R8(3.5), VT_I4, S_OK, Variant::I4(4)},
      {Variant::R8(-2.5), VT_I4, S_OK, Variant::I4(-2)},
      {Variant::R8(-3.5), VT_I2, S_OK, Variant::I2(-4)},
      {Variant::R8(2.5000001), VT_I4, S_OK, Variant::I4(3)},
      {Variant::R4(0.5f), VT_UI1, S_OK, Variant::UI1(0)},
      {Variant::R8(1.5), VT_UI1, S_OK, Variant::UI1(2)},
      {Variant::Str("2.5"), VT_I4, S_OK, Variant::I4(2)},
      {Variant::Str("3.5"), VT_I8, S_OK, Variant::I8(4)},
      {Variant::Str("2.50000000000000000001"), VT_I4, S_OK, Variant::I4(3)},
      {Variant::Dec(Dec(25, 1)), VT_I4, S_OK, Variant::I4(2)},
      {Variant::Dec(Dec(35, 1, true)), VT_I4, S_OK, Variant::I4(-4)},
      {Variant::Cy(25000), VT_I4, S_OK, Variant::I4(2)},  // 2.5
      {Variant::Date(1.5), VT_I4, S_OK, Variant::I4(2)},
      {Variant::Str("0.00005"), VT_CY, S_OK, Variant::Cy(0)},
      {Variant::Str("0.00015"), VT_CY, S_OK, Variant::Cy(2)},
      {Variant::R8(0.00005), VT_CY, S_OK, Variant::Cy(0)},
      // Currency scales a double in double arithmetic: 0.00015 is stored a little below and
      // scales to 1.4999999999999998.
      {Variant::R8(0.00015), VT_CY, S_OK, Variant::Cy(1)},
      {Variant::Str("1.23456"), VT_CY, S_OK, Variant::Cy(12346)},
  });
}

TEST(ChangeType, RangesOverflow) {
  Check({
      {Variant::I4(128), VT_I1, DISP_E_OVERFLOW, {}},
      {Variant::I4(-129), VT_I1, DISP_E_OVERFLOW, {}},
      {Variant::I4(-128), VT_I1, S_OK, Variant::I1(-128)},
      {Variant::I4(256), VT_UI1, DISP_E_OVERFLOW, {}},
      {Variant::I4(-1), VT_UI1, DISP_E_OVERFLOW, {}},
      {Variant::I4(-1), VT_UI4, DISP_E_OVERFLOW, {}},
      {Variant::I4(32767), VT_I2, S_OK, Variant::I2(32767)},
      {Variant::I4(32768), VT_I2, DISP_E_OVERFLOW, {}},
      {Variant::R8(32767.5), VT_I2, DISP_E_OVERFLOW, {}},  // rounds to 32768 first
      {Variant::R8(-0.4), VT_UI2, S_OK, Variant::UI2(0)},
      {Variant::R8(2147483647.4), VT_I4, S_OK, Variant::I4(2147483647)},
      {Variant::R8(2147483647.5), VT_I4, DISP_E_OVERFLOW, {}},
      {Variant::R8(9.3e18), VT_I8, DISP_E_OVERFLOW, {}},
      {Variant::R8(1.8e19), VT_UI8, S_OK, Variant::UI8(18000000000000000000ull)},
      {Variant::R8(std::numeric_limits<double>::quiet_NaN()), VT_I4, DISP_E_OVERFLOW, {}},
      {Variant::R8(INFINITY), VT_I4, DISP_E_OVERFLOW, {}},
      {Variant::UI8(UINT64_MAX), VT_I8, DISP_E_OVERFLOW, {}},
      {Variant::I8(INT64_MIN), VT_UI8, DISP_E_OVERFLOW, {}},
      {Variant::Str("4294967295"), VT_UI4, S_OK, Variant::UI4(4294967295u)},
      {Variant::Str("4294967296"), VT_UI4, DISP_E_OVERFLOW, {}},
      {Variant::Str("1e400"), VT_R8, DISP_E_OVERFLOW, {}},
      {Variant::Str("1e-400"), VT_R8, S_OK, Variant::R8(0.0)},
      {Variant::R8(1e39), VT_R4, DISP_E_OVERFLOW, {}},
      {Variant::R8(1e300), VT_CY, DISP_E_OVERFLOW, {}},
      {Variant::I8(922337203685478), VT_CY, DISP_E_OVERFLOW, {}},
      {Variant::I8(922337203685477), VT_CY, S_OK, Variant::Cy(9223372036854770000)},
      {Variant::R8(8e28), VT_DECIMAL, DISP_E_OVERFLOW, {}},
      {Variant::Str("1" + std::string(40, '0')), VT_I8, DISP_E_OVERFLOW, {}},
      {Variant::Str("1e99999999999"), VT_I4, DISP_E_OVERFLOW, {}},
  });
}

TEST(ChangeType, NumbersFromText) {
  Check({
      {Variant::Str("  42  "), VT_I4, S_OK, Variant::I4(42)},
      {Variant::Str("+42"), VT_I4, S_OK, Variant::I4(42)},
      {Variant::Str("-42"), VT_I4, S_OK, Variant::I4(-42)},
      {Variant::Str("(42)"), VT_I4, S_OK, Variant::I4(-42)},
      {Variant::Str("$1,234.5"), VT_R8, S_OK, Variant::R8(1234.5)},
      {Variant::Str("-$5"), VT_I4, S_OK, Variant::I4(-5)},
      {Variant::Str("1,2,3"), VT_I4, S_OK, Variant::I4(123)},
      {Variant::Str(".5"), VT_R8, S_OK, Variant::R8(0.5)},
      {Variant::Str("5."), VT_R8, S_OK, Variant::R8(5.0)},
      {Variant::Str("1.5E3"), VT_I4, S_OK, Variant::I4(1500)},
      {Variant::Str("1e-2"), VT_R8, S_OK, Variant::R8(0.01)},
      {Variant::Str("&HFF"), VT_I4, S_OK, Variant::I4(255)},
      {Variant::Str("&o17"), VT_I4, S_OK, Variant::I4(15)},
      {Variant::Str("0.1"), VT_R8, S_OK, Variant::R8(0.1)},
      {Variant::Str(""), VT_I4, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("   "), VT_R8, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("."), VT_R8, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("1e"), VT_R8, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("abc"), VT_I4, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("12abc"), VT_I4, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str(",5"), VT_I4, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("(5"), VT_I4, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("--5"), VT_I4, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("&H"), VT_I4, DISP_E_TYPEMISMATCH, {}},
  });
}

TEST(ChangeType, NumbersToText) {
  Check({
      {Variant::I4(-42), VT_BSTR, S_OK, Variant::Str("-42")},
      {Variant::UI8(UINT64_MAX), VT_BSTR, S_OK, Variant::Str("18446744073709551615")},
      {Variant::R8(0.1), VT_BSTR, S_OK, Variant::Str("0.1")},
      {Variant::R8(1.0 / 3), VT_BSTR, S_OK, Variant::Str("0.333333333333333")},
      {Variant::R8(123456789012345.0), VT_BSTR, S_OK, Variant::Str("123456789012345")},
      {Variant::R8(1234567890123456.0), VT_BSTR, S_OK, Variant::Str("1.23456789012346E+15")},
      {Variant::R8(1e20), VT_BSTR, S_OK, Variant::Str("1E+20")},
      {Variant::R8(0.0001), VT_BSTR, S_OK, Variant::Str("0.0001")},
      {Variant::R8(0.00001), VT_BSTR, S_OK, Variant::Str("0.00001")},
      {Variant::R8(-0.0), VT_BSTR, S_OK, Variant::Str("0")},
      {Variant::R4(0.1f), VT_BSTR, S_OK, Variant::Str("0.1")},
      {Variant::R4(16777217.0f), VT_BSTR, S_OK, Variant::Str("1.677722E+07")},
      {Variant::Cy(15000), VT_BSTR, S_OK, Variant::Str("1.5")},
      {Variant::Cy(-1), VT_BSTR, S_OK, Variant::Str("-0.0001")},
      {Variant::Dec(Dec(150, 2)), VT_BSTR, S_OK, Variant::Str("1.5")},
      {Variant::Dec(Dec(5, 28, true)), VT_BSTR, S_OK, Variant::Str("-0.0000000000000000000000000005")},
      {Variant(), VT_BSTR, S_OK, Variant::Str("")},
  });
}

TEST(ChangeType, Booleans) {
  Check({
      {Variant::Bool(true), VT_BSTR, S_OK, Variant::Str("True")},
      {Variant::Bool(false), VT_BSTR, S_OK, Variant::Str("False")},
      {Variant::Bool(true), VT_I4, S_OK, Variant::I4(-1)},
      {Variant::Bool(true), VT_R8, S_OK, Variant::R8(-1.0)},
      {Variant::Bool(true), VT_CY, S_OK, Variant::Cy(-10000)},
      {Variant::Bool(true), VT_DATE, S_OK, Variant::Date(-1.0)},
      // An unsigned target takes the bits of -1.
      {Variant::Bool(true), VT_UI1, S_OK, Variant::UI1(255)},
      {Variant::Bool(true), VT_UI2, S_OK, Variant::UI2(65535)},
      {Variant::Bool(true), VT_UI8, S_OK, Variant::UI8(UINT64_MAX)},
      {Variant::Bool(false), VT_UI1, S_OK, Variant::UI1(0)},
      {Variant::I4(2), VT_BOOL, S_OK, Variant::Bool(true)},
      {Variant::R8(-0.0), VT_BOOL, S_OK, Variant::Bool(false)},
      {Variant::R8(0.001), VT_BOOL, S_OK, Variant::Bool(true)},
      {Variant::Str("true"), VT_BOOL, S_OK, Variant::Bool(true)},
      {Variant::Str(" FALSE "), VT_BOOL, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("#TRUE#"), VT_BOOL, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("0"), VT_BOOL, S_OK, Variant::Bool(false)},
      {Variant::Str("-3.5"), VT_BOOL, S_OK, Variant::Bool(true)},
      {Variant::Str("yes"), VT_BOOL, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("True"), VT_I4, DISP_E_TYPEMISMATCH, {}},
      {Variant(), VT_BOOL, S_OK, Variant::Bool(false)},
  });
}

TEST(ChangeType, Dates) {
  Check({
      {Variant::Date(0.0), VT_BSTR, S_OK, Variant::Str("12:00:00 AM")},
      {Variant::Date(1.0), VT_BSTR, S_OK, Variant::Str("12/31/1899")},
      {Variant::Date(2.5), VT_BSTR, S_OK, Variant::Str("1/1/1900 12:00:00 PM")},
      {Variant::Date(0.75), VT_BSTR, S_OK, Variant::Str("6:00:00 PM")},
      {Variant::Date(43831.0), VT_BSTR, S_OK, Variant::Str("1/1/2020")},
      // Negative dates: whole days back from 30 December 1899, the fraction forward from midnight.
      {Variant::Date(-1.25), VT_BSTR, S_OK, Variant::Str("12/29/1899 6:00:00 AM")},
      {Variant::Date(-0.5), VT_BSTR, S_OK, Variant::Str("12:00:00 PM")},
      {Variant::Date(kMinDate), VT_BSTR, S_OK, Variant::Str("1/1/100")},
      {Variant::Date(kMaxDate + 0.5), VT_BSTR, S_OK, Variant::Str("12/31/9999 12:00:00 PM")},
      {Variant::Date(kMaxDate + 1.0), VT_BSTR, E_INVALIDARG, {}},
      {Variant::Str("1/1/2020"), VT_DATE, S_OK, Variant::Date(43831.0)},
      {Variant::Str("2020-01-01"), VT_DATE, S_OK, Variant::Date(43831.0)},
      {Variant::Str("January 1, 2020"), VT_DATE, S_OK, Variant::Date(43831.0)},
      {Variant::Str("1 Jan 2020"), VT_DATE, S_OK, Variant::Date(43831.0)},
      {Variant::Str("1/1/20"), VT_DATE, S_OK, Variant::Date(43831.0)},
      {Variant::Str("1/1/30"), VT_DATE, S_OK, Variant::Date(10959.0)},
      {Variant::Str("13/1/2020"), VT_DATE, S_OK, Variant::Date(43843.0)},  // read day first
      {Variant::Str("6:00 PM"), VT_DATE, S_OK, Variant::Date(0.75)},
      {Variant::Str("18:00:00"), VT_DATE, S_OK, Variant::Date(0.75)},
      {Variant::Str("12:00 AM"), VT_DATE, S_OK, Variant::Date(0.0)},
      {Variant::Str("1/1/1900 12:00 PM"), VT_DATE, S_OK, Variant::Date(2.5)},
      {Variant::Str("12/29/1899 6:00 AM"), VT_DATE, S_OK, Variant::Date(-1.25)},
      {Variant::Str("2/30/2020"), VT_DATE, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("13:00 PM"), VT_DATE, S_OK, Variant::Date(13.0 / 24)},
      {Variant::Str("25:00"), VT_DATE, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("43831"), VT_DATE, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("someday"), VT_DATE, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str(""), VT_DATE, DISP_E_TYPEMISMATCH, {}},
      {Variant::R8(43831.5), VT_DATE, S_OK, Variant::Date(43831.5)},
      {Variant::I4(2958466), VT_DATE, DISP_E_OVERFLOW, {}},
      {Variant::I4(-657435), VT_DATE, DISP_E_OVERFLOW, {}},
      {Variant::R8(-657434.99), VT_DATE, S_OK, Variant::Date(-657434.99)},
      {Variant::Date(43831.75), VT_R8, S_OK, Variant::R8(43831.75)},
      {Variant::Date(43831.75), VT_I4, S_OK, Variant::I4(43832)},
  });
}

TEST(ChangeType, DecimalKeepsDigitsAndRoundsTheRest) {
  Check({
      {Variant::Str("1.50"), VT_DECIMAL, S_OK, Variant::Dec(Dec(15, 1))},
      {Variant::Str("-0.0001"), VT_DECIMAL, S_OK, Variant::Dec(Dec(1, 4, true))},
      {Variant::Str("79228162514264337593543950335"), VT_BSTR, S_OK, Variant::Str("79228162514264337593543950335")},
      {Variant::R8(0.1), VT_DECIMAL, S_OK, Variant::Dec(Dec(1, 1))},
      {Variant::R8(1.0 / 3), VT_DECIMAL, S_OK, Variant::Dec(Dec(333333333333333, 15))},
      {Variant::I8(-5), VT_DECIMAL, S_OK, Variant::Dec(Dec(5, 0, true))},
      {Variant::Cy(12345), VT_DECIMAL, S_OK, Variant::Dec(Dec(12345, 4))},
      {Variant::Str("0.00000000000000000000000000005"), VT_DECIMAL, S_OK, Variant::Dec(Dec(0, 0))},
      {Variant::Str("0.00000000000000000000000000015"), VT_DECIMAL, S_OK, Variant::Dec(Dec(2, 28))},
      {Variant::Str("79228162514264337593543950336"), VT_DECIMAL, DISP_E_OVERFLOW, {}},
      {Variant::Dec(Dec(15, 1)), VT_R8, S_OK, Variant::R8(1.5)},
  });
  Variant big;
  ASSERT_EQ(ChangeType(big, Variant::Str("79228162514264337593543950335"), VT_DECIMAL), S_OK);
  EXPECT_EQ(big.DecimalValue().Mantissa(), Decimal::kMaxMantissa);
  // 29 significant digits that do not fit 96 bits lose places until they do.
  Variant rounded, text;
  ASSERT_EQ(ChangeType(rounded, Variant::Str("9.9999999999999999999999999999"), VT_DECIMAL), S_OK);
  ASSERT_EQ(ChangeType(text, rounded, VT_BSTR), S_OK);
  EXPECT_EQ(text.StringValue(), "10");
  ASSERT_EQ(ChangeType(rounded, Variant::Str("1.2345678901234567890123456789"), VT_DECIMAL), S_OK);
  EXPECT_EQ(rounded.DecimalValue().scale, 28);
  ASSERT_EQ(ChangeType(rounded, Variant::Str("8.2345678901234567890123456789"), VT_DECIMAL), S_OK);
  EXPECT_EQ(rounded.DecimalValue().scale, 27);
}

TEST(ChangeType, EmptyNullCodesAndBadTypes) {
  Check({
      {Variant(), VT_I4, S_OK, Variant::I4(0)},
      {Variant(), VT_R8, S_OK, Variant::R8(0.0)},
      {Variant(), VT_DATE, S_OK, Variant::Date(0.0)},
      {Variant(), VT_DECIMAL, S_OK, Variant::Dec(Decimal{})},
      {Variant::I4(3), VT_EMPTY, S_OK, Variant()},
      {Variant::Null(), VT_EMPTY, S_OK, Variant()},
      {Variant::Null(), VT_NULL, S_OK, Variant::Null()},
      {Variant::Null(), VT_I4, DISP_E_TYPEMISMATCH, {}},
      {Variant::Null(), VT_BSTR, DISP_E_TYPEMISMATCH, {}},
      {Variant::I4(1), VT_NULL, DISP_E_TYPEMISMATCH, {}},
      // Error codes and HRESULTs pass to and from the integer types only.
      {Variant::Error(7), VT_I4, S_OK, Variant::I4(7)},
      {Variant::Error(-7), VT_UI4, DISP_E_OVERFLOW, {}},
      {Variant::Hresult(-2147352571), VT_I8, S_OK, Variant::I8(-2147352571)},
      {Variant::I4(9), VT_ERROR, S_OK, Variant::Error(9)},
      {Variant::UI4(4294967295u), VT_ERROR, DISP_E_OVERFLOW, {}},
      {Variant::Error(1), VT_HRESULT, S_OK, Variant::Hresult(1)},
      {Variant::Error(1), VT_BSTR, DISP_E_TYPEMISMATCH, {}},
      {Variant::Error(1), VT_R8, DISP_E_TYPEMISMATCH, {}},
      {Variant::Error(1), VT_BOOL, DISP_E_TYPEMISMATCH, {}},
      {Variant::Error(1), VT_CY, DISP_E_TYPEMISMATCH, {}},
      {Variant::Str("1"), VT_ERROR, DISP_E_TYPEMISMATCH, {}},
      {Variant::R8(1), VT_ERROR, DISP_E_TYPEMISMATCH, {}},
      {Variant::Bool(true), VT_ERROR, DISP_E_TYPEMISMATCH, {}},
      {Variant(), VT_ERROR, DISP_E_TYPEMISMATCH, {}},
      {Variant::I4(1), static_cast<VarType>(9), DISP_E_BADVARTYPE, {}},
      {Variant::I4(1), static_cast<VarType>(4096), DISP_E_BADVARTYPE, {}},
  });
}

TEST(ChangeType, ConvertsInPlace) {
  Variant v = Variant::Str("12.5");
  ASSERT_EQ(ChangeType(v, v, VT_R8), S_OK);
  EXPECT_EQ(v, Variant::R8(12.5));
  ASSERT_EQ(ChangeType(v, v, VT_BSTR), S_OK);
  EXPECT_EQ(v, Variant::Str("12.5"));
}

}  // namespace
}  // namespace qmk::platform
