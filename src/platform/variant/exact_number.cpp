// exact_number.cpp: exact decimal numbers: reading them from text, rounding, and turning them
// into integers, doubles, decimals and text.
#include "platform/variant/exact_number.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace qmk::platform {
namespace {

// Exponents beyond this overflow or vanish in every target; capping them keeps the arithmetic
// on them safe.
constexpr int kExponentCap = 100000;

bool StartsWith(const std::string& text, size_t at, const std::string& prefix) {
  return !prefix.empty() && text.compare(at, prefix.size(), prefix) == 0;
}

}  // namespace

void ExactNumber::Normalize() {
  const size_t first = digits.find_first_not_of('0');
  if (first == std::string::npos) {
    digits.clear();
    exponent = 0;
    negative = false;
    return;
  }
  digits.erase(0, first);
  const size_t last = digits.find_last_not_of('0');
  exponent += static_cast<int>(digits.size() - last - 1);
  digits.erase(last + 1);
}

ExactNumber ExactNumber::FromInteger(__int128 value) {
  ExactNumber n;
  n.negative = value < 0;
  unsigned __int128 magnitude = n.negative ? -static_cast<unsigned __int128>(value) : value;
  while (magnitude > 0) {
    n.digits.insert(n.digits.begin(), static_cast<char>('0' + static_cast<int>(magnitude % 10)));
    magnitude /= 10;
  }
  n.Normalize();
  return n;
}

ExactNumber ExactNumber::FromDecimal(const Decimal& value) {
  ExactNumber n = FromInteger(static_cast<__int128>(value.Mantissa()));
  if (!n.IsZero()) {
    n.negative = value.negative;
    n.exponent -= value.scale;
  }
  return n;
}

ExactNumber ExactNumber::FromDouble(double value, int significant) {
  ExactNumber n;
  if (value == 0 || !std::isfinite(value)) return n;
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*e", significant - 1, value);
  // "-d.ddddde+XX"
  const char* p = buffer;
  if (*p == '-') {
    n.negative = true;
    ++p;
  }
  for (; *p && *p != 'e'; ++p)
    if (std::isdigit(static_cast<unsigned char>(*p))) n.digits += *p;
  const int exp10 = *p == 'e' ? std::atoi(p + 1) : 0;
  n.exponent = exp10 - (significant - 1);
  n.Normalize();
  return n;
}

void ExactNumber::RoundTo(int min_exponent) {
  if (IsZero() || exponent >= min_exponent) return;
  const long long drop = static_cast<long long>(min_exponent) - exponent;
  const long long keep = static_cast<long long>(digits.size()) - drop;
  if (keep < 0) {  // below a tenth of the last kept place: rounds to zero
    *this = ExactNumber();
    return;
  }
  std::string kept = digits.substr(0, static_cast<size_t>(keep));
  const char first = digits[static_cast<size_t>(keep)];
  const bool rest = digits.find_first_not_of('0', static_cast<size_t>(keep) + 1) != std::string::npos;
  const bool odd = !kept.empty() && ((kept.back() - '0') & 1) != 0;
  if (first > '5' || (first == '5' && (rest || odd))) {
    int i = static_cast<int>(kept.size()) - 1;
    for (; i >= 0 && kept[static_cast<size_t>(i)] == '9'; --i) kept[static_cast<size_t>(i)] = '0';
    if (i < 0) kept.insert(kept.begin(), '1');
    else ++kept[static_cast<size_t>(i)];
  }
  digits = kept;
  exponent = min_exponent;
  const bool sign = negative;
  Normalize();
  if (!IsZero()) negative = sign;
}

bool ExactNumber::ToInteger(__int128 lo, __int128 hi, __int128& out) const {
  ExactNumber n = *this;
  n.RoundTo(0);
  if (n.IsZero()) {
    out = 0;
    return lo <= 0 && 0 <= hi;
  }
  if (n.digits.size() + static_cast<size_t>(n.exponent) > 38) return false;
  __int128 value = 0;
  for (const char c : n.digits) value = value * 10 + (c - '0');
  for (int i = 0; i < n.exponent; ++i) value *= 10;
  if (n.negative) value = -value;
  if (value < lo || value > hi) return false;
  out = value;
  return true;
}

double ExactNumber::ToDouble() const {
  if (IsZero()) return 0.0;
  const std::string text = (negative ? "-" : "") + digits + "e" + std::to_string(exponent);
  return std::strtod(text.c_str(), nullptr);
}

