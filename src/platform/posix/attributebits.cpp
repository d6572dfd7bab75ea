// POSIX backend: only calls of the POSIX systems we build for (Linux with
// glibc) live here; portable logic belongs above, in src/platform.

#include "platform/posix/attributebits.h"

#include <sys/xattr.h>

#include <charconv>

#include "platform/attributes.h"
#include "platform/posix/errors.h"

namespace jx::posix {
namespace {

constexpr mode_t kAllWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;

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
  uint32_t bits = 0;
  ReadStoredAttributes(path, bits);
  return bits;
}

bool ReadStoredAttributes(const char* path, uint32_t& bits) {
  char value[64];
  const ssize_t size = getxattr(path, kDosAttribName, value, sizeof value);
  bits = size > 0 ? ParseDosAttrib(std::string_view(value, static_cast<size_t>(size))) : 0;
  return size >= 0 || errno != ENOENT || FailWithErrno();
}

bool WriteStoredAttributes(const char* path, uint32_t bits) {
  if (bits == 0) return removexattr(path, kDosAttribName) == 0 || errno == ENODATA || FailWithErrno();
  const std::string text = FormatDosAttrib(bits);
  return setxattr(path, kDosAttribName, text.data(), text.size(), 0) == 0 || FailWithErrno();
}

uint32_t AttributesOf(const struct stat& st, std::string_view name, const char* path) {
  uint32_t attr = ModeAttributes(st.st_mode) | StoredAttributes(path);
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
