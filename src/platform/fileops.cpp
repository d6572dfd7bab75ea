#include "platform/fileops.h"

#include "platform/attributes.h"

namespace jx {

bool FileExists(const std::string& path) {
  const uint32_t attr = FileGetAttr(path);
  return attr != kInvalidFileAttributes && !(attr & faDirectory);
}

bool DirectoryExists(const std::string& path) {
  const uint32_t attr = FileGetAttr(path);
  return attr != kInvalidFileAttributes && (attr & faDirectory);
}

}  // namespace jx
