// date_time.cpp: Automation dates and calendar fields, and dates as text.
#include "platform/variant/date_time.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <ctime>
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

bool EqualsIgnoringCase(const std::string& a, const std::string& b) {
  if (a.size() != b.size() || a.empty()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) return false;
  return true;
}

struct NumberToken {
  int value;
  int length;  // digits written
};

// The pieces of a date text: numbers of the date, a month given by name, the time.
struct DateText {
  std::vector<NumberToken> numbers;
  int month_by_name = 0;
  bool has_time = false;
  int hour = 0, minute = 0, second = 0;
  int half = 0;  // 1 for AM, 2 for PM
};

int ExpandYear(const NumberToken& n) {
  if (n.length <= 2) return n.value < 30 ? 2000 + n.value : 1900 + n.value;
  return n.value;
}

bool Tokenize(const std::string& text, const Locale& locale, DateText& out) {
  size_t i = 0;
  const size_t size = text.size();
  const auto read_number = [&](NumberToken& n) {
    n = {0, 0};
    while (i < size && std::isdigit(static_cast<unsigned char>(text[i]))) {
      if (n.length >= 5) return false;
      n.value = n.value * 10 + (text[i++] - '0');
      ++n.length;
    }
    return n.length > 0;
  };
  const char time_separator = locale.TimeSeparator();
  while (i < size) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if (std::isspace(c) || c == ',' || c == '/' || c == '-' || c == '.' || c == static_cast<unsigned char>(locale.DateSeparator())) {
      ++i;
    } else if (std::isdigit(c)) {
      NumberToken n;
      if (!read_number(n)) return false;
      if (i < size && (text[i] == ':' || text[i] == time_separator)) {
        if (out.has_time) return false;
        out.has_time = true;
        out.hour = n.value;
        ++i;
        NumberToken part;
        if (!read_number(part)) return false;
        out.minute = part.value;
        if (i < size && (text[i] == ':' || text[i] == time_separator)) {
          ++i;
          if (!read_number(part)) return false;
          out.second = part.value;
        }
      } else {
        out.numbers.push_back(n);
      }
    } else if (std::isalpha(c)) {
      const size_t start = i;
      while (i < size && std::isalpha(static_cast<unsigned char>(text[i]))) ++i;
      const std::string word = text.substr(start, i - start);
      int month = 0;
      for (int m = 1; m <= 12 && month == 0; ++m)
        if (EqualsIgnoringCase(word, locale.MonthName(m, false)) || EqualsIgnoringCase(word, locale.MonthName(m, true)))
          month = m;
      if (month != 0 && out.month_by_name == 0) out.month_by_name = month;
      else if (out.half == 0 && (EqualsIgnoringCase(word, locale.AmDesignator()) || EqualsIgnoringCase(word, "AM"))) out.half = 1;
      else if (out.half == 0 && (EqualsIgnoringCase(word, locale.PmDesignator()) || EqualsIgnoringCase(word, "PM"))) out.half = 2;
      else return false;
    } else {
      return false;
    }
  }
  return true;
}

// Year, month and day from the numbers of a date text; false when they make no date.
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
  if (n.size() == 3) {
    if (n[0].length >= 3) {  // ISO order
      year = n[0].value;
      month = n[1].value;
      day = n[2].value;
      return IsValidDay(year, month, day);
    }
    const DateOrder order = locale.GetDateOrder();
    const int a = n[0].value, b = n[1].value;
    year = ExpandYear(order == DateOrder::kYearMonthDay ? n[0] : n[2]);
    if (order == DateOrder::kYearMonthDay) {
      month = b;
      day = n[2].value;
    } else {
      month = order == DateOrder::kMonthDayYear ? a : b;
      day = order == DateOrder::kMonthDayYear ? b : a;
    }
    if (IsValidDay(year, month, day)) return true;
    std::swap(month, day);  // "13/1/2020" in month-first order is read day first
    return IsValidDay(year, month, day);
  }
  if (n.size() == 2) {
    if (is_year(n[1])) {  // month and year
      month = n[0].value;
      year = ExpandYear(n[1]);
      day = 1;
    } else {
      year = CurrentYear();
      const bool day_first = locale.GetDateOrder() == DateOrder::kDayMonthYear;
      month = day_first ? n[1].value : n[0].value;
      day = day_first ? n[0].value : n[1].value;
    }
    return IsValidDay(year, month, day);
  }
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
  if (t.numbers.empty() && t.month_by_name == 0 && !t.has_time) return false;
  if (t.half != 0 && !t.has_time) {
    // "3 PM": the last number is the hour.
    if (t.numbers.empty()) return false;
    t.has_time = true;
    t.hour = t.numbers.back().value;
    t.numbers.pop_back();
  }
  DateFields f;
  f.hour = t.hour;
  f.minute = t.minute;
  f.second = t.second;
  if (t.half != 0) {
    if (f.hour < 1 || f.hour > 12) return false;
    f.hour = f.hour % 12 + (t.half == 2 ? 12 : 0);
  }
  if (!t.numbers.empty() || t.month_by_name != 0) {
    if (!AssembleDay(t, locale, f.year, f.month, f.day)) return false;
  }
  return FieldsToDate(f, date);
}

}  // namespace qmk::platform
