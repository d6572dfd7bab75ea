// TDateTime: days since 1899-12-30 with the time of day as the fraction,
// in local time, as the classic runtime keeps dates.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace jx {

using TDateTime = double;

inline constexpr double MSecsPerDay = 86400000.0;

bool IsLeapYear(int year);
int DaysInAMonth(int year, int month);

bool TryEncodeDate(int year, int month, int day, TDateTime& result);
bool TryEncodeTime(int hour, int min, int sec, int msec, TDateTime& result);
TDateTime EncodeDate(int year, int month, int day);        // throws EConvertError "Invalid argument to date encode"
TDateTime EncodeTime(int hour, int min, int sec, int msec);  // throws EConvertError "Invalid argument to time encode"
TDateTime EncodeDateTime(int year, int month, int day, int hour, int min, int sec, int msec);
// A date plus a time of day; before 1899-12-30 the time counts away from zero.
TDateTime CombineDateTime(TDateTime date, TDateTime time);

struct TDateTimeParts {
  int Year = 0, Month = 0, Day = 0, Hour = 0, Minute = 0, Second = 0, MilliSecond = 0;
};
// Splits a date-time, rounding to the nearest millisecond.
TDateTimeParts DecodeDateTime(TDateTime value);
void DecodeDate(TDateTime value, int& year, int& month, int& day);
void DecodeTime(TDateTime value, int& hour, int& min, int& sec, int& msec);
int DayOfWeek(TDateTime value);  // 1 = Sunday ... 7 = Saturday

// The date and time of a point in seconds since 1970-01-01 00:00 UTC, given
// the local offset in seconds east of UTC; and back.
TDateTime UnixToDateTime(int64_t unix_seconds, int64_t utc_offset_seconds = 0);
int64_t DateTimeToUnix(TDateTime value, int64_t utc_offset_seconds = 0);  // to the nearest second

// ISO 8601 text "2020-01-02T03:04:05" (milliseconds ".zzz" only when not 0).
std::string DateTimeToISO(TDateTime value);
// The runtime's fixed short forms: "2020-01-02", "03:04:05", and both joined by
// a blank (the time left out at midnight, as the classic DateTimeToStr does).
std::string DateToStr(TDateTime value);
std::string TimeToStr(TDateTime value);
std::string DateTimeToStr(TDateTime value);

// Accepts "YYYY-MM-DD", "YYYY-MM-DDTHH:MM", "YYYY-MM-DDTHH:MM:SS[.zzz]", also with ' ' for 'T'.
bool TryISOToDateTime(std::string_view text, TDateTime& value);

}  // namespace jx
