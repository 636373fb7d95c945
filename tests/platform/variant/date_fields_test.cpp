// date_fields_test.cpp: Automation dates and calendar fields in both directions.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/variant/date_time.h"

namespace qmk::platform {
namespace {

DateFields Fields(int y, int mo, int d, int h = 0, int mi = 0, int s = 0) {
  DateFields f;
  f.year = y;
  f.month = mo;
  f.day = d;
  f.hour = h;
  f.minute = mi;
  f.second = s;
  return f;
}

TEST(DateFields, KnownDates) {
  struct Case {
    double date;
    DateFields fields;
    int day_of_week;
  };
  for (const Case& c : std::initializer_list<Case>{
           {0.0, Fields(1899, 12, 30), 6},
           {1.0, Fields(1899, 12, 31), 0},
           {2.0, Fields(1900, 1, 1), 1},
           {60.0, Fields(1900, 2, 28), 3},  // no 29 February 1900 here
           {61.0, Fields(1900, 3, 1), 4},
           {36526.0, Fields(2000, 1, 1), 6},
           {36585.0, Fields(2000, 2, 29), 2},
           {43831.75, Fields(2020, 1, 1, 18), 3},
           {-1.25, Fields(1899, 12, 29, 6), 5},
           {-2.5, Fields(1899, 12, 28, 12), 4},
           {kMinDate, Fields(100, 1, 1), 5},
           {kMaxDate, Fields(9999, 12, 31), 5},
       }) {
    DateFields got;
    ASSERT_TRUE(DateToFields(c.date, got)) << c.date;
    EXPECT_TRUE(got.SameMoment(c.fields)) << c.date << ": " << got.year << "-" << got.month << "-" << got.day << " "
                                          << got.hour;
    EXPECT_EQ(got.day_of_week, c.day_of_week) << c.date;
    double back = 0;
    ASSERT_TRUE(FieldsToDate(c.fields, back)) << c.date;
    EXPECT_DOUBLE_EQ(back, c.date);
  }
}

TEST(DateFields, RoundsToTheSecondAndCarriesIntoTheNextDay) {
  DateFields f;
  ASSERT_TRUE(DateToFields(0.5 + 0.4 / 86400, f));
  EXPECT_EQ(f.second, 0);
  ASSERT_TRUE(DateToFields(0.5 + 0.6 / 86400, f));
  EXPECT_EQ(f.second, 1);
  ASSERT_TRUE(DateToFields(1.0 - 0.2 / 86400, f));
  EXPECT_TRUE(f.SameMoment(Fields(1899, 12, 31)));
  // Before the epoch the carry also moves forward in the calendar: to midnight of 30 December.
  ASSERT_TRUE(DateToFields(-1.0 - (1.0 - 0.2 / 86400), f));
  EXPECT_TRUE(f.SameMoment(Fields(1899, 12, 30)));
  // The fraction of -0.5 counts from the midnight of day 0, the same as 0.5.
  DateFields positive;
  ASSERT_TRUE(DateToFields(-0.5, f));
  ASSERT_TRUE(DateToFields(0.5, positive));
  EXPECT_TRUE(f.SameMoment(positive));
}

TEST(DateFields, RejectsWhatIsNoDate) {
  DateFields f;
  for (const double bad : {kMinDate - 1.0, kMaxDate + 1.0, 1e300, -1e300, static_cast<double>(NAN)}) EXPECT_FALSE(DateToFields(bad, f)) << bad;
  EXPECT_FALSE(DateToFields(kMaxDate + 1.0 - 0.1 / 86400, f));  // rounds into the year 10000
  double d = 0;
  for (const DateFields& bad : {Fields(99, 12, 31), Fields(10000, 1, 1), Fields(2021, 2, 29), Fields(2020, 13, 1),
                                Fields(2020, 0, 1), Fields(2020, 1, 0), Fields(2020, 1, 1, 24), Fields(2020, 1, 1, 0, 60),
                                Fields(2020, 1, 1, 0, 0, 60), Fields(2020, 1, 1, -1)})
    EXPECT_FALSE(FieldsToDate(bad, d)) << bad.year << "-" << bad.month << "-" << bad.day;
  EXPECT_TRUE(FieldsToDate(Fields(2020, 2, 29), d));
  EXPECT_FALSE(FieldsToDate(Fields(1900, 2, 29), d));
  EXPECT_TRUE(FieldsToDate(Fields(2000, 2, 29), d));
}

TEST(DateFields, DayOfYear) {
  DateFields f;
  ASSERT_TRUE(DateToFields(2.0, f));
  EXPECT_EQ(f.day_of_year, 1);
  ASSERT_TRUE(DateToFields(36891.0, f));  // 31 December 2000, a leap year
  EXPECT_EQ(f.day_of_year, 366);
}

}  // namespace
}  // namespace qmk::platform
