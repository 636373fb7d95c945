// automation_fidelity_test.cpp: the conversions and comparisons where the Automation rules differ
// from the obvious C ones: dotted times and day orders in date texts, number texts at the edge
// of the exponent form and on ties, boolean spellings, mixed comparisons and string order.
#include <gtest/gtest.h>

#include <ctime>
#include <optional>

#include "platform/variant/change_type.h"
#include "platform/variant/date_time.h"
#include "platform/variant/exact_number.h"

namespace qmk::platform {
namespace {

double Moment(double days, int h, int m, int s = 0) { return days + (h * 3600.0 + m * 60.0 + s) / 86400.0; }

// Day `day` of `month` in the current year, the year that texts without one take.
double ThisYear(int month, int day) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  DateFields f;
  f.year = local.tm_year + 1900;
  f.month = month;
  f.day = day;
  double date = 0;
  EXPECT_TRUE(FieldsToDate(f, date));
  return date;
}

// nullopt: the text is no date.
void CheckDates(std::initializer_list<std::pair<const char*, std::optional<double>>> rows) {
  for (const auto& [text, want] : rows) {
    Variant out;
    const HRESULT hr = ChangeType(out, Variant::Str(text), VT_DATE);
    if (!want) {
      EXPECT_EQ(hr, DISP_E_TYPEMISMATCH) << '"' << text << '"';
      continue;
    }
    ASSERT_EQ(hr, S_OK) << '"' << text << '"';
    EXPECT_DOUBLE_EQ(out.DoubleValue(), *want) << '"' << text << '"';
  }
}

TEST(DateText, ADotIsATimeSeparatorInUsEnglish) {
  CheckDates({
      {"1.2", Moment(0, 1, 2)},      // one dot: hours and minutes
      {"2.5", Moment(0, 2, 5)},      // 2:05, not 2:50
      {"0.40", Moment(0, 0, 40)},
      {"1.5.2", Moment(0, 1, 5, 2)},  // two dots: hours, minutes, seconds
      {"1.2 3 4 5", Moment(38415, 1, 2)},
      {"3 4 1.2", Moment(ThisYear(3, 4), 1, 2)},
      {"0.", std::nullopt},           // a separator needs a number on each side
      {".0", std::nullopt},
      {"-1.1", std::nullopt},
      {"1.1-", std::nullopt},
      {"1.2.3.4", std::nullopt},      // four parts make no time
      {"02.01.1970", std::nullopt},   // a dotted date is no date in US English
      {"2013-05-14 02:04:12.017", std::nullopt},
      {"1:2 3:4", std::nullopt},      // two times
  });
}

TEST(DateText, AmAndPmAroundHourZeroAndAboveTwelve) {
  CheckDates({
      {"00:00 AM", 0.0},
      {"00:00 a", 0.0},
      {"12:59 AM", Moment(0, 0, 59)},
      {"12:59 A", Moment(0, 0, 59)},
      {"00:00 pm", 0.5},             // hour 0 takes PM: noon
      {"12:59 p", Moment(0, 12, 59)},
      {"13:00 AM", Moment(0, 13, 0)},  // above 12 the suffix is ignored
      {"13:00 pm", Moment(0, 13, 0)},
      {"1 am", Moment(0, 1, 0)},       // a lone number with AM or PM is an hour
      {"3 am 1 2", Moment(ThisYear(1, 2), 3, 0)},
      {"6/30/2011 01:20:34 PM", Moment(40724, 13, 20, 34)},
      {"24:00", std::nullopt},
      {"am", std::nullopt},
      {"1 am pm", std::nullopt},
  });
}

TEST(DateText, WhichNumberIsTheDayMonthOrYear) {
  CheckDates({
      // Three numbers: the locale's month-day-year, then year-month-day, year-day-month,
      // day-month-year, month-year-day, day-year-month.
      {"1 2 3", 37623},    // 2 January 2003
      {"14 2 3", 41673},   // 3 February 2014: year first beats day first
      {"2 14 3", 37666},   // 14 February 2003
      {"2 3 14", 41673},
      {"32 2 3", 11722},   // 3 February 1932
      {"2 3 32", 11722},
      {"1 2 29", 47120},   // two-digit years up to 29 are 20xx
      {"1 2 30", 10960},   // and from 30 on 19xx
      {"13-1-1970", 25581},
      {"1970-1-13", 25581},
      {"2013-05-14 02:04:12", Moment(41408, 2, 4, 12)},
      // Two numbers: month and day of this year either way round, else month and year.
      {"1 2", ThisYear(1, 2)},
      {"2 1", ThisYear(2, 1)},
      {"14 1", ThisYear(1, 14)},
      {"1 14", ThisYear(1, 14)},
      {"30 2", 10990},     // no 30 February: February 1930
      {"2 30", 10990},
      {"Jan 35", 12785},   // a month name and no possible day: the year
      {"35-Jan", 12785},
      {"32 49", std::nullopt},
      {"0 49", std::nullopt},
      {"1 2 3 4", std::nullopt},
      {"1/2/3/4", std::nullopt},
  });
}

TEST(NumberText, SmallMagnitudesStayPlainWhileTheDigitsFit) {
  struct Row {
    Variant value;
    const char* want;
  };
  const Row rows[] = {
      {Variant::R8(0.00001), "0.00001"},
      {Variant::R8(-0.000015), "-0.000015"},
      {Variant::R8(1e-10), "0.0000000001"},
      {Variant::R8(1e-15), "0.000000000000001"},    // 15 places: still plain
      {Variant::R8(1.5e-15), "1.5E-15"},             // 16 places: exponent
      {Variant::R8(1.0 / 3 * 1e-5), "3.33333333333333E-06"},
      {Variant::R8(0.000123456789012345), "0.000123456789012345"},  // as %G
      {Variant::R8(1e15), "1E+15"},
      {Variant::R4(0.00001f), "0.00001"},
      {Variant::R4(1e-7f), "0.0000001"},
      {Variant::R4(1e-8f), "1E-08"},
      // Ties at the last digit round away from zero, not to even.
      {Variant::R4(654322.25f), "654322.3"},
      {Variant::R4(-654322.25f), "-654322.3"},
      {Variant::R4(1234568.5f), "1234569"},
      {Variant::R4(1234567.5f), "1234568"},
      {Variant::R8(100000000000000.5), "100000000000001"},
      {Variant::R4(9999999.5f), "1E+07"},  // the carry reaches a new digit
  };
  for (const Row& r : rows) {
    Variant out;
    ASSERT_EQ(ChangeType(out, r.value, VT_BSTR), S_OK);
    EXPECT_EQ(out.StringValue(), r.want) << "type " << r.value.Type();
  }
}

TEST(BooleanText, OnlyTheWordsAndNumbersAreBooleans) {
  struct Row {
    const char* text;
    std::optional<bool> want;
  };
  const Row rows[] = {
      {"true", true},       {"FaLsE", false},       {"TRUE", true},
      {"-1", true},         {"+1", true},           {"0.0", false},
      {" 0 ", false},       {"1-", true},           // numbers keep their blanks and trailing sign
      {" true", {}},        {"false ", {}},         // blanks make the word another text
      {"#TRUE#", {}},       {"#FALSE#", {}},        {"#1/1/2000#", {}},
      {"yes", {}},          {"", {}},
  };
  for (const Row& r : rows) {
    Variant out;
    const HRESULT hr = ChangeType(out, Variant::Str(r.text), VT_BOOL);
    if (!r.want) {
      EXPECT_EQ(hr, DISP_E_TYPEMISMATCH) << '"' << r.text << '"';
      continue;
    }
    ASSERT_EQ(hr, S_OK) << '"' << r.text << '"';
    EXPECT_EQ(out.BoolValue(), *r.want) << '"' << r.text << '"';
  }
}

TEST(Comparison, SinglesUnsignedAndLetterCase) {
  struct Row {
    Variant left, right;
    unsigned flags;
    HRESULT want;
  };
  const Row rows[] = {
      // A single beside a double or a date: at the single's precision.
      {Variant::R4(0.1f), Variant::R8(0.1), 0, VARCMP_EQ},
      {Variant::R8(0.1), Variant::R4(0.1f), 0, VARCMP_EQ},
      {Variant::R4(0.1f), Variant::Date(0.1), 0, VARCMP_EQ},
      {Variant::R4(1.0f), Variant::R8(1.0 + 1e-9), 0, VARCMP_EQ},
      {Variant::R4(1.0f), Variant::R8(1.001), 0, VARCMP_LT},
      {Variant::R4(0.1f), Variant::I4(0), 0, VARCMP_GT},
      // Signed and unsigned 32-bit meet as signed: an unsigned above 2^31 - 1 overflows.
      {Variant::I4(-1), Variant::UI4(4294967295u), 0, DISP_E_OVERFLOW},
      {Variant::UI4(3000000000u), Variant::I4(0), 0, DISP_E_OVERFLOW},
      {Variant::UInt(2147483648u), Variant::Int(0), 0, DISP_E_OVERFLOW},
      {Variant::I4(-1), Variant::UI4(0), 0, VARCMP_LT},
      {Variant::UI4(2147483647u), Variant::I4(2147483647), 0, VARCMP_EQ},
      {Variant::I8(-1), Variant::UI4(4294967295u), 0, VARCMP_LT},  // 64-bit: by value
      {Variant::I2(-1), Variant::UI2(65535), 0, VARCMP_LT},
      // Letters alphabetically before case; lower case first among equals.
      {Variant::Str("a"), Variant::Str("B"), 0, VARCMP_LT},
      {Variant::Str("abc"), Variant::Str("ABC"), 0, VARCMP_LT},
      {Variant::Str("ABC"), Variant::Str("abd"), 0, VARCMP_LT},
      {Variant::Str("aB"), Variant::Str("Ab"), 0, VARCMP_LT},
      {Variant::Str("Apple"), Variant::Str("apple"), NORM_IGNORECASE, VARCMP_EQ},
      {Variant::Str("b"), Variant::Str("A"), NORM_IGNORECASE, VARCMP_GT},
      {Variant::Str("_"), Variant::Str("A"), NORM_IGNORECASE, VARCMP_LT},
      {Variant::Str("~"), Variant::Str("a"), 0, VARCMP_LT},  // symbols before letters
      {Variant::Str(":"), Variant::Str("0"), 0, VARCMP_LT},  // and before digits
      {Variant::Str("9"), Variant::Str("a"), 0, VARCMP_LT},
  };
  for (const Row& r : rows)
    EXPECT_EQ(VarCmp(r.left, r.right, r.flags), r.want)
        << "type " << r.left.Type() << " vs type " << r.right.Type() << " flags " << r.flags;
}

TEST(NumberText, BlanksAndSignsAreTheFlagsMatter) {
  constexpr unsigned kAll = NUMPRS_STD;
  struct Row {
    const char* text;
    unsigned flags;
    std::optional<int> want;
  };
  const Row rows[] = {
      {"  42  ", kAll, 42},
      {"  42", kAll & ~NUMPRS_LEADING_WHITE, {}},
      {"42  ", kAll & ~NUMPRS_TRAILING_WHITE, {}},
      {"42", 0, 42},
      {"42-", kAll, -42},
      {"42+", kAll, 42},
      {"42-", kAll & ~NUMPRS_TRAILING_MINUS, {}},
      {"-42-", kAll, {}},
      {"-42", kAll & ~NUMPRS_LEADING_MINUS, {}},
      {"+42", kAll & ~NUMPRS_LEADING_PLUS, {}},
      {"(42)", kAll & ~NUMPRS_PARENS, {}},
      {"1,000", kAll & ~NUMPRS_THOUSANDS, {}},
      {"1.5", kAll & ~NUMPRS_DECIMAL, {}},
      {"1e3", kAll & ~NUMPRS_EXPONENT, {}},
      {"$5", kAll & ~NUMPRS_CURRENCY, {}},
      {"&HFF", kAll & ~NUMPRS_HEX_OCT, {}},
  };
  for (const Row& r : rows) {
    ExactNumber n;
    const bool ok = ParseNumber(r.text, r.flags, EnUsLocale(), n);
    EXPECT_EQ(ok, r.want.has_value()) << '"' << r.text << "\" flags " << r.flags;
    __int128 value = 0;
    if (ok && r.want) {
      ASSERT_TRUE(n.ToInteger(INT32_MIN, INT32_MAX, value));
      EXPECT_EQ(static_cast<int>(value), *r.want) << '"' << r.text << '"';
    }
  }
  // Conversions read numbers with every part allowed.
  Variant out;
  ASSERT_EQ(ChangeType(out, Variant::Str(" 7- "), VT_I4), S_OK);
  EXPECT_EQ(out, Variant::I4(-7));
}

}  // namespace
}  // namespace qmk::platform