bool ExactNumber::ToDecimal(Decimal& out) const {
  ExactNumber n = *this;
  n.RoundTo(-28);
  // At most 29 significant digits can fit 96 bits; round off the rest while places remain.
  if (n.digits.size() > 29 && n.exponent < 0)
    n.RoundTo(std::min(0, n.exponent + static_cast<int>(n.digits.size()) - 29));
  for (;;) {
    if (n.IsZero()) {
      out = Decimal{};
      return true;
    }
    if (n.digits.size() + static_cast<size_t>(std::max(0, n.exponent)) > 29) return false;
    unsigned __int128 mantissa = 0;
    for (const char c : n.digits) mantissa = mantissa * 10 + static_cast<unsigned>(c - '0');
    for (int i = 0; i < n.exponent; ++i) mantissa *= 10;
    if (mantissa <= Decimal::kMaxMantissa) {
      out.negative = n.negative;
      out.scale = static_cast<uint8_t>(n.exponent < 0 ? -n.exponent : 0);
      out.SetMantissa(mantissa);
      return true;
    }
    if (n.exponent >= 0) return false;
    n.RoundTo(n.exponent + 1);
  }
}

std::string ExactNumber::ToText(const Locale& locale) const {
  if (IsZero()) return "0";
  std::string text = negative ? "-" : "";
  const long long point = static_cast<long long>(digits.size()) + exponent;  // digits before the point
  if (point <= 0) {
    text += '0';
    text += locale.DecimalSeparator();
    text.append(static_cast<size_t>(-point), '0');
    text += digits;
  } else if (exponent >= 0) {
    text += digits;
    text.append(static_cast<size_t>(exponent), '0');
  } else {
    text += digits.substr(0, static_cast<size_t>(point));
    text += locale.DecimalSeparator();
    text += digits.substr(static_cast<size_t>(point));
  }
  return text;
}

bool ParseNumberText(const std::string& text, const Locale& locale, ExactNumber& out) {
  return ParseNumber(text, NUMPRS_STD, locale, out);
}

