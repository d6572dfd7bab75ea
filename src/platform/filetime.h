// File times as local TDateTime, and the MS-DOS packed date-time of the FAT
// file system. Each call that touches a file reports failure through its
// result and the thread's last error (see lasterror.h).
#pragma once

#include <cstdint>
#include <string>

#include "rtl/datetime.h"

namespace jx {

// MS-DOS packed date and time of a local date-time: date in the high word
// (year - 1980, month, day), time in the low word (hour, minute, second / 2),
// so seconds fall to an even number. 0 when the year is outside 1980..2107.
int32_t DateTimeToFileDate(TDateTime value);
// The date-time of a packed value; false when it holds no valid date and time.
bool TryFileDateToDateTime(int32_t file_date, TDateTime& value);
// As TryFileDateToDateTime; throws EConvertError on an invalid packed value.
TDateTime FileDateToDateTime(int32_t file_date);

// The last-write time of a file or directory, as local time.
bool FileGetDate(const std::string& path, TDateTime& value);
// Sets a file's last-write time; creation and access times stay as they are.
// The file is opened for writing, so a read-only file is refused with
// kErrorAccessDenied.
bool FileSetDate(const std::string& path, TDateTime value);

// An existing file opened by this process; closed when the handle dies.
class TFileHandle {
 public:
  TFileHandle() = default;
  ~TFileHandle();
  TFileHandle(TFileHandle&& other) noexcept;
  TFileHandle& operator=(TFileHandle&& other) noexcept;
  TFileHandle(const TFileHandle&) = delete;
  TFileHandle& operator=(const TFileHandle&) = delete;

  // Opens `path` for writing, shared with every other reader and writer; it
  // is neither created nor truncated, and opening never waits (a pipe without
  // a reader fails). A read-only file is refused with kErrorAccessDenied, as
  // on Win32, whoever runs the process. Check IsOpen, then the last error.
  static TFileHandle OpenForWrite(const std::string& path);

  bool IsOpen() const { return native_ != kNoFile; }
  void Close();

  // The last-write time as local time, to the millisecond.
  bool GetLastWriteTime(TDateTime& value) const;
  // Sets the last-write time (to the millisecond); creation and access times stay.
  bool SetLastWriteTime(TDateTime value);

 private:
  static constexpr intptr_t kNoFile = -1;  // a closed descriptor, INVALID_HANDLE_VALUE on Win32
  explicit TFileHandle(intptr_t native) : native_(native) {}

  intptr_t native_ = kNoFile;  // POSIX descriptor or Win32 HANDLE
};

}  // namespace jx
