#include "rtl/strutils.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "messageof.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

using test::MessageOf;

TEST(Trim, RemovesBlanksAndControlCharacters) {
  const char* const rows[][4] = {
      // text, Trim, TrimLeft, TrimRight
      {"", "", "", ""}, {" \t\r\n\x01" "a b\x1f ", "a b", "a b\x1f ", " \t\r\n\x01" "a b"},
      {"\x7f", "\x7f", "\x7f", "\x7f"},  // DEL is above ' '
      {" \x02 ", "", "", ""}, {" é ", "é", "é ", " é"},  // bytes above 127 are text
  };
  for (const auto& row : rows) {
    EXPECT_EQ(std::tuple(row[1], row[2], row[3]), std::tuple(Trim(row[0]), TrimLeft(row[0]), TrimRight(row[0]))) << row[0];
  }
}

TEST(IntegerText, ClassicForms) {
  const std::pair<const char*, int64_t> rows32[] = {  // INT64_MAX: not an integer
      {"42", 42}, {"-7", -7}, {"+5", 5}, {"007", 7}, {"$FF", 255}, {"0x1F", 31}, {"0X1f", 31}, {"-$10", -16},
      {"-0x10", -16}, {"$FFFFFFFF", -1}, {"$80000000", INT32_MIN}, {"2147483647", INT32_MAX},
      {"-2147483648", INT32_MIN}, {"2147483648", INT64_MAX}, {"-2147483649", INT64_MAX}, {"$100000000", INT64_MAX},
      {" 1", INT64_MAX}, {"1 ", INT64_MAX}, {"", INT64_MAX}, {"-", INT64_MAX}, {"$", INT64_MAX}, {"0x", INT64_MAX},
      {"+-1", INT64_MAX}, {"1.5", INT64_MAX}, {"$G", INT64_MAX},
  };
  for (const auto& [text, value] : rows32) {
    int32_t parsed = 0;
    EXPECT_EQ(value != INT64_MAX, TryStrToInt(text, parsed)) << text;
    EXPECT_EQ(value != INT64_MAX ? value : -99, StrToIntDef(text, -99)) << text;
  }
  const std::pair<const char*, int64_t> rows64[] = {
      {"9223372036854775807", INT64_MAX}, {"-9223372036854775808", INT64_MIN}, {"9223372036854775808", -99},
      {"$FFFFFFFF", 4294967295}, {"$FFFFFFFFFFFFFFFF", -1}, {"$10000000000000000", -99}, {"2147483648", 2147483648},
  };
  for (const auto& [text, value] : rows64) EXPECT_EQ(value, StrToInt64Def(text, -99)) << text;
  EXPECT_EQ("'abc' is not a valid integer value", MessageOf<EConvertError>([] { StrToInt("abc"); }));
  EXPECT_EQ("' 1' is not a valid integer value", MessageOf<EConvertError>([] { StrToInt64(" 1"); }));
}

TEST(BooleanText, WordsInAnyCaseOrNumbers) {
  const std::pair<const char*, int> rows[] = {  // -1: not a boolean
      {"True", 1}, {"FALSE", 0}, {"tRuE", 1}, {"0", 0}, {"-1", 1}, {"2.5", 1}, {"0.0", 0}, {"$10", 1}, {"yes", -1},
      {"", -1}, {"True ", -1},
  };
  for (const auto& [text, expected] : rows) {
    bool value = false;
    const bool ok = TryStrToBool(text, value);
    EXPECT_EQ(expected, ok ? int{value} : -1) << text;
  }
  EXPECT_EQ("'maybe' is not a valid boolean value", MessageOf<EConvertError>([] { StrToBool("maybe"); }));
  EXPECT_EQ(std::tuple("True", "False", "-1", "0"),
            std::tuple(BoolToStr(true), BoolToStr(false), BoolToStr(true, false), BoolToStr(false, false)));
}

TEST(FloatText, GeneralFormatWith15DigitsAndParsing) {
  const double inf = std::numeric_limits<double>::infinity();
  const std::pair<double, const char*> rows[] = {
      {0, "0"}, {-0.0, "0"}, {-2.5, "-2.5"}, {0.1 + 0.2, "0.3"}, {100, "100"}, {2.0 / 3, "0.666666666666667"},
      {1.23456789012345678, "1.23456789012346"}, {123456789012345, "123456789012345"},
      {999999999999999.9, "1E15"},  // rounding to 15 digits reaches the exponent form
      {1e20, "1E20"}, {-1.5e300, "-1.5E300"}, {0.0001, "0.0001"}, {0.00012345, "0.00012345"}, {1e-5, "1E-5"},
      {1.5e-7, "1.5E-7"}, {std::nan(""), "NAN"}, {inf, "INF"}, {-inf, "-INF"},
  };
  for (const auto& [value, text] : rows) EXPECT_EQ(text, FloatToStr(value)) << text;
  const std::pair<const char*, double> valid[] = {
      {"1.5", 1.5}, {" 1.5e3 ", 1500}, {"+2", 2}, {"-.5", -0.5}, {"5.", 5}, {"1E-2", 0.01}, {"1e-400", 0}};
  for (const auto& [text, expected] : valid) EXPECT_EQ(expected, StrToFloat(text)) << text;
  for (const char* text : {"1e400", "1,5", "inf", "nan", "", ".", "1e", "\t1", "0x10"}) {
    double value = 0;
    EXPECT_FALSE(TryStrToFloat(text, value)) << text;
  }
  EXPECT_EQ("'1,5' is not a valid floating point value", MessageOf<EConvertError>([] { StrToFloat("1,5"); }));
}

