// locale.h: the locale facts that number, currency, boolean and date texts are read and written by.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace qmk::platform {

enum class DateOrder { kMonthDayYear, kDayMonthYear, kYearMonthDay };

// The number and currency settings that locale-aware number input reads, by their numbers on the
// system the library came from, so that hosts and archives keep speaking of them the same way.
enum LocaleSetting : int {
  kLocaleDecimal = 14,           // decimal separator
  kLocaleThousand = 15,          // group separator
  kLocaleGrouping = 16,          // group sizes from the right, as "3" or "3;2": the last repeats,
                                 // and a last 0 stops the one before it from repeating
  kLocaleDigits = 17,            // fraction digits
  kLocaleLeadingZero = 18,       // "1" to show 0.5, "0" for .5
  kLocaleCurrency = 20,          // currency sign
  kLocaleMonDecimal = 22,        // decimal separator of money
  kLocaleMonThousand = 23,       // group separator of money
  kLocaleMonGrouping = 24,       // group sizes of money
  kLocaleCurrencyDigits = 25,    // fraction digits of money
  kLocaleCurrencyPositive = 27,  // 0 "$1.1", 1 "1.1$", 2 "$ 1.1", 3 "1.1 $"
  kLocaleCurrencyNegative = 28,  // 0 "($1.1)" ... 15 "(1.1 $)"
  kLocaleNegativeSign = 81,
  kLocaleNegativeNumber = 4112,  // 0 "(1.1)", 1 "-1.1", 2 "- 1.1", 3 "1.1-", 4 "1.1 -"
};

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
  // A number or currency setting as text; nullopt when the locale has no answer. By default the
  // US English answers, with the separators and the currency sign of this locale.
  virtual std::optional<std::string> NumberSetting(int setting) const;
};

// US English, fixed: the default of every conversion.
const Locale& EnUsLocale();

// The locale of the process (LC_NUMERIC, LC_MONETARY and LC_TIME as set by the host), read once
// when called; facts the C library does not tell fall back to US English.
std::unique_ptr<Locale> ProcessLocale();

}  // namespace qmk::platform
