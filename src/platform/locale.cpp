// locale.cpp: the fixed US English locale and the one read from the process's C locale.
#include "platform/locale.h"

#include <langinfo.h>

#include <climits>
#include <clocale>
#include <cstring>
#include <map>

namespace qmk::platform {
namespace {

constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};

// A locale held as a table of facts.
struct LocaleTable {
  char decimal = '.';
  char thousands = ',';
  std::string currency = "$";
  std::string true_name = "True", false_name = "False";
  DateOrder order = DateOrder::kMonthDayYear;
  char date_separator = '/';
  char time_separator = ':';
  std::string am = "AM", pm = "PM";
  bool clock24 = false;
  std::string months[12], short_months[12];
  // Number settings that differ from the US English answers.
  std::map<int, std::string> numbers;

  LocaleTable() {
    for (int i = 0; i < 12; ++i) {
      months[i] = kMonths[i];
      short_months[i] = std::string(kMonths[i], 3);
    }
  }
};

class TableLocale : public Locale {
 public:
  explicit TableLocale(LocaleTable table) : t_(std::move(table)) {}
  char DecimalSeparator() const override { return t_.decimal; }
  char ThousandsSeparator() const override { return t_.thousands; }
  std::string CurrencySymbol() const override { return t_.currency; }
  std::string TrueName() const override { return t_.true_name; }
  std::string FalseName() const override { return t_.false_name; }
  DateOrder GetDateOrder() const override { return t_.order; }
  char DateSeparator() const override { return t_.date_separator; }
  char TimeSeparator() const override { return t_.time_separator; }
  std::string AmDesignator() const override { return t_.am; }
  std::string PmDesignator() const override { return t_.pm; }
  bool Uses24HourClock() const override { return t_.clock24; }
  std::string MonthName(int month, bool abbreviated) const override {
    if (month < 1 || month > 12) return {};
    return abbreviated ? t_.short_months[month - 1] : t_.months[month - 1];
  }
  std::optional<std::string> NumberSetting(int setting) const override {
    if (const auto it = t_.numbers.find(setting); it != t_.numbers.end()) return it->second;
    return Locale::NumberSetting(setting);
  }

 private:
  LocaleTable t_;
};

// The date order and separator of a strftime date format such as "%m/%d/%y" or "%d.%m.%Y".
void ReadDateFormat(const char* format, LocaleTable& t) {
  std::string order;
  for (const char* p = format; *p; ++p) {
    if (*p != '%' || p[1] == '\0') continue;
    const char c = *++p;
    if (c == 'd' || c == 'e') order += 'd';
    if (c == 'm') order += 'm';
    if (c == 'y' || c == 'Y') order += 'y';
    if (order.size() == 1 && p[1] != '\0' && p[1] != '%') t.date_separator = p[1];
  }
  if (order == "dmy") t.order = DateOrder::kDayMonthYear;
  if (order == "ymd") t.order = DateOrder::kYearMonthDay;
  if (order == "mdy") t.order = DateOrder::kMonthDayYear;
}

// C library group sizes (each byte a size, CHAR_MAX stops, the end repeats the last) as the
// setting's text, where the last size repeats and a closing 0 stops it.
std::string GroupingText(const char* grouping) {
  std::string text;
  for (const char* g = grouping; g && *g; ++g) {
    if (*g == CHAR_MAX || *g < 0) return text.empty() ? text : text + ";0";
    if (!text.empty()) text += ';';
    text += std::to_string(static_cast<int>(*g));
  }
  return text;
}

// The negative currency form number of where the sign and the currency sign stand.
int NegativeCurrencyForm(bool precedes, bool space, int sign_position) {
  switch (sign_position) {
    case 0:
      return precedes ? (space ? 14 : 0) : (space ? 15 : 4);
    case 2:
      return precedes ? (space ? 11 : 3) : (space ? 10 : 7);
    case 3:
      return precedes ? (space ? 9 : 1) : (space ? 13 : 6);
    case 4:
      return precedes ? (space ? 12 : 2) : (space ? 10 : 7);
    default:
      return precedes ? (space ? 9 : 1) : (space ? 8 : 5);
  }
}

void ReadMoney(const lconv& conv, LocaleTable& t) {
  auto text = [&](int setting, const char* value) {
    if (value) t.numbers[setting] = value;
  };
  if (conv.negative_sign && *conv.negative_sign) text(kLocaleNegativeSign, conv.negative_sign);
  if (conv.mon_decimal_point && *conv.mon_decimal_point) text(kLocaleMonDecimal, conv.mon_decimal_point);
  text(kLocaleMonThousand, conv.mon_thousands_sep);
  t.numbers[kLocaleGrouping] = GroupingText(conv.grouping);
  t.numbers[kLocaleMonGrouping] = GroupingText(conv.mon_grouping);
  if (conv.thousands_sep) t.numbers[kLocaleThousand] = conv.thousands_sep;
  if (conv.decimal_point && *conv.decimal_point) t.numbers[kLocaleDecimal] = conv.decimal_point;
  if (conv.frac_digits != CHAR_MAX) t.numbers[kLocaleCurrencyDigits] = std::to_string(conv.frac_digits);
  if (conv.p_cs_precedes != CHAR_MAX)
    t.numbers[kLocaleCurrencyPositive] =
        std::to_string(conv.p_cs_precedes ? (conv.p_sep_by_space ? 2 : 0) : (conv.p_sep_by_space ? 3 : 1));
  if (conv.n_cs_precedes != CHAR_MAX)
    t.numbers[kLocaleCurrencyNegative] =
        std::to_string(NegativeCurrencyForm(conv.n_cs_precedes, conv.n_sep_by_space == 1, conv.n_sign_posn));
}

}  // namespace

