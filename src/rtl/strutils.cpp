#include "rtl/strutils.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "rtl/sysutils.h"
#include "rtl/unicodecase.h"

namespace jx {
namespace {

bool IsBlankOrControl(char c) { return static_cast<unsigned char>(c) <= ' '; }

char AsciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

int HexDigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// An integer text split into sign, base and magnitude. False on bad syntax or
// when the digits do not fit 64 bits.
struct IntText {
  bool negative = false;
  bool hex = false;
  uint64_t magnitude = 0;
};

bool ParseIntText(std::string_view s, IntText& out) {
  if (!s.empty() && (s[0] == '+' || s[0] == '-')) {
    out.negative = s[0] == '-';
    s.remove_prefix(1);
  }
  if (!s.empty() && s[0] == '$') {
    out.hex = true;
    s.remove_prefix(1);
  } else if (s.size() >= 2 && s[0] == '0' && (s[1] == 'x' || s[1] == 'X')) {
    out.hex = true;
    s.remove_prefix(2);
  }
  if (s.empty()) return false;
  const uint64_t base = out.hex ? 16 : 10;
  for (char c : s) {
    const int digit = out.hex ? HexDigitValue(c) : (c >= '0' && c <= '9' ? c - '0' : -1);
    if (digit < 0) return false;
    if (out.magnitude > (UINT64_MAX - digit) / base) return false;
    out.magnitude = out.magnitude * base + digit;
  }
  return true;
}

// Decimal texts must fit the signed range; hex texts give the bit pattern of
// `bits` width.
bool IntTextToValue(const IntText& t, int bits, int64_t& value) {
  const uint64_t positive_limit = (uint64_t{1} << (bits - 1)) - 1;
  if (t.hex) {
    if (bits < 64 && t.magnitude > (uint64_t{1} << bits) - 1) return false;
    uint64_t pattern = t.negative ? 0 - t.magnitude : t.magnitude;
    if (bits < 64) {
      pattern &= (uint64_t{1} << bits) - 1;
      if (pattern > positive_limit) pattern -= uint64_t{1} << bits;  // sign-extend
    }
    value = static_cast<int64_t>(pattern);
    return true;
  }
  if (t.magnitude > positive_limit + (t.negative ? 1 : 0)) return false;
  value = t.negative ? static_cast<int64_t>(0 - t.magnitude) : static_cast<int64_t>(t.magnitude);
  return true;
}

[[noreturn]] void ThrowConvertError(std::string_view s, const char* what) {
  throw EConvertError("'" + std::string(s) + "' is not a valid " + what);
}

// Checks the classic float grammar: [sign] digits [. digits] [E [sign] digits],
// at least one digit in the mantissa.
bool IsFloatSyntax(std::string_view s, bool& negative_exponent) {
  size_t i = 0;
  auto digits = [&] {
    const size_t start = i;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') ++i;
    return i - start;
  };
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
  size_t mantissa_digits = digits();
  if (i < s.size() && s[i] == '.') {
    ++i;
    mantissa_digits += digits();
  }
  if (mantissa_digits == 0) return false;
  negative_exponent = false;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) negative_exponent = s[i++] == '-';
    if (digits() == 0) return false;
  }
  return i == s.size();
}

// Folds with AnsiUpperCase; the case mapping keeps every character's UTF-8
// length, so byte offsets into the folded text are offsets into the original.
std::string FoldForSearch(std::string_view s, bool ignore_case) {
  return ignore_case ? AnsiUpperCase(s) : std::string(s);
}

}  // namespace

std::string Trim(std::string_view s) { return TrimLeft(TrimRight(s)); }

std::string TrimLeft(std::string_view s) {
  size_t start = 0;
  while (start < s.size() && IsBlankOrControl(s[start])) ++start;
  return std::string(s.substr(start));
}

std::string TrimRight(std::string_view s) {
  size_t end = s.size();
  while (end > 0 && IsBlankOrControl(s[end - 1])) --end;
  return std::string(s.substr(0, end));
}

std::string UpperCase(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = AsciiUpper(c);
  return out;
}

std::string LowerCase(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = AsciiLower(c);
  return out;
}

