#include <gtest/gtest.h>

#include "platform/attributes.h"
#include "platform/directories.h"
#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "support/tempdir.h"

namespace jx {
namespace {

class DirectoriesTest : public ::testing::Test {
 protected:
  test::TempDir dir_;
};

TEST_F(DirectoriesTest, CreateDir) {
  EXPECT_TRUE(CreateDir(dir_ / "new"));
  EXPECT_TRUE(DirectoryExists(dir_ / "new"));
  EXPECT_FALSE(CreateDir(dir_ / "new"));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(CreateDir(dir_ / "missing/new"));
  EXPECT_EQ(kErrorPathNotFound, GetLastError());
}

TEST_F(DirectoriesTest, ForceDirectoriesCreatesEveryMissingParent) {
  for (const char* path : {"a/b/c", "a/b/c", "a/b/d/", "a"}) {
    EXPECT_TRUE(ForceDirectories(dir_ / path)) << path;
    EXPECT_TRUE(DirectoryExists(dir_ / path)) << path;
  }
}

TEST_F(DirectoriesTest, ForceDirectoriesStopsAtAFile) {
  dir_.WriteFile("file");
  EXPECT_FALSE(ForceDirectories(dir_ / "file/sub"));
  EXPECT_FALSE(ForceDirectories(""));
  EXPECT_EQ(kErrorInvalidName, GetLastError());
}

TEST_F(DirectoriesTest, RemoveDir) {
  const std::string empty = dir_.MakeDir("empty");
  EXPECT_TRUE(RemoveDir(empty));
  EXPECT_FALSE(DirectoryExists(empty));
  EXPECT_FALSE(RemoveDir(empty));
  EXPECT_EQ(kErrorPathNotFound, GetLastError());
}

TEST_F(DirectoriesTest, RemoveDirRefuses) {
  const std::string full = dir_.MakeDir("full");
  dir_.WriteFile("full/file");
  const std::string read_only = dir_.MakeDir("readonly");
  ASSERT_TRUE(FileSetAttr(read_only, faReadOnly));
  const struct {
    std::string path;
    uint32_t error;
  } cases[] = {{full, kErrorDirNotEmpty}, {read_only, kErrorAccessDenied}};
  for (const auto& c : cases) {
    EXPECT_FALSE(RemoveDir(c.path)) << c.path;
    EXPECT_EQ(c.error, GetLastError()) << c.path;
    EXPECT_TRUE(DirectoryExists(c.path)) << c.path;
  }
  EXPECT_FALSE(RemoveDir(dir_.WriteFile("file")));
  EXPECT_TRUE(FileExists(dir_ / "file"));
}

}  // namespace
}  // namespace jx
