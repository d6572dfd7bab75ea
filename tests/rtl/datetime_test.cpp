#include "rtl/datetime.h"

#include <gtest/gtest.h>

#include <array>

#include "messageof.h"
#include "rtl/formatdatetime.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

using test::MessageOf;

// The classic date-time: days since 1899-12-30, the time as the fraction.
TEST(DateTime, DayNumbers) {
  const int rows[][5] = {
      // year, month, day, serial, day of week (1 = Sunday)
      {1899, 12, 30, 0, 7}, {1899, 12, 29, -1, 6}, {1900, 1, 1, 2, 2}, {1900, 3, 1, 61, 5}, {1970, 1, 1, 25569, 5},
      {2000, 2, 29, 36585, 3}, {2000, 3, 1, 36586, 4}, {2026, 11, 22, 46348, 1}, {1, 1, 1, -693593, 2},
      {9999, 12, 31, 2958465, 6},
  };
  for (const auto& r : rows) {
    int y = 0, m = 0, d = 0;
    DecodeDate(r[3], y, m, d);
    EXPECT_EQ(std::tuple(r[3], r[0], r[1], r[2], r[4]), std::tuple(EncodeDate(r[0], r[1], r[2]), y, m, d, DayOfWeek(r[3])));
  }
  TDateTime previous = EncodeDate(1599, 12, 31);  // every day from 1600 to 2400 follows the one before
  for (int year = 1600; year <= 2400; ++year) {
    EXPECT_EQ(year % 4 == 0 && (year % 100 != 0 || year % 400 == 0), IsLeapYear(year)) << year;
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= DaysInAMonth(year, month); ++day) {
        const TDateTimeParts p = DecodeDateTime(EncodeDateTime(year, month, day, 12, 0, 0, 0));
        ASSERT_EQ(std::tuple(previous + 1, year, month, day), std::tuple(EncodeDate(year, month, day), p.Year, p.Month, p.Day));
        previous = EncodeDate(year, month, day);
      }
    }
  }
  EXPECT_EQ(std::tuple(29, 28, 0), std::tuple(DaysInAMonth(2000, 2), DaysInAMonth(1900, 2), DaysInAMonth(2023, 13)));
}

TEST(DateTime, TimesDecodeToTheNearestMillisecond) {
  const std::pair<TDateTime, std::array<int, 7>> rows[] = {
      {EncodeDateTime(2020, 1, 2, 23, 59, 59, 999), {2020, 1, 2, 23, 59, 59, 999}},
      {EncodeDate(2020, 12, 31) + 0.9999999999, {2021, 1, 1, 0, 0, 0, 0}},  // rounds up into the next day
      {0.5 + 0.4 / MSecsPerDay, {1899, 12, 30, 12, 0, 0, 0}}, {0.5 + 0.6 / MSecsPerDay, {1899, 12, 30, 12, 0, 0, 1}},
      {-1.25, {1899, 12, 29, 6, 0, 0, 0}},  // before 1899-12-30 the fraction is still the time
      {-0.75, {1899, 12, 30, 18, 0, 0, 0}},
  };
  for (const auto& [value, parts] : rows) {
    const TDateTimeParts p = DecodeDateTime(value);
    EXPECT_EQ(parts, (std::array{p.Year, p.Month, p.Day, p.Hour, p.Minute, p.Second, p.MilliSecond})) << value;
  }
  EXPECT_EQ(std::tuple(-1.25, 0.75), std::tuple(EncodeDateTime(1899, 12, 29, 6, 0, 0, 0), EncodeTime(18, 0, 0, 0)));
  for (const auto& d : {std::array{2023, 2, 29}, {2023, 13, 1}, {2023, 0, 1}, {2023, 4, 31}, {0, 1, 1}, {10000, 1, 1}}) {
    EXPECT_EQ("Invalid argument to date encode", MessageOf<EConvertError>([&] { EncodeDate(d[0], d[1], d[2]); }));
  }
  for (const auto& t : {std::array{24, 0, 0, 0}, {0, 60, 0, 0}, {0, 0, 60, 0}, {0, 0, 0, 1000}, {-1, 0, 0, 0}}) {
    EXPECT_EQ("Invalid argument to time encode", MessageOf<EConvertError>([&] { EncodeTime(t[0], t[1], t[2], t[3]); }));
  }
}

