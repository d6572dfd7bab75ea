// File and directory operations. Each reports failure through its result and
// the thread's last error (see lasterror.h). Names avoid the Win32 macro names
// (DeleteFile, CopyFile, ...) so the Windows backend can include <windows.h>.
#pragma once

#include <string>

namespace jx {

bool FileExists(const std::string& path);  // a file (not a directory) exists
bool DirectoryExists(const std::string& path);
// Deletes a file (a symbolic link itself, not its target). A read-only file
// and a directory are refused with kErrorAccessDenied, as on Win32, whoever
// runs the process.
bool RemoveFile(const std::string& path);
// Whether a name can outlast a delete that succeeded: on Windows a file that
// is still open elsewhere keeps its name until the last handle closes; a
// successful unlink on POSIX has removed the name, so looking again only
// costs a call per file.
#ifdef _WIN32
inline constexpr bool kRemovedNameMayLinger = true;
#else
inline constexpr bool kRemovedNameMayLinger = false;
#endif

std::string GetCurrentDir();  // "" and the last error on failure
bool SetCurrentDir(const std::string& path);

}  // namespace jx
