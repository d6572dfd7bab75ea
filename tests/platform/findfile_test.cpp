#include "platform/findfile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "platform/attributes.h"
#include "platform/clock.h"
#include "platform/fileidentity.h"
#include "platform/lasterror.h"
#include "support/actiontest.h"

namespace jx {
namespace {

using Names = std::vector<std::string>;

TEST(MatchesMask, Win32Rules) {
  const struct { const char *name, *mask; bool matches; } cases[] = {
      {"Makefile", "*.*", true}, {".", "*.*", true}, {"..", "*", true}, {"a.c", "?.c", true}, {"ab.c", "?.c", false},
      {".c", "?.c", true}, {"a", "a?", true}, {"ab", "a?", true}, {"abc", "a?", false},  // '?' may match nothing
      {"a.txt", "a??.txt", true}, {"abcd.txt", "a??.txt", false}, {"x.TXT", "*.txt", false},  // case counts
      {"makefile", "Makefile", false}, {"x.txt.bak", "*.txt", false}, {"Makefile", "*.", true}, {"a.txt", "*.", false},
      {"foo", "foo.", true}, {"foo", "foo.*", true}, {"foo.tar.gz", "foo.*", true}, {"food", "foo.*", false},
      {"report 2020.txt", "report *.txt", true}, {"report2020.txt", "report *.txt", false},
      {"Grüße.txt", "Gr??e.txt", true}, {"Grüße.txt", "Gr?e.txt", false},  // '?' is a character, not a byte
      {"Grüsse.txt", "Grüße.txt", false}, {"日本.txt", "*本.txt", true}, {"aXbXc", "a*b*c", true}, {"abab", "*ab", true},
      {"ac", "a*b*c", false}, {"", "*", true}, {"a", "", false}, {"profile", "*.*e", false}, {"x.e", "*.*e", true},
  };
  for (const auto& c : cases) EXPECT_EQ(c.matches, MatchesMask(c.name, c.mask)) << c.name << " | " << c.mask;
  const std::string name(300, 'a');  // beyond the stack buffer
  EXPECT_TRUE(MatchesMask(name, std::string(299, 'a') + "?"));
  EXPECT_TRUE(MatchesMask(name, std::string(150, '*') + std::string(150, 'a')));
  EXPECT_FALSE(MatchesMask(name, std::string(301, 'a')));
}

// A directory with one entry of each kind a search filters on.
class FindFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_.WriteFile("plain.txt", "hello");
    dir_.WriteFile(".dotted");
    dir_.MakeDir("sub");
    ASSERT_EQ(0, symlink("sub", (dir_ / "linked").c_str()));
    ASSERT_EQ(0, symlink("nowhere", (dir_ / "dangling").c_str()));
    ASSERT_TRUE(FileSetAttr(dir_.WriteFile("readonly.txt"), faReadOnly));
    const bool stored = FileSetAttr(dir_.WriteFile("flagged.txt"), faHidden) &&
                        FileSetAttr(dir_.WriteFile("system.bin"), faSysFile) &&
                        FileSetAttr(dir_.WriteFile("archived.txt"), faArchive);
    if (!stored) GTEST_SKIP() << "no extended attributes on the temporary file system";
  }

  // The names of FindFirst/FindNext, sorted: the OS decides their order.
  Names Found(const std::string& mask, uint32_t attr, TFindDetail detail) {
    Names names;
    TSearchRec rec;
    for (int rc = FindFirst(dir_ / mask, attr, rec, detail); rc == 0; rc = FindNext(rec)) names.push_back(rec.Name);
    FindClose(rec);
    std::sort(names.begin(), names.end());
    return names;
  }

  test::TempDir dir_;
};

Names Matches(const std::string& pattern, uint32_t attr, TFindDirs dirs = TFindDirs::MatchingMask) {
  Names names;
  TFindMatches matches(pattern, attr, TFindDetail::Kind, dirs);
  for (const TSearchRec& rec : matches) names.push_back(rec.Name);
  EXPECT_EQ(0, matches.Error()) << pattern;
  std::sort(names.begin(), names.end());
  return names;
}

