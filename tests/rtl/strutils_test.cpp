// Text of the classic runtime: conversions of strings, numbers, booleans,
// variants and paths, and string lists.
#include "rtl/strutils.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <random>

#include "messageof.h"
#include "rtl/paths.h"
#include "rtl/stringlist.h"
#include "rtl/sysutils.h"
#include "rtl/variant.h"

namespace jx {
namespace {

using test::MessageOf;

TEST(Trim, RemovesBlanksAndControlCharacters) {
  const char* const rows[][4] = {  // text, Trim, TrimLeft, TrimRight; DEL and bytes above 127 are text
      {" \t\r\n\x01" "a b\x1f ", "a b", "a b\x1f ", " \t\r\n\x01" "a b"}, {"\x7f", "\x7f", "\x7f", "\x7f"},
      {" \x02 ", "", "", ""}, {" é ", "é", "é ", " é"}};
  for (const auto& row : rows) {
    EXPECT_EQ(std::tuple(row[1], row[2], row[3]), std::tuple(Trim(row[0]), TrimLeft(row[0]), TrimRight(row[0]))) << row[0];
  }
}

TEST(IntegerText, ClassicForms) {
  const std::pair<const char*, int64_t> rows32[] = {  // INT64_MAX: not an integer
      {"-7", -7}, {"+5", 5}, {"007", 7}, {"$FF", 255}, {"0X1f", 31}, {"-$10", -16}, {"$FFFFFFFF", -1},
      {"$80000000", INT32_MIN}, {"2147483647", INT32_MAX}, {"-2147483648", INT32_MIN}, {"2147483648", INT64_MAX},
      {"-2147483649", INT64_MAX}, {"$100000000", INT64_MAX}, {" 1", INT64_MAX}, {"1 ", INT64_MAX}, {"", INT64_MAX},
      {"-", INT64_MAX}, {"0x", INT64_MAX}, {"+-1", INT64_MAX}, {"1.5", INT64_MAX}, {"$G", INT64_MAX},
  };
  for (const auto& [text, value] : rows32) {
    int32_t parsed = 0;
    EXPECT_EQ(value != INT64_MAX, TryStrToInt(text, parsed)) << text;
    EXPECT_EQ(value != INT64_MAX ? value : -99, StrToIntDef(text, -99)) << text;
  }
  const std::pair<const char*, int64_t> rows64[] = {{"-9223372036854775808", INT64_MIN}, {"9223372036854775808", -99},
                                                    {"$FFFFFFFF", 4294967295}, {"$FFFFFFFFFFFFFFFF", -1}};
  for (const auto& [text, value] : rows64) EXPECT_EQ(value, StrToInt64Def(text, -99)) << text;
  EXPECT_EQ("' 1' is not a valid integer value", MessageOf<EConvertError>([] { StrToInt64(" 1"); }));
}

TEST(BooleanText, WordsInAnyCaseOrNumbers) {
  const std::pair<const char*, int> rows[] = {  // -1: not a boolean
      {"tRuE", 1}, {"FALSE", 0}, {"0", 0}, {"-1", 1}, {"2.5", 1}, {"$10", 1}, {"yes", -1}, {"", -1}, {"True ", -1}};
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
  for (const auto& [text, expected] : {std::pair{" 1.5e3 ", 1500.0}, {"-.5", -0.5}, {"5.", 5.0}, {"1e-400", 0.0}}) {
    EXPECT_EQ(expected, StrToFloat(text)) << text;
  }
  double value = 0;
  for (const char* text : {"1e400", "1,5", "inf", "", ".", "1e", "\t1", "0x10"}) EXPECT_FALSE(TryStrToFloat(text, value)) << text;
  EXPECT_EQ("'1,5' is not a valid floating point value", MessageOf<EConvertError>([] { StrToFloat("1,5"); }));
}

// The plain functions look at ASCII letters only; the Ansi ones at every
// letter (without one-letter upper ß or final-sigma context).
TEST(Text, CaseComparisonAndReplace) {
  EXPECT_EQ(std::tuple("ÀBC1", "àbc", "STRAßE ÄÖÜ Ą", "àéî σασ привет", "ΣΑΣ"),
            std::tuple(UpperCase("Àbc1"), LowerCase("àBC"), AnsiUpperCase("straße äöü ą"),
                       AnsiLowerCase("ÀÉÎ ΣΑΣ ПРИВЕТ"), AnsiUpperCase("σας")));
  EXPECT_EQ("a\xff\xc3" "b", AnsiLowerCase("A\xff\xc3" "B"));  // bytes that are no UTF-8 pass through
  const auto sign = [](int v) { return (v > 0) - (v < 0); };
  EXPECT_EQ(std::tuple(-1, 1, 0), std::tuple(sign(CompareText("apple", "Banana")), sign(CompareText("_", "a")),
                                             sign(CompareText("ABC", "abc"))));  // letters compare as upper case
  EXPECT_EQ(std::tuple(-1, 1), std::tuple(sign(CompareStr("B", "a")), sign(CompareStr("é", "z"))));  // bytes, unsigned
  EXPECT_EQ(std::tuple(1, 0), std::tuple(sign(AnsiCompareText("é", "F")), sign(AnsiCompareText("ÉTÉ", "été"))));
  EXPECT_EQ(std::tuple(true, false, true, false),
            std::tuple(SameText("Abc", "aBC"), SameText("Ärger", "ärger"), AnsiSameText("Ärger", "äRGER"),
                       AnsiSameText("Ärger", "Ärgerx")));
  EXPECT_EQ(std::tuple(true, false, true, false), std::tuple(StartsText("MAKE", "Makefile"), StartsText("Makefile.am", "Makefile"),
                                                             EndsText(".TXT", "a.txt"), EndsText(".txt", "txt")));
  EXPECT_EQ(std::tuple("x-b-a", "a-b-a", "aa", "abc", "gut gut"),  // no rescan of replaced text
            std::tuple(StringReplace("a-b-a", "a", "x", 0), StringReplace("a-b-a", "A", "x", rfReplaceAll),
                       StringReplace("aaa", "aa", "a", rfReplaceAll), StringReplace("abc", "", "x", rfReplaceAll),
                       StringReplace("Übel übel", "übel", "gut", rfReplaceAll | rfIgnoreCase)));
  EXPECT_EQ(std::tuple("'it''s'", "00FF", "FFFFFFFFFFFFFFFF", "18446744073709551615"),
            std::tuple(QuotedStr("it's"), IntToHex(255, 4), IntToHex(static_cast<uint64_t>(-1), 2), UIntToStr(UINT64_MAX)));
}

TEST(Variant, TypesTextsAndConversions) {
  const std::tuple<Variant, TVarType, const char*, int64_t, double, bool> rows[] = {
      // value, type, text, ToInt64 (banker's rounding), ToFloat, ToBool
      {Variant(), TVarType::Empty, "", 0, 0, false}, {Variant("$10"), TVarType::String, "$10", 16, 16, true},
      {Variant("2.5"), TVarType::String, "2.5", 2, 2.5, true}, {Variant(int32_t{-3}), TVarType::Integer, "-3", -3, -3, true},
      {Variant(uint32_t{4000000000u}), TVarType::Unsigned, "4000000000", 4000000000, 4e9, true},
      {Variant(INT64_MIN), TVarType::Int64, "-9223372036854775808", INT64_MIN, -9223372036854775808.0, true},
      {Variant(3.5), TVarType::Float, "3.5", 4, 3.5, true}, {Variant(1e15), TVarType::Float, "1E15", 1000000000000000, 1e15, true},
      {Variant(true), TVarType::Boolean, "True", -1, -1, true}, {Variant(false), TVarType::Boolean, "False", 0, 0, false},
  };
  for (const auto& [value, type, text, as_int64, as_float, as_bool] : rows) {
    const bool numeric = type != TVarType::Empty && type != TVarType::String && type != TVarType::Boolean;
    EXPECT_EQ(std::tuple(type, text, numeric, as_int64, as_float, as_bool),
              std::tuple(value.Type(), value.ToString(), value.IsNumeric(), value.ToInt64(), value.ToFloat(), value.ToBool()));
  }
  EXPECT_EQ(std::tuple(-1, true, false), std::tuple(Variant("$FFFFFFFF").ToInteger(), Variant("true").ToBool(),
                                                    Variant("0").ToBool()));  // a 32-bit pattern as an Integer
}

TEST(Variant, FailedCastsNameBothTypes) {
  const std::pair<const char*, std::function<void()>> failures[] = {
      {"(String) into type (Int64)", [] { Variant("abc").ToInt64(); }},
      {"(String) into type (Float)", [] { Variant("").ToFloat(); }},
      {"(String) into type (Boolean)", [] { Variant("abc").ToBool(); }},
      {"(Int64) into type (Integer)", [] { Variant(int64_t{1} << 40).ToInteger(); }},
      {"(Unsigned) into type (Integer)", [] { Variant(uint32_t{0x80000000u}).ToInteger(); }},
      {"(Float) into type (Int64)", [] { Variant(1e20).ToInt64(); }},
  };
  for (const auto& [types, convert] : failures) {
    EXPECT_EQ(std::string("Could not convert variant of type ") + types, MessageOf<EVariantTypeCastError>(convert));
  }
}

// POSIX rules: '/' is the only delimiter and there are no drive letters.
TEST(Paths, ClassicPathFunctions) {
  const char* const rows[][5] = {  // name, path, dir, file name, extension
      {"", "", "", "", ""}, {"/", "/", "/", "", ""}, {"a/", "a/", "a", "", ""}, {"/a", "/", "/", "a", ""},
      {"/a/b.c", "/a/", "/a", "b.c", ".c"}, {"a.b/c", "a.b/", "a.b", "c", ""}, {"a.b.c", "", "", "a.b.c", ".c"},
      {"//x", "//", "//", "x", ""},  // a root of two delimiters stays whole
      {"a.", "", "", "a.", "."}, {".bashrc", "", "", ".bashrc", ".bashrc"},
      {"C:\\dir\\f.txt", "", "", "C:\\dir\\f.txt", ".txt"}, {"Grüße/日本.テキスト", "Grüße/", "Grüße", "日本.テキスト", ".テキスト"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(std::tuple(row[1], row[2], row[3], row[4]),
              std::tuple(ExtractFilePath(row[0]), ExtractFileDir(row[0]), ExtractFileName(row[0]), ExtractFileExt(row[0])));
  }
  const char* const extensions[][3] = {{"a.txt", ".bak", "a.bak"}, {"a", ".bak", "a.bak"}, {"d.x/a", ".bak", "d.x/a.bak"},
                                       {"a.b.c", "", "a.b"}, {"/x/.rc", ".y", "/x/.y"}, {"", ".e", ".e"}};
  for (const auto& row : extensions) EXPECT_EQ(row[2], ChangeFileExt(row[0], row[1])) << row[0];
  EXPECT_EQ(std::tuple("", "", "//server/share", "//server"),
            std::tuple(ExtractFileDrive("/usr/bin"), ExtractFileDrive("C:/x"), ExtractFileDrive("//server/share/d/f"),
                       ExtractFileDrive("//server/")));
  const char* const trailing[][3] = {  // text, with delimiter, without
      {"", "/", ""}, {"/", "/", ""}, {"a", "a/", "a"}, {"a/", "a/", "a"}, {"a//", "a//", "a/"}};
  for (const auto& [text, with, without] : trailing) {
    EXPECT_EQ(std::tuple(with, without), std::tuple(IncludeTrailingPathDelimiter(text), ExcludeTrailingPathDelimiter(text)));
  }
  EXPECT_EQ((std::tuple(true, false, false, false)), std::tuple(IsPathDelimiter("a/b", 1), IsPathDelimiter("a/b", 0),
                                                              IsPathDelimiter("a/b", 5), IsPathDelimiter("a\\b", 1)));
  const char* const joins[][3] = {{"", "f", "f"}, {"d", "f", "d/f"}, {"d/", "f", "d/f"}, {"/", "f", "/f"}};
  for (const auto& row : joins) EXPECT_EQ(row[2], JoinPath(row[0], row[1])) << row[0];
  EXPECT_EQ((std::tuple(true, true, false)), std::tuple(HasWildcards("*.o"), HasWildcards("a?"), HasWildcards("a.o")));
  EXPECT_TRUE(ToFsPath("dir/Grüße 日本.txt").filename().u8string() == u8"Grüße 日本.txt");  // UTF-8 kept
  EXPECT_EQ("dir/Grüße 日本.txt", FromFsPath(ToFsPath("dir/Grüße 日本.txt")));
}

using Lines = std::vector<std::string>;

TStringList ListOf(const Lines& lines) {
  TStringList list;
  for (const std::string& line : lines) list.Add(line);
  return list;
}

TEST(StringList, TextSplitsAtCrLfAndCrLf) {
  const std::pair<const char*, Lines> rows[] = {
      {"", {}}, {"a\n", {"a"}}, {"a\r", {"a"}}, {"a\r\n", {"a"}}, {"a\n\n", {"a", ""}}, {"\n", {""}}, {" x \t", {" x \t"}},
      {"a\r\nb\rc\nd", {"a", "b", "c", "d"}}, {"a\r\rb", {"a", "", "b"}}, {"a\n\rb", {"a", "", "b"}},  // LF CR: two breaks
  };
  for (const auto& [text, lines] : rows) {
    TStringList list = ListOf({"old"});
    list.SetText(text);
    EXPECT_EQ(lines, list.Lines()) << text;
  }
  TStringList list = ListOf({"x", "", "y"});
  EXPECT_EQ(std::string("x") + sLineBreak + sLineBreak + "y" + sLineBreak, list.GetText());
  list.LineBreak = "\r\n";
  EXPECT_EQ("x\r\n\r\ny\r\n", list.GetText());
  list.Insert(3, "c");  // at the end is allowed, not past it
  EXPECT_EQ("List index out of bounds (5)", MessageOf<EStringListError>([&] { list.Insert(5, "x"); }));
  EXPECT_EQ("List index out of bounds (-1)", MessageOf<EStringListError>([&] { list.Delete(-1); }));
}

TEST(StringList, NameValueLines) {
  TStringList list = ListOf({"Name=Value=More", "plain", "=empty name", "Ölwert=1"});
  EXPECT_EQ(std::tuple("Name", "Value=More", "", "1"),
            std::tuple(list.Names(0), list.ValueFromIndex(0), list.Names(1), list.Values("ölwert")));
  EXPECT_EQ((std::tuple(-1, 2, 1)), std::tuple(list.IndexOfName("plain"), list.IndexOfName(""), list.IndexOf("PLAIN")));
  list.SetValue("new", "1");
  list.SetValue("NAME", "v");
  list.SetValue("absent", "");  // no such name: nothing to remove
  list.SetValue("Name", "");  // an empty value removes the line
  list.CaseSensitive = true;
  EXPECT_EQ((std::tuple(-1, -1, Lines{"plain", "=empty name", "Ölwert=1", "new=1"})),
            std::tuple(list.IndexOfName("NEW"), list.IndexOf("Plain"), list.Lines()));
}

// Equals are found case-insensitively; an ignored duplicate gives the index
// of its equal, an accepted one goes before its equals. Lines added at once
// merge as the same lines added one by one.
TEST(StringList, SortedListsKeepOrderAndDuplicatesRule) {
  TStringList list;
  list.Sorted = true;
  for (const char* line : {"b", "A", "c", "ä"}) list.Add(line);
  int index = -1;
  EXPECT_EQ(std::tuple(1, 3, false), std::tuple(list.Add("B"), list.IndexOf("Ä"), list.Find("bb", index)));
  EXPECT_EQ(2, index);
  list.Duplicates = TDuplicates::dupError;
  EXPECT_EQ("String list does not allow duplicates", MessageOf<EStringListError>([&] { list.Add("a"); }));
  list.Duplicates = TDuplicates::dupAccept;
  EXPECT_EQ(0, list.Add("a"));
  EXPECT_EQ((Lines{"a", "A", "b", "c", "ä"}), list.Lines());

  std::mt19937 random(7);
  TStringList halves[2], one_by_one, at_once;  // the halves unsorted
  for (int i = 0; i < 1000; ++i) halves[i % 2].Add("f" + std::to_string(random() % 500) + (i % 3 ? "X" : "x"));
  one_by_one.Sorted = at_once.Sorted = true;
  one_by_one.Duplicates = at_once.Duplicates = TDuplicates::dupAccept;
  at_once.SetText(halves[0].GetText());
  at_once.AddStrings(halves[1]);
  for (const TStringList& half : halves) {
    for (const std::string& line : half.Lines()) one_by_one.Add(line);
  }
  EXPECT_EQ(one_by_one.Lines(), at_once.Lines());
}

// A byte-order mark is skipped; failures name the file and the system's text.
TEST(StringList, Files) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "jx-stringlist-Grüße.txt";
  std::ofstream(file, std::ios::binary) << "\xEF\xBB\xBFone\r\ntwo";
  TStringList list;
  list.LoadFromFile(FromFsPath(file));
  std::filesystem::remove(file);
  EXPECT_EQ((Lines{"one", "two"}), list.Lines());
  const std::string missing = FromFsPath(file) + "/no/such.txt";
  EXPECT_EQ("Cannot open file \"" + missing + "\". No such file or directory",
            MessageOf<EFOpenError>([&] { list.LoadFromFile(missing); }));
  EXPECT_EQ("Cannot create file \"" + missing + "\". No such file or directory",
            MessageOf<EFOpenError>([&] { list.SaveToFile(missing); }));
}

}  // namespace
}  // namespace jx
