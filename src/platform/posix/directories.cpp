// POSIX backend of directories.h: only the mkdir and rmdir calls and the
// mapping of their errors to the Win32 conditions the actions expect.
#include "platform/directories.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/attributes.h"
#include "platform/lasterror.h"

namespace jx {

bool CreateDir(const std::string& path) {
  if (::mkdir(path.c_str(), 0777) == 0) return true;
  SetLastError(errno);
  return false;
}

bool RemoveDir(const std::string& path) {
  // Win32 refuses to remove a read-only directory whoever asks; the kernel
  // would let root (or any owner of the parent) do it.
  const uint32_t attr = FileGetAttr(path);
  if (attr != kInvalidFileAttributes && (attr & faDirectory) && (attr & faReadOnly)) {
    SetLastError(kErrorAccessDenied);
    return false;
  }
  if (::rmdir(path.c_str()) == 0) return true;
  // Some systems report a directory that is not empty as EEXIST.
  SetLastError(errno == EEXIST ? kErrorDirNotEmpty : static_cast<uint32_t>(errno));
  return false;
}

}  // namespace jx
