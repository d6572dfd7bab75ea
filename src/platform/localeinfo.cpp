#include "platform/localeinfo.h"

#include <cstddef>
#include <utility>

#include "platform/backend.h"

namespace jx {

namespace {

// Composite conversions ("%T", "%x", "%r") are replaced by what they stand
// for before a format is read; two levels deep, as "%X" gives "%r" in some
// locales, and no deeper, as a locale format may name itself.
constexpr int kMaxCompositeDepth = 2;

std::string Flatten(std::string_view format, const TLocaleTimeInfo& info, int depth = 0);

std::string CompositeConversion(char conversion, const TLocaleTimeInfo& info, int depth) {
  switch (conversion) {
    case 'D': return "%m/%d/%y";
    case 'F': return "%Y-%m-%d";
    case 'T': return "%H:%M:%S";
    case 'R': return "%H:%M";
    case 'r': return info.TimeAmPmFormat.empty() ? "%I:%M:%S %p" : Flatten(info.TimeAmPmFormat, info, depth + 1);
    case 'x': return Flatten(info.DateFormat, info, depth + 1);
    case 'X': return Flatten(info.TimeFormat, info, depth + 1);
    default: return "";
  }
}

bool IsComposite(char conversion) { return std::string_view("DFTRrxX").find(conversion) != std::string_view::npos; }

// One conversion: "%", flags, width, an E or O modifier, the conversion letter.
struct Conversion {
  size_t Length = 0;  // of the whole conversion text
  char Letter = 0;
  bool NoPadding = false;  // the "-" flag
};

Conversion ReadConversion(std::string_view format, size_t pos) {
  Conversion c;
  size_t i = pos + 1;
  while (i < format.size() && std::string_view("_-0^#").find(format[i]) != std::string_view::npos) {
    if (format[i] == '-') c.NoPadding = true;
    ++i;
  }
  while (i < format.size() && format[i] >= '0' && format[i] <= '9') ++i;
  if (i < format.size() && (format[i] == 'E' || format[i] == 'O')) ++i;
  c.Letter = i < format.size() ? format[i] : 0;
  c.Length = (i < format.size() ? i + 1 : i) - pos;
  return c;
}

std::string Flatten(std::string_view format, const TLocaleTimeInfo& info, int depth) {
  std::string flat;
  for (size_t pos = 0; pos < format.size();) {
    if (format[pos] != '%') {
      flat += format[pos++];
      continue;
    }
    const Conversion c = ReadConversion(format, pos);
    if (IsComposite(c.Letter) && depth < kMaxCompositeDepth) {
      flat += CompositeConversion(c.Letter, info, depth);
    } else {
      flat.append(format.substr(pos, c.Length));
    }
    pos += c.Length;
  }
  return flat;
}

// The pattern of one conversion; "" for those the pattern language lacks.
std::string ConversionPattern(const Conversion& c) {
  switch (c.Letter) {
    case 'd': return c.NoPadding ? "d" : "dd";
    case 'e': return "d";
    case 'm': return c.NoPadding ? "m" : "mm";
    case 'y': return "yy";
    case 'Y': return "yyyy";
    case 'H':
    case 'I': return c.NoPadding ? "h" : "hh";
    case 'k':
    case 'l': return "h";
    case 'M': return c.NoPadding ? "n" : "nn";
    case 'S': return c.NoPadding ? "s" : "ss";
    case 'p':
    case 'P': return "AMPM";
    case 'b':
    case 'h': return "mmm";
    case 'B': return "mmmm";
    case 'a': return "ddd";
    case 'A': return "dddd";
    case 'n': return "\n";
    case 't': return "\t";
    case '%': return "%";
    default: return "";
  }
}

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// Literal text as the pattern language reads it back unchanged.
std::string LiteralPattern(const std::string& text) {
  bool needs_quotes = false;
  for (char c : text) {
    if (IsAsciiLetter(c) || c == '/' || c == ':' || c == '\'' || c == '"') needs_quotes = true;
  }
  if (!needs_quotes) return text;
  const char quote = text.find('"') == std::string::npos ? '"' : '\'';
  return quote + text + quote;
}

// The first literal character of a flat format when it is ASCII punctuation
// ('.', '/', '-', ':'), else 0.
char FirstSeparator(std::string_view flat) {
  for (size_t pos = 0; pos < flat.size();) {
    if (flat[pos] == '%') {
      pos += ReadConversion(flat, pos).Length;
      continue;
    }
    const unsigned char c = static_cast<unsigned char>(flat[pos]);
    const bool punctuation = c > ' ' && c < 0x7F && !IsAsciiLetter(flat[pos]) && !(c >= '0' && c <= '9');
    return punctuation ? flat[pos] : 0;
  }
  return 0;
}

// The time format without its seconds and the separator before them.
std::string WithoutSeconds(std::string flat, char separator) {
  const size_t pos = flat.find("%S");
  if (pos == std::string::npos) return flat;
  const bool separator_before = pos > 0 && flat[pos - 1] == separator;
  flat.erase(separator_before ? pos - 1 : pos, separator_before ? 3 : 2);
  return flat;
}

// A locale format that gives no pattern leaves the classic one in place.
void KeepIfNotEmpty(std::string& setting, std::string pattern) {
  if (!pattern.empty()) setting = std::move(pattern);
}

template <size_t N>
void CopyNames(std::array<std::string, N>& to, const std::array<std::string, N>& from) {
  for (size_t i = 0; i < N; ++i) {
    if (!from[i].empty()) to[i] = from[i];
  }
}

TFormatSettings ReadLocaleSettings() {
  TLocaleTimeInfo info;
  return backend::ReadLocaleTimeInfo(info) ? FormatSettingsFromLocale(info) : ClassicFormatSettings();
}

}  // namespace

std::string StrftimeToPattern(std::string_view format, const TLocaleTimeInfo& info, char separator,
                              char separator_token) {
  const std::string flat = Flatten(format, info);
  std::string pattern, literal;
  auto flush = [&] {
    pattern += LiteralPattern(literal);
    literal.clear();
  };
  for (size_t pos = 0; pos < flat.size();) {
    if (flat[pos] == '%') {
      const Conversion c = ReadConversion(flat, pos);
      flush();
      pattern += ConversionPattern(c);
      pos += c.Length;
    } else if (flat[pos] == separator) {
      flush();
      pattern += separator_token;
      ++pos;
    } else {
      literal += flat[pos++];
    }
  }
  flush();
  return pattern;
}

TFormatSettings FormatSettingsFromLocale(const TLocaleTimeInfo& info) {
  TFormatSettings s = ClassicFormatSettings();
  const std::string date = Flatten(info.DateFormat, info);
  const std::string time = Flatten(info.TimeFormat, info);
  if (char separator = FirstSeparator(date)) s.DateSeparator = separator;
  if (char separator = FirstSeparator(time)) s.TimeSeparator = separator;
  KeepIfNotEmpty(s.ShortDateFormat, StrftimeToPattern(date, info, s.DateSeparator, '/'));
  KeepIfNotEmpty(s.LongTimeFormat, StrftimeToPattern(time, info, s.TimeSeparator, ':'));
  KeepIfNotEmpty(s.ShortTimeFormat, StrftimeToPattern(WithoutSeconds(time, s.TimeSeparator), info, s.TimeSeparator, ':'));
  s.TimeAMString = info.AmString;
  s.TimePMString = info.PmString;
  CopyNames(s.LongMonthNames, info.MonthNames);
  CopyNames(s.ShortMonthNames, info.ShortMonthNames);
  CopyNames(s.LongDayNames, info.DayNames);
  CopyNames(s.ShortDayNames, info.ShortDayNames);
  return s;
}

const TFormatSettings& LocaleFormatSettings() {
  static const TFormatSettings settings = ReadLocaleSettings();
  return settings;
}

}  // namespace jx
