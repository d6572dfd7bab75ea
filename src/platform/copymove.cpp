#include "platform/copymove.h"

#include <cstdint>

#include "platform/attributes.h"
#include "platform/backend.h"
#include "platform/fileops.h"
#include "platform/lasterror.h"

namespace jx {

namespace {

bool Fail(uint32_t code) {
  SetLastError(code);
  return false;
}

// Only a writable file may be copied over: the copy call refuses read-only
// files and directories, whoever runs the process.
bool MayCopyOver(const std::string& dest) {
  const uint32_t attr = FileGetAttr(dest);
  if (attr == kInvalidFileAttributes) return false;
  if (attr & (faReadOnly | faDirectory)) return Fail(kErrorAccessDenied);
  return true;
}

}  // namespace

bool CopyFileTo(const std::string& source, const std::string& dest, bool fail_if_exists) {
  if (backend::CopyToNewFile(source, dest)) return true;
  if (fail_if_exists || GetLastError() != kErrorAlreadyExists) return false;
  return MayCopyOver(dest) && backend::CopyOverFile(source, dest);
}

bool MoveFileTo(const std::string& source, const std::string& dest) {
  const backend::TRenameResult result = backend::RenameNoReplace(source, dest);
  if (result != backend::TRenameResult::Unsupported) return result == backend::TRenameResult::Renamed;
  // The file system cannot refuse an existing destination itself; a race with
  // another process creating `dest` in between is accepted there.
  if (FileGetAttr(dest) != kInvalidFileAttributes) return Fail(kErrorAlreadyExists);
  return backend::RenamePath(source, dest);
}

bool MoveFileAcrossVolumes(const std::string& source, const std::string& dest) {
  if (MoveFileTo(source, dest)) return true;
  const uint32_t error = GetLastError();
  if (error != kErrorNotSameDevice || DirectoryExists(source)) return Fail(error);
  if (!CopyFileTo(source, dest, true)) return false;
  RemoveFile(source);
  SetLastError(0);
  return true;
}

}  // namespace jx