TEST(DateTime, IsoUnixAndShortText) {
  const char* const rows[][2] = {
      // text, DateTimeToISO of what it reads ("" when it does not read)
      {"2020-01-02T03:04:05.006", "2020-01-02T03:04:05.006"}, {"1899-12-29T06:00:00", "1899-12-29T06:00:00"},
      {"0001-01-01T00:00:00", "0001-01-01T00:00:00"}, {"9999-12-31T23:59:59.999", "9999-12-31T23:59:59.999"},
      {"2020-01-02", "2020-01-02T00:00:00"}, {"2020-01-02 10:30", "2020-01-02T10:30:00"},
      {"2020-01-02T10:30:01.5", "2020-01-02T10:30:01.500"}, {"2020-02-30", ""}, {"2020-01-02T10", ""},
      {"02/01/2020", ""}, {"2020-01-02T24:00:00", ""}, {"2020-1-2", ""}, {"2020-01-02T10:30:01.", ""},
      {"2020-01-02T10:30:01.1234", ""}, {" 2020-01-02", ""}, {"", ""},
  };
  for (const auto& row : rows) {
    TDateTime value = 0;
    EXPECT_EQ(row[1], TryISOToDateTime(row[0], value) ? DateTimeToISO(value) : "") << row[0];
  }
  EXPECT_EQ(std::tuple(25569.5, 25569.5, 25568.0), std::tuple(UnixToDateTime(43200), UnixToDateTime(0, 43200), UnixToDateTime(-86400)));
  EXPECT_EQ(std::tuple(1609459200, 1609455600),
            std::tuple(DateTimeToUnix(EncodeDate(2021, 1, 1)), DateTimeToUnix(EncodeDate(2021, 1, 1), 3600)));
  EXPECT_EQ(std::tuple("2020-01-02 03:04:05", "2020-01-02", "03:04:05"),
            std::tuple(DateTimeToStr(EncodeDateTime(2020, 1, 2, 3, 4, 5, 0)), DateTimeToStr(EncodeDate(2020, 1, 2)),
                       TimeToStr(EncodeTime(3, 4, 5, 600))));
}

// A moment by its parts; encoded when a test runs, not at static initialisation.
struct Moment {
  int Year, Month, Day, Hour, Minute, Second, MilliSecond;
  TDateTime Value() const { return EncodeDateTime(Year, Month, Day, Hour, Minute, Second, MilliSecond); }
};

constexpr Moment kAfternoon{2026, 11, 15, 14, 5, 9, 7};  // a Sunday
constexpr Moment kMidnight{2001, 2, 3, 0, 0, 0, 0};      // a Saturday
constexpr Moment kMorning{1999, 12, 31, 9, 4, 3, 250};   // a Friday
constexpr Moment kNoon{2026, 11, 15, 12, 30, 0, 0};

struct Row {
  const char* Format;
  Moment When;
  const char* Expected;
};

