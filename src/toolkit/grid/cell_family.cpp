// cell_family.cpp: the hyperlink, boolean, date, colour and slider cells.
#include "toolkit/grid/cell_family.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>

#include "platform/variant/change_type.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellHyperLink, CExtGridCellString)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellBool, CExtGridCellEx)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellDateTime, CExtGridCellEx)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellColor, CExtGridCellEx)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellSlider, CExtGridCellVariant)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellComboBox, CExtGridCellString)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellDropListComboBox, CExtGridCellComboBox)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellPercentage, CExtGridCellNumber)

namespace {

void Word(Archive& ar, uint32_t& v) {
  if (ar.IsStoring())
    ar.WriteU32(v);
  else
    v = ar.ReadU32();
}

void Real(Archive& ar, double& v) {
  uint64_t bits = 0;
  std::memcpy(&bits, &v, 8);
  uint32_t lo = static_cast<uint32_t>(bits), hi = static_cast<uint32_t>(bits >> 32);
  Word(ar, lo);
  Word(ar, hi);
  bits = lo | (static_cast<uint64_t>(hi) << 32);
  std::memcpy(&v, &bits, 8);
}

// The value of `other` converted to `type`; false when it has none of that type.
bool ValueAs(const CExtGridCell& other, VarType type, Variant& out) {
  Variant value;
  other.VariantGet(value);
  return !other.IsEmpty() && ChangeType(out, value, type) == S_OK;
}

}  // namespace

// ---- hyperlink ----

bool CExtGridCellHyperLink::Serialize(Archive& ar) {
  if (!CExtGridCellString::Serialize(ar)) return false;
  if (ar.IsStoring()) {
    ar.WriteString(m_strUrl);
    ar.WriteString(m_strTarget);
    return ar.ok();
  }
  std::string url = ar.ReadString(), target = ar.ReadString();
  if (!ar.ok()) return false;
  m_strUrl = std::move(url);
  m_strTarget = std::move(target);
  return true;
}

void CExtGridCellHyperLink::Assign(const CExtGridCell& other) {
  CExtGridCellString::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellHyperLink*>(&other)) {
    m_strUrl = o->m_strUrl;
    m_strTarget = o->m_strTarget;
  }
}

// ---- boolean ----

void CExtGridCellBool::SetValue(bool value) {
  m_bValue = value;
  SetEmpty(false);
}

bool CExtGridCellBool::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  uint32_t v = m_bValue ? 1 : 0;
  Word(ar, v);
  if (ar.ok()) m_bValue = v != 0;
  return ar.ok();
}

void CExtGridCellBool::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_bValue = false;
}

void CExtGridCellBool::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  Variant v;
  if (ValueAs(other, VT_BOOL, v))
    SetValue(v.BoolValue());
  else
    SetEmpty(true);
}

void CExtGridCellBool::TextGet(std::string& text) const {
  text.clear();
  if (!IsEmpty()) text = m_bValue ? EnUsLocale().TrueName() : EnUsLocale().FalseName();
}

bool CExtGridCellBool::Parse(const char* text, bool& value) const {
  Variant v;
  if (!text || ChangeType(v, Variant::Str(text), VT_BOOL) != S_OK) return false;
  value = v.BoolValue();
  return true;
}

void CExtGridCellBool::TextSet(const char* text, bool) {
  bool value = false;
  if (Parse(text, value)) SetValue(value);
}

void CExtGridCellBool::VariantGet(Variant& value) const { value = IsEmpty() ? Variant() : Variant::Bool(m_bValue); }

HRESULT CExtGridCellBool::OnParseText(const char* text) const {
  bool value = false;
  return Parse(text, value) ? S_OK : DISP_E_TYPEMISMATCH;
}

// ---- date and time ----

void CExtGridCellDateTime::SetDate(double date) {
  m_dDate = date;
  SetEmpty(false);
}

bool CExtGridCellDateTime::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  double v = m_dDate;
  Real(ar, v);
  if (ar.ok()) m_dDate = v;
  return ar.ok();
}

void CExtGridCellDateTime::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_dDate = 0;
}

void CExtGridCellDateTime::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  Variant v;
  if (ValueAs(other, VT_DATE, v))
    SetDate(v.DoubleValue());
  else
    SetEmpty(true);
}

