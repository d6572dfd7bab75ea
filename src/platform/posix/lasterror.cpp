// POSIX backend: only code that works on every POSIX system lives here; the
// portable logic above the backends must not need any of it.
//
// The last error is a thread-local errno value; its text is strerror's.

#include "platform/lasterror.h"

#include <cerrno>
#include <cstring>

namespace jx {

const uint32_t kErrorFileNotFound = ENOENT;
const uint32_t kErrorPathNotFound = ENOENT;
const uint32_t kErrorAccessDenied = EACCES;
const uint32_t kErrorAlreadyExists = EEXIST;
const uint32_t kErrorDirNotEmpty = ENOTEMPTY;
const uint32_t kErrorNotSameDevice = EXDEV;
const uint32_t kErrorNoMoreFiles = ENODATA;
const uint32_t kErrorNotSupported = ENOTSUP;
const uint32_t kErrorInvalidName = EINVAL;

namespace {

thread_local uint32_t t_last_error = 0;

// strerror_r comes in two shapes: the GNU one returns the text, the POSIX one
// fills the buffer and returns 0.
[[maybe_unused]] const char* ErrorText(const char* text, const char*) { return text; }
[[maybe_unused]] const char* ErrorText(int result, const char* buffer) { return result == 0 ? buffer : ""; }

}  // namespace

uint32_t GetLastError() { return t_last_error; }

void SetLastError(uint32_t code) { t_last_error = code; }

std::string SysErrorMessage(uint32_t code) {
  if (code == 0) return "";
  char buffer[256] = "";
  return ErrorText(strerror_r(static_cast<int>(code), buffer, sizeof buffer), buffer);
}

}  // namespace jx
