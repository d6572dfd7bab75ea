// File attributes with the Win32 bit values. On POSIX: directory comes from
// the file type; read-only means the owner cannot write; hidden means the name
// starts with '.' or the stored hidden flag is set; hidden, system and archive
// are stored in the extended attribute "user.DOSATTRIB" as "0x" + hex.
#pragma once

#include <cstdint>
#include <string>

namespace jx {

inline constexpr uint32_t faReadOnly = 0x01;
inline constexpr uint32_t faHidden = 0x02;
inline constexpr uint32_t faSysFile = 0x04;
inline constexpr uint32_t faVolumeID = 0x08;
inline constexpr uint32_t faDirectory = 0x10;
inline constexpr uint32_t faArchive = 0x20;
inline constexpr uint32_t faNormal = 0x80;  // reported when no other bit is set
inline constexpr uint32_t faAnyFile = 0x3F;
inline constexpr uint32_t kInvalidFileAttributes = 0xFFFFFFFF;

// The attributes of a file or directory, or kInvalidFileAttributes (and the
// last error) when it cannot be read.
uint32_t FileGetAttr(const std::string& path);
// Sets read-only, hidden, system and archive from `attr` (other bits are
// ignored). False and the last error on failure; on a file system without
// extended attributes, changing hidden, system or archive fails with
// kErrorNotSupported. A name starting with '.' stays hidden whatever `attr` says.
bool FileSetAttr(const std::string& path, uint32_t attr);

// On POSIX the stored bits cost one call per file to read, which dominates a
// search over many files. Switched off, every file system acts as one without
// extended attributes: hidden, system and archive read as clear (a leading
// '.' still hides), changing them fails with kErrorNotSupported and copies do
// not carry them. On by default, for the whole process; Windows keeps the
// attributes itself and ignores the switch.
void SetStoredAttributesUsed(bool used);
bool StoredAttributesUsed();

}  // namespace jx
