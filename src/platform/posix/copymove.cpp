// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.
//
// Copying and moving files: the kernel's fast paths (copy_file_range,
// sendfile, renameat2) first, each with the plain call as its fallback. The
// rules for existing destinations are in ../copymove.cpp.

#include <fcntl.h>
#include <stdio.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/backend.h"
#include "platform/posix/attributebits.h"
#include "platform/posix/errors.h"
#include "rtl/paths.h"

namespace jx::backend {

namespace {

constexpr size_t kChunk = size_t{1} << 30;  // per kernel copy call; the kernel may do less

// A file descriptor closed when it goes out of scope.
class TFd {
 public:
  explicit TFd(int fd) : fd_(fd) {}
  ~TFd() {
    if (fd_ >= 0) ::close(fd_);
  }
  TFd(const TFd&) = delete;
  TFd& operator=(const TFd&) = delete;
  int Get() const { return fd_; }
  bool IsOpen() const { return fd_ >= 0; }
  int Release() {
    const int fd = fd_;
    fd_ = -1;
    return fd;
  }
  // Closes now; false when the close reports a (delayed write) error.
  bool Close() { return ::close(Release()) == 0; }

 private:
  int fd_;
};

enum class TCopyStep { Done, Failed, Unsupported };

bool IsUnsupported(int err) { return err == EXDEV || err == ENOSYS || err == EINVAL || err == EOPNOTSUPP; }

// In-kernel copy between the two files' current offsets, up to the size the
// source had when opened (so no further call is needed to find its end), or
// up to its end when it reported no size.
TCopyStep CopyByCopyFileRange(int in, int out, off_t size) {
  off_t copied = 0;
  for (;;) {
    const ssize_t n = ::copy_file_range(in, nullptr, out, nullptr, kChunk, 0);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return IsUnsupported(errno) ? TCopyStep::Unsupported : TCopyStep::Failed;
    copied += n;
    if (n == 0 || (size > 0 && copied >= size)) return TCopyStep::Done;
  }
}

TCopyStep CopyBySendfile(int in, int out) {
  for (;;) {
    const ssize_t n = ::sendfile(out, in, nullptr, kChunk);
    if (n > 0) continue;
    if (n == 0) return TCopyStep::Done;
    if (errno == EINTR) continue;
    return IsUnsupported(errno) ? TCopyStep::Unsupported : TCopyStep::Failed;
  }
}

bool WriteAll(int out, const char* data, size_t size) {
  while (size > 0) {
    const ssize_t n = ::write(out, data, size);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    data += n;
    size -= static_cast<size_t>(n);
  }
  return true;
}

// The buffer holds the whole of a small file, and 1 MiB at a time of a large one.
bool CopyByReadWrite(int in, int out, off_t size) {
  const size_t buffer_size = std::clamp<size_t>(static_cast<size_t>(size), 4096, size_t{1} << 20);
  std::vector<char> buffer(buffer_size);
  for (;;) {
    const ssize_t n = ::read(in, buffer.data(), buffer.size());
    if (n == 0) return true;
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 || !WriteAll(out, buffer.data(), static_cast<size_t>(n))) return false;
  }
}

// Each way picks up at the offsets where the one before gave up.
bool CopyContents(int in, int out, off_t size) {
  TCopyStep step = CopyByCopyFileRange(in, out, size);
  if (step == TCopyStep::Unsupported) step = CopyBySendfile(in, out);
  if (step == TCopyStep::Unsupported) return CopyByReadWrite(in, out, size);
  return step == TCopyStep::Done;
}

// Hidden, system and archive travel with the file when the source has them
// and the destination's file system can hold them.
bool CopyDosAttributes(int in, int out) {
  if (!StoredAttributesUsed()) return true;
  ssize_t size = ::fgetxattr(in, posix::kDosAttribName, nullptr, 0);
  if (size < 0) return errno == ENODATA || errno == ENOTSUP;
  std::vector<char> value(static_cast<size_t>(size));
  size = ::fgetxattr(in, posix::kDosAttribName, value.data(), value.size());
  if (size < 0) return false;
  return ::fsetxattr(out, posix::kDosAttribName, value.data(), static_cast<size_t>(size), 0) == 0 || errno == ENOTSUP;
}

bool CopyLastWriteTime(int out, const struct stat& source) {
  const struct timespec times[2] = {{0, UTIME_OMIT}, source.st_mtim};
  return ::futimens(out, times) == 0;
}

// A read-only source makes a read-only copy: every write bit cleared, as the
// attribute is set everywhere else. Done last, as the xattr needs write access.
bool CopyReadOnly(int out, const struct stat& source) {
  if (source.st_mode & S_IWUSR) return true;
  struct stat created;
  if (::fstat(out, &created) != 0) return false;
  return ::fchmod(out, created.st_mode & 07777 & ~mode_t{0222}) == 0;
}

// Creates `path` (which must not exist) as a copy of the open source; removes
// it again when any step fails. The new file starts with the source's
// permission bits, less the umask, and owner write until the copy is done.
bool CopyInto(int in, const struct stat& source, const std::string& path) {
  const mode_t mode = (source.st_mode & 0777) | S_IWUSR;
  TFd out(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
  if (!out.IsOpen()) return posix::FailWithErrno();
  if (CopyContents(in, out.Get(), source.st_size) && CopyDosAttributes(in, out.Get()) &&
      CopyLastWriteTime(out.Get(), source) && CopyReadOnly(out.Get(), source) && out.Close()) {
    return true;
  }
  const int error = errno;
  ::unlink(path.c_str());
  return posix::FailWith(error);
}

// Opens a regular file to copy from: its descriptor, or -1 and the last
// error. A directory is refused as the copy call refuses it.
int OpenSource(const std::string& source, struct stat& st) {
  TFd in(::open(source.c_str(), O_RDONLY | O_CLOEXEC));
  if (!in.IsOpen() || ::fstat(in.Get(), &st) != 0) {
    posix::FailWithErrno();
    return -1;
  }
  if (S_ISDIR(st.st_mode)) {
    posix::FailWith(EACCES);
    return -1;
  }
  return in.Release();
}

// A name beside `dest` for the copy that replaces it; unique within the process.
std::string TemporaryNameFor(const std::string& dest) {
  static std::atomic<unsigned> counter{0};
  return ExtractFilePath(dest) + ".jxcopy-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) +
         ".tmp";
}

// Copying a file onto itself is refused, as Win32 refuses it (the file is in use).
bool IsSameFile(const struct stat& source, const std::string& dest) {
  struct stat st;
  return ::stat(dest.c_str(), &st) == 0 && st.st_dev == source.st_dev && st.st_ino == source.st_ino;
}

}  // namespace

bool CopyToNewFile(const std::string& source, const std::string& dest) {
  struct stat st;
  TFd in(OpenSource(source, st));
  return in.IsOpen() && CopyInto(in.Get(), st, dest);
}

bool CopyOverFile(const std::string& source, const std::string& dest) {
  struct stat st;
  TFd in(OpenSource(source, st));
  if (!in.IsOpen()) return false;
  if (IsSameFile(st, dest)) return posix::FailWith(EBUSY);
  std::string temporary = TemporaryNameFor(dest);
  while (!CopyInto(in.Get(), st, temporary)) {
    if (GetLastError() != EEXIST) return false;  // else a leftover of that name: take another
    temporary = TemporaryNameFor(dest);
  }
  if (::rename(temporary.c_str(), dest.c_str()) == 0) return true;
  const int error = errno;
  ::unlink(temporary.c_str());
  return posix::FailWith(error);
}

TRenameResult RenameNoReplace(const std::string& source, const std::string& dest) {
  if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, dest.c_str(), RENAME_NOREPLACE) == 0) {
    return TRenameResult::Renamed;
  }
  // EINVAL also means "into its own subdirectory"; the plain rename then says so again.
  if (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP) return TRenameResult::Unsupported;
  posix::FailWithErrno();
  return TRenameResult::Failed;
}

bool RenamePath(const std::string& source, const std::string& dest) {
  return ::rename(source.c_str(), dest.c_str()) == 0 || posix::FailWithErrno();
}

}  // namespace jx::backend
