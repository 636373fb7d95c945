// date_time.h: Automation dates (days since 30 December 1899, the time as a fraction) and
// calendar fields, in both directions, and dates as text.
#pragma once

#include <string>

#include "platform/locale.h"

namespace qmk::platform {

// 1 January 100 and 31 December 9999, the range of dates.
constexpr double kMinDate = -657434.0;
constexpr double kMaxDate = 2958465.0;

struct DateFields {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0, millisecond = 0;
  int day_of_week = 6;  // 0 is Sunday
  int day_of_year = 364;  // 1 January is 1

  bool SameMoment(const DateFields& o) const {
    return year == o.year && month == o.month && day == o.day && hour == o.hour && minute == o.minute &&
           second == o.second;
  }
};

// The calendar fields of `date`, rounded to the nearest second. Before 30 December 1899 the
// whole days count backwards but the fraction still counts forwards from midnight: -1.25 is
// 29 December 1899, 06:00. False outside the range of dates.
bool DateToFields(double date, DateFields& fields);
// The date of the fields (the day of week and of year are ignored). False for a field out of
// its range.
bool FieldsToDate(const DateFields& fields, double& date);
// True for a valid day of the proleptic Gregorian calendar in the years 100 to 9999.
bool IsValidDay(int year, int month, int day);

// The locale's text of a date: the date alone when there is no time, the time alone on day 0,
// otherwise both ("1/2/2020 3:04:05 PM" in US English). False outside the range of dates.
bool FormatDate(double date, const Locale& locale, std::string& text);
// A date, a time, or both, in the locale's order or ISO order, with month names, 12- or
// 24-hour times and two-digit years (00-29 are 2000-2029). A date without a year takes the
// current year. False for anything else.
bool ParseDate(const std::string& text, const Locale& locale, double& date);

}  // namespace qmk::platform
