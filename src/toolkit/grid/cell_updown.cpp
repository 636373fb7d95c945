// cell_updown.cpp: the up-down cell and its font weight, rectangle side and colour channel
// members.
#include "toolkit/grid/cell_updown.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "platform/text.h"
#include "platform/variant/change_type.h"
#include "toolkit/grid/cell_archive_io.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellUpDown, CExtGridCellNumber)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellUpDownFontWeight, CExtGridCellUpDown)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellUpDownRectPart, CExtGridCellUpDown)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellUpDownColorPart, CExtGridCellUpDown)

namespace {

struct WeightName {
  int weight;
  const char* name;
  bool shown;  // the name the cell shows for the weight; the others are only read
};
constexpr WeightName kWeights[] = {
    {0, "Default", true},        {100, "Thin", true},        {200, "Extra Light", true}, {200, "Ultra Light", false},
    {300, "Light", true},        {400, "Normal", true},      {400, "Regular", false},    {500, "Medium", true},
    {600, "Semi Bold", true},    {600, "Demi Bold", false},  {700, "Bold", true},        {800, "Extra Bold", true},
    {800, "Ultra Bold", false},  {900, "Heavy", true},       {900, "Black", false},
};

// Letters only, lower case: "Extra-Bold" and "extra bold" are both "extrabold".
std::string Squeezed(const std::string& text) {
  std::string out;
  for (char c : text)
    if (c != ' ' && c != '-' && c != '\t') out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

// Reads a part number from an archive; false for one outside [0, count).
template <class PART>
bool PartField(Archive& ar, PART& part, int32_t count) {
  int32_t value = part;
  io::Int(ar, value);
  if (!ar.ok() || value < 0 || value >= count) return false;
  part = static_cast<PART>(value);
  return true;
}

}  // namespace

// ---- up-down ----

bool CExtGridCellUpDown::RangeSet(double low, double high) {
  if (!std::isfinite(low) || !std::isfinite(high) || low > high) return false;
  m_dLow = low;
  m_dHigh = high;
  double value = 0;
  if (NumberGet(value) && (value < low || value > high)) NumberSet(value);
  return true;
}

bool CExtGridCellUpDown::StepSet(double step) {
  if (!std::isfinite(step) || step <= 0) return false;
  m_dStep = step;
  return true;
}

bool CExtGridCellUpDown::NumberGet(double& value) const {
  Variant v;
  if (IsEmpty() || platform::ChangeType(v, m_var, VT_R8) != S_OK) return false;
  value = v.DoubleValue();
  return true;
}

void CExtGridCellUpDown::NumberSet(double value) {
  const double held = std::clamp(value, m_dLow, m_dHigh);
  const VarType vt = m_var.Type() == VT_EMPTY || m_var.Type() == VT_BSTR ? VT_R8 : m_var.Type();
  Variant typed;
  if (platform::ChangeType(typed, Variant::R8(held), vt) != S_OK) typed = Variant::R8(held);
  VariantSet(typed);
}

HRESULT CExtGridCellUpDown::OnParseText(const char* text) const {
  if (HRESULT hr = CExtGridCellNumber::OnParseText(text); hr != S_OK) return hr;
  Variant v;
  if (platform::ChangeType(v, Variant::Str(text ? text : ""), VT_R8) != S_OK) return S_OK;  // a lone sign
  return v.DoubleValue() < m_dLow || v.DoubleValue() > m_dHigh ? DISP_E_OVERFLOW : S_OK;
}

void CExtGridCellUpDown::TextSet(const char* text, bool asIs) {
  if (asIs || OnParseText(text) == S_OK) CExtGridCellNumber::TextSet(text, asIs);
}

bool CExtGridCellUpDown::CanIncrement(const GridEditState* grid) const {
  double value = 0;
  return CExtGridCellNumber::CanIncrement(grid) && NumberGet(value) && value < m_dHigh;
}

bool CExtGridCellUpDown::CanDecrement(const GridEditState* grid) const {
  double value = 0;
  return CExtGridCellNumber::CanDecrement(grid) && NumberGet(value) && value > m_dLow;
}

bool CExtGridCellUpDown::StepBy(int steps, const GridEditState* grid) {
  if (steps == 0) return true;
  if (steps > 0 ? !CanIncrement(grid) : !CanDecrement(grid)) return false;
  double value = 0;
  NumberGet(value);
  NumberSet(Stepped(value, steps));
  return true;
}

bool CExtGridCellUpDown::Increment(int steps, const GridEditState* grid) { return StepBy(steps, grid); }
// -INT_MIN does not exist: the most negative count steps down as far as the largest one.
bool CExtGridCellUpDown::Decrement(int steps, const GridEditState* grid) {
  return StepBy(steps == INT32_MIN ? INT32_MAX : -steps, grid);
}

bool CExtGridCellUpDown::IsMinimum() const {
  double value = 0;
  return CExtGridCellNumber::IsMinimum() || (NumberGet(value) && value <= m_dLow);
}

bool CExtGridCellUpDown::IsMaximum() const {
  double value = 0;
  return CExtGridCellNumber::IsMaximum() || (NumberGet(value) && value >= m_dHigh);
}

// After the variant cell's form: low end, high end and step as 8-byte reals. A range or step
// that makes no sense fails the load.
bool CExtGridCellUpDown::Serialize(Archive& ar) {
  if (!CExtGridCellNumber::Serialize(ar)) return false;
  double low = m_dLow, high = m_dHigh, step = m_dStep;
  io::Real(ar, low);
  io::Real(ar, high);
  io::Real(ar, step);
  if (!ar.ok()) return false;
  if (ar.IsStoring()) return true;
  if (!std::isfinite(low) || !std::isfinite(high) || low > high || !std::isfinite(step) || step <= 0) return false;
  m_dLow = low;
  m_dHigh = high;
  m_dStep = step;
  return true;
}

void CExtGridCellUpDown::Assign(const CExtGridCell& other) {
  if (auto* o = dynamic_cast<const CExtGridCellUpDown*>(&other)) {
    m_dLow = o->m_dLow;
    m_dHigh = o->m_dHigh;
    m_dStep = o->m_dStep;
  }
  CExtGridCellNumber::Assign(other);
}

// ---- font weight ----

CExtGridCellUpDownFontWeight::CExtGridCellUpDownFontWeight() {
  m_var = Variant::I4(400);
  m_dLow = 0;
  m_dHigh = 1000;
  m_dStep = 100;
}

bool CExtGridCellUpDownFontWeight::WeightOfName(const std::string& name, int& weight) {
  const std::string key = Squeezed(name);
  for (const WeightName& w : kWeights)
    if (key == Squeezed(w.name)) {
      weight = w.weight;
      return true;
    }
  return false;
}

bool CExtGridCellUpDownFontWeight::NameOfWeight(int weight, std::string& name) {
  for (const WeightName& w : kWeights)
    if (w.shown && w.weight == weight) {
      name = w.name;
      return true;
    }
  return false;
}

void CExtGridCellUpDownFontWeight::TextGet(std::string& text) const {
  double value = 0;
  if (NumberGet(value) && value == std::floor(value) && std::fabs(value) <= 1000 &&
      NameOfWeight(static_cast<int>(value), text))
    return;
  CExtGridCellUpDown::TextGet(text);
}

HRESULT CExtGridCellUpDownFontWeight::OnParseText(const char* text) const {
  int weight = 0;
  if (WeightOfName(text ? text : "", weight)) return S_OK;
  return CExtGridCellUpDown::OnParseText(text);
}

void CExtGridCellUpDownFontWeight::TextSet(const char* text, bool asIs) {
  int weight = 0;
  if (!asIs && WeightOfName(text ? text : "", weight))
    NumberSet(weight);
  else
    CExtGridCellUpDown::TextSet(text, asIs);
}

double CExtGridCellUpDownFontWeight::Stepped(double value, int steps) const {
  const double hundreds = steps > 0 ? std::floor(value / 100) : std::ceil(value / 100);
  return (hundreds + steps) * 100;
}

// ---- rectangle side ----

void CExtGridCellUpDownRectPart::ReadFrom(const PixelRect& rect) {
  const int sides[] = {rect.left, rect.top, rect.right, rect.bottom};
  NumberSet(sides[m_ePart]);
}

void CExtGridCellUpDownRectPart::WriteTo(PixelRect& rect) const {
  double value = 0;
  if (!NumberGet(value)) return;
  int* sides[] = {&rect.left, &rect.top, &rect.right, &rect.bottom};
  // A loaded value may lie outside the range; a side holds what an int holds.
  *sides[m_ePart] = static_cast<int>(std::clamp(value, -2147483648.0, 2147483647.0));
}

// After the up-down form: the side, 32 bits (0 left, 1 top, 2 right, 3 bottom).
bool CExtGridCellUpDownRectPart::Serialize(Archive& ar) {
  return CExtGridCellUpDown::Serialize(ar) && PartField(ar, m_ePart, 4);
}

void CExtGridCellUpDownRectPart::Assign(const CExtGridCell& other) {
  CExtGridCellUpDown::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellUpDownRectPart*>(&other)) m_ePart = o->m_ePart;
}

// ---- colour channel ----

CExtGridCellUpDownColorPart::CExtGridCellUpDownColorPart() {
  m_dLow = 0;
  m_dHigh = 255;
}

void CExtGridCellUpDownColorPart::ReadFrom(uint32_t colour) { NumberSet((colour >> (8 * m_ePart)) & 0xFF); }

void CExtGridCellUpDownColorPart::WriteTo(uint32_t& colour) const {
  double value = 0;
  if (!NumberGet(value)) return;
  const int shift = 8 * m_ePart;
  const auto channel = static_cast<uint32_t>(std::clamp(value, 0.0, 255.0));
  colour = (colour & ~(0xFFu << shift)) | channel << shift;
}

// After the up-down form: the channel, 32 bits (0 red, 1 green, 2 blue).
bool CExtGridCellUpDownColorPart::Serialize(Archive& ar) {
  return CExtGridCellUpDown::Serialize(ar) && PartField(ar, m_ePart, 3);
}

void CExtGridCellUpDownColorPart::Assign(const CExtGridCell& other) {
  CExtGridCellUpDown::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellUpDownColorPart*>(&other)) m_ePart = o->m_ePart;
}

}  // namespace qmk::toolkit::grid