int CompareText(std::string_view a, std::string_view b) {
  const size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    const auto ca = static_cast<unsigned char>(AsciiUpper(a[i]));
    const auto cb = static_cast<unsigned char>(AsciiUpper(b[i]));
    if (ca != cb) return ca < cb ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

bool SameText(std::string_view a, std::string_view b) { return a.size() == b.size() && CompareText(a, b) == 0; }

int CompareStr(std::string_view a, std::string_view b) {
  const int c = a.compare(b);  // char_traits<char> compares as unsigned char
  return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

bool StartsText(std::string_view prefix, std::string_view s) {
  return s.size() >= prefix.size() && SameText(prefix, s.substr(0, prefix.size()));
}

bool EndsText(std::string_view suffix, std::string_view s) {
  return s.size() >= suffix.size() && SameText(suffix, s.substr(s.size() - suffix.size()));
}

std::string AnsiUpperCase(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  for (size_t pos = 0; pos < s.size();) {
    if (static_cast<unsigned char>(s[pos]) < 0x80) {
      out += AsciiUpper(s[pos++]);
    } else {
      AppendUtf8(out, UnicodeUpper(DecodeUtf8(s, pos)));
    }
  }
  return out;
}

std::string AnsiLowerCase(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  for (size_t pos = 0; pos < s.size();) {
    if (static_cast<unsigned char>(s[pos]) < 0x80) {
      out += AsciiLower(s[pos++]);
    } else {
      AppendUtf8(out, UnicodeLower(DecodeUtf8(s, pos)));
    }
  }
  return out;
}

int AnsiCompareText(std::string_view a, std::string_view b) {
  size_t pa = 0, pb = 0;
  while (pa < a.size() && pb < b.size()) {
    const auto ba = static_cast<unsigned char>(a[pa]), bb = static_cast<unsigned char>(b[pb]);
    if (ba < 0x80 && bb < 0x80) {  // the common case, without decoding
      const auto ua = static_cast<unsigned char>(AsciiUpper(ba)), ub = static_cast<unsigned char>(AsciiUpper(bb));
      if (ua != ub) return ua < ub ? -1 : 1;
      ++pa, ++pb;
      continue;
    }
    const char32_t ca = UnicodeUpper(DecodeUtf8(a, pa));
    const char32_t cb = UnicodeUpper(DecodeUtf8(b, pb));
    if (ca != cb) return ca < cb ? -1 : 1;
  }
  const bool a_done = pa == a.size(), b_done = pb == b.size();
  return a_done == b_done ? 0 : (a_done ? -1 : 1);
}

bool AnsiSameText(std::string_view a, std::string_view b) {
  return a.size() == b.size() && AnsiCompareText(a, b) == 0;
}

std::string IntToStr(int64_t value) { return std::to_string(value); }
std::string UIntToStr(uint64_t value) { return std::to_string(value); }

std::string IntToHex(uint64_t value, int digits) {
  char buf[16];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value, 16);
  std::string hex = UpperCase(std::string_view(buf, end - buf));
  if (static_cast<int>(hex.size()) < digits) hex.insert(0, digits - hex.size(), '0');
  return hex;
}

bool TryStrToInt(std::string_view s, int32_t& value) {
  IntText t;
  int64_t v = 0;
  if (!ParseIntText(s, t) || !IntTextToValue(t, 32, v)) return false;
  value = static_cast<int32_t>(v);
  return true;
}

bool TryStrToInt64(std::string_view s, int64_t& value) {
  IntText t;
  return ParseIntText(s, t) && IntTextToValue(t, 64, value);
}

int32_t StrToInt(std::string_view s) {
  int32_t value = 0;
  if (!TryStrToInt(s, value)) ThrowConvertError(s, "integer value");
  return value;
}

int64_t StrToInt64(std::string_view s) {
  int64_t value = 0;
  if (!TryStrToInt64(s, value)) ThrowConvertError(s, "integer value");
  return value;
}

int32_t StrToIntDef(std::string_view s, int32_t fallback) {
  int32_t value = 0;
  return TryStrToInt(s, value) ? value : fallback;
}

int64_t StrToInt64Def(std::string_view s, int64_t fallback) {
  int64_t value = 0;
  return TryStrToInt64(s, value) ? value : fallback;
}

bool TryStrToBool(std::string_view s, bool& value) {
  int64_t i = 0;
  double d = 0;
  if (SameText(s, "True")) {
    value = true;
  } else if (SameText(s, "False")) {
    value = false;
  } else if (TryStrToInt64(s, i)) {
    value = i != 0;
  } else if (TryStrToFloat(s, d)) {
    value = d != 0;
  } else {
    return false;
  }
  return true;
}

bool StrToBool(std::string_view s) {
  bool value = false;
  if (!TryStrToBool(s, value)) ThrowConvertError(s, "boolean value");
  return value;
}

bool StrToBoolDef(std::string_view s, bool fallback) {
  bool value = false;
  return TryStrToBool(s, value) ? value : fallback;
}

std::string BoolToStr(bool value, bool use_bool_strs) {
  if (use_bool_strs) return value ? "True" : "False";
  return value ? "-1" : "0";
}

bool TryStrToFloat(std::string_view s, double& value) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  bool negative_exponent = false;
  if (!IsFloatSyntax(s, negative_exponent)) return false;
  if (s.front() == '+') s.remove_prefix(1);  // from_chars takes '-' only
  double parsed = 0;
  const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), parsed);
  if (ec == std::errc::result_out_of_range) {
    if (!negative_exponent) return false;  // overflow
    parsed = 0;                            // underflow reads as zero
  } else if (ec != std::errc() || end != s.data() + s.size()) {
    return false;
  }
  value = parsed;
  return true;
}