// Both details admit the same entries; a link counts as what it leads to.
TEST_F(FindFileTest, MaskAndAttributesAdmitAsWin32Does) {
  const struct { const char* mask; uint32_t attr; Names names; } cases[] = {
      {"*", 0, {"archived.txt", "dangling", "plain.txt", "readonly.txt"}},
      {"*", faReadOnly | faHidden, {".dotted", "archived.txt", "dangling", "flagged.txt", "plain.txt", "readonly.txt"}},
      {"*", faDirectory, {".", "..", "archived.txt", "dangling", "linked", "plain.txt", "readonly.txt", "sub"}},
      {"*.*", faAnyFile, {".", "..", ".dotted", "archived.txt", "dangling", "flagged.txt", "linked", "plain.txt",
                          "readonly.txt", "sub", "system.bin"}},
      {"*.txt", faAnyFile, {"archived.txt", "flagged.txt", "plain.txt", "readonly.txt"}},
      {"*.", faAnyFile, {".", "..", "dangling", "linked", "sub"}}, {"plain.txt", 0, {"plain.txt"}}, {".dotted", 0, {}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.names, Found(c.mask, c.attr, TFindDetail::Full)) << c.mask << " " << c.attr;
    EXPECT_EQ(c.names, Found(c.mask, c.attr, TFindDetail::Kind)) << c.mask << " " << c.attr;
  }
}

// Kind reports only the bits the mask filters on, and no size or time. The
// last match is followed by "no more files".
TEST_F(FindFileTest, RecordDescribesTheEntry) {
  const timespec times[2] = {{1600000000, 0}, {1600000000, 250000000}};
  ASSERT_EQ(0, utimensat(AT_FDCWD, (dir_ / "plain.txt").c_str(), times, 0));
  const struct { const char* name; uint32_t attr; int64_t size; uint32_t kind; } cases[] = {
      {"plain.txt", faNormal, 5, 0}, {"readonly.txt", faReadOnly, 0, 0}, {".dotted", faHidden, 0, faHidden},
      {"flagged.txt", faHidden, 0, faHidden}, {"system.bin", faSysFile, 0, faSysFile},
      {"archived.txt", faArchive, 0, faArchive}, {"sub", faDirectory, 0, faDirectory},
      {"linked", faDirectory, 0, faDirectory},
  };
  for (const auto& c : cases) {
    TSearchRec full, kind;
    ASSERT_EQ(0, FindFirst(dir_ / c.name, faAnyFile, full, TFindDetail::Full)) << c.name;
    ASSERT_EQ(0, FindFirst(dir_ / c.name, faAnyFile, kind, TFindDetail::Kind)) << c.name;
    EXPECT_EQ(std::tuple(c.attr, c.size, c.kind), std::tuple(full.Attr, full.Size, kind.Attr)) << c.name;
    EXPECT_EQ(0, kind.Size + kind.Time) << c.name;
  }
  TSearchRec rec;
  ASSERT_EQ(0, FindFirst(dir_ / "plain.txt", 0, rec));
  EXPECT_DOUBLE_EQ(UnixTimeToLocal(1600000000, 250000000), rec.Time);  // local time, to the nanosecond
  EXPECT_EQ(static_cast<int>(kErrorNoMoreFiles), FindNext(rec));
  EXPECT_EQ(kErrorNoMoreFiles, GetLastError());
  FindClose(rec);
}

size_t OpenDescriptors() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

