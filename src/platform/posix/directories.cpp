// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include "platform/directories.h"

#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/errors.h"
#include "rtl/paths.h"

namespace jx {

bool CreateDir(const std::string& path) { return mkdir(path.c_str(), 0777) == 0 || posix::FailWithErrno(); }

bool IsDirectoryLink(const std::string& path) {
  // Without a trailing '/', lstat looks at the link instead of through it.
  const std::string link = ExcludeTrailingPathDelimiter(path);
  struct stat st;
  return lstat(link.c_str(), &st) == 0 && S_ISLNK(st.st_mode) && stat(link.c_str(), &st) == 0 &&
         S_ISDIR(st.st_mode);
}

// Win32 removes a directory link itself, and refuses a read-only directory;
// the kernel only asks about the parent, so the check is made here.
bool RemoveDir(const std::string& path) {
  if (IsDirectoryLink(path)) {
    return unlink(ExcludeTrailingPathDelimiter(path).c_str()) == 0 || posix::FailWithErrno();
  }
  struct stat st;
  if (stat(path.c_str(), &st) != 0) return posix::FailWithErrno();
  if (!S_ISDIR(st.st_mode)) return posix::FailWith(ENOTDIR);
  if (!(st.st_mode & S_IWUSR)) return posix::FailWith(EACCES);
  if (rmdir(path.c_str()) == 0) return true;
  return posix::FailWith(errno == EEXIST ? ENOTEMPTY : errno);  // both mean "not empty" to rmdir
}

}  // namespace jx
