// compare.cpp: VarCmp across mixed types.
#include <cctype>
#include <cmath>

#include "platform/variant/change_type.h"
#include "platform/variant/exact_number.h"

namespace qmk::platform {
namespace {

HRESULT Order(int sign) { return sign < 0 ? VARCMP_LT : sign > 0 ? VARCMP_GT : VARCMP_EQ; }

int CompareText(const std::string& a, const std::string& b, bool ignore_case) {
  const size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    int x = static_cast<unsigned char>(a[i]), y = static_cast<unsigned char>(b[i]);
    if (ignore_case) {
      x = std::tolower(x);
      y = std::tolower(y);
    }
    if (x != y) return x < y ? -1 : 1;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
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
  if (IsReal(l) || IsReal(r)) return Order(CompareDouble(AsDouble(left), AsDouble(right)));
  return Order(CompareExact(AsExact(left), AsExact(right)));
}

}  // namespace qmk::platform
