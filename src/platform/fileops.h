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

std::string GetCurrentDir();  // "" and the last error on failure
bool SetCurrentDir(const std::string& path);

}  // namespace jx
