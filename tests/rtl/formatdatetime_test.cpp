#include "rtl/formatdatetime.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

// A moment by its parts; encoded when a test runs, not at static initialisation.
struct Moment {
  int Year, Month, Day, Hour, Minute, Second, MilliSecond;
  TDateTime Value() const { return EncodeDateTime(Year, Month, Day, Hour, Minute, Second, MilliSecond); }
};

constexpr Moment kAfternoon{2026, 11, 15, 14, 5, 9, 7};  // a Sunday
constexpr Moment kMidnight{2001, 2, 3, 0, 0, 0, 0};      // a Saturday
constexpr Moment kMorning{1999, 12, 31, 9, 4, 3, 250};   // a Friday
constexpr Moment kNoon{2026, 11, 15, 12, 30, 0, 0};
constexpr Moment kAfterMidnight{2026, 11, 15, 0, 7, 0, 0};
constexpr Moment kHalfSecondPastMidnight{2001, 2, 3, 0, 0, 0, 500};

struct Row {
  const char* Format;
  Moment When;
  const char* Expected;
};

const Row kClassicRows[] = {
    {"ddmmyyyy", kAfternoon, "15112026"},
    {"d/m/yy", kMidnight, "3/2/01"},
    {"dd/mm/yyyy", kMidnight, "03/02/2001"},
    {"ddd dddd", kAfternoon, "Sun Sunday"},
    {"ddddd", kAfternoon, "11/15/2026"},
    {"dddddd", kAfternoon, "Sunday, November 15, 2026"},
    {"m mm mmm mmmm", kMidnight, "2 02 Feb February"},
    {"mmmmm", kMorning, "December"},
    {"yy yyyy yyy y", kMorning, "99 1999 1999 99"},
    {"h hh n nn s ss", kMorning, "9 09 4 04 3 03"},
    {"z zzz", kAfternoon, "7 007"},
    {"z zzz", kMorning, "250 250"},
    // "m" right after an hour is the minute, literals and separators between.
    {"h:m", kAfternoon, "14:5"},
    {"hh:mm:ss", kAfternoon, "14:05:09"},
    {"hh'h'mm", kAfternoon, "14h05"},
    {"hhmmmm", kAfternoon, "1405"},
    {"hh:mm mm", kAfternoon, "14:05 11"},
    {"hh d mm", kAfternoon, "14 15 11"},
    {"t", kAfternoon, "2:05 PM"},
    {"tt", kAfternoon, "2:05:09 PM"},
    {"c", kAfternoon, "11/15/2026 2:05:09 PM"},
    {"c", kMidnight, "2/3/2001"},
    {"c", kHalfSecondPastMidnight, "2/3/2001 12:00:00 AM"},
    {"", kMidnight, "2/3/2001"},
    // am/pm and a/p keep the pattern's own case; ampm gives the strings.
    {"h:nn am/pm", kAfternoon, "2:05 pm"},
    {"h:nn AM/PM", kMorning, "9:04 AM"},
    {"h:nn Am/pM", kAfternoon, "2:05 pM"},
    {"h a/p", kAfternoon, "2 p"},
    {"hh ampm", kNoon, "12 PM"},
    {"h:nn ampm", kAfterMidnight, "12:07 AM"},
    {"AMPM hh", kMorning, "AM 09"},
    {"am/pm h", kAfternoon, "pm 2"},
    {"h 'am/pm'", kAfternoon, "14 am/pm"},
    {"h x am/pm", kAfternoon, "2 x pm"},
    // Only the first "a" after the hour is looked at, and the next hour stops the search.
    {"h ax am/pm", kAfternoon, "14 ax pm"},
    {"hh h", kAfternoon, "14 14"},
    {"'dd' \"mm\" dd", kAfternoon, "dd mm 15"},
    {"\"it's\" d", kAfternoon, "it's 15"},
    {"dd 'yyyy", kAfternoon, "15 yyyy"},
    {"x q, a", kAfternoon, "x q, a"},
    {"dd\xC2\xB7mm", kAfternoon, "15\xC2\xB7" "11"},
};