void CExtGridCellDateTime::TextGet(std::string& text) const {
  text.clear();
  Variant s;
  if (!IsEmpty() && ChangeType(s, Variant::Date(m_dDate), VT_BSTR) == S_OK) text = s.StringValue();
}

void CExtGridCellDateTime::TextSet(const char* text, bool) {
  Variant v;
  if (text && ChangeType(v, Variant::Str(text), VT_DATE) == S_OK) SetDate(v.DoubleValue());
}

void CExtGridCellDateTime::VariantGet(Variant& value) const { value = IsEmpty() ? Variant() : Variant::Date(m_dDate); }

HRESULT CExtGridCellDateTime::OnParseText(const char* text) const {
  Variant v;
  return ChangeType(v, Variant::Str(text ? text : ""), VT_DATE);
}

// ---- colour ----

void CExtGridCellColor::SetColor(uint32_t colour) {
  m_clr = colour & 0xFFFFFF;
  SetEmpty(false);
}

bool CExtGridCellColor::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  uint32_t v = m_clr;
  Word(ar, v);
  if (ar.ok()) m_clr = v & 0xFFFFFF;
  return ar.ok();
}

void CExtGridCellColor::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_clr = 0;
}

void CExtGridCellColor::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellColor*>(&other)) {
    m_clr = o->m_clr;
    CExtGridCellEx::SetEmpty(o->IsEmpty());
    return;
  }
  Variant v;
  if (ValueAs(other, VT_UI4, v))
    SetColor(static_cast<uint32_t>(v.UnsignedValue()));
  else
    SetEmpty(true);
}

void CExtGridCellColor::TextGet(std::string& text) const {
  text.clear();
  if (IsEmpty()) return;
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "RGB(%u, %u, %u)", m_clr & 0xFF, (m_clr >> 8) & 0xFF, (m_clr >> 16) & 0xFF);
  text = buffer;
}

void CExtGridCellColor::VariantGet(Variant& value) const { value = IsEmpty() ? Variant() : Variant::UI4(m_clr); }

// ---- slider ----

bool CExtGridCellSlider::SetRange(int32_t low, int32_t high) {
  if (low >= high) return false;
  m_nLow = low;
  m_nHigh = high;
  if (!IsEmpty()) SetPos(GetPos());
  return true;
}

void CExtGridCellSlider::SetPos(int32_t pos) { VariantSet(Variant::I4(std::clamp(pos, m_nLow, m_nHigh))); }

bool CExtGridCellSlider::Serialize(Archive& ar) {
  if (!CExtGridCellVariant::Serialize(ar)) return false;
  auto low = static_cast<uint32_t>(m_nLow), high = static_cast<uint32_t>(m_nHigh);
  Word(ar, low);
  Word(ar, high);
  if (!ar.ok()) return false;
  if (ar.IsLoading()) {
    // A range that makes no sense falls back to the default one.
    if (!SetRange(static_cast<int32_t>(low), static_cast<int32_t>(high))) SetRange(0, 100);
    Variant v;
    if (platform::ChangeType(v, m_var, VT_I4) != S_OK) v = Variant::I4(m_nLow);
    const bool empty = IsEmpty();
    SetPos(static_cast<int32_t>(v.SignedValue()));
    if (empty) SetEmpty(true);
  }
  return true;
}

void CExtGridCellSlider::Assign(const CExtGridCell& other) {
  if (auto* o = dynamic_cast<const CExtGridCellSlider*>(&other)) {
    m_nLow = o->m_nLow;
    m_nHigh = o->m_nHigh;
  }
  CExtGridCellVariant::Assign(other);
  Variant v;
  if (!IsEmpty() && platform::ChangeType(v, m_var, VT_I4) == S_OK) {
    SetPos(static_cast<int32_t>(v.SignedValue()));
  } else {
    m_var = Variant::I4(m_nLow);
    CExtGridCellVariant::SetEmpty(true);
  }
}

void CExtGridCellSlider::TextSet(const char* text, bool) {
  Variant v;
  if (text && platform::ChangeType(v, Variant::Str(text), VT_I4) == S_OK) SetPos(static_cast<int32_t>(v.SignedValue()));
}

