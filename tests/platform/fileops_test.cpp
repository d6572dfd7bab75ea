// Attributes, deleting, directories, copying and moving on POSIX, checked on
// the files themselves: the mode bits and the "user.DOSATTRIB" attribute.
#include "platform/fileops.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <filesystem>
#include <functional>
#include <thread>

#include "platform/attributes.h"
#include "platform/copymove.h"
#include "platform/directories.h"
#include "platform/findfile.h"
#include "platform/lasterror.h"
#include "rtl/messageof.h"
#include "rtl/sysutils.h"
#include "support/tempdir.h"

namespace jx {
namespace {

struct stat StatOf(const std::string& path) {
  struct stat st{};
  stat(path.c_str(), &st);
  return st;
}

// The stored text, or "-" without the extended attribute.
std::string Stored(const std::string& path) {
  char value[64];
  const ssize_t size = getxattr(path.c_str(), "user.DOSATTRIB", value, sizeof value);
  return size >= 0 ? std::string(value, static_cast<size_t>(size)) : "-";
}

class FileOpsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (setxattr(file_.c_str(), "user.probe", "1", 1, 0) != 0) GTEST_SKIP() << "no extended attributes here";
  }
  // The entries of the directory, to see that nothing was left behind.
  size_t Entries() const { return std::distance(std::filesystem::directory_iterator(dir_.Path()), {}); }

  test::TempDir dir_;
  const std::string file_ = dir_.WriteFile("file.txt");
  const std::string contents_ = std::string(300000, 'x') + "end";  // several rounds of any copy loop
  const std::string source_ = dir_.WriteFile("source.txt", contents_);
};

// Read-only is the owner's write bit: setting it clears every write bit,
// clearing it gives the owner's back. A dot name is hidden by its name alone.
TEST_F(FileOpsTest, Attributes) {
  const std::string dotted = dir_.WriteFile(".dotted"), sub = dir_.MakeDir("sub");
  const uint32_t all = faHidden | faSysFile | faArchive | faReadOnly;
  const struct { std::string path; mode_t mode; uint32_t set, got; mode_t mode_after; const char* stored; } cases[] = {
      {file_, 0666, faReadOnly, faReadOnly, 0444, "-"}, {file_, 0444, faNormal, faNormal, 0644, "-"},
      {file_, 0644, faHidden, faHidden, 0644, "0x2"}, {file_, 0644, all, all, 0444, "0x26"},
      {file_, 0644, faArchive | faDirectory | faVolumeID, faArchive, 0644, "0x20"},
      {dotted, 0644, faHidden | faReadOnly, faHidden | faReadOnly, 0444, "-"}, {dotted, 0644, 0, faHidden, 0644, "-"},
      {sub, 0755, faReadOnly, faDirectory | faReadOnly, 0555, "-"},
  };
  for (const auto& c : cases) {
    ASSERT_EQ(0, chmod(c.path.c_str(), c.mode));
    ASSERT_TRUE(FileSetAttr(c.path, c.set)) << c.path << " " << c.set;
    EXPECT_EQ(std::tuple(c.got, c.mode_after, std::string(c.stored)),
              std::tuple(FileGetAttr(c.path), StatOf(c.path).st_mode & 07777, Stored(c.path)))
        << c.path << " " << c.set;
  }
  ASSERT_EQ(0, chmod(file_.c_str(), 0466));  // others may write, the owner may not
  // Read-only comes from the mode, never from the stored text; other writers may add a NUL.
  const std::pair<std::string, uint32_t> foreign[] = {
      {"0x21", faArchive}, {std::string("0x2\0", 4), faHidden}, {"0X4", faSysFile}, {"junk", 0}, {"0x", 0}};
  for (const auto& [stored, attr] : foreign) {
    ASSERT_EQ(0, setxattr(file_.c_str(), "user.DOSATTRIB", stored.data(), stored.size(), 0));
    EXPECT_EQ(attr | faReadOnly, FileGetAttr(file_)) << stored;
  }
  EXPECT_EQ(kInvalidFileAttributes, FileGetAttr(dir_ / "missing"));
  EXPECT_EQ(kErrorFileNotFound, GetLastError());
}

// Switched off, the file system acts as one without extended attributes: a
// system file reads as normal, copies drop the bits, only read-only changes.
TEST_F(FileOpsTest, StoredAttributesSwitchedOff) {
  ASSERT_TRUE(FileSetAttr(file_, faSysFile | faArchive));
  struct SwitchOff {
    SwitchOff() { SetStoredAttributesUsed(false); }
    ~SwitchOff() { SetStoredAttributesUsed(true); }
  } switched_off;
  EXPECT_EQ(faNormal, FileGetAttr(file_));
  EXPECT_FALSE(FileSetAttr(file_, faHidden));
  EXPECT_EQ(kErrorNotSupported, GetLastError());
  ASSERT_TRUE(FileSetAttr(file_, faReadOnly));
  EXPECT_EQ(faReadOnly, FileGetAttr(file_));
  ASSERT_TRUE(CopyFileTo(file_, dir_ / "copy.txt", true));
  EXPECT_EQ("-", Stored(dir_ / "copy.txt"));
  EXPECT_EQ("0x24", Stored(file_));
}

