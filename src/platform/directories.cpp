#include "platform/directories.h"

#include "platform/fileops.h"
#include "platform/lasterror.h"
#include "rtl/paths.h"

namespace jx {

// Creates the parents first; a directory that appears meanwhile (another
// process creating the same tree) counts as created.
bool ForceDirectories(const std::string& path) {
  if (path.empty()) {
    SetLastError(kErrorInvalidName);
    return false;
  }
  if (DirectoryExists(path)) return true;
  const std::string dir = ExcludeTrailingPathDelimiter(path);
  const std::string parent = ExtractFileDir(dir);
  if (!parent.empty() && parent != dir && !ForceDirectories(parent)) return false;
  return CreateDir(dir) || (GetLastError() == kErrorAlreadyExists && DirectoryExists(dir));
}

}  // namespace jx
