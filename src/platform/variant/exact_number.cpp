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
  ExactNumber n;
  size_t i = 0;
  const size_t size = text.size();
  const auto skip_blanks = [&] {
    while (i < size && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
  };
  const std::string currency = locale.CurrencySymbol();
  const auto skip_currency = [&] {
    if (StartsWith(text, i, currency)) {
      i += currency.size();
      skip_blanks();
    }
  };
  skip_blanks();
  skip_currency();
  bool parens = false;
  if (i < size && (text[i] == '+' || text[i] == '-')) n.negative = text[i++] == '-';
  else if (i < size && text[i] == '(') {
    ++i;
    parens = n.negative = true;
  }
  skip_currency();
  if (i + 1 < size && text[i] == '&' && std::strchr("HhOo", text[i + 1]) != nullptr) {
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
      } else if (!(any_digit && thousands != '\0' && text[i] == thousands)) {
        break;
      }
    }
    if (i < size && text[i] == locale.DecimalSeparator()) {
      for (++i; i < size && std::isdigit(static_cast<unsigned char>(text[i])); ++i) {
        n.digits += text[i];
        --n.exponent;
        any_digit = true;
      }
    }
    if (!any_digit) return false;
    if (i < size && (text[i] == 'e' || text[i] == 'E')) {
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
  skip_blanks();
  skip_currency();
  if (parens) {
    if (i >= size || text[i] != ')') return false;
    ++i;
    skip_blanks();
  }
  if (i != size) return false;
  out = n;
  return true;
}

std::string FormatDouble(double value, int precision, const Locale& locale) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*G", precision, value);
  std::string text = buffer;
  if (text == "-0") text = "0";
  std::replace(text.begin(), text.end(), '.', locale.DecimalSeparator());
  return text;
}

}  // namespace qmk::platform