// Read-only files and directories are refused as on Win32, even to root,
// whom the kernel would let through; a link goes, not its target.
TEST_F(FileOpsTest, RemoveFileAndRemoveDir) {
  ASSERT_TRUE(FileSetAttr(file_, faReadOnly));
  ASSERT_EQ(0, symlink(file_.c_str(), (dir_ / "link").c_str()));
  std::filesystem::create_directory_symlink(dir_.MakeDir("target"), dir_ / "dirlink");
  const std::string read_only_dir = dir_.MakeDir("readonly");
  ASSERT_TRUE(FileSetAttr(read_only_dir, faReadOnly));
  dir_.WriteFile("full/inner");
  const struct { bool dir; std::string path; uint32_t error; } cases[] = {  // error 0: removed
      {false, dir_.WriteFile("plain"), 0}, {false, dir_ / "link", 0}, {false, file_, kErrorAccessDenied},
      {false, dir_ / "full", kErrorAccessDenied}, {false, dir_ / "missing", kErrorFileNotFound},
      {true, dir_ / "dirlink/", 0}, {true, dir_.MakeDir("empty"), 0}, {true, dir_ / "full", kErrorDirNotEmpty},
      {true, read_only_dir, kErrorAccessDenied}, {true, dir_ / "full/inner", ENOTDIR},
      {true, dir_ / "missing", kErrorPathNotFound},
  };
  for (const auto& c : cases) {
    SetLastError(0);
    const bool removed = c.dir ? RemoveDir(c.path) : RemoveFile(c.path);
    EXPECT_EQ(std::tuple(c.error == 0, c.error, c.error != 0 && c.error != kErrorFileNotFound),
              std::tuple(removed, GetLastError(), std::filesystem::exists(c.path))) << c.path;
  }
  EXPECT_TRUE(DirectoryExists(dir_ / "target"));
}

TEST_F(FileOpsTest, ExistenceAndDirectories) {
  ASSERT_EQ(0, symlink("nowhere", (dir_ / "dangling").c_str()));
  const struct { std::string path; bool file, directory; } cases[] = {
      {file_, true, false}, {dir_.Path(), false, true}, {dir_ / "missing", false, false},
      {dir_ / "dangling", false, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.file, FileExists(c.path)) << c.path;
    EXPECT_EQ(c.directory, DirectoryExists(c.path)) << c.path;
  }
  for (const char* path : {"a/b/c", "a/b/c", "a/b/d/", "a"}) EXPECT_TRUE(ForceDirectories(dir_ / path)) << path;
  const std::pair<std::function<bool()>, uint32_t> failures[] = {
      {[&] { return CreateDir(dir_ / "a"); }, kErrorAlreadyExists},
      {[&] { return CreateDir(dir_ / "missing/new"); }, kErrorPathNotFound},
      {[&] { return ForceDirectories(file_ + "/sub"); }, kErrorAlreadyExists},  // the file is in the way
      {[&] { return ForceDirectories(""); }, kErrorInvalidName},
      {[&] { return SetCurrentDir(dir_ / "missing"); }, kErrorPathNotFound}};
  for (const auto& [call, error] : failures) {
    EXPECT_FALSE(call()) << error;
    EXPECT_EQ(error, GetLastError());
  }
}

// Contents, time to the nanosecond, permission bits and attributes; an
// existing file is replaced whole, through a temporary name that goes.
TEST_F(FileOpsTest, CopyTakesEverything) {
  const timespec times[2] = {{0, UTIME_OMIT}, {1500000000, 123456789}};
  ASSERT_EQ(0, utimensat(AT_FDCWD, source_.c_str(), times, 0));
  ASSERT_EQ(0, chmod(source_.c_str(), 0750));
  ASSERT_TRUE(FileSetAttr(source_, faHidden | faArchive | faReadOnly));
  for (const std::string& dest : {dir_ / "copy ü é.txt", dir_.WriteFile("old.txt", "old")}) {
    ASSERT_TRUE(CopyFileTo(source_, dest, false));
    EXPECT_EQ(contents_, test::ReadFile(dest));
    EXPECT_EQ(1500000000, StatOf(dest).st_mtim.tv_sec);
    EXPECT_EQ(123456789, StatOf(dest).st_mtim.tv_nsec);
    EXPECT_EQ(0550u, StatOf(dest).st_mode & 0777);
    EXPECT_EQ(faHidden | faArchive | faReadOnly, FileGetAttr(dest));
  }
  EXPECT_EQ(4u, Entries());
}