// The plain functions look at ASCII letters only; the Ansi ones at every
// letter (without one-letter upper ß or final-sigma context).
TEST(Text, CaseAndComparison) {
  EXPECT_EQ(std::tuple("ÀBC1", "àbc"), std::tuple(UpperCase("Àbc1"), LowerCase("àBC")));
  EXPECT_EQ("STRAßE ÄÖÜ ÉŸ Ą", AnsiUpperCase("straße äöü éÿ ą"));
  EXPECT_EQ("àéî σασ привет ł", AnsiLowerCase("ÀÉÎ ΣΑΣ ПРИВЕТ Ł"));
  EXPECT_EQ("ΣΑΣ", AnsiUpperCase("σας"));
  EXPECT_EQ("a\xff\xc3" "b", AnsiLowerCase("A\xff\xc3" "B"));  // bytes that are no UTF-8 pass through
  using Compare = int (*)(std::string_view, std::string_view);
  const struct { Compare compare; const char *a, *b; int sign; } orders[] = {
      {CompareText, "apple", "Banana", -1}, {CompareText, "_", "a", 1},  // letters compare as upper case
      {CompareText, "ABC", "abc", 0}, {CompareStr, "B", "a", -1}, {CompareStr, "é", "z", 1},  // bytes compare unsigned
      {AnsiCompareText, "é", "F", 1}, {AnsiCompareText, "ÉTÉ", "été", 0}, {AnsiCompareText, "ab", "ABC", -1},
  };
  for (const auto& o : orders) {
    const int result = o.compare(o.a, o.b);
    EXPECT_EQ(o.sign, (result > 0) - (result < 0)) << o.a << " | " << o.b;
  }
  using Test = bool (*)(std::string_view, std::string_view);
  const struct { Test test; const char *a, *b; bool result; } tests[] = {
      {SameText, "Abc", "aBC", true}, {SameText, "Ärger", "ärger", false}, {AnsiSameText, "Ärger", "äRGER", true},
      {AnsiSameText, "Ärger", "Ärgerx", false}, {StartsText, "MAKE", "Makefile", true},
      {StartsText, "Makefile.am", "Makefile", false}, {EndsText, ".TXT", "a.txt", true}, {EndsText, ".txt", "txt", false},
  };
  for (const auto& t : tests) EXPECT_EQ(t.result, t.test(t.a, t.b)) << t.a << " | " << t.b;
}

TEST(Text, ReplaceQuoteAndNumbers) {
  const struct { const char *text, *from, *to; unsigned flags; const char* result; } rows[] = {
      {"a-b-a", "A", "x", rfReplaceAll | rfIgnoreCase, "x-b-x"}, {"a-b-a", "a", "x", 0, "x-b-a"},
      {"a-b-a", "A", "x", rfReplaceAll, "a-b-a"}, {"aaa", "aa", "a", rfReplaceAll, "aa"},  // no rescan of replaced text
      {"abc", "", "x", rfReplaceAll, "abc"}, {"Grüße GRÜSSE grüße", "GRÜSSE", "-", rfReplaceAll | rfIgnoreCase, "Grüße - grüße"},
      {"Übel übel", "übel", "gut", rfReplaceAll | rfIgnoreCase, "gut gut"},
  };
  for (const auto& row : rows) EXPECT_EQ(row.result, StringReplace(row.text, row.from, row.to, row.flags)) << row.text;
  EXPECT_EQ(std::tuple("'it''s'", "''"), std::tuple(QuotedStr("it's"), QuotedStr("")));
  EXPECT_EQ(std::tuple("00FF", "1F", "FFFFFFFFFFFFFFFF"),
            std::tuple(IntToHex(255, 4), IntToHex(31, 1), IntToHex(static_cast<uint64_t>(-1), 2)));
  EXPECT_EQ(std::tuple("-9223372036854775808", "18446744073709551615"), std::tuple(IntToStr(INT64_MIN), UIntToStr(UINT64_MAX)));
}

}  // namespace
}  // namespace jx
