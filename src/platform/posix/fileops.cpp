// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include "platform/fileops.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "platform/posix/errors.h"

namespace jx {

namespace {

// Existence needs the file type only: the stored bits would cost a further
// call per path.
bool StatPath(const std::string& path, struct stat& st) { return stat(path.c_str(), &st) == 0 || posix::FailWithErrno(); }

}  // namespace

bool FileExists(const std::string& path) {
  struct stat st;
  return StatPath(path, st) && !S_ISDIR(st.st_mode);
}

bool DirectoryExists(const std::string& path) {
  struct stat st;
  return StatPath(path, st) && S_ISDIR(st.st_mode);
}

// Win32 refuses to delete a directory or a read-only file; the kernel would let
// root unlink a file nobody may write, so the check is made here. A symbolic
// link is removed itself, whatever its target.
bool RemoveFile(const std::string& path) {
  struct stat st;
  if (lstat(path.c_str(), &st) != 0) return posix::FailWithErrno();
  if (S_ISDIR(st.st_mode) || (!S_ISLNK(st.st_mode) && !(st.st_mode & S_IWUSR))) return posix::FailWith(EACCES);
  return unlink(path.c_str()) == 0 || posix::FailWithErrno();
}

std::string GetCurrentDir() {
  std::string buffer(256, '\0');
  while (getcwd(buffer.data(), buffer.size()) == nullptr) {
    if (errno != ERANGE) {
      posix::FailWithErrno();
      return "";
    }
    buffer.resize(buffer.size() * 2);
  }
  buffer.resize(std::strlen(buffer.c_str()));
  return buffer;
}

bool SetCurrentDir(const std::string& path) { return chdir(path.c_str()) == 0 || posix::FailWithErrno(); }

}  // namespace jx
