// cell_variant.cpp: CExtGridCellVariant.
#include "toolkit/grid/cell_variant.h"

#include <cfloat>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <limits>
#include <new>

#include "platform/variant/change_type.h"
#include "toolkit/grid/variant_archive.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellVariant, CExtGridCellEx)

namespace {

// Types whose strings are trimmed, and emptied to integer 0, before a conversion.
bool IsNumberOrDateTarget(VarType vt) {
  switch (vt) {
    case VT_I2: case VT_I4: case VT_R4: case VT_R8: case VT_CY: case VT_DATE: case VT_ERROR:
    case VT_I1: case VT_UI1: case VT_UI2: case VT_UI4: case VT_I8: case VT_UI8: case VT_INT: case VT_UINT:
      return true;
    default:
      return false;
  }
}

std::string Trim(const std::string& text) {
  const char* blanks = " \r\n\t";
  const size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool IsLoneSign(const char* text) { return (text[0] == '+' || text[0] == '-') && text[1] == 0; }

constexpr double kLastDate = 2958465.99999;  // 31 December 9999, a moment before midnight
constexpr double kFirstDate = -657434.0;      // 1 January 100

// Where a value stands against its type's range: -1 at the bottom, 1 at the top, 0 inside, and 2
// for a type without a range.
int Edge(const Variant& v) {
  auto at = [](auto x, auto lo, auto hi) {
    using T = decltype(x);
    return x <= static_cast<T>(lo) ? -1 : x >= static_cast<T>(hi) ? 1 : 0;
  };
  const int64_t i = v.SignedValue();
  const uint64_t u = v.UnsignedValue();
  switch (v.Type()) {
    case VT_I1: return at(i, INT8_MIN, INT8_MAX);
    case VT_UI1: return at(u, 0u, UINT8_MAX);
    case VT_I2: return at(i, INT16_MIN, INT16_MAX);
    case VT_UI2: return at(u, 0u, UINT16_MAX);
    case VT_I4: case VT_INT: return at(i, INT32_MIN, INT32_MAX);
    case VT_UI4: case VT_UINT: return at(u, 0u, UINT32_MAX);
    case VT_I8: case VT_CY: return at(i, INT64_MIN, INT64_MAX);
    case VT_UI8: return at(u, uint64_t{0}, UINT64_MAX);
    case VT_R4: return at(v.SingleValue(), -FLT_MAX, FLT_MAX);
    case VT_R8: return at(v.DoubleValue(), -DBL_MAX, DBL_MAX);
    case VT_DATE: return at(v.DoubleValue(), kFirstDate, kLastDate);
    case VT_DECIMAL: {
      const Decimal& d = v.DecimalValue();
      if (d.Mantissa() != Decimal::kMaxMantissa) return 0;
      return d.negative ? -1 : 1;
    }
    default: return 2;
  }
}

bool IntegerRange(VarType vt, __int128& low, __int128& high) {
  switch (vt) {
    case VT_I1: low = INT8_MIN; high = INT8_MAX; return true;
    case VT_UI1: low = 0; high = UINT8_MAX; return true;
    case VT_I2: low = INT16_MIN; high = INT16_MAX; return true;
    case VT_UI2: low = 0; high = UINT16_MAX; return true;
    case VT_I4: case VT_INT: low = INT32_MIN; high = INT32_MAX; return true;
    case VT_UI4: case VT_UINT: low = 0; high = UINT32_MAX; return true;
    case VT_I8: case VT_CY: low = INT64_MIN; high = INT64_MAX; return true;
    case VT_UI8: low = 0; high = UINT64_MAX; return true;
    default: return false;
  }
}

Variant IntegerOfType(VarType vt, __int128 x) {
  switch (vt) {
    case VT_I1: return Variant::I1(static_cast<int8_t>(x));
    case VT_UI1: return Variant::UI1(static_cast<uint8_t>(x));
    case VT_I2: return Variant::I2(static_cast<int16_t>(x));
    case VT_UI2: return Variant::UI2(static_cast<uint16_t>(x));
    case VT_I4: return Variant::I4(static_cast<int32_t>(x));
    case VT_INT: return Variant::Int(static_cast<int32_t>(x));
    case VT_UI4: return Variant::UI4(static_cast<uint32_t>(x));
    case VT_UINT: return Variant::UInt(static_cast<uint32_t>(x));
    case VT_I8: return Variant::I8(static_cast<int64_t>(x));
    case VT_CY: return Variant::Cy(static_cast<int64_t>(x));
    default: return Variant::UI8(static_cast<uint64_t>(x));
  }
}

// The value moved by `steps` (whole units; currency counts ten-thousandths), held inside its
// type's range.
bool Stepped(const Variant& v, int steps, Variant& out) {
  const VarType vt = v.Type();
  __int128 low = 0, high = 0;
  if (IntegerRange(vt, low, high)) {
    const __int128 base = low == 0 ? static_cast<__int128>(v.UnsignedValue()) : static_cast<__int128>(v.SignedValue());
    __int128 next = base + static_cast<__int128>(steps) * (vt == VT_CY ? 10000 : 1);
    next = next < low ? low : next > high ? high : next;
    out = IntegerOfType(vt, next);
    return true;
  }
  if (vt == VT_R4 || vt == VT_R8 || vt == VT_DATE || vt == VT_DECIMAL) {
    Variant real;
    if (platform::ChangeType(real, v, VT_R8) != S_OK) return false;
    double next = real.DoubleValue() + steps;
    const double top = vt == VT_R4 ? FLT_MAX : vt == VT_DATE ? kLastDate : DBL_MAX;
    const double bottom = vt == VT_R4 ? -FLT_MAX : vt == VT_DATE ? kFirstDate : -DBL_MAX;
    next = next > top ? top : next < bottom ? bottom : next;
    if (vt == VT_R4) { out = Variant::R4(static_cast<float>(next)); return true; }
    if (vt == VT_R8) { out = Variant::R8(next); return true; }
    if (vt == VT_DATE) { out = Variant::Date(next); return true; }
    return platform::ChangeType(out, Variant::R8(next), VT_DECIMAL) == S_OK;
  }
  return false;
}

}  // namespace

std::string ErrorCodeText(int32_t code) {
  struct Known { uint32_t code; const char* text; };
  static constexpr Known kKnown[] = {
      {0x80020005u, "Type mismatch"},
      {0x8002000Au, "Overflow"},
      {0x80020008u, "Bad variable type"},
      {0x8007000Eu, "Out of memory"},
      {0x80070057u, "Invalid argument"},
  };
  for (const Known& k : kKnown)
    if (k.code == static_cast<uint32_t>(code)) return k.text;
  char text[32];
  std::snprintf(text, sizeof text, "Error 0x%08" PRIX32, static_cast<uint32_t>(code));
  return text;
}

void CExtGridCellVariant::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (!empty) return;
  // The type stays; the payload becomes 0.
  switch (m_var.Type()) {
    case VT_EMPTY: case VT_NULL: break;
    case VT_BSTR: m_var = Variant::Str(""); break;
    case VT_DECIMAL: m_var = Variant::Dec(Decimal{}); break;
    default: {
      Variant zero;
      if (platform::ChangeType(zero, Variant::I4(0), m_var.Type()) == S_OK) m_var = zero;
      else m_var.Clear();
    }
  }
}

