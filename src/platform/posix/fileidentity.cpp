// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include "platform/fileidentity.h"

#include <sys/stat.h>

#include "platform/posix/errors.h"

namespace jx {

bool GetFileIdentity(const std::string& path, TFileIdentity& identity) {
  struct stat st;
  if (stat(path.c_str(), &st) != 0) return posix::FailWithErrno();
  identity.Device = static_cast<uint64_t>(st.st_dev);
  identity.Index = static_cast<uint64_t>(st.st_ino);
  return true;
}

}  // namespace jx
