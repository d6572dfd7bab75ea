#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "platform/attributes.h"
#include "platform/clock.h"
#include "platform/fileops.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "support/tempdir.h"

namespace jx {
namespace {

// A directory with one entry of each kind a search filters on.
class FindFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_.WriteFile("plain.txt", "hello");
    dir_.WriteFile(".dotted");
    dir_.WriteFile("readonly.txt");
    dir_.MakeDir("sub");
    ASSERT_TRUE(FileSetAttr(dir_ / "readonly.txt", faReadOnly));
    if (!FileSetAttr(dir_.WriteFile("flagged.txt"), faHidden) || !FileSetAttr(dir_.WriteFile("system.bin"), faSysFile)) {
      GTEST_SKIP() << "the temporary file system has no extended attributes (error " << GetLastError() << ")";
    }
  }

  // The names a search yields, sorted: the OS decides their order.
  std::vector<std::string> Names(const std::string& mask, uint32_t attr, TFindDetail detail = TFindDetail::Full) {
    std::vector<std::string> names;
    TSearchRec rec;
    for (int rc = FindFirst(dir_ / mask, attr, rec, detail); rc == 0; rc = FindNext(rec)) names.push_back(rec.Name);
    FindClose(rec);
    std::sort(names.begin(), names.end());
    return names;
  }

  TSearchRec FindOne(const std::string& name, TFindDetail detail = TFindDetail::Full) {
    TSearchRec rec;
    EXPECT_EQ(0, FindFirst(dir_ / name, faAnyFile, rec, detail)) << name;
    FindClose(rec);
    return rec;
  }

  test::TempDir dir_;
};

using NameList = std::vector<std::string>;

TEST_F(FindFileTest, AttributeMaskAdmitsAsWin32Does) {
  EXPECT_EQ((NameList{"plain.txt", "readonly.txt"}), Names("*", 0));
  EXPECT_EQ((NameList{".dotted", "flagged.txt", "plain.txt", "readonly.txt"}), Names("*", faReadOnly | faHidden));
  EXPECT_EQ((NameList{".", "..", "plain.txt", "readonly.txt", "sub"}), Names("*", faDirectory));
  EXPECT_EQ((NameList{".", "..", ".dotted", "flagged.txt", "plain.txt", "readonly.txt", "sub", "system.bin"}),
            Names("*.*", faAnyFile));
}

TEST_F(FindFileTest, MaskSelectsNames) {
  EXPECT_EQ((NameList{"flagged.txt", "plain.txt", "readonly.txt"}), Names("*.txt", faAnyFile));
  EXPECT_EQ((NameList{".", "..", "sub"}), Names("*.", faAnyFile));
  EXPECT_EQ((NameList{"plain.txt"}), Names("plain.txt", 0));
  EXPECT_EQ((NameList{}), Names(".dotted", 0));
}

TEST_F(FindFileTest, RecordDescribesTheEntry) {
  const struct {
    const char* name;
    uint32_t attr;
    int64_t size;
  } cases[] = {
      {"plain.txt", faNormal, 5}, {"readonly.txt", faReadOnly, 0}, {".dotted", faHidden, 0},
      {"system.bin", faSysFile, 0}, {"sub", faDirectory, 0},
  };
  for (const auto& c : cases) {
    const TSearchRec rec = FindOne(c.name);
    EXPECT_EQ(c.name, rec.Name);
    EXPECT_EQ(c.attr, rec.Attr) << c.name;
    EXPECT_EQ(c.size, rec.Size) << c.name;
  }
}

TEST_F(FindFileTest, TimeIsTheLocalLastWriteTime) {
  const timespec times[2] = {{1600000000, 0}, {1600000000, 250000000}};
  ASSERT_EQ(0, utimensat(AT_FDCWD, (dir_ / "plain.txt").c_str(), times, 0));
  EXPECT_DOUBLE_EQ(UnixTimeToLocal(1600000000, 250000000), FindOne("plain.txt").Time);
}

// The kind comes from the directory entry and the stored bits; a link is
// followed to tell whether it leads to a directory.
TEST_F(FindFileTest, KindDetailReportsTheBitsTheMaskFiltersOn) {
  ASSERT_EQ(0, symlink("sub", (dir_ / "linked").c_str()));
  ASSERT_EQ(0, symlink("nowhere", (dir_ / "dangling").c_str()));
  ASSERT_TRUE(FileSetAttr(dir_.WriteFile("archived.txt", "data"), faArchive));
  const struct {
    const char* name;
    uint32_t attr;
  } cases[] = {
      {"plain.txt", 0},          {"readonly.txt", 0}, {".dotted", faHidden}, {"flagged.txt", faHidden},
      {"system.bin", faSysFile}, {"sub", faDirectory}, {"linked", faDirectory}, {"dangling", 0},
      {"archived.txt", faArchive},
  };
  for (const auto& c : cases) {
    const TSearchRec rec = FindOne(c.name, TFindDetail::Kind);
    EXPECT_EQ(c.attr, rec.Attr) << c.name;
    EXPECT_EQ(0, rec.Size) << c.name;
    EXPECT_EQ(0, rec.Time) << c.name;
  }
}

TEST_F(FindFileTest, KindDetailAdmitsWhatFullDetailAdmits) {
  ASSERT_EQ(0, symlink("sub", (dir_ / "linked").c_str()));
  for (const uint32_t attr : {0u, faReadOnly | faHidden, faDirectory, faSysFile, faAnyFile}) {
    EXPECT_EQ(Names("*", attr), Names("*", attr, TFindDetail::Kind)) << attr;
  }
}

