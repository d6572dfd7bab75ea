// The "last OS error" model of the platform layer: a call reports failure
// through its result, and sets the calling thread's last error code, which
// the caller reads with GetLastError and turns into text with SysErrorMessage.
// Codes are errno values on POSIX and Win32 error codes on Windows.
#pragma once

#include <cstdint>
#include <string>

namespace jx {

uint32_t GetLastError();
void SetLastError(uint32_t code);
// The system's text for an error code ("Permission denied"); "" for 0.
std::string SysErrorMessage(uint32_t code);
// Throws EOSError "System Error.  Code: N.\n<message>" for the last error
// ("A call to an OS function failed" when it is 0).
[[noreturn]] void RaiseLastOSError();

// The portable names of the error conditions the actions test for or emulate.
// On POSIX: file and path not found are both ENOENT; "no more files" is
// ENODATA, so that the end of a search is never mistaken for a real error.
extern const uint32_t kErrorFileNotFound;
extern const uint32_t kErrorPathNotFound;
extern const uint32_t kErrorAccessDenied;  // also: read-only file or directory
extern const uint32_t kErrorAlreadyExists;
extern const uint32_t kErrorDirNotEmpty;
extern const uint32_t kErrorNotSameDevice;  // a move across file systems
extern const uint32_t kErrorNoMoreFiles;    // a search has no (further) match
extern const uint32_t kErrorNotSupported;   // e.g. attribute bits without extended attributes
extern const uint32_t kErrorInvalidName;

}  // namespace jx
