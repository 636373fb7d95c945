// map_markers.h: the markers a latitude and longitude control keeps of the place table.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qmk::toolkit::datetime {

struct MAP_MARKER {
  double longitude;  // seconds of arc
  double latitude;   // seconds of arc
  std::string label;
  int32_t value;
};

// The properties that the latitude and longitude controls share.
class CExtLLBaseControlProperties {
 public:
  // Options bit: the marker array fills itself from the built-in places.
  static constexpr uint32_t kDefaultPlaces = 64;

  explicit CExtLLBaseControlProperties(uint32_t options = kDefaultPlaces) : m_dwOptions(options) {}

  // The markers, filled at the first call when the default-places bit is set and the array is
  // empty; otherwise as they stand.
  std::vector<MAP_MARKER>& GetMarkers();

  uint32_t m_dwOptions;
  std::vector<MAP_MARKER> m_arrMarkers;
};

// The label of a row: the place alone, or place, line feed and country.
std::string MarkerLabel(const char* place, const char* country);

}  // namespace qmk::toolkit::datetime
