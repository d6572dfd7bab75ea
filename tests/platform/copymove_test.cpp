#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/attributes.h"
#include "platform/copymove.h"
#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "support/tempdir.h"

namespace jx {
namespace {

timespec MTimeOf(const std::string& path) {
  struct stat st{};
  stat(path.c_str(), &st);
  return st.st_mtim;
}

class CopyMoveTest : public ::testing::Test {
 protected:
  // The names in the directory, to see that nothing was left behind.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir_.Path())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  test::TempDir dir_;
  const std::string contents_ = std::string(300000, 'x') + "end";  // several read/write rounds
  const std::string source_ = dir_.WriteFile("source.txt", contents_);
};

TEST_F(CopyMoveTest, CopyTakesContentsTimeAndAttributes) {
  const timespec times[2] = {{0, UTIME_OMIT}, {1500000000, 123456789}};
  ASSERT_EQ(0, utimensat(AT_FDCWD, source_.c_str(), times, 0));
  ASSERT_TRUE(FileSetAttr(source_, faReadOnly));
  ASSERT_TRUE(CopyFileTo(source_, dir_ / "copy ü é.txt", true));
  EXPECT_EQ(contents_, test::ReadFile(dir_ / "copy ü é.txt"));
  EXPECT_EQ(1500000000, MTimeOf(dir_ / "copy ü é.txt").tv_sec);
  EXPECT_EQ(123456789, MTimeOf(dir_ / "copy ü é.txt").tv_nsec);
  EXPECT_EQ(faReadOnly, FileGetAttr(dir_ / "copy ü é.txt"));
}

TEST_F(CopyMoveTest, CopyTakesStoredFlagsAndPermissionBits) {
  ASSERT_EQ(0, chmod(source_.c_str(), 0750));
  if (!FileSetAttr(source_, faHidden | faArchive)) GTEST_SKIP() << "no extended attributes here";
  ASSERT_TRUE(CopyFileTo(source_, dir_ / "copy.txt", true));
  EXPECT_EQ(faHidden | faArchive, FileGetAttr(dir_ / "copy.txt"));
  struct stat st{};
  ASSERT_EQ(0, stat((dir_ / "copy.txt").c_str(), &st));
  EXPECT_EQ(0750u, st.st_mode & 0777);
}

// An existing file is replaced whole, through a temporary name that does not stay.
TEST_F(CopyMoveTest, CopyOverwritesOnlyWhenAllowed) {
  const std::string dest = dir_.WriteFile("dest.txt", "old");
  EXPECT_FALSE(CopyFileTo(source_, dest, true));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_EQ("old", test::ReadFile(dest));
  EXPECT_TRUE(CopyFileTo(source_, dest, false));
  EXPECT_EQ(contents_, test::ReadFile(dest));
  EXPECT_EQ((std::vector<std::string>{"dest.txt", "source.txt"}), Names());
}

// Refused before anything is written; copying a file onto itself would
// truncate it.
TEST_F(CopyMoveTest, CopyRefuses) {
  const std::string read_only = dir_.WriteFile("readonly.txt", "old");
  ASSERT_TRUE(FileSetAttr(read_only, faReadOnly));
  const std::string sub = dir_.MakeDir("sub");
  const struct {
    std::string source, dest;
    uint32_t error;
  } cases[] = {
      {source_, read_only, kErrorAccessDenied},
      {source_, sub, kErrorAccessDenied},
      {sub, dir_ / "copy", kErrorAccessDenied},
      {source_, source_, EBUSY},
      {dir_ / "missing", dir_ / "copy", kErrorFileNotFound},
      {source_, dir_ / "missing/copy", kErrorPathNotFound},
  };
  for (const auto& c : cases) {
    EXPECT_FALSE(CopyFileTo(c.source, c.dest, false)) << c.source << " -> " << c.dest;
    EXPECT_EQ(c.error, GetLastError()) << c.source << " -> " << c.dest;
  }
  EXPECT_EQ("old", test::ReadFile(read_only));
  EXPECT_EQ(contents_, test::ReadFile(source_));
  EXPECT_EQ((std::vector<std::string>{"readonly.txt", "source.txt", "sub"}), Names());
}

TEST_F(CopyMoveTest, MoveRenamesFilesAndDirectories) {
  ASSERT_TRUE(FileSetAttr(source_, faReadOnly));  // Win32 moves a read-only file too
  ASSERT_TRUE(MoveFileTo(source_, dir_ / "moved — 你好.txt"));
  EXPECT_FALSE(FileExists(source_));
  EXPECT_EQ(contents_, test::ReadFile(dir_ / "moved — 你好.txt"));
  dir_.WriteFile("sub/inner");
  ASSERT_TRUE(MoveFileTo(dir_ / "sub", dir_ / "renamed dir"));
  EXPECT_TRUE(FileExists(dir_ / "renamed dir/inner"));
}

TEST_F(CopyMoveTest, MoveNeverReplaces) {
  const std::string dest = dir_.WriteFile("dest.txt", "old");
  EXPECT_FALSE(MoveFileTo(source_, dest));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_EQ("old", test::ReadFile(dest));
  EXPECT_TRUE(FileExists(source_));
  dir_.MakeDir("empty");
  EXPECT_FALSE(MoveFileTo(dir_.MakeDir("full"), dir_ / "empty"));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_FALSE(MoveFileTo(dir_ / "missing", dir_ / "other"));
  EXPECT_EQ(kErrorFileNotFound, GetLastError());
}

// /dev/shm is a memory file system, usually another one than the temporary directory.
TEST_F(CopyMoveTest, MoveAcrossFileSystemsFails) {
  struct stat shm{}, temp{};
  if (stat("/dev/shm", &shm) != 0 || stat(dir_.Path().c_str(), &temp) != 0 || shm.st_dev == temp.st_dev) {
    GTEST_SKIP() << "no second file system at /dev/shm";
  }
  const std::string dest = "/dev/shm/" + dir_.Path().substr(dir_.Path().rfind('/') + 1);
  EXPECT_FALSE(MoveFileTo(source_, dest));
  EXPECT_EQ(kErrorNotSameDevice, GetLastError());
  EXPECT_TRUE(FileExists(source_));
  EXPECT_FALSE(FileExists(dest));
}

// A file moved from the memory file system to the temporary directory's:
// copied whole with its time, and gone from where it was. A directory is not
// copied; a destination that exists is refused before anything is copied.
TEST_F(CopyMoveTest, MoveAcrossVolumesCopiesFilesOnly) {
  struct stat shm{}, temp{};
  if (stat("/dev/shm", &shm) != 0 || stat(dir_.Path().c_str(), &temp) != 0 || shm.st_dev == temp.st_dev) {
    GTEST_SKIP() << "no second file system at /dev/shm";
  }
  const std::string away = "/dev/shm/" + dir_.Path().substr(dir_.Path().rfind('/') + 1);
  struct RemoveAway {
    std::string path;
    ~RemoveAway() { std::filesystem::remove_all(path); }
  } remove_away{away};
  ASSERT_TRUE(std::filesystem::create_directory(away));
  const std::string file = away + "/file.bin";
  ASSERT_TRUE(CopyFileTo(source_, file, true));
  const timespec times[2] = {{0, UTIME_OMIT}, {1500000000, 123456789}};
  ASSERT_EQ(0, utimensat(AT_FDCWD, file.c_str(), times, 0));

  ASSERT_TRUE(MoveFileAcrossVolumes(file, dir_ / "moved.bin"));
  EXPECT_EQ(0u, GetLastError());
  EXPECT_EQ(contents_, test::ReadFile(dir_ / "moved.bin"));
  EXPECT_EQ(1500000000, MTimeOf(dir_ / "moved.bin").tv_sec);
  EXPECT_EQ(123456789, MTimeOf(dir_ / "moved.bin").tv_nsec);
  EXPECT_FALSE(FileExists(file));

  ASSERT_TRUE(MoveFileAcrossVolumes(dir_ / "moved.bin", file));  // and back
  EXPECT_FALSE(MoveFileAcrossVolumes(file, source_));
  EXPECT_EQ(kErrorAlreadyExists, GetLastError());
  EXPECT_TRUE(FileExists(file));
  EXPECT_FALSE(MoveFileAcrossVolumes(away, dir_ / "dir"));
  EXPECT_EQ(kErrorNotSameDevice, GetLastError());
  EXPECT_TRUE(DirectoryExists(away));
  EXPECT_FALSE(DirectoryExists(dir_ / "dir"));
}

}  // namespace
}  // namespace jx
