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
      {"", "", "", ""},
      {" \t\r\n\x01" "a b\x1f ", "a b", "a b\x1f ", " \t\r\n\x01" "a b"},
      {"\x7f", "\x7f", "\x7f", "\x7f"},  // DEL is above ' '
      {" \x02 ", "", "", ""},
      {" é ", "é", "é ", " é"},  // bytes above 127 are text
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row[1], Trim(row[0])) << row[0];
    EXPECT_EQ(row[2], TrimLeft(row[0])) << row[0];
    EXPECT_EQ(row[3], TrimRight(row[0])) << row[0];
  }
}

TEST(IntegerText, ClassicForms) {
  struct Row {
    const char* text;
    bool ok;
    int64_t value;
  };
  const Row rows32[] = {
      {"42", true, 42}, {"-7", true, -7}, {"+5", true, 5}, {"007", true, 7}, {"$FF", true, 255}, {"0x1F", true, 31},
      {"0X1f", true, 31}, {"-$10", true, -16}, {"-0x10", true, -16}, {"$FFFFFFFF", true, -1},
      {"$80000000", true, INT32_MIN}, {"2147483647", true, INT32_MAX}, {"-2147483648", true, INT32_MIN},
      {"2147483648", false, 0}, {"-2147483649", false, 0}, {"$100000000", false, 0}, {" 1", false, 0},
      {"1 ", false, 0}, {"", false, 0}, {"-", false, 0}, {"$", false, 0}, {"0x", false, 0}, {"+-1", false, 0},
      {"1.5", false, 0}, {"abc", false, 0}, {"$G", false, 0},
  };
  for (const Row& row : rows32) {
    int32_t value = 0;
    EXPECT_EQ(row.ok, TryStrToInt(row.text, value)) << row.text;
    EXPECT_EQ(row.ok ? row.value : -99, StrToIntDef(row.text, -99)) << row.text;
  }
  const Row rows64[] = {
      {"9223372036854775807", true, INT64_MAX}, {"-9223372036854775808", true, INT64_MIN},
      {"9223372036854775808", false, 0}, {"99999999999999999999", false, 0}, {"$FFFFFFFF", true, 4294967295},
      {"$FFFFFFFFFFFFFFFF", true, -1}, {"$10000000000000000", false, 0}, {"2147483648", true, 2147483648},
  };
  for (const Row& row : rows64) EXPECT_EQ(row.ok ? row.value : -99, StrToInt64Def(row.text, -99)) << row.text;
}

TEST(ConvertErrors, QuoteTheText) {
  EXPECT_EQ("'abc' is not a valid integer value", MessageOf<EConvertError>([] { StrToInt("abc"); }));
  EXPECT_EQ("' 1' is not a valid integer value", MessageOf<EConvertError>([] { StrToInt64(" 1"); }));
  EXPECT_EQ("'maybe' is not a valid boolean value", MessageOf<EConvertError>([] { StrToBool("maybe"); }));
  EXPECT_EQ("'1,5' is not a valid floating point value", MessageOf<EConvertError>([] { StrToFloat("1,5"); }));
}

TEST(BooleanText, WordsInAnyCaseOrNumbers) {
  const std::pair<const char*, int> rows[] = {  // -1: not a boolean
      {"True", 1}, {"FALSE", 0}, {"tRuE", 1}, {"0", 0},   {"-1", 1},   {"2.5", 1},
      {"0.0", 0},  {"$10", 1},   {"yes", -1}, {"", -1},   {"True ", -1},
  };
  for (const auto& [text, expected] : rows) {
    bool value = false;
    const bool ok = TryStrToBool(text, value);
    EXPECT_EQ(expected, ok ? int{value} : -1) << text;
  }
  EXPECT_EQ("True", BoolToStr(true));
  EXPECT_EQ("False", BoolToStr(false));
  EXPECT_EQ("-1", BoolToStr(true, false));
  EXPECT_EQ("0", BoolToStr(false, false));
}

TEST(FloatText, GeneralFormatWith15Digits) {
  const double inf = std::numeric_limits<double>::infinity();
  const std::pair<double, const char*> rows[] = {
      {0, "0"}, {-0.0, "0"}, {3, "3"}, {-2.5, "-2.5"}, {0.1, "0.1"}, {0.1 + 0.2, "0.3"}, {100, "100"},
      {1.0 / 3, "0.333333333333333"}, {2.0 / 3, "0.666666666666667"}, {1.23456789012345678, "1.23456789012346"},
      {123456789012345, "123456789012345"},
      {999999999999999.9, "1E15"},  // rounding to 15 digits reaches the exponent form
      {1e15, "1E15"}, {1e20, "1E20"}, {-1.5e300, "-1.5E300"}, {0.0001, "0.0001"}, {0.00012345, "0.00012345"},
      {1e-5, "1E-5"}, {1.5e-7, "1.5E-7"}, {std::nan(""), "NAN"}, {inf, "INF"}, {-inf, "-INF"},
  };
  for (const auto& [value, text] : rows) EXPECT_EQ(text, FloatToStr(value)) << text;
}

