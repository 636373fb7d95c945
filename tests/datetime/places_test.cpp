// places_test.cpp: the place table's rows, order and zones, and the markers filled from it.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "toolkit/datetime/map_markers.h"
#include "toolkit/datetime/places.h"

namespace qmk::toolkit::datetime {
namespace {

TEST(PlaceTable, TellingRows) {
  struct Case {
    size_t row;
    const char* place;
    const char* country;
    double latitude, longitude;
    int32_t value;
  };
  const auto places = DefaultPlaces();
  ASSERT_EQ(places.size(), 76u);
  for (const Case c : {Case{0, "Anchorage", "Alaska, USA", 61.17, -150.0, -1},
                       {1, "Athens", "Greece", 38.0, 23.73, -1},
                       {6, "Bermuda", "Bermuda", 32.3, -64.7, -1},
                       {72, "Wellington", "New Zealand", -41.28, 174.78, -1},
                       {74, "North Pole", nullptr, 90.0, 0.0, 255},
                       {75, "South Pole", nullptr, -90.0, 0.0, 255}}) {
    const PlaceRow& row = places[c.row];
    EXPECT_STREQ(row.place, c.place) << c.row;
    if (c.country)
      EXPECT_STREQ(row.country, c.country) << c.place;
    else
      EXPECT_EQ(row.country, nullptr) << c.place;
    EXPECT_DOUBLE_EQ(row.latitude, c.latitude) << c.place;
    EXPECT_DOUBLE_EQ(row.longitude, c.longitude) << c.place;
    EXPECT_EQ(row.value, c.value) << c.place;
    EXPECT_EQ(row.reserved, 0) << c.place;
  }
}

TEST(PlaceTable, OrderAroundTheOddOnes) {
  // New Delhi stands between Dallas and Denver, Ho Chi Minh City between Rome and San Francisco.
  const auto places = DefaultPlaces();
  const char* want[][2] = {{"16", "Dallas"},  {"17", "New Delhi"}, {"18", "Denver"},
                           {"53", "Rome"},    {"54", "Ho Chi Minh City"}, {"55", "San Francisco"},
                           {"38", "Manila"},  {"73", "Yellowknife"}};
  for (const auto& w : want) EXPECT_STREQ(places[std::stoi(w[0])].place, w[1]);
  EXPECT_STREQ(places[38].country, "The Phillipines");
}

TEST(PlaceTable, EveryPlaceHasCoordinatesOfTwoDecimalsAndAZone) {
  const auto places = DefaultPlaces();
  for (size_t i = 0; i < places.size(); ++i) {
    const PlaceRow& row = places[i];
    EXPECT_LE(std::fabs(row.latitude), 90.0) << row.place;
    EXPECT_LE(std::fabs(row.longitude), 180.0) << row.place;
    EXPECT_NEAR(row.latitude * 100, std::round(row.latitude * 100), 1e-6) << row.place;
    EXPECT_NEAR(row.longitude * 100, std::round(row.longitude * 100), 1e-6) << row.place;
    EXPECT_EQ(PlaceZoneName(i) == nullptr, row.value == kPoleValue) << row.place;
  }
  EXPECT_EQ(PlaceZoneName(places.size()), nullptr);
}

TEST(MapMarkers, FilledOnceFromThePlaces) {
  CExtLLBaseControlProperties props;
  auto& markers = props.GetMarkers();
  ASSERT_EQ(markers.size(), 76u);
  EXPECT_DOUBLE_EQ(markers[0].longitude, -540000.0);
  EXPECT_DOUBLE_EQ(markers[0].latitude, 61.17 * 3600.0);
  EXPECT_EQ(markers[0].label, "Anchorage\nAlaska, USA");
  EXPECT_EQ(markers[1].label, "Athens\nGreece");
  EXPECT_EQ(markers[6].label, "Bermuda");
  EXPECT_EQ(markers[74].label, "North Pole");
  EXPECT_EQ(markers[74].value, 255);
  EXPECT_EQ(markers[5].value, -1);
  markers[0].label = "changed";
  EXPECT_EQ(props.GetMarkers()[0].label, "changed") << "a filled array is not filled again";
}

TEST(MapMarkers, StayEmptyWithoutTheOption) {
  CExtLLBaseControlProperties props(0);
  EXPECT_TRUE(props.GetMarkers().empty());
  CExtLLBaseControlProperties own;
  own.m_arrMarkers.push_back({1, 2, "mine", 7});
  EXPECT_EQ(own.GetMarkers().size(), 1u);
}

TEST(MapMarkers, Labels) {
  EXPECT_EQ(MarkerLabel("Fiji", "Fiji"), "Fiji");
  EXPECT_EQ(MarkerLabel("Lima", "Peru"), "Lima\nPeru");
  EXPECT_EQ(MarkerLabel("South Pole", nullptr), "South Pole");
  EXPECT_EQ(MarkerLabel("Somewhere", ""), "Somewhere\n");
}

}  // namespace
}  // namespace qmk::toolkit::datetime