bool CExtGridCellSlider::CanIncrement(const GridEditState* grid) const {
  return CExtGridCellVariant::CanIncrement(grid) && GetPos() < m_nHigh;
}

bool CExtGridCellSlider::CanDecrement(const GridEditState* grid) const {
  return CExtGridCellVariant::CanDecrement(grid) && GetPos() > m_nLow;
}

bool CExtGridCellSlider::Increment(int steps, const GridEditState* grid) {
  if (!CanIncrement(grid)) return false;
  SetPos(static_cast<int32_t>(std::clamp<int64_t>(int64_t{GetPos()} + steps, m_nLow, m_nHigh)));
  return true;
}

bool CExtGridCellSlider::Decrement(int steps, const GridEditState* grid) {
  if (!CanDecrement(grid)) return false;
  SetPos(static_cast<int32_t>(std::clamp<int64_t>(int64_t{GetPos()} - steps, m_nLow, m_nHigh)));
  return true;
}

// ---- combo boxes ----

int CExtGridCellComboBox::FindItem(const std::string& text) const {
  for (size_t i = 0; i < m_arrItems.size(); ++i) {
    const std::string& item = m_arrItems[i];
    if (item.size() == text.size() &&
        std::equal(item.begin(), item.end(), text.begin(), [](char a, char b) {
          return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
        }))
      return static_cast<int>(i);
  }
  return -1;
}

bool CExtGridCellComboBox::SelectItem(int index) {
  if (index < 0 || index >= static_cast<int>(m_arrItems.size())) return false;
  CExtGridCellString::TextSet(m_arrItems[static_cast<size_t>(index)].c_str());
  return true;
}

bool CExtGridCellComboBox::Serialize(Archive& ar) {
  if (!CExtGridCellString::Serialize(ar)) return false;
  if (ar.IsStoring()) {
    ar.WriteU32(static_cast<uint32_t>(m_arrItems.size()));
    for (const std::string& item : m_arrItems) ar.WriteString(item);
    return ar.ok();
  }
  const uint32_t count = ar.ReadU32();
  // Each item takes at least its length byte.
  if (auto left = ar.Remaining(); !ar.ok() || (left && *left < count)) return false;
  std::vector<std::string> items;
  for (uint32_t i = 0; i < count && ar.ok(); ++i) items.push_back(ar.ReadString());
  if (!ar.ok()) return false;
  m_arrItems = std::move(items);
  return true;
}

void CExtGridCellComboBox::Assign(const CExtGridCell& other) {
  CExtGridCellString::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellComboBox*>(&other)) m_arrItems = o->m_arrItems;
}

void CExtGridCellDropListComboBox::TextSet(const char* text, bool) {
  // The stored text is the item as the list writes it.
  SelectItem(FindItem(text ? text : ""));
}

HRESULT CExtGridCellDropListComboBox::OnParseText(const char* text) const {
  return FindItem(text ? text : "") >= 0 ? S_OK : DISP_E_TYPEMISMATCH;
}

// ---- percentage ----

bool CExtGridCellPercentage::Parse(const char* text, double& fraction) {
  std::string t = text ? text : "";
  while (!t.empty() && (t.back() == ' ' || t.back() == '%')) t.pop_back();
  Variant v;
  if (platform::ChangeType(v, Variant::Str(t), VT_R8) != S_OK) return false;
  fraction = v.DoubleValue() / 100.0;
  return true;
}

void CExtGridCellPercentage::TextGet(std::string& text) const {
  text.clear();
  Variant real, shown;
  if (IsEmpty() || platform::ChangeType(real, m_var, VT_R8) != S_OK) return;
  if (platform::ChangeType(shown, Variant::R8(real.DoubleValue() * 100.0), VT_BSTR) == S_OK) text = shown.StringValue() + "%";
}

void CExtGridCellPercentage::TextSet(const char* text, bool) {
  double fraction = 0;
  if (Parse(text, fraction)) VariantSet(Variant::R8(fraction));
}

HRESULT CExtGridCellPercentage::OnParseText(const char* text) const {
  double fraction = 0;
  return Parse(text, fraction) ? S_OK : DISP_E_TYPEMISMATCH;
}

}  // namespace qmk::toolkit::grid
