// locale.cpp: the fixed US English locale and the one read from the process's C locale.
#include "platform/locale.h"

#include <langinfo.h>

#include <clocale>
#include <cstring>

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

}  // namespace

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
