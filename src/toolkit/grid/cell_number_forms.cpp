// cell_number_forms.cpp: the fraction and scientific number cells.
#include "toolkit/grid/cell_number_forms.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/variant/change_type.h"
#include "toolkit/grid/cell_archive_io.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellFraction, CExtGridCellNumberBase)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellScientific, CExtGridCellNumberBase)

namespace {

// Above this a double has no fraction part worth showing.
constexpr double kWholeOnly = 1e15;

struct Ratio {
  int64_t num = 0, den = 1;
};

// The fraction nearest to `x` (0 <= x < 1) whose denominator is at most `maxDen`, by the
// continued fraction of x and its last semiconvergent.
Ratio Nearest(double x, int64_t maxDen) {
  int64_t h2 = 0, h1 = 1, k2 = 1, k1 = 0;
  double y = x;
  for (int guard = 0; guard < 64; ++guard) {
    // Past the first term the denominator already has a factor of at least 1, so a term above
    // maxDen ends the walk; holding it there keeps the conversion to an integer defined.
    const double a = std::min(std::floor(y), static_cast<double>(maxDen) + 1);
    const auto ai = static_cast<int64_t>(a);
    const int64_t h = ai * h1 + h2, k = ai * k1 + k2;
    if (k > maxDen) {
      const int64_t t = (maxDen - k2) / k1;
      const Ratio semi{t * h1 + h2, t * k1 + k2};
      const Ratio conv{h1, k1};
      const double es = std::fabs(x - static_cast<double>(semi.num) / static_cast<double>(semi.den));
      const double ec = std::fabs(x - static_cast<double>(conv.num) / static_cast<double>(conv.den));
      return es < ec ? semi : conv;
    }
    h2 = h1;
    h1 = h;
    k2 = k1;
    k1 = k;
    const double rest = y - a;
    if (rest < 1e-12 || std::fabs(x - static_cast<double>(h1) / static_cast<double>(k1)) < 1e-15) break;
    y = 1.0 / rest;
  }
  return {h1, k1};
}

bool ReadCount(const std::string& word, int64_t& value) {
  if (word.empty() || word.size() > 15 || word.find_first_not_of("0123456789") != std::string::npos) return false;
  value = std::strtoll(word.c_str(), nullptr, 10);
  return true;
}

bool ReadPlainNumber(const char* text, double& value) {
  Variant v;
  if (platform::ChangeType(v, Variant::Str(text), VT_R8) != S_OK) return false;
  value = v.DoubleValue();
  return true;
}

bool IsLoneSign(const std::string& t) { return t == "+" || t == "-"; }

}  // namespace

bool CellNumber(const CExtGridCellVariant& cell, double& value) {
  Variant v;
  if (cell.IsEmpty() || platform::ChangeType(v, *cell.GetVariantPtr(), VT_R8) != S_OK) return false;
  value = v.DoubleValue();
  return std::isfinite(value);
}

// ---- fraction ----

bool CExtGridCellFraction::DenominatorDigitsSet(int digits) {
  if (digits < 1 || digits > kMaxDigits) return false;
  m_nDigits = digits;
  return true;
}

bool CExtGridCellFraction::FixedDenominatorSet(int32_t denominator) {
  if (denominator != 0 && (denominator < 2 || denominator > kMaxFixed)) return false;
  m_nFixed = denominator;
  return true;
}

std::string CExtGridCellFraction::Format(double value) const {
  const bool negative = value < 0;
  const double magnitude = std::fabs(value);
  char buffer[64];
  if (magnitude >= kWholeOnly) {
    std::snprintf(buffer, sizeof buffer, "%s%.0f", negative ? "-" : "", magnitude);
    return buffer;
  }
  auto whole = static_cast<int64_t>(std::floor(magnitude));
  const double part = magnitude - static_cast<double>(whole);
  Ratio r;
  if (m_nFixed) {
    r = {std::llround(part * m_nFixed), m_nFixed};
  } else {
    int64_t maxDen = 1;
    for (int i = 0; i < m_nDigits; ++i) maxDen *= 10;
    r = Nearest(part, maxDen - 1);
  }
  // A fraction that rounds to a whole unit carries into the whole part.
  if (r.num >= r.den) {
    ++whole;
    r.num = 0;
  }
  if (whole == 0 && r.num == 0) return "0";
  const char* sign = negative ? "-" : "";
  if (r.num == 0)
    std::snprintf(buffer, sizeof buffer, "%s%lld", sign, static_cast<long long>(whole));
  else if (whole == 0)
    std::snprintf(buffer, sizeof buffer, "%s%lld/%lld", sign, static_cast<long long>(r.num), static_cast<long long>(r.den));
  else
    std::snprintf(buffer, sizeof buffer, "%s%lld %lld/%lld", sign, static_cast<long long>(whole),
                  static_cast<long long>(r.num), static_cast<long long>(r.den));
  return buffer;
}