TEST(FormatDateTime, ClassicSettings) {
  for (const Row& row : kClassicRows) {
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

const Row kLocaleRows[] = {
    {"dd/mm/yyyy hh:nn", kAfternoon, "15.11.2026 14-05"},
    {"c", kAfternoon, "15.11.2026 14-05-09"},
    {"dddddd", kAfternoon, "Sonntag, 15. November 2026"},
    {"ddd t", kAfternoon, "So 14-05"},
    {"'/' \":\"", kAfternoon, "/ :"},
};

TEST(FormatDateTime, SeparatorsAndFormatsComeFromTheSettings) {
  const TFormatSettings german = GermanSettings();
  for (const Row& row : kLocaleRows) {
    EXPECT_EQ(row.Expected, FormatDateTime(row.Format, row.When.Value(), german)) << row.Format;
  }
}

TEST(FormatDateTime, AFormatNamingItselfExpandsOnceOnly) {
  TFormatSettings s = ClassicFormatSettings();
  s.ShortDateFormat = "ddddd dd";
  s.LongTimeFormat = "tt";
  EXPECT_EQ(" 15", FormatDateTime("ddddd", kAfternoon.Value(), s));
  EXPECT_EQ(" 15 ", FormatDateTime("c", kAfternoon.Value(), s));
}

// TryStrToDateTime

// The moment `text` gives, or "refused" (the value is then left alone).
std::string Parsed(const std::string& text, const TFormatSettings& settings) {
  TDateTime value = -1.5;
  if (!TryStrToDateTime(text, value, settings)) return value == -1.5 ? "refused" : "refused, but changed";
  return DateTimeToISO(value);
}

struct ParseRow {
  const char* Text;
  const char* Expected;
};

const ParseRow kClassicParseRows[] = {
    {"11/15/2026 2:05:09 PM", "2026-11-15T14:05:09"},
    {"2/3/2001", "2001-02-03T00:00:00"},
    {"  02 / 03 / 2001  ", "2001-02-03T00:00:00"},
    {"2/3/2001 12:00:00 AM", "2001-02-03T00:00:00"},
    {"2/3/2001 12:30 pm", "2001-02-03T12:30:00"},
    {"2/3/2001 PM 1:02", "2001-02-03T13:02:00"},
    {"2/3/2001 14:05", "2001-02-03T14:05:00"},
    {"2/3/2001 7", "2001-02-03T07:00:00"},
    {"2/3/2001 7am", "2001-02-03T07:00:00"},
    {"12/31/1999 23:59:59", "1999-12-31T23:59:59"},
    {"2/3/0026", "0026-02-03T00:00:00"},  // four digits: no century added
    {"1/1/1800 6:00", "1800-01-01T06:00:00"},
    // refused
    {"", "refused"},
    {"2/3", "refused"},
    {"2/3/2001/4", "refused"},
    {"13/1/2001", "refused"},
    {"2/30/2001", "refused"},
    {"2-3-2001", "refused"},
    {"2/3/10000", "refused"},
    {"2/3/2001 13:00 PM", "refused"},
    {"2/3/2001 24:00", "refused"},
    {"2/3/2001 1:60", "refused"},
    {"2/3/2001 1:", "refused"},
    {"2/3/2001 1:02:03:04", "refused"},
    {"2/3/2001 1:02 x", "refused"},
    {"2/3/2001 1234567890", "refused"},
    {"2/3/2001T01:02", "refused"},
    {"2001-02-03T04:05:06", "refused"},
};

TEST(TryStrToDateTime, ClassicSettings) {
  for (const ParseRow& row : kClassicParseRows) {
    EXPECT_EQ(row.Expected, Parsed(row.Text, ClassicFormatSettings())) << row.Text;
  }
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

TEST(TryStrToDateTime, OrderSeparatorsAndAmPmComeFromTheSettings) {
  const TFormatSettings german = GermanSettings(), year_first = YearFirstSettings();
  EXPECT_EQ("2026-11-15T14:05:09", Parsed("15.11.2026 14-05-09", german));
  EXPECT_EQ("refused", Parsed("11/15/2026 14:05:09", german));
  EXPECT_EQ("2026-11-15T14:05:09", Parsed("2026-11-15 02:05:09 NACHM.", year_first));
  EXPECT_EQ("2026-11-15T02:05:00", Parsed("2026-11-15 vorm. 2:05", year_first));
  EXPECT_EQ("2026-11-15T14:05:00", Parsed("2026-11-15 2:05 PM", year_first));
  EXPECT_EQ("refused", Parsed("15-11-2026", year_first));
}

// Two-digit years: within the 100 years that start 50 years ago; with no
// window, in this century. (The rows hold from 2000 until 2076.)
TEST(TryStrToDateTime, TwoDigitYears) {
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
