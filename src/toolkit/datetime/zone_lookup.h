// zone_lookup.h: offsets of named time zones at a moment, from the system's zone database.
#pragma once

#include <ctime>
#include <memory>
#include <optional>
#include <string>

namespace qmk::toolkit::datetime {

class ZoneLookup {
 public:
  virtual ~ZoneLookup() = default;
  // The zone's offset from Greenwich in hours (east positive) at the moment `at`, daylight
  // saving included; nullopt for a zone the lookup doesn't know.
  virtual std::optional<double> OffsetHours(const std::string& zone, std::time_t at) const = 0;
};

// The zones of the system's database: $TZDIR, else /usr/share/zoneinfo. A name must be a
// relative path to a compiled zone file there; anything else is unknown, never Greenwich.
std::unique_ptr<ZoneLookup> SystemZoneLookup();

}  // namespace qmk::toolkit::datetime
