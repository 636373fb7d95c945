// zone_texts.h: the world map's zones and the texts it shows for them: offset, time and zone.
#pragma once

#include <cstdint>
#include <ctime>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/locale.h"
#include "toolkit/datetime/zone_lookup.h"

namespace qmk::toolkit::datetime {

struct WORLD_TIME_ZONE {
  double offset = 0;  // hours from Greenwich, east positive; may hold a fraction
  std::string name;   // the system's name of the zone
};

// Hours and minutes of an offset, both without sign: the offset truncated towards 0, and the
// rest times 60, truncated.
void SplitOffset(double offset, int& hours, int& minutes);

// "%s%d%c%02d" of sign, hours, separator and minutes; the sign only with `withSign` and an
// offset other than 0.
std::string OffsetText(const WORLD_TIME_ZONE& zone, bool withSign, char separator);

// An Automation date moved by an offset. Dates before the epoch count their fraction forwards,
// so they are unfolded into a straight line before the sum and folded back after it.
double ShiftByOffset(double date, double offset);

// What the map control knows to make its texts: style, stored moment, zones and the way from a
// point to a zone.
class CExtLLMapWnd {
 public:
  static constexpr uint32_t kStyleShowDate = 0x800;
  static constexpr uint32_t kStyleShowTime = 0x1000;
  // Points nearer than this to a place of the table lie in its zone.
  static constexpr double kZoneReachKm = 1500.0;

  // The zones of the place table, their offsets taken from `lookup` at the moment `at`; places
  // whose zone the lookup doesn't know are left out.
  void LoadPlaceZones(const ZoneLookup& lookup, std::time_t at);

  // The index of the zone of a point (degrees), from the nearest place within reach.
  std::optional<int> ZoneIndexAt(double latitude, double longitude) const;
  const WORLD_TIME_ZONE* FindZone(int index) const;

  // The date and/or time in the zone, as the style bits say; empty without a zone or bits.
  std::string TimeText(const WORLD_TIME_ZONE* zone) const;
  // "GMT " and the signed offset, then the time text on a line of its own.
  std::string ZoneText(double latitude, double longitude) const;
  std::string ZoneText(const WORLD_TIME_ZONE& zone) const;

  // The stored moment, an Automation date in Greenwich time; without one, texts use the present.
  void SetDateTime(double date) { m_dtStored = date; }
  void ClearDateTime() { m_dtStored.reset(); }

  uint32_t m_dwStyle = kStyleShowDate | kStyleShowTime;
  std::optional<double> m_dtStored;
  std::map<int, WORLD_TIME_ZONE> m_mapZones;
  // Zone index of each place row that has a zone; the others map to no zone.
  std::map<size_t, int> m_mapPlaceZones;
  const platform::Locale* m_pLocale = &platform::EnUsLocale();
  // The present moment; tests fix it.
  std::function<std::time_t()> m_fnNow = [] { return std::time(nullptr); };

 private:
  double PresentAsDate() const;
};

}  // namespace qmk::toolkit::datetime
