// cell_duration.cpp: the time span cell.
#include "toolkit/grid/cell_duration.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>

#include "platform/text.h"
#include "toolkit/grid/cell_archive_io.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellDuration, CExtGridCellEx)

namespace {

struct UnitName {
  const char* name;
  int64_t seconds;
};
constexpr UnitName kUnitNames[] = {
    {"d", 86400},  {"day", 86400},    {"days", 86400},   {"h", 3600},       {"hr", 3600},      {"hrs", 3600},
    {"hour", 3600}, {"hours", 3600},  {"m", 60},         {"min", 60},       {"mins", 60},      {"minute", 60},
    {"minutes", 60}, {"s", 1},        {"sec", 1},        {"secs", 1},       {"second", 1},     {"seconds", 1},
};

// A run of digits as a count; false for none or for more than 12 digits (no span needs them).
bool Count(const std::string& text, size_t& at, int64_t& value) {
  const size_t start = at;
  while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at]))) ++at;
  if (at == start || at - start > 12) return false;
  value = std::strtoll(text.substr(start, at - start).c_str(), nullptr, 10);
  return true;
}

void SkipBlanks(const std::string& text, size_t& at) {
  while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
}

std::string Word(const std::string& text, size_t& at) {
  const size_t start = at;
  while (at < text.size() && std::isalpha(static_cast<unsigned char>(text[at]))) ++at;
  return text.substr(start, at - start);
}

// "H:MM" or "H:MM:SS" from `at` to the end; minutes and seconds below 60.
bool Clock(const std::string& text, size_t at, int64_t& seconds) {
  int64_t h = 0, m = 0, s = 0;
  if (!Count(text, at, h) || at >= text.size() || text[at++] != ':' || !Count(text, at, m) || m > 59) return false;
  if (at < text.size() && text[at] == ':') {
    ++at;
    if (!Count(text, at, s) || s > 59) return false;
  }
  SkipBlanks(text, at);
  if (at != text.size()) return false;
  seconds = h * 3600 + m * 60 + s;
  return true;
}

// Numbers with units, or one bare number of seconds.
bool Units(const std::string& text, size_t at, int64_t& seconds) {
  seconds = 0;
  bool any = false;
  while (at < text.size()) {
    int64_t n = 0;
    if (!Count(text, at, n)) return false;
    SkipBlanks(text, at);
    const std::string unit = Word(text, at);
    if (unit.empty()) {
      // A bare number stands alone.
      if (any || at != text.size()) return false;
      seconds = n;
      return true;
    }
    const UnitName* found = nullptr;
    for (const UnitName& u : kUnitNames)
      if (EqualsNoCase(unit, u.name)) found = &u;
    if (!found || n > CExtGridCellDuration::kMaxSeconds / found->seconds + 1) return false;
    seconds += n * found->seconds;
    any = true;
    SkipBlanks(text, at);
    if (at < text.size() && text[at] == ',') ++at;
    SkipBlanks(text, at);
  }
  return any;
}

}  // namespace

std::string CExtGridCellDuration::Format(int64_t seconds) {
  const bool negative = seconds < 0;
  const uint64_t magnitude = negative ? 0 - static_cast<uint64_t>(seconds) : static_cast<uint64_t>(seconds);
  const uint64_t days = magnitude / 86400, rest = magnitude % 86400;
  char buffer[64];
  if (days)
    std::snprintf(buffer, sizeof buffer, "%s%llu %s %02llu:%02llu:%02llu", negative ? "-" : "",
                  static_cast<unsigned long long>(days), days == 1 ? "day" : "days",
                  static_cast<unsigned long long>(rest / 3600), static_cast<unsigned long long>(rest / 60 % 60),
                  static_cast<unsigned long long>(rest % 60));
  else
    std::snprintf(buffer, sizeof buffer, "%s%02llu:%02llu:%02llu", negative ? "-" : "",
                  static_cast<unsigned long long>(rest / 3600), static_cast<unsigned long long>(rest / 60 % 60),
                  static_cast<unsigned long long>(rest % 60));
  return buffer;
}

