// cell_font.cpp: the font cell.
#include "toolkit/grid/cell_font.h"

#include <cstdlib>

#include "platform/text.h"
#include "toolkit/grid/cell_archive_io.h"
#include "toolkit/grid/cell_text.h"
#include "toolkit/grid/cell_updown.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellFont, CExtGridCellEx)

namespace {

struct StyleName {
  uint32_t bit;
  const char* name;
};
constexpr StyleName kStyles[] = {{CExtGridCellFont::kItalic, "Italic"},
                                 {CExtGridCellFont::kUnderline, "Underline"},
                                 {CExtGridCellFont::kStrikeout, "Strikeout"}};

bool Points(std::string word, int32_t& points) {
  if (EndsWithNoCase(word, "pt")) word = TrimmedText(word.substr(0, word.size() - 2));
  long value = 0;
  if (!ParseBoundedInt(word, 1, CExtGridCellFont::kMaxPoints, &value)) return false;
  points = static_cast<int32_t>(value);
  return true;
}

// One of the words after the size: a style, a weight name or a weight number.
bool Attribute(const std::string& word, CExtGridCellFont::Value& value) {
  for (const StyleName& s : kStyles)
    if (EqualsNoCase(word, s.name)) {
      value.styles |= s.bit;
      return true;
    }
  int weight = 0;
  if (CExtGridCellUpDownFontWeight::WeightOfName(word, weight)) {
    value.weight = weight;
    return true;
  }
  long number = 0;
  if (!ParseBoundedInt(word, 0, 1000, &number)) return false;
  value.weight = static_cast<int32_t>(number);
  return true;
}

}  // namespace

bool CExtGridCellFont::IsValid(const Value& value) {
  return !TrimmedText(value.face).empty() && value.points >= 1 && value.points <= kMaxPoints && value.weight >= 0 &&
         value.weight <= 1000 && !(value.styles & ~(kItalic | kUnderline | kStrikeout));
}

std::string CExtGridCellFont::Format(const Value& value) {
  std::string text = value.face + ", " + std::to_string(value.points) + "pt";
  if (value.weight != 400) {
    std::string name;
    text += ", " + (CExtGridCellUpDownFontWeight::NameOfWeight(value.weight, name) ? name : std::to_string(value.weight));
  }
  for (const StyleName& s : kStyles)
    if (value.styles & s.bit) text += std::string(", ") + s.name;
  return text;
}

bool CExtGridCellFont::Parse(const char* text, Value& value) {
  const std::string all = text ? text : "";
  std::vector<std::string> parts;
  size_t from = 0;
  while (from <= all.size()) {
    size_t comma = all.find(',', from);
    if (comma == std::string::npos) comma = all.size();
    parts.push_back(TrimmedText(all.substr(from, comma - from)));
    from = comma + 1;
  }
  Value read;
  read.face = parts[0];
  if (parts.size() < 2 || !Points(parts[1], read.points)) return false;
  for (size_t i = 2; i < parts.size(); ++i)
    if (!Attribute(parts[i], read)) return false;
  if (!IsValid(read)) return false;
  value = std::move(read);
  return true;
}

bool CExtGridCellFont::FontValueSet(const Value& value) {
  if (!IsValid(value)) return false;
  m_value = value;
  m_value.face = TrimmedText(value.face);
  SetEmpty(false);
  return true;
}

void CExtGridCellFont::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_value = Value();
}

void CExtGridCellFont::TextGet(std::string& text) const { text = IsEmpty() ? std::string() : Format(m_value); }

void CExtGridCellFont::TextSet(const char* text, bool) {
  Value value;
  if (Parse(text, value)) FontValueSet(value);
}

HRESULT CExtGridCellFont::OnParseText(const char* text) const {
  Value value;
  return Parse(text, value) ? S_OK : DISP_E_TYPEMISMATCH;
}

void CExtGridCellFont::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellFont*>(&other)) {
    m_value = o->m_value;
    CExtGridCellEx::SetEmpty(o->IsEmpty());
    return;
  }
  std::string text;
  other.TextGet(text);
  Value value;
  if (other.IsEmpty() || !Parse(text.c_str(), value))
    SetEmpty(true);
  else
    FontValueSet(value);
}

// After the data cell's form: the face, then size, weight and style flags, 32 bits each. An
// empty cell stores an empty face; a value that is not valid fails the load of a cell that is
// not empty.
bool CExtGridCellFont::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  Value value = m_value;
  io::Text(ar, value.face);
  io::Int(ar, value.points);
  io::Int(ar, value.weight);
  io::Word(ar, value.styles);
  if (!ar.ok()) return false;
  if (ar.IsStoring()) return true;
  if (IsEmpty()) {
    m_value = Value();
    return true;
  }
  if (!IsValid(value)) return false;
  m_value = std::move(value);
  return true;
}

}  // namespace qmk::toolkit::grid
