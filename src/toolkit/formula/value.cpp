// value.cpp: CExtFormulaValue and the variant conversion rule of formulas.
#include "toolkit/formula/value.h"

#include <cmath>

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
