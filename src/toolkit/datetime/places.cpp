// places.cpp: the rows of the world map's place table and the zone of each place.
#include "toolkit/datetime/places.h"

#include <iterator>

namespace qmk::toolkit::datetime {
namespace {

struct ZonedPlace {
  PlaceRow row;
  const char* zone;
};

constexpr ZonedPlace kPlaces[] = {
    {{61.17, -150.0, "Anchorage", "Alaska, USA", -1, 0}, "America/Anchorage"},
    {{38.0, 23.73, "Athens", "Greece", -1, 0}, "Europe/Athens"},
    {{33.34, 44.40, "Baghdad", "Iraq", -1, 0}, "Asia/Baghdad"},
    {{13.75, 100.50, "Bangkok", "Thailand", -1, 0}, "Asia/Bangkok"},
    {{39.90, 116.41, "Beijing", "China", -1, 0}, "Asia/Shanghai"},
    {{52.52, 13.40, "Berlin", "Germany", -1, 0}, "Europe/Berlin"},
    {{32.3, -64.7, "Bermuda", "Bermuda", -1, 0}, "Atlantic/Bermuda"},
    {{42.36, -71.06, "Boston", "Massachusetts, USA", -1, 0}, "America/New_York"},
    {{-15.79, -47.88, "Brasilia", "Brazil", -1, 0}, "America/Sao_Paulo"},
    {{-4.27, 15.28, "Brazzaville", "Congo", -1, 0}, "Africa/Brazzaville"},
    {{-34.60, -58.38, "Buenos Aires", "Argentina", -1, 0}, "America/Argentina/Buenos_Aires"},
    {{30.04, 31.24, "Cairo", "Egypt", -1, 0}, "Africa/Cairo"},
    {{22.57, 88.36, "Calcutta", "India", -1, 0}, "Asia/Kolkata"},
    {{-33.92, 18.42, "Cape Town", "South Africa", -1, 0}, "Africa/Johannesburg"},
    {{33.57, -7.59, "Casablanca", "Morocco (Rabat)", -1, 0}, "Africa/Casablanca"},
    {{41.88, -87.63, "Chicago", "Illinois, USA", -1, 0}, "America/Chicago"},
    {{32.78, -96.80, "Dallas", "Texas, USA", -1, 0}, "America/Chicago"},
    {{28.61, 77.21, "New Delhi", "India", -1, 0}, "Asia/Kolkata"},
    {{39.74, -104.99, "Denver", "Colorado, USA", -1, 0}, "America/Denver"},
    {{25.20, 55.27, "Dubai", "UAE (Abu Dhabi)", -1, 0}, "Asia/Dubai"},
    {{-27.11, -109.35, "Easter Island", "Easter Island", -1, 0}, "Pacific/Easter"},
    {{-18.14, 178.44, "Fiji", "Fiji", -1, 0}, "Pacific/Fiji"},
    {{13.44, 144.79, "Guam", "Guam", -1, 0}, "Pacific/Guam"},
    {{60.17, 24.94, "Helsinki", "Finland", -1, 0}, "Europe/Helsinki"},
    {{22.32, 114.17, "Hong Kong", "Hong Kong", -1, 0}, "Asia/Hong_Kong"},
    {{21.31, -157.86, "Honolulu", "Hawaii, USA", -1, 0}, "Pacific/Honolulu"},
    {{52.29, 104.28, "Irkutsk", "Irkutsk, Russia", -1, 0}, "Asia/Irkutsk"},
    {{41.01, 28.98, "Istanbul", "Turkey (Ankara)", -1, 0}, "Europe/Istanbul"},
    {{-6.21, 106.85, "Jakarta", "Indonesia", -1, 0}, "Asia/Jakarta"},
    {{31.77, 35.21, "Jerusalem", "Israel", -1, 0}, "Asia/Jerusalem"},
    {{34.56, 69.21, "Kabul", "Afghanistan", -1, 0}, "Asia/Kabul"},
    {{27.72, 85.32, "Kathmandu", "Nepal", -1, 0}, "Asia/Kathmandu"},
    {{50.45, 30.52, "Kiev", "Ukraine", -1, 0}, "Europe/Kiev"},
    {{3.14, 101.69, "Kuala Lumpur", "Malaysia", -1, 0}, "Asia/Kuala_Lumpur"},
    {{6.52, 3.38, "Lagos", "Nigeria", -1, 0}, "Africa/Lagos"},
    {{-12.05, -77.04, "Lima", "Peru", -1, 0}, "America/Lima"},
    {{51.51, -0.13, "London", "United Kingdom", -1, 0}, "Europe/London"},
    {{40.42, -3.70, "Madrid", "Spain", -1, 0}, "Europe/Madrid"},
    {{14.60, 120.98, "Manila", "The Phillipines", -1, 0}, "Asia/Manila"},
    {{21.39, 39.86, "Mecca", "Saudi Arabia", -1, 0}, "Asia/Riyadh"},
    {{19.43, -99.13, "Mexico City", "Mexico", -1, 0}, "America/Mexico_City"},
    {{25.76, -80.19, "Miami", "Florida, USA", -1, 0}, "America/New_York"},
    {{6.30, -10.80, "Monrovia", "Liberia", -1, 0}, "Africa/Monrovia"},
    {{45.50, -73.57, "Montreal", "Quebec, Canada", -1, 0}, "America/Toronto"},
    {{55.76, 37.62, "Moscow", "Russia", -1, 0}, "Europe/Moscow"},
    {{-1.29, 36.82, "Nairobi", "Kenya", -1, 0}, "Africa/Nairobi"},
    {{59.91, 10.75, "Oslo", "Norway", -1, 0}, "Europe/Oslo"},
    {{48.86, 2.35, "Paris", "France", -1, 0}, "Europe/Paris"},
    {{-31.95, 115.86, "Perth", "Australia", -1, 0}, "Australia/Perth"},
    {{45.52, -122.68, "Portland", "Oregon, USA", -1, 0}, "America/Los_Angeles"},
    {{-0.18, -78.47, "Quito", "Ecuador", -1, 0}, "America/Guayaquil"},
    {{64.15, -21.94, "Reykjavik", "Iceland", -1, 0}, "Atlantic/Reykjavik"},
    {{-22.91, -43.17, "Rio de Janeiro", "Brazil", -1, 0}, "America/Sao_Paulo"},
    {{41.90, 12.50, "Rome", "Italy", -1, 0}, "Europe/Rome"},
    {{10.82, 106.63, "Ho Chi Minh City", "Vietnam (Hanoi)", -1, 0}, "Asia/Ho_Chi_Minh"},
    {{37.77, -122.42, "San Francisco", "California, USA", -1, 0}, "America/Los_Angeles"},
    {{9.93, -84.08, "San Jose", "Costa Rica", -1, 0}, "America/Costa_Rica"},
    {{18.47, -66.11, "San Juan", "Puerto Rico", -1, 0}, "America/Puerto_Rico"},
    {{-33.45, -70.67, "Santiago", "Chile", -1, 0}, "America/Santiago"},
    {{1.35, 103.82, "Singapore", "Singapore", -1, 0}, "Asia/Singapore"},
    {{42.70, 23.32, "Sofia", "Bulgaria", -1, 0}, "Europe/Sofia"},
    {{59.33, 18.07, "Stockholm", "Sweden", -1, 0}, "Europe/Stockholm"},
    {{-33.87, 151.21, "Sydney", "Australia", -1, 0}, "Australia/Sydney"},
    {{-17.65, -149.43, "Tahiti", "Tahiti", -1, 0}, "Pacific/Tahiti"},
    {{16.77, -3.01, "Timbuktu", "Mali (Bamako)", -1, 0}, "Africa/Bamako"},
    {{35.68, 139.69, "Tokyo", "Japan", -1, 0}, "Asia/Tokyo"},
    {{43.65, -79.38, "Toronto", "Ontario, Canada", -1, 0}, "America/Toronto"},
    {{32.89, 13.19, "Tripoli", "Libya", -1, 0}, "Africa/Tripoli"},
    {{47.89, 106.91, "Ulan Bator", "Mongolia", -1, 0}, "Asia/Ulaanbaatar"},
    {{49.28, -123.12, "Vancouver", "B.C., Canada", -1, 0}, "America/Vancouver"},
    {{48.21, 16.37, "Vienna", "Austria", -1, 0}, "Europe/Vienna"},
    {{38.91, -77.04, "Washington", "United States", -1, 0}, "America/New_York"},
    {{-41.28, 174.78, "Wellington", "New Zealand", -1, 0}, "Pacific/Auckland"},
    {{62.45, -114.37, "Yellowknife", "N.T., Canada", -1, 0}, "America/Edmonton"},
    {{90.0, 0.0, "North Pole", nullptr, kPoleValue, 0}, nullptr},
    {{-90.0, 0.0, "South Pole", nullptr, kPoleValue, 0}, nullptr},
};
static_assert(std::size(kPlaces) == 76, "the place table has 76 rows");

constexpr auto BuildRows() {
  struct Rows {
    PlaceRow rows[std::size(kPlaces)];
  } r{};
  for (size_t i = 0; i < std::size(kPlaces); ++i) r.rows[i] = kPlaces[i].row;
  return r;
}
constexpr auto kRows = BuildRows();

}  // namespace

std::span<const PlaceRow> DefaultPlaces() { return kRows.rows; }

const char* PlaceZoneName(size_t row) { return row < std::size(kPlaces) ? kPlaces[row].zone : nullptr; }

}  // namespace qmk::toolkit::datetime
