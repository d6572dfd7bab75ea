#include "platform/directories.h"

#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"

namespace jx {

// Creates the missing parents first, nearest the root first, each through the
// backend's CreateDir; stops at the first level that cannot be created.
bool ForceDirectories(const std::string& path) {
  if (DirectoryExists(path)) return true;
  const std::string dir = ExcludeTrailingPathDelimiter(path);
  if (dir.empty()) {
    SetLastError(kErrorPathNotFound);
    return false;
  }
  const std::string parent = ExtractFileDir(dir);
  if (!parent.empty() && parent != dir && !ForceDirectories(parent)) return false;
  // Another process may create the same directory in between; that is success too.
  return CreateDir(dir) || DirectoryExists(dir);
}

}  // namespace jx