std::optional<std::string> Locale::NumberSetting(int setting) const {
  switch (setting) {
    case kLocaleDecimal:
    case kLocaleMonDecimal:
      return std::string(1, DecimalSeparator());
    case kLocaleThousand:
    case kLocaleMonThousand:
      return ThousandsSeparator() ? std::string(1, ThousandsSeparator()) : std::string();
    case kLocaleGrouping:
    case kLocaleMonGrouping:
      return "3";
    case kLocaleDigits:
    case kLocaleCurrencyDigits:
      return "2";
    case kLocaleLeadingZero:
    case kLocaleNegativeNumber:
      return "1";
    case kLocaleCurrency:
      return CurrencySymbol();
    case kLocaleCurrencyPositive:
    case kLocaleCurrencyNegative:
      return "0";
    case kLocaleNegativeSign:
      return "-";
    default:
      return std::nullopt;
  }
}

const Locale& EnUsLocale() {
  static const TableLocale locale{LocaleTable{}};
  return locale;
}

std::unique_ptr<Locale> ProcessLocale() {
  LocaleTable t;
  if (const lconv* conv = std::localeconv()) {
    if (conv->decimal_point && conv->decimal_point[0]) t.decimal = conv->decimal_point[0];
    t.thousands = conv->thousands_sep && conv->thousands_sep[0] ? conv->thousands_sep[0] : '\0';
    if (conv->currency_symbol && conv->currency_symbol[0]) t.currency = conv->currency_symbol;
    ReadMoney(*conv, t);
  }
  if (t.thousands == t.decimal) t.thousands = '\0';
  ReadDateFormat(nl_langinfo(D_FMT), t);
  const char* am = nl_langinfo(AM_STR);
  const char* pm = nl_langinfo(PM_STR);
  t.clock24 = !(am && *am && pm && *pm);
  if (!t.clock24) {
    t.am = am;
    t.pm = pm;
  }
  const nl_item full[] = {MON_1, MON_2, MON_3, MON_4, MON_5, MON_6, MON_7, MON_8, MON_9, MON_10, MON_11, MON_12};
  const nl_item brief[] = {ABMON_1, ABMON_2, ABMON_3, ABMON_4, ABMON_5, ABMON_6,
                           ABMON_7, ABMON_8, ABMON_9, ABMON_10, ABMON_11, ABMON_12};
  for (int i = 0; i < 12; ++i) {
    if (const char* name = nl_langinfo(full[i]); name && *name) t.months[i] = name;
    if (const char* name = nl_langinfo(brief[i]); name && *name) t.short_months[i] = name;
  }
  return std::make_unique<TableLocale>(std::move(t));
}

}  // namespace qmk::platform
