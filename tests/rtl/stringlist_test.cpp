#include "rtl/stringlist.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "messageof.h"
#include "rtl/paths.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

using Lines = std::vector<std::string>;
using test::MessageOf;

TStringList ListOf(const Lines& lines) {
  TStringList list;
  for (const std::string& line : lines) list.Add(line);
  return list;
}

TEST(StringList, TextSplitsAtCrLfAndCrLf) {
  const std::pair<const char*, Lines> rows[] = {
      {"", {}}, {"a", {"a"}}, {"a\n", {"a"}}, {"a\r", {"a"}}, {"a\r\n", {"a"}}, {"a\n\n", {"a", ""}}, {"\n", {""}},
      {" x \t", {" x \t"}}, {"a\r\nb\rc\nd", {"a", "b", "c", "d"}}, {"a\r\rb", {"a", "", "b"}},
      {"a\n\rb", {"a", "", "b"}},  // LF then CR is two breaks
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
}

TEST(StringList, IndexChecks) {
  TStringList list = ListOf({"a", "b"});
  EXPECT_EQ("List index out of bounds (5)", MessageOf<EStringListError>([&] { (void)list[5]; }));
  EXPECT_EQ("List index out of bounds (-1)", MessageOf<EStringListError>([&] { (void)list[-1]; }));
  EXPECT_EQ("List index out of bounds (2)", MessageOf<EStringListError>([&] { list.Delete(2); }));
  EXPECT_EQ("List index out of bounds (3)", MessageOf<EStringListError>([&] { list.Insert(3, "x"); }));
  list.Insert(2, "c");  // at the end is allowed
  EXPECT_EQ((Lines{"a", "b", "c"}), list.Lines());
}

TEST(StringList, NameValueLines) {
  TStringList list = ListOf({"Name=Value=More", "plain", "=empty name", "Ölwert=1"});
  EXPECT_EQ((std::pair<std::string, std::string>("Name", "Value=More")), std::pair(list.Names(0), list.ValueFromIndex(0)));
  EXPECT_EQ((std::pair<std::string, std::string>("", "")), std::pair(list.Names(1), list.ValueFromIndex(1)));
  EXPECT_EQ("1", list.Values("ölwert"));
  EXPECT_EQ((std::tuple(-1, 2, 1)), std::tuple(list.IndexOfName("plain"), list.IndexOfName(""), list.IndexOf("PLAIN")));
  list.SetValue("new", "1");
  list.SetValue("NAME", "v");
  EXPECT_EQ((Lines{"NAME=v", "plain", "=empty name", "Ölwert=1", "new=1"}), list.Lines());
  list.SetValue("Name", "");
  list.SetValue("absent", "");
  EXPECT_EQ((Lines{"plain", "=empty name", "Ölwert=1", "new=1"}), list.Lines());
  list.CaseSensitive = true;
  EXPECT_EQ((std::pair(-1, -1)), std::pair(list.IndexOfName("NEW"), list.IndexOf("Plain")));
}

TEST(StringList, CommaText) {
  const std::pair<const char*, Lines> reading[] = {
      {"", {}}, {"a,b", {"a", "b"}}, {"a b", {"a", "b"}}, {",a", {"", "a"}}, {"a,,b", {"a", "", "b"}},
      {"\"x\"y", {"x", "y"}}, {"\"open", {"open"}},  // blanks split outside quotes
      {" a, \"b c\",\"say \"\"hi\"\"\" d,", {"a", "b c", "say \"hi\"", "d", ""}},
  };
  for (const auto& [text, lines] : reading) {
    TStringList list;
    list.SetCommaText(text);
    EXPECT_EQ(lines, list.Lines()) << text;
  }
  const std::pair<const char*, Lines> writing[] = {
      {"", {}}, {"\"\"", {""}}, {"a,,b", {"a", "", "b"}},
      {"a,\"b c\",\"say \"\"hi\"\"\",\"x,y\",\"tab\t\"", {"a", "b c", "say \"hi\"", "x,y", "tab\t"}},
  };
  for (const auto& [text, lines] : writing) EXPECT_EQ(text, ListOf(lines).GetCommaText()) << text;
}

// Equals are found case-insensitively unless asked; an ignored duplicate
// gives the index of its equal, an accepted one goes before its equals.
// Lines added at once merge as the same lines added one by one.
TEST(StringList, SortedListsKeepOrderAndDuplicatesRule) {
  TStringList list;
  list.Sorted = true;
  for (const char* line : {"b", "A", "c", "ä"}) list.Add(line);
  EXPECT_EQ(std::tuple(1, 3), std::tuple(list.Add("B"), list.IndexOf("Ä")));
  int index = -1;
  EXPECT_EQ(std::pair(false, 2), std::pair(list.Find("bb", index), index));
  list.Duplicates = TDuplicates::dupError;
  EXPECT_EQ("String list does not allow duplicates", MessageOf<EStringListError>([&] { list.Add("a"); }));
  list.Duplicates = TDuplicates::dupAccept;
  EXPECT_EQ(0, list.Add("a"));
  EXPECT_EQ((Lines{"a", "A", "b", "c", "ä"}), list.Lines());

  std::mt19937 random(7);
  std::string texts[2];
  for (int i = 0; i < 2000; ++i) texts[i % 2] += "f" + std::to_string(random() % 1000) + (i % 3 ? "X\n" : "x\n");
  for (const auto& [duplicates, case_sensitive] :
       {std::pair(TDuplicates::dupIgnore, false), {TDuplicates::dupIgnore, true}, {TDuplicates::dupAccept, false}}) {
    TStringList one_by_one, at_once, second;
    for (TStringList* sorted : {&one_by_one, &at_once}) {
      sorted->Sorted = true;
      sorted->CaseSensitive = case_sensitive;
      sorted->Duplicates = duplicates;
    }
    at_once.SetText(texts[0]);
    second.SetText(texts[1]);
    at_once.AddStrings(second);
    second.SetText(texts[0] + texts[1]);
    for (const std::string& line : second.Lines()) one_by_one.Add(line);
    EXPECT_EQ(one_by_one.Lines(), at_once.Lines());
  }
}

// A byte-order mark is skipped; failures name the file and the system's text.
TEST(StringList, Files) {
  const std::filesystem::path dir =
      std::filesystem::temp_directory_path() / ("jx-rtl-" + std::to_string(std::random_device()()));
  std::filesystem::create_directories(dir);
  struct Remove { std::filesystem::path dir; ~Remove() { std::filesystem::remove_all(dir); } } remove{dir};
  const std::pair<const char*, Lines> rows[] = {
      {"\xEF\xBB\xBFone\r\ntwo", {"one", "two"}}, {"\xEF\xBB\xBF", {}}, {"\xEF\xBBx", {"\xEF\xBBx"}}, {"a\rb\n", {"a", "b"}}};
  TStringList list;
  for (const auto& [bytes, lines] : rows) {
    std::ofstream(dir / "in.txt", std::ios::binary) << bytes;
    list.LoadFromFile(FromFsPath(dir / "in.txt"));
    EXPECT_EQ(lines, list.Lines()) << bytes;
  }
  const std::string path = FromFsPath(dir / "Grüße list.txt"), missing = FromFsPath(dir / "no/such.txt");
  list = ListOf({"one", "", "drei é", "last"});
  list.SaveToFile(path);
  TStringList again;
  again.LoadFromFile(path);
  EXPECT_EQ(list.Lines(), again.Lines());
  EXPECT_EQ("Cannot open file \"" + missing + "\". No such file or directory",
            MessageOf<EFOpenError>([&] { list.LoadFromFile(missing); }));
  EXPECT_EQ("Cannot open file \"" + FromFsPath(dir) + "\". Is a directory",
            MessageOf<EFOpenError>([&] { list.LoadFromFile(FromFsPath(dir)); }));
  EXPECT_EQ("Cannot create file \"" + missing + "\". No such file or directory",
            MessageOf<EFOpenError>([&] { list.SaveToFile(missing); }));
}

}  // namespace
}  // namespace jx
