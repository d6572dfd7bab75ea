#include "rtl/paths.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

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

}  // namespace
}  // namespace jx
