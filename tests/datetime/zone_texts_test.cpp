// zone_texts_test.cpp: offset, time and zone texts with fixed dates and zones, and the system's
// zone database behind the lookup.
#include <gtest/gtest.h>

#include <cstdlib>

#include "datetime/fake_zone_lookup.h"
#include "platform/variant/date_time.h"
#include "support/scoped_env.h"
#include "toolkit/datetime/zone_texts.h"

namespace qmk::toolkit::datetime {
namespace {

double Date(int y, int mo, int d, int h = 0, int mi = 0) {
  platform::DateFields f;
  f.year = y, f.month = mo, f.day = d, f.hour = h, f.minute = mi, f.second = 0;
  double date = 0;
  EXPECT_TRUE(platform::FieldsToDate(f, date));
  return date;
}

TEST(OffsetText, SignHoursAndMinutes) {
  struct Case {
    double offset;
    bool sign;
    char separator;
    const char* text;
  };
  for (const Case c : {Case{-3.5, true, ':', "-3:30"}, {0, true, ':', "0:00"}, {5.75, true, ':', "+5:45"},
                       {-0.5, true, ':', "-0:30"}, {5.75, false, ':', "5:45"}, {-11, false, '.', "11.00"},
                       {12.75, true, 'h', "+12h45"}, {9.99, true, ':', "+9:59"}}) {
    EXPECT_EQ(OffsetText({c.offset, ""}, c.sign, c.separator), c.text) << c.offset;
  }
}

TEST(ShiftByOffset, UnfoldsAndFoldsDatesBeforeTheEpoch) {
  struct Case {
    double date, offset, want;
  };
  for (const Case c : {Case{43831.5, 2, 43831.5 + 2.0 / 24},
                       {43831.0, -0.5, 43831.0 - 1.0 / 48},
                       // 29 December 1899 06:00, twelve hours later: 18:00 the same day.
                       {-1.25, 12, -1.75},
                       // 30 December 1899 06:00, eight hours earlier: 22:00 the day before.
                       {0.25, -8, -1 - 22.0 / 24},
                       // 29 December 1899 18:00, ten hours later: 04:00 on the epoch's day.
                       {-1.75, 10, 4.0 / 24}}) {
    EXPECT_NEAR(ShiftByOffset(c.date, c.offset), c.want, 1e-9) << c.date << " " << c.offset;
  }
}

class MapTexts : public ::testing::Test {
 protected:
  MapTexts() {
    map_.LoadPlaceZones(testing::FakeZoneLookup({{"Europe/Paris", 1},
                                                 {"Asia/Kathmandu", 5.75},
                                                 {"America/New_York", -5},
                                                 {"America/St_Johns", -3.5},
                                                 {"Europe/London", 0}}),
                        0);
    map_.SetDateTime(Date(2020, 1, 1, 0, 30));
  }
  CExtLLMapWnd map_;
};

TEST_F(MapTexts, OnlyZonesTheLookupKnowsAreLoaded) {
  EXPECT_EQ(map_.m_mapZones.size(), 4u);
  // Boston, Miami, Washington share one zone.
  ASSERT_TRUE(map_.ZoneIndexAt(42.36, -71.06));
  EXPECT_EQ(map_.ZoneIndexAt(42.36, -71.06), map_.ZoneIndexAt(25.76, -80.19));
  EXPECT_FALSE(map_.ZoneIndexAt(35.68, 139.69)) << "Tokyo's zone is unknown to this lookup";
  EXPECT_FALSE(map_.ZoneIndexAt(-50, -30)) << "the South Atlantic is far from every place";
  EXPECT_FALSE(map_.ZoneIndexAt(90, 0)) << "the poles have no zone";
}

TEST_F(MapTexts, ZoneTextAcrossDayAndYearBoundaries) {
  struct Case {
    double latitude, longitude;
    uint32_t style;
    const char* text;
  };
  const uint32_t both = CExtLLMapWnd::kStyleShowDate | CExtLLMapWnd::kStyleShowTime;
  for (const Case c : {Case{48.86, 2.35, both, "GMT +1:00\n1/1/2020\n1:30:00 AM"},
                       {27.72, 85.32, both, "GMT +5:45\n1/1/2020\n6:15:00 AM"},
                       {27.72, 85.32, 0, "GMT +5:45"},
                       {38.91, -77.04, both, "GMT -5:00\n12/31/2019\n7:30:00 PM"},
                       {38.91, -77.04, CExtLLMapWnd::kStyleShowDate, "GMT -5:00\n12/31/2019"},
                       {38.91, -77.04, CExtLLMapWnd::kStyleShowTime, "GMT -5:00\n7:30:00 PM"},
                       {51.51, -0.13, both, "GMT 0:00\n1/1/2020\n12:30:00 AM"},
                       {-50, -30, both, ""}}) {
    map_.m_dwStyle = c.style;
    EXPECT_EQ(map_.ZoneText(c.latitude, c.longitude), c.text) << c.latitude << "," << c.longitude;
  }
}

TEST_F(MapTexts, TimeTextOfAZoneOutsideThePlaces) {
  const WORLD_TIME_ZONE newfoundland{-3.5, "America/St_Johns"};
  map_.SetDateTime(Date(2021, 3, 1, 2, 0));
  EXPECT_EQ(map_.TimeText(&newfoundland), "2/28/2021\n10:30:00 PM");
  EXPECT_EQ(map_.TimeText(nullptr), "");
  // Before the epoch the fraction counts forwards: 29 December 1899 06:00 in Greenwich.
  map_.SetDateTime(-1.25);
  EXPECT_EQ(map_.TimeText(&newfoundland), "12/29/1899\n2:30:00 AM");
  const WORLD_TIME_ZONE east{10, ""};
  map_.SetDateTime(-1.75);
  EXPECT_EQ(map_.TimeText(&east), "12/30/1899\n4:00:00 AM");
}

TEST_F(MapTexts, WithoutAStoredDateThePresentIsUsed) {
  map_.ClearDateTime();
  map_.m_fnNow = [] { return std::time_t{1609459199}; };  // 31 December 2020 23:59:59 UTC
  const WORLD_TIME_ZONE london{0, "Europe/London"}, paris{1, "Europe/Paris"};
  EXPECT_EQ(map_.TimeText(&london), "12/31/2020\n11:59:59 PM");
  EXPECT_EQ(map_.TimeText(&paris), "1/1/2021\n12:59:59 AM");
}

TEST(SystemZones, OffsetsFromTheDatabase) {
  const auto lookup = SystemZoneLookup();
  const std::time_t winter = 1578000000, summer = 1594000000;  // January and July 2020
  struct Case {
    const char* zone;
    std::time_t at;
    double offset;
  };
  for (const Case c : {Case{"Europe/Paris", winter, 1}, {"Europe/Paris", summer, 2}, {"Asia/Kathmandu", winter, 5.75},
                       {"America/St_Johns", winter, -3.5}, {"Pacific/Auckland", winter, 13}, {"UTC", summer, 0}}) {
    const auto offset = lookup->OffsetHours(c.zone, c.at);
    ASSERT_TRUE(offset) << c.zone;
    EXPECT_DOUBLE_EQ(*offset, c.offset) << c.zone;
  }
  for (const char* bad : {"Nowhere/City", "../../etc/passwd", "/usr/share/zoneinfo/UTC", "", "Europe/Paris x"})
    EXPECT_FALSE(lookup->OffsetHours(bad, winter)) << bad;
}

TEST(SystemZones, TheProcessZoneIsPutBack) {
  qmk::testing::ScopedEnv tz("TZ", "Asia/Tokyo");
  EXPECT_TRUE(SystemZoneLookup()->OffsetHours("Europe/Paris", 0));
  ASSERT_NE(std::getenv("TZ"), nullptr);
  EXPECT_STREQ(std::getenv("TZ"), "Asia/Tokyo");
  std::tm fields{};
  const std::time_t at = 0;
  localtime_r(&at, &fields);
  EXPECT_EQ(fields.tm_gmtoff, 9 * 3600);
}

TEST(SystemZones, EveryPlaceZoneIsInTheDatabase) {
  CExtLLMapWnd map;
  map.LoadPlaceZones(*SystemZoneLookup(), 1578000000);
  EXPECT_EQ(map.m_mapPlaceZones.size(), 74u);
}

}  // namespace
}  // namespace qmk::toolkit::datetime
