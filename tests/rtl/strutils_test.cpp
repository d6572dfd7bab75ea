#include "rtl/strutils.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "rtl/sysutils.h"

namespace jx {
namespace {

TEST(Trim, RemovesBlanksAndControlCharacters) {
  struct Row {
    const char* text;
    const char* both;
    const char* left;
    const char* right;
  };
  const Row rows[] = {
      {"", "", "", ""},
      {" \t\r\n\x01" "a b\x1f ", "a b", "a b\x1f ", " \t\r\n\x01" "a b"},
      {"\x7f", "\x7f", "\x7f", "\x7f"},  // DEL is above ' '
      {" \x02 ", "", "", ""},
      {" é ", "é", "é ", " é"},  // bytes above 127 are text
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.both, Trim(row.text)) << row.text;
    EXPECT_EQ(row.left, TrimLeft(row.text)) << row.text;
    EXPECT_EQ(row.right, TrimRight(row.text)) << row.text;
  }
}

TEST(IntegerText, ClassicForms) {
  struct Row {
    const char* text;
    bool ok;
    int32_t value;
  };
  const Row rows[] = {
      {"42", true, 42},          {"-7", true, -7},           {"+5", true, 5},
      {"$FF", true, 255},        {"0x1F", true, 31},         {"0X1f", true, 31},
      {"-$10", true, -16},       {"-0x10", true, -16},       {"$FFFFFFFF", true, -1},
      {"$80000000", true, INT32_MIN},                        {"007", true, 7},
      {" 1", false, 0},          {"1 ", false, 0},           {"", false, 0},
      {"-", false, 0},           {"$", false, 0},            {"0x", false, 0},
      {"+-1", false, 0},         {"2147483647", true, INT32_MAX},
      {"2147483648", false, 0},  {"-2147483648", true, INT32_MIN},
      {"-2147483649", false, 0}, {"$100000000", false, 0},   {"1.5", false, 0},
      {"abc", false, 0},         {"$G", false, 0},
  };
  for (const Row& row : rows) {
    int32_t value = 0;
    EXPECT_EQ(row.ok, TryStrToInt(row.text, value)) << row.text;
    if (row.ok) {
      EXPECT_EQ(row.value, value) << row.text;
    }
    EXPECT_EQ(row.ok ? row.value : -99, StrToIntDef(row.text, -99)) << row.text;
  }
}

TEST(IntegerText, SixtyFourBits) {
  struct Row {
    const char* text;
    bool ok;
    int64_t value;
  };
  const Row rows[] = {
      {"9223372036854775807", true, INT64_MAX},  {"9223372036854775808", false, 0},
      {"-9223372036854775808", true, INT64_MIN}, {"$FFFFFFFF", true, 4294967295},
      {"$FFFFFFFFFFFFFFFF", true, -1},           {"$10000000000000000", false, 0},
      {"99999999999999999999", false, 0},        {"2147483648", true, 2147483648},
  };
  for (const Row& row : rows) {
    int64_t value = 0;
    EXPECT_EQ(row.ok, TryStrToInt64(row.text, value)) << row.text;
    if (row.ok) {
      EXPECT_EQ(row.value, value) << row.text;
    }
  }
}

TEST(ConvertErrors, QuoteTheText) {
  struct Row {
    void (*convert)();
    const char* message;
  };
  const Row rows[] = {
      {[] { StrToInt("abc"); }, "'abc' is not a valid integer value"},
      {[] { StrToInt64(" 1"); }, "' 1' is not a valid integer value"},
      {[] { StrToBool("maybe"); }, "'maybe' is not a valid boolean value"},
      {[] { StrToFloat("1,5"); }, "'1,5' is not a valid floating point value"},
  };
  for (const Row& row : rows) {
    try {
      row.convert();
      ADD_FAILURE() << "no error for " << row.message;
    } catch (const EConvertError& e) {
      EXPECT_EQ(row.message, e.Message());
    }
  }
}

TEST(BooleanText, WordsInAnyCaseOrNumbers) {
  struct Row {
    const char* text;
    bool ok;
    bool value;
  };
  const Row rows[] = {{"True", true, true},  {"FALSE", true, false}, {"tRuE", true, true},  {"0", true, false},
                      {"-1", true, true},    {"2.5", true, true},    {"0.0", true, false}, {"$10", true, true},
                      {"yes", false, false}, {"", false, false},     {"True ", false, false}};
  for (const Row& row : rows) {
    bool value = !row.value;
    EXPECT_EQ(row.ok, TryStrToBool(row.text, value)) << row.text;
    if (row.ok) {
      EXPECT_EQ(row.value, value) << row.text;
    }
  }
  EXPECT_EQ("True", BoolToStr(true));
  EXPECT_EQ("False", BoolToStr(false));
  EXPECT_EQ("-1", BoolToStr(true, false));
  EXPECT_EQ("0", BoolToStr(false, false));
}

TEST(FloatText, GeneralFormatWith15Digits) {
  struct Row {
    double value;
    const char* text;
  };
  const Row rows[] = {
      {0, "0"},
      {-0.0, "0"},
      {3, "3"},
      {-2.5, "-2.5"},
      {0.1, "0.1"},
      {0.1 + 0.2, "0.3"},
      {100, "100"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {1.23456789012345678, "1.23456789012346"},
      {123456789012345, "123456789012345"},
      {999999999999999.9, "1E15"},  // rounding to 15 digits reaches the exponent form
      {1e15, "1E15"},
      {1e20, "1E20"},
      {-1.5e300, "-1.5E300"},
      {0.0001, "0.0001"},
      {0.00012345, "0.00012345"},
      {1e-5, "1E-5"},
      {1.5e-7, "1.5E-7"},
      {std::numeric_limits<double>::quiet_NaN(), "NAN"},
      {std::numeric_limits<double>::infinity(), "INF"},
      {-std::numeric_limits<double>::infinity(), "-INF"},
  };
  for (const Row& row : rows) EXPECT_EQ(row.text, FloatToStr(row.value)) << row.text;
}

TEST(FloatText, Parsing) {
  struct Row {
    const char* text;
    bool ok;
    double value;
  };
  const Row rows[] = {
      {"1.5", true, 1.5},   {" 1.5e3 ", true, 1500}, {"+2", true, 2},      {"-.5", true, -0.5},
      {"5.", true, 5},      {"1E-2", true, 0.01},    {"1e-400", true, 0},  {"1e400", false, 0},
      {"1,5", false, 0},    {"inf", false, 0},       {"nan", false, 0},    {"", false, 0},
      {".", false, 0},      {"1e", false, 0},        {"\t1", false, 0},    {"0x10", false, 0},
  };
  for (const Row& row : rows) {
    double value = -1;
    EXPECT_EQ(row.ok, TryStrToFloat(row.text, value)) << row.text;
    if (row.ok) {
      EXPECT_EQ(row.value, value) << row.text;
    }
  }
}

TEST(Text, CaseAndComparison) {
  EXPECT_EQ("ÀBC1", UpperCase("Àbc1"));  // ASCII letters only
  EXPECT_EQ("àbc", LowerCase("àBC"));
  EXPECT_EQ("STRAßE ÄÖÜ ÉŸ Ą", AnsiUpperCase("straße äöü éÿ ą"));  // no one-letter upper ß
  EXPECT_EQ("àéî σασ привет ł", AnsiLowerCase("ÀÉÎ ΣΑΣ ПРИВЕТ Ł"));  // no final-sigma context
  EXPECT_EQ("ΣΑΣ", AnsiUpperCase("σας"));  // final sigma too
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

TEST(Text, ReplaceQuoteAndHex) {
  struct Row {
    const char* text;
    const char* from;
    const char* to;
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
