// locale.h: the locale facts that number, currency, boolean and date texts are read and written by.
#pragma once

#include <memory>
#include <string>

namespace qmk::platform {

enum class DateOrder { kMonthDayYear, kDayMonthYear, kYearMonthDay };

class Locale {
 public:
  virtual ~Locale() = default;
  virtual char DecimalSeparator() const = 0;
  virtual char ThousandsSeparator() const = 0;
  virtual std::string CurrencySymbol() const = 0;
  // The words of booleans in text, as "True" and "False" in English.
  virtual std::string TrueName() const = 0;
  virtual std::string FalseName() const = 0;
  virtual DateOrder GetDateOrder() const = 0;
  virtual char DateSeparator() const = 0;
  virtual char TimeSeparator() const = 0;
  // "AM" and "PM"; a locale with a 24-hour clock prints none.
  virtual std::string AmDesignator() const = 0;
  virtual std::string PmDesignator() const = 0;
  virtual bool Uses24HourClock() const = 0;
  // The name of `month` (1..12), full or abbreviated.
  virtual std::string MonthName(int month, bool abbreviated) const = 0;
};

// US English, fixed: the default of every conversion.
const Locale& EnUsLocale();

// The locale of the process (LC_NUMERIC, LC_MONETARY and LC_TIME as set by the host), read once
// when called; facts the C library does not tell fall back to US English.
std::unique_ptr<Locale> ProcessLocale();

}  // namespace qmk::platform
