#include "platform/directories.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/lasterror.h"
#include "support/tempdir.h"

namespace jx {
namespace {

namespace fs = std::filesystem;
using test::TempDir;

TEST(CreateDir, CreatesOneLevelOnly) {
  TempDir dir;
  EXPECT_TRUE(CreateDir(dir / "new"));
  EXPECT_TRUE(fs::is_directory(dir / "new"));

  EXPECT_FALSE(CreateDir(dir / "new"));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(CreateDir(dir / "missing/child"));
  EXPECT_NE(0u, GetLastError());
  EXPECT_FALSE(fs::exists(dir / "missing"));
}

TEST(ForceDirectories, CreatesEveryMissingLevel) {
  TempDir dir;
  EXPECT_TRUE(ForceDirectories(dir / "a/b/c/"));
  EXPECT_TRUE(fs::is_directory(dir / "a/b/c"));
  EXPECT_TRUE(ForceDirectories(dir / "a/b"));  // already there
  EXPECT_TRUE(ForceDirectories("/"));
}

TEST(ForceDirectories, FailsThroughAFileAndOnEmptyPath) {
  TempDir dir;
  dir.WriteFile("file");
  EXPECT_FALSE(ForceDirectories(dir / "file/sub/deeper"));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(fs::exists(dir / "file/sub"));
  EXPECT_FALSE(ForceDirectories(""));
}

TEST(RemoveDir, RemovesOnlyAnEmptyWritableDirectory) {
  TempDir dir;
  EXPECT_TRUE(RemoveDir(dir.MakeDir("empty")));
  EXPECT_FALSE(fs::exists(dir / "empty"));

  dir.WriteFile("full/file");
  EXPECT_FALSE(RemoveDir(dir / "full"));
  EXPECT_EQ(kErrorDirNotEmpty, GetLastError());
  EXPECT_EQ("Directory not empty", SysErrorMessage(GetLastError()));

  EXPECT_FALSE(RemoveDir(dir / "missing"));
  EXPECT_NE(0u, GetLastError());
}

// Refused even for root, whom the kernel would let remove it.
TEST(RemoveDir, RefusesAReadOnlyDirectory) {
  TempDir dir;
  const std::string locked = dir.MakeDir("locked");
  ::chmod(locked.c_str(), 0555);
  EXPECT_FALSE(RemoveDir(locked));
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
  EXPECT_TRUE(fs::is_directory(locked));
}

TEST(RemoveDir, RemovesALinkToADirectoryNotItsTarget) {
  TempDir dir;
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
