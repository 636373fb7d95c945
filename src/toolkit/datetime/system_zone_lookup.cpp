// system_zone_lookup.cpp: zone offsets through the C library's reading of the zone database.
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <mutex>

#include "toolkit/datetime/zone_lookup.h"

namespace qmk::toolkit::datetime {
namespace {

std::string ZoneFolder() {
  const char* dir = std::getenv("TZDIR");
  return dir && *dir ? dir : "/usr/share/zoneinfo";
}

// A relative name of plain path parts whose file starts with the zone file magic.
bool IsZoneFile(const std::string& name) {
  if (name.empty() || name.size() > 255 || name[0] == '/' || name.find("..") != std::string::npos) return false;
  for (const char c : name)
    if (!(std::isalnum(static_cast<unsigned char>(c)) || c == '/' || c == '_' || c == '-' || c == '+')) return false;
  std::ifstream file(ZoneFolder() + "/" + name, std::ios::binary);
  char magic[4] = {};
  return file.read(magic, 4) && std::string(magic, 4) == "TZif";
}

class CLibraryZoneLookup : public ZoneLookup {
 public:
  std::optional<double> OffsetHours(const std::string& zone, std::time_t at) const override {
    if (!IsZoneFile(zone)) return std::nullopt;
    // The C library reads a zone only through TZ, which is process-wide: it is swapped under a
    // lock and put back before anyone else can see it.
    static std::mutex mutex;
    std::lock_guard<std::mutex> lock(mutex);
    const char* old = std::getenv("TZ");
    const std::optional<std::string> saved = old ? std::optional<std::string>(old) : std::nullopt;
    setenv("TZ", (":" + zone).c_str(), 1);
    tzset();
    std::tm fields{};
    const bool ok = localtime_r(&at, &fields) != nullptr;
    if (saved)
      setenv("TZ", saved->c_str(), 1);
    else
      unsetenv("TZ");
    tzset();
    if (!ok) return std::nullopt;
    return static_cast<double>(fields.tm_gmtoff) / 3600.0;
  }
};

}  // namespace

std::unique_ptr<ZoneLookup> SystemZoneLookup() { return std::make_unique<CLibraryZoneLookup>(); }

}  // namespace qmk::toolkit::datetime