TEST(FloatText, Parsing) {
  const std::pair<const char*, double> valid[] = {
      {"1.5", 1.5}, {" 1.5e3 ", 1500}, {"+2", 2}, {"-.5", -0.5}, {"5.", 5}, {"1E-2", 0.01}, {"1e-400", 0},
  };
  for (const auto& [text, expected] : valid) EXPECT_EQ(expected, StrToFloat(text)) << text;
  for (const char* text : {"1e400", "1,5", "inf", "nan", "", ".", "1e", "\t1", "0x10"}) {
    double value = 0;
    EXPECT_FALSE(TryStrToFloat(text, value)) << text;
  }
}

TEST(Text, CaseAndComparison) {
  EXPECT_EQ("ÀBC1", UpperCase("Àbc1"));  // ASCII letters only
  EXPECT_EQ("àbc", LowerCase("àBC"));
  EXPECT_EQ("STRAßE ÄÖÜ ÉŸ Ą", AnsiUpperCase("straße äöü éÿ ą"));  // no one-letter upper ß
  EXPECT_EQ("àéî σασ привет ł", AnsiLowerCase("ÀÉÎ ΣΑΣ ПРИВЕТ Ł"));  // no final-sigma context
  EXPECT_EQ("ΣΑΣ", AnsiUpperCase("σας"));
  EXPECT_EQ("a\xff\xc3" "b", AnsiLowerCase("A\xff\xc3" "B"));  // bytes that are no UTF-8 pass through
  EXPECT_TRUE(SameText("Abc", "aBC"));
  EXPECT_FALSE(SameText("Ärger", "ärger"));
  EXPECT_TRUE(AnsiSameText("Ärger", "äRGER"));
  EXPECT_FALSE(AnsiSameText("Ärger", "Ärgerx"));
  EXPECT_LT(CompareText("apple", "Banana"), 0);
  EXPECT_GT(CompareText("_", "a"), 0);  // letters compare as upper case
  EXPECT_EQ(0, CompareText("ABC", "abc"));
  EXPECT_LT(CompareStr("B", "a"), 0);
  EXPECT_GT(CompareStr("é", "z"), 0);  // bytes compare unsigned
  EXPECT_GT(AnsiCompareText("é", "F"), 0);
  EXPECT_EQ(0, AnsiCompareText("ÉTÉ", "été"));
  EXPECT_LT(AnsiCompareText("ab", "ABC"), 0);
  EXPECT_TRUE(StartsText("MAKE", "Makefile"));
  EXPECT_FALSE(StartsText("Makefile.am", "Makefile"));
  EXPECT_TRUE(EndsText(".TXT", "a.txt"));
  EXPECT_FALSE(EndsText(".txt", "txt"));
}

TEST(Text, ReplaceQuoteAndNumbers) {
  struct Row {
    const char *text, *from, *to;
    unsigned flags;
    const char* result;
  };
  const Row rows[] = {
      {"a-b-a", "A", "x", rfReplaceAll | rfIgnoreCase, "x-b-x"},
      {"a-b-a", "a", "x", 0, "x-b-a"},
      {"a-b-a", "A", "x", rfReplaceAll, "a-b-a"},
      {"aaa", "aa", "a", rfReplaceAll, "aa"},  // no rescan of replaced text
      {"abc", "", "x", rfReplaceAll, "abc"},
      {"Grüße GRÜSSE grüße", "GRÜSSE", "-", rfReplaceAll | rfIgnoreCase, "Grüße - grüße"},
      {"Übel übel", "übel", "gut", rfReplaceAll | rfIgnoreCase, "gut gut"},
  };
  for (const Row& row : rows) EXPECT_EQ(row.result, StringReplace(row.text, row.from, row.to, row.flags)) << row.text;
  EXPECT_EQ("'it''s'", QuotedStr("it's"));
  EXPECT_EQ("''", QuotedStr(""));
  EXPECT_EQ("00FF", IntToHex(255, 4));
  EXPECT_EQ("1F", IntToHex(31, 1));
  EXPECT_EQ("FFFFFFFFFFFFFFFF", IntToHex(static_cast<uint64_t>(-1), 2));
  EXPECT_EQ("-9223372036854775808", IntToStr(INT64_MIN));
  EXPECT_EQ("18446744073709551615", UIntToStr(UINT64_MAX));
}

}  // namespace
}  // namespace jx
