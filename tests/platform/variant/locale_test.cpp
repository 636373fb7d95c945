// locale_test.cpp: conversions through a locale other than US English.
#include <gtest/gtest.h>

#include "platform/variant/change_type.h"

namespace qmk::platform {
namespace {

// Decimal comma, dot grouping, day first, 24-hour clock, German words.
class GermanLocale : public Locale {
 public:
  char DecimalSeparator() const override { return ','; }
  char ThousandsSeparator() const override { return '.'; }
  std::string CurrencySymbol() const override { return "EUR"; }
  std::string TrueName() const override { return "Wahr"; }
  std::string FalseName() const override { return "Falsch"; }
  DateOrder GetDateOrder() const override { return DateOrder::kDayMonthYear; }
  char DateSeparator() const override { return '.'; }
  char TimeSeparator() const override { return ':'; }
  std::string AmDesignator() const override { return ""; }
  std::string PmDesignator() const override { return ""; }
  bool Uses24HourClock() const override { return true; }
  std::string MonthName(int month, bool abbreviated) const override {
    static const char* const kNames[] = {"Januar", "Februar", "März",      "April",   "Mai",      "Juni",
                                         "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
    if (month < 1 || month > 12) return {};
    const std::string name = kNames[month - 1];
    return abbreviated ? name.substr(0, 3) : name;
  }
};

TEST(LocaleConversions, ReadAndWriteInTheLocale) {
  const GermanLocale de;
  struct Case {
    Variant from;
    VarType to;
    HRESULT hr;
    Variant want;
  };
  for (const Case& c : std::initializer_list<Case>{
           {Variant::Str("1.234,5"), VT_R8, S_OK, Variant::R8(1234.5)},
           {Variant::Str("1,5"), VT_I4, S_OK, Variant::I4(2)},
           {Variant::Str("2,5"), VT_I4, S_OK, Variant::I4(2)},
           {Variant::Str("1.5"), VT_R8, S_OK, Variant::R8(15.0)},  // the dot groups thousands here
           {Variant::Str("EUR 7"), VT_I4, S_OK, Variant::I4(7)},
           {Variant::Str("7 EUR"), VT_I4, S_OK, Variant::I4(7)},
           {Variant::R8(1.5), VT_BSTR, S_OK, Variant::Str("1,5")},
           {Variant::Cy(15000), VT_BSTR, S_OK, Variant::Str("1,5")},
           {Variant::Bool(true), VT_BSTR, S_OK, Variant::Str("Wahr")},
           {Variant::Str("falsch"), VT_BOOL, S_OK, Variant::Bool(false)},
           {Variant::Str("True"), VT_BOOL, S_OK, Variant::Bool(true)},  // English words are read everywhere
           {Variant::Date(43831.75), VT_BSTR, S_OK, Variant::Str("01.01.2020 18:00:00")},
           {Variant::Date(0.0), VT_BSTR, S_OK, Variant::Str("00:00:00")},
           {Variant::Str("2.1.2020"), VT_DATE, S_OK, Variant::Date(43832.0)},
           {Variant::Str("2. Januar 2020"), VT_DATE, S_OK, Variant::Date(43832.0)},
           {Variant::Str("18:00"), VT_DATE, S_OK, Variant::Date(0.75)},
       }) {
    Variant out;
    EXPECT_EQ(ChangeType(out, c.from, c.to, de), c.hr) << c.from.StringValue() << " to " << c.to;
    if (c.hr == S_OK) {
      EXPECT_EQ(out, c.want) << c.from.StringValue() << " to " << c.to << " got " << out.StringValue();
    }
  }
}

TEST(LocaleConversions, UsEnglishIsTheDefault) {
  const Locale& us = EnUsLocale();
  EXPECT_EQ(us.DecimalSeparator(), '.');
  EXPECT_EQ(us.ThousandsSeparator(), ',');
  EXPECT_EQ(us.MonthName(9, true), "Sep");
  EXPECT_EQ(us.MonthName(13, false), "");
  const std::unique_ptr<Locale> process = ProcessLocale();  // the C locale unless the host set one
  EXPECT_EQ(process->DecimalSeparator(), '.');
  EXPECT_EQ(process->MonthName(1, false), "January");
}

}  // namespace
}  // namespace qmk::platform
