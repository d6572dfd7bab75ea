// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include "platform/posix/attributebits.h"

#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <atomic>
#include <charconv>

#include "platform/attributes.h"
#include "platform/posix/errors.h"

namespace jx::posix {
namespace {

constexpr mode_t kAllWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;

// getxattrat (Linux 6.13) finds the name in an open directory instead of
// walking the whole path again. The C library has no wrapper for it yet; new
// calls have one number on every architecture.
constexpr long kGetXattrAtCall = 464;
struct XattrArgs {
  uint64_t value;
  uint32_t size;
  uint32_t flags;
};

// An older kernel lacks the call (ENOSYS) and a sandbox may refuse it
// (EPERM): from the first such answer on, the path serves.
ssize_t GetDosAttribAt(int dir_fd, const char* name, const char* path, char* value, size_t size) {
  static std::atomic<bool> use_path{false};
  if (!use_path.load(std::memory_order_relaxed)) {
    XattrArgs args{reinterpret_cast<uintptr_t>(value), static_cast<uint32_t>(size), 0};
    const long result = syscall(kGetXattrAtCall, dir_fd, name, 0, kDosAttribName, &args, sizeof args);
    if (result >= 0 || (errno != ENOSYS && errno != EPERM)) return result;
    use_path.store(true, std::memory_order_relaxed);
  }
  return getxattr(path, kDosAttribName, value, size);
}

// The stored bits of an attribute value of `size` bytes; none when the read
// failed.
uint32_t BitsOf(const char* value, ssize_t size) {
  return size > 0 ? ParseDosAttrib(std::string_view(value, static_cast<size_t>(size))) : 0;
}

}  // namespace

bool HasHiddenName(std::string_view name) { return name.size() > 1 && name[0] == '.' && name != ".."; }

std::string_view LastComponent(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  const size_t slash = path.rfind('/');
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

uint32_t ModeAttributes(mode_t mode) {
  uint32_t attr = 0;
  if (S_ISDIR(mode)) attr |= faDirectory;
  if (!(mode & S_IWUSR)) attr |= faReadOnly;
  return attr;
}

mode_t ModeWithReadOnly(mode_t mode, bool read_only) { return read_only ? mode & ~kAllWriteBits : mode | S_IWUSR; }

uint32_t StoredAttributes(const char* path) {
  if (!StoredAttributesUsed()) return 0;
  char value[64];
  return BitsOf(value, getxattr(path, kDosAttribName, value, sizeof value));
}

bool ReadStoredAttributesAt(int dir_fd, const char* name, const char* path, uint32_t& bits) {
  bits = 0;
  if (!StoredAttributesUsed()) return true;
  char value[64];
  const ssize_t size = GetDosAttribAt(dir_fd, name, path, value, sizeof value);
  bits = BitsOf(value, size);
  return size >= 0 || errno != ENOENT;
}

bool WriteStoredAttributes(const char* path, uint32_t bits) {
  if (!StoredAttributesUsed()) return FailWith(ENOTSUP);
  if (bits == 0) return removexattr(path, kDosAttribName) == 0 || errno == ENODATA || FailWithErrno();
  const std::string text = FormatDosAttrib(bits);
  return setxattr(path, kDosAttribName, text.data(), text.size(), 0) == 0 || FailWithErrno();
}

uint32_t AttributesOf(const struct stat& st, std::string_view name, uint32_t stored) {
  uint32_t attr = ModeAttributes(st.st_mode) | stored;
  if (HasHiddenName(name)) attr |= faHidden;
  return attr != 0 ? attr : faNormal;
}

std::string FormatDosAttrib(uint32_t bits) {
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, bits, 16).ptr;
  return "0x" + std::string(digits, end);
}

// Other writers may append a NUL or keep further bits; only ours count.
uint32_t ParseDosAttrib(std::string_view text) {
  while (!text.empty() && text.back() == '\0') text.remove_suffix(1);
  if (text.size() < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X')) return 0;
  uint32_t bits = 0;
  const auto [end, error] = std::from_chars(text.data() + 2, text.data() + text.size(), bits, 16);
  if (error != std::errc() || end != text.data() + text.size()) return 0;
  return bits & kStoredBits;
}

}  // namespace jx::posix
