// The primitives each backend (posix/, win32/) provides to the portable code
// of the platform layer. Private to src/platform. Each primitive is a thin OS
// call: it reports failure through its result and sets the last error.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/findfile.h"
#include "rtl/datetime.h"

namespace jx {
struct TLocaleTimeInfo;  // platform/localeinfo.h
}  // namespace jx

namespace jx::backend {

// Whether file names differ by letter case (wildcard matching follows it).
#ifdef _WIN32
inline constexpr bool kNamesIgnoreCase = true;
#else
inline constexpr bool kNamesIgnoreCase = false;
#endif

// --- Directory reading ----------------------------------------------------

// One entry of a directory being read, with the values Win32 reports: size 0
// for a directory, faNormal when no other attribute is set. After
// ReadDirEntry, `attr` holds the bits the backend knows without a further call
// (a backend whose directory read returns everything fills every field);
// ReadEntryDetails completes the entry.
struct RawDirEntry {
  std::string_view name;  // valid until the next ReadDirEntry
  uint32_t attr = 0;
  bool kind_known = true;  // whether faDirectory in `attr` is already right
  int64_t size = 0;
  int64_t mtime_seconds = 0;  // last write, seconds since the Unix epoch (UTC)
  int32_t mtime_nanoseconds = 0;
};

class DirReader;  // an open directory, defined by the backend
struct DirReaderCloser {
  void operator()(DirReader* reader) const;
};
using DirReaderPtr = std::unique_ptr<DirReader, DirReaderCloser>;

// Opens `dir` ("" is the current directory). Null and the last error on
// failure; a directory that does not exist gives kErrorPathNotFound.
DirReaderPtr OpenDirReader(const std::string& dir);
// The next entry, "." and ".." included, in the order the OS returns them.
// False at the end (last error kErrorNoMoreFiles) or on a read error.
bool ReadDirEntry(DirReader& reader, RawDirEntry& entry);
// Completes attr, size and time of the entry just read; for Kind, at least
// its directory, hidden, system and archive bits. False when it can no longer
// be examined (removed meanwhile, say).
bool ReadEntryDetails(DirReader& reader, RawDirEntry& entry, TFindDetail detail);

// --- Clock ----------------------------------------------------------------

void ReadUtcClock(int64_t& seconds, int32_t& nanoseconds);
// Seconds east of UTC of the local time zone at a point in time.
int64_t UtcOffsetAt(int64_t unix_seconds);
// The point in time, in whole seconds, of a local date and time (milliseconds
// ignored); a reading that daylight saving time makes ambiguous or skips is
// resolved as the C library's mktime does.
int64_t LocalPartsToUnix(const TDateTimeParts& local);

// --- Copying and moving ---------------------------------------------------

// Copies `source` to `dest`, which must not exist yet (kErrorAlreadyExists
// when it does). Contents, last-write time and attributes are carried over;
// on failure no `dest` is left behind.
bool CopyToNewFile(const std::string& source, const std::string& dest);
// The same onto an existing `dest`, replacing it only once the copy is whole.
bool CopyOverFile(const std::string& source, const std::string& dest);

enum class TRenameResult { Renamed, Failed, Unsupported };
// Renames unless `dest` exists (kErrorAlreadyExists); Unsupported when the
// file system cannot make that check itself.
TRenameResult RenameNoReplace(const std::string& source, const std::string& dest);
// Renames, replacing whatever `dest` is, as the file system allows.
bool RenamePath(const std::string& source, const std::string& dest);

// --- Locale ---------------------------------------------------------------

// The time conventions of the user's locale, without changing the process's
// own locale. False for the "C"/"POSIX" locale and when the user's locale
// cannot be read.
bool ReadLocaleTimeInfo(TLocaleTimeInfo& info);

}  // namespace jx::backend
