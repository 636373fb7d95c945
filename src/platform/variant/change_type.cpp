// change_type.cpp: ChangeType: every source is read as one of empty, null, text, an exact
// number, a double or an error code, and then written in the form of the target.
#include "platform/variant/change_type.h"

#include <cctype>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/variant/date_time.h"
#include "platform/variant/exact_number.h"

namespace qmk::platform {
namespace {

struct IntegerRange {
  __int128 lo, hi;
};

// The range of each integer target; currency counts ten-thousandths.
bool RangeOf(VarType vt, IntegerRange& range) {
  switch (vt) {
    case VT_I1: range = {INT8_MIN, INT8_MAX}; return true;
    case VT_UI1: range = {0, UINT8_MAX}; return true;
    case VT_I2: range = {INT16_MIN, INT16_MAX}; return true;
    case VT_UI2: range = {0, UINT16_MAX}; return true;
    case VT_I4: case VT_INT: case VT_ERROR: case VT_HRESULT: range = {INT32_MIN, INT32_MAX}; return true;
    case VT_UI4: case VT_UINT: range = {0, UINT32_MAX}; return true;
    case VT_I8: case VT_CY: range = {INT64_MIN, INT64_MAX}; return true;
    case VT_UI8: range = {0, UINT64_MAX}; return true;
    default: return false;
  }
}

Variant IntegerVariant(VarType vt, __int128 v) {
  switch (vt) {
    case VT_I1: return Variant::I1(static_cast<int8_t>(v));
    case VT_UI1: return Variant::UI1(static_cast<uint8_t>(v));
    case VT_I2: return Variant::I2(static_cast<int16_t>(v));
    case VT_UI2: return Variant::UI2(static_cast<uint16_t>(v));
    case VT_I4: return Variant::I4(static_cast<int32_t>(v));
    case VT_INT: return Variant::Int(static_cast<int32_t>(v));
    case VT_UI4: return Variant::UI4(static_cast<uint32_t>(v));
    case VT_UINT: return Variant::UInt(static_cast<uint32_t>(v));
    case VT_I8: return Variant::I8(static_cast<int64_t>(v));
    case VT_UI8: return Variant::UI8(static_cast<uint64_t>(v));
    case VT_CY: return Variant::Cy(static_cast<int64_t>(v));
    case VT_ERROR: return Variant::Error(static_cast<int32_t>(v));
    default: return Variant::Hresult(static_cast<int32_t>(v));
  }
}

bool IsUnsigned(VarType vt) { return vt == VT_UI1 || vt == VT_UI2 || vt == VT_UI4 || vt == VT_UINT || vt == VT_UI8; }
bool IsCode(VarType vt) { return vt == VT_ERROR || vt == VT_HRESULT; }

// A source value as the conversion reads it.
struct Reading {
  enum Kind { kEmpty, kText, kExact, kDouble, kCode } kind = kEmpty;
  ExactNumber exact;
  double real = 0;
  int32_t code = 0;
  bool from_bool = false;
  bool from_date = false;
};

Reading Read(const Variant& v) {
  Reading r;
  switch (v.Type()) {
    case VT_EMPTY: r.kind = Reading::kEmpty; break;
    case VT_BSTR: r.kind = Reading::kText; break;
    case VT_R4: r.kind = Reading::kDouble; r.real = v.SingleValue(); break;
    case VT_R8: r.kind = Reading::kDouble; r.real = v.DoubleValue(); break;
    case VT_DATE: r.kind = Reading::kDouble; r.real = v.DoubleValue(); r.from_date = true; break;
    case VT_DECIMAL: r.kind = Reading::kExact; r.exact = ExactNumber::FromDecimal(v.DecimalValue()); break;
    case VT_CY:
      r.kind = Reading::kExact;
      r.exact = ExactNumber::FromInteger(v.SignedValue());
      if (!r.exact.IsZero()) r.exact.exponent -= 4;
      break;
    case VT_BOOL: r.kind = Reading::kExact; r.exact = ExactNumber::FromInteger(v.BoolValue() ? -1 : 0); r.from_bool = true; break;
    case VT_ERROR: case VT_HRESULT: r.kind = Reading::kCode; r.code = static_cast<int32_t>(v.SignedValue()); break;
    case VT_UI1: case VT_UI2: case VT_UI4: case VT_UI8: case VT_UINT:
      r.kind = Reading::kExact; r.exact = ExactNumber::FromInteger(static_cast<__int128>(v.UnsignedValue())); break;
    default:
      r.kind = Reading::kExact; r.exact = ExactNumber::FromInteger(v.SignedValue()); break;
  }
  return r;
}

// Text: numbers, dates by the date rules, booleans as the locale's words.
HRESULT ToText(const Variant& v, const Reading& r, const Locale& locale, Variant& out) {
  switch (v.Type()) {
    case VT_EMPTY: out = Variant::Str(""); return S_OK;
    case VT_BOOL: out = Variant::Str(v.BoolValue() ? locale.TrueName() : locale.FalseName()); return S_OK;
    case VT_DATE: {
      std::string text;
      if (!FormatDate(v.DoubleValue(), locale, text)) return E_INVALIDARG;
      out = Variant::Str(text);
      return S_OK;
    }
    case VT_R4: out = Variant::Str(FormatDouble(v.SingleValue(), 7, locale)); return S_OK;
    case VT_R8: out = Variant::Str(FormatDouble(v.DoubleValue(), 15, locale)); return S_OK;
    default: break;
  }
  if (r.kind == Reading::kExact) {
    out = Variant::Str(r.exact.ToText(locale));
    return S_OK;
  }
  return DISP_E_TYPEMISMATCH;
}

// The whole text is the word, in any letter case; blanks around it make it another text.
bool TextIsWord(const std::string& text, const std::string& word) {
  if (text.size() != word.size() || word.empty()) return false;
  for (size_t i = 0; i < word.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(text[i])) != std::tolower(static_cast<unsigned char>(word[i])))
      return false;
  return true;
}

// Text is a boolean when it is the locale's word or the English one, or a number. "#TRUE#" and
// other "#...#" literal forms are not booleans.
HRESULT ToBool(const Variant& v, const Reading& r, const Locale& locale, Variant& out) {
  switch (r.kind) {
    case Reading::kEmpty: out = Variant::Bool(false); return S_OK;
    case Reading::kDouble: out = Variant::Bool(r.real != 0.0); return S_OK;
    case Reading::kExact: out = Variant::Bool(!r.exact.IsZero()); return S_OK;
    case Reading::kCode: return DISP_E_TYPEMISMATCH;
    case Reading::kText: break;
  }
  const std::string& text = v.StringValue();
  if (TextIsWord(text, locale.TrueName()) || TextIsWord(text, "True")) {
    out = Variant::Bool(true);
    return S_OK;
  }
  if (TextIsWord(text, locale.FalseName()) || TextIsWord(text, "False")) {
    out = Variant::Bool(false);
    return S_OK;
  }
  ExactNumber n;
  if (!ParseNumberText(text, locale, n)) return DISP_E_TYPEMISMATCH;
  out = Variant::Bool(!n.IsZero());
  return S_OK;
}

HRESULT ToDate(const Variant& v, const Reading& r, const Locale& locale, Variant& out) {
  double date = 0;
  switch (r.kind) {
    case Reading::kEmpty: break;
    case Reading::kCode: return DISP_E_TYPEMISMATCH;
    case Reading::kText:
      if (!ParseDate(v.StringValue(), locale, date)) return DISP_E_TYPEMISMATCH;
      break;
    case Reading::kDouble: date = r.real; break;
    case Reading::kExact: date = r.exact.ToDouble(); break;
  }
  if (!(date > kMinDate - 1.0 && date < kMaxDate + 1.0)) return DISP_E_OVERFLOW;
  out = Variant::Date(date);
  return S_OK;
}

// Integers, currency and the two code types. Fractions round half to even.
HRESULT ToInteger(VarType to, Reading r, Variant& out) {
  IntegerRange range{};
  RangeOf(to, range);
  const int shift = to == VT_CY ? 4 : 0;
  if (r.kind == Reading::kCode) {
    if (to == VT_CY) return DISP_E_TYPEMISMATCH;
    r.kind = Reading::kExact;
    r.exact = ExactNumber::FromInteger(r.code);
  }
  if (r.kind == Reading::kEmpty) {
    out = IntegerVariant(to, 0);
    return S_OK;
  }
  // A boolean true is -1, and an unsigned target takes its bits: 255, 65535, and so on.
  if (r.from_bool && IsUnsigned(to) && !r.exact.IsZero()) {
    out = IntegerVariant(to, range.hi);
    return S_OK;
  }
  __int128 value = 0;
  if (r.kind == Reading::kDouble) {
    if (!std::isfinite(r.real)) return DISP_E_OVERFLOW;
    // Currency scales in double arithmetic, as the platform does: 0.00015 is 1.5 units.
    const double scaled = std::nearbyint(shift ? r.real * 10000.0 : r.real);
    if (scaled < static_cast<double>(range.lo) || scaled > static_cast<double>(range.hi) ||
        (range.hi == INT64_MAX && scaled >= 9223372036854775808.0) ||
        (range.hi == UINT64_MAX && scaled >= 18446744073709551616.0))
      return DISP_E_OVERFLOW;
    value = static_cast<__int128>(scaled);
  } else {
    ExactNumber n = r.exact;
    if (!n.IsZero()) n.exponent += shift;
    if (!n.ToInteger(range.lo, range.hi, value)) return DISP_E_OVERFLOW;
  }
  out = IntegerVariant(to, value);
  return S_OK;
}

HRESULT ToReal(VarType to, const Reading& r, Variant& out) {
  double value = 0;
  switch (r.kind) {
    case Reading::kEmpty: break;
    case Reading::kCode: return DISP_E_TYPEMISMATCH;
    case Reading::kText: return DISP_E_TYPEMISMATCH;  // read before this point
    case Reading::kDouble: value = r.real; break;
    case Reading::kExact: value = r.exact.ToDouble(); break;
  }
  if (to == VT_R4) {
    if (std::isfinite(value) && std::fabs(value) > FLT_MAX) return DISP_E_OVERFLOW;
    out = Variant::R4(static_cast<float>(value));
    return S_OK;
  }
  if (r.kind == Reading::kExact && std::isinf(value)) return DISP_E_OVERFLOW;
  out = Variant::R8(value);
  return S_OK;
}

HRESULT ToDecimal(const Reading& r, Variant& out) {
  ExactNumber n;
  switch (r.kind) {
    case Reading::kEmpty: break;
    case Reading::kCode: case Reading::kText: return DISP_E_TYPEMISMATCH;
    case Reading::kDouble:
      if (!std::isfinite(r.real)) return DISP_E_OVERFLOW;
      n = ExactNumber::FromDouble(r.real, 15);
      break;
    case Reading::kExact: n = r.exact; break;
  }
  Decimal d;
  if (!n.ToDecimal(d)) return DISP_E_OVERFLOW;
  out = Variant::Dec(d);
  return S_OK;
}

}  // namespace

