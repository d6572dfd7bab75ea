#include "rtl/formatdatetime.h"

#include <chrono>
#include <cstddef>
#include <utility>

#include "rtl/strutils.h"

namespace jx {

namespace {

// The formats that ddddd, dddddd, c, t and tt insert are expanded one level
// deep only: a token inside them that names a format again gives nothing, so
// a locale format that names itself cannot recurse.
constexpr int kMaxNesting = 1;

char Upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }
bool IsLetter(char c) { return Upper(c) >= 'A' && Upper(c) <= 'Z'; }

bool StartsWithText(std::string_view s, size_t pos, std::string_view word) {
  return s.size() - pos >= word.size() && SameText(s.substr(pos, word.size()), word);
}

// Length of the run of the character at `pos` (the same character, same case).
size_t RunLength(std::string_view s, size_t pos) {
  size_t end = pos;
  while (end < s.size() && s[end] == s[pos]) ++end;
  return end - pos;
}

std::string Number(int value, size_t min_digits) {
  std::string digits = IntToStr(value);
  if (digits.size() < min_digits) digits.insert(0, min_digits - digits.size(), '0');
  return digits;
}

class Formatter {
 public:
  Formatter(TDateTime value, const TFormatSettings& settings)
      : value_(value), settings_(settings), parts_(DecodeDateTime(value)) {}

  void Append(std::string_view format, int level);
  std::string Result;

 private:
  size_t AppendToken(std::string_view format, size_t pos, char& last_token, int level);
  size_t AppendQuoted(std::string_view format, size_t pos);
  size_t AppendAmPm(std::string_view format, size_t pos);
  void AppendNested(std::string_view format, int level);
  void AppendDay(size_t count, int level);
  void AppendMonth(size_t count);
  void AppendHour(std::string_view format, size_t after, size_t count);
  bool AmPmFollows(std::string_view format, size_t pos) const;
  bool TimeIsZero() const;

