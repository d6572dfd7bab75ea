// POSIX backend of filetime.h: descriptors, stat and futimens. Only OS calls
// live here; the local-time conversions are clock.h's.
#include "platform/filetime.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/clock.h"
#include "platform/lasterror.h"

namespace jx {

namespace {

TDateTime LocalTimeOf(const timespec& t) { return UnixTimeToLocal(t.tv_sec, static_cast<int32_t>(t.tv_nsec)); }

// The whole local second and its milliseconds are converted apart, so the
// millisecond part never shifts the second.
timespec UnixTimeOf(TDateTime local) {
  const TDateTimeParts t = DecodeDateTime(local);
  timespec result{};
  result.tv_sec = LocalToUnixTime(EncodeDateTime(t.Year, t.Month, t.Day, t.Hour, t.Minute, t.Second, 0));
  result.tv_nsec = t.MilliSecond * 1000000L;
  return result;
}

bool FailWithErrno() {
  SetLastError(static_cast<uint32_t>(errno));
  return false;
}

}  // namespace

bool FileGetDate(const std::string& path, TDateTime& value) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0) return FailWithErrno();
  value = LocalTimeOf(st.st_mtim);
  return true;
}

TFileHandle TFileHandle::OpenForWrite(const std::string& path) {
  // O_NONBLOCK: a pipe without a reader fails at once instead of hanging the
  // build; regular files ignore the flag.
  const int fd = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (fd < 0) {
    FailWithErrno();
    return TFileHandle();
  }
  TFileHandle file(fd);
  struct stat st {};
  if (::fstat(fd, &st) != 0) {
    FailWithErrno();
    return TFileHandle();
  }
  // The kernel lets root write anything; Win32 refuses a read-only file to everyone.
  if ((st.st_mode & S_IWUSR) == 0) {
    SetLastError(kErrorAccessDenied);
    return TFileHandle();
  }
  return file;
}

void TFileHandle::Close() {
  if (native_ == kNoFile) return;
  ::close(static_cast<int>(native_));
  native_ = kNoFile;
}

bool TFileHandle::GetLastWriteTime(TDateTime& value) const {
  struct stat st {};
  if (::fstat(static_cast<int>(native_), &st) != 0) return FailWithErrno();
  value = LocalTimeOf(st.st_mtim);
  return true;
}

bool TFileHandle::SetLastWriteTime(TDateTime value) {
  const timespec times[2] = {{0, UTIME_OMIT}, UnixTimeOf(value)};
  if (::futimens(static_cast<int>(native_), times) != 0) return FailWithErrno();
  return true;
}

}  // namespace jx
