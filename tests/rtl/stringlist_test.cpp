#include "rtl/stringlist.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>

#include "rtl/paths.h"
#include "rtl/sysutils.h"

namespace jx {
namespace {

using Lines = std::vector<std::string>;

TStringList ListOf(const Lines& lines) {
  TStringList list;
  for (const std::string& line : lines) list.Add(line);
  return list;
}

TEST(StringList, TextSplitsAtCrLfAndCrLf) {
  struct Row {
    const char* text;
    Lines lines;
  };
  const Row rows[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\n", {"a"}},
      {"a\r", {"a"}},
      {"a\r\n", {"a"}},
      {"a\n\n", {"a", ""}},
      {"\n", {""}},
      {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},
      {"a\n\nb", {"a", "", "b"}},
      {"a\r\rb", {"a", "", "b"}},
      {"a\n\rb", {"a", "", "b"}},  // LF then CR is two breaks
      {" x \t", {" x \t"}},
  };
  for (const Row& row : rows) {
    TStringList list;
    list.Add("old");
    list.SetText(row.text);
    EXPECT_EQ(row.lines, list.Lines()) << row.text;
  }
  TStringList list = ListOf({"x", "", "y"});
  EXPECT_EQ(std::string("x") + sLineBreak + sLineBreak + "y" + sLineBreak, list.GetText());
  list.LineBreak = "\r\n";
  EXPECT_EQ("x\r\n\r\ny\r\n", list.GetText());
  EXPECT_EQ("", TStringList().GetText());
}

TEST(StringList, IndexChecks) {
  TStringList list = ListOf({"a", "b"});
  struct Row {
    std::function<void()> call;
    const char* message;
  };
  const Row rows[] = {
      {[&] { (void)list[5]; }, "List index out of bounds (5)"},
      {[&] { (void)list[-1]; }, "List index out of bounds (-1)"},
      {[&] { (void)list[2]; }, "List index out of bounds (2)"},
      {[&] { list.Delete(2); }, "List index out of bounds (2)"},
      {[&] { list.Put(3, "x"); }, "List index out of bounds (3)"},
      {[&] { list.Insert(3, "x"); }, "List index out of bounds (3)"},
  };
  for (const Row& row : rows) {
    try {
      row.call();
      ADD_FAILURE() << "no error for " << row.message;
    } catch (const EStringListError& e) {
      EXPECT_EQ(row.message, e.Message());
    }
  }
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
  EXPECT_EQ("new=1", list[4]);
  list.SetValue("NAME", "v");
  EXPECT_EQ("NAME=v", list[0]);
  list.SetValue("Name", "");
  list.SetValue("absent", "");
  EXPECT_EQ((Lines{"plain", "=empty name", "Ölwert=1", "new=1"}), list.Lines());
  list.CaseSensitive = true;
  EXPECT_EQ(-1, list.IndexOfName("NEW"));
  EXPECT_EQ(-1, list.IndexOf("Plain"));
}

TEST(StringList, CommaText) {
  struct Row {
    const char* text;
    Lines lines;
  };
  const Row reading[] = {
      {"", {}},
      {"a,b", {"a", "b"}},
      {"a b", {"a", "b"}},  // blanks split outside quotes
      {" a, \"b c\",\"say \"\"hi\"\"\" d,", {"a", "b c", "say \"hi\"", "d", ""}},
      {",a", {"", "a"}},
      {"a,,b", {"a", "", "b"}},
      {"\"x\"y", {"x", "y"}},
      {"\"open", {"open"}},
  };
  for (const Row& row : reading) {
    TStringList list;
    list.SetCommaText(row.text);
    EXPECT_EQ(row.lines, list.Lines()) << row.text;
  }
  const Row writing[] = {
      {"", {}},
      {"\"\"", {""}},
      {"a,,b", {"a", "", "b"}},
      {"a,\"b c\",\"say \"\"hi\"\"\",\"x,y\",\"tab\t\"", {"a", "b c", "say \"hi\"", "x,y", "tab\t"}},
  };
  for (const Row& row : writing) EXPECT_EQ(row.text, ListOf(row.lines).GetCommaText()) << row.text;
}

TEST(StringList, SortedListsKeepOrderAndDuplicatesRule) {
  TStringList list;
  list.Sorted = true;
  for (const char* line : {"b", "A", "c", "ä"}) list.Add(line);
  EXPECT_EQ(1, list.Add("B"));  // ignored duplicate: the existing index
  EXPECT_EQ((Lines{"A", "b", "c", "ä"}), list.Lines());
  EXPECT_EQ(2, list.IndexOf("C"));
  EXPECT_EQ(3, list.IndexOf("Ä"));
  int index = -1;
  EXPECT_FALSE(list.Find("bb", index));
  EXPECT_EQ(2, index);
  list.Duplicates = TDuplicates::dupError;
  try {
    list.Add("a");
    FAIL();
  } catch (const EStringListError& e) {
    EXPECT_EQ("String list does not allow duplicates", e.Message());
  }
  list.Duplicates = TDuplicates::dupAccept;
  EXPECT_EQ(0, list.Add("a"));  // before its equals
  EXPECT_EQ((Lines{"a", "A", "b", "c", "ä"}), list.Lines());
}

TEST(StringList, SortedTextMergesLikeSingleAdds) {
  std::mt19937 random(7);
  Lines lines;
  for (int i = 0; i < 2000; ++i) lines.push_back("f" + std::to_string(random() % 1500) + (i % 2 ? "X" : "x"));
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  for (bool case_sensitive : {false, true}) {
    TStringList one_by_one, at_once;
    for (TStringList* list : {&one_by_one, &at_once}) {
      list->Sorted = true;
      list->CaseSensitive = case_sensitive;
      list->Add("f1x");
    }
    for (const std::string& line : lines) one_by_one.Add(line);
    at_once.SetText("f1x\n" + text);
    EXPECT_EQ(one_by_one.Lines(), at_once.Lines());
  }
  TStringList strict;
  strict.Sorted = true;
  strict.Duplicates = TDuplicates::dupError;
  EXPECT_THROW(strict.SetText("a\nb\nA"), EStringListError);
}

class StringListFiles : public ::testing::Test {
 protected:
  StringListFiles() {
    dir_ = std::filesystem::temp_directory_path() / ("jx-rtl-" + std::to_string(std::random_device()()));
    std::filesystem::create_directories(dir_);
  }
  ~StringListFiles() override { std::filesystem::remove_all(dir_); }
  std::string PathOf(const std::string& name) const { return FromFsPath(dir_) + "/" + name; }
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(ToFsPath(PathOf(name)), std::ios::binary) << bytes;
  }