// Refused before anything is written: a copy onto itself would truncate the
// file. A move is a rename: read-only files and directories move too, but
// nothing is replaced.
TEST_F(FileOpsTest, CopyAndMoveRefuse) {
  const std::string original = dir_.WriteFile("readonly", "old"), read_only = dir_ / "moved — 你好";
  const std::string sub = dir_.MakeDir("sub");
  ASSERT_TRUE(FileSetAttr(original, faReadOnly));
  ASSERT_TRUE(MoveFileTo(original, read_only));
  ASSERT_TRUE(MoveFileTo(dir_.MakeDir("full/inner"), dir_ / "full/renamed"));
  enum { kCopyOver, kCopyNew, kMove };
  const struct { int op; std::string source, dest; uint32_t error; } cases[] = {
      {kCopyOver, source_, read_only, kErrorAccessDenied}, {kCopyOver, source_, sub, kErrorAccessDenied},
      {kCopyOver, sub, dir_ / "copy", kErrorAccessDenied}, {kCopyOver, source_, source_, EBUSY},
      {kCopyOver, dir_ / "missing", dir_ / "copy", kErrorFileNotFound},
      {kCopyOver, source_, dir_ / "missing/copy", kErrorPathNotFound}, {kCopyNew, source_, file_, kErrorAlreadyExists},
      {kMove, source_, read_only, kErrorAlreadyExists}, {kMove, dir_ / "full", sub, kErrorAlreadyExists},
      {kMove, dir_ / "missing", dir_ / "other", kErrorFileNotFound},
  };
  for (const auto& c : cases) {
    const bool done = c.op == kMove ? MoveFileTo(c.source, c.dest) : CopyFileTo(c.source, c.dest, c.op == kCopyNew);
    EXPECT_EQ(std::pair(false, c.error), std::pair(done, GetLastError())) << c.source << " -> " << c.dest;
  }
  EXPECT_EQ("old", test::ReadFile(read_only));
  EXPECT_EQ(contents_, test::ReadFile(source_));
  EXPECT_EQ("", test::ReadFile(file_));
  EXPECT_EQ(5u, Entries());
}

// From the memory file system to the temporary directory's: a rename fails;
// a move copies a file whole with its time, then deletes it where it was. A
// directory is not copied.
TEST_F(FileOpsTest, AcrossVolumes) {
  const std::string away = "/dev/shm/" + dir_.Path().substr(dir_.Path().rfind('/') + 1);
  if (!std::filesystem::create_directory(away)) GTEST_SKIP() << "no /dev/shm";
  struct RemoveAway { std::string path; ~RemoveAway() { std::filesystem::remove_all(path); } } remove_away{away};
  if (StatOf(away).st_dev == StatOf(dir_.Path()).st_dev) GTEST_SKIP() << "/dev/shm is the same file system";
  const std::string file = away + "/file.bin", moved = dir_ / "moved.bin";
  ASSERT_TRUE(CopyFileTo(source_, file, true));
  const timespec times[2] = {{0, UTIME_OMIT}, {1500000000, 123456789}};
  ASSERT_EQ(0, utimensat(AT_FDCWD, file.c_str(), times, 0));
  EXPECT_FALSE(MoveFileTo(file, moved));
  EXPECT_EQ(kErrorNotSameDevice, GetLastError());
  ASSERT_TRUE(MoveFileAcrossVolumes(file, moved));
  EXPECT_EQ(0u, GetLastError());
  EXPECT_EQ(contents_, test::ReadFile(moved));
  EXPECT_EQ(123456789, StatOf(moved).st_mtim.tv_nsec);
  EXPECT_FALSE(FileExists(file));
  EXPECT_FALSE(MoveFileAcrossVolumes(away, dir_ / "dir"));
  EXPECT_EQ(kErrorNotSameDevice, GetLastError());
  EXPECT_FALSE(DirectoryExists(dir_ / "dir"));
}

// The last error belongs to the thread; 0 is no error, and raising it says so.
TEST(LastError, ThreadAndText) {
  SetLastError(kErrorAccessDenied);
  uint32_t seen_by_other = 1;
  std::thread([&] { seen_by_other = GetLastError(); }).join();
  EXPECT_EQ(0u, seen_by_other);
  SetLastError(0);
  EXPECT_EQ("A call to an OS function failed", test::MessageOf<EOSError>([] { RaiseLastOSError(); }));
}

}  // namespace
}  // namespace jx
