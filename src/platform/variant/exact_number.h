// exact_number.h: ExactNumber, a decimal number of any length read from text or taken from an
// integer, decimal or currency value, with the banker's rounding that conversions use.
#pragma once

#include <string>

#include "platform/locale.h"
#include "platform/variant/variant.h"

namespace qmk::platform {

// The value digits x 10^exponent; digits has no leading or trailing zeros, and is empty for 0.
struct ExactNumber {
  bool negative = false;
  std::string digits;
  int exponent = 0;

  bool IsZero() const { return digits.empty(); }
  static ExactNumber FromInteger(__int128 value);
  static ExactNumber FromDecimal(const Decimal& value);
  // A double by its first `significant` digits, as conversions to decimal take it.
  static ExactNumber FromDouble(double value, int significant);
  // Rounds half to even so that the exponent is at least `min_exponent`.
  void RoundTo(int min_exponent);
  // The value rounded to an integer (half to even); false when it falls outside lo..hi.
  bool ToInteger(__int128 lo, __int128 hi, __int128& out) const;
  double ToDouble() const;
  // False when the value is too large for a decimal; digits beyond 28 places are rounded.
  bool ToDecimal(Decimal& out) const;
  // Plain positional text with the locale's decimal separator and no grouping.
  std::string ToText(const Locale& locale) const;
  // Strips leading and trailing zeros into the exponent; zero loses its sign.
  void Normalize();
};

// What a number text may hold, by the platform's flag numbers: each part is read only when its
// flag is given.
constexpr unsigned NUMPRS_LEADING_WHITE = 0x1;
constexpr unsigned NUMPRS_TRAILING_WHITE = 0x2;
constexpr unsigned NUMPRS_LEADING_PLUS = 0x4;
constexpr unsigned NUMPRS_TRAILING_PLUS = 0x8;
constexpr unsigned NUMPRS_LEADING_MINUS = 0x10;
constexpr unsigned NUMPRS_TRAILING_MINUS = 0x20;
constexpr unsigned NUMPRS_HEX_OCT = 0x40;
constexpr unsigned NUMPRS_PARENS = 0x80;
constexpr unsigned NUMPRS_DECIMAL = 0x100;
constexpr unsigned NUMPRS_THOUSANDS = 0x200;
constexpr unsigned NUMPRS_CURRENCY = 0x400;
constexpr unsigned NUMPRS_EXPONENT = 0x800;
constexpr unsigned NUMPRS_STD = 0x1FFF;

// Reads a whole text as a number in the locale's form, taking only the parts `flags` allow:
// blanks before and after, a sign in front or behind, parentheses, the currency symbol, digits
// with thousands separators, a decimal separator, an exponent, and "&H" hexadecimal or "&O"
// octal forms. False when the text holds anything else.
bool ParseNumber(const std::string& text, unsigned flags, const Locale& locale, ExactNumber& out);
// The same with every part allowed (NUMPRS_STD), as conversions from text read numbers.
bool ParseNumberText(const std::string& text, const Locale& locale, ExactNumber& out);

// A double as text with `precision` significant digits, a tie at the last digit rounded away
// from zero: positional while the digits fit `precision` places after the point ("0.00001"),
// else with an exponent of at least two digits ("1E+20", "1.5E-16"); large values take the
// exponent from `precision` integer digits on.
std::string FormatDouble(double value, int precision, const Locale& locale);

}  // namespace qmk::platform
