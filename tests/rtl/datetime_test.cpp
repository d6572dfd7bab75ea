#include "rtl/datetime.h"

#include <gtest/gtest.h>

#include "rtl/sysutils.h"

namespace jx {
namespace {

TEST(DateTime, DayNumbers) {
  struct Row {
    int year, month, day;
    double serial;
    int day_of_week;  // 1 = Sunday
  };
  const Row rows[] = {
      {1899, 12, 30, 0, 7},     {1899, 12, 29, -1, 6},     {1900, 1, 1, 2, 2},        {1900, 3, 1, 61, 5},
      {1970, 1, 1, 25569, 5},   {2000, 1, 1, 36526, 7},    {2000, 2, 29, 36585, 3},   {2000, 3, 1, 36586, 4},
      {2024, 2, 29, 45351, 5},  {2026, 11, 22, 46348, 1},  {1, 1, 1, -693593, 2},     {9999, 12, 31, 2958465, 6},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.serial, EncodeDate(row.year, row.month, row.day)) << row.year << "-" << row.month;
    int y = 0, m = 0, d = 0;
    DecodeDate(row.serial, y, m, d);
    EXPECT_EQ(row.year * 10000 + row.month * 100 + row.day, y * 10000 + m * 100 + d) << row.serial;
    EXPECT_EQ(row.day_of_week, DayOfWeek(row.serial)) << row.serial;
  }
}

TEST(DateTime, EveryDayRoundTrips) {
  TDateTime previous = EncodeDate(1600, 1, 1) - 1;
  for (int year = 1600; year <= 2400; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= DaysInAMonth(year, month); ++day) {
        const TDateTime value = EncodeDate(year, month, day);
        ASSERT_EQ(previous + 1, value) << year << "-" << month << "-" << day;
        const TDateTimeParts p = DecodeDateTime(EncodeDateTime(year, month, day, 12, 0, 0, 0));
        ASSERT_EQ(year * 10000 + month * 100 + day, p.Year * 10000 + p.Month * 100 + p.Day);
        previous = value;
      }
    }
  }
}

