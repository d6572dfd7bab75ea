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

}  // namespace
}  // namespace jx
