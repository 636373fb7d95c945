// compare.cpp: VarCmp across mixed types.
#include <cctype>
#include <cmath>
#include <cstdint>

#include "platform/variant/change_type.h"
#include "platform/variant/exact_number.h"

namespace qmk::platform {
namespace {

HRESULT Order(int sign) { return sign < 0 ? VARCMP_LT : sign > 0 ? VARCMP_GT : VARCMP_EQ; }

// Where a byte sorts when texts are compared as the platform's string order does for US English:
// punctuation and symbols first, then digits, then letters alphabetically, then other bytes.
int Weight(unsigned char c) {
  if (std::isalpha(c)) return 0x300 + std::tolower(c);
  if (std::isdigit(c)) return 0x200 + c;
  if (c < 0x80) return 0x100 + c;
  return 0x400 + c;
}

// Texts compare letter by letter without regard to case first; only texts that are equal so
// differ by case, at the first letter whose case differs, lower case first ("abc" < "ABC" <
// "abd"). Ignoring case, that last step is left out.
int CompareText(const std::string& a, const std::string& b, bool ignore_case) {
  const size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    const int x = Weight(static_cast<unsigned char>(a[i])), y = Weight(static_cast<unsigned char>(b[i]));
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  if (ignore_case) return 0;
  for (size_t i = 0; i < n; ++i) {
    const bool x_lower = std::islower(static_cast<unsigned char>(a[i])) != 0;
    const bool y_lower = std::islower(static_cast<unsigned char>(b[i])) != 0;
    if (x_lower != y_lower) return x_lower ? -1 : 1;
  }
  return 0;
}

bool IsReal(VarType vt) { return vt == VT_R4 || vt == VT_R8 || vt == VT_DATE; }

double AsDouble(const Variant& v) {
  Variant d;
  ChangeType(d, v, VT_R8);
  return d.DoubleValue();
}

// An exact number for every numeric, boolean and empty value.
ExactNumber AsExact(const Variant& v) {
  Variant dec;
  if (v.Type() == VT_DECIMAL) return ExactNumber::FromDecimal(v.DecimalValue());
  if (v.Type() == VT_UI8) return ExactNumber::FromInteger(static_cast<__int128>(v.UnsignedValue()));
  if (v.Type() == VT_CY) {
    ExactNumber n = ExactNumber::FromInteger(v.SignedValue());
    if (!n.IsZero()) n.exponent -= 4;
    return n;
  }
  if (v.Type() == VT_EMPTY) return {};
  if (v.Type() == VT_BOOL) return ExactNumber::FromInteger(v.BoolValue() ? -1 : 0);
  if (IsIntegerType(v.Type()))
    return ExactNumber::FromInteger(v.Type() == VT_UI1 || v.Type() == VT_UI2 || v.Type() == VT_UI4 || v.Type() == VT_UINT
                                        ? static_cast<__int128>(v.UnsignedValue())
                                        : v.SignedValue());
  return {};
}

int CompareExact(const ExactNumber& a, const ExactNumber& b) {
  if (a.IsZero() || b.IsZero() || a.negative != b.negative) {
    const int sa = a.IsZero() ? 0 : a.negative ? -1 : 1;
    const int sb = b.IsZero() ? 0 : b.negative ? -1 : 1;
    return sa < sb ? -1 : sa > sb ? 1 : 0;
  }
  // Same sign: compare magnitudes by the place of the leading digit, then digit by digit.
  const long long ma = static_cast<long long>(a.digits.size()) + a.exponent;
  const long long mb = static_cast<long long>(b.digits.size()) + b.exponent;
  int magnitude = ma < mb ? -1 : ma > mb ? 1 : 0;
  if (magnitude == 0) {
    const size_t n = std::max(a.digits.size(), b.digits.size());
    for (size_t i = 0; i < n && magnitude == 0; ++i) {
      const char x = i < a.digits.size() ? a.digits[i] : '0';
      const char y = i < b.digits.size() ? b.digits[i] : '0';
      magnitude = x < y ? -1 : x > y ? 1 : 0;
    }
  }
  return a.negative ? -magnitude : magnitude;
}

// Doubles in a total order: NaN below every number and equal to itself.
int CompareDouble(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) == std::isnan(b) ? 0 : std::isnan(a) ? -1 : 1;
  return a < b ? -1 : a > b ? 1 : 0;
}

}  // namespace

HRESULT VarCmp(const Variant& left, const Variant& right, unsigned flags) {
  const VarType l = left.Type(), r = right.Type();
  if (!IsSupportedType(l) || !IsSupportedType(r)) return DISP_E_BADVARTYPE;
  if (l == VT_NULL || r == VT_NULL) return VARCMP_NULL;
  const bool lcode = l == VT_ERROR || l == VT_HRESULT, rcode = r == VT_ERROR || r == VT_HRESULT;
  if (lcode || rcode) {
    if (!(lcode && rcode)) return DISP_E_TYPEMISMATCH;
    return Order(left.SignedValue() < right.SignedValue() ? -1 : left.SignedValue() > right.SignedValue() ? 1 : 0);
  }
  const bool ltext = l == VT_BSTR, rtext = r == VT_BSTR;
  if (ltext || rtext) {
    // An empty value is the empty text; any number is less than any text.
    if ((ltext || l == VT_EMPTY) && (rtext || r == VT_EMPTY))
      return Order(CompareText(left.StringValue(), right.StringValue(), (flags & NORM_IGNORECASE) != 0));
    return ltext ? VARCMP_GT : VARCMP_LT;
  }
  // A single beside a double or a date: both at the single's precision.
  if ((l == VT_R4 && (r == VT_R8 || r == VT_DATE)) || (r == VT_R4 && (l == VT_R8 || l == VT_DATE)))
    return Order(CompareDouble(static_cast<float>(AsDouble(left)), static_cast<float>(AsDouble(right))));
  if (IsReal(l) || IsReal(r)) return Order(CompareDouble(AsDouble(left), AsDouble(right)));
  // Signed and unsigned 32-bit integers meet as signed 32-bit ones: an unsigned value above the
  // signed range can't be brought over, and the comparison fails with an overflow.
  const auto is_signed32 = [](VarType vt) { return vt == VT_I4 || vt == VT_INT; };
  const auto is_unsigned32 = [](VarType vt) { return vt == VT_UI4 || vt == VT_UINT; };
  if ((is_signed32(l) && is_unsigned32(r)) || (is_unsigned32(l) && is_signed32(r))) {
    const Variant& unsigned_side = is_unsigned32(l) ? left : right;
    if (unsigned_side.UnsignedValue() > static_cast<uint64_t>(INT32_MAX)) return DISP_E_OVERFLOW;
  }
  return Order(CompareExact(AsExact(left), AsExact(right)));
}

}  // namespace qmk::platform
