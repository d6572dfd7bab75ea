// POSIX backend helpers: record an errno value as the last error and report
// failure, so that each OS wrapper ends in one line.
#pragma once

#include <cerrno>

#include "platform/lasterror.h"

namespace jx::posix {

inline bool FailWith(int code) {
  SetLastError(static_cast<uint32_t>(code));
  return false;
}

inline bool FailWithErrno() { return FailWith(errno); }

}  // namespace jx::posix
