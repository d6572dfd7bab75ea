#include "rtl/paths.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

// POSIX rules: '/' is the only delimiter and there are no drive letters.
TEST(Paths, SplitsAtTheLastDelimiter) {
  struct Row {
    const char* name;
    const char* path;
    const char* dir;
    const char* file;
    const char* ext;
  };
  const Row rows[] = {
      {"", "", "", "", ""},
      {"/", "/", "/", "", ""},
      {"a/", "a/", "a", "", ""},
      {"/a", "/", "/", "a", ""},
      {"/a/b.c", "/a/", "/a", "b.c", ".c"},
      {"a.b/c", "a.b/", "a.b", "c", ""},
      {"a.b.c", "", "", "a.b.c", ".c"},
      {"a/b/", "a/b/", "a/b", "", ""},
      {"//x", "//", "//", "x", ""},  // a root of two delimiters stays whole
      {"a.", "", "", "a.", "."},
      {".bashrc", "", "", ".bashrc", ".bashrc"},
      {"C:\\dir\\f.txt", "", "", "C:\\dir\\f.txt", ".txt"},
      {"dir with space/é file.txt", "dir with space/", "dir with space", "é file.txt", ".txt"},
      {"Grüße/日本.テキスト", "Grüße/", "Grüße", "日本.テキスト", ".テキスト"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.path, ExtractFilePath(row.name)) << row.name;
    EXPECT_EQ(row.dir, ExtractFileDir(row.name)) << row.name;
    EXPECT_EQ(row.file, ExtractFileName(row.name)) << row.name;
    EXPECT_EQ(row.ext, ExtractFileExt(row.name)) << row.name;
  }
}

TEST(Paths, ChangeFileExt) {
  const char* const rows[][3] = {
      {"a.txt", ".bak", "a.bak"},  {"a", ".bak", "a.bak"},      {"d.x/a", ".bak", "d.x/a.bak"},
      {"a.b.c", "", "a.b"},        {"/x/.rc", ".y", "/x/.y"},   {"", ".e", ".e"},
      {"ä ö.txt", "", "ä ö"},
  };
  for (const auto& row : rows) EXPECT_EQ(row[2], ChangeFileExt(row[0], row[1])) << row[0];
}

TEST(Paths, DrivesAndTrailingDelimiters) {
  const char* const drives[][2] = {{"/usr/bin", ""}, {"C:/x", ""}, {"//server/share/dir/file", "//server/share"},
                                   {"//server/share", "//server/share"}, {"//server/", "//server"}, {"//", "//"}};
  for (const auto& row : drives) EXPECT_EQ(row[1], ExtractFileDrive(row[0])) << row[0];
  const char* const trailing[][3] = {  // text, with delimiter, without
      {"", "/", ""}, {"/", "/", ""}, {"a", "a/", "a"}, {"a/", "a/", "a"}, {"a//", "a//", "a/"}};
  for (const auto& row : trailing) {
    EXPECT_EQ(row[1], IncludeTrailingPathDelimiter(row[0])) << row[0];
    EXPECT_EQ(row[2], ExcludeTrailingPathDelimiter(row[0])) << row[0];
  }
  EXPECT_TRUE(IsPathDelimiter("a/b", 1));
  EXPECT_FALSE(IsPathDelimiter("a/b", 0));
  EXPECT_FALSE(IsPathDelimiter("a/b", 5));
  EXPECT_FALSE(IsPathDelimiter("a\\b", 1));
}

TEST(Paths, FileSystemPathKeepsUtf8) {
  const std::string name = "dir/Grüße 日本.txt";
  EXPECT_EQ(name, FromFsPath(ToFsPath(name)));
  EXPECT_TRUE(ToFsPath(name).filename().u8string() == u8"Grüße 日本.txt");  // gtest cannot print u8string
}

}  // namespace
}  // namespace jx
