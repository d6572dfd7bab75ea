// POSIX backend: how a file's state maps to the faXxx bits. Directory and
// read-only come from the mode; hidden also from a leading '.' in the name;
// hidden, system and archive are stored in the extended attribute
// "user.DOSATTRIB" as "0x" + hex.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/attributes.h"

namespace jx::posix {

inline constexpr char kDosAttribName[] = "user.DOSATTRIB";
inline constexpr uint32_t kStoredBits = faHidden | faSysFile | faArchive;

// True for ".name"; "." and ".." are not hidden.
bool HasHiddenName(std::string_view name);
// The last component of a path ("a/.b/" -> ".b").
std::string_view LastComponent(std::string_view path);

uint32_t ModeAttributes(mode_t mode);  // faDirectory, faReadOnly
mode_t ModeWithReadOnly(mode_t mode, bool read_only);

// The stored bits of `path`: 0 without the extended attribute, where the
// file system has none, or while stored attributes are not used.
uint32_t StoredAttributes(const char* path);
// The stored bits of the entry `name` of the open directory `dir_fd`, which
// `path` names too; false (errno ENOENT) when it no longer exists. While
// stored attributes are not used: 0 without a call, whether it exists or not.
bool ReadStoredAttributesAt(int dir_fd, const char* name, const char* path, uint32_t& bits);
// Stores `bits` (hidden, system, archive), removing the attribute for 0;
// fails as not supported while stored attributes are not used.
bool WriteStoredAttributes(const char* path, uint32_t bits);

// Everything a path or directory entry reports, from its status, its name
// and its stored bits: the bits above, faNormal when none is set.
uint32_t AttributesOf(const struct stat& st, std::string_view name, uint32_t stored);

// The text form of the stored bits, and back (0 for anything else).
std::string FormatDosAttrib(uint32_t bits);
uint32_t ParseDosAttrib(std::string_view text);

}  // namespace jx::posix
