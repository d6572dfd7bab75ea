// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.
//
// POSIX file systems keep no 8.3 names: an existing path is its own short name.

#include "platform/shortpath.h"

#include "platform/fileops.h"
#include "platform/lasterror.h"

namespace jx {

std::string ExtractShortPathName(const std::string& path) {
  if (FileExists(path) || DirectoryExists(path)) return path;
  SetLastError(kErrorFileNotFound);
  return "";
}

}  // namespace jx
