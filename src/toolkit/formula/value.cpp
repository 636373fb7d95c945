// value.cpp: CExtFormulaValue and the variant conversion rule of formulas.
#include "toolkit/formula/value.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <cstdio>
#include <cstdlib>

#include "platform/variant/change_type.h"

namespace qmk::toolkit::formula {

using platform::Variant;
using platform::VarType;

namespace {

bool IsBlankText(const std::string& text) {
  for (char c : text)
    if (c != ' ' && c != '\r' && c != '\n' && c != '\t') return false;
  return true;
}

bool IsNumberOrDateTarget(VarType type) {
  return platform::IsNumericType(type) || type == platform::VT_DATE || type == platform::VT_BOOL;
}

}  // namespace

bool ConvertVariant(Variant& value, VarType type) {
  if (value.Type() == type) return true;
  // An integer as a double, the commonest conversion of arithmetic: the general one reads the
  // integer as exact digits and rounds them to the nearest double, which is the cast.
  if (type == platform::VT_R8 && (value.Type() == platform::VT_I4 || value.Type() == platform::VT_I8)) {
    value = Variant::R8(static_cast<double>(value.SignedValue()));
    return true;
  }
  Variant source = value;
  // A blank text counts as the integer 0 for numbers and dates, so that an empty input cell
  // joins arithmetic instead of failing it.
  if (source.Type() == platform::VT_BSTR && IsNumberOrDateTarget(type) && IsBlankText(source.StringValue()))
    source = Variant::I4(0);
  Variant converted;
  if (platform::ChangeType(converted, source, type) != platform::S_OK) return false;
  value = std::move(converted);
  return true;
}

std::string ScalarText(const Variant& value) {
  switch (value.Type()) {
    case platform::VT_BSTR: return "\"" + value.StringValue() + "\"";
    case platform::VT_BOOL: return value.BoolValue() ? "TRUE" : "FALSE";
    case platform::VT_EMPTY: return "";
    default: break;
  }
  Variant number = value;
  if (!ConvertVariant(number, platform::VT_R8)) return "";
  const double x = number.DoubleValue();
  char buffer[40];
  // The fewest digits that read back as the same double.
  int digits = 1;
  for (; digits < 17; ++digits) {
    std::snprintf(buffer, sizeof buffer, "%.*g", digits, x);
    if (std::strtod(buffer, nullptr) == x || !std::isfinite(x)) break;
  }
  std::snprintf(buffer, sizeof buffer, "%.*g", digits, x);
  const double magnitude = std::fabs(x);
  // Plain positional digits where they stay short: 1000, not 1e+03.
  if (std::strchr(buffer, 'e') != nullptr && magnitude >= 1e-5 && magnitude < 1e17) {
    const int decimals = std::max(0, digits - 1 - static_cast<int>(std::floor(std::log10(magnitude))));
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, x);
  }
  return buffer;
}

bool CExtFormulaValue::NormalizeDate() {
  if (m_value.Type() != platform::VT_DATE) return false;
  double number = m_value.DoubleValue();
  // 1 January 1900 is day 2; the dates of TIME fall on it.
  if (std::floor(number) == 2.0) number -= 2.0;
  m_value = Variant::R8(number);
  return true;
}

int CExtFormulaValue::Compare(const CExtFormulaValue& other) const {
  const platform::HRESULT r = platform::VarCmp(m_value, other.m_value, 0);
  return r == platform::VARCMP_LT ? -1 : r == platform::VARCMP_GT ? 1 : 0;
}

void CExtFormulaValue::Clear() {
  m_nKind = kNone;
  m_value.Clear();
  m_bEmpty = true;
  m_range.Empty();
}

void CExtFormulaValue::SetScalar(const Variant& scalar) {
  m_value = scalar;
  m_nKind = kScalar;
  m_bEmpty = false;
}

void CExtFormulaValue::SetRange(const CExtGridRangeSet& range) {
  m_value.Clear();
  m_range.Assign(range);
  m_nKind = kRange;
}

}  // namespace qmk::toolkit::formula