TEST(DateTime, LeapYearsAndMonthLengths) {
  const int rows[][2] = {{1600, 1}, {1700, 0}, {1900, 0}, {2000, 1}, {2023, 0}, {2024, 1}, {2100, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(row[1] != 0, IsLeapYear(row[0])) << row[0];
    EXPECT_EQ(28 + row[1], DaysInAMonth(row[0], 2)) << row[0];
  }
  EXPECT_EQ(31, DaysInAMonth(2023, 12));
  EXPECT_EQ(30, DaysInAMonth(2023, 4));
  EXPECT_EQ(0, DaysInAMonth(2023, 13));
}

TEST(DateTime, TimesDecodeToTheNearestMillisecond) {
  struct Row {
    TDateTime value;
    int year, month, day, hour, minute, second, msec;
  };
  const Row rows[] = {
      {EncodeDateTime(2020, 1, 2, 3, 4, 5, 678), 2020, 1, 2, 3, 4, 5, 678},
      {EncodeDateTime(2020, 1, 2, 23, 59, 59, 999), 2020, 1, 2, 23, 59, 59, 999},
      {EncodeDate(2020, 12, 31) + 0.9999999999, 2021, 1, 1, 0, 0, 0, 0},  // rounds up into the next day
      {0.5 + 0.4 / MSecsPerDay, 1899, 12, 30, 12, 0, 0, 0},
      {0.5 + 0.6 / MSecsPerDay, 1899, 12, 30, 12, 0, 0, 1},
      {-1.25, 1899, 12, 29, 6, 0, 0, 0},  // before 1899-12-30 the fraction is still the time
      {-0.75, 1899, 12, 30, 18, 0, 0, 0},
      {EncodeDateTime(1899, 12, 29, 6, 0, 0, 0), 1899, 12, 29, 6, 0, 0, 0},
  };
  for (const Row& row : rows) {
    const TDateTimeParts p = DecodeDateTime(row.value);
    const int expected[] = {row.year, row.month, row.day, row.hour, row.minute, row.second, row.msec};
    const int actual[] = {p.Year, p.Month, p.Day, p.Hour, p.Minute, p.Second, p.MilliSecond};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(expected[i], actual[i]) << row.value << " part " << i;
  }
  EXPECT_EQ(-1.25, EncodeDateTime(1899, 12, 29, 6, 0, 0, 0));
  EXPECT_EQ(0.75, EncodeTime(18, 0, 0, 0));
}

TEST(DateTime, InvalidArgumentsRaise) {
  const int dates[][3] = {{2023, 2, 29}, {2023, 13, 1}, {2023, 0, 1}, {2023, 1, 0}, {2023, 4, 31}, {0, 1, 1}, {10000, 1, 1}};
  for (const auto& d : dates) {
    TDateTime value = 0;
    EXPECT_FALSE(TryEncodeDate(d[0], d[1], d[2], value)) << d[0] << "-" << d[1] << "-" << d[2];
    try {
      EncodeDate(d[0], d[1], d[2]);
      ADD_FAILURE() << "no error";
    } catch (const EConvertError& e) {
      EXPECT_EQ("Invalid argument to date encode", e.Message());
    }
  }
  const int times[][4] = {{24, 0, 0, 0}, {0, 60, 0, 0}, {0, 0, 60, 0}, {0, 0, 0, 1000}, {-1, 0, 0, 0}};
  for (const auto& t : times) {
    TDateTime value = 0;
    EXPECT_FALSE(TryEncodeTime(t[0], t[1], t[2], t[3], value)) << t[0] << ":" << t[1] << ":" << t[2];
    try {
      EncodeTime(t[0], t[1], t[2], t[3]);
      ADD_FAILURE() << "no error";
    } catch (const EConvertError& e) {
      EXPECT_EQ("Invalid argument to time encode", e.Message());
    }
  }
}

TEST(DateTime, IsoText) {
  const char* const round_trips[] = {"2020-01-02T03:04:05", "2020-01-02T03:04:05.006", "1899-12-30T00:00:00",
                                     "1899-12-29T06:00:00", "0001-01-01T00:00:00", "9999-12-31T23:59:59.999"};
  for (const char* text : round_trips) {
    TDateTime value = 0;
    ASSERT_TRUE(TryISOToDateTime(text, value)) << text;
    EXPECT_EQ(text, DateTimeToISO(value));
  }
  struct Row {
    const char* text;
    bool ok;
    const char* iso;
  };
  const Row rows[] = {
      {"2020-01-02", true, "2020-01-02T00:00:00"},      {"2020-01-02 10:30", true, "2020-01-02T10:30:00"},
      {"2020-01-02T10:30:01.5", true, "2020-01-02T10:30:01.500"},
      {"2020-02-30", false, ""},  {"2020-01-02T10", false, ""},  {"02/01/2020", false, ""},
      {"2020-01-02T24:00:00", false, ""},  {"2020-1-2", false, ""},  {"2020-01-02T10:30:01.", false, ""},
      {"2020-01-02T10:30:01.1234", false, ""},  {" 2020-01-02", false, ""},  {"", false, ""},
  };
  for (const Row& row : rows) {
    TDateTime value = 0;
    EXPECT_EQ(row.ok, TryISOToDateTime(row.text, value)) << row.text;
    if (row.ok) {
      EXPECT_EQ(row.iso, DateTimeToISO(value)) << row.text;
    }
  }
}

TEST(DateTime, UnixSecondsAndShortText) {
  EXPECT_EQ(25569.5, UnixToDateTime(43200));
  EXPECT_EQ(25569.5, UnixToDateTime(0, 43200));
  EXPECT_EQ(25568, UnixToDateTime(-86400));
  EXPECT_EQ(1609459200, DateTimeToUnix(EncodeDate(2021, 1, 1)));
  EXPECT_EQ(1609455600, DateTimeToUnix(EncodeDate(2021, 1, 1), 3600));
  EXPECT_EQ("2020-01-02 03:04:05", DateTimeToStr(EncodeDateTime(2020, 1, 2, 3, 4, 5, 0)));
  EXPECT_EQ("2020-01-02", DateTimeToStr(EncodeDate(2020, 1, 2)));
  EXPECT_EQ("03:04:05", TimeToStr(EncodeTime(3, 4, 5, 600)));
  EXPECT_EQ("0001-01-01", DateToStr(-693593));
}

}  // namespace
}  // namespace jx
