// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include "platform/filetime.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/clock.h"
#include "platform/posix/attributebits.h"
#include "platform/posix/errors.h"

namespace jx {
namespace {

TDateTime LocalTimeOf(const timespec& t) { return UnixTimeToLocal(t.tv_sec, static_cast<int32_t>(t.tv_nsec)); }

// The whole local second and its milliseconds are converted apart, so the
// milliseconds never shift the second.
timespec UnixTimeOf(TDateTime local) {
  const TDateTimeParts t = DecodeDateTime(local);
  timespec result{};
  result.tv_sec = LocalToUnixTime(EncodeDateTime(t.Year, t.Month, t.Day, t.Hour, t.Minute, t.Second, 0));
  result.tv_nsec = t.MilliSecond * 1000000L;
  return result;
}

int Descriptor(intptr_t native) { return static_cast<int>(native); }

}  // namespace

bool FileGetDate(const std::string& path, TDateTime& value) {
  struct stat st;
  if (stat(path.c_str(), &st) != 0) return posix::FailWithErrno();
  value = LocalTimeOf(st.st_mtim);
  return true;
}

// O_NONBLOCK: a pipe without a reader fails at once instead of hanging the
// build; regular files ignore the flag. The kernel would let root write a
// file nobody may write; Win32 refuses it to everyone, so the check is here.
TFileHandle TFileHandle::OpenForWrite(const std::string& path) {
  TFileHandle file(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file.IsOpen()) {
    posix::FailWithErrno();
    return file;
  }
  struct stat st;
  if (fstat(Descriptor(file.native_), &st) != 0) {
    posix::FailWithErrno();
    file.Close();
  } else if (posix::ModeAttributes(st.st_mode) & faReadOnly) {
    posix::FailWith(EACCES);
    file.Close();
  }
  return file;
}

void TFileHandle::Close() {
  if (native_ == kNoFile) return;
  close(Descriptor(native_));
  native_ = kNoFile;
}

bool TFileHandle::GetLastWriteTime(TDateTime& value) const {
  struct stat st;
  if (fstat(Descriptor(native_), &st) != 0) return posix::FailWithErrno();
  value = LocalTimeOf(st.st_mtim);
  return true;
}

bool TFileHandle::SetLastWriteTime(TDateTime value) {
  const timespec times[2] = {{0, UTIME_OMIT}, UnixTimeOf(value)};
  return futimens(Descriptor(native_), times) == 0 || posix::FailWithErrno();
}

}  // namespace jx
