// cell_input.cpp: the masked string cell and the locale number and currency cells.
#include "toolkit/grid/cell_input.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/variant/change_type.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellStringMasked, CExtGridCellString)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellSystemNumberCurrencyBase, CExtGridCellEx)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellSystemNumber, CExtGridCellSystemNumberCurrencyBase)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellSystemCurrency, CExtGridCellSystemNumberCurrencyBase)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellNumberBase, CExtGridCellVariant)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellNumber, CExtGridCellNumberBase)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellCurrency, CExtGridCellNumberBase)

// ---- masked string ----

bool CExtGridCellStringMasked::Serialize(Archive& ar) {
  if (!CExtGridCellString::Serialize(ar)) return false;
  if (ar.IsStoring()) {
    ar.WriteString(m_strMask);
  } else {
    std::string mask = ar.ReadString();
    if (ar.ok()) m_strMask = std::move(mask);
  }
  return ar.ok();
}

void CExtGridCellStringMasked::Assign(const CExtGridCell& other) {
  CExtGridCellString::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellStringMasked*>(&other)) {
    m_strMask = o->m_strMask;
    m_pBehaviour = o->m_pBehaviour;
  }
}

HRESULT CExtGridCellStringMasked::OnParseText(const char* text) const {
  return m_pBehaviour ? m_pBehaviour->ValidateText(text ? text : "") : S_OK;
}

void CExtGridCellStringMasked::OnQueryTextForInplaceControl(std::string& text) const {
  TextGet(text);
  if (m_pBehaviour) text = m_pBehaviour->EditText(text);
}

// ---- locale number and currency ----

void CExtGridCellSystemNumberCurrencyBase::SetNumber(double value) {
  m_dValue = value;
  SetEmpty(false);
}

void CExtGridCellSystemNumberCurrencyBase::DecimalsSet(int decimals) { m_nDecimals = std::clamp(decimals, 0, 15); }

void CExtGridCellSystemNumberCurrencyBase::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_dValue = 0;
}

bool CExtGridCellSystemNumberCurrencyBase::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  uint64_t bits = 0;
  if (ar.IsStoring()) {
    std::memcpy(&bits, &m_dValue, 8);
    ar.WriteU32(static_cast<uint32_t>(bits));
    ar.WriteU32(static_cast<uint32_t>(bits >> 32));
    ar.WriteU32(static_cast<uint32_t>(m_nDecimals));
    return ar.ok();
  }
  bits = ar.ReadU32();
  bits |= static_cast<uint64_t>(ar.ReadU32()) << 32;
  const auto decimals = static_cast<int32_t>(ar.ReadU32());
  if (!ar.ok()) return false;
  std::memcpy(&m_dValue, &bits, 8);
  DecimalsSet(decimals);
  return true;
}

void CExtGridCellSystemNumberCurrencyBase::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellSystemNumberCurrencyBase*>(&other)) {
    m_dValue = o->m_dValue;
    m_nDecimals = o->m_nDecimals;
    m_pLocale = o->m_pLocale;
    m_pBehaviour = o->m_pBehaviour;
    return;
  }
  // Another kind of cell gives its value as a number, or leaves this one empty.
  Variant value, number;
  other.VariantGet(value);
  if (!other.IsEmpty() && platform::ChangeType(number, value, VT_R8) == S_OK)
    SetNumber(number.DoubleValue());
  else
    SetEmpty(true);
}

int CExtGridCellSystemNumberCurrencyBase::Compare(const CExtGridCell& other, uint32_t styleMask,
                                                  uint32_t styleExMask) const {
  if (auto* o = dynamic_cast<const CExtGridCellSystemNumberCurrencyBase*>(&other)) {
    if (m_dValue != o->m_dValue) return m_dValue < o->m_dValue ? -1 : 1;
    return CompareStyleOnly(other, styleMask, styleExMask);
  }
  return CExtGridCellEx::Compare(other, styleMask, styleExMask);
}

void CExtGridCellSystemNumberCurrencyBase::VariantGet(Variant& value) const {
  value = IsEmpty() ? Variant() : Variant::R8(m_dValue);
}

void CExtGridCellSystemNumberCurrencyBase::TextGet(std::string& text) const {
  text.clear();
  if (IsEmpty()) return;
  char digits[400];
  std::snprintf(digits, sizeof digits, "%.*f", m_nDecimals, std::fabs(m_dValue));
  std::string whole = digits, fraction;
  if (const size_t dot = whole.find('.'); dot != std::string::npos) {
    fraction = whole.substr(dot + 1);
    whole.resize(dot);
  }
  const Locale& locale = LocaleGet();
  // Groups of three digits from the right.
  std::string grouped;
  for (size_t i = 0; i < whole.size(); ++i) {
    if (i > 0 && (whole.size() - i) % 3 == 0) grouped += locale.ThousandsSeparator();
    grouped += whole[i];
  }
  const bool negative = m_dValue < 0 && std::strtod(digits, nullptr) != 0;
  if (negative) text += '-';
  if (IsCurrency()) text += locale.CurrencySymbol();
  text += grouped;
  if (!fraction.empty()) text += locale.DecimalSeparator() + fraction;
}

bool CExtGridCellSystemNumberCurrencyBase::ParseNumber(const std::string& text, double& value) const {
  const Locale& locale = LocaleGet();
  const std::string symbol = locale.CurrencySymbol();
  std::string plain;
  bool seenDecimal = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (!symbol.empty() && text.compare(i, symbol.size(), symbol) == 0) {
      i += symbol.size() - 1;
      continue;
    }
    if (c == ' ') continue;
    if (c == locale.ThousandsSeparator() && !seenDecimal) continue;
    if (c == locale.DecimalSeparator()) {
      if (seenDecimal) return false;
      seenDecimal = true;
      plain += '.';
    } else if ((c >= '0' && c <= '9') || ((c == '-' || c == '+') && plain.empty())) {
      plain += c;
    } else {
      return false;
    }
  }
  if (plain == "+" || plain == "-") plain = "0";
  if (plain.empty()) return false;
  char* end = nullptr;
  errno = 0;
  value = std::strtod(plain.c_str(), &end);
  return end && *end == 0 && errno == 0 && std::isfinite(value);
}

HRESULT CExtGridCellSystemNumberCurrencyBase::OnParseText(const char* text) const {
  const std::string t = text ? text : "";
  if (m_pBehaviour) return m_pBehaviour->ValidateText(t);
  double value = 0;
  return ParseNumber(t, value) ? S_OK : DISP_E_TYPEMISMATCH;
}

void CExtGridCellSystemNumberCurrencyBase::TextSet(const char* text, bool) {
  double value = 0;
  if (ParseNumber(text ? text : "", value)) SetNumber(value);
}

}  // namespace qmk::toolkit::grid
