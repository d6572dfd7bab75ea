// POSIX backend of shortpath.h: POSIX file systems keep no 8.3 names, so an
// existing path is its own short name.
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