bool CExtGridCellVariant::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  if (ar.IsStoring()) return StoreVariant(ar, m_var);
  return LoadVariant(ar, m_var);
}

void CExtGridCellVariant::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellVariant*>(&other)) {
    m_var = o->m_var;
    SetEmpty(o->IsEmpty());
    return;
  }
  std::string text;
  if (const char* buffer = other.TextBufferGet())
    text = buffer;
  else
    other.TextGet(text);
  const bool empty = text.empty();
  m_var = Variant::Str(std::move(text));
  CExtGridCellEx::SetEmpty(empty);
}

int CExtGridCellVariant::Compare(const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  if (auto* o = dynamic_cast<const CExtGridCellVariant*>(&other)) {
    if (int r = CompareVariants(m_var, o->m_var)) return r;
  }
  return CExtGridCellEx::Compare(other, styleMask, styleExMask);
}

void CExtGridCellVariant::TextGet(std::string& text) const {
  text.clear();
  if (IsEmpty()) return;
  if (m_var.Type() == VT_ERROR) {
    text = ErrorCodeText(static_cast<int32_t>(m_var.SignedValue()));
    return;
  }
  Variant s;
  if (platform::ChangeType(s, m_var, VT_BSTR) == S_OK) text = s.StringValue();
}

void CExtGridCellVariant::VariantSet(const Variant& value) {
  m_var = value;
  CExtGridCellEx::SetEmpty(false);
}

void CExtGridCellVariant::TextSetImpl(const char* text, bool asIs) {
  if (!text) text = "";
  const VarType vt = m_var.Type();
  if (asIs || vt == VT_EMPTY || vt == VT_BSTR) {
    _VariantAssign(std::string(text));
    return;
  }
  // A lone sign is the start of a number: it reads as 0.
  const Variant source = Variant::Str(IsLoneSign(text) ? "0" : text);
  Variant converted;
  if (platform::ChangeType(converted, source, vt) != S_OK) return;
  m_var = std::move(converted);
  CExtGridCellEx::SetEmpty(false);
}

