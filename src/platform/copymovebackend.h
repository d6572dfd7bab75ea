// The primitives each backend supplies for copymove.cpp. Each reports failure
// through its result and the thread's last error.
#pragma once

#include <string>

namespace jx::backend {

// Copies `source` to `dest`, which must not exist yet (kErrorAlreadyExists
// when it does). Contents, last-write time and attributes are carried over;
// on failure no `dest` is left behind.
bool CopyToNewFile(const std::string& source, const std::string& dest);
// The same onto an existing `dest`, replacing it only once the copy is whole.
bool CopyOverFile(const std::string& source, const std::string& dest);

enum class TRenameResult { Renamed, Failed, Unsupported };
// Renames unless `dest` exists (kErrorAlreadyExists); Unsupported when the
// file system cannot make that check itself.
TRenameResult RenameNoReplace(const std::string& source, const std::string& dest);
// Renames, replacing whatever `dest` is, as the file system allows.
bool RenamePath(const std::string& source, const std::string& dest);

}  // namespace jx::backend