// A range leaves out "." and ".."; with AnyName files must still match the
// mask, and every directory the attributes admit is yielded. The search is
// closed however the loop ends.
TEST_F(FindFileTest, Matches) {
  dir_.WriteFile("x.o");
  dir_.MakeDir("tree.o");
  dir_.MakeDir(".git");
  const auto any = TFindDirs::AnyName;
  EXPECT_EQ((Names{".dotted", ".git"}), Matches(dir_ / ".*", faDirectory | faHidden));
  EXPECT_EQ((Names{"linked", "sub", "tree.o", "x.o"}), Matches(dir_ / "*.o", faDirectory, any));
  EXPECT_EQ((Names{".git", "linked", "sub", "tree.o", "x.o"}), Matches(dir_ / "*.o", faDirectory | faHidden, any));
  EXPECT_EQ((Names{"x.o"}), Matches(dir_ / "*.o", faReadOnly, any));

  const size_t before = OpenDescriptors();
  for (const TSearchRec& rec : TFindMatches(dir_ / "*", 0)) {
    EXPECT_EQ(before + 1, OpenDescriptors()) << rec.Name;
    break;
  }
  EXPECT_EQ(before, OpenDescriptors());
  EXPECT_THROW(for (const TSearchRec& rec : TFindMatches(dir_ / "*", 0)) throw std::runtime_error(rec.Name),
               std::runtime_error);
  EXPECT_EQ(before, OpenDescriptors());
  test::CurrentDirScope inside(dir_.Path());
  EXPECT_EQ((Names{"plain.txt"}), Matches("plain.*", 0));  // no directory part: the current one
}

// FindFirst's code, and what a range makes of it: nothing to search is no
// error there; a directory that cannot be opened (a loop of links) is.
TEST_F(FindFileTest, Errors) {
  ASSERT_EQ(0, symlink("loop", (dir_ / "loop").c_str()));
  const struct { const char* pattern; uint32_t first; int range; } cases[] = {
      {"*.none", kErrorFileNotFound, 0}, {"missing/*", kErrorPathNotFound, 0},
      {"plain.txt/*", kErrorPathNotFound, 0}, {"loop/*", ELOOP, ELOOP}};
  for (const auto& c : cases) {
    TSearchRec rec;
    EXPECT_EQ(static_cast<int>(c.first), FindFirst(dir_ / c.pattern, faAnyFile, rec)) << c.pattern;
    EXPECT_EQ(c.range, TFindMatches(dir_ / c.pattern, faAnyFile).Error()) << c.pattern;
  }
}

TEST_F(FindFileTest, IsSameFileHoweverThePathIsSpelled) {
  const std::string file = dir_ / "plain.txt";
  ASSERT_EQ(0, link(file.c_str(), (dir_ / "hard").c_str()));
  const struct { std::string a, b; bool same; } cases[] = {
      {file, dir_ / "./plain.txt", true}, {file, dir_ / "sub/../plain.txt", true}, {file, dir_ / "hard", true},
      {dir_ / "sub", dir_ / "linked/", true}, {file, dir_ / ".dotted", false}, {file, dir_ / "none", false},
      {dir_ / "none", dir_ / "none", false}};
  for (const auto& c : cases) EXPECT_EQ(c.same, IsSameFile(c.a, c.b)) << c.a << " | " << c.b;
}

// A recursive walk as the actions make it: links followed, each step entered.
void Walk(TWalkPath& path, const std::string& dir, Names& seen) {
  TWalkStep step(path, dir);
  if (!step.Entered()) return;
  seen.push_back(dir);
  for (const TSearchRec& rec : TFindMatches(dir + "/*", faDirectory, TFindDetail::Kind, TFindDirs::AnyName)) {
    if (rec.Attr & faDirectory) Walk(path, dir + "/" + rec.Name, seen);
  }
}

// A link back up to a directory the walk stands in is not entered again; one
// to a directory beside the path is, and so is the top once it was left. What
// cannot be examined is entered: its own search then fails.
TEST_F(FindFileTest, WalkPathEntersNoDirectoryTwice) {
  ASSERT_EQ(0, symlink("..", (dir_ / "sub/up").c_str()));
  TWalkPath path;
  Names seen;
  Walk(path, dir_.Path(), seen);
  std::sort(seen.begin(), seen.end());
  EXPECT_EQ((Names{dir_.Path(), dir_ / "linked", dir_ / "sub"}), seen);
  EXPECT_TRUE(TWalkStep(path, dir_.Path()).Entered());  // left at the end of the walk
  TWalkStep missing(path, dir_ / "missing");
  EXPECT_TRUE(missing.Entered());
  EXPECT_TRUE(TWalkStep(path, dir_ / "missing").Entered());
}

}  // namespace
}  // namespace jx
