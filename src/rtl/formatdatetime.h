// FormatDateTime: the classic runtime's date-time pattern language.
//
//   d dd            day of the month, without / with a leading zero
//   ddd dddd        short / long day name
//   ddddd dddddd    the short / long date format
//   m mm            month number; minutes when they follow an hour (h, hh),
//                   only literals and non-letter characters between
//   mmm mmmm        short / long month name
//   yy yyyy         two-digit / four-digit year
//   h hh            hour (12-hour clock when an am/pm token follows the hour)
//   n nn  s ss      minutes, seconds
//   z zzz           milliseconds, without / with leading zeros
//   t tt            the short / long time format
//   c               short date, then " " and the long time unless the time is 0
//   am/pm a/p       the pattern's own letters ("AM"/"pm"/"A"/"p"), by the hour
//   ampm            TimeAMString or TimePMString
//   / :             the date and time separators
//   '...' "..."     literal text
// Letters are matched in either case; any other character is copied.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "rtl/datetime.h"

namespace jx {

struct TFormatSettings {
  std::string ShortDateFormat;
  std::string LongDateFormat;
  std::string ShortTimeFormat;
  std::string LongTimeFormat;
  char DateSeparator = '/';
  char TimeSeparator = ':';
  std::string TimeAMString;
  std::string TimePMString;
  std::array<std::string, 12> ShortMonthNames;  // January first
  std::array<std::string, 12> LongMonthNames;
  std::array<std::string, 7> ShortDayNames;     // Sunday first
  std::array<std::string, 7> LongDayNames;
  // TryStrToDateTime reads a one- or two-digit year as one of the 100 years
  // that start this many years before the current one (0: this century).
  int TwoDigitYearCenturyWindow = 50;
};

// The classic English settings, used where the system gives no locale:
// short date "m/d/yyyy", long date "dddd, mmmm d, yyyy", short time
// "h:mm AMPM", long time "h:mm:ss AMPM", separators '/' and ':', "AM"/"PM",
// English month and day names ("Jan"/"January", "Sun"/"Sunday").
const TFormatSettings& ClassicFormatSettings();

// Formats `value` with `format`; an empty format means "c".
std::string FormatDateTime(std::string_view format, TDateTime value, const TFormatSettings& settings);

// Reads a short date and an optional time, as "c" writes them: three numbers
// separated by DateSeparator in the day, month and year order of the first
// of d, m and y in ShortDateFormat (month first when none); then the hour,
// and minutes and seconds after TimeSeparator, with an AM or PM string (the
// settings' or "AM"/"PM", in any case) after the time or before it. Blanks
// may stand around every part. False, leaving `value` alone, when the whole
// text is not such a date-time.
bool TryStrToDateTime(std::string_view text, TDateTime& value, const TFormatSettings& settings);

}  // namespace jx
