#include "rtl/datetime.h"

#include <gtest/gtest.h>

#include "messageof.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

using test::MessageOf;

int DateKey(int year, int month, int day) { return year * 10000 + month * 100 + day; }

TEST(DateTime, DayNumbers) {
  const int rows[][5] = {
      // year, month, day, serial, day of week (1 = Sunday)
      {1899, 12, 30, 0, 7},    {1899, 12, 29, -1, 6},    {1900, 1, 1, 2, 2},      {1900, 3, 1, 61, 5},
      {1970, 1, 1, 25569, 5},  {2000, 1, 1, 36526, 7},   {2000, 2, 29, 36585, 3}, {2000, 3, 1, 36586, 4},
      {2024, 2, 29, 45351, 5}, {2026, 11, 22, 46348, 1}, {1, 1, 1, -693593, 2},   {9999, 12, 31, 2958465, 6},
  };
  for (const auto& r : rows) {
    EXPECT_EQ(r[3], EncodeDate(r[0], r[1], r[2])) << r[3];
    int y = 0, m = 0, d = 0;
    DecodeDate(r[3], y, m, d);
    EXPECT_EQ(DateKey(r[0], r[1], r[2]), DateKey(y, m, d)) << r[3];
    EXPECT_EQ(r[4], DayOfWeek(r[3])) << r[3];
  }
}

TEST(DateTime, EveryDayRoundTrips) {
  TDateTime previous = EncodeDate(1599, 12, 31);
  for (int year = 1600; year <= 2400; ++year) {
    EXPECT_EQ(year % 4 == 0 && (year % 100 != 0 || year % 400 == 0), IsLeapYear(year)) << year;
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= DaysInAMonth(year, month); ++day) {
        const TDateTime value = EncodeDate(year, month, day);
        ASSERT_EQ(previous + 1, value) << DateKey(year, month, day);
        const TDateTimeParts p = DecodeDateTime(EncodeDateTime(year, month, day, 12, 0, 0, 0));
        ASSERT_EQ(DateKey(year, month, day), DateKey(p.Year, p.Month, p.Day));
        previous = value;
      }
    }
  }
  EXPECT_EQ(29, DaysInAMonth(2000, 2));
  EXPECT_EQ(28, DaysInAMonth(1900, 2));
  EXPECT_EQ(0, DaysInAMonth(2023, 13));
}

TEST(DateTime, TimesDecodeToTheNearestMillisecond) {
  struct Row {
    TDateTime value;
    int parts[7];
  };
  const Row rows[] = {
      {EncodeDateTime(2020, 1, 2, 3, 4, 5, 678), {2020, 1, 2, 3, 4, 5, 678}},
      {EncodeDateTime(2020, 1, 2, 23, 59, 59, 999), {2020, 1, 2, 23, 59, 59, 999}},
      {EncodeDate(2020, 12, 31) + 0.9999999999, {2021, 1, 1, 0, 0, 0, 0}},  // rounds up into the next day
      {0.5 + 0.4 / MSecsPerDay, {1899, 12, 30, 12, 0, 0, 0}},
      {0.5 + 0.6 / MSecsPerDay, {1899, 12, 30, 12, 0, 0, 1}},
      {-1.25, {1899, 12, 29, 6, 0, 0, 0}},  // before 1899-12-30 the fraction is still the time
      {-0.75, {1899, 12, 30, 18, 0, 0, 0}},
  };
  for (const Row& row : rows) {
    const TDateTimeParts p = DecodeDateTime(row.value);
    const int actual[] = {p.Year, p.Month, p.Day, p.Hour, p.Minute, p.Second, p.MilliSecond};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(row.parts[i], actual[i]) << row.value << " part " << i;
  }
  EXPECT_EQ(-1.25, EncodeDateTime(1899, 12, 29, 6, 0, 0, 0));
  EXPECT_EQ(0.75, EncodeTime(18, 0, 0, 0));
}

TEST(DateTime, InvalidArgumentsRaise) {
  const int dates[][3] = {{2023, 2, 29}, {2023, 13, 1}, {2023, 0, 1}, {2023, 1, 0}, {2023, 4, 31}, {0, 1, 1}, {10000, 1, 1}};
  for (const auto& d : dates) {
    EXPECT_EQ("Invalid argument to date encode", MessageOf<EConvertError>([&] { EncodeDate(d[0], d[1], d[2]); }))
        << DateKey(d[0], d[1], d[2]);
  }
  const int times[][4] = {{24, 0, 0, 0}, {0, 60, 0, 0}, {0, 0, 60, 0}, {0, 0, 0, 1000}, {-1, 0, 0, 0}};
  for (const auto& t : times) {
    EXPECT_EQ("Invalid argument to time encode", MessageOf<EConvertError>([&] { EncodeTime(t[0], t[1], t[2], t[3]); }))
        << t[0] << ":" << t[1] << ":" << t[2] << "." << t[3];
  }
}

TEST(DateTime, IsoText) {
  const char* const rows[][2] = {
      // text, DateTimeToISO of what it reads ("" when it does not read)
      {"2020-01-02T03:04:05", "2020-01-02T03:04:05"},         {"2020-01-02T03:04:05.006", "2020-01-02T03:04:05.006"},
      {"1899-12-29T06:00:00", "1899-12-29T06:00:00"},         {"0001-01-01T00:00:00", "0001-01-01T00:00:00"},
      {"9999-12-31T23:59:59.999", "9999-12-31T23:59:59.999"}, {"2020-01-02", "2020-01-02T00:00:00"},
      {"2020-01-02 10:30", "2020-01-02T10:30:00"},            {"2020-01-02T10:30:01.5", "2020-01-02T10:30:01.500"},
      {"2020-02-30", ""}, {"2020-01-02T10", ""}, {"02/01/2020", ""}, {"2020-01-02T24:00:00", ""}, {"2020-1-2", ""},
      {"2020-01-02T10:30:01.", ""}, {"2020-01-02T10:30:01.1234", ""}, {" 2020-01-02", ""}, {"", ""},
  };
  for (const auto& row : rows) {
    TDateTime value = 0;
    const bool ok = TryISOToDateTime(row[0], value);
    EXPECT_EQ(row[1], ok ? DateTimeToISO(value) : "") << row[0];
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
}

}  // namespace
}  // namespace jx
