// map_markers.cpp: filling the marker array from the place table.
#include "toolkit/datetime/map_markers.h"

#include <cstdio>
#include <cstring>

#include "toolkit/datetime/places.h"

namespace qmk::toolkit::datetime {

std::string MarkerLabel(const char* place, const char* country) {
  const bool alone = !country || std::strcmp(country, place) == 0;
  const char* separator = alone ? "" : "\n";
  const int size = std::snprintf(nullptr, 0, "%s%s%s", place, separator, alone ? "" : country);
  std::string label(size > 0 ? size : 0, '\0');
  std::snprintf(label.data(), label.size() + 1, "%s%s%s", place, separator, alone ? "" : country);
  return label;
}

std::vector<MAP_MARKER>& CExtLLBaseControlProperties::GetMarkers() {
  if (!(m_dwOptions & kDefaultPlaces) || !m_arrMarkers.empty()) return m_arrMarkers;
  const auto places = DefaultPlaces();
  m_arrMarkers.resize(places.size());
  for (size_t i = 0; i < places.size(); ++i) {
    const PlaceRow& row = places[i];
    m_arrMarkers[i] = {row.longitude * 60.0 * 60.0, row.latitude * 60.0 * 60.0,
                       MarkerLabel(row.place, row.country), row.value};
  }
  return m_arrMarkers;
}

}  // namespace qmk::toolkit::datetime