  std::filesystem::path dir_;
};

TEST_F(StringListFiles, LoadSkipsTheByteOrderMarkAndSplitsLines) {
  const std::pair<const char*, Lines> rows[] = {
      {"\xEF\xBB\xBFone\r\ntwo", {"one", "two"}},
      {"\xEF\xBB\xBF", {}},
      {"", {}},
      {"\xEF\xBBx", {"\xEF\xBBx"}},
      {"a\rb\n", {"a", "b"}},
  };
  for (const auto& [bytes, lines] : rows) {
    Write("in.txt", bytes);
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
  const std::string missing = PathOf("missing.txt");
  const std::string no_dir = PathOf("no/such.txt");
  struct Row {
    std::function<void()> call;
    std::string message;
  };
  const Row rows[] = {
      {[&] { list.LoadFromFile(missing); }, "Cannot open file \"" + missing + "\". No such file or directory"},
      {[&] { list.LoadFromFile(FromFsPath(dir_)); }, "Cannot open file \"" + FromFsPath(dir_) + "\". Is a directory"},
      {[&] { list.SaveToFile(no_dir); }, "Cannot create file \"" + no_dir + "\". No such file or directory"},
  };
  for (const Row& row : rows) {
    try {
      row.call();
      ADD_FAILURE() << "no error for " << row.message;
    } catch (const EFOpenError& e) {
      EXPECT_EQ(row.message, e.Message());
    }
  }
}

}  // namespace
}  // namespace jx
