#include "platform/filetime.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <time.h>

#include "platform/lasterror.h"
#include "rtl/sysutils.h"
#include "support/tempdir.h"

namespace jx {
namespace {

using test::TempDir;

// The local time of a file's mtime, read with the C library only.
std::string LocalMTime(const std::string& path) {
  struct stat st {};
  EXPECT_EQ(0, ::stat(path.c_str(), &st));
  struct tm local {};
  ::localtime_r(&st.st_mtime, &local);
  char text[32];
  ::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
  return text;
}

struct PackRow {
  TDateTime Value;
  int32_t Packed;
};

TEST(FileDate, PacksLocalFieldsWithSecondsHalved) {
  const PackRow rows[] = {
      {EncodeDateTime(2020, 1, 2, 3, 4, 5, 0), 0x50221882},
      {EncodeDateTime(2020, 1, 2, 3, 4, 4, 999), 0x50221882},
      {EncodeDateTime(1980, 1, 1, 0, 0, 0, 0), 0x00210000},
      {EncodeDateTime(2107, 12, 31, 23, 59, 59, 0), static_cast<int32_t>(0xFF9FBF7Du)},
      {EncodeDateTime(1979, 12, 31, 23, 59, 59, 0), 0},
      {EncodeDateTime(2108, 1, 1, 0, 0, 0, 0), 0},
  };
  for (const PackRow& row : rows) EXPECT_EQ(row.Packed, DateTimeToFileDate(row.Value)) << DateTimeToISO(row.Value);
}

TEST(FileDate, UnpacksToEvenSecondsAndRejectsImpossibleFields) {
  EXPECT_EQ("2020-01-02T03:04:04", DateTimeToISO(FileDateToDateTime(0x50221882)));
  EXPECT_EQ("2107-12-31T23:59:58", DateTimeToISO(FileDateToDateTime(static_cast<int32_t>(0xFF9FBF7Du))));

  TDateTime value = 7;
  EXPECT_FALSE(TryFileDateToDateTime(0, value));           // month 0
  EXPECT_FALSE(TryFileDateToDateTime(0x5022001E, value));  // 60 seconds
  EXPECT_FALSE(TryFileDateToDateTime(0x5022C000, value));  // hour 24
  EXPECT_EQ(7, value);
  EXPECT_THROW(FileDateToDateTime(0), EConvertError);
}

TEST(FileDate, SetAndGetTheLastWriteTimeInLocalTime) {
  TempDir dir;
  const std::string file = dir.WriteFile("a.txt", "keep");
  ASSERT_TRUE(FileSetDate(file, EncodeDateTime(2001, 5, 6, 10, 11, 12, 0)));

  EXPECT_EQ("2001-05-06 10:11:12", LocalMTime(file));

  TDateTime read = 0;
  ASSERT_TRUE(FileGetDate(file, read));
  EXPECT_EQ("2001-05-06T10:11:12", DateTimeToISO(read));
  EXPECT_EQ("keep", test::ReadFile(file));
}

TEST(FileHandle, KeepsTheAccessTimeAndMilliseconds) {
  TempDir dir;
  const std::string file = dir.WriteFile("a.txt");
  const timespec times[2] = {{1000000000, 0}, {1000000000, 0}};
  ASSERT_EQ(0, ::utimensat(AT_FDCWD, file.c_str(), times, 0));

  TFileHandle handle = TFileHandle::OpenForWrite(file);
  ASSERT_TRUE(handle.IsOpen());
  ASSERT_TRUE(handle.SetLastWriteTime(EncodeDateTime(2010, 7, 8, 9, 10, 11, 345)));
  TDateTime read = 0;
  ASSERT_TRUE(handle.GetLastWriteTime(read));
  EXPECT_EQ("2010-07-08T09:10:11.345", DateTimeToISO(read));
  handle.Close();
  EXPECT_FALSE(handle.IsOpen());

  struct stat st {};
  ASSERT_EQ(0, ::stat(file.c_str(), &st));
  EXPECT_EQ(1000000000, st.st_atim.tv_sec);
}

TEST(FileHandle, ReadOnlyFileIsRefusedEvenToRoot) {
  TempDir dir;
  const std::string file = dir.WriteFile("locked.txt", "x");
  ::chmod(file.c_str(), 0444);
  TFileHandle handle = TFileHandle::OpenForWrite(file);
  EXPECT_FALSE(handle.IsOpen());
  EXPECT_EQ(kErrorAccessDenied, GetLastError());
  EXPECT_FALSE(FileSetDate(file, EncodeDateTime(2001, 1, 1, 0, 0, 0, 0)));
}

TEST(FileHandle, PipeWithoutReaderFailsInsteadOfWaiting) {
  TempDir dir;
  const std::string fifo = dir / "pipe";
  ASSERT_EQ(0, ::mkfifo(fifo.c_str(), 0644));
  TFileHandle handle = TFileHandle::OpenForWrite(fifo);
  EXPECT_FALSE(handle.IsOpen());
  EXPECT_NE(0u, GetLastError());
}

}  // namespace
}  // namespace jx
