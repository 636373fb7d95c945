// cmd_places.cpp: qmkscan places and qmkscan zone: the world map's place table with each place's
// zone, and the text the map shows for a zone at a moment.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "commands.h"
#include "platform/variant/date_time.h"
#include "toolkit/datetime/map_markers.h"
#include "toolkit/datetime/places.h"
#include "toolkit/datetime/zone_texts.h"

namespace qmkscan {
namespace {

using namespace qmk::toolkit::datetime;

// The moment of --at (a date and time in Greenwich time, in US English or ISO form), else now.
bool ReadMoment(Args& args, const char* command, std::optional<double>& date, std::time_t& at) {
  at = std::time(nullptr);
  const std::optional<std::string> text = args.Option("at");
  if (!text) return true;
  double value = 0;
  qmk::platform::DateFields f;
  if (!qmk::platform::ParseDate(*text, qmk::platform::EnUsLocale(), value) ||
      !qmk::platform::DateToFields(value, f)) {
    std::fprintf(stderr, "qmkscan %s: --at wants a date and time such as \"2020-01-01 12:30\", not \"%s\"\n",
                 command, text->c_str());
    return false;
  }
  std::tm fields{};
  fields.tm_year = f.year - 1900;
  fields.tm_mon = f.month - 1;
  fields.tm_mday = f.day;
  fields.tm_hour = f.hour;
  fields.tm_min = f.minute;
  fields.tm_sec = f.second;
  at = timegm(&fields);
  date = value;
  return true;
}

std::string OneLine(const std::string& text) {
  std::string line;
  for (const char c : text) line += c == '\n' ? std::string(" | ") : std::string(1, c);
  return line;
}

// Hours as "-3.5" or "+5:45"; false for anything else or beyond a day.
bool ReadOffset(const std::string& text, double& hours) {
  char* end = nullptr;
  const double h = std::strtod(text.c_str(), &end);
  if (end == text.c_str() || !std::isfinite(h)) return false;
  double value = h;
  if (*end == ':') {
    const char* minutes = end + 1;
    const long m = std::strtol(minutes, &end, 10);
    if (end == minutes || m < 0 || m > 59 || h != std::trunc(h)) return false;
    value = std::fabs(h) + m / 60.0;
    if (text.find('-') != std::string::npos) value = -value;
  }
  if (*end != '\0' || std::fabs(value) > 24) return false;
  hours = value;
  return true;
}

}  // namespace

int RunPlaces(Args& args) {
  const std::optional<std::string> zone = args.Option("zone");
  std::optional<double> date;
  std::time_t at = 0;
  if (!ReadMoment(args, "places", date, at) || !args.NoUnknownOptions("places")) return 2;
  if (!args.rest().empty()) {
    std::fprintf(stderr, "usage: qmkscan places [--zone NAME] [--at TIME]\n");
    return 2;
  }
  CExtLLMapWnd map;
  map.LoadPlaceZones(*SystemZoneLookup(), at);
  if (date) map.SetDateTime(*date);
  CExtLLBaseControlProperties props;
  const auto& markers = props.GetMarkers();
  const auto places = DefaultPlaces();
  int shown = 0;
  for (size_t row = 0; row < places.size(); ++row) {
    const char* name = PlaceZoneName(row);
    if (zone && (!name || *zone != name)) continue;
    const auto index = map.m_mapPlaceZones.find(row);
    const WORLD_TIME_ZONE* z = index == map.m_mapPlaceZones.end() ? nullptr : map.FindZone(index->second);
    std::printf("%2zu  %-36s %7.2f %8.2f %4d  %-32s %s\n", row, OneLine(markers[row].label).c_str(), places[row].latitude,
                places[row].longitude, markers[row].value, name ? name : "-",
                z ? OneLine(map.ZoneText(*z)).c_str() : "");
    ++shown;
  }
  if (zone && !shown) {
    std::fprintf(stderr, "qmkscan places: no place lies in the zone \"%s\"\n", zone->c_str());
    return 1;
  }
  return 0;
}

int RunZone(Args& args) {
  std::optional<double> date;
  std::time_t at = 0;
  if (!ReadMoment(args, "zone", date, at) || !args.NoUnknownOptions("zone")) return 2;
  if (args.rest().size() != 1) {
    std::fprintf(stderr, "usage: qmkscan zone OFFSET|NAME [--at TIME]\n");
    return 2;
  }
  const std::string& what = args.rest()[0];
  WORLD_TIME_ZONE zone;
  if (!ReadOffset(what, zone.offset)) {
    const std::optional<double> offset = SystemZoneLookup()->OffsetHours(what, at);
    if (!offset) {
      std::fprintf(stderr, "qmkscan zone: \"%s\" is neither an offset in hours (-3.5, +5:45) nor a zone name\n",
                   what.c_str());
      return 2;
    }
    zone = {*offset, what};
  }
  CExtLLMapWnd map;
  if (date) map.SetDateTime(*date);
  std::printf("%s\n", map.ZoneText(zone).c_str());
  return 0;
}

}  // namespace qmkscan
