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
  const std::string file = dir_.WriteFile("file");
  const std::string sub = dir_.MakeDir("sub");
  ASSERT_EQ(0, symlink("nowhere", (dir_ / "dangling").c_str()));
  const struct {
    std::string path;
    bool file, directory;
  } cases[] = {
      {file, true, false},
      {sub, false, true},
      {dir_ / "missing", false, false},
      {dir_ / "dangling", false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.file, FileExists(c.path)) << c.path;
    EXPECT_EQ(c.directory, DirectoryExists(c.path)) << c.path;
  }
}

TEST_F(FileOpsTest, RemoveFile) {
  const std::string file = dir_.WriteFile("file");
  EXPECT_TRUE(RemoveFile(file));
  EXPECT_FALSE(FileExists(file));
  EXPECT_FALSE(RemoveFile(file));
  EXPECT_EQ(kErrorFileNotFound, GetLastError());
}

// Refused as on Win32, even for root, whom the kernel would let through.
TEST_F(FileOpsTest, RemoveFileRefusesReadOnlyFilesAndDirectories) {
  const std::string file = dir_.WriteFile("file");
  ASSERT_TRUE(FileSetAttr(file, faReadOnly));
  EXPECT_FALSE(RemoveFile(file));
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
  EXPECT_TRUE(FileExists(file));

  const std::string sub = dir_.MakeDir("sub");
  EXPECT_FALSE(RemoveFile(sub));
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
  EXPECT_TRUE(DirectoryExists(sub));
}

TEST_F(FileOpsTest, RemoveFileTakesALinkNotItsTarget) {
  const std::string file = dir_.WriteFile("file");
  ASSERT_TRUE(FileSetAttr(file, faReadOnly));
  ASSERT_EQ(0, symlink(file.c_str(), (dir_ / "link").c_str()));
  EXPECT_TRUE(RemoveFile(dir_ / "link"));
  EXPECT_FALSE(std::filesystem::is_symlink(dir_ / "link"));
  EXPECT_TRUE(FileExists(file));
}

TEST_F(FileOpsTest, CurrentDirectory) {
  const std::string previous = GetCurrentDir();
  ASSERT_FALSE(previous.empty());
  ASSERT_TRUE(SetCurrentDir(dir_.Path()));
  const std::string inside = GetCurrentDir();
  ASSERT_TRUE(SetCurrentDir(previous));
  EXPECT_EQ(std::filesystem::canonical(dir_.Path()).string(), inside);
  EXPECT_FALSE(SetCurrentDir(dir_ / "missing"));
  EXPECT_EQ(kErrorPathNotFound, GetLastError());
  EXPECT_EQ(previous, GetCurrentDir());
}

}  // namespace
}  // namespace jx
