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
  const int rows[][5] = {  // year, month, day, serial, day of week (1 = Sunday)
      {1899, 12, 30, 0, 7}, {1899, 12, 29, -1, 6}, {1900, 3, 1, 61, 5}, {1970, 1, 1, 25569, 5},
      {2000, 2, 29, 36585, 3}, {2026, 11, 22, 46348, 1}, {1, 1, 1, -693593, 2}, {9999, 12, 31, 2958465, 6},
  };
  for (const auto& r : rows) {
    EXPECT_EQ(std::pair(r[3], r[4]), std::pair(int(EncodeDate(r[0], r[1], r[2])), DayOfWeek(r[3]))) << r[3];
  }
  for (int serial = EncodeDate(1600, 1, 1); serial <= EncodeDate(2400, 12, 31); ++serial) {  // every day decodes
    int y = 0, m = 0, d = 0;
    DecodeDate(serial, y, m, d);
    ASSERT_EQ(serial, EncodeDate(y, m, d)) << y << "-" << m << "-" << d;
  }
  EXPECT_EQ(std::tuple(true, false, true, 28, 0),
            std::tuple(IsLeapYear(2000), IsLeapYear(1900), IsLeapYear(2024), DaysInAMonth(1900, 2), DaysInAMonth(2023, 13)));
}

TEST(DateTime, TimesDecodeToTheNearestMillisecond) {
  const std::pair<TDateTime, std::array<int, 7>> rows[] = {
      {EncodeDate(2020, 12, 31) + 0.9999999999, {2021, 1, 1, 0, 0, 0, 0}},  // rounds up into the next day
      {0.5 + 0.6 / MSecsPerDay, {1899, 12, 30, 12, 0, 0, 1}},
      {-1.25, {1899, 12, 29, 6, 0, 0, 0}},  // before 1899-12-30 the fraction is still the time
  };
  for (const auto& [value, parts] : rows) {
    const TDateTimeParts p = DecodeDateTime(value);
    EXPECT_EQ(parts, (std::array{p.Year, p.Month, p.Day, p.Hour, p.Minute, p.Second, p.MilliSecond})) << value;
  }
  EXPECT_EQ(std::tuple(-1.25, 0.75), std::tuple(EncodeDateTime(1899, 12, 29, 6, 0, 0, 0), EncodeTime(18, 0, 0, 0)));
  for (const auto& d : {std::array{2023, 2, 29}, {2023, 13, 1}, {2023, 0, 1}, {0, 1, 1}, {10000, 1, 1}}) {
    EXPECT_EQ("Invalid argument to date encode", MessageOf<EConvertError>([&] { EncodeDate(d[0], d[1], d[2]); }));
  }
  EXPECT_EQ("Invalid argument to time encode", MessageOf<EConvertError>([] { EncodeTime(24, 0, 0, 0); }));
  EXPECT_EQ("Invalid argument to time encode", MessageOf<EConvertError>([] { EncodeTime(0, 0, 0, 1000); }));
}

TEST(DateTime, IsoAndUnix) {
  const char* const rows[][2] = {
      // text, DateTimeToISO of what it reads ("" when it does not read)
      {"1899-12-29T06:00:00.006", "1899-12-29T06:00:00.006"}, {"2020-01-02 10:30", "2020-01-02T10:30:00"},
      {"2020-01-02T10:30:01.5", "2020-01-02T10:30:01.500"}, {"2020-02-30", ""}, {"2020-01-02T10", ""}, {"2020-1-2", ""},
      {"2020-01-02T24:00:00", ""}, {"2020-01-02T10:30:01.1234", ""}, {" 2020-01-02", ""},
  };
  for (const auto& row : rows) {
    TDateTime value = 0;
    EXPECT_EQ(row[1], TryISOToDateTime(row[0], value) ? DateTimeToISO(value) : "") << row[0];
  }
  EXPECT_EQ(std::tuple(25569.5, 25568.0, 1609455600),
            std::tuple(UnixToDateTime(0, 43200), UnixToDateTime(-86400), DateTimeToUnix(EncodeDate(2021, 1, 1), 3600)));
}

// The moments of the rows: a Sunday afternoon, a Saturday midnight, a Friday morning, a noon.
const TDateTime kAfternoon = EncodeDateTime(2026, 11, 15, 14, 5, 9, 7), kMidnight = EncodeDate(2001, 2, 3);
const TDateTime kMorning = EncodeDateTime(1999, 12, 31, 9, 4, 3, 250), kNoon = EncodeDateTime(2026, 11, 15, 12, 30, 0, 0);

using Row = std::tuple<const char*, TDateTime, const char*>;  // format, moment, text

