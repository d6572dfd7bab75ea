// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include "platform/copymove.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "platform/attributes.h"
#include "platform/posix/errors.h"

namespace jx {
namespace {

// Closes on every path out of CopyFileTo.
class FileDescriptor {
 public:
  explicit FileDescriptor(int fd) : fd_(fd) {}
  ~FileDescriptor() {
    if (fd_ >= 0) close(fd_);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int Get() const { return fd_; }
  bool Close() {
    const int fd = fd_;
    fd_ = -1;
    return close(fd) == 0;
  }

 private:
  int fd_;
};

// What Win32 refuses before anything is written: an existing destination when
// asked to, a directory, a read-only file, and the source itself (which
// truncating would destroy).
bool DestinationAccepts(const struct stat& source, const std::string& dest, bool fail_if_exists) {
  struct stat st;
  if (stat(dest.c_str(), &st) != 0) return errno == ENOENT || posix::FailWithErrno();
  if (fail_if_exists) return posix::FailWith(EEXIST);
  if (S_ISDIR(st.st_mode) || !(st.st_mode & S_IWUSR)) return posix::FailWith(EACCES);
  if (st.st_dev == source.st_dev && st.st_ino == source.st_ino) return posix::FailWith(EBUSY);
  return true;
}

// copy_file_range lets the file system share or copy blocks in the kernel;
// where it cannot (another file system, an old kernel), plain reads and writes.
bool CopyContents(int from, int to) {
  for (;;) {
    const ssize_t copied = copy_file_range(from, nullptr, to, nullptr, 1 << 30, 0);
    if (copied == 0) return true;
    if (copied < 0) break;
  }
  if (errno != EXDEV && errno != ENOSYS && errno != EINVAL && errno != EOPNOTSUPP) return posix::FailWithErrno();
  char buffer[1 << 16];
  for (;;) {
    const ssize_t got = read(from, buffer, sizeof buffer);
    if (got == 0) return true;
    if (got < 0) return posix::FailWithErrno();
    for (ssize_t done = 0; done < got;) {
      const ssize_t put = write(to, buffer + done, static_cast<size_t>(got - done));
      if (put < 0) return posix::FailWithErrno();
      done += put;
    }
  }
}

// The last-write time, then the attributes; where the destination cannot
// store hidden, system or archive, it keeps at least read-only.
bool CopyTimeAndAttributes(const struct stat& source_st, const std::string& source, const std::string& dest) {
  const timespec times[2] = {{0, UTIME_OMIT}, source_st.st_mtim};
  if (utimensat(AT_FDCWD, dest.c_str(), times, 0) != 0) return posix::FailWithErrno();
  const uint32_t attr = FileGetAttr(source);
  if (attr == kInvalidFileAttributes) return false;
  if (FileSetAttr(dest, attr)) return true;
  return GetLastError() == kErrorNotSupported && FileSetAttr(dest, attr & faReadOnly);
}

bool CopyOpened(int source_fd, const struct stat& source_st, const std::string& source, const std::string& dest,
                bool fail_if_exists) {
  const int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | (fail_if_exists ? O_EXCL : 0);
  FileDescriptor dest_fd(open(dest.c_str(), flags, (source_st.st_mode & 0777) | S_IWUSR));
  if (dest_fd.Get() < 0) return posix::FailWithErrno();
  bool ok = CopyContents(source_fd, dest_fd.Get());
  if (!dest_fd.Close() && ok) ok = posix::FailWithErrno();
  if (ok) ok = CopyTimeAndAttributes(source_st, source, dest);
  if (!ok) {
    // A half-written copy is worse than none.
    const uint32_t error = GetLastError();
    unlink(dest.c_str());
    SetLastError(error);
  }
  return ok;
}

}  // namespace

bool CopyFileTo(const std::string& source, const std::string& dest, bool fail_if_exists) {
  FileDescriptor source_fd(open(source.c_str(), O_RDONLY | O_CLOEXEC));
  if (source_fd.Get() < 0) return posix::FailWithErrno();
  struct stat source_st;
  if (fstat(source_fd.Get(), &source_st) != 0) return posix::FailWithErrno();
  if (S_ISDIR(source_st.st_mode)) return posix::FailWith(EACCES);
  if (!DestinationAccepts(source_st, dest, fail_if_exists)) return false;
  return CopyOpened(source_fd.Get(), source_st, source, dest, fail_if_exists);
}

// The kernel replaces an existing destination unless told not to; a file
// system that cannot be told is checked first.
bool MoveFileTo(const std::string& source, const std::string& dest) {
  if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, dest.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return posix::FailWithErrno();
  struct stat st;
  if (lstat(dest.c_str(), &st) == 0) return posix::FailWith(EEXIST);
  return rename(source.c_str(), dest.c_str()) == 0 || posix::FailWithErrno();
}

}  // namespace jx