double StrToFloat(std::string_view s) {
  double value = 0;
  if (!TryStrToFloat(s, value)) ThrowConvertError(s, "floating point value");
  return value;
}

std::string FloatToStr(double value) {
  if (std::isnan(value)) return "NAN";
  if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
  if (value == 0) return "0";
  // 15 significant digits, rounded: "-d.dddddddddddddde+XX".
  char buf[40];
  const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific, 14);
  std::string_view text(buf, end - buf);
  const bool negative = text.front() == '-';
  if (negative) text.remove_prefix(1);
  const size_t e = text.find('e');
  std::string digits = std::string(1, text[0]) + std::string(text.substr(2, e - 2));
  digits.erase(digits.find_last_not_of('0') + 1);
  int exponent = 0;
  const char* exp_begin = text.data() + e + 1 + (text[e + 1] == '+' ? 1 : 0);
  std::from_chars(exp_begin, text.data() + text.size(), exponent);

  std::string out = negative ? "-" : "";
  if (exponent >= 15 || exponent < -4) {
    out += digits[0];
    // Appended piece by piece: "." + a temporary trips a false -Wrestrict of GCC 12 at -O3.
    if (digits.size() > 1) out.append(".").append(digits, 1);
    out.append("E").append(std::to_string(exponent));
  } else if (exponent < 0) {
    out += "0." + std::string(-exponent - 1, '0') + digits;
  } else {
    const size_t int_digits = exponent + 1;
    if (digits.size() <= int_digits) {
      out += digits + std::string(int_digits - digits.size(), '0');
    } else {
      out += digits.substr(0, int_digits) + "." + digits.substr(int_digits);
    }
  }
  return out;
}

std::string StringReplace(std::string_view s, std::string_view from, std::string_view to, unsigned flags) {
  if (from.empty()) return std::string(s);
  const bool ignore_case = (flags & rfIgnoreCase) != 0;
  const std::string haystack = FoldForSearch(s, ignore_case);
  const std::string needle = FoldForSearch(from, ignore_case);
  std::string out;
  size_t copied = 0;
  for (size_t at = haystack.find(needle); at != std::string::npos; at = haystack.find(needle, copied)) {
    out.append(s.substr(copied, at - copied));
    out.append(to);
    copied = at + needle.size();
    if ((flags & rfReplaceAll) == 0) break;
  }
  out.append(s.substr(copied));
  return out;
}

std::string QuotedStr(std::string_view s) {
  std::string out = "'";
  for (char c : s) {
    out += c;
    if (c == '\'') out += '\'';
  }
  out += '\'';
  return out;
}

}  // namespace jx
