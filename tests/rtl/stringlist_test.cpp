#include "rtl/stringlist.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
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
      {"", {}},          {"a", {"a"}},           {"a\n", {"a"}},           {"a\r", {"a"}},
      {"a\r\n", {"a"}},  {"a\n\n", {"a", ""}},   {"\n", {""}},             {" x \t", {" x \t"}},
      {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},    {"a\n\nb", {"a", "", "b"}}, {"a\r\rb", {"a", "", "b"}},
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
  EXPECT_EQ("List index out of bounds (2)", MessageOf<EStringListError>([&] { list.Put(2, "x"); }));
  EXPECT_EQ("List index out of bounds (3)", MessageOf<EStringListError>([&] { list.Insert(3, "x"); }));
  list.Insert(2, "c");  // at the end is allowed
  EXPECT_EQ((Lines{"a", "b", "c"}), list.Lines());
}

TEST(StringList, NameValueLines) {
  TStringList list = ListOf({"Name=Value=More", "plain", "=empty name", "Ölwert=1"});
  EXPECT_EQ("Name", list.Names(0));
  EXPECT_EQ("Value=More", list.ValueFromIndex(0));
  EXPECT_EQ("", list.Names(1));
  EXPECT_EQ("", list.ValueFromIndex(1));
  EXPECT_EQ("Value=More", list.Values("NAME"));
  EXPECT_EQ("1", list.Values("ölwert"));
  EXPECT_EQ(-1, list.IndexOfName("plain"));
  EXPECT_EQ(2, list.IndexOfName(""));
  EXPECT_EQ(1, list.IndexOf("PLAIN"));
  list.SetValue("new", "1");
  list.SetValue("NAME", "v");
  EXPECT_EQ((Lines{"NAME=v", "plain", "=empty name", "Ölwert=1", "new=1"}), list.Lines());
  list.SetValue("Name", "");
  list.SetValue("absent", "");
  EXPECT_EQ((Lines{"plain", "=empty name", "Ölwert=1", "new=1"}), list.Lines());
  list.CaseSensitive = true;
  EXPECT_EQ(-1, list.IndexOfName("NEW"));
  EXPECT_EQ(-1, list.IndexOf("Plain"));
}

TEST(StringList, CommaText) {
  const std::pair<const char*, Lines> reading[] = {
      {"", {}},                {"a,b", {"a", "b"}},    {"a b", {"a", "b"}},  // blanks split outside quotes
      {",a", {"", "a"}},       {"a,,b", {"a", "", "b"}}, {"\"x\"y", {"x", "y"}}, {"\"open", {"open"}},
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

TEST(StringList, SortedListsKeepOrderAndDuplicatesRule) {
  TStringList list;
  list.Sorted = true;
  for (const char* line : {"b", "A", "c", "ä"}) list.Add(line);
  EXPECT_EQ(1, list.Add("B"));  // ignored duplicate: the existing index
  EXPECT_EQ((Lines{"A", "b", "c", "ä"}), list.Lines());
  EXPECT_EQ(3, list.IndexOf("Ä"));
  int index = -1;
  EXPECT_FALSE(list.Find("bb", index));
  EXPECT_EQ(2, index);
  list.Duplicates = TDuplicates::dupError;
  EXPECT_EQ("String list does not allow duplicates", MessageOf<EStringListError>([&] { list.Add("a"); }));
  list.Duplicates = TDuplicates::dupAccept;
  EXPECT_EQ(0, list.Add("a"));  // before its equals
  EXPECT_EQ((Lines{"a", "A", "b", "c", "ä"}), list.Lines());
}

TEST(StringList, SortedTextMergesLikeSingleAdds) {
  std::mt19937 random(7);
  std::string texts[2];
  for (int i = 0; i < 2000; ++i) texts[i % 2] += "f" + std::to_string(random() % 1000) + (i % 3 ? "X\n" : "x\n");
  for (TDuplicates duplicates : {TDuplicates::dupIgnore, TDuplicates::dupAccept}) {
    for (bool case_sensitive : {false, true}) {
      TStringList one_by_one, at_once, second;
      for (TStringList* list : {&one_by_one, &at_once}) {
        list->Sorted = true;
        list->CaseSensitive = case_sensitive;
        list->Duplicates = duplicates;
      }
      at_once.SetText(texts[0]);
      second.SetText(texts[1]);
      at_once.AddStrings(second);
      for (const std::string& text : texts) {
        TStringList lines;
        lines.SetText(text);
        for (const std::string& line : lines.Lines()) one_by_one.Add(line);
      }
      EXPECT_EQ(one_by_one.Lines(), at_once.Lines());
    }
  }
  TStringList strict;
  strict.Sorted = true;
  strict.Duplicates = TDuplicates::dupError;
  EXPECT_THROW(strict.SetText("a\nb\nA"), EStringListError);
}

class StringListFiles : public ::testing::Test {
 protected:
  StringListFiles() { std::filesystem::create_directories(dir_); }
  ~StringListFiles() override { std::filesystem::remove_all(dir_); }
  std::string PathOf(const std::string& name) const { return FromFsPath(dir_ / name); }

  const std::filesystem::path dir_ =
      std::filesystem::temp_directory_path() / ("jx-rtl-" + std::to_string(std::random_device()()));
};

TEST_F(StringListFiles, LoadSkipsTheByteOrderMarkAndSplitsLines) {
  const std::pair<const char*, Lines> rows[] = {
      {"\xEF\xBB\xBFone\r\ntwo", {"one", "two"}}, {"\xEF\xBB\xBF", {}}, {"", {}},
      {"\xEF\xBBx", {"\xEF\xBBx"}},               {"a\rb\n", {"a", "b"}},
  };
  for (const auto& [bytes, lines] : rows) {
    std::ofstream(dir_ / "in.txt", std::ios::binary) << bytes;
    TStringList list;
    list.LoadFromFile(PathOf("in.txt"));
    EXPECT_EQ(lines, list.Lines()) << bytes;
  }
}

TEST_F(StringListFiles, SaveAndLoadRoundTrip) {
  const std::string path = PathOf("Grüße list.txt");
  TStringList list = ListOf({"one", "", "drei é", "last"});
  list.SaveToFile(path);
  TStringList again;
  again.LoadFromFile(path);
  EXPECT_EQ(list.Lines(), again.Lines());
  std::ifstream in(ToFsPath(path), std::ios::binary);
  EXPECT_EQ(list.GetText(), std::string(std::istreambuf_iterator<char>(in), {}));
}

TEST_F(StringListFiles, FailuresNameTheFileAndTheSystemMessage) {
  TStringList list;
  const std::string missing = PathOf("missing.txt"), dir = FromFsPath(dir_), no_dir = PathOf("no/such.txt");
  EXPECT_EQ("Cannot open file \"" + missing + "\". No such file or directory",
            MessageOf<EFOpenError>([&] { list.LoadFromFile(missing); }));
  EXPECT_EQ("Cannot open file \"" + dir + "\". Is a directory", MessageOf<EFOpenError>([&] { list.LoadFromFile(dir); }));
  EXPECT_EQ("Cannot create file \"" + no_dir + "\". No such file or directory",
            MessageOf<EFOpenError>([&] { list.SaveToFile(no_dir); }));
}

}  // namespace
}  // namespace jx
