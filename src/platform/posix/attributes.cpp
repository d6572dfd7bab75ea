// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include "platform/attributes.h"

#include <sys/stat.h>

#include "platform/posix/attributebits.h"
#include "platform/posix/errors.h"

namespace jx {
namespace {

// Writing an extended attribute needs write access, which a read-only file
// lends for the moment of the write.
bool StoreBits(const std::string& path, mode_t mode, uint32_t bits) {
  const bool lend_write = !(mode & S_IWUSR);
  if (lend_write && chmod(path.c_str(), mode | S_IWUSR) != 0) return posix::FailWithErrno();
  const bool stored = posix::WriteStoredAttributes(path.c_str(), bits);
  const uint32_t error = GetLastError();
  if (lend_write) chmod(path.c_str(), mode);
  SetLastError(error);
  return stored;
}

}  // namespace

uint32_t FileGetAttr(const std::string& path) {
  struct stat st;
  if (stat(path.c_str(), &st) != 0) {
    posix::FailWithErrno();
    return kInvalidFileAttributes;
  }
  return posix::AttributesOf(st, posix::LastComponent(path), posix::StoredAttributes(path.c_str()));
}

// A dot name is hidden by its name alone, so its hidden bit is never stored;
// the extended attribute is touched only when a stored bit changes, so a file
// system without them can still take read-only changes.
bool FileSetAttr(const std::string& path, uint32_t attr) {
  struct stat st;
  if (stat(path.c_str(), &st) != 0) return posix::FailWithErrno();
  const mode_t mode = st.st_mode & 07777;
  uint32_t wanted = attr & posix::kStoredBits;
  if (posix::HasHiddenName(posix::LastComponent(path))) wanted &= ~faHidden;
  if (wanted != posix::StoredAttributes(path.c_str()) && !StoreBits(path, mode, wanted)) return false;
  const mode_t wanted_mode = posix::ModeWithReadOnly(mode, attr & faReadOnly);
  if (wanted_mode != mode && chmod(path.c_str(), wanted_mode) != 0) return posix::FailWithErrno();
  return true;
}

}  // namespace jx
