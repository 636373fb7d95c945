// zone_texts.cpp: the world map's zone table and its offset, time and zone texts.
#include "toolkit/datetime/zone_texts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "platform/variant/date_time.h"
#include "toolkit/datetime/places.h"

namespace qmk::toolkit::datetime {
namespace {

// Minus half a second: Automation dates below it lie before the epoch's first moment.
constexpr double kBeforeEpoch = -5.787037037037037e-6;
constexpr double kEarthRadiusKm = 6371.0;
constexpr double kPi = 3.14159265358979323846;

double DistanceKm(double lat1, double lon1, double lat2, double lon2) {
  const double r = kPi / 180.0;
  const double dlat = (lat2 - lat1) * r, dlon = (lon2 - lon1) * r;
  const double a = std::sin(dlat / 2) * std::sin(dlat / 2) +
                   std::cos(lat1 * r) * std::cos(lat2 * r) * std::sin(dlon / 2) * std::sin(dlon / 2);
  return 2 * kEarthRadiusKm * std::asin(std::min(1.0, std::sqrt(a)));
}

// The date part of the fields in the locale's short form.
std::string DateText(const platform::DateFields& f, const platform::Locale& locale) {
  const char s = locale.DateSeparator();
  char buffer[48];
  switch (locale.GetDateOrder()) {
    case platform::DateOrder::kDayMonthYear:
      std::snprintf(buffer, sizeof buffer, "%02d%c%02d%c%d", f.day, s, f.month, s, f.year);
      break;
    case platform::DateOrder::kYearMonthDay:
      std::snprintf(buffer, sizeof buffer, "%d%c%02d%c%02d", f.year, s, f.month, s, f.day);
      break;
    case platform::DateOrder::kMonthDayYear:
    default:
      std::snprintf(buffer, sizeof buffer, "%d%c%d%c%d", f.month, s, f.day, s, f.year);
      break;
  }
  return buffer;
}

// The time of day of the fields in the locale's form: a time on the epoch's day prints alone.
std::string TimeOfDayText(const platform::DateFields& f, const platform::Locale& locale) {
  std::string text;
  platform::FormatDate((f.hour * 3600.0 + f.minute * 60.0 + f.second) / 86400.0, locale, text);
  return text;
}

}  // namespace

void SplitOffset(double offset, int& hours, int& minutes) {
  const double size = std::fabs(offset);
  hours = static_cast<int>(std::trunc(size));
  minutes = static_cast<int>(std::trunc((size - hours) * 60.0));
}

std::string OffsetText(const WORLD_TIME_ZONE& zone, bool withSign, char separator) {
  const char* sign = !withSign || zone.offset == 0 ? "" : zone.offset > 0 ? "+" : "-";
  int hours = 0, minutes = 0;
  SplitOffset(zone.offset, hours, minutes);
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%s%d%c%02d", sign, hours, separator, minutes);
  return buffer;
}

double ShiftByOffset(double date, double offset) {
  int hours = 0, minutes = 0;
  SplitOffset(offset, hours, minutes);
  const double span = hours / 24.0 + minutes / 1440.0;
  if (date < kBeforeEpoch) date = std::ceil(date) - (date - std::ceil(date));
  double result = offset >= 0 ? date + span : date - span;
  if (result < kBeforeEpoch) result = std::floor(result) + (std::floor(result) - result);
  return result;
}

void CExtLLMapWnd::LoadPlaceZones(const ZoneLookup& lookup, std::time_t at) {
  m_mapZones.clear();
  m_mapPlaceZones.clear();
  std::map<std::string, int> by_name;
  const size_t rows = DefaultPlaces().size();
  for (size_t row = 0; row < rows; ++row) {
    const char* name = PlaceZoneName(row);
    if (!name) continue;
    auto known = by_name.find(name);
    if (known == by_name.end()) {
      const std::optional<double> offset = lookup.OffsetHours(name, at);
      if (!offset) continue;
      const int index = static_cast<int>(m_mapZones.size());
      m_mapZones[index] = {*offset, name};
      known = by_name.emplace(name, index).first;
    }
    m_mapPlaceZones[row] = known->second;
  }
}

std::optional<int> CExtLLMapWnd::ZoneIndexAt(double latitude, double longitude) const {
  if (!std::isfinite(latitude) || !std::isfinite(longitude)) return std::nullopt;
  const auto places = DefaultPlaces();
  std::optional<int> best;
  double best_km = kZoneReachKm;
  for (const auto& [row, index] : m_mapPlaceZones) {
    const double km = DistanceKm(latitude, longitude, places[row].latitude, places[row].longitude);
    if (km <= best_km) {
      best_km = km;
      best = index;
    }
  }
  return best;
}

const WORLD_TIME_ZONE* CExtLLMapWnd::FindZone(int index) const {
  const auto it = m_mapZones.find(index);
  return it == m_mapZones.end() ? nullptr : &it->second;
}

double CExtLLMapWnd::PresentAsDate() const {
  const std::time_t now = m_fnNow();
  std::tm utc{};
  gmtime_r(&now, &utc);
  platform::DateFields f;
  f.year = utc.tm_year + 1900;
  f.month = utc.tm_mon + 1;
  f.day = utc.tm_mday;
  f.hour = utc.tm_hour;
  f.minute = utc.tm_min;
  f.second = utc.tm_sec;
  double date = 0;
  platform::FieldsToDate(f, date);
  return date;
}

std::string CExtLLMapWnd::TimeText(const WORLD_TIME_ZONE* zone) const {
  if (!zone || !(m_dwStyle & (kStyleShowDate | kStyleShowTime))) return {};
  double base = m_dtStored.value_or(0.0);
  platform::DateFields check;
  if (!m_dtStored || !platform::DateToFields(base, check)) base = PresentAsDate();
  platform::DateFields f;
  if (!platform::DateToFields(ShiftByOffset(base, zone->offset), f)) return {};
  std::string text;
  if (m_dwStyle & kStyleShowDate) text = DateText(f, *m_pLocale);
  if (m_dwStyle & kStyleShowTime) {
    if (!text.empty()) text += '\n';
    text += TimeOfDayText(f, *m_pLocale);
  }
  return text;
}

std::string CExtLLMapWnd::ZoneText(double latitude, double longitude) const {
  const std::optional<int> index = ZoneIndexAt(latitude, longitude);
  const WORLD_TIME_ZONE* zone = index ? FindZone(*index) : nullptr;
  return zone ? ZoneText(*zone) : std::string();
}

std::string CExtLLMapWnd::ZoneText(const WORLD_TIME_ZONE& zone) const {
  std::string text = "GMT " + OffsetText(zone, true, ':');
  const std::string time = TimeText(&zone);
  if (!time.empty()) text += "\n" + time;
  return text;
}

}  // namespace qmk::toolkit::datetime
