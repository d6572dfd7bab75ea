// Creating and removing directories. Each reports failure through its result
// and the thread's last error (see lasterror.h).
#pragma once

#include <string>

namespace jx {

// Creates one directory; its parent must exist. Fails with kErrorAlreadyExists
// when something of that name exists.
bool CreateDir(const std::string& path);
// Creates a directory and every missing parent; true when it exists afterwards.
bool ForceDirectories(const std::string& path);
// Removes an empty directory, or the link itself when `path` is a link to a
// directory. A read-only directory is refused with kErrorAccessDenied; one
// that is not empty fails with kErrorDirNotEmpty.
bool RemoveDir(const std::string& path);
// Whether `path` is a symbolic link (or junction) to a directory: a search
// reports it as a directory, but its contents belong elsewhere.
bool IsDirectoryLink(const std::string& path);

}  // namespace jx
