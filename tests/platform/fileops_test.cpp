#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>

#include "platform/attributes.h"
#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "support/tempdir.h"

namespace jx {
namespace {

class FileOpsTest : public ::testing::Test {
 protected:
  test::TempDir dir_;
};

TEST_F(FileOpsTest, ExistenceTellsFilesFromDirectories) {
  ASSERT_EQ(0, symlink("nowhere", (dir_ / "dangling").c_str()));
  const struct {
    std::string path;
    bool file, directory;
  } cases[] = {
      {dir_.WriteFile("file"), true, false},
      {dir_.MakeDir("sub"), false, true},
      {dir_ / "missing", false, false},
      {dir_ / "dangling", false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.file, FileExists(c.path)) << c.path;
    EXPECT_EQ(c.directory, DirectoryExists(c.path)) << c.path;
  }
}

// Read-only files and directories are refused as on Win32, even for root,
// whom the kernel would let through; a link goes, not its read-only target.
TEST_F(FileOpsTest, RemoveFile) {
  const std::string read_only = dir_.WriteFile("readonly");
  ASSERT_TRUE(FileSetAttr(read_only, faReadOnly));
  ASSERT_EQ(0, symlink(read_only.c_str(), (dir_ / "link").c_str()));
  const struct {
    std::string path;
    uint32_t error;  // 0: removed
  } cases[] = {
      {dir_.WriteFile("file"), 0},
      {dir_ / "link", 0},
      {read_only, kErrorAccessDenied},
      {dir_.MakeDir("sub"), kErrorAccessDenied},
      {dir_ / "missing", kErrorFileNotFound},
  };
  for (const auto& c : cases) {
    SetLastError(0);
    EXPECT_EQ(c.error == 0, RemoveFile(c.path)) << c.path;
    EXPECT_EQ(c.error, GetLastError()) << c.path;
  }
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(dir_ / "link")));
  EXPECT_TRUE(FileExists(read_only));
  EXPECT_TRUE(DirectoryExists(dir_ / "sub"));
}

TEST_F(FileOpsTest, CurrentDirectory) {
  const std::string previous = GetCurrentDir();
  ASSERT_TRUE(SetCurrentDir(dir_.Path()));
  const std::string inside = GetCurrentDir();
  ASSERT_TRUE(SetCurrentDir(previous));
  EXPECT_EQ(std::filesystem::canonical(dir_.Path()).string(), inside);
  EXPECT_FALSE(SetCurrentDir(dir_ / "missing"));
  EXPECT_EQ(kErrorPathNotFound, GetLastError());
}

}  // namespace
}  // namespace jx
