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

// Reads a number in the locale's form: blanks, a sign or parentheses, the currency symbol,
// digits with thousands separators, a decimal separator, an exponent, and "&H" hexadecimal or
// "&O" octal forms. False when the text is anything else.
bool ParseNumberText(const std::string& text, const Locale& locale, ExactNumber& out);

// A double as text with `precision` significant digits: positional, or with an exponent of at
// least two digits ("1E+20", "1E-05") when it is very large or small.
std::string FormatDouble(double value, int precision, const Locale& locale);

}  // namespace qmk::platform
