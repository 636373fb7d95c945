// places.h: the world map's built-in table of places, with the time zone each one lies in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace qmk::toolkit::datetime {

struct PlaceRow {
  double latitude;   // degrees, south negative
  double longitude;  // degrees, west negative
  const char* place;
  const char* country;  // second line of the label; null for none
  int32_t value;        // -1 for a place, 255 for the two poles
  int32_t reserved;     // always 0
};

constexpr int32_t kPlaceValue = -1;
constexpr int32_t kPoleValue = 255;

// The 76 rows, in their fixed order.
std::span<const PlaceRow> DefaultPlaces();

// The system time zone name ("Europe/Paris") of a row of the table; null for the poles.
const char* PlaceZoneName(size_t row);

}  // namespace qmk::toolkit::datetime
