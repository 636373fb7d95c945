// cell_header_filter.cpp: the filtering header cell.
#include "toolkit/grid/cell_header_filter.h"

#include <algorithm>
#include <cctype>

#include "platform/text.h"
#include "platform/variant/change_type.h"
#include "toolkit/grid/cell_archive_io.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellHeaderFilter, CExtGridCellHeader)

namespace {

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

bool AsNumber(const Variant& value, double& number) {
  Variant real;
  if (value.Type() == VT_EMPTY || platform::ChangeType(real, value, VT_R8) != S_OK) return false;
  number = real.DoubleValue();
  return true;
}

// -1, 0 or 1: numbers when both sides are numbers, else texts without regard to case.
int Order(const CExtGridCell* cell, const std::string& text, const std::string& operand) {
  double a = 0, b = 0;
  Variant value;
  if (cell) cell->VariantGet(value);
  if (AsNumber(value, a) && AsNumber(Variant::Str(operand), b)) return a < b ? -1 : a > b ? 1 : 0;
  const std::string x = Lower(text), y = Lower(operand);
  return x < y ? -1 : x > y ? 1 : 0;
}

}  // namespace

void CExtGridCellHeaderFilter::ValueListOnSet(bool on) {
  m_dwFilterFlags = on ? (m_dwFilterFlags | kValueListOn) : (m_dwFilterFlags & ~kValueListOn);
}

void CExtGridCellHeaderFilter::ConditionSet(Condition condition, const std::string& operand) {
  m_eCondition = condition;
  m_strOperand = operand;
}

void CExtGridCellHeaderFilter::FilterClear() {
  m_dwFilterFlags = 0;
  m_eCondition = kNone;
  m_strOperand.clear();
}

bool CExtGridCellHeaderFilter::MatchesCondition(const CExtGridCell* cell, const std::string& text) const {
  const std::string x = Lower(text), y = Lower(m_strOperand);
  switch (m_eCondition) {
    case kNone: return true;
    case kEquals: return x == y;
    case kNotEquals: return x != y;
    case kContains: return x.find(y) != std::string::npos;
    case kNotContains: return x.find(y) == std::string::npos;
    case kBeginsWith: return x.compare(0, y.size(), y) == 0;
    case kEndsWith: return x.size() >= y.size() && x.compare(x.size() - y.size(), y.size(), y) == 0;
    case kGreater: return Order(cell, text, m_strOperand) > 0;
    case kGreaterOrEqual: return Order(cell, text, m_strOperand) >= 0;
    case kLess: return Order(cell, text, m_strOperand) < 0;
    case kLessOrEqual: return Order(cell, text, m_strOperand) <= 0;
    case kIsEmpty: return text.empty();
    case kIsNotEmpty: return !text.empty();
  }
  return true;
}

bool CExtGridCellHeaderFilter::Matches(const CExtGridCell* cell) const {
  std::string text;
  if (cell) cell->TextGet(text);
  if (ValueListOnGet() &&
      std::none_of(m_arrValues.begin(), m_arrValues.end(), [&](const std::string& v) { return EqualsNoCase(v, text); }))
    return false;
  return MatchesCondition(cell, text);
}

// After the header's form: the filter flags (32 bits), the value list (a 32-bit count and the
// texts), the condition (32 bits) and its operand. An unknown condition fails the load.
bool CExtGridCellHeaderFilter::Serialize(Archive& ar) {
  if (!CExtGridCellHeader::Serialize(ar)) return false;
  uint32_t flags = m_dwFilterFlags;
  std::vector<std::string> values = ar.IsStoring() ? m_arrValues : std::vector<std::string>();
  int32_t condition = m_eCondition;
  std::string operand = m_strOperand;
  io::Word(ar, flags);
  if (!io::TextList(ar, values)) return false;
  io::Int(ar, condition);
  io::Text(ar, operand);
  if (!ar.ok()) return false;
  if (ar.IsStoring()) return true;
  if (condition < kNone || condition > kIsNotEmpty) return false;
  m_dwFilterFlags = flags;
  m_arrValues = std::move(values);
  m_eCondition = static_cast<Condition>(condition);
  m_strOperand = std::move(operand);
  return true;
}

void CExtGridCellHeaderFilter::Assign(const CExtGridCell& other) {
  CExtGridCellHeader::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellHeaderFilter*>(&other)) {
    m_arrValues = o->m_arrValues;
    m_dwFilterFlags = o->m_dwFilterFlags;
    m_eCondition = o->m_eCondition;
    m_strOperand = o->m_strOperand;
  }
}

}  // namespace qmk::toolkit::grid