HRESULT CExtGridCellVariant::OnParseText(const char* text) const {
  if (!text) text = "";
  const VarType vt = m_var.Type();
  if (vt == VT_BSTR || vt == VT_EMPTY || IsLoneSign(text)) return S_OK;
  Variant converted;
  return platform::ChangeType(converted, Variant::Str(text), vt);
}

bool CExtGridCellVariant::ChangeType(VarType type, unsigned, bool keepOnError) {
  Variant source = m_var;
  // Text bound for a number or a date is trimmed first, and blank text counts as integer 0; the
  // plain conversion would refuse both.
  if (IsNumberOrDateTarget(type) && source.Type() == VT_BSTR) {
    const std::string trimmed = Trim(source.StringValue());
    source = trimmed.empty() ? Variant::I4(0) : Variant::Str(trimmed);
    if (trimmed.empty()) m_var = source;
  }
  Variant converted;
  const HRESULT hr = platform::ChangeType(converted, source, type);
  if (hr == S_OK) {
    m_var = std::move(converted);
    return true;
  }
  if (keepOnError) m_var = Variant::Error(hr);
  return false;
}

void CExtGridCellVariant::_VariantAssign(double value) {
  m_var = Variant::R8(value);
  CExtGridCellEx::SetEmpty(false);
}
void CExtGridCellVariant::_VariantAssign(int32_t value) {
  m_var = Variant::I4(value);
  CExtGridCellEx::SetEmpty(false);
}
void CExtGridCellVariant::_VariantAssign(bool value) {
  m_var = Variant::Bool(value);
  CExtGridCellEx::SetEmpty(false);
}
void CExtGridCellVariant::_VariantAssign(const std::string& value) {
  try {
    m_var = Variant::Str(value);
  } catch (const std::bad_alloc&) {
    // A text that can't be held becomes the out-of-memory error, not a lost cell.
    m_var = Variant::Error(E_OUTOFMEMORY);
  }
  CExtGridCellEx::SetEmpty(false);
}

bool CExtGridCellVariant::CanIncrement(const GridEditState* grid) const {
  if (IsReadOnly() || IsDisabled() || IsEmpty() || (GetStyle() & kStyleNoIncrement) || (grid && grid->readOnly))
    return false;
  const int edge = Edge(m_var);
  return edge != 2 && edge != 1;
}

bool CExtGridCellVariant::CanDecrement(const GridEditState* grid) const {
  if (IsReadOnly() || IsDisabled() || IsEmpty() || (GetStyle() & kStyleNoIncrement) || (grid && grid->readOnly))
    return false;
  const int edge = Edge(m_var);
  return edge != 2 && edge != -1;
}

bool CExtGridCellVariant::IsMinimum() const { return Edge(m_var) == -1; }
bool CExtGridCellVariant::IsMaximum() const { return Edge(m_var) == 1; }

bool CExtGridCellVariant::Step(int steps, const GridEditState* grid) {
  if (steps == 0) return true;
  if (steps > 0 ? !CanIncrement(grid) : !CanDecrement(grid)) return false;
  Variant next;
  if (!Stepped(m_var, steps, next)) return false;
  m_var = std::move(next);
  return true;
}

bool CExtGridCellVariant::Increment(int steps, const GridEditState* grid) { return Step(steps, grid); }
bool CExtGridCellVariant::Decrement(int steps, const GridEditState* grid) { return Step(-steps, grid); }

void CExtGridCellVariant::GetAlignment(bool autoAlign, HorzAlign& horz, VertAlign& vert) const {
  CExtGridCellEx::GetAlignment(autoAlign, horz, vert);
  if (!autoAlign || (GetStyle() & kStyleNoAutoAlign)) return;
  switch (m_var.Type()) {
    case VT_I2: case VT_I4: case VT_R4: case VT_R8: case VT_CY: case VT_ERROR: case VT_DECIMAL:
    case VT_I1: case VT_UI1: case VT_UI2: case VT_UI4: case VT_I8: case VT_UI8: case VT_INT: case VT_UINT:
      horz = HorzAlign::kRight;
      break;
    case VT_DATE: case VT_BOOL: horz = HorzAlign::kCenter; break;
    default: break;
  }
  if ((GetStyle() & kStyleUpDownMask) == 0) vert = VertAlign::kCenter;
}

}  // namespace qmk::toolkit::grid