HRESULT CExtGridCellDuration::Parse(const char* text, int64_t& seconds) {
  std::string t = text ? text : "";
  size_t at = 0;
  SkipBlanks(t, at);
  while (!t.empty() && (t.back() == ' ' || t.back() == '\t')) t.pop_back();
  bool negative = false;
  if (at < t.size() && (t[at] == '+' || t[at] == '-')) negative = t[at++] == '-';
  SkipBlanks(t, at);
  if (at >= t.size()) return DISP_E_TYPEMISMATCH;
  int64_t value = 0;
  if (t.find(':', at) != std::string::npos) {
    // An optional count of days ("2 days", "2d") in front of the clock; then the hours are
    // those of one day.
    size_t clockAt = at;
    int64_t days = 0;
    size_t probe = at;
    if (Count(t, probe, days)) {
      SkipBlanks(t, probe);
      const std::string unit = Word(t, probe);
      if (EqualsNoCase(unit, "d") || EqualsNoCase(unit, "day") || EqualsNoCase(unit, "days")) {
        SkipBlanks(t, probe);
        clockAt = probe;
      } else if (!unit.empty()) {
        return DISP_E_TYPEMISMATCH;
      } else {
        days = 0;
      }
    }
    int64_t clock = 0;
    if (!Clock(t, clockAt, clock)) return DISP_E_TYPEMISMATCH;
    if (clockAt != at && clock >= 86400) return DISP_E_TYPEMISMATCH;
    if (days > kMaxSeconds / 86400 + 1) return DISP_E_OVERFLOW;
    value = days * 86400 + clock;
  } else if (!Units(t, at, value)) {
    return DISP_E_TYPEMISMATCH;
  }
  if (value > kMaxSeconds) return DISP_E_OVERFLOW;
  seconds = negative ? -value : value;
  return S_OK;
}

bool CExtGridCellDuration::SecondsSet(int64_t seconds) {
  if (seconds > kMaxSeconds || seconds < -kMaxSeconds) return false;
  m_nSeconds = seconds;
  SetEmpty(false);
  return true;
}

bool CExtGridCellDuration::StepSet(int32_t seconds) {
  if (seconds < 1) return false;
  m_nStep = seconds;
  return true;
}

void CExtGridCellDuration::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_nSeconds = 0;
}

void CExtGridCellDuration::TextGet(std::string& text) const { text = IsEmpty() ? std::string() : Format(m_nSeconds); }

void CExtGridCellDuration::TextSet(const char* text, bool) {
  int64_t seconds = 0;
  if (Parse(text, seconds) == S_OK) SecondsSet(seconds);
}

HRESULT CExtGridCellDuration::OnParseText(const char* text) const {
  int64_t seconds = 0;
  return Parse(text, seconds);
}

void CExtGridCellDuration::VariantGet(Variant& value) const {
  value = IsEmpty() ? Variant() : Variant::I8(m_nSeconds);
}

void CExtGridCellDuration::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellDuration*>(&other)) {
    m_nSeconds = o->m_nSeconds;
    m_nStep = o->m_nStep;
    CExtGridCellEx::SetEmpty(o->IsEmpty());
    return;
  }
  std::string text;
  other.TextGet(text);
  int64_t seconds = 0;
  if (other.IsEmpty() || Parse(text.c_str(), seconds) != S_OK)
    SetEmpty(true);
  else
    SecondsSet(seconds);
}

void CExtGridCellDuration::GetAlignment(bool autoAlign, HorzAlign& horz, VertAlign& vert) const {
  CExtGridCellEx::GetAlignment(autoAlign, horz, vert);
  if (!autoAlign || (GetStyle() & kStyleNoAutoAlign)) return;
  horz = HorzAlign::kRight;
  if ((GetStyle() & kStyleUpDownMask) == 0) vert = VertAlign::kCenter;
}

bool CExtGridCellDuration::CanStep(const GridEditState* grid) const {
  return !IsReadOnly() && !IsDisabled() && !IsEmpty() && !(GetStyle() & kStyleNoIncrement) && !(grid && grid->readOnly);
}

bool CExtGridCellDuration::CanIncrement(const GridEditState* grid) const {
  return CanStep(grid) && m_nSeconds < kMaxSeconds;
}

bool CExtGridCellDuration::CanDecrement(const GridEditState* grid) const {
  return CanStep(grid) && m_nSeconds > -kMaxSeconds;
}

bool CExtGridCellDuration::StepBy(int64_t steps, const GridEditState* grid) {
  if (steps == 0) return true;
  if (steps > 0 ? !CanIncrement(grid) : !CanDecrement(grid)) return false;
  // Both factors are below 2^32, so the product fits.
  const int64_t next = m_nSeconds + steps * m_nStep;
  SecondsSet(next > kMaxSeconds ? kMaxSeconds : next < -kMaxSeconds ? -kMaxSeconds : next);
  return true;
}

bool CExtGridCellDuration::Increment(int steps, const GridEditState* grid) { return StepBy(steps, grid); }
bool CExtGridCellDuration::Decrement(int steps, const GridEditState* grid) { return StepBy(-int64_t{steps}, grid); }

// After the data cell's form: the seconds as 64 bits (low word first) and the step, 32 bits.
// A span beyond the limit or a step below 1 fails the load.
bool CExtGridCellDuration::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  auto seconds = static_cast<uint64_t>(m_nSeconds);
  int32_t step = m_nStep;
  io::Wide(ar, seconds);
  io::Int(ar, step);
  if (!ar.ok()) return false;
  if (ar.IsStoring()) return true;
  const auto value = static_cast<int64_t>(seconds);
  if (value > kMaxSeconds || value < -kMaxSeconds || step < 1) return false;
  m_nSeconds = value;
  m_nStep = step;
  return true;
}

}  // namespace qmk::toolkit::grid
