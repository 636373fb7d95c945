// cell_object_size.cpp: the byte count cell.
#include "toolkit/grid/cell_object_size.h"

#include <cctype>
#include <cmath>
#include <cstdio>

#include "platform/text.h"
#include "platform/variant/change_type.h"
#include "toolkit/grid/cell_archive_io.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellObjectSize, CExtGridCellNumber)

namespace {

struct Unit {
  const char* name;
  int power;  // of 1024
};
// Names text input takes, letter case ignored.
constexpr Unit kUnits[] = {{"", 0},   {"b", 0},  {"byte", 0}, {"bytes", 0}, {"k", 1},  {"kb", 1},
                           {"m", 2},  {"mb", 2}, {"g", 3},    {"gb", 3},    {"t", 4},  {"tb", 4},
                           {"p", 5},  {"pb", 5}, {"e", 6},    {"eb", 6}};
constexpr const char* kShownUnits[] = {"bytes", "KB", "MB", "GB", "TB", "PB", "EB"};

// 2^63 as a double: the first size that does not fit.
constexpr double kTooLarge = 9223372036854775808.0;

std::string Grouped(int64_t n) {
  std::string digits = std::to_string(n), out;
  const size_t lead = digits.size() % 3;
  for (size_t i = 0; i < digits.size(); ++i) {
    if (i && (i - lead) % 3 == 0) out += EnUsLocale().ThousandsSeparator();
    out += digits[i];
  }
  return out;
}

}  // namespace

std::string CExtGridCellObjectSize::Format(int64_t bytes, uint32_t flags) {
  if (bytes < 1024 || (flags & kShowBytes)) return Grouped(bytes) + (bytes == 1 ? " byte" : " bytes");
  int power = 0;
  __int128 unit = 1;
  while (bytes / unit >= 1024 && power < 6) {
    unit *= 1024;
    ++power;
  }
  // Three significant digits, cut, in whole numbers so that no size rounds up on the way:
  // 2047 bytes show as 1.99 KB, the largest size as 7.99 EB.
  const __int128 whole = bytes / unit;
  const int decimals = whole < 10 ? 2 : whole < 100 ? 1 : 0;
  const int scale = decimals == 2 ? 100 : decimals == 1 ? 10 : 1;
  const double cut = static_cast<double>(static_cast<int64_t>(bytes * static_cast<__int128>(scale) / unit)) / scale;
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%.*f %s", decimals, cut, kShownUnits[power]);
  return buffer;
}

HRESULT CExtGridCellObjectSize::Parse(const char* text, int64_t& bytes) {
  std::string t = text ? text : "";
  const size_t first = t.find_first_not_of(" \t");
  if (first == std::string::npos) return DISP_E_TYPEMISMATCH;
  t = t.substr(first, t.find_last_not_of(" \t") - first + 1);
  // The unit is the run of letters at the end.
  size_t unitStart = t.size();
  while (unitStart > 0 && std::isalpha(static_cast<unsigned char>(t[unitStart - 1]))) --unitStart;
  const std::string unitName = t.substr(unitStart);
  const Unit* unit = nullptr;
  for (const Unit& u : kUnits)
    if (EqualsNoCase(unitName, u.name)) unit = &u;
  if (!unit) return DISP_E_TYPEMISMATCH;
  Variant number;
  if (platform::ChangeType(number, Variant::Str(t.substr(0, unitStart)), VT_R8) != S_OK) return DISP_E_TYPEMISMATCH;
  const double value = std::round(number.DoubleValue() * std::pow(1024.0, unit->power));
  if (!std::isfinite(value) || value < 0 || value >= kTooLarge) return DISP_E_OVERFLOW;
  bytes = static_cast<int64_t>(value);
  return S_OK;
}

int64_t CExtGridCellObjectSize::SizeGet() const {
  Variant v;
  if (IsEmpty() || platform::ChangeType(v, m_var, VT_I8) != S_OK) return 0;
  return v.SignedValue();
}

bool CExtGridCellObjectSize::SizeSet(int64_t bytes) {
  if (bytes < 0) return false;
  VariantSet(Variant::I8(bytes));
  return true;
}

void CExtGridCellObjectSize::TextGet(std::string& text) const {
  Variant v;
  if (IsEmpty() || platform::ChangeType(v, m_var, VT_I8) != S_OK || v.SignedValue() < 0) {
    CExtGridCellNumber::TextGet(text);
    return;
  }
  text = Format(v.SignedValue(), m_dwSizeFlags);
}

void CExtGridCellObjectSize::TextSet(const char* text, bool asIs) {
  int64_t bytes = 0;
  if (asIs)
    CExtGridCellNumber::TextSet(text, true);
  else if (Parse(text, bytes) == S_OK)
    SizeSet(bytes);
}

HRESULT CExtGridCellObjectSize::OnParseText(const char* text) const {
  int64_t bytes = 0;
  return Parse(text, bytes);
}

bool CExtGridCellObjectSize::CanDecrement(const GridEditState* grid) const {
  return CExtGridCellNumber::CanDecrement(grid) && SizeGet() > 0;
}

bool CExtGridCellObjectSize::Increment(int steps, const GridEditState* grid) { return StepBy(steps, grid); }
bool CExtGridCellObjectSize::Decrement(int steps, const GridEditState* grid) { return StepBy(-int64_t{steps}, grid); }

bool CExtGridCellObjectSize::StepBy(int64_t delta, const GridEditState* grid) {
  if (delta == 0) return true;
  if (delta > 0 ? !CanIncrement(grid) : !CanDecrement(grid)) return false;
  const int64_t size = SizeGet();
  if (delta > 0)
    SizeSet(delta > INT64_MAX - size ? INT64_MAX : size + delta);
  else
    SizeSet(size < -delta ? 0 : size + delta);
  return true;
}

// After the variant cell's form: the display flags, 32 bits.
bool CExtGridCellObjectSize::Serialize(Archive& ar) {
  if (!CExtGridCellNumber::Serialize(ar)) return false;
  uint32_t flags = m_dwSizeFlags;
  io::Word(ar, flags);
  if (ar.ok()) m_dwSizeFlags = flags;
  return ar.ok();
}

void CExtGridCellObjectSize::Assign(const CExtGridCell& other) {
  CExtGridCellNumber::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellObjectSize*>(&other)) m_dwSizeFlags = o->m_dwSizeFlags;
}

}  // namespace qmk::toolkit::grid