TEST(FormatDateTime, ClassicSettings) {
  const Row rows[] = {
      {"ddmmyyyy", kAfternoon, "15112026"}, {"d/m/yy", kMidnight, "3/2/01"}, {"dd/mm/yyyy", kMidnight, "03/02/2001"},
      {"ddd dddd", kAfternoon, "Sun Sunday"}, {"ddddd", kAfternoon, "11/15/2026"},
      {"dddddd", kAfternoon, "Sunday, November 15, 2026"}, {"m mm mmm mmmm", kMidnight, "2 02 Feb February"},
      {"mmmmm", kMorning, "December"}, {"yy yyyy yyy y", kMorning, "99 1999 1999 99"},
      {"h hh n nn s ss", kMorning, "9 09 4 04 3 03"}, {"z zzz", kAfternoon, "7 007"}, {"z zzz", kMorning, "250 250"},
      // "m" right after an hour is the minute, literals and separators between.
      {"h:m", kAfternoon, "14:5"}, {"hh:mm:ss", kAfternoon, "14:05:09"}, {"hh'h'mm", kAfternoon, "14h05"},
      {"hhmmmm", kAfternoon, "1405"}, {"hh:mm mm", kAfternoon, "14:05 11"}, {"hh d mm", kAfternoon, "14 15 11"},
      {"t", kAfternoon, "2:05 PM"}, {"tt", kAfternoon, "2:05:09 PM"}, {"c", kAfternoon, "11/15/2026 2:05:09 PM"},
      {"c", kMidnight, "2/3/2001"}, {"c", {2001, 2, 3, 0, 0, 0, 500}, "2/3/2001 12:00:00 AM"}, {"", kMidnight, "2/3/2001"},
      // am/pm and a/p keep the pattern's own case; ampm gives the strings.
      {"h:nn am/pm", kAfternoon, "2:05 pm"}, {"h:nn AM/PM", kMorning, "9:04 AM"}, {"h:nn Am/pM", kAfternoon, "2:05 pM"},
      {"h a/p", kAfternoon, "2 p"}, {"hh ampm", kNoon, "12 PM"}, {"h:nn ampm", {2026, 11, 15, 0, 7, 0, 0}, "12:07 AM"},
      {"AMPM hh", kMorning, "AM 09"}, {"am/pm h", kAfternoon, "pm 2"}, {"h 'am/pm'", kAfternoon, "14 am/pm"},
      // Only the first "a" after the hour is looked at, and the next hour stops the search.
      {"h x am/pm", kAfternoon, "2 x pm"}, {"h ax am/pm", kAfternoon, "14 ax pm"}, {"hh h", kAfternoon, "14 14"},
      {"'dd' \"mm\" dd", kAfternoon, "dd mm 15"}, {"\"it's\" d", kAfternoon, "it's 15"}, {"dd 'yyyy", kAfternoon, "15 yyyy"},
      {"x q, a", kAfternoon, "x q, a"}, {"dd\xC2\xB7mm", kAfternoon, "15\xC2\xB7" "11"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.Expected, FormatDateTime(row.Format, row.When.Value(), ClassicFormatSettings())) << row.Format;
  }
}

TFormatSettings GermanSettings() {
  TFormatSettings s = ClassicFormatSettings();
  s.ShortDateFormat = "dd/mm/yyyy";
  s.LongDateFormat = "dddd, d. mmmm yyyy";
  s.ShortTimeFormat = "hh:nn";
  s.LongTimeFormat = "hh:nn:ss";
  s.DateSeparator = '.';
  s.TimeSeparator = '-';
  s.LongDayNames[0] = "Sonntag";
  s.ShortDayNames[0] = "So";
  return s;
}

// A format that names itself ("ddddd" in the short date) expands once only.
TEST(FormatDateTime, SeparatorsAndFormatsComeFromTheSettings) {
  const Row rows[] = {
      {"dd/mm/yyyy hh:nn", kAfternoon, "15.11.2026 14-05"}, {"c", kAfternoon, "15.11.2026 14-05-09"},
      {"dddddd", kAfternoon, "Sonntag, 15. November 2026"}, {"ddd t", kAfternoon, "So 14-05"},
      {"'/' \":\"", kAfternoon, "/ :"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.Expected, FormatDateTime(row.Format, row.When.Value(), GermanSettings())) << row.Format;
  }
  TFormatSettings s = ClassicFormatSettings();
  s.ShortDateFormat = "ddddd dd";
  s.LongTimeFormat = "tt";
  EXPECT_EQ(" 15 ", FormatDateTime("c", kAfternoon.Value(), s));
}

// The moment `text` gives, or "refused" (the value is then left alone).
std::string Parsed(const std::string& text, const TFormatSettings& settings) {
  TDateTime value = -1.5;
  if (!TryStrToDateTime(text, value, settings)) return value == -1.5 ? "refused" : "refused, but changed";
  return DateTimeToISO(value);
}

