// Text helpers with the classic runtime's semantics. Texts are UTF-8; case
// functions fold ASCII letters only, as the classic non-"Ansi" functions do.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace jx {

// Trim family: remove characters <= ' ' (blanks and control characters).
std::string Trim(std::string_view s);
std::string TrimLeft(std::string_view s);
std::string TrimRight(std::string_view s);

std::string UpperCase(std::string_view s);
std::string LowerCase(std::string_view s);
bool SameText(std::string_view a, std::string_view b);  // ASCII case-insensitive equality
int CompareText(std::string_view a, std::string_view b);  // <0, 0, >0, ASCII case-insensitive
int CompareStr(std::string_view a, std::string_view b);   // <0, 0, >0, byte order
bool StartsText(std::string_view prefix, std::string_view s);
bool EndsText(std::string_view suffix, std::string_view s);

// The "Ansi" forms fold UTF-8 letters of Latin, Greek and Cyrillic too.
std::string AnsiUpperCase(std::string_view s);
std::string AnsiLowerCase(std::string_view s);
bool AnsiSameText(std::string_view a, std::string_view b);
int AnsiCompareText(std::string_view a, std::string_view b);  // <0, 0, >0 by folded code point

std::string IntToStr(int64_t value);
std::string UIntToStr(uint64_t value);
std::string IntToHex(uint64_t value, int digits);  // upper case, at least `digits` wide

// Integers in the classic forms: optional sign, decimal, "$" or "0x"/"0X" hex;
// surrounding blanks are not allowed. Hex texts give the bit pattern
// ("$FFFFFFFF" is -1 as a 32-bit value).
bool TryStrToInt(std::string_view s, int32_t& value);
bool TryStrToInt64(std::string_view s, int64_t& value);
int32_t StrToInt(std::string_view s);      // throws EConvertError "'s' is not a valid integer value"
int64_t StrToInt64(std::string_view s);    // throws EConvertError
int32_t StrToIntDef(std::string_view s, int32_t fallback);
int64_t StrToInt64Def(std::string_view s, int64_t fallback);

// Booleans: "True"/"False" in any case, or a number (non-zero is true).
bool TryStrToBool(std::string_view s, bool& value);
bool StrToBool(std::string_view s);  // throws EConvertError "'s' is not a valid boolean value"
bool StrToBoolDef(std::string_view s, bool fallback);
// "True"/"False" when use_bool_strs, else "-1"/"0" as the classic runtime does.
std::string BoolToStr(bool value, bool use_bool_strs = true);

// Floats: optional sign, digits with an optional '.', optional exponent;
// blanks around the number are allowed, as the classic runtime allows them.
bool TryStrToFloat(std::string_view s, double& value);
double StrToFloat(std::string_view s);  // throws EConvertError "'s' is not a valid floating point value"
// General format with 15 significant digits, like the classic FloatToStr:
// 0.1 -> "0.1", 1e20 -> "1E20", 1.5e-7 -> "1.5E-7", 3 -> "3".
std::string FloatToStr(double value);

enum TReplaceFlag : unsigned { rfReplaceAll = 1, rfIgnoreCase = 2 };
std::string StringReplace(std::string_view s, std::string_view from, std::string_view to, unsigned flags);

std::string QuotedStr(std::string_view s);  // 'it''s'

}  // namespace jx