  TDateTime value_;
  const TFormatSettings& settings_;
  TDateTimeParts parts_;
  bool twelve_hour_ = false;
};

void Formatter::Append(std::string_view format, int level) {
  char last_token = ' ';
  size_t pos = 0;
  while (pos < format.size()) {
    const char c = format[pos];
    if (c == '\'' || c == '"') {
      pos = AppendQuoted(format, pos);
    } else if (c == '/') {
      Result += settings_.DateSeparator;
      ++pos;
    } else if (c == ':') {
      Result += settings_.TimeSeparator;
      ++pos;
    } else if (IsLetter(c)) {
      pos = AppendToken(format, pos, last_token, level);
    } else {
      Result += c;
      ++pos;
    }
  }
}

// One letter token starting at `pos`; returns the position after it. An "m"
// right after an hour means minutes, whatever lies between that is no letter.
size_t Formatter::AppendToken(std::string_view format, size_t pos, char& last_token, int level) {
  char token = Upper(format[pos]);
  if (token == 'M' && last_token == 'H') token = 'N';
  last_token = token;
  if (token == 'A') return AppendAmPm(format, pos);

  const size_t count = RunLength(format, pos);
  const size_t next = pos + count;
  switch (token) {
    case 'Y': Result += count <= 2 ? Number(parts_.Year % 100, 2) : Number(parts_.Year, 4); break;
    case 'M': AppendMonth(count); break;
    case 'D': AppendDay(count, level); break;
    case 'H': AppendHour(format, next, count); break;
    case 'N': Result += Number(parts_.Minute, count > 2 ? 2 : count); break;
    case 'S': Result += Number(parts_.Second, count > 2 ? 2 : count); break;
    case 'Z': Result += Number(parts_.MilliSecond, count > 3 ? 3 : count); break;
    case 'T': AppendNested(count == 1 ? settings_.ShortTimeFormat : settings_.LongTimeFormat, level); break;
    case 'C':
      AppendNested(settings_.ShortDateFormat, level);
      if (!TimeIsZero()) {
        Result += ' ';
        AppendNested(settings_.LongTimeFormat, level);
      }
      break;
    default: Result.append(format.substr(pos, count)); break;  // no token: the letters themselves
  }
  return next;
}

// Text up to the matching quote, copied without the quotes; an unmatched
// quote runs to the end of the format.
size_t Formatter::AppendQuoted(std::string_view format, size_t pos) {
  const size_t close = format.find(format[pos], pos + 1);
  const size_t end = close == std::string_view::npos ? format.size() : close;
  Result.append(format.substr(pos + 1, end - pos - 1));
  return close == std::string_view::npos ? end : close + 1;
}

// "am/pm" and "a/p" copy the pattern's own letters for the hour, so their case
// is the pattern's; "ampm" gives the locale's strings. Any of them switches
// the hours to the 12-hour clock. A lone "a" is copied.
size_t Formatter::AppendAmPm(std::string_view format, size_t pos) {
  const bool pm = parts_.Hour >= 12;
  if (StartsWithText(format, pos, "am/pm")) {
    Result.append(format.substr(pm ? pos + 3 : pos, 2));
    twelve_hour_ = true;
    return pos + 5;
  }
  if (StartsWithText(format, pos, "a/p")) {
    Result += format[pm ? pos + 2 : pos];
    twelve_hour_ = true;
    return pos + 3;
  }
  if (StartsWithText(format, pos, "ampm")) {
    Result += pm ? settings_.TimePMString : settings_.TimeAMString;
    twelve_hour_ = true;
    return pos + 4;
  }
  Result += format[pos];
  return pos + 1;
}

void Formatter::AppendNested(std::string_view format, int level) {
  if (level < kMaxNesting) Append(format, level + 1);
}

void Formatter::AppendDay(size_t count, int level) {
  const int weekday = DayOfWeek(value_) - 1;
  switch (count) {
    case 1:
    case 2: Result += Number(parts_.Day, count); break;
    case 3: Result += settings_.ShortDayNames[weekday]; break;
    case 4: Result += settings_.LongDayNames[weekday]; break;
    case 5: AppendNested(settings_.ShortDateFormat, level); break;
    default: AppendNested(settings_.LongDateFormat, level); break;
  }
}

void Formatter::AppendMonth(size_t count) {
  if (count <= 2) {
    Result += Number(parts_.Month, count);
  } else {
    Result += (count == 3 ? settings_.ShortMonthNames : settings_.LongMonthNames)[parts_.Month - 1];
  }
}

void Formatter::AppendHour(std::string_view format, size_t after, size_t count) {
  if (AmPmFollows(format, after)) twelve_hour_ = true;
  int hour = parts_.Hour;
  if (twelve_hour_) {
    if (hour == 0) hour = 12;
    if (hour > 12) hour -= 12;
  }
  Result += Number(hour, count > 2 ? 2 : count);
}

// Whether the first "a" after an hour, outside quotes and before the next
// hour, opens an am/pm token.
bool Formatter::AmPmFollows(std::string_view format, size_t pos) const {
  char quote = 0;
  for (; pos < format.size(); ++pos) {
    const char c = format[pos];
    if (quote) {
      if (c == quote) quote = 0;
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (Upper(c) == 'H') {
      return false;
    } else if (Upper(c) == 'A') {
      return StartsWithText(format, pos, "am/pm") || StartsWithText(format, pos, "a/p") ||
             StartsWithText(format, pos, "ampm");
    }
  }
  return false;
}

bool Formatter::TimeIsZero() const {
  return parts_.Hour == 0 && parts_.Minute == 0 && parts_.Second == 0 && parts_.MilliSecond == 0;
}

TFormatSettings MakeClassicSettings() {
  TFormatSettings s;
  s.ShortDateFormat = "m/d/yyyy";
  s.LongDateFormat = "dddd, mmmm d, yyyy";
  s.ShortTimeFormat = "h:mm AMPM";
  s.LongTimeFormat = "h:mm:ss AMPM";
  s.DateSeparator = '/';
  s.TimeSeparator = ':';
  s.TimeAMString = "AM";
  s.TimePMString = "PM";
  s.ShortMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  s.LongMonthNames = {"January", "February", "March",     "April",   "May",      "June",
                      "July",    "August",   "September", "October", "November", "December"};
  s.ShortDayNames = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  s.LongDayNames = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  return s;
}

enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

// The first of d, m and y in the short date format decides the order.
DateOrder DateOrderOf(std::string_view short_date_format) {
  for (char c : short_date_format) {
    switch (Upper(c)) {
      case 'D': return DateOrder::DayMonthYear;
      case 'Y': return DateOrder::YearMonthDay;
      case 'M': return DateOrder::MonthDayYear;
    }
  }
  return DateOrder::MonthDayYear;
}

// The year in UTC: around New Year it can be one off for some hours, which
// only moves the edge of the two-digit window.
int CurrentYear() {
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  return static_cast<int>(std::chrono::year_month_day(today).year());
}

// A two-digit year as one of the 100 years from `window` years ago on; the
// current century when `window` is 0.
int FullYear(int two_digit_year, int window) {
  const int first = CurrentYear() - window;
  const int year = first / 100 * 100 + two_digit_year;
  return window > 0 && year < first ? year + 100 : year;
}

// Reads a date-time written with the settings, left to right.
class DateTimeScanner {
 public:
  DateTimeScanner(std::string_view text, const TFormatSettings& settings) : text_(text), settings_(settings) {}

  bool Scan(TDateTime& value) {
    TDateTime date = 0, time = 0;
    if (!ScanDate(date)) return false;
    if (!AtEnd() && !ScanTime(time)) return false;
    if (!AtEnd()) return false;
    value = CombineDateTime(date, time);
    return true;
  }

 private:
  static constexpr size_t kMaxDigits = 9;  // keeps every number within an int

  bool ScanDate(TDateTime& date) {
    int n[3] = {0, 0, 0};
    size_t digits[3] = {0, 0, 0};
    for (size_t i = 0; i < 3; ++i) {
      if (i > 0 && !ScanChar(settings_.DateSeparator)) return false;
      digits[i] = ScanNumber(n[i]);
      if (digits[i] == 0) return false;
    }
    int year = n[2], month = n[0], day = n[1];
    size_t year_digits = digits[2];
    switch (DateOrderOf(settings_.ShortDateFormat)) {
      case DateOrder::MonthDayYear: break;
      case DateOrder::DayMonthYear: std::swap(month, day); break;
      case DateOrder::YearMonthDay:
        year = n[0];
        month = n[1];
        day = n[2];
        year_digits = digits[0];
        break;
    }
    if (year_digits <= 2) year = FullYear(year, settings_.TwoDigitYearCenturyWindow);
    return TryEncodeDate(year, month, day, date);
  }

  bool ScanTime(TDateTime& time) {
    int am_pm = ScanAmPm();
    int hour = 0, minute = 0, second = 0;
    if (ScanNumber(hour) == 0) return false;
    if (ScanChar(settings_.TimeSeparator)) {
      if (ScanNumber(minute) == 0) return false;
      if (ScanChar(settings_.TimeSeparator) && ScanNumber(second) == 0) return false;
    }
    if (am_pm == 0) am_pm = ScanAmPm();
    if (am_pm != 0) {
      if (hour > 12) return false;
      hour = hour % 12 + (am_pm > 0 ? 12 : 0);
    }
    return TryEncodeTime(hour, minute, second, 0, time);
  }

  // -1 for an AM string, 1 for a PM string, 0 for neither.
  int ScanAmPm() {
    SkipBlanks();
    for (std::string_view am : {std::string_view(settings_.TimeAMString), std::string_view("AM")}) {
      if (ScanWord(am)) return -1;
    }
    for (std::string_view pm : {std::string_view(settings_.TimePMString), std::string_view("PM")}) {
      if (ScanWord(pm)) return 1;
    }
    return 0;
  }

  // The number of digits read; 0 when there is no number or it is too long.
  size_t ScanNumber(int& value) {
    SkipBlanks();
    const size_t start = pos_;
    while (pos_ < text_.size() && text_[pos_] >= '0' && text_[pos_] <= '9') ++pos_;
    const size_t digits = pos_ - start;
    if (digits > kMaxDigits) return 0;
    value = 0;
    for (size_t i = start; i < pos_; ++i) value = value * 10 + (text_[i] - '0');
    return digits;
  }

  bool ScanChar(char c) {
    SkipBlanks();
    if (pos_ == text_.size() || text_[pos_] != c) return false;
    ++pos_;
    return true;
  }

  bool ScanWord(std::string_view word) {
    if (word.empty() || !StartsWithText(text_, pos_, word)) return false;
    pos_ += word.size();
    return true;
  }

  void SkipBlanks() {
    while (pos_ < text_.size() && text_[pos_] == ' ') ++pos_;
  }

  bool AtEnd() {
    SkipBlanks();
    return pos_ == text_.size();
  }

  std::string_view text_;
  const TFormatSettings& settings_;
  size_t pos_ = 0;
};

}  // namespace

const TFormatSettings& ClassicFormatSettings() {
  static const TFormatSettings settings = MakeClassicSettings();
  return settings;
}

std::string FormatDateTime(std::string_view format, TDateTime value, const TFormatSettings& settings) {
  Formatter formatter(value, settings);
  formatter.Append(format.empty() ? std::string_view("c") : format, 0);
  return std::move(formatter.Result);
}

bool TryStrToDateTime(std::string_view text, TDateTime& value, const TFormatSettings& settings) {
  return DateTimeScanner(text, settings).Scan(value);
}

}  // namespace jx
