#include "rtl/datetime.h"

#include <cmath>
#include <cstdlib>

#include "rtl/sysutils.h"

namespace jx {
namespace {

constexpr int64_t kMSecsPerDay = 86400000;
constexpr int64_t kDaysFromYearOneToZero = 693593;  // 0001-01-01 .. 1899-12-30
constexpr int64_t kUnixEpoch = 25569;               // 1970-01-01
constexpr int64_t kDaysPer400Years = 146097, kDaysPer100Years = 36524, kDaysPer4Years = 1461;

int64_t FloorDiv(int64_t a, int64_t b) { return a / b - (a % b != 0 && (a < 0) != (b < 0) ? 1 : 0); }

// Day number counted from 0001-01-01 (day 0), proleptic Gregorian.
int64_t DayNumber(int year, int month, int day) {
  const int64_t y = year - 1;
  int64_t days = y * 365 + FloorDiv(y, 4) - FloorDiv(y, 100) + FloorDiv(y, 400) + day - 1;
  for (int m = 1; m < month; ++m) days += DaysInAMonth(year, m);
  return days;
}

void DateOfDayNumber(int64_t n, int& year, int& month, int& day) {
  const int64_t cycles400 = FloorDiv(n, kDaysPer400Years);
  n -= cycles400 * kDaysPer400Years;
  int64_t cycles100 = n / kDaysPer100Years;
  if (cycles100 == 4) cycles100 = 3;  // the 400th year's leap day
  n -= cycles100 * kDaysPer100Years;
  const int64_t cycles4 = n / kDaysPer4Years;
  n -= cycles4 * kDaysPer4Years;
  int64_t years = n / 365;
  if (years == 4) years = 3;  // the leap day closing a 4-year cycle
  n -= years * 365;
  year = static_cast<int>(cycles400 * 400 + cycles100 * 100 + cycles4 * 4 + years + 1);
  month = 1;
  while (n >= DaysInAMonth(year, month)) n -= DaysInAMonth(year, month++);
  day = static_cast<int>(n) + 1;
}

// The classic split of a date-time, rounded to the millisecond: the date is
// the integral part, the time of day the absolute fraction (also before 1899-12-30).
void SplitDateTime(TDateTime value, int64_t& days, int64_t& msec_of_day) {
  const int64_t total = std::llround(value * MSecsPerDay);
  days = total / kMSecsPerDay;
  msec_of_day = std::llabs(total % kMSecsPerDay);
}

std::string ZeroPadded(int value, size_t width) {
  std::string text = std::to_string(value);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

std::string FormatDate(int year, int month, int day) {
  return ZeroPadded(year, 4) + "-" + ZeroPadded(month, 2) + "-" + ZeroPadded(day, 2);
}

std::string FormatTime(int hour, int min, int sec) {
  return ZeroPadded(hour, 2) + ":" + ZeroPadded(min, 2) + ":" + ZeroPadded(sec, 2);
}

// Reads exactly `digits` decimal digits at `pos`.
bool ReadDigits(std::string_view s, size_t& pos, size_t digits, int& value) {
  if (pos + digits > s.size()) return false;
  value = 0;
  for (size_t i = 0; i < digits; ++i) {
    const char c = s[pos + i];
    if (c < '0' || c > '9') return false;
    value = value * 10 + (c - '0');
  }
  pos += digits;
  return true;
}

bool ReadChar(std::string_view s, size_t& pos, char c) {
  if (pos >= s.size() || s[pos] != c) return false;
  ++pos;
  return true;
}

// ".z", ".zz" or ".zzz" as milliseconds.
bool ReadFraction(std::string_view s, size_t& pos, int& msec) {
  const size_t start = pos;
  msec = 0;
  while (pos < s.size() && pos - start < 3 && s[pos] >= '0' && s[pos] <= '9') msec = msec * 10 + (s[pos++] - '0');
  for (size_t n = pos - start; n < 3; ++n) msec *= 10;
  return pos > start;
}

}  // namespace

bool IsLeapYear(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInAMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12) return 0;
  return kDays[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

bool TryEncodeDate(int year, int month, int day, TDateTime& result) {
  if (year < 1 || year > 9999 || day < 1 || day > DaysInAMonth(year, month)) return false;
  result = static_cast<double>(DayNumber(year, month, day) - kDaysFromYearOneToZero);
  return true;
}

bool TryEncodeTime(int hour, int min, int sec, int msec, TDateTime& result) {
  if (hour < 0 || hour > 23 || min < 0 || min > 59 || sec < 0 || sec > 59 || msec < 0 || msec > 999) return false;
  result = ((hour * 60 + min) * 60 + sec) * 1000 + msec;
  result /= MSecsPerDay;
  return true;
}

TDateTime EncodeDate(int year, int month, int day) {
  TDateTime result = 0;
  if (!TryEncodeDate(year, month, day, result)) throw EConvertError("Invalid argument to date encode");
  return result;
}

TDateTime EncodeTime(int hour, int min, int sec, int msec) {
  TDateTime result = 0;
  if (!TryEncodeTime(hour, min, sec, msec, result)) throw EConvertError("Invalid argument to time encode");
  return result;
}

TDateTime CombineDateTime(TDateTime date, TDateTime time) { return date >= 0 ? date + time : date - time; }

TDateTime EncodeDateTime(int year, int month, int day, int hour, int min, int sec, int msec) {
  return CombineDateTime(EncodeDate(year, month, day), EncodeTime(hour, min, sec, msec));
}

TDateTimeParts DecodeDateTime(TDateTime value) {
  TDateTimeParts p;
  DecodeDate(value, p.Year, p.Month, p.Day);
  DecodeTime(value, p.Hour, p.Minute, p.Second, p.MilliSecond);
  return p;
}

void DecodeDate(TDateTime value, int& year, int& month, int& day) {
  int64_t days = 0, msec = 0;
  SplitDateTime(value, days, msec);
  DateOfDayNumber(days + kDaysFromYearOneToZero, year, month, day);
}

void DecodeTime(TDateTime value, int& hour, int& min, int& sec, int& msec) {
  int64_t days = 0, ms = 0;
  SplitDateTime(value, days, ms);
  msec = static_cast<int>(ms % 1000);
  sec = static_cast<int>(ms / 1000 % 60);
  min = static_cast<int>(ms / 60000 % 60);
  hour = static_cast<int>(ms / 3600000);
}

int DayOfWeek(TDateTime value) {
  int64_t days = 0, msec = 0;
  SplitDateTime(value, days, msec);
  // 0001-01-01 was a Monday.
  return static_cast<int>((days + kDaysFromYearOneToZero + 1) % 7 + 1);
}

TDateTime UnixToDateTime(int64_t unix_seconds, int64_t utc_offset_seconds) {
  return kUnixEpoch + static_cast<double>(unix_seconds + utc_offset_seconds) / 86400.0;
}

int64_t DateTimeToUnix(TDateTime value, int64_t utc_offset_seconds) {
  return std::llround((value - kUnixEpoch) * 86400.0) - utc_offset_seconds;
}

std::string DateToStr(TDateTime value) {
  int year = 0, month = 0, day = 0;
  DecodeDate(value, year, month, day);
  return FormatDate(year, month, day);
}

std::string TimeToStr(TDateTime value) {
  int hour = 0, min = 0, sec = 0, msec = 0;
  DecodeTime(value, hour, min, sec, msec);
  return FormatTime(hour, min, sec);
}

std::string DateTimeToStr(TDateTime value) {
  int64_t days = 0, msec = 0;
  SplitDateTime(value, days, msec);
  return msec == 0 ? DateToStr(value) : DateToStr(value) + " " + TimeToStr(value);
}

std::string DateTimeToISO(TDateTime value) {
  const TDateTimeParts p = DecodeDateTime(value);
  std::string text = FormatDate(p.Year, p.Month, p.Day) + "T" + FormatTime(p.Hour, p.Minute, p.Second);
  if (p.MilliSecond != 0) text.append(".").append(ZeroPadded(p.MilliSecond, 3));
  return text;
}

bool TryISOToDateTime(std::string_view text, TDateTime& value) {
  size_t pos = 0;
  int year = 0, month = 0, day = 0, hour = 0, min = 0, sec = 0, msec = 0;
  if (!ReadDigits(text, pos, 4, year) || !ReadChar(text, pos, '-') || !ReadDigits(text, pos, 2, month) ||
      !ReadChar(text, pos, '-') || !ReadDigits(text, pos, 2, day)) {
    return false;
  }
  if (pos < text.size()) {
    if (!ReadChar(text, pos, 'T') && !ReadChar(text, pos, ' ')) return false;
    if (!ReadDigits(text, pos, 2, hour) || !ReadChar(text, pos, ':') || !ReadDigits(text, pos, 2, min)) return false;
    if (ReadChar(text, pos, ':')) {
      if (!ReadDigits(text, pos, 2, sec)) return false;
      if (ReadChar(text, pos, '.') && !ReadFraction(text, pos, msec)) return false;
    }
  }
  TDateTime date = 0, time = 0;
  if (pos != text.size() || !TryEncodeDate(year, month, day, date) || !TryEncodeTime(hour, min, sec, msec, time)) {
    return false;
  }
  value = CombineDateTime(date, time);
  return true;
}

}  // namespace jx
