// POSIX backend of directories.h: only the calls that create, examine and
// remove directories and links, and the Win32 rules they must follow here.
#include "platform/directories.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/attributes.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"

namespace jx {

bool CreateDir(const std::string& path) {
  if (::mkdir(path.c_str(), 0777) == 0) return true;
  SetLastError(errno);
  return false;
}

bool IsDirectoryLink(const std::string& path) {
  // A trailing '/' would make lstat look through the link.
  const std::string link = ExcludeTrailingPathDelimiter(path);
  struct stat link_stat, target_stat;
  return ::lstat(link.c_str(), &link_stat) == 0 && S_ISLNK(link_stat.st_mode) &&
         ::stat(link.c_str(), &target_stat) == 0 && S_ISDIR(target_stat.st_mode);
}

bool RemoveDir(const std::string& path) {
  // Win32 removes a directory link itself, never what it points to.
  if (IsDirectoryLink(path)) {
    if (::unlink(ExcludeTrailingPathDelimiter(path).c_str()) == 0) return true;
    SetLastError(errno);
    return false;
  }
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
