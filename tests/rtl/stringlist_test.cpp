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