HRESULT ChangeType(Variant& dest, const Variant& source, VarType to, const Locale& locale) {
  const VarType from = source.Type();
  if (!IsSupportedType(to) || !IsSupportedType(from)) return DISP_E_BADVARTYPE;
  if (from == to) {
    dest = source;
    return S_OK;
  }
  if (to == VT_EMPTY) {
    dest.Clear();
    return S_OK;
  }
  if (to == VT_NULL || from == VT_NULL) return DISP_E_TYPEMISMATCH;
  // Error codes and HRESULTs are 32-bit codes: they pass to and from the integer types only.
  if (IsCode(to) && !(IsIntegerType(from) || IsCode(from))) return DISP_E_TYPEMISMATCH;
  Reading r = Read(source);
  Variant out;
  HRESULT hr = S_OK;
  if (to == VT_BSTR) {
    hr = ToText(source, r, locale, out);
  } else if (to == VT_BOOL) {
    hr = ToBool(source, r, locale, out);
  } else if (to == VT_DATE) {
    hr = ToDate(source, r, locale, out);
  } else {
    if (r.kind == Reading::kText) {
      // Text becomes a number first; only a date target reads it as a date.
      if (!ParseNumberText(source.StringValue(), locale, r.exact)) return DISP_E_TYPEMISMATCH;
      r.kind = Reading::kExact;
    }
    if (to == VT_R4 || to == VT_R8) hr = ToReal(to, r, out);
    else if (to == VT_DECIMAL) hr = ToDecimal(r, out);
    else hr = ToInteger(to, r, out);
  }
  if (hr == S_OK) dest = std::move(out);
  return hr;
}

}  // namespace qmk::platform
