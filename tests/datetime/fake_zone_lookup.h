// fake_zone_lookup.h: a zone lookup with fixed offsets per name, whatever the moment.
#pragma once

#include <map>
#include <string>

#include "toolkit/datetime/zone_lookup.h"

namespace qmk::toolkit::datetime::testing {

class FakeZoneLookup : public ZoneLookup {
 public:
  explicit FakeZoneLookup(std::map<std::string, double> offsets) : offsets_(std::move(offsets)) {}
  std::optional<double> OffsetHours(const std::string& zone, std::time_t) const override {
    const auto it = offsets_.find(zone);
    if (it == offsets_.end()) return std::nullopt;
    return it->second;
  }

 private:
  std::map<std::string, double> offsets_;
};

}  // namespace qmk::toolkit::datetime::testing
