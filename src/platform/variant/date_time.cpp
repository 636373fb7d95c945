// date_time.cpp: Automation dates and calendar fields, and dates as text.
#include "platform/variant/date_time.h"
#include "platform/text.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

namespace qmk::platform {
namespace {

// Days since 1 March of year 0 of the proleptic Gregorian calendar, shifted to 1970 (civil
// calendar arithmetic on whole eras of 400 years).
long long DaysFromCivil(long long y, int m, int d) {
  y -= m <= 2;
  const long long era = (y >= 0 ? y : y - 399) / 400;
  const long long yoe = y - era * 400;
  const long long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const long long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

void CivilFromDays(long long z, int& y, int& m, int& d) {
  z += 719468;
  const long long era = (z >= 0 ? z : z - 146096) / 146097;
  const long long doe = z - era * 146097;
  const long long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const long long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const long long mp = (5 * doy + 2) / 153;
  d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  y = static_cast<int>(yoe + era * 400 + (m <= 2));
}

const long long kEpoch = DaysFromCivil(1899, 12, 30);

int DaysInMonth(int year, int month) {
  static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[month - 1];
}

int CurrentYear() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  if (localtime_r(&now, &local) == nullptr) return 2000;
  return local.tm_year + 1900;
}

// An empty word names nothing: a locale without a designator must not match an empty one.
bool SameWord(const std::string& a, const std::string& b) { return !a.empty() && EqualsNoCase(a, b); }

// One number of a date text and what follows it.
struct NumberToken {
  int value = 0;
  int length = 0;             // digits written
  bool time_after = false;    // a time separator follows: the number is an hour or minute
  int half = 0;               // 1 for AM, 2 for PM written after it
};

// The pieces of a date text: its numbers in order and a month given by name.
struct DateText {
  std::vector<NumberToken> numbers;
  int month_by_name = 0;
};

int ExpandYear(const NumberToken& n) {
  if (n.length <= 2) return n.value < 30 ? 2000 + n.value : 1900 + n.value;
  return n.value;
}

// "AM", "PM" and their first letters, and the locale's designators.
int HalfOfDay(const std::string& word, const Locale& locale) {
  if (SameWord(word, locale.AmDesignator()) || SameWord(word, "AM") ||
      SameWord(word, "A"))
    return 1;
  if (SameWord(word, locale.PmDesignator()) || SameWord(word, "PM") ||
      SameWord(word, "P"))
    return 2;
  return 0;
}

int MonthOfName(const std::string& word, const Locale& locale) {
  for (int m = 1; m <= 12; ++m)
    if (SameWord(word, locale.MonthName(m, false)) || SameWord(word, locale.MonthName(m, true)))
      return m;
  return 0;
}

// Splits the text into numbers, separators, a month name and AM/PM. A "." is a date separator
// where the locale writes dates with dots, and a time separator everywhere else: in US English
// "1.30" is half past one. A separator needs something before and after it.
bool Tokenize(const std::string& text, const Locale& locale, DateText& out) {
  size_t i = 0;
  const size_t size = text.size();
  const char date_separator = locale.DateSeparator();
  const char time_separator = locale.TimeSeparator();
  bool anything = false;  // a number or a month name has been read
  int date_separators = 0;
  const auto more_follows = [&] { return i + 1 < size; };
  while (i < size) {
    const char c = text[i];
    const unsigned char u = static_cast<unsigned char>(c);
    if (std::isdigit(u)) {
      NumberToken n;
      for (; i < size && std::isdigit(static_cast<unsigned char>(text[i])); ++i) {
        if (++n.length > 9) return false;
        n.value = n.value * 10 + (text[i] - '0');
      }
      out.numbers.push_back(n);
      anything = true;
      continue;
    }
    if (std::isalpha(u)) {
      const size_t start = i;
      while (i < size && std::isalpha(static_cast<unsigned char>(text[i]))) ++i;
      const std::string word = text.substr(start, i - start);
      if (const int half = HalfOfDay(word, locale)) {
        if (out.numbers.empty() || out.numbers.back().half != 0) return false;
        out.numbers.back().half = half;
      } else if (const int month = MonthOfName(word, locale); month != 0 && out.month_by_name == 0) {
        out.month_by_name = month;
        anything = true;
      } else {
        return false;
      }
      continue;
    }
    const bool is_time_separator = c == ':' || c == time_separator || (c == '.' && date_separator != '.');
    const bool is_date_separator = !is_time_separator && (c == '/' || c == '-' || c == '.' || c == date_separator);
    if (is_time_separator) {
      if (out.numbers.empty() || !more_follows() || out.numbers.back().time_after) return false;
      out.numbers.back().time_after = true;
    } else if (is_date_separator) {
      if (!anything || !more_follows() || ++date_separators > 2) return false;
    } else if (c == ',') {
      if (!more_follows()) return false;
    } else if (!std::isspace(u)) {
      return false;
    }
    ++i;
  }
  return true;
}

// The time of day in the text: "h:mm", "h:mm:ss" (or with dots in US English), or a lone hour
// with AM or PM. The numbers it takes are removed. False for two times or a broken one.
bool TakeTime(std::vector<NumberToken>& numbers, DateFields& f) {
  bool found = false;
  std::vector<NumberToken> rest;
  for (size_t k = 0; k < numbers.size(); ++k) {
    const NumberToken& first = numbers[k];
    if (!first.time_after && first.half == 0) {
      rest.push_back(first);
      continue;
    }
    if (found) return false;
    found = true;
    int parts[3] = {first.value, 0, 0};
    int half = first.half;
    size_t count = 1;
    while (numbers[k].time_after) {
      if (k + 1 >= numbers.size() || count == 3 || half != 0) return false;
      ++k;
      parts[count++] = numbers[k].value;
      half = numbers[k].half;
    }
    int hour = parts[0];
    // AM and PM turn 12 into 0 and add 12 to the afternoon; hour 0 takes them too, and an hour
    // above 12 keeps its value whatever follows it.
    if (half == 1 && hour == 12) hour = 0;
    if (half == 2 && hour < 12) hour += 12;
    f.hour = hour;
    f.minute = parts[1];
    f.second = parts[2];
  }
  numbers.swap(rest);
  return true;
}

// The orders in which three numbers are tried: the locale's first, then these.
enum Order { kMDY, kYMD, kYDM, kDMY, kMYD, kDYM };
constexpr Order kFallbackOrders[] = {kMDY, kYMD, kYDM, kDMY, kMYD, kDYM};

bool TryOrder(Order order, const std::vector<NumberToken>& n, int& year, int& month, int& day) {
  static constexpr int kPlaces[6][3] = {// positions of year, month, day
                                        {2, 0, 1}, {0, 1, 2}, {0, 2, 1}, {2, 1, 0}, {1, 0, 2}, {1, 2, 0}};
  const int* p = kPlaces[order];
  year = ExpandYear(n[static_cast<size_t>(p[0])]);
  month = n[static_cast<size_t>(p[1])].value;
  day = n[static_cast<size_t>(p[2])].value;
  return IsValidDay(year, month, day);
}

Order LocaleOrder(const Locale& locale) {
  switch (locale.GetDateOrder()) {
    case DateOrder::kDayMonthYear: return kDMY;
    case DateOrder::kYearMonthDay: return kYMD;
    case DateOrder::kMonthDayYear: break;
  }
  return kMDY;
}

// Two numbers: month and day of this year in the locale's order, then the other order, then
// month and year, then year and month (the first day of that month).
bool TwoNumbers(const std::vector<NumberToken>& n, const Locale& locale, int& year, int& month, int& day) {
  const bool day_first = locale.GetDateOrder() == DateOrder::kDayMonthYear;
  const NumberToken& a = n[0];
  const NumberToken& b = n[1];
  const int this_year = CurrentYear();
  const int orders[2][2] = {{day_first ? b.value : a.value, day_first ? a.value : b.value},
                            {day_first ? a.value : b.value, day_first ? b.value : a.value}};
  for (const auto& md : orders) {
    if (IsValidDay(this_year, md[0], md[1])) {
      year = this_year;
      month = md[0];
      day = md[1];
      return true;
    }
  }
  for (const auto& [m, y] : {std::pair{a, b}, std::pair{b, a}}) {
    if (IsValidDay(ExpandYear(y), m.value, 1)) {
      year = ExpandYear(y);
      month = m.value;
      day = 1;
      return true;
    }
  }
  return false;
}

// Year, month and day from the numbers left once the time is taken; false when they make no date.
bool AssembleDay(const DateText& t, const Locale& locale, int& year, int& month, int& day) {
  const std::vector<NumberToken>& n = t.numbers;
  const auto is_year = [](const NumberToken& x) { return x.length >= 3 || x.value > 31; };
  if (t.month_by_name != 0) {
    month = t.month_by_name;
    if (n.size() == 2) {
      const bool first_is_year = is_year(n[0]) && !is_year(n[1]);
      day = first_is_year ? n[1].value : n[0].value;
      year = ExpandYear(first_is_year ? n[0] : n[1]);
    } else if (n.size() == 1) {
      if (is_year(n[0])) {
        year = ExpandYear(n[0]);
        day = 1;
      } else {
        year = CurrentYear();
        day = n[0].value;
      }
    } else {
      return false;
    }
    return IsValidDay(year, month, day);
  }
  if (n.size() == 2) return TwoNumbers(n, locale, year, month, day);
  if (n.size() != 3) return false;
  if (TryOrder(LocaleOrder(locale), n, year, month, day)) return true;
  for (Order order : kFallbackOrders)
    if (TryOrder(order, n, year, month, day)) return true;
  return false;
}

}  // namespace

bool IsValidDay(int year, int month, int day) {
  return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= DaysInMonth(year, month);
}

bool DateToFields(double date, DateFields& fields) {
  if (!(date > kMinDate - 1.0 && date < kMaxDate + 1.0)) return false;
  long long days = static_cast<long long>(std::trunc(date));
  long long seconds = std::llround(std::fabs(date - static_cast<double>(days)) * 86400.0);
  if (seconds >= 86400) {  // rounded up to the next midnight: the next calendar day
    seconds -= 86400;
    days += 1;
  }
  DateFields f;
  CivilFromDays(kEpoch + days, f.year, f.month, f.day);
  if (f.year < 100 || f.year > 9999) return false;
  f.hour = static_cast<int>(seconds / 3600);
  f.minute = static_cast<int>(seconds / 60 % 60);
  f.second = static_cast<int>(seconds % 60);
  f.millisecond = 0;
  const long long unix_days = kEpoch + days;  // 1 January 1970 was a Thursday
  f.day_of_week = static_cast<int>(((unix_days % 7) + 11) % 7);
  f.day_of_year = static_cast<int>(kEpoch + days - DaysFromCivil(f.year, 1, 1) + 1);
  fields = f;
  return true;
}

bool FieldsToDate(const DateFields& f, double& date) {
  if (!IsValidDay(f.year, f.month, f.day) || f.hour < 0 || f.hour > 23 || f.minute < 0 || f.minute > 59 ||
      f.second < 0 || f.second > 59 || f.millisecond < 0 || f.millisecond > 999)
    return false;
  const double days = static_cast<double>(DaysFromCivil(f.year, f.month, f.day) - kEpoch);
  const double time = (f.hour * 3600.0 + f.minute * 60.0 + f.second + f.millisecond / 1000.0) / 86400.0;
  // Before the epoch the whole days count backwards but the time of day forwards.
  date = days >= 0 ? days + time : days - time;
  return true;
}

bool FormatDate(double date, const Locale& locale, std::string& text) {
  DateFields f;
  if (!DateToFields(date, f)) return false;
  const bool day_zero = f.year == 1899 && f.month == 12 && f.day == 30;
  const bool has_time = f.hour != 0 || f.minute != 0 || f.second != 0;
  std::string out;
  if (!day_zero) {
    const char s = locale.DateSeparator();
    char buffer[48];
    switch (locale.GetDateOrder()) {
      case DateOrder::kMonthDayYear:
        std::snprintf(buffer, sizeof buffer, "%d%c%d%c%d", f.month, s, f.day, s, f.year);
        break;
      case DateOrder::kDayMonthYear:
        std::snprintf(buffer, sizeof buffer, "%02d%c%02d%c%d", f.day, s, f.month, s, f.year);
        break;
      case DateOrder::kYearMonthDay:
        std::snprintf(buffer, sizeof buffer, "%d%c%02d%c%02d", f.year, s, f.month, s, f.day);
        break;
    }
    out = buffer;
  }
  if (has_time || day_zero) {
    if (!out.empty()) out += ' ';
    const char s = locale.TimeSeparator();
    char buffer[64];
    if (locale.Uses24HourClock()) {
      std::snprintf(buffer, sizeof buffer, "%02d%c%02d%c%02d", f.hour, s, f.minute, s, f.second);
    } else {
      const int hour12 = f.hour % 12 == 0 ? 12 : f.hour % 12;
      std::snprintf(buffer, sizeof buffer, "%d%c%02d%c%02d %s", hour12, s, f.minute, s, f.second,
                    (f.hour < 12 ? locale.AmDesignator() : locale.PmDesignator()).c_str());
    }
    out += buffer;
  }
  text = out;
  return true;
}

bool ParseDate(const std::string& text, const Locale& locale, double& date) {
  DateText t;
  if (!Tokenize(text, locale, t)) return false;
  if (t.numbers.empty() && t.month_by_name == 0) return false;
  DateFields f;
  if (!TakeTime(t.numbers, f)) return false;
  if (!t.numbers.empty() || t.month_by_name != 0) {
    if (!AssembleDay(t, locale, f.year, f.month, f.day)) return false;
  }
  return FieldsToDate(f, date);
}

}  // namespace qmk::platform