TEST_F(FindFileTest, EndsWithNoMoreFilesAndNoMatchIsFileNotFound) {
  TSearchRec rec;
  ASSERT_EQ(0, FindFirst(dir_ / "plain.txt", 0, rec));
  EXPECT_EQ(static_cast<int>(kErrorNoMoreFiles), FindNext(rec));
  EXPECT_EQ(kErrorNoMoreFiles, GetLastError());
  EXPECT_EQ(static_cast<int>(kErrorFileNotFound), FindFirst(dir_ / "*.none", faAnyFile, rec));
  EXPECT_EQ(kErrorFileNotFound, GetLastError());
  EXPECT_EQ(static_cast<int>(kErrorNoMoreFiles), FindNext(rec));
  FindClose(rec);
  FindClose(rec);
}

TEST_F(FindFileTest, MissingDirectoryIsPathNotFound) {
  for (const char* pattern : {"missing/*", "plain.txt/*"}) {
    TSearchRec rec;
    EXPECT_EQ(static_cast<int>(kErrorPathNotFound), FindFirst(dir_ / pattern, faAnyFile, rec)) << pattern;
    EXPECT_EQ(kErrorPathNotFound, GetLastError()) << pattern;
  }
}

TEST_F(FindFileTest, PatternWithoutDirectorySearchesTheCurrentOne) {
  const std::string previous = GetCurrentDir();
  ASSERT_TRUE(SetCurrentDir(dir_.Path()));
  TSearchRec rec;
  const int rc = FindFirst("plain.*", 0, rec);
  FindClose(rec);
  ASSERT_TRUE(SetCurrentDir(previous));
  EXPECT_EQ(0, rc);
  EXPECT_EQ("plain.txt", rec.Name);
}

std::vector<std::string> MatchNames(const std::string& pattern, uint32_t attr, TFindDirs dirs = TFindDirs::MatchingMask) {
  std::vector<std::string> names;
  TFindMatches matches(pattern, attr, TFindDetail::Kind, dirs);
  for (const TSearchRec& rec : matches) names.push_back(rec.Name);
  EXPECT_EQ(0, matches.Error()) << pattern;
  std::sort(names.begin(), names.end());
  return names;
}

TEST_F(FindFileTest, MatchesLeaveOutTheDotEntries) {
  EXPECT_EQ((NameList{"plain.txt", "readonly.txt", "sub"}), MatchNames(dir_ / "*", faDirectory));
  EXPECT_EQ((NameList{}), MatchNames(dir_ / ".*", faDirectory));
}

// Files must still match the mask; every directory the attributes admit is
// yielded, links to directories included.
TEST_F(FindFileTest, AnyNameYieldsEveryDirectory) {
  dir_.WriteFile("x.o");
  dir_.MakeDir("tree.o");
  dir_.MakeDir(".git");
  ASSERT_EQ(0, symlink("sub", (dir_ / "linked").c_str()));
  EXPECT_EQ((NameList{"linked", "sub", "tree.o", "x.o"}), MatchNames(dir_ / "*.o", faDirectory, TFindDirs::AnyName));
  EXPECT_EQ((NameList{".git", "linked", "sub", "tree.o", "x.o"}),
            MatchNames(dir_ / "*.o", faDirectory | faHidden, TFindDirs::AnyName));
  EXPECT_EQ((NameList{"x.o"}), MatchNames(dir_ / "*.o", faReadOnly, TFindDirs::AnyName));
}

size_t OpenDescriptors() {
  return static_cast<size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

TEST_F(FindFileTest, MatchesCloseTheSearchWhicheverWayTheLoopEnds) {
  const size_t before = OpenDescriptors();
  for (const TSearchRec& rec : TFindMatches(dir_ / "*", 0)) {
    EXPECT_EQ(before + 1, OpenDescriptors()) << rec.Name;  // the search holds one
    break;
  }
  EXPECT_EQ(before, OpenDescriptors());
  EXPECT_THROW(
      for (const TSearchRec& rec : TFindMatches(dir_ / "*", 0)) throw std::runtime_error(rec.Name), std::runtime_error);
  EXPECT_EQ(before, OpenDescriptors());
}

// The error of a search made without privileges: root may read any directory.
// -1 when no unprivileged user can be taken.
int SearchErrorUnprivileged(const std::string& pattern) {
  if (geteuid() != 0) return TFindMatches(pattern, faAnyFile).Error();
  const pid_t child = fork();
  if (child == 0) {
    if (setgid(65534) != 0 || setuid(65534) != 0) _exit(255);
    _exit(TFindMatches(pattern, faAnyFile).Error() & 0x7F);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) == 255) return -1;
  return WEXITSTATUS(status);
}

// Nothing to search is no error; a directory that cannot be searched is.
TEST_F(FindFileTest, MatchesErrorTellsAFailureFromNothingThere) {
  ASSERT_EQ(0, symlink("loop", (dir_ / "loop").c_str()));
  const struct {
    const char* pattern;
    int error;
  } cases[] = {{"*.none", 0}, {"missing/*", 0}, {"plain.txt/*", 0}, {"loop/*", ELOOP}};
  for (const auto& c : cases) {
    TFindMatches matches(dir_ / c.pattern, faAnyFile);
    EXPECT_TRUE(matches.begin() == matches.end()) << c.pattern;
    EXPECT_EQ(c.error, matches.Error()) << c.pattern;
  }
  const std::string locked = dir_.MakeDir("locked");
  dir_.WriteFile("locked/inside");
  ASSERT_EQ(0, chmod(locked.c_str(), 0));
  const int error = SearchErrorUnprivileged(locked + "/*");
  if (error < 0) GTEST_SKIP() << "no unprivileged user to search as";
  EXPECT_EQ(EACCES, error);
}

}  // namespace
}  // namespace jx
