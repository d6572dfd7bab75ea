// Copying and moving files the way the operating system's copy and move calls
// do. Each reports failure through its result and the thread's last error.
#pragma once

#include <string>

namespace jx {

// Copies contents, last-write time and attributes. With `fail_if_exists` an
// existing destination fails with kErrorAlreadyExists; a read-only
// destination is refused with kErrorAccessDenied. Uses the kernel's fast
// copy paths where the file system allows.
bool CopyFileTo(const std::string& source, const std::string& dest, bool fail_if_exists);
// Moves (renames) a file or directory within one file system. Fails with
// kErrorAlreadyExists when `dest` exists and with kErrorNotSameDevice across
// file systems (nothing is copied).
bool MoveFileTo(const std::string& source, const std::string& dest);
// As MoveFileTo, but a file (not a directory) goes to another file system too:
// it is copied there with its times and attributes, then the source is
// deleted. A source that cannot be deleted stays beside its copy, and the move
// still counts as done, as the system's move call has it.
bool MoveFileAcrossVolumes(const std::string& source, const std::string& dest);

}  // namespace jx
