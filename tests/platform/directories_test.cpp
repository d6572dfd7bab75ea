#include "platform/directories.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/lasterror.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

class DirectoriesTest : public ::testing::Test {
 protected:
  test::TempDir dir;
};

TEST_F(DirectoriesTest, CreateDirMakesOneLevelOnly) {
  EXPECT_TRUE(CreateDir(dir / "new"));
  EXPECT_FALSE(CreateDir(dir / "new"));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(CreateDir(dir / "missing/child"));
  EXPECT_EQ(kErrorPathNotFound, GetLastError());
}

TEST_F(DirectoriesTest, ForceDirectoriesMakesEveryMissingLevel) {
  EXPECT_TRUE(ForceDirectories(dir / "a/b/c/"));
  EXPECT_TRUE(fs::is_directory(dir / "a/b/c"));
  EXPECT_TRUE(ForceDirectories("/"));
  dir.WriteFile("file");
  EXPECT_FALSE(ForceDirectories(dir / "file/sub/deeper"));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(ForceDirectories(""));
}

TEST_F(DirectoriesTest, RemoveDirRefusesFullAndReadOnlyDirectories) {
  dir.WriteFile("full/file");
  EXPECT_FALSE(RemoveDir(dir / "full"));
  EXPECT_EQ(kErrorDirNotEmpty, GetLastError());
  EXPECT_EQ("Directory not empty", SysErrorMessage(GetLastError()));

  // Refused even for root, whom the kernel would let remove it.
  const std::string locked = dir.MakeDir("locked");
  ::chmod(locked.c_str(), 0555);
  EXPECT_FALSE(RemoveDir(locked));
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
  ::chmod(locked.c_str(), 0755);
  EXPECT_TRUE(RemoveDir(locked));
}

TEST_F(DirectoriesTest, RemoveDirTakesALinkNotItsTarget) {
  dir.WriteFile("target/keep");
  fs::create_directory_symlink(dir / "target", dir / "link");
  EXPECT_TRUE(IsDirectoryLink(dir / "link/"));
  EXPECT_FALSE(IsDirectoryLink(dir / "target"));
  EXPECT_TRUE(RemoveDir(dir / "link"));
  EXPECT_FALSE(fs::is_symlink(dir / "link"));
  EXPECT_TRUE(fs::exists(dir / "target/keep"));
}

}  // namespace
}  // namespace jx