TEST(TryStrToDateTime, ClassicSettings) {
  const std::pair<const char*, const char*> rows[] = {
      {"11/15/2026 2:05:09 PM", "2026-11-15T14:05:09"}, {"  02 / 03 / 2001  ", "2001-02-03T00:00:00"},
      {"2/3/2001 12:00:00 AM", "2001-02-03T00:00:00"}, {"2/3/2001 12:30 pm", "2001-02-03T12:30:00"},
      {"2/3/2001 PM 1:02", "2001-02-03T13:02:00"}, {"2/3/2001 14:05", "2001-02-03T14:05:00"},
      {"2/3/2001 7", "2001-02-03T07:00:00"}, {"2/3/2001 7am", "2001-02-03T07:00:00"},
      {"2/3/0026", "0026-02-03T00:00:00"},  // four digits: no century added
      {"1/1/1800 6:00", "1800-01-01T06:00:00"}, {"", "refused"}, {"2/3", "refused"}, {"2/3/2001/4", "refused"},
      {"13/1/2001", "refused"}, {"2/30/2001", "refused"}, {"2-3-2001", "refused"}, {"2/3/10000", "refused"},
      {"2/3/2001 13:00 PM", "refused"}, {"2/3/2001 24:00", "refused"}, {"2/3/2001 1:60", "refused"},
      {"2/3/2001 1:", "refused"}, {"2/3/2001 1:02:03:04", "refused"}, {"2/3/2001 1:02 x", "refused"},
      {"2/3/2001 1234567890", "refused"}, {"2/3/2001T01:02", "refused"}, {"2001-02-03T04:05:06", "refused"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(expected, Parsed(text, ClassicFormatSettings())) << text;
}

TFormatSettings YearFirstSettings() {
  TFormatSettings s = ClassicFormatSettings();
  s.ShortDateFormat = "yyyy/mm/dd";
  s.LongTimeFormat = "hh:nn:ss ampm";
  s.DateSeparator = '-';
  s.TimeAMString = "vorm.";
  s.TimePMString = "nachm.";
  return s;
}

// Two-digit years: within the 100 years that start 50 years ago; with no
// window, in this century. (The rows hold from 2000 until 2076.)
TEST(TryStrToDateTime, OrderSeparatorsAmPmAndCenturyComeFromTheSettings) {
  const TFormatSettings german = GermanSettings(), year_first = YearFirstSettings();
  EXPECT_EQ("2026-11-15T14:05:09", Parsed("15.11.2026 14-05-09", german));
  EXPECT_EQ("refused", Parsed("11/15/2026 14:05:09", german));
  EXPECT_EQ("2026-11-15T14:05:09", Parsed("2026-11-15 02:05:09 NACHM.", year_first));
  EXPECT_EQ("2026-11-15T02:05:00", Parsed("2026-11-15 vorm. 2:05", year_first));
  EXPECT_EQ("refused", Parsed("15-11-2026", year_first));
  TFormatSettings s = ClassicFormatSettings();
  EXPECT_EQ("2026-02-03T00:00:00", Parsed("2/3/26", s));
  s.TwoDigitYearCenturyWindow = 0;
  EXPECT_EQ("2099-02-03T00:00:00", Parsed("2/3/99", s));
}

TEST(TryStrToDateTime, ReadsWhatFormatDateTimeWritesWithC) {
  const Moment moments[] = {{2026, 11, 15, 14, 5, 9, 0}, kMidnight, {1999, 12, 31, 0, 0, 1, 0}, {2000, 1, 1, 12, 0, 0, 0}};
  for (const TFormatSettings& settings : {ClassicFormatSettings(), GermanSettings(), YearFirstSettings()}) {
    for (const Moment& moment : moments) {
      const std::string text = FormatDateTime("c", moment.Value(), settings);
      EXPECT_EQ(DateTimeToISO(moment.Value()), Parsed(text, settings)) << text;
    }
  }
}

}  // namespace
}  // namespace jx
