// system_number_test.cpp: number and currency input per locale: keystrokes with the text and
// caret after each, value and text conversions, locale reads and separator repair.
#include <gtest/gtest.h>

#include <clocale>
#include <memory>
#include <vector>

#include "edit/table_locale.h"
#include "toolkit/edit/keystrokes.h"
#include "toolkit/edit/memory_edit.h"
#include "toolkit/edit/system_number.h"

namespace qmk::toolkit::edit {
namespace {

using platform::kLocaleCurrencyNegative;
using platform::kLocaleDecimal;
using platform::kLocaleGrouping;
using platform::kLocaleLeadingZero;
using platform::kLocaleNegativeNumber;
using platform::kLocaleThousand;
using testing::TableLocale;

// An edit with a number or currency behaviour plugged in.
template <class Behavior>
struct Field {
  explicit Field(const platform::Locale& locale = platform::EnUsLocale(), int whole = -15, int fraction = 2,
                 uint32_t flags = 0)
      : behavior(&edit, whole, fraction, locale) {
    edit.SetBehavior(&behavior);
    if (flags) behavior.SetFlags(flags);
  }
  void Type(const std::string& keys) {
    const auto steps = ParseKeystrokes(keys, nullptr);
    ASSERT_TRUE(steps) << keys;
    for (const Keystroke& k : *steps) Replay(edit, k);
  }
  MemoryEdit edit;
  Behavior behavior;
};
using NumberField = Field<CExtEditSystemNumber>;
using CurrencyField = Field<CExtEditSystemCurrency>;

struct Step {
  const char* keys;
  const char* text;
  int caret;
};

template <class F>
void RunSteps(F& field, const std::vector<Step>& steps, const char* name) {
  for (const Step& step : steps) {
    field.Type(step.keys);
    int start = 0, end = 0;
    field.edit.GetSel(start, end);
    EXPECT_EQ(field.edit.GetText(), step.text) << name << " after \"" << step.keys << "\"";
    EXPECT_EQ(start, step.caret) << name << " after \"" << step.keys << "\"";
    EXPECT_EQ(end, start) << name << " after \"" << step.keys << "\"";
  }
}

TEST(NumberKeys, GroupsAppearAsDigitsAreTyped) {
  NumberField f;
  RunSteps(f,
           {{"1", "1", 1},
            {"23", "123", 3},
            {"4", "1,234", 5},
            {"567", "1,234,567", 9},
            {".", "1,234,567.", 10},
            {"89", "1,234,567.89", 12},
            {"1", "1,234,567.89", 12},
            // A second separator only moves the caret behind the first.
            {"<HOME>.", "1,234,567.89", 10},
            {"<HOME>x", "1,234,567.89", 0},
            {"<HOME>9", "91,234,567.89", 1}},
           "en-US");
}

TEST(NumberKeys, CaretStaysAtItsDigitAcrossRegrouping) {
  NumberField f;
  RunSteps(f,
           {{"1234", "1,234", 5},
            {"<HOME><RIGHT><RIGHT>", "1,234", 2},
            // Backspace behind a separator steps over it and takes the digit before.
            {"<BS>", "234", 0},
            {"<END>5<HOME><RIGHT>", "2,345", 1},
            // Delete in front of a separator steps over it and takes the digit behind.
            {"<DEL>", "245", 1},
            {"<END><BS>", "24", 2}},
           "caret");
  EXPECT_FALSE(f.behavior.m_bMoved);
  f.Type("<END>56<HOME><RIGHT><RIGHT><BS>");
  EXPECT_TRUE(f.behavior.m_bMoved);
}

TEST(NumberKeys, SelectionOfASeparatorTakesTheDigitBeside) {
  NumberField f;
  f.Type("1234");
  f.edit.SetSel(1, 2);
  f.Type("<DEL>");
  EXPECT_EQ(f.edit.GetText(), "134");
  NumberField g;
  g.Type("1234");
  g.edit.SetSel(1, 2);
  g.Type("<BS>");
  EXPECT_EQ(g.edit.GetText(), "234");
  NumberField h;
  h.Type("123456<HOME><S-RIGHT><S-RIGHT><S-RIGHT>7");
  EXPECT_EQ(h.edit.GetText(), "7,456");
}

TEST(NumberKeys, NegativeFormsAndTheirRemoval) {
  struct Case {
    const char* form;
    const char* keys;
    const char* text;
    int caret;
  };
  for (const Case c : {Case{"0", "12(", "(12)", 3}, {"0", "12-", "(12)", 3}, {"1", "12-", "-12", 3},
                       {"2", "12-", "- 12", 4}, {"3", "12-", "12-", 2}, {"4", "12-", "12 -", 2},
                       // The sign goes only as a whole; a caret inside the sign's form steps out of it.
                       {"1", "12-<HOME><RIGHT><BS>", "12", 0}, {"0", "12-<END><BS>", "12", 2},
                       {"0", "12-<HOME><DEL>", "12", 0}, {"2", "12-<HOME><RIGHT><DEL>", "- 2", 2}}) {
    TableLocale locale({{kLocaleNegativeNumber, c.form}});
    NumberField f(locale);
    RunSteps(f, {{c.keys, c.text, c.caret}}, c.form);
  }
}

TEST(NumberKeys, LimitsRefuseWhatWouldNotFit) {
  NumberField none(platform::EnUsLocale(), 4, 0);
  RunSteps(none, {{"12.3", "123", 3}, {"45", "1,234", 5}, {"-", "1,234", 5}}, "whole 4, no fraction");
  // A replaced selection may keep the count at the limit.
  RunSteps(none, {{"<S-LEFT>9", "1,239", 5}}, "replace");
}

TEST(NumberKeys, TypingOverTheShownLeadingZeroKeepsTheLimits) {
  NumberField f(platform::EnUsLocale(), 0, 2);
  RunSteps(f, {{".", "0.", 2}, {"<HOME><S-END>5", "", 0}, {".5", "0.5", 3}}, "no whole digits");
}

TEST(NumberKeys, ReadOnlyTakesNothing) {
  NumberField f;
  f.Type("12");
  f.edit.SetReadOnly(true);
  f.Type("3<BS>-");
  EXPECT_EQ(f.edit.GetText(), "12");
}

TEST(NumberKeys, CommaDecimalLocale) {
  const TableLocale locale = testing::CommaDecimalLocale();
  NumberField f(locale);
  RunSteps(f, {{"1234", "1.234", 5}, {",5", "1.234,5", 7}, {",", "1.234,5", 6}}, "comma");
  NumberField g(locale);
  // The dot is the group separator here, and typing it does nothing.
  RunSteps(g, {{"1234.5", "12.345", 6}}, "dot");
  EXPECT_DOUBLE_EQ(f.behavior.LongDoubleGet(), 1234.5);
}

TEST(NumberKeys, TwoDigitGroups) {
  const TableLocale locale = testing::TwoDigitGroupLocale();
  NumberField f(locale);
  RunSteps(f, {{"123456789", "12,34,56,789", 12}, {"<BS><BS><BS>", "1,23,456", 8}}, "3;2");
}

TEST(NumberKeys, ExponentForm) {
  TableLocale locale({{kLocaleNegativeNumber, "0"}, {platform::kLocaleNegativeSign, "~"}});
  NumberField f(locale, -15, 2, CExtEditSystemNumberCurrencyBase::kScientific);
  EXPECT_EQ(f.behavior.m_strNegativeSign, "-") << "the exponent form always signs with -";
  EXPECT_EQ(f.behavior.m_nNegativeFormat, 1);
  RunSteps(f,
           {{"1.5e", "1.5e", 4},
            {"-", "1.5e-", 5},
            {"3", "1.5e-3", 6},
            {"e", "1.5e-3", 6},
            {"<HOME>-", "-1.5e-3", 1},
            {"<END>1234", "-1.5e-312", 9}},
           "exponent");
  EXPECT_DOUBLE_EQ(f.behavior.LongDoubleGet(), -1.5e-312);
  EXPECT_TRUE(f.behavior.IsNegative());
}

TEST(CurrencyKeys, SignsAndFormsPerLocale) {
  CurrencyField us;
  RunSteps(us, {{"1234", "$1,234", 6}, {"-", "($1,234)", 7}, {".5", "($1,234.5)", 9}}, "en-US currency");
  const TableLocale comma = testing::CommaDecimalLocale();
  CurrencyField eu(comma);
  RunSteps(eu,
           {{"1234", "1.234 \xE2\x82\xAC", 5},
            {",5", "1.234,5 \xE2\x82\xAC", 7},
            {"-", "-1.234,5 \xE2\x82\xAC", 8},
            {"<HOME><DEL>", "1.234,5 \xE2\x82\xAC", 0}},
           "euro");
  EXPECT_DOUBLE_EQ(eu.behavior.LongDoubleGet(), 1234.5);
  const TableLocale groups = testing::TwoDigitGroupLocale();
  CurrencyField in(groups);
  RunSteps(in, {{"1234567", "Rs 12,34,567", 12}, {"-", "Rs -12,34,567", 13}}, "rupee");
}

TEST(NumberText, ValueToTextPerNegativeForm) {
  struct Case {
    const char* form;
    double value;
    bool trim;
    const char* text;
  };
  for (const Case c : {Case{"1", 1234.5, true, "1,234.5"}, {"1", 1234.5, false, "1,234.500000"},
                       {"0", -1234567, true, "(1,234,567)"}, {"1", -1234567, true, "-1,234,567"},
                       {"2", -0.25, true, "- 0.25"}, {"3", -12, true, "12-"}, {"4", -12, true, "12 -"},
                       {"1", 0, true, "0"}, {"1", 100, true, "100"}}) {
    TableLocale locale({{kLocaleNegativeNumber, c.form}});
    CExtEditSystemNumber number(nullptr, -15, 2, locale);
    EXPECT_EQ(number.ValueToText(c.value, c.trim), c.text) << c.value << " form " << c.form;
  }
  CExtEditSystemNumber number;
  EXPECT_EQ(number.IntToText(-1234567), "-1,234,567");
  EXPECT_EQ(number.ValueToText(1.0 / 0.0, true), "");
}

TEST(NumberText, LeadingZeroComesFromTheLocale) {
  TableLocale without({{kLocaleLeadingZero, "0"}});
  NumberField f(without);
  ASSERT_TRUE(f.behavior.LongDoubleSet(0.5));
  EXPECT_EQ(f.edit.GetText(), ".5");
  NumberField g;
  ASSERT_TRUE(g.behavior.LongDoubleSet(-0.5));
  EXPECT_EQ(g.edit.GetText(), "-0.5");
  NumberField h;
  RunSteps(h, {{".", "0.", 2}, {"5", "0.5", 3}}, "typed point");
}

TEST(NumberText, NumericPartAndNegativity) {
  TableLocale paren({{kLocaleNegativeNumber, "0"}});
  CExtEditSystemNumber p(nullptr, -15, 2, paren);
  EXPECT_EQ(p.GetNumericPart("(1,234.5)"), "-1234.5");
  EXPECT_TRUE(p.IsNegative("1,2(3"));
  CExtEditSystemNumber lead;
  EXPECT_FALSE(lead.IsNegative("1-2"));
  EXPECT_TRUE(lead.IsNegative("-12"));
  TableLocale trailing({{kLocaleNegativeNumber, "3"}});
  CExtEditSystemNumber t(nullptr, -15, 2, trailing);
  EXPECT_TRUE(t.IsNegative("12-"));
  EXPECT_EQ(t.GetNumericPart("1,234.5-"), "-1234.5");
  const TableLocale comma = testing::CommaDecimalLocale();
  CExtEditSystemCurrency eu(nullptr, -15, 2, comma);
  EXPECT_EQ(eu.GetNumericPart("-1.234,5 \xE2\x82\xAC", true), "-1234,5");
  EXPECT_EQ(eu.GetNumericPart("1.234,5,6 \xE2\x82\xAC"), "1234.56");
}

TEST(NumberText, Grouping) {
  struct Case {
    const char* grouping;
    const char* text;
  };
  // Kept: a closing 0 stops the size before it from repeating, so "3;0" groups only once.
  for (const Case c : {Case{"3", "1,234,567,890"}, {"3;2", "1,23,45,67,890"}, {"3;2;0", "12345,67,890"},
                       {"3;0", "1234567,890"}, {"0", "1234567890"}, {"", "1234567890"}, {"4", "12,3456,7890"}}) {
    TableLocale locale({{kLocaleGrouping, c.grouping}});
    CExtEditSystemNumber number(nullptr, -15, 2, locale);
    EXPECT_EQ(number.IntToText(1234567890), c.text) << '"' << c.grouping << '"';
  }
  CExtEditSystemNumber plain;
  plain.SetFlags(CExtEditSystemNumberCurrencyBase::kNoGrouping);
  EXPECT_EQ(plain.m_strGroupSeparator, "");
  EXPECT_EQ(plain.IntToText(1234567), "1234567");
}

TEST(NumberText, CutDownToTheLimits) {
  CExtEditSystemNumber number(nullptr, 4, 2);
  EXPECT_EQ(number.Normalize("123456.789"), "1,234.78");
  EXPECT_EQ(number.Normalize("-12"), "12") << "negatives not allowed";
  EXPECT_EQ(number.Normalize("abc"), "");
}

TEST(NumberValue, SetAndGet) {
  NumberField f(platform::EnUsLocale(), -6, 2);
  EXPECT_TRUE(f.behavior.LongDoubleSet(-1234.567));
  EXPECT_EQ(f.edit.GetText(), "-1,234.56");
  EXPECT_DOUBLE_EQ(f.behavior.LongDoubleGet(), -1234.56);
  EXPECT_EQ(f.behavior.IntGet(), -1234);
  EXPECT_FALSE(f.behavior.LongDoubleSet(12345678)) << "more whole digits than allowed";
  EXPECT_EQ(f.edit.GetText(), "-1,234.56");
  f.behavior.SetRange(0, 100);
  EXPECT_FALSE(f.behavior.LongDoubleSet(101));
  EXPECT_FALSE(f.behavior.IntSet(-1));
  EXPECT_TRUE(f.behavior.IntSet(42));
  EXPECT_EQ(f.behavior.TextGet(), "42");
  f.behavior.TextSet("1234.5x");
  EXPECT_EQ(f.edit.GetText(), "1,234.5");
  NumberField positive(platform::EnUsLocale(), 6, 2);
  EXPECT_FALSE(positive.behavior.LongDoubleSet(-1));
  EXPECT_FALSE(positive.behavior.NegativeAllowed());
}

TEST(NumberLocale, SeparatorRepair) {
  struct Case {
    bool currency;
    const char* decimal;
    const char* group;
    const char* want_group;
  };
  for (const Case c : {Case{false, ".", ".", ","}, {false, ",", ",", "."}, {false, ";", ";", ";"},
                       {true, ".", ".", ","}, {true, ",", ",", "."}, {true, ";", ";", ","}, {false, ".", " ", " "}}) {
    using namespace platform;
    TableLocale locale({{kLocaleDecimal, c.decimal}, {kLocaleThousand, c.group}, {kLocaleMonDecimal, c.decimal},
                        {kLocaleMonThousand, c.group}});
    std::unique_ptr<CExtEditSystemNumberCurrencyBase> b;
    if (c.currency)
      b = std::make_unique<CExtEditSystemCurrency>(nullptr, -15, 2, locale);
    else
      b = std::make_unique<CExtEditSystemNumber>(nullptr, -15, 2, locale);
    EXPECT_EQ(b->m_strGroupSeparator, c.want_group) << c.currency << " " << c.decimal;
  }
}

TEST(NumberLocale, ReadsLeaveFieldsAloneWithoutAnAnswer) {
  TableLocale locale({{kLocaleDecimal, "<none>"}, {kLocaleNegativeNumber, "<none>"}, {kLocaleGrouping, "<none>"},
                      {platform::kLocaleDigits, "3"}});
  CExtEditSystemNumber number(nullptr, -15, -1, locale);
  EXPECT_EQ(number.m_strDecimalSeparator, ".");
  EXPECT_EQ(number.m_nNegativeFormat, 0);
  EXPECT_TRUE(number.m_arrGroupSizes.empty());
  EXPECT_EQ(number.m_nMaxFractionDigits, 3) << "the locale's fraction digits when none are asked";
}

TEST(NumberLocale, SettingChangeReformats) {
  TableLocale locale({});
  NumberField f(locale);
  f.Type("1234.5");
  locale.Set(kLocaleDecimal, ",");
  locale.Set(kLocaleThousand, ".");
  f.behavior.OnSettingChange("windows");
  EXPECT_EQ(f.edit.GetText(), "1,234.5");
  f.behavior.OnSettingChange("intl");
  EXPECT_EQ(f.edit.GetText(), "1.234,5");
  locale.Set(kLocaleCurrencyNegative, "5");
  CurrencyField c(locale);
  c.Type("12-");
  EXPECT_EQ(c.edit.GetText(), "-12$");
}

TEST(NumberLocale, ProcessLocaleOfTheCLibrary) {
  std::setlocale(LC_ALL, "C");
  const auto locale = platform::ProcessLocale();
  NumberField f(*locale);
  f.Type("1234567.5");
  EXPECT_EQ(f.edit.GetText(), "1234567.5") << "the C locale has no grouping";
  EXPECT_EQ(locale->NumberSetting(kLocaleGrouping), "");
  EXPECT_EQ(platform::EnUsLocale().NumberSetting(kLocaleGrouping), "3");
  EXPECT_EQ(platform::EnUsLocale().NumberSetting(9999), std::nullopt);
}

}  // namespace
}  // namespace qmk::toolkit::edit
