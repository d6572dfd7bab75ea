// The user's date and time conventions, as the system's locale gives them,
// turned into the format settings of FormatDateTime.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "rtl/formatdatetime.h"

namespace jx {

// What the locale says, texts in UTF-8, formats in the C library's strftime
// notation ("%d.%m.%Y", "%H:%M:%S", "%I:%M:%S %p").
struct TLocaleTimeInfo {
  std::string DateFormat;
  std::string TimeFormat;
  std::string TimeAmPmFormat;  // what "%r" stands for
  std::string AmString, PmString;
  std::array<std::string, 12> MonthNames, ShortMonthNames;  // January first
  std::array<std::string, 7> DayNames, ShortDayNames;        // Sunday first
};

// The FormatDateTime pattern of a strftime format: "%d.%m.%Y" with date
// separator '.' gives "dd/mm/yyyy". `separator` becomes `separator_token`
// ('/' or ':'); other literal text that the pattern would read is quoted.
std::string StrftimeToPattern(std::string_view format, const TLocaleTimeInfo& info, char separator,
                              char separator_token);

// Settings from a locale: short date from its date format, long time from its
// time format, short time the same without seconds, separators from the first
// punctuation of each format, its names and am/pm strings. The locale has
// no long date format, so the classic "dddd, mmmm d, yyyy" stays, with the
// locale's names.
TFormatSettings FormatSettingsFromLocale(const TLocaleTimeInfo& info);

// The user's settings, read once: from the locale, or the classic settings
// when the locale is "C"/"POSIX" or unreadable.
const TFormatSettings& LocaleFormatSettings();

}  // namespace jx