bool ParseNumber(const std::string& text, unsigned flags, const Locale& locale, ExactNumber& out) {
  ExactNumber n;
  size_t i = 0;
  const size_t size = text.size();
  const auto skip_blanks = [&](unsigned flag) {
    if (!(flags & flag)) return;
    while (i < size && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
  };
  const std::string currency = locale.CurrencySymbol();
  const auto skip_currency = [&](unsigned blanks_flag) {
    if ((flags & NUMPRS_CURRENCY) && StartsWith(text, i, currency)) {
      i += currency.size();
      skip_blanks(blanks_flag);
    }
  };
  skip_blanks(NUMPRS_LEADING_WHITE);
  skip_currency(NUMPRS_LEADING_WHITE);
  bool parens = false, signed_in_front = false;
  if (i < size && ((text[i] == '+' && (flags & NUMPRS_LEADING_PLUS)) ||
                   (text[i] == '-' && (flags & NUMPRS_LEADING_MINUS)))) {
    n.negative = text[i++] == '-';
    signed_in_front = true;
  } else if (i < size && text[i] == '(' && (flags & NUMPRS_PARENS)) {
    ++i;
    parens = n.negative = true;
  }
  skip_currency(NUMPRS_LEADING_WHITE);
  if ((flags & NUMPRS_HEX_OCT) && i + 1 < size && text[i] == '&' &&
      std::strchr("HhOo", text[i + 1]) != nullptr) {
    const int base = (text[i + 1] == 'H' || text[i + 1] == 'h') ? 16 : 8;
    i += 2;
    unsigned __int128 value = 0;
    size_t start = i;
    for (; i < size; ++i) {
      const int d = std::isdigit(static_cast<unsigned char>(text[i])) ? text[i] - '0'
                    : std::isxdigit(static_cast<unsigned char>(text[i])) ? std::tolower(text[i]) - 'a' + 10
                                                                         : 99;
      if (d >= base) break;
      value = value * static_cast<unsigned>(base) + static_cast<unsigned>(d);
      if (value > (static_cast<unsigned __int128>(1) << 64)) return false;
    }
    if (i == start) return false;
    const bool negative = n.negative;
    n = ExactNumber::FromInteger(static_cast<__int128>(value));
    n.negative = negative && !n.IsZero();
  } else {
    bool any_digit = false;
    const char thousands = locale.ThousandsSeparator();
    for (; i < size; ++i) {
      if (std::isdigit(static_cast<unsigned char>(text[i]))) {
        n.digits += text[i];
        any_digit = true;
      } else if (!(any_digit && (flags & NUMPRS_THOUSANDS) && thousands != '\0' &&
                   text[i] == thousands)) {
        break;
      }
    }
    if ((flags & NUMPRS_DECIMAL) && i < size && text[i] == locale.DecimalSeparator()) {
      for (++i; i < size && std::isdigit(static_cast<unsigned char>(text[i])); ++i) {
        n.digits += text[i];
        --n.exponent;
        any_digit = true;
      }
    }
    if (!any_digit) return false;
    if ((flags & NUMPRS_EXPONENT) && i < size && (text[i] == 'e' || text[i] == 'E')) {
      ++i;
      bool minus = false;
      if (i < size && (text[i] == '+' || text[i] == '-')) minus = text[i++] == '-';
      if (i >= size || !std::isdigit(static_cast<unsigned char>(text[i]))) return false;
      long long e = 0;
      for (; i < size && std::isdigit(static_cast<unsigned char>(text[i])); ++i)
        e = std::min<long long>(e * 10 + (text[i] - '0'), kExponentCap);
      n.exponent = static_cast<int>(std::clamp<long long>(n.exponent + (minus ? -e : e), -kExponentCap, kExponentCap));
    }
    const bool negative = n.negative;
    n.Normalize();
    n.negative = negative && !n.IsZero();
  }
  skip_blanks(NUMPRS_TRAILING_WHITE);
  skip_currency(NUMPRS_TRAILING_WHITE);
  // A sign may follow the number ("5-") when nothing in front gave one.
  if (!signed_in_front && !parens && i < size &&
      ((text[i] == '+' && (flags & NUMPRS_TRAILING_PLUS)) ||
       (text[i] == '-' && (flags & NUMPRS_TRAILING_MINUS)))) {
    n.negative = text[i++] == '-' && !n.IsZero();
    skip_blanks(NUMPRS_TRAILING_WHITE);
  }
  if (parens) {
    if (i >= size || text[i] != ')') return false;
    ++i;
    skip_blanks(NUMPRS_TRAILING_WHITE);
  }
  if (i != size) return false;
  out = n;
  return true;
}

namespace {

// The first `precision` significant digits of |value| with ties rounded away from zero, and the
// power of ten of the first digit. The expansion printed at 60 digits is exact enough to tell a
// true tie: a double is never that close to a tie without being on it.
void RoundedDigits(double value, int precision, std::string& digits, int& exponent) {
  char buffer[96];
  std::snprintf(buffer, sizeof buffer, "%.60e", std::fabs(value));
  std::string all;
  const char* p = buffer;
  for (; *p && *p != 'e'; ++p)
    if (std::isdigit(static_cast<unsigned char>(*p))) all += *p;
  exponent = *p == 'e' ? std::atoi(p + 1) : 0;
  digits = all.substr(0, static_cast<size_t>(precision));
  if (all[static_cast<size_t>(precision)] >= '5') {
    int k = precision - 1;
    for (; k >= 0 && digits[static_cast<size_t>(k)] == '9'; --k) digits[static_cast<size_t>(k)] = '0';
    if (k < 0) {
      digits.insert(digits.begin(), '1');
      digits.pop_back();
      ++exponent;
    } else {
      ++digits[static_cast<size_t>(k)];
    }
  }
  const size_t last = digits.find_last_not_of('0');
  digits.erase(last == std::string::npos ? 1 : last + 1);
}

}  // namespace

std::string FormatDouble(double value, int precision, const Locale& locale) {
  if (value == 0) return "0";  // -0 too
  if (!std::isfinite(value)) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%G", value);
    return buffer;
  }
  std::string digits;
  int exponent = 0;
  RoundedDigits(value, precision, digits, exponent);
  const int count = static_cast<int>(digits.size());
  std::string text = value < 0 ? "-" : "";
  // Plain text while the digits fit `precision` places after the point; an exponent beyond.
  const bool plain = exponent < precision && (exponent >= -4 || count - exponent - 1 <= precision);
  if (plain) {
    ExactNumber n;
    n.digits = digits;
    n.exponent = exponent - (count - 1);
    return text + n.ToText(locale);
  }
  text += digits[0];
  if (count > 1) text += locale.DecimalSeparator() + digits.substr(1);
  char power[16];
  std::snprintf(power, sizeof power, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
  return text + power;
}

}  // namespace qmk::platform