TEST(FormatDateTime, ClassicSettings) {
  const Row rows[] = {
      {"ddmmyyyy", kAfternoon, "15112026"}, {"d/m/yy", kMidnight, "3/2/01"}, {"ddd dddd", kAfternoon, "Sun Sunday"},
      {"ddddd", kAfternoon, "11/15/2026"}, {"dddddd", kAfternoon, "Sunday, November 15, 2026"},
      {"m mm mmm mmmm", kMidnight, "2 02 Feb February"}, {"mmmmm", kMorning, "December"},
      {"yy yyyy yyy y", kMorning, "99 1999 1999 99"}, {"h hh n nn s ss", kMorning, "9 09 4 04 3 03"},
      {"z zzz", kAfternoon, "7 007"},
      // "m" right after an hour is the minute, literals and separators between.
      {"h:m", kAfternoon, "14:5"}, {"hh:mm:ss", kAfternoon, "14:05:09"}, {"hh'h'mm", kAfternoon, "14h05"},
      {"hhmmmm", kAfternoon, "1405"}, {"hh:mm mm", kAfternoon, "14:05 11"}, {"hh d mm", kAfternoon, "14 15 11"},
      {"t", kAfternoon, "2:05 PM"}, {"tt", kAfternoon, "2:05:09 PM"}, {"c", kAfternoon, "11/15/2026 2:05:09 PM"},
      {"c", kMidnight, "2/3/2001"}, {"c", kMidnight + 0.5 / 86400, "2/3/2001 12:00:00 AM"}, {"", kMidnight, "2/3/2001"},
      // am/pm and a/p keep the pattern's own case; ampm gives the strings.
      {"h:nn am/pm", kAfternoon, "2:05 pm"}, {"h:nn AM/PM", kMorning, "9:04 AM"}, {"h:nn Am/pM", kAfternoon, "2:05 pM"},
      {"h a/p", kAfternoon, "2 p"}, {"hh ampm", kNoon, "12 PM"}, {"h:nn ampm", kMidnight + 7.0 / 1440, "12:07 AM"},
      {"AMPM hh", kMorning, "AM 09"}, {"am/pm h", kAfternoon, "pm 2"}, {"h 'am/pm'", kAfternoon, "14 am/pm"},
      // Only the first "a" after the hour is looked at, and the next hour stops the search.
      {"h x am/pm", kAfternoon, "2 x pm"}, {"h ax am/pm", kAfternoon, "14 ax pm"}, {"hh h", kAfternoon, "14 14"},
      {"'dd' \"mm\" dd", kAfternoon, "dd mm 15"}, {"\"it's\" d", kAfternoon, "it's 15"}, {"dd 'yyyy", kAfternoon, "15 yyyy"},
      {"x q, a", kAfternoon, "x q, a"}, {"dd\xC2\xB7mm", kAfternoon, "15\xC2\xB7" "11"},
  };
  for (const auto& [format, when, text] : rows) EXPECT_EQ(text, FormatDateTime(format, when, ClassicFormatSettings())) << format;
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
  s.TimeAMString = "vorm.";
  s.TimePMString = "nachm.";
  return s;
}

TEST(FormatDateTime, SeparatorsAndFormatsComeFromTheSettings) {
  const Row rows[] = {
      {"dd/mm/yyyy hh:nn", kAfternoon, "15.11.2026 14-05"}, {"c", kAfternoon, "15.11.2026 14-05-09"},
      {"dddddd", kAfternoon, "Sonntag, 15. November 2026"}, {"ddd t", kAfternoon, "So 14-05"},
      {"'/' \":\"", kAfternoon, "/ :"},
  };
  for (const auto& [format, when, text] : rows) EXPECT_EQ(text, FormatDateTime(format, when, GermanSettings())) << format;
  TFormatSettings s = ClassicFormatSettings();
  s.ShortDateFormat = "ddddd dd";
  s.LongTimeFormat = "tt";
  EXPECT_EQ(" 15 ", FormatDateTime("c", kAfternoon, s));  // a format that names itself expands once only
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
      {"2/3/2001 PM 1:02", "2001-02-03T13:02:00"}, {"2/3/2001 7am", "2001-02-03T07:00:00"},
      {"2/3/0026", "0026-02-03T00:00:00"},  // four digits: no century added
      {"", "refused"}, {"2/3", "refused"}, {"2/3/2001/4", "refused"}, {"2/30/2001", "refused"}, {"2-3-2001", "refused"},
      {"2/3/2001 13:00 PM", "refused"}, {"2/3/2001 24:00", "refused"}, {"2/3/2001 1:02:03:04", "refused"},
      {"2/3/2001 1:02 x", "refused"}, {"2001-02-03T04:05:06", "refused"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(expected, Parsed(text, ClassicFormatSettings())) << text;
}

// Two-digit years: within the 100 years that start 50 years ago; with no
// window, in this century. (The rows hold from 2000 until 2076.) What "c"
// writes is read back.
TEST(TryStrToDateTime, OrderSeparatorsAmPmAndCenturyComeFromTheSettings) {
  const TFormatSettings german = GermanSettings();
  TFormatSettings year_first = german;
  year_first.ShortDateFormat = "yyyy/mm/dd";
  year_first.LongTimeFormat = "hh:nn:ss ampm";
  year_first.DateSeparator = year_first.TimeSeparator = '-';
  for (const TFormatSettings& settings : {ClassicFormatSettings(), german, year_first}) {
    EXPECT_EQ(DateTimeToISO(kNoon), Parsed(FormatDateTime("c", kNoon, settings), settings));
  }
  EXPECT_EQ("2026-11-15T14:05:09", Parsed("15.11.2026 14-05-09", german));
  EXPECT_EQ("refused", Parsed("11/15/2026 14:05:09", german));
  EXPECT_EQ("2026-11-15T14:05:09", Parsed("2026-11-15 02-05-09 NACHM.", year_first));
  EXPECT_EQ("2026-11-15T02:05:00", Parsed("2026-11-15 vorm. 2-05", year_first));
  EXPECT_EQ("refused", Parsed("15-11-2026", year_first));
  TFormatSettings s = ClassicFormatSettings();
  EXPECT_EQ("2026-02-03T00:00:00", Parsed("2/3/26", s));
  s.TwoDigitYearCenturyWindow = 0;
  EXPECT_EQ("2099-02-03T00:00:00", Parsed("2/3/99", s));
}

}  // namespace
}  // namespace jx
