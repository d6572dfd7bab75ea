#include "platform/copymove.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/attributes.h"
#include "platform/lasterror.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::ReadFile;
using test::TempDir;

class CopyMoveTest : public ::testing::Test {
 protected:
  // The names in the directory, to see that nothing was left behind.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir.Path())) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  TempDir dir;
};

TEST_F(CopyMoveTest, CopyCarriesContentsLastWriteTimeAndAttributes) {
  std::string contents(3 * 1024 * 1024 + 17, '\0');
  for (size_t i = 0; i < contents.size(); ++i) contents[i] = static_cast<char>(i * 7919 % 251);
  const std::string source = dir.WriteFile("my source é.bin", contents);
  const auto stamp = fs::last_write_time(source) - std::chrono::hours(24 * 400) + std::chrono::nanoseconds(1234567);
  fs::last_write_time(source, stamp);
  ASSERT_TRUE(FileSetAttr(source, faReadOnly | faHidden | faArchive));

  ASSERT_TRUE(CopyFileTo(source, dir / "copy ü.bin", true));

  EXPECT_EQ(contents, ReadFile(dir / "copy ü.bin"));
  EXPECT_EQ(stamp, fs::last_write_time(dir / "copy ü.bin"));
  EXPECT_EQ(faReadOnly | faHidden | faArchive, FileGetAttr(dir / "copy ü.bin"));
}

TEST_F(CopyMoveTest, CopyKeepsTheSourcePermissionBits) {
  const std::string source = dir.WriteFile("tool.sh", "#!/bin/sh\n");
  fs::permissions(source, fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec);
  ASSERT_TRUE(CopyFileTo(source, dir / "copy.sh", true));
  EXPECT_EQ(fs::status(source).permissions(), fs::status(dir / "copy.sh").permissions());
  EXPECT_EQ(faNormal, FileGetAttr(dir / "copy.sh"));
}

TEST_F(CopyMoveTest, FailIfExistsLeavesTheDestinationAlone) {
  const std::string source = dir.WriteFile("a", "new");
  const std::string dest = dir.WriteFile("b", "old");
  EXPECT_FALSE(CopyFileTo(source, dest, true));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_EQ("old", ReadFile(dest));
}

TEST_F(CopyMoveTest, CopyOverAWritableFileReplacesItAndLeavesNoTemporary) {
  const std::string source = dir.WriteFile("a", "new contents");
  const std::string dest = dir.WriteFile("b", "old");
  ASSERT_TRUE(CopyFileTo(source, dest, false));
  EXPECT_EQ("new contents", ReadFile(dest));
  EXPECT_EQ((std::vector<std::string>{"a", "b"}), Names());
}

TEST_F(CopyMoveTest, ReadOnlyDestinationIsRefusedEvenForRoot) {
  const std::string source = dir.WriteFile("a", "new");
  const std::string dest = dir.WriteFile("b", "old");
  ASSERT_TRUE(FileSetAttr(dest, faReadOnly));
  EXPECT_FALSE(CopyFileTo(source, dest, false));
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
  EXPECT_EQ("old", ReadFile(dest));
  EXPECT_EQ((std::vector<std::string>{"a", "b"}), Names());
}

TEST_F(CopyMoveTest, FailedCopiesCreateNothing) {
  EXPECT_FALSE(CopyFileTo(dir / "missing", dir / "x", false));
  EXPECT_EQ("No such file or directory", SysErrorMessage(GetLastError()));

  const std::string source = dir.WriteFile("a", "data");
  EXPECT_FALSE(CopyFileTo(source, dir / "no dir/x", false));
  EXPECT_EQ(kErrorPathNotFound, GetLastError());

  dir.MakeDir("sub");
  EXPECT_FALSE(CopyFileTo(dir / "sub", dir / "x", false));
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
  EXPECT_EQ((std::vector<std::string>{"a", "sub"}), Names());
}

TEST_F(CopyMoveTest, MoveRenamesAReadOnlyFileWithAnyName) {
  const std::string source = dir.WriteFile("from me ß.txt", "data");
  ASSERT_TRUE(FileSetAttr(source, faReadOnly));
  ASSERT_TRUE(MoveFileTo(source, dir / "to — 你好.txt"));
  EXPECT_EQ("data", ReadFile(dir / "to — 你好.txt"));
  EXPECT_EQ(faReadOnly, FileGetAttr(dir / "to — 你好.txt"));
  EXPECT_EQ((std::vector<std::string>{"to — 你好.txt"}), Names());
}

TEST_F(CopyMoveTest, MoveOntoAnExistingNameFails) {
  const std::string source = dir.WriteFile("a", "new");
  const std::string dest = dir.WriteFile("b", "old");
  dir.MakeDir("empty");
  EXPECT_FALSE(MoveFileTo(source, dest));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(MoveFileTo(dir.MakeDir("d"), dir / "empty"));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(MoveFileTo(source, source));
  EXPECT_EQ("new", ReadFile(source));
  EXPECT_EQ("old", ReadFile(dest));
}

TEST_F(CopyMoveTest, MoveTakesADirectoryWithItsContents) {
  dir.WriteFile("tree/sub/file", "x");
  ASSERT_TRUE(MoveFileTo(dir / "tree", dir / "moved tree"));
  EXPECT_EQ("x", ReadFile(dir / "moved tree/sub/file"));
  EXPECT_FALSE(fs::exists(dir / "tree"));
}

TEST_F(CopyMoveTest, MoveAcrossFileSystemsFailsWithoutCopying) {
  struct stat here, there;
  if (::stat(dir.Path().c_str(), &here) != 0 || ::stat("/dev/shm", &there) != 0 || here.st_dev == there.st_dev) {
    GTEST_SKIP() << "needs /dev/shm on another file system than the temporary directory";
  }
  const std::string source = dir.WriteFile("a", "data");
  const std::string dest = "/dev/shm/jxtest-move-" + fs::path(dir.Path()).filename().string();
  EXPECT_FALSE(MoveFileTo(source, dest));
  EXPECT_EQ(kErrorNotSameDevice, GetLastError());
  EXPECT_FALSE(fs::exists(dest));
  EXPECT_EQ("data", ReadFile(source));
}

}  // namespace
}  // namespace jx
