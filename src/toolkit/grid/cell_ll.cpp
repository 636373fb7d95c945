// cell_ll.cpp: the latitude and longitude cell.
#include "toolkit/grid/cell_ll.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "toolkit/grid/cell_archive_io.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellLL, CExtGridCellEx)

namespace {

constexpr const char* kDegreeSign = "\xC2\xB0";

bool InRange(double degrees, bool latitude) {
  return std::isfinite(degrees) && std::fabs(degrees) <= (latitude ? 90.0 : 180.0);
}

// Splits one part into its numbers and its hemisphere letter. Marks (degree sign, d, m, s,
// quotes) and blanks only separate numbers.
bool Pieces(const std::string& text, std::vector<std::string>& numbers, char& hemisphere, char& sign) {
  hemisphere = 0;
  sign = 0;
  std::string current;
  auto flush = [&] {
    if (!current.empty()) numbers.push_back(current);
    current.clear();
  };
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (std::isdigit(static_cast<unsigned char>(c)) || c == '.') {
      current += c;
    } else if ((c == '+' || c == '-') && numbers.empty() && current.empty() && !sign && !hemisphere) {
      sign = c;
    } else if (upper == 'N' || upper == 'S' || upper == 'E' || upper == 'W') {
      if (hemisphere) return false;
      flush();
      hemisphere = upper;
    } else if (c == ' ' || c == '\t' || c == '\'' || c == '"' || upper == 'D' || upper == 'M') {
      flush();
    } else if (static_cast<unsigned char>(c) == 0xC2 && i + 1 < text.size() &&
               static_cast<unsigned char>(text[i + 1]) == 0xB0) {
      flush();
      ++i;
    } else {
      return false;
    }
  }
  flush();
  return true;
}

bool Number(const std::string& text, double& value) {
  if (text.find('.') != text.rfind('.') || text == ".") return false;
  char* end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return *end == 0;
}

}  // namespace

std::string CExtGridCellLL::FormatPart(double degrees, bool latitude) {
  // Rounded to whole seconds first, so that 59.6 seconds carry into the minute.
  const auto total = static_cast<long long>(std::llround(std::fabs(degrees) * 3600.0));
  const char hemisphere = latitude ? (degrees < 0 && total ? 'S' : 'N') : (degrees < 0 && total ? 'W' : 'E');
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%lld%s%02lld'%02lld\"%c", total / 3600, kDegreeSign, total / 60 % 60, total % 60,
                hemisphere);
  return buffer;
}

bool CExtGridCellLL::ParsePart(const std::string& text, bool latitude, double& degrees) {
  std::vector<std::string> numbers;
  char hemisphere = 0, sign = 0;
  if (!Pieces(text, numbers, hemisphere, sign) || numbers.empty() || numbers.size() > 3) return false;
  if (hemisphere && sign) return false;
  if (hemisphere && (latitude ? hemisphere != 'N' && hemisphere != 'S' : hemisphere != 'E' && hemisphere != 'W'))
    return false;
  double value = 0;
  for (size_t i = 0; i < numbers.size(); ++i) {
    double n = 0;
    if (!Number(numbers[i], n)) return false;
    // Only the last number may have a fraction; minutes and seconds stay below 60.
    if (i + 1 < numbers.size() && n != std::floor(n)) return false;
    if (i > 0 && n >= 60) return false;
    value += n / (i == 0 ? 1 : i == 1 ? 60 : 3600);
  }
  if (sign == '-' || hemisphere == 'S' || hemisphere == 'W') value = -value;
  if (!InRange(value, latitude)) return false;
  degrees = value;
  return true;
}

bool CExtGridCellLL::Parse(const char* text, double& latitude, double& longitude) const {
  const std::string all = text ? text : "";
  latitude = m_dLatitude;
  longitude = m_dLongitude;
  const size_t comma = all.find(',');
  if (m_dwParts == (kLatitude | kLongitude)) {
    if (comma == std::string::npos || all.find(',', comma + 1) != std::string::npos) return false;
    return ParsePart(all.substr(0, comma), true, latitude) && ParsePart(all.substr(comma + 1), false, longitude);
  }
  if (comma != std::string::npos) return false;
  return m_dwParts == kLatitude ? ParsePart(all, true, latitude) : ParsePart(all, false, longitude);
}

bool CExtGridCellLL::LatLongSet(double latitude, double longitude) {
  if (!InRange(latitude, true) || !InRange(longitude, false)) return false;
  m_dLatitude = latitude;
  m_dLongitude = longitude;
  SetEmpty(false);
  return true;
}

bool CExtGridCellLL::PartsSet(uint32_t parts) {
  parts &= kLatitude | kLongitude;
  if (!parts) return false;
  m_dwParts = parts;
  return true;
}

void CExtGridCellLL::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_dLatitude = m_dLongitude = 0;
}

void CExtGridCellLL::TextGet(std::string& text) const {
  text.clear();
  if (IsEmpty()) return;
  if (m_dwParts & kLatitude) text = FormatPart(m_dLatitude, true);
  if (m_dwParts & kLongitude) text += (text.empty() ? "" : ", ") + FormatPart(m_dLongitude, false);
}

void CExtGridCellLL::TextSet(const char* text, bool) {
  double latitude = 0, longitude = 0;
  if (Parse(text, latitude, longitude)) LatLongSet(latitude, longitude);
}

HRESULT CExtGridCellLL::OnParseText(const char* text) const {
  double latitude = 0, longitude = 0;
  return Parse(text, latitude, longitude) ? S_OK : DISP_E_TYPEMISMATCH;
}

int CExtGridCellLL::Compare(const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  if (auto* o = dynamic_cast<const CExtGridCellLL*>(&other)) {
    const double mine[] = {m_dLatitude, m_dLongitude}, theirs[] = {o->m_dLatitude, o->m_dLongitude};
    for (int i = 0; i < 2; ++i)
      if (mine[i] != theirs[i]) return mine[i] < theirs[i] ? -1 : 1;
    return CompareStyleOnly(other, styleMask, styleExMask);
  }
  return CExtGridCellEx::Compare(other, styleMask, styleExMask);
}

void CExtGridCellLL::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellLL*>(&other)) {
    m_dLatitude = o->m_dLatitude;
    m_dLongitude = o->m_dLongitude;
    m_dwParts = o->m_dwParts;
    CExtGridCellEx::SetEmpty(o->IsEmpty());
    return;
  }
  std::string text;
  other.TextGet(text);
  double latitude = 0, longitude = 0;
  if (other.IsEmpty() || !Parse(text.c_str(), latitude, longitude))
    SetEmpty(true);
  else
    LatLongSet(latitude, longitude);
}

// After the data cell's form: latitude and longitude as 8-byte reals, then the parts shown, 32
// bits. A value out of its range or flags that show nothing fail the load.
bool CExtGridCellLL::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  double latitude = m_dLatitude, longitude = m_dLongitude;
  uint32_t parts = m_dwParts;
  io::Real(ar, latitude);
  io::Real(ar, longitude);
  io::Word(ar, parts);
  if (!ar.ok()) return false;
  if (ar.IsStoring()) return true;
  if (!InRange(latitude, true) || !InRange(longitude, false) || !(parts & (kLatitude | kLongitude)) ||
      (parts & ~(kLatitude | kLongitude)))
    return false;
  m_dLatitude = latitude;
  m_dLongitude = longitude;
  m_dwParts = parts;
  return true;
}

}  // namespace qmk::toolkit::grid
