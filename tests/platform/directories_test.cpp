#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

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

TEST_F(DirectoriesTest, CreateAndRemove) {
  EXPECT_TRUE(CreateDir(dir_ / "new"));
  EXPECT_FALSE(CreateDir(dir_ / "new"));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(CreateDir(dir_ / "missing/new"));
  EXPECT_EQ(kErrorPathNotFound, GetLastError());
  EXPECT_TRUE(RemoveDir(dir_ / "new"));
  EXPECT_FALSE(DirectoryExists(dir_ / "new"));
}

TEST_F(DirectoriesTest, ForceDirectories) {
  for (const char* path : {"a/b/c", "a/b/c", "a/b/d/", "a"}) {
    EXPECT_TRUE(ForceDirectories(dir_ / path)) << path;
    EXPECT_TRUE(DirectoryExists(dir_ / path)) << path;
  }
  dir_.WriteFile("file");
  EXPECT_FALSE(ForceDirectories(dir_ / "file/sub"));
  EXPECT_FALSE(ForceDirectories(""));
  EXPECT_EQ(kErrorInvalidName, GetLastError());
}

TEST_F(DirectoriesTest, RemoveDirRefuses) {
  const std::string read_only = dir_.MakeDir("readonly");
  ASSERT_TRUE(FileSetAttr(read_only, faReadOnly));
  dir_.WriteFile("full/file");
  const struct {
    std::string path;
    uint32_t error;
  } cases[] = {
      {dir_ / "full", kErrorDirNotEmpty},
      {read_only, kErrorAccessDenied},
      {dir_ / "full/file", ENOTDIR},
      {dir_ / "missing", kErrorPathNotFound},
  };
  for (const auto& c : cases) {
    EXPECT_FALSE(RemoveDir(c.path)) << c.path;
    EXPECT_EQ(c.error, GetLastError()) << c.path;
  }
  EXPECT_TRUE(DirectoryExists(read_only));
  EXPECT_TRUE(FileExists(dir_ / "full/file"));
  EXPECT_EQ("Directory not empty", SysErrorMessage(kErrorDirNotEmpty));
}

TEST_F(DirectoriesTest, RemoveDirTakesALinkNotItsTarget) {
  dir_.WriteFile("target/keep");
  std::filesystem::create_directory_symlink(dir_ / "target", dir_ / "link");
  EXPECT_TRUE(IsDirectoryLink(dir_ / "link/"));
  EXPECT_FALSE(IsDirectoryLink(dir_ / "target"));
  EXPECT_TRUE(RemoveDir(dir_ / "link"));
  EXPECT_FALSE(std::filesystem::is_symlink(dir_ / "link"));
  EXPECT_TRUE(FileExists(dir_ / "target/keep"));
}

}  // namespace
}  // namespace jx