bool CExtGridCellFraction::Parse(const char* text, double& value) {
  std::string t = text ? text : "";
  const size_t first = t.find_first_not_of(" \t");
  if (first == std::string::npos) return false;
  t = t.substr(first, t.find_last_not_of(" \t") - first + 1);
  if (IsLoneSign(t)) {
    value = 0;
    return true;
  }
  const size_t slash = t.find('/');
  if (slash == std::string::npos) return ReadPlainNumber(t.c_str(), value);
  bool negative = false;
  size_t at = 0;
  if (t[0] == '+' || t[0] == '-') {
    negative = t[0] == '-';
    at = 1;
  }
  // "W N/D" or "N/D": the whole part ends at the last blank before the slash.
  const std::string body = t.substr(at);
  const size_t slashInBody = slash - at;
  const size_t blank = body.find_last_of(" \t", slashInBody);
  int64_t whole = 0, num = 0, den = 0;
  if (blank != std::string::npos) {
    const size_t wholeEnd = body.find_last_not_of(" \t", blank);
    if (wholeEnd == std::string::npos || !ReadCount(body.substr(0, wholeEnd + 1), whole)) return false;
  }
  const size_t numStart = blank == std::string::npos ? 0 : blank + 1;
  if (!ReadCount(body.substr(numStart, slashInBody - numStart), num) || !ReadCount(body.substr(slashInBody + 1), den) ||
      den == 0)
    return false;
  value = static_cast<double>(whole) + static_cast<double>(num) / static_cast<double>(den);
  if (negative) value = -value;
  return true;
}

void CExtGridCellFraction::TextGet(std::string& text) const {
  double value = 0;
  if (!CellNumber(*this, value)) {
    CExtGridCellNumberBase::TextGet(text);
    return;
  }
  text = Format(value);
}

void CExtGridCellFraction::TextSet(const char* text, bool asIs) {
  double value = 0;
  if (asIs)
    CExtGridCellNumberBase::TextSet(text, true);
  else if (Parse(text, value))
    VariantSet(Variant::R8(value));
}

HRESULT CExtGridCellFraction::OnParseText(const char* text) const {
  double value = 0;
  return Parse(text, value) ? S_OK : DISP_E_TYPEMISMATCH;
}

// After the variant cell's form: the denominator digits and the fixed denominator, 32 bits
// each. Values out of range fail the load.
bool CExtGridCellFraction::Serialize(Archive& ar) {
  if (!CExtGridCellNumberBase::Serialize(ar)) return false;
  int32_t digits = m_nDigits, fixed = m_nFixed;
  io::Int(ar, digits);
  io::Int(ar, fixed);
  if (!ar.ok()) return false;
  if (ar.IsStoring()) return true;
  const int32_t oldDigits = m_nDigits, oldFixed = m_nFixed;
  if (DenominatorDigitsSet(digits) && FixedDenominatorSet(fixed)) return true;
  m_nDigits = oldDigits;
  m_nFixed = oldFixed;
  return false;
}

void CExtGridCellFraction::Assign(const CExtGridCell& other) {
  CExtGridCellNumberBase::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellFraction*>(&other)) {
    m_nDigits = o->m_nDigits;
    m_nFixed = o->m_nFixed;
  }
}

// ---- scientific ----

bool CExtGridCellScientific::DecimalsSet(int decimals) {
  if (decimals < 0 || decimals > 15) return false;
  m_nDecimals = decimals;
  return true;
}

void CExtGridCellScientific::TextGet(std::string& text) const {
  double value = 0;
  if (!CellNumber(*this, value)) {
    CExtGridCellNumberBase::TextGet(text);
    return;
  }
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*E", m_nDecimals, value);
  text = buffer;
}

void CExtGridCellScientific::TextSet(const char* text, bool asIs) {
  if (asIs) {
    CExtGridCellNumberBase::TextSet(text, true);
    return;
  }
  const std::string t = text ? text : "";
  double value = 0;
  if (IsLoneSign(t))
    VariantSet(Variant::R8(0));
  else if (ReadPlainNumber(t.c_str(), value))
    VariantSet(Variant::R8(value));
}

HRESULT CExtGridCellScientific::OnParseText(const char* text) const {
  const std::string t = text ? text : "";
  double value = 0;
  return IsLoneSign(t) || ReadPlainNumber(t.c_str(), value) ? S_OK : DISP_E_TYPEMISMATCH;
}

// After the variant cell's form: the count of decimals, 32 bits.
bool CExtGridCellScientific::Serialize(Archive& ar) {
  if (!CExtGridCellNumberBase::Serialize(ar)) return false;
  int32_t decimals = m_nDecimals;
  io::Int(ar, decimals);
  if (!ar.ok()) return false;
  return ar.IsStoring() || DecimalsSet(decimals);
}

void CExtGridCellScientific::Assign(const CExtGridCell& other) {
  CExtGridCellNumberBase::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellScientific*>(&other)) m_nDecimals = o->m_nDecimals;
}

}  // namespace qmk::toolkit::grid
